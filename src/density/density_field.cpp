// SPDX-License-Identifier: MIT

#include "density/density_field.h"

#include "density/ring_convolution.h"
#include "density/shared_work.h"

#include <algorithm>
#include <cassert>

namespace quandrel {

namespace {

constexpr std::size_t kPlacesAtOnce = 256;

/// Angles are compared with their limits after rounding errors.
constexpr double kRounding = 1e-9;

constexpr double kNarrowestExponential = kPi / 90 - kRounding; // 2 degrees
constexpr double kNarrowestSquare = kPi / 7.2 - kRounding;     // 25 degrees
constexpr double kNarrowestWithEdge = kPi / 7.2 - kRounding;

/// Whether a weight of axes has an edge that a spline would show.
bool HasEdge(const DensityFormula& formula) {
    return formula.method == DensityMethod::KambExponential && formula.sense == LineSense::Axes
           && HalfAngleOf(formula) >= kNarrowestWithEdge;
}

} // namespace

bool IsSpline(const DensityFormula& formula) {
    switch (formula.method) {
    case DensityMethod::Kernel:
    case DensityMethod::KambExponential:
        return HalfAngleOf(formula) >= kNarrowestExponential;
    case DensityMethod::KambSquare:
        return HalfAngleOf(formula) >= kNarrowestSquare;
    case DensityMethod::Cone:
    case DensityMethod::Kamb:
    case DensityMethod::KambLinear:
        break;
    }
    return false;
}

DensityField::DensityField(DensityRows& rows, const DensityFormula& formula, unsigned threads)
    : formula_(formula) {
    assert(rows.Sense() == formula.sense);
    if (!IsSpline(formula)) {
        ofCells_ = formula;
    } else if (HasEdge(formula)) {
        ofCells_ = EdgeOf(formula);
        spline_.emplace(LatticeDensityWithoutEdge(formula, rows.Spectra(threads), threads),
                        formula.sense);
    } else {
        nodes_ = LatticeDensity(formula, rows.Spectra(threads), threads);
        spline_.emplace(nodes_, formula.sense);
    }
    if (ofCells_) {
        cells_ = &rows.Cells();
    }
}

double DensityField::At(const MeasuredLine& place) const {
    double density = 0;
    if (spline_) {
        density = spline_->At(LatticePlaceOf(place, formula_.sense));
    }
    if (ofCells_) {
        density += cells_->At(*ofCells_, place);
    }
    return std::max(density, 0.0);
}

std::vector<double> DensityField::At(std::span<const MeasuredLine> places, unsigned threads) const {
    std::vector<double> densities(places.size());
    ShareRuns(places.size(), kPlacesAtOnce, threads, [&](std::size_t first, std::size_t end) {
        for (std::size_t place = first; place < end; ++place) {
            densities[place] = At(places[place]);
        }
    });
    return densities;
}

std::vector<double> DensityField::AtNodes(unsigned threads) const {
    std::vector<double> densities(NodesOf(formula_.sense));
    ShareRuns(densities.size(), kPlacesAtOnce, threads, [&](std::size_t first, std::size_t end) {
        for (std::size_t node = first; node < end; ++node) {
            densities[node] =
                nodes_.empty() ? At(LineOfNode(node, formula_.sense)) : std::max(nodes_[node], 0.0);
        }
    });
    return densities;
}

} // namespace quandrel
