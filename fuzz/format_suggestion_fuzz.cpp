// SPDX-License-Identifier: MIT
//
// Suggests formats for any text: suggestions have probabilities, and read most of the rows. Then
// takes the text as a remembered format, which is written as it was read.

#include "input/suggest/format_suggestion.h"
#include "input/text_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quandrel;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    double last = 1;
    for (const FormatSuggestion& one : SuggestFormats(FirstLinesOfText(text, 500))) {
        if (!(one.probability > 0 && one.probability <= last) || one.reasons.empty()) {
            std::abort();
        }
        last = one.probability;
    }
    if (const auto remembered = RememberedIn(std::string(text))) {
        const std::string written = TextOfRemembered(*remembered);
        const auto again = RememberedIn(written);
        if (!again || TextOfRemembered(*again) != written) {
            std::abort();
        }
    }
    return 0;
}
