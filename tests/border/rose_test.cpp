// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/rose.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace quandrel::api {
namespace {

std::vector<double> WholeAzimuths(std::size_t count, std::uint32_t seed) {
    RandomValues random(seed);
    std::vector<double> azimuths(count);
    for (double& azimuth : azimuths) {
        azimuth = std::nearbyint(random.Between(-0.4, 360.4));
    }
    return azimuths;
}

/// Whether an azimuth lies in a sector: past its beginning, up to its end.
bool IsWithin(const RoseSector& sector, double azimuth) {
    const double way = std::fmod(azimuth - sector.from + 720, 360);
    return (way > 1e-9 || way == 0 ? way : 0) <= sector.size + 1e-9
           && (way > 1e-9 || sector.size > 359);
}

bool IsCounted(const RoseSector& sector, double azimuth, Sense sense) {
    return IsWithin(sector, azimuth) || (sense == Sense::kAxes && IsWithin(sector, azimuth + 180));
}

TEST(PublicRose, SectorsCountWhatLiesInThem) {
    const std::vector<double> azimuths = WholeAzimuths(500, 20260821);
    for (const Sense sense : {Sense::kAxes, Sense::kDirections}) {
        for (const double size : {10.0, 20.0, 45.0, 7.0, 120.0, 360.0 / 7}) {
            for (const double start : {0.0, 5.0, 350.0, -95.0}) {
                const Rose rose =
                    RoseOf(azimuths, {.sectorSize = size, .start = start, .sense = sense});
                double whole = 0;
                for (const RoseSector& sector : rose.sectors) {
                    const auto truth = std::ranges::count_if(azimuths, [&](double azimuth) {
                        return IsCounted(sector, azimuth, sense);
                    });
                    EXPECT_EQ(sector.count, truth) << size << ' ' << start << ' ' << sector.from;
                    whole += sector.size;
                }
                EXPECT_NEAR(whole, 360, 1e-6);
                EXPECT_EQ(rose.count, 500);
            }
        }
    }
}

TEST(PublicRose, SectorsFollowEachOtherClockwiseFromTheStart) {
    const Rose rose = RoseOf({}, {.sectorSize = 100, .start = 350});
    ASSERT_EQ(rose.sectors.size(), 4U);
    EXPECT_EQ(rose.sectors[0].from, 350);
    EXPECT_EQ(rose.sectors[1].from, 90);
    EXPECT_EQ(rose.sectors[1].size, 60);
    EXPECT_EQ(rose.sectors[2].from, 150);
    EXPECT_EQ(rose.sectors[3].from, 250);
}

TEST(PublicRose, ValuesAreSummedAndAveragedInTheirSectors) {
    const std::vector<double> azimuths = {10, 10, 10, 200, 300};
    const std::vector<double> values = {1.1, 2.2, 6.3, -4, 1e-3};
    const Rose rose = RoseOf(azimuths, {.sectorSize = 90, .sense = Sense::kDirections}, values);
    const RoseSector& first = rose.sectors[0];
    EXPECT_NEAR(first.sum, 9.6, 1e-12);
    EXPECT_NEAR(first.mean, 3.2, 1e-12);
    const double squares = 2.1 * 2.1 + 1.0 * 1.0 + 3.1 * 3.1;
    EXPECT_NEAR(first.deviation, std::sqrt(squares / 2), 1e-12);
    EXPECT_EQ(rose.sectors[2].sum, -4);
    EXPECT_EQ(rose.sectors[3].sum, 1e-3);
    EXPECT_EQ(rose.sectors[3].deviation, 0);
    EXPECT_EQ(rose.sectors[1].mean, 0);
}

TEST(PublicRose, LengthsFollowTheirMeasure) {
    const std::vector<double> azimuths = {10, 10, 10, 10, 100, 200};
    const std::vector<double> values = {1, 1, 1, 1, 8, 2};
    const auto lengths = [&](RoseOptions options) {
        options.sectorSize = 90;
        options.sense = Sense::kDirections;
        std::vector<double> found;
        for (const RoseSector& sector : RoseOf(azimuths, options, values).sectors) {
            found.push_back(sector.length);
        }
        return found;
    };
    const auto expectNear = [](const std::vector<double>& found, const std::vector<double>& truth) {
        ASSERT_EQ(found.size(), truth.size());
        for (std::size_t i = 0; i < truth.size(); ++i) {
            EXPECT_NEAR(found[i], truth[i], 1e-9) << i;
        }
    };
    expectNear(lengths({}), {1, 0.25, 0.25, 0});
    expectNear(lengths({.hasEqualAreas = true}), {1, 0.5, 0.5, 0});
    expectNear(lengths({.measure = RoseMeasure::kSum}), {0.5, 1, 0.25, 0});
    expectNear(lengths({.measure = RoseMeasure::kMean}), {0.125, 1, 0.25, 0});
}

TEST(PublicRose, AzimuthsCountAtTheirNearestWholeDegrees) {
    const Rose rose = RoseOf(std::vector<double>{10.4, 10.5, 10.6, 359.6, -0.3},
                             {.sectorSize = 10, .sense = Sense::kDirections});
    EXPECT_EQ(rose.sectors[0].count, 2);
    EXPECT_EQ(rose.sectors[1].count, 1);
    EXPECT_EQ(rose.sectors[35].count, 2);
}

TEST(PublicRose, WeightsOfSamplingAreThoseOfTheSine) {
    EXPECT_NEAR(TerzaghiWeightOf(30, 0), 2, 1e-12);
    EXPECT_NEAR(TerzaghiWeightOf(5, 10), 1 / std::sin(testing::Radians(10)), 1e-12);
    EXPECT_NEAR(TerzaghiWeightOf(0, 0), 1 / std::sin(testing::Radians(1)), 1e-9);
    EXPECT_EQ(TerzaghiWeightOf(90, 0), 1);
}

TEST(PublicRose, RefusesWhatItCannotCount) {
    const std::vector<double> azimuths = {1, 2};
    EXPECT_THROW(static_cast<void>(RoseOf(azimuths, {.sectorSize = 0.5})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(RoseOf(azimuths, {.measure = RoseMeasure::kMean})),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(RoseOf(azimuths, {}, std::vector<double>{1})),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(RoseOf(azimuths, {}, std::vector<double>{1, 1e101})),
                 std::invalid_argument);
    EXPECT_THROW(
        static_cast<void>(RoseOf(std::vector<double>{std::numeric_limits<double>::infinity()})),
        std::invalid_argument);
    EXPECT_THROW(static_cast<void>(TerzaghiWeightOf(91, 0)), std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
