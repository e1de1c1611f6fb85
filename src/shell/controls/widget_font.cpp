// SPDX-License-Identifier: MIT

#include "shell/controls/widget_font.h"

#include <algorithm>

namespace quandrel {

QFont WidgetFont(const PlotFont& font) {
    QFont made;
    if (!font.font.family.empty()) {
        made.setFamily(QString::fromStdString(font.font.family));
    }
    made.setPointSizeF(std::max(font.font.points, 1.0));
    made.setBold(font.font.bold);
    made.setItalic(font.font.italic);
    made.setUnderline(font.font.underline);
    return made;
}

} // namespace quandrel
