// SPDX-License-Identifier: MIT
//
// Splits lines of text into columns. Nothing is copied: tokens are views into the line.
//
// Between columns stands one character, or with kAnyDelimiter a comma, a semicolon or a tab, each
// with blanks around it, or a run of blanks. With the blank as delimiter, a run of blanks is one
// break. Otherwise each delimiter is a break: two in a row hold an empty token, and one at the end
// of the line is followed by one. Blanks around a token are cut off, and tabs where the tab is no
// delimiter.
//
// A token in double quotes, as spreadsheets write them, is taken without the quotes, and a
// delimiter in it does not break. A quote that is not closed at the end of its token is a character
// like any other.

#pragma once

#include "core/data_format.h"
#include "orientation/number_text.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// A column of a line. Nothing is set until it is read, for the sake of the many that never are.
struct Token {
    const char* start;
    std::size_t length;
    double number;         ///< the text as a number, when isPlainNumber
    bool isPlainNumber;    ///< digits with a sign and a decimal delimiter at most
    bool hasDoubledQuotes; ///< was in quotes, and holds quotes that are written twice
    char decimalDelimiter; ///< of a plain number: '.', ',' or NUL

    [[nodiscard]] std::string_view Text() const { return {start, length}; }
};

inline constexpr Token kEmptyToken = {nullptr, 0, 0, false, false, '\0'};

/// The line without the blanks in front, and without tabs there unless the tab is a delimiter.
[[nodiscard]] std::string_view WithoutLeadingBlanks(std::string_view text, char delimiter);

/// Takes the next token of a line.
///
/// @param[in,out] position  where to look, 0 at first; behind the last token it is line.size() + 1
/// @return false when the line has no more tokens; token is then empty
[[nodiscard]] bool NextToken(std::string_view line, std::size_t& position, Token& token,
                             char delimiter);

/// As above; doubled quotes are made single in the text.
[[nodiscard]] bool NextToken(std::string_view line, std::size_t& position, std::string& token,
                             char delimiter);

/// The token as a number.
[[nodiscard]] inline std::optional<double> NumberIn(const Token& token) {
    return token.isPlainNumber ? std::optional<double>(token.number) : ReadNumber(token.Text());
}

/// A text with each pair of double quotes made one.
[[nodiscard]] std::string WithSingleQuotes(std::string_view text);

/// The columns of a line that its slots name. Meant to live on the stack: takes no memory of its
/// own.
class LineTokens {
public:
    /// Takes columns until there are `columns` of them or the line ends. O(length of the line).
    /// @return how many there were
    int Split(std::string_view line, int columns, char delimiter, const ColumnSettings& slots);

    /// Takes the values of a row, one for each slot, in place of a line. The slots are to be 0 to
    /// 9.
    void Assign(const std::array<std::string_view, kColumnSlots>& values);

    /// The token in a slot's column; an empty one when the line did not reach it.
    [[nodiscard]] const Token& At(int slot, const ColumnSettings& slots) const {
        const int column = slots[static_cast<std::size_t>(slot)];
        if (column < 0 || column >= count_) {
            return kEmptyToken;
        }
        return tokens_[static_cast<std::size_t>(column < kKeptColumns ? column
                                                                      : kKeptColumns + slot)];
    }

private:
    static constexpr int kKeptColumns = 32;

    // The first columns, each in its place; behind them, one for each slot, those farther back.
    std::array<Token, kKeptColumns + kColumnSlots> tokens_;
    int count_ = 0;
};

} // namespace quandrel
