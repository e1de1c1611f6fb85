// SPDX-License-Identifier: MIT

#include "density/cone_counts.h"
#include "density/density_method.h"
#include "density/direct_density.h"
#include "support/density_samples.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numeric>
#include <vector>

namespace quandrel {
namespace {

constexpr std::array kKambMethods = {DensityMethod::Kamb, DensityMethod::KambLinear,
                                     DensityMethod::KambSquare, DensityMethod::KambExponential};

double WeightAt(const DensityFormula& formula, double c) {
    return WithWeight(formula, [c](const auto& weightOf) { return weightOf(c); });
}

/// The integral of a function from `from` to `to`, by Simpson's rule.
template <class Function>
double Integral(const Function& function, double from, double to) {
    constexpr int kIntervals = 4000;
    const double step = (to - from) / kIntervals;
    double sum = 0;
    for (int i = 0; i <= kIntervals; ++i) {
        const double share = i == 0 || i == kIntervals ? 1 : i % 2 == 1 ? 4 : 2;
        sum += share * function(from + i * step);
    }
    return sum * step / 3;
}

/// The mean of a power of the weight over even rows: their cosines are even. The integral is split
/// where the weight has an edge.
double MeanOfPower(const DensityFormula& formula, int power) {
    const double least = formula.sense == LineSense::Axes ? 0 : -1;
    const double edge =
        formula.method == DensityMethod::KambExponential || formula.method == DensityMethod::Kernel
            ? 1 - std::min(1.0, 30 / formula.factor)
            : formula.cosine;
    const auto weight = [&](double c) { return std::pow(WeightAt(formula, c), power); };
    return (Integral(weight, least, std::nextafter(edge, -1) - 1e-11) + Integral(weight, edge, 1))
           / (1 - least);
}

TEST(DensityFormula, KambsConeHoldsKUnits) {
    for (const LineSense sense : kSenses) {
        for (const double k : {1.0, 3.0, 10.0}) {
            const DensityFormula formula = FormulaOf({DensityMethod::Kamb, sense, k}, 200);
            // A = k^2 / (n + k^2); of the hemisphere 1 - cos, of the sphere half of that.
            const double share = k * k / (200 + k * k);
            const double ofCap = 1 - std::cos(HalfAngleOf(formula));
            EXPECT_NEAR(sense == LineSense::Axes ? ofCap : ofCap / 2, share, 1e-12);
            EXPECT_NEAR(formula.mean, 200 * share, 1e-11);
            EXPECT_NEAR(formula.mean / formula.sigma, k, 1e-11);
        }
    }
}

// f = 2 (1 + n / k^2) and unit sqrt(n (f / 2 - 1) / f^2); f = 1 + n / k^2 and sqrt(n (f - 1)) / 2f.
TEST(DensityFormula, ExponentialsHaveTheirUnits) {
    const DensityFormula axes =
        FormulaOf({DensityMethod::KambExponential, LineSense::Axes, 3}, 300);
    const double f = 2 * (1 + 300 / 9.0);
    EXPECT_NEAR(axes.factor, f, 1e-11);
    EXPECT_NEAR(axes.sigma, std::sqrt(300 * (f / 2 - 1) / (f * f)), 1e-12);
    const DensityFormula directions =
        FormulaOf({DensityMethod::KambExponential, LineSense::Directions, 3}, 300);
    const double g = 1 + 300 / 9.0;
    EXPECT_NEAR(directions.factor, g, 1e-11);
    EXPECT_NEAR(directions.sigma, std::sqrt(300 * (g - 1) / (4 * g * g)), 1e-12);
}

TEST(DensityFormula, MeansAndDeviationsAreThoseOfTheWeights) {
    for (const LineSense sense : kSenses) {
        for (const DensityMethod method : kKambMethods) {
            for (const double k : {1.0, 3.0, 30.0, 1000.0}) {
                const DensityFormula formula = FormulaOf({method, sense, k}, 50);
                const double mean = MeanOfPower(formula, 1);
                const double square = MeanOfPower(formula, 2);
                EXPECT_NEAR(formula.mean / (50 * mean), 1, 1e-8) << NameOf(formula);
                EXPECT_NEAR(formula.deviation, std::sqrt(50 * (square - mean * mean)),
                            1e-5 * formula.deviation)
                    << NameOf(formula);
            }
        }
    }
}

TEST(DensityFormula, KernelsIntegrateToOne) {
    for (const LineSense sense : kSenses) {
        for (const double degrees : {2.0, 3.0, 4.0, 10.0, 20.0, 45.0, 60.0}) {
            const DensityFormula formula =
                FormulaOf({DensityMethod::Kernel, sense, 0, DegToRad(degrees)}, 1);
            EXPECT_NEAR(4 * kPi * MeanOfPower(formula, 1), 1, 1e-8) << NameOf(formula);
            EXPECT_NEAR(4 * kPi * formula.mean, 1, 1e-12);
            EXPECT_NEAR(WeightAt(formula, 1), formula.scale, 1e-12 * formula.scale);
        }
    }
}

TEST(DensityFormula, AKernelIsHalfAtItsHalfWidth) {
    for (const LineSense sense : kSenses) {
        for (const double degrees : {2.0, 5.0, 33.0, 60.0}) {
            const double halfWidth = DegToRad(degrees);
            const DensityFormula formula =
                FormulaOf({DensityMethod::Kernel, sense, 0, halfWidth}, 1);
            EXPECT_NEAR(WeightAt(formula, std::cos(halfWidth)) / WeightAt(formula, 1), 0.5, 1e-10);
            EXPECT_NEAR(HalfAngleOf(formula), halfWidth, 1e-12);
            EXPECT_NEAR(HalfWidthOfKappa(KappaOfHalfWidth(halfWidth, sense), sense), halfWidth,
                        1e-12);
        }
        const DensityFormula formula = FormulaOf({DensityMethod::KambExponential, sense, 3}, 100);
        EXPECT_NEAR(WeightAt(formula, std::cos(HalfAngleOf(formula))), 0.5, 1e-12);
    }
}

TEST(DensityFormula, OfAConeIsOfAxesAndOfTheCountingCone) {
    const DensityFormula formula =
        FormulaOf({DensityMethod::Cone, LineSense::Directions, 5, kPi / 4}, 50);
    EXPECT_EQ(formula.sense, LineSense::Axes);
    EXPECT_EQ(formula.cosine, std::cos(kCountCone));
    EXPECT_EQ(formula.mean, 1); // 2% of 50
}

TEST(DensityFormula, LimitsHold) {
    const auto factorOf = [](double k, double halfWidth, DensityMethod method) {
        return FormulaOf({method, LineSense::Axes, k, halfWidth}, 100).factor;
    };
    const auto exponential = DensityMethod::KambExponential;
    EXPECT_EQ(factorOf(0.1, 1, exponential), factorOf(1, 1, exponential));
    EXPECT_EQ(factorOf(1e5, 1, exponential), factorOf(1000, 1, exponential));
    const auto kernel = DensityMethod::Kernel;
    EXPECT_EQ(factorOf(3, 0, kernel), factorOf(3, DegToRad(2), kernel));
    EXPECT_EQ(factorOf(3, 3, kernel), factorOf(3, DegToRad(60), kernel));
}

// k^2 = n A / (1 - A), A = 1 - cos 3 degrees, of directions half of that.
TEST(KambK, OfAHalfAngleGivesThisCone) {
    for (const LineSense sense : kSenses) {
        for (const double degrees : {3.0, 20.0, 80.0}) {
            const double k = KambKOfHalfAngle(DegToRad(degrees), 20000, sense);
            const double cap = 1 - std::cos(DegToRad(degrees));
            const double share = sense == LineSense::Axes ? cap : cap / 2;
            EXPECT_NEAR(k * k / (20000 * share / (1 - share)), 1, 1e-11);
            const DensityFormula formula = FormulaOf({DensityMethod::Kamb, sense, k}, 20000);
            EXPECT_NEAR(RadToDeg(HalfAngleOf(formula)), degrees, 1e-9);
        }
    }
}

TEST(DensityUnits, AreThoseOfTheMethod) {
    const auto unitsOf = [](DensityMethod method) {
        std::string units;
        for (const auto& [unit, letter] : {std::pair{DensityUnit::PerCentInCone, '%'},
                                           {DensityUnit::Counts, 'c'},
                                           {DensityUnit::Sigma, 's'},
                                           {DensityUnit::Deviation, 'd'},
                                           {DensityUnit::MultiplesOfUniform, 'm'}}) {
            units += HasUnit(method, unit) ? std::string(1, letter) : "";
        }
        return units;
    };
    EXPECT_EQ(unitsOf(DensityMethod::Cone), "%cm");
    EXPECT_EQ(unitsOf(DensityMethod::Kamb), "csdm");
    EXPECT_EQ(unitsOf(DensityMethod::KambLinear), "sdm");
    EXPECT_EQ(unitsOf(DensityMethod::KambSquare), "sdm");
    EXPECT_EQ(unitsOf(DensityMethod::KambExponential), "sdm");
    EXPECT_EQ(unitsOf(DensityMethod::Kernel), "m");
}

TEST(DensityUnits, AreWorkedOutByHand) {
    const DensityFormula cone = FormulaOf({DensityMethod::Cone}, 50);
    EXPECT_NEAR(ValueOf(cone, DensityUnit::PerCentInCone, 3), 6, 1e-12);
    EXPECT_NEAR(ValueOf(cone, DensityUnit::Counts, 3), 3, 1e-12);
    EXPECT_NEAR(ValueOf(cone, DensityUnit::MultiplesOfUniform, 3), 3, 1e-12); // 6% / 2%
    // n = 91, k = 3: A = 0.09, 8.19 rows expected, unit sqrt(91 * 0.09 * 0.91) = 2.73.
    const DensityFormula kamb = FormulaOf({DensityMethod::Kamb, LineSense::Axes, 3}, 91);
    EXPECT_NEAR(ValueOf(kamb, DensityUnit::Sigma, 13.65), 5, 1e-12);
    EXPECT_NEAR(ValueOf(kamb, DensityUnit::Deviation, 13.65), 2, 1e-12);
    EXPECT_NEAR(ValueOf(kamb, DensityUnit::MultiplesOfUniform, 16.38), 2, 1e-12);
    // 4 pi times the mean.
    const DensityFormula kernel = FormulaOf({DensityMethod::Kernel}, 40);
    EXPECT_NEAR(ValueOf(kernel, DensityUnit::MultiplesOfUniform, 10), kPi, 1e-12);
}

TEST(DensityUnits, LeadBackToTheSum) {
    for (const DensityUnit unit : {DensityUnit::Counts, DensityUnit::Sigma, DensityUnit::Deviation,
                                   DensityUnit::MultiplesOfUniform}) {
        const DensityFormula formula = FormulaOf({DensityMethod::Kamb, LineSense::Axes, 4}, 33);
        EXPECT_NEAR(SumOf(formula, unit, ValueOf(formula, unit, 7.5)), 7.5, 1e-13);
    }
}

TEST(DensityUnits, OfNoRowsAreZero) {
    for (const DensityMethod method : {DensityMethod::Cone, DensityMethod::Kamb,
                                       DensityMethod::KambExponential, DensityMethod::Kernel}) {
        const DensityFormula formula = FormulaOf({method}, 0);
        EXPECT_EQ(ValueOf(formula, DensityUnit::MultiplesOfUniform, 0), 0);
        EXPECT_EQ(ValueOf(formula, DensityUnit::Sigma, 0), 0);
    }
}

/// Mean and standard deviation of a unit at one place over many even samples.
struct Spread {
    double mean = 0;
    double deviation = 0;
};

Spread SpreadOverEvenSamples(const DensityFormula& formula, DensityUnit unit) {
    constexpr int kSamples = 2000;
    RandomLines random(20261122);
    const Direction place = AxisOf({0.4, 5});
    double sum = 0;
    double squares = 0;
    std::vector<Direction> rows(static_cast<std::size_t>(formula.rows));
    for (int sample = 0; sample < kSamples; ++sample) {
        for (Direction& row : rows) {
            row = DirectionOf(random.Even(LineSense::Directions));
        }
        const double value = ValueOf(formula, unit, DirectDensity(formula, rows, {}, place));
        sum += value;
        squares += value * value;
    }
    const double mean = sum / kSamples;
    return {mean, std::sqrt(squares / kSamples - mean * mean)};
}

// The tolerances are 4.5 standard errors of 2000 samples, 0.1 for a mean and 0.07 for a spread of
// 1; a skew of the sums adds a little to the second.
TEST(EvenSamples, LieAtKSigma) {
    for (const LineSense sense : kSenses) {
        for (const DensityMethod method : kKambMethods) {
            const DensityFormula formula = FormulaOf({method, sense, 3}, 60);
            const Spread spread = SpreadOverEvenSamples(formula, DensityUnit::Sigma);
            // Kamb's unit is the spread of counts; weights that vary spread more.
            const double share = 9 / 69.0;
            const double square = method == DensityMethod::KambLinear   ? 4 / 3.0
                                  : method == DensityMethod::KambSquare ? 9 / 5.0
                                                                        : 1;
            const double expected = std::sqrt((square - share) / (1 - share));
            EXPECT_NEAR(spread.mean, 3, 0.1 * expected) << NameOf(formula);
            EXPECT_NEAR(spread.deviation, expected, 0.09 * expected) << NameOf(formula);
        }
    }
}

TEST(EvenSamples, HaveDeviationsOfMeanZeroAndSpreadOne) {
    for (const LineSense sense : kSenses) {
        for (const DensityMethod method : kKambMethods) {
            const DensityFormula formula = FormulaOf({method, sense, 3}, 60);
            const Spread spread = SpreadOverEvenSamples(formula, DensityUnit::Deviation);
            EXPECT_NEAR(spread.mean, 0, 0.1) << NameOf(formula);
            EXPECT_NEAR(spread.deviation, 1, 0.09) << NameOf(formula);
        }
    }
}

TEST(EvenSamples, AreTheirOwnMultiple) {
    for (const LineSense sense : kSenses) {
        for (const DensityMethod method : {DensityMethod::Cone, DensityMethod::Kernel}) {
            const DensityFormula formula = FormulaOf({method, sense, 3, kPi / 9}, 60);
            const Spread spread = SpreadOverEvenSamples(formula, DensityUnit::MultiplesOfUniform);
            EXPECT_NEAR(spread.mean, 1, 4.5 * spread.deviation / std::sqrt(2000.0));
        }
    }
}

} // namespace
} // namespace quandrel
