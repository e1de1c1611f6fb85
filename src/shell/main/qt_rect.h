// SPDX-License-Identifier: MIT
//
// Window rectangles in the engine's form and in Qt's form, both in logical pixels.

#pragma once

#include "session/window_places.h"

#include <QRect>

namespace quandrel {

[[nodiscard]] inline WindowRect RectOf(const QRect& rect) {
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

[[nodiscard]] inline QRect QtRect(const WindowRect& rect) {
    return {rect.left, rect.top, rect.width, rect.height};
}

} // namespace quandrel
