// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/settings.h"
#include "link_test_base.h"
#include "mapinfo/map_commands.h"
#include "mapinfo/map_link.h"
#include "mapinfo/map_windows.h"

#include <cctype>
#include <set>

namespace quandrel {
namespace {

using Texts = std::vector<std::string>;

class MapLink : public LinkTest {};

TEST_F(MapLink, StartSaysThisToTheSession) {
    script.tables = {Joints(), {"Roads", {"Name"}, {}}};
    ShowMap();
    script.answers["MapperInfo(5,9)"] = "2";
    script.answers["LayerInfo(5,1,1)"] = "Joints";
    script.answers["LayerInfo(5,2,1)"] = "Roads";
    ASSERT_TRUE(StartMapInfoLink());
    EXPECT_EQ(script.TakeSaid(),
              R"(FindRunning
Start
Do Set Application Window 4242
Do Create ButtonPad "Custom Tools" As ToolButton ID 2001 DrawMode 34 Calling OLE "HandleToolButton" ToolButton ID 2002 DrawMode 32 Calling OLE "HandleToolButton"
Do Create Menu "MapperShortcut" ID 17 As "Selector" Calling 1701, "Marquee Select" Calling 1722, "Zoom-in" Calling 1705, "Zoom-out" Calling 1706, "Grabber" Calling 1702, "Find Selection" Calling 306, "Layer Control..." Calling 801 
SetCallback
Eval NumTables()
Eval TableInfo(1,1)
Eval TableInfo(2,1)
Eval WindowInfo(FrontWindow(),12)
Eval WindowInfo(5,3)
Eval WindowInfo(5,3)
Eval MapperInfo(5,9)
Eval LayerInfo(5,1,1)
Eval LayerInfo(5,2,1)
Eval NumTables()
Eval WindowInfo(FrontWindow(),12)
Eval WindowInfo(5,3)
)");
    EXPECT_EQ(gMITables, (Texts{"", "Joints", "Roads"}));
    EXPECT_TRUE(window.isOpen);
    EXPECT_EQ(window.parent, 4242U);
    EXPECT_EQ(window.caption, "MapInfo Tables: Joints; Roads");
    EXPECT_EQ(window.statusTexts, Texts{"Either use 'Window_Open New Mapper/Browser' or "
                                        "'File_Open' menu to select a MapInfo Table for linking"});
    EXPECT_EQ(gMapInfo->LinkType, kLinkOpen);
}

TEST_F(MapLink, StartTakesARunningSession) {
    sessions.isRunning = true;
    ASSERT_TRUE(StartMapInfoLink());
    EXPECT_EQ(script.said.at(0), "FindRunning");
    EXPECT_EQ(script.said.at(1), "Do Set Application Window 4242");
}

TEST_F(MapLink, WithoutTablesTheStatusLineSaysHowToOpenOne) {
    Link();
    EXPECT_EQ(window.statusTexts, Texts{"Use 'File_Open' to select a MapInfo Table for linking"});
    EXPECT_EQ(window.caption, "MapInfo link window");
    EXPECT_EQ(gMITables, Texts{""});
}

TEST_F(MapLink, ASecondStartTellsTheUserAndChangesNothing) {
    script.tables = {Joints()};
    Link();
    const MapInfoLink* link = gMapInfo.get();
    Expect("You already are linked to a MapInfo session");
    EXPECT_FALSE(StartMapInfoLink());
    EXPECT_EQ(prompts.Shown().back().message.icon, Icon::Exclamation);
    EXPECT_EQ(gMapInfo.get(), link);
    EXPECT_TRUE(script.said.empty());
}

TEST_F(MapLink, SaysThatNoSessionCanBeHad) {
    sessions.canStart = false;
    Expect("Could not open or link to a MapInfo session.\nThe link will have to be abandoned.");
    EXPECT_FALSE(StartMapInfoLink());
    EXPECT_EQ(prompts.Shown().back().message.title, "MapInfo Linking...");
    EXPECT_EQ(prompts.Shown().back().message.icon, Icon::Stop);
    sessions.isRegistered = false;
    Expect("Could not find a Registered MapInfo Application\nThe link will have to be abandoned.");
    EXPECT_FALSE(StartMapInfoLink());
    gPlatform.mapLink.sessions = nullptr;
    Expect("Could not find a Registered MapInfo Application");
    EXPECT_FALSE(StartMapInfoLink());
    EXPECT_EQ(gMapInfo, nullptr);
    EXPECT_FALSE(window.isOpen);
}

TEST_F(MapLink, AWindowThatDoesNotOpenEndsTheLink) {
    windowOpens = false;
    Expect("An error has occurred trying to open a new MapInfo Window.\n"
           "The MapInfo link will have to be abandoned.\nThe new window will not be opened.");
    EXPECT_FALSE(StartMapInfoLink());
    EXPECT_EQ(gMapInfo, nullptr);
    EXPECT_FALSE(script.isAlive);
    EXPECT_EQ(script.callback, nullptr);
}

TEST_F(MapLink, ARefusedStatementOfTheStartIsToldOnceAndTheLinkStands) {
    script.refused = {"Set Application Window 4242", "NumTables()"};
    Expect("Sorry - this MapInfo command has not been able to be processed properly");
    Expect("Sorry - this MapInfo command has not been able to be processed properly");
    EXPECT_TRUE(StartMapInfoLink());
    EXPECT_TRUE(IsMapInfoLinked());
}

TEST_F(MapLink, NonsenseInPlaceOfTheCountOfTablesIsNone) {
    for (const char* nonsense : {"", "many", "-3", "2.5", "99999999999", "nan"}) {
        script.answers["NumTables()"] = nonsense;
        Expect("Sorry - this MapInfo command");
        EXPECT_TRUE(StartMapInfoLink()) << nonsense;
        EXPECT_EQ(gMITables, Texts{""});
        CloseMapInfoLink();
    }
}

TEST_F(MapLink, ASessionThatDiesInTheStartIsToldOnceAndLeavesNothing) {
    for (const char* last : {"Set Application Window 4242", "NumTables()"}) {
        script.dies = last;
        Expect("Sorry - this MapInfo command has not been able to be processed properly");
        EXPECT_FALSE(StartMapInfoLink());
        EXPECT_EQ(gMapInfo, nullptr);
        EXPECT_FALSE(window.isOpen);
        EXPECT_FALSE(script.isAlive);
    }
}

TEST_F(MapLink, ClosingLeavesThePlotsAndALaterStartFindsThemLinked) {
    script.tables = {Joints()};
    Link();
    const int slot = PasteNew("Joints");
    CloseMapInfoLink();
    EXPECT_EQ(gMapInfo, nullptr);
    EXPECT_FALSE(window.isOpen);
    EXPECT_FALSE(toolbarIsShown);
    EXPECT_FALSE(script.isAlive);
    EXPECT_TRUE(IsOpenSlot(slot));
    CloseMapInfoLink();
    SelectRows(slot, {1});
    Link();
    SelectRows(slot, {2});
    EXPECT_EQ(script.Statements("Select"), Texts{"Select * From Joints Where RowID = 2"});
    CloseMapInfoLink();
    Link();
    SelectRows(slot, {2});
    EXPECT_EQ(script.Statements("Select").size(), 1U) << "the new session knows of nothing";
}

TEST_F(MapLink, TheToolbarIsShownWhenTheSettingSaysSo) {
    gSettings.windows.mapToolbar = true;
    Link();
    EXPECT_TRUE(toolbarIsShown);
    ShowMIToolbar(false);
    EXPECT_FALSE(toolbarIsShown);
    CloseMapInfoLink();
    Link();
    EXPECT_FALSE(toolbarIsShown);
    CloseMapInfoLink();
    ShowMIToolbar(true);
    EXPECT_FALSE(toolbarIsShown) << "there is no link";
    EXPECT_TRUE(gSettings.windows.mapToolbar);
}

TEST_F(MapLink, ASessionThatEndsByItselfClosesTheWindowAndClearsTheMarks) {
    script.tables = {Joints()};
    Link();
    const int slot = PasteNew("Joints");
    Expect("The MapInfo link will have to be abandoned.");
    script.callback->SessionEnded();
    EXPECT_EQ(gMapInfo, nullptr);
    EXPECT_FALSE(window.isOpen);
    EXPECT_TRUE(IsOpenSlot(slot));
    EXPECT_EQ(RecordOf(slot).MapInfoLinked, 0);
    EXPECT_EQ(gMIGeoLinks.Count(), 0U);
    EXPECT_TRUE(script.isAlive) << "it may still be at work";
    EXPECT_EQ(script.callback, nullptr);
    sessions.canStart = false;
    Expect("Could not open");
    EXPECT_FALSE(StartMapInfoLink());
    EXPECT_FALSE(script.isAlive);
}

TEST_F(MapLink, ADeadSessionIsNamedInNoCaptionAnyMore) {
    script.tables = {Joints(), Joints()};
    script.tables.back().name = "Veins";
    Link();
    const int first = PasteNew("Joints");
    const int second = PasteNew("Veins");
    const auto isNamed = [](int slot) {
        return Form(slot).Caption().find("{Linked to: ") != std::string::npos;
    };
    ASSERT_NE(first, second);
    ASSERT_TRUE(isNamed(first) && isNamed(second));
    Expect("The MapInfo link will have to be abandoned.");
    script.callback->SessionEnded();
    EXPECT_FALSE(isNamed(first)) << "of a plot that is not the active one";
    EXPECT_FALSE(isNamed(second));
    EXPECT_EQ(gActivePlot, second);
}

TEST_F(MapLink, ASessionThatEndsWithinAnActionLetsTheActionTell) {
    script.tables = {Joints()};
    Link();
    script.refused = {"Map From Joints"};
    script.onCall = [this](const std::string& call) {
        if (call == "Do Map From Joints") {
            script.isDead = true;
            script.callback->SessionEnded();
            EXPECT_NE(gMapInfo, nullptr) << "the action is still at work";
        }
    };
    Expect("Sorry - this MapInfo command has not been able to be processed properly");
    EXPECT_FALSE(OpenMIWindow(MapWindowKind::Map, "Joints"));
    EXPECT_EQ(gMapInfo, nullptr);
}

TEST_F(MapLink, CommandsCallTheSessionByTheirIds) {
    script.tables = {Joints()};
    ShowMap();
    Link();
    const std::vector<std::pair<const char*, const char*>> calls = {
        {"OpenMITable", "Menu 102"},
        {"SelectTool", "Menu 1701"},
        {"RectTool", "Menu 1722"},
        {"RadiusSelect", "Menu 1703"},
        {"ZoomIn", "Menu 1705"},
        {"ZoomOut", "Menu 1706"},
        {"Grabber", "Menu 1702"},
        {"FindSelection", "Menu 306"},
        {"LayerControl", "Menu 801"},
        {"PointLink", "Do Run Menu Command ID 2001"},
        {"MarqueeLink", "Do Run Menu Command ID 2002"},
    };
    for (const auto& [name, call] : calls) {
        script.said.clear();
        RunMICommand(name);
        ASSERT_FALSE(script.said.empty()) << name;
        EXPECT_EQ(script.said.front(), call);
    }
    script.said.clear();
    RunMICommand("NoSuchCommand");
    EXPECT_TRUE(script.said.empty());
}

TEST_F(MapLink, EveryCommandHasNamesOfItsOwn) {
    std::set<std::string> names;
    std::set<std::string> mnemonics;
    for (const MapCommand& command : MapCommands()) {
        EXPECT_TRUE(names.insert(command.name).second) << command.name;
        EXPECT_TRUE(names.insert(command.item).second) << command.item;
        const std::string caption = command.caption;
        const std::size_t mark = caption.find('&');
        ASSERT_LT(mark + 1, caption.size()) << caption;
        const auto letter = static_cast<char>(std::tolower(caption[mark + 1]));
        EXPECT_TRUE(mnemonics.insert(NameOf(command.menu) + std::string(1, letter)).second)
            << caption;
    }
}

TEST_F(MapLink, ARefusedCommandOrToolIsToldAndLeavesTheLinkOpen) {
    Link();
    script.refused = {"Menu 102", "Menu 1701", "Run Menu Command ID 2001"};
    const std::string reason = "\n\nnot understood";
    Expect("Sorry - this MapInfo command has not been able to be processed properly" + reason);
    RunMICommand("OpenMITable");
    Expect("Sorry - this tool has not been able to be accessed from MapInfo properly" + reason);
    RunMICommand("SelectTool");
    Expect("Sorry - this tool has not been able to be accessed from MapInfo properly" + reason);
    RunMICommand("PointLink");
    EXPECT_TRUE(IsMapInfoLinked());
}

TEST_F(MapLink, ClosesByItsOwnCommandAndWithinAnAction) {
    Link();
    RunMICommand(kCloseMILink);
    EXPECT_EQ(gMapInfo, nullptr);
    Link();
    InMapAction([] {
        CloseMapInfoLink();
        EXPECT_NE(gMapInfo, nullptr);
        EXPECT_FALSE(IsMapInfoLinked());
        EXPECT_FALSE(MIDo("Map From Joints"));
    });
    EXPECT_EQ(gMapInfo, nullptr);
    EXPECT_TRUE(script.Statements("Map").empty());
}

TEST_F(MapLink, OpensWindowsWithinItsOwn) {
    script.tables = {Joints()};
    Link();
    script.answers["WindowID(0)"] = "9";
    EXPECT_EQ(OpenMIWindow(MapWindowKind::Map, "Joints"), 9);
    EXPECT_EQ(OpenMIWindow(MapWindowKind::Browser, "Joints"), 9);
    OpenMIInformation();
    std::erase_if(script.said, [](const std::string& line) {
        return !line.starts_with("Do ") && line != "Eval WindowID(0)";
    });
    EXPECT_EQ(script.TakeSaid(), "Do Set Next Document Parent 777 Style 1\n"
                                 "Do Map From Joints\n"
                                 "Eval WindowID(0)\n"
                                 "Do Set Next Document Parent 777 Style 1\n"
                                 "Do Browse * From Joints\n"
                                 "Eval WindowID(0)\n"
                                 "Do Set Next Window Info Parent 777\n"
                                 "Do Open Window Info\n");
}

TEST_F(MapLink, ABrowserNamesItsTableAndAnotherWindowNone) {
    Link();
    script.answers["WindowInfo(8,3)"] = "2";
    script.answers["WindowInfo(8,10)"] = "Joints";
    EXPECT_EQ(GetWindowTables(8), Texts{"Joints"});
    script.answers["WindowInfo(9,3)"] = "6";
    EXPECT_TRUE(GetWindowTables(9).empty());
    EXPECT_TRUE(GetWindowTables(10).empty());
}

TEST_F(MapLink, AMapNamesEachTableOnceAndNonsenseIsNone) {
    Link();
    script.answers = {{"WindowInfo(5,3)", "1"},
                      {"MapperInfo(5,9)", "3"},
                      {"LayerInfo(5,1,1)", "Joints"},
                      {"LayerInfo(5,2,1)", "Roads"},
                      {"LayerInfo(5,3,1)", "Joints"}};
    EXPECT_EQ(GetWindowTables(5), (Texts{"Joints", "Roads"}));
    for (const char* nonsense : {"lots", "-1", "1e300", "999999999"}) {
        script.answers["MapperInfo(5,9)"] = nonsense;
        EXPECT_TRUE(GetWindowTables(5).empty()) << nonsense;
    }
}

TEST_F(MapLink, MenusFollowTablesMapsAndPlots) {
    Link();
    EXPECT_TRUE(window.enabled.at("OpenMITable"));
    EXPECT_FALSE(window.enabled.at(kPlotMITable));
    EXPECT_FALSE(window.enabled.at("ZoomIn"));
    script.tables = {Joints()};
    ShowMap();
    script.callback->WindowContentsChanged(5);
    EXPECT_TRUE(window.enabled.at(kPlotMITable));
    EXPECT_TRUE(window.enabled.at("ZoomIn"));
    EXPECT_FALSE(window.enabled.at(kAddMITable));
    EXPECT_FALSE(window.enabled.at(kSelectPlotRows));
    const int slot = PasteNew("Joints");
    EXPECT_TRUE(window.enabled.at(kAddMITable));
    EXPECT_TRUE(window.enabled.at(kSelectPlotRows));
    EXPECT_EQ(window.enabled.size(), MapCommands().size());
    EXPECT_EQ(slot, gActivePlot);
}

TEST_F(MapLink, AsksForATableWhenThereAreSeveralAndOffersTheSelection) {
    script.tables = {Joints(), {"Roads", {"Name"}, {}}};
    script.answers["SelectionInfo(3)"] = "0";
    Link();
    RunMICommand(kPlotMITable); // cancelled
    EXPECT_EQ(window.tablesAsked, (Texts{"Joints", "Roads"}));
    EXPECT_EQ(window.tableOffered, "Joints");
    script.answers["SelectionInfo(3)"] = "4";
    ShowMap();
    script.answers["MapperInfo(5,9)"] = "1";
    script.answers["LayerInfo(5,1,1)"] = "Roads";
    RunMICommand(kPlotMITable);
    EXPECT_EQ(window.tablesAsked, (Texts{"Joints", "Roads", "Selection"}));
    EXPECT_EQ(window.tableOffered, "Roads");
    EXPECT_EQ(gActivePlot, 0);
}

TEST_F(MapLink, ShowsTheStatusOfTheSession) {
    Link();
    script.callback->SetStatusText("Zoom 5 km");
    EXPECT_EQ(window.statusTexts.back(), "Zoom 5 km");
}

TEST_F(MapLink, NothingHappensWithoutALink) {
    EXPECT_FALSE(MIDo("Map From Joints"));
    EXPECT_FALSE(MIEval("NumTables()"));
    EXPECT_FALSE(MIRunMenuCommand(102));
    RunMICommand("OpenMITable");
    UpdateMIMenus();
    CheckMICaptions();
    SetMIStatus("none");
    SelectFromMap(1, 2);
    SelectPlotRowsInMap();
    FollowSelectionInMap();
    EXPECT_EQ(PasteMITable("Joints", kNewCommand), kLoadError);
    EXPECT_TRUE(script.said.empty());
}

} // namespace
} // namespace quandrel
