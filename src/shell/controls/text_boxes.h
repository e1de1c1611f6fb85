// SPDX-License-Identifier: MIT
//
// What holds for every box that text is typed into.

#pragma once

#include <QObject>

class QComboBox;

namespace quandrel {

/// Lets a list take any text as it is typed. Qt's own editable lists complete what is typed from
/// their entries, so that 7 becomes 72.
void MakeEditable(QComboBox& list);

/// Keeps a middle click and Ctrl+Shift+Insert from pasting the primary selection while nobody owns
/// one: Qt's text boxes take the data for granted, and the program would end.
class SelectionPasteGuard : public QObject {
public:
    /// Watches the mouse and the keys of the whole application while it lives.
    explicit SelectionPasteGuard(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quandrel
