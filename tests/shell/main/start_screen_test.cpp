// SPDX-License-Identifier: MIT

#include "core/settings_value.h"
#include "session/example_files.h"
#include "shell/controls/icons.h"
#include "shell/main/frm_intro.h"
#include "support/main_window_test.h"

#include <QMenu>
#include <QPushButton>

namespace quandrel {
namespace {

using StartScreen = MainWindowTest;

QImage IconImage(const QPushButton& button) {
    return button.icon().pixmap(button.iconSize()).toImage();
}

TEST_F(StartScreen, ShowsAPictureOfEachRecentFile) {
    OpenFile("a.txt", "30\t120\n");
    OpenFile("b.txt", "30\t120\n60\t300\n80\t10\n");
    Press("mnuFileClose_0");
    Press("mnuFileClose_0");
    const auto& b = ControlOf<QPushButton>(*main, "cmdRecent_1");
    const auto& a = ControlOf<QPushButton>(*main, "cmdRecent_2");
    EXPECT_EQ(b.text(), "b.txt");
    EXPECT_NE(IconImage(a), IconImage(b)) << "their rows differ";
    EXPECT_NE(IconImage(a), IconOf("equal_area").pixmap(a.iconSize()).toImage());
    EXPECT_FALSE(b.toolTip().isEmpty());
}

TEST_F(StartScreen, ShowsAnIconWhereAFileHasChanged) {
    OpenFile("a.txt", "30\t120\n");
    Press("mnuFileClose_0");
    WriteFile("a.txt", "30\t120\n45\t50\n");
    ControlOf<frmIntro>(*main, "frmIntro").Refresh();
    const auto& button = ControlOf<QPushButton>(*main, "cmdRecent_1");
    EXPECT_EQ(IconImage(button), IconOf("equal_area").pixmap(button.iconSize()).toImage());
}

TEST_F(StartScreen, OpensTheExamplesInTheirFormat) {
    QMenu* menu = ControlOf<QPushButton>(*main, "cmdExamples").menu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(static_cast<std::size_t>(menu->actions().size()), ExampleFiles().size());
    menu->actions().at(3)->trigger();
    QApplication::processEvents();
    EXPECT_EQ(ActiveRecord().FileTitle, "faults_slip_lines.txt");
    EXPECT_EQ(ActiveRecord().NumData, 72);
    EXPECT_EQ(ActiveRecord().SecondaryFormat, kSecondaryLine);
    ASSERT_EQ(formatQuestions.size(), 1U) << "the dialog shows the format";
    EXPECT_TRUE(formatQuestions[0].columnHeadings);
}

TEST_F(StartScreen, HasRoomInASmallWindow) {
    for (int i = 0; i < 9; ++i) {
        OpenFile("file " + std::to_string(i) + ".txt", "30\t120\n");
        Press("mnuFileClose_0");
    }
    main->resize(1024, 640);
    QApplication::processEvents();
    const auto& intro = ControlOf<frmIntro>(*main, "frmIntro");
    const QRect room = intro.parentWidget()->rect();
    EXPECT_TRUE(room.contains(intro.geometry()))
        << intro.height() << " of " << room.height() << " pixels";
}

} // namespace
} // namespace quandrel
