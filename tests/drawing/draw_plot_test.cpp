// SPDX-License-Identifier: MIT

#include "drawing/draw_plot.h"
#include "drawing/legend.h"
#include "stereo/row_drawing.h"
#include "support/slotless_plots.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

constexpr int kGridSize = 20;

class DrawPlotTest : public EngineTest {
protected:
    static void WorkOut(Plot& plot) {
        WorkOutPlot(plot, {ReplotCause::Rows, gSettings.styles, Formulas::Own, kGridSize});
    }

    static std::string Drawn(const Plot& plot) { return DrawnText(plot, gSettings.styles); }
};

TEST_F(DrawPlotTest, DrawsAPlotThatHasNoSlot) {
    Plot plot = SlotlessPlot(kEqualArea, kContoursAndGrid, 7);
    WorkOut(plot);
    EXPECT_EQ(plot.record.GridSize, kGridSize);
    EXPECT_GT(plot.record.NumContours, 0);
    EXPECT_EQ(plot.record.RowsChanged, 0);
    const std::string drawn = Drawn(plot);
    EXPECT_NE(drawn.find("polyline"), std::string::npos) << "contours";
    EXPECT_NE(drawn.find("Data: Plot 7"), std::string::npos) << "the legend";
    EXPECT_EQ(CountOpenPlots(), 0) << "the store takes no part";
    EXPECT_EQ(status.Text(), "");
}

TEST_F(DrawPlotTest, DrawsARowsPictureOfAPlotThatNothingWasWorkedOutFor) {
    const Plot plot = SlotlessPlot(kEqualAngle, kBetaIntersections, 3);
    Plot workedOut = SlotlessPlot(kEqualAngle, kBetaIntersections, 3);
    (void)WorkOutBetaIntersections(workedOut, nullptr);
    EXPECT_EQ(Drawn(plot), Drawn(workedOut)) << "intersections are found for the drawing";
}

TEST_F(DrawPlotTest, DrawsTheSameAgainAndLeavesThePlotAlone) {
    for (const std::int16_t kind : {kEqualArea, kEqualAngle}) {
        for (std::int16_t mode = kGreatCircles; mode <= kContoursAndGrid; ++mode) {
            Plot plot = SlotlessPlot(kind, mode, 11);
            WorkOut(plot);
            const std::uint64_t version = plot.table.version;
            const std::string first = Drawn(plot);
            EXPECT_EQ(Drawn(plot), first) << mode;
            EXPECT_EQ(plot.table.version, version) << mode;
        }
    }
}

TEST_F(DrawPlotTest, TakesItsStylesAndFormulasFromTheDrawingAlone) {
    Plot plot = SlotlessPlot(kEqualArea, kContours, 5);
    WorkOut(plot);
    const Styles given = gSettings.styles;
    const std::string before = DrawnText(plot, given);
    for (std::uint32_t& colour : gSettings.styles.colours) {
        colour ^= 0xffffff;
    }
    gSettings.styles.plotAxesStyle = 3;
    gSettings.styles.showIsolatedPts = 1;
    gSettings.styles.fonts[kLegendFont].font.points *= 2;
    EXPECT_EQ(DrawnText(plot, given), before);
    EXPECT_NE(DrawnText(plot, gSettings.styles), before);
}

TEST_F(DrawPlotTest, LeavesOutTheCircleThatTheWindowPaintsAbove) {
    Plot plot = SlotlessPlot(kEqualArea, kPointSymbols, 5);
    plot.record.PlotSmallCircles =
        std::make_unique<std::remove_reference_t<decltype(*plot.record.PlotSmallCircles)>>();
    SmallCircle& circle = (*plot.record.PlotSmallCircles)[2];
    circle.AxisPl = "30";
    circle.AxisAz = "200";
    circle.Angle = "20";
    circle.Visible = kTrue;
    const auto drawn = [&plot](int circleAbove) {
        RecordingSurface net(500, 500);
        RecordingSurface legend(160, 400);
        Drawing drawing{net, legend, gSettings.styles};
        drawing.circleAbove = circleAbove;
        DrawPlot(plot, drawing);
        return net.Operations().size();
    };
    EXPECT_EQ(drawn(1), drawn(0)) << "another set";
    EXPECT_LT(drawn(2), drawn(0));
    EXPECT_EQ(circle.LastPlotSects, 0) << "a drawing notes nothing";
    WorkOut(plot);
    EXPECT_NE(circle.LastPlotSects, 0);
}

TEST_F(DrawPlotTest, ClassesOfNumbersAreDrawnFromTheirGrid) {
    Plot plot = SlotlessPlot(kEqualArea, kPointSymbols, 9);
    PlotRecord& record = plot.record;
    record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
    record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
    record.ClassTable[kLowestRow + 1][kNumberClasses] = 4.0;
    record.ClassTable[kTopRow][kNumberClasses] = 9.0;
    record.ClassMode = 1;
    record.NumClasses = 3;
    WorkOut(plot);
    EXPECT_NE(plot.gridCount, 0);
    EXPECT_EQ(record.NumClassified, 60);
    const std::vector<LegendLine> legend = LegendLines(plot, gSettings.styles, Formulas::Own);
    ASSERT_GT(legend.size(), 2U);
    EXPECT_EQ(legend[1].text, "Classified by: Thickness");
    EXPECT_NE(Drawn(plot).find("polyline"), std::string::npos);
}

/// Lists the groups that are begun, those within others in parentheses, and counts the operations
/// outside of all.
class GroupList : public RecordingSurface {
public:
    GroupList()
        : RecordingSurface(550, 550) {}

    void BeginGroup(std::string_view id, std::string_view title) override {
        groups += (open_ > 0 ? "(" : "") + std::string(id) + ": " + std::string(title)
                  + (open_ > 0 ? ")\n" : "\n");
        ++open_;
        starts_.push_back(Operations().size());
    }

    void EndGroup() override {
        --open_;
        named += open_ == 0 ? Operations().size() - starts_.back() : 0;
        starts_.pop_back();
    }

    std::string groups;
    std::size_t named = 0; ///< operations within groups

private:
    int open_ = 0;
    std::vector<std::size_t> starts_;
};

TEST_F(DrawPlotTest, NamesTheGroupsOfANet) {
    Plot plot = SlotlessPlot(kEqualArea, kContoursAndGrid, 7);
    plot.record.FileTitle = "beds.txt";
    WorkOut(plot);
    GroupList net;
    GroupList legend;
    DrawPlot(plot, {net, legend, gSettings.styles, DrawnFor::Paper});
    EXPECT_EQ(net.groups, "net: Net\ngrid-symbols: Grid densities\ncontours: Contours\n"
                          "overlay-1: Overlay 1\nannotations: Annotations\n"
                          "mean-direction: Mean direction\nuser-girdles: User girdles\n"
                          "girdles: Girdles\nsmall-circles: Small circles\n"
                          "regions: Confidence regions\naxes: Axes\n")
        << "one for each layer";
    EXPECT_EQ(net.named, net.Operations().size()) << "all that is drawn is in a group";
    EXPECT_EQ(legend.groups, "legend: Legend\n");
    EXPECT_EQ(legend.named, legend.Operations().size());
    EXPECT_GT(legend.named, 3U);
}

} // namespace
} // namespace quandrel
