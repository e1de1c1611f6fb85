// SPDX-License-Identifier: MIT
//
// The status line of the main window, which also shows that the engine is working. The last message
// and the hint have separate labels; both belong to the plot in front.

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
    /// The controls outlive the status line.
    MainStatusLine(QLabel& text, QLabel& hint, QProgressBar& bar);

    /// Shows a text about gActivePlot.
    void SetText(std::string_view text) override;

    void SetTextWhile(std::string_view text, std::function<bool()> holds) override;

    /// The text that is shown.
    [[nodiscard]] const QString& Text() const { return text_; }

    /// Shows a hint until the next one; an empty hint restores the usual hint of the plot.
    void ShowHint(const QString& hint);

    /// Shows the last message about the plot in front, and its hint.
    void FollowPlot(int slot, const QString& standingHint);
    void SetProgress(std::int64_t done, std::int64_t maximum) override;
    void SetBusy(bool busy) override;

    /// Returns whether Esc was pressed. Other keys, mouse events and requests to close windows have
    /// no effect while a step is running.
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
