// SPDX-License-Identifier: MIT

#include "statistics/draw_regions.h"

#include "orientation/projection.h"
#include "statistics/fabric_kernels.h"
#include "statistics/plot_regions.h"
#include "stereo/figure_lines.h"
#include "stereo/sphere_trace.h"

#include <span>
#include <vector>

namespace quandrel {

namespace {

constexpr double kLeastLength = 0.5; ///< below it, a resample has no centre

const Glyph& Pixel() {
    static const Glyph pixel = {"pixel of a cloud",
                                {{GlyphPart::Kind::Pixel, GlyphPart::Ink::Filled, {{0, 0}}, 0}}};
    return pixel;
}

void DrawCloud(Surface& surface, int plotKind, std::span<const Direction> centres, Colour colour) {
    std::vector<Point> points;
    points.reserve(centres.size());
    for (const Direction& centre : centres) {
        if (LengthOf(centre) > kLeastLength) {
            const NetPosition at = PositionOfDirection(plotKind, centre);
            points.push_back({at.x, at.y});
        }
    }
    surface.Markers(Pixel(), colour, points);
}

void DrawOutline(Surface& surface, int plotKind, std::span<const Direction> outline,
                 Colour colour) {
    for (const std::vector<Point>& line : TraceOnNet(plotKind, outline)) {
        surface.Polyline(line, colour);
    }
}

} // namespace

LineLook LookOfRegion(const Drawing& drawing) {
    const double points = FigureOf(drawing).lines.regionWidth;
    LineLook look = LookOfAxisStyle(drawing.plot, drawing, kSmallCircleStyle, points);
    if (points > 0 && look.state.drawStyle == kSolidLine) {
        look.state.drawStyle = kDashedLine;
    }
    return look;
}

void DrawRegions(const Plot& plot, const Drawing& drawing) {
    const PlotRecord& record = plot.record;
    Surface& surface = drawing.plot;
    const LineLook look = LookOfRegion(drawing);
    const Colour colour = look.colour;
    const NamedGroup group(surface, "regions", "Confidence regions");
    if (record.RegionCloud != 0) {
        for (const PlotRegion& region : RegionsOfPlot(plot)) {
            if (IsShown(record, region)) {
                DrawCloud(surface, record.PlotKind, region.chosen->resampled.centres, colour);
            }
        }
    }
    const SavedState saved(surface);
    surface.SetState(look.state);
    for (const PlotRegion& region : RegionsOfPlot(plot)) {
        if (!IsShown(record, region)) {
            continue;
        }
        const ConfidenceRegion& values = region.chosen->region;
        DrawOutline(surface, record.PlotKind, RegionOutline(values, kRegionSides), colour);
        if (region.target == RegionTarget::GirdlePole) {
            // The second edge is opposite the first, where the net shows it anyway.
            DrawOutline(surface, record.PlotKind, GirdleBand(values, kRegionSides)[0], colour);
        }
    }
}

} // namespace quandrel
