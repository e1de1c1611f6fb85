// SPDX-License-Identifier: MIT

#include "batch_fixture.h"

namespace quandrel {
namespace {

class EditCommands : public BatchTest {
protected:
    /// The dips of the rows after commands on three planes.
    std::vector<int> DipsAfter(const std::string& commands) {
        const auto dump = Dump("open \"FOLDER/planes.txt\"; " + commands);
        std::vector<int> dips;
        for (const auto& dip : dump["rows"]["gDataDip"]) {
            dips.push_back(dip.get<int>());
        }
        return dips;
    }
};

TEST_F(EditCommands, SelectAllAndCutLeavesAnEmptyPlotThatUndoFills) {
    EXPECT_TRUE(DipsAfter("select all; edit cut").empty());
    EXPECT_EQ(DipsAfter("select all; edit cut; undo"), (std::vector<int>{30, 45, 60}));
    EXPECT_TRUE(DipsAfter("select all; edit cut; undo; redo").empty());
    const std::string edits = "addpoint 10 20; addpoint 11 20; select all; edit cut; ";
    EXPECT_EQ(DipsAfter(edits + "undo; undo"), (std::vector<int>{30, 45, 60, 10}));
    EXPECT_EQ(DipsAfter(edits + "undo; undo; undo; redo; redo"),
              (std::vector<int>{30, 45, 60, 10, 11}));
}

TEST_F(EditCommands, ARectangleSelectsByPlaceOnTheNet) {
    // The pole of 45/270 plunges 45 to 090: it lies in the east, on the horizontal axis.
    EXPECT_EQ(DipsAfter("select 300,200,900,-200; edit delete"), (std::vector<int>{30, 60}));
    EXPECT_EQ(DipsAfter("select 900,-200,300,200; edit delete"), (std::vector<int>{30, 60}));
}

TEST_F(EditCommands, FurtherRectanglesAddOrToggle) {
    // The pole of 45/270 is in the east, that of 30/120 in the north-west: (-317, 183).
    const std::string east = "select 300,200,900,-200; ";
    EXPECT_EQ(DipsAfter(east + "select add -400,300,-200,100; edit delete"), std::vector<int>{60});
    EXPECT_EQ(DipsAfter("select all; select toggle 300,200,900,-200; edit delete"),
              std::vector<int>{45});
    EXPECT_EQ(DipsAfter(east + "select toggle -400,300,900,-200; edit delete"),
              (std::vector<int>{45, 60}));
    EXPECT_NE(Run("open \"FOLDER/planes.txt\"; select join 1,2,3,4"), "");
}

TEST_F(EditCommands, SettingWhatIsShownIsNoEditAndSettingTextsIs) {
    const auto modified = [&](const std::string& commands) {
        return Dump("open \"FOLDER/planes.txt\"; " + commands)["record"]["Modified"].get<int>();
    };
    for (const char* view : {"PlotKind 2", "PlotSymbolMode 1", "LayerVisible[3] 0",
                             "StatsBoxKind -1", "ShowAnnotations -1"}) {
        EXPECT_EQ(modified(std::string("set ") + view), 0) << view;
    }
    EXPECT_EQ(modified("plot equalangle; symbols 3; symbols 6; griddensity 50"), 0);
    for (const char* edit : {"DescriptionText limb", "FabricText S1", "ClassTable[1][1] 5"}) {
        EXPECT_NE(modified(std::string("set ") + edit), 0) << edit;
    }
}

TEST_F(EditCommands, CutRowsArePastedIntoAnotherPlot) {
    EXPECT_EQ(DipsAfter("select all; edit copyall; blank; edit paste"),
              (std::vector<int>{30, 45, 60}));
    EXPECT_EQ(DipsAfter("select all; edit cut; edit paste; edit paste"),
              (std::vector<int>{30, 45, 60, 30, 45, 60}));
}

TEST_F(EditCommands, TheLayerOfAnnotationsIsEditedApart) {
    const auto dump = Dump("open \"FOLDER/planes.txt\"; annotate 100 100; annotate -300 0 right; "
                           "layer annotations; select -400,100,-200,-100; edit delete");
    ASSERT_EQ(dump["annotations"].size(), 1U);
    EXPECT_EQ(dump["annotations"][0]["X"], 100);
    EXPECT_EQ(dump["rows"]["gDataDip"].size(), 3U);
}

TEST_F(EditCommands, AMarqueeHoldsWhatTheLayerHasInIt) {
    EXPECT_EQ(DipsAfter("layer annotations; select 300,200,900,-200; layer data; edit delete"),
              (std::vector<int>{30, 60}));
}

TEST_F(EditCommands, GirdlesCirclesAndPointsAreSetByWords) {
    const auto dump = Dump("open \"FOLDER/planes.txt\"; girdle 1 45/120; smallcircle 2 10 20 30; "
                           "addpoint 80 200");
    EXPECT_EQ(dump["rows"]["gDataDip"].back(), 80);
    EXPECT_EQ(dump["record"]["AxisItems"][1][1], "45/120");
    EXPECT_NE(dump["smallCircles"].dump().find("\"30\""), std::string::npos);
}

TEST_F(EditCommands, WhatIsWrongIsNamed) {
    struct Case {
        const char* commands;
        const char* error;
    };

    for (const Case c : {
             Case{"select some", "'some' is not all, none"},
             Case{"select 1,2,3", "two corners"},
             Case{"select 1,2,3,x", "two corners"},
             Case{"plot rose; select 1,2,3,4", "a rose has no positions"},
             Case{"edit cut", "nothing is selected"},
             Case{"edit paste", "there is nothing to paste"},
             Case{"edit bend", "'bend' is not one of copy, copyall, cut, delete, paste"},
             Case{"undo", "there is no edit to undo"},
             Case{"redo", "there is no edit to redo"},
             Case{"layer top", "'top' is not one of annotations, data"},
         }) {
        const std::string error = Run(std::string("open \"FOLDER/planes.txt\"; ") + c.commands);
        EXPECT_NE(error.find(c.error), std::string::npos) << c.commands << ": " << error;
    }
    EXPECT_NE(Run("select all").find("no plot is open"), std::string::npos);
}

} // namespace
} // namespace quandrel
