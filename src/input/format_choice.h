// SPDX-License-Identifier: MIT
//
// The rules of the data format dialog: what it lets the user choose, what follows from a choice,
// and what is asked before a choice is accepted. No rule needs a window.
//
// Columns are counted from 0 as in gFileColumnSettings; texts for the user count them from 1.

#pragma once

#include "core/data_format.h"
#include "core/style_tables.h"
#include "input/format_model.h"
#include "platform/prompts.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// The command with which the dialog opens when no file is being loaded.
inline constexpr const char* kNoLoadCommand = "None";

/// No kind of plot is chosen.
inline constexpr std::int16_t kNoDataKind = 0;

/// All that the dialog lets the user choose.
struct FormatChoice {
    std::int16_t primary = kPrimaryPlane;  ///< PrimaryFormatCode, never 0
    std::int16_t secondary = kNoSecondary; ///< SecondaryFormatCode
    int planeConvention = kDipDipDirection;
    bool lineIsTrendFirst = false;
    bool isQuadrant = false;
    NegativePlunge negativePlunge = NegativePlunge::LowerEnd;
    CommentMarks comments;
    bool pairsInCells = false;
    std::string delimiter = "\t"; ///< empty is any
    std::string planeSeparator = "/";
    std::string lineSeparator = "-";
    bool lineAppended = false;
    bool numericAppended = false;
    bool nonNumericAppended = false;
    bool numberIsFrequency = false;
    std::string numericName = "value";
    std::string nonNumericName = "type";
    ColumnSettings columns = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    PlaceColumns placeColumns;
    std::int16_t plotDataKind = kNoDataKind; ///< DataKindCode, or kNoDataKind
    bool kindIsStated = false; ///< by the file or the user; otherwise it follows from the format
    bool plotSecondary = false;
    bool columnHeadings = false;
    bool hasOverlays = false; ///< the rows go to a plot with overlays, which cannot hold directions
};

/// The choice that the dialog opens with: the format in force, changed by what the question says.
/// The kind of plot is that of the file's parameter line, or else that of the format. Rows that
/// join others show the same set as those.
[[nodiscard]] FormatChoice ChoiceOf(const FormatQuestion& question);

/// True when the rows join others, which settles the set that is plotted.
[[nodiscard]] bool JoinsRows(const FormatQuestion& question);

/// The convention code: the plane convention, plus 10 for lines as trend, plunge, negative for
/// quadrant notation. Inverse: DecodeConventions, but for the line order of a quadrant code.
[[nodiscard]] std::int16_t ConventionCode(const FormatChoice& choice);

/// The settings with the choice in them. Without a kind of plot that of the settings stays.
[[nodiscard]] FormatSettings SettingsOf(const FormatChoice& choice, FormatSettings settings);

/// Puts the choice into the globals of the format. Without a kind of plot the present one stays.
void SetGlobalSettings(const FormatChoice& choice);

/// The format as the line parser takes it.
[[nodiscard]] LineFormat LineFormatOf(const FormatChoice& choice);

/// Which of the ten columns the choice needs.
[[nodiscard]] std::array<bool, kColumnSlots> ColumnsInUse(const FormatChoice& choice);

/// What the ten columns hold: "dip", "direction", "strike", "sense", "plunge", "trend", "hade",
/// "pitch" or "rake", "number", "text". Unused columns have the names that they would have.
[[nodiscard]] std::array<std::string, kColumnSlots> ColumnNames(const FormatChoice& choice);

/// The same, preceded by the set where there are two: "2nd plunge", "axis trend".
[[nodiscard]] std::array<std::string, kColumnSlots> LongColumnNames(const FormatChoice& choice);

/// The columns of a line whose values are in the order of the format, starting at the first column.
[[nodiscard]] ColumnSettings InitialColumns(const FormatChoice& choice);

/// Adapts the columns to a format that has changed.
///
/// @param before         the choice before the change
/// @param[in,out] after  with the columns of before
///
/// Columns in order stay in order. When the user has set columns by hand, the two of a pair whose
/// order has been reversed swap places, and new items take the next free columns after those of
/// their own orientation, or else of the primary one.
void FollowFormat(const FormatChoice& before, FormatChoice& after);

/// True for the plot of a set of planes: the primary set, or the secondary one when it is plotted.
[[nodiscard]] bool PlotsPlaneData(const FormatChoice& choice);

/// True when the data can be plotted as that kind: directions cannot be planes.
[[nodiscard]] bool CanPlotAs(const FormatChoice& choice, std::int16_t dataKind);

/// True when a secondary format can go with the primary one: angles in the primary plane need
/// planes.
[[nodiscard]] bool CanHaveSecondary(const FormatChoice& choice, std::int16_t secondary);

/// Sets the kind of plot by the set that is plotted, unless a kind was stated; drops a stated kind
/// that is not possible.
void FollowPlotKind(FormatChoice& choice);

/// A fault of the columns, or a possible one.
struct ColumnProblem {
    std::string text;
    Buttons buttons = Buttons::Ok; ///< Ok: must be corrected. OkCancel: OK accepts it
    int slot = 0;                  ///< the selector to go back to
};

/// All that is wrong or unusual in the columns, in the order in which it is reported.
[[nodiscard]] std::vector<ColumnProblem> ColumnProblems(const FormatChoice& choice);

/// The question to ask when the kind of plot does not fit the data, or none is chosen. Nothing when
/// it fits.
[[nodiscard]] std::optional<std::string> PlotTypeQuestion(const FormatChoice& choice);

/// True when column settings have been saved before.
[[nodiscard]] bool HasSavedColumns();

/// Takes the saved column settings: the ten columns, the secondary format, which values are
/// appended.
void LoadSavedColumns(FormatChoice& choice);

/// Saves those of the three groups of settings that are chosen, from the globals.
/// @return false when a group could not be written
[[nodiscard]] bool SaveFormatSettings(bool columns, bool conventions, bool names);

/// Rows of gSymbolTable for the new rows: downward, upward.
[[nodiscard]] std::array<int, 2> SymbolRowsOf(const FormatQuestion& question);

/// A row of gSymbolTable as it is at the first start.
[[nodiscard]] SymbolRow FirstSymbol(int row);

/// An entry of the list of delimiters.
struct DelimiterName {
    const char* name;
    const char* delimiter;
};

inline constexpr std::array<DelimiterName, 5> kDelimiters = {
    {{"tab", "\t"}, {"space", " "}, {",", ","}, {";", ";"}, {"any", ""}}};

/// The list's name for a delimiter; a delimiter that is not in the list is its own name.
[[nodiscard]] std::string NameOfDelimiter(const std::string& delimiter);

inline constexpr std::array<const char*, 4> kOutputSeparators = {"-", "/", "\\", ","};

/// Suggested names for the number and the text of a row.
inline constexpr std::array<const char*, 15> kNumberNames = {
    "length",         "thickness",    "width",    "vein width", "assay", "Mean wind frequency",
    "Raw wind speed", "speed",        "size",     "grainsize",  "depth", "depth in hole",
    "distance",       "aspect ratio", "weighting"};
inline constexpr std::array<const char*, 7> kTextNames = {
    "type", "Mean wind speed", "season", "unit", "rockType", "fault Type", "subarea"};

} // namespace quandrel
