// SPDX-License-Identifier: MIT

#include "stereo/figure_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quandrel {

namespace {

constexpr double kLeastShare = 3; ///< of the width of the text: shorter lines have none
constexpr double kMargin = 1.3;   ///< of the gap to the text

double Distance(Point a, Point b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

/// The way along a line to each of its points.
std::vector<double> WaysAlong(std::span<const Point> line) {
    std::vector<double> ways(line.size(), 0);
    for (std::size_t i = 1; i < line.size(); ++i) {
        ways[i] = ways[i - 1] + Distance(line[i - 1], line[i]);
    }
    return ways;
}

/// The point at a way along a line, 0 to its length.
Point PointAt(std::span<const Point> line, const std::vector<double>& ways, double way) {
    const auto next = std::ranges::lower_bound(ways, way);
    const auto i = static_cast<std::size_t>(next - ways.begin());
    if (i == 0 || i >= line.size()) {
        return i == 0 ? line.front() : line.back();
    }
    const double span = ways[i] - ways[i - 1];
    const double share = span > 0 ? (way - ways[i - 1]) / span : 0;
    return {std::lerp(line[i - 1].x, line[i].x, share), std::lerp(line[i - 1].y, line[i].y, share)};
}

/// The part of a line between two ways.
std::vector<Point> PartOf(std::span<const Point> line, const std::vector<double>& ways, double from,
                          double to) {
    std::vector<Point> part = {PointAt(line, ways, from)};
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (ways[i] > from && ways[i] < to) {
            part.push_back(line[i]);
        }
    }
    part.push_back(PointAt(line, ways, to));
    return part;
}

/// The way to the middle of the straightest stretch of a width. Of stretches that are equally
/// straight within a hundredth, the one nearest to the middle of the line.
double StraightestWay(std::span<const Point> line, const std::vector<double>& ways, double width) {
    constexpr int kTries = 48;
    constexpr double kAlike = 0.01;
    const double room = ways.back() - 2 * width;
    const double middle = ways.back() / 2;
    double best = middle;
    double bestChord =
        Distance(PointAt(line, ways, middle - width / 2), PointAt(line, ways, middle + width / 2));
    for (int i = 0; i <= kTries; ++i) {
        const double way = width + room * i / kTries;
        const double chord =
            Distance(PointAt(line, ways, way - width / 2), PointAt(line, ways, way + width / 2));
        const bool isStraighter = chord > bestChord + kAlike * width;
        const bool isNearer =
            chord > bestChord - kAlike * width && std::abs(way - middle) < std::abs(best - middle);
        if (isStraighter || isNearer) {
            best = way;
            bestChord = std::max(chord, bestChord);
        }
    }
    return best;
}

} // namespace

FontSpec FontInFigure(const Drawing& drawing, PlotFontPlace kind) {
    const TextStyle& text = FigureOf(drawing).text;
    FontSpec font = drawing.styles.fonts[static_cast<std::size_t>(kind)].font;
    if (text.size > 0) {
        font = {text.families, text.size};
    }
    font.points = std::max(font.points, text.leastSize);
    return font;
}

bool HasLabels(const Drawing& drawing) {
    return drawing.layer != nullptr && drawing.layer->LayerLabels == 1;
}

LabelledLine WithGapForText(std::span<const Point> line, double width) {
    LabelledLine made;
    const std::vector<double> ways = WaysAlong(line);
    if (line.size() < 2 || width <= 0 || ways.back() < kLeastShare * width) {
        made.parts.emplace_back(line.begin(), line.end());
        return made;
    }
    const double middle = StraightestWay(line, ways, width);
    made.hasRoom = true;
    made.place = PointAt(line, ways, middle);
    made.parts = {PartOf(line, ways, 0, middle - width / 2),
                  PartOf(line, ways, middle + width / 2, ways.back())};
    return made;
}

bool DrawLabelledLine(Surface& surface, const Drawing& drawing, std::span<const Point> line,
                      std::string_view text, Colour colour) {
    const SavedState saved(surface);
    DrawState state = surface.State();
    const DrawState ofLine = state;
    state.font = FontInFigure(drawing, kLegendFont);
    state.foreColour = colour;
    surface.SetState(state);
    const double width = surface.TextWidth(text);
    const double height = surface.TextHeight();
    const LabelledLine cut = WithGapForText(line, kMargin * std::max(width, height));
    if (cut.hasRoom) {
        surface.Text({cut.place.x - width / 2, cut.place.y + height / 2}, text);
    }
    surface.SetState(ofLine);
    for (const std::vector<Point>& part : cut.parts) {
        surface.Polyline(part, colour);
    }
    return cut.hasRoom;
}

} // namespace quandrel
