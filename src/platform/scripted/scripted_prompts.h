// SPDX-License-Identifier: MIT
//
// Prompts that are answered from a script: for tests, and for the program without a screen.
//
// This is the chief header of the stand-ins for the platform: surfaces, forms and printers that
// record what is done to them, a clipboard in memory, a status line that keeps its text.
// Input: the answers that a test or a script has queued.
// Output: what was asked, drawn, shown and printed, as values that can be compared.

#pragma once

#include "platform/prompts.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace quandrel {

/// A box that was shown, and the answer to it.
struct ShownBox {
    Message message;
    Button answer = Button::Ok;
};

class ScriptedPrompts : public Prompts {
public:
    enum class Mode {
        Strict, ///< every box must have been expected, and every expected box must be shown
        Batch,  ///< a box takes the next queued answer, or its default button
    };

    explicit ScriptedPrompts(Mode mode)
        : mode_(mode) {}

    /// Strict: the next box must hold this text and gets this answer.
    void Expect(const std::string& fragment, Button answer);

    /// Strict: one box that holds this text may come at any time and gets its default button.
    void ExpectAny(const std::string& fragment);

    /// Batch: the next box gets this answer. A box without that button gets its default one.
    void QueueAnswer(Button answer) { answers_.push_back(answer); }

    /// The answer to the next request for a path; requests without a queued answer are cancelled.
    void QueueOpenPath(const std::string& path) { openPaths_.push_back(path); }

    void QueueSavePath(const std::string& path) { savePaths_.push_back(path); }

    /// The next plot with decimals for which a path is asked is saved in whole degrees.
    void CheckWholeDegrees() { wholeDegrees_ = true; }

    /// The next question about one of several unsaved plots must hold this text in its title, and
    /// gets this answer. An unexpected question skips the plot; in strict mode it is a problem.
    void ExpectSavePlots(const std::string& fragment, SaveAnswer answer);

    /// Called for each box shown.
    void OnBox(std::function<void(const ShownBox&)> onBox) { onBox_ = std::move(onBox); }

    /// Answers the format dialog. Without this, batch mode accepts the dialog as it opens; strict
    /// mode cancels it and counts it as unexpected.
    void OnFormat(std::function<std::optional<FormatAnswer>(const FormatQuestion&)> onFormat) {
        onFormat_ = std::move(onFormat);
    }

    /// All boxes shown so far.
    [[nodiscard]] const std::vector<ShownBox>& Shown() const { return shown_; }

    /// Strict: the unexpected boxes and the expected ones never shown, one line each; empty when
    /// there are none.
    [[nodiscard]] std::string Problems() const;

    [[nodiscard]] Button Ask(const Message& message) override;
    [[nodiscard]] std::optional<std::string> AskOpenPath(const PathQuestion& question) override;
    [[nodiscard]] std::optional<std::string> AskSavePath(const PathQuestion& question) override;
    [[nodiscard]] std::optional<PlotPathAnswer> AskPlotPath(const PathQuestion& question,
                                                            bool hasDecimals) override;
    [[nodiscard]] std::optional<FormatAnswer> AskFormat(const FormatQuestion& question) override;
    [[nodiscard]] SaveAnswer AskSavePlots(const std::string& title,
                                          const std::string& text) override;

private:
    struct Expectation {
        std::string fragment;
        Button answer = Button::Ok;
    };

    struct SaveExpectation {
        std::string fragment;
        SaveAnswer answer = SaveAnswer::SkipThis;
    };

    [[nodiscard]] Button StrictAnswer(const Message& message);
    [[nodiscard]] Button BatchAnswer(const Message& message);

    Mode mode_;
    std::deque<Expectation> expected_;
    std::deque<SaveExpectation> expectedSaves_;
    std::vector<std::string> allowed_;
    std::deque<Button> answers_;
    std::deque<std::string> openPaths_;
    std::deque<std::string> savePaths_;
    bool wholeDegrees_ = false;
    std::vector<ShownBox> shown_;
    std::string problems_;
    std::function<void(const ShownBox&)> onBox_;
    std::function<std::optional<FormatAnswer>(const FormatQuestion&)> onFormat_;
};

} // namespace quandrel
