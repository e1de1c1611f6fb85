// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "drawing/legend.h"
#include "orientation/angles.h"
#include "statistics/axis_statistics.h"
#include "statistics/statistics_texts.h"
#include "stereo/legend_line.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace quandrel {
namespace {

struct AxisRow {
    std::int32_t plunge;
    std::int32_t trend;
    const char* text;
};

class AxisStatisticsTest : public EngineTest {
protected:
    int NewAxisPlot(const std::vector<AxisRow>& rows, const char* title) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        const int slot = NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PrimaryFormat = kPrimaryLine;
        record.DataKind = kPolarLines;
        record.AxesTitle = title;
        record.AppNonNumName = kAxisColumn;
        record.HasAppendedText = kTrue;
        for (const AxisRow& row : rows) {
            AddRow(row.plunge, row.trend);
            EXPECT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
            gAppText.Set(slot, record.NumData, row.text);
        }
        ReplotActivePlot(true);
        return slot;
    }

    std::string Box(PlotBox box) const { return Form(gActivePlot).Told(box); }
};

/// P steep, T level to the east and west: two fans of three, 20 degrees apart about 80/000 and
/// 0/090. The T axes between them have their mean line at 0/090 by symmetry.
const std::vector<AxisRow> kFans = {{60, 0, "P 1"}, {0, 70, "T 1"},   {80, 0, "P 2"},
                                    {0, 90, "T 2"}, {80, 180, "P 3"}, {0, 110, "T 3"}};

TEST_F(AxisStatisticsTest, AreThoseOfEachKindAlone) {
    std::vector<AxisRow> shortening;
    std::vector<AxisRow> extension;
    for (const AxisRow& row : kFans) {
        (row.text[0] == 'P' ? shortening : extension).push_back(row);
    }
    NewAxisPlot(shortening, "P");
    const auto first = ActiveRecord().EigenResults;
    const float firstMean = ActiveRecord().FabricValueA;
    NewAxisPlot(extension, "T");
    const auto second = ActiveRecord().EigenResults;
    NewAxisPlot(kFans, "P & T");
    EXPECT_EQ(ActiveRecord().EigenResults, first) << "the record holds those of P";
    EXPECT_EQ(ActiveRecord().FabricValueA, firstMean);
    const AxisStatistics p = StatisticsOfAxes(AxisKind::Shortening);
    const AxisStatistics t = StatisticsOfAxes(AxisKind::Extension);
    EXPECT_EQ(p.record.EigenResults, first);
    EXPECT_EQ(t.record.EigenResults, second);
    EXPECT_EQ(p.record.NumValidData, 3);
    EXPECT_EQ(t.record.NumValidData, 3);
    // By symmetry: a fan in the vertical plane through north about 80/000, one in the level plane
    // about 0/090; their poles are 0/090 and 90.
    EXPECT_NEAR(RadToDeg(FabricAxis(p.record, 3).plunge), 80, 0.01);
    EXPECT_NEAR(RadToDeg(FabricAxis(t.record, 3).trend), 90, 0.01);
    EXPECT_NEAR(RadToDeg(FabricAxis(t.record, 1).plunge), 90, 0.01);
}

TEST_F(AxisStatisticsTest, OfExtensionTakeLevelAndMarkedAxesAlike) {
    // Unit vectors of the lower ends, added up: a level axis cannot carry the mark of the others.
    const std::vector<AxisRow> rows = {{-40, 30, "T 1"}, {0, 60, "T 2"}, {-20, 45, "T 3"}};
    double north = 0;
    double east = 0;
    double down = 0;
    for (const AxisRow& row : rows) {
        const double plunge = DegToRad(std::abs(row.plunge));
        const double trend = DegToRad(row.trend);
        north += std::cos(plunge) * std::cos(trend);
        east += std::cos(plunge) * std::sin(trend);
        down += std::sin(plunge);
    }
    const double length = std::sqrt(north * north + east * east + down * down);
    NewAxisPlot(rows, "T");
    const PlotRecord& record = ActiveRecord();
    EXPECT_NEAR(1 - static_cast<double>(record.FabricValueF), length / 3, 1e-6);
    EXPECT_NEAR(static_cast<double>(record.FabricValueA), std::asin(down / length), 1e-6);
    EXPECT_NEAR(static_cast<double>(record.FabricValueB), std::atan2(east, north), 1e-6);
}

TEST_F(AxisStatisticsTest, StandApartInBothBoxesAndTheLegend) {
    NewAxisPlot(kFans, "P & T");
    const std::string normal = Box(PlotBox::StatsNormal);
    EXPECT_TRUE(normal.starts_with("P shortening axes\r\nNo. of Data = 3\r\n"
                                   "Mean Principal Direction = 80"))
        << normal;
    const std::size_t second = normal.find("\r\n\r\nT extension axes\r\nNo. of Data = 3\r\n");
    ASSERT_NE(second, std::string::npos) << normal;
    EXPECT_NE(normal.find("Calculated. girdle: ", second), std::string::npos);
    EXPECT_NE(normal.find("Calculated beta axis: ", second), std::string::npos);
    const std::string advanced = Box(PlotBox::StatsAdvanced);
    EXPECT_TRUE(advanced.starts_with("P shortening axes\r\nPrincipal Eigenvector: 80.00"))
        << advanced;
    EXPECT_NE(advanced.find("T extension axes\r\nPrincipal Eigenvector: 0.00 - 90.00"),
              std::string::npos)
        << advanced;
    std::vector<std::string> texts;
    for (const LegendLine& line :
         LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas)) {
        texts.push_back(line.text);
    }
    ASSERT_EQ(texts.size(), 9U);
    EXPECT_EQ(texts[1], "P Shortening axes");
    EXPECT_EQ(texts[2], "n = 3");
    EXPECT_TRUE(texts[3].starts_with("principal axis 80")) << texts[3];
    EXPECT_TRUE(texts[4].starts_with("girdle ")) << texts[4];
    EXPECT_EQ(texts[5], "T Extension axes");
    EXPECT_TRUE(texts[7].starts_with("principal axis ")) << texts[7];
}

TEST_F(AxisStatisticsTest, SayThatTheSenseWasAssumed) {
    NewAxisPlot(kFans, "P & T");
    ActiveRecord().AppNonNumName = AxisColumnName(SlipSense::Reverse);
    ReplotActivePlot(true);
    for (const PlotBox box : {PlotBox::StatsNormal, PlotBox::StatsAdvanced}) {
        EXPECT_TRUE(
            Box(box).starts_with("(sense assumed: the hanging walls moved up)\r\nP shortening"))
            << Box(box);
    }
    EXPECT_EQ(LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas).back().text,
              "sense assumed");
}

TEST_F(AxisStatisticsTest, OfAnAxisWithoutRowsAreItsNumberAlone) {
    NewAxisPlot({{-60, 10, "T 1"}, {-70, 10, "T 2"}}, "P & T");
    const std::string normal = Box(PlotBox::StatsNormal);
    EXPECT_TRUE(normal.starts_with("P shortening axes\r\nNo. of Data = 0\r\n\r\nT extension axes"
                                   "\r\nNo. of Data = 2\r\n"))
        << normal;
}

/// Axes of plots from before texts named them.
TEST_F(AxisStatisticsTest, WithoutTextsGoByTheSignOfThePlunge) {
    const int slot = NewAxisPlot({{60, 10, ""}, {-30, 190, ""}, {0, 5, ""}, {0, 95, ""}}, "P & T");
    gDataSymbolBase.At(slot, 3) = CodeOfStyleRow(kDerivedSymbol);
    gDataSymbolBase.At(slot, 4) = CodeOfStyleRow(kDerivedUpSymbol);
    EXPECT_EQ(AxisOfRow(PlotOf(slot), gSettings.styles, 1), AxisKind::Shortening);
    EXPECT_EQ(AxisOfRow(PlotOf(slot), gSettings.styles, 2), AxisKind::Extension);
    EXPECT_EQ(AxisOfRow(PlotOf(slot), gSettings.styles, 3), AxisKind::Shortening);
    EXPECT_EQ(AxisOfRow(PlotOf(slot), gSettings.styles, 4), AxisKind::Extension);
}

} // namespace
} // namespace quandrel
