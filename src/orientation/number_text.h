// SPDX-License-Identifier: MIT
//
// Numbers to text and back: the one place for number formats and number reading. The locale plays
// no part. Written numbers have a decimal point; read numbers may have a point or a comma.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// The view without blanks, tabs and line ends at either end.
[[nodiscard]] std::string_view WithoutBlanks(std::string_view text);

/// Formats a number.
///
/// @param value   any; a value that is not finite gives an empty text
/// @param format  "0" is a digit that is always written, "#" a digit that is omitted as a leading
///                or trailing zero, "." the decimal point: "000" of 7 is "007", "0.##" of 2 is "2"
///                and of 2.5 "2.5", "#" of 0 is empty. "Fixed" means "0.00". "General Number" is
///                the number with up to 15 significant digits: "56.6", "1E+20".
///
/// Rounding starts from the shortest decimal text that reads back as the value; half-way cases go
/// away from zero: 1.005 in "0.00" is "1.01". The result is never "-0" and never ends in a point.
[[nodiscard]] std::string FormatNumber(double value, std::string_view format);

/// A text as a number.
///
/// @param text  blanks around it are ignored; then an optional sign, digits with at most one
///              decimal delimiter ('.' or ','), and an optional exponent
/// @return the nearest double, or nothing when the text as a whole is not such a number: empty
///         texts, "12abc", "1,234.5", inf, nan, hexadecimal forms and values too large for a double
///
/// Allocates nothing for texts of usual length. Inverse of FormatNumber with "General Number".
[[nodiscard]] std::optional<double> ReadNumber(std::string_view text);

/// False when the first character of a text rules out a number, as for nearly every word. Much
/// faster than reading the text.
[[nodiscard]] inline bool MayBeNumber(std::string_view text) {
    constexpr unsigned char kLastOfNumbers = '9'; // above all first characters of numbers
    return !text.empty() && static_cast<unsigned char>(text.front()) <= kLastOfNumbers;
}

/// A text as a number; 0 when it is empty or not a number. Otherwise as ReadNumber.
[[nodiscard]] double ParseNumber(std::string_view text);

/// A text as a number, by the regional decimal delimiter; 0 when it is empty or not a number.
///
/// @param decimalIsComma  decides for texts with both delimiters ("1,234.5" or "1.234,5"): the
///                        other delimiter then separates groups of three digits. A single delimiter
///                        is the decimal delimiter, whichever it is.
[[nodiscard]] double NumberFromText(std::string_view text, bool decimalIsComma);

/// True when the value is finite and equal to its integer part.
[[nodiscard]] bool IsWholeNumber(double value);

} // namespace quandrel
