// SPDX-License-Identifier: MIT
//
// A surface that draws nothing and tells whether something was drawn at a point.

#pragma once

#include "platform/surface.h"

#include <utility>
#include <vector>

namespace quandrel {

class HitSurface : public Surface {
public:
    /// @param like   gives the scale and the sizes of texts; gets its state back at the end
    /// @param at     the point, user units of `like`
    /// @param reach  how far lines and symbols may be from the point, the same units
    HitSurface(Surface& like, Point at, double reach)
        : like_(like)
        , kept_(like.State())
        , at_(at)
        , reach_(reach) {}

    ~HitSurface() override { like_.SetState(kept_); }

    HitSurface(const HitSurface&) = delete;
    HitSurface& operator=(const HitSurface&) = delete;

    /// Whether a line, a symbol, a text or a fill that is not white was drawn at the point since
    /// the beginning. White fills are the paper.
    [[nodiscard]] bool IsHit() const { return isHit_; }

    void SetUserScale(const UserScale& scale) override { static_cast<void>(scale); }

    [[nodiscard]] UserScale Scale() const override { return like_.Scale(); }

    [[nodiscard]] Point PixelSize() const override { return like_.PixelSize(); }

    void Clear(Colour background) override { static_cast<void>(background); }

    void SetState(const DrawState& state) override { like_.SetState(state); }

    [[nodiscard]] const DrawState& State() const override { return like_.State(); }

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

    void PushClip(Point centre, double radius) override { clips_.emplace_back(centre, radius); }

    void PopClip() override { clips_.pop_back(); }

    [[nodiscard]] double TextWidth(std::string_view utf8) const override {
        return like_.TextWidth(utf8);
    }

    [[nodiscard]] double TextHeight() const override { return like_.TextHeight(); }

private:
    void Take(bool isHit);
    void TakeLines(std::span<const Point> points);
    [[nodiscard]] bool HasFill() const;

    Surface& like_;
    DrawState kept_;
    Point at_;
    double reach_;
    bool isHit_ = false;
    std::vector<std::pair<Point, double>> clips_;
};

} // namespace quandrel
