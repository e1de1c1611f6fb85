// SPDX-License-Identifier: MIT

#include "summary/summary_text.h"

#include "input/data_line.h"
#include "input/data_rows.h"
#include "input/text_file.h"
#include "summary/plain_pairs.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

namespace quandrel {

namespace {

constexpr std::size_t kPieceBytes = std::size_t{1} << 20;
constexpr std::string_view kMark8 = "\xEF\xBB\xBF";
constexpr const char* kUtf16 = "A text in UTF-16 cannot be summarised; save it as UTF-8.";
constexpr const char* kBinary = "It is not a text.";
constexpr const char* kLongLine = "A line is longer than a megabyte.";
constexpr const char* kStopped = "It was stopped.";

/// The end of the whole lines of a piece: behind its last line end. A CR at the very end may be one
/// half of a line end.
std::size_t EndOfLines(std::string_view piece) {
    const std::size_t feed = piece.rfind('\n');
    if (feed != std::string_view::npos) {
        return feed + 1;
    }
    const std::size_t last = piece.empty() ? 0 : piece.size() - 1;
    const std::size_t cr = piece.substr(0, last).rfind('\r');
    return cr == std::string_view::npos ? 0 : cr + 1;
}

/// Pieces of whole lines, for any thread.
class Pieces {
public:
    Pieces(const TextSource& source, const std::function<bool(std::uint64_t)>& onBytes)
        : source_(source)
        , onBytes_(onBytes) {}

    /// The next piece; false at the end, and after a failure. The first piece has the first lines.
    [[nodiscard]] bool Next(std::string& piece, bool& isFirst) {
        const std::lock_guard lock(mutex_);
        if (hasEnded_) {
            return false;
        }
        isFirst = isFirst_;
        piece = std::move(rest_);
        rest_.clear();
        const std::size_t begin = piece.size();
        piece.resize(begin + kPieceBytes);
        const Result<std::size_t> read = source_(std::span(piece).subspan(begin));
        if (!read) {
            return Fail(read.Error());
        }
        piece.resize(begin + *read);
        bytes_ += *read;
        hasEnded_ = *read < kPieceBytes;
        if (onBytes_ && !onBytes_(bytes_)) {
            return Fail(kStopped);
        }
        if (isFirst_ && !CheckStart(piece)) {
            return false;
        }
        isFirst_ = false;
        if (!hasEnded_) {
            const std::size_t end = EndOfLines(piece);
            if (end == 0) {
                return Fail(kLongLine);
            }
            rest_ = piece.substr(end);
            piece.resize(end);
        }
        return true;
    }

    [[nodiscard]] const std::string& Failure() const { return failure_; }

    /// Ends the reading of all threads.
    void Stop(const std::string& failure) {
        const std::lock_guard lock(mutex_);
        static_cast<void>(Fail(failure));
    }

private:
    bool Fail(const std::string& failure) {
        failure_ = failure_.empty() ? failure : failure_;
        hasEnded_ = true;
        return false;
    }

    bool CheckStart(std::string& piece) {
        if (piece.starts_with("\xFF\xFE") || piece.starts_with("\xFE\xFF")) {
            return Fail(kUtf16);
        }
        if (IsBinaryData(std::string_view(piece).substr(0, std::size_t{1} << 16U))) {
            return Fail(kBinary);
        }
        if (piece.starts_with(kMark8)) {
            piece.erase(0, kMark8.size());
        }
        return true;
    }

    const TextSource& source_;
    const std::function<bool(std::uint64_t)>& onBytes_;
    std::mutex mutex_;
    std::string rest_; ///< the beginning of a line
    std::uint64_t bytes_ = 0;
    bool isFirst_ = true;
    bool hasEnded_ = false;
    std::string failure_;
};

/// Adds the lines of pieces to a summary of its own.
class LineTaker {
public:
    LineTaker(const SummaryFormat& format, const SummaryKind& kind)
        : format_(format)
        , pairs_(format.line)
        , summary_(kind) {}

    void Take(std::string_view piece, bool hasHeading) {
        const char* at = piece.data();
        const char* const end = at + piece.size();
        headingIsAhead_ = hasHeading;
        const bool isPlain = pairs_.CanRead() && !format_.isWeighted;
        while (at != end) {
            Attitude attitude;
            int key = -1;
            if (isPlain && !headingIsAhead_ && pairs_.Read(at, end, attitude, key)) {
                ++counts_.read;
                if (key >= 0) {
                    summary_.AddWhole(key);
                } else {
                    summary_.Add({attitude, std::nullopt});
                }
                continue;
            }
            TakeLine(at, end);
        }
    }

    [[nodiscard]] RowSummary& Summary() {
        summary_.AddLines(counts_);
        counts_ = {};
        return summary_;
    }

private:
    /// Takes one line by the parser.
    void TakeLine(const char*& at, const char* end) {
        LineReader reader({at, static_cast<std::size_t>(EndOfLine(at, end) - at)});
        std::string_view line;
        static_cast<void>(reader.Next(line));
        at += reader.Position();
        ++counts_.read;
        const ParsedRow row = ParseLine(line, format_.line);
        const bool isBeside = row.status == LineStatus::Blank || row.status == LineStatus::Comment
                              || row.status == LineStatus::ParameterLine;
        if (isBeside || headingIsAhead_) {
            headingIsAhead_ = headingIsAhead_ && isBeside;
            ++counts_.blank;
        } else if (row.status == LineStatus::Row) {
            const KeptAttitude kept = KeptOf({row.dip, row.az}, summary_.IsPlane());
            summary_.Add({kept.Measured(), NumberOf(row)});
        } else {
            ++counts_.invalid;
        }
    }

    /// Behind the line end at or after a place.
    static const char* EndOfLine(const char* at, const char* end) {
        while (at != end && *at != '\n' && *at != '\r') {
            ++at;
        }
        if (at != end && *at++ == '\r' && at != end && *at == '\n') {
            ++at;
        }
        return at;
    }

    static std::optional<float> NumberOf(const ParsedRow& row) {
        const bool isNumber = row.numberStatus == NumberStatus::Good
                              || row.numberStatus == NumberStatus::WrongDelimiter;
        return isNumber ? std::optional(static_cast<float>(row.number)) : std::nullopt;
    }

    const SummaryFormat& format_;
    PlainPairs pairs_;
    RowSummary summary_;
    LineCounts counts_;
    bool headingIsAhead_ = false;
};

void TakePieces(Pieces& pieces, const SummaryFormat& format, LineTaker& taker) {
    try {
        std::string piece;
        bool isFirst = false;
        while (pieces.Next(piece, isFirst)) {
            taker.Take(piece, isFirst && format.hasHeading);
        }
    } catch (const std::bad_alloc&) {
        pieces.Stop("There is not enough memory.");
    }
}

} // namespace

std::string SummariseText(const TextSource& source, const SummaryFormat& format, unsigned threads,
                          RowSummary& summary, const std::function<bool(std::uint64_t)>& onBytes) {
    Pieces pieces(source, onBytes);
    std::vector<LineTaker> takers(std::max(threads, 1U), LineTaker(format, summary.Kind()));
    {
        std::vector<std::jthread> others;
        for (std::size_t i = 1; i < takers.size(); ++i) {
            others.emplace_back([&, i] { TakePieces(pieces, format, takers[i]); });
        }
        TakePieces(pieces, format, takers.front());
    }
    if (!pieces.Failure().empty()) {
        return pieces.Failure();
    }
    for (LineTaker& taker : takers) {
        if (std::string error = summary.Merge(taker.Summary()); !error.empty()) {
            return error;
        }
    }
    return {};
}

std::string SummariseFile(const std::string& path, const SummaryFormat& format, unsigned threads,
                          RowSummary& summary, const std::function<bool(std::uint64_t)>& onBytes) {
    const auto close = [](std::FILE* file) { std::fclose(file); };
    const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen(path.c_str(), "rb"), close);
    if (!file) {
        return "It cannot be opened.";
    }
    const TextSource source = [&file](std::span<char> into) -> Result<std::size_t> {
        const std::size_t count = std::fread(into.data(), 1, into.size(), file.get());
        if (std::ferror(file.get()) != 0) {
            return Failure{"It cannot be read."};
        }
        return count;
    };
    return SummariseText(source, format, threads, summary, onBytes);
}

} // namespace quandrel
