// SPDX-License-Identifier: MIT
//
// How an invalid text is shown.

#pragma once

#include "qt/dark_image.h"

#include <QColor>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPalette>

namespace quandrel {

/// The colour of invalid texts, on the base colour of the program's palette.
[[nodiscard]] inline QColor BadTextColour() {
    return IsDarkTheme() ? QColor(0xff, 0x7a, 0x70) : QColor(0xb8, 0x00, 0x00);
}

/// Shows the text of a box in that colour, or in the usual one.
inline void ShowAsBad(QLineEdit& box, bool isBad) {
    QPalette colours;
    if (isBad) {
        colours.setColor(QPalette::Text, BadTextColour());
    }
    box.setPalette(colours);
}

} // namespace quandrel
