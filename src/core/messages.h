// SPDX-License-Identifier: MIT
//
// Message boxes as the program shows them, and names in texts.

#pragma once

#include "core/letter_case.h"
#include "platform/prompts.h"

#include <string>
#include <string_view>

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

/// A path's last component.
[[nodiscard]] std::string FileTitleOf(const std::string& path);

/// A text as the name of a file: what no name may hold on one system or another becomes "-".
[[nodiscard]] std::string FileNameOf(std::string text);

/// One spelling for each file, so that it is known again wherever it is named from: its absolute
/// path.
[[nodiscard]] std::string NormalPath(const std::string& path);

/// True when a path ends so, in any case.
[[nodiscard]] bool HasEnding(const std::string& path, std::string_view ending);

} // namespace quandrel
