// SPDX-License-Identifier: MIT

#include "summary/exact_sum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace quandrel {
namespace {

constexpr double kGreatest = std::numeric_limits<double>::max();
constexpr double kLeast = std::numeric_limits<double>::denorm_min();

template <class Values>
ExactSum SumOf(const Values& values) {
    ExactSum sum;
    for (const double value : values) {
        sum.Add(value);
    }
    return sum;
}

/// Any finite double, all exponents alike.
double AnyDouble(std::mt19937_64& random) {
    for (;;) {
        const auto value = std::bit_cast<double>(random());
        if (std::isfinite(value)) {
            return value;
        }
    }
}

TEST(ExactSum, HoldsAnyDouble) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20'000; ++i) {
        const double value = AnyDouble(random);
        EXPECT_EQ(SumOf(std::vector<double>{value}).Value(), value);
    }
    for (const double value : {0.0, kLeast, -kLeast, kGreatest, -kGreatest, 1.0, -0.1,
                               std::numeric_limits<double>::min()}) {
        EXPECT_EQ(SumOf(std::vector<double>{value}).Value(), value);
    }
}

TEST(ExactSum, LosesNothingThatCancels) {
    EXPECT_EQ(SumOf(std::vector<double>{1e300, 1, -1e300}).Value(), 1);
    EXPECT_EQ(SumOf(std::vector<double>{kGreatest, kLeast, -kGreatest}).Value(), kLeast);
    EXPECT_EQ(SumOf(std::vector<double>{0.1, 0.2, -0.1, -0.2}).Value(), 0);
    EXPECT_EQ(SumOf(std::vector<double>{kGreatest, kGreatest}).Value(),
              std::numeric_limits<double>::infinity());
}

TEST(ExactSum, RoundsHalvesToEven) {
    const double half = std::ldexp(1.0, -53);
    EXPECT_EQ(SumOf(std::vector<double>{1, half}).Value(), 1);
    EXPECT_EQ(SumOf(std::vector<double>{1, half, kLeast}).Value(), std::nextafter(1.0, 2.0));
    EXPECT_EQ(SumOf(std::vector<double>{1 + 2 * half, half}).Value(), 1 + 4 * half);
    EXPECT_EQ(SumOf(std::vector<double>{-1, -half, -kLeast}).Value(), -std::nextafter(1.0, 2.0));
}

/// Wide floats hold the sums of doubles of nearly equal size.
TEST(ExactSum, IsTheSumInLongerNumbers) {
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> between(-1, 1);
    __float128 wide = 0;
    ExactSum sum;
    for (int i = 0; i < 100'000; ++i) {
        const double value = between(random);
        wide += value;
        sum.Add(value);
    }
    EXPECT_EQ(sum.Value(), static_cast<double>(wide));
}

TEST(ExactSum, AnyOrderAndAnyPartsGiveTheSameDigits) {
    std::mt19937_64 random(3);
    std::vector<double> values(500);
    std::generate(values.begin(), values.end(), [&random] { return AnyDouble(random); });
    const ExactSum whole = SumOf(values);
    std::shuffle(values.begin(), values.end(), random);
    EXPECT_EQ(SumOf(values), whole);
    ExactSum joined = SumOf(std::vector<double>(values.begin(), values.begin() + 100));
    joined.Add(SumOf(std::vector<double>(values.begin() + 100, values.end())));
    EXPECT_EQ(joined, whole);
    EXPECT_EQ(ExactSum::OfDigits(whole.Canonical()), whole);
}

TEST(ExactSum, TimesIsRepeatedAddition) {
    std::mt19937_64 random(4);
    for (int i = 0; i < 200; ++i) {
        const double value = AnyDouble(random);
        ExactSum sum;
        sum.Add(1.5);
        ExactSum repeated = sum;
        sum.Add(value, 7);
        for (int k = 0; k < 7; ++k) {
            repeated.Add(value);
        }
        EXPECT_EQ(sum, repeated);
    }
    // 2^63 times, by doublings.
    for (const double value : {-0.1, kGreatest, -kLeast}) {
        ExactSum sum;
        sum.Add(value, std::uint64_t{1} << 63U);
        ExactSum doubled;
        doubled.Add(value);
        for (int k = 0; k < 63; ++k) {
            doubled.Add(ExactSum(doubled));
        }
        EXPECT_EQ(sum, doubled);
    }
}

TEST(ExactSum, ManyAdditionsCarryInTime) {
    ExactSum sum;
    sum.Add(-1, std::uint64_t{1} << 32U);
    for (int i = 0; i < 1 << 20; ++i) {
        sum.Add(-std::nextafter(1.0, 0.0));
    }
    EXPECT_EQ(sum.Value(), -std::ldexp(1.0, 32) - std::ldexp(std::nextafter(1.0, 0.0), 20));
}

TEST(ExactSum, RefusesOtherForms) {
    EXPECT_TRUE(ExactSum::OfDigits({}));
    EXPECT_FALSE(ExactSum::OfDigits({true, 0, {}}));
    EXPECT_FALSE(ExactSum::OfDigits({false, 3, {}}));
    EXPECT_FALSE(ExactSum::OfDigits({false, 3, {0, 1}}));
    EXPECT_FALSE(ExactSum::OfDigits({false, 3, {1, 0}}));
    EXPECT_FALSE(ExactSum::OfDigits({false, 70, {1}}));
    EXPECT_FALSE(ExactSum::OfDigits({false, 69, {1, 1}}));
    EXPECT_TRUE(ExactSum::OfDigits({false, 69, {1}}));
    EXPECT_FALSE(FloatSum::OfDigits({false, 26, {1}}));
}

TEST(FloatSum, HoldsTheLeastAndTheGreatestFloat) {
    constexpr auto kLeastFloat = static_cast<double>(std::numeric_limits<float>::denorm_min());
    constexpr auto kGreatestFloat = static_cast<double>(std::numeric_limits<float>::max());
    FloatSum sum;
    sum.Add(kGreatestFloat, std::uint64_t{1} << 40U);
    sum.Add(kLeastFloat);
    sum.Add(-kGreatestFloat, std::uint64_t{1} << 40U);
    EXPECT_EQ(sum.Value(), kLeastFloat);
}

TEST(FloatSum, HoldsAnyFloat) {
    std::mt19937_64 random(5);
    FloatSum sum;
    ExactSum wide;
    for (int i = 0; i < 20'000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (std::isfinite(value)) {
            FloatSum one;
            one.Add(static_cast<double>(value));
            EXPECT_EQ(one.Value(), static_cast<double>(value));
            sum.Add(static_cast<double>(value));
            wide.Add(static_cast<double>(value));
        }
    }
    EXPECT_EQ(sum.Value(), wide.Value());
    EXPECT_EQ(sum.Canonical().digits, wide.Canonical().digits);
}

} // namespace
} // namespace quandrel
