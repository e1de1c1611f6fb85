// SPDX-License-Identifier: MIT
//
// The questions of windows for the path of a file. They begin in the folder that was last used.

#pragma once

#include <optional>
#include <string>

namespace quandrel {

/// What a window asks for.
struct PathWanted {
    std::string title;    ///< of the dialog
    std::string fileName; ///< that is offered; empty for none
    std::string filter;   ///< as PathQuestion::filter
};

/// Asks for a file to write; an existing one only after a question.
///
/// @return nothing when the user cancels
[[nodiscard]] std::optional<std::string> AskPathToSave(const PathWanted& wanted);

/// Asks for an existing file.
///
/// @return nothing when the user cancels
[[nodiscard]] std::optional<std::string> AskPathToOpen(const PathWanted& wanted);

/// The same for a picture to write, with the endings of pictures.
[[nodiscard]] std::optional<std::string> AskPathOfPicture(const std::string& title,
                                                          const std::string& fileName);

} // namespace quandrel
