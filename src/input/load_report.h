// SPDX-License-Identifier: MIT
//
// What a load of a text file tells the user.

#pragma once

#include "core/plot.h"
#include "input/data_line.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// Lines of one kind after each other that end a load.
inline constexpr std::int32_t kMostBadLines = 1000;

/// What a load has met.
struct LoadCounters {
    std::int32_t rowsRead = 0; ///< rows stored, error rows included
    std::int32_t rowsValid = 0;
    std::int32_t blankLines = 0;   ///< lines that are no data: blank, comments, parameters, letters
    std::int32_t headLines = 0;    ///< those of blankLines that are the head of a file of our own
    std::int32_t invalidLines = 0; ///< lines that should be data and are not
    std::int32_t badNumeric = 0;   ///< valid rows whose appended number is invalid
    std::int32_t badText = 0;
    std::int32_t badLine = 0;
    std::int32_t upwardLines = 0; ///< plain lines with a negative plunge
    NegativePlunge negativePlunge = NegativePlunge::LowerEnd; ///< how these were read
    std::int64_t stoppedAtLine = 0; ///< line after which a run of bad lines ended the load, or 0
    std::int32_t invalidInRun = 0;  ///< invalid lines of that run; the others are without data
    bool outOfMemory = false;
    bool cancelled = false;                ///< the user ended the load
    std::vector<std::string> missingFiles; ///< further files that were not found
};

/// The counters of the last load of a text file.
extern LoadCounters gLastLoad;

/// The counters of the last load of a text file into a plot; nothing where there was none.
[[nodiscard]] const LoadCounters* LoadOf(const Plot& plot);

/// Keeps the counters of a load with its plot.
void KeepLoad(Plot& plot, const LoadCounters& counters);

/// True when rows that point up are counted: those of gActivePlot that are not plotted with their
/// sense.
///
/// @param overlay  the overlay of the rows, or 0
[[nodiscard]] bool CountsUpwardLines(const LineFormat& format, int overlay);

/// Counts the line of a row that was read into gActivePlot, where it points up and is not plotted
/// with its sense.
///
/// @param overlay  the overlay of the row, or 0
void CountUpwardLine(const ParsedRow& row, const LineFormat& format, int overlay,
                     LoadCounters& counters);

/// Adds what another part of a load has met, but for its end and the files that were not found.
void AddCounters(const LoadCounters& part, LoadCounters& sum);

/// What was done with plain lines of a negative plunge, in a sentence; empty without any.
[[nodiscard]] std::string UpwardLinesText(const LoadCounters& counters);

/// What the user wants after a question about a line.
enum class LineAnswer { GoOn, Leave, Retry };

/// Tells the first line of a load that is no data though it should be, and asks what to do.
///
/// @param rowsSoFar      rows stored before it
/// @param neededColumns  columns that the format in force asks for
[[nodiscard]] LineAnswer ReportBadLine(LineStatus status, std::string_view line,
                                       std::int32_t rowsSoFar, int neededColumns);

/// Asks about the first appended number with the other decimal delimiter: Retry converts it and all
/// others of the load.
[[nodiscard]] LineAnswer ReportWrongDelimiter(std::string_view line);

/// The text for the end of a load, without its caption; empty when there is nothing to tell.
[[nodiscard]] std::string LoadSummaryText(const LoadCounters& counters);

/// Tells a failure of the program itself during a load, which ends it; the rows so far stand.
void ReportLoadFailure(const LoadCounters& counters, const std::string& error);

/// What a load did, in a sentence: "120 rows read, 118 of them data; 2 lines without data, 0
/// invalid."
[[nodiscard]] std::string LoadText(const LoadCounters& counters);

/// True when nothing came through and the format has to be looked at again.
[[nodiscard]] bool LoadFailed(const LoadCounters& counters);

/// Shows the end-of-file report. A load of clipboard text ("PasteData") that met no problems says
/// nothing, and so does a file.
void ReportLoadSummary(const LoadCounters& counters);

} // namespace quandrel
