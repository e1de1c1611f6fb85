// SPDX-License-Identifier: MIT
//
// The test of equal means: its statistic by search over all axes, invariances, levels.

#include "statistics/equal_means.h"
#include "support/random_samples.h"
#include "support/rejections.h"
#include "support/trial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace quandrel {
namespace {

constexpr LinePolarity kAxes = LinePolarity::kAxial;
constexpr LinePolarity kDirections = LinePolarity::kDirected;

double Dot(const Direction& a, const Direction& b) {
    return a.l * b.l + a.m * b.m + a.n * b.n;
}

/// Turned about the first coordinate axis.
std::vector<Direction> Tilted(const std::vector<Direction>& sample, double angle) {
    std::vector<Direction> tilted;
    for (const Direction& one : sample) {
        tilted.push_back({one.l, std::cos(angle) * one.m - std::sin(angle) * one.n,
                          std::sin(angle) * one.m + std::cos(angle) * one.n});
    }
    return tilted;
}

std::vector<Direction> BinghamSample(int n, double k1, double k2, std::uint64_t seed) {
    RandomStream random(seed);
    return SampleOf(n, [&] { return BinghamDirection(random, k1, k2); });
}

/// What speaks against an axis as the mean of axes, row by row: n d' E^-1 d.
double AgainstAxis(const std::vector<Direction>& rows, const Direction& axis) {
    const std::vector<double> weights(rows.size(), 1);
    const FabricAxes eigen = SortedAxes(SymmetricEigen3(*OrientationTensor(rows, weights)));
    double e11 = 0;
    double e12 = 0;
    double e22 = 0;
    const auto n = static_cast<double>(rows.size());
    for (const Direction& row : rows) {
        const double p3 = Dot(row, eigen.axes[2]);
        const double p1 = Dot(row, eigen.axes[0]) * p3 / (eigen.values[2] - eigen.values[0]);
        const double p2 = Dot(row, eigen.axes[1]) * p3 / (eigen.values[2] - eigen.values[1]);
        e11 += p1 * p1 / n;
        e12 += p1 * p2 / n;
        e22 += p2 * p2 / n;
    }
    const double d1 = Dot(axis, eigen.axes[0]);
    const double d2 = Dot(axis, eigen.axes[1]);
    return n * (e22 * d1 * d1 - 2 * e12 * d1 * d2 + e11 * d2 * d2) / (e11 * e22 - e12 * e12);
}

/// The same of directions.
double AgainstDirection(const std::vector<Direction>& rows, const Direction& axis) {
    Direction sum;
    for (const Direction& row : rows) {
        sum = {sum.l + row.l, sum.m + row.m, sum.n + row.n};
    }
    const double length = LengthOf(sum);
    const auto n = static_cast<double>(rows.size());
    const Direction mean = {sum.l / length, sum.m / length, sum.n / length};
    // Along the parallel and the meridian of the mean.
    const double width = std::hypot(mean.l, mean.m);
    const Direction level = {mean.m / width, -mean.l / width, 0};
    const Direction steep = {mean.n * mean.l / width, mean.n * mean.m / width, -width};
    double e11 = 0;
    double e12 = 0;
    double e22 = 0;
    for (const Direction& row : rows) {
        const double p1 = Dot(row, level) * n / length;
        const double p2 = Dot(row, steep) * n / length;
        e11 += p1 * p1 / n;
        e12 += p1 * p2 / n;
        e22 += p2 * p2 / n;
    }
    const double d1 = Dot(axis, level);
    const double d2 = Dot(axis, steep);
    return n * (e22 * d1 * d1 - 2 * e12 * d1 * d2 + e11 * d2 * d2) / (e11 * e22 - e12 * e12);
}

/// The least value of a function of axes, by grids that become finer about the best.
template <class Against>
double LeastOf(Against against) {
    Direction best{0, 0, 1};
    double least = std::numeric_limits<double>::infinity();
    for (double reach = 2; reach > 1e-6; reach *= 0.7) {
        const Direction centre = best;
        for (int i = -8; i <= 8; ++i) {
            for (int j = -8; j <= 8; ++j) {
                Direction one = {centre.l + reach * i / 8, centre.m + reach * j / 8, centre.n};
                const double length = LengthOf(one);
                one = {one.l / length, one.m / length, one.n / length};
                const double value = against(one);
                if (value < least) {
                    least = value;
                    best = one;
                }
            }
        }
    }
    return least;
}

TEST(EqualMeansTest, OfAxesIsTheLeastSumOverAllAxes) {
    const auto first = BinghamSample(25, -20, -5, 1);
    const auto second = Tilted(BinghamSample(40, -30, -12, 2), 0.2);
    const double least = LeastOf([&](const Direction& axis) {
        return AgainstAxis(first, axis) + AgainstAxis(second, axis);
    });
    Repetition few;
    few.tries = 99;
    EXPECT_NEAR(EqualMeansTest(first, second, kAxes, few)->statistic, least, 1e-6 * least);
}

TEST(EqualMeansTest, OfDirectionsIsTheLeastSumOverAllDirections) {
    RandomStream random(3);
    const auto first = SampleOf(12, [&random] { return FisherDirection(random, 12); });
    const auto second = Tilted(SampleOf(30, [&random] { return FisherDirection(random, 4); }), 0.4);
    const double least = LeastOf([&](const Direction& axis) {
        return AgainstDirection(first, axis) + AgainstDirection(second, axis);
    });
    Repetition few;
    few.tries = 99;
    EXPECT_NEAR(EqualMeansTest(first, second, kDirections, few)->statistic, least, 1e-6 * least);
}

TEST(EqualMeansTest, FindsMeansThatDiffer) {
    const auto first = BinghamSample(40, -20, -20, 4);
    const auto second = BinghamSample(30, -20, -20, 5);
    EXPECT_GT(EqualMeansTest(first, second, kAxes, {})->probability, 0.05);
    EXPECT_LT(EqualMeansTest(first, Tilted(second, 0.25), kAxes, {})->probability, 0.01);
    EXPECT_LT(EqualMeansTest(first, Tilted(second, 1.5), kAxes, {})->probability, 0.001);
}

TEST(EqualMeansTest, OppositeDirectionsHaveDifferentMeans) {
    RandomStream random(6);
    const auto first = SampleOf(15, [&random] { return FisherDirection(random, 20); });
    const auto second =
        Tilted(SampleOf(15, [&random] { return FisherDirection(random, 20); }), 3.1);
    const auto test = EqualMeansTest(first, second, kDirections, {});
    ASSERT_TRUE(test);
    EXPECT_TRUE(std::isinf(test->statistic));
    EXPECT_DOUBLE_EQ(test->probability, 1e-4);
    // As axes they agree.
    EXPECT_GT(EqualMeansTest(first, second, kAxes, {})->probability, 0.02);
}

TEST(EqualMeansTest, DoesNotDependOnOrderSenseAndThreads) {
    auto first = BinghamSample(20, -10, -4, 7);
    auto second = Tilted(BinghamSample(15, -10, -4, 8), 0.2);
    Repetition repetition;
    repetition.tries = 999;
    const auto test = EqualMeansTest(first, second, kAxes, repetition);
    ASSERT_TRUE(test);
    std::reverse(first.begin(), first.end());
    second[3] = {-second[3].l, -second[3].m, -second[3].n};
    repetition.threads = 3;
    const auto other = EqualMeansTest(first, second, kAxes, repetition);
    EXPECT_EQ(other->statistic, test->statistic);
    EXPECT_EQ(other->probability, test->probability);
    // All of it turned: only rounding differs.
    const auto turned = EqualMeansTest(Tilted(first, 1), Tilted(second, 1), kAxes, repetition);
    EXPECT_NEAR(turned->statistic, test->statistic, 1e-9 * test->statistic);
    EXPECT_NEAR(turned->probability, test->probability, 0.08);
}

TEST(EqualMeansTest, HasNoResultWithoutMeans) {
    const auto rows = BinghamSample(20, -10, -4, 9);
    const std::vector<Direction> few(rows.begin(), rows.begin() + 4);
    EXPECT_FALSE(EqualMeansTest(rows, few, kAxes, {}));
    const std::vector<Direction> equal(8, Direction{0, 0, 1});
    EXPECT_FALSE(EqualMeansTest(rows, equal, kAxes, {}));
    EXPECT_FALSE(EqualMeansTest(equal, rows, kDirections, {}));
    std::vector<Direction> opposed = few;
    for (const Direction& one : few) {
        opposed.push_back({-one.l, -one.m, -one.n});
    }
    EXPECT_FALSE(EqualMeansTest(rows, opposed, kDirections, {}));
    Repetition stopped;
    stopped.goesOn = [](double) { return false; };
    EXPECT_FALSE(EqualMeansTest(rows, rows, kAxes, stopped));
}

TEST(EqualMeansTest, OfASampleWithItselfIsCertain) {
    const auto rows = BinghamSample(20, -10, -4, 10);
    const auto test = EqualMeansTest(rows, rows, kAxes, {});
    ASSERT_TRUE(test);
    EXPECT_NEAR(test->statistic, 0, 1e-9);
    EXPECT_GT(test->probability, 0.999);
}

TEST(EqualMeansTrial, RejectsEqualMeansAtAboutItsLevel) {
    RandomStream random(2007);
    Repetition repetition;
    repetition.tries = 99;
    const int samples = TrialRounds(4000);
    int ofAxes = 0;
    int ofDirections = 0;
    for (int i = 0; i < samples; ++i) {
        // Different concentrations and shapes.
        const auto axes = [&random](double k1, double k2) {
            return [&random, k1, k2] { return BinghamDirection(random, k1, k2); };
        };
        repetition.seed = static_cast<std::uint64_t>(i);
        const auto test = EqualMeansTest(SampleOf(30, axes(-20, -5)), SampleOf(20, axes(-10, -10)),
                                         kAxes, repetition);
        ofAxes += test->probability <= 0.05 ? 1 : 0;
        const auto directed =
            EqualMeansTest(SampleOf(20, [&random] { return FisherDirection(random, 20); }),
                           SampleOf(30, [&random] { return FisherDirection(random, 5); }),
                           kDirections, repetition);
        ofDirections += directed->probability <= 0.05 ? 1 : 0;
    }
    const double error = 4 * std::sqrt(0.05 * 0.95 / samples);
    for (const int rejected : {ofAxes, ofDirections}) {
        EXPECT_GT(static_cast<double>(rejected) / samples, 0.02 - error);
        EXPECT_LT(static_cast<double>(rejected) / samples, 0.07 + error);
    }
}

} // namespace
} // namespace quandrel
