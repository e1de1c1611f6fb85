// SPDX-License-Identifier: MIT

#include "svg/svg_writer.h"

#include "platform/place_filter.h"
#include "svg/svg_data.h"
#include "svg/svg_numbers.h"
#include "svg/xml_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace quandrel {

namespace {

constexpr double kMillimetresInAPixel = 25.4 / 96;
constexpr double kHatchSpacing = 6; ///< logical pixels
constexpr double kFarAway = 1e6;
constexpr const char* kPlainFamilies = "Liberation Sans, Arial, Helvetica, sans-serif";
constexpr const char* kEndOfGroup = "</g>\n";

/// The dashes and gaps of a line in widths of it; none for a solid one.
std::span<const double> DashesOf(int style) {
    static constexpr std::array<double, 6> kDashes = {4, 2, 1, 2, 1, 2};
    const std::span<const double> dashes = kDashes;
    switch (style) {
    case kDashedLine:
        return dashes.first(2);
    case kDottedLine:
        return dashes.subspan(2, 2);
    case kDashDotLine:
        return dashes.first(4);
    case kDashDotDotLine:
        return dashes;
    default:
        return {};
    }
}

std::string OpacityText(const char* name, double opacity) {
    return opacity == 1 ? "" : Attribute(name, std::clamp(opacity, 0.0, 1.0));
}

std::string StrokeText(const SvgPen& pen) {
    if (pen.style == kNoLine) {
        return {};
    }
    std::string text = Attribute("stroke", ColourText(pen.colour))
                       + OpacityText("stroke-opacity", pen.opacity)
                       + Attribute("stroke-width", pen.width);
    const std::span<const double> dashes = DashesOf(pen.style);
    if (dashes.empty()) {
        return text + Attribute("stroke-linecap", pen.cap == SvgCap::Round ? "round" : "square");
    }
    std::string lengths;
    for (const double dash : dashes) {
        lengths += lengths.empty() ? "" : " ";
        AppendNumber(lengths, dash * pen.width);
    }
    return text + Attribute("stroke-dasharray", lengths);
}

/// The angle of a hatch whose lines are horizontal, or run both ways, before it is turned.
int TurnOf(int style) {
    switch (style) {
    case kVerticalHatch:
        return 90;
    case kUpwardHatch:
        return -45;
    case kDownwardHatch:
    case kDiagonalCrossHatch:
        return 45;
    default:
        return 0;
    }
}

/// Families that every program finds one of: the given one in quotes, as CSS reads them.
std::string FamiliesOf(const std::string& family) {
    if (family.empty()) {
        return kPlainFamilies;
    }
    std::string quoted = "'";
    for (const char c : family) {
        if (c == '\'' || c == '\\') {
            quoted += '\\';
        }
        quoted += c;
    }
    return XmlText(quoted + "', ") + kPlainFamilies;
}

/// An id with letters, digits, '-', '_' and '.' alone, and a letter before them.
std::string CleanId(std::string_view wanted) {
    std::string id;
    for (const char c : wanted) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        const bool isOther = (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
        if (id.empty() && !isLetter) {
            id += 'g';
        }
        id += isLetter || isOther ? c : '-';
    }
    return id.empty() ? "g" : id;
}

std::int32_t InThousandths(double length) {
    return static_cast<std::int32_t>(std::lround(length * 1000));
}

/// Eight digits that hardly two texts share. FNV-1a: G. Fowler, L. C. Noll, K.-P. Vo (1991).
std::string HashOf(std::string_view text) {
    std::uint32_t hash = 2166136261U;
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    }
    std::string digits;
    for (unsigned shift = 32; shift > 0; shift -= 4) {
        digits += "0123456789abcdef"[hash >> (shift - 4) & 0xfU];
    }
    return digits;
}

} // namespace

std::string SvgWriter::FreeId(const std::string& wanted) {
    std::string id = wanted;
    for (int number = 2; !ids_.insert(id).second; ++number) {
        id = wanted + "-" + std::to_string(number);
    }
    return id;
}

void SvgWriter::Clear() {
    body_.clear();
    definitions_.clear();
    style_.clear();
    ids_.clear();
    symbols_.clear();
    for (Level& level : levels_) {
        level.isWritten = false;
    }
}

void SvgWriter::CloseStyle() {
    if (!style_.empty()) {
        body_ += kEndOfGroup;
        style_.clear();
    }
}

void SvgWriter::WriteLevels() {
    for (Level& level : levels_) {
        if (level.isWritten) {
            continue;
        }
        CloseStyle();
        level.isWritten = true;
        if (!level.start.empty()) {
            body_ += level.start;
            continue;
        }
        body_ += "<g" + Attribute("id", FreeId(level.id)) + ">\n";
        if (!level.title.empty()) {
            body_ += "<title>" + level.title + "</title>\n";
        }
    }
}

void SvgWriter::End() {
    if (levels_.empty()) {
        return;
    }
    if (levels_.back().isWritten) {
        CloseStyle();
        body_ += kEndOfGroup;
    }
    levels_.pop_back();
}

void SvgWriter::UseStyle(const std::string& style) {
    WriteLevels();
    if (style == style_) {
        return;
    }
    CloseStyle();
    if (!style.empty()) {
        body_ += "<g" + style + ">\n";
        style_ = style;
    }
}

/// The paint of a hatch, which is defined where it is first used.
std::string SvgWriter::HatchOf(const SvgFill& fill) {
    std::string id = "hatch" + std::to_string(fill.style) + "-" + HexOf(fill.colour);
    std::string place;
    if (fill.origin != Point{}) {
        place = "translate(" + PlaceText(fill.origin) + ")";
        id += "-" + NumberText(fill.origin.x) + "_" + NumberText(fill.origin.y);
    }
    if (ids_.insert(id).second) {
        if (const int turn = TurnOf(fill.style); turn != 0) {
            place += "rotate(" + std::to_string(turn) + ")";
        }
        const double side = kHatchSpacing * pixel_;
        const bool isCross = fill.style == kCrossHatch || fill.style == kDiagonalCrossHatch;
        const std::string middle = NumberText(side / 2);
        const std::string end = NumberText(side);
        const std::string lines =
            "M0 " + middle + "H" + end + (isCross ? "M" + middle + " 0V" + end : std::string());
        definitions_ += "<pattern" + Attribute("id", id) + Attribute("x", -side / 2)
                        + Attribute("y", -side / 2) + Attribute("width", side)
                        + Attribute("height", side) + " patternUnits=\"userSpaceOnUse\""
                        + (place.empty() ? "" : Attribute("patternTransform", place))
                        + "><path fill=\"none\"" + Attribute("d", lines)
                        + Attribute("stroke", ColourText(fill.colour))
                        + Attribute("stroke-width", pixel_) + "/></pattern>\n";
    }
    return "url(#" + id + ")";
}

std::string SvgWriter::StyleOf(const SvgPen& pen, const SvgFill& fill) {
    if (fill.style == kNoFill) {
        return Attribute("fill", "none") + StrokeText(pen);
    }
    const std::string paint = fill.style > kNoFill && fill.style <= kDiagonalCrossHatch
                                  ? HatchOf(fill)
                                  : ColourText(fill.colour);
    return Attribute("fill", paint) + OpacityText("fill-opacity", fill.opacity) + StrokeText(pen);
}

void SvgWriter::Add(const std::string& shape, const SvgPen& pen, const SvgFill& fill) {
    const bool isSeen = pen.style != kNoLine || fill.style != kNoFill;
    if (shape.empty() || !isSeen) {
        return;
    }
    UseStyle(StyleOf(pen, fill));
    body_ += shape;
    body_ += "/>\n";
}

std::string SvgWriter::Symbol(std::span<const SvgPart> parts) {
    std::string contents;
    for (const SvgPart& part : parts) {
        if (!part.shape.empty()) {
            contents += part.shape + StyleOf(part.pen, part.fill) + "/>";
        }
    }
    const auto [found, isNew] = symbols_.try_emplace(contents);
    if (isNew) {
        // The contents name the symbol, so that documents can be joined.
        found->second = FreeId("s" + HashOf(contents));
        definitions_ += "<g" + Attribute("id", found->second) + ">" + contents + kEndOfGroup;
    }
    return found->second;
}

void SvgWriter::Use(const std::string& symbol, std::span<const Point> positions,
                    SvgRepeats repeats) {
    std::vector<Point> places;
    std::vector<StepPlace> steps;
    places.reserve(positions.size());
    steps.reserve(positions.size());
    for (const Point& position : positions) {
        if (std::abs(position.x) < kFarAway && std::abs(position.y) < kFarAway) {
            places.push_back(position);
            steps.push_back({InThousandths(position.x), InThousandths(position.y)});
        }
    }
    const std::string start = "<use xlink:href=\"#" + symbol + "\" x=\"";
    const auto write = [&](Point place) {
        UseStyle({});
        body_ += start;
        AppendNumber(body_, place.x);
        body_ += "\" y=\"";
        AppendNumber(body_, place.y);
        body_ += "\"/>\n";
    };
    if (repeats == SvgRepeats::All) {
        std::ranges::for_each(places, write);
        return;
    }
    for (const std::uint32_t index : LastOfEachPlace(steps)) {
        write(places[index]);
    }
}

void SvgWriter::Text(Point base, std::string_view utf8, const SvgFont& font, Colour colour) {
    if (utf8.empty() || !std::isfinite(base.x) || !std::isfinite(base.y)) {
        return;
    }
    UseStyle(" xml:space=\"preserve\"" + Attribute("fill", ColourText(colour))
             + Attribute("font-family", FamiliesOf(font.family)) + Attribute("font-size", font.size)
             + (font.bold ? Attribute("font-weight", "bold") : "")
             + (font.italic ? Attribute("font-style", "italic") : "")
             + (font.underline ? Attribute("text-decoration", "underline") : ""));
    body_ += "<text" + Attribute("x", base.x) + Attribute("y", base.y) + ">" + XmlText(utf8)
             + "</text>\n";
}

void SvgWriter::PushClip(Point centre, double radiusX, double radiusY) {
    const std::string shape = EllipseShape(centre, radiusX, radiusY);
    std::string id =
        "clip" + NumberText(centre.x) + "_" + NumberText(centre.y) + "_" + NumberText(radiusX);
    if (NumberText(radiusX) != NumberText(radiusY)) {
        id += "_" + NumberText(radiusY);
    }
    if (ids_.insert(id).second) {
        definitions_ += "<clipPath" + Attribute("id", id) + ">"
                        + (shape.empty() ? "" : shape + "/>") + "</clipPath>\n";
    }
    levels_.push_back({"<g" + Attribute("clip-path", "url(#" + id + ")") + ">\n", {}, {}, false});
}

void SvgWriter::BeginGroup(std::string_view id, std::string_view title) {
    levels_.push_back({{}, CleanId(id), XmlText(title), false});
}

std::string SvgWriter::Document() const {
    const double millimetres = kMillimetresInAPixel / pixel_;
    std::string text =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
        "version=\"1.1\""
        + Attribute("width", NumberText(width_ * millimetres) + "mm")
        + Attribute("height", NumberText(height_ * millimetres) + "mm")
        + Attribute("viewBox", "0 0 " + PlaceText({width_, height_})) + ">\n";
    if (!title_.empty()) {
        text += "<title>" + XmlText(title_) + "</title>\n";
    }
    if (!description_.empty()) {
        text += "<desc>" + XmlText(description_) + "</desc>\n";
    }
    if (!definitions_.empty()) {
        text += "<defs>\n" + definitions_ + "</defs>\n";
    }
    text += body_;
    text += style_.empty() ? "" : kEndOfGroup;
    for (const Level& level : levels_) {
        text += level.isWritten ? kEndOfGroup : "";
    }
    return text + (data_.empty() ? "" : SvgOfData(data_)) + "</svg>\n";
}

} // namespace quandrel
