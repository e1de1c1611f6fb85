// SPDX-License-Identifier: MIT
//
// The main window's line at the bottom as the engine's sign of life.

#pragma once

#include "platform/status_line.h"

#include <QString>

class QLabel;
class QProgressBar;

namespace quandrel {

class MainStatusLine : public StatusLine {
public:
    /// Both controls outlive the line.
    MainStatusLine(QLabel& text, QProgressBar& bar);

    void SetText(std::string_view text) override;

    /// Lays a hint over the text; an empty one brings the text back.
    void ShowHint(const QString& hint);
    void SetProgress(std::int64_t done, std::int64_t maximum) override;
    void SetBusy(bool busy) override;

    /// Looks whether Esc was pressed. Other keys, the mouse and the closing of windows are put off
    /// their work while a step is under way.
    [[nodiscard]] bool CancelRequested() override;

private:
    QLabel& label_;
    QString text_;
    QString hint_;
    QProgressBar& bar_;
};

} // namespace quandrel
