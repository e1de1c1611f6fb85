// SPDX-License-Identifier: MIT

#include "density/density_legend.h"
#include "density/density_levels.h"
#include "density/density_look.h"
#include "density/draw_density.h"
#include "drawing/figure_legend_maker.h"
#include "drawing/layer_list.h"
#include "drawing/layer_results.h"
#include "orientation/number_text.h"
#include "stereo/row_positions.h"
#include "stereo/shown_layers.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

/// A great density has fewer decimals.
std::string TextOfDensity(double value) {
    constexpr double kSmall = 1;
    return FormatNumber(value, value < kSmall ? "0.00" : "0.0");
}

bool IsField(const FigureLayer& layer) {
    return layer.LayerShow >= kShowGridSymbols && layer.LayerShow <= kShowContours;
}

/// Whether a plot shows densities of several data.
bool ComparesDensities(const PlotRecord& record) {
    const auto isOther = [](const FigureLayer& layer) {
        return layer.LayerHidden == 0 && layer.LayerOf != kLayerOfMainRows && IsField(layer);
    };
    return std::ranges::any_of(record.Layers, isOther) && ShowsDensities(record);
}

/// The contours of a look, one for each level.
std::vector<LineLook> LinesOfLook(const Drawing& drawing, const DensityLook& look) {
    std::vector<LineLook> lines;
    for (std::size_t level = 0; level < look.levels.size(); ++level) {
        lines.push_back(LookOfContour(drawing.plot, drawing, look, static_cast<int>(level)));
    }
    return lines;
}

bool AreAlike(const std::vector<LineLook>& lines) {
    return std::ranges::all_of(lines, [&lines](const LineLook& line) {
        return line.colour == lines.front().colour
               && line.state.drawStyle == lines.front().state.drawStyle
               && line.state.drawWidth == lines.front().state.drawWidth;
    });
}

} // namespace

std::string WithSmallFirst(std::string text) {
    if (!text.empty() && text.front() >= 'A' && text.front() <= 'Z') {
        text.front() = static_cast<char>(text.front() - 'A' + 'a');
    }
    return text;
}

/// The unit and the greatest density, after the name of the data where there are several.
std::string LegendMaker::TitleOfDensity(DensityUnit unit, double most, bool isBar) const {
    const std::string words = isBar ? WithSmallFirst(NameOfUnit(unit)) : NameOfUnit(unit);
    const std::string maximum = kMaximaText + TextOfDensity(most);
    if (!layer_->LayerName.empty()) {
        return layer_->LayerName + maximum;
    }
    std::string name = NameOfLayerData(plot_, *layer_);
    if (name.empty() && ComparesDensities(record_)) {
        name = !record_.FabricText.empty() ? record_.FabricText
               : rows_.arePoles            ? kPlanesText
                                           : kLinesText;
    }
    return name.empty() ? words + maximum : name + ": " + WithSmallFirst(words) + maximum;
}

/// Levels as lines or symbols, below a title; filled bands are a bar, which says the levels of
/// their contours as well.
void LegendMaker::AddDensities() {
    const PlotDensity* const density = DensityOfLayer(plot_, *layer_);
    const bool isMain = layer_->LayerOf == kLayerOfMainRows;
    if (density == nullptr) {
        if (isMain && !std::exchange(hasCounts_, true)) {
            AddCountLevels();
        }
        return;
    }
    if (layer_->LayerShow == kShowBands) {
        AddBar(*density);
    } else if (!ShowsDataAs(record_, *layer_, kShowBands)) {
        AddFieldLevels(*density, titled_.insert({layer_->LayerOf, layer_->LayerIndex}).second);
    }
}

/// The counts of the main rows in the cone, for symbols and contours.
void LegendMaker::AddCountLevels() {
    const bool arePoints = ShowsMainRowsAs(record_, kShowBandSymbols);
    FigureEntry title;
    title.text =
        TitleOfDensity(DensityUnit::PerCentInCone,
                       arePoints ? record_.PointDensityMax : record_.GridDensityMax, false);
    Add(std::move(title));
    int level = 0;
    for (const LegendLine& line : BandLegendLines(plot_, drawing_.styles)) {
        if (line.sample == LegendSample::Symbol) {
            AddTableLine(line);
        } else if (line.sample == LegendSample::Line) {
            AddLine(
                LookOfCountContour(drawing_.plot, drawing_, record_, level++, record_.NumContours),
                std::string(WithoutBlanks(line.text)));
        }
    }
}

/// One line for contours that look alike: "Overlay 1: 2, 4, 6 multiples of uniform, max 7.1".
void LegendMaker::AddContourLine(const PlotDensity& density, const DensityLook& look,
                                 LineLook line) {
    std::string levels;
    for (const double level : look.levels) {
        levels += (levels.empty() ? "" : ", ") + FormatNumber(level, "0.####");
    }
    const std::string name = NameOfLayerData(plot_, *layer_);
    const std::string noun = Named(name.empty() ? std::string(kContoursText) : name);
    AddLine(std::move(line), noun + ": " + levels + " " + WithSmallFirst(NameOfUnit(density.Unit()))
                                 + kMaximaText + TextOfDensity(density.Greatest().value));
}

void LegendMaker::AddFieldLevels(const PlotDensity& density, bool hasTitle) {
    const DensityLook look = LookOfDensity(record_, drawing_, density);
    if (look.levels.empty()) {
        return;
    }
    const bool areLines = layer_->LayerShow == kShowContours;
    const std::vector<LineLook> lines = LinesOfLook(drawing_, look);
    if (areLines && lines.size() > 1 && AreAlike(lines)) {
        AddContourLine(density, look, lines.front());
        return;
    }
    if (hasTitle) {
        FigureEntry title;
        title.text = TitleOfDensity(density.Unit(), density.Greatest().value, false);
        Add(std::move(title));
    }
    for (std::size_t level = 0; level < look.levels.size(); ++level) {
        const std::string text = "> " + TextInUnit(look.levels[level], density.Unit());
        if (areLines) {
            AddLine(lines[level], text);
            continue;
        }
        FigureEntry entry;
        entry.sign =
            layer_->LayerShow == kShowBandSymbols ? FigureSign::Rows : FigureSign::TableSymbol;
        entry.code = CodeOfLevels(drawing_.styles, static_cast<int>(level) + 1);
        entry.rows = record_.NumValidData;
        entry.text = text;
        Add(std::move(entry));
    }
}

void LegendMaker::AddBar(const PlotDensity& density) {
    DensityLook look = LookOfDensity(record_, drawing_, density);
    if (look.levels.empty()) {
        return;
    }
    FigureBar bar;
    bar.colours = std::move(look.bands);
    for (const double level : look.levels) {
        bar.numbers.push_back(FormatNumber(level, "0.####"));
    }
    bar.opacity = look.opacity;
    bar.title = TitleOfDensity(density.Unit(), density.Greatest().value, true);
    bar.layer = *layer_;
    bars_.push_back(std::move(bar));
}

} // namespace quandrel
