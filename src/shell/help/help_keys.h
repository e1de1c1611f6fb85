// SPDX-License-Identifier: MIT
//
// F1 opens the page of the dialog, panel or plot window that has the focus. In the main window
// itself the key belongs to the menu.

#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace quandrel {

/// The page of the innermost window or panel about a widget that has one; empty without any.
[[nodiscard]] QString HelpPageOfWidget(const QWidget* widget);

/// Hears the keys of the whole application as long as it lives.
class HelpKeys : public QObject {
public:
    /// @param application  the application object, which owns it
    explicit HelpKeys(QObject* application);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quandrel
