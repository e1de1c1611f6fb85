// SPDX-License-Identifier: MIT
//
// The program's questions as windows.
//
// This is the chief header of the room: message boxes and file dialogs that implement the prompts
// port, and the dialogs that stay open beside plots but do not need their windows.
// Input: questions from the engine, and the user's actions.
// Output: answers; rotations and small circles, which the engine checks.

#pragma once

#include "platform/prompts.h"

class QWidget;

namespace quandrel {

/// True within the paint event of any widget. Message boxes are not allowed then: the event loop of
/// a box would paint the half-painted window again.
[[nodiscard]] bool IsPainting();

/// Each box appears above the dialog that it belongs to. A box that is requested within a paint
/// event is a program error: it is written to the log and answered as if it had been closed.
class WidgetPrompts : public Prompts {
public:
    /// @param parent  the parent window of the questions if none of its dialogs is in use; outlives
    ///                the prompts
    explicit WidgetPrompts(QWidget& parent)
        : parent_(parent) {}

    [[nodiscard]] Button Ask(const Message& message) override;
    [[nodiscard]] std::optional<std::string> AskOpenPath(const PathQuestion& question) override;
    [[nodiscard]] std::optional<std::string> AskSavePath(const PathQuestion& question) override;
    [[nodiscard]] std::optional<PlotPathAnswer> AskPlotPath(const PathQuestion& question,
                                                            bool hasDecimals) override;
    [[nodiscard]] std::optional<FormatAnswer> AskFormat(const FormatQuestion& question) override;
    [[nodiscard]] SaveAnswer AskSavePlots(const std::string& title,
                                          const std::string& text) override;

private:
    [[nodiscard]] QWidget* Parent() const;

    QWidget& parent_;
};

} // namespace quandrel
