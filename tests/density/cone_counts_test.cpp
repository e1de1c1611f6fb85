// SPDX-License-Identifier: MIT

#include "density/cone_counts.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "support/line_samples.h"
#include "support/trial.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace quandrel {
namespace {

double AcuteAngle(double plunge, double trend, const DistinctLine& line) {
    double angle = 0;
    AngleBetweenLines(plunge, trend, DegToRad(line.plunge), DegToRad(line.trend), angle,
                      LineAngle::kAcute);
    return angle;
}

/// Each line is examined by itself.
std::int32_t CountOneByOne(const std::vector<DistinctLine>& lines, double plunge, double trend,
                           double cone) {
    std::int32_t count = 0;
    for (const DistinctLine& line : lines) {
        if (AcuteAngle(plunge, trend, line) <= cone) {
            count += line.rows;
        }
    }
    return count;
}

/// One row for every line of whole degrees, including upward ones.
std::vector<DistinctLine> AllLines() {
    std::vector<DistinctLine> lines;
    for (std::int16_t plunge = -90; plunge <= 90; ++plunge) {
        for (std::int16_t trend = 0; trend <= 360; ++trend) {
            lines.push_back({plunge, trend, 1});
        }
    }
    return lines;
}

// Kept: both ends of the cone together are 2% of the sphere.
TEST(CountCone, IsTheConeOfTwoPerCentOfASphere) {
    EXPECT_NEAR(std::cos(kCountCone), 0.98, 1e-14);
    // A cap of half-angle a is (1 - cos a) / 2 of its sphere.
    EXPECT_NEAR(2 * (1 - std::cos(kCountCone)) / 2, 0.02, 1e-14);
    EXPECT_EQ(static_cast<float>(kCountCone), static_cast<float>(kGridCountCone));
}

TEST(CountCone, NoTwoWholeDegreeLinesAreAConeApart) {
    for (int first = 0; first <= 90; ++first) {
        for (int second = first; second <= 90; ++second) {
            for (int turn = 0; turn <= 180; ++turn) {
                const double cosine = std::cos(DegToRad(first)) * std::cos(DegToRad(second))
                                          * std::cos(DegToRad(turn))
                                      + std::sin(DegToRad(first)) * std::sin(DegToRad(second));
                ASSERT_GT(std::abs(std::abs(cosine) - 0.98), 1e-9)
                    << first << " " << second << " " << turn;
            }
        }
    }
}

TEST(CountsOfLines, EqualThoseOfEveryPair) {
    for (const LineSample& sample : LineSamples()) {
        const std::vector<std::int32_t> counts = CountsOfLines(sample.lines);
        ASSERT_EQ(counts.size(), sample.lines.size());
        for (std::size_t i = 0; i < counts.size(); ++i) {
            const DistinctLine& line = sample.lines[i];
            ASSERT_EQ(counts[i], CountOneByOne(sample.lines, DegToRad(line.plunge),
                                               DegToRad(line.trend), kCountCone))
                << sample.name << " " << line.plunge << " " << line.trend;
        }
    }
}

TEST(CountsOfLinesTrial, EqualThoseOfEveryPairWhereAllLinesAreTaken) {
    const std::vector<DistinctLine> lines = AllLines();
    const std::vector<std::int32_t> counts = CountsOfLines(lines);
    std::mt19937 random(5);
    const int rounds = TrialRounds(300);
    for (int i = 0; i < rounds; ++i) {
        const std::size_t place = random() % lines.size();
        const DistinctLine& line = lines[place];
        ASSERT_EQ(counts[place],
                  CountOneByOne(lines, DegToRad(line.plunge), DegToRad(line.trend), kCountCone))
            << line.plunge << " " << line.trend;
    }
}

TEST(CountsOfLines, OppositeRimPointsCountEachOther) {
    const std::vector<DistinctLine> lines = {{0, 10, 1}, {0, 190, 1}};
    EXPECT_EQ(CountsOfLines(lines), (std::vector<std::int32_t>{2, 2}));
}

// Exact: at the rim in the north and south the cone is 199 plot units wide to either side. A scan
// of the neighbours up to 150 units in x would miss these two, 11 degrees apart.
TEST(CountsOfLines, NeighboursAtTheNorthRimCountThoughFarApartInX) {
    std::int16_t x = 0;
    std::int16_t y = 0;
    ProjectPointInt(1, 0, DegToRad(11), x, y);
    ASSERT_GT(x, 150);
    EXPECT_EQ(CountsOfLines(std::vector<DistinctLine>{{0, 0, 1}, {0, 11, 1}}),
              (std::vector<std::int32_t>{2, 2}));
    EXPECT_EQ(CountsOfLines(std::vector<DistinctLine>{{0, 0, 1}, {0, 12, 1}}),
              (std::vector<std::int32_t>{1, 1}));
}

TEST(CountsOfLines, UpwardLinesCountAsTheirMirrors) {
    EXPECT_EQ(CountsOfLines(std::vector<DistinctLine>{{-30, 120, 2}, {30, 120, 3}}),
              (std::vector<std::int32_t>{5, 5}));
}

TEST(CountsOfLines, AFullTurnIsNorth) {
    EXPECT_EQ(CountsOfLines(std::vector<DistinctLine>{{40, 0, 2}, {40, 355, 4}, {40, 360, 3}}),
              (std::vector<std::int32_t>{9, 9, 9}));
}

TEST(CountsOfLines, VerticalLinesAreOneWhateverTheirTrends) {
    EXPECT_EQ(CountsOfLines(std::vector<DistinctLine>{{79, 200, 1}, {90, 0, 2}, {90, 123, 3}}),
              (std::vector<std::int32_t>{6, 6, 6}));
    EXPECT_EQ(CountsOfLines(std::vector<DistinctLine>{{78, 200, 1}, {90, 0, 2}, {90, 123, 3}}),
              (std::vector<std::int32_t>{1, 5, 5}));
}

TEST(CountsOfLines, NoLinesGiveNoCounts) {
    EXPECT_TRUE(CountsOfLines({}).empty());
}

TEST(CountWithin, EqualsTheExactRuleForAnyCone) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> plunge(-kPi / 2, kPi / 2);
    std::uniform_real_distribution<double> trend(0, kTwoPi);
    for (const LineSample& sample : LineSamples()) {
        const LineHistogram rows(sample.lines);
        for (const double cone : {kCountCone, kGridCountCone, 0.05, 0.5}) {
            for (int i = 0; i < 40; ++i) {
                const double p = plunge(random);
                const double t = trend(random);
                ASSERT_EQ(CountWithin(rows, p, t, cone), CountOneByOne(sample.lines, p, t, cone))
                    << sample.name << " " << p << " " << t << " " << cone;
            }
        }
    }
}

// Cones of whole degrees end exactly on lines, where only the exact rule can decide.
TEST(CountWithinTrial, EqualsTheExactRuleWhereConesEndOnLines) {
    TrialShare share;
    const std::vector<DistinctLine> lines = AllLines();
    const LineHistogram rows(lines);
    for (const int cone : {1, 5, 10, 30}) {
        for (const int plunge : {0, 1, 3, 10, 45, 60, 80, 85, 89, 90}) {
            for (const int trend : {0, 1, 90, 179, 270, 360}) {
                if (!share.Takes()) {
                    continue;
                }
                ASSERT_EQ(CountWithin(rows, DegToRad(plunge), DegToRad(trend), DegToRad(cone)),
                          CountOneByOne(lines, DegToRad(plunge), DegToRad(trend), DegToRad(cone)))
                    << cone << " " << plunge << " " << trend;
            }
        }
    }
}

TEST(CountWithin, TakesTheVerticalAxis) {
    const std::vector<DistinctLine> lines = AllLines();
    const LineHistogram rows(lines);
    for (const double trend : {0.0, 1.0, kTwoPi}) {
        EXPECT_EQ(CountWithin(rows, kPi / 2, trend, kGridCountCone),
                  CountOneByOne(lines, kPi / 2, trend, kGridCountCone));
    }
}

TEST(LineHistogram, SumsRowsAlongARing) {
    const LineHistogram rows(std::vector<DistinctLine>{{-20, 10, 4}, {20, 0, 1}, {20, 360, 2}});
    EXPECT_EQ(rows.OnRing(20), 7);
    EXPECT_EQ(rows.OnRing(21), 0);
    EXPECT_EQ(rows.OnArc(20, 0, 9), 3);
    EXPECT_EQ(rows.OnArc(20, -1, 10), 7);
    EXPECT_EQ(rows.OnArc(20, -kArcReach, 0), 3);
    EXPECT_EQ(rows.OnArc(20, 350, 370), 7);
    EXPECT_EQ(rows.OnArc(20, 361, 370), 4);
    EXPECT_EQ(rows.At(20, 0), 1);
    EXPECT_EQ(rows.At(20, 360), 2);
}

TEST(RowsOf, AddsUp) {
    EXPECT_EQ(RowsOf({}), 0);
    EXPECT_EQ(RowsOf(std::vector<DistinctLine>{{0, 0, 2}, {1, 1, 5}}), 7);
}

} // namespace
} // namespace quandrel
