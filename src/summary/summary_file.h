// SPDX-License-Identifier: MIT
//
// Summaries in files (.qsum), as docs/file_formats.md describes them.

#pragma once

#include "core/result.h"
#include "summary/row_summary.h"

#include <string>
#include <string_view>

namespace quandrel {

inline constexpr const char* kSummaryEnding = ".qsum";

/// Whether bytes begin as a summary does.
[[nodiscard]] bool IsSummarySignature(std::string_view bytes);

/// A summary as the bytes of a file: equal summaries have equal bytes, however they were made.
[[nodiscard]] std::string SummaryBytes(const RowSummary& summary);

/// The inverse of SummaryBytes. Fails for bytes that are damaged, with a text for the user. Memory
/// taken is at most some megabytes.
[[nodiscard]] Result<RowSummary> SummaryOfBytes(std::string_view bytes);

/// The summary of a file.
///
/// @param path  UTF-8
[[nodiscard]] Result<RowSummary> ReadSummaryFile(const std::string& path);

} // namespace quandrel
