// SPDX-License-Identifier: MIT
//
// The whole of a plot as JSON.

#pragma once

#include "platform/recording_surface.h"
#include "platform/scripted_prompts.h"

#include <nlohmann/json_fwd.hpp>

namespace quandrel {

/// The active plot: slot, title, record, rows, table, load, legend, and what was asked and drawn.
/// Parts that do not apply are absent. Numbers read back exactly. Of a plot that has a binary plot
/// file, "file" is every field of it as it stands in the file now (batch/file_dump.h).
///
/// @param prompts     boxes shown so far
/// @param operations  of the last drawing
[[nodiscard]] nlohmann::ordered_json DumpActivePlot(const ScriptedPrompts& prompts,
                                                    const RecordingSurface& operations);

} // namespace quandrel
