// SPDX-License-Identifier: MIT

#include "input/suggest/text_sample.h"

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

} // namespace quandrel
