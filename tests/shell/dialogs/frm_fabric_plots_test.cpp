// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "fabric/fabric_texts.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_fabric_plots.h"
#include "support/main_window_test.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

namespace quandrel {
namespace {

/// The window over the main window, with a plot of 30 lines.
class FabricWindow : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        first = OpenLines("a.txt", 30);
        Press("mnuViewFabric");
        window = main->findChild<frmFabricPlots*>("frmFabricPlots");
        ASSERT_NE(window, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }

    int OpenLines(const std::string& name, int rows) {
        std::string text;
        for (int i = 0; i < rows; ++i) {
            text +=
                std::to_string(20 + i * 7 % 40) + "\t" + std::to_string(80 + i * 11 % 60) + "\n";
        }
        return OpenFile(name, text);
    }

    /// Presses a control by the keyboard.
    static void PressSpace(QWidget& control) {
        control.setFocus();
        QTest::keyClick(&control, Qt::Key_Space);
    }

    [[nodiscard]] std::string Cell(int row, int column) const {
        return window->tblFabrics->item(row, column)->text().toStdString();
    }

    int first = 0;
    frmFabricPlots* window = nullptr;
};

TEST_F(FabricWindow, ShowsTheFabricOfThePlot) {
    ASSERT_EQ(window->tblFabrics->rowCount(), 1);
    EXPECT_EQ(Cell(0, 1), "30");
    EXPECT_FALSE(window->lblNote->isVisible());
    EXPECT_TRUE(window->optDiagram[2]->isChecked());
    EXPECT_FALSE(window->chkOf[1]->isEnabled()) << "no overlays";
    EXPECT_FALSE(window->chkOf[2]->isEnabled()) << "no classes";
    EXPECT_NE(window->windowTitle().indexOf("a.txt"), -1);
}

TEST_F(FabricWindow, KeysChooseTheDiagram) {
    const QImage both = window->picFabric->Image().copy();
    PressSpace(*window->optDiagram[0]);
    EXPECT_TRUE(window->optDiagram[0]->isChecked());
    const QImage ratios = window->picFabric->Image().copy();
    EXPECT_NE(both, ratios);
    PressSpace(*window->optDiagram[1]);
    EXPECT_TRUE(window->optDiagram[1]->isChecked());
    EXPECT_NE(window->picFabric->Image(), ratios);
}

TEST_F(FabricWindow, KeysChooseTheRows) {
    OpenLines("b.txt", 20);
    ASSERT_EQ(window->tblFabrics->rowCount(), 1);
    EXPECT_EQ(Cell(0, 1), "20") << "follows the active plot";
    PressSpace(*window->chkAllPlots);
    EXPECT_TRUE(window->chkAllPlots->isChecked());
    ASSERT_EQ(window->tblFabrics->rowCount(), 2);
    EXPECT_EQ(Cell(0, 1), "30");
    EXPECT_EQ(Cell(1, 1), "20");
    EXPECT_EQ(window->windowTitle(), "Fabric Plots");
    PressSpace(*window->chkOf[0]);
    EXPECT_EQ(window->tblFabrics->rowCount(), 0);
    EXPECT_TRUE(window->lblNote->isVisible());
    EXPECT_FALSE(window->cmdExport->isEnabled());
}

TEST_F(FabricWindow, FollowsEdits) {
    const std::string before = Cell(0, 2);
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_5");
    EXPECT_EQ(window->tblFabrics->rowCount(), 0) << "all rows were deleted";
    Press("mnuEditUndo");
    ASSERT_EQ(window->tblFabrics->rowCount(), 1);
    EXPECT_EQ(Cell(0, 2), before);
}

TEST_F(FabricWindow, CopiesTableAndPicture) {
    PressSpace(*window->cmdCopyTable);
    const std::vector<Plot*> plots = {&ActivePlot()};
    EXPECT_EQ(clipboard.Text(),
              FabricTable(FabricPointsOf(plots, gSettings.styles, kRegionsOfPlot)));
    QGuiApplication::clipboard()->clear();
    PressSpace(*window->cmdCopyPicture);
    EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
}

TEST_F(FabricWindow, ClosesWithTheLastPlot) {
    EXPECT_TRUE(window->isVisible());
    Press("mnuFileClose_0");
    EXPECT_FALSE(window->isVisible());
}

} // namespace
} // namespace quandrel
