// SPDX-License-Identifier: MIT

#include "shell/dialogs/frm_densities.h"

#include "core/plot_store.h"
#include "density/plot_density.h"
#include "drawing/plot_state.h"
#include "drawing/symbol_choice.h"
#include "edit/marks/plot_views.h"
#include "platform/platform.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>

#include <cmath>
#include <utility>

namespace quandrel {

namespace {

constexpr double kTenths = 10; ///< steps of the slider of k
constexpr double kHalves = 2;  ///< steps of the slider of the width
constexpr double kPerCent = 100;

std::int16_t TruthOf(bool isTrue) {
    return isTrue ? kTrue : std::int16_t{0};
}

} // namespace

frmDensities::frmDensities(QWidget* parent, std::function<void()> changed,
                           std::function<void()> markChanged, std::function<void()> toNet)
    : QDialog(parent, Qt::Tool)
    , changed_(std::move(changed))
    , markChanged_(std::move(markChanged))
    , toNet_(std::move(toNet)) {
    setObjectName("frmDensities");
    MakeControls();
    SetOrder();
    Connect();
    Refresh();
}

bool frmDensities::HasPlot() const {
    return IsOpenSlot(gActivePlot) && offer_.refusal.empty();
}

double frmDensities::WidthFound() {
    const PlotDensity* const density = Density();
    const bool isKernel = density != nullptr && density->Formula().method == DensityMethod::Kernel;
    const double found = isKernel ? HalfAngleOf(density->Formula()) : DensityChoice().halfWidth;
    return std::round(RadToDeg(found) * kTenths) / kTenths;
}

RecordDensityView frmDensities::Now() const {
    View view = ActiveRecord();
    if (hidesEnvelope_) {
        view.ShowEnvelope = kTrue;
    }
    return view;
}

void frmDensities::Connect() {
    connect(cboMethod, &QComboBox::activated, this,
            [this](int method) { Change(WithMethod(Now(), static_cast<std::int16_t>(method))); });
    connect(cboUnit, &QComboBox::activated, this, [this](int index) {
        View view = Now();
        view.DensityUnit = static_cast<std::int16_t>(cboUnit->itemData(index).toInt());
        Change(view);
    });
    connect(cboPalette, &QComboBox::activated, this, [this](int palette) {
        View view = Now();
        view.BandPalette = static_cast<std::int16_t>(palette);
        Change(view);
    });
    for (std::size_t i = 0; i < optLevels.size(); ++i) {
        connect(optLevels[i], &QRadioButton::clicked, this, [this, i] {
            const PlotDensity* const density = Density();
            Change(
                WithLevelRule(Now(), static_cast<std::int16_t>(i),
                              density == nullptr ? std::span<const double>() : density->Levels()));
        });
        connect(optPicture[i], &QRadioButton::clicked, this, [this, i] {
            View view = Now();
            view.ContourPicture = static_cast<std::int16_t>(i);
            Change(view);
        });
    }
    ConnectChecks();
    ConnectTexts();
    ConnectSlider(*sldK, [](View& view, int value) { view.DensityK = value / kTenths; });
    ConnectSlider(*sldWidth, [](View& view, int value) { view.KernelWidth = value / kHalves; });
    ConnectSlider(*sldOpacity, [](View& view, int value) { view.BandOpacity = value / kPerCent; });
    ConnectButtons();
}

void frmDensities::ConnectChecks() {
    const auto onClick = [this](const QCheckBox& box, std::int16_t View::*field) {
        connect(&box, &QCheckBox::clicked, this, [this, field](bool isOn) {
            View view = Now();
            view.*field = TruthOf(isOn);
            hidesEnvelope_ = false;
            Change(view);
        });
    };
    onClick(*chkReversed, &View::PaletteReversed);
    onClick(*chkEnvelope, &View::ShowEnvelope);
    onClick(*chkMaxima, &View::ShowMaxima);
    connect(chkAutomatic, &QCheckBox::clicked, this, [this](bool isOn) {
        View view = Now();
        view.KernelWidth = isOn ? 0 : WidthFound();
        Change(view);
    });
}

void frmDensities::ConnectButtons() {
    connect(cmdWiderK, &QPushButton::clicked, this, [this] {
        const PlotDensity* const density = Density();
        if (density == nullptr) {
            return;
        }
        if (const std::optional<double> k = ConeOf(density->Formula()).widerK) {
            View view = Now();
            view.DensityK = *k;
            Change(view);
        }
    });
    connect(cmdContours, &QPushButton::clicked, this, [this] {
        constexpr int kContoursButton = 5;
        ChooseData(ActivePlot(), FigureLayer()); // the densities are those of the main rows
        SetPlotSymbol(kContoursButton);
        Refresh();
        SayChanged();
    });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
    ConnectMaxima();
}

void frmDensities::ConnectMaxima() {
    connect(cmdCopy, &QPushButton::clicked, this,
            [this] { gPlatform.clipboard->SetText(maximaText_); });
    connect(tblMaxima, &QTableWidget::itemSelectionChanged, this, [this] {
        const QList<QTableWidgetItem*> chosen = tblMaxima->selectedItems();
        Mark(chosen.isEmpty() ? -1 : chosen.front()->row());
    });
    connect(tblMaxima, &QTableWidget::cellDoubleClicked, this, [this] { GoToNet(); });
}

void frmDensities::ConnectTexts() {
    /// A text that is accepted gives a number to the choice.
    const auto take = [](Result<double> (*read)(std::string_view), double View::*field) {
        return [read, field](View& view, std::string_view text) -> std::string {
            const Result<double> number = read(text);
            if (number) {
                view.*field = *number;
            }
            return number ? std::string() : number.Error();
        };
    };
    ConnectText(*txtK, take(KOfText, &View::DensityK));
    ConnectText(*txtWidth, take(WidthOfText, &View::KernelWidth));
    ConnectText(*txtStep, take(StepOfText, &View::LevelStep));
    ConnectText(*txtLevels, [](View& view, std::string_view text) -> std::string {
        const Result<std::string> levels = LevelListOfText(text);
        if (levels) {
            view.LevelsByHand = *levels;
        }
        return levels ? std::string() : levels.Error();
    });
}

void frmDensities::ConnectText(QLineEdit& box,
                               std::function<std::string(View&, std::string_view)> give) {
    connect(&box, &QLineEdit::textEdited, this, [this, &box, give = std::move(give)] {
        View view = Now();
        refused_ = give(view, box.text().toStdString());
        ShowVerdict(box, refused_);
        if (refused_.empty()) {
            Change(view);
        } else {
            ShowNote();
        }
    });
}

void frmDensities::ConnectSlider(QSlider& slider, std::function<void(View&, int)> give) {
    connect(&slider, &QSlider::sliderPressed, this, [this] { run_ = nullptr; });
    connect(&slider, &QSlider::valueChanged, this,
            [this, &slider, give = std::move(give)](int value) {
                View view = Now();
                give(view, value);
                ChangeBy(slider, view);
            });
    connect(&slider, &QSlider::sliderReleased, this, [this] { EndDrag(); });
}

void frmDensities::Change(const View& view) {
    run_ = nullptr;
    refused_.clear();
    ChangeDensities(gActivePlot, view);
    Refresh();
    SayChanged();
}

void frmDensities::ChangeBy(QSlider& slider, const View& view) {
    View given = view;
    if (slider.isSliderDown() && given.ShowEnvelope != 0) {
        // The envelope takes too long for every step of a drag.
        hidesEnvelope_ = true;
        given.ShowEnvelope = 0;
    }
    ChangeDensities(gActivePlot, given, run_ == &slider ? EditRun::Joins : EditRun::First);
    run_ = &slider;
    refused_.clear();
    Refresh();
    if (!slider.isSliderDown()) {
        SayChanged();
    }
}

void frmDensities::EndDrag() {
    if (hidesEnvelope_ && slot_ == gActivePlot && IsOpenSlot(slot_)) {
        const View view = Now();
        hidesEnvelope_ = false;
        ChangeDensities(gActivePlot, view, EditRun::Joins);
        Refresh();
    }
    hidesEnvelope_ = false;
    run_ = nullptr;
    SayChanged();
}

void frmDensities::SayChanged() const {
    if (changed_) {
        changed_();
    }
}

void frmDensities::FollowActivePlot() {
    if (!isVisible()) {
        return;
    }
    const bool isOpen = IsOpenSlot(gActivePlot);
    if (slot_ != gActivePlot || !isOpen || !(shown_ == Now())) {
        run_ = nullptr;
        hidesEnvelope_ = false;
        refused_.clear();
    }
    Refresh();
}

void frmDensities::Refresh() {
    const bool isOpen = IsOpenSlot(gActivePlot);
    setWindowTitle("Densities of: "
                   + (isOpen ? QString::fromStdString(ActiveRecord().PlotTitle) : QString()));
    offer_ = isOpen ? OfferOf(ActiveRecord()) : DensityOffer();
    const View view = isOpen ? Now() : View();
    const bool isNew = slot_ != gActivePlot || !(view == shown_);
    slot_ = gActivePlot;
    shown_ = view;
    ShowOffer();
    ShowMethod();
    ShowUnits();
    if (isNew) {
        ShowTexts();
    }
    ShowPicture();
    ShowMaxima();
    ShowNote();
}

void frmDensities::ShowOffer() {
    const bool canUse = HasPlot();
    for (QGroupBox* group : {fraMethod, fraLevels, fraPicture, fraMaxima}) {
        group->setEnabled(canUse);
    }
    const bool isFixed = shown_.KernelWidth > 0;
    sldK->setEnabled(offer_.hasK);
    txtK->setEnabled(offer_.hasK);
    sldWidth->setEnabled(offer_.hasWidth && isFixed);
    txtWidth->setEnabled(offer_.hasWidth && isFixed);
    chkAutomatic->setEnabled(offer_.hasWidth);
    txtStep->setEnabled(offer_.hasStep);
    txtLevels->setEnabled(offer_.hasList);
    cboPalette->setEnabled(offer_.hasBands);
    chkReversed->setEnabled(offer_.hasBands && shown_.BandPalette != 0);
    sldOpacity->setEnabled(offer_.hasBands);
    lblOpacity->setEnabled(offer_.hasBands);
    const bool hasField = offer_.onFieldOnly.empty();
    chkEnvelope->setEnabled(hasField);
    chkMaxima->setEnabled(hasField);
    cmdContours->setVisible(canUse && !offer_.isDrawn);
}

} // namespace quandrel
