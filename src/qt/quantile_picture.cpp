// SPDX-License-Identifier: MIT

#include "qt/quantile_picture.h"

#include "hypotheses/draw_quantiles.h"
#include "qt/picture_file.h"

namespace quandrel {

std::string SaveQuantilePicture(const std::string& path, const std::string& title,
                                std::span<const QuantilePlot> plots, int height) {
    PictureSize size;
    size.width = kQuantilesWidth;
    size.height = kQuantilesHeight;
    size.scale = height / kQuantilesHeight;
    return SavePicture(path, size, title, [plots](PicturePage& page) {
        DrawQuantiles(page.In({0, 0, kQuantilesWidth, kQuantilesHeight}), plots);
    });
}

} // namespace quandrel
