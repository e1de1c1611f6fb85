// SPDX-License-Identifier: MIT

#include "density/density_look.h"

#include "density/contours.h"
#include "density/density_levels.h"
#include "density/palettes.h"
#include "stereo/shown_layers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quandrel {

namespace {

const FigureLayer& LayerOf(const Drawing& drawing) {
    static const FigureLayer mainRows;
    return drawing.layer != nullptr ? *drawing.layer : mainRows;
}

/// The steps of a layer: its own, or those of the bands of the same data.
int StepsOfLayer(const PlotRecord& record, const FigureLayer& layer) {
    if (layer.LayerSteps != kAsStyle) {
        return layer.LayerSteps;
    }
    const auto isBands = [&layer](const FigureLayer& other) {
        return other.LayerOf == layer.LayerOf && other.LayerIndex == layer.LayerIndex
               && other.LayerShow == kShowBands && other.LayerHidden == 0;
    };
    const auto bands = std::ranges::find_if(record.Layers, isBands);
    return bands != record.Layers.end() ? bands->LayerSteps : kAsStyle;
}

/// From nearly white to a colour.
Colour StepTo(Colour colour, int level, int levels) {
    const double share = (level + 1.0) / levels;
    const auto mixed = [share](std::uint8_t part) {
        constexpr double kWhitePart = 255;
        return static_cast<std::uint8_t>(
            std::lround(std::lerp(kWhitePart, static_cast<double>(part), share)));
    };
    return {mixed(colour.red), mixed(colour.green), mixed(colour.blue)};
}

/// The view of a plot with the palette in force: of the layer, of the plot, or of the style.
RecordDensityView ViewInForce(const PlotRecord& record, const Drawing& drawing) {
    const FigureLayer& layer = LayerOf(drawing);
    RecordDensityView view = record;
    if (layer.LayerPalette != kAsStyle) {
        view.BandPalette = layer.LayerPalette;
    } else if (view.BandPalette == 0) {
        view.BandPalette = static_cast<std::int16_t>(FigureOf(drawing).bands.palette);
    }
    return view;
}

/// The colour of a line on white: from the darker half of a palette.
Colour ColourOfLine(const RecordDensityView& view, int level, int levels) {
    constexpr double kPalest = 0.5;
    const double along = levels > 1 ? static_cast<double>(level) / (levels - 1) : 1;
    const double share = std::lerp(kPalest, 1.0, std::clamp(along, 0.0, 1.0));
    const auto palette = static_cast<Palette>(view.BandPalette - 1);
    return ColourOfLab(PalettePlace(palette, view.PaletteReversed != 0 ? 1 - share : share));
}

std::vector<Colour> ColoursOfBands(const RecordDensityView& view, const Drawing& drawing,
                                   int levels) {
    const FigureLayer& layer = LayerOf(drawing);
    const bool hasRamp = layer.LayerColour != kColourOfStyle && layer.LayerPalette == kAsStyle;
    std::vector<Colour> colours;
    colours.reserve(static_cast<std::size_t>(levels));
    for (int level = 0; level < levels; ++level) {
        colours.push_back(
            hasRamp ? StepTo(ColourFromValue(static_cast<std::uint32_t>(layer.LayerColour)), level,
                             levels)
                    : ColourOfBand(drawing.styles, view, level, levels));
    }
    return colours;
}

/// The look of a contour in the style of its level, without the properties of the layer.
LineLook LookOfContourStyle(const Surface& surface, const Drawing& drawing,
                            const RecordDensityView& view, int level, int levels) {
    static const Styles start = StartStyles();
    const AxisStyle style = ContourStyleOf(drawing.styles, level);
    LineLook line{surface.State(), TableColour(drawing.styles, style[kStyleColour])};
    line.state.widthInPoints = FigureOf(drawing).lines.contourWidth;
    line.state.drawStyle = style[kStyleLine];
    line.state.drawWidth = style[kStyleWidth];
    const bool hasPalette = FigureOf(drawing).bands.palette != 0 && view.BandPalette != 0;
    if (hasPalette && style == ContourStyleOf(start, level)) {
        line.colour = ColourOfLine(view, level, levels);
    }
    return line;
}

} // namespace

Colour ColourOfBand(const Styles& styles, const RecordDensityView& view, int level, int levels) {
    if (view.BandPalette == 0) {
        return TableColour(styles, ContourStyleOf(styles, level)[kStyleColour]);
    }
    const int steps = std::clamp(levels, kLeastPaletteSteps, kMostPaletteSteps);
    const int step = levels <= steps ? level : level * (steps - 1) / (levels - 1);
    return PaletteColour(static_cast<Palette>(view.BandPalette - 1), step, steps,
                         view.PaletteReversed != 0 ? PaletteOrder::Reversed
                                                   : PaletteOrder::Forward);
}

std::vector<double> OwnLevelsOf(const PlotRecord& record, const FigureStyle& figure,
                                const FigureLayer& layer, const PlotDensity& density) {
    int steps = StepsOfLayer(record, layer);
    if (steps == kAsStyle && record.LevelRule == kDoublingLevels
        && ShowsDataAs(record, layer, kShowBands)) {
        steps = figure.bands.steps;
    }
    return steps > 0 ? LevelsInBands(density.Greatest().value, std::min(steps, kMostLevels))
                     : std::vector<double>();
}

DensityLook LookOfDensity(const PlotRecord& record, const Drawing& drawing,
                          const PlotDensity& density) {
    const FigureLayer& layer = LayerOf(drawing);
    DensityLook look;
    look.areLinesOfBands = ShowsDataAs(record, layer, kShowBands);
    look.levels = OwnLevelsOf(record, FigureOf(drawing), layer, density);
    look.hasOwnLevels = !look.levels.empty();
    if (!look.hasOwnLevels) {
        look.levels.assign(density.Levels().begin(), density.Levels().end());
    }
    look.view = ViewInForce(record, drawing);
    look.bands = ColoursOfBands(look.view, drawing, static_cast<int>(look.levels.size()));
    look.hasOwnPalette = layer.LayerPalette != kAsStyle;
    look.opacity = layer.LayerOpacity != kAsStyle ? layer.LayerOpacity : record.BandOpacity;
    return look;
}

LookContours::LookContours(const PlotDensity& density, const DensityLook& look)
    : all_(density.Contours()) {
    if (!look.hasOwnLevels) {
        return;
    }
    if (const auto* kept = density.KeptAt(look.levels)) {
        all_ = *kept;
    } else {
        own_ = density.ContoursAt(look.levels);
        all_ = own_;
    }
}

LineLook LookOfContour(const Surface& surface, const Drawing& drawing, const DensityLook& look,
                       int level) {
    const LineStyle& lines = FigureOf(drawing).lines;
    LineLook line = LookOfContourStyle(surface, drawing, look.view, level,
                                       static_cast<int>(look.levels.size()));
    if (look.hasOwnPalette) {
        line.colour = look.bands.at(static_cast<std::size_t>(level));
    } else if (look.areLinesOfBands) {
        line.colour = lines.contourWidth > 0 ? lines.contour : AxesColour(drawing);
    }
    TakeLayer(drawing.layer, line);
    return line;
}

LineLook LookOfCountContour(const Surface& surface, const Drawing& drawing,
                            const PlotRecord& record, int level, int levels) {
    LineLook line =
        LookOfContourStyle(surface, drawing, ViewInForce(record, drawing), level, levels);
    TakeLayer(drawing.layer, line);
    return line;
}

} // namespace quandrel
