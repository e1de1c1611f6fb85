// SPDX-License-Identifier: MIT
//
// The azimuths that the tests of a rose are about.

#include "core/data_format.h"
#include "orientation/angles.h"
#include "rose/azimuth_tests.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "support/measured_plots.h"
#include "support/test_platform.h"

#include <algorithm>

namespace quandrel {
namespace {

class AnglesOfRoseTest : public EngineTest {
protected:
    void NewRose(std::int16_t kind) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
        ActiveRecord().PlotKind = kRose;
        ActiveRecord().DataKind = kind;
    }

    static void AddNumber(float number) {
        ActiveRecord().HasAppendedNumeric = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        gAppNumeric.At(gActivePlot, ActiveRecord().NumData) = number;
    }

    static std::vector<double> Degrees(const AzimuthSample& sample) {
        std::vector<double> degrees;
        for (const double angle : sample.angles) {
            degrees.push_back(RoundToEven(RadToDeg(angle) * 1e6) / 1e6);
        }
        std::sort(degrees.begin(), degrees.end());
        return degrees;
    }
};

TEST_F(AnglesOfRoseTest, OfLinesAreDoubledInTwoDegreeSteps) {
    NewRose(kLines);
    for (const int azimuth : {10, 190, 45, 100}) {
        AddRow(20, azimuth);
    }
    const AzimuthSample sample = AnglesOfRose(ActivePlot());
    EXPECT_TRUE(sample.areAxes);
    EXPECT_EQ(sample.steps, kStepsOfAxes);
    EXPECT_EQ(Degrees(sample), (std::vector<double>{20, 20, 90, 200}));
}

TEST_F(AnglesOfRoseTest, OfPolarLinesPointAsTheLinesDo) {
    NewRose(kPolarLines);
    AddRow(20, 10);
    AddRow(-20, 10);
    AddRow(kErrorRow, 70);
    const AzimuthSample sample = AnglesOfRose(ActivePlot());
    EXPECT_FALSE(sample.areAxes);
    EXPECT_EQ(sample.steps, kStepsOfDirections);
    EXPECT_EQ(Degrees(sample), (std::vector<double>{10, 190}));
}

TEST_F(AnglesOfRoseTest, OfMeasuredRowsHaveNoSteps) {
    NewRose(kLines);
    AddMeasuredRows({{20, 10.25}, {30, 44.75}});
    EXPECT_EQ(Degrees(AnglesOfRose(ActivePlot())), (std::vector<double>{20, 90}));
    UseDecimals(true);
    const AzimuthSample sample = AnglesOfRose(ActivePlot());
    EXPECT_EQ(sample.steps, kWithoutSteps);
    EXPECT_EQ(Degrees(sample), (std::vector<double>{20.5, 89.5}));
}

TEST_F(AnglesOfRoseTest, OfAClassAreThoseOfItsRows) {
    NewRose(kLines);
    PlotRecord& record = ActiveRecord();
    record.RoseType = 10 * kRoseByLength;
    record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
    record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
    record.ClassTable[kLowestRow + 1][kNumberClasses] = 5.0;
    record.ClassTable[kTopRow][kNumberClasses] = 10.0;
    record.ClassTable[kFlagRow][kNumberClasses] = std::int16_t{0};
    for (const auto& [azimuth, number] :
         {std::pair{10, 1.0F}, {20, 7.0F}, {30, 2.0F}, {40, 99.0F}}) {
        AddRow(20, azimuth);
        AddNumber(number);
    }
    EXPECT_EQ(Degrees(AnglesOfRose(ActivePlot())), (std::vector<double>{20, 40, 60}));
    // Class 1 of the table is of values below the limits, which are not kept.
    EXPECT_EQ(Degrees(AnglesOfRose(ActivePlot(), 2)), (std::vector<double>{20, 60}));
    EXPECT_EQ(Degrees(AnglesOfRose(ActivePlot(), 3)), (std::vector<double>{40}));
    EXPECT_TRUE(AnglesOfRose(ActivePlot(), 1).angles.empty());
}

TEST_F(AnglesOfRoseTest, OfCountedRowsAreRepeated) {
    NewRose(kLines);
    ActiveRecord().HasFrequencyColumn = kTrue;
    AddRow(20, 10);
    AddNumber(3);
    AddRow(20, 50);
    AddNumber(1);
    EXPECT_EQ(Degrees(AnglesOfRose(ActivePlot())), (std::vector<double>{20, 20, 20, 100}));
}

} // namespace
} // namespace quandrel
