// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/row_positions.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class RowPositions : public EngineTest {};

TEST_F(RowPositions, EveryWholeDegreePlaneFallsWhereThePoleByVectorsFalls) {
    for (const int kind : {1, 2}) {
        for (int dip = -90; dip <= 90; dip += 3) {
            for (int azimuth = 0; azimuth <= 360; azimuth += 5) {
                const PlottedRow row = PlottedOrientation(kind, true, 1, {dip, azimuth});
                double plunge = 0;
                double trend = 0;
                PoleOfPlane(DegToRad(dip), DegToRad(azimuth), plunge, trend);
                std::int16_t x = 0;
                std::int16_t y = 0;
                ProjectPointInt(kind, plunge, trend, x, y);
                ASSERT_NEAR(row.x, x, dip == 90 || dip == -90 ? 1 : 0) << dip << '/' << azimuth;
                ASSERT_NEAR(row.y, y, dip == 90 || dip == -90 ? 1 : 0) << dip << '/' << azimuth;
                ASSERT_NEAR(row.plunge, plunge, 1e-12);
                ASSERT_NEAR(std::cos(row.trend), std::cos(trend), 1e-12);
                ASSERT_NEAR(std::sin(row.trend), std::sin(trend), 1e-12);
            }
        }
    }
}

TEST_F(RowPositions, ALineStandsAsItIsAndKeepsItsSense) {
    const PlottedRow row = PlottedOrientation(1, false, 4, {-30, 50});
    EXPECT_EQ(row.index, 4);
    EXPECT_NEAR(row.plunge, DegToRad(-30), 1e-15);
    const PlottedRow mirror = PlottedOrientation(1, false, 4, {30, 50});
    EXPECT_EQ(row.x, mirror.x);
    EXPECT_EQ(row.y, mirror.y);
}

TEST_F(RowPositions, WhatCannotBePlottedIsAnErrorRow) {
    for (const Attitude shown : {Attitude{kErrorRow, 0}, Attitude{91, 0}, Attitude{10, 361},
                                 Attitude{10, -1}, Attitude{10, kErrorRow}}) {
        EXPECT_TRUE(IsErrorRow(PlottedOrientation(1, true, 1, shown).plunge)) << shown.dip;
    }
}

TEST_F(RowPositions, OneRuleTellsWhichRowsAreDrawnAsPoles) {
    struct Case {
        std::int16_t primary, secondary, showSecondary, dataKind;
        bool asPole;
    };

    const std::vector<Case> cases = {
        {kPrimaryPlane, 0, 0, kPlanes, true},
        {kPrimaryPlane, 0, 0, kLines, true},
        {kPrimaryLine, 0, 0, kLines, false},
        {kPrimaryLine, 0, 0, kPlanes, true},
        {kPrimaryLine, 0, 0, kPolarLines, false},
        {kPrimaryPlane, kSecondaryLine, -1, kLines, false},
        {kPrimaryLine, kSecondaryPlane, -1, kLines, true},
        {kDirections, 0, 0, kPolarLines, false},
    };
    for (const Case& c : cases) {
        PlotRecord record;
        record.PrimaryFormat = c.primary;
        record.SecondaryFormat = c.secondary;
        record.ShowSecondary = c.showSecondary;
        record.DataKind = c.dataKind;
        EXPECT_EQ(IsPlottedAsPole(record, 0), c.asPole) << c.primary << c.dataKind;
    }
    PlotRecord record;
    record.OverlayKind = {0, 0, 1, 2, 3};
    EXPECT_TRUE(IsPlottedAsPole(record, 1));
    EXPECT_TRUE(IsPlottedAsPole(record, 2));
    EXPECT_FALSE(IsPlottedAsPole(record, 3));
    EXPECT_FALSE(IsPlottedAsPole(record, 4));
}

TEST_F(RowPositions, OverlaysAreRangesOfPointIndices) {
    PlotRecord record;
    record.NumData = 10;
    record.OverlayRows = {3, 4, 0, 2};
    EXPECT_EQ(FirstRowOfOverlay(record, 1), 11);
    EXPECT_EQ(FirstRowOfOverlay(record, 3), 15);
    EXPECT_EQ(OverlayOfRow(record, 10), 0);
    EXPECT_EQ(OverlayOfRow(record, 11), 1);
    EXPECT_EQ(OverlayOfRow(record, 14), 1);
    EXPECT_EQ(OverlayOfRow(record, 15), 3);
    EXPECT_EQ(OverlayOfRow(record, 16), 3);
}

TEST_F(RowPositions, RebuildingTakesTheSetThatIsShown) {
    NewPlot();
    PlotRecord& record = ActiveRecord();
    record.SecondaryFormat = kSecondaryLine;
    for (int i = 0; i < 2; ++i) {
        AddRow(60, 90);
    }
    int secondary = 1;
    GrowDataColumns(secondary, 2);
    gData2Dip.At(gActivePlot, 1) = 20;
    gData2Az.At(gActivePlot, 1) = 45;
    gData2Dip.At(gActivePlot, 2) = kErrorRow;
    record.ShowSecondary = kTrue;
    record.DataKind = kLines;
    record.RowsChanged = 0;
    RebuildRowTable(gActivePlot);
    EXPECT_NEAR(TableOf(gActivePlot).plunge[0], DegToRad(20), 1e-15);
    EXPECT_TRUE(IsErrorRow(TableOf(gActivePlot).plunge[1]));
    EXPECT_NE(record.RowsChanged, 0);
    record.ShowSecondary = 0;
    record.DataKind = kPlanes;
    RebuildRowTable(gActivePlot);
    EXPECT_NEAR(TableOf(gActivePlot).plunge[1], DegToRad(30), 1e-15);
}

} // namespace
} // namespace quandrel
