// SPDX-License-Identifier: MIT
//
// Summaries of texts of any length, read piece by piece.

#pragma once

#include "core/result.h"
#include "input/format_model.h"
#include "summary/row_summary.h"

#include <cstddef>
#include <functional>
#include <span>

namespace quandrel {

/// Gives the next bytes of a text: as many as fit, fewer only at its end. Called by one thread at a
/// time.
using TextSource = std::function<Result<std::size_t>(std::span<char>)>;

/// What the lines of a text hold.
struct SummaryFormat {
    LineFormat line;
    bool hasHeading = false;
    bool isWeighted = false; ///< the number of a line says how often its row counts
};

/// Adds the rows of a text to a summary.
///
/// @param threads  1 or more, the caller's included; the result does not depend on them
/// @param onBytes  called now and then with the number of bytes read; false stops. May be null
/// @return empty, or why the text could not be read whole; the summary is then unusable
///
/// Memory: about 2 MB for each thread, and that of a summary for each of them. A line is at most
/// a megabyte long. The text is UTF-8 or of another encoding in which digits are single bytes.
[[nodiscard]] std::string
SummariseText(const TextSource& source, const SummaryFormat& format, unsigned threads,
              RowSummary& summary, const std::function<bool(std::uint64_t)>& onBytes = nullptr);

/// SummariseText of a file.
///
/// @param path  UTF-8
[[nodiscard]] std::string
SummariseFile(const std::string& path, const SummaryFormat& format, unsigned threads,
              RowSummary& summary, const std::function<bool(std::uint64_t)>& onBytes = nullptr);

} // namespace quandrel
