// SPDX-License-Identifier: MIT

#include "edit/commands/selection_shapes.h"

#include "core/plot_store.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotations.h"
#include "edit/selection/marquee.h"
#include "edit/selection/net_line.h"
#include "orientation/projection.h"
#include "stereo/great_circles.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

namespace quandrel {

namespace {

/// Radius of the rings of selected rows: plot units, or logical pixels where these are more.
constexpr double kRingRadius = 16;
constexpr double kRingRadiusPixels = 6;
constexpr double kDiscRadius = 8;
constexpr double kDiscPixels = 3;
constexpr double kRingPixels = 2;
constexpr double kHaloPixels = 1.5;
constexpr std::size_t kMostRings = 50; ///< more places are filled

constexpr double kHandleHalfSize = 3; ///< logical pixels
constexpr int kMarqueeColour = 5;

Point Shifted(Point at, Point offset) {
    return {at.x + offset.x, at.y + offset.y};
}

/// A circle with a radius in plot units around a marker's position.
Glyph CircleGlyph(GlyphPart::Ink ink, double radius) {
    GlyphPart circle;
    circle.kind = GlyphPart::Kind::Circle;
    circle.ink = ink;
    circle.points = {{0, 0}};
    circle.radius = radius;
    // Equal names must mean equal parts.
    return {(ink == GlyphPart::Ink::Filled ? "selection disc " : "selection ring ")
                + std::to_string(radius),
            {circle}};
}

/// Draws marks with a halo, so that they are visible on any background.
void DrawWithHalo(Surface& surface, const Glyph& glyph, std::span<const Point> places,
                  Colour highlight) {
    const SavedState saved(surface);
    DrawState state;
    state.drawWidth = kRingPixels + 2 * kHaloPixels;
    surface.SetState(state);
    surface.Markers(glyph, kWhite, places);
    state.drawWidth = kRingPixels;
    surface.SetState(state);
    surface.Markers(glyph, highlight, places);
}

/// Draws the great circles with poles at some positions, in the present state of the surface.
void DrawCirclesOfPoles(Surface& surface, int plotKind, std::span<const Point> poles,
                        Colour colour) {
    for (const Point& pole : poles) {
        double plunge = 0;
        double trend = 0;
        UnprojectPosition(plotKind, pole.x, pole.y, plunge, trend);
        DrawGreatCircle(surface, GreatCircleArc(plotKind, plunge, trend), colour);
    }
}

DrawState MarqueeState() {
    DrawState state;
    state.drawMode = kDrawNotXor;
    state.drawStyle = kDashedLine;
    state.drawWidth = 1;
    return state;
}

void DrawHandle(Surface& surface, Point at, double halfSize, Colour colour) {
    const Point pixel = surface.PixelSize();
    surface.FilledBox({at.x - halfSize * pixel.x, at.y + halfSize * pixel.y},
                      {at.x + halfSize * pixel.x, at.y - halfSize * pixel.y}, colour);
}

void DrawHandles(Surface& surface, Point offset, Colour highlight) {
    const SavedState saved(surface);
    surface.SetState({});
    for (const Point& corner : CornersOfMarquee()) {
        DrawHandle(surface, Shifted(corner, offset), kHandleHalfSize, highlight);
    }
}

} // namespace

void DrawMarquee(Surface& surface, Point corner, Point opposite) {
    const SavedState saved(surface);
    surface.SetState(MarqueeState());
    surface.Box(corner, opposite, TableColour(kMarqueeColour));
}

void DrawRings(Surface& surface, std::vector<Point> places, Point offset, Colour highlight) {
    if (places.empty()) {
        return;
    }
    for (Point& at : places) {
        const Point to = Shifted(at, offset);
        at = IsOnNet(to.x, to.y) ? to : at;
    }
    const bool isFilled = places.size() > kMostRings;
    const double pixels = isFilled ? kDiscPixels : kRingRadiusPixels;
    const double radius =
        std::max(isFilled ? kDiscRadius : kRingRadius, pixels * surface.PixelSize().x);
    const Glyph glyph =
        CircleGlyph(isFilled ? GlyphPart::Ink::Filled : GlyphPart::Ink::Outline, radius);
    DrawWithHalo(surface, glyph, places, highlight);
}

void DrawArcs(Surface& surface, int plotKind, std::vector<Point> poles, Point offset,
              Colour highlight) {
    if (poles.empty()) {
        return;
    }
    for (Point& at : poles) {
        const Point to = Shifted(at, offset);
        at = IsOnNet(to.x, to.y) ? to : at;
    }
    const SavedState saved(surface);
    DrawState state;
    state.fillStyle = kNoFill;
    if (poles.size() <= kMostRings) {
        state.drawWidth = kRingPixels + 2 * kHaloPixels;
        surface.SetState(state);
        DrawCirclesOfPoles(surface, plotKind, poles, kWhite);
    }
    state.drawWidth = kRingPixels;
    surface.SetState(state);
    DrawCirclesOfPoles(surface, plotKind, poles, highlight);
}

void DrawHandlesOfMarks(Surface& surface, Point offset, Colour highlight) {
    const SavedState saved(surface);
    surface.SetState({});
    const auto draw = [&](std::int16_t x, std::int16_t y) {
        const Point at = Shifted({static_cast<double>(x), static_cast<double>(y)}, offset);
        DrawHandle(surface, at, kHandleHalfSize + kHaloPixels, kWhite);
        DrawHandle(surface, at, kHandleHalfSize, highlight);
    };
    const std::span<const Annotation> annotations = AnnotationsOf(gActivePlot);
    for (const std::size_t member : SelectedAnnotations()) {
        const Annotation& annotation = annotations[member];
        draw(annotation.X, annotation.Y);
        if (!annotation.LineNodes.empty()) {
            draw(annotation.LineNodes.back().X, annotation.LineNodes.back().Y);
        }
    }
}

void DrawLasso(Surface& surface, std::vector<Point> corners, Point offset) {
    for (Point& at : corners) {
        at = Shifted(at, offset);
    }
    corners.push_back(corners.front());
    const SavedState saved(surface);
    surface.SetState(MarqueeState());
    surface.Polyline(corners, TableColour(kMarqueeColour));
}

void DrawStandingMarquee(Surface& surface, Point offset, Colour highlight) {
    if (!Selection::now.lasso.empty()) {
        DrawLasso(surface, Selection::now.lasso, offset);
        return;
    }
    const std::array<Point, 4> corners = CornersOfMarquee();
    DrawMarquee(surface, Shifted(corners[0], offset), Shifted(corners[2], offset));
    DrawHandles(surface, offset, highlight);
}

} // namespace quandrel
