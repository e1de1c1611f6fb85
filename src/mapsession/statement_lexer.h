// SPDX-License-Identifier: MIT
//
// The words of a statement or an expression.
//
// Names begin with a letter, an underline or any byte beyond ASCII and go on with these or digits.
// Numbers have a decimal point and may have an exponent; a sign is a word of its own. Texts stand
// between double quotes, a doubled quote is one within the text.

#pragma once

#include "mapsession/session_error.h"

#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

enum class SessionTokenKind {
    Name,
    Number,
    Text,
    Symbol, ///< one of ( ) , . = * -
    End,
};

struct SessionToken {
    SessionTokenKind kind = SessionTokenKind::End;
    std::string text; ///< the name, the number as it was written, the text without its quotes
    double number = 0;
};

/// The words of a text with an End behind them, or what does not belong: a stray character, a text
/// without its closing quote, a number that cannot be held.
[[nodiscard]] SessionResult<std::vector<SessionToken>> SessionTokensOf(std::string_view text);

/// True when both are the same but for the case of ASCII letters.
[[nodiscard]] bool EqualNames(std::string_view left, std::string_view right);

} // namespace quandrel
