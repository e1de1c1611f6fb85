// SPDX-License-Identifier: MIT

#include "fabric/fabric_canvas.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quandrel {

namespace {

constexpr std::array<double, 5> kShapes = {0.2, 0.5, 1, 2, 5};
constexpr double kStrengthStep = 2;

/// Ends of the axes to choose from. The last one is above ln(1 / kLeastEigenvalue).
constexpr std::array<double, 9> kRanges = {2, 3, 4, 5, 6, 8, 10, 12, 14};
constexpr double kSpaceAtEnd = 1.03; ///< of an axis beyond its last point

constexpr double kTick = 2.5;
constexpr double kGap = 2;
constexpr double kRim = 1; ///< between the frame and labels
constexpr FabricPen kShapePen{0.4, kLineGrey, kSolidLine};
constexpr FabricPen kDividingPen{0.6, kBlack, kSolidLine};
constexpr FabricPen kStrengthPen{0.4, kLineGrey, kDashedLine};

std::string ShortNumber(double number) {
    return FormatNumber(number, "0.##");
}

std::string ShapeText(double shape) {
    return "K = " + ShortNumber(shape);
}

double RangeFor(const NumberedFabrics& fabrics) {
    double greatest = 0;
    for (const FabricPoint* point : fabrics.points) {
        if (point->place) {
            greatest = std::max({greatest, point->place->x, point->place->y});
        }
    }
    const auto found = std::ranges::lower_bound(kRanges, greatest * kSpaceAtEnd);
    return found == kRanges.end() ? kRanges.back() : *found;
}

double TickStep(double range) {
    return range <= 3 ? 0.5 : range <= 6 ? 1 : 2;
}

/// The diagram in a box.
class LogRatioDiagram {
public:
    LogRatioDiagram(FabricCanvas& canvas, const LabelBox& box, double range)
        : canvas_(canvas)
        , range_(range)
        , frame_(FrameIn(box))
        , labels_({frame_.left + kRim, frame_.bottom + kRim, frame_.width - 2 * kRim,
                   frame_.height - 2 * kRim}) {}

    void DrawAxes();
    void DrawLines();
    void DrawFabrics(const NumberedFabrics& fabrics);

private:
    [[nodiscard]] LabelBox FrameIn(const LabelBox& box);

    /// The place of log ratios.
    [[nodiscard]] Point At(double x, double y) const {
        return {frame_.left + x / range_ * frame_.width,
                frame_.bottom + y / range_ * frame_.height};
    }

    void DrawShapeLine(double shape);
    void LabelStrengths();
    void NameFields();

    FabricCanvas& canvas_;
    double range_;
    LabelBox frame_;
    LabelPlaces labels_;
};

LabelBox LogRatioDiagram::FrameIn(const LabelBox& box) {
    const double label = canvas_.TextHeight(kLabelPoints);
    const double title = canvas_.TextHeight(kTitlePoints);
    const double left = canvas_.BoxOf("0.5", {}, {}).width + kTick + kGap;
    const double right = canvas_.BoxOf(ShapeText(kShapes.front()), {}, {}).width + kGap;
    const double top = title + label + 2 * kGap;
    const double bottom = kTick + kGap + label + title;
    const double side =
        std::max(std::min(box.width - left - right, box.height - top - bottom), 4 * kMarkerReach);
    const double spare = (box.width - left - right - side) / 2;
    return {box.left + left + std::max(spare, 0.0), box.Top() - top - side, side, side};
}

void LogRatioDiagram::DrawAxes() {
    const std::array<Point, 4> corners = {{{frame_.left, frame_.bottom},
                                           {frame_.Right(), frame_.bottom},
                                           {frame_.Right(), frame_.Top()},
                                           {frame_.left, frame_.Top()}}};
    canvas_.Polygon(corners, kFramePen);
    const double step = TickStep(range_);
    for (int i = 0; i * step <= range_; ++i) {
        const std::string text = ShortNumber(i * step);
        const Point below = At(i * step, 0);
        canvas_.Line(below, {below.x, below.y - kTick}, kTickPen);
        canvas_.Write(canvas_.BoxOf(text, {below.x, below.y - kTick - kGap / 2}, {0.5, 1}), text);
        const Point beside = At(0, i * step);
        canvas_.Line(beside, {beside.x - kTick, beside.y}, kTickPen);
        canvas_.Write(canvas_.BoxOf(text, {beside.x - kTick - kGap, beside.y}, {1, 0.5}), text);
    }
    const double below = frame_.bottom - kTick - kGap - canvas_.TextHeight(kLabelPoints);
    constexpr std::string_view kAcross = "ln(S2/S3)";
    const Point middle{frame_.left + frame_.width / 2, below};
    canvas_.Write(canvas_.BoxOf(kAcross, middle, {0.5, 1}, kTitlePoints), kAcross, kTitlePoints);
    constexpr std::string_view kUp = "ln(S1/S2)";
    const double above = frame_.Top() + canvas_.TextHeight(kLabelPoints) + 2 * kGap;
    canvas_.Write(canvas_.BoxOf(kUp, {frame_.left, above}, {0, 0}, kTitlePoints), kUp,
                  kTitlePoints);
}

void LogRatioDiagram::DrawShapeLine(double shape) {
    const bool endsAtTop = shape >= 1;
    const Point end = endsAtTop ? At(range_ / shape, range_) : At(range_, range_ * shape);
    canvas_.Line(At(0, 0), end, shape == 1 ? kDividingPen : kShapePen);
    labels_.Avoid(At(0, 0), end);
    const std::string text = ShapeText(shape);
    if (shape > 1) {
        canvas_.Write(canvas_.BoxOf(text, {end.x, end.y + kGap}, {0.5, 0}), text);
    } else {
        canvas_.Write(canvas_.BoxOf(text, {end.x + kGap, end.y}, {0, 0.5}), text);
    }
}

void LogRatioDiagram::DrawLines() {
    for (double strength = kStrengthStep; strength < 2 * range_; strength += kStrengthStep) {
        const double most = std::min(strength, range_);
        canvas_.Line(At(strength - most, most), At(most, strength - most), kStrengthPen);
    }
    for (const double shape : kShapes) {
        DrawShapeLine(shape);
    }
}

/// A label on each line of equal strength, between two lines of equal shape.
void LogRatioDiagram::LabelStrengths() {
    constexpr std::array<double, 8> kBetween = {0.32, 3.1, 0.72, 1.4, 0.1, 10, 0.85, 1.18};
    for (double strength = kStrengthStep; strength < 2 * range_; strength += kStrengthStep) {
        const std::string text = "C = " + ShortNumber(strength);
        std::vector<LabelBox> places;
        for (const double shape : kBetween) {
            const double x = strength / (1 + shape);
            places.push_back(canvas_.BoxOf(text, At(x, strength - x), {}));
        }
        if (const std::optional<LabelBox> box = labels_.TakeFirstFree(places)) {
            canvas_.WriteOnWhite(*box, text, kLineGrey);
        }
    }
}

/// What the two fields beside K = 1 hold.
void LogRatioDiagram::NameFields() {
    struct Field {
        const char* name;
        Point at; ///< shares of the axes
    };

    constexpr std::array<Field, 6> kFields = {{{"clusters", {0.68, 0.94}},
                                               {"clusters", {0.34, 0.94}},
                                               {"clusters", {0.45, 0.72}},
                                               {"girdles", {0.86, 0.7}},
                                               {"girdles", {0.86, 0.3}},
                                               {"girdles", {0.72, 0.5}}}};
    constexpr std::size_t kPlaces = 3;
    for (std::size_t first = 0; first < kFields.size(); first += kPlaces) {
        std::vector<LabelBox> places;
        for (std::size_t i = first; i < first + kPlaces; ++i) {
            const Point at = At(kFields[i].at.x * range_, kFields[i].at.y * range_);
            places.push_back(canvas_.BoxOf(kFields[i].name, at, {}));
        }
        if (const std::optional<LabelBox> box = labels_.TakeFirstFree(places)) {
            canvas_.WriteOnWhite(*box, kFields[first].name, kLineGrey);
        }
    }
}

void LogRatioDiagram::DrawFabrics(const NumberedFabrics& fabrics) {
    std::vector<const FabricPoint*> points;
    std::vector<Point> at;
    std::vector<int> numbers;
    for (std::size_t i = 0; i < fabrics.points.size(); ++i) {
        if (const std::optional<LogRatioPlace>& place = fabrics.points[i]->place) {
            points.push_back(fabrics.points[i]);
            at.push_back(At(place->x, place->y));
            if (!fabrics.numbers.empty()) {
                numbers.push_back(fabrics.numbers[i]);
            }
        }
    }
    TakeMarkers(labels_, at);
    LabelStrengths();
    NameFields();
    DrawFabricMarkers(canvas_, labels_, points, at, numbers);
}

} // namespace

void DrawLogRatios(FabricCanvas& canvas, const LabelBox& box, const NumberedFabrics& fabrics) {
    LogRatioDiagram diagram(canvas, box, RangeFor(fabrics));
    diagram.DrawLines();
    diagram.DrawAxes();
    diagram.DrawFabrics(fabrics);
}

} // namespace quandrel
