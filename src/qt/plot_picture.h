// SPDX-License-Identifier: MIT
//
// The active plot as a picture in a file: the net alone, or with its legend and boxes.

#pragma once

#include "core/plot_record.h"
#include "print/picture_layout.h"
#include "qt/figure_picture.h"
#include "qt/picture_file.h"

#include <QImage>

#include <optional>
#include <string>

namespace quandrel {

struct PictureOptions {
    /// Height in pixels of a PNG or TIFF. Lines, symbols and texts grow with it.
    int size = 1000;
    PicturePart part = PicturePart::WholePlot;
    std::size_t bandBytes = kBytesInBand; ///< of a large PNG, see PictureSize
    std::optional<FigureExport> figure;   ///< then size and part do not count
    bool hasData = false;                 ///< with the plot itself, if AbilitiesOf allows it
};

/// A file name for the picture of a plot: that of its data with the ending .png, or its title.
[[nodiscard]] std::string PictureName(const PlotRecord& record);

/// Draws gActivePlot into a file whose ending gives its type (PictureTypeOf). Nothing is
/// recalculated. A picture with its data can be opened as the plot (persistence/open_plot.h), which
/// then gives the same bytes; its title is that of the data, without the number of the plot. The
/// user is told where the plot is too large for the file and was left out.
///
/// @return as SavePicture; for a figure that is too narrow, and data in a file
///         that cannot hold them, a message
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
