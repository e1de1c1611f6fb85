// SPDX-License-Identifier: MIT

#include "density/field_maxima.h"

#include "orientation/angles.h"
#include "orientation/direction_vectors.h"

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
    return rim == NetRim::Open ? std::nullopt : std::optional<NetPlace>(PlaceOf(Reversed(at)));
}

Direction DirectionAt(const Node& node) {
    return DirectionOf(NetPlace{static_cast<double>(node.ring), static_cast<double>(node.trend)});
}

/// Climbs from a node: to the best of eight places around, with half the step where none is
/// better. Nothing where the way leads above an open primitive.
std::optional<FieldMaximum> Climb(const NetField& field, NetRim rim, const Node& node) {
    constexpr std::array<std::array<int, 2>, 8> kAround = {
        {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
    Direction at = DirectionAt(node);
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

/// Connected nodes of one value.
struct Plateau {
    std::vector<Node> nodes;
    bool isBelowAny = false;
    bool isAboveAny = false;
};

/// Finds the plateaus of a field. Most have one node, and the centre of the net is one.
class Plateaus {
public:
    Plateaus(const NetField& field, NetRim rim)
        : field_(field)
        , rim_(rim)
        , isSeen_(field.nodes.size()) {}

    /// The plateau of a node; nothing if it was found before.
    [[nodiscard]] std::optional<Plateau> From(const Node& node) {
        if (isSeen_[PlaceIn(node)]) {
            return std::nullopt;
        }
        isSeen_[PlaceIn(node)] = true;
        Plateau plateau{{node}};
        for (std::size_t i = 0; i < plateau.nodes.size(); ++i) {
            Spread(plateau.nodes[i], plateau);
        }
        return plateau;
    }

private:
    /// Compares a node with its neighbours, and adds those of its value.
    void Spread(Node node, Plateau& plateau) {
        const double value = field_.nodes[PlaceIn(node)];
        for (int ring = -1; ring <= 1; ++ring) {
            for (int trend = -1; trend <= 1; ++trend) {
                const std::optional<Node> next = NodeAt(node.ring + ring, node.trend + trend, rim_);
                if (!next) {
                    continue;
                }
                const std::size_t place = PlaceIn(*next);
                plateau.isBelowAny = plateau.isBelowAny || field_.nodes[place] > value;
                plateau.isAboveAny = plateau.isAboveAny || field_.nodes[place] < value;
                if (field_.nodes[place] == value && !isSeen_[place]) {
                    isSeen_[place] = true;
                    plateau.nodes.push_back(*next);
                }
            }
        }
    }

    const NetField& field_;
    NetRim rim_;
    std::vector<bool> isSeen_;
};

/// The node of a plateau that is nearest to the mean of all of them.
Node MiddleOf(const std::vector<Node>& nodes) {
    const Direction first = DirectionAt(nodes.front());
    Direction sum;
    for (const Node& node : nodes) {
        const Direction at = DirectionAt(node);
        const double sign = DotProduct(first, at) < 0 ? -1 : 1;
        sum = {sum.l + sign * at.l, sum.m + sign * at.m, sum.n + sign * at.n};
    }
    return *std::ranges::max_element(
        nodes, {}, [&](const Node& node) { return std::abs(DotProduct(DirectionAt(node), sum)); });
}

std::vector<Node> Peaks(const NetField& field, NetRim rim) {
    Plateaus plateaus(field, rim);
    std::vector<Node> peaks;
    for (int ring = 0; ring < kFieldRings; ++ring) {
        for (int trend = 0; trend < kFieldTrends; ++trend) {
            const std::optional<Plateau> found = plateaus.From({ring, trend});
            if (found && found->isAboveAny && !found->isBelowAny) {
                peaks.push_back(MiddleOf(found->nodes));
            }
        }
    }
    return peaks;
}

bool IsSamePlace(const NetPlace& a, const NetPlace& b, NetRim rim) {
    const Direction u = DirectionOf(a);
    const Direction v = DirectionOf(b);
    const double product = DotProduct(u, v);
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
