// SPDX-License-Identifier: MIT
//
// The link to the program's own map session, over files that GDAL has written: from a table to a
// plot, and the same rows highlighted on both sides.

#include "mapinfo/link_test_base.h"
#include "mapinfo/map_commands.h"
#include "mapinfo/map_windows.h"
#include "mapsession/browser_contents.h"
#include "mapsession/embedded_sessions.h"
#include "mapsession/gdal/written_tables.h"

#include <cstdlib>

namespace quandrel {
namespace {

bool IsBad(int row) {
    return MeasurementOf(row).dip > 90;
}

class EmbeddedLink : public LinkTest {
protected:
    void SetUp() override {
        LinkTest::SetUp();
        setenv("QUANDREL_PLUGIN_DIR", QUANDREL_PLUGIN_FOLDER, 1);
        gPlatform.mapLink.sessions = &own;
    }

    void TearDown() override {
        LinkTest::TearDown();
        unsetenv("QUANDREL_PLUGIN_DIR");
    }

    [[nodiscard]] EmbeddedMapSession& Session() const {
        return dynamic_cast<EmbeddedMapSession&>(*gMapInfo->MILink);
    }

    /// Starts a link, opens a file of 5,000 rows in a map and in a browser. Returns the map's id.
    std::int64_t OpenFile(const std::string& name, const std::string& table,
                          std::vector<const char*> options = {}) {
        const std::string path = scratch.File(name);
        WriteMeasurements("MapInfo File", path, std::move(options));
        EXPECT_TRUE(IsMapInfoLinked() || StartMapInfoLink());
        EXPECT_TRUE(Session().Do("Open Table \"" + path + "\"").IsDone());
        const auto browser = OpenMIWindow(MapWindowKind::Browser, table);
        const auto map = OpenMIWindow(MapWindowKind::Map, table);
        EXPECT_TRUE(browser && map);
        return map.value_or(0);
    }

    /// Plots a table of which some rows cannot be plotted. Returns the plot's slot.
    int PasteMeasurements(const std::string& table) {
        Expect("invalid orientation data", Button::Ignore);
        Expect("54 invalid data have been detected");
        return PasteNew(table);
    }

    [[nodiscard]] std::vector<int> LitInSession() const { return Session().State().selection.rows; }

    /// The table rows of what is selected in the active plot.
    static std::vector<int> LitInPlot() {
        std::vector<int> rows;
        for (const std::int32_t row : gSelectionRows) {
            std::int32_t miRow = 0;
            if (gMIGeoLinks.Item(gActivePlot)->GetMIRow(row, miRow)) {
                rows.push_back(miRow);
            }
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    /// The rows that lie in a rectangle and can be plotted, by the formula that wrote them.
    static std::vector<int> RowsIn(const MapBox& box) {
        std::vector<int> rows;
        for (int row = 1; row <= kRows; ++row) {
            const Measurement measurement = MeasurementOf(row);
            if (box.Holds({measurement.x, measurement.y}) && !IsBad(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    ScratchFolder scratch;
    EmbeddedMapSessions own{scratch.path, nullptr};
};

TEST_F(EmbeddedLink, PlotsTheRowsOfATableAndLinksTheGoodOnes) {
    OpenFile("dips.tab", "dips");
    const int slot = PasteMeasurements("dips");
    EXPECT_EQ(RecordOf(slot).FileTitle, "MapInfo Table:dips");
    const auto bad = static_cast<std::size_t>((kRows + 1) / 91);
    EXPECT_EQ(gMIGeoLinks.Item(slot)->RowCount(), kRows - bad);
    for (int row = 1; row <= kRows; ++row) {
        std::int32_t geoRow = 0;
        ASSERT_EQ(gMIGeoLinks.Item(slot)->GetGeoRow(row, geoRow), !IsBad(row)) << row;
        if (!IsBad(row)) {
            // Plots hold whole degrees.
            ASSERT_NEAR(gDataDip(slot, geoRow), MeasurementOf(row).dip, 0.5) << row;
            ASSERT_EQ(gAppNumeric(slot, geoRow), static_cast<float>(MeasurementOf(row).number));
            ASSERT_EQ(gAppText(slot, geoRow), MeasurementOf(row).type);
        }
    }
}

TEST_F(EmbeddedLink, LightsOnTheMapWhatIsSelectedInThePlot) {
    OpenFile("dips.mif", "dips", {"FORMAT=MIF"});
    const int slot = PasteMeasurements("dips");
    std::vector<std::int32_t> geoRows;
    std::vector<int> expected;
    for (int row = 1000; expected.size() < 300; row += 7) {
        std::int32_t geoRow = 0;
        if (gMIGeoLinks.Item(slot)->GetGeoRow(row, geoRow)) {
            geoRows.push_back(geoRow);
            expected.push_back(row);
        }
    }
    SelectRows(slot, geoRows);
    EXPECT_EQ(LitInSession(), expected);
    EXPECT_GT(gMIRowList.size(), 10U);
    for (const std::string& statement : gMIRowList) {
        EXPECT_LE(statement.size(), 240U);
    }
    const BrowserContents browser(Session().State(), 1);
    int lit = 0;
    for (int row = 1; row <= browser.RowCount(); ++row) {
        lit += browser.IsSelected(row) ? 1 : 0;
    }
    EXPECT_EQ(lit, 300);

    ClearSelection();
    EXPECT_TRUE(LitInSession().empty());
}

TEST_F(EmbeddedLink, LightsInThePlotWhatIsSelectedOnTheMap) {
    const std::int64_t map = OpenFile("dips.tab", "dips");
    PasteMeasurements("dips");
    const MapPoint corner{2600003, 1200100};
    const MapPoint opposite{2600200, 1200211};
    const std::vector<int> expected = RowsIn(MapBox::Of(corner, opposite));
    ASSERT_GT(expected.size(), 100U);

    RunMICommand("MarqueeLink");
    Session().UseTool(map, corner, opposite, {});
    EXPECT_EQ(LitInPlot(), expected);
    EXPECT_EQ(LitInSession(), expected);

    RunMICommand("PointLink");
    const Measurement one = MeasurementOf(2020);
    Session().UseTool(map, {one.x, one.y}, {one.x, one.y}, {});
    EXPECT_EQ(LitInPlot(), (std::vector<int>{2020}));

    RunMICommand("RectTool"); // the session's own marquee
    Session().UseTool(map, corner, opposite, {});
    EXPECT_EQ(LitInPlot(), expected);
}

TEST_F(EmbeddedLink, KeepsTwoTablesAndTheirPlotsApart) {
    const std::int64_t first = OpenFile("north.tab", "north");
    const int north = PasteMeasurements("north");
    const std::int64_t second = OpenFile("south.tab", "south");
    const int south = PasteMeasurements("south");
    ASSERT_NE(north, south);
    RunMICommand("PointLink");
    const Measurement one = MeasurementOf(77);
    Session().UseTool(first, {one.x, one.y}, {one.x, one.y}, {});
    EXPECT_EQ(gActivePlot, north);
    EXPECT_EQ(LitInPlot(), (std::vector<int>{77}));
    Session().UseTool(second, {one.x, one.y}, {one.x, one.y}, {});
    EXPECT_EQ(gActivePlot, south);
    EXPECT_EQ(LitInPlot(), (std::vector<int>{77}));
}

TEST_F(EmbeddedLink, LeavesThePlotsWhenItIsClosed) {
    OpenFile("dips.tab", "dips");
    const int slot = PasteMeasurements("dips");
    CloseMapInfoLink();
    EXPECT_FALSE(IsMapInfoLinked());
    EXPECT_EQ(RecordOf(slot).NumData, kRows);
    SelectRows(slot, {1, 2, 3});
    EXPECT_EQ(gSelectionRows.empty(), false);
}

} // namespace
} // namespace quandrel
