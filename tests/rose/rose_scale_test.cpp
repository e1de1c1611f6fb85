// SPDX-License-Identifier: MIT

#include "rose/rose_scale.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace quandrel {

namespace {

std::vector<double> PerCentOf(const std::vector<RoseScaleMark>& marks) {
    std::vector<double> values;
    for (const RoseScaleMark& mark : marks) {
        values.push_back(mark.perCent);
    }
    return values;
}

} // namespace

TEST(AutomaticRoseInterval, FollowsTheLargestSector) {
    const std::array<std::pair<double, double>, 14> cases = {{{0, 1},
                                                              {6.99, 1},
                                                              {7, 2},
                                                              {12, 2},
                                                              {13, 2},
                                                              {13.5, 3},
                                                              {18, 3},
                                                              {18.5, 5},
                                                              {30, 5},
                                                              {30.5, 10},
                                                              {60, 10},
                                                              {60.5, 20},
                                                              {100, 20},
                                                              {1e9, 20}}};
    for (const auto& [largest, interval] : cases) {
        EXPECT_EQ(AutomaticRoseInterval(largest), interval) << largest;
        EXPECT_EQ(IntervalOfScale("tickauto", largest), interval) << largest;
        EXPECT_EQ(IntervalOfScale("circauto", largest), interval) << largest;
    }
}

TEST(IntervalOfScale, TakesTheNumberBehindTheForm) {
    EXPECT_EQ(IntervalOfScale("tick10", 40), 10);
    EXPECT_EQ(IntervalOfScale("circ2.5", 40), 2.5);
    EXPECT_EQ(IntervalOfScale("circ2,5", 40), 2.5);
    EXPECT_EQ(IntervalOfScale("tick90", 40), 90);
}

TEST(IntervalOfScale, FindsOneForZeroAndForWhatIsNoNumber) {
    for (const char* const text : {"tick0", "circ0", "tick", "", "ti", "tick-5", "tickxy"}) {
        EXPECT_EQ(IntervalOfScale(text, 3), 1) << text;
        EXPECT_EQ(IntervalOfScale(text, 4), 1) << text;
        EXPECT_EQ(IntervalOfScale(text, 20), 5) << text;
        EXPECT_EQ(IntervalOfScale(text, 10), 2) << text; // 2.5 goes to the even neighbour
        EXPECT_EQ(IntervalOfScale(text, 4.4), 1) << text;
    }
}

TEST(IntervalOfScale, NeverGivesMoreThanAHundredMarks) {
    const double interval = IntervalOfScale("tick0.001", 40);
    EXPECT_DOUBLE_EQ(interval, 0.4);
    RoseScaleSettings settings;
    settings.interval = interval;
    settings.largestPerCent = 40;
    settings.unitsPerCent = 25;
    EXPECT_EQ(MarksOfScale(settings).size(), 100U);
}

TEST(MarksOfScale, StandsAtMultiplesOfAnyInterval) {
    RoseScaleSettings settings;
    settings.largestPerCent = 10;
    settings.unitsPerCent = 100;
    settings.interval = 2.5;
    EXPECT_EQ(PerCentOf(MarksOfScale(settings)), (std::vector<double>{2.5, 5, 7.5, 10}));
    settings.interval = 3;
    EXPECT_EQ(PerCentOf(MarksOfScale(settings)), (std::vector<double>{3, 6, 9}));
    settings.interval = 0.1;
    EXPECT_EQ(MarksOfScale(settings).size(), 100U); // the last one is not lost by rounding
}

TEST(MarksOfScale, DrawsNoCircleAtTheLargestSector) {
    RoseScaleSettings settings;
    settings.largestPerCent = 10;
    settings.unitsPerCent = 100;
    settings.interval = 5;
    settings.circles = true;
    EXPECT_EQ(PerCentOf(MarksOfScale(settings)), std::vector<double>{5});
    settings.interval = 0.1;
    EXPECT_EQ(MarksOfScale(settings).size(), 99U);
}

TEST(MarksOfScale, ReachesTheRimAtTheLargestSector) {
    // Linear: 800 for 20 %. Of equal area: 1000^2 - 200^2 for 20 %.
    RoseScaleSettings settings{5, 20, 40, 200, false, false};
    const std::vector<RoseScaleMark> linear = MarksOfScale(settings);
    ASSERT_EQ(linear.size(), 4U);
    EXPECT_DOUBLE_EQ(linear[0].radius, 400);
    EXPECT_DOUBLE_EQ(linear[3].radius, 1000);
    settings.equalArea = true;
    settings.unitsPerCent = 48000;
    const std::vector<RoseScaleMark> areas = MarksOfScale(settings);
    EXPECT_DOUBLE_EQ(areas[3].radius, 1000);
    EXPECT_DOUBLE_EQ(areas[0].radius, std::sqrt(5 * 48000.0 + 40000));
}

TEST(MarksOfScale, HasNoneForAnEmptyRose) {
    EXPECT_TRUE(MarksOfScale({1, 0, 0, 0, false, false}).empty());
    EXPECT_TRUE(MarksOfScale({0, 10, 100, 0, false, false}).empty());
}

class RoseScaleOfPlot : public EngineTest {};

TEST_F(RoseScaleOfPlot, WritesTheIntervalInPlaceOfAuto) {
    NewPlot();
    PlotRecord& record = ActiveRecord();
    record.RoseRangeB[0][0] = 25;
    const std::array<std::pair<const char*, const char*>, 6> cases = {{{"tickauto", "tick5"},
                                                                       {"circauto", "circ5"},
                                                                       {"circ2.5", "circ2.5"},
                                                                       {"tick0", "tick6"},
                                                                       {"", "tick6"},
                                                                       {"tick7", "tick7"}}};
    for (const auto& [before, after] : cases) {
        record.RoseScaleType = before;
        StoreRoseInterval();
        EXPECT_EQ(record.RoseScaleType, after) << before;
    }
}

TEST_F(RoseScaleOfPlot, RemembersThatTheIntervalWasAutomatic) {
    NewPlot();
    PlotRecord& record = ActiveRecord();
    record.RoseRangeB[0][0] = 25;
    record.RoseScaleType = "tickauto";
    EXPECT_TRUE(IsRoseIntervalAutomatic());
    StoreRoseInterval();
    EXPECT_EQ(record.RoseScaleType, "tick5");
    EXPECT_TRUE(IsRoseIntervalAutomatic());
    StoreRoseInterval(); // drawn again
    EXPECT_TRUE(IsRoseIntervalAutomatic());
    record.RoseScaleType = "tick4";
    EXPECT_FALSE(IsRoseIntervalAutomatic());
    StoreRoseInterval();
    EXPECT_FALSE(IsRoseIntervalAutomatic());
}

} // namespace quandrel
