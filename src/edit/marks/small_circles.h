// SPDX-License-Identifier: MIT
//
// Small circles of a plot: reading their texts, drawing them, and changes by the dialog.
//
// A plot has the user's sets 1 to 4. The texts of a set are degrees: plunge and azimuth of the axis
// and the angle around it. An axis has two ends, so the cone has two parts: upward directions are
// plotted at their opposite ends, and an angle above 90 gives the same circle as 180 minus the
// angle.

#pragma once

#include "core/plot_record.h"
#include "stereo/drawing.h"
#include "stereo/figure_lines.h"

#include <optional>
#include <string>

namespace quandrel {

inline constexpr int kUserCircles = 4;
inline constexpr int kTextsOfCircle = 3;
inline constexpr int kCircleBoxes = kUserCircles * kTextsOfCircle;

/// The number of steps of a drawn circle, as in LastPlotSects.
inline constexpr std::int16_t kSmallCircleSectors = 360;

inline constexpr int kWidestCircle = 20; ///< logical pixels

inline constexpr const char* kSmallCircleHint =
    "Double click a box to activate it for input using mouse";
inline constexpr const char* kSmallCircleDialogHint =
    "Double click any box to activate that set for mouse input directly from the plot.";

/// The texts of a set, in the order of their boxes.
enum class CirclePart { kPlunge = 0, kAzimuth = 1, kAngle = 2 };

/// The set of a box txtSmallCircle(1) to (12).
[[nodiscard]] constexpr int SetOfCircleBox(int box) {
    return (box - 1) / kTextsOfCircle + 1;
}

/// The contents of a box txtSmallCircle(1) to (12).
[[nodiscard]] constexpr CirclePart PartOfCircleBox(int box) {
    return static_cast<CirclePart>((box - 1) % kTextsOfCircle);
}

/// A small circle for drawing, radians.
struct CircleCone {
    double plunge = 0; ///< of the axis, -kPi/2 to kPi/2
    double trend = 0;
    double halfAngle = 0; ///< 0 to kPi/2
};

/// The value of a text in radians: a plunge from -90 to 90, an azimuth from -360 to 360, in
/// quadrant notation or as a compass name, an angle from 0 to 180. Nothing for other texts.
[[nodiscard]] std::optional<double> CircleValue(CirclePart part, const std::string& text);

/// The rule for a box, in words: "The angle has to be a number from 0 to 180."
[[nodiscard]] std::string CircleRule(CirclePart part);

/// The cone of a small circle, or nothing if one of its texts is invalid.
[[nodiscard]] std::optional<CircleCone> ConeOfCircle(const SmallCircle& circle);

/// The look of the line of a circle. In a style of figures, a circle with the line of the start has
/// that of regions and is dashed.
///
/// @param surface  whose state is the basis
[[nodiscard]] LineLook LookOfSmallCircle(const Surface& surface, const Drawing& drawing,
                                         const SmallCircle& circle);

/// Draws a cone with the line of a circle. A cone with angle 0 is a point.
void DrawSmallCircle(Surface& surface, const Drawing& drawing, int plotKind, const CircleCone& cone,
                     const SmallCircle& circle);

/// Sets LastPlotSects to the number of steps of the drawn circles.
void NoteSmallCircles(PlotRecord& record);

/// Draws the visible small circles with valid texts, and the confidence cone, of a plot: the
/// complete stage of a drawing.
void DrawSmallCircles(const PlotRecord& record, const Drawing& drawing);

// The dialog. All functions below act on gActivePlot and do nothing if no plot is open; sets run
// from 1 to kUserCircles. A visible change redraws the plot.

/// "Small Circles on: " and the title of the plot.
[[nodiscard]] std::string SmallCircleCaption();

/// The small circle of a set, or nothing if no plot is open. Read-only.
[[nodiscard]] const SmallCircle* SmallCircleOfSet(int set);

/// True if the set is checked.
[[nodiscard]] bool IsSmallCircleShown(int set);

/// Stores the contents of a box. A set with an invalid text is not drawn.
void TypeCircleText(int set, CirclePart part, const std::string& text);

/// Checks or unchecks a set; its texts are kept.
/// @return empty, or why it cannot be checked: the rule of the first invalid box
[[nodiscard]] std::string ShowSmallCircle(int set, bool on);

struct CircleStyle {
    int colour = 0;    ///< index of gColourTable
    int lineStyle = 0; ///< a DrawStyle
    int width = 1;     ///< logical pixels, 1 to kWidestCircle

    friend bool operator==(const CircleStyle&, const CircleStyle&) = default;
};

/// The style of a set, with invalid values brought into range.
[[nodiscard]] CircleStyle StyleOfSmallCircle(int set);

void StyleSmallCircle(int set, const CircleStyle& style);

} // namespace quandrel
