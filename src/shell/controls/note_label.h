// SPDX-License-Identifier: MIT
//
// A line of a window that matters less than the controls about it.

#pragma once

#include <QLabel>

namespace quandrel {

/// A plain text in the muted colour of the theme in force. A disabled label would be too faint to
/// be read.
class NoteLabel : public QLabel {
public:
    explicit NoteLabel(const QString& text);

protected:
    void changeEvent(QEvent* event) override;

private:
    void UseMutedText();
};

} // namespace quandrel
