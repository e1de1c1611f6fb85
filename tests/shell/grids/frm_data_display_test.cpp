// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/style_tables.h"
#include "derive/kinematic_plots.h"
#include "edit/commands/edit_menu.h"
#include "edit/history/undo.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/marquee.h"
#include "input/file_loading.h"
#include "shell/controls/bad_text.h"
#include "shell/grids/data_displays.h"
#include "shell/grids/frm_data_display.h"
#include "shell/grids/row_grid.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <memory>
#include <set>

namespace quandrel {
namespace {

using Rows = std::vector<std::size_t>;
using Points = std::vector<std::int32_t>;
using Pair = std::pair<std::int32_t, std::int32_t>;

constexpr int kDip = 1;
constexpr int kAzimuth = 2;

/// Both windows over an engine of their own, notified of the selection as by the main window.
class DataDisplayTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gPrimaryDataType = kPrimaryPlane;
        gActiveLayer = kDataLayer;
        gSettings.format.hasHeadings = false;
        ForgetUndo();
        ClearSelection();
        AcceptFormat({}, 1000);
        main = std::make_unique<QWidget>();
        main->resize(300, 200);
        main->show();
        displays = std::make_unique<DataDisplays>(*main, [this] { ++applications; });
        ConnectSelection([this] {
            ++selections;
            displays->SelectionChanged();
        });
    }

    void TearDown() override {
        ConnectSelection({});
        displays.reset();
        main.reset();
        ForgetUndo();
        ClearSelection();
        gBusy = false;
        EngineTest::TearDown();
    }

    /// Loads rows from a file as a new plot, as the program does.
    void Load(const std::string& text = "30\t120\n45\t270\n60\t15\n",
              const std::string& name = "beds.txt") {
        NewPlot();
        prompts.ExpectAny("");
        ASSERT_EQ(ReadTextFile(kNewCommand, WriteFile(name, text)), kNewCommand);
        ActiveRecord().PlotTitle = name;
    }

    [[nodiscard]] frmDataDisplay& Shown(const char* gridName) const {
        for (QWidget* child : main->findChildren<QWidget*>("frmDataDisplay")) {
            auto* window = static_cast<frmDataDisplay*>(child);
            if (window->grdRawData->accessibleName() == gridName) {
                return *window;
            }
        }
        ADD_FAILURE() << "no window";
        std::abort();
    }

    frmDataDisplay& Raw() { return Shown("Lines of the files"); }

    frmDataDisplay& Plot() { return Shown("Rows of the plot"); }

    frmDataDisplay& ShowPlot() {
        displays->ShowPlotData();
        frmDataDisplay& window = Plot();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        return window;
    }

    static QModelIndex Cell(const frmDataDisplay& window, int row, int column) {
        return window.grdRawData->model()->index(row, column);
    }

    static std::string Text(const frmDataDisplay& window, int row, int column) {
        return Cell(window, row, column).data().toString().toStdString();
    }

    static std::string EditedMark(const frmDataDisplay& window, int row) {
        return Text(window, row, window.grdRawData->model()->columnCount() - 1);
    }

    static QPoint Middle(const frmDataDisplay& window, int row, int column) {
        return window.grdRawData->visualRect(Cell(window, row, column)).center();
    }

    static void Click(const frmDataDisplay& window, int row,
                      Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseClick(window.grdRawData->viewport(), Qt::LeftButton, keys,
                          Middle(window, row, kDip));
    }

    static void DoubleClick(const frmDataDisplay& window, int row, int column) {
        QWidget* viewport = window.grdRawData->viewport();
        const QPoint at = Middle(window, row, column);
        QTest::mouseClick(viewport, Qt::LeftButton, {}, at);
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, at);
    }

    /// Types into the cell as a user does, up to and including the key that confirms.
    static void Type(frmDataDisplay& window, int row, int column, const char* text,
                     Qt::Key key = Qt::Key_Return) {
        DoubleClick(window, row, column);
        ASSERT_TRUE(window.txtCellContents->isVisible());
        QTest::keyClick(window.txtCellContents, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(window.txtCellContents, text);
        QTest::keyClick(window.txtCellContents, key);
    }

    static bool IsRed(const QLineEdit& box) {
        return box.palette().color(QPalette::Text) == BadTextColour();
    }

    static Pair Row(std::int32_t point) {
        return {gDataDip(gActivePlot, point), gDataAz(gActivePlot, point)};
    }

    std::unique_ptr<QWidget> main;
    std::unique_ptr<DataDisplays> displays;
    int selections = 0;
    int applications = 0;
};

TEST_F(DataDisplayTest, ShowsThePlotsRowsWithTheirHeads) {
    Load();
    frmDataDisplay& window = ShowPlot();
    EXPECT_EQ(window.windowTitle(), "Processed data in: beds.txt");
    const QAbstractItemModel& model = *window.grdRawData->model();
    ASSERT_EQ(model.rowCount(), 3);
    ASSERT_EQ(model.columnCount(), 4);
    const auto head = [&model](int column) {
        return model.headerData(column, Qt::Horizontal).toString().toStdString();
    };
    EXPECT_EQ(head(1), "Dip/Plunge");
    EXPECT_EQ(head(2), "Azimuth");
    EXPECT_EQ(head(3), "Edited");
    EXPECT_EQ(Text(window, 1, 0), "2");
    EXPECT_EQ(Text(window, 1, kDip), "45");
    EXPECT_EQ(Text(window, 2, kAzimuth), "015");
    EXPECT_EQ(EditedMark(window, 2), "");
    EXPECT_TRUE(window.cmdOK->isDefault());
    EXPECT_FALSE(window.isModal());
}

TEST_F(DataDisplayTest, ShowsTheFilesAsTheyAreAndLetsNobodyEditThem) {
    Load("; a remark\n30\t120\n45\t270\n");
    displays->ShowRawData();
    frmDataDisplay& window = Raw();
    EXPECT_EQ(window.windowTitle(), "Raw File data used in: beds.txt");
    ASSERT_EQ(window.grdRawData->model()->rowCount(), 3);
    EXPECT_EQ(Text(window, 0, 1), "; a remark");
    EXPECT_EQ(Text(window, 2, 2), "270");
    DoubleClick(window, 2, 2);
    QTest::keyClick(window.grdRawData, Qt::Key_F2);
    QTest::keyClicks(window.grdRawData, "99");
    EXPECT_FALSE(window.txtCellContents->isVisible());
    EXPECT_FALSE(window.cmdAddRow->isVisible());
    EXPECT_FALSE(window.cmdDiscard->isVisible());
}

TEST_F(DataDisplayTest, TellsThatAPlotHasNoFile) {
    NewPlot();
    AddRow(30, 120);
    Expect("There is no filename associated with this data\n"
           "Couldn't display this data properly");
    displays->ShowRawData();
    EXPECT_FALSE(Raw().isVisible());
    ASSERT_FALSE(prompts.Shown().empty());
    EXPECT_EQ(prompts.Shown().back().message.title, "Quandrel, ver 9.5.1");
}

TEST_F(DataDisplayTest, TellsThatItCannotShowAPlotThatIsGone) {
    gActivePlot = 0;
    Expect("Couldn't display this data properly");
    displays->ShowPlotData();
    EXPECT_FALSE(Plot().isVisible());
}

TEST_F(DataDisplayTest, AnEditWaitsInTheGridUntilOk) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80");
    EXPECT_FALSE(window.txtCellContents->isVisible());
    EXPECT_EQ(Text(window, 1, kDip), "80");
    EXPECT_EQ(EditedMark(window, 1), "*");
    EXPECT_EQ(EditedMark(window, 0), "");
    EXPECT_EQ(Row(2), Pair(45, 270));
    EXPECT_EQ(window.lblEdits->text(), "1 row edited");
    EXPECT_EQ(applications, 0);
    window.cmdOK->click();
    EXPECT_EQ(Row(2), Pair(80, 270));
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(applications, 1);
    EXPECT_NE(ActiveRecord().Modified, 0);
    UndoEdits();
    EXPECT_EQ(Row(2), Pair(45, 270));
}

TEST_F(DataDisplayTest, ThatEditsWaitIsSaidAsLongAsTheyDo) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80");
    window.reject();
    EXPECT_NE(status.Text(), "");
    window.cmdDiscard->click();
    EXPECT_EQ(status.Text(), "");
}

TEST_F(DataDisplayTest, ClosingTheWindowAppliesTheEdits) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 0, kAzimuth, "130");
    window.close();
    EXPECT_EQ(Row(1), Pair(30, 130));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(DataDisplayTest, ClosingTakesWhatStandsInTheEditor) {
    Load();
    frmDataDisplay& window = ShowPlot();
    DoubleClick(window, 0, kAzimuth);
    window.txtCellContents->setText("131");
    window.close();
    EXPECT_EQ(Row(1), Pair(30, 131));
}

TEST_F(DataDisplayTest, ClosingWithoutEditsLeavesThePlotAlone) {
    Load();
    ActiveRecord().Modified = 0;
    frmDataDisplay& window = ShowPlot();
    DoubleClick(window, 0, kAzimuth);
    QTest::keyClick(window.txtCellContents, Qt::Key_Return);
    EXPECT_EQ(EditedMark(window, 0), "") << "the same text is not an edit";
    window.cmdOK->click();
    EXPECT_EQ(ActiveRecord().Modified, 0);
    EXPECT_EQ(applications, 0);
    EXPECT_FALSE(CanUndo());
}

TEST_F(DataDisplayTest, ABadPairIsRedAndBecomesAnErrorRowThatUndoRestores) {
    Load();
    frmDataDisplay& window = ShowPlot();
    DoubleClick(window, 1, kDip);
    EXPECT_FALSE(IsRed(*window.txtCellContents));
    QTest::keyClick(window.txtCellContents, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(window.txtCellContents, "9");
    EXPECT_FALSE(IsRed(*window.txtCellContents));
    QTest::keyClicks(window.txtCellContents, "x");
    EXPECT_TRUE(IsRed(*window.txtCellContents));
    QTest::keyClick(window.txtCellContents, Qt::Key_Return);
    EXPECT_EQ(Cell(window, 1, kDip).data(Qt::ForegroundRole).value<QColor>(), BadTextColour());
    EXPECT_EQ(Cell(window, 1, kAzimuth).data(Qt::ForegroundRole).value<QColor>(), BadTextColour())
        << "the pair is what cannot be read";
    EXPECT_EQ(window.lblEdits->text(), "1 row edited, 1 cannot be read");
    DoubleClick(window, 1, kDip);
    EXPECT_TRUE(IsRed(*window.txtCellContents)) << "still bad";
    QTest::keyClick(window.txtCellContents, Qt::Key_Escape);
    window.cmdOK->click();
    EXPECT_EQ(gDataDip(gActivePlot, 2), kErrorRow);
    displays->ShowPlotData();
    EXPECT_EQ(Text(window, 1, kDip), "non-data");
    EXPECT_EQ(Cell(window, 1, kDip).data(Qt::ToolTipRole).toString(), "9x\t270");
    UndoEdits();
    displays->FollowPlots();
    EXPECT_EQ(Text(window, 1, kDip), "45");
    EXPECT_EQ(Cell(window, 1, kDip).data(Qt::ToolTipRole).toString(), "");
}

TEST_F(DataDisplayTest, EscDropsWhatWasTyped) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80", Qt::Key_Escape);
    EXPECT_FALSE(window.txtCellContents->isVisible());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Text(window, 1, kDip), "45");
    EXPECT_EQ(EditedMark(window, 1), "");
    EXPECT_TRUE(window.grdRawData->hasFocus());
}

TEST_F(DataDisplayTest, EscClosesTheWindowButNotOverEdits) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80");
    QTest::keyClick(window.grdRawData, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    window.cmdDiscard->click();
    EXPECT_EQ(Text(window, 1, kDip), "45");
    EXPECT_FALSE(window.cmdDiscard->isEnabled());
    QTest::keyClick(window.grdRawData, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Row(2), Pair(45, 270));
}

TEST_F(DataDisplayTest, KeysConfirmAndGoOn) {
    struct Case {
        Qt::Key key;
        int row;
        int column;
        bool isEditing;
    };

    const Case cases[] = {
        {Qt::Key_Return, 2, kDip, false}, {Qt::Key_Enter, 2, kDip, false},
        {Qt::Key_Tab, 1, kAzimuth, true}, {Qt::Key_Backtab, 0, kAzimuth, true},
        {Qt::Key_Down, 2, kDip, true},    {Qt::Key_Up, 0, kDip, true},
    };
    for (const Case& c : cases) {
        Load();
        frmDataDisplay& window = ShowPlot();
        Type(window, 1, kDip, "80", c.key);
        EXPECT_EQ(Text(window, 1, kDip), "80") << c.key;
        EXPECT_EQ(window.grdRawData->currentIndex(), Cell(window, c.row, c.column)) << c.key;
        EXPECT_EQ(window.txtCellContents->isVisible(), c.isEditing) << c.key;
        if (c.isEditing) {
            EXPECT_EQ(window.txtCellContents->text().toStdString(), Text(window, c.row, c.column));
            EXPECT_TRUE(
                window.txtCellContents->geometry().contains(Middle(window, c.row, c.column)))
                << c.key;
        }
        window.DropEdit();
        window.cmdDiscard->click();
        window.close();
    }
}

TEST_F(DataDisplayTest, KeysOpenTheEditor) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Click(window, 1);
    QTest::keyClick(window.grdRawData, Qt::Key_F2);
    ASSERT_TRUE(window.txtCellContents->isVisible());
    EXPECT_EQ(window.txtCellContents->text(), "45");
    QTest::keyClick(window.txtCellContents, Qt::Key_Escape);
    QTest::keyClick(window.grdRawData, Qt::Key_Return);
    EXPECT_TRUE(window.txtCellContents->isVisible()) << "Enter in the grid is not OK";
    QTest::keyClick(window.txtCellContents, Qt::Key_Escape);
    QTest::keyClicks(window.grdRawData, "7");
    EXPECT_EQ(window.txtCellContents->text(), "7") << "typing replaces";
    QTest::keyClicks(window.txtCellContents, "5");
    QTest::keyClick(window.txtCellContents, Qt::Key_Return);
    EXPECT_EQ(Text(window, 1, kDip), "75");
}

TEST_F(DataDisplayTest, RowNumbersAndMarksAreNotEdited) {
    Load();
    frmDataDisplay& window = ShowPlot();
    for (const int column : {0, 3}) {
        DoubleClick(window, 1, column);
        EXPECT_FALSE(window.txtCellContents->isVisible()) << column;
    }
}

TEST_F(DataDisplayTest, AnotherPlaceTakesTheFocusAndConfirms) {
    Load();
    frmDataDisplay& window = ShowPlot();
    DoubleClick(window, 1, kDip);
    window.txtCellContents->setText("80");
    Click(window, 0);
    EXPECT_FALSE(window.txtCellContents->isVisible());
    EXPECT_EQ(Text(window, 1, kDip), "80");
}

TEST_F(DataDisplayTest, ANewRowAtTheEndIsAddedToThePlot) {
    Load();
    frmDataDisplay& window = ShowPlot();
    window.cmdAddRow->click();
    ASSERT_EQ(window.grdRawData->model()->rowCount(), 4);
    ASSERT_TRUE(window.txtCellContents->isVisible());
    QTest::keyClicks(window.txtCellContents, "12");
    QTest::keyClick(window.txtCellContents, Qt::Key_Tab);
    QTest::keyClicks(window.txtCellContents, "200");
    QTest::keyClick(window.txtCellContents, Qt::Key_Return);
    EXPECT_EQ(EditedMark(window, 3), "*");
    EXPECT_EQ(ActiveRecord().NumData, 3);
    window.cmdOK->click();
    ASSERT_EQ(ActiveRecord().NumData, 4);
    EXPECT_EQ(Row(4), Pair(12, 200));
}

TEST_F(DataDisplayTest, ARoseTakesNoNewRow) {
    Load();
    ActiveRecord().PlotKind = kRose;
    frmDataDisplay& window = ShowPlot();
    window.cmdAddRow->click();
    EXPECT_EQ(window.grdRawData->model()->rowCount(), 3);
    EXPECT_TRUE(window.lblEdits->text().contains("takes no new rows"));
}

TEST_F(DataDisplayTest, PickedRowsAreTheSelection) {
    struct Case {
        int row;
        Qt::KeyboardModifiers keys;
        Points points;
    };

    Load("30\t120\n45\t270\n60\t15\n70\t20\n80\t25\n");
    const Case cases[] = {
        {1, Qt::NoModifier, {2}},         {3, Qt::ShiftModifier, {2, 3, 4}},
        {2, Qt::ControlModifier, {2, 4}}, {4, Qt::ControlModifier, {2, 4, 5}},
        {0, Qt::NoModifier, {1}},
    };
    frmDataDisplay& window = ShowPlot();
    for (const Case& c : cases) {
        const int before = selections;
        Click(window, c.row, c.keys);
        EXPECT_EQ(gSelectionRows, c.points) << c.row;
        EXPECT_EQ(Selection::now.slot, gActivePlot);
        EXPECT_EQ(selections, before + 1) << "notified once, without a loop";
        Rows rows;
        for (const std::int32_t point : c.points) {
            rows.push_back(static_cast<std::size_t>(point) - 1);
        }
        EXPECT_EQ(window.grdRawData->PickedRows(), rows);
    }
    QTest::keyClick(window.grdRawData, Qt::Key_Down);
    EXPECT_EQ(gSelectionRows, Points({2}));
    QTest::keyClick(window.grdRawData, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(gSelectionRows, Points({2, 3}));
    QTest::keyClick(window.grdRawData, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(gSelectionRows, Points({1, 2, 3, 4, 5}));
}

TEST_F(DataDisplayTest, ADragPicksWhatItGoesOver) {
    Load("30\t120\n45\t270\n60\t15\n70\t20\n80\t25\n");
    frmDataDisplay& window = ShowPlot();
    QWidget* viewport = window.grdRawData->viewport();
    Click(window, 4);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::ControlModifier, Middle(window, 0, kDip));
    const auto drag = [&](int row) {
        QMouseEvent move(QEvent::MouseMove, Middle(window, row, kDip),
                         viewport->mapToGlobal(Middle(window, row, kDip)), Qt::NoButton,
                         Qt::LeftButton, Qt::ControlModifier);
        QCoreApplication::sendEvent(viewport, &move);
    };
    drag(3);
    EXPECT_EQ(gSelectionRows, Points({1, 2, 3, 4, 5}));
    drag(1);
    EXPECT_EQ(gSelectionRows, Points({1, 2, 5})) << "the drag takes back what it leaves";
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::ControlModifier, Middle(window, 1, kDip));
    EXPECT_EQ(gSelectionRows, Points({1, 2, 5}));
}

TEST_F(DataDisplayTest, TheSelectionOfThePlotIsPickedInBothGrids) {
    Load("; a remark\n30\t120\n45\t270\n60\t15\n");
    displays->ShowRawData();
    frmDataDisplay& window = ShowPlot();
    const int before = selections;
    SelectRows(gActivePlot, {3, 4});
    EXPECT_EQ(selections, before + 1);
    EXPECT_EQ(window.grdRawData->PickedRows(), Rows({2, 3}));
    EXPECT_EQ(Raw().grdRawData->PickedRows(), Rows({2, 3}));
    ClearSelection();
    EXPECT_EQ(window.grdRawData->PickedRows(), Rows());
    EXPECT_EQ(Raw().grdRawData->PickedRows(), Rows());
}

TEST_F(DataDisplayTest, ASelectionOutOfSightIsScrolledTo) {
    std::string text;
    for (int row = 0; row < 300; ++row) {
        text += "30\t" + std::to_string(row) + "\n";
    }
    Load(text);
    frmDataDisplay& window = ShowPlot();
    const QRect room = window.grdRawData->viewport()->rect();
    ASSERT_FALSE(room.contains(Middle(window, 249, kDip)));
    SelectRows(gActivePlot, {250, 251});
    EXPECT_TRUE(room.contains(Middle(window, 249, kDip)));
    const int place = window.grdRawData->verticalScrollBar()->value();
    SelectRows(gActivePlot, {1, 251});
    EXPECT_EQ(window.grdRawData->verticalScrollBar()->value(), place) << "one of them is in sight";
}

TEST_F(DataDisplayTest, WhatIsSelectedInALinkedPlotIsPicked) {
    NewPlot();
    const int parent = gActivePlot;
    ActiveRecord().PlotTitle = "faults";
    ActiveRecord().PlotKind = kEqualArea;
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    ActiveRecord().DataKind = kPlanes;
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    // Slip down the dip.
    for (const auto& [dip, direction] : {Pair(60, 90), Pair(30, 200)}) {
        AddRow(dip, direction);
        const std::int32_t row = ActiveRecord().NumData;
        int secondary = 1;
        GrowDataColumns(secondary, row);
        gData2Dip.At(gActivePlot, row) = dip;
        gData2Az.At(gActivePlot, row) = direction;
        gDataOrder.At(gActivePlot, row) = row;
    }
    frmDataDisplay& window = ShowPlot();
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Normal));
    ASSERT_NE(gActivePlot, parent);
    Points axesOfSecond;
    for (std::int32_t row = 1; row <= ActiveRecord().NumData; ++row) {
        // P and T of a dip slip trend along the dip direction and opposite to it.
        if (gDataAz(gActivePlot, row) % 180 == 20) {
            axesOfSecond.push_back(row);
        }
    }
    ASSERT_FALSE(axesOfSecond.empty());
    SelectRows(gActivePlot, axesOfSecond);
    EXPECT_EQ(window.grdRawData->PickedRows(), Rows({1}));
}

TEST_F(DataDisplayTest, RowsPickedInOneGridArePickedInTheOther) {
    Load("30\t120\n; a remark\n45\t270\n60\t15\n");
    displays->ShowPlotData();
    displays->ShowRawData();
    Click(Raw(), 3);
    EXPECT_EQ(Plot().grdRawData->PickedRows(), Rows({3}));
    EXPECT_EQ(gSelectionRows.size(), 1U);
    Click(Plot(), 0);
    EXPECT_EQ(Raw().grdRawData->PickedRows(), Rows({0}));
    Click(Raw(), 1);
    EXPECT_EQ(gSelectionRows, Points()) << "a remark has no place on the net";
    EXPECT_EQ(Raw().grdRawData->PickedRows(), Rows({1}));
    EXPECT_EQ(Plot().grdRawData->PickedRows(), Rows());
}

TEST_F(DataDisplayTest, PickedRowsInTheOtherGridNeedNoDispatcher) {
    Load();
    displays->ShowRawData();
    displays->ShowPlotData();
    ConnectSelection({});
    Click(Plot(), 2);
    EXPECT_EQ(Raw().grdRawData->PickedRows(), Rows({2}));
}

TEST_F(DataDisplayTest, PickedRowsAreDrawnAsSelected) {
    Load();
    frmDataDisplay& window = ShowPlot();
    SelectRows(gActivePlot, {2});
    const QImage image = window.grdRawData->viewport()->grab().toImage();
    const QRect cell = window.grdRawData->visualRect(Cell(window, 1, kAzimuth));
    const auto paper = [&](int row) {
        const QRect room = window.grdRawData->visualRect(Cell(window, row, kAzimuth));
        return image.pixelColor(room.left() + 3, room.top() + 3);
    };
    EXPECT_TRUE(cell.isValid());
    EXPECT_NE(paper(1), paper(0));
    EXPECT_EQ(paper(2), paper(0));
}

TEST_F(DataDisplayTest, DeletedRowsAreMarkedUntilTheGridIsFilledAnew) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 2, kDip, "61");
    SelectRows(gActivePlot, {2});
    EditSelection(kDeleteItem);
    displays->FollowPlots();
    ASSERT_EQ(window.grdRawData->model()->rowCount(), 3);
    EXPECT_EQ(Text(window, 1, kDip), "deleted");
    EXPECT_EQ(Text(window, 2, kDip), "61") << "the edit went with its row";
    DoubleClick(window, 1, kDip);
    EXPECT_FALSE(window.txtCellContents->isVisible());
    window.cmdOK->click();
    EXPECT_EQ(Row(2), Pair(61, 15));
    displays->ShowPlotData();
    EXPECT_EQ(window.grdRawData->model()->rowCount(), 2);
}

TEST_F(DataDisplayTest, ToldRowsAreMarkedAsDeletedInTheirOwnPlotAlone) {
    Load();
    frmDataDisplay& window = ShowPlot();
    SelectRows(gActivePlot, {2});
    const Points gone = RowsToRemove(gActivePlot, gSelectionRows);
    EditSelection(kDeleteItem);
    displays->RowsRemoved(gActivePlot + 1, gone);
    EXPECT_NE(Text(window, 1, kDip), "deleted");
    displays->RowsRemoved(gActivePlot, gone);
    EXPECT_EQ(Text(window, 1, kDip), "deleted");
    UndoEdits();
    displays->FollowPlots();
    ASSERT_EQ(window.grdRawData->model()->rowCount(), 3);
    EXPECT_EQ(Text(window, 1, kDip), "45");
}

TEST_F(DataDisplayTest, FollowsAPlotThatGainsRowsAndKeepsItsEdits) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80");
    AddRow(10, 20);
    gDataOrder.At(gActivePlot, 4) = 4;
    ActiveRecord().PlotTitle = "more";
    displays->FollowPlots();
    EXPECT_EQ(window.windowTitle(), "Processed data in: more");
    ASSERT_EQ(window.grdRawData->model()->rowCount(), 4);
    EXPECT_EQ(Text(window, 3, kDip), "10");
    EXPECT_EQ(Text(window, 1, kDip), "80");
    EXPECT_EQ(EditedMark(window, 1), "*");
}

TEST_F(DataDisplayTest, ClosesWithItsPlotWithoutApplying) {
    Load();
    displays->ShowRawData();
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80");
    displays->PlotClosed(gActivePlot);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(Raw().isVisible());
    EXPECT_EQ(Row(2), Pair(45, 270));
    EXPECT_EQ(applications, 0);
}

TEST_F(DataDisplayTest, StaysWithItsPlotUntilItIsAskedForAnother) {
    Load();
    const int first = gActivePlot;
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80");
    Load("1\t2\n", "one.txt");
    displays->FollowPlots();
    EXPECT_EQ(window.windowTitle(), "Processed data in: beds.txt");
    EXPECT_EQ(gDataDip(first, 2), 45);
    displays->ShowPlotData();
    EXPECT_EQ(window.windowTitle(), "Processed data in: one.txt");
    EXPECT_EQ(window.grdRawData->model()->rowCount(), 1);
    EXPECT_EQ(gDataDip(first, 2), 80) << "what waited was applied";
}

TEST_F(DataDisplayTest, WaitsWhileALongLoopRuns) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80");
    gBusy = true;
    window.cmdOK->click();
    EXPECT_TRUE(window.isVisible());
    gBusy = false;
    window.cmdOK->click();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Row(2), Pair(80, 270));
}

TEST_F(DataDisplayTest, AppliesBeforeASaveOfItsPlotAlone) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Type(window, 1, kDip, "80");
    displays->ApplyEdits(gActivePlot + 1);
    EXPECT_EQ(Row(2), Pair(45, 270));
    displays->ApplyEdits(gActivePlot);
    EXPECT_EQ(Row(2), Pair(80, 270));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(EditedMark(window, 1), "");
}

TEST_F(DataDisplayTest, CopiesThePickedCellsAsTabbedText) {
    Load();
    frmDataDisplay& window = ShowPlot();
    Click(window, 0);
    Click(window, 2, Qt::ControlModifier);
    QTest::keyClick(window.grdRawData, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.Text(), "30\t120\n60\t015\n");
    const std::string remark = "; " + std::string(900, 'r');
    Load(remark + "\n30\t120\n", "remark.txt");
    displays->ShowRawData();
    Click(Raw(), 0);
    QTest::keyClick(Raw().grdRawData, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.Text(), remark + "\t\n") << "long texts are copied whole";
}

TEST_F(DataDisplayTest, TheEditorStaysOverItsCell) {
    std::string text;
    for (int row = 0; row < 200; ++row) {
        text += "30\t" + std::to_string(row) + "\n";
    }
    Load(text);
    frmDataDisplay& window = ShowPlot();
    DoubleClick(window, 5, kAzimuth);
    window.grdRawData->verticalScrollBar()->setValue(2);
    EXPECT_TRUE(window.txtCellContents->geometry().contains(Middle(window, 5, kAzimuth)));
    window.grdRawData->horizontalHeader()->resizeSection(0, 150);
    EXPECT_TRUE(window.txtCellContents->geometry().contains(Middle(window, 5, kAzimuth)));
    EXPECT_EQ(window.txtCellContents->text(), "005");
}

TEST_F(DataDisplayTest, AHundredThousandRowsCostNoMoreThanAFew) {
    NewPlot();
    constexpr std::int32_t kMany = 100'000;
    PlotRecord& record = ActiveRecord();
    record.PlotKind = kEqualArea;
    record.PrimaryFormat = kPrimaryPlane;
    record.DataKind = kPlanes;
    int secondary = 0;
    GrowDataColumns(secondary, kMany);
    record.NumData = kMany;
    record.NumLoadedData = kMany;
    record.NumValidData = kMany;
    for (std::int32_t row = 1; row <= kMany; ++row) {
        gDataDip.At(gActivePlot, row) = row % 91;
        gDataAz.At(gActivePlot, row) = row % 360;
        gDataOrder.At(gActivePlot, row) = row;
        gDataSymbol.At(gActivePlot, row) = CodeOfStyleRow(0);
    }
    RebuildRowTable(gActivePlot);
    frmDataDisplay& window = ShowPlot();
    Points everySecond;
    for (std::int32_t row = 2; row <= kMany; row += 2) {
        everySecond.push_back(row);
    }
    QElapsedTimer timer;
    timer.start();
    SelectRows(gActivePlot, everySecond);
    QScrollBar& bar = *window.grdRawData->verticalScrollBar();
    constexpr int kSteps = 20;
    for (int step = 0; step <= kSteps; ++step) {
        bar.setValue(bar.maximum() * step / kSteps);
        static_cast<void>(window.grdRawData->viewport()->grab());
    }
    EXPECT_LT(timer.elapsed(), 3000) << "half of the rows picked, and twenty pages shown";
    EXPECT_EQ(window.grdRawData->PickedRows().size(), everySecond.size());
    EXPECT_EQ(Text(window, kMany - 1, 0), "100000");
    EXPECT_TRUE(window.grdRawData->indexAt(Middle(window, kMany - 1, 0)).isValid());
}

TEST_F(DataDisplayTest, MnemonicsAreUniqueAndControlsNamed) {
    Load();
    frmDataDisplay& window = ShowPlot();
    std::set<QChar> keys;
    for (const QPushButton* button : {window.cmdAddRow, window.cmdDiscard}) {
        const auto at = button->text().indexOf('&');
        ASSERT_GE(at, 0);
        EXPECT_TRUE(keys.insert(button->text().at(at + 1).toLower()).second);
    }
    for (const char* name : {"grdRawData", "txtCellContents"}) {
        EXPECT_FALSE(ControlOf<QWidget>(window, name).accessibleName().isEmpty()) << name;
    }
    EXPECT_EQ(window.lblEdits->textFormat(), Qt::PlainText);
}

} // namespace
} // namespace quandrel
