// SPDX-License-Identifier: MIT

#include "rose/figure_rose_scale.h"

#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "rose/figure_rose_mean.h"
#include "rose/figure_rose_rim.h"
#include "rose/label_box.h"
#include "rose/rose_furniture.h"
#include "rose/rose_radii.h"
#include "rose/rose_scale.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

constexpr double kCircleInk = 0.5; ///< opacity of circles and spokes
constexpr Colour kCircleColour{128, 128, 128};
constexpr double kGroundInk = 0.8; ///< opacity of the ground of values
constexpr double kValueGap = 10;   ///< around values
constexpr double kInkOfText = 0.8; ///< of the height of a line that digits fill, with a gap

Point AtAzimuth(double radius, double azimuth) {
    return {radius * std::sin(azimuth), radius * std::cos(azimuth)};
}

/// Means and deviations are not shares of a whole.
bool HasShares(const PlotRecord& record) {
    const int measure = MeasureOfRose(record.RoseType);
    return measure != kRoseMeanValue && measure != kRoseVariance;
}

RoseLabelBox BoxAround(Point centre, Point size) {
    return {centre.x - size.x / 2, centre.y - size.y / 2, centre.x + size.x / 2,
            centre.y + size.y / 2};
}

/// The petals as wholes: of classes the outermost ones.
std::vector<RoseWedge> WholePetals(const std::vector<RoseWedge>& wedges) {
    std::vector<RoseWedge> wholes;
    for (std::size_t i = 0; i < wedges.size(); ++i) {
        const auto isInside = [&wedges, i](std::size_t before) {
            return i >= before && wedges[i - before].layer == wedges[i].layer
                   && wedges[i - before].sector == wedges[i].sector
                   && wedges[i - before].mirror == wedges[i].mirror;
        };
        if (!isInside(1) && !isInside(2)) { // the class outside, or that of the other end after it
            wholes.push_back(wedges[i]);
        }
    }
    return wholes;
}

/// Tries azimuths for the values of circles.
class ValuePlacer {
public:
    ValuePlacer(const Plot& plot, const FigureScale& scale, const std::vector<Point>& sizes,
                std::vector<RimLabel> labels, std::vector<double> means)
        : petals_(WholePetals(RoseOf(plot).wedges))
        , zero_(ZeroRadiusOfRose(plot.record))
        , scale_(scale)
        , sizes_(sizes)
        , labels_(std::move(labels))
        , means_(std::move(means)) {}

    /// The values that have room along an azimuth, the outermost first.
    [[nodiscard]] std::vector<PlacedValue> Along(double azimuth) const {
        std::vector<PlacedValue> placed;
        std::vector<RoseLabelBox> taken;
        for (std::size_t i = scale_.circles.size(); i-- > 0;) {
            const Point size = {sizes_[i].x + kValueGap, kInkOfText * sizes_[i].y};
            // A value stays within the rim and outside the zero circle.
            const double half =
                (std::abs(std::sin(azimuth)) * size.x + std::abs(std::cos(azimuth)) * size.y) / 2;
            const double radius = std::min(scale_.circles[i].radius, kNetRadius - half - kValueGap);
            const Point centre = AtAzimuth(radius, azimuth);
            const RoseLabelBox box = BoxAround(centre, size);
            const bool isTaken = std::ranges::any_of(
                taken, [&box](const RoseLabelBox& other) { return Meet(other, box); });
            if (!isTaken && radius - half > zero_ && IsOfCircle(i, radius)) {
                taken.push_back(box);
                placed.push_back({i, centre});
            }
        }
        return placed;
    }

    /// The lower the better: how much of the petals is beneath the values, 0 to 1, more near a
    /// label of the rim and near a mean.
    [[nodiscard]] double Cost(double azimuth, const std::vector<PlacedValue>& placed) const {
        constexpr std::array<double, 3> kParts = {-0.5, 0, 0.5};
        constexpr double kNear = 0.2;         // radians
        constexpr double kCostOfLabel = 0.15; // a value beside a label reads as one number with it
        double covered = 0;
        for (const PlacedValue& value : placed) {
            for (const double x : kParts) {
                for (const double y : kParts) {
                    const Point at{value.centre.x + x * sizes_[value.circle].x,
                                   value.centre.y + y * sizes_[value.circle].y};
                    covered += WedgeAt(petals_, at) != nullptr ? 1 : 0;
                }
            }
        }
        const auto isNear = [azimuth](double other) {
            return std::abs(std::remainder(azimuth - other, kTwoPi)) < kNear;
        };
        const double parts = 9 * std::max<double>(static_cast<double>(placed.size()), 1);
        return covered / parts + (std::ranges::any_of(means_, isNear) ? 1 : 0)
               + (std::ranges::any_of(labels_, isNear, &RimLabel::azimuth) ? kCostOfLabel : 0);
    }

private:
    /// Whether a radius is near enough to a circle for its value, which is not read as another's.
    [[nodiscard]] bool IsOfCircle(std::size_t i, double radius) const {
        constexpr double kMostShift = 0.4; // of the distance to the next circle inside
        const double inside = i > 0 ? scale_.circles[i - 1].radius : zero_;
        const double own = scale_.circles[i].radius;
        return own - radius <= kMostShift * (own - inside);
    }

    std::vector<RoseWedge> petals_;
    double zero_;
    const FigureScale& scale_;
    const std::vector<Point>& sizes_;
    std::vector<RimLabel> labels_;
    std::vector<double> means_;
};

/// The font of the values: that of labels of the rim.
void UseFontOfValues(const Drawing& drawing) {
    DrawState state = drawing.plot.State();
    state.font = FontOfRimLabel(drawing, {});
    state.foreColour = AxesColour(drawing);
    drawing.plot.SetState(state);
}

} // namespace

double RoundStep(double largest) {
    constexpr double kCircles = 4;
    const double wanted = largest / kCircles;
    const double power = std::pow(10, std::floor(std::log10(wanted)));
    const double part = wanted / power; // 1 to 10
    const double step = part < 1.5 ? 1 : part < 3 ? 2 : part < 7.5 ? 5 : 10;
    return step * power;
}

FigureScale ScaleOfFigure(const Plot& plot) {
    const PlotRecord& record = plot.record;
    RoseScaleSettings settings = ScaleOfRose(record);
    settings.circles = true;
    FigureScale scale;
    scale.isPerCent = HasShares(record);
    scale.step = settings.interval;
    scale.rim = record.RoseRangeB[kTopRoseLayer][kInPerCent];
    double unit = 1; // per cent in a unit of the scale
    if (!scale.isPerCent) {
        scale.rim = record.RoseRangeB[kTopRoseLayer][kInUnits];
        unit = RoseOf(plot).total != 0 ? 100 / RoseOf(plot).total : 0;
        scale.step = scale.rim > 0 ? RoundStep(scale.rim) : 0;
        settings.interval = scale.step * unit;
    }
    if (record.RoseDisplay6 == 0 || unit == 0) {
        return scale;
    }
    for (const RoseScaleMark& mark : MarksOfScale(settings)) {
        scale.circles.push_back({mark.radius, FormatNumber(mark.perCent / unit, "0.####")});
    }
    if (scale.isPerCent && !scale.circles.empty()) {
        scale.circles.back().text += "%";
    }
    return scale;
}

std::string TextOfScaleValue(const FigureScale& scale, double value) {
    const bool isSmall = std::abs(value) < 1;
    return FormatNumber(value, isSmall ? "0.###" : "0.#") + (scale.isPerCent ? "%" : "");
}

void DrawFigureCircles(const Plot& plot, const Drawing& drawing) {
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.fillStyle = kNoFill;
    state.drawStyle = kSolidLine;
    state.widthInPoints = FigureOf(drawing).roses.outlineWidth;
    state.lineOpacity = kCircleInk;
    surface.SetState(state);
    const int shape = plot.record.RoseShape;
    const double zero = ZeroRadiusOfRose(plot.record);
    for (const RimLabel& label : LabelsOfRim(FigureOf(drawing).roses, shape)) {
        surface.Line(AtAzimuth(zero, label.azimuth), AtAzimuth(kNetRadius, label.azimuth),
                     kCircleColour);
    }
    for (const FigureCircle& circle : ScaleOfFigure(plot).circles) {
        if (IsHalfRose(shape)) {
            const RoseArc arc = ShownArc(shape);
            surface.Arc({}, circle.radius, arc.start, arc.end, kCircleColour);
        } else {
            surface.Circle({}, circle.radius, kCircleColour);
        }
    }
}

std::vector<PlacedValue> PlacesOfValues(const Plot& plot, const Drawing& drawing,
                                        const FigureScale& scale, const std::vector<Point>& sizes) {
    constexpr int kTries = 72;         // azimuths, every 5 degrees
    constexpr double kFromEdge = 0.13; // of a half rose, radians
    const std::optional<FigureMean> mean = MeanOfFigure(plot, drawing);
    const int shape = plot.record.RoseShape;
    const ValuePlacer placer(plot, scale, sizes, LabelsOfRim(FigureOf(drawing).roses, shape),
                             mean ? EndsOfMean(plot, *mean) : std::vector<double>());
    std::vector<PlacedValue> best;
    double least = 0;
    for (int i = 0; i < kTries; ++i) {
        const double azimuth = WrappedAngle(DegToRad(75.0 + 5 * i)); // of equals the first
        if (!IsAzimuthShown(shape, azimuth - kFromEdge)
            || !IsAzimuthShown(shape, azimuth + kFromEdge)) {
            continue;
        }
        std::vector<PlacedValue> placed = placer.Along(azimuth);
        const double cost = placer.Cost(azimuth, placed);
        if (placed.size() > best.size() || (placed.size() == best.size() && cost < least)) {
            best = std::move(placed);
            least = cost;
        }
    }
    return best;
}

void DrawFigureValues(const Plot& plot, const Drawing& drawing) {
    if (!FigureOf(drawing).roses.circleValues) {
        return;
    }
    Surface& surface = drawing.plot;
    const SavedState saved(surface);
    UseFontOfValues(drawing);
    const FigureScale scale = ScaleOfFigure(plot);
    std::vector<Point> sizes;
    for (const FigureCircle& circle : scale.circles) {
        sizes.push_back({surface.TextWidth(circle.text), surface.TextHeight()});
    }
    DrawState state = surface.State();
    state.drawStyle = kNoLine;
    state.fillStyle = kSolidFill;
    state.fillColour = PlotBackground(drawing);
    state.fillOpacity = kGroundInk;
    surface.SetState(state);
    for (const PlacedValue& value : PlacesOfValues(plot, drawing, scale, sizes)) {
        const Point size = sizes[value.circle];
        const RoseLabelBox box = BoxAround(value.centre, {size.x + kValueGap, kInkOfText * size.y});
        const std::array<Point, 4> corners = {{{box.left, box.bottom},
                                               {box.right, box.bottom},
                                               {box.right, box.top},
                                               {box.left, box.top}}};
        surface.Polygon(corners, PlotBackground(drawing));
        surface.Text({value.centre.x - size.x / 2, value.centre.y + size.y / 2},
                     scale.circles[value.circle].text);
    }
}

} // namespace quandrel
