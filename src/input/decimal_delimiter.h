// SPDX-License-Identifier: MIT
//
// Decimal delimiters other than the region's.

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quandrel {

/// The text with the regional decimal delimiter in place of the other one: "2.5" becomes "2,5"
/// where a comma is the rule. In a text with both, the last one is taken as the decimal delimiter;
/// when it is the wrong one, the two are swapped: "1,234.5" becomes "1.234,5". A text that holds
/// only the wrong one, more than once, has digit groups and stays as it is.
[[nodiscard]] std::string FixDecimalDelimiter(std::string_view value, bool decimalIsComma);

/// A number with digit groups: in the region's notation, or also in the other one. Nothing for a
/// text without delimiters, or that is not such a number, and for 0.
[[nodiscard]] std::optional<double> NumberWithGroups(std::string_view text, bool decimalIsComma,
                                                     bool orOtherNotation);

/// Detects decimal numbers that are written with the other decimal delimiter.
///
/// @param texts  empty texts, and texts that are not numbers with a comma or a point, do not count
/// @return 0; or, when more than half of the texts that count have the other delimiter, 1 where a
///         comma is the rule and 2 where a point is
[[nodiscard]] int DetectDecimalMismatch(std::span<const std::string> texts, bool decimalIsComma);

} // namespace quandrel
