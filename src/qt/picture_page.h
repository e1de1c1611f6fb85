// SPDX-License-Identifier: MIT
//
// The page of a picture in a file: surfaces on its parts, whatever the type of the file.

#pragma once

#include "print/print_texts.h"
#include "qt/painter_surface.h"
#include "svg/svg_surface.h"

#include <QPainter>

#include <memory>
#include <vector>

namespace quandrel {

/// A white page. What is drawn on it later covers what is there.
class PicturePage {
public:
    virtual ~PicturePage() = default;

    /// A surface on a part of the page, which nothing is clipped to. It lasts as long as the page.
    ///
    /// @param part  logical pixels from the top left corner of the page
    [[nodiscard]] virtual Surface& In(const RoomRect& part) = 0;
};

/// A page that a painter draws.
class PainterPage : public PicturePage {
public:
    /// @param painter  must outlive the page
    /// @param factor   painter units per logical pixel
    PainterPage(QPainter& painter, double factor, Medium medium)
        : painter_(painter)
        , factor_(factor)
        , medium_(medium) {}

    [[nodiscard]] Surface& In(const RoomRect& part) override;

private:
    QPainter& painter_;
    double factor_;
    Medium medium_;
    std::vector<std::unique_ptr<PainterSurface>> surfaces_;
};

/// A page that is an SVG document.
class SvgPage : public PicturePage {
public:
    /// @param writer  must outlive the page
    explicit SvgPage(SvgWriter& writer)
        : writer_(writer) {}

    [[nodiscard]] Surface& In(const RoomRect& part) override;

private:
    SvgWriter& writer_;
    std::vector<std::unique_ptr<SvgSurface>> surfaces_;
};

} // namespace quandrel
