// SPDX-License-Identifier: MIT
//
// The part of the map that a window shows.

#pragma once

#include "mapsession/session_geometry.h"

namespace quandrel {

/// The position of the map in a window. Pixels are logical, measured right and down from the
/// window's top left corner; both directions of the map have the same scale.
class MapView {
public:
    /// Sets the size of the window, at least 1 each way. A map that is unchanged since it was
    /// fitted is fitted again; otherwise its centre and its scale stay.
    void Resize(double widthPixels, double heightPixels);

    /// Shows a box as large as possible, with a margin. A box of width and height 0 is centred at
    /// the present scale. An empty box changes nothing.
    void FitTo(const MapBox& box);

    /// Centres a point and enlarges the map by the factor. Factors below 1 reduce it; a factor that
    /// is not above 0 counts as 1. The scale stays within the precision of coordinates.
    void ZoomAbout(MapPoint middle, double factor);

    /// Moves the map so that the first point is where the second one was.
    void Pan(MapPoint grabbed, MapPoint to);

    [[nodiscard]] double WidthPixels() const { return width_; }

    [[nodiscard]] double HeightPixels() const { return height_; }

    [[nodiscard]] MapPoint Middle() const { return middle_; }

    /// Length of a pixel in map units, above 0.
    [[nodiscard]] double UnitsPerPixel() const { return unitsPerPixel_; }

    /// The part of the map that the window shows.
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
    MapBox fitted_; ///< the box that the view was fitted to; empty when it has changed since
};

} // namespace quandrel
