// SPDX-License-Identifier: MIT

#include "mapsession/map_view.h"

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

/// The part of the window that a fitted box takes up at most.
constexpr double kFilledShare = 0.9;

constexpr double kLargestUnitsPerPixel = 1e12;

/// The finest scale at a position: a pixel is still many steps of a double there.
double SmallestUnitsPerPixel(MapPoint middle) {
    return std::max(1e-12, 1e-12 * std::max(std::abs(middle.x), std::abs(middle.y)));
}

} // namespace

void MapView::Resize(double widthPixels, double heightPixels) {
    width_ = std::max(1.0, widthPixels);
    height_ = std::max(1.0, heightPixels);
    FitTo(fitted_);
}

void MapView::FitTo(const MapBox& box) {
    if (box.IsEmpty()) {
        return;
    }
    middle_ = {box.left + (box.right - box.left) / 2, box.bottom + (box.top - box.bottom) / 2};
    const double wanted = std::max((box.right - box.left) / (kFilledShare * width_),
                                   (box.top - box.bottom) / (kFilledShare * height_));
    if (wanted > 0) {
        unitsPerPixel_ = std::clamp(wanted, SmallestUnitsPerPixel(middle_), kLargestUnitsPerPixel);
    }
    fitted_ = box;
}

void MapView::ZoomAbout(MapPoint middle, double factor) {
    middle_ = middle;
    if (factor > 0) {
        unitsPerPixel_ = std::clamp(unitsPerPixel_ / factor, SmallestUnitsPerPixel(middle_),
                                    kLargestUnitsPerPixel);
    }
    fitted_ = {};
}

void MapView::Pan(MapPoint grabbed, MapPoint to) {
    middle_ = {middle_.x + grabbed.x - to.x, middle_.y + grabbed.y - to.y};
    fitted_ = {};
}

MapBox MapView::Box() const {
    return MapBox::Of(ToMap({0, 0}), ToMap({width_, height_}));
}

} // namespace quandrel
