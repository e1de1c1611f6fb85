// SPDX-License-Identifier: MIT
//
// Small circles of a plot: how they are read from their texts, drawn, and changed by the dialog.
//
// A plot has the user's sets 1 to 4. The texts of a set are degrees: plunge and azimuth of the axis
// and the angle about it. An axis has two ends, so that the cone about it has two parts: what
// points up is plotted by its other end, and an angle above 90 gives the same circle as 180 less
// it.

#pragma once

#include "core/plot_record.h"
#include "stereo/drawing.h"

#include <optional>
#include <string>

namespace quandrel {

inline constexpr int kUserCircles = 4;
inline constexpr int kTextsOfCircle = 3;
inline constexpr int kCircleBoxes = kUserCircles * kTextsOfCircle;

/// Steps of a drawn circle, as LastPlotSects keeps them.
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

/// What a box txtSmallCircle(1) to (12) holds.
[[nodiscard]] constexpr CirclePart PartOfCircleBox(int box) {
    return static_cast<CirclePart>((box - 1) % kTextsOfCircle);
}

/// A small circle as it is drawn, radians.
struct CircleCone {
    double plunge = 0; ///< of the axis, -kPi/2 to kPi/2
    double trend = 0;
    double halfAngle = 0; ///< 0 to kPi/2
};

/// The value of a text in radians: a plunge from -90 to 90, an azimuth from -360 to 360 or in
/// quadrant notation or as a compass name, an angle from 0 to 180. Nothing for other texts.
[[nodiscard]] std::optional<double> CircleValue(CirclePart part, const std::string& text);

/// What a box may hold, in words: "The angle has to be a number from 0 to 180."
[[nodiscard]] std::string CircleRule(CirclePart part);

/// The cone of a small circle, or nothing when one of its texts cannot be read.
[[nodiscard]] std::optional<CircleCone> ConeOfCircle(const SmallCircle& circle);

/// Draws a cone in the style, width and colour of a circle. One of angle 0 is a point.
void DrawSmallCircle(Surface& surface, const Styles& styles, int plotKind, const CircleCone& cone,
                     const SmallCircle& circle);

/// Notes the steps that the circles that are drawn have, LastPlotSects.
void NoteSmallCircles(PlotRecord& record);

/// Draws the small circles of a plot that are shown and can be read, and its confidence cone: the
/// whole stage of a drawing.
void DrawSmallCircles(const PlotRecord& record, const Drawing& drawing);

// The dialog. Everything below is about gActivePlot and does nothing when none is open; sets run
// from 1 to kUserCircles. A change draws the plot anew if it shows.

/// "Small Circles on: " and the title of the plot.
[[nodiscard]] std::string SmallCircleCaption();

/// The small circle of a set, or nothing while no plot is open. Not for changes.
[[nodiscard]] const SmallCircle* SmallCircleOfSet(int set);

/// True when the set is ticked.
[[nodiscard]] bool IsSmallCircleShown(int set);

/// Stores what stands in a box. A set with a text that cannot be read is not drawn.
void TypeCircleText(int set, CirclePart part, const std::string& text);

/// Ticks or unticks a set; its texts stay.
/// @return empty, or why it cannot be ticked: the rule of the first box that breaks its own
[[nodiscard]] std::string ShowSmallCircle(int set, bool on);

struct CircleStyle {
    int colour = 0;    ///< index of gColourTable
    int lineStyle = 0; ///< a DrawStyle
    int width = 1;     ///< logical pixels, 1 to kWidestCircle

    friend bool operator==(const CircleStyle&, const CircleStyle&) = default;
};

/// The style of a set, with values that cannot be drawn brought into their ranges.
[[nodiscard]] CircleStyle StyleOfSmallCircle(int set);

void StyleSmallCircle(int set, const CircleStyle& style);

} // namespace quandrel
