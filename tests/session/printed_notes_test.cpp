// SPDX-License-Identifier: MIT
//
// The notes of the textbook's results appear on printed pages too.

#include "core/formulas.h"
#include "core/replot.h"
#include "platform/scripted/recording_printer.h"
#include "print/print_run.h"
#include "session/start.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>

namespace quandrel {
namespace {

class PrintedNotes : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlatform.printers = &printer;
    }

    /// Prints the plot of a slot, redrawn by the formulas in force.
    void Print(int slot) {
        ReplotActivePlot(true);
        PrintLayout layout;
        layout.paper = printer.paper;
        SelectPlot(layout, slot);
        EXPECT_EQ(PrintSelectedPlots(layout.plots), PrintOutcome::Printed);
    }

    /// How often a text occurs on the last page.
    [[nodiscard]] std::ptrdiff_t TimesOnPage(const std::string& text) const {
        std::ptrdiff_t times = 0;
        for (const RecordedPart& part : printer.pages.back().parts) {
            times += std::ranges::count(part.surface.Operations(), text, &DrawOperation::text);
        }
        return times;
    }

    RecordingPrinter printer;
};

TEST_F(PrintedNotes, StandBelowTheProgramsOwnResultsAlone) {
    gPlotKind = kRose;
    const int slot = NewPlot();
    gPlotKind = kEqualArea;
    ActiveRecord().DataKind = kLines;
    ActiveRecord().PrimaryFormat = kPrimaryLine;
    ActiveRecord().LayerVisible.fill(kTrue);
    for (const int trend : {40, 45, 50}) {
        AddRow(10, trend);
    }
    // The doubled angles are symmetric about 90 degrees, so that their cosines sum to 0.
    Print(slot);
    EXPECT_EQ(TimesOnPage("(textbook: 045-225)"), 1);
    EXPECT_EQ(TimesOnPage("Mean Resultant dir'n  = 090-270"), 1);
    gSettings.notation.formulas = Formulas::Textbook;
    Print(slot);
    EXPECT_EQ(TimesOnPage("(textbook: 045-225)"), 0);
    EXPECT_EQ(TimesOnPage("Mean Resultant dir'n  = 045-225"), 1);
}

} // namespace
} // namespace quandrel
