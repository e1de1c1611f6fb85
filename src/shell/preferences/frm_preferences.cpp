// SPDX-License-Identifier: MIT

#include "shell/preferences/frm_preferences.h"

#include "core/plot_store.h"
#include "core/plot_style.h"
#include "orientation/number_text.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_text_window.h"
#include "shell/files/frm_directory_dialog.h"
#include "shell/preferences/preferences_help.h"
#include "shell/styles/sample_button.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr std::array<const char*, 6> kPages = {"Symbols",    "Lines", "Roses",
                                               "Plot style", "Fonts", "General"};
constexpr const char* kReplaceTitle = "Replace currently seleted colour with:";

/// A valid number from the user, or the previous value.
double NumberIn(const QString& text, double otherwise) {
    return ReadNumber(text.toStdString()).value_or(otherwise);
}

} // namespace

frmPreferences::frmPreferences(QWidget* parent, int tab)
    : QDialog(parent)
    , tabPreferences(new QTabWidget)
    , now_(CurrentPreferences()) {
    setObjectName("frmPreferences");
    setWindowTitle("Preferences");
    UseOwnDialogs();
    tabPreferences->setObjectName("tabPreferences");
    tabPreferences->setAccessibleName("Pages of the preferences");
    const std::array<QWidget*, 6> pages = {MakeSymbolsPage(),   MakeLinesPage(), MakeRosesPage(),
                                           MakePlotStylePage(), MakeFontsPage(), MakeGeneralPage()};
    for (std::size_t i = 0; i < pages.size(); ++i) {
        tabPreferences->addTab(pages[i], kPages[i]);
    }
    palette_ = MakePalette();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabPreferences, 1);
    layout->addWidget(palette_);
    MakeButtons();
    current_[kSymbolsPage] = StyleSlot{StyleSlot::Table::Symbol, kRowSymbol};
    current_[kLinesPage] = StyleSlot{StyleSlot::Table::Contour, 0};
    current_[kRosesPage] = StyleSlot{StyleSlot::Table::Symbol, kRoseStyle};
    tabPreferences->setCurrentIndex(std::clamp(tab, 0, tabPreferences->count() - 1));
    Load();
    Connect();
}

void frmPreferences::UseOwnDialogs() {
    askColour = [this](Colour colour, const QString& title) -> std::optional<Colour> {
        const QColor chosen =
            QColorDialog::getColor(QColor(colour.red, colour.green, colour.blue), this, title);
        if (!chosen.isValid()) {
            return std::nullopt;
        }
        return Colour{static_cast<std::uint8_t>(chosen.red()),
                      static_cast<std::uint8_t>(chosen.green()),
                      static_cast<std::uint8_t>(chosen.blue())};
    };
    askFont = [this](const QFont& font) -> std::optional<QFont> {
        bool accepted = false;
        const QFont chosen = QFontDialog::getFont(&accepted, font, this, "Font");
        return accepted ? std::optional(chosen) : std::nullopt;
    };
    askFolder = [this](const QString& folder) -> std::optional<QString> {
        frmDirectoryDialog dialog(folder, this);
        return dialog.exec() == Accepted ? std::optional(dialog.Folder()) : std::nullopt;
    };
    showText = [this](const QString& title, const QString& text) {
        frmTextWindow window(title, text, this);
        window.setObjectName("frmPrefHelp");
        window.exec();
    };
}

void frmPreferences::MakeButtons() {
    chkSaveSettings = new QCheckBox("Sa&ve settings");
    chkSaveSettings->setObjectName("chkSaveSettings");
    chkSaveSettings->setToolTip(
        "Keep the preferences for later sessions. Otherwise they apply until "
        "Quandrel ends");
    auto* line = new QHBoxLayout;
    line->addWidget(chkSaveSettings);
    line->addStretch(1);
    constexpr std::array<const char*, 4> kCaptions = {"OK", "Cancel", "&Defaults", "&Help..."};
    constexpr std::array<const char*, 4> kTips = {
        "Use these preferences, and redraw all open plots", "Change nothing",
        "Show what Quandrel starts with", "Get help with this dialog"};
    for (std::size_t i = 0; i < kCaptions.size(); ++i) {
        cmdOK[i] = new QPushButton(kCaptions[i]);
        cmdOK[i]->setObjectName(Numbered("cmdOK", i));
        cmdOK[i]->setToolTip(kTips[i]);
        line->addWidget(cmdOK[i]);
    }
    static_cast<QVBoxLayout*>(layout())->addLayout(line);
    cmdOK[0]->setDefault(true);
}

void frmPreferences::Connect() {
    connect(cmdOK[0], &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdOK[1], &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdOK[2], &QPushButton::clicked, this, [this] {
        now_ = DefaultPreferences();
        Load();
    });
    connect(cmdOK[3], &QPushButton::clicked, this, &frmPreferences::ShowHelp);
    connect(cmdOK[4], &QPushButton::clicked, this, &frmPreferences::ReplaceColour);
    connect(tabPreferences, &QTabWidget::currentChanged, this, &frmPreferences::ShowSlots);
    connect(chkUseLastDirectory, &QCheckBox::clicked, this, [this](bool on) {
        if (on) {
            now_.files.folder.clear();
        }
        ShowFolder();
    });
    connect(cmdDirectory, &QPushButton::clicked, this, &frmPreferences::ChooseFolder);
    const auto furniture = [this] {
        now_ = Choice();
        DrawPictures();
    };
    for (QCheckBox* box : {chkRoseOuterCircle, chkShowCompass, chkShowNorth}) {
        connect(box, &QCheckBox::clicked, this, furniture);
    }
    connect(netStyles_, &QButtonGroup::idClicked, this, furniture);
    connect(roseStyles_, &QButtonGroup::idClicked, this, furniture);
    for (std::size_t i = 0; i < cmdFont.size(); ++i) {
        connect(cmdFont[i], &QPushButton::clicked, this, [this, i] { ChooseFont(i); });
        connect(cmdFontColour[i], &QPushButton::clicked, this, [this, i] { ChooseFontColour(i); });
    }
    for (std::size_t i = 0; i < cmdPlotColour.size(); ++i) {
        connect(cmdPlotColour[i], &QPushButton::clicked, this, [this, i] { ChoosePlotColour(i); });
    }
}

void frmPreferences::Load() {
    chkRoseOuterCircle->setChecked(now_.styles.roseOuterCircle);
    chkShowCompass->setChecked(now_.styles.showCompassPoints);
    chkShowNorth->setChecked(now_.styles.showNorth);
    txtPlotSize->setText(QString::number(now_.windows.plotWidthPercent));
    chkPlotLast->setChecked(now_.windows.plotWinLast);
    cboPlotAspect->setEditText(QString::fromStdString(
        FormatNumber(static_cast<double>(now_.windows.plotAspect), "Fixed")));
    txtNumPlots->setText(QString::fromStdString(FormatNumber(now_.newPlots.maxPlots, "#0")));
    optPitchName[now_.notation.pitchName == "rake" ? 1 : 0]->setChecked(true);
    optFormulas[now_.notation.formulas == Formulas::Textbook ? 1 : 0]->setChecked(true);
    ShowNewPlotStyle();
    chkUseDecimals->setChecked(now_.newPlots.useDecimals);
    chkDecimalConv->setChecked(now_.notation.convertDecimals);
    chkSaveLinesOption->setChecked(now_.files.nonDataLines);
    chkIsolatedPts->setChecked(now_.styles.showIsolatedPts != 0);
    chkUseLastDirectory->setChecked(now_.files.folder.empty());
    const auto check = [](QButtonGroup& cells, int id) {
        if (QAbstractButton* cell = cells.button(id)) {
            cell->setChecked(true);
        }
    };
    check(*netStyles_, now_.styles.plotAxesStyle);
    // The last axes style of roses draws the same as the second one.
    check(*roseStyles_, now_.styles.roseAxesStyle == 3 ? 1 : now_.styles.roseAxesStyle);
    ShowFolder();
    ShowFonts();
    ShowSlots();
    DrawPictures();
}

Settings frmPreferences::Choice() const {
    Settings choice = now_;
    choice.styles.roseOuterCircle = chkRoseOuterCircle->isChecked();
    choice.styles.showCompassPoints = chkShowCompass->isChecked();
    choice.styles.showNorth = chkShowNorth->isChecked();
    if (netStyles_->checkedId() >= 0) {
        choice.styles.plotAxesStyle = static_cast<std::int16_t>(netStyles_->checkedId());
    }
    const int formerRose = now_.styles.roseAxesStyle == 3 ? 1 : now_.styles.roseAxesStyle;
    if (roseStyles_->checkedId() >= 0 && roseStyles_->checkedId() != formerRose) {
        choice.styles.roseAxesStyle = static_cast<std::int16_t>(roseStyles_->checkedId());
    }
    choice.windows.plotWidthPercent =
        PlotWidthOf(NumberIn(txtPlotSize->text(), now_.windows.plotWidthPercent));
    const std::string aspect = cboPlotAspect->currentText().toStdString();
    const std::string formerAspect =
        FormatNumber(static_cast<double>(now_.windows.plotAspect), "Fixed");
    if (aspect != formerAspect) { // the box shows two decimals, the value may have more
        choice.windows.plotAspect = PlotAspectOf(NumberFromText(aspect, gDecimalIsComma));
    }
    choice.windows.plotWinLast = chkPlotLast->isChecked();
    choice.newPlots.maxPlots =
        MaxPlotsOf(txtNumPlots->text().toStdString(), now_.newPlots.maxPlots);
    choice.notation.pitchName = optPitchName[1]->isChecked() ? "rake" : "pitch";
    choice.notation.formulas = optFormulas[1]->isChecked() ? Formulas::Textbook : Formulas::Own;
    choice.newPlots.style = NewPlotStyle();
    choice.newPlots.useDecimals = chkUseDecimals->isChecked();
    choice.notation.convertDecimals = chkDecimalConv->isChecked();
    choice.files.nonDataLines = chkSaveLinesOption->isChecked();
    const bool showsIsolated = chkIsolatedPts->isChecked();
    if (showsIsolated != (now_.styles.showIsolatedPts != 0)) {
        choice.styles.showIsolatedPts = showsIsolated ? 1 : 0;
    }
    return choice;
}

void frmPreferences::ShowNewPlotStyle() {
    const auto styles = static_cast<int>(StandardStyles().size());
    while (cboNewPlotStyle->count() > styles) {
        cboNewPlotStyle->removeItem(styles);
    }
    const StyleChoice& choice = now_.newPlots.style;
    const QString name = QString::fromStdString(StyleOfChoice(choice)->name);
    if (!choice.text.empty()) {
        cboNewPlotStyle->addItem(name.isEmpty() ? QString("Own") : name);
    }
    cboNewPlotStyle->setCurrentIndex(choice.text.empty() ? cboNewPlotStyle->findText(name)
                                                         : styles);
}

StyleChoice frmPreferences::NewPlotStyle() const {
    const auto index = static_cast<std::size_t>(cboNewPlotStyle->currentIndex());
    return index < StandardStyles().size() ? ChoiceOfStandard(StandardStyles()[index].name)
                                           : now_.newPlots.style;
}

bool frmPreferences::IsSaveWanted() const {
    return chkSaveSettings->isChecked();
}

void frmPreferences::ReplaceColour() {
    const std::optional<StyleSlot> slot = CurrentSlot();
    const std::int16_t* const place = slot ? PlaceOf(*slot, Part::Colour) : nullptr;
    if (place == nullptr || *place < 0 || *place >= kColourCount) {
        return;
    }
    std::uint32_t& value = now_.styles.colours[static_cast<std::size_t>(*place)];
    if (const auto colour = askColour(ColourFromValue(value), kReplaceTitle)) {
        value = ColourValue(*colour);
        ShowSlots();
        ShowFonts();
        DrawPictures();
    }
}

void frmPreferences::DrawPictures() {
    DrawLinesSample(picLineBox->Picture(), now_.styles);
    roses_ = DrawRoseSamples(picPlotBox->Picture(), now_.styles);
    picLineBox->update();
    picPlotBox->update();
    for (QButtonGroup* styles : {netStyles_, roseStyles_}) {
        for (QAbstractButton* sample : styles->buttons()) {
            sample->update();
        }
    }
}

void frmPreferences::ShowHelp() {
    showText("Help with preferences", PreferencesHelp());
}

bool ShowPreferences(QWidget* parent, int tab) {
    frmPreferences dialog(parent, tab);
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    ApplyPreferences(dialog.Choice(), dialog.IsSaveWanted() ? KeepSettings::Yes : KeepSettings::No);
    return true;
}

} // namespace quandrel
