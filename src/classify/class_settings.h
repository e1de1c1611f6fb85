// SPDX-License-Identifier: MIT
//
// The classification dialog without its window: what it shows of the active plot, how its
// procedures fill limits and names, which choices are available, and what OK does.
//
// Settings are a copy: ApplyClassSettings writes them to the plot.

#pragma once

#include "classify/class_limits.h"
#include "classify/class_rule.h"
#include "classify/classification.h"
#include "core/class_stats.h"
#include "core/plot.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// What a plot classified by its appended numbers shows: NumClasses.
enum ClassPlotType : std::int16_t {
    kClassifiedPoints = 0,
    kGriddedValues = 1,
    kContouredGriddedValues = 2,
    kContoursWithGridPoints = 3,
    kContoursWithDataPoints = 4,
};

/// Ranges of a column of numbers, and the classes outside them.
struct ClassRanges {
    ClassLimits limits;
    bool keepLow = false;
    bool keepHigh = false;
};

struct ClassSettings {
    std::int16_t mode = kNotClassified;        ///< ClassModeCode
    std::int16_t plotType = kClassifiedPoints; ///< ClassPlotType, only for kClassesByNumber
    ClassRanges numbers;                       ///< for appended numbers
    ClassRanges textNumbers;                   ///< for texts read as numbers
    int types = 0;                             ///< names that are classes, 0 to kMostNames
    std::array<std::string, kMostNames> names;
    bool keepOthers = false;     ///< names that match none are a class
    bool treatAsNumeric = false; ///< texts are numbers; modes 2 and 3 decide
    bool caseSensitive = false;
    ClassGridValue gridValue = ClassGridValue::Mean;
    std::optional<double> background = 0; ///< of nodes without rows; without it contours end there
};

/// The settings of a plot. A plot that was never classified shows its lowest value as the lowest
/// limit. In the record, texts have one number of classes and one pair of flags; these appear in
/// both textNumbers and names.
[[nodiscard]] ClassSettings ClassSettingsOf(const Plot& plot);

/// The settings of gActivePlot.
[[nodiscard]] ClassSettings SettingsOfActivePlot();

/// A class table with the settings written into it. Cells without a setting keep their values.
[[nodiscard]] ClassTableCells TableOfSettings(const ClassSettings& settings,
                                              const ClassTableCells& former);

enum class RangeProcedure { EqualRanges, DeviationSplits, LastUsed, Custom };
enum class TypeProcedure { FirstFound, Ascending, Descending, LastUsed, Custom };

/// Captions of the procedures, in the order of their values.
inline constexpr std::array<std::string_view, 4> kRangeProcedures = {
    "Equal Ranges", "StdDev splits", "Last Used", "Custom!"};
inline constexpr std::array<std::string_view, 5> kTypeProcedures = {
    "First found", "Ascending", "Descending", "Last Used", "Custom!"};

/// Fills settings.numbers from the appended numbers of gActivePlot, or, when the settings show a
/// grid of values, from the values of its nodes: those of sums are far above the numbers. When data
/// points are shown too, the lowest and the highest number are included. LastUsed and Custom change
/// only the number of classes. A column without numbers gives 0 to 0.
///
/// @param classes  number of base classes, clamped to 1 to kMostRanges
/// @return empty, or the reason why nothing was changed
[[nodiscard]] std::string FillRanges(ClassSettings& settings, RangeProcedure procedure,
                                     int classes);

/// Fills names and settings.textNumbers from the appended texts of gActivePlot: the first eleven
/// different ones, sorted, then as many as there are classes. Ranges use those texts that are
/// numbers. LastUsed and Custom change only the number of classes.
///
/// @param classes  clamped to 1 to kMostNames
void FillTypes(ClassSettings& settings, TypeProcedure procedure, int classes);

/// The procedure that gives settings.numbers; nothing for limits that the user has set. O(rows), or
/// O(nodes^2) for a grid.
[[nodiscard]] std::optional<RangeProcedure> ProcedureOfRanges(const ClassSettings& settings);

/// How the limits of settings.numbers are shown: as deviations if that procedure made them.
[[nodiscard]] LimitForm LimitFormOf(const ClassSettings& settings);

/// LimitFormOf for a column of a plot, by its settings and the size of its grid.
[[nodiscard]] LimitForm LimitFormOf(const Plot& plot, ClassColumn column);

/// Sets the number of classes without moving a limit: the top stays the top.
void SetNumberOfRanges(ClassLimits& limits, int classes);

/// The limit that the user typed into a box. A box whose text is unchanged gives the held value in
/// full precision; an empty text, and one that is not a number, give nothing.
///
/// @param shown  the text that the box was given for `held`
[[nodiscard]] std::optional<double> LimitOfBox(std::string_view text, std::string_view shown,
                                               double held);

/// Which parts of the dialog can be used.
struct ClassChoices {
    bool byNumber = false; ///< the plot has appended numbers
    bool byType = false;   ///< it has appended texts
    bool ranges = false;   ///< limits and procedures of numbers
    bool types = false;    ///< names, or ranges of texts, and their procedures
    bool treatAsNumeric = false;
    bool caseSensitive = false;
    bool plotType = false;
    bool gridValues = false; ///< mean or cumulative
    bool background = false;
};

/// @param record  says which columns exist
[[nodiscard]] ClassChoices ChoicesOf(const ClassSettings& settings, const PlotRecord& record);

/// The OK of the dialog: writes the settings into gActivePlot, classifies its rows, redraws it, and
/// warns when hardly any number could be read.
///
/// @return empty, or the reason why the settings were refused; then nothing has changed
[[nodiscard]] std::string ApplyClassSettings(const ClassSettings& settings);

} // namespace quandrel
