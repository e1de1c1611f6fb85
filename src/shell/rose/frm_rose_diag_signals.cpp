// SPDX-License-Identifier: MIT
//
// The signals of the rose dialog's controls, and their order for the Tab key.

#include "shell/classes/class_boxes.h"
#include "shell/controls/control_kit.h"
#include "shell/rose/frm_rose_diag.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>

#include <optional>
#include <vector>

namespace quandrel {

namespace {

constexpr int kRosesPage = 2; ///< of the preferences

/// True for "auto", also abbreviated, and for an empty box.
bool IsAutomatic(const QString& interval) {
    const QString typed = interval.trimmed();
    return typed.isEmpty() || typed.startsWith('a', Qt::CaseInsensitive);
}

} // namespace

void frmRoseDiag::SetOrder() {
    TabOrder()
        .Then(tabRose)
        .Then(optRoseType)
        .Then(optRoseClassif)
        .Then(optRoseOptions)
        .Then(std::array<QWidget*, 10>{
            cboNumSectors, txtRoseSectSize, sldRoseSectSize, txtRoseStartAz, sldRoseStartAz,
            txtSectorWidth, sldrSectorWidth, txtZeroCircle, sldrZeroCircle, chkRoseWeight})
        .Then(optScale)
        .Then(cboScaleInt)
        .Then(chkRoseOuterCircle)
        .Then(optSegShape)
        .Then(optHistStyle)
        .Then(optBias)
        .Then(std::array<QWidget*, 4>{txtBias[0], txtBias[1], chkBiasAppended, txtBias[2]});
    TabOrder().Then(cmdRoseGo).Then(cmdClose).Then(cmdPreferences);
}

void frmRoseDiag::ConnectChoices() {
    const auto connectAll = [this](const auto& options, void (frmRoseDiag::*then)()) {
        for (QRadioButton* option : options) {
            connect(option, &QRadioButton::toggled, this, [this, then](bool isOn) {
                if (isOn && !loading_) {
                    if (then != nullptr) {
                        (this->*then)();
                    }
                    Changed();
                }
            });
        }
    };
    connectAll(optRoseType, &frmRoseDiag::KindChosen);
    connectAll(optRoseClassif, &frmRoseDiag::EnableRoseClassifControls);
    connectAll(optRoseOptions, nullptr);
    connectAll(optSegShape, nullptr);
    connectAll(optScale, nullptr);
    connectAll(optBias, &frmRoseDiag::BiasChosen);
    for (QCheckBox* box : {chkRoseWeight, chkRoseOuterCircle}) {
        connect(box, &QCheckBox::toggled, this, &frmRoseDiag::Changed);
    }
    connect(classBoxes, &ClassBoxes::Changed, this, &frmRoseDiag::ClassesEdited);
}

void frmRoseDiag::Tie(QSlider& slider, QLineEdit& box) {
    connect(&slider, &QSlider::valueChanged, this,
            [&box](int value) { box.setText(QString::number(value)); });
    connect(&box, &QLineEdit::textChanged, this, [this, &slider](const QString& text) {
        ShowOnSlider(slider, NumberIn(text));
        Changed();
    });
}

void frmRoseDiag::ConnectSectors() {
    connect(cboNumSectors, &QComboBox::editTextChanged, this, [this](const QString& text) {
        if (!loading_ && text.toInt() >= 1) {
            ShowSectorSize(SizeOfSectors(text.toInt()), cboNumSectors);
            Changed();
        }
    });
    connect(cboNumSectors->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        // An incomplete number of sectors is replaced by that of the sector size.
        if (cboNumSectors->currentText().toInt() < 1) {
            ShowSectorSize(sectorSize_, txtRoseSectSize);
        }
    });
    connect(txtRoseSectSize, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!loading_) {
            ShowSectorSize(NumberIn(text), txtRoseSectSize);
            Changed();
        }
    });
    connect(sldRoseSectSize, &QSlider::valueChanged, this, [this](int size) {
        if (!loading_) {
            ShowSectorSize(size, sldRoseSectSize);
            Changed();
        }
    });
    connect(txtRoseStartAz, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!loading_) {
            startAngle_ = NumberIn(text);
        }
    });
    Tie(*sldRoseStartAz, *txtRoseStartAz);
    Tie(*sldrSectorWidth, *txtSectorWidth);
    Tie(*sldrZeroCircle, *txtZeroCircle);
}

void frmRoseDiag::ConnectScaleAndBias() {
    connect(cboScaleInt, &QComboBox::editTextChanged, this, [this](const QString& text) {
        if (!loading_) {
            interval_ = IsAutomatic(text) ? std::nullopt : std::optional(NumberIn(text));
            Changed();
        }
    });
    connect(chkBiasAppended, &QCheckBox::toggled, this, [this] {
        if (!loading_) {
            SetBiasOptButtons();
            Changed();
        }
    });
    for (std::size_t i = 0; i < txtBias.size(); ++i) {
        connect(txtBias[i], &QLineEdit::textChanged, this, &frmRoseDiag::Changed);
        connect(txtBias[i], &QLineEdit::editingFinished, this,
                [this, i] { CorrectBiasBox(static_cast<BiasBox>(i)); });
    }
}

void frmRoseDiag::ConnectButtons() {
    connect(cmdRoseGo, &QPushButton::clicked, this, &frmRoseDiag::Go);
    connect(cmdClose, &QPushButton::clicked, this, &frmRoseDiag::reject);
    connect(cmdPreferences, &QPushButton::clicked, this, [this] { showPreferences_(kRosesPage); });
}

} // namespace quandrel
