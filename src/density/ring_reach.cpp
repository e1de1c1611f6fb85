// SPDX-License-Identifier: MIT

#include "density/ring_reach.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kDegreesOfNet = 90;

/// Reaches are trusted to this, in radians.
constexpr double kDoubt = 1e-4;

/// Sums of products of sines and cosines are trusted to this.
constexpr double kRounding = 1e-12;

/// Of cosines with a smaller product the quotient is not trusted.
constexpr double kLeastProduct = 1e-3;

/// Plunges in units of rings are trusted to this.
constexpr double kDoubtOfRing = 1e-6;

/// Arc cosine to 7e-5, from -1 to 1: M. Abramowitz, I. A. Stegun, Handbook of Mathematical
/// Functions (1964), 4.4.45.
double RoughArcCos(double cosine) {
    const double a = std::abs(cosine);
    const double angle =
        std::sqrt(1 - a) * (1.5707288 + a * (-0.2121144 + a * (0.0742610 - a * 0.0187293)));
    return cosine < 0 ? kPi - angle : angle;
}

/// The reach on a ring between two circles.
Reach Between(const Reach& a, const Reach& b) {
    Reach reach{std::min(a.inner, b.inner), std::max(a.outer, b.outer)};
    if (reach.inner < kPi) {
        reach.inner -= kDoubt;
    }
    if (reach.outer >= 0) {
        reach.outer += kDoubt;
    }
    return reach;
}

} // namespace

/// A cone with what its reaches follow from.
struct CellRings::Cone {
    double plunge = 0; ///< of its lower end
    double halfAngle = 0;
    double sign = 1; ///< -1 for the opposite end
    double sinPlunge = std::sin(plunge);
    double cosPlunge = std::cos(plunge);
    double cosAngle = std::cos(halfAngle);
};

CellRings::CellRings(int cellsPerDegree)
    : rings_(kDegreesOfNet * cellsPerDegree)
    , cellsPerRadian_(rings_ / (kPi / 2)) {
    for (int boundary = 0; boundary <= rings_; ++boundary) {
        sines_.push_back(std::sin(boundary / cellsPerRadian_));
        cosines_.push_back(std::cos(boundary / cellsPerRadian_));
    }
}

int CellRings::RingOf(double plunge) const {
    return std::min(static_cast<int>(std::abs(plunge) * cellsPerRadian_), rings_ - 1);
}

int CellRings::PlaceOf(double trend) const {
    const int place = static_cast<int>(trend * cellsPerRadian_);
    return place < Trends() ? place : place - Trends();
}

double CellRings::MiddleOf(int ring) const {
    return (ring + 0.5) / cellsPerRadian_;
}

double CellRings::RadiusOfCell(int ring) const {
    // The haversine of the distance, with the greater cosine for both plunges.
    const double quarter = std::sin(0.25 / cellsPerRadian_);
    const double across = cosines_[static_cast<std::size_t>(ring)] * quarter;
    return 2 * std::asin(std::sqrt(quarter * quarter + across * across));
}

Reach CellRings::AtBoundary(const Cone& cone, int boundary) const {
    const auto place = static_cast<std::size_t>(boundary);
    const double height = cone.cosAngle - cone.sign * cone.sinPlunge * sines_[place];
    const double product = cone.cosPlunge * cosines_[place];
    if (height > product + kRounding) {
        return {-1, -1};
    }
    if (height < -product - kRounding) {
        return {kPi, kPi};
    }
    if (product < kLeastProduct) {
        return {-1, kPi};
    }
    const double halfWidth =
        std::min(RoughArcCos(std::clamp(height / product, -1.0, 1.0)), kPi - kDoubt);
    return {halfWidth, halfWidth};
}

void CellRings::FindRings(const Cone& cone, int first, int last, ConeReach& reach) const {
    reach.first = first;
    reach.rings.clear();
    Reach below = first <= last ? AtBoundary(cone, first) : Reach();
    for (int ring = first; ring <= last; ++ring) {
        const Reach above = AtBoundary(cone, ring + 1);
        reach.rings.push_back(Between(below, above));
        below = above;
    }
}

void CellRings::WidenAtWidest(const Cone& cone, ConeReach& reach) const {
    if (cone.sinPlunge >= cone.cosAngle) {
        return; // the cone holds the centre of the net, and reaches all around it
    }
    const double sine = std::sin(cone.halfAngle) / cone.cosPlunge;
    const double widest = RoughArcCos(std::sqrt(std::max(1 - sine * sine, 0.0))) + kDoubt;
    const int ring = RingOf(std::asin(cone.sinPlunge / cone.cosAngle)) - reach.first;
    const int last = static_cast<int>(reach.rings.size()) - 1;
    for (int near = std::max(ring - 1, 0); near <= std::min(ring + 1, last); ++near) {
        double& outer = reach.rings[static_cast<std::size_t>(near)].outer;
        outer = std::max(outer, widest);
    }
}

void CellRings::FindNear(double plunge, double halfAngle, ConeReach& reach) const {
    const Cone cone{std::abs(plunge), halfAngle};
    const double low = (cone.plunge - halfAngle) * cellsPerRadian_ - kDoubtOfRing;
    const double high = (cone.plunge + halfAngle) * cellsPerRadian_ + kDoubtOfRing;
    FindRings(cone, static_cast<int>(std::max(low, 0.0)),
              std::min(static_cast<int>(high), rings_ - 1), reach);
    WidenAtWidest(cone, reach);
}

void CellRings::FindFar(double plunge, double halfAngle, ConeReach& reach) const {
    const Cone cone{std::abs(plunge), halfAngle, -1};
    const double high = (halfAngle - cone.plunge) * cellsPerRadian_ + kDoubtOfRing;
    FindRings(cone, 0, high < 0 ? -1 : static_cast<int>(high), reach);
}

CellArcs ArcsOf(const Reach& reach, double place, const CellRings& rings) {
    const int turn = rings.Trends();
    const double inner = reach.inner * rings.CellsPerRadian();
    const double outer = reach.outer * rings.CellsPerRadian();
    if (reach.outer < 0) {
        return {};
    }
    if (2 * outer > turn - 2) { // the whole ring
        return reach.inner >= kPi ? CellArcs{0, 0, turn, turn} : CellArcs{0, turn, turn, turn};
    }
    // A turn more before the conversion, because it rounds towards 0.
    const auto floorOf = [turn](double cell) { return static_cast<int>(cell + turn) - turn; };
    CellArcs arcs{floorOf(place - outer), 0, 0, floorOf(place + outer) + 1};
    arcs.firstInside = reach.inner < 0 ? arcs.end : floorOf(place - inner) + 1;
    arcs.endInside = reach.inner < 0 ? arcs.end : floorOf(place + inner);
    if (arcs.firstInside >= arcs.endInside) {
        arcs.firstInside = arcs.end;
        arcs.endInside = arcs.end;
    }
    return arcs;
}

} // namespace quandrel
