// SPDX-License-Identifier: MIT
//
// What the controls of the data format dialog do, and their order for the Tab key.

#include "shell/format/format_grid.h"
#include "shell/format/frm_file_format.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace quandrel {

void frmFileFormat::SetOrder() {
    std::vector<QWidget*> order = {tabConventions};
    const auto add = [&order](const auto& controls) {
        for (QWidget* control : controls) {
            if (control != nullptr) {
                order.push_back(control);
            }
        }
    };
    add(optPrimary);
    add(std::vector<QWidget*>(cboColumns.begin(), cboColumns.begin() + kSlotSecondaryDip));
    add(optSecondary);
    add(std::vector<QWidget*>(cboColumns.begin() + kSlotSecondaryDip,
                              cboColumns.begin() + kSlotAppendedPlunge));
    add(std::vector<QWidget*>{chkAppended[0], chkAppended[1], cboAppName[0], chkAppended[2],
                              cboAppName[1], chkFreqIsAppended});
    add(std::vector<QWidget*>(cboColumns.begin() + kSlotAppendedPlunge, cboColumns.end()));
    add(std::vector<QWidget*>{cmdInitialColumns, cmdUseSaved, chkSaveSettings[0],
                              chkSaveSettings[2]});
    add(optPlaneConv);
    add(std::vector<QWidget*>{optLineConv[1], optLineConv[0], optDirnConv[0], optDirnConv[1],
                              optNegativePlunge[0], optNegativePlunge[1], cboSeparator[0],
                              cboSeparator[1], chkSaveSettings[1]});
    add(cmdDataType);
    add(std::vector<QWidget*>{chkSecondaryData, cmdButtons[3], cmdButtons[2], cboDelim,
                              chkTableHeadings, grdDataFormat, cmdButtons[0], cmdButtons[1]});
    for (std::size_t i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
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
    connect(cboDelim, &QComboBox::currentIndexChanged, this, resplit);
    connect(chkTableHeadings, &QAbstractButton::toggled, this, resplit);
}

void frmFileFormat::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    // Of a name that has no room the middle goes, and a sign stands for it.
    lblPreview->setText(
        lblPreview->fontMetrics().elidedText(previewTitle_, Qt::ElideMiddle, lblPreview->width()));
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
