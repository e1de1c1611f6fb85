// SPDX-License-Identifier: MIT
//
// The program's questions as windows.
//
// This is the chief header of the room: message boxes and file dialogs behind the port of prompts,
// and the dialogs that stay open beside plots but need none of their windows.
// Enters: questions of the engine, and what the user does. Leaves: answers; rotations and small
// circles to the engine, which decides.

#pragma once

#include "platform/prompts.h"

class QWidget;

namespace quandrel {

/// True within the paint event of any widget. Nothing may be asked or told then: the event loop of
/// a box would paint the half-painted window again.
[[nodiscard]] bool IsPainting();

/// Each box stands over the dialog that it comes from. One that is raised within a paint event is
/// a fault of the program's: it is written to the log and answered as if it had been closed.
class WidgetPrompts : public Prompts {
public:
    /// @param parent  the window that the questions stand above where no dialog of its is in use;
    ///                outlives the prompts
    explicit WidgetPrompts(QWidget& parent)
        : parent_(parent) {}

    [[nodiscard]] Button Ask(const Message& message) override;
    [[nodiscard]] std::optional<std::string> AskOpenPath(const PathQuestion& question) override;
    [[nodiscard]] std::optional<std::string> AskSavePath(const PathQuestion& question) override;
    [[nodiscard]] std::optional<FormatAnswer> AskFormat(const FormatQuestion& question) override;
    [[nodiscard]] SaveAnswer AskSavePlots(const std::string& title,
                                          const std::string& text) override;

private:
    [[nodiscard]] QWidget* Parent() const;

    QWidget& parent_;
};

} // namespace quandrel
