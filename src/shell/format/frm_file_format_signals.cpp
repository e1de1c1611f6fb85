// SPDX-License-Identifier: MIT
//
// What the controls of the data format dialog do, and their order for the Tab key.

#include "shell/controls/control_kit.h"
#include "shell/format/format_grid.h"
#include "shell/format/frm_file_format.h"
#include "shell/format/sample_net.h"
#include "shell/format/suggestion_line.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace quandrel {

void frmFileFormat::SetOrder() {
    const auto columns = [this](std::size_t from, std::size_t to) {
        return std::span(cboColumns).subspan(from, to - from);
    };
    TabOrder()
        .Then(std::array<QWidget*, 3>{fraSuggestion->cboSuggestions,
                                      fraSuggestion->cmdUseSuggestion,
                                      fraSuggestion->cmdOwnSettings})
        .Then(tabConventions)
        .Then(optPrimary)
        .Then(columns(0, kSlotSecondaryDip))
        .Then(optSecondary)
        .Then(columns(kSlotSecondaryDip, kSlotAppendedPlunge))
        .Then(std::array<QWidget*, 6>{chkAppended[0], chkAppended[1], cboAppName[0], chkAppended[2],
                                      cboAppName[1], chkFreqIsAppended})
        .Then(cboPlace)
        .Then(columns(kSlotAppendedPlunge, cboColumns.size()))
        .Then(std::array<QWidget*, 4>{cmdInitialColumns, cmdUseSaved, chkSaveSettings[0],
                                      chkSaveSettings[2]})
        .Then(optPlaneConv)
        .Then(std::array<QWidget*, 8>{optLineConv[1], optLineConv[0], optDirnConv[0],
                                      optDirnConv[1], cboSeparator[0], cboSeparator[1],
                                      optNegativePlunge[0], optNegativePlunge[1]})
        .Then(chkComments)
        .Then(std::array<QWidget*, 2>{chkPairs, chkSaveSettings[1]})
        .Then(cmdDataType)
        .Then(std::array<QWidget*, 9>{chkSecondaryData, cmdButtons[3], cmdButtons[2], cboTable,
                                      cboDelim, chkTableHeadings, grdDataFormat, cmdButtons[0],
                                      cmdButtons[1]});
}

void frmFileFormat::FollowOptions(std::span<QRadioButton* const> options) {
    for (QRadioButton* option : options) {
        if (option != nullptr) {
            connect(option, &QRadioButton::toggled, this, [this](bool isOn) {
                if (isOn) {
                    FormatChanged();
                }
            });
        }
    }
}

void frmFileFormat::ConnectFormat() {
    FollowOptions(optPrimary);
    FollowOptions(optSecondary);
    for (QCheckBox* box : {chkAppended[0], chkAppended[1], chkAppended[2], chkFreqIsAppended}) {
        connect(box, &QCheckBox::toggled, this, [this] { FormatChanged(); });
    }
    for (QComboBox* list : cboColumns) {
        connect(list, &QComboBox::currentIndexChanged, this, [this] {
            if (!loading_) {
                StoreColumns();
                CheckCombos();
                SetDataGrid();
                CheckMisMatch();
            }
        });
    }
    for (QComboBox* list : cboPlace) {
        connect(list, &QComboBox::currentIndexChanged, this, [this] {
            if (!loading_) {
                StorePlaceColumns();
                SetDataGrid();
            }
        });
    }
    for (QComboBox* list : cboAppName) {
        connect(list, &QComboBox::currentTextChanged, this, [this] { FormatChanged(); });
    }
    connect(cmdUseSaved, &QPushButton::clicked, this, &frmFileFormat::LoadSavedSettings);
    connect(cmdInitialColumns, &QPushButton::clicked, this, &frmFileFormat::SetInitialColumns);
}

void frmFileFormat::ConnectConventions() {
    FollowOptions(optPlaneConv);
    FollowOptions(optLineConv);
    FollowOptions(optDirnConv);
    FollowOptions(optNegativePlunge);
    for (QComboBox* list : cboSeparator) {
        connect(list, &QComboBox::currentIndexChanged, this, [this] { FormatChanged(); });
    }
    const auto resplit = [this] {
        if (!loading_) {
            choice_ = ChoiceOfControls();
            DelimiterChanged();
        }
    };
    for (QCheckBox* mark : chkComments) {
        connect(mark, &QAbstractButton::toggled, this, resplit);
    }
    connect(chkPairs, &QAbstractButton::toggled, this, [this] { FormatChanged(); });
    connect(cboDelim, &QComboBox::currentIndexChanged, this, resplit);
    connect(chkTableHeadings, &QAbstractButton::toggled, this, resplit);
}

void frmFileFormat::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    // A long name is shortened in the middle, with an ellipsis.
    lblPreview->setText(
        lblPreview->fontMetrics().elidedText(previewTitle_, Qt::ElideMiddle, lblPreview->width()));
}

void frmFileFormat::ConnectSuggestions() {
    connect(cboTable, &QComboBox::currentIndexChanged, this, &frmFileFormat::ReadTable);
    fraSuggestion->onUse = [this](std::size_t number) { TakeChoice(suggestions_[number].choice); };
    fraSuggestion->onBack = [this] { TakeChoice(ownChoice_); };
    grdDataFormat->setMouseTracking(true);
    connect(grdDataFormat, &QTableWidget::cellEntered, this, [this](int row) { LightRow(row); });
    connect(grdDataFormat, &QTableWidget::currentCellChanged, this,
            [this](int row) { LightRow(row); });
    netSample->onPointed = [this](std::optional<std::size_t> line) {
        if (line && static_cast<int>(*line) < grdDataFormat->rowCount()) {
            grdDataFormat->selectRow(static_cast<int>(*line));
            grdDataFormat->scrollToItem(grdDataFormat->item(static_cast<int>(*line), 0));
        }
    };
}

void frmFileFormat::ConnectPlotAndButtons() {
    for (std::int16_t kind = kPlanes; kind <= kPolarLines; ++kind) {
        // Not clicked: assistive technology may turn a button without pressing it.
        connect(cmdDataType[static_cast<std::size_t>(kind)], &QPushButton::toggled, this,
                [this, kind](bool isDown) {
                    if (isDown || choice_.plotDataKind == kind) {
                        ChoosePlotKind(kind);
                    }
                });
    }
    connect(chkSecondaryData, &QAbstractButton::toggled, this, [this] { FormatChanged(); });
    connect(cmdButtons[0], &QPushButton::clicked, this, &frmFileFormat::accept);
    connect(cmdButtons[1], &QPushButton::clicked, this, &frmFileFormat::reject);
    connect(cmdButtons[2], &QPushButton::clicked, this, &frmFileFormat::RestoreSymbols);
    connect(cmdButtons[3], &QPushButton::clicked, this, &frmFileFormat::ChangeSymbols);
}

} // namespace quandrel
