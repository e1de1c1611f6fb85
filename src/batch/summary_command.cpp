// SPDX-License-Identifier: MIT

#include "batch/summary_command.h"

#include "batch/command_line.h"
#include "batch/format_command.h"
#include "batch/script.h"
#include "core/atomic_file.h"
#include "core/plot_store.h"
#include "core/settings_value.h"
#include "input/format_model.h"
#include "input/parameter_line.h"
#include "input/suggest/format_suggestion.h"
#include "input/suggest/suggestion_texts.h"
#include "input/text_file.h"
#include "platform/platform.h"
#include "summary/summary_file.h"
#include "summary/summary_results.h"
#include "summary/summary_text.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <ostream>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kProgramName = "quandrel-batch: ";

int Fail(std::ostream& log, const std::string& error) {
    log << kProgramName << error << '\n';
    return kBatchFailed;
}

/// The words of a format as the arguments of its command.
Result<std::vector<Argument>> ArgumentsOf(const std::string& words) {
    const Result<std::vector<Command>> commands =
        ParseScript("format " + words, CommandBreak::SemicolonToo);
    if (!commands) {
        return Failure{commands.Error()};
    }
    if (commands->size() != 1) {
        return Failure{"--format: one format is wanted"};
    }
    return commands->front().arguments;
}

SummaryFormat FormatInForce(const StatedFormat& stated) {
    return {LineFormatFromGlobals(false), gSettings.format.hasHeadings,
            gSettings.format.numericAppended && stated.frequencyColumn};
}

/// The format that the first lines of a file state, or the sure suggestion for them.
Result<SummaryFormat> FormatOfFile(const std::string& path, const Settings& start) {
    const Result<std::vector<std::string>> lines = FirstLines(path, kSuggestedFrom);
    if (!lines) {
        return Failure{lines.Error()};
    }
    gSettings.format = start.format;
    StatedFormat stated;
    if (StatesItsFormat(*lines)) {
        std::string head;
        for (const std::string& line : *lines) {
            head += line + '\n';
        }
        const ParameterItems items = ReadParameterLines(head);
        ApplyFormatItems(items);
        ApplyNewPlotItems(items);
        return FormatInForce(stated);
    }
    const std::vector<FormatSuggestion> suggestions = SuggestFormats(*lines);
    if (suggestions.empty() || suggestions.front().probability < kSureEnough) {
        return Failure{TextOfDoubt(suggestions)};
    }
    const FormatChoice& choice = suggestions.front().choice;
    gDecimalIsComma = suggestions.front().decimalIsComma;
    return SummaryFormat{LineFormatOf(choice), choice.columnHeadings,
                         choice.numericAppended && choice.numberIsFrequency};
}

/// The formats of files: one that is stated for all, or that of each.
class FileFormats {
public:
    /// @return empty, or what is wrong with the words
    [[nodiscard]] std::string State(const std::string& words) {
        const Result<std::vector<Argument>> arguments =
            ArgumentsOf(words.empty() ? kSuggestedFormat : words);
        if (!arguments) {
            return arguments.Error();
        }
        StatedFormat stated;
        std::string error = ApplyFormatArguments(*arguments, start_.format, stated);
        if (error.empty() && !stated.isSuggested) {
            stated_ = FormatInForce(stated);
        }
        return error;
    }

    [[nodiscard]] Result<SummaryFormat> Of(const std::string& path) const {
        return stated_ ? Result<SummaryFormat>(*stated_) : FormatOfFile(path, start_);
    }

private:
    Settings start_;
    std::optional<SummaryFormat> stated_;
};

std::string Write(const RowSummary& summary, const std::string& path) {
    const std::string error = WriteFileAtomically(path, SummaryBytes(summary));
    return error.empty() ? error : "'" + path + "': " + error;
}

Json LineJson(const std::optional<Direction>& direction, bool isDirected) {
    if (!direction) {
        return nullptr;
    }
    double plunge = 0;
    double trend = 0;
    (isDirected ? DirectedLine : AxisToLine)(*direction, plunge, trend);
    return {{"plunge", RadToDeg(plunge)}, {"trend", RadToDeg(trend)}};
}

Json FabricJson(const SummaryFabric& fabric) {
    Json axes = Json::array();
    for (const Direction& axis : fabric.axes.axes) {
        axes.push_back(LineJson(axis, false));
    }
    return {{"count", fabric.count},
            {"eigenvalues", fabric.axes.values},
            {"axes", axes},
            {"meanOfAxes", LineJson(fabric.meanOfAxes, false)},
            {"lengthOfAxes", fabric.lengthOfAxes},
            {"mean", LineJson(fabric.mean, true)},
            {"length", fabric.length},
            {"kappa", fabric.kappa ? Json(*fabric.kappa) : Json(nullptr)}};
}

Json CircularJson(const SummaryCircular& circular) {
    return {{"mean", circular.mean ? Json(RadToDeg(*circular.mean)) : Json(nullptr)},
            {"length", circular.length}};
}

Json NumbersJson(const NumberSummary& numbers) {
    Json bins = Json::array();
    for (const HistogramBin& bin : HistogramOf(numbers)) {
        bins.push_back({bin.first, bin.end, bin.count});
    }
    return {{"count", numbers.count},
            {"least", numbers.least},
            {"greatest", numbers.greatest},
            {"sum", numbers.sum.Value()},
            {"sumOfSquares", numbers.squares.Value()},
            {"histogram", bins}};
}

Json JsonOf(const RowSummary& summary) {
    constexpr const char* kRows[] = {"", "directions", "planes", "lines"};
    const LineCounts& lines = summary.Lines();
    Json json = {
        {"rows", summary.Rows()},
        {"of", kRows[static_cast<std::size_t>(summary.Kind().primary)]},
        {"weighted", summary.Kind().isWeighted},
        {"rowsWithDecimals", summary.RowsWithDecimals()},
        {"lines", {{"read", lines.read}, {"blank", lines.blank}, {"invalid", lines.invalid}}},
        {"cells", CellsOf(summary).size()}};
    if (const auto fabric = FabricOf(summary)) {
        json["fabric"] = FabricJson(*fabric);
        json["axesOfAzimuths"] = CircularJson(*CircularOf(summary, true));
        json["directionsOfAzimuths"] = CircularJson(*CircularOf(summary, false));
    }
    if (summary.Numbers().count > 0) {
        json["number"] = NumbersJson(summary.Numbers());
    }
    return json;
}

} // namespace

int SummariseFiles(const SummaryOptions& options, std::ostream& out, std::ostream& log) {
    FileFormats formats;
    if (const std::string error = formats.State(options.format); !error.empty()) {
        return Fail(log, error);
    }
    std::optional<RowSummary> all;
    for (const std::string& path : options.files) {
        const auto tell = [&](const std::string& error) {
            return Fail(log, "'" + path + "': " + error);
        };
        const Result<SummaryFormat> format = formats.Of(path);
        if (!format) {
            return tell(format.Error());
        }
        RowSummary summary({format->line.primary, format->isWeighted});
        std::string error = SummariseFile(path, *format, ThreadsToUse(), summary);
        if (error.empty() && all) {
            error = all->Merge(summary);
        }
        if (!error.empty()) {
            return tell(error);
        }
        if (!all) {
            all = std::move(summary);
        }
    }
    if (const std::string error = Write(*all, options.output); !error.empty()) {
        return Fail(log, error);
    }
    const LineCounts& lines = all->Lines();
    out << all->Rows() << " rows of " << lines.read << " lines; " << lines.invalid
        << " lines could not be read\n";
    return kBatchDone;
}

int MergeSummaries(const SummaryOptions& options, std::ostream& log) {
    std::optional<RowSummary> all;
    for (const std::string& path : options.files) {
        Result<RowSummary> summary = ReadSummaryFile(path);
        const std::string error = !summary ? summary.Error()
                                  : all    ? all->Merge(*summary)
                                           : std::string();
        if (!error.empty()) {
            return Fail(log, "'" + path + "': " + error);
        }
        if (!all) {
            all = std::move(*summary);
        }
    }
    const std::string error = Write(*all, options.output);
    return error.empty() ? kBatchDone : Fail(log, error);
}

int PrintSummary(const SummaryOptions& options, std::ostream& out, std::ostream& log) {
    const Result<RowSummary> summary = ReadSummaryFile(options.files.front());
    if (!summary) {
        return Fail(log, "'" + options.files.front() + "': " + summary.Error());
    }
    out << JsonOf(*summary).dump() << '\n';
    return kBatchDone;
}

} // namespace quandrel
