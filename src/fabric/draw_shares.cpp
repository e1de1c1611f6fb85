// SPDX-License-Identifier: MIT

#include "fabric/fabric_canvas.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace quandrel {

namespace {

constexpr double kGap = 3;
constexpr double kTick = 2;
constexpr int kParts = 5; ///< of each side
constexpr double kHeightOfSide = std::numbers::sqrt3 / 2;
constexpr FabricPen kGridPen{0.3, kGridGrey, kSolidLine};

/// The triangle in a box.
class ShareTriangle {
public:
    ShareTriangle(FabricCanvas& canvas, const LabelBox& box)
        : canvas_(canvas)
        , labels_(box) {
        Place(box);
    }

    void DrawFrame();
    void DrawFabrics(const NumberedFabrics& fabrics);

private:
    void Place(const LabelBox& box);

    /// The place of shares that add up to 1.
    [[nodiscard]] Point At(const FabricShares& shares) const {
        return {middle_ + side_ * (shares.girdle - shares.point) / 2,
                top_ - side_ * kHeightOfSide * shares.random};
    }

    void Label(std::string_view text, Point at, TextAnchor anchor, double points = kLabelPoints);
    void DrawTick(const FabricShares& at, Point towards, const std::string& text);
    void DrawGrid();
    void DrawTicks();
    void NameCorners();

    FabricCanvas& canvas_;
    LabelPlaces labels_;
    double middle_ = 0;
    double top_ = 0;
    double side_ = 0;
};

void ShareTriangle::Place(const LabelBox& box) {
    const double label = canvas_.TextHeight(kLabelPoints);
    const double title = canvas_.TextHeight(kTitlePoints);
    const double beside = canvas_.BoxOf("0.8", {}, {}).width + kTick + kGap;
    const double above = title + label + kTick + 2 * kGap;
    const double below = title + kGap;
    const double width = box.width - 2 * beside;
    const double height = box.height - above - below;
    side_ = std::max(std::min(width, height / kHeightOfSide), 4 * kMarkerReach);
    middle_ = box.left + box.width / 2;
    top_ = box.Top() - above;
}

void ShareTriangle::Label(std::string_view text, Point at, TextAnchor anchor, double points) {
    const LabelBox box = canvas_.BoxOf(text, at, anchor, points);
    labels_.TakeText(box);
    canvas_.Write(box, text, points);
}

void ShareTriangle::DrawGrid() {
    for (int i = 1; i < kParts; ++i) {
        const double share = static_cast<double>(i) / kParts;
        const double rest = 1 - share;
        canvas_.Line(At({share, rest, 0}), At({share, 0, rest}), kGridPen);
        canvas_.Line(At({rest, share, 0}), At({0, share, rest}), kGridPen);
        canvas_.Line(At({rest, 0, share}), At({0, rest, share}), kGridPen);
    }
}

/// @param towards  out of the triangle, of length 1
void ShareTriangle::DrawTick(const FabricShares& at, Point towards, const std::string& text) {
    const Point start = At(at);
    const double reach = kTick + kGap / 2;
    canvas_.Line(start, {start.x + kTick * towards.x, start.y + kTick * towards.y}, kTickPen);
    // The side of the text towards the triangle is at the tick.
    Label(text, {start.x + reach * towards.x, start.y + reach * towards.y},
          {(1 - towards.x) / 2, (1 - towards.y) / 2});
}

/// Scales of the three shares: of girdles to the right along the top, of random fabrics down the
/// right side, of points up the left one. Each has its letter in its middle.
void ShareTriangle::DrawTicks() {
    constexpr Point kUp{0, 1};
    constexpr Point kRight{1, 0};
    constexpr Point kLeft{-1, 0};
    for (int i = 1; i < kParts; ++i) {
        const double share = static_cast<double>(i) / kParts;
        const std::string text = FormatNumber(share, "0.0");
        DrawTick({1 - share, share, 0}, kUp, text);
        DrawTick({0, 1 - share, share}, kRight, text);
        DrawTick({share, 0, 1 - share}, kLeft, text);
    }
    const auto name = [this](const char* letter, const FabricShares& at, Point towards) {
        const Point start = At(at);
        const double reach = kTick + kGap;
        Label(letter, {start.x + reach * towards.x, start.y + reach * towards.y},
              {(1 - towards.x) / 2, (1 - towards.y) / 2}, kTitlePoints);
    };
    name("G", {0.5, 0.5, 0}, kUp);
    name("R", {0, 0.5, 0.5}, kRight);
    name("P", {0.5, 0, 0.5}, kLeft);
}

void ShareTriangle::NameCorners() {
    const double above = canvas_.TextHeight(kLabelPoints) + kTick + kGap;
    const Point point = At({1, 0, 0});
    const Point girdle = At({0, 1, 0});
    const Point random = At({0, 0, 1});
    Label("P (point)", {point.x, point.y + above}, {0.25, 0}, kTitlePoints);
    Label("G (girdle)", {girdle.x, girdle.y + above}, {0.75, 0}, kTitlePoints);
    Label("R (random)", {random.x, random.y - kGap}, {0.5, 1}, kTitlePoints);
}

void ShareTriangle::DrawFrame() {
    DrawGrid();
    const std::array<Point, 3> corners = {At({1, 0, 0}), At({0, 1, 0}), At({0, 0, 1})};
    canvas_.Polygon(corners, kFramePen);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        labels_.Avoid(corners[i], corners[(i + 1) % corners.size()]);
    }
    DrawTicks();
    NameCorners();
}

void ShareTriangle::DrawFabrics(const NumberedFabrics& fabrics) {
    std::vector<Point> at;
    for (const FabricPoint* point : fabrics.points) {
        at.push_back(At(point->shares));
    }
    TakeMarkers(labels_, at);
    DrawFabricMarkers(canvas_, labels_, fabrics.points, at, fabrics.numbers);
}

} // namespace

void DrawShares(FabricCanvas& canvas, const LabelBox& box, const NumberedFabrics& fabrics) {
    ShareTriangle triangle(canvas, box);
    triangle.DrawFrame();
    triangle.DrawFabrics(fabrics);
}

} // namespace quandrel
