// SPDX-License-Identifier: MIT
//
// Message boxes as the program shows them, and names in texts.

#pragma once

#include "platform/prompts.h"

#include <string>
#include <string_view>

namespace quandrel {

/// Tells the user something, with an OK button.
void Tell(const std::string& text, Icon icon = Icon::Exclamation);

/// Asks with OK and Cancel; true for OK.
[[nodiscard]] bool AskToGoOn(const std::string& text);

/// A path's last component.
[[nodiscard]] std::string FileTitleOf(const std::string& path);

/// ASCII letters in lower case.
[[nodiscard]] std::string LowerCase(std::string text);

/// True when two texts are alike but for the case of ASCII letters.
[[nodiscard]] bool EqualWithoutCase(std::string_view a, std::string_view b);

/// True when a path ends so, in any case.
[[nodiscard]] bool HasEnding(const std::string& path, std::string_view ending);

} // namespace quandrel
