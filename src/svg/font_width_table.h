// SPDX-License-Identifier: MIT
//
// The advance widths of the characters of Liberation Sans, as the font file has them.

#pragma once

#include <cstdint>
#include <span>

namespace quandrel {

/// Consecutive characters.
struct WidthRun {
    std::uint32_t first = 0;
    std::uint32_t start = 0; ///< place of the first one's width
    std::uint32_t count = 0;
};

/// Widths in units of the font, 2048 to the em.
struct FontWidths {
    int ascent = 0;  ///< of a line above its base
    int descent = 0; ///< of a line below its base, above 0
    std::span<const WidthRun> runs;
    std::span<const std::uint16_t> regular;
    std::span<const std::uint16_t> bold;
};

inline constexpr int kFontUnitsInAnEm = 2048;

/// The widths of Latin, Greek and Cyrillic characters and of signs that are used with them.
[[nodiscard]] const FontWidths& WidthsOfLiberationSans();

} // namespace quandrel
