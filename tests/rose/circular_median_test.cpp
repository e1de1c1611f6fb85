// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "rose/circular_median.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <optional>
#include <random>
#include <vector>

namespace quandrel {
namespace {

constexpr unsigned kSeed = 1972;

std::vector<double> Radians(const std::vector<int>& degrees) {
    std::vector<double> angles;
    for (const int degree : degrees) {
        angles.push_back(DegToRad(degree));
    }
    return angles;
}

double Doubled(double angle, AngleSense sense) {
    return sense == AngleSense::kAxial ? WrappedAngle(2 * angle) : angle;
}

/// The slow walk: from the antipode of the mean to the mean, then on to the antipode, each time to
/// the nearest angle that has not been used, the first found of several.
class MedianWalk {
public:
    MedianWalk(const std::vector<double>& angles, double meanDirection, AngleSense sense)
        : sense_(sense) {
        const double antipode = WrappedAngle(Doubled(meanDirection, sense) + kPi);
        for (const double angle : angles) {
            const double worked = Doubled(angle, sense);
            double way = worked < antipode ? worked - antipode + kTwoPi : worked - antipode;
            if (way > kTwoPi - 1e-9) {
                way = 0; // at the antipode, except for rounding
            }
            (way <= kPi ? before_ : behind_).push_back({worked, way});
        }
    }

    double Median() {
        const std::size_t count = before_.size() + behind_.size();
        const std::size_t rank = count / 2 + 1;
        Step former;
        Step reached;
        for (std::size_t i = 0; i < rank; ++i) {
            former = reached;
            std::optional<Step> next = TakeNearest(before_);
            if (!next) {
                next = TakeNearest(behind_);
            }
            reached = *next;
        }
        double median = reached.angle;
        if (count % 2 == 0) {
            median = WrappedAngle(former.angle + (reached.way - former.way) / 2);
        }
        if (median < 1e-9 || median > kTwoPi - 1e-9) {
            return kTwoPi; // north
        }
        return sense_ == AngleSense::kAxial ? median / 2 : median;
    }

private:
    struct Step {
        double angle = 0;
        double way = 0;
        bool used = false;
    };

    static std::optional<Step> TakeNearest(std::vector<Step>& list) {
        Step* nearest = nullptr;
        for (Step& step : list) {
            if (!step.used && (nearest == nullptr || step.way < nearest->way)) {
                nearest = &step;
            }
        }
        if (nearest == nullptr) {
            return std::nullopt;
        }
        nearest->used = true;
        return *nearest;
    }

    AngleSense sense_;
    std::vector<Step> before_;
    std::vector<Step> behind_;
};

/// Whole degrees with many ties, or any angles.
std::vector<double> RandomAngles(std::mt19937& random, bool isAxial) {
    const std::size_t count = 1 + random() % 300;
    const auto range = static_cast<int>(1 + random() % (isAxial ? 180 : 361));
    const bool isWhole = random() % 4 != 0;
    std::uniform_real_distribution<double> any(0, DegToRad(range));
    std::vector<double> angles(count);
    for (double& angle : angles) {
        angle = isWhole ? DegToRad(static_cast<int>(random()) % range * (random() % 2 == 0 ? 1 : 0))
                        : any(random);
        angle = std::abs(angle);
    }
    return angles;
}

TEST(CircularMedian, IsThatOfTheWalk) {
    std::mt19937 random(kSeed);
    for (int sample = 0; sample < 3000; ++sample) {
        const AngleSense sense = sample % 2 == 0 ? AngleSense::kDirected : AngleSense::kAxial;
        const std::vector<double> angles = RandomAngles(random, sense == AngleSense::kAxial);
        const double mean =
            sample % 3 == 0 ? DegToRad(static_cast<int>(random() % 361)) : angles.front();
        ASSERT_EQ(CircularMedian(angles, mean, sense), MedianWalk(angles, mean, sense).Median())
            << "seed " << kSeed << " sample " << sample << " of " << angles.size();
    }
}

struct MedianCase {
    std::vector<int> degrees;
    int mean;
    AngleSense sense;
    double median;
};

TEST(CircularMedian, OfSmallSamplesIsTheMiddleOne) {
    constexpr auto kDirected = AngleSense::kDirected;
    constexpr auto kAxial = AngleSense::kAxial;
    const std::vector<MedianCase> cases = {
        {{37}, 37, kDirected, 37},
        {{30, 10, 20}, 20, kDirected, 20},
        {{30, 10, 20, 40}, 25, kDirected, 25},
        {{350, 10, 20}, 6, kDirected, 10},
        {{350, 360, 10, 20}, 5, kDirected, 5},
        {{340, 350, 0, 10}, 355, kDirected, 355},
        {{350, 10}, 360, kDirected, 360}, // not 0
        {{0, 0, 0}, 360, kDirected, 360},
        {{279, 43, 45, 52, 357, 61, 88, 75, 88}, 52, kDirected, 52},
        {{170, 10, 20}, 6, kAxial, 10},
        {{175, 165, 3}, 174, kAxial, 175},
        {{170, 10}, 180, kAxial, 360}, // an axis north-south
        {{80, 100}, 90, kAxial, 90},
    };
    for (const MedianCase& test : cases) {
        const std::vector<double> angles = Radians(test.degrees);
        EXPECT_NEAR(RadToDeg(CircularMedian(angles, DegToRad(test.mean), test.sense)), test.median,
                    1e-9)
            << test.degrees.front() << " of " << test.degrees.size();
    }
}

TEST(CircularMedian, TurnsWithTheAngles) {
    std::mt19937 random(kSeed);
    for (int sample = 0; sample < 100; ++sample) {
        std::vector<double> angles(1 + random() % 40);
        for (double& angle : angles) {
            angle = DegToRad(static_cast<int>(random() % 120));
        }
        const double turn = DegToRad(static_cast<int>(random() % 240) + 0.25);
        std::vector<double> turned = angles;
        for (double& angle : turned) {
            angle = WrappedAngle(angle + turn);
        }
        const double median = CircularMedian(angles, 1, AngleSense::kDirected);
        const double other = CircularMedian(turned, WrappedAngle(1 + turn), AngleSense::kDirected);
        EXPECT_NEAR(std::remainder(other - median - turn, 2 * std::numbers::pi), 0, 1e-9) << sample;
    }
}

TEST(CircularMedian, OfNoAnglesIsNone) {
    EXPECT_EQ(CircularMedian({}, 1, AngleSense::kDirected), kNoMedian);
    EXPECT_EQ(GroupedCircularMedian({}, 1, AngleSense::kDirected), kNoMedian);
}

/// Groups of degrees and counts.
std::vector<AngleCount> Groups(const std::vector<std::pair<int, double>>& groups) {
    std::vector<AngleCount> result;
    for (const auto& [degrees, count] : groups) {
        result.push_back({DegToRad(degrees), count});
    }
    return result;
}

TEST(GroupedCircularMedian, IsTheGroupThatPassesHalf) {
    const auto medianOf = [](const std::vector<std::pair<int, double>>& groups, int mean,
                             AngleSense sense = AngleSense::kDirected) {
        return RadToDeg(GroupedCircularMedian(Groups(groups), DegToRad(mean), sense));
    };
    EXPECT_NEAR(medianOf({{5, 1}, {15, 4}, {25, 2}}, 15), 15, 1e-9);
    EXPECT_NEAR(medianOf({{25, 2}, {355, 3}, {5, 2}}, 5), 5, 1e-9);
    EXPECT_NEAR(medianOf({{5, 0}, {200, 8}, {25, 0}}, 200), 200, 1e-9) << "all in one";
    EXPECT_NEAR(medianOf({{5, 2.5}, {15, 2.4}}, 10), 5, 1e-9) << "weights";
    EXPECT_NEAR(medianOf({{175, 2}, {5, 1}, {355, 2}}, 177, AngleSense::kAxial), 175, 1e-9)
        << "355 is 175 too";
}

TEST(GroupedCircularMedian, LiesHalfWayBetweenGroupsThatShareTheCount) {
    const auto medianOf = [](const std::vector<std::pair<int, double>>& groups, int mean) {
        return RadToDeg(
            GroupedCircularMedian(Groups(groups), DegToRad(mean), AngleSense::kDirected));
    };
    EXPECT_NEAR(medianOf({{5, 2}, {15, 2}}, 11), 10, 1e-9);
    EXPECT_NEAR(medianOf({{5, 2}, {15, 0}, {25, 1}, {35, 1}}, 11), 15, 1e-9) << "an empty group";
    EXPECT_NEAR(medianOf({{5, 0.1 + 0.2}, {15, 0.3}}, 11), 10, 1e-9) << "rounded weights";
    EXPECT_NEAR(medianOf({{350, 3}, {10, 3}}, 0), 360, 1e-9) << "north is a full turn";
}

TEST(GroupedCircularMedian, OfNoCountIsNone) {
    EXPECT_EQ(GroupedCircularMedian(Groups({{5, 0}, {15, 0}}), 0.2, AngleSense::kDirected),
              kNoMedian);
}

TEST(GroupedCircularMedian, IsTheMedianOfTheAnglesSpelledOut) {
    std::mt19937 random(kSeed);
    for (int sample = 0; sample < 2000; ++sample) {
        std::vector<AngleCount> groups;
        std::vector<double> angles;
        for (int i = 0; i < 18; ++i) {
            const double angle = DegToRad(static_cast<int>(random() % 180));
            const std::size_t count = random() % 5;
            groups.push_back({angle, static_cast<double>(count)});
            angles.insert(angles.end(), count, angle);
        }
        const AngleSense sense = sample % 4 < 2 ? AngleSense::kDirected : AngleSense::kAxial;
        const double mean = DegToRad(static_cast<int>(random() % 180));
        EXPECT_EQ(GroupedCircularMedian(groups, mean, sense), CircularMedian(angles, mean, sense))
            << "seed " << kSeed << " sample " << sample;
    }
}

TEST(CircularMeanDeviation, IsTheMeanOfTheShorterWays) {
    EXPECT_NEAR(RadToDeg(CircularMeanDeviation(Radians({350, 10, 30}), DegToRad(10),
                                               AngleSense::kDirected)),
                40 / 3.0, 1e-9);
    EXPECT_NEAR(RadToDeg(CircularMeanDeviation(Radians({5, 355}), kTwoPi, AngleSense::kDirected)),
                5, 1e-9);
    EXPECT_NEAR(
        RadToDeg(CircularMeanDeviation(Radians({170, 10, 90}), DegToRad(10), AngleSense::kAxial)),
        (20 + 0 + 80) / 3.0, 1e-9);
    EXPECT_NEAR(RadToDeg(CircularMeanDeviation(Radians({5, 175}), kTwoPi, AngleSense::kAxial)), 5,
                1e-9)
        << "a median of a full turn is north";
    EXPECT_NEAR(RadToDeg(CircularMeanDeviation(Groups({{5, 1}, {15, 4}, {25, 2}}), DegToRad(15),
                                               AngleSense::kDirected)),
                30 / 7.0, 1e-9);
    EXPECT_EQ(CircularMeanDeviation(std::vector<double>{}, 1, AngleSense::kDirected), 0);
}

} // namespace
} // namespace quandrel
