// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as the file of a figure sheet. A sheet that is read is within its limits, has a
// place for each panel, and is the same when it is written and read again.

#include "sheet/panel_grid.h"
#include "sheet/sheet_text.h"

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

void CheckSheet(const FigureSheet& sheet) {
    Require(FaultOf(sheet).empty());
    Require(GridOfPanels(sheet).places.size() == sheet.panels.size());
    const std::string text = TextOfSheet(sheet, "/figures");
    const Result<FigureSheet> again = SheetOfText(text, "/figures");
    Require(static_cast<bool>(again) && TextOfSheet(*again, "/figures") == text);
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto sheet = quandrel::SheetOfText(
        std::string_view(reinterpret_cast<const char*>(data), size), "/figures");
    if (sheet) {
        quandrel::CheckSheet(*sheet);
    }
    return 0;
}
