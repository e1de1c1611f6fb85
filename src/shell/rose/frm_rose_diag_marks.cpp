// SPDX-License-Identifier: MIT
//
// The marked box of the rose dialog, which contains an invalid value.

#include "core/plot_store.h"
#include "platform/platform.h"
#include "shell/classes/class_boxes.h"
#include "shell/rose/frm_rose_diag.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace quandrel {

namespace {

template <std::size_t N>
void Choose(const std::array<QRadioButton*, N>& options, int chosen) {
    const auto last = static_cast<int>(N) - 1;
    options[static_cast<std::size_t>(std::clamp(chosen, 0, last))]->setChecked(true);
}

} // namespace

void frmRoseDiag::FollowFault() {
    const int fault = TakeRoseFault(ActivePlot());
    if (fault == kNoRoseFault) {
        return;
    }
    const QScopedValueRollback loading(loading_, true);
    fault_ = fault;
    RoseSettings settings = SettingsOfControls();
    FollowRoseFault(settings, fault);
    Choose(optRoseType, settings.kind);
    Choose(optRoseClassif, settings.classes);
    EnableRoseClassifOptions();
    EnableRoseClassifControls();
    SetBiasOptButtons();
}

QWidget* frmRoseDiag::BoxOf(RoseField field) const {
    switch (field) {
    case RoseField::Kind:
        return optRoseType[0];
    case RoseField::Classes:
        return optRoseClassif[0];
    case RoseField::Shape:
        return optRoseOptions[0];
    case RoseField::StartAngle:
        return txtRoseStartAz;
    case RoseField::SectorFraction:
        return txtSectorWidth;
    case RoseField::ZeroCircle:
        return txtZeroCircle;
    case RoseField::ScaleInterval:
        return cboScaleInt->lineEdit();
    case RoseField::BiasMode:
        return optBias[0];
    case RoseField::SamplePlunge:
        return txtBias[0];
    case RoseField::SampleTrend:
        return txtBias[1];
    case RoseField::MinBiasAngle:
        return txtBias[2];
    case RoseField::OwnLines:
        return chkBiasAppended;
    case RoseField::SectorSize:
        break;
    }
    return txtRoseSectSize;
}

void frmRoseDiag::Mark(RoseField field, const std::string& reason) {
    marked_ = BoxOf(field);
    for (std::size_t page = 0; page < tabFrameRose.size(); ++page) {
        if (tabFrameRose[page]->isAncestorOf(marked_)) {
            tabRose->setCurrentIndex(static_cast<int>(page));
        }
    }
    marked_->setFocus();
    if (auto* box = qobject_cast<QLineEdit*>(marked_)) {
        box->selectAll();
    }
    marked_->setAccessibleDescription(QString::fromStdString(reason));
    ColourMark();
    SetStatus(QString::fromStdString(reason));
}

void frmRoseDiag::ColourMark() {
    if (marked_ == nullptr) {
        return;
    }
    QPalette colours = palette();
    const bool isDark = colours.color(QPalette::Base).lightness() < 128;
    colours.setColor(QPalette::Base, isDark ? QColor(110, 30, 30) : QColor(255, 205, 205));
    marked_->setPalette(colours);
}

void frmRoseDiag::ClearMark() {
    if (marked_ != nullptr) {
        marked_->setPalette({});
        marked_->setAccessibleDescription({});
        marked_ = nullptr;
    }
}

void frmRoseDiag::SetStatus(const QString& text) {
    lblRoseStatus->setText(text);
    gPlatform.status->SetText(text.toStdString());
}

} // namespace quandrel
