// SPDX-License-Identifier: MIT

#include "rose/figure_rose.h"

#include "orientation/angles.h"
#include "rose/figure_rose_fills.h"
#include "rose/figure_rose_mean.h"
#include "rose/figure_rose_scale.h"
#include "rose/rose_furniture.h"
#include "rose/rose_radii.h"
#include "rose/rose_tables.h"
#include "rose/wedge_shapes.h"

#include <algorithm>
#include <span>
#include <vector>

namespace quandrel {

namespace {

/// Draws what a shape of rose shows of a wedge, from an inner radius outward.
void DrawWedge(Surface& surface, const RoseWedge& wedge, double innerRadius, int shape,
               Colour outline) {
    for (const RoseWedge& part : PartsShown(wedge, shape)) {
        if (innerRadius > 0) {
            surface.Polygon(CornersOfRingPart(part, innerRadius), outline);
        } else if (part.start == part.end) {
            surface.Circle({}, part.radius, outline);
        } else {
            surface.Wedge({}, part.radius, part.start, part.end, outline);
        }
    }
}

/// The outlines of the layers below the top one, which may cover them.
void DrawLowerOutlines(const Plot& plot, const Drawing& drawing, double zero) {
    DrawState state = drawing.plot.State();
    state.fillStyle = kNoFill;
    drawing.plot.SetState(state);
    for (const RoseWedge& wedge : RoseOf(plot).wedges) {
        if (wedge.layer > 0) {
            DrawWedge(drawing.plot, wedge, zero, plot.record.RoseShape,
                      OutlineOfPetals(drawing.styles));
        }
    }
}

void DrawZeroCircle(const Plot& plot, const Drawing& drawing, double zero) {
    const int shape = plot.record.RoseShape;
    const Colour outline = OutlineOfPetals(drawing.styles);
    if (zero < 1) {
        return;
    }
    if (IsHalfRose(shape)) {
        const RoseArc arc = ShownArc(shape);
        drawing.plot.Arc({}, zero, arc.start, arc.end, outline);
    } else {
        drawing.plot.Circle({}, zero, outline);
    }
}

} // namespace

void DrawFigurePetals(const Plot& plot, const Drawing& drawing) {
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    const double zero = ZeroRadiusOfRose(plot.record);
    const Colour outline = OutlineOfPetals(drawing.styles);
    const std::span<const RoseWedge> wedges = RoseOf(plot).wedges;
    for (std::size_t first = 0; first < wedges.size();) {
        std::size_t end = first; // of the layer
        while (end < wedges.size() && wedges[end].layer == wedges[first].layer) {
            ++end;
        }
        const std::span<const RoseWedge> layer = wedges.subspan(first, end - first);
        for (std::size_t i = 0; i < layer.size(); ++i) {
            UseFill(surface, drawing, FillOfFigureWedge(plot.record, drawing, layer[i]));
            const double inner = layer[i].classNumber == 0 ? zero : InnerRadiusOf(layer, i, zero);
            DrawWedge(surface, layer[i], inner, plot.record.RoseShape, outline);
        }
        first = end;
    }
    DrawLowerOutlines(plot, drawing, zero);
    DrawZeroCircle(plot, drawing, zero);
}

void DrawFigureRose(const Plot& plot, const Drawing& drawing, LabelRoom room) {
    if (!RoseOf(plot).isShown) {
        return;
    }
    {
        const NamedGroup group(drawing.plot, "petals", "Petals");
        DrawFigurePetals(plot, drawing);
    }
    {
        const NamedGroup group(drawing.plot, "scale", "Scale");
        DrawFigureCircles(plot, drawing);
        DrawFigureRim(plot, drawing, room);
    }
    {
        const NamedGroup group(drawing.plot, "mean", "Mean");
        DrawFigureMean(plot, drawing);
    }
    const NamedGroup group(drawing.plot, "scale-values", "Values of the scale");
    DrawFigureValues(plot, drawing);
}

} // namespace quandrel
