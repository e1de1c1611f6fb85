// SPDX-License-Identifier: MIT

#include "classify/classification.h"
#include "core/replot.h"
#include "core/settings_group.h"
#include "density/contours.h"
#include "orientation/angles.h"
#include "persistence/ascii_plot_file.h"
#include "preferences/preferences.h"
#include "preferences/style_changes.h"
#include "preferences/style_samples.h"
#include "rose/rose_plot.h"
#include "session/start.h"
#include "stereo/net.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <ranges>
#include <set>

namespace quandrel {
namespace {

/// One preference: how it is changed, and whether the globals hold the change.
struct Case {
    const char* name;
    std::function<void(Settings&)> change;
    std::function<bool()> holds;
    bool ofSession = false; ///< saved with the session, not with the preferences
};

const std::vector<Case>& AllPreferences() {
    static const std::vector<Case> kCases = {
        {"a colour", [](Settings& p) { p.styles.colours[7] = 0x123456; },
         [] { return gColourTable[7] == 0x123456; }},
        {"symbol of rows",
         [](Settings& p) {
             p.styles.symbols[kRowSymbol] = {9, 12, 4};
         },
         [] {
             return gSymbolTable[kRowSymbol] == SymbolRow{9, 12, 4};
         }},
        {"symbol of overlays",
         [](Settings& p) {
             p.styles.symbols[3] = {9, 12, 4};
         },
         [] {
             return gSymbolTable[3] == SymbolRow{9, 12, 4};
         }},
        {"density level",
         [](Settings& p) {
             p.styles.symbols[kLastBandSymbol] = {9, 12, 4};
         },
         [] {
             return gSymbolTable[kLastBandSymbol] == SymbolRow{9, 12, 4};
         }},
        {"annotation points",
         [](Settings& p) {
             p.styles.symbols[22] = {9, 12, 4};
         },
         [] {
             return gSymbolTable[22] == SymbolRow{9, 12, 4};
         },
         true},
        {"fill of roses",
         [](Settings& p) {
             p.styles.symbols[kRoseStyle] = {9, 4, 1};
         },
         [] {
             return gSymbolTable[kRoseStyle] == SymbolRow{9, 4, 1};
         }},
        {"class of roses",
         [](Settings& p) {
             p.styles.symbols[35] = {9, 4, 1};
         },
         [] {
             return gSymbolTable[35] == SymbolRow{9, 4, 1};
         }},
        {"class symbol",
         [](Settings& p) {
             p.styles.symbols[50] = {9, 12, 4};
         },
         [] {
             return gSymbolTable[50] == SymbolRow{9, 12, 4};
         }},
        {"beta axis",
         [](Settings& p) {
             p.styles.axes[kBetaAxisStyle] = {9, 12, 4};
         },
         [] {
             return gAxisStyleTable[kBetaAxisStyle] == AxisStyle{9, 12, 4};
         },
         true}, // read back once a session of this version has ended
        {"mean",
         [](Settings& p) {
             p.styles.axes[kMeanGirdleStyle] = {9, 1, 4};
         },
         [] {
             return gAxisStyleTable[kMeanGirdleStyle] == AxisStyle{9, 1, 4};
         }},
        {"drawn girdles",
         [](Settings& p) {
             p.styles.axes[kUserGirdleStyle] = {9, 1, 4};
         },
         [] {
             return gAxisStyleTable[kUserGirdleStyle] == AxisStyle{9, 1, 4};
         }},
        {"calculated girdles",
         [](Settings& p) {
             p.styles.axes[kCalculatedGirdleStyle] = {9, 3, 4};
         },
         [] {
             return gAxisStyleTable[kCalculatedGirdleStyle] == AxisStyle{9, 3, 4};
         }},
        {"first contour",
         [](Settings& p) {
             p.styles.contours[0] = {9, 3, 4};
         },
         [] {
             return gSettings.styles.contours[0] == AxisStyle{9, 3, 4};
         }},
        {"last contour",
         [](Settings& p) {
             p.styles.contours[5] = {9, 3, 4};
         },
         [] {
             return gSettings.styles.contours[5] == AxisStyle{9, 3, 4};
         }},
        {"legend font",
         [](Settings& p) {
             p.styles.fonts[kLegendFont] = {{"Serif", 11, true, true, true}, 700, 0x0000ff};
         },
         [] {
             const PlotFont& font = gSettings.styles.fonts[kLegendFont];
             return font.font == FontSpec{"Serif", 11, true, true, true} && font.weight == 700
                    && font.colour == 0x0000ff;
         }},
        {"printer font", [](Settings& p) { p.styles.fonts[kPrintPlotFont].font.points = 21; },
         [] { return gSettings.styles.fonts[kPrintPlotFont].font.points == 21; }},
        {"background", [](Settings& p) { p.styles.plotBackColour = 0x332211; },
         [] { return gSettings.styles.plotBackColour == 0x332211; }},
        {"axes", [](Settings& p) { p.styles.plotAxesColour = 0x112233; },
         [] { return gSettings.styles.plotAxesColour == 0x112233; }},
        {"style of nets", [](Settings& p) { p.styles.plotAxesStyle = 2; },
         [] { return gPlotAxesStyle == 2; }},
        {"north", [](Settings& p) { p.styles.showNorth = true; },
         [] { return gSettings.styles.showNorth; }},
        {"style of roses", [](Settings& p) { p.styles.roseAxesStyle = 2; },
         [] { return gRoseAxesStyle == 2; }},
        {"outer circle", [](Settings& p) { p.styles.roseOuterCircle = false; },
         [] { return !gRoseOuterCircle; }},
        {"compass points", [](Settings& p) { p.styles.showCompassPoints = true; },
         [] { return gSettings.styles.showCompassPoints; }},
        {"width of windows", [](Settings& p) { p.windows.plotWidthPercent = 70; },
         [] { return gPlotWidthPercent == 70; }, true},
        {"aspect of windows", [](Settings& p) { p.windows.plotAspect = 0.5F; },
         [] { return gPlotAspect == 0.5F; }, true},
        {"folder", [](Settings& p) { p.files.folder = "/somewhere"; },
         [] { return gSettings.files.folder == "/somewhere"; }},
        {"pitch", [](Settings& p) { p.notation.pitchName = "rake"; },
         [] { return gSettings.notation.pitchName == "rake"; }},
        {"formulas", [](Settings& p) { p.notation.formulas = Formulas::Textbook; },
         [] { return gSettings.notation.formulas == Formulas::Textbook; }},
        {"decimals", [](Settings& p) { p.notation.convertDecimals = true; },
         [] { return gConvertDecimals; }},
        {"decimals of new plots", [](Settings& p) { p.newPlots.useDecimals = true; },
         [] { return NewPlotRecord().UseDecimals == kTrue; }},
        {"non-data lines", [](Settings& p) { p.files.nonDataLines = true; },
         [] { return gSettings.files.nonDataLines; }},
        {"isolated points", [](Settings& p) { p.styles.showIsolatedPts = 1; },
         [] { return gShowIsolatedPts == 1; }},
    };
    return kCases;
}

class PreferencesTest : public EngineTest {
protected:
    static void Apply(const std::function<void(Settings&)>& change,
                      KeepSettings keep = KeepSettings::No) {
        Settings preferences = CurrentPreferences();
        change(preferences);
        ApplyPreferences(preferences, keep);
    }

    [[nodiscard]] static SymbolCode Drawn(std::int32_t row) {
        return gDataSymbol(gActivePlot, row);
    }

    [[nodiscard]] static SymbolCode Base(std::int32_t row) {
        return gDataSymbolBase(gActivePlot, row);
    }
};

TEST_F(PreferencesTest, EachOneTakesHoldAndSurvivesARestartWhenSaved) {
    for (const Case& preference : AllPreferences()) {
        SCOPED_TRACE(preference.name);
        settings = MemorySettingsStore();
        LoadSettings();
        ASSERT_FALSE(preference.holds());
        Apply(preference.change, KeepSettings::Yes);
        EXPECT_TRUE(preference.holds());
        if (preference.ofSession) {
            EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
        }
        LoadSettings();
        EXPECT_TRUE(preference.holds());
    }
}

TEST_F(PreferencesTest, WithoutSavingARestartForgetsThem) {
    for (const Case& preference : AllPreferences()) {
        SCOPED_TRACE(preference.name);
        settings = MemorySettingsStore();
        LoadSettings();
        Apply(preference.change);
        EXPECT_TRUE(preference.holds());
        LoadSettings();
        EXPECT_FALSE(preference.holds());
    }
}

TEST_F(PreferencesTest, ACopyThatIsDroppedChangesNothing) {
    for (const Case& preference : AllPreferences()) {
        SCOPED_TRACE(preference.name);
        Settings preferences = CurrentPreferences();
        preference.change(preferences);
        EXPECT_FALSE(preference.holds());
    }
}

TEST_F(PreferencesTest, DefaultsAreThoseOfAFirstRunAndLeaveTheGlobalsAlone) {
    for (const Case& preference : AllPreferences()) {
        Apply(preference.change);
    }
    const Settings start = DefaultPreferences();
    for (const Case& preference : AllPreferences()) {
        EXPECT_TRUE(preference.holds()) << preference.name;
    }
    ApplyPreferences(start, KeepSettings::No);
    for (const Case& preference : AllPreferences()) {
        EXPECT_FALSE(preference.holds()) << preference.name;
    }
    EXPECT_EQ(gColourTable[8], 255U);
    EXPECT_EQ(gSymbolTable[23], (SymbolRow{7, 17, 7}));
    EXPECT_EQ(gSettings.styles.plotBackColour, 0xffffffU);
}

TEST_F(PreferencesTest, FormulasChangeTheBoxesOfAllPlotsAtOnceAndNoPlotIsModifiedByThem) {
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kLines;
    const int rose = NewPlot();
    ActiveRecord().PlotKind = kRose;
    for (const std::int32_t azimuth : {40, 45, 50}) {
        AddRow(0, azimuth);
    }
    ReplotActivePlot(true);
    const int fabric = NewPlot();
    AddRow(40, 200);
    ReplotActivePlot(true);
    RecordOf(rose).Modified = 0;
    RecordOf(fabric).Modified = 0;
    const auto text = [this](int slot, PlotBox box) { return Form(slot).Told(box); };
    ASSERT_NE(text(rose, PlotBox::StatsNormal).find("= 090-270\r\n(textbook: 045-225)\r\n"),
              std::string::npos);
    ASSERT_NE(text(fabric, PlotBox::StatsAdvanced).find("gamma = 99999.00"), std::string::npos);
    Apply([](Settings& p) { p.notation.formulas = Formulas::Textbook; });
    EXPECT_NE(text(rose, PlotBox::StatsNormal).find("= 045-225\r\n"), std::string::npos);
    EXPECT_EQ(text(rose, PlotBox::StatsNormal).find("textbook"), std::string::npos);
    EXPECT_NE(text(fabric, PlotBox::StatsAdvanced).find("gamma = undetermined"), std::string::npos);
    EXPECT_NEAR(RecordOf(rose).RoseMeanDir[kOfAngles], kPi / 4, 1e-9);
    EXPECT_EQ(RecordOf(rose).Modified, 0);
    EXPECT_EQ(RecordOf(fabric).Modified, 0);
    EXPECT_EQ(gActivePlot, fabric);
    Apply([](Settings& p) { p.notation.formulas = Formulas::Own; });
    EXPECT_NE(text(rose, PlotBox::StatsNormal).find("= 090-270\r\n"), std::string::npos);
}

TEST_F(PreferencesTest, UseLastResizeEndsWithTheSession) {
    // It is saved under a key that is never read.
    Apply([](Settings& p) { p.windows.plotWinLast = true; }, KeepSettings::Yes);
    EXPECT_TRUE(gPlotWinLast);
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    LoadSettings();
    EXPECT_FALSE(gPlotWinLast);
}

TEST_F(PreferencesTest, ANewMaximumOfPlotsIsSavedAtOnceAndHoldsFromTheNextStart) {
    Expect("Do you want to save the changes to the maximum number of plots?", Button::Yes);
    Expect("You will have to exit Quandrel and restart for the changes in the maximum number of "
           "plots to have affect.");
    Apply([](Settings& p) { p.newPlots.maxPlots = 25; });
    EXPECT_EQ(gMaxPlots, 10) << "the session keeps its own";
    EXPECT_EQ(CurrentPreferences().newPlots.maxPlots, 25);
    // Asked once: the store has it now.
    Apply([](Settings& p) { p.styles.roseAxesStyle = 1; });
    LoadSettings();
    EXPECT_EQ(gMaxPlots, 25);
}

TEST_F(PreferencesTest, AMaximumOfPlotsThatIsNotToBeSavedChangesNothing) {
    Expect("Do you want to save the changes to the maximum number of plots?", Button::No);
    Apply([](Settings& p) { p.newPlots.maxPlots = 25; }, KeepSettings::Yes);
    EXPECT_EQ(gMaxPlots, 10);
    LoadSettings();
    EXPECT_EQ(gMaxPlots, 10);
}

TEST_F(PreferencesTest, TheNumberOfPlotsIsAWholeOneUpToNinetyNine) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"12", 12}, {"0", 1}, {"-4", 1}, {"100", 99}, {"99", 99}, {"", 7}, {"many", 7}, {"3.6", 4}};
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(MaxPlotsOf(text, 7), expected) << text;
    }
}

TEST_F(PreferencesTest, WidthAndAspectComeIntoTheirRanges) {
    Apply([](Settings& p) {
        p.windows.plotWidthPercent = 0;
        p.windows.plotAspect = 50;
    });
    EXPECT_EQ(gPlotWidthPercent, 50);
    EXPECT_FLOAT_EQ(gPlotAspect, 0.5F);
    Apply([](Settings& p) {
        p.windows.plotWidthPercent = 150;
        p.windows.plotAspect = 0;
    });
    EXPECT_EQ(gPlotWidthPercent, 100);
    EXPECT_FLOAT_EQ(gPlotAspect, 0.75F);
}

TEST_F(PreferencesTest, APitchIsAPitchOrARake) {
    EXPECT_EQ(PitchNameOf("rake"), "rake");
    EXPECT_EQ(PitchNameOf("pitch"), "pitch");
    EXPECT_EQ(PitchNameOf("Plunge"), "pitch");
}

TEST_F(PreferencesTest, EachOpenPlotIsDrawnAnewAndTheActiveOneStays) {
    const int first = NewPlot();
    AddRow(30, 120);
    const int second = NewPlot();
    AddRow(40, 10);
    const int shown = Form(first).TimesShown();
    const int shownSecond = Form(second).TimesShown();
    Apply([](Settings& p) { p.styles.plotAxesStyle = 1; });
    EXPECT_EQ(Form(first).TimesShown(), shown + 1);
    EXPECT_EQ(Form(second).TimesShown(), shownSecond + 1);
    EXPECT_EQ(gActivePlot, second);
}

TEST_F(PreferencesTest, ARowWithTheFormerCodeOfItsStyleTakesTheNewOne) {
    NewPlot();
    ActiveRecord().DataKind = kPolarLines;
    AddRow(30, 120, CodeOfStyleRow(kRowSymbol));
    AddRow(-30, 120, CodeOfStyleRow(kUpRowSymbol));
    AddRow(40, 200, MakeSymbolCode(8, 13, 9)); // changed by hand
    Apply([](Settings& p) {
        p.styles.symbols[kRowSymbol] = {9, 12, 4};
        p.styles.symbols[kUpRowSymbol] = {10, 13, 5};
    });
    EXPECT_EQ(Drawn(1), MakeSymbolCode(9, 12, 4));
    EXPECT_EQ(Base(1), MakeSymbolCode(9, 12, 4));
    EXPECT_EQ(Drawn(2), MakeSymbolCode(10, 13, 5));
    EXPECT_EQ(Drawn(3), MakeSymbolCode(8, 13, 9));
    EXPECT_EQ(Base(3), MakeSymbolCode(8, 13, 9));
}

TEST_F(PreferencesTest, ARowHiddenByHandStaysHiddenWhileWhatItGoesBackToFollows) {
    NewPlot();
    AddRow(30, 120);
    gDataSymbol.At(gActivePlot, 1) = 0;
    Apply([](Settings& p) { p.styles.symbols[kRowSymbol] = {9, 12, 4}; });
    EXPECT_EQ(Drawn(1), 0U);
    EXPECT_EQ(Base(1), MakeSymbolCode(9, 12, 4));
}

TEST_F(PreferencesTest, StylesThatAreExchangedDoNotMixTheirRows) {
    NewPlot();
    ActiveRecord().DataKind = kPolarLines;
    AddRow(30, 120, CodeOfStyleRow(kRowSymbol));
    AddRow(-30, 120, CodeOfStyleRow(kUpRowSymbol));
    const SymbolCode down = CodeOfStyleRow(kRowSymbol);
    const SymbolCode up = CodeOfStyleRow(kUpRowSymbol);
    Apply([](Settings& p) {
        std::swap(p.styles.symbols[kRowSymbol], p.styles.symbols[kUpRowSymbol]);
    });
    EXPECT_EQ(Drawn(1), up);
    EXPECT_EQ(Drawn(2), down);
}

TEST_F(PreferencesTest, OverlayRowsFollowTheStyleOfTheirOverlay) {
    NewPlot();
    AddRow(30, 120);
    const SymbolCode former = CodeOfStyleRow(kFirstOverlaySymbol + 1);
    AddOverlay(kOverlayPoles, 50, 20, former);
    gDataSymbolBase.At(gActivePlot, 2) = former;
    Apply([](Settings& p) { p.styles.symbols[kFirstOverlaySymbol + 1] = {9, 12, 4}; });
    EXPECT_EQ(Drawn(2), MakeSymbolCode(9, 12, 4));
    EXPECT_EQ(Drawn(1), CodeOfStyleRow(kRowSymbol));
}

TEST_F(PreferencesTest, RowsOfClassesFollowTheStyleOfTheirClass) {
    NewPlot();
    PlotRecord& record = ActiveRecord();
    record.HasAppendedNumeric = kTrue;
    AddRow(30, 120);
    AddRow(30, 200);
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    gAppNumeric.At(gActivePlot, 1) = 1.0F;
    gAppNumeric.At(gActivePlot, 2) = 3.0F;
    record.ClassTable[kBaseRow][kNumberClasses] = 2.0;       // two base classes
    record.ClassTable[kLowestRow][kNumberClasses] = 0.0;     // from 0
    record.ClassTable[kLowestRow + 1][kNumberClasses] = 2.0; // to 2
    record.ClassTable[kTopRow][kNumberClasses] = 4.0;        // to 4
    record.ClassMode = kClassesByNumber;
    RefreshClassification(ActivePlot(), gSettings.styles);
    const int ofFirst = ClassifyRow(1, kClassesByNumber);
    const int ofSecond = ClassifyRow(2, kClassesByNumber);
    ASSERT_NE(ofFirst, ofSecond);
    ASSERT_EQ(Drawn(2), CodeOfClass(ofSecond));
    Apply([ofSecond](Settings& p) {
        p.styles.symbols[static_cast<std::size_t>(kFirstClassStyle + ofSecond - 1)] = {9, 12, 4};
        p.styles.symbols[kRowSymbol] = {6, 14, 2};
    });
    EXPECT_EQ(Drawn(2), MakeSymbolCode(9, 12, 4));
    EXPECT_EQ(Drawn(1), CodeOfClass(ofFirst));
    EXPECT_EQ(Base(1), MakeSymbolCode(6, 14, 2)) << "what it goes back to without classes";
}

TEST_F(PreferencesTest, GirdlesInTheFormerStyleTakeTheNewOne) {
    NewPlot();
    PlotRecord& record = ActiveRecord();
    const AxisStyle former = gAxisStyleTable[kUserGirdleStyle];
    for (std::size_t place = 0; place < 3; ++place) {
        record.AxisItems[1][kItemColour + place] = former[place];
        record.AxisItems[2][kItemColour + place] = std::int16_t{3};
    }
    Apply([](Settings& p) { p.styles.axes[kUserGirdleStyle] = {9, 1, 4}; });
    EXPECT_EQ(NumberOf(record.AxisItems[1][kItemColour]), 9);
    EXPECT_EQ(NumberOf(record.AxisItems[1][kItemDrawStyle]), 1);
    EXPECT_EQ(NumberOf(record.AxisItems[1][kItemDrawWidth]), 4);
    EXPECT_EQ(NumberOf(record.AxisItems[2][kItemColour]), 3) << "another style than the table's";
}

TEST_F(PreferencesTest, SamplesHaveTheStylesThatTheyAreGiven) {
    Styles red = gSettings.styles;
    red.plotAxesColour = 0xff;
    red.plotBackColour = 0xff00;
    red.symbols[kRoseStyle] = {3, kCrossHatch, 1};
    const auto isRed = [](const DrawOperation& operation) {
        return operation.colour == Colour{255, 0, 0};
    };
    RecordingSurface net(100, 100);
    DrawNetSample(net, red, 0);
    EXPECT_EQ(net.Operations().front().colour, (Colour{0, 255, 0})) << "the background";
    EXPECT_TRUE(std::ranges::all_of(net.Operations() | std::views::drop(1), isRed));
    RecordingSurface roses(600, 200);
    const SampleWedges wedges = DrawRoseSamples(roses, red);
    EXPECT_EQ(roses.Operations()[1].state.fillStyle, kCrossHatch);
    EXPECT_EQ(roses.Operations()[1].state.fillColour, TableColour(red, 3));
    EXPECT_FALSE(wedges[0].empty());
}

TEST_F(PreferencesTest, SamplesLeaveThePlotsAndTheirTablesAlone) {
    const int slot = NewPlot();
    AddRow(30, 120);
    gRoseRadii = RoseRadiiTable(3, 1);
    ActiveRose().wedges.resize(2);
    gPlots[0].PlotTitle = "untouched";
    RecordingSurface surface(600, 200);
    const SampleWedges wedges = DrawRoseSamples(surface, gSettings.styles);
    DrawNetSample(surface, gSettings.styles, 2);
    DrawRoseAxesSample(surface, gSettings.styles, 1);
    DrawLinesSample(surface, gSettings.styles);
    EXPECT_EQ(gActivePlot, slot);
    EXPECT_EQ(gPlots[0].PlotTitle, "untouched");
    EXPECT_EQ(gRoseRadii->Sectors(), 3);
    EXPECT_EQ(ActiveRose().wedges.size(), 2U);
    EXPECT_EQ(gPlotAxesStyle, 0);
    EXPECT_TRUE(DrawnOn(Form(slot).Plot()).empty());
    EXPECT_FALSE(wedges[0].empty());
}

TEST_F(PreferencesTest, ASampleOfANetIsThatOfItsStyle) {
    RecordingSurface surface(100, 100);
    DrawNetSample(surface, gSettings.styles, 2);
    int diameters = 0;
    for (const DrawOperation& operation : surface.Operations()) {
        if (operation.kind == DrawOperation::Kind::Line
            && std::hypot(operation.points[0].x - operation.points[1].x,
                          operation.points[0].y - operation.points[1].y)
                   == 2000) {
            ++diameters;
        }
    }
    EXPECT_EQ(diameters, 2);
}

TEST_F(PreferencesTest, PlacesOfTheRoseSamplesTellTheStyleTheyAreDrawnWith) {
    RecordingSurface surface(600, 200);
    const SampleWedges wedges = DrawRoseSamples(surface, gSettings.styles);
    std::set<int> rows;
    for (int i = 0; i < 300; ++i) {
        for (int j = 0; j < 100; ++j) {
            rows.insert(StyleRowAt(wedges, (i + 0.5) / 300, (j + 0.5) / 100));
        }
    }
    std::set<int> expected = {kRoseStyle, kRoseBackgroundStyle, 36, 37};
    for (int row = kFirstRoseClassStyle; row < 36; ++row) {
        expected.insert(row);
    }
    EXPECT_EQ(rows, expected);
    EXPECT_EQ(StyleRowAt(wedges, 0.002, 0.01), kRoseBackgroundStyle) << "beside the first rose";
    EXPECT_EQ(StyleRowAt(wedges, 1.0 / 6, 0.499), kRoseStyle) << "the middle of the first rose";
}

TEST_F(PreferencesTest, AStoreThatCannotBeWrittenIsToldOf) {
    class FullStore : public MemorySettingsStore {
    public:
        bool Sync() override { return false; }
    };

    FullStore full;
    gPlatform.settings = &full;
    Expect("could not be saved");
    Apply([](Settings& p) { p.styles.showNorth = true; }, KeepSettings::Yes);
    EXPECT_TRUE(gSettings.styles.showNorth);
    gPlatform.settings = &settings;
}

} // namespace
} // namespace quandrel
