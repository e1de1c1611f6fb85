// SPDX-License-Identifier: MIT

#include "fabric/label_places.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

/// Gaps between the edge of a marker and its label, in heights of the label.
constexpr std::array<double, 4> kGaps = {0.1, 0.6, 1.3, 2.2};

/// Gap beside a text, points.
constexpr double kTextGap = 2;

/// Directions from a marker to its label, best first.
constexpr std::array<Point, 8> kDirections = {
    {{1, 0}, {1, 1}, {1, -1}, {-1, 0}, {-1, 1}, {-1, -1}, {0, 1}, {0, -1}}};

bool IsWithin(const LabelBox& room, const LabelBox& box) {
    return box.left >= room.left && box.bottom >= room.bottom && box.Right() <= room.Right()
           && box.Top() <= room.Top();
}

} // namespace

bool Overlap(const LabelBox& a, const LabelBox& b) {
    return a.left < b.Right() && b.left < a.Right() && a.bottom < b.Top() && b.bottom < a.Top();
}

bool Crosses(Point from, Point to, const LabelBox& box) {
    // The part of the line within the bounds of one axis after the other, as shares of its length.
    double first = 0;
    double last = 1;
    const auto confine = [&first, &last](double start, double length, double low, double high) {
        if (length == 0) {
            return start > low && start < high;
        }
        const auto [enter, leave] = std::minmax({(low - start) / length, (high - start) / length});
        first = std::max(first, enter);
        last = std::min(last, leave);
        return first < last;
    };
    return confine(from.x, to.x - from.x, box.left, box.Right())
           && confine(from.y, to.y - from.y, box.bottom, box.Top());
}

void LabelPlaces::TakeText(const LabelBox& box) {
    taken_.push_back({box.left - kTextGap, box.bottom, box.width + 2 * kTextGap, box.height});
}

std::optional<LabelBox> LabelPlaces::TakeFirstFree(std::span<const LabelBox> candidates) {
    const auto isFree = [this](const LabelBox& box) {
        return IsWithin(room_, box) && std::ranges::none_of(taken_, [&box](const LabelBox& other) {
                   return Overlap(box, other);
               });
    };
    const auto isClear = [this, &isFree](const LabelBox& box) {
        return isFree(box) && std::ranges::none_of(lines_, [&box](const auto& line) {
                   return Crosses(line[0], line[1], box);
               });
    };
    auto found = std::ranges::find_if(candidates, isClear);
    if (found == candidates.end()) {
        found = std::ranges::find_if(candidates, isFree);
    }
    if (found == candidates.end()) {
        return std::nullopt;
    }
    TakeText(*found);
    return *found;
}

std::vector<LabelBox> PlacesAround(Point marker, double reach, double width, double height) {
    std::vector<LabelBox> places;
    for (const double gap : kGaps) {
        const double away = reach + gap * height;
        for (const Point& to : kDirections) {
            // Diagonally the label's corner is next to the marker, else the middle of its edge.
            const double diagonal = to.x != 0 && to.y != 0 ? 0.75 : 1;
            const double x = marker.x + to.x * away * diagonal;
            const double y = marker.y + to.y * away * diagonal;
            places.push_back(
                {x + (to.x - 1) / 2 * width, y + (to.y - 1) / 2 * height, width, height});
        }
    }
    return places;
}

} // namespace quandrel
