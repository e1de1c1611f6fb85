// SPDX-License-Identifier: MIT
//
// A public surface as one of the program's: positions in user units go out as pixels, the state
// goes out with each call.

#pragma once

#include "platform/surface.h"
#include "quandrel/surface.h"

namespace quandrel::api {

/// The part of a public surface that is drawn on, in pixels.
struct SurfaceArea {
    double left = 0;
    double top = 0;
    double width = 0; ///< above 0, as the height
    double height = 0;
};

/// User units must be as long across as up. Marks that are toggled become plain lines, as on paper.
class InnerSurface : public quandrel::Surface {
public:
    InnerSurface(api::Surface& onto, const SurfaceArea& area)
        : onto_(onto)
        , area_(area)
        , scale_{0, 0, area.width, -area.height} {}

    void SetUserScale(const UserScale& scale) override { scale_ = scale; }

    [[nodiscard]] UserScale Scale() const override { return scale_; }

    [[nodiscard]] quandrel::Point PixelSize() const override;
    void Clear(quandrel::Colour background) override;

    void SetState(const DrawState& state) override { state_ = state; }

    [[nodiscard]] const DrawState& State() const override { return state_; }

    void Line(quandrel::Point from, quandrel::Point to, quandrel::Colour colour) override;
    void Box(quandrel::Point corner, quandrel::Point opposite, quandrel::Colour colour) override;
    void FilledBox(quandrel::Point corner, quandrel::Point opposite,
                   quandrel::Colour colour) override;
    void Circle(quandrel::Point centre, double radius, quandrel::Colour colour) override;
    void Arc(quandrel::Point centre, double radius, double start, double end,
             quandrel::Colour colour) override;
    void Wedge(quandrel::Point centre, double radius, double start, double end,
               quandrel::Colour colour) override;
    void Polyline(std::span<const quandrel::Point> points, quandrel::Colour colour) override;
    void Polygon(std::span<const quandrel::Point> points, quandrel::Colour colour) override;
    void Path(std::span<const std::vector<quandrel::Point>> rings,
              quandrel::Colour colour) override;
    void SetPixel(quandrel::Point at, quandrel::Colour colour) override;
    void Markers(const Glyph& glyph, quandrel::Colour colour,
                 std::span<const quandrel::Point> positions) override;
    void Text(quandrel::Point topLeft, std::string_view utf8) override;
    void PushClip(quandrel::Point centre, double radius) override;
    void PopClip() override;
    void BeginGroup(std::string_view id, std::string_view title) override;
    void EndGroup() override;
    [[nodiscard]] double TextWidth(std::string_view utf8) const override;
    [[nodiscard]] double TextHeight() const override;

private:
    [[nodiscard]] Point Out(quandrel::Point point) const;
    [[nodiscard]] std::vector<Point> Out(std::span<const quandrel::Point> points) const;
    [[nodiscard]] Pen PenOf(quandrel::Colour colour) const;
    [[nodiscard]] Fill StateFill() const;
    [[nodiscard]] Font StateFont() const;
    [[nodiscard]] MarkerPart PartOf(const GlyphPart& part, Colour colour) const;

    api::Surface& onto_;
    SurfaceArea area_;
    UserScale scale_;
    DrawState state_;
};

} // namespace quandrel::api
