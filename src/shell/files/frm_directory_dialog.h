// SPDX-License-Identifier: MIT
//
// The choice of the folder that file dialogs start in.

#pragma once

#include <QDialog>

class QFileSystemModel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace quandrel {

class frmDirectoryDialog : public QDialog {
public:
    /// @param folder  the folder in force; empty when file dialogs start where the last file was
    frmDirectoryDialog(const QString& folder, QWidget* parent);

    /// The folder chosen; empty for that of the last file.
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
