// SPDX-License-Identifier: MIT
//
// Tips that show texts of files and paths as they stand.

#pragma once

#include <QString>
#include <QTextDocument>

namespace quandrel {

/// A tip that is never taken for a text with formatting.
[[nodiscard]] inline QString PlainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace quandrel
