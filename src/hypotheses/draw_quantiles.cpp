// SPDX-License-Identifier: MIT

#include "hypotheses/draw_quantiles.h"

#include "orientation/number_text.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace quandrel {

namespace {

constexpr Colour kExpected{178, 34, 34};
constexpr Colour kFrame{90, 90, 90};

constexpr double kTitlePoints = 8;
constexpr double kTextPoints = 7;
constexpr double kThinLine = 0.5; ///< points
constexpr double kPointLine = 0.6;

// Logical pixels.
constexpr double kGap = 4;
constexpr double kTick = 4;
constexpr double kBelowTick = 3;
constexpr double kRightMargin = 12;
constexpr double kPointRadius = 2;
constexpr double kLeastSide = 20; ///< of a frame; a smaller one is not drawn

constexpr double kMostTicks = 5;

/// A distance between ticks of 1, 2 or 5 times a power of ten.
double TickStep(double range) {
    const double rough = range / kMostTicks;
    const double power = std::pow(10, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= rough * (1 - 1e-9)) {
            return factor * power;
        }
    }
    return 10 * power;
}

std::string TickText(double value, double step) {
    const auto decimals =
        static_cast<std::size_t>(std::max(0.0, std::ceil(-std::log10(step) - 1e-9)));
    const std::string format = decimals == 0 ? "0" : "0." + std::string(decimals, '0');
    return FormatNumber(value, format.c_str());
}

/// The range of one axis, from a tick to a tick.
struct AxisRange {
    double low = 0;
    double high = 1;
    double step = 0.5;

    [[nodiscard]] double Share(double value) const { return (value - low) / (high - low); }

    /// The value of a tick by its number from 0; -0 is 0.
    [[nodiscard]] double Tick(int number) const { return low + number * step + 0.0; }

    [[nodiscard]] int Ticks() const {
        return static_cast<int>(std::lround((high - low) / step)) + 1;
    }
};

AxisRange RangeTo(double greatest, bool isAboutZero) {
    const double reach = greatest > 0 && std::isfinite(greatest) ? greatest : 1;
    AxisRange range;
    range.step = TickStep(isAboutZero ? 2 * reach : reach);
    range.high = range.step * std::ceil(reach / range.step - 1e-9);
    range.low = isAboutZero ? -range.high : 0;
    return range;
}

/// One plot in its place.
class Panel {
public:
    Panel(Surface& surface, const QuantilePlot& plot, double left, double width, double height)
        : surface_(surface)
        , plot_(plot)
        , left_(left)
        , width_(width)
        , height_(height) {
        FindRanges();
    }

    /// The width of the numbers beside the frame.
    [[nodiscard]] double WidestNumber();

    /// @param numbers  the width that is left for them
    void Draw(double numbers);

private:
    void FindRanges();
    void FindFrame(double numbers);
    void UseText(double points, bool isBold);
    void UseLine(double points);
    [[nodiscard]] Point At(double expected, double found) const;
    void DrawTexts();
    void DrawAxes();
    void DrawTicksAcross();
    void DrawTicksUp();
    void DrawLine();
    void DrawPoints();

    Surface& surface_;
    const QuantilePlot& plot_;
    double left_;
    double width_;
    double height_;
    AxisRange across_;
    AxisRange up_;
    Point low_; ///< corners of the frame
    Point high_;
};

void Panel::FindRanges() {
    double expected = 0;
    double found = 0;
    for (const QuantilePoint& point : plot_.points) {
        expected = std::max(expected, std::abs(point.expected));
        found = std::max(found, std::abs(point.found));
    }
    across_ = RangeTo(expected, plot_.isAboutZero);
    up_ = RangeTo(std::max(found, expected * plot_.slope), plot_.isAboutZero);
}

void Panel::UseText(double points, bool isBold) {
    DrawState state = surface_.State();
    state.font = {};
    state.font.points = points;
    state.font.bold = isBold;
    state.foreColour = kBlack;
    surface_.SetState(state);
}

void Panel::UseLine(double points) {
    DrawState state = surface_.State();
    state.drawStyle = kSolidLine;
    state.widthInPoints = points;
    state.fillStyle = kNoFill;
    surface_.SetState(state);
}

double Panel::WidestNumber() {
    UseText(kTextPoints, false);
    double widest = 0;
    for (int tick = 0; tick < up_.Ticks(); ++tick) {
        widest = std::max(widest, surface_.TextWidth(TickText(up_.Tick(tick), up_.step)));
    }
    return widest;
}

void Panel::FindFrame(double numbers) {
    UseText(kTextPoints, false);
    const double line = surface_.TextHeight();
    low_ = {left_ + kGap + numbers + kGap + kTick, 2 * (line + kGap) + kTick + kBelowTick};
    high_ = {left_ + width_ - kRightMargin, height_ - 2 * line - 4 * kGap};
    const double side = std::min(high_.x - low_.x, high_.y - low_.y);
    low_.x += (high_.x - low_.x - side) / 2;
    high_ = {low_.x + side, low_.y + side};
}

Point Panel::At(double expected, double found) const {
    return {low_.x + across_.Share(expected) * (high_.x - low_.x),
            low_.y + up_.Share(found) * (high_.y - low_.y)};
}

void Panel::DrawTexts() {
    UseText(kTextPoints, false);
    const double line = surface_.TextHeight();
    surface_.Text({low_.x, high_.y + kGap + line}, plot_.up);
    const double middle = (low_.x + high_.x) / 2;
    surface_.Text({middle - surface_.TextWidth(plot_.across) / 2, line + kGap}, plot_.across);
    UseText(kTitlePoints, true);
    surface_.Text({low_.x, high_.y + 2 * kGap + line + surface_.TextHeight()}, plot_.title);
}

void Panel::DrawTicksAcross() {
    for (int tick = 0; tick < across_.Ticks(); ++tick) {
        const double value = across_.Tick(tick);
        const double x = At(value, 0).x;
        surface_.Line({x, low_.y}, {x, low_.y - kTick}, kFrame);
        const std::string text = TickText(value, across_.step);
        surface_.Text({x - surface_.TextWidth(text) / 2, low_.y - kTick - kBelowTick}, text);
    }
}

void Panel::DrawTicksUp() {
    for (int tick = 0; tick < up_.Ticks(); ++tick) {
        const double value = up_.Tick(tick);
        const double y = At(0, value).y;
        surface_.Line({low_.x, y}, {low_.x - kTick, y}, kFrame);
        const std::string text = TickText(value, up_.step);
        surface_.Text(
            {low_.x - kTick - kGap / 2 - surface_.TextWidth(text), y + surface_.TextHeight() / 2},
            text);
    }
}

void Panel::DrawAxes() {
    UseText(kTextPoints, false);
    UseLine(kThinLine);
    surface_.Box(low_, high_, kFrame);
    DrawTicksAcross();
    DrawTicksUp();
}

/// The expected line within the frame.
void Panel::DrawLine() {
    UseLine(2 * kThinLine);
    const double end = std::min(across_.high, up_.high / plot_.slope);
    const double start = plot_.isAboutZero ? -end : 0;
    surface_.Line(At(start, start * plot_.slope), At(end, end * plot_.slope), kExpected);
}

void Panel::DrawPoints() {
    UseLine(kPointLine);
    std::vector<Point> places;
    places.reserve(plot_.points.size());
    for (const QuantilePoint& point : plot_.points) {
        places.push_back(At(point.expected, point.found));
    }
    GlyphPart ring;
    ring.kind = GlyphPart::Kind::Circle;
    ring.ink = GlyphPart::Ink::Outline;
    ring.points = {{0, 0}};
    ring.radius = kPointRadius;
    surface_.Markers({"quantile", {ring}}, kBlack, places);
}

void Panel::Draw(double numbers) {
    FindFrame(numbers);
    if (high_.x - low_.x < kLeastSide) {
        return;
    }
    DrawAxes();
    DrawLine();
    DrawPoints();
    DrawTexts();
}

} // namespace

void DrawQuantiles(Surface& surface, std::span<const QuantilePlot> plots) {
    const SavedState saved(surface);
    const UserScale former = surface.Scale();
    const Point pixel = surface.PixelSize();
    const double width = std::abs(former.right - former.left) / pixel.x;
    const double height = std::abs(former.top - former.bottom) / pixel.y;
    surface.SetUserScale({0, height, width, 0});
    const double each = width / static_cast<double>(std::max<std::size_t>(plots.size(), 1));
    std::vector<Panel> panels;
    double numbers = 0; // the same in all, so that their frames are of one size
    for (const QuantilePlot& plot : plots) {
        const double left = static_cast<double>(panels.size()) * each;
        panels.emplace_back(surface, plot, left, each, height);
        numbers = std::max(numbers, panels.back().WidestNumber());
    }
    for (Panel& panel : panels) {
        panel.Draw(numbers);
    }
    surface.SetUserScale(former);
}

} // namespace quandrel
