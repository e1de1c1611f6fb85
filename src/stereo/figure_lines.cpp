// SPDX-License-Identifier: MIT

#include "stereo/figure_lines.h"

#include <algorithm>

namespace quandrel {

LineLook LookOfLine(const Surface& surface, const Drawing& drawing, const AxisStyle& style,
                    const AxisStyle& start, double points, Colour accent) {
    LineLook look{surface.State(), TableColour(drawing.styles, style[kStyleColour])};
    look.state.drawStyle = style[kStyleLine];
    look.state.drawWidth = style[kStyleWidth];
    if (points > 0) {
        const double startWidth = std::max<double>(start[kStyleWidth], 1);
        look.state.widthInPoints = points * std::max<double>(style[kStyleWidth], 1) / startWidth;
        if (style == start) {
            look.colour = accent;
        }
    }
    TakeLayer(drawing.layer, look);
    return look;
}

void TakeLayer(const FigureLayer* layer, LineLook& look) {
    if (layer == nullptr) {
        return;
    }
    if (layer->LayerColour != kColourOfStyle) {
        look.colour = ColourFromValue(static_cast<std::uint32_t>(layer->LayerColour));
    }
    if (layer->LayerWidth != kAsStyle) {
        look.state.widthInPoints = layer->LayerWidth;
    }
    if (layer->LayerLine != kAsStyle) {
        look.state.drawStyle = layer->LayerLine;
    }
    if (layer->LayerOpacity != kAsStyle) {
        look.state.lineOpacity = layer->LayerOpacity;
    }
}

LineLook LookOfAxisStyle(const Surface& surface, const Drawing& drawing, AxisStyleRow row,
                         double points) {
    static const Styles start = StartStyles();
    const auto place = static_cast<std::size_t>(row);
    return LookOfLine(surface, drawing, drawing.styles.axes[place], start.axes[place], points,
                      FigureOf(drawing).lines.accent);
}

void SetWidthInPoints(Surface& surface, double points) {
    if (points > 0) {
        DrawState state = surface.State();
        state.widthInPoints = points;
        surface.SetState(state);
    }
}

} // namespace quandrel
