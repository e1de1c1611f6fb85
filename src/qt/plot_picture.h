// SPDX-License-Identifier: MIT
//
// The active plot as a picture in a file: the net alone, or with its legend and boxes.

#pragma once

#include "core/plot_record.h"
#include "drawing/figure_layout.h"
#include "print/picture_layout.h"
#include "qt/picture_file.h"

#include <QImage>

#include <memory>
#include <optional>
#include <string>

namespace quandrel {

/// A picture as a figure for print (drawing/figure_layout.h): in millimetres, with the legend of a
/// figure and without the boxes of the window.
struct FigureExport {
    FigureSize size;
    std::shared_ptr<const FigureStyle> style; ///< null for that of the plot, or Journal for one in
                                              ///< Classic
    int dotsPerInch = 300;                    ///< of a PNG, which says so
    bool isTransparent = false;               ///< as PictureSize::isTransparent
};

struct PictureOptions {
    /// Height in pixels of a PNG. Lines, symbols and texts grow with it.
    int size = 1000;
    PicturePart part = PicturePart::WholePlot;
    std::size_t bandBytes = kBytesInBand; ///< of a large PNG, see PictureSize
    std::optional<FigureExport> figure;   ///< then size and part do not count
};

/// A file name for the picture of a plot: that of its data with the ending .png, or its title.
[[nodiscard]] std::string PictureName(const PlotRecord& record);

/// Draws gActivePlot into a file whose ending gives its type: .png, .svg, .pdf. Nothing is
/// recalculated. A page of a PDF is a whole number of points wide and high.
///
/// @return as SavePicture; for a rose as a figure, and for a figure that is too narrow, a message
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
