// SPDX-License-Identifier: MIT

#include "input/line_loop.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/step_progress.h"
#include "input/decimal_delimiter.h"
#include "input/parameter_line.h"
#include "input/text_file.h"
#include "platform/platform.h"

#include <algorithm>

namespace quandrel {

namespace {

/// Lines between two looks at the clock.
constexpr std::int64_t kLinesBetweenLooks = 8192;

/// Texts of fewer lines grow the columns as they come.
constexpr std::int32_t kFewLines = 10000;

/// The lines of a text, by its line feeds.
std::int32_t CountLines(std::string_view text) {
    const auto lines = std::count(text.begin(), text.end(), '\n') + 1;
    return static_cast<std::int32_t>(std::min<std::ptrdiff_t>(lines, gRowLimit));
}

bool IsNonData(LineStatus status) {
    return status == LineStatus::Blank || status == LineStatus::ParameterLine
           || status == LineStatus::Comment || status == LineStatus::NotData;
}

/// True for the lines that may stand in front of the first row, and before its heading.
bool IsOfHead(LineStatus status) {
    return status == LineStatus::Blank || status == LineStatus::ParameterLine
           || status == LineStatus::Comment;
}

/// The progress bar of a load, and the user's wish to end it.
class LoadProgress {
public:
    explicit LoadProgress(std::size_t bytes)
        : progress_(static_cast<std::int64_t>(bytes), gTimeWithoutProgress) {}

    /// False once the user has asked for the load to end.
    [[nodiscard]] bool GoOn(std::int64_t line, std::int64_t bytesDone) {
        return line % kLinesBetweenLooks != 0 || !progress_.Reach(bytesDone)
               || !gPlatform.status->CancelRequested();
    }

private:
    StepProgress progress_;
};

/// The state of a pass between two lines.
class LineLoop {
public:
    /// @param inOwnHead  the lines to come are the head of a file that the program wrote
    LineLoop(const LinePass& pass, bool inOwnHead, LoadCounters& counters)
        : pass_(pass)
        , format_(pass.format)
        , counters_(counters)
        , askAboutBadLines_(pass.reportBadLines)
        , headingIsDue_(pass.skipHeading)
        , inOwnHead_(inOwnHead) {}

    /// False when reading ends at this line.
    [[nodiscard]] bool Take(std::string_view line, std::string& heading) {
        ++lines_;
        ParsedRow row = ParseLine(line, format_);
        inOwnHead_ = inOwnHead_ && IsOfHead(row.status);
        if (headingIsDue_ && !IsOfHead(row.status)) {
            headingIsDue_ = false;
            heading = std::string(line);
            return true;
        }
        if (row.numberStatus == NumberStatus::WrongDelimiter && !askedAboutDelimiter_
            && row.status == LineStatus::Row && !AnswerDelimiter(line, row)) {
            return false;
        }
        RowFaults faults;
        if (!StoreDataRow(plot_, row, pass_.target, faults, line)) {
            counters_.outOfMemory = true;
            return false;
        }
        ++counters_.rowsRead;
        if (row.status == LineStatus::Row) {
            CountValid(row, faults);
            return true;
        }
        return TakeBadLine(row.status, line);
    }

    [[nodiscard]] PassEnd End() const { return end_; }

private:
    void CountValid(const ParsedRow& row, const RowFaults& faults) {
        ++counters_.rowsValid;
        CountUpwardLine(row, format_, pass_.target.overlay, counters_);
        // A plot may have appended data that this file is not read for: nothing is wrong with
        // those.
        counters_.badNumeric += faults.number && format_.wantNumber ? 1 : 0;
        counters_.badText += faults.text && format_.wantText ? 1 : 0;
        counters_.badLine += faults.line && format_.wantLine ? 1 : 0;
        nonDataInARow_ = 0;
        invalidInARow_ = 0;
    }

    /// Asks about an appended number with the other decimal delimiter, and reads the line again
    /// when it and its like are to be converted.
    [[nodiscard]] bool AnswerDelimiter(std::string_view line, ParsedRow& row) {
        askedAboutDelimiter_ = true;
        switch (ReportWrongDelimiter(line)) {
        case LineAnswer::Leave:
            end_ = PassEnd::Left;
            return false;
        case LineAnswer::Retry:
            gConvertDecimals = true;
            format_.convertDecimals = true;
            row = ParseLine(line, format_);
            return true;
        case LineAnswer::GoOn:
            break;
        }
        return true;
    }

    [[nodiscard]] bool TakeBadLine(LineStatus status, std::string_view line) {
        if (IsNonData(status)) {
            ++counters_.blankLines;
            counters_.headLines += inOwnHead_ ? 1 : 0;
            invalidInARow_ = 0;
            return CountInARow(nonDataInARow_);
        }
        ++counters_.invalidLines;
        nonDataInARow_ = 0;
        if (askAboutBadLines_ && !AnswerBadLine(status, line)) {
            return false;
        }
        return CountInARow(invalidInARow_);
    }

    [[nodiscard]] bool AnswerBadLine(LineStatus status, std::string_view line) {
        askAboutBadLines_ = false;
        const LineAnswer answer =
            ReportBadLine(status, line, counters_.rowsRead - 1, format_.neededColumns);
        if (answer == LineAnswer::GoOn) {
            return true;
        }
        end_ = answer == LineAnswer::Retry ? PassEnd::Retry : PassEnd::Left;
        return false;
    }

    [[nodiscard]] bool CountInARow(std::int32_t& run) {
        if (++run < kMostBadLines) {
            return true;
        }
        counters_.stoppedAtLine = lines_;
        counters_.invalidInRun = invalidInARow_;
        return false;
    }

    Plot& plot_ = ActivePlot();
    const LinePass& pass_;
    LineFormat format_;
    LoadCounters& counters_;
    std::int64_t lines_ = 0;
    std::int32_t nonDataInARow_ = 0;
    std::int32_t invalidInARow_ = 0;
    bool askAboutBadLines_;
    bool headingIsDue_;
    bool inOwnHead_;
    bool askedAboutDelimiter_ = false;
    PassEnd end_ = PassEnd::Done;
};

} // namespace

std::chrono::milliseconds gTimeWithoutProgress{200};

PassEnd LoadDataLines(std::string_view text, const LinePass& pass, LoadCounters& counters,
                      std::string& heading) {
    counters = {};
    heading.clear();
    if (const std::int32_t lines = CountLines(text); lines > kFewLines) {
        Plot& plot = ActivePlot();
        const std::int32_t held = plot.record.NumLoadedData;
        MakeRoomForRows(plot, std::min(gRowLimit - held, lines) + held,
                        pass.target.secondaryFormat != 0);
    }
    LineReader reader(text);
    LineLoop loop(pass, text.starts_with(kOwnTextStart), counters);
    LoadProgress progress(text.size());
    std::string_view line;
    for (std::int64_t number = 1; reader.Next(line); ++number) {
        if (!loop.Take(line, heading)) {
            break;
        }
        if (!progress.GoOn(number, line.data() - text.data())) {
            counters.cancelled = true;
            break;
        }
    }
    return loop.End();
}

} // namespace quandrel
