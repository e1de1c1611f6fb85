// SPDX-License-Identifier: MIT

#include "core/settings.h"

#include "core/changed_settings.h"
#include "core/data_format.h"
#include "core/formulas.h"
#include "core/plot_store.h"
#include "core/recent_files.h"
#include "core/setting_keys.h"
#include "core/style_tables.h"
#include "orientation/number_text.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

namespace quandrel {

bool gDecimalIsComma = false;
WindowPlace gMainWindowPlace;
bool gPlotWinLast = false;
std::int16_t gPlotWidthPercent = 50;
float gPlotAspect = 0.75F;
std::string gPitchName = "pitch";
std::int16_t gPlotAxesStyle = 0;
std::int16_t gRoseAxesStyle = 0;
bool gRoseOuterCircle = true;
bool gShowCompassPoints = false;
std::string gFilesDirectory;
std::string gLastUsedPath;
std::string gLastUsedWorkSpacePath;
std::string gLastUsedWorkSpaceFileName;
std::string gLastUsedWSpaceFileTitle;
std::string gLastUsedVersion = "9.4";
bool gMIToolbarShow = true;
std::int16_t gShowIsolatedPts = 0;
bool gShowNorth = false;
std::uint32_t gPlotBackColour = kStartBackColour;
std::uint32_t gPlotAxesColour = kStartAxesColour;
bool gSaveNonDataLines = false;
std::string gRoseScaleType = "tickauto";
double gRoseSectorSize = 10;
std::int16_t gRoseSectorFraction = 100;
std::int16_t gRoseHistStyle = 0;
std::int16_t gRoseSegShape = 0;
std::int16_t gRoseZeroCircle = 0;
std::int16_t gStatsBoxKind = 0;
bool gStatisticsShown = true;
Formulas gFormulas = Formulas::Own;
std::array<PlotFont, 10> gPlotFonts;
Table<TaggedValue, kClassRows, 3> gDefaultClassTable;

namespace {

constexpr double kFirstVersionWithBetaStyle = 9.5;
constexpr const char* kPlotBackColourKey = "PlotBackColour";
constexpr const char* kPlotAxesColourKey = "PlotAxesColour";
constexpr const char* kFormulasKey = "Formulas";
constexpr const char* kNegativePlungeKey = "NegativePlunge";

/// The kinds of girdle by the names that their keys begin with.
constexpr std::array<std::pair<const char*, std::size_t>, 3> kGirdleKinds = {
    {{"", kUserGirdleStyle}, {"Mean", kMeanGirdleStyle}, {"Calc", kCalculatedGirdleStyle}}};

/// One application's settings in the store.
class Settings {
public:
    explicit Settings(const char* application, SettingsStore& store = *gPlatform.settings)
        : application_(application)
        , store_(store) {}

    [[nodiscard]] std::string Text(const char* section, const std::string& key,
                                   const std::string& otherwise) const {
        return store_.Read(application_, section, key, otherwise);
    }

    /// The number of a key, or `otherwise` when it is missing or no number.
    [[nodiscard]] double Number(const char* section, const std::string& key,
                                double otherwise) const {
        return ReadNumber(Text(section, key, {})).value_or(otherwise);
    }

    [[nodiscard]] bool Truth(const char* section, const std::string& key, bool otherwise) const {
        const std::string text = Text(section, key, otherwise ? "True" : "False");
        return TruthOfSetting(text);
    }

    void Write(const char* section, const std::string& key, const std::string& value) const {
        store_.Write(application_, section, key, value);
    }

    void WriteNumber(const char* section, const std::string& key, double value) const {
        Write(section, key, TextOf(TaggedValue(value)));
    }

    void WriteTruth(const char* section, const std::string& key, bool value) const {
        Write(section, key, value ? "True" : "False");
    }

private:
    const char* application_;
    SettingsStore& store_;
};

/// The number, brought into the range of its type.
template <class Whole>
Whole ToWhole(double value, double lowest, double highest) {
    return static_cast<Whole>(std::clamp(std::nearbyint(value), lowest, highest));
}

template <class Whole>
void ReadWhole(const Settings& settings, const char* section, const std::string& key, Whole& value,
               double lowest, double highest) {
    value = ToWhole<Whole>(settings.Number(section, key, value), lowest, highest);
}

void ReadWindow(const Settings& settings) {
    ReadWhole(settings, kStartUp, "WinState", gMainWindowPlace.state, 0, 2);
    ReadWhole(settings, kStartUp, "WinTop", gMainWindowPlace.top, -1e6, 1e6);
    // The left edge is saved under a key of another spelling; stores that part them by case would
    // lose it.
    ReadWhole(settings, kStartUp, "Winleft", gMainWindowPlace.left, -1e6, 1e6);
    ReadWhole(settings, kStartUp, "WinLeft", gMainWindowPlace.left, -1e6, 1e6);
    ReadWhole(settings, kStartUp, "WinWidth", gMainWindowPlace.width, 0, 1e6);
    ReadWhole(settings, kStartUp, "WinHeight", gMainWindowPlace.height, 0, 1e6);
}

void ReadPlotWindowSize(const Settings& settings) {
    // Kept: saved under "PlotWinLast" and read under this key, so the choice ends with the session.
    gPlotWinLast = settings.Truth(kStartUp, "gPlotWinLast", false);
    gPlotWidthPercent = PlotWidthOf(settings.Number(kStartUp, "PlotWinWidth", 50));
    gPlotAspect = PlotAspectOf(settings.Number(kStartUp, "PlotWinAspect", 75));
}

void ReadStartUp(const Settings& settings) {
    gMaxPlots = ToWhole<std::int16_t>(settings.Number(kStartUp, "gMaxPlots", kStartMaxPlots), 1,
                                      kMostPlots);
    gLastUsedVersion = settings.Text(kStartUp, "LastUsedVersion", "9.4");
    ReadWindow(settings);
    ReadPlotWindowSize(settings);
    gPitchName = settings.Text(kStartUp, "PitchName", "pitch");
    ReadWhole(settings, kStartUp, "PlotAxesStyle", gPlotAxesStyle, -32768, 32767);
    ReadWhole(settings, kStartUp, "RoseAxesStyle", gRoseAxesStyle, -32768, 32767);
    gRoseOuterCircle = settings.Truth(kStartUp, "RoseOuterCircle", true);
    gShowCompassPoints = settings.Truth(kStartUp, "ShowCompassPoints", false);
    gFilesDirectory = settings.Text(kStartUp, "FilesDirectory", {});
    if (settings.Truth(kStartUp, "First93ver", true)) {
        gFilesDirectory.clear();
        Settings(kApplicationName).WriteTruth(kStartUp, "First93ver", false);
    }
    gLastUsedPath = settings.Text(kStartUp, "LastUsedPath", {});
    gLastUsedWorkSpacePath = settings.Text(kStartUp, "LastUsedWorkSpacePath", {});
    gLastUsedWorkSpaceFileName = settings.Text(kStartUp, "LastUsedWorkSpaceFileName", {});
    gLastUsedWSpaceFileTitle = settings.Text(kStartUp, "LastUsedWSpaceFileTitle", {});
    gConvertDecimals = settings.Truth(kStartUp, "ConvertDecimals", false);
    gShowNorth = settings.Truth(kStartUp, "ShowNorth", false);
    gSaveNonDataLines = settings.Truth(kStartUp, "SaveNonDataLines", false);
    gFormulas = settings.Text(kStartUp, kFormulasKey, {}) == NameOf(Formulas::Textbook)
                    ? Formulas::Textbook
                    : Formulas::Own;
    gMIToolbarShow = settings.Truth(kStartUp, "MIToolbarShow", true);
    gRoseScaleType = settings.Text(kStartUp, "RoseScaleType", "tickauto");
    gRoseSectorSize = settings.Number(kStartUp, "gRoseSectorSize", 10);
    if (gRoseSectorSize <= 0 || gRoseSectorSize > 360) {
        gRoseSectorSize = 10;
    }
    ReadWhole(settings, kStartUp, "gRoseSectorFraction", gRoseSectorFraction, 1, 100);
}

void ReadDataFormats(const Settings& settings) {
    ReadWhole(settings, kDataFormats, "Conventions", gConventions, -32768, 32767);
    const int plane = std::abs(gConventions) % 10;
    if (plane < kDipDipDirection || plane > kStrikeDipRightHand || std::abs(gConventions) > 16) {
        gConventions = 1;
    }
    gPlaneSeparator = settings.Text(kDataFormats, "PlaneSeparator", "/");
    gLineSeparator = settings.Text(kDataFormats, "LineSeparator", "-");
    gFileDelimiter = settings.Text(kDataFormats, "gFileDelimiter", "\t");
    gNegativePlunge = settings.Number(kDataFormats, kNegativePlungeKey, 0) == 1
                          ? NegativePlunge::Vector
                          : NegativePlunge::LowerEnd;
    ReadWhole(settings, kDataFormats, "gPrimaryDataType", gPrimaryDataType, 0, 3);
    ReadWhole(settings, kDataFormats, "gSecondaryDataType", gSecondaryDataType, 0, 5);
    gFileLineAppended = settings.Truth(kDataFormats, "gFileLineAppended", false);
    gFileNumericAppended = settings.Truth(kDataFormats, "gFileNumericAppended", false);
    gFileNonNumericAppended = settings.Truth(kDataFormats, "gFileNonNumericAppended", false);
    gFileAppNumName = settings.Text(kDataFormats, "gFileAppNumName", "value");
    gFileAppNonNumName = settings.Text(kDataFormats, "gFileAppNonNumName", "type");
    for (std::size_t slot = 0; slot < gFileColumnSettings.size(); ++slot) {
        ReadWhole(settings, kDataFormats, ColumnKey(slot), gFileColumnSettings[slot], 0, 254);
    }
}

/// The 24-bit colour of a key, or `otherwise`.
std::uint32_t ReadColour(const Settings& settings, const std::string& key,
                         std::uint32_t otherwise) {
    const double value = settings.Number(kSymbolArray, key, -1);
    return value >= 0 && value <= 0xffffff ? static_cast<std::uint32_t>(value) : otherwise;
}

/// Rows that stand in the store. Row 16 and its like are saved with the preferences, 18 to 23 with
/// the session; all are read alike.
void ReadSymbols(const Settings& settings) {
    for (std::size_t row = 0; row < gSymbolTable.size(); ++row) {
        for (std::size_t place = 0; place < 3; ++place) {
            const double value = settings.Number(kSymbolArray, SymbolKey(row, place), -1);
            const double highest = place == kPlaceColour ? kColourCount - 1 : 99;
            if (value >= 0 && value <= highest) {
                gSymbolTable[row][place] = ToWhole<std::int16_t>(value, 0, highest);
            }
        }
    }
    for (std::size_t index = 0; index < gColourTable.size(); ++index) {
        gColourTable[index] = ReadColour(settings, ColourKey(index), gColourTable[index]);
    }
}

void ReadLineStyle(const Settings& settings, const LineStyleKeys& keys, AxisStyle& style) {
    ReadWhole(settings, kSymbolArray, keys.colour, style[0], 0, kColourCount - 1);
    ReadWhole(settings, kSymbolArray, keys.style, style[1], kSolidLine, kNoLine);
    ReadWhole(settings, kSymbolArray, keys.width, style[2], 1, kWidestLine);
}

void ReadAxisStyles(const Settings& settings) {
    for (const auto& [kind, row] : kGirdleKinds) {
        ReadLineStyle(settings, GirdleKeys(kind), gAxisStyleTable[row]);
    }
    for (std::size_t level = 0; level < gContourStyleTable.size(); ++level) {
        ReadLineStyle(settings, ContourKeys(level), gContourStyleTable[level]);
    }
    gPlotBackColour = ReadColour(settings, kPlotBackColourKey, kStartBackColour);
    gPlotAxesColour = ReadColour(settings, kPlotAxesColourKey, kStartAxesColour);
    if (ParseNumber(gLastUsedVersion) >= kFirstVersionWithBetaStyle) {
        AxisStyle& beta = gAxisStyleTable[kBetaAxisStyle];
        ReadWhole(settings, kSymbolArray, "BetaAxisColor", beta[0], 0, kColourCount - 1);
        ReadWhole(settings, kSymbolArray, "BetaAxisType", beta[1], 0, 99);
        ReadWhole(settings, kSymbolArray, "BetaAxisSize", beta[2], 0, 99);
    }
    ReadWhole(settings, kSymbolArray, "gShowIsolatedPts", gShowIsolatedPts, -1, 1);
}

void ReadFonts(const Settings& settings) {
    if (settings.Text(kFonts, "FontName0", kNoFontName) == kNoFontName) {
        return;
    }
    for (std::size_t index = 0; index < gPlotFonts.size(); ++index) {
        const std::string number = std::to_string(index);
        PlotFont& font = gPlotFonts[index];
        font.font.family = settings.Text(kFonts, "FontName" + number, {});
        font.font.bold = settings.Number(kFonts, "FontBold" + number, 0) != 0;
        font.font.italic = settings.Number(kFonts, "FontItalic" + number, 0) != 0;
        font.font.underline = settings.Number(kFonts, "FontUnderLine" + number, 0) != 0;
        font.font.points = std::clamp(settings.Number(kFonts, "FontSize" + number, 8), 1.0, 200.0);
        ReadWhole(settings, kFonts, "FontWeight" + number, font.weight, 0, 10000);
        ReadWhole(settings, kFonts, "FontSetColour" + number, font.colour, 0, 0xffffff);
    }
}

void ReadClasses(const Settings& settings) {
    for (std::size_t column = 0; column < 3; ++column) {
        for (std::size_t row = 0; row < gDefaultClassTable.size(); ++row) {
            const std::string text = settings.Text(kDataClassifArray, ClassKey(row, column), "0");
            const std::optional<double> number = ReadNumber(text);
            TaggedValue& value = gDefaultClassTable[row][column];
            value = number ? TaggedValue(*number) : TaggedValue(text);
        }
    }
}

void SaveFormat(const Settings& settings) {
    settings.WriteNumber(kDataFormats, "Conventions", gConventions);
    settings.Write(kDataFormats, "PlaneSeparator", gPlaneSeparator);
    settings.Write(kDataFormats, "LineSeparator", gLineSeparator);
    settings.Write(kDataFormats, "gFileDelimiter", gFileDelimiter);
    settings.WriteNumber(kDataFormats, kNegativePlungeKey, static_cast<double>(gNegativePlunge));
}

void SaveColumns(const Settings& settings) {
    settings.WriteNumber(kDataFormats, "gSecondaryDataType", gSecondaryDataType);
    settings.WriteTruth(kDataFormats, "gFileLineAppended", gFileLineAppended);
    settings.WriteTruth(kDataFormats, "gFileNumericAppended", gFileNumericAppended);
    settings.WriteTruth(kDataFormats, "gFileNonNumericAppended", gFileNonNumericAppended);
    for (std::size_t slot = 0; slot < gFileColumnSettings.size(); ++slot) {
        settings.WriteNumber(kDataFormats, ColumnKey(slot), gFileColumnSettings[slot]);
    }
}

void SaveNames(const Settings& settings) {
    settings.Write(kDataFormats, "gFileAppNumName", gFileAppNumName);
    settings.Write(kDataFormats, "gFileAppNonNumName", gFileAppNonNumName);
}

void SaveSymbolRows(const Settings& settings, std::size_t first, std::size_t last) {
    for (std::size_t row = first; row <= last; ++row) {
        for (std::size_t place = 0; place < 3; ++place) {
            settings.WriteNumber(kSymbolArray, SymbolKey(row, place), gSymbolTable[row][place]);
        }
    }
}

void SaveLineStyle(const Settings& settings, const LineStyleKeys& keys, const AxisStyle& style) {
    settings.WriteNumber(kSymbolArray, keys.colour, style[0]);
    settings.WriteNumber(kSymbolArray, keys.style, style[1]);
    settings.WriteNumber(kSymbolArray, keys.width, style[2]);
}

void SaveAxisStyles(const Settings& settings) {
    for (const auto& [kind, row] : kGirdleKinds) {
        SaveLineStyle(settings, GirdleKeys(kind), gAxisStyleTable[row]);
    }
    for (std::size_t level = 0; level < gContourStyleTable.size(); ++level) {
        SaveLineStyle(settings, ContourKeys(level), gContourStyleTable[level]);
    }
    settings.WriteNumber(kSymbolArray, kPlotBackColourKey, gPlotBackColour);
    settings.WriteNumber(kSymbolArray, kPlotAxesColourKey, gPlotAxesColour);
    const AxisStyle& beta = gAxisStyleTable[kBetaAxisStyle];
    settings.WriteNumber(kSymbolArray, "BetaAxisColor", beta[0]);
    settings.WriteNumber(kSymbolArray, "BetaAxisType", beta[1]);
    settings.WriteNumber(kSymbolArray, "BetaAxisSize", beta[2]);
}

void SaveFonts(const Settings& settings) {
    for (std::size_t index = 0; index < gPlotFonts.size(); ++index) {
        const std::string number = std::to_string(index);
        const PlotFont& font = gPlotFonts[index];
        settings.Write(kFonts, "FontName" + number, font.font.family);
        settings.WriteNumber(kFonts, "FontBold" + number, font.font.bold ? 1 : 0);
        settings.WriteNumber(kFonts, "FontItalic" + number, font.font.italic ? 1 : 0);
        settings.WriteNumber(kFonts, "FontUnderLine" + number, font.font.underline ? 1 : 0);
        settings.WriteNumber(kFonts, "FontSize" + number, font.font.points);
        settings.WriteNumber(kFonts, "FontWeight" + number, font.weight);
        settings.WriteNumber(kFonts, "FontSetColour" + number, font.colour);
    }
}

void SavePreferences(const Settings& settings) {
    settings.Write(kStartUp, "PitchName", gPitchName);
    settings.Write(kStartUp, "FilesDirectory", gFilesDirectory);
    settings.WriteNumber(kStartUp, "PlotAxesStyle", gPlotAxesStyle);
    settings.WriteNumber(kStartUp, "RoseAxesStyle", gRoseAxesStyle);
    settings.WriteTruth(kStartUp, "RoseOuterCircle", gRoseOuterCircle);
    settings.WriteTruth(kStartUp, "ShowCompassPoints", gShowCompassPoints);
    settings.WriteTruth(kStartUp, "ConvertDecimals", gConvertDecimals);
    settings.WriteTruth(kStartUp, "ShowNorth", gShowNorth);
    settings.WriteTruth(kStartUp, "SaveNonDataLines", gSaveNonDataLines);
    settings.Write(kStartUp, kFormulasKey, NameOf(gFormulas));
    SaveSymbolRows(settings, 0, 17);
    SaveSymbolRows(settings, 24, 50);
    for (std::size_t index = 0; index < gColourTable.size(); ++index) {
        settings.WriteNumber(kSymbolArray, ColourKey(index), gColourTable[index]);
    }
    settings.WriteNumber(kSymbolArray, "gShowIsolatedPts", gShowIsolatedPts);
    SaveFonts(settings);
    SaveAxisStyles(settings);
}

void SaveWindow(const Settings& settings) {
    // Kept: the key differs from the one that is read.
    settings.WriteTruth(kStartUp, "PlotWinLast", gPlotWinLast);
    settings.WriteNumber(kStartUp, "PlotWinWidth", gPlotWidthPercent);
    settings.WriteNumber(kStartUp, "PlotWinAspect",
                         std::nearbyint(static_cast<double>(gPlotAspect) * 100));
    settings.WriteNumber(kStartUp, "WinState", gMainWindowPlace.state);
    if (gMainWindowPlace.state == 0) {
        settings.WriteNumber(kStartUp, "WinTop", gMainWindowPlace.top);
        settings.WriteNumber(kStartUp, "Winleft", gMainWindowPlace.left);
        settings.WriteNumber(kStartUp, "WinWidth", gMainWindowPlace.width);
        settings.WriteNumber(kStartUp, "WinHeight", gMainWindowPlace.height);
    }
}

void SaveClasses(const Settings& settings) {
    for (std::size_t column = 0; column < 3; ++column) {
        for (std::size_t row = 0; row < gDefaultClassTable.size(); ++row) {
            settings.Write(kDataClassifArray, ClassKey(row, column),
                           TextOf(gDefaultClassTable[row][column]));
        }
    }
}

void SaveSession(const Settings& settings) {
    settings.Write(kStartUp, "LastUsedVersion", kVersionText);
    settings.WriteNumber(kDataFormats, "gPrimaryDataType", gPrimaryDataType);
    settings.Write(kStartUp, "LastUsedPath", gLastUsedPath);
    settings.Write(kStartUp, "LastUsedWorkSpacePath", gLastUsedWorkSpacePath);
    settings.Write(kStartUp, "LastUsedWorkSpaceFileName", gLastUsedWorkSpaceFileName);
    settings.Write(kStartUp, "LastUsedWSpaceFileTitle", gLastUsedWSpaceFileTitle);
    SaveSymbolRows(settings, 18, 23);
    SaveClasses(settings);
    settings.Write(kStartUp, "RoseScaleType", gRoseScaleType);
    settings.WriteNumber(kStartUp, "gRoseSectorSize", gRoseSectorSize);
    settings.WriteNumber(kStartUp, "gRoseSectorFraction", gRoseSectorFraction);
    settings.WriteTruth(kStartUp, "MIToolbarShow", gMIToolbarShow);
    SaveWindow(settings);
}

constexpr int kSessionGroup = 6;
constexpr int kLastGroup = 7;

void SaveGroup(const Settings& settings, int group) {
    settings.Write(kStartUp, "LastAccessDate", gPlatform.today);
    switch (group) {
    case 0:
        SaveFormat(settings);
        break;
    case 1:
        SaveColumns(settings);
        break;
    case 3:
        SaveNames(settings);
        break;
    case 4:
        SavePreferences(settings);
        break;
    case 5:
        settings.WriteNumber(kStartUp, "gMaxPlots", gMaxPlots);
        break;
    case kSessionGroup:
        SaveSession(settings);
        break;
    case 7:
        settings.Write(kStartUp, "FilesDirectory", gFilesDirectory);
        break;
    default:
        break;
    }
}

void NoteAllGroups() {
    MemorySettingsStore wouldWrite;
    for (int group = 0; group <= kLastGroup; ++group) {
        SaveGroup(Settings(kApplicationName, wouldWrite), group);
    }
    NoteLoadedSettings(wouldWrite);
}

} // namespace

std::int16_t PlotWidthOf(double percent) {
    return percent < 1 ? std::int16_t{50} : ToWhole<std::int16_t>(percent, 1, 100);
}

float PlotAspectOf(double aspect) {
    const double share = aspect > 1 ? std::min(aspect / 100, 1.0) : aspect;
    return share > 0 ? static_cast<float>(share) : 0.75F;
}

void SetDefaultSettings() {
    BuildStyleTables();
    gMainWindowPlace = {};
    gPlotFonts = {};
    gRecentFiles.clear();
    gDefaultClassTable = {};
    gPlotAxesStyle = 0;
    gRoseAxesStyle = 0;
    gRoseSectorFraction = 100;
    gShowIsolatedPts = 0;
    gConventions = 1;
    gPrimaryDataType = kPrimaryPlane;
    gSecondaryDataType = kNoSecondary;
    gFileColumnSettings = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    gPlotKind = kEqualArea;
    gPlotDataKind = kPlanes;
    gFileHasHeadings = false;
    gNegativePlunge = NegativePlunge::LowerEnd;
    gStatsBoxKind = 0;
    gStatisticsShown = true;
    gFormulas = Formulas::Own;
}

bool TruthOfSetting(const std::string& text) {
    return text == "True" || text == "true" || text == "-1" || text == "1";
}

void LoadSettings() {
    SetDefaultSettings();
    const SettingsStore& store = *gPlatform.settings;
    const bool fromEarlier =
        !store.Exists(kApplicationName) && store.Exists(kEarlierApplicationName);
    const Settings settings(fromEarlier ? kEarlierApplicationName : kApplicationName);
    ReadStartUp(settings);
    ReadDataFormats(settings);
    ReadSymbols(settings);
    ReadAxisStyles(settings);
    ReadFonts(settings);
    LoadRecentFiles(fromEarlier ? kEarlierApplicationName : kApplicationName);
    ReadClasses(settings);
    NoteAllGroups();
    if (fromEarlier) {
        for (int group = 0; group <= 4; ++group) {
            SaveSettings(group);
        }
    }
}

bool SaveSettings(int group) {
    MemorySettingsStore wanted;
    SaveGroup(Settings(kApplicationName, wanted), group);
    if (group == kSessionGroup) {
        SaveRecentFiles();
    }
    return WriteChangedSettings(wanted);
}

} // namespace quandrel
