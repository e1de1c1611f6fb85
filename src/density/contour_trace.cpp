// SPDX-License-Identifier: MIT

#include "density/contour_trace.h"

#include "orientation/projection.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

namespace quandrel {

namespace {

int SignOf(double height) {
    return (height > 0 ? 1 : 0) - (height < 0 ? 1 : 0);
}

/// The point between two vertices on either side of a level where the level is met. Swapping the
/// vertices only changes the signs of the heights: neighbouring triangles find the same point.
Point Crossing(const TriangleVertex& a, const TriangleVertex& b) {
    const double rise = b.height - a.height;
    return {(b.height * a.at.x - a.height * b.at.x) / rise,
            (b.height * a.at.y - a.height * b.at.y) / rise};
}

bool IsInside(Point point) {
    return point.x * point.x + point.y * point.y < kNetRadius * kNetRadius;
}

/// Heights of the nodes above the level, in the order of the values.
std::vector<double> HeightsAbove(const NodeValues& grid, double level) {
    std::vector<double> heights(grid.values.size());
    std::transform(grid.values.begin(), grid.values.end(), heights.begin(),
                   [level](double value) { return value - level; });
    return heights;
}

/// Twice the area of a closed line, by the sum of its cross products.
double DoubleAreaOf(std::span<const Point> line) {
    double sum = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        sum += line[i - 1].x * line[i].y - line[i].x * line[i - 1].y;
    }
    return std::abs(sum);
}

/// The mean of whole counts is often half-way between two of them. A centre exactly on the level
/// would join the two lines of a saddle in one point; it counts as above, as nodes do, by this
/// fraction of the highest corner.
constexpr double kCentreLift = 1e-9;

double HighestOf(const std::array<TriangleVertex, 4>& corners) {
    return std::max(std::max(corners[0].height, corners[1].height),
                    std::max(corners[2].height, corners[3].height));
}

/// Adds the contour of one cell, from its four corners in turn.
void TraceCell(const std::array<TriangleVertex, 4>& corners, std::vector<ContourSegment>& traced) {
    TriangleVertex centre = {
        {(corners[0].at.x + corners[2].at.x) / 2, (corners[0].at.y + corners[2].at.y) / 2},
        (corners[0].height + corners[1].height + corners[2].height + corners[3].height) / 4};
    if (centre.height == 0) {
        centre.height = kCentreLift * HighestOf(corners);
    }
    for (std::size_t corner = 0; corner < 4; ++corner) {
        const auto segment =
            TriangleSegment({corners[corner], centre, corners[(corner + 1) % corners.size()]});
        if (!segment) {
            continue;
        }
        const auto clipped = ClippedToPrimitive(*segment);
        if (clipped && clipped->from != clipped->to) {
            traced.push_back(*clipped);
        }
    }
}

/// The ends of segments by position. End 2k is the first end of segment k, 2k + 1 the second.
class EndTable {
public:
    explicit EndTable(std::span<const ContourSegment> segments)
        : segments_(segments)
        , mask_(std::bit_ceil(std::max<std::size_t>(4 * segments.size(), 16)) - 1)
        , slots_(mask_ + 1)
        , partners_(2 * segments.size(), kAlone) {
        for (std::size_t end = 0; end < partners_.size(); ++end) {
            Pair(end);
        }
    }

    static constexpr std::size_t kAlone = SIZE_MAX;

    /// The end of another segment at the same position, or kAlone.
    [[nodiscard]] std::size_t PartnerOf(std::size_t end) const { return partners_[end]; }

    [[nodiscard]] Point PlaceOf(std::size_t end) const {
        return end % 2 == 0 ? segments_[end / 2].from : segments_[end / 2].to;
    }

private:
    /// Joins an end to an unpaired end at its position, or stores it until one comes.
    void Pair(std::size_t end) {
        const Point place = PlaceOf(end);
        std::size_t slot = HashOf(place) & mask_;
        for (; slots_[slot] != 0; slot = (slot + 1) & mask_) {
            const std::size_t other = slots_[slot] - 1;
            if (partners_[other] == kAlone && PlaceOf(other) == place) {
                partners_[other] = end;
                partners_[end] = other;
                return;
            }
        }
        slots_[slot] = end + 1;
    }

    static std::size_t HashOf(Point place) {
        // Adding 0 turns a negative zero into a positive one; the two compare equal.
        const auto x = std::bit_cast<std::uint64_t>(place.x + 0.0);
        const auto y = std::bit_cast<std::uint64_t>(place.y + 0.0);
        const std::uint64_t mixed = (x ^ std::rotl(y, 23)) * 0x9e3779b97f4a7c15U;
        return static_cast<std::size_t>(mixed ^ mixed >> 32U);
    }

    std::span<const ContourSegment> segments_;
    std::size_t mask_;
    std::vector<std::size_t> slots_; ///< an end plus 1; 0 is free
    std::vector<std::size_t> partners_;
};

/// The end from which the line of a segment is drawn: the loose end found by going backward from
/// its first end, or that first end itself in a closed line.
std::size_t StartOfLine(const EndTable& ends, std::size_t segment) {
    std::size_t end = 2 * segment;
    while (true) {
        const std::size_t partner = ends.PartnerOf(end);
        if (partner == EndTable::kAlone) {
            return end;
        }
        end = partner ^ 1U;
        if (end == 2 * segment) {
            return end;
        }
    }
}

} // namespace

int TriangleCase(int sign1, int sign2, int sign3) {
    const std::array<int, 3> signs = {sign1, sign2, sign3};
    const auto isBelow = [&signs](std::size_t vertex) { return signs[vertex % 3] < 0; };
    // The contour separates the vertex that is alone on its side of the level from the other two.
    for (std::size_t alone = 0; alone < 3; ++alone) {
        if (isBelow(alone) == isBelow(alone + 1) || isBelow(alone) == isBelow(alone + 2)) {
            continue;
        }
        const int next = static_cast<int>((alone + 1) % 3);
        const int last = static_cast<int>((alone + 2) % 3);
        if (!isBelow(alone)) {
            return signs[alone] == 0 ? 0 : 7 + last;
        }
        const bool nextIsOn = signs[(alone + 1) % 3] == 0;
        const bool lastIsOn = signs[(alone + 2) % 3] == 0;
        if (nextIsOn && lastIsOn) {
            return 1 + next;
        }
        if (nextIsOn || lastIsOn) {
            return 4 + (nextIsOn ? next : last);
        }
        return 7 + last;
    }
    return 0;
}

std::optional<ContourSegment> TriangleSegment(const std::array<TriangleVertex, 3>& triangle) {
    const int way = TriangleCase(SignOf(triangle[0].height), SignOf(triangle[1].height),
                                 SignOf(triangle[2].height));
    if (way == 0) {
        return std::nullopt;
    }
    const auto first = static_cast<std::size_t>((way - 1) % 3);
    const TriangleVertex& a = triangle[first];
    const TriangleVertex& b = triangle[(first + 1) % 3];
    const TriangleVertex& c = triangle[(first + 2) % 3];
    if (way <= 3) {
        return ContourSegment{a.at, b.at};
    }
    if (way <= 6) {
        return ContourSegment{a.at, Crossing(b, c)};
    }
    return ContourSegment{Crossing(a, b), Crossing(b, c)};
}

std::optional<ContourSegment> ClippedToPrimitive(const ContourSegment& segment) {
    const bool fromIsInside = IsInside(segment.from);
    if (fromIsInside && IsInside(segment.to)) {
        return segment;
    }
    // Kept: a segment from outside to outside is not drawn even where it cuts through the rim.
    if (!fromIsInside && !IsInside(segment.to)) {
        return std::nullopt;
    }
    const Point inner = fromIsInside ? segment.from : segment.to;
    const Point outer = fromIsInside ? segment.to : segment.from;
    // |inner + t (outer - inner)|^2 = r^2; t = 0 is inside and t = 1 is not, so there is one root
    // between. This form of the solution avoids the difference of nearly equal numbers.
    const double dx = outer.x - inner.x;
    const double dy = outer.y - inner.y;
    const double a = dx * dx + dy * dy;
    const double b = inner.x * dx + inner.y * dy;
    const double c = inner.x * inner.x + inner.y * inner.y - kNetRadius * kNetRadius;
    const double root = std::sqrt(b * b - a * c);
    const double t = std::clamp(b > 0 ? -c / (b + root) : (root - b) / a, 0.0, 1.0);
    return ContourSegment{inner, {inner.x + t * dx, inner.y + t * dy}};
}

std::vector<ContourSegment> TraceContour(const NodeValues& grid, double level) {
    std::vector<ContourSegment> traced;
    const auto nodes = static_cast<std::size_t>(grid.nodes);
    const std::vector<double> heights = HeightsAbove(grid, level);
    for (std::size_t i = 1; i < nodes; ++i) {
        const double* const left = &heights[(i - 1) * nodes];
        const double* const right = &heights[i * nodes];
        for (std::size_t j = 1; j < nodes; ++j) {
            const int below = (left[j - 1] < 0 ? 1 : 0) + (right[j - 1] < 0 ? 1 : 0)
                              + (right[j] < 0 ? 1 : 0) + (left[j] < 0 ? 1 : 0);
            const bool hasGap = std::isnan(left[j - 1] + right[j - 1] + right[j] + left[j]);
            if (below == 0 || below == 4 || hasGap) {
                continue;
            }
            const double x1 = grid.first + static_cast<double>(i - 1) * grid.step;
            const double x2 = grid.first + static_cast<double>(i) * grid.step;
            const double y1 = grid.first + static_cast<double>(j - 1) * grid.step;
            const double y2 = grid.first + static_cast<double>(j) * grid.step;
            TraceCell({{{{x1, y1}, left[j - 1]},
                        {{x2, y1}, right[j - 1]},
                        {{x2, y2}, right[j]},
                        {{x1, y2}, left[j]}}},
                      traced);
        }
    }
    return traced;
}

std::vector<std::vector<Point>> ChainSegments(std::span<const ContourSegment> segments) {
    const EndTable ends(segments);
    std::vector<bool> isDrawn(segments.size());
    std::vector<std::vector<Point>> lines;
    for (std::size_t segment = 0; segment < segments.size(); ++segment) {
        if (isDrawn[segment]) {
            continue;
        }
        std::size_t end = StartOfLine(ends, segment);
        std::vector<Point>& line = lines.emplace_back();
        line.push_back(ends.PlaceOf(end));
        while (end != EndTable::kAlone && !isDrawn[end / 2]) {
            isDrawn[end / 2] = true;
            line.push_back(ends.PlaceOf(end ^ 1U));
            end = ends.PartnerOf(end ^ 1U);
        }
    }
    return lines;
}

std::vector<ContourSegment> WithoutSpecks(std::span<const ContourSegment> segments,
                                          double leastArea) {
    std::vector<ContourSegment> kept;
    for (const std::vector<Point>& line : ChainSegments(segments)) {
        const bool isClosed = line.front() == line.back();
        if (isClosed && DoubleAreaOf(line) < 2 * leastArea) {
            continue;
        }
        for (std::size_t i = 1; i < line.size(); ++i) {
            kept.push_back({line[i - 1], line[i]});
        }
    }
    return kept;
}

} // namespace quandrel
