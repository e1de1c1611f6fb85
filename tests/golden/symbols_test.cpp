// SPDX-License-Identifier: MIT
//
// The shape of every symbol, in small and large sizes, at its place.

#include "core/settings.h"
#include "golden/drawing_text.h"
#include "golden/golden_file.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "stereo/symbols.h"

#include <gtest/gtest.h>

#include <vector>

namespace quandrel {
namespace {

std::vector<int> AllSymbols() {
    std::vector<int> codes;
    for (int code = kNoSymbol; code <= 17; ++code) {
        codes.push_back(code);
    }
    codes.insert(codes.end(), {kSlipArrowSymbol, kSlipEndSymbol, kSlipUpEndSymbol, kSlipLineSymbol,
                               kLargeCircleSymbol});
    return codes;
}

TEST(Symbols, AreAsTheReferenceHasThem) {
    MemorySettingsStore settings;
    gPlatform = {};
    gPlatform.settings = &settings;
    LoadSettings();
    std::string text;
    for (const int code : AllSymbols()) {
        RecordingSurface surface(220, 220);
        surface.SetUserScale(kPlotScale);
        for (const int size : {0, 1, 3, 9}) {
            const auto x = static_cast<std::int16_t>(200 * size - 900);
            DrawSymbol(surface, x, 300, size, code, size, 0);
            DrawSymbol(surface, x, -300, 24 - size, code, size, 2.1);
        }
        text += TextOfDrawing(DrawingOf("symbol " + std::to_string(code), surface));
    }
    gPlatform = {};
    ExpectGolden("symbols", text);
}

} // namespace
} // namespace quandrel
