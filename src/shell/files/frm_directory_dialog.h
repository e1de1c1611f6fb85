// SPDX-License-Identifier: MIT
//
// The choice of the initial folder of file dialogs.

#pragma once

#include <QDialog>

class QFileSystemModel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace quandrel {

class frmDirectoryDialog : public QDialog {
public:
    /// @param folder  the current folder; empty if file dialogs open in the folder of the last file
    frmDirectoryDialog(const QString& folder, QWidget* parent);

    /// The chosen folder; empty for that of the last file.
    [[nodiscard]] QString Folder() const;

private:
    void Choose(const QString& folder);
    void CheckFolder();

    QFileSystemModel* model_;
    QTreeView* treDirectory_;
    QLineEdit* txtDirectory_;
    QPushButton* cmdOK_;
};

} // namespace quandrel
