// SPDX-License-Identifier: MIT
//
// Formats that the batch program takes by itself: `format auto`.

#pragma once

#include "core/result.h"
#include "platform/prompts.h"

namespace quandrel {

/// Puts the format that is suggested for a text into the globals of the format, as the data format
/// dialog does. A text that states its format is read as it says.
///
/// @param table  of a question with tables, the one that is read
/// @return what the dialog would answer; or, when no suggestion is sure (kSureEnough), why, with
///         all suggestions and their reasons
[[nodiscard]] Result<FormatAnswer> TakeSuggestedFormat(const FormatQuestion& question,
                                                       std::size_t table);

} // namespace quandrel
