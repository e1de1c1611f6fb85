// SPDX-License-Identifier: MIT
//
// The choice of formulas for printed results: the program's own definitions or the textbook's. Also
// the texts for results that are undetermined or that differ from the textbook's.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quandrel {

/// Own: the program's own definitions. Textbook: those of N. I. Fisher, T. Lewis, B. J. J. Embleton
/// (1987) and N. I. Fisher (1993) wherever the two differ.
enum class Formulas : std::int16_t { Own = 0, Textbook = 1 };

/// The name of a choice in scripts, settings and files: "own" or "textbook".
[[nodiscard]] inline const char* NameOf(Formulas formulas) {
    return formulas == Formulas::Textbook ? "textbook" : "own";
}

/// The text for a direction that the data do not determine: no rows, equal rows, or a resultant of
/// length 0. Fields and files hold their own marker instead, JSON null.
inline constexpr const char* kUndetermined = "undetermined";

/// The text for an infinite number.
inline constexpr const char* kInfinite = "infinite";

/// The line below a result of the program's own formulas whose textbook value prints differently:
/// "(textbook: 045-225)", without a line end.
[[nodiscard]] inline std::string TextbookNote(std::string_view printed) {
    return "(textbook: " + std::string(printed) + ")";
}

} // namespace quandrel
