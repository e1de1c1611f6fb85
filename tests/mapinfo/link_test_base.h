// SPDX-License-Identifier: MIT
//
// A link over a scripted session, for tests.

#pragma once

#include "core/row_links.h"
#include "edit/history/undo.h"
#include "edit/rows/add_point.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/marquee.h"
#include "input/file_loading.h"
#include "mapinfo/geo_link.h"
#include "mapinfo/map_link.h"
#include "mapinfo/selection_link.h"
#include "mapinfo/table_paste.h"
#include "support/plot_rows.h"
#include "support/recording_map_session.h"
#include "support/test_platform.h"

#include <algorithm>

namespace quandrel {

using Rows = std::vector<std::int32_t>;

/// Rows of dip, dip direction, number, type.
inline ScriptedTable Joints(std::size_t rows = 3) {
    ScriptedTable table{"Joints", {"Dip", "DipDir", "Length", "Kind"}, {}};
    for (std::size_t i = 1; i <= rows; ++i) {
        table.rows.push_back({std::to_string(10 + i % 60), std::to_string(i * 7 % 360),
                              std::to_string(i) + ".5", i % 2 == 0 ? "vein" : "joint"});
    }
    return table;
}

class LinkTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlatform.mapLink = {};
        gPlatform.mapLink.sessions = &sessions;
        gPlatform.mapLink.mainWindow = [] { return std::uint64_t{4242}; };
        gPlatform.mapLink.openLinkWindow =
            [this](std::uint64_t parent) -> std::unique_ptr<LinkWindow> {
            if (!windowOpens) {
                return nullptr;
            }
            return std::make_unique<RecordingLinkWindow>(window, parent);
        };
        gPlatform.mapLink.showToolbar = [this](bool isShown) { toolbarIsShown = isShown; };
        FollowRowsOfPlots();
        ConnectSelection([] { FollowSelectionInMap(); });
    }

    void TearDown() override {
        ConnectSelection({});
        CloseMapInfoLink();
        RemoveAllGeoLinks();
        ClearSelection();
        ForgetUndo();
        ConnectRowFollower({});
        gPlatform.mapLink = {};
        EngineTest::TearDown();
    }

    /// An established link, over which nothing has been sent yet.
    void Link() {
        ASSERT_TRUE(StartMapInfoLink());
        sessions.script.said.clear();
    }

    /// The format dialog takes dip, dip direction, number and type from columns 1 to 4.
    void AcceptJoints(int times = 1) {
        AcceptFormat(
            [](FormatAnswer&) {
                gPrimaryDataType = kPrimaryPlane;
                gSecondaryDataType = kNoSecondary;
                gConventions = kDipDipDirection;
                gPlotDataKind = kPlanes;
                gFileLineAppended = false;
                gFileNumericAppended = true;
                gFileNonNumericAppended = true;
                gFileColumnSettings = {0, 1, 9, 9, 9, 9, 9, 9, 2, 3};
            },
            times);
    }

    /// Pastes a table into a new plot. Returns its slot.
    int PasteNew(const std::string& table) {
        AcceptJoints();
        EXPECT_EQ(PasteMITable(table, kNewCommand), kNewCommand);
        script.said.clear();
        return gActivePlot;
    }

    /// The map in front is window 5.
    void ShowMap() {
        script.answers["WindowInfo(FrontWindow(),12)"] = "5";
        script.answers["WindowInfo(5,3)"] = "1";
        script.answers["MapperInfo(5,9)"] = "0";
    }

    /// The next search finds these objects.
    void Find(const std::string& search, const std::vector<std::pair<std::string, int>>& objects) {
        script.answers[search] = std::to_string(objects.size());
        for (std::size_t i = 0; i < objects.size(); ++i) {
            const std::string call = "SearchInfo(" + std::to_string(i + 1);
            script.answers[call + ",1)"] = objects[i].first;
            script.answers[call + ",2)"] = std::to_string(objects[i].second);
        }
    }

    RecordingMapSessions sessions;
    MapScript& script = sessions.script;
    LinkWindowRecord window;
    bool windowOpens = true;
    bool toolbarIsShown = false;
};

} // namespace quandrel
