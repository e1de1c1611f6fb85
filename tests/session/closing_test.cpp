// SPDX-License-Identifier: MIT

#include "input/file_loading.h"
#include "persistence/open_plot.h"
#include "session/closing.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

constexpr const char* kQuestion =
    "The data in this plot is new or has been changed and has not been saved.\nSave it?";

class ClosingPlots : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 1000);
    }

    /// Opens a file of two rows; returns the slot.
    int OpenFile(const std::string& name) {
        EXPECT_EQ(OpenPlotFile(kNewCommand, WriteFile(name, "30\t120\n45\t270\n")), kNewCommand);
        return gActivePlot;
    }

    int OpenChanged(const std::string& name) {
        const int slot = OpenFile(name);
        RecordOf(slot).Modified = kTrue;
        return slot;
    }

    std::string SaveTo(const std::string& name) {
        const std::string path = (folder / name).string();
        prompts.QueueSavePath(path);
        return path;
    }
};

TEST_F(ClosingPlots, OnlyChangedOrNewRowsAreUnsavedData) {
    struct Case {
        const char* what;
        std::int16_t modified;
        std::int16_t files;
        std::int32_t rows;
        const char* axes;
        bool unsaved;
    };

    const Case cases[] = {
        {"an empty plot", 0, 0, 0, "", false},
        {"an empty plot that was changed", kTrue, 0, 0, "", true},
        {"rows of a file", 0, 1, 5, "", false},
        {"changed rows of a file", kTrue, 1, 5, "", true},
        {"rows without a file", 0, 0, 5, "", true},
        {"rows worked out from another plot", 0, 0, 5, "P & T", false},
        {"changed rows worked out from another plot", kTrue, 0, 5, "P & T", true},
    };
    const int slot = NewPlot();
    for (const Case& test : cases) {
        PlotRecord& record = RecordOf(slot);
        record.Modified = test.modified;
        record.NumFiles = test.files;
        record.NumValidData = test.rows;
        record.AxesTitle = test.axes;
        EXPECT_EQ(HoldsUnsavedData(slot), test.unsaved) << test.what;
    }
}

TEST_F(ClosingPlots, APlotWithoutUnsavedDataIsNotAskedAbout) {
    const int slot = OpenFile("a.txt");
    EXPECT_TRUE(ClosePlotWindow(slot));
    EXPECT_FALSE(IsOpenSlot(slot));
    EXPECT_TRUE(prompts.Shown().empty());
}

TEST_F(ClosingPlots, TheQuestionNamesTheWindow) {
    const int slot = OpenChanged("a.txt");
    FormOf(slot).SetCaption("a.txt: 1   [Planes]     ");
    Expect("a.txt", Button::Cancel);
    EXPECT_FALSE(ClosePlotWindow(slot));
    ASSERT_EQ(prompts.Shown().size(), 1U);
    EXPECT_EQ(prompts.Shown()[0].message.text, std::string("a.txt: 1   [Planes]:\n") + kQuestion);
    EXPECT_EQ(prompts.Shown()[0].message.title, "Quandrel, ver 9.5.1");
    EXPECT_EQ(prompts.Shown()[0].message.buttons, Buttons::YesNoCancel);
    EXPECT_TRUE(IsOpenSlot(slot));
}

TEST_F(ClosingPlots, EachQuestionBringsThePlotThatItAsksAboutToTheFront) {
    const int first = OpenChanged("a.txt");
    const int quiet = OpenFile("b.txt");
    const int last = OpenChanged("c.txt");
    const auto raised = [](int slot) {
        return static_cast<const RecordingForm&>(FormOf(slot)).TimesRaised();
    };
    Expect("c.txt", Button::No);
    Expect("a.txt", Button::Cancel);
    std::vector<std::pair<int, int>> seen;
    prompts.OnBox([&](const ShownBox&) { seen.emplace_back(raised(first), raised(last)); });
    EXPECT_FALSE(CloseAllPlots(Closing::AllWindows));
    EXPECT_EQ(seen, (std::vector<std::pair<int, int>>{{0, 1}, {1, 1}}));
    EXPECT_EQ(raised(quiet), 0);
    prompts.OnBox({});
    prompts.ExpectSavePlots("a.txt", SaveAnswer::SkipThis);
    prompts.ExpectSavePlots("c.txt", SaveAnswer::Cancel);
    gActivePlot = first;
    EXPECT_FALSE(CloseAllPlots(Closing::Application));
    EXPECT_EQ(raised(first), 2);
    EXPECT_EQ(raised(last), 2);
}

TEST_F(ClosingPlots, NoClosesWithoutSaving) {
    const int slot = OpenChanged("a.txt");
    Expect(kQuestion, Button::No);
    EXPECT_TRUE(ClosePlotWindow(slot));
    EXPECT_FALSE(IsOpenSlot(slot));
}

TEST_F(ClosingPlots, YesSavesAndCloses) {
    const int slot = OpenChanged("a.txt");
    const std::string path = SaveTo("saved.txt");
    Expect(kQuestion, Button::Yes);
    EXPECT_TRUE(ClosePlotWindow(slot));
    EXPECT_FALSE(IsOpenSlot(slot));
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(ClosingPlots, APlotThatWasNotSavedAfterAllStaysOpen) {
    const int slot = OpenChanged("a.txt");
    Expect(kQuestion, Button::Yes); // then the file dialog is cancelled
    EXPECT_FALSE(ClosePlotWindow(slot));
    EXPECT_TRUE(IsOpenSlot(slot));
    EXPECT_NE(RecordOf(slot).Modified, 0);
}

TEST_F(ClosingPlots, ClosingAPlotThatIsNotInFocusLeavesTheFocus) {
    const int first = OpenChanged("a.txt");
    const int second = OpenFile("b.txt");
    const std::string path = SaveTo("saved.txt");
    Expect(kQuestion, Button::Yes);
    EXPECT_TRUE(ClosePlotWindow(first));
    EXPECT_EQ(gActivePlot, second);
    EXPECT_FALSE(IsOpenSlot(first));
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(ClosingPlots, AllWindowsAreAskedAboutOneByOne) {
    OpenChanged("a.txt");
    OpenFile("b.txt");
    OpenChanged("c.txt");
    Expect("c.txt: 3", Button::No); // the plot in focus comes first
    Expect("a.txt: 1", Button::No);
    EXPECT_TRUE(CloseAllPlots(Closing::AllWindows));
    EXPECT_EQ(CountOpenPlots(), 0);
    EXPECT_EQ(gActivePlot, 0);
}

TEST_F(ClosingPlots, CancellingKeepsAllWindows) {
    OpenChanged("a.txt");
    OpenFile("b.txt");
    const int third = OpenChanged("c.txt");
    Expect("c.txt: 3", Button::No);
    Expect("a.txt: 1", Button::Cancel);
    EXPECT_FALSE(CloseAllPlots(Closing::AllWindows));
    EXPECT_EQ(CountOpenPlots(), 3);
    EXPECT_EQ(gActivePlot, third);
}

TEST_F(ClosingPlots, LeavingWithOnePlotAsksTheUsualQuestion) {
    OpenChanged("a.txt");
    Expect(kQuestion, Button::No);
    EXPECT_TRUE(CloseAllPlots(Closing::Application));
}

TEST_F(ClosingPlots, LeavingWithSeveralPlotsAsksAboutThemTogether) {
    OpenChanged("a.txt");
    OpenChanged("b.txt");
    prompts.ExpectSavePlots("Quandrel   b.txt: 2", SaveAnswer::SkipThis);
    prompts.ExpectSavePlots("Quandrel   a.txt: 1", SaveAnswer::SkipThis);
    EXPECT_TRUE(CloseAllPlots(Closing::Application));
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(ClosingPlots, SkipAllAnswersForTheOthers) {
    OpenChanged("a.txt");
    OpenChanged("b.txt");
    OpenChanged("c.txt");
    prompts.ExpectSavePlots("c.txt", SaveAnswer::SkipAll);
    EXPECT_TRUE(CloseAllPlots(Closing::Application));
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(ClosingPlots, SaveAllAnswersForTheOthers) {
    OpenChanged("a.txt");
    OpenFile("b.txt");
    OpenChanged("c.txt");
    prompts.ExpectSavePlots("c.txt", SaveAnswer::SaveAll);
    const std::string third = SaveTo("third.txt");
    const std::string first = SaveTo("first.txt");
    EXPECT_TRUE(CloseAllPlots(Closing::Application));
    EXPECT_TRUE(std::filesystem::exists(third));
    EXPECT_TRUE(std::filesystem::exists(first));
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(ClosingPlots, SaveThisSavesThatOneAndAsksAboutTheNext) {
    OpenChanged("a.txt");
    OpenChanged("b.txt");
    prompts.ExpectSavePlots("b.txt", SaveAnswer::SaveThis);
    prompts.ExpectSavePlots("a.txt", SaveAnswer::SkipThis);
    const std::string path = SaveTo("second.txt");
    EXPECT_TRUE(CloseAllPlots(Closing::Application));
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(ClosingPlots, CancellingTheLeavingForgetsTheAnswerForAll) {
    OpenChanged("a.txt");
    OpenChanged("b.txt");
    prompts.ExpectSavePlots("b.txt", SaveAnswer::Cancel);
    EXPECT_FALSE(CloseAllPlots(Closing::Application));
    EXPECT_EQ(CountOpenPlots(), 2);
    prompts.ExpectSavePlots("b.txt", SaveAnswer::SkipThis);
    prompts.ExpectSavePlots("a.txt", SaveAnswer::Cancel);
    EXPECT_FALSE(CloseAllPlots(Closing::Application));
    EXPECT_EQ(CountOpenPlots(), 2);
}

TEST_F(ClosingPlots, ASavedNewPlotHasAFileFromThenOn) {
    const int slot = NewPlot();
    RecordOf(slot).NumValidData = 1;
    RecordOf(slot).NumData = 0;
    RecordOf(slot).PlotTitle = "Plot 1: Untitled";
    SaveTo("made.txt");
    Expect(kQuestion, Button::Yes);
    EXPECT_TRUE(QueryClose(slot));
    EXPECT_FALSE(HoldsUnsavedData(slot));
    EXPECT_EQ(RecordOf(slot).NumFiles, 1);
}

TEST_F(ClosingPlots, SaveAllSavesWhatHasChangedAndLeavesTheFocus) {
    OpenChanged("a.txt");
    OpenFile("b.txt");
    const int third = OpenChanged("c.txt");
    const std::string first = SaveTo("x.txt");
    const std::string second = SaveTo("y.txt");
    EXPECT_TRUE(SaveAllPlots());
    EXPECT_TRUE(std::filesystem::exists(first));
    EXPECT_TRUE(std::filesystem::exists(second));
    EXPECT_EQ(gActivePlot, third);
    for (int slot = 1; slot <= 3; ++slot) {
        EXPECT_FALSE(HoldsUnsavedData(slot)) << slot;
    }
}

TEST_F(ClosingPlots, AFailedSaveDoesNotKeepTheOthersFromBeingSaved) {
    OpenChanged("a.txt");
    OpenChanged("b.txt");
    prompts.QueueSavePath((folder / "missing" / "x.txt").string());
    const std::string good = SaveTo("y.txt");
    Expect("We will continue to try and save any remaining plots");
    EXPECT_FALSE(SaveAllPlots());
    EXPECT_TRUE(std::filesystem::exists(good));
    EXPECT_TRUE(HoldsUnsavedData(2)) << "the plot in focus was the first to be saved";
    EXPECT_FALSE(HoldsUnsavedData(1));
}

TEST_F(ClosingPlots, ASecondClosingWaitsForTheAnswerOfTheFirst) {
    const int slot = OpenChanged("a.txt");
    int nested = 0;
    prompts.OnBox([&](const ShownBox&) {
        // The box runs the event loop: the same close button again, and the main window's.
        ++nested;
        EXPECT_FALSE(ClosePlotWindow(slot));
        EXPECT_FALSE(CloseAllPlots(Closing::Application));
    });
    Expect(kQuestion, Button::No);
    EXPECT_TRUE(ClosePlotWindow(slot));
    EXPECT_EQ(nested, 1);
    EXPECT_FALSE(IsOpenSlot(slot));
}

} // namespace
} // namespace quandrel
