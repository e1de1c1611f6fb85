// SPDX-License-Identifier: MIT
//
// The tests of rows against the kernels that they use, and against cases by hand.

#include "hypotheses/row_tests.h"
#include "orientation/angles.h"
#include "orientation/repeated_tries.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "rose/azimuth_samples.h"
#include "rose/azimuth_tests.h"
#include "rose/circular_reference.h"
#include "rose/mean_bootstrap.h"
#include "statistics/equal_means.h"
#include "statistics/fabric_models.h"
#include "statistics/fisher_fit.h"
#include "statistics/region_sample.h"
#include "statistics/uniformity_tests.h"
#include "support/random_samples.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

namespace quandrel {
namespace {

template <class Draw>
TestSample Sampled(RowsTestedAs as, int count, Draw draw) {
    TestSample sample;
    sample.as = as;
    for (int i = 0; i < count; ++i) {
        sample.directions.push_back(draw());
    }
    return sample;
}

TestSample Azimuths(std::vector<double> angles, int steps = kStepsOfDirections) {
    TestSample sample;
    sample.as = RowsTestedAs::PolarAzimuths;
    sample.azimuths = {std::move(angles), false, steps};
    return sample;
}

TestSample RoundedAzimuths(int count, double spread, std::uint64_t seed) {
    RandomStream random(seed);
    std::vector<double> angles;
    for (int i = 0; i < count; ++i) {
        angles.push_back(DegToRad(std::round(100 + spread * NormalNumber(random))));
    }
    return Azimuths(std::move(angles));
}

const RowTest& Named(const RowTests& tests, const std::string& name) {
    static const RowTest none;
    for (const RowTest& test : tests.tests) {
        if (test.name == name) {
            return test;
        }
    }
    ADD_FAILURE() << "no test " << name;
    return none;
}

TestChoice Tries(int tries, std::int32_t seed = kUsualSeed) {
    TestChoice choice;
    choice.tries = tries;
    choice.seed = seed;
    return choice;
}

void ExpectOutcome(const RowTest& test, const TestOutcome& outcome) {
    EXPECT_EQ(test.state, TestState::Done) << test.sentence;
    ASSERT_TRUE(test.statistic && test.probability) << test.name;
    EXPECT_NEAR(*test.statistic, outcome.statistic, 1e-12) << test.name;
    EXPECT_NEAR(*test.probability, outcome.probability, 1e-12) << test.name;
}

TEST(TestsOfAxes, AreThoseOfTheKernels) {
    RandomStream random(11);
    const TestSample sample =
        Sampled(RowsTestedAs::Axes, 80, [&random] { return BinghamDirection(random, -9, -3); });
    const RowTests tests = TestsOf(sample, {});
    const WeightedDirections rows = {sample.directions, std::vector<double>(80, 1.0)};
    const auto frame = AxisFrameOf(RegionSampleOf(rows, RowsAre::Axes), FrameCentre::Greatest);
    ASSERT_TRUE(frame);
    ExpectOutcome(Named(tests, "Uniform axes (Bingham)"), BinghamUniformity(frame->values, 80));
    const auto models = FabricModelsOf(frame->values, 80);
    ASSERT_TRUE(models);
    ExpectOutcome(Named(tests, "Watson's cluster"), models->cluster);
    ExpectOutcome(Named(tests, "Watson's girdle"), models->girdle);
    const std::string kind = Named(tests, "Cluster, girdle or neither").sentence;
    EXPECT_NE(kind.find("Woodcock's K is "), std::string::npos);
    EXPECT_NE(kind.find("Log-likelihoods: Watson's cluster "), std::string::npos);
}

TEST(TestsOfAxes, SymmetryIsThatOfTheFormulaByHand) {
    // Eigenvalues 0.18, 0.32, 0.5 about north, east, down.
    TestSample sample;
    sample.directions = {{0.6, 0, 0.8}, {-0.6, 0, 0.8}, {0, 0.8, 0.6}, {0, -0.8, 0.6}};
    const RowTests tests = TestsOf(sample, {});
    const double about3 = 2 * 4 * 0.14 * 0.14 / ((0.1296 + 0.4096) / 2);
    // About e1, north: 1 - c^2 is 0.64 twice and 1 twice.
    const double about1 = 2 * 4 * 0.18 * 0.18 / ((0.4096 + 1) / 2);
    ExpectOutcome(Named(tests, "Rotational symmetry about e3"), {about3, std::exp(-about3 / 2)});
    ExpectOutcome(Named(tests, "Rotational symmetry about e1"), {about1, std::exp(-about1 / 2)});
    EXPECT_EQ(Named(tests, "Fisher's distribution").state, TestState::Undefined);
}

TEST(TestsOfAxes, FishersDistributionIsThatOfTheEndsOnOneSide) {
    RandomStream random(12);
    TestSample sample =
        Sampled(RowsTestedAs::Axes, 40, [&random] { return FisherDirection(random, 20); });
    const auto fit = FitFisher(sample.directions);
    ASSERT_TRUE(fit);
    // The opposite ends are the same axes.
    for (std::size_t i = 0; i < sample.directions.size(); i += 2) {
        Direction& end = sample.directions[i];
        end = {-end.l, -end.m, -end.n};
    }
    const RowTests tests = TestsOf(sample, {});
    ASSERT_TRUE(Named(tests, "Fisher's distribution: colatitudes").statistic);
    EXPECT_NEAR(*Named(tests, "Fisher's distribution: colatitudes").probability,
                fit->colatitudes.outcome.probability, 1e-9);
    EXPECT_NE(Named(tests, "Fisher's distribution").sentence.find("Axes are taken by their ends"),
              std::string::npos);
    ASSERT_EQ(tests.quantiles.size(), 3U);
    EXPECT_EQ(tests.quantiles[0].points.size(), 40U);
    EXPECT_NEAR(tests.quantiles[0].slope, 1 / fit->concentration, 1e-9);
    EXPECT_NEAR(tests.quantiles[2].slope, 1 / std::sqrt(fit->concentration), 1e-9);
}

TEST(TestsOfDirections, HaveRayleighsAndThoseOfAxes) {
    RandomStream random(13);
    const TestSample sample =
        Sampled(RowsTestedAs::Directions, 30, [&random] { return FisherDirection(random, 3); });
    const RowTests tests = TestsOf(sample, {});
    const WeightedDirections rows = {sample.directions, std::vector<double>(30, 1.0)};
    const auto frame = MeanFrameOf(RegionSampleOf(rows, RowsAre::Directions));
    ExpectOutcome(Named(tests, "Uniform directions (Rayleigh)"),
                  RayleighUniformity(frame->meanLength, 30));
    EXPECT_TRUE(Named(tests, "Rotational symmetry about the mean").statistic);
    EXPECT_TRUE(Named(tests, "Uniform axes (Bingham)").statistic);
    EXPECT_NE(Named(tests, "Fisher's distribution").sentence.find("below 5"), std::string::npos);
}

TEST(TestsOfDirections, WithoutAMeanTheyAreUniform) {
    TestSample sample;
    sample.as = RowsTestedAs::Directions;
    sample.directions = {{1, 0, 0}, {-1, 0, 0}};
    const RowTests tests = TestsOf(sample, {});
    ExpectOutcome(Named(tests, "Uniform directions (Rayleigh)"), {0, 1});
    EXPECT_EQ(Named(tests, "Rotational symmetry about the mean").state, TestState::Undefined);
}

TEST(TestsOfTwoNets, PermuteRowsFromTheSeed) {
    RandomStream random(14);
    const TestSample first =
        Sampled(RowsTestedAs::Axes, 20, [&random] { return WatsonDirection(random, 8); });
    TestSample second =
        Sampled(RowsTestedAs::Axes, 25, [&random] { return WatsonDirection(random, 8); });
    for (Direction& one : second.directions) {
        one = {one.l * std::cos(0.2) + one.n * std::sin(0.2), one.m,
               one.n * std::cos(0.2) - one.l * std::sin(0.2)};
    }
    Repetition repetition;
    repetition.tries = 999;
    repetition.seed = 5;
    const auto expected =
        EqualMeansTest(first.directions, second.directions, LinePolarity::kAxial, repetition);
    ASSERT_TRUE(expected);
    for (const unsigned threads : {1U, 3U}) {
        gPlatform.threads = threads;
        ExpectOutcome(Named(TestsOf(first, second, Tries(999, 5)), "Equal means"), *expected);
    }
    gPlatform.threads = 0;
}

TEST(TestsOfTwoNets, AreRefusedWhereTheyAreMeaningless) {
    TestSample axes;
    axes.directions = {{1, 0, 0}, {0, 1, 0}};
    TestSample directions = axes;
    directions.as = RowsTestedAs::Directions;
    EXPECT_EQ(TestsOf(axes, directions, {}).tests.at(0).state, TestState::Undefined);
    EXPECT_NE(TestsOf(axes, axes, {}).tests.at(0).sentence.find("fewer than 5"), std::string::npos);
    EXPECT_EQ(TestsOf(TestSample(), TestChoice()).tests.at(0).sentence, "There are no rows.");
}

TEST(TestsOfAzimuths, AreThoseOfTheKernels) {
    const TestSample sample = RoundedAzimuths(40, 50, 15);
    const RowTests tests = TestsOf(sample, Tries(999, 6));
    Repetition repetition;
    repetition.tries = 999;
    repetition.seed = 6;
    const std::vector<double>& angles = sample.azimuths.angles;
    ExpectOutcome(Named(tests, "Uniform azimuths (Kuiper)"),
                  *KuiperUniformity(angles, kStepsOfDirections, repetition));
    ExpectOutcome(Named(tests, "Uniform azimuths (Watson)"), WatsonUniformity(angles));
    TestOutcome rao = *RaoSpacingTest(angles, kStepsOfDirections, repetition);
    rao.statistic = RadToDeg(rao.statistic);
    ExpectOutcome(Named(tests, "Even spacing (Rao)"), rao);
}

TEST(TestsOfAzimuths, RayleighsKappaAndMeanAreThoseOfASampleByHand) {
    // Ten azimuths at 80 and ten at 100 degrees: R = cos 10, mean 90.
    std::vector<double> angles(10, DegToRad(80));
    angles.insert(angles.end(), 10, DegToRad(100));
    const RowTests tests = TestsOf(Azimuths(angles), Tries(99));
    const double length = std::cos(DegToRad(10));
    EXPECT_NEAR(*Named(tests, "Uniform azimuths (Rayleigh)").statistic, 20 * length * length, 1e-9);
    EXPECT_NEAR(*Named(tests, "Concentration").statistic, VonMisesKappa(length), 1e-6);
    const RowTest& mean = Named(tests, "Mean direction");
    EXPECT_NE(mean.sentence.find("The mean direction is 090.0 within "), std::string::npos)
        << mean.sentence;
    EXPECT_NE(mean.sentence.find("bootstrap-t of 2000 resamples"), std::string::npos);
    std::vector<WeightedAngle> weighted;
    for (const double angle : angles) {
        weighted.push_back({angle, 1});
    }
    EXPECT_NEAR(*mean.statistic, RadToDeg(*BootstrapHalfWidth(weighted)), 1e-9);
}

TEST(TestsOfAzimuths, OfAxesHalveMeanAndInterval) {
    std::vector<double> angles;
    for (int i = 0; i < 30; ++i) {
        angles.push_back(DegToRad(60 + 2 * (i % 10)));
    }
    const RowTests directed = TestsOf(Azimuths(angles), Tries(99));
    TestSample axial = Azimuths(angles, kStepsOfAxes);
    axial.as = RowsTestedAs::AxialAzimuths;
    axial.azimuths.areAxes = true;
    const RowTests axes = TestsOf(axial, Tries(99));
    EXPECT_NEAR(*Named(axes, "Mean direction").statistic,
                *Named(directed, "Mean direction").statistic / 2, 1e-9);
    EXPECT_NE(Named(axes, "Mean direction").sentence.find("034.5 - 214.5"), std::string::npos);
    EXPECT_NE(Named(axes, "Mean direction").sentence.find("circular standard error"),
              std::string::npos);
    EXPECT_NEAR(*Named(axes, "Concentration").statistic,
                *Named(directed, "Concentration").statistic, 1e-9);
}

TEST(TestsOfAzimuths, KappaOfFewIsCorrectedForItsBias) {
    const TestSample sample = RoundedAzimuths(10, 30, 16);
    const RowTests tests = TestsOf(sample, Tries(99));
    const double kappa = *Named(tests, "Concentration").statistic;
    const double corrected = *Named(tests, "Concentration without bias").statistic;
    // (n - 1)^3 kappa/(n^3 + n) from kappa 2 on: N. I. Fisher (1993), 4.5.5.
    ASSERT_GE(kappa, 2);
    EXPECT_NEAR(corrected, 729 * kappa / 1010, 1e-9);
}

TEST(TestsOfTwoRoses, AreThoseOfTheKernels) {
    const TestSample first = RoundedAzimuths(20, 40, 17);
    const TestSample second = RoundedAzimuths(30, 60, 18);
    Repetition repetition;
    repetition.tries = 999;
    repetition.seed = 7;
    const RowTests tests = TestsOf(first, second, Tries(999, 7));
    ExpectOutcome(Named(tests, "Equal distributions (Watson)"),
                  *WatsonTwoSamples(first.azimuths.angles, second.azimuths.angles, repetition));
    ExpectOutcome(Named(tests, "Equal distributions (Mardia, Watson, Wheeler)"),
                  *MardiaWatsonWheeler(first.azimuths.angles, second.azimuths.angles, repetition));
}

TEST(Simulations, WaitUntilTheyAreWanted) {
    TestChoice choice;
    choice.simulates = false;
    const RowTests few = TestsOf(RoundedAzimuths(40, 50, 19), choice);
    EXPECT_EQ(Named(few, "Even spacing (Rao)").state, TestState::Waiting);
    EXPECT_EQ(Named(few, "Uniform azimuths (Kuiper)").state, TestState::Done) << "by formula";
    EXPECT_TRUE(IsUnfinished(few));
    const RowTests many = TestsOf(RoundedAzimuths(501, 50, 19), choice);
    EXPECT_EQ(Named(many, "Uniform azimuths (Kuiper)").state, TestState::Waiting);
    EXPECT_FALSE(IsUnfinished(TestsOf(RoundedAzimuths(40, 50, 19), Tries(99))));
    EXPECT_TRUE(AreQuick(100, 9999));
    EXPECT_FALSE(AreQuick(100000, 9999));
}

TEST(Simulations, StopWhenTheUserAsksForIt) {
    QuietStatusLine status;
    status.RequestCancel();
    TestChoice choice = Tries(kMostTries);
    choice.watcher = &status;
    const auto start = std::chrono::steady_clock::now();
    const RowTests tests = TestsOf(RoundedAzimuths(2000, 50, 20), choice);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_EQ(Named(tests, "Uniform azimuths (Kuiper)").state, TestState::Stopped);
    EXPECT_EQ(Named(tests, "Even spacing (Rao)").state, TestState::Stopped);
    EXPECT_EQ(Named(tests, "Uniform azimuths (Watson)").state, TestState::Done);
    EXPECT_FALSE(status.ProgressIsShown());
    EXPECT_TRUE(IsUnfinished(tests));
}

} // namespace
} // namespace quandrel
