// SPDX-License-Identifier: MIT

#include "core/messages.h"
#include "shell/dialogs/widget_prompts.h"
#include "shell/files/frm_save_plots_dialog.h"
#include "support/shell_test.h"

#include <QCheckBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace quandrel {
namespace {

class WidgetQuestions : public EngineTest {
protected:
    /// Does this with the next window that opens.
    static void WhenShown(const std::function<void(QWidget&)>& act) {
        QTimer::singleShot(0, [act] {
            ASSERT_NE(QApplication::activeModalWidget(), nullptr);
            act(*QApplication::activeModalWidget());
        });
    }

    QWidget parent;
    WidgetPrompts widgetPrompts{parent};
};

TEST_F(WidgetQuestions, ABoxShowsItsTextAsItStandsAndGivesTheButtonPressed) {
    for (const Buttons set : {Buttons::Ok, Buttons::OkCancel, Buttons::YesNo, Buttons::YesNoCancel,
                              Buttons::AbortRetryIgnore}) {
        for (const Button button : ButtonsOf(set)) {
            WhenShown([button](QWidget& box) {
                EXPECT_EQ(box.windowTitle(), "Quandrel, ver 9.5.1");
                EXPECT_EQ(static_cast<QMessageBox&>(box).text(), "<b>a & b</b>\nsecond line");
                EXPECT_EQ(static_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
                const QString name = "cmd" + QString::fromStdString(ButtonName(button));
                ControlOf<QPushButton>(box, name.toStdString()).click();
            });
            EXPECT_EQ(
                widgetPrompts.Ask({gCaption, "<b>a & b</b>\nsecond line", Icon::Question, set}),
                button);
        }
    }
}

TEST_F(WidgetQuestions, EnterGoesOnAndEscapeDoesNot) {
    const std::pair<Buttons, std::pair<Button, Button>> answers[] = {
        {Buttons::Ok, {Button::Ok, Button::Ok}},
        {Buttons::OkCancel, {Button::Ok, Button::Cancel}},
        {Buttons::YesNo, {Button::Yes, Button::No}},
        {Buttons::YesNoCancel, {Button::Yes, Button::Cancel}},
        {Buttons::AbortRetryIgnore, {Button::Ignore, Button::Abort}},
    };
    for (const auto& [set, expected] : answers) {
        const Message message{gCaption, "?", Icon::Question, set};
        WhenShown([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(widgetPrompts.Ask(message), expected.first);
        WhenShown([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(widgetPrompts.Ask(message), expected.second);
    }
}

TEST_F(WidgetQuestions, EnterTakesTheSafeAnswerWhereWorkIsAtStake) {
    gPlatform.prompts = &widgetPrompts;
    WhenShown([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_FALSE(AskYes("Remove the unsaved plot for good?", AtStake::Work));
    WhenShown([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_TRUE(AskYes("Open it again?"));
    WhenShown([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_FALSE(AskToGoOn("This will remove the overlayed data", AtStake::Work));
    WhenShown([](QWidget& box) {
        EXPECT_TRUE(ControlOf<QPushButton>(box, "cmdCancel").isDefault());
        auto& go = ControlOf<QPushButton>(box, "cmdOK");
        go.setFocus();
        QTest::keyClick(&go, Qt::Key_Return);
    });
    EXPECT_TRUE(AskToGoOn("This will remove the overlayed data", AtStake::Work));
    gPlatform.prompts = &prompts;
}

/// Asks while it is painted.
class AskingWidget : public QWidget {
public:
    explicit AskingWidget(std::function<void()> ask)
        : ask_(std::move(ask)) {}

protected:
    void paintEvent(QPaintEvent*) override { ask_(); }

private:
    std::function<void()> ask_;
};

TEST_F(WidgetQuestions, NoneIsShownWithinAPaintEvent) {
    EXPECT_FALSE(IsPainting());
    int painted = 0;
    AskingWidget widget([&] {
        ++painted;
        EXPECT_TRUE(IsPainting());
        const Message message{gCaption, "within a paint event", Icon::None, Buttons::YesNo};
        EXPECT_EQ(widgetPrompts.Ask(message), Button::No);
        EXPECT_EQ(widgetPrompts.AskOpenPath({}), std::nullopt);
        EXPECT_EQ(widgetPrompts.AskSavePath({}), std::nullopt);
        EXPECT_FALSE(widgetPrompts.AskFormat({}));
        EXPECT_EQ(widgetPrompts.AskSavePlots("title", "text"), SaveAnswer::Cancel);
    });
    widget.grab();
    EXPECT_GT(painted, 0);
    EXPECT_FALSE(IsPainting());
}

TEST_F(WidgetQuestions, StandOverTheDialogInUse) {
    parent.show();
    QDialog dialog(&parent);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    WhenShown([&dialog](QWidget& box) {
        EXPECT_EQ(box.parentWidget(), &dialog);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(widgetPrompts.Ask({gCaption, "text", Icon::None, Buttons::Ok}), Button::Ok);
    QWidget other; // the help window, which has no parent
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    WhenShown([this](QWidget& box) {
        EXPECT_EQ(box.parentWidget(), &parent);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(widgetPrompts.Ask({gCaption, "text", Icon::None, Buttons::Ok}), Button::Ok);
}

TEST_F(WidgetQuestions, IconsAreThoseOfTheMessage) {
    const std::pair<Icon, QMessageBox::Icon> icons[] = {
        {Icon::None, QMessageBox::NoIcon},       {Icon::Information, QMessageBox::Information},
        {Icon::Question, QMessageBox::Question}, {Icon::Exclamation, QMessageBox::Warning},
        {Icon::Stop, QMessageBox::Critical},
    };
    for (const auto& [icon, expected] : icons) {
        WhenShown([expected = expected](QWidget& box) {
            EXPECT_EQ(static_cast<QMessageBox&>(box).icon(), expected);
            QTest::keyClick(&box, Qt::Key_Return);
        });
        EXPECT_EQ(widgetPrompts.Ask({gCaption, "text", icon, Buttons::Ok}), Button::Ok);
    }
}

TEST_F(WidgetQuestions, TheBusyPointerGivesWayToAQuestion) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    WhenShown([](QWidget& box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(widgetPrompts.Ask({gCaption, "text", Icon::None, Buttons::Ok}), Button::Ok);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    QApplication::restoreOverrideCursor();
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    QApplication::restoreOverrideCursor();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WidgetQuestions, AFileIsChosenByItsName) {
    const std::string path = WriteFile("data.txt", "1\t2\n");
    WhenShown([](QWidget& window) {
        auto& dialog = static_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.objectName(), "dlgGetFile");
        EXPECT_EQ(dialog.windowTitle(), "Merge File");
        EXPECT_EQ(dialog.nameFilters().size(), 4);
        EXPECT_EQ(dialog.selectedNameFilter(), "Text files (*.txt *.TXT)");
        ControlOf<QLineEdit>(dialog, "fileNameEdit").setText("data.txt");
        QTest::keyClick(&ControlOf<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    PathQuestion question;
    question.title = "Merge File";
    question.folder = folder.string();
    question.filter = gFileFilter;
    question.filterIndex = 2;
    EXPECT_EQ(widgetPrompts.AskOpenPath(question), path);
}

TEST_F(WidgetQuestions, AFileThatIsNotThereIsNotAccepted) {
    WhenShown([](QWidget& dialog) {
        ControlOf<QLineEdit>(dialog, "fileNameEdit").setText("missing.txt");
        WhenShown([&dialog](QWidget& complaint) {
            EXPECT_NE(&complaint, &dialog);
            QTest::keyClick(&complaint, Qt::Key_Return);
        });
        QTest::keyClick(&ControlOf<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    PathQuestion question;
    question.folder = folder.string();
    question.filter = gFileFilter;
    EXPECT_EQ(widgetPrompts.AskOpenPath(question), std::nullopt);
}

TEST_F(WidgetQuestions, ASavedFileGetsTheEndingOfItsKind) {
    const std::pair<int, const char*> endings[] = {{1, "x"}, {2, "x.txt"}, {3, "x.qpx"}};
    for (const auto& [filter, expected] : endings) {
        WhenShown([](QWidget& dialog) {
            ControlOf<QLineEdit>(dialog, "fileNameEdit").setText("x");
            QTest::keyClick(&ControlOf<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
        });
        PathQuestion question;
        question.title = "Save As";
        question.folder = folder.string();
        question.filter = gDataFileFilter;
        question.filterIndex = filter;
        EXPECT_EQ(widgetPrompts.AskSavePath(question), (folder / expected).string());
    }
}

TEST_F(WidgetQuestions, APlotWithDecimalsMayBeSavedInWholeDegrees) {
    PathQuestion question;
    question.title = "Save As";
    question.folder = folder.string();
    question.filter = gDataFileFilter;
    question.filterIndex = 2;
    for (const bool whole : {false, true}) {
        WhenShown([whole](QWidget& dialog) {
            auto& box = ControlOf<QCheckBox>(dialog, "chkWholeDegrees");
            EXPECT_TRUE(box.isVisible());
            EXPECT_FALSE(box.isChecked()) << "off at first";
            if (whole) {
                box.click();
            }
            ControlOf<QLineEdit>(dialog, "fileNameEdit").setText("x");
            QTest::keyClick(&ControlOf<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
        });
        const std::optional<PlotPathAnswer> answer = widgetPrompts.AskPlotPath(question, true);
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->path, (folder / "x.txt").string());
        EXPECT_EQ(answer->wholeDegrees, whole);
    }
    WhenShown([](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QCheckBox*>("chkWholeDegrees"), nullptr)
            << "without decimals there is nothing to round";
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(widgetPrompts.AskPlotPath(question, false));
}

TEST_F(WidgetQuestions, APointInANameIsNoEnding) {
    const std::pair<const char*, const char*> names[] = {
        {"site1.2", "site1.2.qpx"}, {"a.txt", "a.txt"}, {"b.QPX", "b.QPX"}};
    for (const auto& [name, expected] : names) {
        WhenShown([name = name](QWidget& dialog) {
            ControlOf<QLineEdit>(dialog, "fileNameEdit").setText(name);
            QTest::keyClick(&ControlOf<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
        });
        PathQuestion question;
        question.folder = folder.string();
        question.filter = gDataFileFilter;
        question.filterIndex = 3;
        EXPECT_EQ(widgetPrompts.AskSavePath(question), (folder / expected).string());
    }
}

TEST_F(WidgetQuestions, AFileThatExistsIsAskedAbout) {
    WriteFile("x.txt", "1\t2\n");
    WhenShown([](QWidget& dialog) {
        WhenShown([](QWidget& question) { QTest::keyClick(&question, Qt::Key_Escape); });
        QTest::keyClick(&ControlOf<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    PathQuestion question;
    question.folder = folder.string();
    question.fileName = "x.txt";
    question.filter = gDataFileFilter;
    question.filterIndex = 2;
    EXPECT_EQ(widgetPrompts.AskSavePath(question), std::nullopt);
}

TEST_F(WidgetQuestions, ThePlotToBeSavedIsAskedAboutWithFiveAnswers) {
    const SaveAnswer answers[] = {SaveAnswer::SaveThis, SaveAnswer::SkipThis, SaveAnswer::Cancel,
                                  SaveAnswer::SaveAll, SaveAnswer::SkipAll};
    for (int number = 1; number <= 5; ++number) {
        WhenShown([number](QWidget& dialog) {
            EXPECT_EQ(dialog.objectName(), "frmSavePlotsDialog");
            EXPECT_EQ(dialog.windowTitle(), "Quandrel   a.txt: 1");
            EXPECT_EQ(ControlOf<QLabel>(dialog, "lblQuestion").text(), "Save it?");
            ControlOf<QPushButton>(dialog, "cmdAnswer_" + std::to_string(number)).click();
        });
        EXPECT_EQ(widgetPrompts.AskSavePlots("Quandrel   a.txt: 1", "Save it?"),
                  answers[number - 1]);
    }
    WhenShown([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(widgetPrompts.AskSavePlots("t", "Save it?"), SaveAnswer::Cancel);
    WhenShown([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    EXPECT_EQ(widgetPrompts.AskSavePlots("t", "Save it?"), SaveAnswer::SaveThis);
}

} // namespace
} // namespace quandrel
