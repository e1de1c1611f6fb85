// SPDX-License-Identifier: MIT
//
// Reading the tokens of a statement: the expected ones are taken, or none are.

#pragma once

#include "mapsession/statement_lexer.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quandrel {

class SessionTokenReader {
public:
    /// @param tokens  the last one must be an End
    explicit SessionTokenReader(std::vector<SessionToken> tokens)
        : tokens_(std::move(tokens)) {}

    [[nodiscard]] const SessionToken& Current() const { return tokens_[at_]; }

    [[nodiscard]] bool AtEnd() const { return Current().kind == SessionTokenKind::End; }

    /// Takes a word of the language.
    bool TakeWord(std::string_view word) {
        return TakeIf(Current().kind == SessionTokenKind::Name && EqualNames(Current().text, word));
    }

    /// Takes several words: all of them, or none.
    /// @param words  separated by single blanks
    bool TakeWords(std::string_view words) {
        const std::size_t start = at_;
        while (!words.empty()) {
            const std::size_t end = words.find(' ');
            if (!TakeWord(words.substr(0, end))) {
                at_ = start;
                return false;
            }
            words.remove_prefix(end == std::string_view::npos ? words.size() : end + 1);
        }
        return true;
    }

    bool TakeSymbol(char symbol) {
        return TakeIf(Current().kind == SessionTokenKind::Symbol && Current().text[0] == symbol);
    }

    /// Takes a name, or a text between quotes.
    [[nodiscard]] std::optional<std::string> TakeOf(SessionTokenKind kind) {
        if (Current().kind != kind) {
            return std::nullopt;
        }
        return tokens_[at_++].text;
    }

    /// Takes a number with its sign.
    [[nodiscard]] std::optional<double> TakeNumber() {
        const std::size_t start = at_;
        const double sign = TakeSymbol('-') ? -1 : 1;
        if (Current().kind != SessionTokenKind::Number) {
            at_ = start;
            return std::nullopt;
        }
        return sign * tokens_[at_++].number;
    }

    /// Takes a whole number of the type, with its sign. Numbers beyond the exact range of a double
    /// are refused.
    template <class Integer = std::int64_t>
    [[nodiscard]] std::optional<Integer> TakeInteger() {
        constexpr double kLargest = 9007199254740992.0;
        const std::size_t start = at_;
        const std::optional<double> number = TakeNumber();
        if (number && *number >= -kLargest && *number <= kLargest) {
            const auto whole = static_cast<std::int64_t>(*number);
            if (static_cast<double>(whole) == *number
                && whole >= std::numeric_limits<Integer>::min()
                && whole <= std::numeric_limits<Integer>::max()) {
                return static_cast<Integer>(whole);
            }
        }
        at_ = start;
        return std::nullopt;
    }

private:
    bool TakeIf(bool fits) {
        at_ += fits ? 1 : 0;
        return fits;
    }

    std::vector<SessionToken> tokens_;
    std::size_t at_ = 0;
};

} // namespace quandrel
