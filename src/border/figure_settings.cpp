// SPDX-License-Identifier: MIT

#include "border/figure_settings.h"

#include "border/border.h"
#include "border/density_view.h"
#include "density/density_levels.h"
#include "drawing/layer_list.h"
#include "statistics/region_form.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace quandrel::api {

namespace {

constexpr double kLargestSize = 100;

std::int32_t ColourIn(const std::optional<Colour>& colour) {
    return colour ? colour->red | colour->green << 8 | colour->blue << 16 : kColourOfStyle;
}

std::optional<Colour> ColourOut(std::int32_t colour) {
    if (colour == kColourOfStyle) {
        return std::nullopt;
    }
    const auto channel = [colour](int shift) {
        return static_cast<std::uint8_t>(colour >> shift & 0xff);
    };
    return Colour{channel(0), channel(8), channel(16)};
}

/// The shortest text that is read as the same number.
std::string ShortestText(double number) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

template <class Value>
double NumberIn(const std::optional<Value>& value, double most, const char* name) {
    return value ? Within(static_cast<double>(*value), 0, most, name) : kAsStyle;
}

template <class Value>
std::int16_t CodeIn(const std::optional<Value>& value, int least, int most, const char* name) {
    return value ? static_cast<std::int16_t>(Within(static_cast<int>(*value), least, most, name))
                 : kAsStyle;
}

template <class Value, class Kept>
std::optional<Value> SetOut(Kept kept) {
    return kept == kAsStyle ? std::nullopt : std::optional(static_cast<Value>(kept));
}

} // namespace

quandrel::FigureLayer LayerIn(const quandrel::Plot& plot, const FigureLayer& layer) {
    const std::optional<quandrel::FigureLayer> of = DataOfWord(layer.data);
    const std::optional<std::int16_t> show = ShowOfWord(layer.shown);
    if (!of || !show) {
        throw std::invalid_argument("'" + (of ? layer.shown : layer.data) + "' is not "
                                    + (of ? "a way to show data" : "data"));
    }
    quandrel::FigureLayer in = *of;
    in.LayerShow = *show;
    if (!IsPossible(plot, in)) {
        throw std::invalid_argument(layer.data + " cannot be shown as " + layer.shown);
    }
    in.LayerHidden = layer.isHidden ? kTrue : std::int16_t{0};
    in.LayerName = layer.name;
    in.LayerColour = ColourIn(layer.colour);
    in.LayerOpacity = NumberIn(layer.opacity, 1, "opacity");
    in.LayerSymbol = CodeIn(layer.symbol, 0, 99, "symbol");
    in.LayerSize = NumberIn(layer.size, kLargestSize, "size");
    in.LayerWidth = NumberIn(layer.width, kLargestSize, "width");
    in.LayerLine = CodeIn(layer.line, 0, static_cast<int>(Dash::kNone), "line");
    in.LayerPalette = CodeIn(layer.palette, 0, kBandPalettes - 1, "palette");
    in.LayerSteps = CodeIn(layer.steps, 1, kMostLevels, "steps");
    in.LayerLabels = CodeIn(layer.hasLabels, 0, 1, "labels");
    if (!IsValid(in)) {
        throw std::invalid_argument("a property of a layer is beyond its limits");
    }
    return in;
}

FigureLayer LayerOut(const quandrel::FigureLayer& layer) {
    FigureLayer out;
    out.data = WordOfData(layer);
    out.shown = WordOfShow(layer.LayerShow);
    out.isHidden = layer.LayerHidden != 0;
    out.name = layer.LayerName;
    out.colour = ColourOut(layer.LayerColour);
    out.opacity = SetOut<double>(layer.LayerOpacity);
    out.symbol = SetOut<int>(layer.LayerSymbol);
    out.size = SetOut<double>(layer.LayerSize);
    out.width = SetOut<double>(layer.LayerWidth);
    out.line = SetOut<Dash>(layer.LayerLine);
    out.palette = SetOut<int>(layer.LayerPalette);
    out.steps = SetOut<int>(layer.LayerSteps);
    out.hasLabels = SetOut<bool>(layer.LayerLabels);
    return out;
}

RecordDensityView DensitiesIn(const FigureDensities& densities, RecordDensityView view) {
    const RecordDensityView chosen = ViewIn(densities.choice);
    view.DensityMethod = chosen.DensityMethod;
    view.DensityK = chosen.DensityK;
    view.KernelWidth = chosen.KernelWidth;
    view.DensityUnit = chosen.DensityUnit;
    view.LevelRule = densities.levels.empty() ? kDoublingLevels : kLevelsByHand;
    view.LevelsByHand.clear();
    for (const double level : densities.levels) {
        view.LevelsByHand += (view.LevelsByHand.empty() ? "" : ", ") + ShortestText(level);
    }
    if (!densities.levels.empty() && !LevelsOfText(view.LevelsByHand)) {
        throw std::invalid_argument("levels are not up to 24 numbers above 0");
    }
    view.ShowEnvelope = densities.showsEnvelope ? kTrue : std::int16_t{0};
    view.ShowMaxima = densities.showsMaxima ? kTrue : std::int16_t{0};
    return view;
}

RecordRegions RegionsIn(const FigureRegions& regions, RecordRegions choice) {
    choice.RegionsAbout = 0;
    for (const RegionAbout about : regions.about) {
        choice.RegionsAbout =
            static_cast<std::int16_t>(choice.RegionsAbout | static_cast<int>(about));
    }
    choice.RegionMethod = static_cast<std::int16_t>(regions.method);
    choice.RegionLevel = static_cast<std::int16_t>(Within(regions.level, 50, 99, "level"));
    choice.RegionsOf = static_cast<std::int16_t>(
        kRegionsOfPlot | (regions.ofOverlays ? int{kRegionsOfOverlays} : 0));
    choice.RegionDespite = regions.showsRefused ? kTrue : std::int16_t{0};
    if (!HasMethod(choice.RegionsAbout, choice.RegionMethod)) {
        throw std::invalid_argument("none of the regions can be computed by this method");
    }
    return choice;
}

} // namespace quandrel::api
