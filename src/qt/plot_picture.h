// SPDX-License-Identifier: MIT
//
// The active plot as a picture in a file: the net alone, or with its legend and boxes.

#pragma once

#include "core/plot_record.h"
#include "print/picture_layout.h"
#include "qt/picture_file.h"

#include <QImage>

#include <string>

namespace quandrel {

struct PictureOptions {
    /// Height in pixels of a PNG. Lines, symbols and texts grow with it.
    int size = 1000;
    PicturePart part = PicturePart::WholePlot;
    std::size_t bandBytes = kBytesInBand; ///< of a large PNG, see PictureSize
};

/// A file name for the picture of a plot: that of its data with the ending .png, or its title.
[[nodiscard]] std::string PictureName(const PlotRecord& record);

/// Draws gActivePlot into a file whose ending gives its type: .png, .svg, .pdf. Nothing is
/// recalculated.
///
/// @return as SavePicture
[[nodiscard]] std::string SavePlotPicture(const std::string& path, const PictureOptions& options);

enum class PlotImagePart { Net, Legend };

/// Sizes of the boxes of a plot's window, logical pixels.
struct PlotBoxSizes {
    QSize net;
    QSize legend;
};

/// The net or the legend of gActivePlot on white, as in its box. Nothing is recalculated.
///
/// @param density  image pixels per logical pixel
[[nodiscard]] QImage PlotImage(PlotImagePart part, const PlotBoxSizes& boxes, double density);

/// The same as an SVG document of the size of the box.
[[nodiscard]] std::string PlotSvg(PlotImagePart part, const PlotBoxSizes& boxes);

} // namespace quandrel
