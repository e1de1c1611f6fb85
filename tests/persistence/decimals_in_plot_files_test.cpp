// SPDX-License-Identifier: MIT
//
// Measured angles of every notation from text files to plot files and workspaces, and back.

#include "core/measured_rows.h"
#include "core/plot_life.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "persistence/workspace_file.h"
#include "support/decimal_lines.h"
#include "support/test_platform.h"

#include <algorithm>

namespace quandrel {
namespace {

class DecimalsInPlotFiles : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 1000);
    }

    int Load(const RowNotation& notation) {
        DecimalRows::Use(notation);
        const std::string path = WriteFile("in.txt", TextOf(RandomDecimalRows(notation)));
        EXPECT_EQ(OpenPlotFile(kNewCommand, path), kNewCommand);
        EXPECT_EQ(ActiveRecord().NumValidData, notation.rows);
        EXPECT_GT(CountRowsWithDecimals(ActivePlot().rows, 1, notation.rows),
                  notation.rows * 3 / 4);
        return gActivePlot;
    }

    static void ExpectSame(const Plot& plot, const Plot& expected) {
        ASSERT_EQ(plot.record.NumLoadedData, expected.record.NumLoadedData);
        for (std::int32_t row = 1; row <= expected.record.NumLoadedData; ++row) {
            for (const RowAngles which : kRowAngles) {
                ASSERT_EQ(WholeAttitude(plot.rows, which, row),
                          WholeAttitude(expected.rows, which, row))
                    << row;
                ASSERT_EQ(DecimalsOf(plot.rows, which, row), DecimalsOf(expected.rows, which, row))
                    << row;
            }
        }
    }
};

TEST_F(DecimalsInPlotFiles, OfEveryNotationComeBackTrial) {
    const std::string path = (folder / "saved.qpx").string();
    for (const RowNotation& notation : RowNotations()) {
        SCOPED_TRACE(notation.Name());
        const int slot = Load(notation);
        ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
        ASSERT_EQ(OpenPlotFile(kNewCommand, path), kBinaryCommand);
        ASSERT_NE(gActivePlot, slot);
        ExpectSame(ActivePlot(), PlotOf(slot));
        if (HasFailure()) {
            return;
        }
        ClosePlot(gActivePlot);
        ClosePlot(slot);
    }
}

TEST_F(DecimalsInPlotFiles, OfEveryNotationComeBackThroughAWorkspace) {
    const std::string workspace = (folder / "all.qwo").string();
    const std::vector<RowNotation> notations = CommonNotations();
    constexpr std::size_t kPlots = 5; // twice as many are open
    for (std::size_t first = 0; first < notations.size(); first += kPlots) {
        std::vector<int> slots;
        for (std::size_t i = first; i < std::min(first + kPlots, notations.size()); ++i) {
            slots.push_back(Load(notations[i]));
            const std::string name = "saved " + std::to_string(i) + ".qpx";
            ASSERT_EQ(SavePlotAs((folder / name).string(), SaveKind::SaveAs), SaveOutcome::Saved);
        }
        ASSERT_EQ(SaveWorkspaceAs(workspace), WorkspaceOutcome::Saved);
        ASSERT_EQ(OpenWorkspace(workspace), static_cast<int>(slots.size()));
        for (std::size_t i = 0; i < slots.size(); ++i) {
            const int opened = slots.back() + static_cast<int>(i) + 1;
            SCOPED_TRACE(notations[first + i].Name());
            ExpectSame(PlotOf(opened), PlotOf(slots[i]));
        }
        if (HasFailure()) {
            return;
        }
        MakeStoreTables();
    }
}

} // namespace
} // namespace quandrel
