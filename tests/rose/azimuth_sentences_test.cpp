// SPDX-License-Identifier: MIT
//
// The words of the tests of azimuths.

#include "rose/azimuth_sentences.h"

#include <gtest/gtest.h>

#include <numbers>

namespace quandrel {
namespace {

TEST(UniformAzimuthSentence, NamesWhatEachTestFinds) {
    EXPECT_EQ(
        UniformAzimuthSentence(UniformAzimuthTest::Rayleigh, {6.14, 0.002}),
        "Rayleigh: the azimuths have a preferred direction; uniform ones are rejected (n R^2 = "
        "6.14, p = 0.002).");
    EXPECT_EQ(UniformAzimuthSentence(UniformAzimuthTest::Kuiper, {1.2, 0.4}),
              "Kuiper: the azimuths may be uniform (V = 1.20, p = 0.40).");
    EXPECT_EQ(UniformAzimuthSentence(UniformAzimuthTest::Watson, {0.3, 0.01}),
              "Watson: the azimuths are not evenly distributed; uniform ones are rejected (U^2 = "
              "0.30, p = 0.010).");
    EXPECT_EQ(UniformAzimuthSentence(UniformAzimuthTest::Rao, {std::numbers::pi, 0.01}),
              "Rao: the azimuths are not evenly spaced; uniform ones are rejected (U = 180.00, p = "
              "0.010).");
}

TEST(AzimuthSampleSentence, SaysWhetherTheSamplesDiffer) {
    EXPECT_EQ(AzimuthSampleSentence(AzimuthSampleTest::Watson, {0.312, 0.003}),
              "Watson: the samples differ (U^2 = 0.31, p = 0.003).");
    EXPECT_EQ(AzimuthSampleSentence(AzimuthSampleTest::MardiaWatsonWheeler, {3.86, 0.15}),
              "Mardia, Watson and Wheeler: the samples may be of one distribution (W = 3.86, p = "
              "0.15).");
}

} // namespace
} // namespace quandrel
