// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "density/grid_density.h"
#include "edit/selection/readout.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>

namespace quandrel {
namespace {

using namespace testing;

class Readout : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        NewPlot();
        SetKind(kPrimaryLine, kLines);
        gConventions = 1;
        gPlaneSeparator = "/";
        gLineSeparator = "/";
    }

    static void SetKind(std::int16_t format, std::int16_t kind) {
        ActiveRecord().PrimaryFormat = format;
        ActiveRecord().DataKind = kind;
    }
};

/// A place east of the centre by the textbook formula of the equal area net.
double EastOf(double plunge) {
    return 1000 * std::sqrt(2) * std::sin((90 - plunge) / 2 * kPi / 180);
}

TEST_F(Readout, ALineIsToldInTheNotationInForce) {
    const struct {
        std::int16_t conventions;
        const char* separator;
        const char* text;
    } cases[] = {
        {1, "/", "30/090"},
        {11, "/", "090/30"},
        {1, "-", "30-090"},
        {-1, "/", "30/N90E"},
    };

    for (const auto& [conventions, separator, text] : cases) {
        gConventions = conventions;
        gLineSeparator = separator;
        EXPECT_EQ(ReadoutText(EastOf(30), 0), text);
    }
}

TEST_F(Readout, APlotThatUsesDecimalsHasOne) {
    ActiveRecord().UseDecimals = kTrue;
    // 90 - 2 asin(690.07 / 1414.21) is 31.58, atan(690 / 10) 89.17.
    EXPECT_EQ(ReadoutText(690, 10), "31.6/089.2");
    EXPECT_EQ(ReadoutText(0, EastOf(30)), "30.0/000.0");
    EXPECT_EQ(ReadoutText(-1, 999), "0.1/359.9");
    SetKind(kPrimaryPlane, kPlanes);
    EXPECT_EQ(ReadoutText(690, 10), "31.6/089.2  (Pole to Plane: 58.4/269.2)");
    ActiveRecord().UseDecimals = 0;
    EXPECT_EQ(ReadoutText(690, 10), "32/089  (Pole to Plane: 58/269)");
}

TEST_F(Readout, OverPlanesThePlaneOfThePoleFollows) {
    SetKind(kPrimaryPlane, kPlanes);
    EXPECT_EQ(ReadoutText(EastOf(30), 0), "30/090  (Pole to Plane: 60/270)");
    gConventions = kStrikeDipRightHand;
    EXPECT_EQ(ReadoutText(EastOf(30), 0), "30/090  (Pole to Plane: 180/60)");
}

TEST_F(Readout, OutsideTheNetThereIsNone) {
    EXPECT_NE(ReadoutText(600, 800), "");
    EXPECT_EQ(ReadoutText(600, 801), "");
    EXPECT_EQ(ReadoutText(1001, 0), "");
    gActivePlot = 0;
    EXPECT_EQ(ReadoutText(0, 0), "");
}

TEST_F(Readout, TheProjectionIsThatOfThePlot) {
    ActiveRecord().PlotKind = kEqualAngle;
    // Equal angle: a plunge of 30 lies at tan(30 degrees) of the radius.
    EXPECT_EQ(ReadoutText(1000 * std::tan(kPi / 6), 0), "30/090");
}

TEST_F(Readout, DensityDisplaysTellShareAndCount) {
    AddRow(30, 90);
    AddRow(32, 92); // close by
    AddRow(30, 270);
    AddRow(80, 0);
    AddRow(kErrorRow, 0);
    for (const std::int16_t mode :
         {kPointDensitySymbols, kGridDensitySymbols, kContours, kContoursAndGrid}) {
        ActiveRecord().PlotSymbolMode = mode;
        EXPECT_EQ(ReadoutText(EastOf(30), 0), "30/090  [50.00% : 2 data]") << mode;
        EXPECT_EQ(ReadoutText(0, EastOf(30)), "30/000  [0.00% : 0 data]") << mode;
    }
    for (const std::int16_t mode : {kGreatCircles, kPointSymbols, kBetaIntersections}) {
        ActiveRecord().PlotSymbolMode = mode;
        EXPECT_EQ(ReadoutText(EastOf(30), 0), "30/090") << mode;
    }
}

TEST_F(Readout, AGridOfNumbersTellsItsValue) {
    constexpr std::int16_t kByNumber = 1;
    AddRow(30, 90);
    PlotRecord& record = ActiveRecord();
    record.PlotSymbolMode = kGridDensitySymbols;
    record.GridSize = 20; // nodes 100 units apart, node 11 at 0
    record.ClassMode = kByNumber;
    const auto slot = static_cast<std::size_t>(gActivePlot);
    gGridValues[slot] = std::make_unique<GridValues>();
    for (auto& layer : *gGridValues[slot]) {
        for (auto& column : layer) {
            column.fill(kUnsetValue);
        }
        layer[18][11] = 12.5; // at (700, 0)
    }
    gGridCount[slot] = kTrue;
    // 90 - 2 asin(690.07 / 1414.21) is 31.6, atan(690 / 10) 89.2; 90 - 2 asin(700 / 1414.21)
    // is 30.7.
    EXPECT_EQ(ReadoutText(690, 10), "32/089  [100.00% : 12.50]");
    EXPECT_EQ(ReadoutText(-700, 0), "31/270  [0.00% : 0 data]"); // a node without a value
    gGridCount[slot] = 0;
}

TEST_F(Readout, ARoseTellsAzimuthSectorAndCount) {
    PlotRecord& record = ActiveRecord();
    record.RoseSectorSize = 10;
    for (const int trend : {41, 45, 50, 51, 225, 40}) { // 225 is 45 as an axis
        AddRow(0, trend);
    }
    record.PlotKind = kRose;
    ASSERT_TRUE(RoseCountSectors());
    ActiveRose().isCounted = true;
    EXPECT_EQ(ReadoutText(500, 500), "045  [40 to 50: 4 data]");
    EXPECT_EQ(ReadoutText(-500, -500), "225  [220 to 230: 4 data]");
    EXPECT_EQ(ReadoutText(-1, 999), "000  [350 to 360: 0 data]");
    EXPECT_EQ(ReadoutText(0, 0), "");
    EXPECT_EQ(ReadoutText(0, 1001), "");
    gConventions = -1;
    EXPECT_EQ(ReadoutText(500, 500), "N45E  [40 to 50: 4 data]");
    ActiveRose().isCounted = false;
    EXPECT_EQ(ReadoutText(500, 500), "N45E");
}

TEST_F(Readout, ARoseThatUsesDecimalsHasOneInItsAzimuth) {
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(ReadoutText(100, 690), "008");
    EXPECT_EQ(ReadoutText(-0.5, 999), "000");
    ActiveRecord().UseDecimals = kTrue;
    EXPECT_EQ(ReadoutText(100, 690), "008.2"); // atan(100 / 690) is 8.246
    EXPECT_EQ(ReadoutText(-500, -500), "225.0");
    EXPECT_EQ(ReadoutText(-0.5, 999), "000.0") << "359.97 is north";
    gConventions = -1;
    EXPECT_EQ(ReadoutText(500, 500), "N45E");
}

TEST_F(Readout, TheOddLastSectorKeepsItsSize) {
    PlotRecord& record = ActiveRecord();
    record.RoseSectorSize = 100; // sectors from north: to 100, then anticlockwise
    gRoseOddAsked = true;
    SetKind(kPrimaryLine, kPolarLines);
    AddRow(0, 150);
    record.PlotKind = kRose;
    ASSERT_TRUE(RoseCountSectors());
    ActiveRose().isCounted = true;
    // 0 to 100, 260 to 360, 160 to 260, and 100 to 160 remains.
    EXPECT_EQ(ReadoutText(500 * std::sin(150 * kPi / 180), 500 * std::cos(150 * kPi / 180)),
              "150  [100 to 160: 1 data]");
    EXPECT_EQ(ReadoutText(500, 1), "090  [0 to 100: 0 data]");
    gRoseOddAsked = false;
}

} // namespace
} // namespace quandrel
