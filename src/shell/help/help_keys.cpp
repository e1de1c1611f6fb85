// SPDX-License-Identifier: MIT

#include "shell/help/help_keys.h"

#include "help/help_library.h"
#include "shell/help/frm_help.h"

#include <QEvent>
#include <QKeyEvent>
#include <QWidget>

namespace quandrel {

namespace {

/// The help page for a key event; empty if the event is not a request for help, or belongs to the
/// menu.
QString AskedPage(const QObject* watched, const QEvent& event) {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (widget == nullptr) {
        return {};
    }
    if (event.type() == QEvent::HelpRequest) {
        return HelpPageOfWidget(widget);
    }
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::ShortcutOverride) {
        return {};
    }
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) {
        return {};
    }
    const QString page = HelpPageOfWidget(widget);
    const auto main = HelpPageOf("GeolPlotMain");
    return page.toStdString() == main ? QString() : page;
}

} // namespace

QString HelpPageOfWidget(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const std::string_view page = HelpPageOf(widget->objectName().toStdString());
        if (!page.empty()) {
            return QString::fromUtf8(page.data(), static_cast<qsizetype>(page.size()));
        }
    }
    return {};
}

HelpKeys::HelpKeys(QObject* application)
    : QObject(application) {
    application->installEventFilter(this);
}

bool HelpKeys::eventFilter(QObject* watched, QEvent* event) {
    const QString page = AskedPage(watched, *event);
    if (page.isEmpty()) {
        return QObject::eventFilter(watched, event);
    }
    event->accept();
    // The override keeps the key from the menu's shortcut; the key then arrives as a press.
    if (event->type() != QEvent::ShortcutOverride) {
        ShowHelp(page);
    }
    return true;
}

} // namespace quandrel
