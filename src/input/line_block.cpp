// SPDX-License-Identifier: MIT

#include "input/line_block.h"

#include "input/text_file.h"

#include <algorithm>

namespace quandrel {

namespace {

/// Upper limit for the number of lines of a text: its line ends, and the text after the last one.
std::int32_t MostLines(std::string_view text) {
    const auto ends =
        std::count(text.begin(), text.end(), '\n') + std::count(text.begin(), text.end(), '\r');
    return static_cast<std::int32_t>(ends + 1);
}

void TakeLine(std::string_view line, const LineRules& rules, LineBlock& block) {
    const ParsedRow row = ParseLine(line, rules.format);
    RowFaults faults;
    RowValues values = ValuesOfRow(row, rules.rows, faults);
    if (row.status == LineStatus::Row) {
        CountRow(row, faults, rules, block.counts);
        block.hasWrongDelimiter =
            block.hasWrongDelimiter || row.numberStatus == NumberStatus::WrongDelimiter;
    } else {
        values.errorLine = line;
        ++(IsNonData(row.status) ? block.counts.blankLines : block.counts.invalidLines);
    }
    block.rows.Add(values);
    block.longestRun = std::max(block.longestRun, block.lastRuns.Take(row.status));
    ++block.counts.rowsRead;
}

} // namespace

bool IsNonData(LineStatus status) {
    return status == LineStatus::Blank || status == LineStatus::ParameterLine
           || status == LineStatus::Comment || status == LineStatus::NotData;
}

std::int32_t BadRuns::Take(LineStatus status) {
    if (status == LineStatus::Row) {
        *this = {};
        return 0;
    }
    std::int32_t& run = IsNonData(status) ? nonData : invalid;
    (IsNonData(status) ? invalid : nonData) = 0;
    return ++run;
}

void CountRow(const ParsedRow& row, const RowFaults& faults, const LineRules& rules,
              LoadCounters& counters) {
    const LineFormat& format = rules.format;
    ++counters.rowsValid;
    counters.hasMoreDecimals = counters.hasMoreDecimals || row.hasMoreDecimals;
    if (row.dip < 0 && rules.countsUpward) {
        ++counters.upwardLines;
        counters.negativePlunge = format.negativePlunge;
    }
    // A plot may have appended data that are not read from this file: they are not faulty.
    counters.badNumeric += faults.number && format.wantNumber ? 1 : 0;
    counters.badText += faults.text && format.wantText ? 1 : 0;
    counters.badLine += faults.line && format.wantLine ? 1 : 0;
}

void ReadBlock(std::string_view text, const LineRules& rules, LineBlock& block) {
    block.rows.Begin(rules.rows.columns, MostLines(text));
    block.counts = {};
    block.lastRuns = {};
    block.longestRun = 0;
    block.hasWrongDelimiter = false;
    LineReader reader(text);
    for (std::string_view line; reader.Next(line);) {
        TakeLine(line, rules, block);
    }
}

std::size_t EndOfBlock(std::string_view text, std::size_t start, std::size_t bytes) {
    const std::size_t end =
        bytes < text.size() - start ? text.find_first_of("\r\n", start + bytes) : text.size();
    if (end >= text.size()) { // also for npos
        return text.size();
    }
    const bool isPair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
    return end + (isPair ? 2 : 1);
}

} // namespace quandrel
