// SPDX-License-Identifier: MIT

#include "shell/dialogs/frm_confidence_regions.h"

#include "core/plot_store.h"
#include "edit/marks/plot_views.h"
#include "platform/platform.h"
#include "shell/controls/control_kit.h"
#include "statistics/bootstrap_region.h"
#include "statistics/region_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <limits>

namespace quandrel {

namespace {

constexpr int kResampleStep = 1000;
constexpr int kTextWidth = 430;
constexpr int kTextLines = 7;

constexpr const char* kHint =
    "Confidence regions: where the axis, the girdle's pole or the mean of the population may lie";

constexpr std::array<ControlText, frmConfidenceRegions::kParts> kAboutBoxes = {
    {{"&Principal axis", "The axis of the greatest eigenvalue"},
     {"&Girdle", "The pole of the girdle, with the band of its great circle"},
     {"&Mean direction", "The mean of polar lines"}}};

constexpr std::array<ControlText, frmConfidenceRegions::kParts> kRowsBoxes = {
    {{"Main &rows", "One region of all main rows"},
     {"&Overlays", "A region of each overlay"},
     {"C&lasses", "A region of each class"}}};

/// The code of a part, a power of two.
std::int16_t CodeOf(std::size_t part) {
    return static_cast<std::int16_t>(1 << part);
}

const Plot* PlotInFocus() {
    return IsOpenSlot(gActivePlot) ? &ActivePlot() : nullptr;
}

RecordRegions ChoiceInFocus() {
    return IsOpenSlot(gActivePlot) ? static_cast<const RecordRegions&>(ActiveRecord())
                                   : RecordRegions();
}

QSpinBox* MakeNumber(const QString& name, const QString& text, int lowest, int highest) {
    auto* box = new QSpinBox;
    box->setObjectName(name);
    box->setAccessibleName(text);
    box->setRange(lowest, highest);
    box->setKeyboardTracking(false);
    return box;
}

std::int16_t TruthOf(bool isTrue) {
    return isTrue ? kTrue : std::int16_t{0};
}

void ShowTicked(QCheckBox* check, bool isOn) {
    const QSignalBlocker blocked(check);
    check->setChecked(isOn);
}

} // namespace

frmConfidenceRegions::frmConfidenceRegions(QWidget* parent, std::function<void()> changed)
    : QDialog(parent, Qt::Tool)
    , changed_(std::move(changed)) {
    setObjectName("frmConfidenceRegions");
    setWindowTitle("Confidence Regions");
    MakeControls();
    auto* below = new QHBoxLayout;
    below->addStretch(1);
    below->addWidget(cmdCopy);
    below->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeAbout());
    layout->addWidget(MakeMethod());
    layout->addWidget(MakeResult(), 1);
    layout->addLayout(below);
    SetOrder();
    Connect();
    Refresh();
}

void frmConfidenceRegions::MakeControls() {
    for (std::size_t part = 0; part < kParts; ++part) {
        chkAbout[part] =
            MakeCheck(Numbered("chkAbout", part), kAboutBoxes[part].caption, kAboutBoxes[part].tip);
        chkOf[part] =
            MakeCheck(Numbered("chkOf", part), kRowsBoxes[part].caption, kRowsBoxes[part].tip);
    }
    cboMethod = MakeList("cboMethod", "Method");
    for (const RegionMethodEntry& entry : RegionMethodEntries()) {
        cboMethod->addItem(entry.name, entry.code);
    }
    cboLevel = MakeList("cboLevel", "Level");
    for (const std::int16_t level : RegionLevelEntries()) {
        cboLevel->addItem(QString("%1 %").arg(level), level);
    }
    spnResamples = MakeNumber("spnResamples", "Number of resamples of the bootstrap",
                              kFewestResamples, kMostResamples);
    spnResamples->setSingleStep(kResampleStep);
    spnSeed =
        MakeNumber("spnSeed", "Seed of the bootstrap", 0, std::numeric_limits<std::int32_t>::max());
    chkDespite = MakeCheck("chkDespite", "&Show all the same",
                           "Draws refused regions too: where the data do not set an axis apart, or "
                           "the method's conditions are not met");
    chkCloud = MakeCheck("chkCloud", "Clo&ud of resamples",
                         "Draws the axis or mean of each resample of a bootstrap as a point");
    cmdCopy = MakeButton("cmdCopy", "&Copy", "Copies the text to the clipboard");
    cmdClose = MakeButton("cmdClose", "Clos&e", "Closes the dialog; the regions stay");
}

QGroupBox* frmConfidenceRegions::MakeAbout() {
    auto* box = MakeGroup("fraAbout", "Regions");
    auto* grid = new QGridLayout(box);
    grid->addWidget(MakeLabel("About:"), 0, 0);
    grid->addWidget(MakeLabel("Of:"), 1, 0);
    for (std::size_t part = 0; part < kParts; ++part) {
        const int column = static_cast<int>(part) + 1;
        grid->addWidget(chkAbout[part], 0, column);
        grid->addWidget(chkOf[part], 1, column);
        grid->setColumnStretch(column, 1);
    }
    return box;
}

QGroupBox* frmConfidenceRegions::MakeMethod() {
    auto* box = MakeGroup("fraMethod", "Method");
    auto* grid = new QGridLayout(box);
    grid->addWidget(MakeLabel("Me&thod", {}, cboMethod), 0, 0);
    grid->addWidget(cboMethod, 0, 1);
    grid->addWidget(MakeLabel("Le&vel", {}, cboLevel), 0, 2);
    grid->addWidget(cboLevel, 0, 3);
    grid->addWidget(MakeLabel("Resamples (&B)", {}, spnResamples), 1, 0);
    grid->addWidget(spnResamples, 1, 1);
    grid->addWidget(MakeLabel("See&d", {}, spnSeed), 1, 2);
    grid->addWidget(spnSeed, 1, 3);
    grid->addWidget(chkDespite, 2, 0, 1, 2);
    grid->addWidget(chkCloud, 2, 2, 1, 2);
    grid->setColumnStretch(1, 1);
    return box;
}

QGroupBox* frmConfidenceRegions::MakeResult() {
    auto* box = MakeGroup("fraResult", "Results");
    txtRegions = new QPlainTextEdit;
    txtRegions->setObjectName("txtRegions");
    txtRegions->setAccessibleName("Results");
    txtRegions->setReadOnly(true);
    txtRegions->setTabChangesFocus(true);
    txtRegions->setMinimumSize(kTextWidth, kTextLines * fontMetrics().lineSpacing());
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(txtRegions);
    return box;
}

void frmConfidenceRegions::SetOrder() {
    TabOrder order;
    order.Then(chkAbout).Then(chkOf).Then(cboMethod).Then(cboLevel).Then(spnResamples);
    order.Then(spnSeed).Then(chkDespite).Then(chkCloud).Then(txtRegions);
    order.Then(cmdCopy).Then(cmdClose);
}

void frmConfidenceRegions::Connect() {
    for (std::size_t part = 0; part < kParts; ++part) {
        connect(chkAbout[part], &QCheckBox::toggled, this, [this, part](bool isOn) {
            Change(WithTarget(ChoiceInFocus(), CodeOf(part), isOn));
        });
        connect(chkOf[part], &QCheckBox::toggled, this,
                [this, part](bool isOn) { Change(WithRows(ChoiceInFocus(), CodeOf(part), isOn)); });
    }
    // The member of the choice that a control changes.
    const auto changing = [this](auto RecordRegions::*field) {
        return [this, field](auto value) {
            RecordRegions regions = ChoiceInFocus();
            regions.*field = static_cast<std::remove_cvref_t<decltype(regions.*field)>>(value);
            Change(regions);
        };
    };
    const auto takeMethod = changing(&RecordRegions::RegionMethod);
    connect(cboMethod, &QComboBox::activated, this,
            [this, takeMethod](int) { takeMethod(cboMethod->currentData().toInt()); });
    const auto takeLevel = changing(&RecordRegions::RegionLevel);
    connect(cboLevel, &QComboBox::activated, this,
            [this, takeLevel](int) { takeLevel(cboLevel->currentData().toInt()); });
    connect(spnResamples, &QSpinBox::valueChanged, this, changing(&RecordRegions::RegionResamples));
    connect(spnSeed, &QSpinBox::valueChanged, this, changing(&RecordRegions::RegionSeed));
    const auto takeDespite = changing(&RecordRegions::RegionDespite);
    connect(chkDespite, &QCheckBox::toggled, this,
            [takeDespite](bool isOn) { takeDespite(TruthOf(isOn)); });
    const auto takeCloud = changing(&RecordRegions::RegionCloud);
    connect(chkCloud, &QCheckBox::toggled, this,
            [takeCloud](bool isOn) { takeCloud(TruthOf(isOn)); });
    connect(cmdCopy, &QPushButton::clicked, this,
            [] { gPlatform.clipboard->SetText(RegionFormText(PlotInFocus())); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

void frmConfidenceRegions::Change(const RecordRegions& regions) {
    ChangeRegions(gActivePlot, regions);
    if (changed_) {
        changed_();
    }
    Refresh();
}

void frmConfidenceRegions::FollowActivePlot() {
    if (isVisible()) {
        Refresh();
    }
}

void frmConfidenceRegions::Refresh() {
    const Plot* const plot = PlotInFocus();
    setWindowTitle(plot == nullptr ? QString("Confidence Regions")
                                   : QString("Confidence Regions: ")
                                         + QString::fromStdString(plot->record.PlotTitle));
    ShowChoice();
    ShowMethods();
    ShowOffer();
    const QString text = QString::fromStdString(RegionFormText(plot));
    if (txtRegions->toPlainText() != text) {
        txtRegions->setPlainText(text);
    }
}

void frmConfidenceRegions::ShowChoice() {
    const RecordRegions choice = ChoiceInFocus();
    for (std::size_t part = 0; part < kParts; ++part) {
        ShowTicked(chkAbout[part], (choice.RegionsAbout & CodeOf(part)) != 0);
        ShowTicked(chkOf[part], (choice.RegionsOf & CodeOf(part)) != 0);
    }
    ShowTicked(chkDespite, choice.RegionDespite != 0);
    ShowTicked(chkCloud, choice.RegionCloud != 0);
    cboLevel->setCurrentIndex(cboLevel->findData(choice.RegionLevel));
    const QSignalBlocker blockedResamples(spnResamples);
    spnResamples->setValue(choice.RegionResamples);
    const QSignalBlocker blockedSeed(spnSeed);
    spnSeed->setValue(choice.RegionSeed);
}

/// The methods that a target has; that of the plot is among them in any case.
void frmConfidenceRegions::ShowMethods() {
    const RecordRegions choice = ChoiceInFocus();
    const QSignalBlocker blocked(cboMethod);
    cboMethod->clear();
    for (const RegionMethodEntry& entry : RegionMethodEntries()) {
        if (HasMethod(choice.RegionsAbout, entry.code) || entry.code == choice.RegionMethod) {
            cboMethod->addItem(entry.name, entry.code);
        }
    }
    cboMethod->setCurrentIndex(cboMethod->findData(choice.RegionMethod));
}

void frmConfidenceRegions::ShowOffer() {
    const RegionFormState offer = RegionFormOf(PlotInFocus());
    for (std::size_t part = 0; part < kParts; ++part) {
        chkAbout[part]->setEnabled(offer.isUsable);
        chkOf[part]->setEnabled(offer.isUsable);
    }
    // What is on can be switched off, even where it has no effect now.
    const auto offerPart = [](QCheckBox* check, bool isOffered) {
        check->setEnabled(check->isEnabled() && (isOffered || check->isChecked()));
    };
    offerPart(chkAbout[2], offer.hasMean);
    offerPart(chkOf[1], offer.hasOverlays);
    offerPart(chkOf[2], offer.hasClasses);
    cboMethod->setEnabled(offer.isUsable);
    cboLevel->setEnabled(offer.isUsable);
    spnResamples->setEnabled(offer.canResample);
    spnSeed->setEnabled(offer.canResample);
    chkDespite->setEnabled(offer.hasRefused || chkDespite->isChecked());
    chkCloud->setEnabled(offer.hasResamples || chkCloud->isChecked());
    cmdCopy->setEnabled(offer.isUsable && ChoiceInFocus().RegionsAbout != 0);
}

void frmConfidenceRegions::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        gPlatform.status->SetText(kHint);
        Refresh();
    }
    QDialog::showEvent(event);
}

void frmConfidenceRegions::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        gPlatform.status->SetText({});
    }
    QDialog::hideEvent(event);
}

} // namespace quandrel
