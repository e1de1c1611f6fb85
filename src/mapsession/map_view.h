// SPDX-License-Identifier: MIT
//
// The part of the map that a window shows.

#pragma once

#include "mapsession/session_geometry.h"

namespace quandrel {

/// Where the map stands in a window. Pixels are logical ones, from the window's top left corner,
/// down and to the right; both directions of the map have one scale.
class MapView {
public:
    /// A window of another size, at least 1 each way. A map that has been fitted and left alone
    /// since is fitted again; else its middle and its scale stay.
    void Resize(double widthPixels, double heightPixels);

    /// Shows a box as large as the window lets it, with a margin. A box without width and height
    /// comes to the middle, the scale stays. An empty box changes nothing.
    void FitTo(const MapBox& box);

    /// Brings a point to the middle and shows the map larger by the factor. Factors below 1 make it
    /// smaller; what is not above 0 counts as 1. The scale stays within what coordinates can tell.
    void ZoomAbout(MapPoint middle, double factor);

    /// Brings the one point to where the other one is.
    void Pan(MapPoint grabbed, MapPoint to);

    [[nodiscard]] double WidthPixels() const { return width_; }

    [[nodiscard]] double HeightPixels() const { return height_; }

    [[nodiscard]] MapPoint Middle() const { return middle_; }

    /// Length of a pixel in map units, above 0.
    [[nodiscard]] double UnitsPerPixel() const { return unitsPerPixel_; }

    /// What the window shows.
    [[nodiscard]] MapBox Box() const;

    [[nodiscard]] MapPoint ToPixels(MapPoint map) const {
        return {width_ / 2 + (map.x - middle_.x) / unitsPerPixel_,
                height_ / 2 - (map.y - middle_.y) / unitsPerPixel_};
    }

    [[nodiscard]] MapPoint ToMap(MapPoint pixels) const {
        return {middle_.x + (pixels.x - width_ / 2) * unitsPerPixel_,
                middle_.y - (pixels.y - height_ / 2) * unitsPerPixel_};
    }

private:
    double width_ = 640;
    double height_ = 480;
    MapPoint middle_;
    double unitsPerPixel_ = 1;
    MapBox fitted_; ///< what the view was fitted to, empty when it has been changed since
};

} // namespace quandrel
