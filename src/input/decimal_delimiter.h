// SPDX-License-Identifier: MIT
//
// Decimal delimiters that are not those of the region.

#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quandrel {

/// The text with the regional decimal delimiter in the place of the other one: "2.5" becomes "2,5"
/// where a comma is the rule. In a text with both, the last one is taken for the decimal delimiter,
/// and the two change places when it is the wrong one: "1,234.5" becomes "1.234,5". A text in which
/// the wrong one stands more than once, alone, parts groups of digits and stays.
[[nodiscard]] std::string FixDecimalDelimiter(std::string_view value, bool decimalIsComma);

/// Tells whether decimal numbers among texts are written with the other decimal delimiter.
///
/// @param texts  texts that are empty, or no numbers with a comma or a point, do not count
/// @return 0, or when more than half of those that count have the other delimiter, 1 where a comma
///         is the rule and 2 where a point is
[[nodiscard]] int DetectDecimalMismatch(std::span<const std::string> texts, bool decimalIsComma);

} // namespace quandrel
