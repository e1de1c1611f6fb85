// SPDX-License-Identifier: MIT

#include "drawing/figure_legend.h"

#include "core/data_format.h"
#include "density/plot_density.h"
#include "drawing/draw_layers.h"
#include "drawing/draw_plot.h"
#include "drawing/figure_legend_maker.h"
#include "drawing/figure_legend_rose.h"
#include "drawing/layer_list.h"
#include "drawing/layer_results.h"
#include "edit/marks/small_circles.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "statistics/confidence_cone.h"
#include "statistics/draw_regions.h"
#include "statistics/orientation_notation.h"
#include "statistics/plot_region_texts.h"
#include "statistics/plot_regions.h"
#include "statistics/region_texts.h"
#include "stereo/net.h"
#include "stereo/row_positions.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

/// Rows that the sign of a crowd stands for: as dark as the places of many rows.
constexpr std::int32_t kRowsOfSign = 50;

/// A text without the name of a method: "Prentice" of "ellipse of Prentice".
std::string AuthorOf(const std::string& method) {
    const std::size_t at = method.find(" of ");
    return at == std::string::npos ? method : method.substr(at + 4);
}

} // namespace

void LegendMaker::AddDensityMarks() {
    if (EnvelopeOf(plot_) != nullptr) {
        LineLook look{DrawState(), AxesColour(drawing_)};
        look.state.drawStyle = kDashedLine;
        look.state.drawWidth = 2;
        look.state.widthInPoints = FigureOf(drawing_).lines.regionWidth;
        AddLine(std::move(look), Named(kEnvelopeText));
    }
}

void LegendMaker::AddGirdles(int first, int last) {
    for (int item = first; item <= last; ++item) {
        if (!IsItemShown(record_, item)) {
            continue;
        }
        const auto& values = record_.AxisItems[static_cast<std::size_t>(item)];
        const char* const mean = IsPlottedAsPole(record_, 0) ? kMeanPlaneText : kPlaneOfAxisText;
        const char* const noun = item == kGirdleItem      ? kBestGirdleText
                                 : item == kMeanPlaneItem ? mean
                                                          : kUserGirdleText;
        AddLine(LookOfGirdle(record_, drawing_, item),
                Named(noun) + " "
                    + TextOfPlaneOfPole(NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]),
                                        DecimalsShown(record_)));
    }
}

void LegendMaker::AddAxes() {
    for (int item = kFirstStatisticalItem; item < kAxisItems; ++item) {
        if (!IsItemShown(record_, item)) {
            continue;
        }
        const auto& values = record_.AxisItems[static_cast<std::size_t>(item)];
        const char* const pole = IsPlottedAsPole(record_, 0) ? kFoldAxisText : kGirdleAxisText;
        FigureEntry entry;
        entry.sign = FigureSign::Axis;
        entry.axis = item == kGirdleItem ? FigureAxis::Fold : FigureAxis::Principal;
        entry.text = Named(item == kGirdleItem ? pole : kPrincipalAxisText) + " "
                     + TextOfLine(NumberOf(values[kItemPlunge]), NumberOf(values[kItemTrend]),
                                  DecimalsShown(record_));
        Add(std::move(entry));
    }
}

/// The confidence cone of the principal axis, and the circles of the user.
void LegendMaker::AddSmallCircles() {
    const std::optional<double> angle = ConfidenceConeAngle(record_, drawing_.formulas);
    if (record_.ShowConfidenceCone && angle) {
        AddLine(LookOfRegion(drawing_),
                Named(kConeText) + ", " + FormatNumber(RadToDeg(*angle), "0.#") + "°");
    }
    if (!record_.PlotSmallCircles) {
        return;
    }
    for (const SmallCircle& circle : *record_.PlotSmallCircles) {
        const std::optional<CircleCone> cone = ConeOfCircle(circle);
        if (circle.Visible == 0 || !cone) {
            continue;
        }
        AddLine(LookOfSmallCircle(drawing_.plot, drawing_, circle),
                Named(kSmallCircleText) + " " + FormatNumber(RadToDeg(cone->halfAngle), "0.#")
                    + "° about " + TextOfLine(cone->plunge, cone->trend));
    }
}

/// "95% region (Prentice)"; where there are several, each says of what.
void LegendMaker::AddRegions() {
    std::vector<const PlotRegion*> shown;
    for (const PlotRegion& region : RegionsOfPlot(plot_)) {
        if (IsShown(record_, region)) {
            shown.push_back(&region);
        }
    }
    const std::string level = std::to_string(record_.RegionLevel) + kRegionText;
    for (const PlotRegion* region : shown) {
        const std::string name = shown.size() == 1 ? level : NameOfPlotRegion(record_, *region);
        const std::string method =
            AuthorOf(NameOfMethod(region->chosen->region.method, region->target));
        AddLine(LookOfRegion(drawing_), Named(name) + " (" + method + ")");
    }
}

void LegendMaker::AddResults() {
    switch (layer_->LayerShow) {
    case kShowMeanArrow:
        if (IsMeanArrowShown(record_)) {
            AddLine(LookOfAxisStyle(drawing_.plot, drawing_, kMeanGirdleStyle,
                                    FigureOf(drawing_).lines.girdleWidth),
                    Named(kMeanText));
        }
        break;
    case kShowUserGirdles:
        AddGirdles(kFirstUserGirdle, kLastUserGirdle);
        break;
    case kShowCalculatedGirdles:
        AddGirdles(kFirstStatisticalItem, kAxisItems - 1);
        break;
    case kShowSmallCircles:
        AddSmallCircles();
        break;
    case kShowRegions:
        AddRegions();
        break;
    case kShowAxes:
        AddAxes();
        break;
    default:
        break;
    }
}

void LegendMaker::AddRowLayer() {
    switch (layer_->LayerShow) {
    case kShowGridSymbols:
    case kShowBandSymbols:
    case kShowBands:
    case kShowContours:
        AddDensities();
        break;
    case kShowDensityMarks:
        AddDensityMarks();
        break;
    case kShowGridValues:
    case kShowValueContours:
        AddClasses();
        break;
    case kShowIntersections:
        AddIntersections();
        break;
    case kShowSlipArrows:
        AddSlipArrows();
        break;
    default:
        if (layer_->LayerOf == kLayerOfMainRows) {
            AddMainRows();
        } else {
            AddOtherRows();
        }
        break;
    }
}

void LegendMaker::AddLayer() {
    if (layer_->LayerOf == kLayerOfResults) {
        AddResults();
    } else if (layer_->LayerOf != kLayerOfNet) {
        rows_ = RowsOfLayer(plot_, drawing_.styles, *layer_);
        if (layer_->LayerOf == kLayerOfMainRows ? record_.NumValidData > 0 : rows_.count > 0) {
            AddRowLayer();
        }
    }
}

FigureLegend LegendMaker::Made() && {
    for (const FigureLayer& layer : LayersOf(plot_)) {
        if (layer.LayerHidden == 0 && IsPossible(plot_, layer)) {
            const FigureLayer drawn = LayerAsDrawn(layer, drawing_);
            layer_ = &drawn;
            drawing_.layer = layer_;
            AddLayer();
        }
    }
    layer_ = nullptr;
    return {std::move(entries_), std::move(bars_)};
}

namespace {

void DrawLineSign(Surface& surface, const LineLook& look, Point centre, double width) {
    const SavedState saved(surface);
    surface.SetState(look.state);
    surface.Line({centre.x - width / 2, centre.y}, {centre.x + width / 2, centre.y}, look.colour);
}

/// An arrow to the right about the centre; a line without a sense lies about it anyway.
void DrawArrowSign(Surface& surface, const Drawing& drawing, const FigureEntry& entry, Point centre,
                   double width) {
    const double start = entry.hasHead ? centre.x - width / 4 : centre.x;
    DrawSlipArrow(surface, drawing, {start, centre.y}, {entry.code, entry.rows},
                  entry.hasHead ? kSlipArrowSymbol : kSlipLineSymbol, kPi / 2);
}

/// A rectangle, filled and outlined as petals are.
void DrawPatchSign(Surface& surface, const Drawing& drawing, const PetalFill& fill, Point centre,
                   double width) {
    constexpr double kHeight = 0.22; // share of the width, to either side of the centre
    const SavedState saved(surface);
    UseFill(surface, drawing, fill);
    const double x = width / 2;
    const double y = width * kHeight;
    const std::array<Point, 4> corners = {{{centre.x - x, centre.y - y},
                                           {centre.x + x, centre.y - y},
                                           {centre.x + x, centre.y + y},
                                           {centre.x - x, centre.y + y}}};
    surface.Polygon(corners, OutlineOfPetals(drawing.styles));
}

} // namespace

FigureLegend LegendOfFigure(const Plot& plot, const Drawing& drawing) {
    return plot.record.PlotKind == kRose ? LegendOfRoseFigure(plot, drawing)
                                         : LegendMaker(plot, drawing).Made();
}

void DrawFigureSign(Surface& surface, const Drawing& drawing, const FigureEntry& entry,
                    Point centre, double width) {
    Drawing own = drawing;
    own.layer = &entry.layer;
    switch (entry.sign) {
    case FigureSign::None:
    case FigureSign::Blank:
        break;
    case FigureSign::Rows:
        // A single symbol of a crowd could hardly be seen.
        DrawRowMarkers(surface, own, std::span(&centre, 1), entry.code, entry.rows,
                       entry.layer.LayerOpacity == kAsStyle ? kRowsOfSign : 1);
        break;
    case FigureSign::TableSymbol:
        DrawBandMarkers(surface, own, std::span(&centre, 1), entry.code);
        break;
    case FigureSign::Axis:
        DrawAxisMarker(surface, own, centre, entry.axis);
        break;
    case FigureSign::Line:
        DrawLineSign(surface, entry.line, centre, width);
        break;
    case FigureSign::Arrow:
        DrawArrowSign(surface, own, entry, centre, width);
        break;
    case FigureSign::Patch:
        DrawPatchSign(surface, own, entry.patch, centre, width);
        break;
    }
}

} // namespace quandrel
