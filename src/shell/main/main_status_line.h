// SPDX-License-Identifier: MIT
//
// The main window's line at the bottom as the engine's sign of life. What was told last and what
// can be done have places of their own; both belong to the plot in front.

#pragma once

#include "platform/status_line.h"
#include "shell/controls/ending_text.h"

#include <QString>

#include <functional>
#include <string_view>

class QLabel;
class QProgressBar;

namespace quandrel {

class MainStatusLine : public StatusLine, public EndingTexts {
public:
    /// The controls outlive the line.
    MainStatusLine(QLabel& text, QLabel& hint, QProgressBar& bar);

    /// Tells something of gActivePlot.
    void SetText(std::string_view text) override;

    void SetTextWhile(std::string_view text, std::function<bool()> holds) override;

    /// The text that is shown.
    [[nodiscard]] const QString& Text() const { return text_; }

    /// Shows a hint until the next one; an empty one brings back what can be done with the plot.
    void ShowHint(const QString& hint);

    /// Shows what was told last of the plot in front, and what can be done there.
    void FollowPlot(int slot, const QString& standingHint);
    void SetProgress(std::int64_t done, std::int64_t maximum) override;
    void SetBusy(bool busy) override;

    /// Looks whether Esc was pressed. Other keys, the mouse and the closing of windows are put off
    /// their work while a step is under way.
    [[nodiscard]] bool CancelRequested() override;

private:
    void Show(const QString& text);
    void DropWhatHoldsNoLonger(int slot);
    void ShowHints();

    QLabel& label_;
    QLabel& hintLabel_;
    int slot_ = 0; ///< the plot in front
    QString text_;
    QString hint_;
    QString standingHint_;
    QProgressBar& bar_;
};

} // namespace quandrel
