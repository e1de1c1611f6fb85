// SPDX-License-Identifier: MIT
//
// Drawing on a page of a printer or a PDF.

#pragma once

#include "platform/printer_port.h"
#include "qt/painter_surface.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>

#include <memory>
#include <vector>

namespace quandrel {

/// The paper of a page layout in its orientation, with the margin that its printer leaves blank.
[[nodiscard]] Sheet SheetOf(const QPageLayout& layout);

/// Surfaces on a page, placed by millimetres from the corner of the paper. Everything stays
/// vectors.
class PageSurfaces {
public:
    /// @param device  its page is the whole paper; must outlive this
    explicit PageSurfaces(QPagedPaintDevice& device);

    /// False when the device cannot be drawn on.
    [[nodiscard]] bool IsGood() const { return painter_.isActive(); }

    [[nodiscard]] Surface& In(const PageRect& rect);

    /// Ends the drawing. False when the device failed.
    [[nodiscard]] bool End();

private:
    QPainter painter_;
    double dotsPerInch_;
    std::vector<std::unique_ptr<PainterSurface>> surfaces_;
};

} // namespace quandrel
