// SPDX-License-Identifier: MIT

#include "batch/rotate_command.h"
#include "rotation/rotate_data.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class RotateCommand : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gPrimaryDataType = kPrimaryPlane;
        NewPlot();
        ActiveRecord().PrimaryFormat = kPrimaryPlane;
        ActiveRecord().SecondaryFormat = kSecondaryLine;
        AddRow(60, 90);
        int secondary = 1;
        GrowDataColumns(secondary, 1);
        gData2Dip.At(gActivePlot, 1) = 30;
        gData2Az.At(gActivePlot, 1) = 20;
    }

    void TearDown() override {
        ForgetRotation();
        EngineTest::TearDown();
    }

    std::string Run(const std::string& words) {
        const auto commands = ParseScript("rotate " + words, CommandBreak::LineOnly);
        EXPECT_TRUE(commands);
        return ApplyRotateArguments((*commands)[0].arguments, note);
    }

    std::string note;
};

TEST_F(RotateCommand, TurnsAboutAnAxis) {
    EXPECT_EQ(Run("op=3 axis=90,0 angle=-20.4"), "");
    EXPECT_EQ(gDataDip(gActivePlot, 1), 60);
    EXPECT_EQ(gDataAz(gActivePlot, 1), 70);
    EXPECT_EQ(gData2Az(gActivePlot, 1), 0);
    EXPECT_EQ(ActiveRecord().RotationState, 3);
    EXPECT_EQ(note, "");
}

TEST_F(RotateCommand, UnfoldsAndForcesLinesIntoTheBeds) {
    EXPECT_EQ(Run("op=2 axis=10,0 force=yes"), "");
    EXPECT_EQ(gDataDip(gActivePlot, 1), 0);
    EXPECT_EQ(gData2Dip(gActivePlot, 1), 0);
    EXPECT_EQ(ActiveRecord().RotationState, -2);
}

TEST_F(RotateCommand, TellsOfRowsThatWereLeft) {
    ActiveRecord().HasAppendedLine = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
    gAppLineDip.At(gActivePlot, 1) = kInvalidAppendedLine;
    EXPECT_EQ(Run("op=1"), "");
    EXPECT_EQ(note, "1 row without a valid appended line was left unrotated.");
}

TEST_F(RotateCommand, BringsPlanesAndLinesToTheVertical) {
    EXPECT_EQ(Run("op=4 plane=60,90 newstrike=45 pitch=10 sense=N"), "");
    EXPECT_EQ(gDataDip(gActivePlot, 1), 90);
    EXPECT_EQ(gDataAz(gActivePlot, 1) % 180, 135);
    EXPECT_EQ(Run("op=4 axis=90,135 newstrike=0"), "");
    EXPECT_EQ(gDataAz(gActivePlot, 1) % 180, 90);
    EXPECT_EQ(Run("op=5 line=0,90"), "");
    EXPECT_EQ(gDataDip(gActivePlot, 1), 0);
}

TEST_F(RotateCommand, NamesWhatIsWrongAndChangesNothing) {
    struct Case {
        const char* words;
        const char* error;
    };

    for (const Case c : {
             Case{"axis=1,2 angle=3", "'op' is missing"},
             Case{"", "'op' is missing"},
             Case{"op=6", "op: '6' is not a whole number from 1 to 5"},
             Case{"op=3 axis=12", "axis: '12' is not a pair of numbers"},
             Case{"op=3 axis=1,2,3 angle=4", "axis: '1,2,3' is not a pair of numbers"},
             Case{"op=3 axis=1,x angle=4", "axis: '1,x' is not a pair of numbers"},
             Case{"op=3 axis=1,2 line=3,4 angle=4", "line: an orientation is already given: axis"},
             Case{"op=3 axis=1,2 angle=x", "angle: 'x' is not a number"},
             Case{"op=3 axis=1,2", "The rotation angle must be"},
             Case{"op=3 axis=1,400 angle=2", "The azimuth must be"},
             Case{"op=3 axis=1,2 angle=2 pitch=3", "op=3 does not use 'pitch'"},
             Case{"op=3 plane=1,2 angle=2", "op=3 does not use 'plane'"},
             Case{"op=5 axis=1,2 force=no", "op=5 does not use 'force'"},
             Case{"op=2 axis=1,2 force=maybe", "force: 'maybe' is not one of no, yes"},
             Case{"op=4 plane=60,90 newstrike=45 pitch=10", "The sense of the pitch must be"},
             Case{"op=4 plane=60,90 newstrike=45 pitch=10 sense=E", "must name an end"},
             Case{"op=1", "no appended lines"},
             Case{"op=3 turn=4", "'turn' is not a key of a rotation"},
         }) {
        const std::string error = Run(c.words);
        EXPECT_NE(error.find(c.error), std::string::npos) << c.words << ": " << error;
        EXPECT_EQ(gDataDip(gActivePlot, 1), 60) << c.words;
        EXPECT_EQ(ActiveRecord().RotationState, 0) << c.words;
    }
}

} // namespace
} // namespace quandrel
