// SPDX-License-Identifier: MIT
//
// The shape of every symbol, in small and large sizes, at its place. Each code has a reference file
// of its own.

#include "core/settings.h"
#include "golden/drawing_text.h"
#include "golden/golden_file.h"
#include "golden/script_run.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "stereo/symbols.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace quandrel {
namespace {

constexpr int kLastCodeTried = 1000;

std::vector<int> AllSymbols() {
    std::vector<int> codes = {kNoSymbol, kPixelSymbol};
    for (int code = kFirstTableSymbol; code <= kLastTableSymbol; ++code) {
        codes.push_back(code);
    }
    codes.insert(codes.end(), {kSlipArrowSymbol, kSlipEndSymbol, kSlipUpEndSymbol, kSlipLineSymbol,
                               kLargeCircleSymbol});
    return codes;
}

/// A code with two digits at least.
std::string DigitsOf(int code) {
    return (code < 10 ? "0" : "") + std::to_string(code);
}

class Symbols : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        gPlatform = {};
        gPlatform.settings = &settings_;
        LoadSettings();
    }

    void TearDown() override { gPlatform = {}; }

private:
    MemorySettingsStore settings_;
};

TEST_P(Symbols, AreAsTheReferenceHasThem) {
    const int code = GetParam();
    RecordingSurface surface(220, 220);
    surface.SetUserScale(kPlotScale);
    for (const int size : {0, 1, 3, 9}) {
        const auto x = static_cast<std::int16_t>(200 * size - 900);
        DrawSymbol(surface, x, 300, size, code, size, 0);
        DrawSymbol(surface, x, -300, 24 - size, code, size, 2.1);
    }
    ExpectGolden("symbols/" + DigitsOf(code),
                 TextOfDrawing(DrawingOf("symbol " + std::to_string(code), surface)));
}

INSTANTIATE_TEST_SUITE_P(Code, Symbols, ::testing::ValuesIn(AllSymbols()),
                         [](const auto& parameter) { return DigitsOf(parameter.param); });

TEST(SymbolsFolder, HoldsAFileForEachSymbolAndNoOthers) {
    std::set<std::string> expected;
    for (const int code : AllSymbols()) {
        expected.insert(DigitsOf(code));
    }
    const std::vector<std::string> names = NamesIn(GoldenFolder() / "symbols");
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()), expected);
}

TEST(SymbolCodes, OutsideTheListHaveNoShape) {
    const std::vector<int> codes = AllSymbols();
    for (int code = -1; code <= kLastCodeTried; ++code) {
        const bool isListed = std::find(codes.begin(), codes.end(), code) != codes.end();
        EXPECT_EQ(!GlyphOfSymbol(code, 3, 0).parts.empty(), isListed && code != kNoSymbol) << code;
    }
}

} // namespace
} // namespace quandrel
