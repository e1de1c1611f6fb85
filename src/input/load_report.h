// SPDX-License-Identifier: MIT
//
// What a load of a text file reports to the user.

#pragma once

#include "core/plot.h"
#include "input/data_line.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// A load ends after this many bad lines of one kind in a row.
inline constexpr std::int32_t kMostBadLines = 1000;

/// Counters of a load.
struct LoadCounters {
    std::int32_t rowsRead = 0; ///< rows stored, error rows included
    std::int32_t rowsValid = 0;
    std::int32_t blankLines = 0;   ///< lines without data: blank, comments, parameters, letters
    std::int32_t headLines = 0;    ///< those of blankLines in the head of an own file
    std::int32_t invalidLines = 0; ///< lines that should be data but are not
    std::int32_t badNumeric = 0;   ///< valid rows whose appended number is invalid
    std::int32_t badText = 0;
    std::int32_t badLine = 0;
    std::int32_t upwardLines = 0; ///< plain lines with a negative plunge
    NegativePlunge negativePlunge = NegativePlunge::LowerEnd; ///< how these were read
    std::int32_t rowsWithDecimals = 0;
    bool hasMoreDecimals = false;   ///< an angle had more than six decimals
    std::int64_t stoppedAtLine = 0; ///< line at which a run of bad lines ended the load, or 0
    std::int32_t invalidInRun = 0;  ///< invalid lines of that run; the others have no data
    bool outOfMemory = false;
    bool cancelled = false;                ///< the user ended the load
    std::vector<std::string> missingFiles; ///< further files that were not found

    static LoadCounters now; ///< of the last load (LastLoad)
};

/// The counters of the last load of a text file, whether or not its rows were kept.
[[nodiscard]] LoadCounters& LastLoad();

/// The counters of the last load of a text file into a plot; nothing when there was none.
[[nodiscard]] const LoadCounters* LoadOf(const Plot& plot);

/// Keeps the counters of a load with its plot.
void KeepLoad(Plot& plot, const LoadCounters& counters);

/// True when rows that point up are counted: rows of gActivePlot that are plotted without their
/// sense.
///
/// @param overlay  the overlay of the rows, or 0
[[nodiscard]] bool CountsUpwardLines(const LineFormat& format, int overlay);

/// Counts a row that was read into gActivePlot when it points up and is plotted without its sense.
///
/// @param overlay  the overlay of the row, or 0
void CountUpwardLine(const ParsedRow& row, const LineFormat& format, int overlay,
                     LoadCounters& counters);

/// Adds the counters of another part of a load, but for its end and the files that were not found.
void AddCounters(const LoadCounters& part, LoadCounters& sum);

/// How many rows have decimals, in a sentence, and whether angles were rounded to six decimals;
/// empty when none has any.
///
/// @param usesDecimals  of the plot: else the sentence names the command that shows them
[[nodiscard]] std::string DecimalsText(const LoadCounters& counters, bool usesDecimals);

/// What was done with plain lines with a negative plunge, in a sentence; empty when there are none.
[[nodiscard]] std::string UpwardLinesText(const LoadCounters& counters);

/// The user's answer to a question about a line.
enum class LineAnswer { GoOn, Leave, Retry };

/// Reports the first line of a load that should be data but is not, and asks what to do.
///
/// @param rowsSoFar      rows stored before it
/// @param neededColumns  number of columns that the format in force needs
[[nodiscard]] LineAnswer ReportBadLine(LineStatus status, std::string_view line,
                                       std::int32_t rowsSoFar, int neededColumns);

/// Asks about the first appended number with the other decimal delimiter: Retry converts it and all
/// others of the load.
[[nodiscard]] LineAnswer ReportWrongDelimiter(std::string_view line);

/// The text for the end of a load, without its caption; empty when there is nothing to report.
[[nodiscard]] std::string LoadSummaryText(const LoadCounters& counters);

/// Reports an internal failure that ends a load; the rows read so far stay.
void ReportLoadFailure(const LoadCounters& counters, const std::string& error);

/// The result of a load in a sentence: "120 rows read, 118 of them data; 2 lines without data, 0
/// invalid."
[[nodiscard]] std::string LoadText(const LoadCounters& counters);

/// The same of a load into a plot, followed by DecimalsText.
[[nodiscard]] std::string LoadText(const LoadCounters& counters, const PlotRecord& record);

/// True when a load gave no valid row and the format has to be checked.
[[nodiscard]] bool LoadFailed(const LoadCounters& counters);

/// Shows the end-of-file report of a load into a plot. A load that met no problems, from the
/// clipboard ("PasteData") or a file, shows none, with or without decimals.
void ReportLoadSummary(const LoadCounters& counters, const PlotRecord& record);

} // namespace quandrel
