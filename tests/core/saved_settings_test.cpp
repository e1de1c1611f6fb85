// SPDX-License-Identifier: MIT
//
// What each group writes, key by key: settings that were saved by any build are read by any other.

#include "core/formulas.h"
#include "core/plot_store.h"
#include "core/setting_keys.h"
#include "core/settings.h"
#include "core/settings_group.h"
#include "support/test_platform.h"

#include <fstream>
#include <sstream>

namespace quandrel {
namespace {

constexpr std::array<const char*, 7> kGroupNames = {
    "conventions", "columns", "names", "preferences", "plot count", "session", "data folder"};

class SavedSettings : public EngineTest {
protected:
    static void ChangeFormat() {
        gConventions = -13;
        gFileDelimiter = ";";
        gPlaneSeparator = "\\";
        gLineSeparator = ":";
        gSettings.format.negativePlunge = NegativePlunge::Vector;
        gSettings.format.comments = {true, false, true};
        gSettings.format.pairsInCells = true;
        gPrimaryDataType = kPrimaryLine;
        gSecondaryDataType = kSecondaryPlane;
        gFileLineAppended = true;
        gFileNumericAppended = true;
        gFileNonNumericAppended = true;
        gFileColumnSettings = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
        gFileAppNumName = "n";
        gFileAppNonNumName = "t";
    }

    static void ChangePreferences() {
        gSettings.notation.pitchName = "rake";
        gPlotAxesStyle = 3;
        gRoseAxesStyle = 2;
        gRoseOuterCircle = false;
        gSettings.styles.showCompassPoints = true;
        gConvertDecimals = true;
        gSettings.styles.showNorth = true;
        gSettings.files.nonDataLines = true;
        gSettings.notation.formulas = Formulas::Textbook;
        gSettings.newPlots.useDecimals = true;
        gSettings.files.folder = "/d";
        gMaxPlots = 33;
        gShowIsolatedPts = -1;
        gSettings.styles.plotBackColour = 123;
        gSettings.styles.plotAxesColour = 456;
        for (std::size_t i = 0; i < gSettings.styles.fonts.size(); ++i) {
            const auto whole = static_cast<std::int32_t>(i);
            gSettings.styles.fonts[i].font = {"F" + std::to_string(i), 7.5 + whole, i % 2 == 0,
                                              i % 3 == 0, i % 4 == 0};
            gSettings.styles.fonts[i].weight = 10 * whole;
            gSettings.styles.fonts[i].colour = 100 * whole;
        }
    }

    static void ChangeStyles() {
        const auto shortOf = [](std::size_t number) { return static_cast<std::int16_t>(number); };
        for (std::size_t i = 0; i < gSymbolTable.size(); ++i) {
            gSymbolTable[i] = {shortOf(i % 25), shortOf(i), shortOf(i % 7)};
        }
        for (std::size_t i = 0; i < gColourTable.size(); ++i) {
            gColourTable[i] = static_cast<std::uint32_t>(1000 * i);
        }
        for (std::size_t i = 0; i < gAxisStyleTable.size(); ++i) {
            gAxisStyleTable[i] = {shortOf(i), shortOf(i % 4), shortOf(i + 1)};
        }
        for (std::size_t i = 0; i < gSettings.styles.contours.size(); ++i) {
            gSettings.styles.contours[i] = {shortOf(i + 1), shortOf(i % 4), shortOf(i + 2)};
        }
    }

    static void ChangeSession() {
        gSettings.files.lastFolder = "/p";
        gSettings.files.workspaceFolder = "/w";
        gSettings.files.workspaceName = "f";
        gSettings.files.workspaceTitle = "t";
        gSettings.files.exportStyle = {"Thesis", "{}"};
        gSettings.newPlots.style = {"Grey", ""};
        gSettings.newPlots.rose.scaleType = "circ2.5";
        gRoseSectorSize = 22.5;
        gRoseSectorFraction = 77;
        gSettings.windows.mapToolbar = false;
        gSettings.windows.toolLabels = false;
        gSettings.windows.layerPanel = true;
        gSettings.windows.propertyPanel = true;
        gSettings.windows.layerWidth = 310;
        gSettings.windows.propertyWidth = 290;
        gSettings.windows.textPanel = true;
        gSettings.windows.textWidth = 330;
        gPlotWinLast = true;
        gPlotWidthPercent = 61;
        gPlotAspect = 0.333F;
        gSettings.windows.main = {0, -5, 7, 900, 600};
        gSettings.newPlots.classes[2][2] = std::string("slate");
        gSettings.newPlots.classes[1][0] = 2.5;
        gSettings.newPlots.classes[0][1] = std::int16_t{3};
    }

    /// What all groups write, each to an empty store.
    std::string TextOfGroups() {
        std::ostringstream text;
        for (std::size_t i = 0; i < kSettingsGroups.size(); ++i) {
            MemorySettingsStore store;
            gPlatform.settings = &store;
            EXPECT_TRUE(SaveSettings(kSettingsGroups[i]));
            text << "# " << kGroupNames[i] << '\n';
            for (const char* const section :
                 {kStartUp, kDataFormats, kSymbolArray, kFonts, kDataClassifArray}) {
                for (const std::string& key : store.Keys(kApplicationName, section)) {
                    text << section << '/' << key << '='
                         << store.Read(kApplicationName, section, key, "") << '\n';
                }
            }
        }
        gPlatform.settings = &settings;
        return text.str();
    }

    static std::string KeptText() {
        std::ifstream file(std::string(QUANDREL_TEST_DATA) + "/core/saved_settings.txt");
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(SavedSettings, AreThoseOfEarlierBuildsByteForByte) {
    ChangeFormat();
    ChangePreferences();
    ChangeStyles();
    ChangeSession();
    const std::string kept = KeptText();
    ASSERT_FALSE(kept.empty());
    EXPECT_EQ(TextOfGroups(), kept);
}

TEST_F(SavedSettings, OfEarlierBuildsAreRead) {
    std::istringstream lines(KeptText());
    for (std::string line; std::getline(lines, line);) {
        const std::size_t slash = line.find('/');
        const std::size_t equals = line.find('=');
        if (!line.starts_with('#')) {
            settings.Write(kApplicationName, line.substr(0, slash),
                           line.substr(slash + 1, equals - slash - 1), line.substr(equals + 1));
        }
    }
    LoadSettings();
    EXPECT_FALSE(gPlotWinLast) << "it is read under another key";
    gPlotWinLast = true;
    EXPECT_EQ(TextOfGroups(), KeptText());
}

TEST_F(SavedSettings, DefaultsAreThoseOfALoadFromNothing) {
    MemorySettingsStore empty;
    gPlatform.settings = &empty;
    LoadSettings();
    const std::string loaded = TextOfGroups();
    ChangeFormat();
    ChangePreferences();
    ChangeStyles();
    ChangeSession();
    EXPECT_NE(TextOfGroups(), loaded);
    SetDefaultSettings();
    EXPECT_EQ(TextOfGroups(), loaded);
}

} // namespace
} // namespace quandrel
