// SPDX-License-Identifier: MIT
//
// Places of windows as the engine and as Qt have them, logical pixels in both.

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
