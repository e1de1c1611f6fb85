// SPDX-License-Identifier: MIT
//
// Densities at the nodes of a lattice of rows that are at its nodes.
//
// The weight between two rings depends on the difference of trend alone. The sum over a ring of
// rows is therefore a circular convolution, which is a product of spectra. The result is exact for
// any weight, sharp ones too, except for rounding errors of 1e-13 of the greatest density.

#pragma once

#include "density/density_method.h"
#include "density/sphere_lattice.h"

#include <span>
#include <vector>

namespace quandrel {

/// The spectra of the rings of a lattice of rows, which serve for all methods.
struct LatticeSpectra {
    LineSense sense = LineSense::Axes;
    std::vector<double> real;      ///< kRingFrequencies for each ring
    std::vector<double> imaginary; ///< likewise
    std::vector<bool> hasRows;     ///< for each ring
};

/// @param nodes  the weight of the rows at each node, NodesOf values
[[nodiscard]] LatticeSpectra SpectraOf(std::span<const double> nodes, LineSense sense);

/// The sums of the weights of the rows at each node. The result does not depend on the threads.
///
/// @param threads  1 or more
[[nodiscard]] std::vector<double> LatticeDensity(const DensityFormula& formula,
                                                 const LatticeSpectra& rows, unsigned threads);

/// The same without the edge that the weight of KambExponential has between axes a right angle
/// apart: f exp(-f) c is subtracted from it. The weight is then smooth to the second derivative.
///
/// @param formula  of KambExponential and axes
[[nodiscard]] std::vector<double> LatticeDensityWithoutEdge(const DensityFormula& formula,
                                                            const LatticeSpectra& rows,
                                                            unsigned threads);

/// The sum of what LatticeDensityWithoutEdge leaves out, as the formula of a linear weight.
[[nodiscard]] DensityFormula EdgeOf(const DensityFormula& formula);

} // namespace quandrel
