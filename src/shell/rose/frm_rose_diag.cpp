// SPDX-License-Identifier: MIT

#include "shell/rose/frm_rose_diag.h"

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "rose/rose_sectors.h"
#include "shell/classes/class_boxes.h"

#include <QEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kCaption = "Rose Diagram";
constexpr const char* kPressGo = "Press GO to replot Rose with new settings";
constexpr const char* kAutomatic = "auto";
constexpr const char* kOpenTip = "openTip"; ///< property: the tip of an enabled control
constexpr int kNoWhole = -1;                ///< the value of a box without a number
constexpr int kLargestWhole = 9999;

template <std::size_t N>
int Chosen(const std::array<QRadioButton*, N>& options) {
    for (std::size_t i = 0; i < N; ++i) {
        if (options[i]->isChecked()) {
            return static_cast<int>(i);
        }
    }
    return 0;
}

template <std::size_t N>
void Choose(const std::array<QRadioButton*, N>& options, int chosen) {
    const auto last = static_cast<int>(N) - 1;
    options[static_cast<std::size_t>(std::clamp(chosen, 0, last))]->setChecked(true);
}

/// Disables a control with a reason, which becomes its tip. Without a reason the control is
/// enabled.
void CloseFor(QWidget& control, std::string_view reason) {
    if (!control.property(kOpenTip).isValid()) {
        control.setProperty(kOpenTip, control.toolTip());
    }
    control.setEnabled(reason.empty());
    control.setToolTip(reason.empty() ? control.property(kOpenTip).toString()
                                      : QString::fromUtf8(reason));
}

template <class Controls, std::size_t N>
void CloseAll(const Controls& controls, const std::array<std::string_view, N>& reasons) {
    for (std::size_t i = 0; i < N; ++i) {
        CloseFor(*controls[i], reasons[i]);
    }
}

QString ShownNumberOf(double number) {
    return QString::fromStdString(FormatNumber(number, "0.###"));
}

int WholeIn(const QLineEdit& box) {
    const double number = NumberOfRoseBox(box.text().toStdString()).value_or(kNoWhole);
    return static_cast<int>(RoundToEven(std::clamp<double>(number, kNoWhole, kLargestWhole)));
}

ClassKind KindOfClasses(int classes) {
    switch (classes) {
    case kRoseByLength:
        return ClassKind::Numbers;
    case kRoseByType:
        return ClassKind::Types;
    default:
        return ClassKind::None;
    }
}

} // namespace

frmRoseDiag::frmRoseDiag(QWidget* parent, std::function<void(int tab)> showPreferences)
    : QDialog(parent, Qt::Tool)
    , showPreferences_(std::move(showPreferences)) {
    setObjectName("frmRoseDiag");
    setWindowTitle(kCaption);
    MakePages();
    SetOrder();
    CloseFor(*cmdPreferences, showPreferences_ ? "" : "There is no preferences dialog yet");
    ConnectChoices();
    ConnectSectors();
    ConnectScaleAndBias();
    ConnectButtons();
    Load();
}

void frmRoseDiag::FollowActivePlot() {
    if (!isVisible()) {
        return; // showing the dialog loads it
    }
    const int slot = IsOpenSlot(gActivePlot) ? gActivePlot : 0;
    if (slot != slot_ || !changed_) {
        Load();
        return;
    }
    setWindowTitle("Rose: " + QString::fromStdString(ActiveRecord().PlotTitle));
    FollowFault();
    EnableRoseClassifOptions();
    EnableRoseClassifControls();
    SetBiasOptButtons();
}

void frmRoseDiag::Load() {
    const QScopedValueRollback loading(loading_, true);
    ClearMark();
    if (!lblRoseStatus->text().isEmpty()) {
        SetStatus({});
    }
    fault_ = kNoRoseFault;
    changed_ = false;
    slot_ = IsOpenSlot(gActivePlot) ? gActivePlot : 0;
    tabRose->setEnabled(slot_ != 0);
    cmdRoseGo->setEnabled(slot_ != 0);
    if (slot_ == 0) {
        setWindowTitle(kCaption);
        return;
    }
    (void)TakeRoseFault(ActivePlot()); // its message has reported it
    setWindowTitle("Rose: " + QString::fromStdString(ActiveRecord().PlotTitle));
    const RoseSettings settings = RoseSettingsOf(ActiveRecord());
    Choose(optRoseType, settings.kind);
    Choose(optRoseClassif, settings.classes);
    Choose(optRoseOptions, settings.shape);
    Choose(optHistStyle, settings.histStyle);
    Choose(optSegShape, settings.segShape);
    classBoxes->Load(ClassSettingsOfRose(), StylesOfClasses(kFirstRoseClassStyle));
    LoadSectors(settings);
    LoadBias(settings);
    EnableRoseClassifOptions();
    EnableRoseClassifControls();
    SetBiasOptButtons();
}

void frmRoseDiag::LoadSectors(const RoseSettings& settings) {
    ShowSectorSize(settings.sectorSize, nullptr);
    startAngle_ = settings.startAngle;
    txtRoseStartAz->setText(ShownNumberOf(settings.startAngle));
    txtSectorWidth->setText(QString::number(settings.sectorFraction));
    txtZeroCircle->setText(QString::number(settings.zeroCircle));
    chkRoseWeight->setChecked(settings.equalArea);
    Choose(optScale, settings.circles ? 0 : 1);
    interval_ = settings.interval;
    cboScaleInt->setEditText(interval_ ? ShownNumberOf(*interval_) : kAutomatic);
    chkRoseOuterCircle->setChecked(settings.outerCircle);
}

void frmRoseDiag::LoadBias(const RoseSettings& settings) {
    Choose(optBias, settings.biasMode);
    chkBiasAppended->setChecked(settings.ownLines);
    const std::array<int, 3> values = {settings.samplePlunge, settings.sampleTrend,
                                       settings.minBiasAngle};
    for (std::size_t i = 0; i < values.size(); ++i) {
        txtBias[i]->setText(QString::number(values[i]));
        CorrectBiasBox(static_cast<BiasBox>(i));
    }
}

RoseSettings frmRoseDiag::SettingsOfControls() const {
    RoseSettings settings;
    settings.kind = Chosen(optRoseType);
    settings.classes = Chosen(optRoseClassif);
    settings.shape = Chosen(optRoseOptions);
    settings.equalArea = chkRoseWeight->isChecked();
    settings.sectorSize = sectorSize_;
    settings.startAngle = startAngle_;
    settings.sectorFraction = WholeIn(*txtSectorWidth);
    settings.zeroCircle = WholeIn(*txtZeroCircle);
    settings.histStyle = Chosen(optHistStyle);
    settings.segShape = Chosen(optSegShape);
    settings.circles = optScale[0]->isChecked();
    settings.interval = interval_;
    settings.outerCircle = chkRoseOuterCircle->isChecked();
    settings.biasMode = Chosen(optBias);
    settings.ownLines = chkBiasAppended->isChecked();
    settings.samplePlunge = WholeIn(*txtBias[0]);
    settings.sampleTrend = WholeIn(*txtBias[1]);
    settings.minBiasAngle = WholeIn(*txtBias[2]);
    return settings;
}

RoseChoices frmRoseDiag::Choices() const {
    return ChoicesOfRose(SettingsOfControls(), ActiveRecord(), fault_);
}

void frmRoseDiag::SetBiasOptButtons() {
    const RoseChoices choices = Choices();
    CloseFor(*fraBias, choices.bias);
    CloseAll(optBias, choices.biasModes);
    CloseAll(txtBias, choices.biasBoxes);
    for (std::size_t i = 0; i < lblBias.size(); ++i) {
        lblBias[i]->setEnabled(choices.biasBoxes[i].empty());
    }
    CloseFor(*chkBiasAppended, choices.ownLines);
    lblBiasLine->setEnabled(choices.ownLines.empty());
}

void frmRoseDiag::EnableRoseClassifControls() {
    const RoseChoices choices = Choices();
    for (QRadioButton* option : optSegShape) {
        CloseFor(*option, choices.segments);
    }
    classBoxes->ChooseKind(KindOfClasses(Chosen(optRoseClassif)));
}

void frmRoseDiag::EnableRoseClassifOptions() {
    const RoseChoices choices = Choices();
    CloseAll(optRoseType, choices.kinds);
    CloseAll(optRoseClassif, choices.classes);
}

void frmRoseDiag::Changed() {
    if (loading_ || slot_ == 0) {
        return;
    }
    changed_ = true;
    ClearMark();
    SetStatus(kPressGo);
}

double frmRoseDiag::NumberIn(const QString& text) {
    return NumberOfRoseBox(text.toStdString()).value_or(std::numeric_limits<double>::quiet_NaN());
}

void frmRoseDiag::ShowOnSlider(QSlider& slider, double value) {
    if (!std::isfinite(value)) {
        return;
    }
    const QSignalBlocker quiet(slider);
    const double within = std::clamp<double>(value, slider.minimum(), slider.maximum());
    slider.setValue(static_cast<int>(RoundToEven(within)));
}

void frmRoseDiag::BiasChosen() {
    EnableRoseClassifControls();
    SetBiasOptButtons();
}

void frmRoseDiag::ClassesEdited() {
    if (loading_) {
        return;
    }
    fault_ = kNoRoseFault; // other limits may contain rows
    EnableRoseClassifOptions();
    Changed();
}

void frmRoseDiag::KindChosen() {
    RoseSettings settings = SettingsOfControls();
    FollowRoseKind(settings);
    Choose(optRoseClassif, settings.classes);
    EnableRoseClassifOptions();
    EnableRoseClassifControls();
    SetBiasOptButtons();
}

void frmRoseDiag::ShowSectorSize(double size, const QWidget* source) {
    const QScopedValueRollback loading(loading_, true);
    sectorSize_ = size;
    const bool isSize = size >= 1 && size <= 360;
    if (source != txtRoseSectSize) {
        txtRoseSectSize->setText(ShownNumberOf(size));
    }
    if (source != sldRoseSectSize) {
        ShowOnSlider(*sldRoseSectSize, size);
    }
    if (source != cboNumSectors) {
        cboNumSectors->setEditText(isSize ? QString::number(DivideCircle(size).sectors)
                                          : QString());
    }
    lblCheckSectorSize->setVisible(isSize && !DividesCircle(size));
}

void frmRoseDiag::CorrectBiasBox(BiasBox box) {
    QLineEdit& edit = *txtBias[static_cast<std::size_t>(box)];
    const QString corrected = QString::number(CorrectedBiasValue(box, NumberIn(edit.text())));
    if (edit.text() != corrected) {
        edit.setText(corrected);
    }
}

void frmRoseDiag::Go() {
    if (gBusy || slot_ == 0) {
        return;
    }
    if (slot_ != gActivePlot) {
        FollowActivePlot();
        return;
    }
    ClearMark();
    for (const BiasBox box : {BiasBox::Plunge, BiasBox::Trend, BiasBox::MinAngle}) {
        CorrectBiasBox(box);
    }
    RoseSettings settings = SettingsOfControls();
    if (settings.classes != kRoseUnclassified) {
        if (const std::string fault = classBoxes->GoToFault(); !fault.empty()) {
            tabRose->setCurrentIndex(kRoseClassPage);
            (void)classBoxes->GoToFault(); // a hidden page cannot take the focus
            SetStatus(QString::fromStdString(fault));
            return;
        }
    }
    settings.table = TableOfSettings(classBoxes->Settings(), ActiveRecord().ClassTable);
    const RoseOutcome outcome = ApplyRose(settings, classBoxes->Styles());
    FollowFault();
    if (outcome.refusal) {
        Mark(outcome.refusal->field, outcome.refusal->reason);
        return;
    }
    changed_ = outcome.verdict == RoseVerdict::Cancelled;
    if (changed_) {
        SetStatus(kPressGo);
        return;
    }
    const QScopedValueRollback loading(loading_, true);
    lblRoseStatus->clear();
    Choose(optBias, ActiveRecord().RoseBiasMode); // the mode of directions may differ
    SetBiasOptButtons();
}

void frmRoseDiag::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        Load();
    }
    QDialog::showEvent(event);
}

void frmRoseDiag::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (!event->spontaneous() && !lblRoseStatus->text().isEmpty()) {
        SetStatus({}); // its text is about the boxes of the dialog
    }
}

void frmRoseDiag::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ColourMark();
    }
}

} // namespace quandrel
