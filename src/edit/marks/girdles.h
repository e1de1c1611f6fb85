// SPDX-License-Identifier: MIT
//
// Girdles of a plot: the rules of the girdle panel, over the rows of AxisItems.
//
// Row 0 is the mean, rows 1 to 8 are the user's, rows 9 and 10 those of the statistics. A row
// holds: 0 shown, 1 its text, 2 and 3 plunge and trend of the pole in radians, 4 to 6 colour, draw
// style and draw width. Girdles set by text hold what the text says; those set with the mouse keep
// their pole in full, and their text tells it in whole degrees.

#pragma once

#include "core/plot_record.h"
#include "core/result.h"
#include "input/format_model.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quandrel {

/// The girdle that the mouse edits.
struct GirdleInWork {
    std::int16_t row = 0; ///< 1 to 8; 0 when there is none

    static GirdleInWork now;
};

inline constinit auto& gActiveGirdle = GirdleInWork::now.row;

inline constexpr const char* kGirdleHint = "<Shift>+Left or <Shift>+Right mousebutton to change "
                                           "orientation of active girdle";

inline constexpr const char* kGirdleHelpTitle = "To manually fit girdle";

/// What ParseGirdleText gives for a text that it cannot read.
inline constexpr const char* kGirdleError = "Error";

[[nodiscard]] constexpr bool IsUserGirdle(int row) {
    return row >= kFirstUserGirdle && row <= kLastUserGirdle;
}

/// A plane, radians.
struct GirdlePlane {
    double dip = 0;          ///< 0 to kPi/2
    double dipDirection = 0; ///< 0 to kTwoPi
};

/// Reads the text of a girdle.
///
/// The two parts of the text are read as the plane convention of `format` orders them. Where that
/// has a sense of dip and the text has none, they are dip and dip direction.
///
/// @param separator  of the two parts; where the text does not hold it, the first that it holds of
///                   "/", "\", "-" and "," parts them. May be empty
/// @param row        of the panel, for the message
/// @return a Failure with the message for the user
[[nodiscard]] Result<GirdlePlane> ReadGirdleText(std::string_view text, std::string_view separator,
                                                 const LineFormat& format, int row);

/// Reads a text in the conventions in force into a row of gActivePlot: its pole, and the style of
/// its kind of girdle. Tells the user what is wrong with it.
///
/// @return empty, or kGirdleError. Neither that nor an empty text changes the row
[[nodiscard]] std::string ParseGirdleText(const std::string& text, int row);

/// Copies the style of a row's kind of girdle into the row.
void CopyGirdleStyle(PlotRecord& record, int row);

/// Caption of a row's tick: "Mean S" and "Beta axis" of planes, "Mean equiv S" and "Girdle normal"
/// of other data, "Girdle 1" to "Girdle 8", "Mean arrow".
///
/// @param dataKind  DataKindCode of the plot
[[nodiscard]] std::string GirdleCaption(int row, std::int16_t dataKind);

// The panel. Everything below is about gActivePlot and does nothing when none is open. What changes
// a girdle draws the plot and its statistics anew.

/// What the row's text box shows.
[[nodiscard]] std::string GirdleText(int row);

/// True when the row's box is ticked, which it is while the mouse pulls its girdle.
[[nodiscard]] bool IsGirdleShown(int row);

/// The row's box gets the focus: a row of the user's becomes the active one. Others take no part.
void FocusGirdle(int row);

/// No row is active any more: the panel goes.
void LeaveGirdles();

/// Takes what was typed into the box of a row 1 to 8, on Enter or when the focus leaves it: a plane
/// is stored and shown, an empty text hides the girdle, one that cannot be read hides it and leaves
/// text and plane as they were. A text that is the row's own is not read again. Afterwards the box
/// shows GirdleText, the tick IsGirdleShown.
void UpdateGirdle(int row, const std::string& text);

/// Ticks or unticks a row.
/// @return false for a row without a girdle, which cannot be shown
bool ShowGirdle(int row, bool on);

/// Tells how girdles are set with the mouse, and puts the hint back into the information line.
void ShowGirdleHelp();

/// Draws gActivePlot and writes its statistics after a change of its girdles. A rose has none.
void RefreshGirdles();

} // namespace quandrel
