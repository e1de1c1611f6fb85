// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as the head of a file with parameter lines. The items read must be within their
// ranges, and must be the same when they are written and read again.

#include "core/data_format.h"
#include "input/parameter_line.h"

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

void CheckRanges(const ParameterItems& items) {
    Require(!items.T || (*items.T >= kPlanes && *items.T <= kPolarLines));
    Require(!items.N || (*items.N >= kEqualArea && *items.N <= kRose));
    Require(!items.one || (*items.one >= kDirections && *items.one <= kOldFormats));
    Require(!items.two || (*items.two >= kNoSecondary && *items.two <= kHadeInPlane));
    Require(!items.F || items.F->size() <= 4 * kLongestItemName);
    Require(!items.D || items.D->find('\t') == std::string::npos);
}

void CheckFormat(const ParameterItems& items) {
    FormatSettings settings;
    settings.primary = kPrimaryPlane;
    settings = WithNewPlotItems(WithFormatItems(settings, items), items);
    Require(settings.primary >= kDirections && settings.primary <= kPrimaryLine);
    for (const std::int32_t column : settings.columns) {
        Require(column >= 0 && column <= kColumnSlots);
    }
}

void CheckWrittenAgain(const ParameterItems& items) {
    const ParameterItems again = ParseParameterLine(BuildParameterText(items, true));
    Require(again.T == items.T && again.N == items.N);
    Require(again.S == items.S && again.A == items.A && again.L == items.L && again.W == items.W);
    Require(again.one == items.one);
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const quandrel::ParameterItems& items :
         {quandrel::ReadParameterLines(text), quandrel::ParseParameterLine(text)}) {
        quandrel::CheckRanges(items);
        quandrel::CheckFormat(items);
        quandrel::CheckWrittenAgain(items);
    }
    return 0;
}
