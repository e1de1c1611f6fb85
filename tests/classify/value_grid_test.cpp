// SPDX-License-Identifier: MIT

#include "class_fixture.h"
#include "classify/class_settings.h"
#include "classify/classification.h"
#include "classify/column_statistics.h"
#include "classify/value_grid.h"
#include "core/plot_store.h"
#include "core/settings_value.h"
#include "density/class_grid.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "orientation/projection.h"
#include "stereo/window_drawing.h"

#include <cmath>
#include <random>
#include <set>

namespace quandrel {
namespace {

constexpr int kSize = 40;

class ValueGrid : public ClassTest {
protected:
    void TearDown() override {
        gSettings.gridSize = 50;
        ClassTest::TearDown();
    }

    /// Sixty lines with values 1 to 9, classes 2-4, 4-6, 6-8 with both excesses, on a grid.
    void MakePlot(ClassGridValue shown, double background) {
        std::mt19937 random(7);
        PlotRecord& record = ActiveRecord();
        record.HasAppendedNumeric = kTrue;
        for (int i = 0; i < 60; ++i) {
            AddRow(static_cast<int>(random() % 91), static_cast<int>(random() % 360));
            ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
            gAppNumeric.At(gActivePlot, record.NumData) = static_cast<float>(1 + random() % 9);
        }
        record.ClassMode = kClassesByNumber;
        record.ClassTable = TableOfRanges(kNumberClasses, {2, 4, 6, 8}, 3);
        record.ClassStats[kGridChoice] = {static_cast<double>(shown), background};
        gSettings.gridSize = kSize;
        ComputeGridDensity();
        ASSERT_NE(gGridCount[static_cast<std::size_t>(gActivePlot)], 0);
        FormOf(gActivePlot).PlotSurface().SetUserScale(kPlotScale);
        FormOf(gActivePlot).PlotSurface().Clear(kWhite);
    }

    static double ValueAt(GridLayer layer, int column, int row) {
        return (*gGridValues[static_cast<std::size_t>(
            gActivePlot)])[layer][static_cast<std::size_t>(column)][static_cast<std::size_t>(row)];
    }

    /// The class found by comparing with the limits one by one.
    static int ClassOf(double value) {
        return value < 2 ? 1 : value < 4 ? 2 : value < 6 ? 3 : value <= 8 ? 4 : 5;
    }

    /// The values at the corners of the cell that holds a segment's middle, unset ones as they are.
    static std::vector<double> CornersOf(const ContourSegment& segment, GridLayer layer) {
        const int step = GridStep(kSize);
        const double x = (segment.from.x + segment.to.x) / 2 + 1000 + step;
        const double y = (segment.from.y + segment.to.y) / 2 + 1000 + step;
        // A segment may run along a side of its cell.
        std::vector<double> corners;
        for (const double dx : {-1e-6, 1e-6}) {
            for (const double dy : {-1e-6, 1e-6}) {
                const int column = static_cast<int>(std::floor((x + dx) / step));
                const int row = static_cast<int>(std::floor((y + dy) / step));
                for (int i : {0, 1}) {
                    for (int j : {0, 1}) {
                        corners.push_back(ValueAt(layer, column + i, row + j));
                    }
                }
            }
        }
        return corners;
    }

    static std::vector<DrawOperation> Drawn() { return DrawnOn(Form(gActivePlot).Plot()); }
};

TEST_F(ValueGrid, ShowsTheClassOfEachNodeOnTheNetThatHasAValue) {
    for (const ClassGridValue shown : {ClassGridValue::Mean, ClassGridValue::Cumulative}) {
        NewPlot();
        MakePlot(shown, 0);
        const GridLayer layer = shown == ClassGridValue::Mean ? kMeanLayer : kCumulativeLayer;
        std::map<int, std::set<std::pair<double, double>>> expected;
        for (int column = 0; column < GridNodes(kSize); ++column) {
            for (int row = 0; row < GridNodes(kSize); ++row) {
                const double x = NodePosition(column, GridStep(kSize));
                const double y = NodePosition(row, GridStep(kSize));
                const double value = ValueAt(layer, column, row);
                if (value != kUnsetValue && std::hypot(x, y) <= 1000) {
                    expected[ClassOf(value)].insert({x, y});
                }
            }
        }
        ASSERT_GE(expected.size(), 4U);
        DrawValueGrid(ActivePlot(), WindowDrawing(gActivePlot));
        const auto drawn = Drawn();
        ASSERT_EQ(drawn.size(), expected.size());
        auto operation = drawn.begin();
        for (const auto& [classNumber, places] : expected) {
            std::set<std::pair<double, double>> found;
            for (const Point& place : operation->points) {
                found.insert({place.x, place.y});
            }
            EXPECT_EQ(found, places) << "class " << classNumber;
            EXPECT_EQ(operation->colour, TableColour(CodeColour(CodeOfClass(classNumber))));
            ++operation;
        }
    }
}

TEST_F(ValueGrid, IsContouredWhereClassesMeet) {
    MakePlot(ClassGridValue::Mean, 0);
    const auto contours = ValueContoursOf(ActivePlot());
    ASSERT_EQ(contours.size(), 4U);
    const double limits[] = {2, 4, 6, 8};
    for (std::size_t k = 0; k < contours.size(); ++k) {
        EXPECT_EQ(contours[k].classNumber, static_cast<int>(k) + 2);
        EXPECT_EQ(contours[k].limit, limits[k]);
        ASSERT_FALSE(contours[k].segments.empty());
        for (const ContourSegment& segment : contours[k].segments) {
            double least = 1e9;
            double greatest = -1e9;
            for (double corner : CornersOf(segment, kMeanLayer)) {
                corner = corner == kUnsetValue ? 0 : corner;
                least = std::min(least, corner);
                greatest = std::max(greatest, corner);
            }
            ASSERT_LE(least, limits[k]);
            ASSERT_GE(greatest, limits[k]);
        }
    }
}

TEST_F(ValueGrid, WithoutABackgroundHasNoContourAboutEmptyNodes) {
    MakePlot(ClassGridValue::Mean, kUnsetValue);
    std::size_t segments = 0;
    for (const ValueContour& contour : ValueContoursOf(ActivePlot())) {
        segments += contour.segments.size();
        for (const ContourSegment& segment : contour.segments) {
            ASSERT_TRUE(
                std::isfinite(segment.from.x + segment.from.y + segment.to.x + segment.to.y));
        }
    }
    EXPECT_GT(segments, 0U);
    ActiveRecord().ClassStats[kGridChoice][kBackground] = 0;
    std::size_t withBackground = 0;
    for (const ValueContour& contour : ValueContoursOf(ActivePlot())) {
        withBackground += contour.segments.size();
    }
    EXPECT_GT(withBackground, segments);
}

TEST_F(ValueGrid, DrawsContoursInTheColoursOfTheirClasses) {
    MakePlot(ClassGridValue::Cumulative, 0);
    TraceContoursClassified();
    std::set<std::uint32_t> colours;
    for (const DrawOperation& operation : Drawn()) {
        EXPECT_EQ(operation.kind, DrawOperation::Kind::Polyline);
        EXPECT_EQ(operation.state.drawStyle, kSolidLine);
        colours.insert(ColourValue(operation.colour));
    }
    std::set<std::uint32_t> expected;
    for (int c = 2; c <= 5; ++c) {
        expected.insert(ColourValue(TableColour(CodeColour(CodeOfClass(c)))));
    }
    EXPECT_EQ(colours, expected);
}

TEST_F(ValueGrid, GivesRangesTheirLimits) {
    MakePlot(ClassGridValue::Mean, 0);
    for (const ClassGridValue which : {ClassGridValue::Mean, ClassGridValue::Cumulative}) {
        const std::optional<ValueRange> range = RangeOfGridValues(which);
        ASSERT_TRUE(range);
        ClassSettings chosen = SettingsOfActivePlot();
        chosen.plotType = kGriddedValues;
        chosen.gridValue = which;
        ASSERT_EQ(FillRanges(chosen, RangeProcedure::EqualRanges, 4), "");
        EXPECT_NEAR(chosen.numbers.limits.limits[0], range->least, 1e-9);
        EXPECT_NEAR(chosen.numbers.limits.top, range->greatest, 1e-9);
        EXPECT_EQ(ProcedureOfRanges(chosen), RangeProcedure::EqualRanges);
        // Every node has a class, and the top class is not only for sums.
        ASSERT_EQ(ApplyClassSettings(chosen), "");
        ComputeGridDensity();
        std::vector<bool> classes = ClassesOfValueNodes(ActivePlot());
        ASSERT_EQ(classes.size(), 7U) << "both excesses are kept";
        EXPECT_TRUE(classes[2] && classes[5]) << "from the lowest to the highest";
    }
    ClassSettings sums = SettingsOfActivePlot();
    EXPECT_GT(sums.numbers.limits.top, 9) << "above any single value";
    sums.plotType = kContoursWithDataPoints;
    ASSERT_EQ(FillRanges(sums, RangeProcedure::EqualRanges, 4), "");
    EXPECT_EQ(sums.numbers.limits.limits[0], 1) << "the points count too";
    sums.plotType = kClassifiedPoints;
    ASSERT_EQ(FillRanges(sums, RangeProcedure::EqualRanges, 4), "");
    EXPECT_EQ(sums.numbers.limits.top, 9);
}

TEST_F(ValueGrid, OfAPlotThatIsNotClassifiedByNumbersIsNothing) {
    MakePlot(ClassGridValue::Mean, 0);
    ActiveRecord().ClassMode = kClassesByName;
    DrawValueGrid(ActivePlot(), WindowDrawing(gActivePlot));
    TraceContoursClassified();
    EXPECT_TRUE(Drawn().empty());
}

} // namespace
} // namespace quandrel
