// SPDX-License-Identifier: MIT

#include "shell/controls/text_boxes.h"

#include <QAbstractScrollArea>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace quandrel {

namespace {

/// Combo boxes and spin boxes contain a QLineEdit. Multi-line text boxes receive the mouse through
/// their viewport.
bool IsTextBox(const QObject* widget) {
    const QObject* parent = widget->parent();
    return qobject_cast<const QLineEdit*>(widget) != nullptr
           || qobject_cast<const QPlainTextEdit*>(parent) != nullptr
           || qobject_cast<const QTextEdit*>(parent) != nullptr;
}

bool IsMiddleClick(const QObject* watched, const QEvent& event) {
    return event.type() == QEvent::MouseButtonRelease
           && static_cast<const QMouseEvent&>(event).button() == Qt::MiddleButton
           && IsTextBox(watched);
}

/// The key that pastes the primary selection if there is one, and the clipboard otherwise. Combo
/// boxes and spin boxes pass it on to their QLineEdit, so any window can receive it.
bool IsKeyOfSelection(const QEvent& event) {
    if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Insert
           && (key.modifiers() & ~Qt::KeypadModifier) == (Qt::ControlModifier | Qt::ShiftModifier)
           && QGuiApplication::clipboard()->supportsSelection();
}

bool IsSelectionOwned() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData(QClipboard::Selection);
    return data != nullptr && !data->formats().isEmpty();
}

} // namespace

void MakeEditable(QComboBox& list) {
    list.setEditable(true);
    list.setCompleter(nullptr);
}

SelectionPasteGuard::SelectionPasteGuard(QObject* parent)
    : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool SelectionPasteGuard::eventFilter(QObject* watched, QEvent* event) {
    const bool isPaste = IsMiddleClick(watched, *event) || IsKeyOfSelection(*event);
    if (!isPaste || IsSelectionOwned()) {
        return QObject::eventFilter(watched, event);
    }
    event->accept();
    return true;
}

} // namespace quandrel
