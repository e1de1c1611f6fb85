// SPDX-License-Identifier: MIT
//
// Commands for the selection and the Edit menu. All work on gActivePlot, which must be an open
// plot.

#pragma once

#include <string>

namespace quandrel {

/// Selects: `all`, `none`, or a rectangle on the net by two opposite corners in plot units,
/// `-200,300,100,-50`.
///
/// @return empty, or an error message; the selection is then unchanged
[[nodiscard]] std::string SelectByWords(const std::string& words);

/// Applies an item of the Edit menu to the selection: `cut`, `copy`, `copyall`, `paste`, `delete`.
///
/// @return empty, or an error message
[[nodiscard]] std::string EditByWords(const std::string& words);

/// Sets what selecting and editing applies to: `data` or `annotations`.
[[nodiscard]] std::string ChooseLayer(const std::string& words);

/// Undoes the last edit.
[[nodiscard]] std::string TakeEditBack();

/// Redoes the edit that was undone last.
[[nodiscard]] std::string MakeEditAgain();

} // namespace quandrel
