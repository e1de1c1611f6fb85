// SPDX-License-Identifier: MIT
//
// F1 opens the page of the dialog, panel or plot window that has the focus. In the main window
// itself, the menu handles the key.

#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace quandrel {

/// The page of the innermost window or panel around a widget that has a page; empty if there is
/// none.
[[nodiscard]] QString HelpPageOfWidget(const QWidget* widget);

/// Watches the keys of the whole application during its lifetime.
class HelpKeys : public QObject {
public:
    /// @param application  the application object, which owns it
    explicit HelpKeys(QObject* application);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quandrel
