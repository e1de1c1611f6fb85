// SPDX-License-Identifier: MIT
//
// A line of a window that is less important than the controls around it.

#pragma once

#include <QLabel>

namespace quandrel {

/// A plain text in the muted colour of the current theme. A disabled label would be too faint to
/// read.
class NoteLabel : public QLabel {
public:
    explicit NoteLabel(const QString& text);

protected:
    void changeEvent(QEvent* event) override;

private:
    void UseMutedText();
};

} // namespace quandrel
