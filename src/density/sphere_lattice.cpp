// SPDX-License-Identifier: MIT

#include "density/sphere_lattice.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kTurn = 360;
constexpr int kHalfTurn = 180;
constexpr int kRight = 90;
constexpr double kDegreesPerRadian = 180 / kPi;

/// Places nearer to a node than this, in degrees, are at it.
constexpr double kAtNode = 1e-9;

/// Basis splines that are not 0 at a place, in one coordinate.
constexpr std::size_t kSupport = 6;

/// The first of them begins this many nodes before the place.
constexpr int kBefore = 2;

/// Rings and trends that the coefficients have beyond those of the lattice.
constexpr int kMargin = 3;

constexpr std::size_t kRowOfCoefficients = kRingLength + 2 * kMargin + 1;

/// The poles of the filter of splines of degree 5.
constexpr std::array<double, 2> kFilterPoles = {-0.43057534709997825, -0.043096288203264443};

/// Plunges after which a continued lattice repeats.
int PlungesOf(LineSense sense) {
    return sense == LineSense::Axes ? kHalfTurn : kTurn;
}

std::size_t Size(int value) {
    return static_cast<std::size_t>(value);
}

/// The node at which a continued ring begins: its ring, and by how much its trends are shifted.
struct FoldedRing {
    int ring = 0;
    int shift = 0;
};

/// @param plunge  any whole degree from -270 to 270
FoldedRing Fold(int plunge, LineSense sense) {
    int shift = 0;
    if (plunge > kRight) {
        plunge = kHalfTurn - plunge;
        shift = kHalfTurn;
    } else if (plunge < -kRight) {
        plunge = -kHalfTurn - plunge;
        shift = kHalfTurn;
    }
    if (sense == LineSense::Axes && plunge < 0) {
        plunge = -plunge;
        shift = kHalfTurn - shift;
    }
    return {plunge - FirstPlunge(sense), shift};
}

/// A lattice continued to a whole period of plunge, ring by ring from plunge 0 on.
std::vector<double> Continued(std::span<const double> nodes, LineSense sense) {
    const int plunges = PlungesOf(sense);
    std::vector<double> continued(Size(plunges) * kRingLength);
    for (int plunge = 0; plunge < plunges; ++plunge) {
        const FoldedRing folded = Fold(plunge <= kHalfTurn ? plunge : plunge - kTurn, sense);
        const auto ring = nodes.subspan(Size(folded.ring) * kRingLength, kRingLength);
        const auto to = continued.begin() + plunge * kTurn;
        std::copy(ring.begin() + folded.shift, ring.end(), to);
        std::copy_n(ring.begin(), folded.shift, to + (kTurn - folded.shift));
    }
    return continued;
}

/// A filter of one pole along a closed row of numbers, there and back, without changing their sum.
/// The start is found by going around far enough that the pole's powers vanish.
void FilterClosed(std::span<double> values, double pole) {
    constexpr std::size_t kFar = 48;
    const std::size_t count = values.size();
    const double gain = (1 - pole) * (1 - pole);
    double running = 0;
    for (std::size_t i = count - kFar; i < count; ++i) {
        running = values[i] + pole * running;
    }
    for (double& value : values) {
        running = value + pole * running;
        value = running;
    }
    running = 0;
    for (std::size_t i = kFar; i-- > 0;) {
        running = values[i] + pole * running;
    }
    for (std::size_t i = count; i-- > 0;) {
        running = values[i] + pole * running;
        values[i] = gain * running;
    }
}

/// The same across the rings, for all trends together.
void FilterAcross(std::vector<double>& rings, double pole) {
    constexpr std::size_t kFar = 48;
    const std::size_t count = rings.size() / kRingLength;
    const double gain = (1 - pole) * (1 - pole);
    std::array<double, kRingLength> running{};
    const auto pass = [&](std::size_t ring, double stored) {
        double* const values = rings.data() + ring * kRingLength;
        for (std::size_t trend = 0; trend < kRingLength; ++trend) {
            running[trend] = values[trend] + pole * running[trend];
            values[trend] = stored == 0 ? values[trend] : stored * running[trend];
        }
    };
    for (std::size_t ring = count - kFar; ring < count; ++ring) {
        pass(ring, 0);
    }
    for (std::size_t ring = 0; ring < count; ++ring) {
        pass(ring, 1);
    }
    running.fill(0);
    for (std::size_t ring = kFar; ring-- > 0;) {
        pass(ring, 0);
    }
    for (std::size_t ring = count; ring-- > 0;) {
        pass(ring, gain);
    }
}

/// Makes coefficients of basis splines from values at nodes. Its own transpose.
void Filter(std::vector<double>& continued) {
    for (const double pole : kFilterPoles) {
        FilterAcross(continued, pole);
        for (std::size_t first = 0; first < continued.size(); first += kRingLength) {
            FilterClosed(std::span(continued).subspan(first, kRingLength), pole);
        }
    }
}

/// The basis splines at a place between two nodes: their sum is 1.
///
/// @param u  0 to 1, from the lower node
std::array<double, kSupport> SplinesAt(double u) {
    constexpr double kPart = 1.0 / 120;
    const double v = 1 - u;
    const double u2 = u * u;
    const double v2 = v * v;
    return {kPart * v2 * v2 * v,
            kPart * (26 + u * (-50 + u * (20 + u * (20 + u * (-20 + u * 5))))),
            kPart * (66 + u2 * (-60 + u2 * (30 - u * 10))),
            kPart * (66 + v2 * (-60 + v2 * (30 - v * 10))),
            kPart * (26 + v * (-50 + v * (20 + v * (20 + v * (-20 + v * 5))))),
            kPart * u2 * u2 * u};
}

} // namespace

LatticePlace LatticePlaceOf(const MeasuredLine& line, LineSense sense) {
    const double plunge = line.plunge * kDegreesPerRadian;
    const double trend = line.trend * kDegreesPerRadian;
    if (line.plunge >= 0) {
        return {std::min(plunge, 90.0), trend};
    }
    if (sense == LineSense::Axes) {
        return {std::min(-plunge, 90.0), trend};
    }
    return {std::max(plunge, -90.0), trend < kHalfTurn ? trend + kHalfTurn : trend - kHalfTurn};
}

MeasuredLine LineOfNode(std::size_t node, LineSense sense) {
    const int plunge = static_cast<int>(node / kRingLength) + FirstPlunge(sense);
    const int trend = static_cast<int>(node % kRingLength) + (plunge < 0 ? kHalfTurn : 0);
    return {DegToRad(plunge), DegToRad(trend % kTurn)};
}

std::size_t NearestNode(const LatticePlace& place, LineSense sense) {
    const int ring = static_cast<int>(place.plunge + kRight + 0.5) - kRight - FirstPlunge(sense);
    const int trend = static_cast<int>(place.trend + 0.5) % kTurn;
    return Size(ring) * kRingLength + Size(trend);
}

bool IsNode(const LatticePlace& place) {
    // Shifted above 0, so that adding one half and truncating rounds them.
    const double plunge = place.plunge + kRight;
    return std::abs(plunge - static_cast<int>(plunge + 0.5)) < kAtNode
           && std::abs(place.trend - static_cast<int>(place.trend + 0.5)) < kAtNode;
}

RowShares::RowShares(LineSense sense)
    : sense_(sense)
    , continued_(Size(PlungesOf(sense)) * kRingLength) {}

void RowShares::Add(const LatticePlace& place, double weight) {
    const int plunge = static_cast<int>(place.plunge + kRight) - kRight;
    const int trend = static_cast<int>(place.trend);
    const std::array<double, kSupport> along = SplinesAt(place.trend - trend);
    const std::array<double, kSupport> across = SplinesAt(place.plunge - plunge);
    const int plunges = PlungesOf(sense_);
    const int firstTrend = (trend - kBefore + kTurn) % kTurn;
    for (std::size_t i = 0; i < kSupport; ++i) {
        const int ring = (plunge - kBefore + static_cast<int>(i) + plunges) % plunges;
        double* const nodes = continued_.data() + Size(ring) * kRingLength;
        const double share = weight * across[i];
        if (firstTrend <= kTurn - static_cast<int>(kSupport)) {
            for (std::size_t j = 0; j < kSupport; ++j) {
                nodes[Size(firstTrend) + j] += share * along[j];
            }
            continue;
        }
        for (std::size_t j = 0; j < kSupport; ++j) {
            nodes[(Size(firstTrend) + j) % kRingLength] += share * along[j];
        }
    }
}

void RowShares::Add(const RowShares& others) {
    for (std::size_t i = 0; i < continued_.size(); ++i) {
        continued_[i] += others.continued_[i];
    }
}

void RowShares::AddTo(std::span<double> nodes) && {
    Filter(continued_);
    const int plunges = PlungesOf(sense_);
    for (int plunge = 0; plunge < plunges; ++plunge) {
        const FoldedRing folded = Fold(plunge <= kHalfTurn ? plunge : plunge - kTurn, sense_);
        const double* const from = continued_.data() + Size(plunge) * kRingLength;
        double* const to = nodes.data() + Size(folded.ring) * kRingLength;
        for (int trend = 0; trend < kTurn; ++trend) {
            to[(trend + folded.shift) % kTurn] += from[trend];
        }
    }
}

LatticeSpline::LatticeSpline(std::span<const double> nodes, LineSense sense)
    : sense_(sense) {
    std::vector<double> continued = Continued(nodes, sense);
    Filter(continued);
    const int plunges = PlungesOf(sense);
    for (int plunge = FirstPlunge(sense) - kMargin; plunge <= kRight + kMargin; ++plunge) {
        const auto ring = continued.begin() + (plunge + plunges) % plunges * kTurn;
        coefficients_.insert(coefficients_.end(), ring + (kTurn - kMargin), ring + kTurn);
        coefficients_.insert(coefficients_.end(), ring, ring + kTurn);
        coefficients_.insert(coefficients_.end(), ring, ring + (kMargin + 1));
    }
}

double LatticeSpline::At(const LatticePlace& place) const {
    const int plunge = static_cast<int>(place.plunge + kRight) - kRight;
    const int trend = static_cast<int>(place.trend);
    const std::array<double, kSupport> along = SplinesAt(place.trend - trend);
    const std::array<double, kSupport> across = SplinesAt(place.plunge - plunge);
    const double* nodes =
        coefficients_.data()
        + Size(plunge - FirstPlunge(sense_) + kMargin - kBefore) * kRowOfCoefficients
        + Size(trend + kMargin - kBefore);
    double sum = 0;
    for (std::size_t i = 0; i < kSupport; ++i, nodes += kRowOfCoefficients) {
        double ofRing = 0;
        for (std::size_t j = 0; j < kSupport; ++j) {
            ofRing += along[j] * nodes[j];
        }
        sum += across[i] * ofRing;
    }
    return sum;
}

} // namespace quandrel
