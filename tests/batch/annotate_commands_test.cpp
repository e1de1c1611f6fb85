// SPDX-License-Identifier: MIT

#include "batch/annotate_commands.h"
#include "core/plot_store.h"
#include "edit/history/undo.h"
#include "edit/marks/annotations.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class AnnotateCommands : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gPrimaryDataType = kPrimaryPlane;
        NewPlot();
        ActiveRecord().PrimaryFormat = kPrimaryPlane;
        AddRow(60, 90);
    }

    void TearDown() override {
        ForgetUndo();
        EngineTest::TearDown();
    }

    static std::vector<Argument> Words(const std::string& words) {
        const auto commands = ParseScript("do " + words, CommandBreak::LineOnly);
        EXPECT_TRUE(commands);
        return (*commands)[0].arguments;
    }
};

TEST_F(AnnotateCommands, AnnotateAddsAMark) {
    EXPECT_EQ(ApplyAnnotateArguments(Words("300 -250")), "");
    EXPECT_EQ(ApplyAnnotateArguments(Words("0 1000 right")), "");
    const auto marks = AnnotationsOf(gActivePlot);
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(marks[0].X, 300);
    EXPECT_EQ(marks[0].Y, -250);
    EXPECT_EQ(marks[0].SymbolType, 21);
    EXPECT_EQ(marks[1].SymbolType, 22);
}

TEST_F(AnnotateCommands, AnnotateNamesWhatIsWrong) {
    struct Case {
        const char* words;
        const char* error;
    };

    for (const Case c : {
             Case{"", "expects a place"},
             Case{"300", "expects a place"},
             Case{"300 x", "expects a place"},
             Case{"x=300 y=2", "expects a place"},
             Case{"1 2 left 3", "expects a place"},
             Case{"1 2 middle", "the button must be left or right"},
             Case{"1 2 a=b", "the button must be left or right"},
             Case{"800 601", "not on the net"},
         }) {
        const std::string error = ApplyAnnotateArguments(Words(c.words));
        EXPECT_NE(error.find(c.error), std::string::npos) << c.words << ": " << error;
    }
    ActiveRecord().PlotKind = kRose;
    EXPECT_NE(ApplyAnnotateArguments(Words("1 2")), "");
    EXPECT_TRUE(AnnotationsOf(gActivePlot).empty());
}

TEST_F(AnnotateCommands, AddPointAddsARow) {
    EXPECT_EQ(ApplyAddPointArguments(Words("45.4 -10")), "");
    ASSERT_EQ(ActiveRecord().NumData, 2);
    EXPECT_EQ(gDataDip(gActivePlot, 2), 45);
    EXPECT_EQ(gDataAz(gActivePlot, 2), 350);
}

TEST_F(AnnotateCommands, AddPointNamesWhatIsWrong) {
    for (const char* words : {"", "45", "45 20 3", "dip=45 az=20", "95 20", "45 x", "45 361"}) {
        EXPECT_NE(ApplyAddPointArguments(Words(words)), "") << words;
    }
    ActiveRecord().MapInfoLinked = kTrue;
    Expect("you will break its link", Button::No);
    EXPECT_EQ(ApplyAddPointArguments(Words("45 20")), "no row was added: see the message");
    ActiveRecord().MapInfoLinked = 0;
    ActiveRecord().PlotKind = kRose;
    EXPECT_NE(ApplyAddPointArguments(Words("45 20")), "");
    EXPECT_EQ(ActiveRecord().NumData, 1);
}

} // namespace
} // namespace quandrel
