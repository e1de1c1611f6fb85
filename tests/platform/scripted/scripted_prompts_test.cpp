// SPDX-License-Identifier: MIT

#include "platform/scripted/scripted_prompts.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

using Mode = ScriptedPrompts::Mode;

Message Box(const std::string& text, Buttons buttons = Buttons::YesNoCancel) {
    return {"Quandrel", text, Icon::Question, buttons};
}

TEST(StrictPrompts, GiveTheAnswersOfTheExpectedBoxesInOrder) {
    ScriptedPrompts prompts(Mode::Strict);
    prompts.Expect("save the plot", Button::No);
    prompts.Expect("overwrite", Button::Cancel);
    EXPECT_EQ(prompts.Ask(Box("Do you want to save the plot?")), Button::No);
    EXPECT_EQ(prompts.Ask(Box("It exists; overwrite it?")), Button::Cancel);
    EXPECT_EQ(prompts.Problems(), "");
}

TEST(StrictPrompts, ReportABoxThatNobodyExpected) {
    ScriptedPrompts prompts(Mode::Strict);
    EXPECT_EQ(prompts.Ask(Box("Surprise", Buttons::AbortRetryIgnore)), Button::Ignore);
    EXPECT_NE(prompts.Problems().find("not expected: Surprise"), std::string::npos);
}

TEST(StrictPrompts, ReportABoxThatComesBeforeItsTurn) {
    ScriptedPrompts prompts(Mode::Strict);
    prompts.Expect("first", Button::Yes);
    prompts.Expect("second", Button::No);
    EXPECT_EQ(prompts.Ask(Box("the second")), Button::Yes) << "the default button";
    EXPECT_NE(prompts.Problems().find("not expected: the second"), std::string::npos);
    EXPECT_EQ(prompts.Ask(Box("the first")), Button::Yes);
    EXPECT_EQ(prompts.Ask(Box("the second")), Button::No);
}

TEST(StrictPrompts, ReportABoxThatWasNeverShown) {
    ScriptedPrompts prompts(Mode::Strict);
    prompts.Expect("save the plot", Button::No);
    EXPECT_EQ(prompts.Problems(), "never asked: save the plot\n");
}

TEST(StrictPrompts, ReportAnAnswerThatTheBoxDoesNotOffer) {
    ScriptedPrompts prompts(Mode::Strict);
    prompts.Expect("sure", Button::Retry);
    EXPECT_EQ(prompts.Ask(Box("Are you sure?", Buttons::YesNo)), Button::Retry);
    EXPECT_EQ(prompts.Problems(), "no button Retry: Are you sure?\n");
}

TEST(StrictPrompts, LetAnAllowedBoxComeAtAnyTimeButOnce) {
    ScriptedPrompts prompts(Mode::Strict);
    prompts.ExpectAny("by the way");
    prompts.Expect("first", Button::No);
    EXPECT_EQ(prompts.Ask(Box("by the way, hello")), Button::Yes);
    EXPECT_EQ(prompts.Ask(Box("the first")), Button::No);
    EXPECT_EQ(prompts.Problems(), "");
    EXPECT_EQ(prompts.Ask(Box("by the way, hello again")), Button::Yes);
    EXPECT_NE(prompts.Problems().find("hello again"), std::string::npos);
}

TEST(StrictPrompts, CancelAndReportAFormatDialogThatNobodyAnswers) {
    ScriptedPrompts prompts(Mode::Strict);
    FormatQuestion question;
    question.path = "a.txt";
    EXPECT_FALSE(prompts.AskFormat(question).has_value());
    EXPECT_NE(prompts.Problems().find("a.txt"), std::string::npos);
}

TEST(BatchPrompts, TakeTheQueuedAnswersAndThenTheDefaultButton) {
    ScriptedPrompts prompts(Mode::Batch);
    prompts.QueueAnswer(Button::No);
    prompts.QueueAnswer(Button::Abort);
    EXPECT_EQ(prompts.Ask(Box("one")), Button::No);
    EXPECT_EQ(prompts.Ask(Box("two", Buttons::AbortRetryIgnore)), Button::Abort);
    EXPECT_EQ(prompts.Ask(Box("three")), Button::Yes);
    EXPECT_EQ(prompts.Ask(Box("four", Buttons::OkCancel)), Button::Ok);
    EXPECT_EQ(prompts.Problems(), "");
}

TEST(BatchPrompts, UseUpAnAnswerThatTheBoxDoesNotOffer) {
    ScriptedPrompts prompts(Mode::Batch);
    prompts.QueueAnswer(Button::Retry);
    prompts.QueueAnswer(Button::No);
    EXPECT_EQ(prompts.Ask(Box("one", Buttons::YesNo)), Button::Yes);
    EXPECT_EQ(prompts.Ask(Box("two", Buttons::YesNo)), Button::No);
}

TEST(BatchPrompts, TellEveryBoxWithItsAnswer) {
    ScriptedPrompts prompts(Mode::Batch);
    std::vector<std::string> told;
    prompts.OnBox([&told](const ShownBox& box) {
        told.push_back(box.message.title + "/" + box.message.text + "/" + ButtonName(box.answer));
    });
    prompts.QueueAnswer(Button::Cancel);
    (void)prompts.Ask(Box("one"));
    (void)prompts.Ask(Box("two", Buttons::Ok));
    EXPECT_EQ(told, (std::vector<std::string>{"Quandrel/one/Cancel", "Quandrel/two/OK"}));
    ASSERT_EQ(prompts.Shown().size(), 2U);
    EXPECT_EQ(prompts.Shown()[1].message.text, "two");
    EXPECT_EQ(prompts.Shown()[1].answer, Button::Ok);
}

TEST(BatchPrompts, GivePathsInTheirOrderAndThenNone) {
    ScriptedPrompts prompts(Mode::Batch);
    prompts.QueueOpenPath("a.txt");
    prompts.QueueOpenPath("b.txt");
    prompts.QueueSavePath("c.txt");
    EXPECT_EQ(prompts.AskOpenPath({}), "a.txt");
    EXPECT_EQ(prompts.AskSavePath({}), "c.txt");
    EXPECT_EQ(prompts.AskOpenPath({}), "b.txt");
    EXPECT_EQ(prompts.AskOpenPath({}), std::nullopt);
    EXPECT_EQ(prompts.AskSavePath({}), std::nullopt);
    prompts.QueueSavePath("d.txt");
    prompts.QueueSavePath("e.txt");
    prompts.QueueSavePath("f.txt");
    prompts.CheckWholeDegrees();
    EXPECT_FALSE(prompts.AskPlotPath({}, false)->wholeDegrees) << "has no such box";
    EXPECT_TRUE(prompts.AskPlotPath({}, true)->wholeDegrees);
    EXPECT_FALSE(prompts.AskPlotPath({}, true)->wholeDegrees);
    EXPECT_FALSE(prompts.AskPlotPath({}, true));
}

TEST(BatchPrompts, AcceptTheFormatDialogAsItOpened) {
    ScriptedPrompts prompts(Mode::Batch);
    for (const bool set : {false, true}) {
        FormatQuestion question;
        question.showSecondary = set;
        question.columnHeadings = !set;
        question.frequencyColumn = set;
        const std::optional<FormatAnswer> answer = prompts.AskFormat(question);
        ASSERT_TRUE(answer.has_value());
        EXPECT_EQ(answer->plotSecondary, set);
        EXPECT_EQ(answer->columnHeadings, !set);
        EXPECT_EQ(answer->frequencyColumn, set);
    }
}

TEST(BatchPrompts, LetTheOwnerAnswerTheFormatDialog) {
    ScriptedPrompts prompts(Mode::Batch);
    prompts.OnFormat([](const FormatQuestion& question) -> std::optional<FormatAnswer> {
        if (question.command == "Merge") {
            return std::nullopt;
        }
        FormatAnswer answer;
        answer.frequencyColumn = true;
        return answer;
    });
    FormatQuestion question;
    question.command = "New";
    EXPECT_TRUE(prompts.AskFormat(question).value().frequencyColumn) << "not as it opened";
    question.command = "Merge";
    EXPECT_FALSE(prompts.AskFormat(question).has_value());
}

TEST(ScriptedPrompts, QuestionsAboutUnsavedPlotsComeInTheOrderExpected) {
    ScriptedPrompts prompts(ScriptedPrompts::Mode::Strict);
    prompts.ExpectSavePlots("one", SaveAnswer::SaveAll);
    EXPECT_EQ(prompts.AskSavePlots("plot one", "Save it?"), SaveAnswer::SaveAll);
    EXPECT_EQ(prompts.Problems(), "");
    prompts.ExpectSavePlots("two", SaveAnswer::Cancel);
    EXPECT_NE(prompts.Problems(), "") << "it was never asked";
    EXPECT_EQ(prompts.AskSavePlots("plot three", "Save it?"), SaveAnswer::SkipThis);
    EXPECT_NE(prompts.Problems().find("plot three"), std::string::npos);
}

} // namespace
} // namespace quandrel
