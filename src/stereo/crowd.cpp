// SPDX-License-Identifier: MIT

#include "stereo/crowd.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <utility>

namespace quandrel {

namespace {

/// What one step of a picture of 8 bits cannot show.
constexpr double kUnseen = 1.0 / 512;

/// The number of rows from which on a place is as dark as one can see; the largest number where
/// symbols cannot be seen at all.
std::int32_t RowsOfDarkest(double opacity) {
    if (opacity > 1 - kUnseen) {
        return 1;
    }
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    const double rows = std::ceil(std::log(kUnseen) / std::log1p(-opacity)); // infinite for 0
    return rows < kMost ? static_cast<std::int32_t>(rows) : kMost;
}

} // namespace

double OpacityTogether(double opacity, std::int32_t rows) {
    return 1 - std::pow(1 - opacity, rows);
}

bool Crowd::Add(std::int16_t x, std::int16_t y) {
    if (x < -kReach || x > kReach || y < -kReach || y > kReach) {
        return false;
    }
    std::vector<std::int32_t>& column = columns_[static_cast<std::size_t>(x + kReach)];
    if (column.empty()) {
        column.resize(kSide);
    }
    std::int32_t& place = column[static_cast<std::size_t>(y + kReach)];
    const bool isNew = place == 0;
    if (isNew) {
        places_.push_back({{static_cast<double>(x), static_cast<double>(y)}, 0});
        place = static_cast<std::int32_t>(places_.size());
    }
    ++places_[static_cast<std::size_t>(place - 1)].rows;
    return isNew;
}

std::vector<CrowdLevel> Crowd::Levels(double opacity) const {
    const std::int32_t darkest = RowsOfDarkest(opacity);
    std::map<std::int32_t, std::vector<Point>> levels;
    for (const Place& place : places_) {
        levels[std::min(place.rows, darkest)].push_back(place.at);
    }
    std::vector<CrowdLevel> list;
    for (auto& [rows, places] : levels) {
        list.push_back({rows, std::move(places)});
    }
    return list;
}

} // namespace quandrel
