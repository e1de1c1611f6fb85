// SPDX-License-Identifier: MIT
//
// The extension of a binary plot file as JSON.

#pragma once

#include "batch/json_writer.h"
#include "persistence/plot_extension.h"

#include <span>

namespace quandrel {

/// Writes blocks as an array of objects: tag, flag and number of bytes of each, and the values of
/// blocks that this version knows, unless they are damaged. The measured angles of rows are two
/// arrays, in degrees; null in rows without decimals.
void WriteExtension(std::span<const BlockView> blocks, JsonWriter& writer);

} // namespace quandrel
