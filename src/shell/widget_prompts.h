// SPDX-License-Identifier: MIT
//
// The program's questions as windows.

#pragma once

#include "platform/prompts.h"

class QWidget;

namespace quandrel {

class WidgetPrompts : public Prompts {
public:
    /// @param parent  the window that the questions stand above; outlives the prompts
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
