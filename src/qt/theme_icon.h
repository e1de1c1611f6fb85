// SPDX-License-Identifier: MIT
//
// Icons from line drawings whose colour follows the desktop's theme, sharp at every size and
// density.

#pragma once

#include <QByteArray>
#include <QIcon>

namespace quandrel {

/// The colour that stands for ink in the drawings; it is replaced by the theme's text colour.
inline constexpr const char* kIconInk = "#2b3440";

/// An icon from the text of an SVG drawing.
[[nodiscard]] QIcon ThemeIcon(const QByteArray& drawing);

} // namespace quandrel
