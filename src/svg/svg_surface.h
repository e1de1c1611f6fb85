// SPDX-License-Identifier: MIT
//
// The picture surface on an SVG document.

#pragma once

#include "platform/surface.h"
#include "svg/svg_writer.h"

#include <map>
#include <string>
#include <tuple>

namespace quandrel {

/// A rectangle of a document, in its units.
struct SvgArea {
    double left = 0;
    double top = 0;
    double width = 1; ///< above 0, as the height
    double height = 1;
};

/// Draws into a rectangle of a document, which nothing is clipped to. Several surfaces may share a
/// document; what is drawn later covers what is there.
///
/// Everything stays a line, a shape or a text. Marks that are toggled are plain lines. Of opaque
/// markers of one call the last one at each place, rounded to a thousandth of a unit, is drawn.
/// Texts have the sizes of text_metrics.h, whatever the family of the font.
class SvgSurface : public Surface {
public:
    /// @param writer  must outlive the surface
    SvgSurface(SvgWriter& writer, const SvgArea& area);

    void SetUserScale(const UserScale& scale) override;

    [[nodiscard]] UserScale Scale() const override { return scale_; }

    [[nodiscard]] Point PixelSize() const override;

    /// Covers the rectangle.
    void Clear(Colour background) override;

    void SetState(const DrawState& state) override { state_ = state; }

    [[nodiscard]] const DrawState& State() const override { return state_; }

    void Line(Point from, Point to, Colour colour) override;
    void Box(Point corner, Point opposite, Colour colour) override;
    void FilledBox(Point corner, Point opposite, Colour colour) override;
    void Circle(Point centre, double radius, Colour colour) override;
    void Arc(Point centre, double radius, double start, double end, Colour colour) override;
    void Wedge(Point centre, double radius, double start, double end, Colour colour) override;
    void Polyline(std::span<const Point> points, Colour colour) override;
    void Polygon(std::span<const Point> points, Colour colour) override;
    void Path(std::span<const std::vector<Point>> rings, Colour colour) override;
    void SetPixel(Point at, Colour colour) override;
    void Markers(const Glyph& glyph, Colour colour, std::span<const Point> positions) override;
    void Text(Point topLeft, std::string_view utf8) override;
    void PushClip(Point centre, double radius) override;
    void PopClip() override;
    void BeginGroup(std::string_view id, std::string_view title) override;
    void EndGroup() override;
    [[nodiscard]] double TextWidth(std::string_view utf8) const override;
    [[nodiscard]] double TextHeight() const override;

private:
    [[nodiscard]] Point Map(Point point) const;
    [[nodiscard]] std::vector<Point> Map(std::span<const Point> points) const;
    [[nodiscard]] SvgArc ArcOf(Point centre, double radius, double start, double end) const;
    [[nodiscard]] double LineWidth(double leastPixels) const;
    [[nodiscard]] SvgPen PenOf(Colour colour) const;
    [[nodiscard]] SvgFill FillOf(Colour colour) const;
    [[nodiscard]] SvgFill StateFill() const;
    [[nodiscard]] double FontSize() const;
    [[nodiscard]] SvgPart PartOf(const GlyphPart& part, Colour colour) const;
    [[nodiscard]] const std::string& SymbolOf(const Glyph& glyph, Colour colour);

    /// Name, colour, pen width, opacity of lines and of fills.
    using SymbolKey = std::tuple<std::string, std::uint32_t, double, double, double>;

    SvgWriter& writer_;
    SvgArea area_;
    UserScale scale_;
    double unitsX_ = 1; ///< of the document per user unit
    double unitsY_ = 1;
    DrawState state_;
    std::map<SymbolKey, std::string> symbols_; ///< ids
};

} // namespace quandrel
