// SPDX-License-Identifier: MIT

#include "density/density_method.h"

#include "density/cone_counts.h"
#include "density/dawson.h"

namespace quandrel {

namespace {

constexpr double kLogOfTwo = 0.69314718055994531;

/// The cone of Cone, both of its ends, takes this share of the sphere.
constexpr double kShareOfCone = 0.02;

bool IsOfKamb(DensityMethod method) {
    return method != DensityMethod::Cone && method != DensityMethod::Kernel;
}

/// Mean over even samples of a row's weight and of its square.
struct Moments {
    double first = 0;
    double second = 0;
};

/// The cosines of even axes are even from 0 to 1, those of even directions from -1 to 1.
Moments MomentsOf(const DensityFormula& formula) {
    const double share = formula.share;
    const double f = formula.factor;
    switch (formula.method) {
    case DensityMethod::KambLinear:
        return {share, 4 * share / 3};
    case DensityMethod::KambSquare:
        return {share, 9 * share / 5};
    case DensityMethod::KambExponential:
        return formula.sense == LineSense::Axes
                   ? Moments{-std::expm1(-f) / f, -std::expm1(-2 * f) / (2 * f)}
                   : Moments{-std::expm1(-2 * f) / (2 * f), -std::expm1(-4 * f) / (4 * f)};
    case DensityMethod::Kernel:
        return {1 / (4 * kPi), 0};
    case DensityMethod::Cone:
    case DensityMethod::Kamb:
        break;
    }
    return {share, share};
}

/// The cone of Kamb's methods, the factor of their weight, and the unit.
void AddKamb(DensityFormula& formula, double k) {
    const double n = formula.rows;
    const bool areAxes = formula.sense == LineSense::Axes;
    formula.share = k * k / (n + k * k);
    const double height = areAxes ? formula.share : 2 * formula.share; // of the cap: 1 - cos theta
    formula.cosine = 1 - height;
    formula.sigma = std::sqrt(n * formula.share * (1 - formula.share));
    if (formula.method == DensityMethod::KambLinear) {
        formula.factor = 2 / height;
    } else if (formula.method == DensityMethod::KambSquare) {
        formula.factor = 3 / (height * height);
    } else if (formula.method == DensityMethod::KambExponential) {
        formula.factor = (areAxes ? 2 : 1) * (1 + n / (k * k));
        // sqrt(n (f / 2 - 1) / f^2), or sqrt(n (f - 1) / (4 f^2)), with n / k^2 for the difference.
        formula.sigma = (areAxes ? 1 : 0.5) * n / (k * formula.factor);
    }
}

void AddKernel(DensityFormula& formula, double halfWidth) {
    const double kept = std::clamp(halfWidth, kSmallestKernelWidth, kLargestKernelWidth);
    formula.factor = KappaOfHalfWidth(kept, formula.sense);
    formula.scale = KernelScale(formula.factor, formula.sense);
}

/// A unit is a straight line: the sum at its 0, and the sum of one unit.
struct UnitLine {
    double zero = 0;
    double one = 0;
};

UnitLine LineOf(const DensityFormula& formula, DensityUnit unit) {
    switch (unit) {
    case DensityUnit::PerCentInCone:
        return {0, formula.rows / 100};
    case DensityUnit::Sigma:
        return {0, formula.sigma};
    case DensityUnit::Deviation:
        return {formula.mean, formula.deviation};
    case DensityUnit::MultiplesOfUniform:
        return {0, formula.mean};
    case DensityUnit::Counts:
        break;
    }
    return {0, 1};
}

} // namespace

DensityFormula FormulaOf(const DensityChoice& choice, double rows) {
    DensityFormula formula;
    formula.method = choice.method;
    formula.sense = choice.method == DensityMethod::Cone ? LineSense::Axes : choice.sense;
    formula.rows = rows;
    if (IsOfKamb(choice.method)) {
        AddKamb(formula, std::clamp(choice.k, kSmallestKambK, kLargestKambK));
    } else if (choice.method == DensityMethod::Kernel) {
        AddKernel(formula, choice.halfWidth);
    } else {
        formula.share = kShareOfCone;
        formula.cosine = std::cos(kCountCone);
    }
    const Moments moments = MomentsOf(formula);
    formula.mean = rows * moments.first;
    if (IsOfKamb(choice.method)) {
        formula.deviation = std::sqrt(rows * (moments.second - moments.first * moments.first));
    }
    return formula;
}

double HalfAngleOf(const DensityFormula& formula) {
    if (formula.method == DensityMethod::Kernel) {
        return HalfWidthOfKappa(formula.factor, formula.sense);
    }
    return ArcCos(formula.method == DensityMethod::KambExponential ? 1 - kLogOfTwo / formula.factor
                                                                   : formula.cosine);
}

double KambKOfHalfAngle(double halfAngle, double rows, LineSense sense) {
    const double sine = std::sin(halfAngle / 2);
    const double height = 2 * sine * sine; // 1 - cos, without cancellation
    const double share = sense == LineSense::Axes ? height : height / 2;
    return std::sqrt(rows * share / (1 - share));
}

double KappaOfHalfWidth(double halfWidth, LineSense sense) {
    const double sine = std::sin(sense == LineSense::Axes ? halfWidth : halfWidth / 2);
    return kLogOfTwo / ((sense == LineSense::Axes ? 1 : 2) * sine * sine);
}

double HalfWidthOfKappa(double kappa, LineSense sense) {
    return sense == LineSense::Axes ? ArcSin(std::sqrt(kLogOfTwo / kappa))
                                    : 2 * ArcSin(std::sqrt(kLogOfTwo / (2 * kappa)));
}

double KernelScale(double kappa, LineSense sense) {
    if (sense == LineSense::Axes) {
        const double root = std::sqrt(kappa);
        return root / (4 * kPi * Dawson(root));
    }
    return kappa / (-kTwoPi * std::expm1(-2 * kappa));
}

bool HasUnit(DensityMethod method, DensityUnit unit) {
    switch (unit) {
    case DensityUnit::PerCentInCone:
        return method == DensityMethod::Cone;
    case DensityUnit::Counts:
        return method == DensityMethod::Cone || method == DensityMethod::Kamb;
    case DensityUnit::Sigma:
    case DensityUnit::Deviation:
        return IsOfKamb(method);
    case DensityUnit::MultiplesOfUniform:
        break;
    }
    return true;
}

double ValueOf(const DensityFormula& formula, DensityUnit unit, double sum) {
    const UnitLine line = LineOf(formula, unit);
    return formula.rows > 0 ? (sum - line.zero) / line.one : 0;
}

double SumOf(const DensityFormula& formula, DensityUnit unit, double value) {
    const UnitLine line = LineOf(formula, unit);
    return line.zero + value * line.one;
}

} // namespace quandrel
