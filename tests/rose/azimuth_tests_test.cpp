// SPDX-License-Identifier: MIT
//
// Tests of uniform azimuths: values by hand and by brute force, and their levels.

#include "rose/azimuth_tests.h"
#include "rose/azimuths_in_radians.h"
#include "rose/circular_reference.h"
#include "support/random_samples.h"
#include "support/rejections.h"
#include "support/trial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace quandrel {
namespace {

/// U^2 as the integral of its definition, by the midpoint rule: n times the variance of the
/// deviation of the share of angles up to u from u.
double IntegratedWatson(const std::vector<double>& degrees) {
    constexpr int steps = 360000;
    double sum = 0;
    double squares = 0;
    for (int i = 0; i < steps; ++i) {
        const double u = (i + 0.5) / steps;
        const auto upTo = std::count_if(degrees.begin(), degrees.end(),
                                        [u](double one) { return one / 360 <= u; });
        const double deviation =
            static_cast<double>(upTo) / static_cast<double>(degrees.size()) - u;
        sum += deviation / steps;
        squares += deviation * deviation / steps;
    }
    return static_cast<double>(degrees.size()) * (squares - sum * sum);
}

TEST(WatsonTail, HasThePrintedCriticalValues) {
    // M. A. Stephens (1970): of U^2 in large samples.
    EXPECT_NEAR(WatsonTail(0.152), 0.10, 5e-4);
    EXPECT_NEAR(WatsonTail(0.187), 0.05, 3e-4);
    EXPECT_NEAR(WatsonTail(0.267), 0.01, 3e-4);
    EXPECT_EQ(WatsonTail(0), 1);
    EXPECT_NEAR(WatsonTail(0.005001), 1, 1e-9);
}

TEST(WatsonUniformity, IsTheIntegralOfItsDefinition) {
    const std::vector<double> degrees = {43, 45, 52, 61, 75, 88, 91, 279, 357};
    const double n = 9;
    const double expected = (IntegratedWatson(degrees) - 0.1 / n + 0.1 / (n * n)) * (1 + 0.8 / n);
    const TestOutcome test = WatsonUniformity(Radians(degrees));
    EXPECT_NEAR(test.statistic, expected, 1e-5);
    EXPECT_NEAR(test.probability, WatsonTail(expected), 1e-4);
}

TEST(WatsonUniformity, DoesNotDependOnNorthNorOnTheSense) {
    const std::vector<double> degrees = {3, 45, 52, 61, 75, 88, 88, 279, 357};
    const double still = WatsonUniformity(Radians(degrees)).statistic;
    for (const double turn : {17.0, 90.0, 357.0, -720.0}) {
        std::vector<double> turned = degrees;
        std::vector<double> mirrored = degrees;
        for (std::size_t i = 0; i < degrees.size(); ++i) {
            turned[i] += turn;
            mirrored[i] = turn - degrees[i];
        }
        EXPECT_NEAR(WatsonUniformity(Radians(turned)).statistic, still, 1e-9) << turn;
        EXPECT_NEAR(WatsonUniformity(Radians(mirrored)).statistic, still, 1e-9) << turn;
    }
}

TEST(WatsonUniformity, OfWholeDegreesIsThatOfUnroundedOnes) {
    RandomStream random(1);
    std::vector<double> exact = SampleOf(20000, [&random] { return UniformAzimuth(random); });
    std::vector<double> rounded = exact;
    for (double& one : rounded) {
        one = std::nearbyint(one / kPerDegree) * kPerDegree;
    }
    EXPECT_NEAR(WatsonUniformity(rounded).statistic, WatsonUniformity(exact).statistic, 0.003);
}

TEST(RaoSpacingTest, OfPigeonsIsThePrintedValue) {
    // E. Batschelet (1981), 4.5: U = 161.9 degrees of 13 pigeons, which is not significant at 5%.
    const auto pigeons = Radians({20, 135, 145, 165, 170, 200, 300, 325, 335, 350, 350, 350, 355});
    for (const int steps : {kWithoutSteps, kStepsOfDirections}) {
        const TestOutcome test = RaoSpacingTest(pigeons, steps, {}).value();
        EXPECT_NEAR(test.statistic / kPerDegree, 161.92, 0.005) << steps;
        EXPECT_GT(test.probability, 0.05) << steps;
        EXPECT_LT(test.probability, 0.1) << steps;
    }
}

TEST(RaoSpacingTest, OfTwoAnglesIsTheShareOfTheCircle) {
    // The smaller of two spacings is even between 0 and half a turn.
    for (const double degrees : {18.0, 90.0, 170.0}) {
        const TestOutcome test =
            RaoSpacingTest(Radians({30, 30 + degrees}), kWithoutSteps, {}).value();
        EXPECT_NEAR(test.statistic / kPerDegree, 180 - degrees, 1e-9);
        EXPECT_NEAR(test.probability, degrees / 180, 0.015) << degrees;
    }
}

TEST(RaoSpacingTest, OfRoundedAnglesIsThatOfTheirValues) {
    const auto degrees = Radians({10, 10, 55, 200, 213, 214, 359});
    EXPECT_NEAR(RaoSpacingTest(degrees, kStepsOfDirections, {}).value().statistic,
                RaoSpacingTest(degrees, kWithoutSteps, {}).value().statistic, 1e-12);
}

TEST(RaoSpacingTest, OfManyAnglesIsContinuedByTheNormalDistribution) {
    RandomStream random(8);
    const auto sample = [&random](int n) {
        return SampleOf(n, [&random] { return UniformAzimuth(random); });
    };
    // The probability that tries would give is known from tries alone: the mean over samples is a
    // half, by either method.
    for (const int n : {999, 1001}) {
        double sum = 0;
        Repetition few;
        few.tries = 199;
        for (int i = 0; i < 40; ++i) {
            sum += RaoSpacingTest(sample(n), kWithoutSteps, few).value().probability;
        }
        EXPECT_NEAR(sum / 40, 0.5, 4 * std::sqrt(1.0 / 12 / 40)) << n;
    }
}

TEST(RoundedTests, AreTheSameFromASeedWithAnyThreads) {
    RandomStream random(9);
    std::vector<double> angles(600);
    for (double& one : angles) {
        one = random.Below(360) * kPerDegree;
    }
    Repetition repetition;
    repetition.tries = 999;
    const auto rao = RaoSpacingTest(angles, kStepsOfDirections, repetition);
    const auto kuiper = KuiperUniformity(angles, kStepsOfDirections, repetition);
    repetition.threads = 2;
    EXPECT_EQ(RaoSpacingTest(angles, kStepsOfDirections, repetition)->probability,
              rao->probability);
    EXPECT_EQ(KuiperUniformity(angles, kStepsOfDirections, repetition)->probability,
              kuiper->probability);
    repetition.goesOn = [](double) { return false; };
    EXPECT_FALSE(RaoSpacingTest(angles, kStepsOfDirections, repetition));
    EXPECT_FALSE(KuiperUniformity(angles, kStepsOfDirections, repetition));
}

TEST(KuiperUniformity, OfFewOrUnroundedAnglesIsThatOfTheFormula) {
    const auto degrees = Radians({20, 135, 145, 165, 170, 200, 300, 325, 335, 350, 350, 350, 355});
    const UniformityTest formula = KuiperTest(degrees).test;
    EXPECT_EQ(KuiperUniformity(degrees, kStepsOfDirections, {})->probability, formula.probability);
    std::vector<double> many(501);
    for (std::size_t i = 0; i < many.size(); ++i) {
        many[i] = std::pow(static_cast<double>(i) / 501, 1.2) * 6;
    }
    EXPECT_EQ(KuiperUniformity(many, kWithoutSteps, {})->probability,
              KuiperTest(many).test.probability);
}

TEST(KuiperUniformity, OfManyWholeDegreesKeepsItsLevelWhereTheFormulaDoesNot) {
    // 20,000 whole degrees: the steps alone add 20000/360/sqrt(20000), 0.39, to the statistic.
    RandomStream random(10);
    Repetition few;
    few.tries = 199;
    few.threads = 2;
    int byFormula = 0;
    Rejections byTries;
    for (int i = 0; i < 20; ++i) {
        const auto angles = SampleOf(20000, [&random] { return random.Below(360) * kPerDegree; });
        byFormula += KuiperTest(angles).test.probability <= 0.05 ? 1 : 0;
        byTries.Add(KuiperUniformity(angles, kStepsOfDirections, few)->probability);
    }
    EXPECT_GT(byFormula, 3);
    byTries.ExpectLevels();
}

TEST(UniformAzimuthsTrial, AreRejectedAtTheLevels) {
    RandomStream random(11);
    Repetition repetition;
    repetition.tries = 199;
    for (const int n : {10, 40}) {
        SCOPED_TRACE(n);
        Rejections rayleigh;
        Rejections kuiper;
        Rejections watson;
        Rejections rao;
        for (int i = 0; i < TrialRounds(20000); ++i) {
            const auto angles = SampleOf(n, [&random] { return UniformAzimuth(random); });
            double sine = 0;
            double cosine = 0;
            for (const double angle : angles) {
                sine += std::sin(angle);
                cosine += std::cos(angle);
            }
            rayleigh.Add(RayleighTest(n, std::hypot(sine, cosine) / n).probability);
            kuiper.Add(KuiperUniformity(angles, kWithoutSteps, {})->probability);
            watson.Add(WatsonUniformity(angles).probability);
            repetition.seed = static_cast<std::uint64_t>(i);
            if (i % 4 == 0) {
                rao.Add(RaoSpacingTest(angles, kWithoutSteps, repetition)->probability);
            }
        }
        rayleigh.ExpectLevels();
        kuiper.ExpectLevels();
        watson.ExpectLevels();
        rao.ExpectLevels();
    }
}

} // namespace
} // namespace quandrel
