// SPDX-License-Identifier: MIT
//
// Plots with a choice of formulas of their own beside plots that follow the preferences.

#include "core/plot_formulas.h"
#include "core/replot.h"
#include "edit/commands/edit_menu.h"
#include "edit/history/undo.h"
#include "edit/rows/add_point.h"
#include "input/file_loading.h"
#include "orientation/angles.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "persistence/workspace_file.h"
#include "platform/scripted/recording_printer.h"
#include "print/print_run.h"
#include "session/recalculate.h"
#include "session/reference.h"
#include "session/start.h"
#include "session/window_state.h"
#include "statistics/confidence_cone.h"
#include "statistics/fabric_kernels.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

class PlotFormulas : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        gPlatform.printers = &printer;
    }

    /// The doubled angles of its lines are symmetric about 90 degrees, so that their cosines sum to
    /// 0: the mean is 090-270 by the program's own definition, 045-225 by atan2.
    int NewRose() {
        const int slot = NewPlot();
        ActiveRecord().PlotKind = kRose;
        ActiveRecord().LayerVisible.fill(kTrue);
        for (const std::int32_t azimuth : {40, 45, 50}) {
            AddRow(10, azimuth);
        }
        ReplotActivePlot(true);
        return slot;
    }

    /// Lines about the vertical, 12 degrees wide to the north and 4 to the east. They are symmetric
    /// about their axis by the program's own test, and not by the textbook's.
    int NewEllipse() {
        const int slot = NewPlot();
        for (int i = 0; i < 24; ++i) {
            const double north = 12 * std::cos(DegToRad(15.0 * i));
            const double east = 4 * std::sin(DegToRad(15.0 * i));
            AddRow(static_cast<std::int32_t>(std::lround(90 - std::hypot(north, east))),
                   static_cast<std::int32_t>(
                       std::lround(RadToDeg(WrappedAngle(std::atan2(east, north))))));
        }
        ReplotActivePlot(true);
        return slot;
    }

    /// The operations of a plot in its window.
    static std::string WindowOf(int slot) {
        std::string lines;
        for (const DrawOperation& operation : DrawnOn(Form(slot).Plot())) {
            lines += OperationText(operation) + "\n";
        }
        return lines;
    }

    /// Prints a plot, and returns the operations of its page.
    std::string PageOf(int slot) {
        PrintLayout layout;
        layout.paper = printer.paper;
        SelectPlot(layout, slot);
        EXPECT_EQ(PrintSelectedPlots(layout.plots), PrintOutcome::Printed);
        std::string lines;
        for (const RecordedPart& part : printer.pages.back().parts) {
            for (const DrawOperation& operation : part.surface.Operations()) {
                lines += OperationText(operation) + "\n";
            }
        }
        return lines;
    }

    static std::string BoxOf(int slot, PlotBox box = PlotBox::StatsNormal) {
        return Form(slot).Told(box);
    }

    static bool IsOwnRose(int slot) {
        return BoxOf(slot).find("= 090-270\r\n(textbook: 045-225)\r\n") != std::string::npos
               && RecordOf(slot).RoseMeanDir[kOfAngles] == kPi / 2;
    }

    static bool IsTextbookRose(int slot) {
        return BoxOf(slot).find("= 045-225\r\n") != std::string::npos
               && BoxOf(slot).find("(textbook:") == std::string::npos
               && std::abs(RecordOf(slot).RoseMeanDir[kOfAngles] - kPi / 4) < 1e-9;
    }

    RecordingPrinter printer;
};

TEST_F(PlotFormulas, ChangeTheResultsOfOnePlotWhicheverIsInFocus) {
    const int first = NewRose();
    const int second = NewRose();
    EXPECT_TRUE(IsOwnRose(first));
    UsePlotFormulas(first, kTextbookFormulas);
    EXPECT_EQ(gActivePlot, second);
    EXPECT_TRUE(IsTextbookRose(first)) << BoxOf(first);
    EXPECT_TRUE(IsOwnRose(second)) << BoxOf(second);
    EXPECT_EQ(FormulasInForce(RecordOf(first)), Formulas::Textbook);
    EXPECT_EQ(gSettings.notation.formulas, Formulas::Own);
    UsePlotFormulas(first, kFormulasOfPreferences);
    EXPECT_TRUE(IsOwnRose(first)) << BoxOf(first);
}

TEST_F(PlotFormulas, AreThoseOfTheArrowOfTheMean) {
    const int slot = NewRose();
    UsePlotFormulas(slot, kTextbookFormulas);
    const std::string ofChoice = WindowOf(slot);
    UsePlotFormulas(slot, kFormulasOfPreferences);
    EXPECT_NE(WindowOf(slot), ofChoice);
    UseFormulas(Formulas::Textbook);
    EXPECT_EQ(WindowOf(slot), ofChoice);
}

TEST_F(PlotFormulas, ChangeTheStatisticsOfANet) {
    const int slot = NewEllipse();
    ActiveRecord().ShowConfidenceCone = true;
    ReplotActivePlot(false);
    const std::size_t withCone = DrawnOn(Form(slot).Plot()).size();
    ASSERT_TRUE(StateOfToolbar().confidenceCone.enabled);
    ASSERT_NE(ConfidenceConeText().find("\n(textbook: none"), std::string::npos);
    UsePlotFormulas(slot, kTextbookFormulas);
    EXPECT_EQ(RecordOf(slot).FabricValueC, kNotSymmetric);
    EXPECT_LT(DrawnOn(Form(slot).Plot()).size(), withCone);
    EXPECT_FALSE(StateOfToolbar().confidenceCone.enabled);
    EXPECT_NE(ConfidenceConeText().find("none, for the data are not symmetric"), std::string::npos);
    EXPECT_EQ(ConfidenceConeText().find("(textbook:"), std::string::npos);
    const std::string box = BoxOf(slot, PlotBox::StatsAdvanced);
    EXPECT_NE(box.find("non-symmetric distribution"), std::string::npos) << box;
    EXPECT_EQ(box.find("(textbook:"), std::string::npos) << box;
    UsePlotFormulas(slot, kOwnFormulas);
    EXPECT_GT(RecordOf(slot).FabricValueC, 0);
    EXPECT_EQ(DrawnOn(Form(slot).Plot()).size(), withCone);
}

TEST_F(PlotFormulas, AreThoseOfTheReference) {
    const auto judged = [](const char* statistic) {
        return std::ranges::any_of(ReferenceOfActivePlot(), [statistic](const ReferenceLine& line) {
            return line.name == std::string("symmetry statistic, ") + statistic;
        });
    };
    const int net = NewEllipse();
    EXPECT_TRUE(judged("1 - E3 + m4 (printed judgement)"));
    UsePlotFormulas(net, kTextbookFormulas);
    EXPECT_TRUE(judged("1 - 2 E3 + m4 (printed judgement)"));
    EXPECT_FALSE(judged("1 - E3 + m4 (printed judgement)"));

    const auto mean = [] {
        const auto lines = ReferenceOfActivePlot();
        const auto line = std::ranges::find(lines, "mean direction", &ReferenceLine::name);
        EXPECT_NE(line, lines.end());
        return line == lines.end() ? std::string("absent") : line->printed;
    };
    const int rose = NewRose();
    EXPECT_NE(mean(), "") << "another angle is printed";
    UsePlotFormulas(rose, kTextbookFormulas);
    EXPECT_EQ(mean(), "");
}

TEST_F(PlotFormulas, StayWhenThePreferencesChange) {
    const int follower = NewRose();
    const int own = NewRose();
    const int textbook = NewRose();
    UsePlotFormulas(own, kOwnFormulas);
    UsePlotFormulas(textbook, kTextbookFormulas);
    for (const Formulas formulas : {Formulas::Textbook, Formulas::Own, Formulas::Textbook}) {
        UseFormulas(formulas);
        EXPECT_EQ(IsTextbookRose(follower), formulas == Formulas::Textbook);
        EXPECT_TRUE(IsOwnRose(own)) << BoxOf(own);
        EXPECT_TRUE(IsTextbookRose(textbook)) << BoxOf(textbook);
    }
    gActivePlot = own;
    ReplotActivePlot(true);
    EXPECT_TRUE(IsOwnRose(own)) << "the plot recomputed";
    UsePlotFormulas(own, kFormulasOfPreferences);
    EXPECT_TRUE(IsTextbookRose(own)) << "the preferences of now";
}

TEST_F(PlotFormulas, HoldForEachKindOfThePlot) {
    const int slot = NewRose();
    UsePlotFormulas(slot, kTextbookFormulas);
    ActiveRecord().PlotKind = kEqualArea;
    ReplotActivePlot(true);
    EXPECT_EQ(BoxOf(slot, PlotBox::StatsAdvanced).find("(textbook:"), std::string::npos);
    ActiveRecord().PlotKind = kRose;
    ReplotActivePlot(true);
    EXPECT_TRUE(IsTextbookRose(slot)) << BoxOf(slot);
}

TEST_F(PlotFormulas, AreAnotherViewThatNeedsNoSaveAndLeavesUndoAlone) {
    const int slot = NewEllipse();
    ASSERT_TRUE(AddPointToPlot("50", "60"));
    ASSERT_TRUE(CanUndo());
    RecordOf(slot).Modified = 0;
    UsePlotFormulas(slot, kTextbookFormulas);
    EXPECT_EQ(RecordOf(slot).Modified, 0);
    ASSERT_TRUE(CanUndo());
    UndoEdits();
    EXPECT_EQ(RecordOf(slot).NumData, 24);
    EXPECT_EQ(RecordOf(slot).PlotFormulas, kTextbookFormulas);
    EXPECT_EQ(RecordOf(slot).FabricValueC, kNotSymmetric);
}

TEST_F(PlotFormulas, RecomputeOnlyWhatFollowsOtherFormulas) {
    constexpr double kSpoilt = -7;
    const int slot = NewEllipse();
    RecordOf(slot).FabricValueC = kSpoilt;
    UsePlotFormulas(slot, kOwnFormulas);
    EXPECT_EQ(RecordOf(slot).PlotFormulas, kOwnFormulas);
    EXPECT_EQ(RecordOf(slot).FabricValueC, kSpoilt) << "they were in force already";
    UsePlotFormulas(slot, kTextbookFormulas);
    EXPECT_EQ(RecordOf(slot).FabricValueC, kNotSymmetric);
}

TEST_F(PlotFormulas, DoNothingWithoutAPlotOrWithinALongStep) {
    UsePlotFormulas(0, kTextbookFormulas);
    UsePlotFormulas(7, kTextbookFormulas);
    const int slot = NewRose();
    gBusy = true;
    UsePlotFormulas(slot, kTextbookFormulas);
    gBusy = false;
    EXPECT_EQ(RecordOf(slot).PlotFormulas, kFormulasOfPreferences);
    EXPECT_TRUE(IsOwnRose(slot));
}

TEST_F(PlotFormulas, AreThoseOfTheBoxesOnPages) {
    const int own = NewRose();
    const int textbook = NewRose();
    UsePlotFormulas(textbook, kTextbookFormulas);
    const std::string note = "(textbook: 045-225)";
    EXPECT_NE(PageOf(own).find(note), std::string::npos);
    EXPECT_EQ(PageOf(textbook).find(note), std::string::npos);
    EXPECT_NE(PageOf(textbook).find("Mean Resultant dir'n  = 045-225"), std::string::npos);
}

TEST_F(PlotFormulas, AreThoseOfTheConeInWindowsAndOnPages) {
    const int slot = NewPlot();
    for (int i = 0; i < 12; ++i) {
        AddRow(60, i * 30); // a ring about the vertical: the cones have 1.731 and 1.7308 as factors
    }
    ActiveRecord().ShowConfidenceCone = true;
    ReplotActivePlot(true);
    const std::string ownWindow = WindowOf(slot);
    const std::string ownPage = PageOf(slot);
    UsePlotFormulas(slot, kTextbookFormulas);
    EXPECT_NE(WindowOf(slot), ownWindow);
    EXPECT_NE(PageOf(slot), ownPage);
    UsePlotFormulas(slot, kOwnFormulas);
    UseFormulas(Formulas::Textbook);
    EXPECT_EQ(WindowOf(slot), ownWindow);
    EXPECT_EQ(PageOf(slot), ownPage);
}

TEST_F(PlotFormulas, ComeBackFromAFileAndThroughAWorkspace) {
    const int slot = NewRose();
    UsePlotFormulas(slot, kTextbookFormulas);
    const std::string path = (folder / "rose.qpx").string();
    ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    ASSERT_EQ(OpenPlotFile(kNewCommand, path), kBinaryCommand);
    ASSERT_NE(gActivePlot, slot);
    EXPECT_EQ(ActiveRecord().PlotFormulas, kTextbookFormulas);
    EXPECT_TRUE(IsTextbookRose(gActivePlot)) << BoxOf(gActivePlot);
    EXPECT_EQ(ActiveRecord().Modified, 0);

    const std::string workspace = (folder / "all.qwo").string();
    ASSERT_EQ(SaveWorkspaceAs(workspace), WorkspaceOutcome::Saved);
    const int before = gActivePlot;
    ASSERT_GT(OpenWorkspace(workspace), 0);
    ASSERT_GT(gActivePlot, before);
    EXPECT_EQ(ActiveRecord().PlotFormulas, kTextbookFormulas);
    EXPECT_TRUE(IsTextbookRose(gActivePlot)) << BoxOf(gActivePlot);
}

TEST_F(PlotFormulas, OfAFileWithoutAChoiceAreThoseOfThePreferences) {
    NewRose();
    const std::string path = (folder / "rose.qpx").string();
    ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    UseFormulas(Formulas::Textbook);
    ASSERT_EQ(OpenPlotFile(kNewCommand, path), kBinaryCommand);
    EXPECT_EQ(ActiveRecord().PlotFormulas, kFormulasOfPreferences);
    EXPECT_TRUE(IsTextbookRose(gActivePlot)) << BoxOf(gActivePlot);
}

TEST_F(PlotFormulas, StayWhenFilesAreMergedAndOverlaid) {
    AcceptFormat({}, 10);
    ASSERT_EQ(OpenPlotFile(kNewCommand, WriteFile("first.txt", "10\t040\n20\t050\n")), kNewCommand);
    const int slot = gActivePlot;
    UsePlotFormulas(slot, kTextbookFormulas);
    for (const char* command : {kMergeCommand, kOverlayCommand}) {
        const std::string path = WriteFile(std::string(command) + ".txt", "30\t060\n");
        ASSERT_EQ(OpenPlotFile(command, path), command);
        EXPECT_EQ(gActivePlot, slot);
        EXPECT_EQ(RecordOf(slot).PlotFormulas, kTextbookFormulas) << command;
    }
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    EXPECT_EQ(RecordOf(slot).OverlayRows[kOverlayCount], 1);
}

} // namespace
} // namespace quandrel
