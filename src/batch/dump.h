// SPDX-License-Identifier: MIT
//
// A whole plot as JSON.

#pragma once

#include "batch/json_writer.h"
#include "platform/scripted/recording_surface.h"
#include "platform/scripted/scripted_prompts.h"

namespace quandrel {

/// Writes the active plot: slot, title, record, rows, table, load, legend, prompts and drawing
/// operations. Parts that do not apply are absent. Numbers read back exactly; measured angles of
/// rows with decimals ("measured", "measured2", "measuredLine") have six decimals. If the plot has
/// a binary plot file, "file" contains every field with its present value in the file
/// (batch/file_dump.h). Rows are written one by one, so that the whole dump is never in memory.
///
/// @param prompts     message boxes shown so far
/// @param operations  of the last drawing
/// @param put         receives the bytes
/// @return false if `put` failed
[[nodiscard]] bool DumpActivePlot(const ScriptedPrompts& prompts,
                                  const RecordingSurface& operations, JsonLayout layout,
                                  const PutBytes& put);

} // namespace quandrel
