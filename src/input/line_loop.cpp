// SPDX-License-Identifier: MIT

#include "input/line_loop.h"

#include "core/plot_store.h"
#include "core/step_progress.h"
#include "input/block_reader.h"
#include "input/decimal_delimiter.h"
#include "input/parameter_line.h"
#include "input/text_file.h"
#include "platform/platform.h"

#include <algorithm>
#include <optional>

namespace quandrel {

namespace {

/// Texts of fewer lines grow the columns as they are read.
constexpr std::int32_t kFewLines = 10000;

/// Texts of fewer blocks are read line by line: a second thread would not pay.
constexpr std::size_t kFewBlocks = 4;

/// The number of lines of a text, by its line feeds.
std::int32_t CountLines(std::string_view text) {
    const auto lines = std::count(text.begin(), text.end(), '\n') + 1;
    return static_cast<std::int32_t>(std::min<std::ptrdiff_t>(lines, gPlatform.mostRows));
}

/// The progress bar of a load, and the user's request to end it.
class LoadProgress {
public:
    explicit LoadProgress(std::size_t bytes)
        : progress_(static_cast<std::int64_t>(bytes), gPlatform.timeWithoutProgress,
                    gPlatform.status) {}

    /// False after the user has asked to end the load.
    [[nodiscard]] bool GoOn(std::size_t bytesDone) {
        return !progress_.Reach(static_cast<std::int64_t>(bytesDone))
               || !gPlatform.status->CancelRequested();
    }

private:
    StepProgress progress_;
};

/// The state of a pass between two lines.
class LineLoop {
public:
    /// @param inOwnHead  the next lines are the head of a file that the program wrote
    LineLoop(const LinePass& pass, bool inOwnHead, LoadCounters& counters)
        : rules_{pass.format, FormOfRows(plot_.record, pass.target),
                 CountsUpwardLines(pass.format, pass.target.overlay)}
        , counters_(counters)
        , askAboutBadLines_(pass.reportBadLines)
        , headingIsDue_(pass.skipHeading)
        , inOwnHead_(inOwnHead) {}

    [[nodiscard]] const LineRules& Rules() const { return rules_; }

    /// Takes the lines of a text. Returns false when reading ends at one of them.
    ///
    /// @param[in,out] heading  the heading line, after it was found
    [[nodiscard]] bool TakeLines(std::string_view text, std::string& heading) {
        LineReader reader(text);
        for (std::string_view line; reader.Next(line);) {
            if (!Take(line, heading)) {
                return false;
            }
        }
        return true;
    }

    /// Takes all lines of a block that was parsed by the present rules. Returns false, with nothing
    /// done, when a line of the block may need a closer look or memory is short: its lines have to
    /// be taken one by one.
    [[nodiscard]] bool TakeBlock(const LineBlock& block) {
        if (NeedsCloserLook(block) || !Append(block.rows)) {
            return false;
        }
        const LoadCounters& counts = block.counts;
        lines_ += counts.rowsRead;
        AddCounters(counts, counters_);
        const bool isAllNonData = counts.blankLines == counts.rowsRead;
        const bool isAllInvalid = counts.invalidLines == counts.rowsRead;
        runs_ = {block.lastRuns.nonData + (isAllNonData ? runs_.nonData : 0),
                 block.lastRuns.invalid + (isAllInvalid ? runs_.invalid : 0)};
        return true;
    }

    [[nodiscard]] PassEnd End() const { return end_; }

private:
    /// Appends all rows of a block, or none.
    [[nodiscard]] bool Append(const RowBlock& rows) {
        const RowCounts former = CountsOf(plot_.record);
        if (AppendBlock(plot_, rules_.rows.target.overlay, rows) == rows.Count()) {
            return true;
        }
        CutRows(plot_, former);
        return false;
    }

    /// True for blocks with a line that may be a heading, raise a question, or end the reading.
    [[nodiscard]] bool NeedsCloserLook(const LineBlock& block) const {
        return headingIsDue_ || inOwnHead_ || (askAboutBadLines_ && block.counts.invalidLines > 0)
               || (!askedAboutDelimiter_ && block.hasWrongDelimiter)
               || block.longestRun + std::max(runs_.nonData, runs_.invalid) >= kMostBadLines;
    }

    /// Returns false when reading ends at this line.
    [[nodiscard]] bool Take(std::string_view line, std::string& heading) {
        ++lines_;
        ParsedRow row = ParseLine(line, rules_.format);
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
        RowValues values = ValuesOfRow(row, rules_.rows, faults);
        if (row.status != LineStatus::Row) {
            values.errorLine = line;
        }
        if (!AppendRow(plot_, rules_.rows.target.overlay, values)) {
            counters_.outOfMemory = true;
            return false;
        }
        ++counters_.rowsRead;
        if (row.status == LineStatus::Row) {
            CountRow(row, faults, rules_, counters_);
            runs_ = {};
            return true;
        }
        return TakeBadLine(row.status, line);
    }

    /// Asks about an appended number with the other decimal delimiter. Parses the line again when
    /// such numbers are to be converted.
    [[nodiscard]] bool AnswerDelimiter(std::string_view line, ParsedRow& row) {
        askedAboutDelimiter_ = true;
        switch (ReportWrongDelimiter(line)) {
        case LineAnswer::Leave:
            end_ = PassEnd::Left;
            return false;
        case LineAnswer::Retry:
            gConvertDecimals = true;
            rules_.format.convertDecimals = true;
            row = ParseLine(line, rules_.format);
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
        } else {
            ++counters_.invalidLines;
            if (askAboutBadLines_ && !AnswerBadLine(status, line)) {
                return false;
            }
        }
        if (runs_.Take(status) < kMostBadLines) {
            return true;
        }
        counters_.stoppedAtLine = lines_;
        counters_.invalidInRun = runs_.invalid;
        return false;
    }

    [[nodiscard]] bool AnswerBadLine(LineStatus status, std::string_view line) {
        askAboutBadLines_ = false;
        const LineAnswer answer =
            ReportBadLine(status, line, counters_.rowsRead - 1, rules_.format.neededColumns);
        if (answer == LineAnswer::GoOn) {
            return true;
        }
        end_ = answer == LineAnswer::Retry ? PassEnd::Retry : PassEnd::Left;
        return false;
    }

    Plot& plot_ = ActivePlot();
    LineRules rules_;
    LoadCounters& counters_;
    std::int64_t lines_ = 0;
    BadRuns runs_;
    bool askAboutBadLines_;
    bool headingIsDue_;
    bool inOwnHead_;
    bool askedAboutDelimiter_ = false;
    PassEnd end_ = PassEnd::Done;
};

/// The blocks of a large text after its first block, which has the head of the file and raises most
/// of the questions. They are read ahead by the rules then in force.
class Lead {
public:
    Lead(std::string_view text, std::size_t blockBytes)
        : text_(text)
        , blockBytes_(blockBytes)
        , isWorthwhile_(text.size() / kFewBlocks >= blockBytes) {}

    /// Starts reading at a position. Blocks that were read ahead are discarded.
    void Begin(std::size_t position, const LineRules& rules) {
        if (isWorthwhile_) {
            convertsDecimals_ = rules.format.convertDecimals;
            blocks_.emplace(text_.substr(position), rules, blockBytes_, ThreadsToUse());
        }
    }

    /// The block at a position, each position once and in order; nullptr for small texts.
    [[nodiscard]] const LineBlock* BlockAt(std::size_t position, const LineRules& rules) {
        // Only the answer about decimals can change the rules during a pass.
        if (blocks_ && convertsDecimals_ != rules.format.convertDecimals) {
            Begin(position, rules);
        }
        return blocks_ ? blocks_->Next() : nullptr;
    }

private:
    const std::string_view text_;
    const std::size_t blockBytes_;
    const bool isWorthwhile_;
    bool convertsDecimals_ = false;
    std::optional<BlockReader> blocks_;
};

} // namespace

PassEnd LoadDataLines(std::string_view text, const LinePass& pass, LoadCounters& counters,
                      std::string& heading) {
    counters = {};
    heading.clear();
    LineLoop loop(pass, text.starts_with(kOwnTextStart), counters);
    LoadProgress progress(text.size());
    const std::size_t blockBytes = gPlatform.textBlockBytes;
    std::size_t position = EndOfBlock(text, 0, blockBytes);
    Lead lead(text, blockBytes);
    lead.Begin(position, loop.Rules());
    Plot& plot = ActivePlot();
    const std::int32_t held = plot.record.NumLoadedData;
    if (const std::int32_t lines = CountLines(text); lines > kFewLines) {
        ReserveBlocks(plot, std::min(gPlatform.mostRows - held, lines) + held,
                      pass.target.secondaryFormat != 0);
    }
    bool goesOn = loop.TakeLines(text.substr(0, position), heading);
    while (goesOn && position < text.size()) {
        if (!progress.GoOn(position)) {
            counters.cancelled = true;
            break;
        }
        const std::size_t end = EndOfBlock(text, position, blockBytes);
        const LineBlock* block = lead.BlockAt(position, loop.Rules());
        if (block == nullptr || !loop.TakeBlock(*block)) {
            goesOn = loop.TakeLines(text.substr(position, end - position), heading);
        }
        position = end;
    }
    counters.rowsWithDecimals =
        CountRowsWithDecimals(plot.rows, held + 1, plot.record.NumLoadedData);
    return loop.End();
}

} // namespace quandrel
