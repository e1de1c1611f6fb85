// SPDX-License-Identifier: MIT
//
// Rules for every text box.

#pragma once

#include <QObject>

class QComboBox;

namespace quandrel {

/// Lets the user type any text into a list. Qt's own editable lists complete the typed text from
/// their entries, so that 7 becomes 72.
void MakeEditable(QComboBox& list);

/// Prevents a middle click and Ctrl+Shift+Insert from pasting the primary selection while it has no
/// owner: Qt's text boxes do not check for missing data, and the program would crash.
class SelectionPasteGuard : public QObject {
public:
    /// Watches the mouse and the keys of the whole application during its lifetime.
    explicit SelectionPasteGuard(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quandrel
