// SPDX-License-Identifier: MIT
//
// The statistics boxes of a plot window: their columns, and the room that they need.

#include "core/style_tables.h"
#include "session/start.h"
#include "support/main_window_test.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

namespace quandrel {
namespace {

class StatisticsBoxes : public MainWindowTest {
protected:
    void TearDown() override {
        gSettings.styles.fonts[kStatsFont] = {};
        MainWindowTest::TearDown();
    }

    int OpenFold() {
        std::string text;
        for (int i = 0; i < 40; ++i) {
            text += std::to_string(20 + i) + "\t" + std::to_string(i % 2 == 0 ? 100 + i : 260 + i)
                    + "\n";
        }
        return OpenFile("fold.txt", text);
    }

    /// Where the text after the last tab of a line begins, in pixels.
    static int PlaceAfterTabs(const QPlainTextEdit& box, const QTextBlock& line) {
        QTextCursor cursor(line);
        cursor.setPosition(line.position() + static_cast<int>(line.text().lastIndexOf('\t')) + 1);
        return box.cursorRect(cursor).left();
    }

    /// The line that holds a text.
    static QTextBlock LineWith(const QPlainTextEdit& box, const QString& text) {
        for (QTextBlock line = box.document()->begin(); line.isValid(); line = line.next()) {
            if (line.text().contains(text)) {
                return line;
            }
        }
        return {};
    }
};

TEST_F(StatisticsBoxes, HeadsOfTheAdvancedBoxStandOverTheirColumnsInAnyFont) {
    frmPlotForms& form = FormOfSlot(OpenFold());
    Press("mnuViewAdvStats");
    for (const double points : {6.0, 8.0, 9.0, 11.0}) {
        for (const char* const family : {"DejaVu Sans", "DejaVu Sans Mono"}) {
            gSettings.styles.fonts[kStatsFont].font.family = family;
            gSettings.styles.fonts[kStatsFont].font.points = points;
            form.resize(1400, 900);
            form.ApplyFonts();
            form.grab();
            const QPlainTextEdit& box = *form.txtStatsBox[1];
            const QTextBlock head = LineWith(box, "(Eigenvalue)");
            ASSERT_TRUE(head.isValid());
            const int place = PlaceAfterTabs(box, head);
            EXPECT_EQ(PlaceAfterTabs(box, head.previous()), place) << family << ' ' << points;
            for (QTextBlock row = head.next();
                 row.text().contains('\t') && !row.text().contains('|'); row = row.next()) {
                EXPECT_EQ(PlaceAfterTabs(box, row), place)
                    << family << ' ' << points << ": " << row.text().toStdString();
            }
        }
    }
}

TEST_F(StatisticsBoxes, NeedNoHorizontalBarInAnySize) {
    frmPlotForms& form = FormOfSlot(OpenFold());
    for (const int which : {0, 1}) {
        for (const QSize size : {QSize(300, 240), QSize(640, 480), QSize(1000, 700)}) {
            form.resize(size);
            form.grab();
            const QPlainTextEdit& box = *form.txtStatsBox.at(static_cast<std::size_t>(which));
            ASSERT_TRUE(box.isVisible());
            EXPECT_EQ(box.horizontalScrollBar()->maximum(), 0) << size.width();
            EXPECT_FALSE(box.horizontalScrollBar()->isVisible()) << size.width();
        }
        Press("mnuViewAdvStats");
    }
}

TEST_F(StatisticsBoxes, TheAdvancedOneStaysWithoutRows) {
    Press("mnuFileLoad_3");
    frmPlotForms& form = FormOfSlot(gActivePlot);
    const bool wasVisible = form.txtStatsBox[0]->isVisible();
    EXPECT_TRUE(wasVisible);
    Press("mnuViewAdvStats");
    EXPECT_TRUE(form.txtStatsBox[1]->isVisible());
    EXPECT_TRUE(form.txtStatsBox[1]->toPlainText().startsWith("No. of Data = 0"));
}

} // namespace
} // namespace quandrel
