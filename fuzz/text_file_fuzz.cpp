// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as a text file: decoded, split into lines, its parameter lines applied, its lines
// parsed; then loaded by one thread and by two, with the same rows.

#include "core/plot_store.h"
#include "input/data_line.h"
#include "input/line_loop.h"
#include "input/parameter_line.h"
#include "input/text_file.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/scripted_prompts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <tuple>

namespace quandrel {
namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

FormatSettings SettingsOf(std::string_view text) {
    FormatSettings settings;
    settings.columns = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    settings.delimiter = "\t";
    settings.primary = kPrimaryPlane;
    const ParameterItems items = ReadParameterLines(text);
    return WithNewPlotItems(WithFormatItems(settings, items), items);
}

LineFormat FormatOf(const FormatSettings& settings) {
    LineFormat format;
    std::int16_t convention = 0;
    DecodeConventions(settings.conventions, convention, format.lineIsTrendFirst, format.isQuadrant);
    format.planeConvention = convention;
    format.primary = settings.primary;
    format.secondary = settings.secondary;
    format.slots = settings.columns;
    format.wantLine = settings.lineAppended;
    format.wantNumber = settings.numericAppended;
    format.wantText = settings.nonNumericAppended;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

void CheckLines(std::string_view text) {
    const LineFormat format = FormatOf(SettingsOf(text));
    LineReader reader(text);
    std::size_t read = 0;
    for (std::string_view line; reader.Next(line);) {
        Require(line.find_first_of("\r\n") == std::string_view::npos);
        read += line.size();
        (void)ParseLine(line, format);
    }
    std::size_t lineEnds = 0;
    for (const char c : text) {
        lineEnds += c == '\r' || c == '\n' ? 1 : 0;
    }
    Require(read + lineEnds == text.size());
}

/// Empties a slot for the rows of a format.
Plot& EmptyPlot(int slot, const FormatSettings& settings) {
    gActivePlot = slot;
    Plot& plot = ActivePlot();
    ClearRows(plot);
    ResetAppendedRange();
    plot.record.PrimaryFormat = settings.primary;
    plot.record.SecondaryFormat = settings.secondary;
    const auto flag = [](bool isSet) { return isSet ? kTrue : std::int16_t{0}; };
    plot.record.HasAppendedLine = flag(settings.lineAppended);
    plot.record.HasAppendedNumeric = flag(settings.numericAppended);
    plot.record.HasAppendedText = flag(settings.nonNumericAppended);
    plot.record.DataKind = settings.plotDataKind;
    return plot;
}

/// Loads a text into the active plot with this many threads, and answers all questions alike.
LoadCounters Load(std::string_view text, const FormatSettings& settings, unsigned threads) {
    ScriptedPrompts prompts(ScriptedPrompts::Mode::Batch);
    for (const Button answer : {Button::Ignore, Button::Retry, Button::Retry}) {
        prompts.QueueAnswer(answer);
    }
    gPlatform.prompts = &prompts;
    gPlatform.threads = threads;
    LinePass pass;
    pass.format = FormatOf(settings);
    pass.target.secondaryFormat = settings.secondary;
    LoadCounters counters;
    std::string heading;
    gConvertDecimals = false;
    (void)LoadDataLines(text, pass, counters, heading);
    return counters;
}

auto CountsOf(const LoadCounters& counters) {
    return std::tuple(counters.rowsRead, counters.rowsValid, counters.blankLines,
                      counters.headLines, counters.invalidLines, counters.badNumeric,
                      counters.badText, counters.badLine, counters.upwardLines,
                      counters.stoppedAtLine, counters.invalidInRun);
}

void RequireSameRow(const Plot& one, const Plot& other, std::int32_t row) {
    const auto cells = [row](const Plot& plot) {
        const PlotRows& rows = plot.rows;
        const PlottedRow line = plot.table[static_cast<std::size_t>(row) - 1];
        return std::tuple(rows.dip(row), rows.azimuth(row), rows.symbol(row), rows.order(row),
                          rows.dip2(row), rows.azimuth2(row), rows.lineDip(row),
                          rows.lineAzimuth(row), rows.number(row), rows.text(row), line.index,
                          line.x, line.y, line.plunge, line.trend);
    };
    Require(cells(one) == cells(other));
}

/// Two threads must load the same rows as one.
void CheckLoads(std::string_view text) {
    static QuietStatusLine status;
    gPlatform.status = &status;
    if (gPlatform.textBlockBytes != 7) {
        gPlatform.textBlockBytes = 7; // most texts of a fuzzer are short
        gMaxPlots = 2;
        MakeStoreTables();
        Require(FindFreePlotSlot() == 1 && FindFreePlotSlot() == 2);
    }
    const FormatSettings settings = SettingsOf(text);
    const Plot& one = EmptyPlot(1, settings);
    const LoadCounters ofOne = Load(text, settings, 1);
    const Plot& two = EmptyPlot(2, settings);
    const LoadCounters ofTwo = Load(text, settings, 2);
    Require(CountsOf(ofOne) == CountsOf(ofTwo));
    Require(one.record.NumLoadedData == two.record.NumLoadedData);
    Require(one.table.size() == two.table.size());
    for (std::int32_t row = 1; row <= one.record.NumLoadedData; ++row) {
        RequireSameRow(one, two, row);
    }
    Require(one.rows.errorLines == two.rows.errorLines);
    Require(one.record.AppendedMin == two.record.AppendedMin);
    Require(one.record.AppendedMax == two.record.AppendedMax);
    Require(one.record.DistinctValues == two.record.DistinctValues);
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    (void)quandrel::IsBinaryData(bytes);
    (void)quandrel::IsBinaryPlotSignature(bytes);
    const std::string text = quandrel::DecodeText(bytes);
    (void)quandrel::LooksLikeWorkspace(std::string_view(text).substr(0, text.find('\n')));
    // A decoded text is UTF-8 and stays unchanged; a second mark is cut off, too.
    if (text.substr(0, 3) != "\xef\xbb\xbf") {
        quandrel::Require(quandrel::DecodeText(text) == text);
    }
    quandrel::CheckLines(text);
    quandrel::CheckLoads(text);
    return 0;
}
