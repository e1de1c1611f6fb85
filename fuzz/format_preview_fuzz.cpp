// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as the first lines of a file in the format dialog: the first 16 bytes choose the
// format, the rest is the file. Splitting and checking must end, and the text in the preview must
// occur in the lines.

#include "input/format_suspicions.h"
#include "input/text_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {
namespace {

constexpr std::size_t kFormatBytes = 16;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

FormatChoice ChoiceFrom(const std::uint8_t* bytes) {
    constexpr const char* kDelimiters[] = {"\t", ",", ";", " ", ""};
    FormatChoice choice;
    choice.primary = static_cast<std::int16_t>(1 + bytes[0] % 3);
    choice.secondary = static_cast<std::int16_t>(bytes[1] % 6);
    choice.planeConvention = 1 + bytes[2] % 6;
    choice.isQuadrant = (bytes[3] & 1U) != 0;
    choice.lineAppended = (bytes[3] & 2U) != 0;
    choice.numericAppended = (bytes[3] & 4U) != 0;
    choice.nonNumericAppended = (bytes[3] & 8U) != 0;
    choice.columnHeadings = (bytes[3] & 16U) != 0;
    choice.hasOverlays = (bytes[3] & 32U) != 0;
    choice.delimiter = kDelimiters[bytes[4] % 5];
    for (std::size_t slot = 0; slot < choice.columns.size(); ++slot) {
        choice.columns[slot] = bytes[5 + slot] % 40;
    }
    return choice;
}

void Check(const std::vector<std::string>& lines, const FormatChoice& choice) {
    const FormatPreview preview = SplitPreview(lines, choice);
    Require(preview.lines.size() <= lines.size());
    for (const PreviewLine& line : preview.lines) {
        Require(!line.cells.empty() || line.line.empty());
    }
    for (const Doubt doubt : {Doubt::Misfits, Doubt::All}) {
        for (const std::string& reason : FormatMisfits(choice, preview, doubt)) {
            Require(!reason.empty());
        }
    }
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quandrel;
    if (size < kFormatBytes) {
        return 0;
    }
    const FormatChoice choice = ChoiceFrom(data);
    const std::string text = DecodeText(
        std::string(reinterpret_cast<const char*>(data) + kFormatBytes, size - kFormatBytes));
    LineReader reader(text);
    std::vector<std::string> lines;
    for (std::string_view line; lines.size() < kPreviewLines && reader.Next(line);) {
        lines.emplace_back(line);
    }
    Check(lines, choice);
    return 0;
}
