// SPDX-License-Identifier: MIT

#include "density/field_maxima.h"

#include "orientation/angles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <tuple>

namespace quandrel {

namespace {

constexpr int kHalfTurn = kFieldTrends / 2;
constexpr double kFirstStep = 0.5;  ///< degrees
constexpr double kLastStep = 1e-5;  ///< degrees
constexpr double kSamePlace = 0.25; ///< degrees

/// Where the field rises towards an open primitive, the climb ends at its last step, degrees.
constexpr double kLeastPlunge = 1e-3;

/// A node of the field.
struct Node {
    int ring = 0;
    int trend = 0;
};

std::size_t PlaceIn(const Node& node) {
    return static_cast<std::size_t>(node.ring * kFieldTrends + node.trend);
}

/// The node at a ring and trend that may be beyond the primitive or the centre; nothing above an
/// open primitive.
std::optional<Node> NodeAt(int ring, int trend, NetRim rim) {
    if (ring < 0) {
        if (rim == NetRim::Open) {
            return std::nullopt;
        }
        ring = -ring;
        trend += kHalfTurn;
    } else if (ring >= kFieldRings) {
        ring = 2 * (kFieldRings - 1) - ring;
        trend += kHalfTurn;
    }
    return Node{ring, (trend + kFieldTrends) % kFieldTrends};
}

/// The place of a direction of any sense; nothing above an open primitive.
std::optional<NetPlace> PlaceOn(NetRim rim, const Direction& at) {
    if (at.n >= 0) {
        return PlaceOf(at);
    }
    return rim == NetRim::Open ? std::nullopt
                               : std::optional<NetPlace>(PlaceOf({-at.l, -at.m, -at.n}));
}

Direction Normalised(const Direction& v) {
    const double length = std::sqrt(v.l * v.l + v.m * v.m + v.n * v.n);
    return {v.l / length, v.m / length, v.n / length};
}

/// A direction moved by angles along two tangents.
Direction Moved(const Direction& at, const std::array<Direction, 2>& tangents, double first,
                double second) {
    const auto& [u, v] = tangents;
    return Normalised({at.l + first * u.l + second * v.l, at.m + first * u.m + second * v.m,
                       at.n + first * u.n + second * v.n});
}

std::array<Direction, 2> TangentsAt(const Direction& at) {
    const Direction aside =
        std::abs(at.n) < 0.9 ? Direction{-at.m, at.l, 0} : Direction{0, -at.n, at.m};
    const Direction u = Normalised(aside);
    return {u, {at.m * u.n - at.n * u.m, at.n * u.l - at.l * u.n, at.l * u.m - at.m * u.l}};
}

/// Climbs from a node: to the best of eight places around, with half the step where none is
/// better. Nothing where the way leads above an open primitive.
std::optional<FieldMaximum> Climb(const NetField& field, NetRim rim, const Node& node) {
    constexpr std::array<std::array<int, 2>, 8> kAround = {
        {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
    Direction at =
        DirectionOf(NetPlace{static_cast<double>(node.ring), static_cast<double>(node.trend)});
    double value = field.nodes[PlaceIn(node)];
    const double last = DegToRad(kLastStep);
    for (double step = DegToRad(kFirstStep); step > last;) {
        const std::array<Direction, 2> tangents = TangentsAt(at);
        Direction best = at;
        for (const auto& [first, second] : kAround) {
            const Direction next = Moved(at, tangents, first * step, second * step);
            const std::optional<NetPlace> place = PlaceOn(rim, next);
            const double found = place ? field.at(*place) : value;
            if (found > value) {
                value = found;
                best = next;
            }
        }
        if (best.l == at.l && best.m == at.m && best.n == at.n) {
            step /= 2;
        }
        at = best;
    }
    const std::optional<NetPlace> place = PlaceOn(rim, at);
    if (!place || (rim == NetRim::Open && place->plunge < kLeastPlunge)) {
        return std::nullopt;
    }
    return FieldMaximum{*place, value};
}

/// True for a node that no neighbour exceeds, and at least one does not reach. Of equal neighbours
/// the one with the higher number counts.
bool IsPeak(const NetField& field, const Node& node, NetRim rim) {
    const double value = field.nodes[PlaceIn(node)];
    bool isAboveAny = false;
    for (int ring = -1; ring <= 1; ++ring) {
        for (int trend = -1; trend <= 1; ++trend) {
            const std::optional<Node> next = NodeAt(node.ring + ring, node.trend + trend, rim);
            if (!next || (ring == 0 && trend == 0)) {
                continue;
            }
            const double other = field.nodes[PlaceIn(*next)];
            if (other > value || (other == value && PlaceIn(*next) > PlaceIn(node))) {
                return false;
            }
            isAboveAny = isAboveAny || other < value;
        }
    }
    return isAboveAny;
}

/// The centre is one place: its neighbours are the nodes of the ring around it.
bool IsPeakAtCentre(const NetField& field) {
    const double value = field.nodes[PlaceIn({kFieldRings - 1, 0})];
    const auto ring = field.nodes.subspan(PlaceIn({kFieldRings - 2, 0}), kFieldTrends);
    return std::ranges::none_of(ring, [value](double other) { return other > value; })
           && std::ranges::any_of(ring, [value](double other) { return other < value; });
}

std::vector<Node> Peaks(const NetField& field, NetRim rim) {
    std::vector<Node> peaks;
    for (int ring = 0; ring < kFieldRings - 1; ++ring) {
        for (int trend = 0; trend < kFieldTrends; ++trend) {
            if (IsPeak(field, {ring, trend}, rim)) {
                peaks.push_back({ring, trend});
            }
        }
    }
    if (IsPeakAtCentre(field)) {
        peaks.push_back({kFieldRings - 1, 0});
    }
    return peaks;
}

bool IsSamePlace(const NetPlace& a, const NetPlace& b, NetRim rim) {
    const Direction u = DirectionOf(a);
    const Direction v = DirectionOf(b);
    const double product = u.l * v.l + u.m * v.m + u.n * v.n;
    return (rim == NetRim::Joined ? std::abs(product) : product) > std::cos(DegToRad(kSamePlace));
}

} // namespace

std::vector<FieldMaximum> FieldMaxima(const NetField& field, NetRim rim) {
    std::vector<FieldMaximum> maxima;
    for (const Node& peak : Peaks(field, rim)) {
        const std::optional<FieldMaximum> found = Climb(field, rim, peak);
        const auto isKnown = [&](const FieldMaximum& known) {
            return IsSamePlace(known.place, found->place, rim);
        };
        if (found && std::ranges::none_of(maxima, isKnown)) {
            maxima.push_back(*found);
        }
    }
    std::ranges::sort(maxima, [](const FieldMaximum& a, const FieldMaximum& b) {
        return std::tuple(-a.value, -a.place.plunge, a.place.trend)
               < std::tuple(-b.value, -b.place.plunge, b.place.trend);
    });
    return maxima;
}

} // namespace quandrel
