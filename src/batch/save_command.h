// SPDX-License-Identifier: MIT
//
// The save command of the batch program.

#pragma once

#include "batch/script.h"

#include <string>

namespace quandrel {

/// Saves gActivePlot to the path of a command, with `lines=all` as a text that has the lines
/// without data too.
///
/// @return empty, or what is wrong
[[nodiscard]] std::string SaveToFile(const Command& command);

} // namespace quandrel
