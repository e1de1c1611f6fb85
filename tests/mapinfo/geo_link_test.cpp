// SPDX-License-Identifier: MIT

#include "core/plot_life.h"
#include "core/plot_store.h"
#include "edit/commands/edit_menu.h"
#include "edit/rows/paste_rows.h"
#include "input/plot_files.h"
#include "link_test_base.h"
#include "mapinfo/geo_link.h"

namespace quandrel {
namespace {

/// Rows 1 to `rows` of a plot, linked to table rows 101 and so on.
MIGeoLink LinkOf(std::int32_t rows, const std::string& table = "Joints") {
    MIGeoLink link;
    link.MITableName = table;
    for (std::int32_t row = 1; row <= rows; ++row) {
        link.AddRow(row, row + 100);
    }
    return link;
}

/// The table rows of plot rows 1 to `last`; 0 where there is none.
Rows TableRows(const MIGeoLink& link, std::int32_t last) {
    Rows rows;
    for (std::int32_t row = 1; row <= last; ++row) {
        std::int32_t miRow = 0;
        link.GetMIRow(row, miRow);
        rows.push_back(miRow);
        std::int32_t back = 0;
        EXPECT_EQ(miRow != 0, link.GetGeoRow(miRow, back));
        EXPECT_EQ(back, miRow != 0 ? row : 0);
    }
    return rows;
}

class GeoLink : public LinkTest {
protected:
    /// A linked plot of planes.
    int NewLinkedPlot(std::int32_t rows) {
        const int slot = NewPlot();
        for (std::int32_t row = 1; row <= rows; ++row) {
            AddRow(10 * row, 20 * row);
        }
        gMIGeoLinks.Add(slot, LinkOf(rows));
        ActiveRecord().MapInfoLinked = kTrue;
        return slot;
    }
};

TEST(MIGeoLinkRows, LeadBothWaysAndMissingRowsChangeNothing) {
    MIGeoLink link = LinkOf(3);
    std::int32_t row = -5;
    EXPECT_FALSE(link.GetGeoRow(99, row));
    EXPECT_FALSE(link.GetMIRow(4, row));
    EXPECT_EQ(row, -5);
    EXPECT_TRUE(link.GetGeoRow(102, row));
    EXPECT_EQ(row, 2);
    EXPECT_TRUE(link.GetMIRow(3, row));
    EXPECT_EQ(row, 103);
    EXPECT_EQ(link.RowCount(), 3U);
    link.ClearRows();
    EXPECT_EQ(link.RowCount(), 0U);
    EXPECT_FALSE(link.GetMIRow(3, row));
}

TEST(MIGeoLinkRows, AreLinkedOnce) {
    MIGeoLink link = LinkOf(2);
    link.AddRow(1, 150);
    link.AddRow(50, 101);
    EXPECT_EQ(TableRows(link, 2), (Rows{101, 102}));
    EXPECT_EQ(link.RowCount(), 2U);
}

TEST(MIGeoLinkRows, CloseUpWhereSomeGo) {
    MIGeoLink link = LinkOf(6);
    link.RemoveGeoRows(Rows{1, 4, 5});
    EXPECT_EQ(TableRows(link, 6), (Rows{102, 103, 106, 0, 0, 0}));
    link.CutGeoRows(2);
    EXPECT_EQ(TableRows(link, 6), (Rows{102, 103, 0, 0, 0, 0}));
}

TEST_F(GeoLink, APlotHasOneEntry) {
    const int slot = NewLinkedPlot(2);
    gMIGeoLinks.Add(slot, LinkOf(1, "Faults"));
    EXPECT_EQ(gMIGeoLinks.Count(), 1U);
    EXPECT_EQ(gMIGeoLinks.Item(slot)->MITableName, "Faults");
    EXPECT_EQ(gMIGeoLinks.SlotOfTable("FAULTS"), slot);
    EXPECT_EQ(gMIGeoLinks.SlotOfTable("Joints"), 0);
    gMIGeoLinks.Remove(slot);
    EXPECT_EQ(gMIGeoLinks.Item(slot), nullptr);
}

TEST_F(GeoLink, FollowsDeletedRowsTheirUndoAndItsRedo) {
    const int slot = NewLinkedPlot(5);
    SelectRows(slot, {2, 3});
    EditSelection(kDeleteItem);
    const MIGeoLink& link = *gMIGeoLinks.Item(slot);
    EXPECT_EQ(TableRows(link, 5), (Rows{101, 104, 105, 0, 0}));
    UndoEdits();
    EXPECT_EQ(TableRows(link, 5), (Rows{101, 102, 103, 104, 105}));
    RedoEdits();
    EXPECT_EQ(TableRows(link, 5), (Rows{101, 104, 105, 0, 0}));
}

TEST_F(GeoLink, RowsPastedBehindAreNotLinkedEvenWhereOthersWent) {
    const int slot = NewLinkedPlot(3);
    SelectRows(slot, {3});
    EditSelection(kCutItem);
    EditSelection(kPasteItem);
    ASSERT_EQ(RecordOf(slot).NumLoadedData, 3);
    EXPECT_EQ(TableRows(*gMIGeoLinks.Item(slot), 3), (Rows{101, 102, 0}));
    UndoEdits();
    EXPECT_EQ(TableRows(*gMIGeoLinks.Item(slot), 3), (Rows{101, 102, 0}));
}

TEST_F(GeoLink, RowsOfAnOverlayGoWithIt) {
    const int slot = NewPlot();
    AddRow(10, 20);
    AddOverlay(kOverlayPoles, 30, 40, CodeOfStyleRow(0));
    gMIGeoLinks.Add(slot, LinkOf(2));
    RemoveLastOverlay(slot);
    AddOverlay(kOverlayPoles, 50, 60, CodeOfStyleRow(0));
    EXPECT_EQ(TableRows(*gMIGeoLinks.Item(slot), 2), (Rows{101, 0}));
}

TEST_F(GeoLink, AnUndoBringsNoEndedLinkBack) {
    const int slot = NewLinkedPlot(3);
    SelectRows(slot, {1});
    EditSelection(kDeleteItem);
    RemoveGeoLink(slot);
    EXPECT_EQ(RecordOf(slot).MapInfoLinked, 0);
    UndoEdits();
    EXPECT_EQ(gMIGeoLinks.Item(slot), nullptr);
    EXPECT_EQ(RecordOf(slot).MapInfoLinked, 0);
}

TEST_F(GeoLink, GoesWithItsPlot) {
    const int first = NewLinkedPlot(2);
    const int second = NewLinkedPlot(2);
    ClosePlot(first);
    EXPECT_EQ(gMIGeoLinks.Item(first), nullptr);
    EXPECT_NE(gMIGeoLinks.Item(second), nullptr);
}

TEST_F(GeoLink, EndsWhenTheUserAddsAPoint) {
    const int slot = NewLinkedPlot(2);
    Expect("break its link to the MapInfo Table", Button::Yes);
    ASSERT_TRUE(AddPointToPlot("45", "90"));
    EXPECT_EQ(gMIGeoLinks.Item(slot), nullptr);
}

TEST_F(GeoLink, ComesBackWhenThePointThatEndedItIsTakenBack) {
    Link();
    const int slot = NewLinkedPlot(2);
    Expect("break its link to the MapInfo Table", Button::Yes);
    ASSERT_TRUE(AddPointToPlot("45", "90"));
    UndoEdits();
    ASSERT_NE(gMIGeoLinks.Item(slot), nullptr);
    EXPECT_NE(RecordOf(slot).MapInfoLinked, 0);
    EXPECT_EQ(gMIGeoLinks.Item(slot)->RowCount(), 2U);
    RedoEdits();
    EXPECT_EQ(gMIGeoLinks.Item(slot), nullptr);
    EXPECT_EQ(RecordOf(slot).MapInfoLinked, 0);
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    CloseMapInfoLink();
    UndoEdits();
    EXPECT_EQ(gMIGeoLinks.Item(slot), nullptr) << "the session has gone";
}

} // namespace
} // namespace quandrel
