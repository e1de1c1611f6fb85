// SPDX-License-Identifier: MIT
//
// The texts of plots in a panel, and beside their nets.

#include "core/plot_store.h"
#include "session/closing.h"
#include "shell/controls/picture_box.h"
#include "shell/panels/text_panel.h"
#include "shell/plot/frm_plot_forms.h"
#include "support/main_window_test.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

namespace quandrel {
namespace {

class TextsOfPlots : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        first = OpenFile("a.txt");
        panel = main->findChild<TextPanel*>("panTexts");
        ASSERT_NE(panel, nullptr);
    }

    [[nodiscard]] static frmPlotForms& FormOf(int slot) {
        return static_cast<frmPlotForms&>(*PlotOf(slot).form);
    }

    [[nodiscard]] static QPlainTextEdit& StatisticsOf(int slot) {
        return *FormOf(slot).txtStatsBox[0];
    }

    [[nodiscard]] bool IsInPanel(const QWidget& widget) const {
        return panel->isAncestorOf(&widget);
    }

    int first = 0;
    TextPanel* panel = nullptr;
};

TEST_F(TextsOfPlots, AreBesideTheNetUntilThePanelIsShown) {
    EXPECT_TRUE(panel->isHidden());
    EXPECT_FALSE(Action("mnuViewTexts").isChecked());
    EXPECT_TRUE(FormOf(first).isAncestorOf(&StatisticsOf(first)));
    const int net = FormOf(first).picStereoArea->width();
    Press("mnuViewTexts");
    EXPECT_TRUE(Action("mnuViewTexts").isChecked());
    EXPECT_TRUE(IsInPanel(StatisticsOf(first)));
    EXPECT_TRUE(StatisticsOf(first).isVisible());
    EXPECT_FALSE(StatisticsOf(first).toPlainText().isEmpty());
    EXPECT_TRUE(FormOf(first).txtFabricBox->isVisible());
    EXPECT_GE(FormOf(first).picStereoArea->width(), net) << "the net has the room";
    panel->close();
    QApplication::processEvents();
    EXPECT_TRUE(FormOf(first).isAncestorOf(&StatisticsOf(first)));
    EXPECT_TRUE(StatisticsOf(first).isVisible());
    EXPECT_EQ(FormOf(first).picStereoArea->width(), net) << "as before";
    EXPECT_EQ(StatisticsOf(first).maximumHeight(), QWIDGETSIZE_MAX);
}

TEST_F(TextsOfPlots, InThePanelAreThoseOfThePlotInFront) {
    Press("mnuViewTexts");
    const int second = OpenFile("b.txt");
    EXPECT_TRUE(StatisticsOf(second).isVisible());
    EXPECT_FALSE(StatisticsOf(first).isVisible());
    FormOf(first).Raise();
    QApplication::processEvents();
    EXPECT_TRUE(StatisticsOf(first).isVisible());
    EXPECT_FALSE(StatisticsOf(second).isVisible());
}

TEST_F(TextsOfPlots, AreTypedInThePanel) {
    Press("mnuViewTexts");
    QTest::keyClicks(FormOf(first).txtFabricBox, "cleavage");
    FormOf(first).txtDescBox->setPlainText("one\ntwo\nthree");
    EXPECT_EQ(RecordOf(first).FabricText, "cleavage");
    EXPECT_EQ(RecordOf(first).DescriptionText, "one\ntwo\nthree");
    const int three = FormOf(first).txtDescBox->height();
    FormOf(first).txtDescBox->setPlainText("one");
    EXPECT_LT(FormOf(first).txtDescBox->height(), three) << "as high as its text";
}

TEST_F(TextsOfPlots, ThatAreSwitchedOffAreNotInThePanel) {
    Press("mnuViewTexts");
    RecordOf(first).LayerVisible[kStatisticsLayer] = 0;
    RecordOf(first).LayerVisible[kDescriptionLayer] = 0;
    FormOf(first).FollowRecord();
    EXPECT_FALSE(StatisticsOf(first).isVisible());
    EXPECT_FALSE(FormOf(first).txtDescBox->isVisible());
    EXPECT_TRUE(FormOf(first).txtFabricBox->isVisible());
}

TEST_F(TextsOfPlots, LeaveThePanelWithTheirPlot) {
    Press("mnuViewTexts");
    ASSERT_NE(panel->findChild<QWidget*>("pagTexts_" + QString::number(first)), nullptr);
    RecordOf(first).Modified = 0;
    Press("mnuFileClose_0");
    QApplication::processEvents();
    EXPECT_EQ(panel->findChild<QWidget*>("pagTexts_" + QString::number(first)), nullptr);
    EXPECT_TRUE(panel->findChild<QWidget*>("lblNoPlot")->isVisible());
    const int again = OpenFile("a.txt");
    EXPECT_TRUE(StatisticsOf(again).isVisible());
}

TEST_F(TextsOfPlots, APanelThatIsAskedForIsInFront) {
    const auto press = [this](const char* command) {
        Press(command);
        QApplication::processEvents();
    };
    press("mnuViewTexts");
    press("mnuViewProperties");
    const auto* properties = main->findChild<QWidget*>("panProperties");
    EXPECT_FALSE(properties->visibleRegion().isEmpty());
    EXPECT_TRUE(panel->visibleRegion().isEmpty()) << "behind its tab";
    press("mnuViewTexts");
    press("mnuViewTexts");
    EXPECT_FALSE(panel->visibleRegion().isEmpty());
    EXPECT_TRUE(properties->visibleRegion().isEmpty());
}

TEST_F(TextsOfPlots, TheStateOfThePanelIsKept) {
    Press("mnuViewTexts");
    main->close();
    EXPECT_TRUE(gSettings.windows.textPanel);
}

} // namespace
} // namespace quandrel
