// SPDX-License-Identifier: MIT
//
// Any bytes as a text file: decoded, taken apart into lines, its parameter lines applied, its lines
// parsed.

#include "input/data_line.h"
#include "input/parameter_line.h"
#include "input/text_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quandrel {
namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

LineFormat FormatOf(std::string_view text) {
    FormatSettings settings;
    settings.columns = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    settings.delimiter = "\t";
    settings.primary = kPrimaryPlane;
    const ParameterItems items = ReadParameterLines(text);
    settings = WithNewPlotItems(WithFormatItems(settings, items), items);
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
    const LineFormat format = FormatOf(text);
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

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    (void)quandrel::IsBinaryData(bytes);
    (void)quandrel::IsBinaryPlotSignature(bytes);
    const std::string text = quandrel::DecodeText(bytes);
    (void)quandrel::LooksLikeWorkspace(std::string_view(text).substr(0, text.find('\n')));
    // A text that was decoded is UTF-8 and stays as it is; a mark behind the mark is cut off, too.
    if (text.substr(0, 3) != "\xef\xbb\xbf") {
        quandrel::Require(quandrel::DecodeText(text) == text);
    }
    quandrel::CheckLines(text);
    return 0;
}
