// SPDX-License-Identifier: MIT

#include "input/suggest/text_sample.h"

#include "input/data_line.h"

#include <algorithm>

namespace quandrel {

std::vector<std::string> SampleOfText(std::span<const std::string> lines) {
    std::vector<std::string> sample(
        lines.begin(),
        lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), kSuggestedFrom)));
    const std::size_t rest = lines.size() - sample.size();
    const std::size_t step = std::max<std::size_t>(rest / kSuggestedFrom, 1);
    for (std::size_t i = sample.size(); i < lines.size(); i += step) {
        sample.push_back(lines[i]);
    }
    return sample;
}

bool StatesItsFormat(std::span<const std::string> lines) {
    return std::ranges::any_of(lines, [](const std::string& line) {
        return line.starts_with(";Quandrel") || (line.starts_with("/") && !line.starts_with("//"));
    });
}

double ShareRead(std::span<const std::string> lines, const FormatChoice& choice) {
    LineFormat format = LineFormatOf(choice);
    format.convertDecimals = true;
    std::size_t rows = 0;
    std::size_t read = 0;
    bool headingIsDue = choice.columnHeadings;
    for (const std::string& line : lines) {
        const LineStatus status = ParseLine(line, format).status;
        if (headingIsDue && !IsOfHead(status)) {
            headingIsDue = false; // the heading, or a title that is taken for it
            continue;
        }
        const bool isData = status == LineStatus::Row || status >= LineStatus::TooFewItems;
        rows += isData ? 1U : 0U;
        read += status == LineStatus::Row ? 1U : 0U;
    }
    return rows > 0 ? static_cast<double>(read) / static_cast<double>(rows) : 0;
}

} // namespace quandrel
