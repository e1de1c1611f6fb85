// SPDX-License-Identifier: MIT
//
// Girdles of a plot: the rules of the girdle panel for the rows of AxisItems.
//
// Row 0 is the mean, rows 1 to 8 are the user's, rows 9 and 10 are those of the statistics. The
// columns of a row are: 0 whether it is shown, 1 its text, 2 and 3 plunge and trend of the pole in
// radians, 4 to 6 colour, draw style and draw width. A girdle set by text has the values of the
// text. A girdle set with the mouse keeps its pole in full precision, and its text has whole
// degrees.

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
    std::int16_t row = 0; ///< 1 to 8; 0 if there is none

    static GirdleInWork now;
};

inline constexpr const char* kGirdleHint = "<Shift>+Left or <Shift>+Right mousebutton to change "
                                           "orientation of active girdle";

inline constexpr const char* kGirdleHelpTitle = "To manually fit girdle";

/// The result of ParseGirdleText for an invalid text.
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
/// The two parts of the text are in the order of the plane convention of `format`. If the
/// convention has a sense of dip but the text does not, they are dip and dip direction.
///
/// @param separator  of the two parts; if the text does not contain it, the first of "/", "\", "-"
///                   and "," in the text separates them. May be empty
/// @param row        of the panel, for the message
/// @return a Failure with the message for the user
[[nodiscard]] Result<GirdlePlane> ReadGirdleText(std::string_view text, std::string_view separator,
                                                 const LineFormat& format, int row);

/// Reads a text in the current conventions into a row of gActivePlot: its pole, and the style of
/// its kind of girdle. Shows the user what is wrong with an invalid text.
///
/// @return empty, or kGirdleError. Neither an invalid nor an empty text changes the row
[[nodiscard]] std::string ParseGirdleText(const std::string& text, int row);

/// Copies the style of a row's kind of girdle into the row.
void CopyGirdleStyle(PlotRecord& record, int row);

/// Caption of a row's check box: "Mean S" and "Beta axis" of planes, "Mean equiv S" and "Girdle
/// normal" of other data, "Girdle 1" to "Girdle 8", "Mean arrow".
///
/// @param dataKind  DataKindCode of the plot
[[nodiscard]] std::string GirdleCaption(int row, std::int16_t dataKind);

// The panel. All functions below act on gActivePlot and do nothing if no plot is open. A change of
// a girdle redraws the plot and updates its statistics.

/// The contents of the row's text box.
[[nodiscard]] std::string GirdleText(int row);

/// True if the row's box is checked, which includes the time while the mouse pulls its girdle.
[[nodiscard]] bool IsGirdleShown(int row);

/// The row's box receives the focus: one of the user's rows becomes active. Other rows are ignored.
void FocusGirdle(int row);

/// Deactivates the active row, because the panel closes.
void LeaveGirdles();

/// Reads the typed text of row 1 to 8, on Enter or when its box loses the focus: a plane is stored
/// and shown, an empty text hides the girdle, and an invalid text hides it without changing the
/// stored text and plane. An unchanged text is not read again. Afterwards the box shows GirdleText,
/// and the check box IsGirdleShown.
void UpdateGirdle(int row, const std::string& text);

/// Checks or unchecks a row.
/// @return false for a row without a girdle, which cannot be shown
bool ShowGirdle(int row, bool on);

/// Shows how to set girdles with the mouse, or restores the hint on the information line.
void ShowGirdleHelp();

/// Redraws gActivePlot and its statistics after a change of its girdles. Roses have no girdles.
void RefreshGirdles();

} // namespace quandrel
