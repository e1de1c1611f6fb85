// SPDX-License-Identifier: MIT
//
// Panels that take the present state of open plots.

#include "sheet/sheet_content.h"
#include "support/slotless_plots.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

FigureSheet SheetOf(const SheetPanel& panel) {
    FigureSheet sheet;
    sheet.panels = {panel};
    return sheet;
}

TEST(UpdatedFrom, KeepsTitlesAndSpansAndTakesThePlot) {
    Plot plot = SlotlessPlot(kEqualArea, kPointSymbols, 3);
    Result<SheetPanel> panel = PanelOfPlot(PanelKind::Plot, plot);
    ASSERT_TRUE(panel) << panel.Error();
    panel->title = "Beds";
    panel->columns = 2;
    plot.record.PlotKind = kEqualAngle;
    const Result<UpdatedSheet> updated = UpdatedFrom({&plot}, SheetOf(*panel));
    ASSERT_TRUE(updated) << updated.Error();
    EXPECT_TRUE(updated->unchanged.empty());
    const SheetPanel& now = updated->sheet.panels.at(0);
    EXPECT_NE(now.data, panel->data);
    EXPECT_EQ(now.data, PanelOfPlot(PanelKind::Plot, plot)->data);
    EXPECT_EQ(now.title, "Beds");
    EXPECT_EQ(now.columns, 2);
}

TEST(UpdatedFrom, LeavesPanelsWithoutTheirPlotOrWithTwo) {
    const Plot plot = SlotlessPlot(kEqualArea, kPointSymbols, 3);
    Plot same = SlotlessPlot(kEqualArea, kPointSymbols, 4);
    same.record.PlotTitle = plot.record.PlotTitle;
    same.record.FileTitle = plot.record.FileTitle;
    same.record.MainFiles = plot.record.MainFiles;
    const Result<SheetPanel> panel = PanelOfPlot(PanelKind::Plot, plot);
    ASSERT_TRUE(panel) << panel.Error();
    FigureSheet sheet = SheetOf(*panel);
    sheet.panels.push_back(PanelOfFile(PanelKind::Plot, "/none/of/them.qpx"));
    SheetPanel& text = sheet.panels.emplace_back();
    text.kind = PanelKind::Text;
    const Result<UpdatedSheet> updated = UpdatedFrom({&plot, &same}, sheet);
    ASSERT_TRUE(updated) << updated.Error();
    EXPECT_EQ(updated->unchanged, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(updated->sheet, sheet);
}

} // namespace
} // namespace quandrel
