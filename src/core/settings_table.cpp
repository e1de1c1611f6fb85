// SPDX-License-Identifier: MIT

#include "core/settings_table.h"

#include "core/formulas.h"
#include "core/plot_store.h"
#include "core/setting_keys.h"
#include "core/settings_value.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace quandrel {

namespace {

using enum SettingsGroup;

constexpr double kLeastShort = -32768;
constexpr double kMostShort = 32767;
constexpr double kFarthestEdge = 1e6; ///< of a window, 1/1440 inch
constexpr double kMostColour = 0xffffff;
constexpr double kMostSymbol = 99;
constexpr double kMostColumn = 254;
constexpr double kStartPlotWidth = 50;  ///< per cent of the main window
constexpr double kStartPlotAspect = 75; ///< per cent of the width
constexpr double kStartSectorSize = 10; ///< degrees
constexpr const char* kStartStyle = "Screen";
constexpr const char* kStartExportStyle = "Journal";
constexpr double kFirstVersionWithBetaStyle = 9.5;

/// Where a setting is stored, and which groups save it.
struct Place {
    std::vector<SettingsGroup> groups;
    const char* section;
    std::string key;
};

struct Range {
    double lowest;
    double highest;
};

std::string TextOfNumber(double value) {
    return TextOf(TaggedValue(value));
}

/// The number, clamped to its range and rounded.
template <class Whole>
Whole ToWhole(double value, Range range) {
    return static_cast<Whole>(std::clamp(std::nearbyint(value), range.lowest, range.highest));
}

template <class Take, class Write>
Setting SettingOf(Place place, std::string otherwise, Take take, Write text) {
    return {std::move(place.groups), place.section,   std::move(place.key),
            std::move(otherwise),    std::move(take), std::move(text)};
}

template <class Whole>
Setting WholeNumber(Place place, Whole& value, double otherwise, Range range) {
    return SettingOf(
        std::move(place), TextOfNumber(otherwise),
        [&value, otherwise, range](const std::string& text) {
            value = ToWhole<Whole>(ReadNumber(text).value_or(otherwise), range);
        },
        [&value] { return TextOfNumber(static_cast<double>(value)); });
}

/// A whole number whose default is the built-in value of the style tables.
template <class Whole>
Setting BuiltNumber(Place place, Whole& value, Range range) {
    return SettingOf(
        std::move(place), {},
        [&value, range](const std::string& text) {
            value = ToWhole<Whole>(ReadNumber(text).value_or(static_cast<double>(value)), range);
        },
        [&value] { return TextOfNumber(static_cast<double>(value)); });
}

/// A number of the style tables that keeps its built-in value where the stored one is out of range.
template <class Whole>
Setting BuiltChoice(Place place, Whole& value, double highest) {
    return SettingOf(
        std::move(place), {},
        [&value, highest](const std::string& text) {
            const double number = ReadNumber(text).value_or(-1);
            if (number >= 0 && number <= highest) {
                value = ToWhole<Whole>(number, {0, highest});
            }
        },
        [&value] { return TextOfNumber(static_cast<double>(value)); });
}

/// A colour; `otherwise` where the stored value is not a 24-bit colour.
Setting PlotColour(Place place, std::uint32_t& value, std::uint32_t otherwise) {
    Setting setting = BuiltChoice(std::move(place), value, kMostColour);
    setting.take = [&value, otherwise, take = setting.take](const std::string& text) {
        value = otherwise;
        take(text);
    };
    return setting;
}

Setting Truth(Place place, bool& value, bool otherwise) {
    return SettingOf(
        std::move(place), otherwise ? kTrueText : kFalseText,
        [&value](const std::string& text) { value = TruthOfSetting(text); },
        [&value] { return std::string(value ? kTrueText : kFalseText); });
}

Setting Words(Place place, std::string& value, const char* otherwise = "") {
    return SettingOf(
        std::move(place), otherwise, [&value](const std::string& text) { value = text; },
        [&value] { return value; });
}

/// The same setting, saved only while the main window is in its normal state.
Setting OfNormalWindow(Setting setting) {
    setting.text = [text = setting.text] {
        return gSettings.windows.main.state == 0 ? text() : std::nullopt;
    };
    return setting;
}

using Rows = std::vector<Setting>;

void AddWindow(Rows& table) {
    constexpr WindowPlace kStart;
    WindowPlace& place = gSettings.windows.main;
    const Range edge = {-kFarthestEdge, kFarthestEdge};
    const Range size = {0, kFarthestEdge};
    table.push_back(
        WholeNumber({{Session}, kStartUp, "WinState"}, place.state, kStart.state, {0, 2}));
    const auto add = [&table](const char* key, std::int32_t& value, double otherwise, Range range) {
        table.push_back(
            OfNormalWindow(WholeNumber({{Session}, kStartUp, key}, value, otherwise, range)));
    };
    add("WinTop", place.top, kStart.top, edge);
    // The left edge is saved under a key that differs in case; a case-sensitive store loses it.
    add("Winleft", place.left, kStart.left, edge);
    table.push_back(BuiltNumber({{}, kStartUp, "WinLeft"}, place.left, edge));
    add("WinWidth", place.width, kStart.width, size);
    add("WinHeight", place.height, kStart.height, size);
}

void AddPlotWindow(Rows& table) {
    // Kept: saved under "PlotWinLast" and read under this key, so the choice ends with the session.
    table.push_back(Truth({{}, kStartUp, "gPlotWinLast"}, gPlotWinLast, false));
    table.push_back(Truth({{Session}, kStartUp, "PlotWinLast"}, gPlotWinLast, false));
    table.back().take = nullptr;
    table.push_back(SettingOf(
        {{Session}, kStartUp, "PlotWinWidth"}, TextOfNumber(kStartPlotWidth),
        [](const std::string& text) {
            gPlotWidthPercent = PlotWidthOf(ReadNumber(text).value_or(kStartPlotWidth));
        },
        [] { return TextOfNumber(gPlotWidthPercent); }));
    table.push_back(SettingOf(
        {{Session}, kStartUp, "PlotWinAspect"}, TextOfNumber(kStartPlotAspect),
        [](const std::string& text) {
            gPlotAspect = PlotAspectOf(ReadNumber(text).value_or(kStartPlotAspect));
        },
        [] { return TextOfNumber(std::nearbyint(static_cast<double>(gPlotAspect) * 100)); }));
}

void AddFiles(Rows& table) {
    table.push_back(
        Words({{Preferences, DataFolder}, kStartUp, "FilesDirectory"}, gSettings.files.folder));
    table.push_back(Words({{Session}, kStartUp, "LastUsedPath"}, gSettings.files.lastFolder));
    table.push_back(
        Words({{Session}, kStartUp, "LastUsedWorkSpacePath"}, gSettings.files.workspaceFolder));
    table.push_back(
        Words({{Session}, kStartUp, "LastUsedWorkSpaceFileName"}, gSettings.files.workspaceName));
    table.push_back(
        Words({{Session}, kStartUp, "LastUsedWSpaceFileTitle"}, gSettings.files.workspaceTitle));
    StyleChoice& style = gSettings.files.exportStyle;
    table.push_back(Words({{Session}, kStartUp, "ExportStyle"}, style.name, kStartExportStyle));
    table.push_back(Words({{Session}, kStartUp, "ExportStyleText"}, style.text));
}

Setting ChoiceOfFormulas() {
    return SettingOf(
        {{Preferences}, kStartUp, "Formulas"}, NameOf(Formulas::Own),
        [](const std::string& text) {
            gSettings.notation.formulas =
                text == NameOf(Formulas::Textbook) ? Formulas::Textbook : Formulas::Own;
        },
        [] { return std::string(NameOf(gSettings.notation.formulas)); });
}

void AddPreferences(Rows& table) {
    const Range anyShort = {kLeastShort, kMostShort};
    table.push_back(
        Words({{Preferences}, kStartUp, "PitchName"}, gSettings.notation.pitchName, "pitch"));
    table.push_back(
        WholeNumber({{Preferences}, kStartUp, "PlotAxesStyle"}, gPlotAxesStyle, 0, anyShort));
    table.push_back(
        WholeNumber({{Preferences}, kStartUp, "RoseAxesStyle"}, gRoseAxesStyle, 0, anyShort));
    table.push_back(Truth({{Preferences}, kStartUp, "RoseOuterCircle"}, gRoseOuterCircle, true));
    table.push_back(Truth({{Preferences}, kStartUp, "ShowCompassPoints"},
                          gSettings.styles.showCompassPoints, false));
    table.push_back(Truth({{Preferences}, kStartUp, "ConvertDecimals"}, gConvertDecimals, false));
    table.push_back(
        Truth({{Preferences}, kStartUp, "ShowNorth"}, gSettings.styles.showNorth, false));
    table.push_back(
        Truth({{Preferences}, kStartUp, "SaveNonDataLines"}, gSettings.files.nonDataLines, false));
    table.push_back(ChoiceOfFormulas());
    table.push_back(
        Truth({{Preferences}, kStartUp, "UseDecimals"}, gSettings.newPlots.useDecimals, false));
    StyleChoice& style = gSettings.newPlots.style;
    table.push_back(
        Words({{Preferences, Session}, kStartUp, "NewPlotStyle"}, style.name, kStartStyle));
    table.push_back(Words({{Preferences, Session}, kStartUp, "NewPlotStyleText"}, style.text));
    table.push_back(WholeNumber({{Preferences}, kSymbolArray, "gShowIsolatedPts"}, gShowIsolatedPts,
                                0, {-1, 1}));
}

Setting SectorSize() {
    return SettingOf(
        {{Session}, kStartUp, "gRoseSectorSize"}, TextOfNumber(kStartSectorSize),
        [](const std::string& text) {
            const double size = ReadNumber(text).value_or(kStartSectorSize);
            gRoseSectorSize = size <= 0 || size > 360 ? kStartSectorSize : size;
        },
        [] { return TextOfNumber(gRoseSectorSize); });
}

void AddSession(Rows& table) {
    WindowSettings& windows = gSettings.windows;
    table.push_back(
        Words({{Session}, kStartUp, "LastUsedVersion"}, gSettings.files.lastVersion, "9.4"));
    table.back().text = [] { return std::string(kVersionText); };
    table.push_back(WholeNumber({{PlotCount}, kStartUp, kMaxPlotsKey}, gMaxPlots, kStartMaxPlots,
                                {1, kMostPlots}));
    table.push_back(Truth({{Session}, kStartUp, "MIToolbarShow"}, windows.mapToolbar, true));
    table.push_back(Truth({{Session}, kStartUp, "ToolLabels"}, windows.toolLabels, true));
    const auto addPanel = [&table](const std::string& id, bool& shown, auto& size, int first) {
        table.push_back(Truth({{Session}, kStartUp, id}, shown, false));
        table.push_back(WholeNumber({{Session}, kStartUp, id + "Width"}, size, first, {100, 2000}));
    };
    addPanel("LayerPanel", windows.layerPanel, windows.layerWidth, 240);
    addPanel("PropertyPanel", windows.propertyPanel, windows.propertyWidth, 240);
    addPanel("TextPanel", windows.textPanel, windows.textWidth, 280);
    table.push_back(Words({{Session}, kStartUp, "RoseScaleType"}, gSettings.newPlots.rose.scaleType,
                          "tickauto"));
    table.push_back(SectorSize());
    table.push_back(WholeNumber({{Session}, kStartUp, "gRoseSectorFraction"}, gRoseSectorFraction,
                                100, {1, 100}));
}

Setting ConventionsSetting() {
    constexpr std::int16_t kFirst = 1;
    constexpr int kHighest = 16;
    Setting setting = WholeNumber({{Conventions}, kDataFormats, "Conventions"}, gConventions,
                                  kFirst, {kLeastShort, kMostShort});
    setting.take = [take = setting.take](const std::string& text) {
        take(text);
        const int code = std::abs(gConventions);
        const int plane = code % 10;
        if (plane < kDipDipDirection || plane > kStrikeDipRightHand || code > kHighest) {
            gConventions = kFirst;
        }
    };
    return setting;
}

Setting NegativePlungeSetting() {
    return SettingOf(
        {{Conventions}, kDataFormats, "NegativePlunge"}, "0",
        [](const std::string& text) {
            gSettings.format.negativePlunge =
                ReadNumber(text) == 1 ? NegativePlunge::Vector : NegativePlunge::LowerEnd;
        },
        [] { return TextOfNumber(static_cast<double>(gSettings.format.negativePlunge)); });
}

Setting CommentMarksSetting() {
    return SettingOf(
        {{Conventions}, kDataFormats, "CommentMarks"}, "",
        [](const std::string& text) {
            gSettings.format.comments = CommentMarksIn(text).value_or(CommentMarks());
        },
        [] { return TextOfCommentMarks(gSettings.format.comments); });
}

void AddDataFormat(Rows& table) {
    table.push_back(ConventionsSetting());
    table.push_back(Words({{Conventions}, kDataFormats, "PlaneSeparator"}, gPlaneSeparator, "/"));
    table.push_back(Words({{Conventions}, kDataFormats, "LineSeparator"}, gLineSeparator, "-"));
    table.push_back(Words({{Conventions}, kDataFormats, "gFileDelimiter"}, gFileDelimiter, "\t"));
    table.push_back(NegativePlungeSetting());
    table.push_back(CommentMarksSetting());
    table.push_back(
        Truth({{Conventions}, kDataFormats, "PairsInCells"}, gSettings.format.pairsInCells, false));
    table.push_back(WholeNumber({{Session}, kDataFormats, "gPrimaryDataType"}, gPrimaryDataType,
                                kPrimaryPlane, {0, kPrimaryLine}));
    table.push_back(WholeNumber({{Columns}, kDataFormats, kSecondaryTypeKey}, gSecondaryDataType,
                                kNoSecondary, {kNoSecondary, kHadeInPlane}));
    table.push_back(Truth({{Columns}, kDataFormats, kLineAppendedKey}, gFileLineAppended, false));
    table.push_back(
        Truth({{Columns}, kDataFormats, kNumericAppendedKey}, gFileNumericAppended, false));
    table.push_back(
        Truth({{Columns}, kDataFormats, kNonNumericAppendedKey}, gFileNonNumericAppended, false));
    table.push_back(Words({{Names}, kDataFormats, "gFileAppNumName"}, gFileAppNumName, "value"));
    table.push_back(
        Words({{Names}, kDataFormats, "gFileAppNonNumName"}, gFileAppNonNumName, "type"));
    for (std::size_t slot = 0; slot < gFileColumnSettings.size(); ++slot) {
        table.push_back(WholeNumber({{Columns}, kDataFormats, ColumnKey(slot)},
                                    gFileColumnSettings[slot], static_cast<double>(slot),
                                    {0, kMostColumn}));
    }
}

void AddSymbols(Rows& table) {
    constexpr std::size_t kFirstOfSession = 18;
    constexpr std::size_t kLastOfSession = 23;
    for (std::size_t row = 0; row < gSymbolTable.size(); ++row) {
        const SettingsGroup group =
            row >= kFirstOfSession && row <= kLastOfSession ? Session : Preferences;
        for (std::size_t place = 0; place < gSymbolTable[row].size(); ++place) {
            table.push_back(BuiltChoice({{group}, kSymbolArray, SymbolKey(row, place)},
                                        gSymbolTable[row][place],
                                        place == kPlaceColour ? kColourCount - 1 : kMostSymbol));
        }
    }
    for (std::size_t index = 0; index < gColourTable.size(); ++index) {
        table.push_back(BuiltChoice({{Preferences}, kSymbolArray, ColourKey(index)},
                                    gColourTable[index], kMostColour));
    }
}

void AddLineStyle(Rows& table, const LineStyleKeys& keys, AxisStyle& style) {
    const auto add = [&table](const std::string& key, std::int16_t& value, Range range) {
        table.push_back(BuiltNumber({{Preferences}, kSymbolArray, key}, value, range));
    };
    add(keys.colour, style[kStyleColour], {0, kColourCount - 1});
    add(keys.style, style[kStyleLine], {kSolidLine, kNoLine});
    add(keys.width, style[kStyleWidth], {1, kWidestLine});
}

/// The symbol of beta axes. Values that versions before 9.5 saved under these keys are ignored.
void AddBetaStyle(Rows& table) {
    AxisStyle& beta = gAxisStyleTable[kBetaAxisStyle];
    const auto add = [&table](const char* key, std::int16_t& value, double highest) {
        Setting setting = BuiltNumber({{Preferences}, kSymbolArray, key}, value, {0, highest});
        setting.take = [take = setting.take](const std::string& text) {
            if (ParseNumber(gSettings.files.lastVersion) >= kFirstVersionWithBetaStyle) {
                take(text);
            }
        };
        table.push_back(std::move(setting));
    };
    add("BetaAxisColor", beta[kStyleColour], kColourCount - 1);
    add("BetaAxisType", beta[kStyleSymbol], kMostSymbol);
    add("BetaAxisSize", beta[kStyleSize], kMostSymbol);
}

void AddStyles(Rows& table) {
    // The kinds of girdle by the prefixes of their keys.
    constexpr std::array<std::pair<const char*, std::size_t>, 3> kGirdleKinds = {
        {{"", kUserGirdleStyle}, {"Mean", kMeanGirdleStyle}, {"Calc", kCalculatedGirdleStyle}}};
    for (const auto& [kind, row] : kGirdleKinds) {
        AddLineStyle(table, GirdleKeys(kind), gAxisStyleTable[row]);
    }
    for (std::size_t level = 0; level < gSettings.styles.contours.size(); ++level) {
        AddLineStyle(table, ContourKeys(level), gSettings.styles.contours[level]);
    }
    table.push_back(PlotColour({{Preferences}, kSymbolArray, "PlotBackColour"},
                               gSettings.styles.plotBackColour, kStartBackColour));
    table.push_back(PlotColour({{Preferences}, kSymbolArray, "PlotAxesColour"},
                               gSettings.styles.plotAxesColour, kStartAxesColour));
    AddBetaStyle(table);
}

/// A truth value that is stored as 0 or 1.
Setting FontTruth(Place place, bool& value) {
    return SettingOf(
        std::move(place), "0",
        [&value](const std::string& text) { value = ReadNumber(text).value_or(0) != 0; },
        [&value] { return std::string(value ? "1" : "0"); });
}

Setting FontSize(Place place, double& points) {
    return SettingOf(
        std::move(place), TextOfNumber(FontSpec().points),
        [&points](const std::string& text) {
            points = std::clamp(ReadNumber(text).value_or(FontSpec().points), 1.0, 200.0);
        },
        [&points] { return TextOfNumber(points); });
}

void AddFonts(Rows& table) {
    for (std::size_t index = 0; index < gSettings.styles.fonts.size(); ++index) {
        PlotFont& font = gSettings.styles.fonts[index];
        const auto place = [index](const char* what) -> Place {
            return {{Preferences}, kFonts, FontKey(what, index)};
        };
        table.push_back(Words(place(kFontNameKey), font.font.family));
        table.push_back(FontTruth(place("FontBold"), font.font.bold));
        table.push_back(FontTruth(place("FontItalic"), font.font.italic));
        table.push_back(FontTruth(place("FontUnderLine"), font.font.underline));
        table.push_back(FontSize(place("FontSize"), font.font.points));
        table.push_back(
            WholeNumber(place("FontWeight"), font.weight, PlotFont().weight, {0, 10000}));
        table.push_back(WholeNumber(place("FontSetColour"), font.colour, 0, {0, kMostColour}));
    }
}

void AddClasses(Rows& table) {
    for (std::size_t column = 0; column < gSettings.newPlots.classes[0].size(); ++column) {
        for (std::size_t row = 0; row < gSettings.newPlots.classes.size(); ++row) {
            TaggedValue& value = gSettings.newPlots.classes[row][column];
            table.push_back(SettingOf(
                {{Session}, kDataClassifArray, ClassKey(row, column)}, "0",
                [&value](const std::string& text) {
                    const std::optional<double> number = ReadNumber(text);
                    value = number ? TaggedValue(*number) : TaggedValue(text);
                },
                [&value] { return TextOf(value); }));
        }
    }
}

Rows MakeTable() {
    Rows table;
    AddSession(table); // first: the version decides the style of beta axes
    AddWindow(table);
    AddPlotWindow(table);
    AddFiles(table);
    AddPreferences(table);
    AddDataFormat(table);
    AddSymbols(table);
    AddStyles(table);
    AddFonts(table);
    AddClasses(table);
    return table;
}

} // namespace

const std::vector<Setting>& SettingsTable() {
    static const Rows table = MakeTable();
    return table;
}

} // namespace quandrel
