// SPDX-License-Identifier: MIT
//
// Places of fabrics in the diagram of log ratios and in the triangle of shares, against
// eigenvalues whose places follow by hand.

#include "statistics/fabric_diagrams.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <random>

namespace quandrel {
namespace {

void ExpectShares(const DescendingEigenvalues& s, double p, double g, double r) {
    const FabricShares shares = SharesOf(s);
    EXPECT_NEAR(shares.point, p, 1e-15);
    EXPECT_NEAR(shares.girdle, g, 1e-15);
    EXPECT_NEAR(shares.random, r, 1e-15);
}

TEST(FabricShares, OfTheThreeEndsAreTheCorners) {
    ExpectShares({1, 0, 0}, 1, 0, 0);
    ExpectShares({0.5, 0.5, 0}, 0, 1, 0);
    ExpectShares({1.0 / 3, 1.0 / 3, 1.0 / 3}, 0, 0, 1);
    ExpectShares({0.6, 0.3, 0.1}, 0.3, 0.4, 0.3);
    EXPECT_NEAR(CylindricityOf(SharesOf({0.6, 0.3, 0.1})), 0.7, 1e-15);
}

TEST(FabricShares, AddUpToOne) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> share(0, 1);
    for (int i = 0; i < 1000; ++i) {
        DescendingEigenvalues s = {share(random), share(random), share(random)};
        const double sum = s[0] + s[1] + s[2];
        for (double& value : s) {
            value /= sum;
        }
        std::sort(s.begin(), s.end(), std::greater<>());
        const FabricShares shares = SharesOf(s);
        EXPECT_NEAR(shares.point + shares.girdle + shares.random, 1, 1e-14);
        EXPECT_NEAR(CylindricityOf(shares), 1 - shares.random, 1e-14);
        EXPECT_GE(std::min({shares.point, shares.girdle, shares.random}), 0);
    }
}

TEST(LogRatioPlace, IsThatOfPowersOfE) {
    // S1 : S2 : S3 = e^5 : e^3 : e^2, so ln(S1/S2) is 2 and ln(S2/S3) is 1.
    const double e = std::numbers::e;
    const double sum = std::pow(e, 5) + std::pow(e, 3) + std::pow(e, 2);
    const auto place =
        LogRatioPlaceOf({std::pow(e, 5) / sum, std::pow(e, 3) / sum, std::pow(e, 2) / sum});
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, 1, 1e-12);
    EXPECT_NEAR(place->y, 2, 1e-12);
    EXPECT_NEAR(place->k.value(), 2, 1e-12);
    EXPECT_NEAR(place->c, 3, 1e-12);
}

TEST(LogRatioPlace, OfAUniformFabricIsTheOriginWithoutAShape) {
    const auto place = LogRatioPlaceOf({1.0 / 3, 1.0 / 3, 1.0 / 3});
    ASSERT_TRUE(place);
    EXPECT_EQ(place->x, 0);
    EXPECT_EQ(place->y, 0);
    EXPECT_EQ(place->c, 0);
    EXPECT_FALSE(place->k);
}

TEST(LogRatioPlace, OfARoundClusterIsOnTheUprightAxis) {
    const auto place = LogRatioPlaceOf({0.8, 0.1, 0.1});
    ASSERT_TRUE(place);
    EXPECT_EQ(place->x, 0);
    EXPECT_NEAR(place->y, std::log(8), 1e-12);
    EXPECT_FALSE(place->k) << "it has no bound";
}

TEST(LogRatioPlace, OfARoundGirdleIsOnTheOtherAxis) {
    const auto place = LogRatioPlaceOf({0.45, 0.45, 0.1});
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, std::log(4.5), 1e-12);
    EXPECT_EQ(place->y, 0);
    EXPECT_EQ(place->k, 0);
}

TEST(LogRatioPlace, OfRowsInOnePlaneDoesNotExist) {
    EXPECT_FALSE(LogRatioPlaceOf({0.6, 0.4, 0}));
    EXPECT_FALSE(LogRatioPlaceOf({0.6, 0.4, 1e-9}));
    EXPECT_FALSE(LogRatioPlaceOf({1, 0, 0}));
}

} // namespace
} // namespace quandrel
