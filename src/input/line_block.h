// SPDX-License-Identifier: MIT
//
// Blocks of a text: whole lines, parsed and ready to be appended to a plot. The functions are pure,
// so that several threads can read blocks at once.

#pragma once

#include "core/row_block.h"
#include "input/data_rows.h"
#include "input/load_report.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quandrel {

/// Everything that decides how a line of a load is treated.
struct LineRules {
    LineFormat format;
    RowForm rows;
    bool countsUpward = false; ///< count rows that point up (CountsUpwardLines)
};

/// The lengths of the runs of lines without data, and of invalid lines, at a line. One of them is
/// 0.
struct BadRuns {
    std::int32_t nonData = 0;
    std::int32_t invalid = 0;

    /// Takes the next line into account.
    /// @return the length of the run of lines of its kind; 0 for a row
    std::int32_t Take(LineStatus status);
};

/// True for lines that are not meant to be data: blank ones, comments, parameters, letters.
[[nodiscard]] bool IsNonData(LineStatus status);

/// The lines of a part of a text, each as a row, with what a load has to know about them.
struct LineBlock {
    RowBlock rows{ColumnSet{}};
    LoadCounters counts;            ///< of its own lines only
    BadRuns lastRuns;               ///< at its end
    std::int32_t longestRun = 0;    ///< longest run of bad lines of one kind
    bool hasWrongDelimiter = false; ///< a row has a number with the other decimal delimiter
};

/// Counts what a row adds to a load: a valid row, its faults, its negative plunge, angles with more
/// than six decimals.
void CountRow(const ParsedRow& row, const RowFaults& faults, const LineRules& rules,
              LoadCounters& counters);

/// Parses whole lines into a block. Throws std::bad_alloc when memory runs out; the block can then
/// be used for another text. O(length of the text).
void ReadBlock(std::string_view text, const LineRules& rules, LineBlock& block);

/// The end of a block of about `bytes` that begins at a position in a text: after the first line
/// end beyond that length, or the end of the text. Never between CR and LF.
[[nodiscard]] std::size_t EndOfBlock(std::string_view text, std::size_t start, std::size_t bytes);

} // namespace quandrel
