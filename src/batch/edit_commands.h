// SPDX-License-Identifier: MIT
//
// The selection and the Edit menu in words. All work on gActivePlot, which must be an open plot.

#pragma once

#include <string>

namespace quandrel {

/// Selects: `all`, `none`, or a rectangle on the net by two opposite corners in plot units,
/// `-200,300,100,-50`.
///
/// @return empty, or what is wrong; the selection is then what it was
[[nodiscard]] std::string SelectByWords(const std::string& words);

/// Does what an item of the Edit menu does with the selection: `cut`, `copy`, `copyall`, `paste`,
/// `delete`.
///
/// @return empty, or what is wrong
[[nodiscard]] std::string EditByWords(const std::string& words);

/// Chooses what selecting and editing is about: `data` or `annotations`.
[[nodiscard]] std::string ChooseLayer(const std::string& words);

/// Takes the last edit back.
[[nodiscard]] std::string TakeEditBack();

/// Makes the edit that was taken back once more.
[[nodiscard]] std::string MakeEditAgain();

} // namespace quandrel
