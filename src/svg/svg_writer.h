// SPDX-License-Identifier: MIT
//
// SVG documents. This folder writes all SVG of the program, and of the library for other programs.
//
// svg_surface.h is the picture surface on a document; svg_writer.h (this file) the document: its
// groups, styles, symbols, hatches and clips; svg_shapes.h the shapes; xml_text.h and
// text_metrics.h any text, and its size without a font; svg_data.h reads back the data that a
// document carries. Input: drawing operations. Output: an SVG 1.1 document, the same bytes for the
// same operations.
//
// Positions and lengths are units of the document, +x to the right and y down, rounded to
// thousandths.

#pragma once

#include "platform/surface.h"
#include "svg/svg_shapes.h"

#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

enum class SvgCap { Round, Square };

/// A line or an outline. Dashes and dots are in proportion to its width and have flat ends.
struct SvgPen {
    Colour colour;
    double width = 1;       ///< units
    int style = kSolidLine; ///< a DrawStyle
    double opacity = 1;
    SvgCap cap = SvgCap::Round; ///< of solid lines
};

/// The inside of a shape. The lines of a hatch are a logical pixel wide and six apart.
struct SvgFill {
    int style = kNoFill; ///< a FillStyle
    Colour colour;
    double opacity = 1;
    Point origin; ///< one line of each direction of a hatch passes through it
};

inline constexpr SvgPen kNoSvgPen{{}, 1, kNoLine};

/// A part of a symbol, about (0, 0).
struct SvgPart {
    std::string shape;
    SvgPen pen;
    SvgFill fill;
};

/// Which symbols are written where several have one place, rounded to a thousandth of a unit.
enum class SvgRepeats {
    Last, ///< the last one, which hides the others
    All,  ///< for translucent ones
};

/// A font as documents name it. Its families end in those with the widths of text_metrics.h.
struct SvgFont {
    std::string family; ///< empty for a plain sans-serif
    double size = 10;   ///< units
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

/// A document that grows by what is drawn.
class SvgWriter {
public:
    /// @param width, height  units, above 0
    /// @param pixel          units of a logical pixel, 1/96 inch; the document says its true size
    SvgWriter(double width, double height, double pixel)
        : width_(width)
        , height_(height)
        , pixel_(pixel) {}

    [[nodiscard]] double Pixel() const { return pixel_; }

    void SetTitle(std::string_view title) { title_ = title; }

    /// A sentence on the whole document, for those who cannot see it or want to know its origin.
    void SetDescription(std::string_view description) { description_ = description; }

    /// Data that the document carries and that draw nothing. DataOfSvg leads back.
    ///
    /// @param text  letters, digits, "+", "/" and "="; empty for none
    void SetData(std::string_view text) { data_ = text; }

    /// Drops what has been drawn; groups and clips that have not ended are empty again.
    void Clear();

    /// Adds a shape of svg_shapes.h; an empty one adds nothing. Consecutive shapes of one style are
    /// in one group.
    void Add(const std::string& shape, const SvgPen& pen, const SvgFill& fill = {});

    /// Defines a symbol, once for equal parts, and returns its id.
    [[nodiscard]] std::string Symbol(std::span<const SvgPart> parts);

    /// Refers to a symbol at positions, in their order. Positions that are not finite, or further
    /// than 1e6 out, are left out.
    void Use(const std::string& symbol, std::span<const Point> positions, SvgRepeats repeats);

    /// A line of text from the left end of its base. Anything may be in it.
    void Text(Point base, std::string_view utf8, const SvgFont& font, Colour colour);

    /// Confines what is drawn to an ellipse, until PopClip.
    void PushClip(Point centre, double radiusX, double radiusY);

    void PopClip() { End(); }

    /// As Surface::BeginGroup. The id is made one that XML allows and that the document does not
    /// have yet. A group without contents is not written.
    void BeginGroup(std::string_view id, std::string_view title);

    void EndGroup() { End(); }

    /// The document as drawn so far, UTF-8. What has not ended is ended in it.
    [[nodiscard]] std::string Document() const;

private:
    /// A group or a clip that has not ended.
    struct Level {
        std::string start; ///< its opening tag; empty for a group that is named where it is written
        std::string id;
        std::string title;
        bool isWritten = false;
    };

    void End();
    void CloseStyle();
    void WriteLevels();
    void UseStyle(const std::string& style);
    [[nodiscard]] std::string FreeId(const std::string& wanted);
    [[nodiscard]] std::string StyleOf(const SvgPen& pen, const SvgFill& fill);
    [[nodiscard]] std::string HatchOf(const SvgFill& fill);

    double width_;
    double height_;
    double pixel_;
    std::string title_;
    std::string description_;
    std::string data_;
    std::string definitions_;
    std::string body_;
    std::string style_; ///< attributes of the open group of a style; empty for none
    std::vector<Level> levels_;
    std::set<std::string> ids_;                  ///< of what has been written
    std::map<std::string, std::string> symbols_; ///< ids by contents
};

} // namespace quandrel
