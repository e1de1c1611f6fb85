// SPDX-License-Identifier: MIT
//
// A surface that records what is drawn on it.

#pragma once

#include "platform/surface.h"

#include <map>
#include <string>
#include <vector>

namespace quandrel {

/// One call of a drawing procedure.
struct DrawOperation {
    enum class Kind {
        Clear, ///< the first operation, after a surface has been cleared
        Line,
        Box,
        FilledBox,
        Circle,
        Arc,
        Wedge,
        Polyline,
        Polygon,
        Pixel,
        Markers,
        Text,
        Path,
        PushClip, ///< has a centre and a radius
        PopClip,
    };
    Kind kind = Kind::Line;
    /// Ends, corners, centre, vertices or positions, as passed to the call.
    std::vector<Point> points;
    std::vector<std::vector<Point>> rings; ///< of a path
    double radius = 0;
    double start = 0; ///< radians
    double end = 0;
    Colour colour;
    std::string text; ///< of a text, or the name of a glyph
    DrawState state;  ///< at the call
};

/// One line that describes an operation, for golden files: "line (0, 0) (10, 5) 000000 width 2".
/// State as in a new surface is omitted; numbers are rounded to thousandths.
[[nodiscard]] std::string OperationText(const DrawOperation& operation);

class RecordingSurface : public Surface {
public:
    /// @param widthPixels, heightPixels  size in logical pixels, above 0
    RecordingSurface(double widthPixels, double heightPixels)
        : widthPixels_(widthPixels)
        , heightPixels_(heightPixels)
        , scale_{0, 0, widthPixels, -heightPixels} {}

    /// The last Clear, if there was one, and the operations since.
    [[nodiscard]] const std::vector<DrawOperation>& Operations() const { return operations_; }

    /// The glyphs of the markers among the operations, by name.
    [[nodiscard]] const std::map<std::string, Glyph>& Glyphs() const { return glyphs_; }

    /// Gives the surface another size in logical pixels, both above 0. The user scale stays.
    void SetSize(double widthPixels, double heightPixels) {
        widthPixels_ = widthPixels;
        heightPixels_ = heightPixels;
    }

    void SetUserScale(const UserScale& scale) override { scale_ = scale; }

    [[nodiscard]] UserScale Scale() const override { return scale_; }

    [[nodiscard]] Point PixelSize() const override;
    /// Drops all earlier operations, so that a surface that is drawn repeatedly does not grow.
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

    /// Every character is six tenths of the font's height wide, for all families; a font of 72
    /// points is 96 pixels high.
    [[nodiscard]] double TextWidth(std::string_view utf8) const override;
    [[nodiscard]] double TextHeight() const override;

private:
    DrawOperation& Record(DrawOperation::Kind kind, Colour colour, std::vector<Point> points);

    double widthPixels_;
    double heightPixels_;
    UserScale scale_;
    DrawState state_;
    std::vector<DrawOperation> operations_;
    std::map<std::string, Glyph> glyphs_;
};

} // namespace quandrel
