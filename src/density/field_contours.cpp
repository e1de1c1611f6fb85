// SPDX-License-Identifier: MIT

#include "density/field_contours.h"

#include "orientation/angles.h"
#include "orientation/direction_vectors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>

namespace quandrel {

namespace {

constexpr double kFullTurn = 360;
constexpr int kCellRings = kFieldRings - 1;
constexpr double kSmallestStep = 1e-9; ///< of the interval
constexpr int kMostSteps = 60;

/// Vertices are added where a chord is farther from its line than this, degrees: 0.01 mm on a net
/// of 84 mm.
constexpr double kChordTolerance = 0.02;
constexpr int kMostHalvings = 4;

double WrappedTrend(double trend) {
    const double wrapped = std::fmod(trend, kFullTurn);
    return wrapped < 0 ? wrapped + kFullTurn : wrapped;
}

/// A corner of a triangle. Trends run on beyond 360, so that sides can be divided.
struct Corner {
    NetPlace place;
    double height = 0; ///< above the level

    [[nodiscard]] bool IsAbove() const { return height >= 0; }
};

/// Finds the place at height 0 between two places on both sides of a level: the rule of false
/// position with halved weights (Illinois; M. Dowell, P. Jarratt 1971).
template <class HeightAt>
double RootBetween(double low, double lowHeight, double high, double highHeight,
                   const HeightAt& heightAt) {
    const double smallestStep = kSmallestStep * (high - low);
    double root = low;
    for (int step = 0; step < kMostSteps; ++step) {
        const double former = root;
        root = (low * highHeight - high * lowHeight) / (highHeight - lowHeight);
        const double height = heightAt(root);
        if (height == 0 || (step > 0 && std::abs(root - former) < smallestStep)) {
            return root;
        }
        if ((height > 0) == (highHeight > 0)) {
            high = root;
            highHeight = height;
            lowHeight /= 2;
        } else {
            low = root;
            lowHeight = height;
            highHeight /= 2;
        }
    }
    return root;
}

/// A piece of the contour through a triangle, by the numbers of the sides.
struct Piece {
    int from = 0;
    int to = 0;
};

/// Traces the contour of one level.
class FieldTrace {
public:
    FieldTrace(const NetField& field, double level)
        : field_(field)
        , level_(level) {
        for (int ring = 0; ring < kCellRings; ++ring) {
            for (int trend = 0; trend < kFieldTrends; ++trend) {
                TraceCell(ring, trend);
            }
        }
    }

    [[nodiscard]] std::vector<FieldLine> Lines() {
        std::vector<FieldLine> lines;
        // From the primitive first: what remains is closed.
        for (int side = 0; side < kFieldTrends; ++side) {
            if (next_.contains(side) && !entered_.contains(side)) {
                lines.push_back(Follow(side));
            }
        }
        for (const Piece& piece : pieces_) {
            if (next_.contains(piece.from)) {
                lines.push_back(Follow(piece.from));
            }
        }
        for (FieldLine& line : lines) {
            line = Refined(line);
        }
        return lines;
    }

private:
    // Sides have numbers: along the rings, between them, and from the corners to the centres.
    static int AlongRing(int ring, int trend) { return ring * kFieldTrends + trend % kFieldTrends; }

    static int BetweenRings(int ring, int trend) {
        return (kFieldRings + ring) * kFieldTrends + trend % kFieldTrends;
    }

    static int ToCentre(int ring, int trend, int corner) {
        return (kFieldRings + kCellRings) * kFieldTrends + 4 * (ring * kFieldTrends + trend)
               + corner;
    }

    [[nodiscard]] double HeightAt(const NetPlace& place) const {
        return field_.at({place.plunge, WrappedTrend(place.trend)}) - level_;
    }

    [[nodiscard]] Corner NodeAt(int ring, int trend) const {
        const auto place = static_cast<std::size_t>(ring * kFieldTrends + trend % kFieldTrends);
        return {{static_cast<double>(ring), static_cast<double>(trend)},
                field_.nodes[place] - level_};
    }

    void TraceCell(int ring, int trend) {
        const std::array<Corner, 4> corners = {NodeAt(ring, trend), NodeAt(ring, trend + 1),
                                               NodeAt(ring + 1, trend + 1),
                                               NodeAt(ring + 1, trend)};
        const auto above = std::count_if(corners.begin(), corners.end(),
                                         [](const Corner& corner) { return corner.IsAbove(); });
        if (above == 0 || above == 4) {
            return;
        }
        Corner centre{{ring + 0.5, trend + 0.5}, 0};
        centre.height = HeightAt(centre.place);
        const std::array<int, 4> sides = {AlongRing(ring, trend), BetweenRings(ring, trend + 1),
                                          AlongRing(ring + 1, trend), BetweenRings(ring, trend)};
        for (int k = 0; k < 4; ++k) {
            const int next = (k + 1) % 4;
            TraceTriangle({corners[static_cast<std::size_t>(next)],
                           corners[static_cast<std::size_t>(k)], centre},
                          {sides[static_cast<std::size_t>(k)], ToCentre(ring, trend, k),
                           ToCentre(ring, trend, next)});
        }
    }

    /// @param corners  counter-clockwise on the net
    /// @param sides    from each corner to the next
    void TraceTriangle(const std::array<Corner, 3>& corners, const std::array<int, 3>& sides) {
        for (std::size_t apex = 0; apex < 3; ++apex) {
            const std::size_t second = (apex + 1) % 3;
            const std::size_t third = (apex + 2) % 3;
            const bool isAbove = corners[apex].IsAbove();
            if (isAbove == corners[second].IsAbove() || isAbove == corners[third].IsAbove()) {
                continue;
            }
            AddVertex(sides[apex], corners[apex], corners[second]);
            AddVertex(sides[third], corners[third], corners[apex]);
            const Piece piece =
                isAbove ? Piece{sides[apex], sides[third]} : Piece{sides[third], sides[apex]};
            pieces_.push_back(piece);
            next_.emplace(piece.from, piece.to);
            entered_.emplace(piece.to, true);
        }
    }

    /// The vertex on a side that the contour crosses, found once for both of its triangles.
    void AddVertex(int side, const Corner& from, const Corner& to) {
        const auto [found, isNew] = vertices_.try_emplace(side);
        if (!isNew) {
            return;
        }
        const auto at = [&](double share) {
            return NetPlace{std::lerp(from.place.plunge, to.place.plunge, share),
                            std::lerp(from.place.trend, to.place.trend, share)};
        };
        const double root = RootBetween(0, from.height, 1, to.height,
                                        [&](double share) { return HeightAt(at(share)); });
        found->second = at(root);
        found->second.trend = WrappedTrend(found->second.trend);
    }

    /// The line from a side on; its pieces are used up.
    FieldLine Follow(int start) {
        FieldLine line;
        int side = start;
        for (auto piece = next_.find(side); piece != next_.end(); piece = next_.find(side)) {
            line.vertices.push_back(vertices_.at(side));
            side = piece->second;
            next_.erase(piece);
        }
        line.isClosed = side == start;
        if (!line.isClosed) {
            line.vertices.push_back(vertices_.at(side));
        }
        return line;
    }

    [[nodiscard]] FieldLine Refined(const FieldLine& line) const {
        FieldLine refined;
        refined.isClosed = line.isClosed;
        const std::size_t count = line.vertices.size();
        for (std::size_t i = 0; i < count; ++i) {
            refined.vertices.push_back(line.vertices[i]);
            if (i + 1 < count || line.isClosed) {
                AddBetween(line.vertices[i], line.vertices[(i + 1) % count], kMostHalvings,
                           refined.vertices);
            }
        }
        return refined;
    }

    /// Adds the vertices that a chord lacks.
    void AddBetween(const NetPlace& from, const NetPlace& to, int halvings,
                    std::vector<NetPlace>& vertices) const {
        const std::optional<NetPlace> middle = halvings > 0 ? MiddleOf(from, to) : std::nullopt;
        if (middle) {
            AddBetween(from, *middle, halvings - 1, vertices);
            vertices.push_back(*middle);
            AddBetween(*middle, to, halvings - 1, vertices);
        }
    }

    /// The place of the line beside the middle of a chord, if it is not as good as on the chord.
    [[nodiscard]] std::optional<NetPlace> MiddleOf(const NetPlace& from, const NetPlace& to) const;

    const NetField& field_;
    double level_;
    std::vector<Piece> pieces_;
    std::unordered_map<int, int> next_; ///< the pieces that are not in a line yet
    std::unordered_map<int, bool> entered_;
    std::unordered_map<int, NetPlace> vertices_;
};

std::optional<NetPlace> FieldTrace::MiddleOf(const NetPlace& from, const NetPlace& to) const {
    const Direction a = DirectionOf(from);
    const Direction b = DirectionOf(to);
    const Direction sum{a.l + b.l, a.m + b.m, a.n + b.n};
    const Direction across = CrossProduct(a, b);
    const double length = LengthOf(sum);
    const double chord = LengthOf(across);
    if (RadToDeg(chord) < 2 * kChordTolerance) {
        return std::nullopt;
    }
    const auto beside = [&](double shift) {
        return PlaceOf({sum.l / length + shift * across.l / chord,
                        sum.m / length + shift * across.m / chord,
                        sum.n / length + shift * across.n / chord});
    };
    const double tolerance = DegToRad(kChordTolerance);
    const double reach = chord / 2;
    const double low = -reach;
    if (beside(low).plunge < 0 || beside(reach).plunge < 0) {
        return std::nullopt;
    }
    const auto heightAt = [&](double shift) { return HeightAt(beside(shift)); };
    const double lowHeight = heightAt(-tolerance);
    const double highHeight = heightAt(tolerance);
    if ((lowHeight >= 0) != (highHeight >= 0)) {
        return std::nullopt;
    }
    const double farLow = heightAt(low);
    const double farHigh = heightAt(reach);
    if ((farLow >= 0) != (lowHeight >= 0)) {
        return beside(RootBetween(low, farLow, -tolerance, lowHeight, heightAt));
    }
    if ((farHigh >= 0) != (highHeight >= 0)) {
        return beside(RootBetween(tolerance, highHeight, reach, farHigh, heightAt));
    }
    return std::nullopt;
}

/// How far a trend is from another one, counter-clockwise, 0 to 360.
double TurnBack(double from, double to) {
    return WrappedTrend(from - to);
}

/// Adds the primitive counter-clockwise from one trend to another, without the ends.
void AddRim(double from, double turn, std::vector<NetPlace>& ring) {
    for (double trend = std::ceil(from) - 1; trend > from - turn; --trend) {
        ring.push_back({0, WrappedTrend(trend)});
    }
}

std::vector<NetPlace> WholeRim() {
    std::vector<NetPlace> ring;
    for (int trend = kFieldTrends - 1; trend >= 0; --trend) {
        ring.push_back({0, static_cast<double>(trend)});
    }
    return ring;
}

/// Joins lines that end on the primitive, each with the next one that begins there.
std::vector<std::vector<NetPlace>> JoinedAlongRim(std::vector<const FieldLine*> open) {
    std::vector<std::vector<NetPlace>> rings;
    while (!open.empty()) {
        const FieldLine* line = open.front();
        const FieldLine* const first = line;
        std::vector<NetPlace> ring;
        do {
            ring.insert(ring.end(), line->vertices.begin(), line->vertices.end());
            const double end = line->vertices.back().trend;
            const auto turn = [end](const FieldLine* other) {
                return TurnBack(end, other->vertices.front().trend);
            };
            const auto next = std::min_element(open.begin(), open.end(),
                                               [&](auto* a, auto* b) { return turn(a) < turn(b); });
            AddRim(end, turn(*next), ring);
            line = *next;
            open.erase(next);
        } while (line != first);
        rings.push_back(std::move(ring));
    }
    return rings;
}

} // namespace

std::vector<FieldLine> FieldContour(const NetField& field, double level) {
    return FieldTrace(field, level).Lines();
}

std::vector<std::vector<NetPlace>> RegionAbove(const NetField& field,
                                               std::span<const FieldLine> contour, double level) {
    std::vector<const FieldLine*> open;
    std::vector<std::vector<NetPlace>> rings;
    for (const FieldLine& line : contour) {
        if (line.isClosed) {
            rings.push_back(line.vertices);
        } else {
            open.push_back(&line);
        }
    }
    if (open.empty() && field.nodes.front() >= level) {
        rings.push_back(WholeRim());
    }
    for (std::vector<NetPlace>& ring : JoinedAlongRim(std::move(open))) {
        rings.push_back(std::move(ring));
    }
    return rings;
}

} // namespace quandrel
