// SPDX-License-Identifier: MIT
//
// A surface that writes SVG.
//
// Example: a rose as the text of an SVG file.
//
//     namespace qd = quandrel::api;
//     qd::Plot plot;
//     plot.kind = qd::PlotKind::kRose;
//     plot.rows.planes = {{40, 120}, {38, 118}, {41, 125}};
//     qd::SvgPicture rose({400, 400});
//     qd::SvgPicture legend({160, 400});
//     qd::DrawPlot(plot, {.plot = rose, .legend = legend});
//     std::cout << rose.Document().substr(0, 4) << '\n'; // -> <svg

#pragma once

#include "quandrel/drawing.h"
#include "quandrel/surface.h"

#include <set>
#include <string>

namespace quandrel::api {

/// A picture as an SVG 1.1 document of its own. Numbers are rounded to thousandths of a pixel;
/// widths in points are written as points. A clip has an id that is made of its circle, so that
/// pictures can be joined in one document.
///
/// Texts are laid out by their estimated sizes; the viewer's fonts may be narrower or wider.
class SvgPicture : public Surface {
public:
    explicit SvgPicture(Extent size)
        : size_(size) {}

    /// The document as drawn so far, UTF-8.
    [[nodiscard]] std::string Document() const;

    [[nodiscard]] Extent Size() const override { return size_; }

    void Clear(Colour background) override;
    void Polyline(std::span<const Point> points, const Pen& pen) override;
    void Polygon(std::span<const Point> points, const Pen& pen, const Fill& fill) override;
    void Path(std::span<const std::vector<Point>> rings, const Pen& pen, const Fill& fill) override;
    void Circle(Point centre, double radius, const Pen& pen, const Fill& fill) override;
    void Arc(Point centre, double radius, double from, double sweep, const Pen& pen) override;
    void Wedge(Point centre, double radius, double from, double sweep, const Pen& pen,
               const Fill& fill) override;
    void Text(Point topLeft, std::string_view utf8, const Font& font, Colour colour) override;
    void PushClip(Point centre, double radius) override;
    void PopClip() override;
    [[nodiscard]] double TextWidth(std::string_view utf8, const Font& font) const override;
    [[nodiscard]] double TextHeight(const Font& font) const override;

private:
    void Add(const std::string& shape, const Pen& pen, const Fill& fill);
    [[nodiscard]] std::string PaintOf(const Fill& fill);

    Extent size_;
    std::string body_;
    std::set<std::string> defined_; ///< ids of the hatches and clips that the body defines
    int openClips_ = 0;
};

} // namespace quandrel::api
