// SPDX-License-Identifier: MIT

#include "qt/picture_page.h"

namespace quandrel {

Surface& PainterPage::In(const RoomRect& part) {
    surfaces_.push_back(
        std::make_unique<PainterSurface>(painter_,
                                         QRectF(part.left * factor_, part.top * factor_,
                                                part.width * factor_, part.height * factor_),
                                         factor_, medium_));
    return *surfaces_.back();
}

Surface& SvgPage::In(const RoomRect& part) {
    const double pixel = writer_.Pixel();
    surfaces_.push_back(
        std::make_unique<SvgSurface>(writer_, SvgArea{part.left * pixel, part.top * pixel,
                                                      part.width * pixel, part.height * pixel}));
    return *surfaces_.back();
}

} // namespace quandrel
