// SPDX-License-Identifier: MIT
//
// A plot as a figure for print (drawing/figure_layout.h): its page, and its preview.

#pragma once

#include "core/figure_style.h"
#include "core/plot.h"
#include "core/result.h"
#include "drawing/figure_page.h"
#include "qt/picture_page.h"

#include <QImage>
#include <QSize>

#include <memory>

namespace quandrel {

/// A picture as a figure: in millimetres, with the legend of a figure and without the boxes of the
/// window.
struct FigureExport {
    FigureSize size;
    double height = 0;                        ///< of the page, millimetres, see LayOutFigureOnPage
    std::shared_ptr<const FigureStyle> style; ///< null for StyleChoiceForPrint of the plot
    int dotsPerInch = 300;                    ///< of a PNG or TIFF, which say so
    bool isTransparent = false;               ///< as PictureSize::isTransparent
};

/// The style of a figure.
[[nodiscard]] std::shared_ptr<const FigureStyle> StyleOfFigure(const FigureExport& figure,
                                                               const PlotRecord& record);

/// Divides the page of a figure of a plot that is worked out.
///
/// @param unseen  measures texts
[[nodiscard]] Result<FigureLayout> LayOutExport(const Plot& plot, const FigureExport& figure,
                                                Surface& unseen);

/// The page of a layout, logical pixels.
[[nodiscard]] RoomRect PageOfFigure(const FigureLayout& layout);

/// Draws a figure on its page.
void DrawExport(const Plot& plot, const FigureExport& figure, const FigureLayout& layout,
                PicturePage& page);

/// A figure as an image, for a preview. The plot has to be worked out.
///
/// @param room  pixels that the page is to fill, in width or in height; at least 1 each way
/// @return a failure as LayOutFigureOnPage
[[nodiscard]] Result<QImage> FigureImage(const Plot& plot, const FigureExport& figure, QSize room);

} // namespace quandrel
