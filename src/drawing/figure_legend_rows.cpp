// SPDX-License-Identifier: MIT

#include "classify/class_legend.h"
#include "core/data_format.h"
#include "core/overlay_names.h"
#include "drawing/figure_legend_maker.h"
#include "drawing/legend.h"
#include "orientation/number_text.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"
#include "stereo/row_sense.h"
#include "stereo/symbols.h"

#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

std::string WithCount(const std::string& noun, std::int64_t rows) {
    return noun + kCountText + std::to_string(rows);
}

} // namespace

/// Rows by the sense of their lines: each sense has a sign of its own.
void LegendMaker::AddRows(std::int32_t first, std::int32_t last, const std::string& noun) {
    RowsOfSign down;
    RowsOfSign up;
    for (std::int32_t row = first; row <= last; ++row) {
        const double dip = OrientationShown(plot_, row).dip;
        const SymbolCode code = CodeShown(plot_, drawing_.styles, row);
        if (dip != kErrorRow && CodeSymbol(code) != 0) {
            (dip < 0 ? up : down).Add(code);
        }
    }
    if (down.count > 0) {
        AddSymbol(down, WithCount(noun + (up.count > 0 ? kDownText : ""), down.count));
    }
    if (up.count > 0) {
        AddSymbol(up, WithCount(noun + kUpText, up.count));
    }
}

void LegendMaker::AddCircles(std::int32_t first, std::int32_t last, const std::string& noun) {
    RowsOfSign rows;
    for (std::int32_t row = first; row <= last; ++row) {
        const SymbolCode code = CodeShown(plot_, drawing_.styles, row);
        if (OrientationShown(plot_, row).dip != kErrorRow && CodeSymbol(code) != 0) {
            rows.Add(code);
        }
    }
    if (rows.count == 0) {
        return;
    }
    LineLook look{DrawState(), TableColour(drawing_.styles, CodeColour(rows.code))};
    look.state.widthInPoints = FigureOf(drawing_).lines.circleWidth;
    TakeLayer(layer_, look);
    AddLine(std::move(look), WithCount(noun, rows.count));
}

void LegendMaker::AddKinematicAxes() {
    RowsOfSign shortening;
    RowsOfSign extension;
    for (std::int32_t row = 1; row <= record_.NumData; ++row) {
        const SymbolCode code = CodeShown(plot_, drawing_.styles, row);
        if (OrientationShown(plot_, row).dip != kErrorRow && CodeSymbol(code) != 0) {
            const bool isShortening =
                AxisOfRow(plot_, drawing_.styles, row) == AxisKind::Shortening;
            (isShortening ? shortening : extension).Add(code);
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
        entry.line.colour = TableColour(styles, CodeColour(line.code));
        if (line.sample == LegendSample::Line) {
            entry.line.state.drawStyle = CodeSymbol(line.code);
            entry.line.state.drawWidth = CodeSize(line.code);
            entry.line.state.widthInPoints = FigureOf(drawing_).lines.contourWidth;
        } else {
            entry.line.state.widthInPoints = FigureOf(drawing_).lines.circleWidth;
        }
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

void LegendMaker::AddMainRows(LayerShowCode show) {
    const bool arePoles = IsPlottedAsPole(record_, 0);
    const std::string& fabric = record_.FabricText;
    if (show == kShowIntersections) {
        AddSymbol({CodeOfStyleRow(drawing_.styles, kRowSymbol), record_.BetaCount},
                  WithCount(Named(kIntersectionsText), record_.BetaCount));
    } else if (record_.ClassMode > 0) {
        AddClasses();
    } else if (!record_.AxesTitle.empty()) {
        AddKinematicAxes();
    } else if (show == kShowGreatCircles) {
        const std::string planes = fabric.empty() ? kPlanesText : fabric;
        AddCircles(1, record_.NumData, Named(arePoles ? planes : kNormalPlanesText));
    } else if (arePoles) {
        AddRows(1, record_.NumData, Named(fabric.empty() ? kPolesText : kPolesToText + fabric));
    } else {
        const char* const noun = record_.DataKind == kPolarLines ? kPolarLinesText : kLinesText;
        AddRows(1, record_.NumData, Named(fabric.empty() ? noun : fabric));
    }
}

void LegendMaker::AddOverlay() {
    const auto k = static_cast<std::size_t>(layer_->LayerIndex);
    if (layer_->LayerIndex > record_.OverlayRows[kOverlayCount]) {
        return;
    }
    const std::int32_t first = FirstRowOfOverlay(record_, layer_->LayerIndex);
    const std::int32_t last = first + record_.OverlayRows[k] - 1;
    const std::string noun = Named(NameOfOverlay(record_, layer_->LayerIndex));
    if (layer_->LayerShow == kShowGreatCircles) {
        AddCircles(first, last, noun);
    } else {
        AddRows(first, last, noun);
    }
}

} // namespace quandrel
