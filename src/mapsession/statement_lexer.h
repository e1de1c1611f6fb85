// SPDX-License-Identifier: MIT
//
// The tokens of a statement or an expression.
//
// Names begin with a letter, an underscore or any byte beyond ASCII and continue with these or
// digits. Numbers have a decimal point and may have an exponent; a sign is a separate token. Texts
// are between double quotes; a doubled quote is one quote within the text.

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
    std::string text; ///< the name, the number as written, the text without its quotes
    double number = 0;
};

/// The tokens of a text, followed by an End; or an error: a stray character, a text without its
/// closing quote, a number out of range.
[[nodiscard]] SessionResult<std::vector<SessionToken>> SessionTokensOf(std::string_view text);

/// True when both are equal, ignoring the case of ASCII letters.
[[nodiscard]] bool EqualNames(std::string_view left, std::string_view right);

} // namespace quandrel
