// SPDX-License-Identifier: MIT

#include "rose/rose_furniture.h"

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rose/label_box.h"
#include "rose/rose_mean.h"
#include "rose/rose_scale.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quandrel {

namespace {

constexpr double kFullTurn = 6.28308530717958; // Kept: a hair short of a whole turn
constexpr double kCompassTick = 1020;
constexpr double kOuterTick = 1040;
constexpr double kLabelRadius = 1040;
constexpr double kScaleTick = 15; // half of a tick across an axis
constexpr double kLeastLabelPoints = 5;
constexpr int kShapes = 5;

/// The half circles: the arc of each, and the azimuth of its middle.
struct Half {
    RoseArc shown;
    RoseArc hidden;
    double middle = 0;
    std::array<int, 9> compassPoints{}; ///< clockwise
};

constexpr std::array<Half, kShapes> kHalves = {{
    {},
    {{0, kPi}, {kPi, kTwoPi}, 0, {12, 13, 14, 15, 0, 1, 2, 3, 4}},
    {{3 * kPi / 2, kPi / 2}, {kPi / 2, 3 * kPi / 2}, kPi / 2, {0, 1, 2, 3, 4, 5, 6, 7, 8}},
    {{kPi, 0}, {kTwoPi, kPi}, kPi, {4, 5, 6, 7, 8, 9, 10, 11, 12}},
    {{kPi / 2, 3 * kPi / 2},
     {3 * kPi / 2, kPi / 2},
     3 * kPi / 2,
     {8, 9, 10, 11, 12, 13, 14, 15, 0}},
}};

const Half& HalfOf(int shape) {
    return kHalves[IsHalfRose(shape) ? static_cast<std::size_t>(shape) : 0];
}

/// The compass points shown, those with fewer letters first: they are the ones that stay when there
/// is no room for all.
std::vector<int> CompassPointsShown(int shape) {
    std::vector<int> points(16);
    for (int i = 0; i < 16; ++i) {
        points[static_cast<std::size_t>(i)] = i;
    }
    if (IsHalfRose(shape)) {
        points.assign(HalfOf(shape).compassPoints.begin(), HalfOf(shape).compassPoints.end());
    }
    std::stable_sort(points.begin(), points.end(),
                     [](int a, int b) { return CompassName(a).size() < CompassName(b).size(); });
    return points;
}

Point AtCompassPoint(double radius, int i) {
    const double azimuth = i * kPi / 8;
    return {RoundToEven(radius * std::sin(azimuth)), RoundToEven(radius * std::cos(azimuth))};
}

/// The azimuths of the axes that end at the rim: 0 north to 3 west.
std::vector<int> AxesShown(int shape) {
    std::vector<int> axes;
    for (int axis = 0; axis < 4; ++axis) {
        if (IsAzimuthShown(shape, axis * kPi / 2)) {
            axes.push_back(axis);
        }
    }
    return axes;
}

Point AlongAxis(int axis, double radius, double across = 0) {
    constexpr std::array<Point, 4> kAxes = {{{0, 1}, {1, 0}, {0, -1}, {-1, 0}}};
    const Point along = kAxes[static_cast<std::size_t>(axis)];
    return {along.x * radius + along.y * across, along.y * radius - along.x * across};
}

void DrawAxes(const Drawing& drawing, int shape) {
    Surface& surface = drawing.plot;
    const int style = drawing.styles.roseAxesStyle;
    const bool ticks = style == 1 || style == 3;
    if (!ticks && style != 0) {
        return;
    }
    for (const int axis : AxesShown(shape)) {
        if (ticks) {
            surface.Line(AlongAxis(axis, kNetRadius), AlongAxis(axis, kOuterTick),
                         AxesColour(drawing));
        } else if (IsHalfRose(shape)) {
            surface.Line({}, AlongAxis(axis, kNetRadius), AxesColour(drawing));
        } else if (axis < 2) {
            surface.Line(AlongAxis(axis, -kNetRadius), AlongAxis(axis, kNetRadius),
                         AxesColour(drawing));
        }
    }
}

/// Places the names of compass points around the rim, clear of the mean's arrows and of each other.
class CompassLabels {
public:
    CompassLabels(const Plot& plot, const Drawing& drawing)
        : surface_(drawing.plot)
        , arrows_(RoseArrowAzimuths(plot)) {
        DrawState state = surface_.State();
        state.foreColour = AxesColour(drawing);
        // There is little room between the ticks and the edge, and less in a small window.
        const double room = surface_.Scale().top - kLabelRadius;
        const double height = surface_.TextHeight();
        if (height > room && height > 0) {
            state.font.points = std::max(state.font.points * room / height, kLeastLabelPoints);
        }
        surface_.SetState(state);
    }

    void Draw(int i) {
        const std::string name = CompassName(i);
        const RoseLabelBox box = ClearOfArrows(name, i * kPi / 8);
        const bool isTaken = std::any_of(taken_.begin(), taken_.end(),
                                         [&box](const RoseLabelBox& t) { return Meet(t, box); });
        // In a tiny window there is no room for a name beside the circle.
        if (!isTaken && !ReachesIntoCircle(box, kNetRadius)) {
            taken_.push_back(box);
            surface_.Text({box.left, box.top}, name);
        }
    }

private:
    /// The box of a name that touches the circle of the labels from outside.
    [[nodiscard]] RoseLabelBox BoxAt(const std::string& name, double azimuth) const {
        const double width = surface_.TextWidth(name);
        const double height = surface_.TextHeight();
        const UserScale scale = surface_.Scale();
        const double x = std::sin(azimuth);
        const double y = std::cos(azimuth);
        const double left = std::clamp(kLabelRadius * x + (x - 1) * width / 2, scale.left,
                                       std::max(scale.right - width, scale.left));
        const double top = std::clamp(kLabelRadius * y + (y + 1) * height / 2,
                                      std::min(scale.bottom + height, scale.top), scale.top);
        return {left, top - height, left + width, top};
    }

    [[nodiscard]] bool IsCrossed(const RoseLabelBox& box) const {
        return std::any_of(arrows_.begin(), arrows_.end(), [&box](double azimuth) {
            const Point along{std::sin(azimuth), std::cos(azimuth)};
            for (double r = kNetRadius; r <= kNetRadius + kArrowLength; r += kArrowHalfWidth / 2) {
                const Point at{r * along.x, r * along.y};
                const RoseLabelBox shaft{at.x - kArrowHalfWidth, at.y - kArrowHalfWidth,
                                         at.x + kArrowHalfWidth, at.y + kArrowHalfWidth};
                if (Meet(box, shaft)) {
                    return true;
                }
            }
            return false;
        });
    }

    /// The box nearest to its default position that no arrow crosses.
    [[nodiscard]] RoseLabelBox ClearOfArrows(const std::string& name, double azimuth) const {
        constexpr int kMostDegrees = 11; // half way to the next compass point
        for (int degrees = 0; degrees <= kMostDegrees; ++degrees) {
            for (const int side : {1, -1}) {
                const RoseLabelBox box = BoxAt(name, azimuth + side * degrees * kPi / 180);
                if (!IsCrossed(box)) {
                    return box;
                }
            }
        }
        return BoxAt(name, azimuth);
    }

    Surface& surface_;
    std::vector<double> arrows_;
    std::vector<RoseLabelBox> taken_;
};

void DrawCompassPoints(const Plot& plot, const Drawing& drawing) {
    const SavedState saved(drawing.plot);
    CompassLabels labels(plot, drawing);
    for (const int i : CompassPointsShown(plot.record.RoseShape)) {
        drawing.plot.Line(AtCompassPoint(kNetRadius, i), AtCompassPoint(kCompassTick, i),
                          AxesColour(drawing));
        labels.Draw(i);
    }
}

void DrawShownArc(const Drawing& drawing, int shape, double radius) {
    const RoseArc arc = ShownArc(shape);
    drawing.plot.Arc({}, radius, arc.start, arc.end, AxesColour(drawing));
}

/// Draws a tick across each axis that carries the scale: all four, or the middle one of a half.
void DrawTicks(const Drawing& drawing, int shape, double radius) {
    Surface& surface = drawing.plot;
    for (const int axis : AxesShown(shape)) {
        if (IsHalfRose(shape) && std::abs(axis * kPi / 2 - HalfOf(shape).middle) > 0.1) {
            continue;
        }
        surface.Line(AlongAxis(axis, radius, -kScaleTick), AlongAxis(axis, radius, kScaleTick),
                     AxesColour(drawing));
        if (drawing.styles.roseAxesStyle != 0) {
            // There is no axis for the tick.
            surface.Line(AlongAxis(axis, radius), AlongAxis(axis, radius + kScaleTick),
                         AxesColour(drawing));
        }
    }
}

void DrawMarks(const Drawing& drawing, const PlotRecord& record) {
    const RoseScaleSettings scale = ScaleOfRose(record);
    for (const RoseScaleMark& mark : MarksOfScale(scale)) {
        if (scale.circles) {
            DrawShownArc(drawing, record.RoseShape, mark.radius);
        } else {
            DrawTicks(drawing, record.RoseShape, mark.radius);
        }
    }
}

} // namespace

bool IsHalfRose(int shape) {
    return shape > 0 && shape < kShapes;
}

RoseArc ShownArc(int shape) {
    return IsHalfRose(shape) ? HalfOf(shape).shown : RoseArc{0, kFullTurn};
}

RoseArc HiddenArc(int shape) {
    return HalfOf(shape).hidden;
}

bool IsAzimuthShown(int shape, double azimuth) {
    return !IsHalfRose(shape) || std::cos(azimuth - HalfOf(shape).middle) > -1e-9;
}

RoseArc ClippedArc(int shape, double middle, double halfWidth) {
    double before = halfWidth; // anticlockwise of the middle
    double behind = halfWidth;
    if (IsHalfRose(shape)) {
        const double offset = std::remainder(middle - HalfOf(shape).middle, kTwoPi);
        before = std::min(halfWidth, kPi / 2 + offset);
        behind = std::min(halfWidth, kPi / 2 - offset);
    }
    if (before + behind <= 0) {
        return {};
    }
    return {AzimuthToMathAngle(WrappedAngle(middle + behind)),
            AzimuthToMathAngle(WrappedAngle(middle - before))};
}

std::string CompassName(int i) {
    constexpr std::array<const char*, 16> kNames = {"N",  "NNE", "NE", "ENE", "E",  "ESE",
                                                    "SE", "SSE", "S",  "SSW", "SW", "WSW",
                                                    "W",  "WNW", "NW", "NNW"};
    return kNames.at(static_cast<std::size_t>(i));
}

void DrawRoseScale(const Plot& plot, const Drawing& drawing) {
    const PlotRecord& record = plot.record;
    const SavedState saved(drawing.plot);
    DrawState state = drawing.plot.State();
    state.fillStyle = kNoFill;
    state.drawStyle = kSolidLine;
    state.drawWidth = 1;
    drawing.plot.SetState(state);
    DrawAxes(drawing, record.RoseShape);
    if (drawing.styles.showCompassPoints) {
        DrawCompassPoints(plot, drawing);
    }
    if (record.RoseDisplay6 != 0) {
        DrawMarks(drawing, record);
    }
    if (drawing.styles.roseOuterCircle) {
        DrawShownArc(drawing, record.RoseShape, kNetRadius);
    }
}

void DrawRoseScale() {
    StoreRoseInterval(ActiveRecord());
    DrawRoseScale(ActivePlot(), WindowDrawing(gActivePlot));
}

} // namespace quandrel
