// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "shell/controls/text_boxes.h"
#include "shell/format/frm_file_format.h"
#include "shell/preferences/frm_preferences.h"
#include "support/shell_test.h"

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTest>
#include <QTextEdit>

namespace quandrel {
namespace {

class EditableBoxes : public EngineTest {
protected:
    /// Types a text as a user does and goes on to the next control.
    static void Type(QComboBox& box, const QString& text) {
        box.setFocus();
        box.lineEdit()->selectAll();
        QTest::keyClicks(box.lineEdit(), text);
        QTest::keyClick(box.lineEdit(), Qt::Key_Tab);
    }
};

TEST_F(EditableBoxes, TakeWhatIsTyped) {
    QWidget window;
    QComboBox box(&window);
    MakeEditable(box);
    box.addItems({"72", "36", "Type"});
    window.show();
    for (const char* text : {"7", "t", "TYPE", "3"}) {
        Type(box, text);
        EXPECT_EQ(box.currentText(), text);
    }
}

TEST_F(EditableBoxes, OfTheDialogsHaveNoCompleter) {
    FormatQuestion question;
    question.command = "None";
    frmFileFormat format(question, nullptr);
    const frmPreferences preferences(nullptr, 0);
    int boxes = 0;
    for (const QWidget* dialog : std::initializer_list<const QWidget*>{&format, &preferences}) {
        for (const QComboBox* box : dialog->findChildren<QComboBox*>()) {
            if (box->isEditable()) {
                EXPECT_EQ(box->completer(), nullptr) << box->objectName().toStdString();
                ++boxes;
            }
        }
    }
    EXPECT_EQ(boxes, 3);
    format.show();
    format.chkAppended[1]->setChecked(true);
    Type(*format.cboAppName[0], "Width"); // not "width", not "width of vein"
    EXPECT_EQ(format.AppendedNumericName(), "Width");
}

/// These run on an X server too, where there is a primary selection.
class PrimarySelection : public ::testing::Test {
protected:
    static bool IsOnX() { return QGuiApplication::platformName() == "xcb"; }

    static void MiddleClick(QWidget& widget) { QTest::mouseClick(&widget, Qt::MiddleButton); }

    /// The key that pastes the primary selection on X.
    static void PressKey(QWidget& widget) {
        widget.setFocus();
        QTest::keyClick(&widget, Qt::Key_Insert, Qt::ControlModifier | Qt::ShiftModifier);
    }

    void ExpectTheBoxesAsTheyWere() {
        EXPECT_EQ(line.text(), "");
        EXPECT_EQ(list.currentText(), "as it was");
        EXPECT_EQ(number.value(), 0);
        EXPECT_EQ(plain.toPlainText(), "");
        EXPECT_EQ(rich.toPlainText(), "");
    }

    QWidget window;
    QLineEdit line{&window};
    QComboBox list{&window};
    QSpinBox number{&window};
    QPlainTextEdit plain{&window};
    QTextEdit rich{&window};
};

TEST_F(PrimarySelection, ThatNobodyOwnsIsPastedNowhere) {
    ASSERT_EQ(QGuiApplication::clipboard()->supportsSelection(), IsOnX());
    const SelectionPasteGuard guard(nullptr);
    MakeEditable(list);
    list.setEditText("as it was");
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (QWidget* box :
         std::initializer_list<QWidget*>{&line, list.lineEdit(), number.findChild<QLineEdit*>(),
                                         plain.viewport(), rich.viewport()}) {
        MiddleClick(*box);
    }
    ExpectTheBoxesAsTheyWere();
}

TEST_F(PrimarySelection, ThatNobodyOwnsIsPastedNowhereByKey) {
    const SelectionPasteGuard guard(nullptr);
    MakeEditable(list);
    list.setEditText("as it was");
    QGuiApplication::clipboard()->clear();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (QWidget* box : std::initializer_list<QWidget*>{&line, &list, &number, &plain, &rich}) {
        PressKey(*box);
    }
    ExpectTheBoxesAsTheyWere();
}

TEST_F(PrimarySelection, OfOthersIsPasted) {
    const SelectionPasteGuard guard(nullptr);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QGuiApplication::clipboard()->setText("bedding", QClipboard::Selection);
    const QString expected = IsOnX() ? "bedding" : "";
    MiddleClick(*plain.viewport());
    MiddleClick(line);
    EXPECT_EQ(plain.toPlainText(), expected);
    EXPECT_EQ(line.text(), expected);
}

TEST_F(PrimarySelection, OfOthersIsPastedByKey) {
    const SelectionPasteGuard guard(nullptr);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QGuiApplication::clipboard()->setText("bedding", QClipboard::Selection);
    const QString expected = IsOnX() ? "bedding" : "";
    PressKey(plain);
    PressKey(line);
    EXPECT_EQ(plain.toPlainText(), expected);
    EXPECT_EQ(line.text(), expected);
}

} // namespace
} // namespace quandrel
