// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "edit/commands/edit_menu.h"
#include "edit/history/edit_step.h"
#include "edit/history/undo.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotation_tags.h"
#include "edit/marks/annotation_text.h"
#include "edit/marks/annotations.h"
#include "edit/rows/clipboard_text.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/marquee.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"
#include "support/trial.h"

#include <algorithm>
#include <random>

namespace quandrel {
namespace {

Annotation MarkAt(std::int16_t x, std::int16_t y, const std::string& tag = "1") {
    return {x, y, kLeftAnnotationStyle, 7, 4, 0, tag, {}};
}

Annotations WithTags(const std::vector<std::string>& tags) {
    Annotations annotations;
    for (const std::string& tag : tags) {
        annotations.push_back(MarkAt(0, 0, tag));
    }
    return annotations;
}

class AnnotationLayer : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gActiveLayer = kAnnotationLayer;
        ForgetUndo();
        ClearSelection();
        NewPlot();
        AddRow(30, 120);
    }

    void TearDown() override {
        ForgetUndo();
        ClearSelection();
        gActiveLayer = kDataLayer;
        EngineTest::TearDown();
    }

    static Annotations& Marks() { return *ActiveRecord().PlotAnnotations; }

    static std::vector<std::pair<int, int>> Places() {
        std::vector<std::pair<int, int>> places;
        for (const Annotation& mark : AnnotationsOf(gActivePlot)) {
            places.emplace_back(mark.X, mark.Y);
        }
        return places;
    }

    static std::vector<std::string> Tags() {
        std::vector<std::string> tags;
        for (const Annotation& mark : AnnotationsOf(gActivePlot)) {
            tags.push_back(mark.Tag);
        }
        return tags;
    }

    /// Three marks, of which the first two are in the marquee.
    void SelectTwoOfThree() {
        ASSERT_TRUE(AddAnnotation(kLeftMouseButton, 100, 100));
        ASSERT_TRUE(AddAnnotation(kRightMouseButton, 200, 150));
        ASSERT_TRUE(AddAnnotation(kLeftMouseButton, -300, 0));
        StandMarquee(gActivePlot, {50, 50}, {200, 150});
        ASSERT_EQ(SelectedAnnotations(), (std::vector<std::size_t>{0, 1}));
    }

    using Pairs = std::vector<std::pair<int, int>>;
};

TEST(FreeAnnotationTag, GoesUpwardFromTheLast) {
    struct Case {
        std::vector<std::string> tags;
        int expected;
    };

    for (const Case& c : {
             Case{{}, 1},
             Case{{"1"}, 2},
             Case{{"1", "2", "7"}, 8},
             Case{{"9", "4"}, 5},
             Case{{"5", "6", "4"}, 7},
             Case{{"x"}, 1},
             Case{{"32767"}, 1},
             Case{{"1", "2", "32767"}, 3},
         }) {
        EXPECT_EQ(FreeAnnotationTag(WithTags(c.tags)), c.expected) << c.tags.size();
    }
}

TEST(FreeAnnotationTag, GivesUpAfterAHundredTries) {
    std::vector<std::string> tags;
    for (int tag = 2; tag <= 100; ++tag) {
        tags.push_back(std::to_string(tag));
    }
    tags.emplace_back("1");
    EXPECT_EQ(FreeAnnotationTag(WithTags(tags)), 101) << "the hundredth try";
    tags.insert(tags.begin(), "101");
    EXPECT_EQ(FreeAnnotationTag(WithTags(tags)), std::nullopt);
}

TEST_F(AnnotationLayer, TheButtonDecidesTheStyle) {
    gSymbolTable[kLeftAnnotationStyle] = {6, 2, 3};
    gSymbolTable[kRightAnnotationStyle] = {9, 8, 4};
    EXPECT_TRUE(AddAnnotation(kLeftMouseButton, 10, 20));
    EXPECT_TRUE(AddAnnotation(kRightMouseButton, -30.4, 40.6));
    ASSERT_EQ(Marks().size(), 2U);
    EXPECT_EQ(Marks()[0].SymbolType, 21);
    EXPECT_EQ(Marks()[0].Colour, 6);
    EXPECT_EQ(Marks()[0].Size, 3);
    EXPECT_EQ(Marks()[1].SymbolType, 22);
    EXPECT_EQ(Marks()[1].Colour, 9);
    EXPECT_EQ(Places(), (Pairs{{10, 20}, {-30, 41}}));
    EXPECT_EQ(Tags(), (std::vector<std::string>{"1", "2"}));
    EXPECT_NE(ActiveRecord().ShowAnnotations, 0);
    EXPECT_NE(ActiveRecord().Modified, 0);
}

TEST_F(AnnotationLayer, TakesThePrimitiveAndNothingBeyond) {
    EXPECT_TRUE(AddAnnotation(kLeftMouseButton, 600, -800));
    EXPECT_FALSE(AddAnnotation(kLeftMouseButton, 600, -801));
    ActiveRecord().PlotKind = kRose;
    EXPECT_FALSE(AddAnnotation(kLeftMouseButton, 0, 0));
    EXPECT_EQ(Marks().size(), 1U);
}

TEST_F(AnnotationLayer, TagsStayUniqueAfterDeletions) {
    SelectTwoOfThree();
    EditAnnotations(kDeleteAnnotations);
    EXPECT_EQ(Tags(), (std::vector<std::string>{"3"}));
    AddAnnotation(kLeftMouseButton, 1, 1);
    Marks().erase(Marks().begin());
    Marks().insert(Marks().begin(), MarkAt(0, 0, "5"));
    AddAnnotation(kLeftMouseButton, 2, 2);
    EXPECT_EQ(Tags(), (std::vector<std::string>{"5", "4", "6"}));
}

TEST_F(AnnotationLayer, TellsWhenNoTagIsFree) {
    AddAnnotation(kLeftMouseButton, 0, 0);
    Marks().clear();
    for (int tag = 2; tag <= 101; ++tag) {
        Marks().push_back(MarkAt(0, 0, std::to_string(tag)));
    }
    Marks().push_back(MarkAt(0, 0, "1"));
    Expect("Errors were encountered and the annotation has not been added\nIf this error persists "
           "please contact Arlen Voss");
    EXPECT_FALSE(AddAnnotation(kLeftMouseButton, 5, 5));
    EXPECT_EQ(Marks().size(), 101U);
}

TEST_F(AnnotationLayer, IsDrawnInItsOrderOverTheData) {
    AddAnnotation(kLeftMouseButton, 10, 20);
    Marks()[0].LineNodes = {{10, 20}, {50, 60}, {70, 60}};
    Marks()[0].lineStyle = kDottedLine;
    AddAnnotation(kRightMouseButton, 300, 0);
    ReplotActivePlot(false);
    std::vector<DrawOperation> marks;
    for (const DrawOperation& operation : DrawnOn(Form(gActivePlot).Plot())) {
        const bool isLine = operation.kind == DrawOperation::Kind::Polyline;
        const bool isMark =
            operation.kind == DrawOperation::Kind::Markers
            && (operation.points[0] == Point{10, 20} || operation.points[0] == Point{300, 0});
        if ((isLine && operation.points.size() == 3) || isMark) {
            marks.push_back(operation);
        }
    }
    ASSERT_EQ(marks.size(), 3U);
    EXPECT_EQ(marks[0].points, (std::vector<Point>{{10, 20}, {50, 60}, {70, 60}}));
    EXPECT_EQ(marks[0].state.drawStyle, kDottedLine);
    EXPECT_EQ(marks[0].state.drawMode, kDrawCopy);
    EXPECT_EQ(marks[1].colour, TableColour(gSymbolTable[kLeftAnnotationStyle][kPlaceColour]));
    EXPECT_EQ(marks[2].points[0], (Point{300, 0}));
    EXPECT_EQ(marks[2].colour, TableColour(gSymbolTable[kRightAnnotationStyle][kPlaceColour]));
}

TEST_F(AnnotationLayer, OneMoreIsDrawnWithoutTheRows) {
    AddAnnotation(kLeftMouseButton, 10, 20);
    const auto before = DrawnOn(Form(gActivePlot).Plot()).size();
    AddAnnotation(kLeftMouseButton, 30, 20);
    const auto drawn = DrawnOn(Form(gActivePlot).Plot());
    ASSERT_EQ(drawn.size(), before + 1);
    EXPECT_EQ(drawn.back().points, (std::vector<Point>{{30, 20}}));
}

TEST_F(AnnotationLayer, HidingKeepsTheMembers) {
    SelectTwoOfThree();
    SetAnnotationsShown(false);
    EXPECT_EQ(ActiveRecord().ShowAnnotations, 0);
    EXPECT_EQ(Marks().size(), 3U);
    for (const DrawOperation& operation : DrawnOn(Form(gActivePlot).Plot())) {
        EXPECT_FALSE(operation.kind == DrawOperation::Kind::Markers
                     && operation.points[0] == (Point{-300, 0}));
    }
    EXPECT_TRUE(SelectedAnnotations().empty()) << "what cannot be seen is not edited";
    SetAnnotationsShown(true);
    EXPECT_EQ(SelectedAnnotations().size(), 2U);
    SetAnnotationsShown(false);
    AddAnnotation(kLeftMouseButton, 0, 0);
    EXPECT_NE(ActiveRecord().ShowAnnotations, 0) << "adding shows them";
}

TEST_F(AnnotationLayer, RemovingAllCanBeTakenBackAndMadeAgain) {
    SelectTwoOfThree();
    const Pairs before = Places();
    ActiveRecord().Modified = 0;
    RemoveAllAnnotations();
    EXPECT_TRUE(AnnotationsOf(gActivePlot).empty());
    EXPECT_EQ(ActiveRecord().ShowAnnotations, 0);
    EXPECT_EQ(UndoCaption(), "&Undo Removal");
    UndoLastEdit();
    EXPECT_EQ(Places(), before);
    EXPECT_NE(ActiveRecord().ShowAnnotations, 0);
    EXPECT_EQ(ActiveRecord().Modified, 0);
    RedoLastEdit();
    EXPECT_TRUE(AnnotationsOf(gActivePlot).empty());
    EXPECT_EQ(ActiveRecord().ShowAnnotations, 0);
}

TEST_F(AnnotationLayer, StylesFallBackOnTheTable) {
    gSymbolTable[kLeftAnnotationStyle] = {6, 2, 3};
    gSymbolTable[kRightAnnotationStyle] = {9, 8, 4};

    struct Case {
        Annotation mark;
        SymbolRow expected;
    };

    for (const Case& c : {
             Case{{0, 0, 21, 12, 7, 0, "", {}}, {12, 2, 7}},
             Case{{0, 0, 22, 12, 7, 0, "", {}}, {12, 8, 7}},
             Case{{0, 0, 5, 12, 7, 0, "", {}}, {12, 5, 7}},
             Case{{0, 0, 0, -1, 0, 0, "", {}}, {6, 2, 3}},
             Case{{0, 0, 22, 25, -3, 0, "", {}}, {9, 8, 4}},
             Case{{0, 0, 99, 0, 1, 0, "", {}}, {0, 2, 1}},
         }) {
        EXPECT_EQ(StyleOfAnnotation(gSettings.styles, c.mark), c.expected) << c.mark.SymbolType;
    }
}

TEST_F(AnnotationLayer, APolylineHasANodeEveryTenUnits) {
    EXPECT_FALSE(ExtendAnnotation(0, 0)) << "nothing to lengthen";
    AddAnnotation(kLeftMouseButton, 100, 0);
    EXPECT_FALSE(ExtendAnnotation(109, 0));
    EXPECT_TRUE(ExtendAnnotation(106, 8)) << "6, 8, 10";
    EXPECT_FALSE(ExtendAnnotation(100, 8));
    EXPECT_TRUE(ExtendAnnotation(106, 28));
    EXPECT_FALSE(ExtendAnnotation(900, 900)) << "not on the net";
    ASSERT_EQ(Marks().size(), 1U);
    ASSERT_EQ(Marks()[0].LineNodes.size(), 3U);
    EXPECT_EQ(Marks()[0].LineNodes[0].X, 100);
    EXPECT_EQ(Marks()[0].LineNodes[1].Y, 8);
    EXPECT_EQ(Marks()[0].LineNodes[2].Y, 28);
    UndoLastEdit();
    EXPECT_TRUE(AnnotationsOf(gActivePlot).empty()) << "one edit with its point";
    RedoLastEdit();
    EXPECT_EQ(Marks()[0].LineNodes.size(), 3U);
}

TEST_F(AnnotationLayer, MovesTheSelectedOnesWithTheirNodes) {
    SelectTwoOfThree();
    Marks()[1].LineNodes = {{200, 150}, {220, 160}};
    EXPECT_TRUE(MoveAnnotations(10.4, -20));
    EXPECT_EQ(Places(), (Pairs{{110, 80}, {210, 130}, {-300, 0}}));
    EXPECT_EQ(Marks()[1].LineNodes[1].X, 230);
    EXPECT_EQ(Marks()[1].LineNodes[1].Y, 140);
    EXPECT_EQ(gLastEditKind, kAnnotationMove);
    EXPECT_EQ(UndoCaption(), "&Undo Move");
    UndoLastEdit();
    EXPECT_EQ(Places(), (Pairs{{100, 100}, {200, 150}, {-300, 0}}));
    EXPECT_FALSE(CanUndo()) << "nothing was kept before it";
}

TEST_F(AnnotationLayer, MovesNothingOutOfThePicture) {
    SelectTwoOfThree();
    EXPECT_TRUE(MoveAnnotations(950, 0));
    EXPECT_EQ(Places(), (Pairs{{1050, 100}, {200, 150}, {-300, 0}}));
    ForgetUndo();
    EXPECT_FALSE(MoveAnnotations(1e9, 0));
    EXPECT_FALSE(MoveAnnotations(0.3, 0));
    EXPECT_FALSE(CanUndo());
}

TEST_F(AnnotationLayer, DeletesAndCutsTheSelectedOnes) {
    for (const int item : {kDeleteAnnotations, kCutAnnotations}) {
        RemoveAllAnnotations();
        clipboard.SetText("before");
        SelectTwoOfThree();
        EditAnnotations(item);
        EXPECT_EQ(Places(), (Pairs{{-300, 0}}));
        EXPECT_EQ(gLastEditKind, 100 + item);
        EXPECT_EQ(*clipboard.Text() == "before", item == kDeleteAnnotations);
        UndoLastEdit();
        EXPECT_EQ(Places(), (Pairs{{100, 100}, {200, 150}, {-300, 0}}));
    }
}

TEST_F(AnnotationLayer, WithoutASelectionTellsSo) {
    AddAnnotation(kLeftMouseButton, 0, 0);
    for (const int item :
         {kCutAnnotations, kCopyAnnotations, kCopyAllOfAnnotations, kDeleteAnnotations}) {
        Expect("No annotations were selected for editing from the chosen annotation layer!");
        EditAnnotations(item);
    }
    EXPECT_EQ(Marks().size(), 1U);
    EXPECT_FALSE(clipboard.Text().has_value());
}

TEST_F(AnnotationLayer, CopiesGoToAnotherPlotWithTagsOfTheirOwn) {
    SelectTwoOfThree();
    Marks()[1].LineNodes = {{200, 150}, {-220, 160}};
    Marks()[1].lineStyle = 2;
    EditAnnotations(kCopyAnnotations);
    EXPECT_EQ(Marks().size(), 3U);
    NewPlot();
    AddAnnotation(kLeftMouseButton, 0, 0);
    SetAnnotationsShown(false);
    EditAnnotations(kPasteAnnotations);
    EXPECT_EQ(Places(), (Pairs{{0, 0}, {130, 70}, {230, 120}})) << "30 units off";
    EXPECT_EQ(Tags(), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(Marks()[2].SymbolType, 22);
    EXPECT_EQ(Marks()[2].lineStyle, 2);
    ASSERT_EQ(Marks()[2].LineNodes.size(), 2U);
    EXPECT_EQ(Marks()[2].LineNodes[1].X, -190);
    EXPECT_NE(ActiveRecord().ShowAnnotations, 0);
    EXPECT_EQ(gLastEditKind, kAnnotationPaste);
    EXPECT_EQ(UndoCaption(), "&Undo paste");
    UndoLastEdit();
    EXPECT_EQ(Places(), (Pairs{{0, 0}}));
    EXPECT_EQ(ActiveRecord().ShowAnnotations, 0);
}

TEST_F(AnnotationLayer, PastedOnesCoverNoneThatAreThereAndKeepTheirOrderAmongThemselves) {
    clipboard.SetText(AnnotationText({MarkAt(0, 0), MarkAt(30, -30)}));
    for (int i = 0; i < 3; ++i) {
        EditAnnotations(kPasteAnnotations);
    }
    EXPECT_EQ(Places(),
              (Pairs{{30, -30}, {60, -60}, {90, -90}, {120, -120}, {150, -150}, {180, -180}}));
}

TEST_F(AnnotationLayer, PastedOnesStayInThePicture) {
    for (const auto& at : Pairs{{1090, 0}, {0, -1095}, {1095, -1095}, {-1095, 1095}}) {
        RemoveAllAnnotations();
        clipboard.SetText(AnnotationText(
            {MarkAt(static_cast<std::int16_t>(at.first), static_cast<std::int16_t>(at.second))}));
        EditAnnotations(kPasteAnnotations);
        ASSERT_EQ(Places().size(), 1U);
        const auto [x, y] = Places()[0];
        EXPECT_EQ(std::abs(x - at.first), 30);
        EXPECT_EQ(std::abs(y - at.second), 30);
        EXPECT_LE(std::max(std::abs(x), std::abs(y)), 1100);
    }
}

TEST_F(AnnotationLayer, PasteKnowsWhatItGets) {
    struct Case {
        const char* text;
        const char* message;
    };

    for (const Case c : {
             Case{"", "No annotations have been copied yet"},
             Case{"30\t120\r\n", "No annotations have been copied yet"},
             Case{";Quandrel, ver 9.5.1\r\n", "The data on the clipboard is not annotation data!"},
         }) {
        clipboard.SetText(c.text);
        Expect(c.message);
        EditAnnotations(kPasteAnnotations);
        EXPECT_TRUE(AnnotationsOf(gActivePlot).empty()) << c.text;
    }
    clipboard.SetText(";Quandrel, ver 9.5.1\r\n/T1 /C1\r\n30\t120\r\n");
    Expect("The data on the clipboard is not annotation data. Plot it in the data layer?",
           Button::No);
    EditAnnotations(kPasteAnnotations);
    EXPECT_EQ(gActiveLayer, kAnnotationLayer);
    EXPECT_EQ(ActiveRecord().NumData, 1);
}

TEST_F(AnnotationLayer, PasteOfOtherDataChangesTheLayerOnAYes) {
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    clipboard.SetText(TextOfRows(gActivePlot, std::vector<std::int32_t>{1}, CopiedFields::All));
    Expect("Plot it in the data layer?", Button::Yes);
    EditAnnotations(kPasteAnnotations);
    EXPECT_EQ(gActiveLayer, kDataLayer);
    ASSERT_EQ(ActiveRecord().NumData, 2);
    EXPECT_EQ(gDataDip(gActivePlot, 2), 30);
    EXPECT_EQ(gDataAz(gActivePlot, 2), 120);
}

TEST_F(AnnotationLayer, AnnotationsOnTheDataLayerAskForTheirOwn) {
    SelectTwoOfThree();
    EditAnnotations(kCopyAnnotations);
    gActiveLayer = kDataLayer;
    Expect("The data on the clipboard is annotation data. Plot it in the annotation layer?",
           Button::No);
    EditSelection(kPasteItem);
    EXPECT_EQ(Marks().size(), 3U);
    EXPECT_EQ(gActiveLayer, kDataLayer);
    Expect("Plot it in the annotation layer?", Button::Yes);
    EditSelection(kPasteItem);
    EXPECT_EQ(Marks().size(), 5U);
    EXPECT_EQ(gActiveLayer, kAnnotationLayer);
}

TEST_F(AnnotationLayer, BadLinesOfAPasteAreToldOnceAndTheOthersKept) {
    clipboard.SetText(";quandrel\n/Annotations 1\n10\t20\t21\t5\t3\t0\t1\nrubbish\n\n"
                      "10\t20\t21\t5\t3\t0\n1\t2\t22\t5\t3\t0\t9\t4\n99999\t2\t22\t5\t3\t0\t9\n"
                      "-5\t6\t22\t5\t3\t0\t1\t1\t2\n");
    Expect("Errors were encountered while pasting the copied annotations.");
    EditAnnotations(kPasteAnnotations);
    EXPECT_EQ(Places(), (Pairs{{40, -10}, {25, -24}}));
    EXPECT_EQ(Tags(), (std::vector<std::string>{"1", "2"}));
}

TEST_F(AnnotationLayer, PasteOfNothingButBadLinesIsNoEdit) {
    clipboard.SetText(";Quandrel\n/Annotations 1\nrubbish\n");
    Expect("Errors were encountered while pasting");
    EditAnnotations(kPasteAnnotations);
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(ActiveRecord().Modified, 0);
}

TEST_F(AnnotationLayer, ChangesSymbolsByTheirButton) {
    gSymbolTable[kLeftAnnotationStyle] = {6, 2, 3};
    gSymbolTable[kRightAnnotationStyle] = {9, 8, 4};
    EXPECT_FALSE(StylesOfSelectedAnnotations().has_value());
    SelectTwoOfThree();
    AnnotationStyles styles = *StylesOfSelectedAnnotations();
    EXPECT_EQ(styles.down, (SymbolRow{6, 2, 3}));
    EXPECT_EQ(styles.up, (SymbolRow{9, 8, 4}));
    styles.down = {12, 11, 6};
    styles.up = {13, 8, 7};
    ChangeAnnotationSymbols(styles);
    EXPECT_EQ(StyleOfAnnotation(gSettings.styles, Marks()[0]), (SymbolRow{12, 11, 6}));
    EXPECT_EQ(StyleOfAnnotation(gSettings.styles, Marks()[1]), (SymbolRow{13, 8, 7}));
    EXPECT_EQ(StyleOfAnnotation(gSettings.styles, Marks()[2]), (SymbolRow{6, 2, 3}))
        << "not selected";
    EXPECT_EQ(Marks()[1].SymbolType, 22) << "an equal shape goes on following its row";
    EXPECT_EQ(UndoCaption(), "&Undo Change");
    UndoLastEdit();
    EXPECT_EQ(StyleOfAnnotation(gSettings.styles, Marks()[0]), (SymbolRow{6, 2, 3}));
}

TEST_F(AnnotationLayer, SelectsAllAndNone) {
    AddAnnotation(kLeftMouseButton, 1000, 0);
    AddAnnotation(kLeftMouseButton, 0, -1000);
    EditAnnotations(kSelectAllAnnotations);
    EXPECT_EQ(SelectedAnnotations().size(), 2U);
    EditAnnotations(kUnselectAnnotations);
    EXPECT_TRUE(SelectedAnnotations().empty());
}

using AnnotationLayerTrial = AnnotationLayer;

TEST_F(AnnotationLayerTrial, RandomEditsKeepTagsUniqueAndGoBackExactly) {
    const int rounds = TrialRounds(3000);
    std::mt19937 random(20261121);
    const auto within = [&random](int first, int last) {
        return first + static_cast<int>(random() % static_cast<unsigned int>(last - first + 1));
    };
    clipboard.SetText(AnnotationText({MarkAt(5, 5), MarkAt(-5, 5)}));
    int changes = 0;
    for (int i = 0; i < rounds; ++i) {
        const int corner = within(-900, 600);
        StandMarquee(gActivePlot, {static_cast<double>(corner), -700},
                     {static_cast<double>(corner + within(10, 300)), 700});
        const std::span<const Annotation> marks = AnnotationsOf(gActivePlot);
        const std::string before = AnnotationText(Annotations(marks.begin(), marks.end()));
        ForgetUndo();
        const int step = within(0, 7);
        if (step <= 2) {
            AddAnnotation(within(1, 2), within(-800, 800), within(-800, 800));
        } else if (step == 3) {
            ExtendAnnotation(within(-800, 800), within(-800, 800));
        } else if (step == 4) {
            MoveAnnotations(within(-400, 400), within(-400, 400));
        } else if (step == 5) {
            EditAnnotations(kPasteAnnotations);
        } else if (!SelectedAnnotations().empty()) {
            EditAnnotations(step == 6 ? kDeleteAnnotations : kCutAnnotations);
        }
        std::vector<std::string> tags = Tags();
        std::ranges::sort(tags);
        ASSERT_EQ(std::ranges::adjacent_find(tags), tags.end()) << "step " << i;
        if (CanUndo()) {
            ++changes;
            const Annotations after = Marks();
            UndoLastEdit();
            ASSERT_EQ(AnnotationText(Marks()), before) << "step " << i << " kind " << step;
            RedoLastEdit();
            ASSERT_EQ(AnnotationText(Marks()), AnnotationText(after)) << "step " << i;
        }
    }
    EXPECT_GT(changes, rounds / 2);
}

TEST_F(AnnotationLayer, DoesNothingWhileALongLoopRuns) {
    SelectTwoOfThree();
    gBusy = true;
    EXPECT_FALSE(AddAnnotation(kLeftMouseButton, 0, 0));
    EXPECT_FALSE(ExtendAnnotation(0, 0));
    EXPECT_FALSE(MoveAnnotations(10, 10));
    EditAnnotations(kCutAnnotations);
    RemoveAllAnnotations();
    SetAnnotationsShown(false);
    gBusy = false;
    EXPECT_EQ(Places(), (Pairs{{100, 100}, {200, 150}, {-300, 0}}));
    EXPECT_NE(ActiveRecord().ShowAnnotations, 0);
}

TEST(AnnotationText, IsReadBackAsItWas) {
    Annotations marks = {{-1000, 0, 21, 24, 99, 5, "32767", {}},
                         {7, -8, 22, 0, 0, 0, "1", {{1, -2}, {32767, -32768}}}};
    const std::string text = AnnotationText(marks);
    EXPECT_TRUE(text.starts_with(";Quandrel, ver 9.5.1\r\n/Annotations 1\r\n")) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
    EXPECT_EQ(KindOfAnnotationText(text), AnnotationTextKind::Marks);
    const ReadAnnotations read = ReadAnnotationText(text);
    EXPECT_EQ(read.badLines, 0U);
    ASSERT_EQ(read.annotations.size(), 2U);
    EXPECT_EQ(AnnotationText(read.annotations), text);
    EXPECT_EQ(read.annotations[1].LineNodes[1].Y, -32768);
    EXPECT_EQ(read.annotations[0].Tag, "32767");
}

TEST(AnnotationText, KindsAreToldByTheHeadInAnyCase) {
    EXPECT_EQ(KindOfAnnotationText(";QUANDREL\n/annotations 1\n"), AnnotationTextKind::Marks);
    EXPECT_EQ(KindOfAnnotationText(";Quandrel\n/T1\n"), AnnotationTextKind::Rows);
    EXPECT_EQ(KindOfAnnotationText(";Quandre"), AnnotationTextKind::Foreign);
    EXPECT_EQ(KindOfAnnotationText(";Quandrel"), AnnotationTextKind::NoParts);
}

} // namespace
} // namespace quandrel
