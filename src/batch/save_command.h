// SPDX-License-Identifier: MIT
//
// The save command of the batch program.

#pragma once

#include "batch/script.h"

#include <string>

namespace quandrel {

/// Saves gActivePlot to the path of a command. With `whole` a text file has angles in whole
/// degrees, with `lines=all` it includes the lines without data.
///
/// @return empty, or an error message
[[nodiscard]] std::string SaveToFile(const Command& command);

} // namespace quandrel
