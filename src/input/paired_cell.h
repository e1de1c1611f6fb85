// SPDX-License-Identifier: MIT
//
// Cells that hold a whole orientation: "045/60NE", "N30E 45SE", "120-35".

#pragma once

#include "input/format_model.h"
#include "input/line_tokens.h"

#include <optional>
#include <string_view>
#include <utility>

namespace quandrel {

/// The two values of a cell, in its order, without blanks around them. They are separated by "/",
/// ":", "@" or an arrow; else by "-" after the first character, else by blanks. Nothing when either
/// value would be empty.
[[nodiscard]] std::optional<std::pair<std::string_view, std::string_view>>
SplitPair(std::string_view cell);

/// An orientation in its two tokens.
struct TokenPair {
    Token dip = kEmptyToken; ///< or plunge
    Token azimuth = kEmptyToken;
};

/// The tokens of an orientation from its cell. In quadrant notation the azimuth is the value that
/// is one; else the convention of planes, or the order of lines, says which one is the first. Both
/// tokens are empty for a cell that is not a pair.
[[nodiscard]] TokenPair TokensOfPair(const Token& cell, const LineFormat& format, bool isPlane);

} // namespace quandrel
