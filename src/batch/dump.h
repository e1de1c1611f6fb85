// SPDX-License-Identifier: MIT
//
// The whole of a plot as JSON.

#pragma once

#include "batch/json_writer.h"
#include "platform/scripted/recording_surface.h"
#include "platform/scripted/scripted_prompts.h"

namespace quandrel {

/// Writes the active plot: slot, title, record, rows, table, load, legend, and what was asked and
/// drawn. Parts that do not apply are absent. Numbers read back exactly. Of a plot that has a
/// binary plot file, "file" is every field of it as it stands in the file now
/// (batch/file_dump.h). The rows are written one by one, so that no dump is held whole.
///
/// @param prompts     boxes shown so far
/// @param operations  of the last drawing
/// @param put         takes the bytes
/// @return false when `put` did not take them
[[nodiscard]] bool DumpActivePlot(const ScriptedPrompts& prompts,
                                  const RecordingSurface& operations, JsonLayout layout,
                                  const PutBytes& put);

} // namespace quandrel
