// SPDX-License-Identifier: MIT

#include "classify/class_legend.h"
#include "core/data_format.h"
#include "drawing/figure_legend_maker.h"
#include "drawing/layer_results.h"
#include "drawing/legend.h"
#include "orientation/number_text.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"
#include "stereo/row_sense.h"
#include "stereo/symbols.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

std::string WithCount(const std::string& noun, std::int64_t rows) {
    return noun + kCountText + std::to_string(rows);
}

/// The name of data after other words. Names that the user gave are kept.
std::string NameInText(const Plot& plot, const FigureLayer& layer) {
    std::string name = NameOfLayerData(plot, layer);
    const bool isOurs =
        layer.LayerOf == kLayerOfSelection || layer.LayerOf == kLayerOfSecondaryRows;
    return isOurs ? WithSmallFirst(std::move(name)) : name;
}

} // namespace

/// Rows by the sense of their lines: each sense has a sign of its own.
void LegendMaker::AddRows(const std::string& noun) {
    const auto [down, up] = DrawnRowsOf(plot_, drawing_.styles, *layer_, rows_);
    if (!record_.AxesTitle.empty() && (down.count == 0 || up.count == 0)) {
        // The sign of the plunge of P and T axes says which they are.
        const DrawnRows& rows = down.count > 0 ? down : up;
        if (rows.count > 0) {
            AddSymbol(rows, WithCount(noun, rows.count));
        }
        return;
    }
    if (down.count > 0) {
        AddSymbol(down, WithCount(noun + (up.count > 0 ? kDownText : ""), down.count));
    }
    if (up.count > 0) {
        AddSymbol(up, WithCount(noun + kUpText, up.count));
    }
}

void LegendMaker::AddCircles(const std::string& noun) {
    const DrawnRows rows = DrawnRowsOf(plot_, drawing_.styles, *layer_, rows_).All();
    if (rows.count == 0) {
        return;
    }
    AddLine({StateOfRowCircles(plot_, drawing_, SetOf(plot_, rows_)),
             ColourOfRows(drawing_, rows.code)},
            WithCount(noun, rows.count));
}

void LegendMaker::AddKinematicAxes() {
    DrawnRows shortening;
    DrawnRows extension;
    for (std::int32_t row = 1; row <= record_.NumData; ++row) {
        const SymbolCode code = CodeShown(plot_, drawing_.styles, row);
        if (OrientationShown(plot_, row).dip != kErrorRow && CodeSymbol(code) != 0) {
            const bool isShortening =
                AxisOfRow(plot_, drawing_.styles, row) == AxisKind::Shortening;
            (isShortening ? shortening : extension).Add(row, code);
        }
    }
    if (shortening.count > 0) {
        AddSymbol(shortening, WithCount(kShorteningText, shortening.count));
    }
    if (extension.count > 0) {
        AddSymbol(extension, WithCount(kExtensionText, extension.count));
    }
}

/// A line of the legends of windows: classes and levels.
void LegendMaker::AddTableLine(const LegendLine& line) {
    const Styles& styles = drawing_.styles;
    FigureEntry entry;
    entry.text = std::string(WithoutBlanks(line.text));
    switch (line.sample) {
    case LegendSample::Symbol:
        entry.sign = layer_->LayerShow == kShowGridSymbols || layer_->LayerShow == kShowGridValues
                         ? FigureSign::TableSymbol
                         : FigureSign::Rows;
        entry.code = line.code;
        entry.rows = record_.NumValidData;
        break;
    case LegendSample::GreatCircle:
    case LegendSample::Line:
        entry.sign = FigureSign::Line;
        entry.line.colour = line.sample == LegendSample::Line
                                ? TableColour(styles, CodeColour(line.code))
                                : ColourOfRows(drawing_, line.code);
        if (line.sample == LegendSample::Line) {
            entry.line.state.drawStyle = CodeSymbol(line.code);
            entry.line.state.drawWidth = CodeSize(line.code);
            entry.line.state.widthInPoints = FigureOf(drawing_).lines.contourWidth;
        } else {
            entry.line.state.widthInPoints = FigureOf(drawing_).lines.circleWidth;
        }
        TakeLayer(layer_, entry.line);
        break;
    default:
        break;
    }
    Add(std::move(entry));
}

void LegendMaker::AddClasses() {
    if (std::exchange(hasClasses_, true)) {
        return;
    }
    for (const LegendLine& line : ClassLegendLines(plot_, drawing_.styles)) {
        AddTableLine(line);
    }
}

/// Main rows as symbols, poles or great circles.
void LegendMaker::AddMainRows() {
    const bool arePoles = rows_.arePoles;
    const std::string& fabric = record_.FabricText;
    if (record_.ClassMode > 0) {
        AddClasses();
    } else if (!record_.AxesTitle.empty()) {
        AddKinematicAxes();
    } else if (layer_->LayerShow == kShowGreatCircles) {
        const std::string planes = fabric.empty() ? kPlanesText : fabric;
        AddCircles(Named(arePoles ? planes : kNormalPlanesText));
    } else if (arePoles) {
        AddRows(Named(fabric.empty() ? kPolesText : kPolesToText + fabric));
    } else {
        const char* const noun = record_.DataKind == kPolarLines ? kPolarLinesText : kLinesText;
        AddRows(Named(fabric.empty() ? noun : fabric));
    }
}

/// Rows of other data as symbols, poles or great circles.
void LegendMaker::AddOtherRows() {
    const std::string name = NameOfLayerData(plot_, *layer_);
    if (layer_->LayerShow == kShowGreatCircles) {
        AddCircles(Named(rows_.arePoles ? name : kPlanesNormalToText + NameInText(plot_, *layer_)));
    } else if (layer_->LayerShow == kShowPoles && rows_.arePoles) {
        AddRows(Named(kPolesToText + NameInText(plot_, *layer_)));
    } else {
        AddRows(Named(name));
    }
}

void LegendMaker::AddIntersections() {
    DrawnRows rows;
    std::string noun = kIntersectionsText;
    if (layer_->LayerOf == kLayerOfMainRows) {
        rows.count = record_.BetaCount;
        rows.code = CodeOfStyleRow(drawing_.styles, kRowSymbol);
    } else {
        rows = DrawnRowsOf(plot_, drawing_.styles, *layer_, rows_).All();
        rows.count = IntersectionsOfLayer(plot_, drawing_.styles, *layer_, drawing_.watcher)->count;
        noun = kIntersectionsOfText + NameInText(plot_, *layer_);
    }
    if (rows.count > 0) {
        AddSymbol(rows, WithCount(Named(noun), rows.count));
    }
}

/// The rows that have an arrow.
void LegendMaker::AddSlipArrows() {
    const SlipArrows arrows = ArrowsOfLayer(plot_, *layer_);
    const RowSet set = SetOf(plot_, rows_);
    DrawnRows drawn;
    for (std::size_t place = 0; place < set.table->size(); ++place) {
        const std::int32_t row = set.table->index[place];
        if (row < set.range.first || row > set.range.last) {
            continue;
        }
        const SymbolCode code = CodeInSet(plot_, drawing_.styles, set, row);
        if (CodeSymbol(code) != 0 && std::isfinite(arrows.azimuth(row))) {
            drawn.Add(row, code);
        }
    }
    if (drawn.count == 0) {
        return;
    }
    std::string noun = arrows.haveHeads ? kSlipText : kSlipLinesText;
    if (const std::string name = NameOfLayerData(plot_, *layer_);
        !name.empty() && layer_->LayerOf != kLayerOfSecondaryRows) {
        noun = name + ": " + WithSmallFirst(noun);
    }
    AddSymbol(drawn, WithCount(Named(noun), drawn.count), FigureSign::Arrow);
    entries_.back().hasHead = arrows.haveHeads;
}

} // namespace quandrel
