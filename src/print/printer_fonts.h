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
        : screen_(gPlotFonts) {
        gPlotFonts[kFabricFont] = gPlotFonts[kPrintFabricFont];
        gPlotFonts[kLegendFont] = gPlotFonts[kPrintLegendFont];
        gPlotFonts[kStatsFont] = gPlotFonts[kPrintStatsFont];
        gPlotFonts[kGeneralFont] = gPlotFonts[kPrintPlotFont];
    }

    ~PrinterFonts() { gPlotFonts = screen_; }

    PrinterFonts(const PrinterFonts&) = delete;
    PrinterFonts& operator=(const PrinterFonts&) = delete;

private:
    std::array<PlotFont, 10> screen_;
};

} // namespace quandrel
