// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as the file of a style. A style that is read is within its limits, and is the
// same when it is written and read again.

#include "core/figure_style_text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace quandrel {
namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void CheckStyle(const FigureStyle& style) {
    Require(IsValid(style));
    for (const std::int64_t rows : {0, 1, 1000, 1'000'000}) {
        const double size = SymbolSizeOf(style.symbols, rows);
        Require(size >= 0 && size <= 100);
        const double opacity = SymbolOpacityOf(style.symbols, rows);
        Require(opacity > 0 && opacity <= 1);
    }
    const std::string text = TextOfStyle(style);
    if (text.size() <= kLongestStyleText) {
        const Result<FigureStyle> again = StyleOfText(text);
        Require(static_cast<bool>(again) && TextOfStyle(*again) == text);
    }
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto style =
        quandrel::StyleOfText(std::string_view(reinterpret_cast<const char*>(data), size));
    if (style) {
        quandrel::CheckStyle(*style);
    }
    return 0;
}
