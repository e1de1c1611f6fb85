// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "density/contours.h"
#include "density/grid_geometry.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <array>
#include <cmath>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;

class Contours : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gShowIsolatedPts = 0;
        NewPlot();
    }

    /// Rows, and a grid with a hill of counts: 0 to `most` from its foot 600 units from the centre
    /// to its top.
    static void MakeHill(int rows, int most) {
        for (int row = 0; row < rows; ++row) {
            AddRow(row % 90, 4 * row % 360);
        }
        PlotRecord& record = ActiveRecord();
        record.GridSize = 50;
        record.DensityGrid = std::make_unique<Table<std::int32_t, kGridNodes, kGridNodes>>();
        const int step = GridStep(50);
        for (int i = 0; i < GridNodes(50); ++i) {
            for (int j = 0; j < GridNodes(50); ++j) {
                const double r = std::hypot(NodePosition(i, step), NodePosition(j, step));
                (*record.DensityGrid)[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] =
                    static_cast<std::int32_t>(std::max(0.0, std::round(most * (1 - r / 600))));
            }
        }
        record.GridDensityMax = static_cast<float>(100.0 * most / rows);
    }

    static const RecordingSurface& Net() { return Form(gActivePlot).Plot(); }

    static std::vector<DrawOperation> Trace() {
        FormOf(gActivePlot).PlotSurface().Clear(kWhite);
        TraceContours();
        return DrawnOn(Net());
    }
};

TEST_F(Contours, AreFoundAtTheDoublingLevelsOfTheGrid) {
    MakeHill(60, 12); // up to 20%
    Trace();
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.NumContours, 4);
    EXPECT_EQ(record.ContourLevels, (std::array<std::int16_t, 9>{2, 4, 8, 16}));
}

TEST_F(Contours, StandWhereTheGridHasTheirDensity) {
    MakeHill(200, 100); // up to 50%, whole counts are half per cents
    Trace();
    const auto contours = ContoursOf(ActivePlot());
    ASSERT_EQ(contours.size(), 6U);
    for (const LevelContour& contour : contours) {
        ASSERT_FALSE(contour.segments.empty());
        for (const ContourSegment& segment : contour.segments) {
            const double density = 50 * (1 - std::hypot(segment.from.x, segment.from.y) / 600);
            // Half a count below the level; half a count for rounding, and one cell, whose lower
            // end may lie beyond the foot.
            EXPECT_NEAR(density, contour.level - 0.25, 1.1);
        }
    }
}

TEST_F(Contours, RunHalfWayBetweenWholeCountsAndKeepTheirNames) {
    // 2% of 60 rows are 1.2 of them: nodes of 2 lie inside, nodes of 1 do not.
    MakeHill(60, 12);
    Trace();
    const auto contours = ContoursOf(ActivePlot());
    ASSERT_EQ(contours.size(), 4U);
    const std::array<double, 4> counts = {1.5, 2.5, 4.5, 9.5}; // 1.2, 2.4, 4.8, 9.6 rounded up
    const std::array<std::int16_t, 4> names = {2, 4, 8, 16};
    const int step = GridStep(50);
    for (std::size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(contours[k].level, names[k]);
        // On a side between two nodes the height changes in proportion to the distance.
        for (const ContourSegment& segment : contours[k].segments) {
            const double column = (segment.from.x - NodePosition(0, step)) / step;
            const double row = (segment.from.y - NodePosition(0, step)) / step;
            if (column != std::floor(column)) {
                continue;
            }
            const auto& counted = (*ActiveRecord().DensityGrid)[static_cast<std::size_t>(column)];
            const auto below = static_cast<std::size_t>(row);
            const double along = row - std::floor(row);
            EXPECT_NEAR(counted[below] * (1 - along) + counted[below + 1] * along, counts[k], 1e-6);
        }
    }
}

TEST_F(Contours, LeaveOutSpecks) {
    MakeHill(60, 12);
    const std::size_t lines = Trace().size();
    const auto at = [](int place) { return static_cast<std::size_t>(place); };
    (*ActiveRecord().DensityGrid)[at(45)][at(26)] = 2; // a node alone, 760 east
    EXPECT_EQ(Trace().size(), lines);
    for (int i = 44; i <= 46; ++i) {
        for (int j = 25; j <= 27; ++j) {
            (*ActiveRecord().DensityGrid)[at(i)][at(j)] = 2;
        }
    }
    EXPECT_EQ(Trace().size(), lines + 1) << "nine nodes are not a speck";
}

TEST_F(Contours, AreDrawnFromTheLowestLevelEachInItsStyle) {
    MakeHill(60, 12);
    gSettings.styles.contours[1] = {7, kDashedLine, 3};
    const auto drawn = Trace();
    ASSERT_EQ(drawn.size(), 4U) << "a closed line for each level";
    const auto contours = ContoursOf(ActivePlot());
    for (std::size_t k = 0; k < drawn.size(); ++k) {
        EXPECT_EQ(drawn[k].kind, Kind::Polyline);
        EXPECT_EQ(drawn[k].colour, TableColour(gSettings.styles.contours[k][kStyleColour]));
        EXPECT_EQ(drawn[k].state.drawStyle, gSettings.styles.contours[k][kStyleLine]);
        EXPECT_EQ(drawn[k].state.drawWidth, gSettings.styles.contours[k][kStyleWidth]);
        EXPECT_EQ(drawn[k].points.size(), contours[k].segments.size() + 1);
        EXPECT_EQ(drawn[k].points.front(), drawn[k].points.back());
    }
}

TEST_F(Contours, LeaveTheSurfaceAsItWas) {
    MakeHill(60, 12);
    gSettings.styles.contours[3] = {7, kDottedLine, 4};
    const DrawState before = FormOf(gActivePlot).PlotSurface().State();
    Trace();
    EXPECT_EQ(FormOf(gActivePlot).PlotSurface().State(), before);
}

TEST_F(Contours, AreTheSameInTwoDrawings) {
    MakeHill(60, 12);
    const auto first = Trace();
    const auto second = Trace();
    ASSERT_EQ(first.size(), second.size());
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].points, second[i].points);
    }
}

TEST_F(Contours, NeedALevelWithinTheGrid) {
    MakeHill(60, 1); // one row of 60 is less than the first level, 2%
    EXPECT_TRUE(Trace().empty());
    EXPECT_EQ(ActiveRecord().NumContours, 0);
}

TEST_F(Contours, NeedRows) {
    MakeHill(60, 12);
    ClearRowTable(TableOf(gActivePlot));
    EXPECT_TRUE(Trace().empty());
    EXPECT_EQ(ActiveRecord().NumContours, 0);
}

TEST_F(Contours, NeedAGrid) {
    MakeHill(60, 12);
    ActiveRecord().DensityGrid.reset();
    EXPECT_TRUE(Trace().empty());
    MakeHill(60, 12);
    for (const int gridSize : {0, -5, 151}) {
        ActiveRecord().GridSize = static_cast<std::int16_t>(gridSize);
        EXPECT_TRUE(Trace().empty()) << gridSize;
    }
}

TEST_F(Contours, CountTheRowsOfTheTableAndNotTheFaultsBehindThem) {
    MakeHill(60, 12);
    ActiveRecord().NumValidData = 30; // two axes per fault
    Trace();
    EXPECT_EQ(ActiveRecord().ContourLevels[0], 2) << "100 / 60 rounded up, not 100 / 30";
    AddRow(kErrorRow, kErrorRow);
    Trace();
    EXPECT_EQ(ActiveRecord().ContourLevels[0], 2);
}

TEST_F(Contours, EndOnThePrimitive) {
    MakeHill(60, 12);
    for (auto& column : *ActiveRecord().DensityGrid) {
        for (std::size_t j = 0; j < column.size(); ++j) {
            column[j] = static_cast<std::int16_t>(j / 5);
        }
    }
    ActiveRecord().GridDensityMax = 17;
    const auto drawn = Trace();
    ASSERT_EQ(drawn.size(), 4U);
    for (const DrawOperation& line : drawn) {
        EXPECT_NEAR(std::hypot(line.points.front().x, line.points.front().y), 1000, 1e-9);
        EXPECT_NEAR(std::hypot(line.points.back().x, line.points.back().y), 1000, 1e-9);
    }
}

TEST_F(Contours, BeyondTheSixthLevelTakeTheLastStyle) {
    EXPECT_EQ(ContourStyleOf(gSettings.styles, 5), gSettings.styles.contours[5]);
    EXPECT_EQ(ContourStyleOf(gSettings.styles, 6), gSettings.styles.contours[5]);
    EXPECT_EQ(ContourStyleOf(gSettings.styles, 8), gSettings.styles.contours[5]);
}

TEST_F(Contours, OfTheFirstSixLevelsAreToldApartByColour) {
    for (std::size_t i = 0; i < gSettings.styles.contours.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_NE(gSettings.styles.contours[i][kStyleColour],
                      gSettings.styles.contours[j][kStyleColour]);
        }
    }
}

TEST_F(Contours, ShowIsolatedRowsOnDemand) {
    MakeHill(60, 12);
    for (int row = 1; row <= 60; ++row) {
        gPointDensity.At(gActivePlot, row) = row == 7 || row == 9 ? 1 : 3;
    }
    AddRow(kErrorRow, kErrorRow);
    AddOverlay(kOverlayPoles, 10, 10, CodeOfStyleRow(3));
    gPointDensity.At(gActivePlot, 61) = 1;
    gPointDensity.At(gActivePlot, 62) = 1;
    EXPECT_EQ(Trace().size(), 4U);
    gShowIsolatedPts = 1;
    const auto drawn = Trace();
    ASSERT_EQ(drawn.size(), 5U);
    const RowTable& table = TableOf(gActivePlot);
    EXPECT_EQ(drawn[4].kind, Kind::Markers);
    EXPECT_EQ(drawn[4].colour, TableColour(gSymbolTable[kFirstBandSymbol][kPlaceColour]));
    const auto at = [&table](std::size_t place) {
        return Point{static_cast<double>(table.x[place]), static_cast<double>(table.y[place])};
    };
    EXPECT_EQ(drawn[4].points, (std::vector<Point>{at(6), at(8)}));
}

TEST_F(Contours, HideIsolatedRowsWithoutASymbol) {
    MakeHill(60, 1);
    gShowIsolatedPts = 1;
    gPointDensity.At(gActivePlot, 7) = 1;
    ASSERT_EQ(Trace().size(), 1U) << "isolated rows need no contours";
    gDataSymbol.At(gActivePlot, 7) = MakeSymbolCode(5, 0, 2);
    EXPECT_TRUE(Trace().empty());
}

TEST_F(Contours, OfAQuickStepLeaveTheStatusLineAlone) {
    MakeHill(60, 12);
    status.SetText("as it was");
    Trace();
    EXPECT_EQ(status.Text(), "as it was");
    EXPECT_FALSE(status.ProgressIsShown());
}

} // namespace
} // namespace quandrel
