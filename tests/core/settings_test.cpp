// SPDX-License-Identifier: MIT

#include "core/formulas.h"
#include "core/new_record.h"
#include "core/plot_store.h"
#include "core/recent_files.h"
#include "core/settings.h"
#include "core/settings_group.h"
#include "core/style_tables.h"
#include "support/test_platform.h"

#include <set>
#include <tuple>

namespace quandrel {
namespace {

class SettingsTest : public EngineTest {
protected:
    void Put(const std::string& section, const std::string& key, const std::string& value) {
        settings.Write(kApplicationName, section, key, value);
    }

    [[nodiscard]] std::string Stored(const std::string& section, const std::string& key) const {
        return settings.Read(kApplicationName, section, key, "(missing)");
    }
};

TEST_F(SettingsTest, AFirstRunHasTheDefaults) {
    EXPECT_EQ(gMaxPlots, 10);
    EXPECT_EQ(gFileDelimiter, "\t");
    EXPECT_EQ(gConventions, 1);
    EXPECT_EQ(gPrimaryDataType, kPrimaryPlane);
    EXPECT_EQ(gSecondaryDataType, kNoSecondary);
    EXPECT_EQ(gRoseSectorSize, 10);
    EXPECT_EQ(gRoseSectorFraction, 100);
    EXPECT_EQ(gSettings.windows.main.state, 2);
    EXPECT_EQ(gSettings.windows.main.width, 10000);
    EXPECT_EQ(gPlotWidthPercent, 50);
    EXPECT_FLOAT_EQ(gPlotAspect, 0.75F);
    EXPECT_EQ(gSettings.notation.pitchName, "pitch");
    EXPECT_EQ(gFileAppNumName, "value");
    EXPECT_EQ(gFileAppNonNumName, "type");
    EXPECT_TRUE(gRoseOuterCircle);
    EXPECT_FALSE(gSettings.styles.showCompassPoints);
    EXPECT_EQ(gSettings.newPlots.rose.scaleType, "tickauto");
    EXPECT_TRUE(gSettings.files.recent.empty());
    EXPECT_EQ(gFileColumnSettings[9], 9);
    EXPECT_EQ(NumberOf(gSettings.newPlots.classes[0][0]), 0);
}

TEST_F(SettingsTest, TheChoiceOfFormulasLastsAndAnUnknownOneIsTheProgramsOwn) {
    gSettings.notation.formulas = Formulas::Textbook;
    ASSERT_TRUE(SaveSettings(SettingsGroup::Preferences));
    EXPECT_EQ(Stored("StartUp", "Formulas"), "textbook");
    gSettings.notation.formulas = Formulas::Own;
    LoadSettings();
    EXPECT_EQ(gSettings.notation.formulas, Formulas::Textbook);
    Put("StartUp", "Formulas", "sometimes");
    LoadSettings();
    EXPECT_EQ(gSettings.notation.formulas, Formulas::Own);
}

TEST_F(SettingsTest, NewPlotsUseDecimalsWhereTheSettingSaysSo) {
    EXPECT_FALSE(gSettings.newPlots.useDecimals);
    EXPECT_EQ(NewPlotRecord().UseDecimals, 0);
    gSettings.newPlots.useDecimals = true;
    EXPECT_EQ(NewPlotRecord().UseDecimals, kTrue);
    ASSERT_TRUE(SaveSettings(SettingsGroup::Preferences));
    EXPECT_EQ(Stored("StartUp", "UseDecimals"), "True");
    SetDefaultSettings();
    EXPECT_FALSE(gSettings.newPlots.useDecimals);
    LoadSettings();
    EXPECT_TRUE(gSettings.newPlots.useDecimals);
    EXPECT_EQ(NewPlotRecord(Settings()).UseDecimals, 0) << "only the given settings count";
}

TEST_F(SettingsTest, PlotWindowWidthFallsBackBelowOneAndStopsAtAHundred) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"0", 50}, {"-3", 50}, {"150", 100}, {"1", 1}, {"100", 100}, {"80", 80}, {"x", 50}};
    for (const auto& [text, expected] : cases) {
        Put("StartUp", "PlotWinWidth", text);
        LoadSettings();
        EXPECT_EQ(gPlotWidthPercent, expected) << text;
    }
}

TEST_F(SettingsTest, PlotWindowAspectReadsPerCentAndFractionInEitherLocale) {
    const std::vector<std::pair<std::string, float>> cases = {
        {"75", 0.75F},  {"0.5", 0.5F}, {"0,5", 0.5F}, {"150", 1.0F},
        {"bad", 0.75F}, {"0", 0.75F},  {"-1", 0.75F}, {"1", 1.0F}};
    for (const auto& [text, expected] : cases) {
        Put("StartUp", "PlotWinAspect", text);
        LoadSettings();
        EXPECT_FLOAT_EQ(gPlotAspect, expected) << text;
    }
}

TEST_F(SettingsTest, ConventionsThatAreNoneAreTheFirst) {
    for (const char* const text : {"0", "7", "10", "-9", "999", "plane"}) {
        Put("DataFormats", "Conventions", text);
        LoadSettings();
        EXPECT_EQ(gConventions, 1) << text;
    }
}

TEST_F(SettingsTest, ASectorSizeOutsideTheCircleIsTen) {
    for (const char* const text : {"0", "-5", "361", "1e300"}) {
        Put("StartUp", "gRoseSectorSize", text);
        LoadSettings();
        EXPECT_EQ(gRoseSectorSize, 10) << text;
    }
}

TEST_F(SettingsTest, ADamagedListOfRecentFilesIsReadAsFarAsItGoes) {
    for (const char* const count : {"None", "-3", "many", "1e9", "2"}) {
        Put("FileMenuArray", "0", count);
        Put("FileMenuArray", "1", "/a.txt");
        LoadSettings();
        EXPECT_LE(gSettings.files.recent.size(), 1U) << count;
    }
}

TEST_F(SettingsTest, AnUnreadableSectorSizeIsTen) {
    Put("StartUp", "gRoseSectorSize", "wide");
    LoadSettings();
    EXPECT_EQ(gRoseSectorSize, 10);
}

TEST_F(SettingsTest, EarlierSettingsAreReadOnceAndSavedUnderTheNewName) {
    MemorySettingsStore earlier;
    gPlatform.settings = &earlier;
    earlier.Write(kEarlierApplicationName, "StartUp", "gMaxPlots", "17");
    earlier.Write(kEarlierApplicationName, "DataFormats", "Conventions", "-4");
    earlier.Write(kEarlierApplicationName, "FileMenuArray", " 1", "1");
    earlier.Write(kEarlierApplicationName, "FileMenuArray", "1", "/data/a.txt");
    LoadSettings();
    EXPECT_EQ(gMaxPlots, 17);
    EXPECT_EQ(gConventions, -4);
    ASSERT_EQ(gSettings.files.recent.size(), 1U);
    EXPECT_EQ(gSettings.files.recent[0], "/data/a.txt");
    EXPECT_EQ(earlier.Read(kApplicationName, "DataFormats", "Conventions", ""), "-4");
    // From now on the earlier name has no effect.
    earlier.Write(kEarlierApplicationName, "DataFormats", "Conventions", "3");
    LoadSettings();
    EXPECT_EQ(gConventions, -4);
    gPlatform.settings = &settings;
}

TEST_F(SettingsTest, TheFirstRunOfThisGenerationForgetsTheDataFolder) {
    MemorySettingsStore store;
    gPlatform.settings = &store;
    store.Write(kApplicationName, "StartUp", "FilesDirectory", "/old");
    LoadSettings();
    EXPECT_EQ(gSettings.files.folder, "");
    EXPECT_EQ(store.Read(kApplicationName, "StartUp", "First93ver", ""), "False");
    store.Write(kApplicationName, "StartUp", "FilesDirectory", "/new");
    LoadSettings();
    EXPECT_EQ(gSettings.files.folder, "/new");
    gPlatform.settings = &settings;
}

TEST_F(SettingsTest, UseLastResizeEndsWithTheSession) {
    // Kept: saved under "PlotWinLast" and read under this key.
    gPlotWinLast = true;
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    EXPECT_EQ(Stored("StartUp", "PlotWinLast"), "True");
    LoadSettings();
    EXPECT_FALSE(gPlotWinLast);
}

TEST_F(SettingsTest, TheWindowPlaceIsSavedOnlyInItsNormalState) {
    gSettings.windows.main = {2, 100, 200, 9000, 6000};
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    EXPECT_EQ(Stored("StartUp", "WinTop"), "(missing)");
    gSettings.windows.main.state = 0;
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    LoadSettings();
    EXPECT_EQ(gSettings.windows.main.top, 100);
    EXPECT_EQ(gSettings.windows.main.left, 200);
    EXPECT_EQ(gSettings.windows.main.width, 9000);
}

TEST_F(SettingsTest, EachGroupWritesItsKeysAndNoOthers) {
    using enum SettingsGroup;
    const std::vector<std::tuple<SettingsGroup, std::string, std::string>> groups = {
        {Conventions, "DataFormats", "Conventions"},
        {Columns, "DataFormats", "gFileColumnSettings9"},
        {Names, "DataFormats", "gFileAppNumName"},
        {Preferences, "StartUp", "PitchName"},
        {PlotCount, "StartUp", "gMaxPlots"},
        {Session, "StartUp", "LastUsedVersion"},
        {DataFolder, "StartUp", "FilesDirectory"},
    };
    ASSERT_EQ(groups.size(), kSettingsGroups.size());
    for (const auto& [group, section, key] : groups) {
        MemorySettingsStore store;
        gPlatform.settings = &store;
        EXPECT_TRUE(SaveSettings(group));
        EXPECT_NE(store.Read(kApplicationName, section, key, "(missing)"), "(missing)") << key;
        EXPECT_EQ(store.Read(kApplicationName, "StartUp", "LastAccessDate", ""), "2026-11-21");
        for (const auto& [other, otherSection, otherKey] : groups) {
            const bool bothHold = other == group || (group == Preferences && other == DataFolder);
            EXPECT_EQ(store.Read(kApplicationName, otherSection, otherKey, "(missing)")
                          != "(missing)",
                      bothHold)
                << key << ": its group wrote " << otherKey;
        }
    }
    gPlatform.settings = &settings;
}

TEST_F(SettingsTest, AGroupThatDoesNotExistWritesTheDateAlone) {
    for (const int group : {-1, 2, 8}) {
        MemorySettingsStore store;
        gPlatform.settings = &store;
        EXPECT_TRUE(SaveSettings(static_cast<SettingsGroup>(group)));
        EXPECT_EQ(store.Keys(kApplicationName, "StartUp").size(), 1U);
        EXPECT_TRUE(store.Keys(kApplicationName, "DataFormats").empty());
    }
    gPlatform.settings = &settings;
}

TEST_F(SettingsTest, SymbolRowsOfTheSessionAreSavedApart) {
    gSymbolTable[kRowSymbol] = {7, 2, 9};
    gSymbolTable[kDerivedSymbol] = {8, 10, 4};
    gColourTable[3] = 0x123456;
    EXPECT_TRUE(SaveSettings(SettingsGroup::Preferences));
    EXPECT_EQ(Stored("SymbolArray", "SymbolArray000"), "7");
    EXPECT_EQ(Stored("SymbolArray", "SymbolArray190"), "(missing)");
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    EXPECT_EQ(Stored("SymbolArray", "SymbolArray191"), "10");
    LoadSettings();
    EXPECT_EQ(gSymbolTable[kRowSymbol], (SymbolRow{7, 2, 9}));
    EXPECT_EQ(gSymbolTable[kDerivedSymbol], (SymbolRow{8, 10, 4}));
    EXPECT_EQ(gColourTable[3], 0x123456U);
}

TEST_F(SettingsTest, TheBetaStyleOfAnOlderVersionIsNotRead) {
    const AxisStyle builtIn = gAxisStyleTable[kBetaAxisStyle];
    Put("SymbolArray", "BetaAxisColor", "12");
    Put("StartUp", "LastUsedVersion", "9.4");
    LoadSettings();
    EXPECT_EQ(gAxisStyleTable[kBetaAxisStyle], builtIn);
    Put("StartUp", "LastUsedVersion", kVersionText);
    LoadSettings();
    EXPECT_EQ(gAxisStyleTable[kBetaAxisStyle][kStyleColour], 12);
}

TEST_F(SettingsTest, GirdlesOfTheUserAreColourFiveStyleTwoWidthOne) {
    EXPECT_EQ(gAxisStyleTable[kUserGirdleStyle], (AxisStyle{5, 2, 1}));
}

TEST_F(SettingsTest, RecentFilesStayInOrderAndAtMostSix) {
    for (int i = 1; i <= 8; ++i) {
        AddRecentFile("/f" + std::to_string(i));
    }
    AddRecentFile("/f5");
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    LoadSettings();
    const std::vector<std::string> expected = {"/f5", "/f8", "/f7", "/f6", "/f4", "/f3"};
    EXPECT_EQ(gSettings.files.recent, expected);
    EXPECT_EQ(Stored("FileMenuArray", "0"), "6");
    gSettings.files.recent = {"/only"};
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    EXPECT_EQ(Stored("FileMenuArray", "2"), "(missing)");
}

TEST_F(SettingsTest, EverySettingSurvivesASaveAndALoad) {
    gConventions = -13;
    gFileDelimiter = "";
    gPlaneSeparator = "\\";
    gSecondaryDataType = 4;
    gFileNumericAppended = true;
    gFileColumnSettings = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    gFileAppNonNumName = "rock \"type\"";
    gSettings.notation.pitchName = "rake";
    gPlotAxesStyle = 3;
    gSettings.styles.fonts[2].font = {"DejaVu Sans", 11.5, true, false, true};
    gSettings.newPlots.classes[2][2] = std::string("slate");
    gRoseSectorSize = 22.5;
    for (const SettingsGroup group : kSettingsGroups) {
        EXPECT_TRUE(SaveSettings(group));
    }
    LoadSettings();
    EXPECT_EQ(gConventions, -13);
    EXPECT_EQ(gFileDelimiter, "");
    EXPECT_EQ(gPlaneSeparator, "\\");
    EXPECT_EQ(gSecondaryDataType, 4);
    EXPECT_TRUE(gFileNumericAppended);
    EXPECT_EQ(gFileColumnSettings[0], 9);
    EXPECT_EQ(gFileAppNonNumName, "rock \"type\"");
    EXPECT_EQ(gSettings.notation.pitchName, "rake");
    EXPECT_EQ(gPlotAxesStyle, 3);
    EXPECT_EQ(gSettings.styles.fonts[2].font, (FontSpec{"DejaVu Sans", 11.5, true, false, true}));
    EXPECT_EQ(TextOf(gSettings.newPlots.classes[2][2]), "slate");
    EXPECT_EQ(gRoseSectorSize, 22.5);
}

TEST_F(SettingsTest, TheStyleTablesHoldTheBuiltInRows) {
    EXPECT_EQ(SymbolCodeText(CodeOfStyleRow(0)), "050302");
    EXPECT_EQ(SymbolCodeText(CodeOfStyleRow(1)), "050703");
    EXPECT_EQ(gSymbolTable[kDerivedSymbol], (SymbolRow{5, 3, 5}));
    EXPECT_EQ(gSymbolTable[46], (SymbolRow{24, 2, 3}));
    EXPECT_EQ(gColourTable[24], 0x800080U);
    EXPECT_EQ(TableColour(8), (Colour{255, 0, 0}));
    EXPECT_EQ(TableColour(25), kBlack);
}

TEST_F(SettingsTest, DrawingCodesAreSixDigitsFromOutside) {
    EXPECT_EQ(SymbolCodeFromText("050302"), MakeSymbolCode(5, 3, 2));
    EXPECT_EQ(SymbolCodeText(MakeSymbolCode(24, 17, 9)), "241709");
    EXPECT_EQ(SymbolCodeFromText("5302"), std::nullopt);
    EXPECT_EQ(SymbolCodeFromText("05030x"), std::nullopt);
}

TEST_F(SettingsTest, OverlaysDifferInStyle) {
    std::set<SymbolCode> codes;
    for (int overlay = 1; overlay <= kOverlaySymbols; ++overlay) {
        codes.insert(CodeOfStyleRow(kFirstOverlaySymbol + overlay % kOverlaySymbols));
    }
    EXPECT_EQ(codes.size(), static_cast<std::size_t>(kOverlaySymbols));
}

TEST_F(SettingsTest, ControlsOfThePreferencesHaveKeysOfTheirOwn) {
    gSettings.styles.contours[0] = {9, kDottedLine, 3};
    gSettings.styles.contours[5] = {7, kDashedLine, 2};
    gSettings.styles.plotBackColour = 0x00ff00;
    gSettings.styles.plotAxesColour = 0xff0000;
    gSettings.files.nonDataLines = true;
    gSettings.styles.showNorth = true;
    EXPECT_TRUE(SaveSettings(SettingsGroup::Preferences));
    const std::vector<std::tuple<std::string, std::string, std::string>> keys = {
        {"SymbolArray", "ContourColour0", "9"},     {"SymbolArray", "ContourStyle0", "2"},
        {"SymbolArray", "ContourWidth0", "3"},      {"SymbolArray", "ContourColour5", "7"},
        {"SymbolArray", "ContourStyle5", "1"},      {"SymbolArray", "ContourWidth5", "2"},
        {"SymbolArray", "PlotBackColour", "65280"}, {"SymbolArray", "PlotAxesColour", "16711680"},
        {"StartUp", "SaveNonDataLines", "True"},    {"StartUp", "ShowNorth", "True"}};
    for (const auto& [section, key, value] : keys) {
        EXPECT_EQ(Stored(section, key), value) << key;
    }
    LoadSettings();
    EXPECT_EQ(gSettings.styles.contours[0], (AxisStyle{9, kDottedLine, 3}));
    EXPECT_EQ(gSettings.styles.plotBackColour, 0x00ff00U);
    EXPECT_TRUE(gSettings.files.nonDataLines);
}

TEST_F(SettingsTest, StylesAndColoursOutOfTheirRangesAreBroughtBack) {
    Put("SymbolArray", "ContourColour1", "25");
    Put("SymbolArray", "ContourStyle1", "17");
    Put("SymbolArray", "ContourWidth1", "-3");
    Put("SymbolArray", "PlotBackColour", "99999999");
    Put("SymbolArray", "PlotAxesColour", "blue");
    LoadSettings();
    EXPECT_EQ(gSettings.styles.contours[1], (AxisStyle{24, kNoLine, 1}));
    EXPECT_EQ(gSettings.styles.plotBackColour, 0xffffffU);
    EXPECT_EQ(gSettings.styles.plotAxesColour, 0U);
}

TEST_F(SettingsTest, EachKindOfGirdleHasItsOwnKeys) {
    gAxisStyleTable[kUserGirdleStyle] = {1, 2, 3};
    gAxisStyleTable[kMeanGirdleStyle] = {4, 1, 6};
    gAxisStyleTable[kCalculatedGirdleStyle] = {7, 3, 9};
    EXPECT_TRUE(SaveSettings(SettingsGroup::Preferences));
    EXPECT_EQ(Stored("SymbolArray", "GirdleStyle0"), "1");
    LoadSettings();
    EXPECT_EQ(gAxisStyleTable[kUserGirdleStyle], (AxisStyle{1, 2, 3}));
    EXPECT_EQ(gAxisStyleTable[kMeanGirdleStyle], (AxisStyle{4, 1, 6}));
    EXPECT_EQ(gAxisStyleTable[kCalculatedGirdleStyle], (AxisStyle{7, 3, 9}));
}

TEST_F(SettingsTest, AnotherWindowsKeysStayAsItWroteThem) {
    for (const SettingsGroup group : kSettingsGroups) {
        EXPECT_TRUE(SaveSettings(group));
    }
    LoadSettings();
    Put("StartUp", "PitchName", "rake"); // the other window
    Put("StartUp", "PlotAxesStyle", "1");
    gPlotAxesStyle = 3;
    EXPECT_TRUE(SaveSettings(SettingsGroup::Preferences));
    EXPECT_EQ(Stored("StartUp", "PitchName"), "rake");
    EXPECT_EQ(Stored("StartUp", "PlotAxesStyle"), "3") << "both changed it: the last one holds";
    Put("StartUp", "PlotAxesStyle", "2");
    EXPECT_TRUE(SaveSettings(SettingsGroup::Preferences));
    EXPECT_EQ(Stored("StartUp", "PlotAxesStyle"), "2") << "it was not changed again here";
    gSettings.notation.pitchName = "slope";
    EXPECT_TRUE(SaveSettings(SettingsGroup::Preferences));
    EXPECT_EQ(Stored("StartUp", "PitchName"), "slope");
}

TEST_F(SettingsTest, OfAFirstRunTheKeysOfAnotherWindowStay) {
    MemorySettingsStore store;
    gPlatform.settings = &store;
    LoadSettings();
    store.Write(kApplicationName, "StartUp", "PlotAxesStyle", "2"); // the other window
    gSettings.notation.pitchName = "rake";
    EXPECT_TRUE(SaveSettings(SettingsGroup::Preferences));
    EXPECT_EQ(store.Read(kApplicationName, "StartUp", "PlotAxesStyle", ""), "2");
    EXPECT_EQ(store.Read(kApplicationName, "StartUp", "PitchName", ""), "rake");
    EXPECT_EQ(store.Read(kApplicationName, "StartUp", "RoseAxesStyle", ""), "0")
        << "what nobody wrote is written";
    gPlatform.settings = &settings;
}

TEST_F(SettingsTest, RecentFilesAreWrittenAtOnceAndMerged) {
    AddRecentFile("/mine");
    EXPECT_EQ(Stored("FileMenuArray", "1"), "/mine");
    Put("FileMenuArray", "0", "2"); // the other window
    Put("FileMenuArray", "1", "/theirs");
    Put("FileMenuArray", "2", "/mine");
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    EXPECT_EQ(Stored("FileMenuArray", "1"), "/theirs") << "nothing was opened here since";
    AddRecentFile("/next");
    const std::vector<std::string> expected = {"/next", "/theirs", "/mine"};
    EXPECT_EQ(gSettings.files.recent, expected);
    EXPECT_EQ(Stored("FileMenuArray", "0"), "3");
    RemoveRecentFile("/theirs");
    AddRecentFile("/mine");
    LoadSettings();
    EXPECT_EQ(gSettings.files.recent, (std::vector<std::string>{"/mine", "/next"}));
    EXPECT_EQ(Stored("FileMenuArray", "3"), "(missing)");
}

TEST_F(SettingsTest, RecentFilesOfTheEarlierGenerationAreTakenOver) {
    MemorySettingsStore store;
    gPlatform.settings = &store;
    store.Write(kEarlierApplicationName, "FileMenuArray", "0", "1");
    store.Write(kEarlierApplicationName, "FileMenuArray", "1", "/old");
    LoadSettings();
    EXPECT_TRUE(SaveSettings(SettingsGroup::Session));
    EXPECT_EQ(store.Read(kApplicationName, "FileMenuArray", "1", ""), "/old");
    gPlatform.settings = &settings;
}

} // namespace
} // namespace quandrel
