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

#include <memory>
#include <string>

namespace quandrel {

class SvgWriter;

} // namespace quandrel

namespace quandrel::api {

/// A picture as an SVG 1.1 document of its own, in its true size. Numbers are pixels, rounded to
/// thousandths. Consecutive shapes of one style share a group, and what BeginGroup names is a group
/// with a title. Markers are written once, by reference; of opaque ones with the same place only
/// the last. The id of a hatch, a clip or a marker is made of what it is, so that pictures can be
/// joined in one document.
///
/// Texts have the sizes of Liberation Sans, which are those of Arial and Helvetica; in other fonts
/// they may be narrower or wider. Any text can be written: what XML does not allow is replaced by
/// U+FFFD.
class SvgPicture : public Surface {
public:
    explicit SvgPicture(Extent size);
    SvgPicture(const SvgPicture& other);
    SvgPicture(SvgPicture&& other) noexcept;
    SvgPicture& operator=(const SvgPicture& other);
    SvgPicture& operator=(SvgPicture&& other) noexcept;
    ~SvgPicture() override;

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
    void Markers(const Marker& marker, std::span<const Point> positions) override;
    void Text(Point topLeft, std::string_view utf8, const Font& font, Colour colour) override;
    void PushClip(Point centre, double radius) override;
    void PopClip() override;
    void BeginGroup(std::string_view id, std::string_view title) override;
    void EndGroup() override;
    [[nodiscard]] double TextWidth(std::string_view utf8, const Font& font) const override;
    [[nodiscard]] double TextHeight(const Font& font) const override;

private:
    Extent size_;
    std::unique_ptr<SvgWriter> writer_;
};

} // namespace quandrel::api
