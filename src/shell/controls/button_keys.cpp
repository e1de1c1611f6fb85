// SPDX-License-Identifier: MIT

#include "shell/controls/button_keys.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

namespace quandrel {

namespace {

bool IsReturn(const QKeyEvent& event) {
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return isPlain && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
}

/// In check boxes, and in patches that act like radio buttons, Return belongs to the dialog.
bool IsPressedByReturn(const QAbstractButton& button) {
    return qobject_cast<const QPushButton*>(&button) != nullptr
           || qobject_cast<const QToolButton*>(&button) != nullptr || !button.isCheckable();
}

} // namespace

ButtonKeys::ButtonKeys(QObject* parent)
    : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool ButtonKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !IsReturn(static_cast<const QKeyEvent&>(*event))) {
        return QObject::eventFilter(watched, event);
    }
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button == nullptr || !IsPressedByReturn(*button)) {
        return QObject::eventFilter(watched, event);
    }
    // A held key must not press a button of the next window.
    if (!static_cast<const QKeyEvent*>(event)->isAutoRepeat()) {
        button->click();
    }
    return true;
}

} // namespace quandrel
