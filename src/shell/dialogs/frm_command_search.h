// SPDX-License-Identifier: MIT
//
// The search of all commands: a line to type in, and the commands whose menus and names hold all
// of its words. Return uses the chosen one.

#pragma once

#include <QDialog>

#include <vector>

class QAction;
class QLineEdit;
class QListWidget;
class QMenu;

namespace quandrel {

class frmCommandSearch : public QDialog {
public:
    /// @param menus  whose commands are offered, with those of their submenus
    frmCommandSearch(QWidget* parent, const QList<QMenu*>& menus);

    QLineEdit* txtWords;
    QListWidget* lstCommands;

    /// The command that was chosen; null after Esc.
    [[nodiscard]] QAction* Chosen() const { return chosen_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Entry {
        QString path; ///< "Plot > Style > Journal"
        QAction* action;
    };

    void AddMenu(const QMenu& menu, const QString& path);
    void ShowFound();
    void Choose();

    std::vector<Entry> entries_;
    QAction* chosen_ = nullptr;
};

} // namespace quandrel
