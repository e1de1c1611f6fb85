// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "rose/petal_tip.h"
#include "rose/rose_wedges.h"
#include "session/start.h"
#include "shell/classes/frm_data_classification.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_statistical_tests.h"
#include "shell/rose/frm_rose_diag.h"
#include "support/main_window_test.h"

#include <QHelpEvent>
#include <QMdiSubWindow>
#include <QToolTip>

namespace quandrel {
namespace {

class PlotDialogsTest : public MainWindowTest {
protected:
    template <class Dialog>
    [[nodiscard]] std::vector<Dialog*> DialogsOf() const {
        std::vector<Dialog*> found;
        for (QDialog* const dialog : main->findChildren<QDialog*>()) {
            if (auto* const match = dynamic_cast<Dialog*>(dialog)) {
                found.push_back(match);
            }
        }
        return found;
    }

    [[nodiscard]] frmRoseDiag* Rose() const {
        const auto found = DialogsOf<frmRoseDiag>();
        return found.empty() ? nullptr : found.front();
    }

    [[nodiscard]] frmDataClassification* Classification() const {
        const auto found = DialogsOf<frmDataClassification>();
        return found.empty() ? nullptr : found.front();
    }

    [[nodiscard]] bool IsRoseShown() const { return Rose() != nullptr && Rose()->isVisible(); }

    [[nodiscard]] bool IsClassificationShown() const {
        return Classification() != nullptr && Classification()->isVisible();
    }
};

TEST_F(PlotDialogsTest, TheRoseButtonMakesARoseAndOpensItsDialog) {
    OpenFile("a.txt");
    ToolButton("grpPlotTypeButton_2").click();
    EXPECT_EQ(ActiveRecord().PlotKind, kRose);
    ASSERT_TRUE(IsRoseShown());
    EXPECT_TRUE(Rose()->windowTitle().startsWith("Rose: a.txt"));
    Rose()->close();
    Press("mnuPlotType_2");
    EXPECT_TRUE(IsRoseShown()) << "on a rose too";
    EXPECT_EQ(DialogsOf<frmRoseDiag>().size(), 1U);
}

TEST_F(PlotDialogsTest, TheRoseButtonWithoutAPlotOpensNoDialog) {
    Press("mnuPlotType_2");
    EXPECT_FALSE(IsRoseShown());
    EXPECT_EQ(gPlotKind, kRose);
}

TEST_F(PlotDialogsTest, TheClassificationItemTogglesTheDialogOfTheKindOfPlot) {
    OpenFile("a.txt");
    EXPECT_FALSE(Action("mnuViewClassification").isChecked());
    Press("mnuViewClassification");
    ASSERT_TRUE(IsClassificationShown());
    EXPECT_TRUE(Action("mnuViewClassification").isChecked());
    EXPECT_EQ(Classification()->windowTitle(), "Data Classification: Plot 1");
    Press("mnuViewClassification");
    EXPECT_FALSE(IsClassificationShown());
    EXPECT_FALSE(Action("mnuViewClassification").isChecked());
    Press("mnuPlotType_2");
    Rose()->close();
    Press("mnuViewClassification");
    EXPECT_TRUE(IsRoseShown());
    EXPECT_FALSE(IsClassificationShown());
    Press("mnuViewClassification");
    EXPECT_FALSE(IsRoseShown());
}

TEST_F(PlotDialogsTest, ADialogClosedByItsOwnButtonFreesTheItem) {
    OpenFile("a.txt");
    Press("mnuViewClassification");
    QTest::keyClick(Classification(), Qt::Key_Escape);
    EXPECT_FALSE(IsClassificationShown());
    EXPECT_FALSE(Action("mnuViewClassification").isChecked());
}

TEST_F(PlotDialogsTest, DialogsFollowTheActivePlot) {
    const int first = OpenFile("a.txt");
    OpenFile("b.txt");
    Press("mnuViewClassification");
    EXPECT_EQ(Classification()->windowTitle(), "Data Classification: Plot 2");
    Room().setActiveSubWindow(&FormOfSlot(first));
    EXPECT_EQ(Classification()->windowTitle(), "Data Classification: Plot 1");
    Press("mnuPlotType_2");
    EXPECT_FALSE(IsClassificationShown()) << "a rose has a dialog of its own";
    EXPECT_TRUE(IsRoseShown());
    Press("mnuPlotType_0");
    EXPECT_FALSE(IsRoseShown());
}

TEST_F(PlotDialogsTest, DialogsCloseWithTheLastPlot) {
    OpenFile("a.txt");
    Press("mnuViewClassification");
    Press("mnuFileClose_0");
    EXPECT_FALSE(IsClassificationShown());
}

TEST_F(PlotDialogsTest, TheTestsFollowNetsAndRosesUntilTheLastPlotCloses) {
    EXPECT_FALSE(Action("mnuViewTests").isEnabled());
    const int first = OpenFile("a.txt");
    OpenFile("b.txt");
    Press("mnuViewTests");
    ASSERT_EQ(DialogsOf<frmStatisticalTests>().size(), 1U);
    const frmStatisticalTests& tests = *DialogsOf<frmStatisticalTests>().front();
    EXPECT_TRUE(tests.isVisible());
    EXPECT_EQ(tests.windowTitle(), "Statistical Tests: b.txt: 2");
    Room().setActiveSubWindow(&FormOfSlot(first));
    EXPECT_EQ(tests.windowTitle(), "Statistical Tests: a.txt: 1");
    Press("mnuPlotType_2");
    EXPECT_TRUE(tests.isVisible()) << "azimuths of a rose are tested too";
    Press("mnuFileClose_0");
    Press("mnuFileClose_0");
    EXPECT_FALSE(tests.isVisible());
}

TEST_F(PlotDialogsTest, ThePartsOfARoseAreShownAndHidden) {
    // Strikes close together, so that the mean has an interval.
    OpenFile("a.txt", "30\t120\n30\t124\n45\t118\n60\t121\n50\t116\n40\t125\n");
    Press("mnuPlotType_2");
    Rose()->close();
    const auto picture = [] { return FormOfSlot(gActivePlot).picStereoArea->grab().toImage(); };
    for (const int item : {6, 7, 8}) {
        const std::string name = "mnuViewLegends_" + std::to_string(item);
        const bool wasShown = Action(name).isChecked();
        const QImage before = picture();
        Press(name);
        EXPECT_NE(Action(name).isChecked(), wasShown) << name;
        EXPECT_NE(picture(), before) << name;
        Press(name);
        EXPECT_EQ(picture(), before) << name;
    }
}

TEST_F(PlotDialogsTest, APetalTellsItsSectorAndItsShare) {
    gPlotKind = kRose;
    OpenFile("a.txt", "30\t120\n30\t120\n45\t270\n60\t15\n");
    ASSERT_EQ(ActiveRecord().PlotKind, kRose);
    ASSERT_FALSE(ActiveRose().wedges.empty());
    // Strike 030 of the first two rows: its petal reaches the rim.
    const double azimuth = DegToRad(25);
    const std::string tip =
        PetalTip(ActivePlot(), {500 * std::sin(azimuth), 500 * std::cos(azimuth)});
    EXPECT_EQ(tip, "Sector 020-030, 200-210\n2 of 4 data (50.0%)");
    EXPECT_EQ(PetalTip(ActivePlot(), {-500, 500}), "") << "there is no petal";
    PictureBox& box = *FormOfSlot(gActivePlot).picStereoArea;
    const QPoint at(static_cast<int>(box.width() * (0.5 + 500 * std::sin(azimuth) / 2200)),
                    static_cast<int>(box.height() * (0.5 - 500 * std::cos(azimuth) / 2200)));
    QHelpEvent help(QEvent::ToolTip, at, box.mapToGlobal(at));
    QApplication::sendEvent(&box, &help);
    EXPECT_EQ(QToolTip::text().toStdString(), tip);
}

} // namespace
} // namespace quandrel
