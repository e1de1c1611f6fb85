// SPDX-License-Identifier: MIT
//
// The formats of the files with headings that were loaded last. They are kept in the settings store
// of the program.

#pragma once

#include "input/format_choice.h"

#include <string>
#include <vector>

namespace quandrel {

/// A format that was used for a file with these headings.
struct RememberedFormat {
    std::vector<std::string> headings;
    FormatChoice choice;
};

/// The most formats that are kept.
inline constexpr std::size_t kMostRemembered = 40;

/// The formats of the store, the latest first. Entries that cannot be read are left out.
[[nodiscard]] std::vector<RememberedFormat> RememberedFormats();

/// Puts a format at the head of the list, in place of a former one for the same headings. Without
/// headings nothing is kept.
void RememberFormat(const RememberedFormat& format);

/// A format as a line of text.
[[nodiscard]] std::string TextOfRemembered(const RememberedFormat& format);

/// Inverse of TextOfRemembered; nothing for a text that is not one, or with a value beyond its
/// range.
[[nodiscard]] std::optional<RememberedFormat> RememberedIn(const std::string& text);

} // namespace quandrel
