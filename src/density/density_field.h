// SPDX-License-Identifier: MIT
//
// The density of rows at any place.
//
// Each method goes the way that is fast enough and keeps its bound:
//
// - Kernel; KambExponential where half of its weight is 2 degrees away or more; KambSquare with a
//   cone of 25 degrees or more: by the sums at the nodes of the lattice and a spline through them.
//   Rows in whole degrees are exact at the nodes, others are shared out to them. The error is less
//   than 0.05% of the greatest density: nearly that at the limits (2 degrees, 25 degrees), a
//   hundredth of it at 4 degrees for exponentials and kernels.
//   Of axes, a KambExponential that reaches a right angle has an edge there. A field of axes whose
//   weight halves at 25 degrees or more takes the edge from the cells, and the rest from the
//   spline.
// - Cone, Kamb, KambLinear, and the narrower widths of the others: row by row from cells, to 1e-9
// of
//   the greatest density.

#pragma once

#include "density/density_method.h"
#include "density/density_rows.h"
#include "density/sphere_lattice.h"
#include "stereo/measured_line.h"

#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// Whether the field of a method is a spline through the nodes of the lattice.
[[nodiscard]] bool IsSpline(const DensityFormula& formula);

class DensityField {
public:
    /// @param rows     of the sense of the formula; must outlive the field. What the method needs
    /// of
    ///                 them is computed for the first field that needs it
    /// @param threads  1 or more; no result depends on them
    ///
    /// A spline takes 10 ms (axes) or 20 ms (directions) on two processors, whatever the rows. A
    /// field from cells takes no time here.
    DensityField(DensityRows& rows, const DensityFormula& formula, unsigned threads);

    [[nodiscard]] const DensityFormula& Formula() const { return formula_; }

    /// The density at a place, DirectDensity within the bounds above. 0 or more.
    ///
    /// A tenth of a microsecond by a spline; from cells up to some microseconds, and where many
    /// rows with decimals lie on a cone's border some hundred.
    [[nodiscard]] double At(const MeasuredLine& place) const;

    /// The same at many places.
    [[nodiscard]] std::vector<double> At(std::span<const MeasuredLine> places,
                                         unsigned threads) const;

    /// The densities at the nodes of the lattice, in their order (sphere_lattice.h).
    [[nodiscard]] std::vector<double> AtNodes(unsigned threads) const;

private:
    DensityFormula formula_;
    std::vector<double> nodes_; ///< empty unless they are those of the formula
    std::optional<LatticeSpline> spline_;
    std::optional<DensityFormula> ofCells_; ///< the formula, or the edge of it, taken from cells
    const WeightedCells* cells_ = nullptr;
};

} // namespace quandrel
