// SPDX-License-Identifier: MIT
//
// Why a command cannot be used, as a sentence for its tip.

#pragma once

#include "session/window_state.h"

#include <string>
#include <string_view>

namespace quandrel {

/// The reason why a command of the main window is disabled; empty where none is known.
///
/// @param command  its name: "mnuPlotRotate"
[[nodiscard]] std::string ReasonDisabled(std::string_view command, const ToolbarState& state);

} // namespace quandrel
