// SPDX-License-Identifier: MIT

#include "platform/scripted/scripted_prompts.h"

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

bool Has(Buttons set, Button button) {
    const std::vector<Button> buttons = ButtonsOf(set);
    return std::find(buttons.begin(), buttons.end(), button) != buttons.end();
}

std::optional<std::string> TakeFirst(std::deque<std::string>& queue) {
    if (queue.empty()) {
        return std::nullopt;
    }
    std::string first = std::move(queue.front());
    queue.pop_front();
    return first;
}

} // namespace

void ScriptedPrompts::Expect(const std::string& fragment, Button answer) {
    expected_.push_back({fragment, answer});
}

void ScriptedPrompts::ExpectSavePlots(const std::string& fragment, SaveAnswer answer) {
    expectedSaves_.push_back({fragment, answer});
}

void ScriptedPrompts::ExpectAny(const std::string& fragment) {
    allowed_.push_back(fragment);
}

std::string ScriptedPrompts::Problems() const {
    std::string problems = problems_;
    for (const Expectation& expectation : expected_) {
        problems += "never asked: " + expectation.fragment + "\n";
    }
    for (const SaveExpectation& expectation : expectedSaves_) {
        problems += "never asked whether to save: " + expectation.fragment + "\n";
    }
    return problems;
}

Button ScriptedPrompts::Ask(const Message& message) {
    const Button answer = mode_ == Mode::Strict ? StrictAnswer(message) : BatchAnswer(message);
    shown_.push_back({message, answer});
    if (onBox_) {
        onBox_(shown_.back());
    }
    return answer;
}

Button ScriptedPrompts::StrictAnswer(const Message& message) {
    const auto holds = [&message](const std::string& fragment) {
        return message.text.find(fragment) != std::string::npos;
    };
    const auto allowed = std::find_if(allowed_.begin(), allowed_.end(), holds);
    if (allowed != allowed_.end()) {
        allowed_.erase(allowed);
        return DefaultButton(message.buttons);
    }
    if (expected_.empty() || !holds(expected_.front().fragment)) {
        problems_ += "not expected: " + message.text + "\n";
        return DefaultButton(message.buttons);
    }
    const Button answer = expected_.front().answer;
    expected_.pop_front();
    if (!Has(message.buttons, answer)) {
        problems_ += "no button " + ButtonName(answer) + ": " + message.text + "\n";
    }
    return answer;
}

Button ScriptedPrompts::BatchAnswer(const Message& message) {
    Button answer = DefaultButton(message.buttons);
    if (!answers_.empty()) {
        answer = Has(message.buttons, answers_.front()) ? answers_.front() : answer;
        answers_.pop_front();
    }
    return answer;
}

std::optional<std::string> ScriptedPrompts::AskOpenPath(const PathQuestion&) {
    return TakeFirst(openPaths_);
}

std::optional<std::string> ScriptedPrompts::AskSavePath(const PathQuestion&) {
    return TakeFirst(savePaths_);
}

std::optional<PlotPathAnswer> ScriptedPrompts::AskPlotPath(const PathQuestion& question,
                                                           bool hasDecimals) {
    const std::optional<std::string> path = AskSavePath(question);
    if (!path) {
        return std::nullopt;
    }
    return PlotPathAnswer{*path, hasDecimals && std::exchange(wholeDegrees_, false)};
}

std::optional<FormatAnswer> ScriptedPrompts::AskFormat(const FormatQuestion& question) {
    if (onFormat_) {
        return onFormat_(question);
    }
    if (mode_ == Mode::Strict) {
        problems_ += "not expected: the format dialog for '" + question.path + "'\n";
        return std::nullopt;
    }
    FormatAnswer answer;
    answer.plotSecondary = question.showSecondary;
    answer.columnHeadings = question.columnHeadings;
    answer.frequencyColumn = question.frequencyColumn;
    return answer;
}

SaveAnswer ScriptedPrompts::AskSavePlots(const std::string& title, const std::string&) {
    if (expectedSaves_.empty()
        || title.find(expectedSaves_.front().fragment) == std::string::npos) {
        if (mode_ == Mode::Strict) {
            problems_ += "not expected: whether to save " + title + "\n";
        }
        return SaveAnswer::SkipThis;
    }
    const SaveAnswer answer = expectedSaves_.front().answer;
    expectedSaves_.pop_front();
    return answer;
}

} // namespace quandrel
