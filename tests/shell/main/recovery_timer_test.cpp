// SPDX-License-Identifier: MIT

#include "drawing/plot_state.h"
#include "session/closing.h"
#include "shell/main/recovery_timer.h"
#include "shell/main/start_work.h"
#include "support/main_window_test.h"

#include <QMessageBox>
#include <QScopeGuard>
#include <QTabBar>
#include <QWindow>

#include <filesystem>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

using std::chrono::hours;
using std::chrono::milliseconds;

constexpr RecoveryPace kNever{hours(1), hours(1)};
constexpr RecoveryPace kOften{milliseconds(1), hours(1)};
constexpr RecoveryPace kAfterAnyWork{hours(1), milliseconds(0)};

class RecoveryTimerTest : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        Click(); // a press without a release, from any other test, ends here
    }

    [[nodiscard]] fs::path Root() const { return folder / "state"; }

    [[nodiscard]] std::size_t Copies() const {
        std::size_t copies = 0;
        if (fs::exists(Root())) {
            for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Root())) {
                copies += entry.path().extension() == ".qpx" ? 1U : 0U;
            }
        }
        return copies;
    }

    [[nodiscard]] bool CopiesBecome(std::size_t count) const {
        return QTest::qWaitFor([&] { return Copies() == count; });
    }

    /// Some rounds of the event loop, including the work of timers without delay.
    static void LetEventsPass() {
        for (int round = 0; round < 3; ++round) {
            bool passed = false;
            QTimer::singleShot(1, [&passed] { passed = true; });
            ASSERT_TRUE(QTest::qWaitFor([&passed] { return passed; }));
        }
    }

    /// A click somewhere that changes nothing.
    void Click() { QTest::mouseClick(main->panInfoLine, Qt::LeftButton); }

    /// Leaves copies as a session that has crashed: a folder without a lock.
    void LeaveBehind(int slot) {
        fs::create_directories(Root() / "1-1");
        const Result<std::string> bytes = RecoveryCopyBytes(slot);
        ASSERT_TRUE(bytes);
        std::ofstream(Root() / "1-1" / ("plot_" + std::to_string(slot) + ".qpx"), std::ios::binary)
            << *bytes;
        CloseWithLinks(slot);
        main->UpdatePlotState();
    }
};

TEST_F(RecoveryTimerTest, WritesAndRemovesFromTimeToTime) {
    const int slot = OpenChanged("a.txt");
    OpenFile("b.txt");
    const RecoveryTimer recovery(*main, Root(), kOften);
    EXPECT_TRUE(CopiesBecome(1));
    RecordOf(slot).Modified = 0;
    EXPECT_TRUE(CopiesBecome(0));
    OpenChanged("c.txt");
    OpenChanged("d.txt");
    EXPECT_TRUE(CopiesBecome(2));
}

TEST_F(RecoveryTimerTest, AnEndInGoodOrderLeavesNothing) {
    OpenChanged("a.txt");
    {
        const RecoveryTimer recovery(*main, Root(), kOften);
        EXPECT_TRUE(CopiesBecome(1));
    }
    EXPECT_TRUE(fs::is_empty(Root()));
}

TEST_F(RecoveryTimerTest, WritesAfterLongWorkAtOnce) {
    OpenChanged("a.txt");
    const RecoveryTimer recovery(*main, Root(), kAfterAnyWork);
    Click();
    EXPECT_TRUE(CopiesBecome(1));
}

TEST_F(RecoveryTimerTest, WorkIsLongFromItsEventToTheEndOfAllEvents) {
    struct Case {
        const char* what;
        int atOnce; ///< milliseconds of work in the event
        int putOff; ///< and in a call that it puts off
    };

    const Case cases[] = {
        {"long at once", 50, 0},
        {"long in a call put off", 0, 50},
        {"long together", 25, 25},
    };
    const auto work = [](int duration) {
        QElapsedTimer clock;
        for (clock.start(); clock.elapsed() < duration;) {
        }
    };
    const int slot = OpenChanged("a.txt");
    for (const Case& test : cases) {
        RecordOf(slot).DescriptionText = test.what;
        const RecoveryTimer recovery(*main, Root(), {hours(1), milliseconds(40)});
        QToolButton button;
        QObject::connect(&button, &QToolButton::clicked, &button, [&] {
            work(test.atOnce);
            QMetaObject::invokeMethod(
                &button, [&] { work(test.putOff); }, Qt::QueuedConnection);
        });
        QTest::mouseClick(&button, Qt::LeftButton);
        EXPECT_TRUE(CopiesBecome(1)) << test.what;
    }
}

TEST_F(RecoveryTimerTest, ShortWorkWaitsForTheNextRound) {
    OpenChanged("a.txt");
    const RecoveryTimer recovery(*main, Root(), kNever);
    Click();
    LetEventsPass();
    EXPECT_EQ(Copies(), 0U);
}

TEST_F(RecoveryTimerTest, TheCopyOfASavedPlotGoesWithTheNextClick) {
    const int slot = OpenChanged("a.txt");
    const RecoveryTimer recovery(*main, Root(), kAfterAnyWork);
    Click();
    ASSERT_TRUE(CopiesBecome(1));
    RecordOf(slot).Modified = 0;
    Click();
    EXPECT_TRUE(CopiesBecome(0));
}

TEST_F(RecoveryTimerTest, NothingIsWrittenInTheMiddleOfAStepOrAQuestion) {
    OpenChanged("a.txt");
    const RecoveryTimer recovery(*main, Root(), kAfterAnyWork);
    gBusy = true;
    Click();
    LetEventsPass();
    EXPECT_EQ(Copies(), 0U);
    gBusy = false;
    QMessageBox question(main.get());
    question.open();
    Click();
    LetEventsPass();
    EXPECT_EQ(Copies(), 0U);
    question.close();
    Click();
    EXPECT_TRUE(CopiesBecome(1));
}

TEST_F(RecoveryTimerTest, AFailureIsToldOnceForEachPlot) {
    OpenChanged("a.txt");
    WriteFile("state", "a file where the folder would be");
    const RecoveryTimer recovery(*main, Root(), kAfterAnyWork);
    Click();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return Info().startsWith("a.txt: 1 cannot be kept for recovery: "); }));
    main->SetStatusText("else");
    Click();
    LetEventsPass();
    EXPECT_EQ(Info(), "else");
    OpenChanged("b.txt");
    Click();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return Info().startsWith("b.txt: 2 cannot be kept for recovery: "); }));
}

TEST_F(RecoveryTimerTest, AFailureIsToldUntilNothingIsUnsaved) {
    const int slot = OpenChanged("a.txt");
    WriteFile("state", "a file where the folder would be");
    {
        const RecoveryTimer recovery(*main, Root(), kAfterAnyWork);
        Click();
        ASSERT_TRUE(QTest::qWaitFor([&] { return Info().startsWith("a.txt: 1 cannot be kept"); }));
        main->UpdatePlotState();
        EXPECT_TRUE(Info().startsWith("a.txt: 1 cannot be kept"));
        RecordOf(slot).Modified = 0;
        main->UpdatePlotState();
        EXPECT_EQ(Info(), "");
        OpenChanged("b.txt");
        Click();
        ASSERT_TRUE(QTest::qWaitFor([&] { return Info().startsWith("b.txt: 2 cannot be kept"); }));
    }
    main->UpdatePlotState();
    EXPECT_EQ(Info(), "") << "nobody keeps copies any more";
}

TEST_F(RecoveryTimerTest, AfterACrashPlotsAreOfferedAndOpenUnsaved) {
    const int slot = OpenChanged("a.txt");
    DescribePlot(slot, "north limb");
    const std::string title = RecordOf(slot).PlotTitle;
    LeaveBehind(slot);
    ASSERT_EQ(CountOpenPlots(), 0);
    RecoveryTimer recovery(*main, Root(), kNever);
    Expect("Quandrel was not closed properly. 1 plot was not saved.\nOpen it again?", Button::Yes);
    recovery.Offer();
    ASSERT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(FormOfSlot(gActivePlot).windowTitle().toStdString().rfind(title, 0), 0U);
    EXPECT_EQ(FormOfSlot(gActivePlot).tabLayers->tabText(1), "Data layer");
    EXPECT_EQ(ActiveRecord().DescriptionText, "north limb");
    EXPECT_EQ(ActiveRecord().NumValidData, 3);
    EXPECT_TRUE(HoldsUnsavedData(gActivePlot));
    EXPECT_TRUE(Action("mnuFileSave_0").isEnabled());
    recovery.Offer();
    EXPECT_EQ(CountOpenPlots(), 1);
}

TEST_F(RecoveryTimerTest, TheOfferIsAnsweredBeforeFilesAreOpened) {
    LeaveBehind(OpenChanged("a.txt"));
    RecoveryTimer recovery(*main, Root(), kNever);
    Expect("Quandrel was not closed properly.", Button::Yes);
    Expect("The indicated file cannot be opened");
    prompts.OnBox([&](const ShownBox& box) {
        EXPECT_TRUE(main->windowHandle()->isExposed()) << "over the window";
        const std::size_t shown = prompts.Shown().size();
        LetEventsPass(); // as a box does that waits for its answer
        EXPECT_EQ(prompts.Shown().size(), shown) << box.message.text;
    });
    main->hide();
    LetEventsPass();
    RunOnceExposed(*main, [&] { StartWork(*main, recovery, {(folder / "gone.txt").c_str()}); });
    LetEventsPass();
    EXPECT_TRUE(prompts.Shown().empty()) << "nobody sees the window yet";
    main->show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return prompts.Shown().size() == 2; }));
}

TEST_F(RecoveryTimerTest, ANoCanRemoveThem) {
    LeaveBehind(OpenChanged("a.txt"));
    RecoveryTimer recovery(*main, Root(), kNever);
    Expect("Quandrel was not closed properly.", Button::No);
    Expect("Remove the unsaved plot for good?", Button::Yes);
    recovery.Offer();
    EXPECT_EQ(CountOpenPlots(), 0);
    EXPECT_EQ(Copies(), 0U);
}

TEST(RecoveryFolder, StandsAmongTheStatesOfTheUser) {
    const QByteArray formerStates = qgetenv("XDG_STATE_HOME");
    const QByteArray formerHome = qgetenv("HOME");
    const auto restore = qScopeGuard([&] {
        formerStates.isNull() ? qunsetenv("XDG_STATE_HOME")
                              : qputenv("XDG_STATE_HOME", formerStates);
        qputenv("HOME", formerHome);
    });
    qputenv("HOME", "/home/geologist");
    qputenv("XDG_STATE_HOME", "/states");
    EXPECT_EQ(RecoveryFolder(), "/states/quandrel/recovery");
    for (const char* invalid : {"", "relative/path"}) {
        qputenv("XDG_STATE_HOME", invalid);
        EXPECT_EQ(RecoveryFolder(), "/home/geologist/.local/state/quandrel/recovery");
    }
}

} // namespace
} // namespace quandrel
