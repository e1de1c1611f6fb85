// SPDX-License-Identifier: MIT
//
// The fonts of the printer in the place of those of the screen.

#pragma once

#include "core/settings.h"

#include <array>

namespace quandrel {

/// For the length of a block all drawing finds the printer's fonts where it looks for the screen's:
/// those of the fabric label, the legend, the statistics and the plot area.
class PrinterFonts {
public:
    PrinterFonts()
        : screen_(gSettings.styles.fonts) {
        gSettings.styles.fonts[kFabricFont] = gSettings.styles.fonts[kPrintFabricFont];
        gSettings.styles.fonts[kLegendFont] = gSettings.styles.fonts[kPrintLegendFont];
        gSettings.styles.fonts[kStatsFont] = gSettings.styles.fonts[kPrintStatsFont];
        gSettings.styles.fonts[kGeneralFont] = gSettings.styles.fonts[kPrintPlotFont];
    }

    ~PrinterFonts() { gSettings.styles.fonts = screen_; }

    PrinterFonts(const PrinterFonts&) = delete;
    PrinterFonts& operator=(const PrinterFonts&) = delete;

private:
    std::array<PlotFont, 10> screen_;
};

} // namespace quandrel
