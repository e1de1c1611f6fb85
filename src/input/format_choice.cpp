// SPDX-License-Identifier: MIT

#include "input/format_choice.h"

#include "core/plot_store.h"
#include "core/setting_keys.h"
#include "core/settings.h"
#include "core/settings_group.h"
#include "input/column_order.h"
#include "input/file_loading.h"
#include "orientation/number_text.h"
#include "platform/platform.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quandrel {

namespace {

constexpr int kTrendFirstCode = 10;
constexpr double kLastColumn = 254; // the last column that the settings can name

bool HasRows() {
    return IsOpenSlot(gActivePlot) && ActiveRecord().NumLoadedData > 0;
}

bool IsPlaneWithStrike(int planeConvention) {
    return planeConvention >= kStrikeDipSense;
}

/// Columns of one orientation: dip or plunge, azimuth, and a sense.
struct SlotGroup {
    int dip;
    int direction;
    int sense;
    const char* prefix; ///< of the names, where they could mean several sets
};

constexpr SlotGroup kPrimarySlots = {kSlotDip, kSlotDirection, kSlotSense, ""};
constexpr SlotGroup kSecondarySlots = {kSlotSecondaryDip, kSlotSecondaryDirection,
                                       kSlotSecondarySense, "2nd "};

void NamePlane(const FormatChoice& choice, const SlotGroup& slots,
               std::array<std::string, kColumnSlots>& names) {
    names[static_cast<std::size_t>(slots.dip)] = "dip";
    names[static_cast<std::size_t>(slots.direction)] =
        IsPlaneWithStrike(choice.planeConvention) ? "strike" : "direction";
}

void NameLine(const SlotGroup& slots, std::array<std::string, kColumnSlots>& names) {
    names[static_cast<std::size_t>(slots.dip)] = "plunge";
    names[static_cast<std::size_t>(slots.direction)] = "trend";
}

void NameSecondary(const FormatChoice& choice, std::array<std::string, kColumnSlots>& names) {
    std::string& azimuth = names[kSlotSecondaryDirection];
    switch (choice.secondary) {
    case kPitchInPlane:
        azimuth = gSettings.notation.pitchName;
        break;
    case kTrendInPlane:
        azimuth = "trend";
        break;
    case kHadeInPlane:
        azimuth = "hade";
        break;
    case kSecondaryPlane:
        NamePlane(choice, kSecondarySlots, names);
        break;
    default:
        break;
    }
}

double SavedNumber(const std::string& key, double otherwise) {
    const std::string text = gPlatform.settings->Read(kApplicationName, kDataFormats, key, {});
    return ReadNumber(text).value_or(otherwise);
}

bool SavedTruth(const std::string& key) {
    return TruthOfSetting(gPlatform.settings->Read(kApplicationName, kDataFormats, key, "False"));
}

} // namespace

bool JoinsRows(const FormatQuestion& question) {
    return (question.command == kMergeCommand || question.command == kOverlayCommand) && HasRows();
}

FormatChoice ChoiceOf(const FormatQuestion& question) {
    FormatChoice choice;
    choice.primary = std::clamp<std::int16_t>(gPrimaryDataType, kDirections, kPrimaryLine);
    choice.secondary = std::clamp<std::int16_t>(gSecondaryDataType, kNoSecondary, kHadeInPlane);
    const int code = std::abs(int{gConventions});
    choice.planeConvention =
        std::clamp<int>(code % kTrendFirstCode, kDipDipDirection, kStrikeDipRightHand);
    choice.lineIsTrendFirst = code >= kTrendFirstCode; // the tens stay in a quadrant code
    choice.isQuadrant = gConventions < 0;
    choice.delimiter = gFileDelimiter;
    choice.planeSeparator = gPlaneSeparator;
    choice.lineSeparator = gLineSeparator;
    choice.lineAppended = gFileLineAppended;
    choice.numericAppended = gFileNumericAppended;
    choice.nonNumericAppended = gFileNonNumericAppended;
    choice.numberIsFrequency = question.frequencyColumn;
    choice.numericName = gFileAppNumName;
    choice.nonNumericName = gFileAppNonNumName;
    choice.columns = gFileColumnSettings;
    choice.negativePlunge = gSettings.format.negativePlunge;
    choice.comments = gSettings.format.comments;
    choice.pairsInCells = gSettings.format.pairsInCells;
    choice.columnHeadings = question.columnHeadings;
    const bool joins = JoinsRows(question);
    choice.plotSecondary = joins ? ActiveRecord().ShowSecondary != 0 : question.showSecondary;
    choice.hasOverlays =
        joins
        && (question.command == kOverlayCommand || ActiveRecord().OverlayRows[kOverlayCount] > 0);
    choice.kindIsStated =
        question.plotKindFromFile >= kPlanes && question.plotKindFromFile <= kPolarLines;
    if (choice.kindIsStated) {
        choice.plotDataKind = static_cast<std::int16_t>(question.plotKindFromFile);
    }
    FollowPlotKind(choice);
    return choice;
}

std::int16_t ConventionCode(const FormatChoice& choice) {
    const int code = choice.planeConvention + (choice.lineIsTrendFirst ? kTrendFirstCode : 0);
    return static_cast<std::int16_t>(choice.isQuadrant ? -code : code);
}

FormatSettings SettingsOf(const FormatChoice& choice, FormatSettings settings) {
    settings.conventions = ConventionCode(choice);
    settings.delimiter = choice.delimiter;
    settings.planeSeparator = choice.planeSeparator;
    settings.lineSeparator = choice.lineSeparator;
    settings.primary = choice.primary;
    settings.secondary = choice.secondary;
    settings.lineAppended = choice.lineAppended;
    settings.numericAppended = choice.numericAppended;
    settings.nonNumericAppended = choice.nonNumericAppended;
    settings.numericName = choice.numericName;
    settings.nonNumericName = choice.nonNumericName;
    settings.columns = choice.columns;
    settings.hasHeadings = choice.columnHeadings;
    settings.negativePlunge = choice.negativePlunge;
    settings.comments = choice.comments;
    settings.pairsInCells = choice.pairsInCells;
    settings.placeColumns = choice.placeColumns;
    if (choice.plotDataKind != kNoDataKind) {
        settings.plotDataKind = choice.plotDataKind;
    }
    return settings;
}

void SetGlobalSettings(const FormatChoice& choice) {
    gSettings.format = SettingsOf(choice, gSettings.format);
}

LineFormat LineFormatOf(const FormatChoice& choice) {
    LineFormat format;
    format.primary = choice.primary;
    format.secondary = choice.secondary;
    format.planeConvention = choice.planeConvention;
    format.lineIsTrendFirst = choice.lineIsTrendFirst;
    format.isQuadrant = choice.isQuadrant;
    format.slots = choice.columns;
    format.delimiter = choice.delimiter.empty() ? kAnyDelimiter : choice.delimiter.front();
    format.wantLine = choice.lineAppended;
    format.wantNumber = choice.numericAppended;
    format.wantText = choice.nonNumericAppended;
    format.hasOverlays = choice.hasOverlays;
    format.decimalIsComma = gDecimalIsComma;
    format.convertDecimals = gConvertDecimals;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    format.negativePlunge = choice.negativePlunge;
    format.comments = choice.comments;
    format.pairsInCells = choice.pairsInCells;
    format.placeColumns = choice.placeColumns;
    return format;
}

std::array<bool, kColumnSlots> ColumnsInUse(const FormatChoice& choice) {
    return SlotsInUse(LineFormatOf(choice));
}

std::array<std::string, kColumnSlots> ColumnNames(const FormatChoice& choice) {
    std::array<std::string, kColumnSlots> names = {"plunge", "direction", "sense",  "plunge",
                                                   "trend",  "sense",     "plunge", "trend",
                                                   "number", "text"};
    if (choice.primary == kPrimaryPlane) {
        NamePlane(choice, kPrimarySlots, names);
    } else if (choice.primary == kPrimaryLine) {
        NameLine(kPrimarySlots, names);
    }
    NameSecondary(choice, names);
    return names;
}

std::array<std::string, kColumnSlots> LongColumnNames(const FormatChoice& choice) {
    std::array<std::string, kColumnSlots> names = ColumnNames(choice);
    for (const int slot : {kSlotSecondaryDip, kSlotSecondaryDirection, kSlotSecondarySense}) {
        names[static_cast<std::size_t>(slot)].insert(0, kSecondarySlots.prefix);
    }
    for (const int slot : {kSlotAppendedPlunge, kSlotAppendedTrend}) {
        names[static_cast<std::size_t>(slot)].insert(0, "axis ");
    }
    names[kSlotNumber] = choice.numericName;
    names[kSlotText] = choice.nonNumericName;
    return names;
}

ColumnSettings InitialColumns(const FormatChoice& choice) {
    FormatSettings settings;
    // Without the sign, which would hide that lines are trend, plunge.
    settings.conventions = static_cast<std::int16_t>(std::abs(int{ConventionCode(choice)}));
    settings.primary = choice.primary;
    settings.secondary = choice.secondary;
    settings.lineAppended = choice.lineAppended;
    settings.numericAppended = choice.numericAppended;
    settings.nonNumericAppended = choice.nonNumericAppended;
    return ColumnsInOrder(settings);
}

bool PlotsPlaneData(const FormatChoice& choice) {
    return choice.plotSecondary && choice.secondary != kNoSecondary
               ? choice.secondary == kSecondaryPlane
               : choice.primary == kPrimaryPlane;
}

bool CanPlotAs(const FormatChoice& choice, std::int16_t dataKind) {
    return dataKind != kPlanes || choice.primary != kDirections;
}

bool CanHaveSecondary(const FormatChoice& choice, std::int16_t secondary) {
    const bool isInPlane =
        secondary == kPitchInPlane || secondary == kTrendInPlane || secondary == kHadeInPlane;
    return !isInPlane || choice.primary == kPrimaryPlane;
}

void FollowPlotKind(FormatChoice& choice) {
    if (choice.kindIsStated && !CanPlotAs(choice, choice.plotDataKind)) {
        choice.plotDataKind = kNoDataKind;
    }
    if (!choice.kindIsStated) {
        choice.plotDataKind =
            PlotsPlaneData(choice) && CanPlotAs(choice, kPlanes) ? kPlanes : kLines;
    }
}

bool HasSavedColumns() {
    return !gPlatform.settings->Read(kApplicationName, kDataFormats, ColumnKey(0), {}).empty();
}

void LoadSavedColumns(FormatChoice& choice) {
    for (std::size_t slot = 0; slot < choice.columns.size(); ++slot) {
        const double column = SavedNumber(ColumnKey(slot), static_cast<double>(slot));
        choice.columns[slot] = static_cast<std::int32_t>(std::clamp(column, 0.0, kLastColumn));
    }
    const double secondary = SavedNumber(kSecondaryTypeKey, kNoSecondary);
    choice.secondary =
        static_cast<std::int16_t>(std::clamp<double>(secondary, kNoSecondary, kHadeInPlane));
    choice.lineAppended = SavedTruth(kLineAppendedKey);
    choice.numericAppended = SavedTruth(kNumericAppendedKey);
    choice.nonNumericAppended = SavedTruth(kNonNumericAppendedKey);
}

bool SaveFormatSettings(bool columns, bool conventions, bool names) {
    const bool savedConventions = !conventions || SaveSettings(SettingsGroup::Conventions);
    const bool savedColumns = !columns || SaveSettings(SettingsGroup::Columns);
    const bool savedNames = !names || SaveSettings(SettingsGroup::Names);
    return savedConventions && savedColumns && savedNames;
}

std::array<int, 2> SymbolRowsOf(const FormatQuestion& question) {
    if (!JoinsRows(question)) {
        return {kRowSymbol, kUpRowSymbol};
    }
    const PlotRecord& record = ActiveRecord();
    std::int32_t overlay = record.OverlayRows[kOverlayCount];
    if (question.command == kOverlayCommand) {
        // On the second question the overlay exists already and has this file.
        const auto& files = record.OverlayFiles[static_cast<std::size_t>(overlay)];
        const bool isOpen = overlay > 0 && !files.empty() && files.back() == question.path;
        overlay += isOpen ? 0 : 1;
    }
    if (overlay > 0) {
        return {kFirstOverlaySymbol + overlay % kOverlaySymbols,
                kFirstOverlaySymbol + (overlay + 1) % kOverlaySymbols};
    }
    if (!record.AxesTitle.empty()) {
        return {kDerivedSymbol, kDerivedUpSymbol};
    }
    return {kRowSymbol, kUpRowSymbol};
}

SymbolRow FirstSymbol(int row) {
    return StartStyles().symbols.at(static_cast<std::size_t>(row));
}

std::string NameOfDelimiter(const std::string& delimiter) {
    const auto* const found =
        std::find_if(kDelimiters.begin(), kDelimiters.end(),
                     [&](const DelimiterName& entry) { return entry.delimiter == delimiter; });
    return found != kDelimiters.end() ? found->name : delimiter;
}

} // namespace quandrel
