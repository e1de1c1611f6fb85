// SPDX-License-Identifier: MIT

#include "batch/field_rules.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/number_text.h"
#include "rose/rose_choices.h"
#include "stereo/axis_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <set>

namespace quandrel {

namespace {

constexpr double kAnyNumber = std::numeric_limits<double>::max();

/// The values that a script may give to a field.
struct FieldRange {
    double lowest = 0;
    double highest = 0;
};

/// Fields whose values are indices of tables, codes of procedures, or angles.
const std::map<std::string, FieldRange>& FieldRanges() {
    static const std::map<std::string, FieldRange> ranges = {
        {"PlotKind", {kEqualArea, kRose}},
        {"DataKind", {kPlanes, kPolarLines}},
        {"PrimaryFormat", {0, kPrimaryLine}},
        {"SecondaryFormat", {kNoSecondary, kHadeInPlane}},
        {"PlotFormulas", {kFormulasOfPreferences, kTextbookFormulas}},
        {"PlotSymbolMode", {kGreatCircles, kContoursAndGrid}},
        {"OverlayKind", {kOverlayGreatCircles, kOverlayPolarLines}},
        {"NumClasses", {0, 4}},
        {"ClassMode", {0, 3}},
        {"ClassWidth", {-kAnyNumber, kAnyNumber}},
        {"RoseShape", {0, 4}},
        {"RoseSectorSize", {1, 360}},
        {"RoseOddSectorSize", {0, 360}},
        {"RoseStartAngle", {-360, 360}},
        {"RoseSectorFraction", {1, 100}},
        {"RoseZeroCircle", {0, 90}},
        {"RoseBiasMode", {0, 3}},
        {"RoseSamplePlunge", {0, 90}},
        {"RoseSampleTrend", {0, 360}},
        {"RoseMinBiasAngle", {1, 90}},
        {"DensityMethod", {kDensityByCone, kDensityByKernel}},
        {"DensityK", {1, 1000}},
        {"KernelWidth", {0, 60}},
        {"DensityUnit", {kPerCentInConeUnit, kMultiplesUnit}},
        {"LevelRule", {kDoublingLevels, kLevelsByHand}},
        {"LevelStep", {0, kAnyNumber}},
        {"ContourPicture", {kContourLines, kLinesOverBands}},
        {"BandPalette", {0, 4}},
        {"BandOpacity", {0, 1}},
        {"RegionsAbout", {0, 7}},
        {"RegionsOf", {0, 7}},
        {"RegionLevel", {50, 99}},
        {"RegionMethod", {kRegionAutomatic, kRegionByBootstrap}},
        {"RegionResamples", {2000, 10000}},
        {"RegionSeed", {0, std::numeric_limits<std::int32_t>::max()}},
    };
    return ranges;
}

/// Fields with two states, which files store as 0 and -1.
bool IsTruth(const std::string& name) {
    static const std::set<std::string> names = {
        "ShowAnnotations", "HasFrequencyColumn", "ShowSecondary", "StatsBoxKind",
        "LayerVisible",    "RoseEqualArea",      "RoseDisplay6",  "RoseDisplay7",
        "RoseDisplay8",    "RoseHistStyle",      "RoseSegShape",  "ClassifyCheckPending",
        "UseDecimals",     "PaletteReversed",    "ShowEnvelope",  "ShowMaxima",
        "RegionDespite",   "RegionCloud"};
    return names.contains(name);
}

/// Fields that describe the rows and files; they follow from the loaded data.
bool KeepsAccount(const std::string& name) {
    static const std::set<std::string> names = {
        "NumData",         "NumValidData",      "NumLoadedData",      "NumFiles",
        "OverlayRows",     "SlotFree",          "SelectedOverlay",    "NumContours",
        "KinematicState",  "IntersectionState", "GridSize",           "DensityCount",
        "GridDensityMax",  "PointDensityMax",   "NumClassified",      "NumSymbolsInPlot",
        "DistinctValues",  "AppendedMin",       "AppendedMax",        "HasAppendedLine",
        "HasAppendedText", "DataFull",          "HasAppendedNumeric", "MapInfoLinked",
        "RowsChanged",     "PlotDirty",         "DensityInvalid",     "RotationState"};
    return names.contains(name);
}

/// Fields that are calculated from the rows when the plot is drawn.
bool IsResult(const std::string& name) {
    static const std::set<std::string> names = {
        "ClassStats",   "ContourLevels", "EigenResults",   "FabricResults", "FabricValueA",
        "FabricValueB", "FabricValueC",  "FabricValueD",   "FabricValueE",  "FabricValueF",
        "RoseRangeA",   "RoseRangeB",    "RoseStats",      "RoseMedian",    "RoseMeanDev",
        "RoseMoments",  "RoseResultant", "RoseDispersion", "RoseKappa",     "RoseSkewness",
        "RoseKurtosis", "RoseMeanDir",   "RoseVariance",   "RoseStdDev",    "BetaCount"};
    return names.contains(name);
}

/// An index as in the name of a field.
std::string IndexText(std::size_t index) {
    return "[" + std::to_string(index) + "]";
}

/// Rows of AxisItems that belong to the statistics.
bool IsStatisticalItem(const std::string& field) {
    return std::ranges::any_of(
        std::array<std::size_t, 3>{kMeanItem, kMeanPlaneItem, kGirdleItem},
        [&field](std::size_t item) { return field.starts_with("AxisItems" + IndexText(item)); });
}

/// True for the cells of such a row that the user may set: visibility and style.
bool IsStyleOfItem(const std::string& field) {
    return std::ranges::any_of(
        std::array{kItemShown, kItemColour, kItemDrawStyle, kItemDrawWidth},
        [&field](AxisItemColumn cell) { return field.ends_with("]" + IndexText(cell)); });
}

/// "tick" or "circ", followed by "auto" or an interval.
bool IsScale(const std::string& value) {
    const std::string marks = value.substr(0, 4);
    const std::string interval = value.size() > 4 ? value.substr(4) : "";
    return (marks == "tick" || marks == "circ") && (interval == "auto" || ReadNumber(interval));
}

std::string NoValue(const std::string& value, const std::string& name, const std::string& wanted) {
    return "'" + value + "' is not a value of " + name + (wanted.empty() ? "" : ": " + wanted);
}

/// Why a number is not a valid RoseType of the plot: its kind and classes require a column that the
/// rows do not have.
std::string RefusalOfRoseType(std::optional<double> number, const std::string& value) {
    const int type = number ? static_cast<int>(std::clamp(*number, -1.0, 100.0)) : -1;
    RoseSettings settings;
    settings.kind = RoseKindOf(type);
    settings.classes = RoseClassOf(type);
    if (number != type || type < 0 || settings.classes > kRoseByType
        || settings.kind > kRoseValueOverMean) {
        return NoValue(value, "RoseType", "a kind from 0 to 8, and 10 or 20 more with classes");
    }
    const RoseChoices choices = ChoicesOfRose(RoseSettings(), ActiveRecord());
    std::string_view reason = choices.kinds[static_cast<std::size_t>(settings.kind)];
    if (reason.empty()) {
        reason = choices.classes[static_cast<std::size_t>(settings.classes)];
    }
    return reason.empty() ? std::string() : NoValue(value, "RoseType", std::string(reason));
}

} // namespace

std::string RefusalOfField(const std::string& field, const std::string& value) {
    const std::string name = field.substr(0, field.find('['));
    if (KeepsAccount(name)) {
        return "'" + name + "' follows from the rows and cannot be set";
    }
    if (IsResult(name) || (IsStatisticalItem(field) && !IsStyleOfItem(field))) {
        return "'" + field + "' is computed when the plot is drawn and cannot be set";
    }
    const std::optional<double> number = ReadNumber(value);
    if (IsTruth(name) && number != 0 && number != 1 && number != kTrue) {
        return NoValue(value, name, "0 or -1");
    }
    if (name == "RoseScaleType" && !IsScale(value)) {
        return NoValue(value, name, "tickauto, circauto, or a number after tick or circ");
    }
    if (name == "RoseType") {
        return RefusalOfRoseType(number, value);
    }
    const auto range = FieldRanges().find(name);
    if (range != FieldRanges().end()
        && (!number || *number < range->second.lowest || *number > range->second.highest)) {
        return NoValue(value, name, "");
    }
    if (name == "ShowSecondary" && number && *number != 0
        && ActiveRecord().SecondaryFormat == kNoSecondary) {
        return "the plot holds no secondary set";
    }
    if (name == "PlotSymbolMode" && MixesAxes(ActiveRecord(), static_cast<int>(*number))) {
        return kMixedAxesRefusal;
    }
    if (name == "PlotKind" && MixesAxesAsRose(ActiveRecord(), static_cast<int>(*number))) {
        return kMixedRoseRefusal;
    }
    return {};
}

bool IsEditOfPlot(const std::string& name) {
    static const std::set<std::string> edits = {
        "DescriptionText", "FabricText",        "AppNumName",         "AppNonNumName",
        "PlotTitle",       "AxisItems",         "ClassTable",         "ClassStats",
        "ClassLow",        "ClassHigh",         "ClassWidth",         "ClassMode",
        "NumClasses",      "RoseShape",         "RoseType",           "RoseEqualArea",
        "RoseSectorSize",  "RoseOddSectorSize", "RoseStartAngle",     "RoseScaleType",
        "RoseHistStyle",   "RoseSegShape",      "RoseSectorFraction", "RoseZeroCircle",
        "RoseBiasMode",    "RoseSamplePlunge",  "RoseSampleTrend",    "RoseMinBiasAngle"};
    return edits.contains(name);
}

bool MovesRows(const std::string& field) {
    return field == "PlotKind" || field == "DataKind" || field == "ShowSecondary"
           || field == "UseDecimals" || field == "PlotFormulas" || field == "PrimaryFormat"
           || field == "SecondaryFormat" || field.starts_with("OverlayKind");
}

} // namespace quandrel
