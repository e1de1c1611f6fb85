// SPDX-License-Identifier: MIT
//
// The colours and symbols of the current styles, and the codes that rows store of them.
// plot_store.h has the tables of styles under their given names.

#pragma once

#include "core/settings_value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// Resets the current tables to the start values of the program; the rest of the styles stays.
void BuildStyleTables();

/// The colour of an index in the current styles.
[[nodiscard]] inline Colour TableColour(int index) {
    return TableColour(gSettings.styles, index);
}

/// A drawing code: colour index, symbol code and size, each 0 to 99, in one number. Outside the
/// program it is written as six digits, two each.
using SymbolCode = std::uint32_t;

[[nodiscard]] constexpr SymbolCode MakeSymbolCode(int colour, int symbol, int size) {
    return static_cast<SymbolCode>(colour * 10000 + symbol * 100 + size);
}

[[nodiscard]] constexpr int CodeColour(SymbolCode code) {
    return static_cast<int>(code / 10000);
}

[[nodiscard]] constexpr int CodeSymbol(SymbolCode code) {
    return static_cast<int>(code / 100 % 100);
}

[[nodiscard]] constexpr int CodeSize(SymbolCode code) {
    return static_cast<int>(code % 100);
}

/// The code of a row of Styles::symbols. Throws std::out_of_range for an invalid row.
[[nodiscard]] SymbolCode CodeOfStyleRow(const Styles& styles, int row);

/// The same in the current styles.
[[nodiscard]] inline SymbolCode CodeOfStyleRow(int row) {
    return CodeOfStyleRow(gSettings.styles, row);
}

/// The six digits of a code.
[[nodiscard]] std::string SymbolCodeText(SymbolCode code);

/// The code of six digits; empty when the text is anything else.
[[nodiscard]] std::optional<SymbolCode> SymbolCodeFromText(std::string_view text);

} // namespace quandrel
