// SPDX-License-Identifier: MIT
//
// A window that shows a text to read, search and copy.

#pragma once

#include <QDialog>

class QPlainTextEdit;

namespace quandrel {

class frmTextWindow : public QDialog {
public:
    frmTextWindow(const QString& title, const QString& text, QWidget* parent);

    QPlainTextEdit* txtText;
};

} // namespace quandrel
