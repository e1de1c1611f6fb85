// SPDX-License-Identifier: MIT
//
// Pens, texts and markers of the diagrams of a fabric plot, in points.

#pragma once

#include "fabric/fabric_points.h"
#include "fabric/label_places.h"
#include "platform/surface.h"

#include <span>
#include <string>
#include <string_view>

namespace quandrel {

inline constexpr double kLabelPoints = 7; ///< of tick labels, numbers and the legend
inline constexpr double kTitlePoints = 8; ///< of axes and corners

/// From the centre of a marker to its edge.
inline constexpr double kMarkerReach = 2.6;

inline constexpr Colour kGridGrey{190, 190, 190};
inline constexpr Colour kLineGrey{120, 120, 120};

struct FabricPen {
    double width = 0.4;
    Colour colour = kBlack;
    int style = kSolidLine;
};

inline constexpr FabricPen kFramePen{0.7, kBlack, kSolidLine};
inline constexpr FabricPen kTickPen{0.5, kBlack, kSolidLine};

/// Where a text's box is about its anchor: 0 is left or bottom, 0.5 the centre, 1 right or top.
struct TextAnchor {
    double across = 0.5;
    double up = 0.5;
};

/// A surface in points, with the state of the diagrams. The state is restored at the end.
class FabricCanvas {
public:
    /// Gives the surface user units of points, (0, 0) at the lower left corner.
    explicit FabricCanvas(Surface& surface);

    [[nodiscard]] double Width() const { return width_; }

    [[nodiscard]] double Height() const { return height_; }

    void Line(Point from, Point to, const FabricPen& pen);
    void Polygon(std::span<const Point> points, const FabricPen& pen);

    /// Size of a text, as a box with its anchor at a position.
    [[nodiscard]] LabelBox BoxOf(std::string_view text, Point at, TextAnchor anchor,
                                 double points = kLabelPoints);
    [[nodiscard]] double TextHeight(double points);

    /// Writes a text into its box.
    void Write(const LabelBox& box, std::string_view text, double points = kLabelPoints,
               Colour colour = kBlack);

    /// The same on white, so that lines do not run through it.
    void WriteOnWhite(const LabelBox& box, std::string_view text, Colour colour = kBlack);

    /// A text as long as fits into a width.
    [[nodiscard]] std::string Cut(const std::string& text, double width);

    /// The symbol of a fabric.
    void Marker(Point at, const FabricPoint& point);

private:
    void UseFont(double points, Colour colour);

    Surface& surface_;
    SavedState saved_;
    double width_ = 0;
    double height_ = 0;
};

/// Marks fabrics at their places. Each has its number from `numbers` beside it, away from other
/// markers, numbers and the boxes in `labels`; a number that finds no place is left out.
///
/// @param at       the place of each fabric
/// @param numbers  of the fabrics, or empty for none
void DrawFabricMarkers(FabricCanvas& canvas, LabelPlaces& labels,
                       std::span<const FabricPoint* const> points, std::span<const Point> at,
                       std::span<const int> numbers);

/// Keeps the places of markers free of labels.
void TakeMarkers(LabelPlaces& labels, std::span<const Point> at);

/// The fabrics of a picture with their numbers in its legend.
struct NumberedFabrics {
    std::vector<const FabricPoint*> points;
    std::vector<int> numbers; ///< of each, or empty for a single one
};

/// Draws the diagram of log ratios with its axes, lines of shape K and strength C into a box.
/// Fabrics without a place in it are left out.
void DrawLogRatios(FabricCanvas& canvas, const LabelBox& box, const NumberedFabrics& fabrics);

/// Draws the triangle of shares into a box: point at the upper left, girdle at the upper right,
/// random at the bottom.
void DrawShares(FabricCanvas& canvas, const LabelBox& box, const NumberedFabrics& fabrics);

} // namespace quandrel
