// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "session/command_reasons.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class CommandReasons : public EngineTest {};

TEST_F(CommandReasons, BeginWithAPlot) {
    const ToolbarState state = StateOfToolbar();
    EXPECT_EQ(ReasonDisabled("mnuPlotRotate", state), "Open a plot first.");
    EXPECT_EQ(ReasonDisabled("mnuMapinfo_1", state), "No map session is linked.");
}

TEST_F(CommandReasons, SayWhatANetLacks) {
    NewPlot();
    const ToolbarState state = StateOfToolbar();
    EXPECT_EQ(ReasonDisabled("mnuPlotRotate", state), "The plot has no rows.");
    EXPECT_EQ(ReasonDisabled("mnuPlotSymbols_11", state),
              "The rows have no secondary orientations.");
    EXPECT_EQ(ReasonDisabled("mnuEditUndoRotation", state), "The last step was no rotation.");
    EXPECT_EQ(ReasonDisabled("mnuEditUndo", state), "There is nothing to undo.");
    EXPECT_EQ(ReasonDisabled("mnuEditSelection_1", state), "Nothing is selected.");
    EXPECT_EQ(ReasonDisabled("mnuHelpAbout", state), "");
}

TEST_F(CommandReasons, SayWhatRosesCannotDo) {
    NewPlot();
    AddRow(30, 120);
    ActiveRecord().PlotKind = kRose;
    const ToolbarState state = StateOfToolbar();
    EXPECT_EQ(ReasonDisabled("mnuPlotSymbols_5", state), "Not for rose diagrams.");
    EXPECT_EQ(ReasonDisabled("mnuViewDensities", state), "Not for rose diagrams.");
    EXPECT_EQ(ReasonDisabled("mnuViewRegions", state), "Not for rose diagrams.");
}

} // namespace
} // namespace quandrel
