// SPDX-License-Identifier: MIT

#include "session/start.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_text_window.h"
#include "shell/preferences/frm_preferences.h"
#include "shell/styles/sample_button.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFont>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <memory>
#include <set>

namespace quandrel {
namespace {

class PreferencesWindow : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        Open(0);
    }

    void TearDown() override {
        dialog_.reset();
        EngineTest::TearDown();
    }

    void Open(int tab) {
        dialog_ = std::make_unique<frmPreferences>(nullptr, tab);
        dialog_->askColour = [this](Colour, const QString& title) {
            colourTitles_.push_back(title);
            return colour_;
        };
        dialog_->show();
    }

    void Turn(PreferencesTab page) { dialog_->tabPreferences->setCurrentIndex(page); }

    [[nodiscard]] QAbstractButton& Button(const std::string& name) const {
        return ControlOf<QAbstractButton>(*dialog_, name);
    }

    void Click(const std::string& name, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseClick(&Button(name), button);
    }

    [[nodiscard]] Settings Choice() const { return dialog_->Choice(); }

    static QString Plain(QString text) { return text.remove('&'); }

    /// All texts of the dialog, without marks of keys.
    [[nodiscard]] std::set<QString> Texts() const {
        std::set<QString> texts;
        for (const auto* label : dialog_->findChildren<QLabel*>()) {
            // Only captions of other controls have marks.
            texts.insert(label->buddy() != nullptr ? Plain(label->text()) : label->text());
        }
        for (const auto* button : dialog_->findChildren<QAbstractButton*>()) {
            texts.insert(Plain(button->text()));
            texts.insert(button->toolTip());
        }
        for (const auto* box : dialog_->findChildren<QGroupBox*>()) {
            texts.insert(box->title());
        }
        return texts;
    }

    std::unique_ptr<frmPreferences> dialog_;
    std::optional<Colour> colour_ = Colour{0x12, 0x34, 0x56};
    std::vector<QString> colourTitles_;
};

/// How many pixels of a picture have a colour.
int CountPixels(const QImage& image, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

TEST_F(PreferencesWindow, HasItsPagesAndOpensAtTheOneAskedFor) {
    EXPECT_EQ(dialog_->objectName(), "frmPreferences");
    const std::vector<QString> pages = {"Symbols",    "Lines", "Roses",
                                        "Plot style", "Fonts", "General"};
    ASSERT_EQ(dialog_->tabPreferences->count(), static_cast<int>(pages.size()));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(dialog_->tabPreferences->tabText(static_cast<int>(i)), pages[i]);
    }
    Open(kRosesPage);
    EXPECT_EQ(dialog_->tabPreferences->currentIndex(), kRosesPage);
    Open(17);
    EXPECT_EQ(dialog_->tabPreferences->currentIndex(), kGeneralPage);
}

TEST_F(PreferencesWindow, SaysWhatItsControlsAreFor) {
    const std::set<QString> texts = Texts();
    for (const char* const text :
         {"Current Symbol Array",
          "Set the size of the selected symbol",
          "Point plots",
          "+ve plunges",
          "\"-ve\" plunges",
          "(left button)",
          "(right button)",
          "density level symbols",
          "Beta axis",
          "Annotation points",
          "Class range settings for classified plots",
          "Symbol for single point plots",
          "Symbol for -ve plunge single point plots",
          "level 1",
          "level 6",
          "Mean",
          "Calc.",
          "Available Line Styles",
          "Width",
          "transparent",
          "solid",
          "Simple rose",
          "Wind Rose",
          "Overlayed",
          "Classified rose",
          "segment range",
          "frequency",
          "mean wind speed",
          "energy",
          "sectors",
          "lowest",
          "highest",
          "Show outer circle",
          "Show Compass points",
          "circle/axes style",
          "N-S & E-W axes shown",
          "qudrant ticks shown",
          "Enter a %age number 1-100",
          "Use last resize",
          "Enter height to width ratio of plot window",
          "Fabric Font",
          "Legend Font",
          "Stats Font",
          "General Font",
          "InfoBar Font",
          "DipAz Font",
          "Fabric label",
          "Legend",
          "Stats",
          "Plot area",
          "All plots",
          "b'ground",
          "axes/circle",
          "Lower infomation bar",
          "Lower left orientation box",
          "Maximum number of simultaneously open plots (Max. = 99)",
          "(Only adjust as necessary, or to conserve memory ). Save any changes then restart "
          "Quandrel",
          "Default files directory...",
          "Change...",
          "Always use last-accessed directory (deselect to set default directory)",
          "pitch/rake nomenclature:",
          "pitch",
          "rake",
          "Convert 'invalid' decimal-like numbers to agree with Regional Settings",
          "Include non-data lines in ASCII Saves [default = No]",
          "Show single isolated pts with contours",
          "OK",
          "Cancel",
          "Defaults",
          "Help...",
          "Get help with this dialog",
          "more colours ...",
          "Save settings",
          "N at the top"}) {
        EXPECT_TRUE(texts.contains(text)) << text;
    }
}

TEST_F(PreferencesWindow, EveryControlHasANameForThoseWhoCannotSeeIt) {
    for (int page = 0; page < 6; ++page) {
        dialog_->tabPreferences->setCurrentIndex(page);
        for (const auto* button : dialog_->findChildren<QAbstractButton*>()) {
            if (button->isVisible() && button->focusPolicy() != Qt::NoFocus
                && !button->objectName().startsWith("qt_")) {
                EXPECT_FALSE(button->text().isEmpty() && button->accessibleName().isEmpty())
                    << page << button->objectName().toStdString();
            }
        }
    }
}

TEST_F(PreferencesWindow, MarksOfKeysAreUniqueOnEachPage) {
    for (int page = 0; page < 6; ++page) {
        dialog_->tabPreferences->setCurrentIndex(page);
        std::set<QChar> keys;
        const auto take = [&keys, page](const QString& text) {
            const qsizetype at = text.indexOf('&');
            if (at >= 0 && at + 1 < text.size()) {
                EXPECT_TRUE(keys.insert(text[at + 1].toLower()).second)
                    << page << text.toStdString();
            }
        };
        for (const auto* button : dialog_->findChildren<QAbstractButton*>()) {
            if (button->isVisible()) {
                take(button->text());
            }
        }
        for (const auto* label : dialog_->findChildren<QLabel*>()) {
            if (label->isVisible() && label->buddy() != nullptr) {
                take(label->text());
            }
        }
    }
}

TEST_F(PreferencesWindow, TheMouseButtonsChooseForDownwardAndUpwardRows) {
    Click("picSymbolTypes_12");
    Click("picSymbolTypes_13", Qt::RightButton);
    Click("picColour_9");
    Click("picColour_10", Qt::RightButton);
    EXPECT_EQ(Choice().styles.symbols[kRowSymbol], (SymbolRow{9, 12, 2}));
    EXPECT_EQ(Choice().styles.symbols[kUpRowSymbol], (SymbolRow{10, 13, 3}));
    EXPECT_TRUE(Button("picSymbolArray_1").isChecked()) << "the one chosen for last";
}

TEST_F(PreferencesWindow, EverySymbolSampleTakesShapeColourAndSize) {
    std::vector<std::pair<std::string, int>> samples = {
        {"picSymbolArray_0", 0}, {"picSymbolArray_1", 1}, {"picSymbolArray_beta", -1}};
    for (const int row : {2, 3, 8, 10, 15, 19, 20, 21, 22, 39, 50}) {
        samples.emplace_back("picSymbolArray_" + std::to_string(row), row);
    }
    for (const auto& [name, row] : samples) {
        SCOPED_TRACE(name);
        Click(name);
        // A key chooses for the sample itself.
        Button("picSymbolTypes_14").setFocus();
        QTest::keyClick(&Button("picSymbolTypes_14"), Qt::Key_Space);
        QTest::keyClick(&Button("picColour_18"), Qt::Key_Space);
        dialog_->spnSymbSize->setValue(11);
        const Settings choice = Choice();
        const SymbolRow& style = row < 0 ? choice.styles.axes[kBetaAxisStyle]
                                         : choice.styles.symbols[static_cast<std::size_t>(row)];
        EXPECT_EQ(style, (SymbolRow{18, 14, 11}));
        EXPECT_EQ(static_cast<StylePatch&>(Button(name)).Style(), style) << "the sample follows";
        EXPECT_EQ(dialog_->sldSymbSize->value(), 11);
    }
    EXPECT_EQ(gSymbolTable[kRowSymbol], (SymbolRow{5, 3, 2})) << "nothing holds before OK";
}

TEST_F(PreferencesWindow, LinesOfContoursAndGirdlesTakeStyleColourAndWidth) {
    Turn(kLinesPage);
    Click("picContour_5");
    Click("panLineStyle_2");
    Click("picColour_9");
    dialog_->sldLineWidth->setValue(4);
    EXPECT_EQ(Choice().styles.contours[5], (AxisStyle{9, 2, 4}));
    const std::vector<std::pair<std::string, AxisStyleRow>> girdles = {
        {"picGirdle_0", kMeanGirdleStyle},
        {"picGirdle_1", kCalculatedGirdleStyle},
        {"picGirdle_2", kUserGirdleStyle}};
    for (const auto& [name, row] : girdles) {
        Click(name);
        Click("panLineStyle_4");
        Click("picColour_19");
        dialog_->spnLineWidth->setValue(3);
        EXPECT_EQ(Choice().styles.axes[row], (AxisStyle{19, 4, 3})) << name;
    }
    EXPECT_EQ(Choice().styles.contours[5], (AxisStyle{9, 2, 4}));
}

TEST_F(PreferencesWindow, RosesTakeFillsAndColours) {
    Turn(kRosesPage);
    Click("picRoseSlot_frequency");
    Click("picPatternStyles_6");
    Click("picColour_9");
    EXPECT_EQ(Choice().styles.symbols[36], (SymbolRow{9, 6, 1}));
    Click("picRoseSlot_35");
    Click("picPatternStyles_4");
    EXPECT_EQ(Choice().styles.symbols[35], (SymbolRow{8, 4, 1}));
    Click("picRoseSlot_energy");
    Click("picColour_21");
    EXPECT_EQ(Choice().styles.symbols[kRoseStyle][kPlaceColour], 21) << "the top of the layers";
    Click("picRoseSlot_outline");
    Click("picColour_19");
    EXPECT_EQ(Choice().styles.symbols[kRoseBackgroundStyle], (SymbolRow{1, 19, 1}));
    EXPECT_FALSE(Button("picPatternStyles_0").isEnabled()) << "an outline has no fill";
    Click("picRoseSlot_blank");
    Click("picColour_2");
    EXPECT_EQ(Choice().styles.symbols[kRoseBackgroundStyle], (SymbolRow{2, 19, 1}));
}

TEST_F(PreferencesWindow, AClickOnTheRosesPicksTheFillThatIsThere) {
    Turn(kRosesPage);
    PictureBox& box = *dialog_->picPlotBox;
    QApplication::processEvents();
    const QSize size = box.size();
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_TRUE(Button("picRoseSlot_blank").isChecked());
    // The outermost class of the third rose, to the north of its centre.
    QTest::mouseClick(&box, Qt::LeftButton, {},
                      QPoint(size.width() * 5 / 6 - 4, size.height() / 11));
    EXPECT_TRUE(Button("picRoseSlot_35").isChecked());
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(size.width() / 6 - 3, size.height() / 3));
    EXPECT_TRUE(Button("picRoseSlot_sectors").isChecked());
}

TEST_F(PreferencesWindow, ThePicturesShowWhatIsChosenBeforeItHolds) {
    Turn(kRosesPage);
    QApplication::processEvents();
    const QColor magenta(255, 0, 255);
    Click("picRoseSlot_sectors");
    const int before = CountPixels(dialog_->picPlotBox->Image(), QColor(0xc0, 0x40, 0));
    Click("picColour_9"); // 16576
    EXPECT_GT(CountPixels(dialog_->picPlotBox->Image(), QColor(0xc0, 0x40, 0)), before + 500);
    Turn(kLinesPage);
    QApplication::processEvents();
    const int lines = CountPixels(dialog_->picLineBox->Image(), magenta);
    Click("picContour_0");
    Click("picColour_22");
    dialog_->spnLineWidth->setValue(6);
    EXPECT_GT(CountPixels(dialog_->picLineBox->Image(), magenta), lines + 300);
    EXPECT_EQ(gSymbolTable[kRoseStyle], (SymbolRow{5, 0, 1}));
    EXPECT_EQ(gSettings.styles.contours[0], (AxisStyle{18, 0, 1}));
}

TEST_F(PreferencesWindow, AnotherColourTakesThePlaceOfTheSelectedOne) {
    Click("picSymbolArray_2"); // colour 7
    QTest::mouseClick(dialog_->cmdOK[4], Qt::LeftButton);
    ASSERT_EQ(colourTitles_, std::vector<QString>{"Replace currently seleted colour with:"});
    EXPECT_EQ(Choice().styles.colours[7], 0x563412U) << "red in the low byte";
    EXPECT_EQ(Button("picColour_7").accessibleName(), "Colour 7: dark blue");
    EXPECT_EQ(Button("picColour_8").accessibleName(), "Colour 8: red");
    EXPECT_EQ(gColourTable[7], 192U);
    QApplication::processEvents();
    const QImage cell = Button("picColour_7").grab().toImage();
    EXPECT_EQ(cell.pixelColor(cell.width() / 2, cell.height() / 2), QColor(0x12, 0x34, 0x56));
    colour_.reset();
    QTest::mouseClick(dialog_->cmdOK[4], Qt::LeftButton);
    EXPECT_EQ(Choice().styles.colours[7], 0x563412U) << "Cancel of the colour dialog";
}

TEST_F(PreferencesWindow, ThePaletteStandsWhereStylesAreChanged) {
    const auto& palette = ControlOf<QGroupBox>(*dialog_, "picColour");
    for (int page = 0; page < 6; ++page) {
        dialog_->tabPreferences->setCurrentIndex(page);
        EXPECT_EQ(palette.isVisible(), page <= kRosesPage) << page;
    }
}

TEST_F(PreferencesWindow, PlotStylesAreChosenByTheirSamples) {
    Turn(kPlotStylePage);
    EXPECT_TRUE(Button("picAxes_0").isChecked());
    EXPECT_TRUE(Button("picRoseAxes_0").isChecked());
    for (int style = 3; style >= 0; --style) {
        Click("picAxes_" + std::to_string(style));
        EXPECT_EQ(Choice().styles.plotAxesStyle, style);
    }
    for (int style = 2; style >= 0; --style) {
        Click("picRoseAxes_" + std::to_string(style));
        EXPECT_EQ(Choice().styles.roseAxesStyle, style);
    }
    dialog_->chkRoseOuterCircle->click();
    dialog_->chkShowCompass->click();
    dialog_->chkShowNorth->click();
    dialog_->chkPlotLast->click();
    EXPECT_FALSE(Choice().styles.roseOuterCircle);
    EXPECT_TRUE(Choice().styles.showCompassPoints);
    EXPECT_TRUE(Choice().styles.showNorth);
    EXPECT_TRUE(Choice().windows.plotWinLast);
}

TEST_F(PreferencesWindow, TheLastStyleOfRosesStaysWhileNoOtherIsChosen) {
    gRoseAxesStyle = 3;
    Open(kPlotStylePage);
    EXPECT_TRUE(Button("picRoseAxes_1").isChecked()) << "it draws the same";
    EXPECT_EQ(Choice().styles.roseAxesStyle, 3);
    Click("picRoseAxes_2");
    EXPECT_EQ(Choice().styles.roseAxesStyle, 2);
}

TEST_F(PreferencesWindow, TheSampleOfANetShowsTheNorth) {
    Turn(kPlotStylePage);
    QApplication::processEvents();
    const QImage without = Button("picAxes_0").grab().toImage();
    dialog_->chkShowNorth->click();
    QApplication::processEvents();
    EXPECT_NE(Button("picAxes_0").grab().toImage(), without);
}

TEST_F(PreferencesWindow, SizesOfWindowsAreNumbersInEitherLocale) {
    EXPECT_EQ(dialog_->txtPlotSize->text(), "50");
    EXPECT_EQ(dialog_->cboPlotAspect->currentText(), "0.75");
    const std::vector<std::pair<QString, float>> aspects = {
        {"0.50", 0.5F}, {"0,6", 0.6F}, {"80", 0.8F}, {"wide", 0.75F}, {"-1", 0.75F}};
    for (const auto& [text, expected] : aspects) {
        dialog_->cboPlotAspect->setEditText(text);
        EXPECT_FLOAT_EQ(Choice().windows.plotAspect, expected) << text.toStdString();
    }
    const std::vector<std::pair<QString, int>> widths = {
        {"70", 70}, {"0", 50}, {"150", 100}, {"wide", 50}};
    for (const auto& [text, expected] : widths) {
        dialog_->txtPlotSize->setText(text);
        EXPECT_EQ(Choice().windows.plotWidthPercent, expected) << text.toStdString();
    }
}

TEST_F(PreferencesWindow, AnAspectOfMoreDecimalsStaysWhenItIsNotTouched) {
    gPlotAspect = 0.618F;
    Open(kPlotStylePage);
    EXPECT_EQ(dialog_->cboPlotAspect->currentText(), "0.62");
    EXPECT_FLOAT_EQ(Choice().windows.plotAspect, 0.618F);
}

TEST_F(PreferencesWindow, FontsAndTheirColoursAreAskedFor) {
    Turn(kFontsPage);
    dialog_->askFont = [](const QFont& font) -> std::optional<QFont> {
        QFont chosen = font;
        chosen.setFamily("Serif");
        chosen.setPointSizeF(14.5);
        chosen.setBold(true);
        chosen.setItalic(true);
        chosen.setUnderline(true);
        return chosen;
    };
    for (std::size_t i = 0; i < 10; ++i) {
        QTest::mouseClick(dialog_->cmdFont[i], Qt::LeftButton);
        QTest::mouseClick(dialog_->cmdFontColour[i], Qt::LeftButton);
        const PlotFont font = Choice().styles.fonts[i];
        EXPECT_EQ(font.font, (FontSpec{"Serif", 14.5, true, true, true})) << i;
        EXPECT_EQ(font.weight, 700) << i;
        EXPECT_EQ(font.colour, 0x563412) << i;
        EXPECT_EQ(dialog_->txtFontBox[i]->text(), "Serif, 14.5 pt, bold, italic, underlined");
        EXPECT_EQ(gSettings.styles.fonts[i].font, FontSpec{}) << i;
    }
    dialog_->askFont = [](const QFont&) { return std::optional<QFont>(); };
    QTest::mouseClick(dialog_->cmdFont[0], Qt::LeftButton);
    EXPECT_EQ(Choice().styles.fonts[0].font.family, "Serif");
    QTest::mouseClick(dialog_->cmdPlotColour[0], Qt::LeftButton);
    EXPECT_EQ(Choice().styles.plotBackColour, 0x563412U);
    EXPECT_EQ(Choice().styles.plotAxesColour, 0U);
    QTest::mouseClick(dialog_->cmdPlotColour[1], Qt::LeftButton);
    EXPECT_EQ(Choice().styles.plotAxesColour, 0x563412U);
}

TEST_F(PreferencesWindow, GeneralOptionsAreRead) {
    Turn(kGeneralPage);
    dialog_->txtNumPlots->setText("42");
    dialog_->optPitchName[1]->click();
    EXPECT_TRUE(dialog_->optFormulas[0]->isChecked());
    dialog_->optFormulas[1]->click();
    EXPECT_FALSE(dialog_->chkUseDecimals->isChecked());
    dialog_->chkUseDecimals->click();
    dialog_->chkDecimalConv->click();
    dialog_->chkSaveLinesOption->click();
    dialog_->chkIsolatedPts->click();
    const Settings choice = Choice();
    EXPECT_EQ(choice.newPlots.maxPlots, 42);
    EXPECT_EQ(choice.notation.pitchName, "rake");
    EXPECT_EQ(choice.notation.formulas, Formulas::Textbook);
    EXPECT_TRUE(choice.newPlots.useDecimals);
    EXPECT_TRUE(choice.notation.convertDecimals);
    EXPECT_TRUE(choice.files.nonDataLines);
    EXPECT_EQ(choice.styles.showIsolatedPts, 1);
    EXPECT_FALSE(gConvertDecimals);
    EXPECT_FALSE(gSettings.newPlots.useDecimals);
    EXPECT_EQ(gSettings.notation.pitchName, "pitch");
}

TEST_F(PreferencesWindow, ADataFolderIsChosenOrThatOfTheLastFileIsUsed) {
    Turn(kGeneralPage);
    EXPECT_TRUE(dialog_->chkUseLastDirectory->isChecked());
    EXPECT_FALSE(dialog_->cmdDirectory->isEnabled());
    dialog_->chkUseLastDirectory->click();
    ASSERT_TRUE(dialog_->cmdDirectory->isEnabled());
    dialog_->askFolder = [](const QString&) { return std::optional<QString>("/somewhere"); };
    QTest::mouseClick(dialog_->cmdDirectory, Qt::LeftButton);
    EXPECT_EQ(dialog_->txtDirectory->text(), "/somewhere");
    EXPECT_EQ(Choice().files.folder, "/somewhere");
    dialog_->chkUseLastDirectory->click();
    EXPECT_EQ(Choice().files.folder, "");
}

TEST_F(PreferencesWindow, DefaultsShowWhatAFirstRunHas) {
    gSymbolTable[kRowSymbol] = {9, 12, 7};
    gColourTable[9] = 0x010203;
    gPlotAxesStyle = 3;
    gSettings.styles.showNorth = true;
    gSettings.styles.fonts[0].font.points = 30;
    gSettings.notation.pitchName = "rake";
    gSettings.styles.plotBackColour = 0;
    gSettings.newPlots.useDecimals = true;
    Open(0);
    EXPECT_TRUE(dialog_->chkUseDecimals->isChecked());
    QTest::mouseClick(dialog_->cmdOK[2], Qt::LeftButton);
    const Settings choice = Choice();
    EXPECT_EQ(choice.styles.symbols[kRowSymbol], (SymbolRow{5, 3, 2}));
    EXPECT_EQ(choice.styles.colours[9], 16576U);
    EXPECT_EQ(choice.styles.plotAxesStyle, 0);
    EXPECT_FALSE(choice.styles.showNorth);
    EXPECT_EQ(choice.styles.fonts[0].font.points, 8);
    EXPECT_EQ(choice.notation.pitchName, "pitch");
    EXPECT_EQ(choice.styles.plotBackColour, 0xffffffU);
    EXPECT_FALSE(choice.newPlots.useDecimals);
    EXPECT_EQ(gPlotAxesStyle, 3) << "nothing holds before OK";
}

TEST_F(PreferencesWindow, HelpIsShownInAWindowOfText) {
    QString name;
    QString text;
    QTimer::singleShot(0, [&] {
        auto* window = static_cast<frmTextWindow*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        name = window->objectName();
        text = ControlOf<QWidget>(*window, "txtText").property("plainText").toString();
        window->reject();
    });
    QTest::mouseClick(dialog_->cmdOK[3], Qt::LeftButton);
    EXPECT_EQ(name, "frmPrefHelp");
    for (const char* const word : {"SYMBOLS", "PLOT STYLE", "FONTS", "GENERAL", "Save settings"}) {
        EXPECT_TRUE(text.contains(word)) << word;
    }
}

/// Shows the preferences, changes some as a user does, and ends the dialog by a button.
class ShownPreferences : public PreferencesWindow {
protected:
    static bool Answer(const char* button, bool save) {
        QTimer::singleShot(0, [button, save] {
            auto* dialog = dynamic_cast<frmPreferences*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->askColour = [](Colour, const QString&) { return Colour{0x12, 0x34, 0x56}; };
            QTest::mouseClick(&ControlOf<QAbstractButton>(*dialog, "picSymbolTypes_12"),
                              Qt::LeftButton);
            QTest::mouseClick(dialog->cmdOK[4], Qt::LeftButton);
            dialog->tabPreferences->setCurrentIndex(kFontsPage);
            QTest::mouseClick(dialog->cmdPlotColour[0], Qt::LeftButton);
            QTest::mouseClick(dialog->cmdFontColour[kLegendFont], Qt::LeftButton);
            dialog->tabPreferences->setCurrentIndex(kGeneralPage);
            dialog->chkSaveLinesOption->click();
            dialog->chkSaveSettings->setChecked(save);
            QTest::mouseClick(&ControlOf<QPushButton>(*dialog, button), Qt::LeftButton);
        });
        return ShowPreferences(nullptr, kSymbolsPage);
    }

    static bool Holds() {
        return gSymbolTable[kRowSymbol] == SymbolRow{5, 12, 2} && gColourTable[5] == 0x563412
               && gSettings.styles.plotBackColour == 0x563412
               && gSettings.styles.fonts[kLegendFont].colour == 0x563412
               && gSettings.files.nonDataLines;
    }

    static bool IsUntouched() {
        return gSymbolTable[kRowSymbol] == SymbolRow{5, 3, 2} && gColourTable[5] == 0
               && gSettings.styles.plotBackColour == 0xffffff
               && gSettings.styles.fonts[kLegendFont].colour == 0 && !gSettings.files.nonDataLines;
    }
};

TEST_F(ShownPreferences, OkLetsThemHoldAndDrawsTheOpenPlotsAnew) {
    const int slot = NewPlot();
    AddRow(30, 120);
    EXPECT_TRUE(Answer("cmdOK_0", false));
    EXPECT_TRUE(Holds());
    EXPECT_EQ(gDataSymbol(slot, 1), MakeSymbolCode(5, 12, 2));
    EXPECT_EQ(Form(slot).Plot().Operations()[0].colour, (Colour{0x12, 0x34, 0x56}))
        << "the background";
    LoadSettings();
    EXPECT_TRUE(IsUntouched()) << "they were not to be saved";
}

TEST_F(ShownPreferences, OkWithSaveSettingsKeepsThem) {
    EXPECT_TRUE(Answer("cmdOK_0", true));
    LoadSettings();
    EXPECT_TRUE(Holds());
}

TEST_F(ShownPreferences, CancelDropsAllOfThemColoursAndFontsToo) {
    const int slot = NewPlot();
    AddRow(30, 120);
    EXPECT_FALSE(Answer("cmdOK_1", true));
    EXPECT_TRUE(IsUntouched());
    EXPECT_EQ(gDataSymbol(slot, 1), MakeSymbolCode(5, 3, 2));
    LoadSettings();
    EXPECT_TRUE(IsUntouched());
}

TEST_F(PreferencesWindow, TheLineAtTheBottomHasItsFontOnceOneIsChosen) {
    QLabel info;
    QLabel orientation;
    UseInfoFonts(info, orientation);
    EXPECT_EQ(info.font(), QFont(QLabel().font()));
    gSettings.styles.fonts[kInfoBarFont].font = {"Serif", 15, true, false, false};
    gSettings.styles.fonts[kDipAzFont].font.points = 17;
    gSettings.styles.fonts[kDipAzFont].colour = 0xff;
    UseInfoFonts(info, orientation);
    EXPECT_EQ(info.font().pointSizeF(), 15);
    EXPECT_TRUE(info.font().bold());
    EXPECT_EQ(orientation.font().pointSizeF(), 17);
    EXPECT_EQ(orientation.palette().color(QPalette::WindowText), QColor(255, 0, 0));
}

} // namespace
} // namespace quandrel
