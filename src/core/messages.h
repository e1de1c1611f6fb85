// SPDX-License-Identifier: MIT
//
// Message boxes as the program shows them.

#pragma once

#include "platform/prompts.h"

#include <string>

namespace quandrel {

/// Tells the user something, with an OK button.
void Tell(const std::string& text, Icon icon = Icon::Exclamation);

/// What is lost when the answer to a question is OK or Yes. Where that is work of the user's,
/// Return in a window takes Cancel or No.
enum class AtStake { Nothing, Work };

/// Asks with OK and Cancel; true for OK.
[[nodiscard]] bool AskToGoOn(const std::string& text, AtStake stake = AtStake::Nothing);

/// Asks with Yes and No; true for Yes.
[[nodiscard]] bool AskYes(const std::string& text, AtStake stake = AtStake::Nothing);

} // namespace quandrel
