// SPDX-License-Identifier: MIT
//
// The command for the data format.

#pragma once

#include "batch/script.h"
#include "core/data_format.h"
#include "input/format_choice.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// The settings of a script's format outside the format globals: the check boxes of the format
/// dialog.
struct StatedFormat {
    bool isSuggested = false; ///< each text is read in the format that is suggested for it
    bool showSecondary = false;
    bool frequencyColumn = false;
    std::string table; ///< name of the sheet or layer that is read; empty for the first one
    std::optional<std::int16_t> dataKind; ///< a DataKindCode; if absent, it follows from the format
};

/// The first word of a `format` that changes the current format instead of starting from the
/// defaults.
inline constexpr const char* kAddToFormat = "add";

/// The only word of a `format` that leaves the format to what is suggested for each text.
inline constexpr const char* kSuggestedFormat = "auto";

/// Sets the format globals from arguments such as `primary=plane`, `conventions=6`,
/// `delimiter=tab`, `columns=1,0,2,3,4,5,6,7,8,9`. Missing arguments take their defaults, or keep
/// their current values after the word `add`. If an argument is invalid, nothing changes. `auto`
/// alone sets the defaults; each text is then read in the format that is suggested for it.
///
/// @param defaults  of everything that the keys can set; the kind of plot, separators and symbols
///                  are kept
/// @return empty, or an error message
[[nodiscard]] std::string ApplyFormatArguments(const std::vector<Argument>& arguments,
                                               const FormatSettings& defaults,
                                               StatedFormat& stated);

/// A format of the table of delimiters as arguments; the inverse of ApplyFormatArguments for what
/// they name.
[[nodiscard]] std::string FormatArgumentsOf(const FormatChoice& choice);

/// Sets the kind in which the data of a file are plotted: the file's own kind, otherwise the stated
/// one, otherwise the one that follows from the format: planes, or lines for lines and directions.
///
/// @param kindFromFile  DataKindCode, or 0 if the file does not state it. Planes count as not
///                      stated in a file of directions
/// @return empty, or why the stated kind is not possible
[[nodiscard]] std::string TakeDataKind(const StatedFormat& stated, int kindFromFile);

} // namespace quandrel
