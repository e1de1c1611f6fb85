// SPDX-License-Identifier: MIT
//
// Which formulas make the printed results: the program's own definitions, or the textbook's; and
// the words for results that are not determined or that differ from the textbook's.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quandrel {

/// Own: the definitions that this program has always printed. Textbook: those of N. I. Fisher,
/// T. Lewis, B. J. J. Embleton (1987) and N. I. Fisher (1993) wherever the two differ.
enum class Formulas : std::int16_t { Own = 0, Textbook = 1 };

/// The name of a choice in scripts, settings and files: "own" or "textbook".
[[nodiscard]] inline const char* NameOf(Formulas formulas) {
    return formulas == Formulas::Textbook ? "textbook" : "own";
}

/// What is printed for a direction that the data do not determine: no rows, equal rows, a resultant
/// of length 0. Fields and files hold their marker instead, JSON null.
inline constexpr const char* kUndetermined = "undetermined";

/// What is printed for a number beyond all bounds.
inline constexpr const char* kInfinite = "infinite";

/// The line below a result of the program's own whose textbook value is printed otherwise:
/// "(textbook: 045-225)", without a line end.
[[nodiscard]] inline std::string TextbookNote(std::string_view printed) {
    return "(textbook: " + std::string(printed) + ")";
}

} // namespace quandrel
