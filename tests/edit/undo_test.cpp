// SPDX-License-Identifier: MIT

#include "edit/edit_plot.h"
#include "edit/kept_rows.h"
#include "edit/undo.h"

namespace quandrel {

namespace {

using Undo = EditTest;
using Texts = std::vector<std::string>;

/// Moves a row as an edit does.
void Move(int slot, std::int32_t row, std::int32_t dip) {
    const std::vector<std::int32_t> rows = {row};
    KeepForUndo(kMoveEdit, rows);
    gDataDip.At(slot, row) = dip;
    RebuildRowTable(slot);
    SealUndo();
}

TEST_F(Undo, OfAMoveGivesTheVeryOrientationBackOnce) {
    const int slot = NewPlanes({{31, 121}, {60, 300}});
    const Texts before = Rows(slot);
    const std::vector<Point> places = Places(slot);
    Move(slot, 1, 77);
    EXPECT_EQ(gLastEditKind, kMoveEdit);
    EXPECT_EQ(UndoCaption(), "&Undo Move");
    UndoLastEdit();
    EXPECT_EQ(Rows(slot), before);
    ExpectSamePlace(Places(slot)[0], places[0]);
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(UndoCaption(), "&Undo");
    UndoLastEdit();
    EXPECT_EQ(Rows(slot), before);
}

TEST_F(Undo, HasOneLevel) {
    const int slot = NewPlanes({{31, 121}});
    Move(slot, 1, 40);
    Move(slot, 1, 50);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(slot, 1), 40);
    EXPECT_FALSE(CanUndo());
}

TEST_F(Undo, OfAnAddedRowTakesItAway) {
    const int slot = NewPlanes({{31, 121}});
    AddFields();
    const Texts before = Rows(slot);
    std::optional<KeptRows> alone = RowsBeforeEdit();
    AddRow(5, 6);
    const Texts behind = Rows(slot);
    KeepStateForUndo(kAddEdit, std::move(alone));
    SealUndo();
    EXPECT_EQ(Rows(slot), behind);
    UndoLastEdit();
    EXPECT_EQ(Rows(slot), before);
    RedoLastEdit();
    EXPECT_EQ(Rows(slot), behind);
}

TEST_F(Undo, OfAnAddedRowTakesAnOverlayThatHoldsNothingElse) {
    const int slot = NewPlanes({{31, 121}});
    const Texts before = Rows(slot);
    std::optional<KeptRows> alone = RowsBeforeEdit();
    AddOverlay(kOverlayPolarLines, 5, 6, CodeOfStyleRow(2));
    KeepStateForUndo(kAddEdit, std::move(alone));
    SealUndo();
    UndoLastEdit();
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(RecordOf(slot).OverlayRows[0], 0);
}

TEST_F(Undo, AfterADisplayChangeStillGivesTheRowsBack) {
    const int slot = NewPlanes({{31, 121}, {60, 300}});
    Move(slot, 1, 77);
    RecordOf(slot).PlotKind = kEqualAngle;
    RebuildRowTable(slot);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(slot, 1), 31);
    EXPECT_EQ(RecordOf(slot).PlotKind, kEqualAngle);
}

TEST_F(Undo, OfAMovePutsTheMarqueeBackWhereItWas) {
    const int slot = NewLines({{45, 90}});
    StandMarquee(slot, {400, 100}, {700, -100});
    SelectRowsInMarquee();
    ASSERT_EQ(gSelectionRows, (std::vector<std::int32_t>{1}));
    Move(slot, 1, 60);
    ShiftMarquee(-200, 50);
    const std::array<float, 7> moved = gMarquee;
    UndoLastEdit();
    EXPECT_EQ(gMarquee, (std::array<float, 7>{0, 400, 100, 300, -200, 0, 9999}));
    EXPECT_EQ(gSelectionRows, (std::vector<std::int32_t>{1}));
    RedoLastEdit();
    EXPECT_EQ(gMarquee, moved);
}

TEST_F(Undo, OfAMovePutsALassoBack) {
    const int slot = NewLines({{45, 90}});
    StandLasso(slot, {{400, 100}, {700, 100}, {550, -300}});
    SelectRowsInMarquee();
    Move(slot, 1, 60);
    ShiftMarquee(-200, 50);
    UndoLastEdit();
    ASSERT_EQ(gLasso.size(), 3U);
    EXPECT_EQ(gLasso[2].x, 550);
    EXPECT_EQ(gLasso[2].y, -300);
}

TEST_F(Undo, LeavesWhatElseHasChangedToBeSaved) {
    const int slot = NewPlanes({{31, 121}});
    RecordOf(slot).Modified = 0;
    Move(slot, 1, 77);
    RecordOf(slot).Modified = kTrue; // a girdle is drawn
    UndoLastEdit();
    EXPECT_NE(RecordOf(slot).Modified, 0);
    RedoLastEdit();
    UndoLastEdit();
    EXPECT_NE(RecordOf(slot).Modified, 0);
}

TEST_F(Undo, AnEmptyListKeepsNothing) {
    NewPlanes({{31, 121}});
    KeepForUndo(kMoveEdit, {});
    EXPECT_FALSE(CanUndo());
    KeepStateForUndo(kAddEdit, std::nullopt);
    EXPECT_FALSE(CanUndo());
}

TEST_F(Undo, OfAnnotationsPutsThemBack) {
    const int slot = NewPlanes({{31, 121}});
    PlotRecord& record = RecordOf(slot);
    record.PlotAnnotations = std::make_unique<Annotations>();
    record.PlotAnnotations->push_back({10, 20, 21, 3, 4, 0, "1", {{5, 6}}});
    KeepAnnotationsForUndo(kAnnotationDelete);
    record.PlotAnnotations->clear();
    SealUndo();
    EXPECT_EQ(UndoCaption(), "&Undo deletion");
    EXPECT_EQ(gLastEditKind, 105);
    UndoLastEdit();
    ASSERT_EQ(record.PlotAnnotations->size(), 1U);
    EXPECT_EQ(record.PlotAnnotations->front().LineNodes.front().Y, 6);
    EXPECT_EQ(gActiveLayer, kAnnotationLayer);
    RedoLastEdit();
    EXPECT_TRUE(record.PlotAnnotations->empty());
}

TEST_F(Undo, WaitsForALongLoop) {
    const int slot = NewPlanes({{31, 121}});
    Move(slot, 1, 77);
    gBusy = true;
    UndoLastEdit();
    gBusy = false;
    EXPECT_EQ(gDataDip(slot, 1), 77);
    EXPECT_TRUE(CanUndo());
}

TEST_F(Undo, EndsWithThePlot) {
    const int slot = NewPlanes({{31, 121}});
    Move(slot, 1, 77);
    ReleasePlotSlot(slot);
    EXPECT_FALSE(CanUndo());
}

TEST_F(Undo, NamesEachEdit) {
    const struct {
        EditKind kind;
        const char* caption;
    } cases[] = {{kCutEdit, "&Undo Cut"},
                 {kPasteEdit, "&Undo Paste"},
                 {kMoveEdit, "&Undo Move"},
                 {kSymbolEdit, "&Undo Change"},
                 {kAnnotationCut, "&Undo Cut"},
                 {kAnnotationPaste, "&Undo paste"},
                 {kAnnotationMove, "&Undo Move"},
                 {kAnnotationDelete, "&Undo deletion"},
                 {kAnnotationSymbol, "&Undo Change"}};

    NewPlanes({{31, 121}});
    const std::vector<std::int32_t> rows = {1};
    for (const auto& row : cases) {
        KeepForUndo(row.kind, rows);
        EXPECT_EQ(UndoCaption(), row.caption) << row.kind;
    }
}

} // namespace

} // namespace quandrel
