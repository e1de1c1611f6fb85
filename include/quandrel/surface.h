// SPDX-License-Identifier: MIT
//
// What plots are drawn on (drawing.h): an interface for other programs to implement, and a surface
// that records what is drawn.
//
// Positions are pixels from the top left corner, x to the right and y down; a pixel is 1/96 inch,
// and fractions of it count. Surfaces keep no state between calls, except for clips: each call
// carries its pen, fill and font. What is drawn later covers what is there, unless it is partly
// transparent. Angles are degrees clockwise from the top.
//
// Example: a line, a text, and a half transparent square with a square hole, recorded.
//
//     namespace qd = quandrel::api;
//     qd::Recording recording({100, 50});
//     const std::vector<qd::Point> across = {{0, 25}, {100, 25}};
//     recording.Polyline(across, {.colour = {255, 0, 0}, .width = 2});
//     recording.Text({5, 5}, "east", {}, {});
//     const std::vector<std::vector<qd::Point>> rings = {{{0, 0}, {45, 0}, {45, 45}, {0, 45}},
//                                                        {{15, 15}, {30, 15}, {30, 30}, {15, 30}}};
//     recording.Path(rings, {.points = 0.5}, {qd::Pattern::kSolid, {255, 128, 0}, 0.5});
//     std::cout << recording.Operations().size() << '\n'; // -> 3
//     std::cout << recording.Operations()[0].pen.width << '\n'; // -> 2
//     std::cout << recording.Operations()[1].text << '\n'; // -> east
//     std::cout << recording.Operations()[2].fill.opacity << '\n'; // -> 0.5

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel::api {

/// A colour, one byte per channel.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Colour&, const Colour&) = default;
};

/// A position on a surface.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

/// The size of a surface in pixels, above 0.
struct Extent {
    double width = 0;
    double height = 0;

    friend bool operator==(const Extent&, const Extent&) = default;
};

/// The pattern of a line.
enum class Dash {
    kSolid = 0,
    kDashed = 1,
    kDotted = 2,
    kDashDot = 3,
    kDashDotDot = 4,
    kNone = 5, ///< no line at all
};

/// How lines and outlines are drawn.
struct Pen {
    Colour colour = {}; // designated initialisers may leave it out
    double width = 1;   ///< pixels; 0 is as thin as the surface can draw
    Dash dash = Dash::kSolid;
    double points = 0;  ///< if above 0, the exact width, in points of 1/72 inch, instead of `width`
    double opacity = 1; ///< 0 (not seen) to 1

    friend bool operator==(const Pen&, const Pen&) = default;
};

/// How the inside of a shape is filled. Hatches are lines a pixel wide and six apart, with nothing
/// between them.
enum class Pattern {
    kSolid = 0,
    kNone = 1,
    kHorizontal = 2,
    kVertical = 3,
    kUpward = 4, ///< lines that rise to the right
    kDownward = 5,
    kCross = 6,
    kDiagonalCross = 7,
};

struct Fill {
    Pattern pattern = Pattern::kNone;
    Colour colour;
    double opacity = 1; ///< 0 (not seen) to 1, of a hatch that of its lines

    friend bool operator==(const Fill&, const Fill&) = default;
};

/// A font by its name; an empty family means a plain sans-serif.
struct Font {
    std::string family = {}; // designated initialisers may leave it out
    double points = 8;       ///< 3/4 of a pixel each
    bool bold = false;
    bool italic = false;
    bool underline = false;

    friend bool operator==(const Font&, const Font&) = default;
};

/// A stroke or shape of a marker. Positions are pixels from that of the marker.
struct MarkerPart {
    enum class Kind {
        kLine,   ///< an open line through the points
        kShape,  ///< a closed shape of the points
        kCircle, ///< about points[0]
    };
    Kind kind = Kind::kLine;
    std::vector<Point> points;
    double radius = 0; ///< of a circle
    Pen pen;
    Fill fill;

    friend bool operator==(const MarkerPart&, const MarkerPart&) = default;
};

/// What is drawn at many positions, such as the symbol of a pole. Parts cover earlier ones.
struct Marker {
    std::vector<MarkerPart> parts;

    friend bool operator==(const Marker&, const Marker&) = default;
};

/// A surface to draw on. A surface is used by one thread at a time.
class Surface {
public:
    virtual ~Surface() = default;

    /// The same as long as a drawing lasts.
    [[nodiscard]] virtual Extent Size() const = 0;

    /// Covers the whole surface with a colour.
    virtual void Clear(Colour background) = 0;

    /// An open line through two or more points.
    virtual void Polyline(std::span<const Point> points, const Pen& pen) = 0;

    /// A closed shape. Its first point is not repeated at the end.
    virtual void Polygon(std::span<const Point> points, const Pen& pen, const Fill& fill) = 0;

    /// Closed rings as one shape, filled where a point is within an odd number of them: a ring
    /// within another is a hole, whichever way either of them runs.
    virtual void Path(std::span<const std::vector<Point>> rings, const Pen& pen,
                      const Fill& fill) = 0;

    virtual void Circle(Point centre, double radius, const Pen& pen, const Fill& fill) = 0;

    /// A part of a circle.
    ///
    /// @param from   where it begins, 0 to below 360
    /// @param sweep  how far it goes from there, clockwise, above 0 to 360
    virtual void Arc(Point centre, double radius, double from, double sweep, const Pen& pen) = 0;

    /// As Arc, closed by both radii.
    virtual void Wedge(Point centre, double radius, double from, double sweep, const Pen& pen,
                       const Fill& fill) = 0;

    /// One marker at many positions, in their order. Without an override the parts are drawn as
    /// lines, polygons and circles.
    virtual void Markers(const Marker& marker, std::span<const Point> positions);

    /// One line of text without control characters.
    virtual void Text(Point topLeft, std::string_view utf8, const Font& font, Colour colour) = 0;

    /// Confines what is drawn to a circle, and to the clips before it, until PopClip. A surface is
    /// not cleared within a clip, and each clip is ended.
    virtual void PushClip(Point centre, double radius) = 0;

    /// Ends the last clip that has not ended.
    virtual void PopClip() = 0;

    /// Names what is drawn until EndGroup: the net, rows, the legend. Groups and clips may be
    /// within each other, and each ends within the one that it began in. Without an override they
    /// are ignored.
    ///
    /// @param id     letters, digits and hyphens; not unique
    /// @param title  for the user
    virtual void BeginGroup(std::string_view id, std::string_view title);

    /// Ends the last group that has not ended.
    virtual void EndGroup();

    /// Size of a text in pixels, at least 0. The height is that of any line in the font.
    [[nodiscard]] virtual double TextWidth(std::string_view utf8, const Font& font) const = 0;
    [[nodiscard]] virtual double TextHeight(const Font& font) const = 0;
};

/// Sizes of texts where no font is at hand: as high as the font's size in pixels, and six tenths of
/// that wide for each character.
[[nodiscard]] double EstimatedTextWidth(std::string_view utf8, const Font& font);
[[nodiscard]] double EstimatedTextHeight(const Font& font);

/// A call of a drawing function. What the function does not take has its default.
struct Operation {
    enum class Kind {
        kClear,
        kPolyline,
        kPolygon,
        kCircle,
        kArc,
        kWedge,
        kMarkers,
        kText,
        kPath,
        kPushClip,
        kPopClip,
    };
    Kind kind = Kind::kPolyline;
    std::vector<Point> points; ///< vertices, positions, the centre, the corner of a text
    std::vector<std::vector<Point>> rings; ///< of a path
    double radius = 0;
    double from = 0;
    double sweep = 0;
    Pen pen; ///< its colour is that of a text or a background too
    Fill fill;
    Marker marker;
    std::string text;
    Font font;

    friend bool operator==(const Operation&, const Operation&) = default;
};

/// Records what is drawn. Texts have their estimated sizes, so that the same drawing gives the same
/// operations on any machine.
class Recording : public Surface {
public:
    explicit Recording(Extent size)
        : size_(size) {}

    /// All operations since the last Clear, with it.
    [[nodiscard]] const std::vector<Operation>& Operations() const { return operations_; }

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
    [[nodiscard]] double TextWidth(std::string_view utf8, const Font& font) const override;
    [[nodiscard]] double TextHeight(const Font& font) const override;

private:
    Extent size_;
    std::vector<Operation> operations_;
};

} // namespace quandrel::api
