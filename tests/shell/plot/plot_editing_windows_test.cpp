// SPDX-License-Identifier: MIT
//
// Edits that go through windows beside the plot, the clipboard and undo, in the real windows.

#include "edit/commands/edit_menu.h"
#include "edit/marks/annotations.h"
#include "edit/rows/edit_rows.h"
#include "orientation/angles.h"
#include "shell/controls/bad_text.h"
#include "shell/dialogs/frm_small_circle.h"
#include "shell/grids/frm_data_display.h"
#include "shell/grids/row_grid.h"
#include "shell/plot/plot_editing_fixture.h"
#include "shell/styles/frm_symbol_select.h"
#include "shell/styles/style_patch.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTimer>

#include <functional>

namespace quandrel {
namespace {

using Rows = std::vector<std::int32_t>;
using GridRows = std::vector<std::size_t>;

constexpr const char* kPairsOfPlanes = "45\t90\t45\t270\n90\t90\t90\t0\n60\t15\t30\t195\n";
constexpr const char* kFaults = "60\t90\t60\t90\n50\t270\t50\t270\n70\t100\t68\t80\n";

class PlotEditingWindows : public PlotEditing {
protected:
    /// Opens rows of two orientations.
    int OpenPairs(std::int16_t secondary, const std::string& name, const std::string& text) {
        AcceptFormat(
            [secondary](FormatAnswer&) {
                gPrimaryDataType = kPrimaryPlane;
                gSecondaryDataType = secondary;
                gPlotDataKind = kPlanes;
                gFileColumnSettings = {0, 1, 2, 2, 3, 2, 6, 7, 8, 9};
            },
            1);
        return OpenFile(name, text);
    }

    [[nodiscard]] frmDataDisplay& GridOf(const char* gridName) const {
        for (QWidget* child : main->findChildren<QWidget*>("frmDataDisplay")) {
            auto* window = static_cast<frmDataDisplay*>(child);
            if (window->grdRawData->accessibleName() == gridName) {
                return *window;
            }
        }
        ADD_FAILURE() << "no window of " << gridName;
        std::abort();
    }

    frmDataDisplay& ShowPlotGrid() {
        Press("mnuViewPlotData");
        frmDataDisplay& window = GridOf("Rows of the plot");
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        return window;
    }

    static void TypeIntoCell(frmDataDisplay& window, int row, int column, const char* text) {
        const QModelIndex cell = window.grdRawData->model()->index(row, column);
        const QPoint at = window.grdRawData->visualRect(cell).center();
        QTest::mouseClick(window.grdRawData->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(window.grdRawData->viewport(), Qt::LeftButton, {}, at);
        ASSERT_TRUE(window.txtCellContents->isVisible());
        QTest::keyClick(window.txtCellContents, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(window.txtCellContents, text);
    }

    void UseLayerOf(int slot, int tab) { FormOfSlot(slot).tabLayers->setCurrentIndex(tab); }

    /// Copies all rows of a plot that is opened for it.
    void CopyRowsOf(const std::function<void()>& open, int item = kCopyItem) {
        open();
        Press("mnuEditSelection_7");
        Press("mnuEditSelection_" + std::to_string(item));
    }

    /// Undo and redo of an edit that was just made: exactly the rows and marks of before, then
    /// those that the edit made.
    void ExpectUndoAndRedo(const char* name, const std::vector<std::string>& before) {
        const std::vector<std::string> behind = State();
        EXPECT_NE(behind, before) << name;
        EXPECT_EQ(Action("mnuEditUndo").text().toStdString(), std::string("&Undo ") + name);
        Press("mnuEditUndo");
        EXPECT_EQ(State(), before) << name;
        EXPECT_EQ(IsEnabled("mnuEditUndo"), hasEarlierEdits) << name;
        Press("mnuEditRedo");
        EXPECT_EQ(State(), behind) << name;
        EXPECT_FALSE(IsEnabled("mnuEditRedo")) << name;
        Press("mnuEditUndo");
        EXPECT_EQ(State(), before) << name;
    }

    bool hasEarlierEdits = false; ///< that ExpectUndoAndRedo finds before the last one

    /// Rows and annotations of the active plot.
    [[nodiscard]] static std::vector<std::string> State() {
        std::vector<std::string> state;
        for (std::int32_t row = 1; row <= ActiveRecord().NumLoadedData; ++row) {
            state.push_back(std::to_string(gDataDip(gActivePlot, row)) + "/"
                            + std::to_string(gDataAz(gActivePlot, row)) + " "
                            + SymbolCodeText(gDataSymbol(gActivePlot, row)));
        }
        for (const Annotation& mark : AnnotationsOf(gActivePlot)) {
            state.push_back(mark.Tag + ": " + std::to_string(mark.X) + "," + std::to_string(mark.Y)
                            + " " + std::to_string(mark.Colour) + " with "
                            + std::to_string(mark.LineNodes.size()));
        }
        return state;
    }
};

TEST_F(PlotEditingWindows, ACellTakesAGoodValueAndABadOneSpoilsItsRowUntilUndo) {
    OpenFile("a.txt");
    frmDataDisplay* window = &ShowPlotGrid();
    TypeIntoCell(*window, 0, 1, "77");
    EXPECT_NE(window->txtCellContents->palette().color(QPalette::Text), BadTextColour());
    QTest::keyClick(window->txtCellContents, Qt::Key_Return);
    EXPECT_EQ(Dips(), (std::vector<int>{30, 45, 60})) << "the plot waits for OK";
    window->cmdOK->click();
    EXPECT_EQ(Dips(), (std::vector<int>{77, 45, 60}));
    EXPECT_EQ(gDataAz(gActivePlot, 1), 120);
    EXPECT_EQ(Action("mnuEditUndo").text(), "&Undo Edit");

    window = &ShowPlotGrid();
    TypeIntoCell(*window, 1, 1, "95");
    EXPECT_EQ(window->txtCellContents->palette().color(QPalette::Text), BadTextColour());
    QTest::keyClick(window->txtCellContents, Qt::Key_Return);
    window->cmdOK->click();
    EXPECT_EQ(Dips(), (std::vector<int>{77, kErrorRow, 60}));
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
    EXPECT_EQ(FormOfSlot(gActivePlot).lblNumBox->text(), "2");
    Press("mnuEditUndo");
    EXPECT_EQ(Dips(), (std::vector<int>{77, 45, 60}));
    EXPECT_EQ(gDataAz(gActivePlot, 2), 270);
    EXPECT_EQ(FormOfSlot(gActivePlot).lblNumBox->text(), "3");
}

TEST_F(PlotEditingWindows, ASmallCircleIsSetByADragOnThePlot) {
    const int slot = OpenFile("a.txt");
    Press("mnuEditSmallCircles");
    auto& dialog = ControlOf<frmSmallCircle>(*main, "frmSmallCircle");
    EXPECT_EQ(dialog.windowTitle(),
              QString::fromStdString("Small Circles on: " + ActiveRecord().PlotTitle));
    auto& angle = ControlOf<QLineEdit>(dialog, "txtSmallCircle_6");
    auto& tick = ControlOf<QCheckBox>(dialog, "chkSmallCircle_2");
    QTest::mouseDClick(&angle, Qt::LeftButton);
    EXPECT_EQ(Info(),
              "Left click on plot, and drag mouse, to set centre and angle of small circle.");
    // From 45 to 090 to the centre: the axis, and a line 45 degrees from it.
    Drag({541, 0}, {0, 0});
    EXPECT_EQ(ControlOf<QLineEdit>(dialog, "txtSmallCircle_4").text(), "45");
    EXPECT_EQ(ControlOf<QLineEdit>(dialog, "txtSmallCircle_5").text(), "90");
    EXPECT_EQ(angle.text(), "45");
    EXPECT_TRUE(tick.isChecked());
    EXPECT_FALSE(MarqueeStands()) << "the drag draws no marquee";
    QTest::mouseClick(&tick, Qt::LeftButton);
    EXPECT_EQ(angle.text(), "45") << "a circle that is hidden keeps its values";
    EXPECT_EQ((*RecordOf(slot).PlotSmallCircles)[2].Visible, 0);
    Drag({-700, 700}, {700, -700});
    EXPECT_TRUE(MarqueeStands()) << "the picking has ended";
}

TEST_F(PlotEditingWindows, ASelectionLightsItsRowsInGridsAndInDerivedPlots) {
    const int source = OpenPairs(kSecondaryPlane, "pairs.txt", kPairsOfPlanes);
    Press("mnuPlotIntersection");
    const int lines = gActivePlot;
    ASSERT_NE(lines, source);
    Room().setActiveSubWindow(&FormOfSlot(source));
    Press("mnuViewRawData");
    const frmDataDisplay& raw = GridOf("Lines of the files");
    const frmDataDisplay& plot = ShowPlotGrid();
    const QImage before = FormOfSlot(lines).picStereoArea->grab().toImage();
    // The pole of 45/90 lies 541 to the west.
    Drag({-640, 100}, {-440, -100});
    ASSERT_EQ(gSelectionRows, Rows{1});
    EXPECT_EQ(plot.grdRawData->PickedRows(), GridRows{0});
    EXPECT_EQ(raw.grdRawData->PickedRows(), GridRows{0});
    EXPECT_NE(FormOfSlot(lines).picStereoArea->grab().toImage(), before) << "a ring is drawn";
    QTest::keyClick(&Net(), Qt::Key_Escape);
    EXPECT_TRUE(plot.grdRawData->PickedRows().empty());
    EXPECT_EQ(FormOfSlot(lines).picStereoArea->grab().toImage(), before);
    // And from the grid to the plots.
    const QRect cell = plot.grdRawData->visualRect(plot.grdRawData->model()->index(1, 1));
    QTest::mouseClick(plot.grdRawData->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(gSelectionRows, Rows{2});
    EXPECT_EQ(raw.grdRawData->PickedRows(), GridRows{1});
    EXPECT_NE(FormOfSlot(lines).picStereoArea->grab().toImage(), before);
}

TEST_F(PlotEditingWindows, EachKindPastedIntoAnotherAsksByItsName) {
    const std::function<void()> planes = [this] {
        gPrimaryDataType = kPrimaryPlane;
        gPlotDataKind = kPlanes;
        OpenFile("planes.txt", "30\t120\n");
    };
    const std::function<void()> lines = [this] { OpenLines("lines.txt", "30\t120\n"); };
    const std::function<void()> polar = [this] {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        OpenFile("polar.txt", "-30\t120\n");
    };

    const struct {
        const std::function<void()>& source;
        const std::function<void()>& target;
        const char* question;
    } cases[] = {
        {planes, lines, "You are trying to paste planes into a plot containing lines.\n"},
        {planes, polar, "You are trying to paste planes into a plot containing polar lines.\n"},
        {lines, planes, "You are trying to paste lines into a plot containing planes.\n"},
        {lines, polar, "You are trying to paste lines into a plot containing polar lines.\n"},
        {polar, planes, "You are trying to paste polar lines into a plot containing planes.\n"},
        {polar, lines, "You are trying to paste polar lines into a plot containing lines.\n"}};

    gMaxPlots = 20;
    for (const auto& row : cases) {
        CopyRowsOf(row.source);
        row.target();
        prompts.Expect(std::string(row.question)
                           + "The pasted data will be transformed into the new format.\n"
                             "Continue pasting?",
                       Button::No);
        Press("mnuEditSelection_4");
        EXPECT_EQ(ActiveRecord().NumData, 1);
        prompts.Expect(row.question, Button::Yes);
        Press("mnuEditSelection_4");
        EXPECT_EQ(ActiveRecord().NumData, 2);
        EXPECT_EQ(prompts.Problems(), "");
    }
}

TEST_F(PlotEditingWindows, ThePasteOfANamedSetWarnsAPlotWithTwoSets) {
    OpenPairs(kSecondaryLine, "faults.txt", kFaults);
    Press("mnuPlotSecondary");
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_3");
    OpenPairs(kSecondaryLine, "others.txt", kFaults);
    prompts.Expect("You are trying to paste Secondary lines into a plot containing planes.\n"
                   "The pasted data will be transformed into the new format.\n"
                   "(This may have unwanted side effects if you try to use the data in this new "
                   "data set)\nContinue pasting?",
                   Button::No);
    Press("mnuEditSelection_4");
    EXPECT_EQ(ActiveRecord().NumData, 3);
}

TEST_F(PlotEditingWindows, RowsAndAnnotationsAskForTheirOwnLayer) {
    const int slot = OpenFile("a.txt");
    UseLayerOf(slot, 0);
    gPlatform.clipboard->SetText("10\t20\r\n");
    prompts.Expect("No annotations have been copied yet", Button::Ok);
    Press("mnuEditSelection_4");
    Click(300, 300, Qt::AltModifier);
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_2");
    UseLayerOf(slot, 1);
    const char* const ofMarks =
        "The data on the clipboard is annotation data. Plot it in the annotation layer?";
    prompts.Expect(ofMarks, Button::No);
    Press("mnuEditSelection_4");
    EXPECT_EQ(AnnotationsOf(slot).size(), 1U);
    EXPECT_EQ(gActiveLayer, kDataLayer);
    prompts.Expect(ofMarks, Button::Yes);
    Press("mnuEditSelection_4");
    EXPECT_EQ(AnnotationsOf(slot).size(), 2U);
    EXPECT_EQ(FormOfSlot(slot).tabLayers->currentIndex(), 0);

    UseLayerOf(slot, 1);
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_2");
    UseLayerOf(slot, 0);
    const char* const ofRows =
        "The data on the clipboard is not annotation data. Plot it in the data layer?";
    prompts.Expect(ofRows, Button::No);
    Press("mnuEditSelection_4");
    EXPECT_EQ(ActiveRecord().NumData, 3);
    prompts.Expect(ofRows, Button::Yes);
    Press("mnuEditSelection_4");
    EXPECT_EQ(ActiveRecord().NumData, 6);
    EXPECT_EQ(FormOfSlot(slot).tabLayers->currentIndex(), 1);
    EXPECT_EQ(prompts.Problems(), "");
}

TEST_F(PlotEditingWindows, EveryEditOfRowsIsTakenBackAndMadeAgain) {
    OpenLines("lines.txt", "45\t90\n30\t200\n45\t270\n");
    const std::vector<std::string> before = State();
    const auto selectFirst = [] {
        QTest::keyClick(&Net(), Qt::Key_Escape); // what undo selected again
        Drag({400, 150}, {700, -150});
    };
    selectFirst();
    Press("mnuEditSelection_1");
    ExpectUndoAndRedo("Cut", before);
    selectFirst();
    Press("mnuEditSelection_5");
    ExpectUndoAndRedo("deletion", before);
    Press("mnuEditSelection_4");
    ExpectUndoAndRedo("Paste", before);
    Click(0, 0, Qt::AltModifier);
    ExpectUndoAndRedo("Add", before);
    selectFirst();
    QTest::keyClick(&Net(), Qt::Key_Up);
    ExpectUndoAndRedo("Move", before);
    frmDataDisplay& window = ShowPlotGrid();
    TypeIntoCell(window, 0, 1, "5");
    QTest::keyClick(window.txtCellContents, Qt::Key_Return);
    window.cmdOK->click();
    ExpectUndoAndRedo("Edit", before);
}

TEST_F(PlotEditingWindows, AChangeOfSymbolsGoesThroughItsDialogAndIsTakenBack) {
    OpenLines("lines.txt", "45\t90\n30\t200\n");
    const std::vector<std::string> before = State();
    Drag({400, 150}, {700, -150});
    QTimer::singleShot(0, main.get(), [] {
        auto* picker = static_cast<frmSymbolSelect*>(QApplication::activeModalWidget());
        ASSERT_NE(picker, nullptr);
        picker->picColour[8]->click();
        picker->accept();
    });
    Press("mnuEditSelection_6");
    EXPECT_EQ(CodeColour(gDataSymbol(gActivePlot, 1)), 8);
    EXPECT_NE(CodeColour(gDataSymbol(gActivePlot, 2)), 8);
    ExpectUndoAndRedo("Change", before);
}

TEST_F(PlotEditingWindows, EveryEditOfAnnotationsIsTakenBackAndMadeAgain) {
    const int slot = OpenFile("a.txt");
    UseLayerOf(slot, 0);
    const std::vector<std::string> none = State();
    Click(-300, 300, Qt::AltModifier);
    ExpectUndoAndRedo("Add", none);
    Drag({-300, 300}, {-100, 300}, Qt::AltModifier, Qt::RightButton);
    EXPECT_GT(AnnotationsOf(slot)[0].LineNodes.size(), 1U);
    ExpectUndoAndRedo("Add", none);
    Press("mnuEditRedo");
    hasEarlierEdits = true;
    const std::vector<std::string> before = State();
    const auto select = [] {
        QTest::keyClick(&Net(), Qt::Key_Escape);
        Drag({-400, 400}, {-200, 200});
    };
    select();
    Press("mnuEditSelection_1");
    ExpectUndoAndRedo("Cut", before);
    select();
    Press("mnuEditSelection_5");
    ExpectUndoAndRedo("deletion", before);
    Press("mnuEditSelection_4");
    ExpectUndoAndRedo("paste", before);
    select();
    const std::array<float, 7> marquee = gMarquee;
    Drag({-350, 350}, {-150, 250});
    EXPECT_NE(gMarquee, marquee);
    ExpectUndoAndRedo("Move", before);
    EXPECT_EQ(gMarquee, marquee) << "the marquee goes back with them";
    select();
    QTimer::singleShot(0, main.get(), [] {
        auto* picker = static_cast<frmSymbolSelect*>(QApplication::activeModalWidget());
        ASSERT_NE(picker, nullptr);
        picker->optSymbol[1]->click();
        picker->picColour[8]->click();
        picker->accept();
    });
    Press("mnuEditSelection_6");
    ExpectUndoAndRedo("Change", before);
}

TEST_F(PlotEditingWindows, UndoOfAMovePutsTheMarqueeBackWhereTheRowsAre) {
    OpenLines("lines.txt", "45\t90\n");
    Drag({400, 150}, {700, -150});
    const std::array<float, 7> marquee = gMarquee;
    Drag({600, 50}, {400, 350});
    ASSERT_NE(gMarquee, marquee);
    Press("mnuEditUndo");
    EXPECT_EQ(gMarquee, marquee);
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_TRUE(IsEnabled("mnuEditSelection_1"));
    // It can be moved again at once.
    Drag({600, 50}, {400, 350});
    EXPECT_NE(gDataAz(gActivePlot, 1), 90);
}

TEST_F(PlotEditingWindows, UndoBringsTheWindowOfTheEditForward) {
    const int first = OpenFile("a.txt");
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_5");
    const int second = OpenFile("b.txt");
    Room().setActiveSubWindow(&FormOfSlot(first));
    Room().setActiveSubWindow(&FormOfSlot(second));
    ASSERT_EQ(gActivePlot, second);
    EXPECT_FALSE(IsEnabled("mnuEditUndo")) << "a load ends the undo";
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_5");
    Room().setActiveSubWindow(&FormOfSlot(first));
    Press("mnuEditUndo");
    EXPECT_EQ(gActivePlot, second);
    EXPECT_EQ(Room().activeSubWindow(), &FormOfSlot(second));
    EXPECT_EQ(Dips().size(), 3U);
    EXPECT_EQ(RecordOf(first).NumData, 0);
}

TEST_F(PlotEditingWindows, UndoOfAPointKeepsAChangeMadeSince) {
    const int slot = OpenFile("a.txt");
    RecordOf(slot).Modified = 0;
    Click(0, 0, Qt::AltModifier);
    Press("mnuEditUndo");
    EXPECT_EQ(RecordOf(slot).Modified, 0) << "nothing has changed";
    Press("mnuEditRedo");
    RecordOf(slot).Modified = 0; // saved
    Click(300, 0, Qt::AltModifier);
    FormOfSlot(slot).txtDescBox->setPlainText("Rocks of the east side");
    Press("mnuEditUndo");
    EXPECT_NE(RecordOf(slot).Modified, 0) << "the description has";
}

TEST_F(PlotEditingWindows, TheMarqueeThatStandsHoldsWhatTheOtherLayerHasInIt) {
    const int slot = OpenLines("lines.txt", "45\t90\n30\t200\n");
    UseLayerOf(slot, 0);
    Drag({400, 150}, {700, -150});
    EXPECT_TRUE(gSelectionRows.empty());
    UseLayerOf(slot, 1);
    EXPECT_EQ(gSelectionRows, Rows{1});
    Press("mnuEditSelection_5");
    EXPECT_EQ(Dips(), std::vector<int>{30});
}

TEST_F(PlotEditingWindows, AGridThatOpensShowsTheSelectionThatStands) {
    OpenLines("lines.txt", "45\t90\n30\t200\n");
    Drag({400, 150}, {700, -150});
    ASSERT_EQ(gSelectionRows, Rows{1});
    Press("mnuViewPlotData");
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_TRUE(MarqueeStands());
}

} // namespace
} // namespace quandrel
