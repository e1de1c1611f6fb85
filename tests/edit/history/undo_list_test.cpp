// SPDX-License-Identifier: MIT
//
// Long sequences of edits that are undone and redone, compared with full copies of the plots after
// each.

#include "core/replot.h"
#include "edit/commands/edit_menu.h"
#include "edit/edit_plot.h"
#include "edit/grids/data_grid.h"
#include "edit/history/edit_step.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdle_pull.h"
#include "edit/marks/girdles.h"
#include "edit/rows/add_point.h"
#include "edit/rows/edit_rows.h"
#include "edit/rows/move_rows.h"
#include "edit/rows/remove_rows.h"
#include "edit/rows/row_change.h"
#include "input/data_rows.h"
#include "orientation/projection.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/binary_plot.h"
#include "rotation/rotate_data.h"

#include <map>
#include <random>
#include <utility>

namespace quandrel {

namespace {

using Texts = std::vector<std::string>;

/// Everything that an edit may change in a plot, as it would be written or shown.
struct PlotImage {
    Texts rows;
    Texts marks;
    std::string file;
    std::string text;

    bool operator==(const PlotImage&) const = default;
};

using Image = std::map<int, PlotImage>;

class UndoList : public EditTest {
protected:
    void TearDown() override {
        gActiveGirdle = 0;
        SetUndoMemory(kUndoMemory);
        EditTest::TearDown();
    }

    static Texts MarksOf(int slot) {
        Texts marks = {std::to_string(RecordOf(slot).ShowAnnotations)};
        for (const Annotation& mark : AnnotationsOf(slot)) {
            marks.push_back(mark.Tag + " " + std::to_string(mark.X) + " " + std::to_string(mark.Y)
                            + " " + std::to_string(mark.Colour) + " "
                            + std::to_string(mark.LineNodes.size()));
        }
        for (int row = kFirstUserGirdle; row <= kLastUserGirdle; ++row) {
            const auto& girdle = RecordOf(slot).AxisItems[static_cast<std::size_t>(row)];
            marks.push_back(TextOf(girdle[kItemShown]) + TextOf(girdle[kItemText])
                            + TextOf(girdle[kItemPlunge]));
        }
        return marks;
    }

    static PlotImage ImageOf(int slot) {
        const PlotInWork work(slot);
        return {Rows(slot), MarksOf(slot), *BinaryPlotBytes(slot), AsciiPlotText()};
    }

    [[nodiscard]] Image ImageOfAll() const {
        Image image;
        for (const int slot : slots_) {
            image[slot] = ImageOf(slot);
        }
        return image;
    }

    std::int32_t Below(int end) {
        return static_cast<std::int32_t>(random_() % static_cast<unsigned>(end));
    }

    void MakePlots() {
        for (int plot = 0; plot < 3; ++plot) {
            std::vector<Attitude> rows;
            for (int row = 0; row < 12; ++row) {
                rows.push_back({Below(91), Below(361)});
            }
            slots_.push_back(plot == 1 ? NewLines(rows, kPolarLines) : NewPlanes(rows));
            if (plot == 2) {
                AddFields();
            } else if (plot == 1) {
                AddOverlay(kOverlayLines, Below(91), Below(361), CodeOfStyleRow(3));
            }
            ReplotActivePlot(true);
        }
    }

    /// Selects some rows of the active plot, or a rectangle of the net.
    void Select() {
        if (Below(3) == 0) {
            StandMarquee(gActivePlot, PlaceOnNet(), PlaceOnNet());
            SelectRowsInMarquee();
            return;
        }
        std::vector<std::int32_t> chosen;
        for (std::int32_t row = 1; row <= ActiveRecord().NumLoadedData; ++row) {
            if (Below(4) == 0) {
                chosen.push_back(row);
            }
        }
        SelectRows(gActivePlot, chosen);
    }

    Point PlaceOnNet() {
        return {static_cast<double>(Below(1200) - 600), static_cast<double>(Below(1200) - 600)};
    }

    void EditRowsOnce() {
        const Point at = PlaceOnNet();
        switch (Below(9)) {
        case 0:
            EditSelection(kCutItem);
            return;
        case 1:
            EditSelection(ActiveRecord().NumLoadedData < 40 ? kPasteItem : kDeleteItem);
            return;
        case 2:
            MoveSelection(at.x / 8, at.y / 8);
            return;
        case 3:
        case 4:
            isInRun_ = NudgeSelection(1, -2) > 0;
            return;
        case 5:
            ChangeSymbols({{static_cast<std::int16_t>(Below(25)), 3, 4}, {1, 2, 3}});
            return;
        case 6:
            RemoveOverlay();
            return;
        case 7:
            EditCells();
            return;
        default:
            AddStereoPoint(1 + Below(2), at.x, at.y);
        }
    }

    void EditCells() {
        DataGrid grid(gActivePlot);
        if (grid.RowCount() == 0) {
            return;
        }
        for (int cell = 0; cell < 3; ++cell) {
            const auto row = static_cast<std::size_t>(Below(static_cast<int>(grid.RowCount())));
            grid.SetCell(row, static_cast<std::size_t>(1 + Below(8)),
                         Below(8) == 0 ? "nowhere" : std::to_string(Below(90)));
        }
        if (Below(2) == 0 && grid.AddRow()) {
            grid.SetCell(grid.RowCount() - 1, 1, std::to_string(Below(90)));
            grid.SetCell(grid.RowCount() - 1, 2, std::to_string(Below(360)));
        }
        ApplyGridEdits(grid);
    }

    void EditMarksOnce() {
        const Point at = PlaceOnNet();
        UseLayer(kAnnotationLayer);
        switch (Below(7)) {
        case 0:
        case 1:
            AddStereoPoint(1 + Below(2), at.x, at.y);
            break;
        case 2:
            (void)ExtendAnnotation(at.x, at.y);
            break;
        case 3:
            (void)MoveAnnotations(at.x / 8, at.y / 8);
            break;
        case 4:
            ChangeAnnotationSymbols({{static_cast<std::int16_t>(Below(25)), 3, 4}, {1, 2, 3}});
            break;
        case 5:
            EditAnnotations(Below(2) == 0 ? kDeleteAnnotations : kCutAnnotations);
            break;
        default:
            EditAnnotations(kPasteAnnotations);
        }
        UseLayer(kDataLayer);
    }

    void PullGirdle() {
        FocusGirdle(1 + Below(8));
        const Point at = PlaceOnNet();
        ChangeUserGirdle(1 + Below(2), 1, at.x, at.y);
        ReleaseGirdle();
        LeaveGirdles();
    }

    /// An edit of some plot, which may have no effect.
    void EditOnce() {
        if (std::exchange(isInRun_, false) && Below(2) == 0) {
            isInRun_ = NudgeSelection(-1, 3) > 0;
            return;
        }
        gActivePlot = slots_[static_cast<std::size_t>(Below(3))];
        if (Below(3) > 0) {
            Select();
        }
        for (const char* question : {"You are trying to paste", "of the text", "Plot it in",
                                     "No annotations", "No annotations have", "The data on"}) {
            prompts.ExpectAny(question);
        }
        const std::int32_t kind = Below(10);
        if (kind < 7) {
            EditRowsOnce();
        } else if (kind < 9) {
            EditMarksOnce();
        } else {
            PullGirdle();
        }
    }

    /// Makes edits, and records what each step leaves.
    void MakeEdits(int count) {
        for (int edit = 0; edit < count; ++edit) {
            const std::size_t before = UseOfUndo().steps;
            EditOnce();
            const std::size_t steps = UseOfUndo().steps;
            Image image = ImageOfAll();
            if (steps > before) {
                ASSERT_EQ(steps, before + 1) << "edit " << edit;
                states_.push_back(std::move(image));
            } else {
                ASSERT_EQ(steps, before);
                joined_ += image != states_.back() ? 1 : 0;
                states_.back() = std::move(image);
            }
        }
    }

    void ExpectState(std::size_t state) {
        for (const int slot : slots_) {
            const PlotImage now = ImageOf(slot);
            const PlotImage& then = states_[state].at(slot);
            EXPECT_EQ(now.rows, then.rows) << "state " << state << " plot " << slot;
            EXPECT_EQ(now.marks, then.marks) << "state " << state << " plot " << slot;
            EXPECT_EQ(now.text, then.text) << "state " << state << " plot " << slot;
            EXPECT_TRUE(now.file == then.file) << "state " << state << " plot " << slot;
        }
    }

    std::mt19937 random_{20261122};
    std::vector<int> slots_;
    std::vector<Image> states_;
    bool isInRun_ = false; ///< the last edit was a step
    int joined_ = 0;       ///< steps of a run that went on
};

TEST_F(UndoList, GoesBackToTheStartAndForwardToTheEndThroughTheVeryStates) {
    MakePlots();
    states_.push_back(ImageOfAll());
    MakeEdits(300);
    const std::size_t last = states_.size() - 1;
    ASSERT_GT(last, 180U);
    EXPECT_GT(joined_, 3);
    for (std::size_t state = last; state > 0 && !HasFailure(); --state) {
        ASSERT_TRUE(CanUndo()) << state;
        UndoLastEdit();
        ExpectState(state - 1);
    }
    EXPECT_FALSE(CanUndo());
    for (std::size_t state = 1; state <= last && !HasFailure(); ++state) {
        ASSERT_TRUE(CanRedo()) << state;
        RedoLastEdit();
        ExpectState(state);
    }
    EXPECT_FALSE(CanRedo());
}

TEST_F(UndoList, WandersBackAndForthBetweenNewEdits) {
    MakePlots();
    states_.push_back(ImageOfAll());
    for (int round = 0; round < 15 && !HasFailure(); ++round) {
        MakeEdits(8);
        std::size_t state = states_.size() - 1;
        for (int step = 0; step < 12; ++step) {
            const bool isBack = Below(3) > 0;
            ASSERT_EQ(CanUndo(), state > 0);
            ASSERT_EQ(CanRedo(), state + 1 < states_.size());
            if (isBack && state > 0) {
                UndoLastEdit();
                ExpectState(--state);
            } else if (!isBack && state + 1 < states_.size()) {
                RedoLastEdit();
                ExpectState(++state);
            }
        }
        while (state + 1 < states_.size()) { // the next edits begin at the end, so that all count
            RedoLastEdit();
            ExpectState(++state);
        }
    }
}

/// Moves a row as an edit does.
void Move(int slot, std::int32_t row, std::int32_t dip) {
    const PlotInWork work(slot);
    EditStep step(kMoveEdit, Before<RowChange>);
    gDataDip.At(slot, row) = dip;
    RebuildRowTable(slot);
    step.Finish(Redraw::Nothing);
}

TEST_F(UndoList, KeepsWhatTheMemoryHoldsAndDropsTheOldestFirst) {
    const int slot = NewPlanes({{10, 10}, {20, 20}});
    Move(slot, 1, 11);
    const std::size_t ofOne = UseOfUndo().bytes;
    SetUndoMemory(ofOne * 3);
    for (const std::int32_t dip : {12, 13, 14, 15}) {
        Move(slot, 1, dip);
        EXPECT_LE(UseOfUndo().bytes, ofOne * 3);
    }
    EXPECT_EQ(UseOfUndo().steps, 3U);
    SetUndoMemory(kUndoMemory);
    for (const std::int32_t dip : {14, 13, 12}) {
        UndoLastEdit();
        EXPECT_EQ(gDataDip(slot, 1), dip);
    }
    EXPECT_FALSE(CanUndo());
    SetUndoMemory(UseOfUndo().bytes - 1);
    EXPECT_EQ(UseOfUndo().steps, 2U) << "what would be made again last goes";
    RedoLastEdit();
    RedoLastEdit();
    EXPECT_EQ(gDataDip(slot, 1), 14);
    EXPECT_FALSE(CanRedo());
}

TEST_F(UndoList, KeepsTheNewestStepWhateverItTakes) {
    const int slot = NewPlanes(std::vector<Attitude>(1000, {10, 10}));
    SetUndoMemory(1);
    Move(slot, 1, 20);
    SelectAll();
    EditSelection(kDeleteItem);
    EXPECT_EQ(UseOfUndo().steps, 1U);
    UndoLastEdit();
    EXPECT_EQ(RecordOf(slot).NumData, 1000);
    EXPECT_FALSE(CanUndo());
}

TEST_F(UndoList, OfAMoveTakesTheMemoryOfTheRowsMoved) {
    const int slot = NewPlanes(std::vector<Attitude>(100000, {10, 10}));
    Move(slot, 5, 20);
    EXPECT_LT(UseOfUndo().bytes, 10000U);
    SelectRows(slot, {7, 70000});
    EditSelection(kDeleteItem);
    UndoLastEdit();
    SelectRows(slot, {3});
    EditSelection(kDeleteItem);
    EXPECT_LT(UseOfUndo().bytes, 20000U);
}

TEST_F(UndoList, KnowsTheStateThatWasSaved) {
    const int slot = NewPlanes({{10, 10}});
    std::int16_t& modified = RecordOf(slot).Modified;
    modified = 0;
    Move(slot, 1, 11);
    Move(slot, 1, 12);
    modified = 0; // saved
    Move(slot, 1, 13);
    EXPECT_NE(modified, 0);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(slot, 1), 12);
    EXPECT_EQ(modified, 0);
    UndoLastEdit();
    EXPECT_NE(modified, 0);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(slot, 1), 10);
    EXPECT_NE(modified, 0) << "the file has other rows now";
    RedoLastEdit();
    RedoLastEdit();
    EXPECT_EQ(modified, 0);
    RedoLastEdit();
    EXPECT_NE(modified, 0);
}

TEST_F(UndoList, OfAPlotThatHasChangedOtherwiseHasNoSavedState) {
    const int slot = NewPlanes({{10, 10}});
    std::int16_t& modified = RecordOf(slot).Modified;
    modified = 0;
    Move(slot, 1, 11);
    Move(slot, 1, 12);
    modified = kTrue; // a text was changed
    UndoLastEdit();
    UndoLastEdit();
    EXPECT_EQ(gDataDip(slot, 1), 10);
    EXPECT_NE(modified, 0);
}

TEST_F(UndoList, TakesTheEditsOfAllPlotsBackInTheirOrder) {
    const int one = NewPlanes({{10, 10}});
    const int other = NewPlanes({{50, 50}});
    Move(one, 1, 11);
    Move(other, 1, 51);
    Move(one, 1, 12);
    UndoLastEdit();
    EXPECT_EQ(gActivePlot, one);
    EXPECT_EQ(gDataDip(one, 1), 11);
    UndoLastEdit();
    EXPECT_EQ(gActivePlot, other);
    EXPECT_EQ(gDataDip(other, 1), 50);
    UndoLastEdit();
    EXPECT_EQ(gActivePlot, one);
    EXPECT_FALSE(CanUndo());
}

TEST_F(UndoList, ClosingAPlotDropsItsStepsAlone) {
    const int one = NewPlanes({{10, 10}});
    const int other = NewPlanes({{50, 50}});
    Move(one, 1, 11);
    Move(other, 1, 51);
    Move(one, 1, 12);
    ForgetUndo(one);
    EXPECT_EQ(UseOfUndo().steps, 1U);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(other, 1), 50);
    EXPECT_EQ(gDataDip(one, 1), 12);
}

TEST_F(UndoList, AnUnkeptEditOfRowsEndsStepsAndRotationOfItsPlot) {
    const int one = NewPlanes({{10, 10}});
    const int other = NewPlanes({{50, 50}});
    Move(one, 1, 11);
    Move(other, 1, 51);
    RotationSettings turn;
    turn.inclination = 30;
    turn.azimuth = 90;
    turn.angle = 45;
    RotationReport report;
    ASSERT_FALSE(ApplyRotation(turn, report));
    ASSERT_TRUE(CanUndoRotation());
    RecordOf(other).Modified = 0;
    FinishUnkeptRows(other, Redraw::Nothing);
    EXPECT_FALSE(CanUndoRotation());
    EXPECT_EQ(RecordOf(other).Modified, kTrue);
    EXPECT_EQ(UseOfUndo().steps, 1U);
    EXPECT_EQ(UndoSlot(), one);
}

TEST_F(UndoList, AnEditThatIsNotKeptEndsThatOfItsPlotAlone) {
    const int one = NewPlanes({{10, 10}});
    const int other = NewPlanes({{50, 50}});
    Move(one, 1, 11);
    Move(other, 1, 51);
    Move(other, 1, 52);
    gDataDip.At(other, 1) = 60;
    EXPECT_EQ(UndoSlot(), one);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(one, 1), 10);
    EXPECT_EQ(gDataDip(other, 1), 60);
    EXPECT_FALSE(CanUndo());
    Move(other, 1, 61);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(other, 1), 60);
    EXPECT_FALSE(CanUndo()) << "the steps before the edit that was not kept";
}

TEST_F(UndoList, SelectsTheRowsConcerned) {
    const int slot = NewPlanes({{10, 10}, {20, 20}, {30, 30}, {40, 40}});
    Move(slot, 2, 21);
    SelectRows(slot, {1, 3});
    EditSelection(kDeleteItem);
    ClearSelection();
    AddStereoPoint(kLeftMouseButton, 100, 100);
    UndoLastEdit();
    EXPECT_TRUE(gSelectionRows.empty());
    RedoLastEdit();
    EXPECT_EQ(gSelectionRows, std::vector<std::int32_t>{3}) << "the point added";
    UndoLastEdit();
    UndoLastEdit();
    EXPECT_EQ(gSelectionRows, (std::vector<std::int32_t>{1, 3})) << "the rows deleted";
    UndoLastEdit();
    EXPECT_EQ(gSelectionRows, std::vector<std::int32_t>{2}) << "the row moved";
    RedoLastEdit();
    EXPECT_EQ(gSelectionRows, std::vector<std::int32_t>{2});
    RedoLastEdit();
    EXPECT_TRUE(gSelectionRows.empty()) << "the rows are gone again";
}

TEST_F(UndoList, NumbersTheRowsConcernedAsTheyAreNow) {
    const int slot = NewPlanes({{10, 10}, {20, 20}, {30, 30}, {40, 40}});
    AddFields();
    const Texts before = Rows(slot);
    EditStep step(kGridEdit, Before<RowChange>);
    RemoveRows(slot, std::vector<std::int32_t>{1});
    gDataDip.At(slot, 1) = 21;             // formerly row 2; since no row is unchanged, the last
    gAppText.Set(slot, 2, "another rock"); // row counts as removed
    RebuildRowTable(slot);
    step.Finish(Redraw::Nothing);
    const Texts after = Rows(slot);
    UndoLastEdit();
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(gSelectionRows, (std::vector<std::int32_t>{1, 2, 3, 4}));
    RedoLastEdit();
    EXPECT_EQ(Rows(slot), after);
    EXPECT_EQ(gSelectionRows, (std::vector<std::int32_t>{1, 2, 3}));
}

TEST_F(UndoList, SelectsRowsThatWentAndOneThatChangedByTheirFormerNumbers) {
    const int slot = NewPlanes({{10, 10}, {20, 20}, {30, 30}, {40, 40}});
    EditStep step(kGridEdit, Before<RowChange>);
    PlotOf(slot).rows.errorLines[4] = "a line that was behind it";
    RemoveRows(slot, std::vector<std::int32_t>{1, 2});
    step.Finish(Redraw::Nothing);
    UndoLastEdit();
    EXPECT_TRUE(PlotOf(slot).rows.errorLines.empty());
    EXPECT_EQ(gSelectionRows, (std::vector<std::int32_t>{1, 2, 4}));
    RedoLastEdit();
    EXPECT_EQ(gSelectionRows, std::vector<std::int32_t>{2});
}

TEST_F(UndoList, OffersTheRotationBeforeTheEditsAgain) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    const Texts before = Rows(slot);
    RotationSettings turn;
    turn.angle = 90;
    (void)RotateData(1, turn);
    const Texts rotated = Rows(slot);
    Move(slot, 1, 5);
    Move(slot, 2, 6);
    UndoLastEdit();
    EXPECT_FALSE(CanUndoRotation());
    UndoLastEdit();
    EXPECT_EQ(Rows(slot), rotated);
    ASSERT_TRUE(CanUndoRotation());
    RedoLastEdit();
    EXPECT_FALSE(CanUndoRotation());
    UndoLastEdit();
    ASSERT_TRUE(UndoRotation());
    EXPECT_EQ(Rows(slot), before);
}

TEST_F(UndoList, APointAndItsLineAreOneStepEach) {
    NewPlanes({{30, 120}});
    UseLayer(kAnnotationLayer);
    ASSERT_TRUE(AddAnnotation(kLeftMouseButton, 0, 0));
    ASSERT_TRUE(ExtendAnnotation(50, 0));
    ASSERT_TRUE(AddAnnotation(kLeftMouseButton, 0, 100));
    ASSERT_TRUE(ExtendAnnotation(50, 100));
    ASSERT_TRUE(ExtendAnnotation(50, 200));
    EXPECT_EQ(UseOfUndo().steps, 2U);
    UndoLastEdit();
    ASSERT_EQ(AnnotationsOf(gActivePlot).size(), 1U);
    ASSERT_TRUE(ExtendAnnotation(50, 50));
    UndoLastEdit();
    ASSERT_EQ(AnnotationsOf(gActivePlot).size(), 1U);
    EXPECT_EQ(AnnotationsOf(gActivePlot)[0].LineNodes.size(), 2U);
    UndoLastEdit();
    EXPECT_TRUE(AnnotationsOf(gActivePlot).empty());
}

TEST(PairRows, FindsTheRowsThatWentOrCame) {
    const auto pairs = [](const std::string& before, const std::string& after) {
        const RowPairing pairing =
            PairRows(static_cast<std::int32_t>(before.size()),
                     static_cast<std::int32_t>(after.size()), [&](std::int32_t a, std::int32_t b) {
                         return before[static_cast<std::size_t>(a) - 1]
                                == after[static_cast<std::size_t>(b) - 1];
                     });
        return std::pair(pairing.removed, pairing.added);
    };
    using Rows = std::vector<std::int32_t>;
    using Pairing = std::pair<Rows, Rows>;
    EXPECT_EQ(pairs("abc", "abc"), (Pairing{{}, {}}));
    EXPECT_EQ(pairs("abc", "axc"), (Pairing{{}, {}})) << "changed in its place";
    EXPECT_EQ(pairs("abcde", "bd"), (Pairing{{1, 3, 5}, {}}));
    EXPECT_EQ(pairs("bd", "abcde"), (Pairing{{}, {1, 3, 5}}));
    EXPECT_EQ(pairs("", "ab"), (Pairing{{}, {1, 2}}));
    EXPECT_EQ(pairs("abc", ""), (Pairing{{1, 2, 3}, {}}));
    EXPECT_EQ(pairs("abc", "xb"), (Pairing{{3}, {}})) << "as if the last one had gone";
    EXPECT_EQ(pairs("ab", "xbc"), (Pairing{{}, {3}}));
}

} // namespace

} // namespace quandrel
