// SPDX-License-Identifier: MIT
//
// The lattice of whole degrees of plunge and trend, and splines on it.
//
// A lattice has a ring of 360 trends for each plunge: of axes from 0 to 90, of directions from -90
// to 90. Plunge and trend are those of the direction itself: an upward one has the trend to which
// it points, which is half a turn from that of a MeasuredLine.
//
// Over the pole a ring goes on at the opposite trend, and so does a ring of axes beyond plunge 0,
// with the opposite plunge. The lattice therefore continues in both coordinates without end.
// Splines take it so, and are as smooth at the pole and on the rim as elsewhere.
//
// Splines are of degree 5, through the values of all nodes (I. J. Schoenberg, Cardinal Spline
// Interpolation (1973); the filter is that of M. Unser, A. Aldroubi, M. Eden, IEEE Transactions on
// Signal Processing 41 (1993), 821).

#pragma once

#include "density/density_method.h"
#include "density/ring_transform.h"
#include "stereo/measured_line.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace quandrel {

/// A place in degrees: plunge 0 to 90 (axes) or -90 to 90, trend 0 to 360, as above.
struct LatticePlace {
    double plunge = 0;
    double trend = 0;
};

[[nodiscard]] LatticePlace LatticePlaceOf(const MeasuredLine& line, LineSense sense);

/// The plunge of the first ring, degrees.
[[nodiscard]] constexpr int FirstPlunge(LineSense sense) {
    return sense == LineSense::Axes ? 0 : -90;
}

/// Rings of a lattice.
[[nodiscard]] constexpr int RingsOf(LineSense sense) {
    return 91 - FirstPlunge(sense);
}

/// Nodes of a lattice. The node of a ring and a trend is number ring * kRingLength + trend.
[[nodiscard]] constexpr std::size_t NodesOf(LineSense sense) {
    return static_cast<std::size_t>(RingsOf(sense)) * kRingLength;
}

/// The line of a node.
[[nodiscard]] MeasuredLine LineOfNode(std::size_t node, LineSense sense);

/// The node nearest to a place in plunge and trend, trends at the pole included.
[[nodiscard]] std::size_t NearestNode(const LatticePlace& place, LineSense sense);

/// Whether a place is a node, except for rounding.
[[nodiscard]] bool IsNode(const LatticePlace& place);

/// Rows between the nodes, shared out to them: a sum over the nodes of any smooth function with the
/// shares as weights is near that over the rows.
///
/// The share of a node is its cardinal spline at the row. A row takes six by six basis splines, and
/// the filter that makes cardinal splines of them runs once for all rows.
class RowShares {
public:
    explicit RowShares(LineSense sense);

    void Add(const LatticePlace& place, double weight);

    /// Adds the rows of others of the same sense.
    void Add(const RowShares& others);

    /// Adds the shares to the nodes of a lattice. The rows are not needed after it.
    void AddTo(std::span<double> nodes) &&;

private:
    LineSense sense_;
    std::vector<double> continued_;
};

/// The spline through the values of a lattice.
class LatticeSpline {
public:
    /// @param nodes  NodesOf values
    LatticeSpline(std::span<const double> nodes, LineSense sense);

    [[nodiscard]] double At(const LatticePlace& place) const;

private:
    LineSense sense_;
    std::vector<double> coefficients_; ///< with kMargin more rings and trends on each side
};

} // namespace quandrel
