// SPDX-License-Identifier: MIT

#include "stereo/distinct_lines.h"
#include "summary/row_summary.h"
#include "summary/summary_file.h"
#include "summary/summary_results.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace quandrel {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

std::vector<SummaryRow> RandomRows(std::size_t count, bool hasDecimals, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> dip(-90, 90);
    std::uniform_real_distribution<double> azimuth(0, 360);
    std::uniform_real_distribution<float> number(-2, 10);
    std::vector<SummaryRow> rows(count);
    for (SummaryRow& row : rows) {
        const double step = hasDecimals ? 0.1 : 1;
        row.measured = ToMicrodegree(
            {std::round(dip(random) / step) * step, std::round(azimuth(random) / step) * step});
        if (const float value = number(random); value > -1) {
            row.number = value;
        }
    }
    return rows;
}

RowSummary SummaryOf(const std::vector<SummaryRow>& rows, const SummaryKind& kind) {
    RowSummary summary(kind);
    for (const SummaryRow& row : rows) {
        summary.Add(row);
    }
    return summary;
}

/// The vector of a line, or of the pole of a plane, in the plain way.
Direction PlainVector(const Attitude& measured, bool isPlane) {
    const double plunge =
        (isPlane ? 90 - std::abs(measured.dip) : std::abs(measured.dip)) * kDegree;
    const double trend = (isPlane ? measured.azimuth + 180 : measured.azimuth) * kDegree;
    return {std::cos(plunge) * std::cos(trend), std::cos(plunge) * std::sin(trend),
            std::sin(plunge)};
}

TEST(RowSummary, SumsAreThoseOfTheRows) {
    for (const std::int16_t primary : {kPrimaryPlane, kPrimaryLine}) {
        for (const bool hasDecimals : {false, true}) {
            const std::vector<SummaryRow> rows = RandomRows(2000, hasDecimals, 7);
            const bool isPlane = primary == kPrimaryPlane;
            const RowSummary summary = SummaryOf(rows, {primary, false});
            std::array<double, 6> products{};
            std::array<double, 3> mean{};
            std::array<double, 6> angles{};
            for (const SummaryRow& row : rows) {
                const Direction v = PlainVector(row.measured, isPlane);
                const double a = row.measured.azimuth * kDegree;
                const std::array<double, 6> p = {v.l * v.l, v.m * v.m, v.n * v.n,
                                                 v.l * v.m, v.l * v.n, v.m * v.n};
                const double sign = row.measured.dip < 0 ? -1 : 1;
                const std::array<double, 3> directed = {sign * v.l, sign * v.m, sign * v.n};
                const std::array<double, 6> z = {std::cos(a),     std::sin(a),     std::cos(2 * a),
                                                 std::sin(2 * a), std::cos(4 * a), std::sin(4 * a)};
                for (std::size_t i = 0; i < 6; ++i) {
                    products[i] += p[i];
                    angles[i] += z[i];
                    mean[i % 3] += i < 3 ? directed[i] : 0;
                }
            }
            const MomentSums sums = summary.Moments();
            for (std::size_t i = 0; i < 6; ++i) {
                EXPECT_NEAR(sums.products[i].Value(), products[i], 1e-9);
                EXPECT_NEAR(sums.azimuths[i].Value(), angles[i], 1e-9);
            }
            for (std::size_t i = 0; i < 3; ++i) {
                EXPECT_NEAR(sums.downward[i].Value() - 2 * sums.upward[i].Value(), mean[i], 1e-9);
            }
            EXPECT_EQ(summary.Rows(), rows.size());
            const auto withDecimals = std::ranges::count_if(
                rows, [](const SummaryRow& row) { return !IsWhole(row.measured); });
            EXPECT_EQ(summary.RowsWithDecimals(), static_cast<std::uint64_t>(withDecimals));
        }
    }
}

TEST(RowSummary, CellsCountWholeDegrees) {
    const std::vector<SummaryRow> rows = RandomRows(3000, true, 3);
    const RowSummary summary = SummaryOf(rows, {kPrimaryLine, true});
    std::vector<std::uint64_t> counts(kLineKeys);
    std::vector<double> weights(kLineKeys);
    for (const SummaryRow& row : rows) {
        const Attitude whole = RoundedAttitude(row.measured, false);
        const auto key = static_cast<std::size_t>(
            LineKeyOfDegrees(static_cast<int>(whole.dip), static_cast<int>(whole.azimuth)));
        ++counts[key];
        weights[key] += row.number && *row.number > 0 ? static_cast<double>(*row.number) : 0;
    }
    EXPECT_EQ(summary.Cells(), counts);
    double total = 0;
    for (const SummaryCell& cell : CellsOf(summary)) {
        const auto key = static_cast<std::size_t>(LineKeyOfDegrees(cell.dip, cell.azimuth));
        EXPECT_EQ(cell.rows, counts[key]);
        EXPECT_NEAR(cell.weight, weights[key], 1e-6);
        total += cell.weight;
    }
    EXPECT_NEAR(summary.TotalWeight(), total, 1e-6);
}

TEST(RowSummary, PartsInAnyOrderAreTheWholeByteForByte) {
    for (const bool isWeighted : {false, true}) {
        for (const bool hasDecimals : {false, true}) {
            const SummaryKind kind{kPrimaryPlane, isWeighted};
            std::vector<SummaryRow> rows = RandomRows(4000, hasDecimals, 11);
            const std::string whole = SummaryBytes(SummaryOf(rows, kind));
            std::mt19937 random(5);
            std::shuffle(rows.begin(), rows.end(), random);
            std::vector<RowSummary> parts;
            for (std::size_t part = 0; part < 4; ++part) {
                const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(part * part * 250);
                const auto end = rows.begin()
                                 + static_cast<std::ptrdiff_t>(
                                     part == 3 ? rows.size() : (part + 1) * (part + 1) * 250);
                parts.push_back(SummaryOf({begin, end}, kind));
            }
            for (const auto& order : {std::array{0, 1, 2, 3}, std::array{3, 1, 0, 2}}) {
                RowSummary merged(kind);
                for (const int part : order) {
                    const std::string bytes = SummaryBytes(parts[static_cast<std::size_t>(part)]);
                    EXPECT_EQ(merged.Merge(*SummaryOfBytes(bytes)), "");
                }
                EXPECT_EQ(SummaryBytes(merged), whole);
            }
        }
    }
}

TEST(RowSummary, OtherRowsAreNotMerged) {
    RowSummary planes({kPrimaryPlane, false});
    EXPECT_NE(planes.Merge(RowSummary({kPrimaryLine, false})), "");
    EXPECT_NE(planes.Merge(RowSummary({kPrimaryPlane, true})), "");
}

TEST(RowSummary, FabricIsThatOfTheRows) {
    const RowSummary lines =
        SummaryOf({{{30, 120}, {}}, {{31.5, 118}, {}}, {{-28, 121}, {}}, {{35, 125.5}, {}}},
                  {kPrimaryLine, false});
    const auto fabric = FabricOf(lines);
    ASSERT_TRUE(fabric && fabric->mean && fabric->meanOfAxes);
    EXPECT_EQ(fabric->count, 4);
    EXPECT_NEAR(fabric->axes.values[0] + fabric->axes.values[1] + fabric->axes.values[2], 1, 1e-12);
    EXPECT_GT(fabric->axes.values[2], 0.99);
    EXPECT_GT(fabric->lengthOfAxes, 0.99);
    EXPECT_NEAR(fabric->length, 0.5, 0.01) << "one of four points the other way";
    EXPECT_NEAR(*fabric->kappa, 3 / (4 - 4 * fabric->length), 1e-9);
    EXPECT_FALSE(FabricOf(RowSummary({kPrimaryLine, false})));
}

TEST(RowSummary, AzimuthsHaveTheirMean) {
    const RowSummary planes =
        SummaryOf({{{40, 100}, {}}, {{40, 110}, {}}, {{40, 290}, {}}}, {kPrimaryPlane, false});
    const auto axes = CircularOf(planes, true);
    EXPECT_NEAR(*axes->mean / kDegree, 16.6, 0.1) << "strikes 10, 20 and 200";
    const RowSummary directions = SummaryOf({{{0, 350}, {}}, {{0, 20}, {}}}, {kDirections, false});
    const auto mean = CircularOf(directions, false);
    EXPECT_NEAR(*mean->mean / kDegree, 5, 1e-9);
    EXPECT_NEAR(mean->length, std::cos(15 * kDegree), 1e-12);
    const RowSummary opposite = SummaryOf({{{0, 10}, {}}, {{0, 190}, {}}}, {kDirections, false});
    EXPECT_FALSE(CircularOf(opposite, false)->mean);
}

TEST(RowSummary, HistogramsHaveBinsFixedByTheNumbers) {
    NumberSummary numbers;
    for (const float value : {1.0F, 1.05F, 1.07F, -3.0F, 0.0F, -0.0F, 1e30F}) {
        numbers.Add(value);
    }
    numbers.Add(std::nullopt);
    numbers.Add(std::numeric_limits<float>::infinity());
    EXPECT_EQ(numbers.count, 7U);
    EXPECT_EQ(numbers.least, -3.0F);
    EXPECT_EQ(numbers.greatest, 1e30F);
    const std::vector<HistogramBin> bins = HistogramOf(numbers);
    ASSERT_EQ(bins.size(), 5U);
    EXPECT_EQ(bins[0].first, -3.0);
    EXPECT_EQ(bins[1].count, 2U) << "0 and -0";
    EXPECT_EQ(bins[2].first, 1.0);
    EXPECT_EQ(bins[2].end, 1.0625);
    EXPECT_EQ(bins[2].count, 2U);
}

TEST(SummaryFile, DamageIsFound) {
    const std::string bytes =
        SummaryBytes(SummaryOf(RandomRows(50, true, 1), {kPrimaryPlane, true}));
    EXPECT_TRUE(SummaryOfBytes(bytes));
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x10);
        EXPECT_FALSE(SummaryOfBytes(damaged)) << at;
        EXPECT_FALSE(SummaryOfBytes(bytes.substr(0, at)));
    }
    EXPECT_EQ(SummaryOfBytes("a letter").Error(), "It is not a summary.");
    std::string later = bytes;
    later[16] = 2;
    EXPECT_EQ(SummaryOfBytes(later).Error(), "The summary is of a later version of the program.");
}

} // namespace
} // namespace quandrel
