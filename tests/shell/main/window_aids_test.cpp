// SPDX-License-Identifier: MIT
//
// What helps to find one's way in the main window: the strip in rows, names below buttons, tips
// that say why a command is disabled, the search of commands, nets in dark themes.

#include "qt/dark_image.h"
#include "shell/controls/flow_layout.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_command_search.h"
#include "shell/main/tool_strip.h"
#include "support/main_window_test.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QToolTip>

namespace quandrel {
namespace {

class WindowAids : public MainWindowTest {
protected:
    void TearDown() override {
        QApplication::setPalette(QPalette());
        MainWindowTest::TearDown();
    }

    [[nodiscard]] ToolStrip& Strip() const {
        return static_cast<ToolStrip&>(ControlOf<QToolBar>(*main, "panToolbarBox"));
    }

    void ExpectAllButtonsWithin() {
        const QList<QToolButton*> buttons = Strip().findChildren<QToolButton*>();
        int seen = 0;
        for (const QToolButton* button : buttons) {
            if (button->defaultAction() == nullptr) {
                continue; // Qt's own, for what does not fit
            }
            const QRect place(button->mapTo(main.get(), QPoint(0, 0)), button->size());
            EXPECT_TRUE(button->isVisible()) << button->objectName().toStdString();
            EXPECT_TRUE(main->rect().contains(place)) << button->objectName().toStdString();
            EXPECT_TRUE(Strip().rect().contains(
                QRect(button->mapTo(&Strip(), QPoint(0, 0)), button->size())))
                << button->objectName().toStdString();
            ++seen;
        }
        EXPECT_GT(seen, 30);
    }

    void Resize(int width) {
        main->resize(width, 760);
        QApplication::processEvents();
        QApplication::processEvents();
    }
};

TEST_F(WindowAids, TheStripWrapsRatherThanHides) {
    Resize(1900);
    const int wide = Strip().height();
    ExpectAllButtonsWithin();
    Resize(700);
    ExpectAllButtonsWithin();
    EXPECT_GT(Strip().height(), wide);
    Resize(1900);
    EXPECT_EQ(Strip().height(), wide);
}

TEST_F(WindowAids, ButtonsHaveTheirNamesBelow) {
    auto& open = ControlOf<QToolButton>(*main, "cmdOpenButton");
    Strip().ShowLabels(true);
    EXPECT_EQ(open.toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    EXPECT_EQ(open.text(), "Open");
    Resize(800);
    ExpectAllButtonsWithin();
    Strip().ShowLabels(false);
    EXPECT_EQ(open.toolButtonStyle(), Qt::ToolButtonIconOnly);
    const auto& planes = ControlOf<QToolButton>(*main, "grpDataTypeButton_0");
    EXPECT_EQ(planes.toolButtonStyle(), Qt::ToolButtonIconOnly);
}

TEST_F(WindowAids, TipsSayWhyACommandIsDisabled) {
    EXPECT_TRUE(Action("mnuFileLoad_1").toolTip().endsWith("\nOpen a plot first."));
    OpenFile("a.txt");
    EXPECT_FALSE(Action("mnuFileLoad_1").toolTip().contains('\n'));
    EXPECT_TRUE(Action("mnuEditUndo").toolTip().endsWith("\nThere is nothing to undo."));
    EXPECT_TRUE(Action("mnuPlotSecondary")
                    .toolTip()
                    .endsWith("\nThe rows have no secondary orientations."));
    Press("mnuPlotStyle_2");
    EXPECT_FALSE(Action("mnuEditUndo").toolTip().contains('\n'));
}

TEST_F(WindowAids, FindCommandsByTheirWords) {
    OpenFile("a.txt");
    QMenu menu("&Plot");
    QMenu& inner = *menu.addMenu("Styl&e");
    inner.addAction(&Action("mnuPlotStyle_2"));
    inner.addAction(&Action("mnuPlotStyle_3"));
    menu.addAction(&Action("mnuPlotSecondary"));
    frmCommandSearch search(main.get(), {&menu});
    EXPECT_EQ(search.lstCommands->count(), 3);
    QTest::keyClicks(search.txtWords, "jour PLOT");
    ASSERT_EQ(search.lstCommands->count(), 1);
    EXPECT_EQ(search.lstCommands->item(0)->text(), "Plot > Style > Journal");
    QTest::keyClick(search.txtWords, Qt::Key_Return);
    EXPECT_EQ(search.Chosen(), &Action("mnuPlotStyle_2"));
    EXPECT_EQ(search.result(), QDialog::Accepted);
}

TEST_F(WindowAids, ChooseAmongFoundCommandsByKeysAndNoDisabledOne) {
    OpenFile("a.txt");
    QMenu menu("&Plot");
    menu.addAction(&Action("mnuPlotSecondary"));
    menu.addAction(&Action("mnuPlotStyle_2"));
    menu.addAction(&Action("mnuPlotStyle_3"));
    frmCommandSearch search(main.get(), {&menu});
    EXPECT_EQ(search.lstCommands->currentRow(), 1) << "the first one is disabled";
    EXPECT_NE(search.lstCommands->item(0)->toolTip().indexOf("no secondary"), -1);
    QTest::keyClick(search.txtWords, Qt::Key_Down);
    QTest::keyClick(search.txtWords, Qt::Key_Return);
    EXPECT_EQ(search.Chosen(), &Action("mnuPlotStyle_3"));
    frmCommandSearch none(main.get(), {&menu});
    QTest::keyClicks(none.txtWords, "no such command");
    QTest::keyClick(none.txtWords, Qt::Key_Return);
    EXPECT_EQ(none.Chosen(), nullptr);
}

TEST_F(WindowAids, NetsAndLegendsAreDarkInDarkThemesOnTheScreenAlone) {
    const int slot = OpenFile("a.txt");
    PictureBox& box = *FormOfSlot(slot).picStereoArea;
    const QImage light = box.grab().toImage();
    const QImage drawn = box.Image();
    EXPECT_EQ(light.pixelColor(2, 2), QColor(Qt::white));
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Window, QColor(50, 50, 50));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    QApplication::processEvents();
    const QImage shown = box.grab().toImage();
    EXPECT_EQ(shown.pixelColor(2, 2), QColor(kDarkGround, kDarkGround, kDarkGround));
    EXPECT_EQ(box.Image(), drawn) << "what is copied and exported";
    const QImage legend = FormOfSlot(slot).picLegendBox->grab().toImage();
    EXPECT_EQ(legend.pixelColor(1, 1), QColor(kDarkGround, kDarkGround, kDarkGround));
    QApplication::setPalette(QPalette());
    QApplication::processEvents();
    EXPECT_EQ(box.grab().toImage().pixelColor(2, 2), QColor(Qt::white));
}

} // namespace
} // namespace quandrel
