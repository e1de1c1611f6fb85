// SPDX-License-Identifier: MIT
//
// Splits lines of text into columns. Nothing is copied: tokens are views into the line.
//
// Columns are separated by one character, or with kAnyDelimiter by a comma, a semicolon or a tab,
// each with optional blanks around it, or a run of blanks. With the blank as delimiter, a run of
// blanks is one break. Otherwise each delimiter is a break: two in a row enclose an empty token,
// and one at the end of the line is followed by an empty token. Blanks around a token are trimmed,
// and so are tabs unless the tab is the delimiter.
//
// A token in double quotes, as spreadsheets write it, is taken without the quotes, and a delimiter
// in it is not a break. A quote that is not closed at the end of its token is an ordinary
// character.

#pragma once

#include "core/data_format.h"
#include "orientation/number_text.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// A column of a line. Members are uninitialised until it is read, as most never are.
struct Token {
    const char* start;
    std::size_t length;
    double number;         ///< the text as a number, valid when isPlainNumber
    bool isPlainNumber;    ///< digits with at most a sign and a decimal delimiter
    bool hasDoubledQuotes; ///< was in quotes, and holds quotes that are doubled
    char decimalDelimiter; ///< of a plain number: '.', ',' or NUL

    [[nodiscard]] std::string_view Text() const { return {start, length}; }
};

inline constexpr Token kEmptyToken = {nullptr, 0, 0, false, false, '\0'};

/// The line without leading blanks, and without leading tabs unless the tab is a delimiter.
[[nodiscard]] std::string_view WithoutLeadingBlanks(std::string_view text, char delimiter);

/// Takes the next token of a line.
///
/// @param[in,out] position  where to start, 0 at first; line.size() + 1 after the last token
/// @return false when the line has no more tokens; token is then empty
[[nodiscard]] bool NextToken(std::string_view line, std::size_t& position, Token& token,
                             char delimiter);

/// As above; doubled quotes in the text are made single.
[[nodiscard]] bool NextToken(std::string_view line, std::size_t& position, std::string& token,
                             char delimiter);

/// The token as a number.
[[nodiscard]] inline std::optional<double> NumberIn(const Token& token) {
    return token.isPlainNumber ? std::optional<double>(token.number) : ReadNumber(token.Text());
}

/// A text with each pair of double quotes replaced by one.
[[nodiscard]] std::string WithSingleQuotes(std::string_view text);

/// The columns of a line that its slots name. Meant for the stack: it allocates no memory.
class LineTokens {
public:
    /// Takes columns until there are `columns` of them or the line ends. O(length of the line).
    /// @return number of columns found
    int Split(std::string_view line, int columns, char delimiter, const ColumnSettings& slots);

    /// Takes the values of a row, one for each slot, instead of a line. The slots have to be 0 to
    /// 9.
    void Assign(const std::array<std::string_view, kColumnSlots>& values);

    /// The token in a slot's column; an empty one when the line is too short.
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

    // The first columns, each at its index; after them one token for each slot whose column is
    // further right.
    std::array<Token, kKeptColumns + kColumnSlots> tokens_;
    int count_ = 0;
};

} // namespace quandrel
