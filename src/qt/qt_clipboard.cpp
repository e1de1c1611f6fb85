// SPDX-License-Identifier: MIT

#include "qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QString>

namespace quandrel {

std::optional<std::string> QtClipboard::Text() const {
    // An empty clipboard may have no data object at all.
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr || !data->hasText()) {
        return std::nullopt;
    }
    return data->text().toStdString();
}

void QtClipboard::SetText(const std::string& utf8) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(utf8));
}

} // namespace quandrel
