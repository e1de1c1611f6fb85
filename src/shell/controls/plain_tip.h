// SPDX-License-Identifier: MIT
//
// Tips that show the texts of files and paths unchanged.

#pragma once

#include <QString>
#include <QTextDocument>

namespace quandrel {

/// A tip that is never interpreted as rich text.
[[nodiscard]] inline QString PlainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace quandrel
