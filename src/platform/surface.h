// SPDX-License-Identifier: MIT
//
// The picture surface: the program's only way to draw.
//
// Positions are user units: +x to the right, +y up, between the corners that SetUserScale gives.
// Angles are radians, counter-clockwise from +x. Widths of lines are logical pixels (1/96 inch on
// paper) or points (1/72 inch), sizes of text are points. None of them follows the user scale. A
// surface knows nothing of rows, planes or legends. Drawing goes on top of what is there,
// antialiased at the device's resolution.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// A colour, one byte per channel.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Colour&, const Colour&) = default;
};

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kWhite{255, 255, 255};

/// The colour of a 24-bit value with red in the low byte.
constexpr Colour ColourFromValue(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value & 0xffU), static_cast<std::uint8_t>(value >> 8 & 0xffU),
            static_cast<std::uint8_t>(value >> 16 & 0xffU)};
}

/// The 24-bit value of a colour, red in the low byte.
constexpr std::uint32_t ColourValue(Colour colour) {
    return static_cast<std::uint32_t>(colour.red) | static_cast<std::uint32_t>(colour.green) << 8
           | static_cast<std::uint32_t>(colour.blue) << 16;
}

/// A colour as six hexadecimal digits, red first: "ff8000".
[[nodiscard]] std::string HexOf(Colour colour);

/// A position in user units.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

/// The user units of a surface's corners.
struct UserScale {
    double left = 0;
    double top = 0;
    double right = 1;
    double bottom = 1;

    friend bool operator==(const UserScale&, const UserScale&) = default;
};

/// The scale of a plot: the net has radius 1000, with a margin of 100 for the marks around it.
inline constexpr UserScale kPlotScale{-1100, 1100, 1100, -1100};

/// How new ink combines with what is drawn already. Records and dialogs hold these numbers.
enum DrawMode : int {
    kDrawNotXor = 10, ///< for marks that are toggled, always opaque; plain lines in files
    kDrawCopy = 13,   ///< the ordinary pen
};

/// Line patterns, as records hold them.
enum DrawStyle : int {
    kSolidLine = 0,
    kDashedLine = 1,
    kDottedLine = 2,
    kDashDotLine = 3,
    kDashDotDotLine = 4,
    kNoLine = 5,
};

/// How closed shapes are filled, as records hold it.
enum FillStyle : int {
    kSolidFill = 0,
    kNoFill = 1,
    kHorizontalHatch = 2,
    kVerticalHatch = 3,
    kUpwardHatch = 4,
    kDownwardHatch = 5,
    kCrossHatch = 6,
    kDiagonalCrossHatch = 7,
};

/// A font by its name; an empty family means the platform's plain sans-serif.
struct FontSpec {
    std::string family;
    double points = 8;
    bool bold = false;
    bool italic = false;
    bool underline = false;

    friend bool operator==(const FontSpec&, const FontSpec&) = default;
};

/// The state of a surface that a procedure may change and must restore.
struct DrawState {
    int drawMode = kDrawCopy;
    int drawStyle = kSolidLine;
    double drawWidth = 1; ///< logical pixels; a surface may raise it to what is visible
    int fillStyle = kNoFill;
    Colour fillColour = kBlack;
    Colour foreColour = kBlack;
    FontSpec font;
    double widthInPoints = 0; ///< if above 0, the exact width of lines instead of drawWidth
    double lineOpacity = 1;   ///< of lines and outlines, 0 (nothing is seen) to 1
    double fillOpacity = 1;   ///< of fills, hatches and pixels. Texts are always opaque.

    friend bool operator==(const DrawState&, const DrawState&) = default;
};

/// The opacities that apply, 0 to 1: those of the state, or 1 for marks that are toggled.
[[nodiscard]] double LineOpacityOf(const DrawState& state);
[[nodiscard]] double FillOpacityOf(const DrawState& state);

/// One stroke or shape of a glyph, in user units about the marker's position.
struct GlyphPart {
    enum class Kind {
        Pixel,    ///< a square of one logical pixel at points[0]
        Polyline, ///< an open line through the points
        Polygon,  ///< a closed shape of the points
        Circle,   ///< centre points[0], radius
    };
    enum class Ink {
        Outline, ///< the marker's colour, lines only
        Filled,  ///< the marker's colour, filled and outlined
        White,   ///< filled white, outlined in the marker's colour
        Solid,   ///< the marker's colour, filled without an outline: exactly as large as it is
        Halo,    ///< filled white, without an outline
    };
    Kind kind = Kind::Polyline;
    Ink ink = Ink::Outline;
    std::vector<Point> points;
    double radius = 0;

    friend bool operator==(const GlyphPart&, const GlyphPart&) = default;
};

/// The shape of a marker. Equal names must mean equal parts: a surface may cache a glyph by its
/// name.
struct Glyph {
    std::string name;
    std::vector<GlyphPart> parts;
};

/// A surface to draw on.
class Surface {
public:
    virtual ~Surface() = default;

    /// Sets the user units of the surface's corners.
    virtual void SetUserScale(const UserScale& scale) = 0;
    [[nodiscard]] virtual UserScale Scale() const = 0;

    /// Width and height of one logical pixel in user units. Both are above 0.
    [[nodiscard]] virtual Point PixelSize() const = 0;

    /// Fills the surface with one colour.
    virtual void Clear(Colour background) = 0;

    virtual void SetState(const DrawState& state) = 0;
    [[nodiscard]] virtual const DrawState& State() const = 0;

    virtual void Line(Point from, Point to, Colour colour) = 0;

    /// A box by two opposite corners: its outline, or filled with the colour of the outline.
    virtual void Box(Point corner, Point opposite, Colour colour) = 0;
    virtual void FilledBox(Point corner, Point opposite, Colour colour) = 0;

    /// A full circle, filled by the state's fill style.
    virtual void Circle(Point centre, double radius, Colour colour) = 0;

    /// The part of a circle counter-clockwise from start to end; an end at or before the start is
    /// one turn further.
    virtual void Arc(Point centre, double radius, double start, double end, Colour colour) = 0;

    /// As Arc, with both radii, filled by the state's fill style.
    virtual void Wedge(Point centre, double radius, double start, double end, Colour colour) = 0;

    virtual void Polyline(std::span<const Point> points, Colour colour) = 0;

    /// A closed shape, filled by the state's fill style.
    virtual void Polygon(std::span<const Point> points, Colour colour) = 0;

    /// Closed rings as one shape, filled by the state's fill style where a point is within an odd
    /// number of them: a ring within another is a hole, whichever way either of them runs. Last
    /// points are joined to first ones.
    virtual void Path(std::span<const std::vector<Point>> rings, Colour colour) = 0;

    /// A square of one logical pixel.
    virtual void SetPixel(Point at, Colour colour) = 0;

    /// One glyph at many positions, drawn in their order by one call.
    virtual void Markers(const Glyph& glyph, Colour colour, std::span<const Point> positions) = 0;

    /// One line of text in the state's font and fore colour; its top left corner is at the
    /// position.
    virtual void Text(Point topLeft, std::string_view utf8) = 0;

    /// Confines what is drawn to a circle of user units of the current scale, and to the clips
    /// before it, until PopClip. Measures and the state are not affected. The surface is not
    /// cleared within a clip.
    virtual void PushClip(Point centre, double radius) = 0;

    /// Ends the last clip that has not ended.
    virtual void PopClip() = 0;

    /// Names what is drawn until EndGroup, for files in which others edit it. Groups may be within
    /// groups and within clips, each ends within the one that it began in. Drawing is not affected.
    ///
    /// @param id     letters, digits and hyphens: "rows"; a document tells equal ones apart
    /// @param title  for the user; may hold anything
    virtual void BeginGroup(std::string_view id, std::string_view title) {
        static_cast<void>(id);
        static_cast<void>(title);
    }

    /// Ends the last group that has not ended.
    virtual void EndGroup() {}

    /// Size of a text in user units, at least 0.
    [[nodiscard]] virtual double TextWidth(std::string_view utf8) const = 0;
    [[nodiscard]] virtual double TextHeight() const = 0;
};

/// Restores a surface's state at the end of a block.
class SavedState {
public:
    explicit SavedState(Surface& surface)
        : surface_(surface)
        , state_(surface.State()) {}

    ~SavedState() { surface_.SetState(state_); }

    SavedState(const SavedState&) = delete;
    SavedState& operator=(const SavedState&) = delete;

private:
    Surface& surface_;
    DrawState state_;
};

/// Confines a surface to a circle until the end of a block.
class CircleClip {
public:
    /// @param radius  user units, above 0
    CircleClip(Surface& surface, Point centre, double radius)
        : surface_(surface) {
        surface_.PushClip(centre, radius);
    }

    ~CircleClip() { surface_.PopClip(); }

    CircleClip(const CircleClip&) = delete;
    CircleClip& operator=(const CircleClip&) = delete;

private:
    Surface& surface_;
};

/// Names what is drawn until the end of a block.
class NamedGroup {
public:
    NamedGroup(Surface& surface, std::string_view id, std::string_view title)
        : surface_(surface) {
        surface_.BeginGroup(id, title);
    }

    ~NamedGroup() { surface_.EndGroup(); }

    NamedGroup(const NamedGroup&) = delete;
    NamedGroup& operator=(const NamedGroup&) = delete;

private:
    Surface& surface_;
};

} // namespace quandrel
