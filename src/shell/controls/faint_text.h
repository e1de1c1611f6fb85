// SPDX-License-Identifier: MIT
//
// Texts that stand back behind others, and can be read all the same, on light and dark desktops.

#pragma once

#include <QColor>

class QPalette;

namespace quandrel {

/// The colour of texts that matter less: between text and paper, with a contrast of 4.5 : 1 at
/// least on boxes and windows (W3C, Web Content Accessibility Guidelines 2.1, 1.4.3), as far as the
/// palette's text itself has it.
[[nodiscard]] QColor MutedText(const QPalette& palette);

/// Gives the hints in empty boxes of all windows that colour. To be called at start, and when the
/// theme changes. Qt's own are half transparent, which is too faint on white.
void UseReadablePlaceholders();

} // namespace quandrel
