// SPDX-License-Identifier: MIT
//
// Even rows stay within the envelope of significant density in 19 of 20 samples, by every method.
// tools/envelope_coverage has the table of 1000 samples each.

#include "density/plot_density.h"
#include "support/envelope_coverage.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace quandrel {
namespace {

constexpr int kRows = 24;
constexpr int kSamples = 200;

/// Three standard errors of the share of samples within an envelope: by the chance of the samples,
/// and by that of the 999 samples of each envelope.
double ThreeErrors(int cells) {
    return 3 * std::sqrt(0.95 * 0.05 * (1.0 / kSamples + 1.0 / 999) / cells);
}

struct Cell {
    LineSense sense = LineSense::Axes;
    Precision precision = Precision::Decimals;
};

constexpr std::array kCells = {Cell{LineSense::Axes, Precision::Decimals},
                               Cell{LineSense::Axes, Precision::WholeDegrees},
                               Cell{LineSense::Directions, Precision::Decimals},
                               Cell{LineSense::Directions, Precision::WholeDegrees}};

/// Each cell has samples of its own.
EnvelopeTally TallyOf(const DensityFormula& formula, const Cell& cell) {
    const std::uint64_t seed = 100 * static_cast<std::uint64_t>(formula.method)
                               + 10 * static_cast<std::uint64_t>(cell.sense)
                               + static_cast<std::uint64_t>(cell.precision);
    return TallyOfEnvelope(formula, cell.precision, LevelOfEnvelope(formula, cell.precision),
                           kSamples, seed);
}

void ExpectNineteenOfTwenty(DensityChoice choice) {
    int within = 0;
    for (const Cell& cell : kCells) {
        choice.sense = cell.sense;
        const DensityFormula formula = FormulaOf(choice, kRows);
        const EnvelopeTally tally = TallyOf(formula, cell);
        EXPECT_NEAR(tally.within / static_cast<double>(kSamples), 0.95, ThreeErrors(1))
            << NameOf(formula) << (cell.precision == Precision::Decimals ? "" : ", whole degrees");
        within += tally.within;
    }
    const int cells = kCells.size();
    EXPECT_NEAR(within / static_cast<double>(cells * kSamples), 0.95, ThreeErrors(cells))
        << NameOf(FormulaOf(choice, kRows)) << ", all";
}

TEST(EnvelopeCoverage, OfLinearWeights) {
    ExpectNineteenOfTwenty({DensityMethod::KambLinear});
}

TEST(EnvelopeCoverage, OfSquaredWeights) {
    ExpectNineteenOfTwenty({DensityMethod::KambSquare});
}

TEST(EnvelopeCoverage, OfExponentialWeights) {
    ExpectNineteenOfTwenty({DensityMethod::KambExponential});
}

TEST(EnvelopeCoverage, OfNarrowKernels) {
    ExpectNineteenOfTwenty({DensityMethod::Kernel, LineSense::Axes, 3, DegToRad(6)});
}

TEST(EnvelopeCoverage, OfUsualKernels) {
    ExpectNineteenOfTwenty({DensityMethod::Kernel, LineSense::Axes, 3, DegToRad(20)});
}

TEST(EnvelopeCoverage, OfWideKernels) {
    ExpectNineteenOfTwenty({DensityMethod::Kernel, LineSense::Axes, 3, DegToRad(60)});
}

// Counts are whole numbers: at most one sample in twenty has more rows in its fullest cone, and at
// least one in twenty has as many.
TEST(EnvelopeCoverage, OfCountsIsTheFirstAboveNineteenOfTwenty) {
    for (const Cell& cell : kCells) {
        const DensityFormula formula = FormulaOf({DensityMethod::Kamb, cell.sense}, kRows);
        const EnvelopeTally tally = TallyOf(formula, cell);
        EXPECT_GE(tally.within / static_cast<double>(kSamples), 0.95 - ThreeErrors(1));
        EXPECT_LE(tally.below / static_cast<double>(kSamples), 0.95 + ThreeErrors(1));
    }
}

// The samples above are searched by direct sums. What a plot draws has the same greatest density.
TEST(EnvelopeCoverage, IsThatOfTheDensitiesThatPlotsShow) {
    for (const LineSense sense : kSenses) {
        for (const DensityMethod method : {DensityMethod::KambLinear, DensityMethod::KambSquare,
                                           DensityMethod::KambExponential, DensityMethod::Kernel}) {
            const DensityFormula formula = FormulaOf({method, sense}, kRows);
            const GreatestDensity greatest(formula);
            const auto rows = RowsOf(Fabric::Even, sense, Precision::WholeDegrees, kRows, 3);
            DensityRows gathered(rows, {}, sense);
            RecordDensityView view;
            view.DensityMethod = static_cast<std::int16_t>(method);
            view.DensityUnit = kMultiplesUnit;
            const PlotDensity density(gathered, view, formula, 2);
            const double sought = density.ValueOfSum(greatest.Of(DirectionsOfLines(rows)));
            EXPECT_NEAR(density.Greatest().value / sought, 1, 1e-3) << NameOf(formula);
        }
    }
}

} // namespace
} // namespace quandrel
