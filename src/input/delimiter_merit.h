// SPDX-License-Identifier: MIT
//
// How well a delimiter takes the first lines of a file apart.

#pragma once

#include "input/format_preview.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quandrel {

/// What a delimiter makes of the data lines of a preview, what counts most first.
struct DelimiterMerit {
    bool headingAgrees = false; ///< the headings have as many cells as the rows
    std::size_t clean = 0;      ///< cells that no other delimiter is left over in
    std::size_t columns = 1;    ///< the usual width of the rows
    const char* name = "";

    [[nodiscard]] bool IsBetterThan(const DelimiterMerit& other) const;
};

/// The delimiter that takes the lines apart best, of those that part most of them; nothing without
/// any. The preview must have a data line.
[[nodiscard]] std::optional<DelimiterMerit> BestDelimiter(const FormatPreview& preview);

/// The indexes of the data lines of a preview.
[[nodiscard]] std::vector<std::size_t> DataLinesOf(const FormatPreview& preview);

/// The line in front of the data lines that names the columns, ticked as such or not; nullptr
/// without one.
[[nodiscard]] const PreviewLine* HeadingLineOf(const FormatPreview& preview);

/// The middle one of widths in their order. There must be one.
[[nodiscard]] std::size_t MiddleOf(std::vector<std::size_t> widths);

} // namespace quandrel
