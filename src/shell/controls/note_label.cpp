// SPDX-License-Identifier: MIT

#include "shell/controls/note_label.h"

#include "shell/controls/faint_text.h"

#include <QEvent>

namespace quandrel {

NoteLabel::NoteLabel(const QString& text)
    : QLabel(text) {
    setTextFormat(Qt::PlainText);
    UseMutedText();
}

void NoteLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        UseMutedText();
    }
}

void NoteLabel::UseMutedText() {
    QPalette colours = palette();
    const QColor muted = MutedText(colours);
    // Setting a palette is a palette change, too.
    if (colours.color(QPalette::WindowText) != muted) {
        colours.setColor(QPalette::WindowText, muted);
        setPalette(colours);
    }
}

} // namespace quandrel
