// SPDX-License-Identifier: MIT
//
// Rows of any precision in cells, for densities whose weights vanish, or nearly so, beyond a cone.
//
// There is a cell about each node of the lattice of whole degrees. Cells that lie wholly within a
// cone are taken by running totals along their rings: the sums of the rows' weights, of their
// vectors, and of the products of these give the sum of any polynomial of c up to the second
// degree. Rows in other cells are looked at one by one. In narrow cones all rows are, except for
// mere counts: the differences of totals would lose too many digits (linear weights below 2
// degrees, square ones below 6).

#pragma once

#include "density/density_method.h"
#include "density/sphere_lattice.h"
#include "stereo/measured_line.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace quandrel {

class WeightedCells {
public:
    /// Sorts rows. O(rows); 32 bytes for each, and 3 MB (axes) or 6 MB for the cells.
    ///
    /// @param rowWeights  one for each row, 0 or more
    WeightedCells(std::span<const MeasuredLine> rows, std::span<const double> rowWeights,
                  LineSense sense);

    /// DirectDensity of the rows, to 1e-9 of the greatest density of the method.
    ///
    /// Weights of KambExponential of less than 1e-11 are left out. Not for the kernel of axes.
    [[nodiscard]] double At(const DensityFormula& formula, const MeasuredLine& place) const;

private:
    struct End;
    struct Reach;
    struct Arc;
    class Inside;

    struct Row {
        Direction direction;
        double weight = 0;
    };

    /// A ring of cells.
    struct Ring {
        double sine = 0; ///< of its plunge
        double cosine = 1;
        double radius =
            0; ///< how far its rows are at most from the middles of their cells, radians
        double sineOfRadius = 0;
        double cosineOfRadius = 1;
    };

    void AddTotals();
    void FindRings(std::span<const MeasuredLine> rows);
    [[nodiscard]] bool FindArc(const End& end, const Reach& reach, const Ring& ring,
                               Arc& arc) const;

    template <class Weight>
    [[nodiscard]] double SumInRun(const Weight& weightOf, const Direction& place,
                                  std::size_t firstCell, std::size_t endCell) const;
    template <class Weight>
    [[nodiscard]] double SumOfArc(const Weight& weightOf, const Inside& inside,
                                  const Direction& place, std::size_t ring, const Arc& arc) const;
    template <class Weight>
    [[nodiscard]] double SumAtEnd(const Weight& weightOf, const DensityFormula& formula,
                                  const Reach& reach, const End& end) const;

    LineSense sense_;
    std::vector<Ring> rings_;
    std::vector<std::size_t> starts_; ///< the place of the first row of each cell
    std::vector<Row> rows_;
    // Running totals, before each cell in its ring and after the last: kRingLength + 1 for each
    // ring.
    std::vector<double> weightTotals_;
    std::vector<Direction> vectorTotals_;
    std::vector<std::array<double, 6>> productTotals_; ///< ll, mm, nn, lm, ln, mn
};

} // namespace quandrel
