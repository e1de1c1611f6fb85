// SPDX-License-Identifier: MIT

#include "qt/painter_page.h"

#include <QMarginsF>
#include <QRectF>

#include <algorithm>

namespace quandrel {

namespace {

constexpr double kMillimetresInAnInch = 25.4;
constexpr double kLogicalResolution = 96;

} // namespace

Sheet SheetOf(const QPageLayout& layout) {
    const QSizeF size = layout.fullRect(QPageLayout::Millimeter).size();
    QPageLayout inMillimetres = layout;
    inMillimetres.setUnits(QPageLayout::Millimeter);
    const QMarginsF rim = inMillimetres.minimumMargins();
    return {size.width(), size.height(),
            std::max(std::max(rim.left(), rim.right()), std::max(rim.top(), rim.bottom()))};
}

PageSurfaces::PageSurfaces(QPagedPaintDevice& device)
    : painter_(&device)
    , dotsPerInch_(device.logicalDpiX()) {}

Surface& PageSurfaces::In(const PageRect& rect) {
    const double dots = dotsPerInch_ / kMillimetresInAnInch;
    surfaces_.push_back(std::make_unique<PainterSurface>(
        painter_, QRectF(rect.left * dots, rect.top * dots, rect.width * dots, rect.height * dots),
        dotsPerInch_ / kLogicalResolution, Medium::Vector));
    return *surfaces_.back();
}

bool PageSurfaces::End() {
    surfaces_.clear();
    return painter_.end();
}

} // namespace quandrel
