// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "core/plot_store.h"
#include "rose/petal_tip.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "rose/rose_shown.h"
#include "rose/rose_tables.h"
#include "support/numbered_rows.h"
#include "support/test_platform.h"

#include <cmath>

namespace quandrel {
namespace {

class PetalTips : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gRoseOddAsked = false;
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PlotKind = kRose;
        record.DataKind = kPolarLines;
        record.PrimaryFormat = kPrimaryLine;
        record.RoseSectorSize = 10;
        record.AppNumName = "Length";
    }

    void TearDown() override {
        ForgetRose(ActivePlot());
        EngineTest::TearDown();
    }

    /// Lengths up to 5 and up to 10.
    static void ClassifyByLength() {
        PlotRecord& record = ActiveRecord();
        record.RoseType = 10;
        record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
        record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
        record.ClassTable[kLowestRow + 1][kNumberClasses] = 5.0;
        record.ClassTable[kLowestRow + 2][kNumberClasses] = 10.0;
    }

    static std::string TipAt(double azimuth, double radius) {
        const double angle = azimuth * std::acos(-1.0) / 180;
        return PetalTip(ActivePlot(), {radius * std::sin(angle), radius * std::cos(angle)});
    }
};

TEST_F(PetalTips, TellSectorCountAndShare) {
    for (const int azimuth : {12, 15, 20, 95}) {
        AddRow(10, azimuth);
    }
    RosePlot();
    EXPECT_EQ(TipAt(15, 500), "Sector 010-020\n3 of 4 data (75.0%)");
    EXPECT_EQ(TipAt(95, 300), "Sector 090-100\n1 of 4 data (25.0%)");
    EXPECT_EQ(TipAt(95, 400), "") << "beyond the petal";
    EXPECT_EQ(TipAt(200, 10), "");
}

TEST_F(PetalTips, TellBothEndsOfAxes) {
    ActiveRecord().DataKind = kLines;
    AddRow(10, 12);
    RosePlot();
    EXPECT_EQ(TipAt(15, 500), "Sector 010-020, 190-200\n1 of 1 data (100.0%)");
    EXPECT_EQ(TipAt(195, 500), TipAt(15, 500));
}

TEST_F(PetalTips, TellTheValuesOfTheirSector) {
    AddNumberedRow(10, 12, 2);
    AddNumberedRow(10, 15, 4);
    ActiveRecord().RoseType = kRoseValue;
    RosePlot();
    // The deviation of 2 and 4 is the root of 2.
    EXPECT_EQ(TipAt(15, 500), "Sector 010-020\n2 of 2 data (100.0%)\nLength, sum: 6"
                              "\nLength, mean: 3\nLength, std. deviation: 1.414");
}

TEST_F(PetalTips, ShareTheRowsOfAClassedSectorAmongItsClasses) {
    // Two rows up to 5, one above.
    PlotRecord& record = ActiveRecord();
    AddNumberedRow(10, 12, 2);
    AddNumberedRow(10, 15, 3);
    AddNumberedRow(10, 18, 7);
    ClassifyByLength();
    RosePlot();
    EXPECT_EQ(record.NumClassified, 3);
    EXPECT_NE(TipAt(15, 300).find(": 2 (66.7%)"), std::string::npos) << TipAt(15, 300);
    EXPECT_NE(TipAt(15, 900).find(": 1 (33.3%)"), std::string::npos) << TipAt(15, 900);
}

TEST_F(PetalTips, ShareGroupedRowsByRows) {
    // Rows of 2, 3 and 7 observations: classes hold rows, two of three and one of three.
    AddNumberedRow(10, 12, 2);
    AddNumberedRow(10, 15, 3);
    AddNumberedRow(10, 18, 7);
    ActiveRecord().HasFrequencyColumn = kTrue;
    ClassifyByLength();
    RosePlot();
    ASSERT_EQ(gRoseSectorStats[kAllSectors][kRoseCount], 12);
    EXPECT_NE(TipAt(15, 300).find(": 2 (66.7%)"), std::string::npos) << TipAt(15, 300);
    EXPECT_NE(TipAt(15, 900).find(": 1 (33.3%)"), std::string::npos) << TipAt(15, 900);
}

TEST_F(PetalTips, KnowTheSmallerLastSector) {
    AddRow(10, 12);
    PlotRecord& record = ActiveRecord();
    record.RoseSectorSize = 50;
    gRoseOddAsked = true;
    RosePlot();
    // Seven of 50 from 050 backward, and 10 degrees up to 060.
    EXPECT_EQ(SectorBoundsText(ActivePlot(), 1), "000-050");
    EXPECT_EQ(SectorBoundsText(ActivePlot(), 2), "310-000");
    EXPECT_EQ(SectorBoundsText(ActivePlot(), 8), "050-060");
}

TEST_F(PetalTips, IgnoreASmallerSectorOfAnotherSize) {
    AddRow(10, 12);
    ActiveRecord().RoseOddSectorSize = 3; // kept from a size of 7
    RosePlot();
    EXPECT_EQ(SectorBoundsText(ActivePlot(), 36), "010-020");
}

TEST_F(PetalTips, AreOfTheRoseDrawnLastAlone) {
    AddRow(10, 12);
    RosePlot();
    ASSERT_NE(TipAt(15, 500), "");
    ActiveRose().isCounted = false;
    EXPECT_EQ(TipAt(15, 500), "");
    ActiveRose().isCounted = true;
    ActiveRecord().PlotKind = kEqualArea;
    EXPECT_EQ(TipAt(15, 500), "");
}

} // namespace
} // namespace quandrel
