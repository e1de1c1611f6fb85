// SPDX-License-Identifier: MIT
//
// The net in cells of equal plunge and trend, and how far a cone reaches along each ring of them.
//
// A cone takes an arc of a ring about the trend of its axis. On a circle of plunge p the half-width
// w of the arc follows from cos w = (cos R - sin P sin p) / (cos P cos p), P the plunge of the axis
// and R the half-angle; of the opposite end of the cone, from the same with -P. Along a ring, w
// rises to its maximum and falls again.

#pragma once

#include "orientation/angles.h"

#include <cstddef>
#include <vector>

namespace quandrel {

/// How far a cone reaches along a ring, on both sides of the trend of its axis, in radians. A
/// negative value is no reach at all.
struct Reach {
    double inner = -1; ///< points nearer than this are within the cone; kPi for the whole ring
    double outer = -1; ///< points farther than this are not
};

/// The reaches of a cone, or of its opposite end, on consecutive rings.
struct ConeReach {
    int first = 0; ///< the ring of the first reach
    std::vector<Reach> rings;
};

/// The rings of cells, from the primitive to the centre of the net. The cells of a ring are
/// numbered by trend, from north.
class CellRings {
public:
    /// @param cellsPerDegree  1 or more, of plunge and of trend
    explicit CellRings(int cellsPerDegree);

    [[nodiscard]] int Rings() const { return rings_; }

    /// Cells of a ring.
    [[nodiscard]] int Trends() const { return 4 * rings_; }

    /// The cells in a radian of trend or of plunge.
    [[nodiscard]] double CellsPerRadian() const { return cellsPerRadian_; }

    /// The ring of a plunge; its sign is ignored.
    [[nodiscard]] int RingOf(double plunge) const;

    /// The place in its ring of a trend from 0 to kTwoPi.
    [[nodiscard]] int PlaceOf(double trend) const;

    /// The plunge in the middle of a ring.
    [[nodiscard]] double MiddleOf(int ring) const;

    /// The greatest distance from the middle of a cell to a point of it.
    [[nodiscard]] double RadiusOfCell(int ring) const;

    /// Finds the reaches of a cone at the end of its axis. Where rounding or the shape of the ring
    /// leave a doubt, the inner reach is less and the outer one more.
    ///
    /// @param plunge     of the axis; the sign is ignored
    /// @param halfAngle  0 to kPi / 4
    void FindNear(double plunge, double halfAngle, ConeReach& reach) const;

    /// The same at the opposite end, about the opposite trend. No ring where this end is above the
    /// primitive.
    void FindFar(double plunge, double halfAngle, ConeReach& reach) const;

private:
    struct Cone;

    [[nodiscard]] Reach AtBoundary(const Cone& cone, int boundary) const;
    void FindRings(const Cone& cone, int first, int last, ConeReach& reach) const;
    void WidenAtWidest(const Cone& cone, ConeReach& reach) const;

    int rings_;
    double cellsPerRadian_;
    std::vector<double> sines_;   ///< of the plunges between the rings
    std::vector<double> cosines_; ///< likewise
};

/// The cells of a ring that a cone reaches: `first` to before `end`, of which `firstInside` to
/// before `endInside` lie wholly within it. Numbers run from one turn below 0 to one turn above the
/// last cell.
struct CellArcs {
    int first = 0;
    int firstInside = 0;
    int endInside = 0;
    int end = 0;
};

/// @param place  the trend of the axis in cells, 0 to twice the cells of a ring
[[nodiscard]] CellArcs ArcsOf(const Reach& reach, double place, const CellRings& rings);

} // namespace quandrel
