// SPDX-License-Identifier: MIT
//
// Texts that are less prominent than others but still readable, on light and dark desktops.

#pragma once

#include <QColor>

class QPalette;

namespace quandrel {

/// The colour of less important texts: between text and paper, with a contrast of at least 4.5 : 1
/// on boxes and windows (W3C, Web Content Accessibility Guidelines 2.1, 1.4.3), if the palette's
/// own text has that contrast.
[[nodiscard]] QColor MutedText(const QPalette& palette);

/// Gives that colour to the hints in empty boxes of all windows. Call it at start and after each
/// theme change. Qt's own hints are half transparent, which is too faint on white.
void UseReadablePlaceholders();

} // namespace quandrel
