// SPDX-License-Identifier: MIT
//
// How well a delimiter splits the first lines of a file.

#pragma once

#include "input/format_preview.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quandrel {

/// What a delimiter makes of the data lines of a preview, the most important criterion first.
struct DelimiterMerit {
    bool headingAgrees = false; ///< the headings have as many cells as the rows
    std::size_t clean = 0;      ///< cells without another delimiter at either end
    std::size_t columns = 1;    ///< the usual width of the rows
    const char* name = "";

    [[nodiscard]] bool IsBetterThan(const DelimiterMerit& other) const;
};

/// The delimiter that splits the lines best, among those that split most of them; nothing when
/// there is none. The preview must have a data line.
[[nodiscard]] std::optional<DelimiterMerit> BestDelimiter(const FormatPreview& preview);

/// The indexes of the data lines of a preview.
[[nodiscard]] std::vector<std::size_t> DataLinesOf(const FormatPreview& preview);

/// The line before the data lines that names the columns, whether or not it is ticked as such;
/// nullptr when there is none.
[[nodiscard]] const PreviewLine* HeadingLineOf(const FormatPreview& preview);

/// The median width. There must be one.
[[nodiscard]] std::size_t MiddleOf(std::vector<std::size_t> widths);

} // namespace quandrel
