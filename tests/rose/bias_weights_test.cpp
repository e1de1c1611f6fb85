// SPDX-License-Identifier: MIT

#include "rose/bias_weights.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

constexpr double kDegree = M_PI / 180;

/// Least angle of 5 degrees, as a new plot has it.
BiasSettings Settings(std::int16_t mode, bool planes, int least = 5, bool ownLines = false) {
    return {mode, planes, least, ownLines};
}

struct WeightCase {
    BiasSettings settings;
    DegreeLine structure;
    DegreeLine sampleLine;
    double degrees; ///< angle whose sine the weight is one over
    const char* why;
};

TEST(BiasWeights, AreOneOverTheSineOfTheAngleToTheSampleLine) {
    const BiasSettings lines = Settings(kSpaceAngle, false);
    const BiasSettings planes = Settings(kSpaceAngle, true);
    const BiasSettings trends = Settings(kHorizontalAngle, false);
    const BiasSettings strikes = Settings(kHorizontalAngle, true);
    const std::vector<WeightCase> cases = {
        {lines, {0, 30}, {0, 0}, 30, "level lines: the difference of their trends"},
        {lines, {0, 150}, {0, 0}, 30, "the acute angle"},
        {lines, {60, 45}, {90, 0}, 30, "a shaft: what is left to the vertical"},
        {lines, {0, 90}, {90, 0}, 90, "at a right angle"},
        {lines, {20, 100}, {20, 100}, 5, "parallel: the least angle"},
        {lines, {0, 4}, {0, 0}, 5, "below the least angle"},
        {lines, {0, 6}, {0, 0}, 6, "above the least angle"},
        {lines, {-60, 45}, {90, 0}, 30, "the sign of a plunge plays no part"},
        {planes, {30, 0}, {90, 0}, 60, "a shaft through a plane that dips 30"},
        {planes, {90, 0}, {90, 0}, 5, "a shaft along a vertical plane"},
        {planes, {0, 0}, {90, 0}, 90, "a shaft through a level plane"},
        {planes, {90, 90}, {0, 40}, 40, "a vertical plane that strikes 000, a line along 040"},
        {planes, {90, 270}, {0, 40}, 40, "the same plane"},
        {planes, {45, 180}, {45, 180}, 5, "a line down the dip lies in the plane"},
        {planes, {45, 180}, {45, 0}, 90, "the pole of the plane"},
        {trends, {70, 100}, {10, 60}, 40, "trends alone"},
        {trends, {70, 350}, {10, 10}, 20, "across north"},
        {trends, {70, 280}, {10, 60}, 40, "220 apart is 40"},
        {trends, {70, 60}, {10, 240}, 5, "opposite trends are parallel"},
        {trends, {70, 360}, {10, -270}, 90, "trends by whole turns"},
        {strikes, {70, 100}, {10, 60}, 50, "strike 190"},
        {strikes, {70, 300}, {10, 30}, 5, "strike 390: along the line"},
    };
    for (const WeightCase& test : cases) {
        BiasWeights weights(test.settings);
        EXPECT_NEAR(weights(test.structure, test.sampleLine), 1 / std::sin(test.degrees * kDegree),
                    1e-9)
            << test.why;
    }
}

TEST(BiasWeights, ToOneSampleLineAreThoseToOwnLinesThatAreTheSame) {
    for (const bool isPlane : {false, true}) {
        BiasWeights one(Settings(kSpaceAngle, isPlane));
        BiasWeights own(Settings(kSpaceAngle, isPlane, 5, true));
        for (int repeat = 0; repeat < 2; ++repeat) {
            for (int dip = -90; dip <= 90; dip += 10) {
                for (int azimuth = 0; azimuth <= 360; azimuth += 20) {
                    EXPECT_EQ(one({dip, azimuth}, {25, 130}), own({dip, azimuth}, {25, 130}));
                }
            }
        }
    }
}

// Kept: this makes no correction.
TEST(BiasWeights, OfTheDipOnlyMakeNoCorrection) {
    for (const bool planes : {false, true}) {
        BiasWeights weights(Settings(kDipOnly, planes));
        EXPECT_EQ(weights({30, 40}, {30, 40}), 1);
        EXPECT_EQ(weights({0, 90}, {90, 0}), 1);
    }
}

TEST(BiasWeights, NeverExceedThatOfOneDegree) {
    for (const int least : {-20, 0, 1}) {
        BiasWeights weights(Settings(kSpaceAngle, false, least));
        EXPECT_NEAR(weights({40, 120}, {40, 120}), 57.29868849855063, 1e-9) << least;
    }
}

TEST(BiasWeights, WithALeastAngleOfNinetyAreAllOne) {
    for (const int least : {90, 120}) {
        BiasWeights weights(Settings(kSpaceAngle, true, least));
        EXPECT_DOUBLE_EQ(weights({40, 120}, {10, 200}), 1) << least;
    }
}

TEST(BiasWeights, InSpaceAreThoseOfTheNamedAngles) {
    std::mt19937 random(20);
    BiasWeights lines(Settings(kSpaceAngle, false, 5, true));
    BiasWeights planes(Settings(kSpaceAngle, true, 5, true));
    for (int i = 0; i < 2000; ++i) {
        const DegreeLine structure = {static_cast<int>(random() % 91),
                                      static_cast<int>(random() % 361)};
        const DegreeLine sample = {static_cast<int>(random() % 91),
                                   static_cast<int>(random() % 361)};
        double plunge = DegToRad(structure.plunge);
        double trend = DegToRad(structure.trend);
        double angle = 0;
        AngleBetweenLines(plunge, trend, DegToRad(sample.plunge), DegToRad(sample.trend), angle,
                          LineAngle::kAcute);
        EXPECT_NEAR(lines(structure, sample), TerzaghiWeight(angle, 5 * kDegree), 1e-6);
        PoleOfPlane(plunge, trend, plunge, trend);
        AngleBetweenLines(plunge, trend, DegToRad(sample.plunge), DegToRad(sample.trend), angle,
                          LineAngle::kAcute);
        EXPECT_NEAR(planes(structure, sample),
                    TerzaghiWeight(std::abs(kPi / 2 - angle), 5 * kDegree), 1e-6);
    }
}

} // namespace
} // namespace quandrel
