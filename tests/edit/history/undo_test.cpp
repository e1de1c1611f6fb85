// SPDX-License-Identifier: MIT

#include "edit/edit_plot.h"
#include "edit/history/edit_step.h"
#include "edit/history/undo.h"
#include "edit/marks/kept_annotations.h"
#include "edit/rows/row_change.h"

#include <new>

namespace quandrel {

namespace {

using Undo = EditTest;
using Texts = std::vector<std::string>;

/// Moves a row as an edit does.
void Move(int slot, std::int32_t row, std::int32_t dip) {
    EditStep step(kMoveEdit, Before<RowChange>);
    gDataDip.At(slot, row) = dip;
    RebuildRowTable(slot);
    step.Finish(Redraw::Nothing);
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

TEST_F(Undo, GoesBackStepByStepAndRedoForward) {
    const int slot = NewPlanes({{31, 121}});
    for (const std::int32_t dip : {40, 50, 60}) {
        Move(slot, 1, dip);
    }
    for (const std::int32_t dip : {50, 40, 31}) {
        ASSERT_TRUE(CanUndo());
        UndoLastEdit();
        EXPECT_EQ(gDataDip(slot, 1), dip);
    }
    EXPECT_FALSE(CanUndo());
    for (const std::int32_t dip : {40, 50, 60}) {
        ASSERT_TRUE(CanRedo());
        RedoLastEdit();
        EXPECT_EQ(gDataDip(slot, 1), dip);
    }
    EXPECT_FALSE(CanRedo());
    EXPECT_EQ(UndoCaption(), "&Undo Move");
}

TEST_F(Undo, ANewEditEndsTheRedo) {
    const int slot = NewPlanes({{31, 121}});
    Move(slot, 1, 40);
    Move(slot, 1, 50);
    UndoLastEdit();
    Move(slot, 1, 70);
    EXPECT_FALSE(CanRedo());
    UndoLastEdit();
    EXPECT_EQ(gDataDip(slot, 1), 40);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(slot, 1), 31);
}

TEST_F(Undo, OfAnAddedRowTakesItAway) {
    const int slot = NewPlanes({{31, 121}});
    AddFields();
    const Texts before = Rows(slot);
    EditStep step(kAddEdit, Before<RowChange>);
    AddRow(5, 6);
    const Texts behind = Rows(slot);
    step.Finish(Redraw::Nothing);
    EXPECT_EQ(Rows(slot), behind);
    UndoLastEdit();
    EXPECT_EQ(Rows(slot), before);
    RedoLastEdit();
    EXPECT_EQ(Rows(slot), behind);
}

TEST_F(Undo, OfAnAddedRowTakesAnOverlayThatHoldsNothingElse) {
    const int slot = NewPlanes({{31, 121}});
    const Texts before = Rows(slot);
    EditStep step(kAddEdit, Before<RowChange>);
    AddOverlay(kOverlayPolarLines, 5, 6, CodeOfStyleRow(2));
    step.Finish(Redraw::Nothing);
    UndoLastEdit();
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(RecordOf(slot).OverlayRows[kOverlayCount], 0);
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
    ASSERT_EQ(Selection::now.lasso.size(), 3U);
    EXPECT_EQ(Selection::now.lasso[2].x, 550);
    EXPECT_EQ(Selection::now.lasso[2].y, -300);
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

TEST_F(Undo, AnEditThatComesToNothingKeepsNothing) {
    const int slot = NewPlanes({{31, 121}});
    {
        const EditStep step(kMoveEdit, Before<RowChange>);
        EXPECT_TRUE(step.IsKept());
    }
    EXPECT_FALSE(CanUndo());
    Move(slot, 1, 40);
    { const EditStep step(kMoveEdit, Before<RowChange>); }
    EXPECT_TRUE(CanUndo());
}

std::unique_ptr<PlotChange> OutOfMemory(int /*slot*/) {
    throw std::bad_alloc();
}

TEST_F(Undo, AnEditThatThereIsNoMemoryForIsMadeAndEndsTheUndoOfItsPlot) {
    const int other = NewPlanes({{10, 10}});
    Move(other, 1, 20);
    const int slot = NewPlanes({{31, 121}});
    Move(slot, 1, 40);
    EditStep step(kMoveEdit, OutOfMemory);
    EXPECT_FALSE(step.IsKept());
    gDataDip.At(slot, 1) = 50;
    step.Finish(Redraw::Nothing);
    EXPECT_EQ(gDataDip(slot, 1), 50);
    EXPECT_EQ(UndoSlot(), other);
    EXPECT_EQ(UseOfUndo().steps, 1U);
}

TEST_F(Undo, OfAnnotationsPutsThemBack) {
    const int slot = NewPlanes({{31, 121}});
    PlotRecord& record = RecordOf(slot);
    record.PlotAnnotations = std::make_unique<Annotations>();
    record.PlotAnnotations->push_back({10, 20, 21, 3, 4, 0, "1", {{5, 6}}});
    EditStep step(kAnnotationDelete, Before<PropertyChange<AnnotationsProperty>>);
    record.PlotAnnotations->clear();
    step.Finish(Redraw::Nothing);
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
    for (const auto& row : cases) {
        EditStep(row.kind, Before<RowChange>).Finish(Redraw::Nothing);
        EXPECT_EQ(UndoCaption(), row.caption) << row.kind;
    }
}

} // namespace

} // namespace quandrel
