// SPDX-License-Identifier: MIT
//
// Pictures in the colours of dark themes: white becomes dark, black light, and colours keep their
// hue.

#pragma once

#include <QColor>
#include <QImage>

namespace quandrel {

/// Whether the program's palette is that of a dark theme.
[[nodiscard]] bool IsDarkTheme();

/// A colour on a dark ground. All three parts are shifted by the same amount, so that the luma
/// (ITU-R BT.709) is mirrored and the hue is kept, and then brought between kDarkGround and
/// kLightInk.
[[nodiscard]] QColor InDarkColours(const QColor& colour);

/// An image on a dark ground. Opacities are unchanged. O(pixels).
[[nodiscard]] QImage InDarkColours(const QImage& image);

/// What white and black become, each of the three parts.
inline constexpr int kDarkGround = 28;
inline constexpr int kLightInk = 232;

} // namespace quandrel
