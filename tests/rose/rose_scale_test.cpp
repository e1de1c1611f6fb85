// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "rose/rose_plot.h"
#include "rose/rose_scale.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
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

class RoseScaleOfPlot : public EngineTest {
protected:
    /// A rose of polar lines, counted and with its petals, whose first sector has 4 of 10 and whose
    /// last one, of 10 degrees after seven of 50, has 3 of 10.
    void MakeRose(int zeroCircle, std::vector<std::int32_t> azimuths) {
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PlotKind = kRose;
        record.DataKind = kPolarLines;
        record.RoseType = kRoseFrequency;
        record.RoseSectorSize = 50;
        record.RoseStartAngle = 0;
        record.RoseEqualArea = kTrue;
        record.RoseZeroCircle = static_cast<std::int16_t>(zeroCircle);
        for (const std::int32_t azimuth : azimuths) {
            AddRow(0, azimuth);
        }
        gRoseOddAsked = true;
        RosePlot();
    }

    static double LargestRadius() {
        double largest = 0;
        for (const RoseWedge& wedge : ActiveRose().wedges) {
            if (wedge.sector != gRoseSectors->Sectors()) {
                largest = std::max(largest, wedge.radius);
            }
        }
        return largest;
    }
};

TEST_F(RoseScaleOfPlot, HasItsMarkOfTheLargestSectorAtTheEndOfItsPetal) {
    const std::vector<std::int32_t> noneInLast = {20, 25, 30, 35, 120, 220, 225, 230, 270, 275};
    const std::vector<std::int32_t> someInLast = {20, 25, 30, 35, 55, 56, 57, 220, 225, 270};
    for (const int zeroCircle : {0, 20, 50}) {
        for (const auto& azimuths : {noneInLast, someInLast}) {
            MakeRose(zeroCircle, azimuths);
            PlotRecord& record = ActiveRecord();
            ASSERT_EQ(record.RoseRangeB[kTopRoseLayer][kInPerCent], 40);
            ASSERT_EQ(record.RoseOddSectorSize, 10);
            const bool isLastFilled = gRoseSectors(8, 0, kRoseFrequencyLayer) > 0;
            ASSERT_EQ(isLastFilled, azimuths == someInLast);
            record.RoseScaleType = "tick10";
            const auto marks = MarksOfScale(ScaleOfRose(record));
            ASSERT_EQ(marks.size(), 4U);
            EXPECT_NEAR(marks[3].radius, LargestRadius(), 1e-6) << zeroCircle;
            if (isLastFilled) {
                EXPECT_LT(LargestRadius(), 999) << "all are shortened";
            } else {
                EXPECT_NEAR(LargestRadius(), 1000, 1e-6);
            }
            // A petal of 20 % ends at the mark of 20 %, one of 10 % at that of 10 %.
            for (const RoseWedge& wedge : ActiveRose().wedges) {
                const auto count =
                    static_cast<std::size_t>(gRoseSectors(wedge.sector, 0, kRoseFrequencyLayer));
                if (wedge.sector != 8) {
                    EXPECT_NEAR(wedge.radius, marks[count - 1].radius, 1e-6) << wedge.sector;
                }
            }
        }
    }
}

TEST_F(RoseScaleOfPlot, WritesTheIntervalInPlaceOfAuto) {
    NewPlot();
    PlotRecord& record = ActiveRecord();
    record.RoseRangeB[kTopRoseLayer][kInPerCent] = 25;
    const std::array<std::pair<const char*, const char*>, 6> cases = {{{"tickauto", "tickauto"},
                                                                       {"circauto", "circauto"},
                                                                       {"circ2.5", "circ2.5"},
                                                                       {"tick0", "tick6"},
                                                                       {"", "tick6"},
                                                                       {"tick7", "tick7"}}};
    for (const auto& [before, after] : cases) {
        record.RoseScaleType = before;
        StoreRoseInterval(record);
        EXPECT_EQ(record.RoseScaleType, after) << before;
    }
}

TEST(RoseScaleText, TakesAnotherForm) {
    EXPECT_EQ(ScaleTypeWithForm("tick5", true), "circ5");
    EXPECT_EQ(ScaleTypeWithForm("circ2.5", false), "tick2.5");
    EXPECT_EQ(ScaleTypeWithForm("tickauto", true), "circauto");
    EXPECT_EQ(ScaleTypeWithForm("", true), "circauto");
}

} // namespace quandrel
