// SPDX-License-Identifier: MIT

#include "golden/drawing_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iomanip>
#include <sstream>
#include <string_view>

namespace quandrel {

namespace {

constexpr double kPerUnit = 100;
constexpr double kPerRadian = 1e6;
constexpr double kPerGlyphRadian = 1e4; ///< in the names of rotated glyphs
constexpr std::size_t kPointsInLine = 8;

constexpr std::array<const char*, 15> kKinds = {
    "clear",   "line",  "box",     "filledbox", "circle", "arc",  "wedge", "polyline",
    "polygon", "pixel", "markers", "text",      "path",   "clip", "unclip"};
constexpr std::array<const char*, 4> kParts = {"pixel", "polyline", "polygon", "circle"};
constexpr std::array<const char*, 3> kInks = {"outline", "filled", "white"};

/// Rounds to 1/steps. Halves and other short decimals are common among true values, and noise would
/// decide their rounding; so the boundaries are slightly offset.
std::string Rounded(double value, double steps) {
    constexpr double kOff = 0.000317;
    const double rounded = std::floor(value * steps + 0.5 + kOff) / steps + 0.0;
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), rounded);
    return {digits.data(), end.ptr};
}

std::string ColourText(Colour colour) {
    std::ostringstream text;
    text << std::hex << std::setfill('0');
    for (const unsigned channel : {colour.red, colour.green, colour.blue}) {
        text << std::setw(2) << channel;
    }
    return text.str();
}

std::string Quoted(const std::string& text) {
    std::ostringstream quoted;
    quoted << std::quoted(text);
    return quoted.str();
}

/// The name of a rotated glyph holds its angle with all digits ("50/1/2.0943951023931953"), which
/// noise changes.
std::string StableName(const std::string& name) {
    const std::size_t symbol = name.find('/');
    const std::size_t angle = symbol == std::string::npos ? symbol : name.find('/', symbol + 1);
    if (angle == std::string::npos) {
        return name;
    }
    double value = 0;
    std::from_chars(name.data() + angle + 1, name.data() + name.size(), value);
    return name.substr(0, angle + 1) + Rounded(value, kPerGlyphRadian);
}

std::string PointsText(const std::vector<Point>& points) {
    std::string text = points.empty() ? "" : " at";
    for (std::size_t i = 0; i < points.size(); ++i) {
        text += i > 0 && i % kPointsInLine == 0 ? "\n  " : " ";
        text += Rounded(points[i].x, kPerUnit) + "," + Rounded(points[i].y, kPerUnit);
    }
    return text;
}

std::string FontText(const FontSpec& font) {
    std::string text = font.family.empty() ? "" : " family " + Quoted(font.family);
    if (font.points != FontSpec{}.points) {
        text += " points " + Rounded(font.points, kPerUnit);
    }
    text += font.bold ? " bold" : "";
    text += font.italic ? " italic" : "";
    return text + (font.underline ? " underline" : "");
}

std::string StateText(const DrawState& state) {
    std::string text;
    if (state.drawMode != kDrawCopy) {
        text += " mode " + std::to_string(state.drawMode);
    }
    if (state.drawWidth != 1) {
        text += " width " + Rounded(state.drawWidth, kPerUnit);
    }
    if (state.drawStyle != kSolidLine) {
        text += " style " + std::to_string(state.drawStyle);
    }
    if (state.fillStyle != kNoFill) {
        text += " fill " + std::to_string(state.fillStyle) + " " + ColourText(state.fillColour);
    }
    if (state.widthInPoints > 0) {
        text += " widthinpoints " + Rounded(state.widthInPoints, kPerUnit);
    }
    if (state.lineOpacity != 1) {
        text += " lineopacity " + Rounded(state.lineOpacity, kPerUnit);
    }
    if (state.fillOpacity != 1) {
        text += " fillopacity " + Rounded(state.fillOpacity, kPerUnit);
    }
    return text;
}

bool IsClip(DrawOperation::Kind kind) {
    return kind == DrawOperation::Kind::PushClip || kind == DrawOperation::Kind::PopClip;
}

std::string OperationLine(const DrawOperation& operation) {
    std::string text = kKinds[static_cast<std::size_t>(operation.kind)];
    text += " " + ColourText(operation.colour);
    if (operation.kind == DrawOperation::Kind::Text) {
        return text + FontText(operation.state.font) + " say " + Quoted(operation.text)
               + PointsText(operation.points) + "\n";
    }
    if (!IsClip(operation.kind)) {
        text += StateText(operation.state);
    }
    if (operation.radius != 0) {
        text += " radius " + Rounded(operation.radius, kPerUnit);
    }
    if (operation.kind == DrawOperation::Kind::Arc
        || operation.kind == DrawOperation::Kind::Wedge) {
        text += " from " + Rounded(operation.start, kPerRadian);
        text += " to " + Rounded(operation.end, kPerRadian);
    }
    if (operation.kind == DrawOperation::Kind::Markers) {
        text += " glyph " + Quoted(StableName(operation.text));
    }
    for (const std::vector<Point>& ring : operation.rings) {
        text += PointsText(ring);
    }
    return text + PointsText(operation.points) + "\n";
}

std::string GlyphText(const std::string& name, const Glyph& glyph) {
    std::string text = "glyph " + Quoted(name) + "\n";
    for (const GlyphPart& part : glyph.parts) {
        text += std::string(kParts[static_cast<std::size_t>(part.kind)]) + " "
                + kInks[static_cast<std::size_t>(part.ink)];
        if (part.radius != 0) {
            text += " radius " + Rounded(part.radius, kPerUnit);
        }
        text += PointsText(part.points) + "\n";
    }
    return text;
}

template <std::size_t Count>
int PlaceOf(const std::array<const char*, Count>& names, const std::string& name) {
    const auto found = std::find(names.begin(), names.end(), std::string_view(name));
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

Colour ColourOfText(const std::string& text) {
    const unsigned long value = std::stoul(text, nullptr, 16);
    return {static_cast<std::uint8_t>(value >> 16 & 0xffU),
            static_cast<std::uint8_t>(value >> 8 & 0xffU),
            static_cast<std::uint8_t>(value & 0xffU)};
}

std::vector<Point> ReadPoints(std::istream& line) {
    std::vector<Point> points;
    char comma = 0;
    for (Point point; line >> point.x >> comma >> point.y;) {
        points.push_back(point);
    }
    if (!line.eof()) { // at the word after them
        line.clear();
    }
    return points;
}

void ReadFill(std::istream& line, DrawState& state) {
    std::string colour;
    line >> state.fillStyle >> colour;
    state.fillColour = ColourOfText(colour);
}

/// The points of an operation, or those of the next ring of a path.
void ReadPlace(std::istream& line, DrawOperation& operation) {
    if (operation.kind == DrawOperation::Kind::Path) {
        operation.rings.push_back(ReadPoints(line));
    } else {
        operation.points = ReadPoints(line);
    }
}

/// Reads what follows a word of an operation's line.
void ReadWord(const std::string& word, std::istream& line, DrawOperation& operation) {
    DrawState& state = operation.state;
    if (word == "radius") {
        line >> operation.radius;
    } else if (word == "from") {
        line >> operation.start;
    } else if (word == "to") {
        line >> operation.end;
    } else if (word == "mode") {
        line >> state.drawMode;
    } else if (word == "width") {
        line >> state.drawWidth;
    } else if (word == "style") {
        line >> state.drawStyle;
    } else if (word == "fill") {
        ReadFill(line, state);
    } else if (word == "glyph" || word == "say") {
        line >> std::quoted(operation.text);
    } else if (word == "family") {
        line >> std::quoted(state.font.family);
    } else if (word == "points") {
        line >> state.font.points;
    } else if (word == "widthinpoints") {
        line >> state.widthInPoints;
    } else if (word == "lineopacity") {
        line >> state.lineOpacity;
    } else if (word == "fillopacity") {
        line >> state.fillOpacity;
    } else if (word == "at") {
        ReadPlace(line, operation);
    }
    state.font.bold = state.font.bold || word == "bold";
    state.font.italic = state.font.italic || word == "italic";
    state.font.underline = state.font.underline || word == "underline";
}

DrawOperation ReadOperation(int kind, std::istream& line) {
    DrawOperation operation;
    operation.kind = static_cast<DrawOperation::Kind>(kind);
    std::string word;
    line >> word;
    operation.colour = ColourOfText(word);
    operation.state.foreColour = operation.colour;
    while (line >> word) {
        ReadWord(word, line, operation);
    }
    return operation;
}

GlyphPart ReadPart(int kind, int ink, std::istream& line) {
    GlyphPart part{static_cast<GlyphPart::Kind>(kind), static_cast<GlyphPart::Ink>(ink), {}, 0};
    for (std::string word; line >> word;) {
        if (word == "radius") {
            line >> part.radius;
        } else {
            part.points = ReadPoints(line);
        }
    }
    return part;
}

RecordedDrawing ReadHead(std::istream& line) {
    RecordedDrawing drawing;
    std::string word;
    UserScale& scale = drawing.scale;
    line >> std::quoted(drawing.name) >> word >> drawing.size.x >> drawing.size.y >> word
        >> scale.left >> scale.top >> scale.right >> scale.bottom;
    return drawing;
}

/// The lines of a text, with continued lines joined.
std::vector<std::string> JoinedLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(' ') && !lines.empty()) {
            lines.back() += line;
        } else {
            lines.push_back(line);
        }
    }
    return lines;
}

} // namespace

RecordedDrawing DrawingOf(const std::string& name, const RecordingSurface& surface) {
    const UserScale scale = surface.Scale();
    const Point pixel = surface.PixelSize();
    return {name,
            {std::abs(scale.right - scale.left) / pixel.x,
             std::abs(scale.top - scale.bottom) / pixel.y},
            scale,
            surface.Glyphs(),
            surface.Operations()};
}

std::string TextOfDrawing(const RecordedDrawing& drawing) {
    std::string text = "drawing " + Quoted(drawing.name) + " size "
                       + Rounded(drawing.size.x, kPerUnit) + " " + Rounded(drawing.size.y, kPerUnit)
                       + " scale";
    const UserScale& scale = drawing.scale;
    for (const double edge : {scale.left, scale.top, scale.right, scale.bottom}) {
        text += " " + Rounded(edge, kPerUnit);
    }
    text += "\n";
    std::map<std::string, const Glyph*> glyphs; // by the names that are written
    for (const auto& [name, glyph] : drawing.glyphs) {
        glyphs.emplace(StableName(name), &glyph);
    }
    for (const auto& [name, glyph] : glyphs) {
        text += GlyphText(name, *glyph);
    }
    for (const DrawOperation& operation : drawing.operations) {
        text += OperationLine(operation);
    }
    return text + "end\n";
}

std::vector<RecordedDrawing> DrawingsOfText(const std::string& text) {
    std::vector<RecordedDrawing> drawings;
    Glyph* glyph = nullptr;
    bool isWithin = false;
    for (const std::string& whole : JoinedLines(text)) {
        std::istringstream line(whole);
        std::string word;
        std::string second;
        line >> word;
        std::istringstream rest(whole);
        rest >> second >> second;
        const int ink = PlaceOf(kInks, second);
        if (word == "drawing") {
            drawings.push_back(ReadHead(line));
            isWithin = true;
        } else if (!isWithin) {
            continue;
        } else if (word == "end") {
            isWithin = false;
        } else if (word == "glyph") {
            line >> std::quoted(second);
            glyph = &drawings.back().glyphs[second];
            glyph->name = second;
        } else if (ink >= 0 && glyph != nullptr) {
            glyph->parts.push_back(ReadPart(PlaceOf(kParts, word), ink, rest));
        } else if (const int kind = PlaceOf(kKinds, word); kind >= 0) {
            drawings.back().operations.push_back(ReadOperation(kind, line));
        }
    }
    return drawings;
}

} // namespace quandrel
