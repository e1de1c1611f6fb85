// SPDX-License-Identifier: MIT
//
// The greatest densities of even samples.

#include "density/direct_density.h"
#include "density/even_maxima.h"
#include "density/even_sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quandrel {
namespace {

DensityFormula FormulaFor(DensityMethod method, LineSense sense, double rows) {
    DensityChoice choice;
    choice.method = method;
    choice.sense = sense;
    choice.halfWidth = DegToRad(12);
    return FormulaOf(choice, rows);
}

/// The greatest sum at many places of the net, and then at ever closer ones about the best.
double GreatestByHand(const DensityFormula& formula, const std::vector<Direction>& rows) {
    double greatest = 0;
    Direction best;
    const auto look = [&](double plunge, double trend) {
        if (plunge < 0 || plunge > kPi / 2) {
            return;
        }
        const Direction at{std::cos(plunge) * std::cos(trend), std::cos(plunge) * std::sin(trend),
                           std::sin(plunge)};
        if (const double sum = DirectDensity(formula, rows, {}, at); sum > greatest) {
            greatest = sum;
            best = at;
        }
    };
    for (int plunge = 0; plunge <= 90; plunge += 2) {
        for (int trend = 0; trend < 360; trend += 2) {
            look(DegToRad(plunge), DegToRad(trend));
        }
    }
    for (double step = DegToRad(1); step > DegToRad(0.02); step /= 2) {
        const double plunge = std::asin(best.n);
        const double trend = std::atan2(best.m, best.l);
        for (int i = -3; i <= 3; ++i) {
            for (int j = -3; j <= 3; ++j) {
                look(plunge + i * step, trend + j * step / std::max(std::cos(plunge), 0.05));
            }
        }
    }
    return greatest;
}

TEST(MaximaOfEvenSamples, AreTheGreatestAnywhere) {
    for (const LineSense sense : {LineSense::Axes, LineSense::Directions}) {
        for (const DensityMethod method :
             {DensityMethod::KambExponential, DensityMethod::Kernel, DensityMethod::KambSquare}) {
            const DensityFormula formula = FormulaFor(method, sense, 60);
            EvenSampling sampling;
            sampling.samples = 1;
            for (std::uint64_t seed = 1; seed <= 5; ++seed) {
                sampling.seed = seed;
                const auto found = MaximaOfEvenSamples(formula, 60, sampling);
                ASSERT_TRUE(found);
                RandomStream random(seed);
                const double expected =
                    GreatestByHand(formula, EvenDirections(60, random, false, sense));
                EXPECT_NEAR(found->front(), expected, 2e-3 * expected)
                    << static_cast<int>(method) << " " << static_cast<int>(sense);
            }
        }
    }
}

TEST(MaximaOfEvenSamples, DoNotDependOnThreadsAndCanBeStopped) {
    const DensityFormula formula = FormulaFor(DensityMethod::KambExponential, LineSense::Axes, 100);
    EvenSampling sampling;
    sampling.samples = 40;
    const auto one = MaximaOfEvenSamples(formula, 100, sampling);
    sampling.threads = 3;
    EXPECT_EQ(MaximaOfEvenSamples(formula, 100, sampling), one);
    EXPECT_TRUE(std::ranges::is_sorted(*one));
    sampling.onDone = [](int) { return false; };
    EXPECT_EQ(MaximaOfEvenSamples(formula, 100, sampling), std::nullopt);
}

TEST(MaximaOfEvenSamples, OfManyRowsAreNearThoseOfDrawnOnes) {
    const std::int64_t rows = 10001;
    const DensityFormula formula =
        FormulaFor(DensityMethod::KambExponential, LineSense::Axes, static_cast<double>(rows));
    EvenSampling sampling;
    sampling.samples = 20;
    const auto byCells = MaximaOfEvenSamples(formula, rows, sampling);
    const auto drawn = MaximaOfEvenSamples(formula, rows - 1, sampling);
    const auto mean = [](const std::vector<double>& values) {
        double sum = 0;
        for (const double value : values) {
            sum += value;
        }
        return sum / static_cast<double>(values.size());
    };
    EXPECT_NEAR(mean(*byCells) / mean(*drawn), 1, 0.03);
}

TEST(EnvelopeOf, IsTheNineHundredAndFiftiethOf999) {
    std::vector<double> maxima;
    for (int i = 1; i <= 999; ++i) {
        maxima.push_back(i);
    }
    EXPECT_EQ(EnvelopeOf(maxima).sum, 950);
    EXPECT_NEAR(EnvelopeOf(maxima).error, 7, 0.5); // sqrt(0.95 0.05 999)
}

TEST(EnvelopeOf, HoldsNineteenOfTwentyEvenSamples) {
    const DensityFormula formula = FormulaFor(DensityMethod::KambExponential, LineSense::Axes, 50);
    EvenSampling sampling;
    const auto maxima = MaximaOfEvenSamples(formula, 50, sampling);
    const double level = EnvelopeOf(*maxima).sum;
    sampling.seed = 7;
    sampling.samples = 1000;
    const auto others = MaximaOfEvenSamples(formula, 50, sampling);
    const auto within = std::ranges::count_if(*others, [&](double sum) { return sum <= level; });
    EXPECT_GE(within, 930);
    EXPECT_LE(within, 970);
}

} // namespace
} // namespace quandrel
