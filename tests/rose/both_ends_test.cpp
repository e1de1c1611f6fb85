// SPDX-License-Identifier: MIT
//
// Roses of axes whose sectors make no pairs: each axis is counted at both its ends.

#include "core/plot_store.h"
#include "core/settings.h"
#include "orientation/angles.h"
#include "rose/petal_tip.h"
#include "rose/rose_legend.h"
#include "rose/rose_plot.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/rose_shown.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "support/numbered_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quandrel {
namespace {

constexpr const char* kNote = "(axes counted at both ends)";

class BothEnds : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gRoseOddAsked = false;
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PlotKind = kRose;
        record.DataKind = kLines;
        record.PrimaryFormat = kPrimaryLine;
        record.RoseSectorSize = 40;
        record.RoseStartAngle = 340;
        record.RoseSectorFraction = 100;
        record.AppNumName = "Length";
    }

    void TearDown() override {
        ForgetRose(ActivePlot());
        EngineTest::TearDown();
    }

    /// Nine axes within 356 to 004.
    static void AddAxesAboutNorth() {
        for (const int azimuth : {356, 357, 358, 359, 0, 1, 2, 3, 4}) {
            AddNumberedRow(10, azimuth, azimuth > 180 ? 1.0F : 2.0F);
        }
    }

    static std::string TipAt(double azimuth, double radius) {
        const double angle = DegToRad(azimuth);
        return PetalTip(ActivePlot(), {radius * std::sin(angle), radius * std::cos(angle)});
    }

    static bool LegendHasNote() {
        const std::vector<LegendLine> lines = RoseLegendLines(ActivePlot(), gSettings.styles);
        return std::ranges::any_of(lines,
                                   [](const LegendLine& line) { return line.text == kNote; });
    }

    /// Lengths of the petals over the longest one.
    static std::vector<double> Radii() {
        std::vector<double> radii;
        for (int s = 1; s <= gRoseRadii->Sectors(); ++s) {
            radii.push_back(gRoseRadii(s, 0));
        }
        return radii;
    }
};

TEST_F(BothEnds, FillThePetalAboutNorth) {
    AddAxesAboutNorth();
    RosePlot();
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.RoseRangeB[kTopRoseLayer][kInPerCent], 100) << "per cent in 340 to 20";
    EXPECT_EQ(record.RoseRangeB[kTopRoseLayer][kInUnits], 9);
    ASSERT_EQ(ActiveRose().wedges.size(), 3U);
    EXPECT_NEAR(RadToDeg(ActiveRose().wedges[0].start), 70, 1e-9) << "20 clockwise from north";
    EXPECT_NEAR(RadToDeg(ActiveRose().wedges[0].end), 110, 1e-9);
    EXPECT_NEAR(ActiveRose().wedges[0].radius, 1000, 1e-9);
    EXPECT_NEAR(ActiveRose().wedges[1].radius, 4000 / 9.0, 1e-9) << "180 to 220";
    EXPECT_NEAR(ActiveRose().wedges[2].radius, 5000 / 9.0, 1e-9) << "140 to 180";
    EXPECT_FALSE(std::ranges::any_of(ActiveRose().wedges, &RoseWedge::mirror));
}

TEST_F(BothEnds, AreToldByTipsAndLegend) {
    AddAxesAboutNorth();
    RosePlot();
    EXPECT_EQ(TipAt(0, 500), "Sector 340-020\n9 of 9 data (100.0%)");
    EXPECT_EQ(TipAt(170, 300), "Sector 140-180\n5 of 9 data (55.6%)");
    EXPECT_EQ(TipAt(170, 600), "") << "beyond the petal";
    EXPECT_TRUE(LegendHasNote());
    ActiveRecord().DataKind = kPolarLines;
    EXPECT_FALSE(LegendHasNote());
    ActiveRecord().DataKind = kLines;
    ActiveRecord().RoseSectorSize = 30;
    EXPECT_FALSE(LegendHasNote()) << "pairs";
}

TEST_F(BothEnds, CountValuesToo) {
    AddAxesAboutNorth();
    ActiveRecord().RoseType = kRoseValue;
    RosePlot();
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.RoseStats[kRoseValueSum], (std::array<double, 3>{14, 14, 14}));
    EXPECT_EQ(record.RoseRangeB[kTopRoseLayer][kInPerCent], 100);
    // The other ends: 001 to 004 in 180 to 220, those of 1 each in 140 to 180, with that of 000.
    EXPECT_NEAR(gRoseRadii(5, 0), 1000.0 * 8 / 14, 1e-9);
    EXPECT_NEAR(gRoseRadii(6, 0), 1000.0 * 6 / 14, 1e-9);
}

TEST_F(BothEnds, MakePetalsOfTwiceTheWhole) {
    for (int i = 0; i < 97; ++i) {
        AddNumberedRow(10, (i * 37) % 360, static_cast<float>(1 + i % 5));
    }
    for (const double size : {24.0, 40.0, 72.0, 120.0, 360.0 / 7, 360.0 / 11, 7.0, 50.0, 100.0}) {
        for (const int kind : {kRoseFrequency, kRoseValue, kRoseMeanValue, kRoseVariance}) {
            gRoseOddAsked = true;
            ActiveRecord().RoseSectorSize = size;
            ActiveRecord().RoseType = static_cast<std::int16_t>(kind);
            RosePlot();
            double sum = 0;
            for (const double radius : Radii()) {
                sum += radius / ActiveRecord().RoseRangeA[kTopRoseLayer][kInPerCent];
            }
            EXPECT_NEAR(sum, 200, 1e-9) << size << " kind " << kind;
        }
    }
}

TEST_F(BothEnds, HaveAreasInProportion) {
    AddAxesAboutNorth();
    ActiveRecord().RoseEqualArea = kTrue;
    RosePlot();
    EXPECT_NEAR(gRoseRadii(1, 0), 1000, 1e-9);
    EXPECT_NEAR(gRoseRadii(5, 0), std::sqrt(4 * 1e6 / 9), 1e-9);
    EXPECT_NEAR(gRoseRadii(6, 0), std::sqrt(5 * 1e6 / 9), 1e-9);
}

TEST_F(BothEnds, ShowAHalfOfTheSamePetals) {
    AddAxesAboutNorth();
    RosePlot();
    const std::vector<double> whole = Radii();
    const auto wedges = ActiveRose().wedges.size();
    for (std::int16_t shape = 1; shape <= 4; ++shape) {
        ActiveRecord().RoseShape = shape;
        RosePlot();
        EXPECT_EQ(Radii(), whole) << shape;
        EXPECT_EQ(ActiveRose().wedges.size(), wedges) << "what lies in the other half is covered";
        EXPECT_EQ(ActiveRecord().RoseRangeB[kTopRoseLayer][kInPerCent], 100);
    }
}

} // namespace
} // namespace quandrel
