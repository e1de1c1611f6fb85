// SPDX-License-Identifier: MIT
//
// The program's message boxes.

#pragma once

#include "platform/prompts.h"

#include <string>

namespace quandrel {

/// Shows a message with an OK button.
void Tell(const std::string& text, Icon icon = Icon::Exclamation);

/// What is lost when the answer to a question is OK or Yes. If it is the user's work, Return in a
/// window chooses Cancel or No.
enum class AtStake { Nothing, Work };

/// Asks a question with OK and Cancel; true for OK.
[[nodiscard]] bool AskToGoOn(const std::string& text, AtStake stake = AtStake::Nothing);

/// Asks a question with Yes and No; true for Yes.
[[nodiscard]] bool AskYes(const std::string& text, AtStake stake = AtStake::Nothing);

} // namespace quandrel
