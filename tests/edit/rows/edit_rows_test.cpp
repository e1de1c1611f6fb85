// SPDX-License-Identifier: MIT

#include "core/row_links.h"
#include "derive/derived_plots.h"
#include "edit/commands/edit_menu.h"
#include "edit/edit_plot.h"
#include "edit/history/edit_step.h"
#include "edit/rows/edit_rows.h"
#include "edit/rows/remove_rows.h"
#include "input/data_rows.h"
#include "input/plot_files.h"
#include "rotation/rotate_data.h"
#include "support/trial.h"

#include <algorithm>
#include <random>

namespace quandrel {

namespace {

using EditRows = EditTest;
using Texts = std::vector<std::string>;

/// The model: rows as a vector of texts, some of them erased.
Texts Without(Texts rows, std::vector<std::int32_t> removed) {
    std::sort(removed.rbegin(), removed.rend());
    for (const std::int32_t row : removed) {
        rows.erase(rows.begin() + row - 1);
    }
    return rows;
}

TEST_F(EditRows, RemovalLeavesTheOthersWithAllTheirFieldsInOrder) {
    std::mt19937 random(9);
    for (int round = 0; round < 20; ++round) {
        const int slot = NewPlanes({});
        for (int row = 0; row < 40; ++row) {
            AddRow(row % 7 == 3 ? kErrorRow : static_cast<std::int32_t>(random() % 91),
                   static_cast<std::int32_t>(random() % 360),
                   MakeSymbolCode(static_cast<int>(random() % 25), 1, 5));
        }
        AddFields();
        for (std::int32_t row = 4; row <= 40; row += 7) {
            PlotOf(slot).rows.errorLines[row] = "bad " + std::to_string(row);
        }
        std::vector<std::int32_t> removed;
        Texts before;
        for (std::int32_t row = 1; row <= 40; ++row) {
            before.push_back(RowText(slot, row));
            if (random() % 3 == 0) {
                removed.push_back(row);
            }
        }
        RemoveRows(slot, removed);
        Texts after;
        int valid = 0;
        for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
            after.push_back(RowText(slot, row));
            valid += gDataDip(slot, row) != kErrorRow ? 1 : 0;
        }
        EXPECT_EQ(after, Without(before, removed));
        EXPECT_EQ(RecordOf(slot).NumValidData, valid);
        EXPECT_EQ(RecordOf(slot).NumLoadedData, RecordOf(slot).NumData);
        EXPECT_EQ(TableOf(slot).size(), after.size());
        ReleasePlotSlot(slot);
    }
}

TEST_F(EditRows, RemovedRowsComeBackWithTheirPlacesOnTheMap) {
    const int slot = NewPlanes({{10, 20}, {30, 120}, {45, 270}});
    SetMapPlace(PlotOf(slot), 2, MapPlace{651234.125, -7.5});
    SetMapPlace(PlotOf(slot), 3, MapPlace{0, 0});
    SelectRows(slot, {2});
    RemoveSelectedRows(kCutEdit);
    EXPECT_EQ(MapPlaceOf(PlotOf(slot).rows, 2), (MapPlace{0, 0}));
    UndoLastEdit();
    EXPECT_EQ(MapPlaceOf(PlotOf(slot).rows, 1), std::nullopt);
    EXPECT_EQ(MapPlaceOf(PlotOf(slot).rows, 2), (MapPlace{651234.125, -7.5}));
    EXPECT_EQ(MapPlaceOf(PlotOf(slot).rows, 3), (MapPlace{0, 0}));
    RedoLastEdit();
    EXPECT_EQ(MapPlaceOf(PlotOf(slot).rows, 2), (MapPlace{0, 0}));
}

TEST_F(EditRows, CutOfAllRowsLeavesAnEmptyPlotAndUndoPutsThemBack) {
    const int slot = NewPlanes({{30, 120}, {kErrorRow, 0}, {60, 300}});
    AddFields();
    PlotOf(slot).rows.errorLines[2] = "no data";
    const Texts before = Rows(slot);
    SelectAll();
    SelectRows(slot, {1, 2, 3});
    EditSelection(kCutItem);
    const PlotRecord& record = RecordOf(slot);
    EXPECT_EQ(record.NumValidData, 0);
    EXPECT_NE(record.Modified, 0);
    EXPECT_EQ(gLastEditKind, kCutEdit);
    EXPECT_EQ(UndoCaption(), "&Undo Cut");
    UndoEdits();
    // The selection takes rows that can be plotted, so the error row was never cut.
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(gLastEditKind, kNoEdit);
    EXPECT_EQ(UndoCaption(), "&Undo");
    EXPECT_FALSE(CanUndo());
}

TEST_F(EditRows, CutCopiesAllFields) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    AddFields();
    SelectRows(slot, {2});
    EditSelection(kCutItem);
    EXPECT_EQ(CopiedRows(), Texts{"60\t300\t12\t102\t22\t202\t2.5\trock 2"});
    EXPECT_EQ(RecordOf(slot).NumData, 1);
}

TEST_F(EditRows, UndoOfACutDoesNotNeedTheClipboard) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    const Texts before = Rows(slot);
    SelectRows(slot, {1});
    EditSelection(kCutItem);
    clipboard.SetText("something else");
    UndoEdits();
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(Copied(), "something else");
}

TEST_F(EditRows, UndoAndRedoGoBackAndForth) {
    const int slot = NewPlanes({{30, 120}, {60, 300}, {10, 10}});
    AddFields();
    const Texts before = Rows(slot);
    SelectRows(slot, {2});
    EditSelection(kDeleteItem);
    EXPECT_EQ(Copied(), "");
    EXPECT_EQ(UndoCaption(), "&Undo deletion");
    const Texts behind = Rows(slot);
    ASSERT_NE(before, behind);
    for (int round = 0; round < 3; ++round) {
        EXPECT_FALSE(CanRedo());
        UndoEdits();
        EXPECT_EQ(Rows(slot), before);
        EXPECT_EQ(std::vector(gSelectionRows), std::vector<std::int32_t>{2});
        EXPECT_EQ(RedoCaption(), "Redo deletion");
        RedoEdits();
        EXPECT_EQ(Rows(slot), behind);
        EXPECT_EQ(gLastEditKind, kDeleteEdit);
    }
}

TEST_F(EditRows, AnotherEditEndsTheUndo) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    SelectRows(slot, {1});
    EditSelection(kDeleteItem);
    EXPECT_TRUE(CanUndo());
    gDataDip.At(slot, 1) = 61;
    EXPECT_FALSE(CanUndo());
    const Texts before = Rows(slot);
    UndoEdits();
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(UndoCaption(), "&Undo");
}

TEST_F(EditRows, ARedoIsGoneAfterAnotherChange) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    SelectRows(slot, {1});
    EditSelection(kDeleteItem);
    UndoEdits();
    EXPECT_TRUE(CanRedo());
    AddRow(5, 5);
    EXPECT_FALSE(CanRedo());
}

TEST_F(EditRows, ClosingThePlotForgetsItsUndoAlone) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    SelectRows(slot, {1});
    EditSelection(kDeleteItem);
    ForgetUndo(slot + 1);
    EXPECT_TRUE(CanUndo());
    ForgetUndo(slot);
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(gLastEditKind, kNoEdit);
}

TEST_F(EditRows, UndoGoesToThePlotOfTheEdit) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    SelectRows(slot, {1});
    EditSelection(kDeleteItem);
    NewPlanes({{1, 1}});
    gActiveLayer = kAnnotationLayer;
    UndoEdits();
    EXPECT_EQ(gActivePlot, slot);
    EXPECT_EQ(gActiveLayer, kDataLayer);
    EXPECT_EQ(RecordOf(slot).NumData, 2);
}

TEST_F(EditRows, UndoPutsTheStateOfTheFileBack) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    RecordOf(slot).Modified = 0;
    SelectRows(slot, {1});
    EditSelection(kDeleteItem);
    UndoEdits();
    EXPECT_EQ(RecordOf(slot).Modified, 0);
    RedoEdits();
    RecordOf(slot).Modified = 0; // saved
    UndoEdits();
    EXPECT_NE(RecordOf(slot).Modified, 0);
}

TEST_F(EditRows, CutOfTheLastOverlayRowsRemovesTheOverlay) {
    const int slot = NewPlanes({{30, 120}});
    AddOverlay(kOverlayLines, 20, 50, CodeOfStyleRow(3));
    AddOverlay(kOverlayPolarLines, -5, 200, CodeOfStyleRow(4));
    const Texts before = Rows(slot);
    SelectRows(slot, {2});
    EditSelection(kCutItem);
    const PlotRecord& record = RecordOf(slot);
    EXPECT_EQ(record.OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(record.OverlayRows[1], 1);
    EXPECT_EQ(record.OverlayKind[1], kOverlayPolarLines);
    EXPECT_EQ(record.NumData, 1);
    EXPECT_EQ(record.NumLoadedData, 2);
    EXPECT_EQ(gDataDip(slot, 2), -5);
    UndoEdits();
    EXPECT_EQ(Rows(slot), before);
}

TEST_F(EditRows, RowsOfTheSecondaryOverlayGoWithTheirMainRows) {
    const int slot = NewPlanes({{30, 120}, {60, 300}, {10, 10}});
    PlotRecord& record = RecordOf(slot);
    AddOverlay(kOverlayLines, 1, 1, CodeOfStyleRow(3));
    for (const std::int32_t plunge : {2, 3}) {
        AddOverlay(kOverlayLines, plunge, 1, CodeOfStyleRow(3));
    }
    record.OverlayRows = {};
    record.OverlayRows[kOverlayCount] = 1;
    record.OverlayRows[1] = 3;
    record.SelectedOverlay = 1;
    EXPECT_EQ(RowsToRemove(slot, std::vector<std::int32_t>{2}), (std::vector<std::int32_t>{2, 5}));
    SelectRows(slot, {2});
    EditSelection(kDeleteItem);
    EXPECT_EQ(record.OverlayRows[1], 2);
    EXPECT_EQ(record.SelectedOverlay, 1);
    EXPECT_EQ(gDataDip(slot, 4), 3);
    SelectRows(slot, {3});
    EditSelection(kDeleteItem);
    EXPECT_EQ(record.OverlayRows[1], 1);
    EXPECT_EQ(record.SelectedOverlay, 0);
    UndoEdits();
    EXPECT_EQ(record.SelectedOverlay, 1);
}

TEST_F(EditRows, BetaPlotsRefuseChangesAndSaySo) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    const Texts before = Rows(slot);
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    SelectRows(slot, {1, 2});
    for (const int item : {kCutItem, kDeleteItem, kChangeSymbolItem}) {
        Expect("Can't perform this action on a beta intersection plot");
        EditSelection(item);
    }
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(Copied(), "");
    EditSelection(kCopyItem);
    EXPECT_EQ(CopiedRows().size(), 1U);
}

TEST_F(EditRows, NothingSelectedChangesNothing) {
    const int slot = NewPlanes({{30, 120}});
    const Texts before = Rows(slot);
    clipboard.SetText("kept");
    for (const int item : {0, 1, 2, 3, 5, 8, 9}) {
        EditSelection(item);
    }
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(Copied(), "kept");
    EXPECT_FALSE(CanUndo());
}

TEST_F(EditRows, NothingHappensWhileALongLoopRuns) {
    const int slot = NewPlanes({{30, 120}});
    const Texts before = Rows(slot);
    SelectRows(slot, {1});
    gBusy = true;
    EditSelection(kCutItem);
    ChangeSymbols({{1, 1, 1}, {1, 1, 1}});
    gBusy = false;
    EXPECT_EQ(Rows(slot), before);
}

TEST_F(EditRows, CopyOfPointsWorksFromAnotherPlotThanTheActiveOne) {
    const int slot = NewPlanes({{30, 120}});
    SelectRows(slot, {1});
    NewPlanes({{1, 1}});
    EditSelection(kCopyItem);
    EXPECT_EQ(CopiedRows(), Texts{"30\t120"});
    clipboard.SetText("kept");
    EditSelection(kCopyAllItem);
    EditSelection(kCutItem);
    EXPECT_EQ(Copied(), "kept");
    EXPECT_EQ(RecordOf(slot).NumData, 1);
}

TEST_F(EditRows, LinkedPlotsTellWhichRowsGoAndStayLinked) {
    const int slot = NewPlanes({{30, 120}, {60, 300}, {10, 10}});
    ActiveRecord().MapInfoLinked = kTrue;
    std::vector<std::int32_t> told;
    ConnectRowFollower({.leave = [&](int, std::span<const std::int32_t> rows) {
        told.assign(rows.begin(), rows.end());
    }});
    SelectRows(slot, {1, 3});
    EditSelection(kCutItem);
    ConnectRowFollower({});
    EXPECT_EQ(told, (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(RecordOf(slot).MapInfoLinked, kTrue);
}

TEST_F(EditRows, CutAxesAreLinesFromThenOnUntilTheUndo) {
    const int slot = NewLines({{30, 120}, {-60, 300}}, kPolarLines);
    RecordOf(slot).AxesTitle = kBothAxes;
    RecordOf(slot).NumValidData = 1; // of one fault
    SelectRows(slot, {1});
    EditSelection(kCutItem);
    EXPECT_EQ(RecordOf(slot).AxesTitle, "");
    EXPECT_EQ(RecordOf(slot).NumValidData, 1);
    UndoEdits();
    EXPECT_EQ(RecordOf(slot).AxesTitle, kBothAxes);
    EXPECT_EQ(RecordOf(slot).NumValidData, 1);
}

TEST_F(EditRows, AnEditEndsTheUndoOfARotation) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    (void)RotateData(1, RotationSettings{});
    ASSERT_TRUE(CanUndoRotation());
    SelectRows(slot, {1});
    ChangeSymbols({{3, 4, 5}, {3, 4, 5}}); // changes no orientation
    EXPECT_FALSE(CanUndoRotation());
}

TEST_F(EditRows, TheUndoOfAnEditOffersTheRotationBeforeItAgain) {
    const int slot = NewPlanes({{30, 120}, {60, 300}});
    const Texts before = Rows(slot);
    RecordOf(slot).Modified = 0;
    RotationSettings turn;
    turn.angle = 90;
    (void)RotateData(1, turn);
    const Texts rotated = Rows(slot);
    ASSERT_NE(rotated, before);
    for (const int item : {kDeleteItem, kCutItem}) {
        SelectRows(slot, {1});
        EditSelection(item);
        EXPECT_FALSE(CanUndoRotation());
        UndoEdits();
        EXPECT_TRUE(CanUndoRotation()) << item;
        RedoEdits();
        EXPECT_FALSE(CanUndoRotation());
        UndoEdits();
    }
    EXPECT_EQ(Rows(slot), rotated);
    ASSERT_TRUE(UndoRotation());
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(RecordOf(slot).Modified, 0);
    EXPECT_FALSE(CanRedo()) << "the rows are other ones";
}

TEST_F(EditRows, EditsOfAnotherPlotLeaveTheRotationToBeTakenBack) {
    const int rotated = NewPlanes({{30, 120}, {60, 300}});
    RotationSettings turn;
    turn.angle = 90;
    (void)RotateData(1, turn);
    const int other = NewPlanes({{30, 120}});
    SelectRows(other, {1});
    EditSelection(kDeleteItem);
    gActivePlot = rotated;
    EXPECT_TRUE(CanUndoRotation());
}

TEST_F(EditRows, SymbolsChangeBySenseAndUndo) {
    const int slot = NewLines({{30, 120}, {-60, 300}, {10, 10}}, kPolarLines);
    const Texts before = Rows(slot);
    SelectRows(slot, {1, 2});
    ChangeSymbols({{3, 4, 5}, {6, 7, 8}});
    EXPECT_EQ(gDataSymbol(slot, 1), MakeSymbolCode(3, 4, 5));
    EXPECT_EQ(gDataSymbol(slot, 2), MakeSymbolCode(6, 7, 8));
    EXPECT_EQ(gDataSymbolBase(slot, 2), MakeSymbolCode(6, 7, 8));
    EXPECT_EQ(gDataSymbol(slot, 3), CodeOfStyleRow(0));
    EXPECT_EQ(UndoCaption(), "&Undo Change");
    const std::optional<RowStyles> styles = StylesOfSelection();
    ASSERT_TRUE(styles);
    EXPECT_EQ(styles->down, (SymbolRow{3, 4, 5}));
    EXPECT_EQ(styles->up, (SymbolRow{6, 7, 8}));
    UndoEdits();
    EXPECT_EQ(Rows(slot), before);
}

TEST_F(EditRows, SymbolsOfTheTopOverlayChangeWithoutASelection) {
    const int slot = NewPlanes({{30, 120}});
    EXPECT_FALSE(StylesOfSelection());
    AddOverlay(kOverlayLines, 20, 50, CodeOfStyleRow(3));
    gDataSymbolBase.At(slot, 2) = CodeOfStyleRow(3);
    ChangeSymbols({{3, 4, 5}, {6, 7, 8}});
    EXPECT_EQ(gDataSymbol(slot, 1), CodeOfStyleRow(0));
    EXPECT_EQ(gDataSymbol(slot, 2), MakeSymbolCode(3, 4, 5));
}

TEST_F(EditRows, RemovedOverlaysCanBeTakenBack) {
    const int slot = NewPlanes({{30, 120}});
    AddOverlay(kOverlayLines, 20, 50, CodeOfStyleRow(3));
    SelectRows(slot, {1});
    ChangeSymbols({{3, 4, 5}, {6, 7, 8}});
    RecordOf(slot).SelectedOverlay = 1;
    RemoveOverlay();
    EXPECT_EQ(RecordOf(slot).OverlayRows[kOverlayCount], 1);
    RecordOf(slot).SelectedOverlay = 0;
    RemoveOverlay();
    EXPECT_EQ(RecordOf(slot).OverlayRows[kOverlayCount], 0);
    EXPECT_EQ(RecordOf(slot).NumLoadedData, 1);
    RemoveOverlay();
    EXPECT_EQ(RecordOf(slot).NumData, 1);
    EXPECT_EQ(UndoCaption(), "&Undo Removal");
    UndoEdits();
    EXPECT_EQ(RecordOf(slot).OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(RecordOf(slot).OverlayKind[1], kOverlayLines);
    EXPECT_EQ(gDataDip(slot, 2), 20);
    RedoEdits();
    EXPECT_EQ(RecordOf(slot).NumLoadedData, 1);
}

TEST_F(EditRows, LayersOfRemovedOverlaysComeBackWithThem) {
    const int slot = NewPlanes({{30, 120}});
    AddOverlay(kOverlayLines, 20, 50, CodeOfStyleRow(3));
    FigureLayer overlay;
    overlay.LayerOf = kLayerOfOverlay;
    overlay.LayerIndex = 1;
    overlay.LayerShow = kShowGreatCircles;
    RecordOf(slot).Layers = {FigureLayer(), overlay};
    const std::vector<FigureLayer> before = RecordOf(slot).Layers;
    RemoveOverlay();
    EXPECT_EQ(RecordOf(slot).Layers.size(), 1U);
    UndoEdits();
    EXPECT_EQ(RecordOf(slot).Layers, before);
    RedoEdits();
    EXPECT_EQ(RecordOf(slot).Layers.size(), 1U);
}

TEST_F(EditRows, TheFileOfARemovedOverlayComesBackWithIt) {
    const int slot = NewPlanes({{30, 120}});
    PlotRecord& record = RecordOf(slot);
    const auto open = [&](const std::string& path, int overlay) {
        TakeFileIn(record, path);
        if (overlay > 0) {
            AddOverlay(kOverlayLines, 20, 50, CodeOfStyleRow(3));
            record.OverlayFiles[static_cast<std::size_t>(overlay)] = {path};
        }
    };
    record.PlotTitle = "Plot 1: main.txt";
    AddFileName(record, "/data/main.txt");
    open("/data/over.txt", 1);
    open("/data/merged.txt", 0);
    const std::vector<std::string> files(record.FileNames.begin(), record.FileNames.end());
    const std::string title = record.PlotTitle;
    record.Modified = 0;
    RemoveOverlay();
    EXPECT_FALSE(IsInPlot(record, "/data/over.txt"));
    UndoEdits();
    EXPECT_EQ(std::vector<std::string>(record.FileNames.begin(), record.FileNames.end()), files);
    EXPECT_EQ(record.PlotTitle, title);
    EXPECT_EQ(record.OverlayFiles[1], std::vector<std::string>{"/data/over.txt"});
    EXPECT_EQ(record.Modified, 0);
    RedoEdits();
    EXPECT_EQ(record.NumFiles, 2);
    EXPECT_EQ(record.PlotTitle, "Plot 1: main.txt + merged.txt");
    record.FileNames[kFirstFile] = "/data/saved_as.qpx";
    record.PlotTitle = "Plot 1: saved_as.qpx + merged.txt";
    UndoEdits();
    EXPECT_EQ(record.FileNames[kFirstFile], "/data/saved_as.qpx") << "a save since keeps its name";
    EXPECT_TRUE(IsInPlot(record, "/data/over.txt"));
    EXPECT_EQ(record.PlotTitle, "Plot 1: saved_as.qpx + merged.txt + over.txt");
}

TEST_F(EditRows, RangeOfAppendedNumbersFollowsARemoval) {
    const int slot = NewPlanes({{30, 120}, {60, 300}, {10, 10}});
    AddFields();
    RecountAppendedRange();
    EXPECT_EQ(RecordOf(slot).AppendedMax[kOfNumbers], 3.5);
    SelectRows(slot, {3});
    EditSelection(kDeleteItem);
    EXPECT_EQ(RecordOf(slot).AppendedMax[kOfNumbers], 2.5);
    UndoEdits();
    EXPECT_EQ(RecordOf(slot).AppendedMax[kOfNumbers], 3.5);
}

/// The counts of a plot are consistent with each other and with its table.
void ExpectSound(int slot) {
    const PlotRecord& record = RecordOf(slot);
    std::int32_t overlays = 0;
    for (int k = 1; k <= record.OverlayRows[kOverlayCount]; ++k) {
        EXPECT_GT(record.OverlayRows[static_cast<std::size_t>(k)], 0);
        overlays += record.OverlayRows[static_cast<std::size_t>(k)];
    }
    EXPECT_EQ(record.NumData + overlays, record.NumLoadedData);
    EXPECT_EQ(TableOf(slot).size(), static_cast<std::size_t>(record.NumLoadedData));
    std::int32_t valid = 0;
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        valid += gDataDip(slot, row) != kErrorRow ? 1 : 0;
    }
    EXPECT_EQ(record.NumValidData, valid);
}

using EditRowsTrial = EditRows;

TEST_F(EditRowsTrial, AnyEditIsTakenBackAndMadeAgainExactly) {
    const int rounds = TrialRounds(2000);
    std::mt19937 random(2026);
    const auto below = [&random](int end) {
        return static_cast<std::int32_t>(random() % static_cast<unsigned>(end));
    };
    std::vector<int> slots;
    for (int plot = 0; plot < 4; ++plot) {
        std::vector<Attitude> rows;
        for (int row = 0; row < 12; ++row) {
            rows.push_back({row == 5 ? kErrorRow : below(91), below(361)});
        }
        slots.push_back(plot % 2 == 0 ? NewPlanes(rows) : NewLines(rows, kPolarLines));
        if (plot >= 2) {
            AddFields();
        } else {
            AddOverlay(kOverlayLines, below(91), below(361), CodeOfStyleRow(3));
            RecordOf(slots.back()).OverlayFiles[1] = {"a.txt"};
        }
    }
    int undone = 0;
    for (int step = 0; step < rounds; ++step) {
        const int slot = slots[static_cast<std::size_t>(below(4))];
        gActivePlot = slot;
        std::vector<std::int32_t> chosen;
        for (std::int32_t row = 1; row <= RecordOf(slot).NumLoadedData; ++row) {
            if (below(3) == 0) {
                chosen.push_back(row);
            }
        }
        SelectRows(slot, chosen);
        const Texts before = Rows(slot);
        ForgetUndo();
        const int item = 1 + below(6);
        if (item == kChangeSymbolItem) {
            ChangeSymbols({{static_cast<std::int16_t>(below(25)), 3, 4}, {1, 2, 3}});
        } else if (item != kPasteItem || RecordOf(slot).NumLoadedData < 60) {
            prompts.ExpectAny("You are trying to paste");
            prompts.ExpectAny("of the text");
            EditSelection(item);
        }
        ExpectSound(slot);
        const Texts behind = Rows(slot);
        EXPECT_EQ(CanUndo(), before != behind || gLastEditKind != kNoEdit) << step;
        if (CanUndo()) {
            ++undone;
            UndoEdits();
            EXPECT_EQ(Rows(slot), before) << "step " << step << " item " << item;
            ExpectSound(slot);
            RedoEdits();
            EXPECT_EQ(Rows(slot), behind) << "step " << step << " item " << item;
        }
        if (::testing::Test::HasFailure()) {
            break;
        }
    }
    EXPECT_GT(undone, rounds / 4);
}

} // namespace

} // namespace quandrel
