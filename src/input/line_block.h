// SPDX-License-Identifier: MIT
//
// Blocks of a text: some whole lines, parsed and made ready to be appended to a plot. Pure
// functions of values, so that several threads can read blocks at once.

#pragma once

#include "core/row_block.h"
#include "input/data_rows.h"
#include "input/load_report.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quandrel {

/// Everything that decides what becomes of a line of a load.
struct LineRules {
    LineFormat format;
    RowForm rows;
    bool countsUpward = false; ///< rows that point up are counted (CountsUpwardLines)
};

/// Lines without data, and invalid lines, that follow each other up to a line. One is 0.
struct BadRuns {
    std::int32_t nonData = 0;
    std::int32_t invalid = 0;

    /// Takes the next line into account.
    /// @return how many lines of its kind have come in a row; 0 for a row
    std::int32_t Take(LineStatus status);
};

/// True for lines that are not meant to be data: blank ones, comments, parameters, letters.
[[nodiscard]] bool IsNonData(LineStatus status);

/// The lines of a part of a text, each a row, and what a load has to know of them.
struct LineBlock {
    RowBlock rows{ColumnSet{}};
    LoadCounters counts;            ///< of its lines alone
    BadRuns lastRuns;               ///< up to its end
    std::int32_t longestRun = 0;    ///< most bad lines of one kind in a row
    bool hasWrongDelimiter = false; ///< a row has a number with the other decimal delimiter
};

/// Counts what a row adds to a load: a valid row, its faults, its negative plunge.
void CountRow(const ParsedRow& row, const RowFaults& faults, const LineRules& rules,
              LoadCounters& counters);

/// Reads whole lines into a block. Takes memory, and throws std::bad_alloc where there is none; the
/// block can then be used for another text. O(length of the text).
void ReadBlock(std::string_view text, const LineRules& rules, LineBlock& block);

/// The end of a block of about `bytes` that begins at a place of a text: behind the first line end
/// beyond so many bytes, or the end of the text. CR LF is never parted.
[[nodiscard]] std::size_t EndOfBlock(std::string_view text, std::size_t start, std::size_t bytes);

} // namespace quandrel
