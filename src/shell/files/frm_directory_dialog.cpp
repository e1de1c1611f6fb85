// SPDX-License-Identifier: MIT

#include "shell/files/frm_directory_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace quandrel {

frmDirectoryDialog::frmDirectoryDialog(const QString& folder, QWidget* parent)
    : QDialog(parent)
    , model_(new QFileSystemModel(this))
    , treDirectory_(new QTreeView)
    , txtDirectory_(new QLineEdit(folder)) {
    setObjectName("frmDirectoryDialog");
    setWindowTitle("Default files directory");
    model_->setRootPath(QDir::rootPath());
    model_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    treDirectory_->setObjectName("treDirectory");
    treDirectory_->setAccessibleName("Folders");
    treDirectory_->setModel(model_);
    treDirectory_->setHeaderHidden(true);
    for (int column = 1; column < model_->columnCount(); ++column) {
        treDirectory_->hideColumn(column);
    }
    txtDirectory_->setObjectName("txtDirectory");
    txtDirectory_->setPlaceholderText("Empty: the folder of the last file");
    auto* label = new QLabel("&Start file dialogs in");
    label->setBuddy(txtDirectory_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    cmdOK_ = buttons->button(QDialogButtonBox::Ok);
    cmdOK_->setObjectName("cmdOK");
    auto* last = buttons->addButton("Use &last folder", QDialogButtonBox::ActionRole);
    last->setObjectName("cmdUseLast");
    last->setToolTip("File dialogs start in the folder of the last file opened");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(txtDirectory_);
    layout->addWidget(treDirectory_, 1);
    layout->addWidget(buttons);
    resize(480, 460);
    Choose(folder.isEmpty() ? QDir::currentPath() : folder);
    connect(treDirectory_, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        txtDirectory_->setText(QDir::toNativeSeparators(model_->filePath(index)));
    });
    connect(txtDirectory_, &QLineEdit::textChanged, this, [this] { CheckFolder(); });
    connect(last, &QPushButton::clicked, txtDirectory_, &QLineEdit::clear);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    CheckFolder();
}

void frmDirectoryDialog::Choose(const QString& folder) {
    const QModelIndex index = model_->index(folder);
    treDirectory_->setCurrentIndex(index);
    treDirectory_->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

void frmDirectoryDialog::CheckFolder() {
    const QString folder = Folder();
    const bool isFolder = folder.isEmpty() || QDir(folder).exists();
    cmdOK_->setEnabled(isFolder);
    cmdOK_->setToolTip(isFolder ? QString() : "There is no such folder");
    if (isFolder && !folder.isEmpty()) {
        Choose(folder);
    }
}

QString frmDirectoryDialog::Folder() const {
    return txtDirectory_->text().trimmed();
}

} // namespace quandrel
