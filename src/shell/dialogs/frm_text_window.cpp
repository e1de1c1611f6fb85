// SPDX-License-Identifier: MIT

#include "shell/dialogs/frm_text_window.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quandrel {

frmTextWindow::frmTextWindow(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent)
    , txtText(new QPlainTextEdit) {
    setObjectName("frmTextWindow");
    setWindowTitle(title);
    txtText->setObjectName("txtText");
    txtText->setAccessibleName(title);
    txtText->setReadOnly(true);
    txtText->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    txtText->setPlainText(text);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* copy = buttons->addButton("&Copy", QDialogButtonBox::ActionRole);
    copy->setObjectName("cmdCopy");
    copy->setToolTip("Copies the whole text to the clipboard");
    connect(copy, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(txtText->toPlainText()); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtText, 1);
    layout->addWidget(buttons);
    resize(640, 420);
}

} // namespace quandrel
