// SPDX-License-Identifier: MIT

#include "shell/text_boxes.h"

#include <QAbstractScrollArea>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace quandrel {

namespace {

/// The boxes of lists and numbers hold a QLineEdit; texts of several lines get the mouse through
/// their viewport.
bool IsTextBox(const QObject* widget) {
    const QObject* parent = widget->parent();
    return qobject_cast<const QLineEdit*>(widget) != nullptr
           || qobject_cast<const QPlainTextEdit*>(parent) != nullptr
           || qobject_cast<const QTextEdit*>(parent) != nullptr;
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
    const bool isRelease = event->type() == QEvent::MouseButtonRelease
                           && static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton;
    if (!isRelease || !IsTextBox(watched) || IsSelectionOwned()) {
        return QObject::eventFilter(watched, event);
    }
    event->accept();
    return true;
}

} // namespace quandrel
