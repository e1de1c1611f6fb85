// SPDX-License-Identifier: MIT
//
// The methods of density: how much each row counts at a place, and what the sums of these weights
// mean.
//
// The weight of a row is a function of c, the cosine of the angle between row and place. Of axes it
// is the absolute cosine. The sum of the weights at a place is the density in the method's own
// measure; ValueOf gives it in a unit that can be read.
//
// Sources: W. B. Kamb, Journal of Geophysical Research 64 (1959), 1891 (the cone and its k); P.-Y.
// F. Robin, E. C. Jowett, Tectonophysics 121 (1986), 207 (the exponential weight); F. W. Vollmer,
// Computers & Geosciences 21 (1995), 31 (the weights of Kamb's methods and their units); G. S.
// Watson, Biometrika 52 (1965), 193 (the kernel of axes); R. A. Fisher, Proceedings of the Royal
// Society A 217 (1953), 295 (the kernel of directions).

#pragma once

#include "orientation/angles.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

enum class DensityMethod {
    Cone,            ///< rows within kCountCone, always of axes
    Kamb,            ///< rows within a cone that follows from the number of rows
    KambLinear,      ///< within this cone, a weight that falls linearly with c
    KambSquare,      ///< the same with its square
    KambExponential, ///< an exponential of c
    Kernel,          ///< a probability density of a given half-width
};

/// Whether a line and its opposite are the same.
enum class LineSense { Axes, Directions };

enum class DensityUnit {
    PerCentInCone,      ///< share of the rows in the cone
    Counts,             ///< rows in the cone
    Sigma,              ///< multiples of Kamb's unit: an even sample lies at k
    Deviation,          ///< standard deviations from the mean of an even sample, which lies at 0
    MultiplesOfUniform, ///< multiples of the mean of an even sample, which lies at 1
};

inline constexpr double kSmallestKambK = 1;
inline constexpr double kLargestKambK = 1000;

/// Half-widths of kernels: 2 and 60 degrees, in radians.
inline constexpr double kSmallestKernelWidth = kPi / 90;
inline constexpr double kLargestKernelWidth = kPi / 3;

/// A method with what the user chooses of it.
struct DensityChoice {
    DensityMethod method = DensityMethod::Cone;
    LineSense sense = LineSense::Axes;
    double k = 3;                  ///< of Kamb's methods, kSmallestKambK to kLargestKambK
    double halfWidth = kPi / 18.0; ///< of the kernel, radians, the limits above
};

/// What follows from a choice and the number of rows.
struct DensityFormula {
    DensityMethod method = DensityMethod::Cone;
    LineSense sense = LineSense::Axes;
    double rows = 0;      ///< their number, or the sum of their weights
    double share = 0;     ///< A: the part of the hemisphere (axes) or of the sphere in the cone
    double cosine = 0;    ///< of the half-angle of the cone. KambExponential: of Kamb's cone
    double factor = 0;    ///< f of Kamb's weights, kappa of the kernel
    double scale = 1;     ///< of the kernel: its density where c is 1
    double sigma = 0;     ///< Kamb's unit; 0 for other methods
    double mean = 0;      ///< of the sum at a place, over even samples
    double deviation = 0; ///< standard deviation of this sum; 0 for Cone and Kernel
};

/// The formula of a choice. Values outside their limits count as the nearest limit.
///
/// @param rows  0 or more. Where rows carry weights, the sum of these: deviations are then those of
///              as many rows of weight 1
[[nodiscard]] DensityFormula FormulaOf(const DensityChoice& choice, double rows);

/// Half-angle of the cone, radians; of a kernel and of KambExponential the angle at which the
/// weight is half of its greatest.
[[nodiscard]] double HalfAngleOf(const DensityFormula& formula);

/// The k whose cone has a half-angle: sqrt(n A / (1 - A)). Inverse of FormulaOf.
///
/// @param halfAngle  radians, above 0, below kPi / 2 (axes) or kPi (directions)
[[nodiscard]] double KambKOfHalfAngle(double halfAngle, double rows, LineSense sense);

/// kappa of a kernel of a half-width: ln 2 / sin^2 (axes), ln 2 / (1 - cos) (directions).
///
/// @param halfWidth  radians, above 0; up to kPi / 2 (axes) or kPi (directions)
[[nodiscard]] double KappaOfHalfWidth(double halfWidth, LineSense sense);

/// Inverse of KappaOfHalfWidth.
///
/// @param kappa  ln 2 or more (axes), ln 2 / 2 or more (directions)
[[nodiscard]] double HalfWidthOfKappa(double kappa, LineSense sense);

/// The density of a kernel at its centre, which makes its integral over the sphere 1.
///
/// @param kappa  above 0
[[nodiscard]] double KernelScale(double kappa, LineSense sense);

[[nodiscard]] bool HasUnit(DensityMethod method, DensityUnit unit);

/// The value of a sum in a unit.
///
/// @param unit  one that the method has
/// @return 0 where there are no rows
[[nodiscard]] double ValueOf(const DensityFormula& formula, DensityUnit unit, double sum);

/// Inverse of ValueOf.
[[nodiscard]] double SumOf(const DensityFormula& formula, DensityUnit unit, double value);

// Weights as functions of c; of axes c is 0 to 1.

/// Kamb: 1 within the cone.
struct ConeWeight {
    double cosine = 0;

    double operator()(double c) const { return c >= cosine ? 1.0 : 0.0; }
};

/// KambLinear: f (c - cos theta) within the cone.
struct LinearWeight {
    double cosine = 0;
    double factor = 0;

    double operator()(double c) const { return factor * std::max(c - cosine, 0.0); }
};

/// KambSquare: f (c - cos theta)^2 within the cone.
struct SquareWeight {
    double cosine = 0;
    double factor = 0;

    double operator()(double c) const {
        const double within = std::max(c - cosine, 0.0);
        return factor * within * within;
    }
};

/// KambExponential, and the kernel of directions: s exp(f (c - 1)).
struct ExponentialWeight {
    double factor = 0;
    double scale = 1;

    double operator()(double c) const { return scale * std::exp(factor * (c - 1)); }
};

/// The kernel of axes: s exp(f (c^2 - 1)).
struct AxialWeight {
    double factor = 0;
    double scale = 1;

    double operator()(double c) const { return scale * std::exp(factor * (c * c - 1)); }
};

/// By how much a cosine may be less than that of Kamb's cone. A row exactly on the cone counts,
/// whichever way its cosine was rounded: whole degrees on a cone of 3 degrees are not rare.
inline constexpr double kCosineRounding = 1e-12;

/// Calls a function with the weight of a formula, and returns its result.
///
/// @param visit  takes a ConeWeight, LinearWeight, SquareWeight, ExponentialWeight or AxialWeight
template <class Visit>
auto WithWeight(const DensityFormula& formula, Visit visit) {
    switch (formula.method) {
    case DensityMethod::Kamb:
        return visit(ConeWeight{formula.cosine - kCosineRounding});
    case DensityMethod::KambLinear:
        return visit(LinearWeight{formula.cosine, formula.factor});
    case DensityMethod::KambSquare:
        return visit(SquareWeight{formula.cosine, formula.factor});
    case DensityMethod::KambExponential:
        return visit(ExponentialWeight{formula.factor});
    case DensityMethod::Kernel:
        return formula.sense == LineSense::Axes
                   ? visit(AxialWeight{formula.factor, formula.scale})
                   : visit(ExponentialWeight{formula.factor, formula.scale});
    case DensityMethod::Cone:
        break;
    }
    return visit(ConeWeight{formula.cosine});
}

} // namespace quandrel
