// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "core/plot_store.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(DataKindOfSet, PlanesArePlanesAndPolarLinesStayPolar) {
    for (const std::int16_t former : {kPlanes, kLines, kPolarLines}) {
        EXPECT_EQ(DataKindOfSet(true, former), kPlanes) << former;
    }
    EXPECT_EQ(DataKindOfSet(false, kPlanes), kLines);
    EXPECT_EQ(DataKindOfSet(false, kLines), kLines);
    EXPECT_EQ(DataKindOfSet(false, kPolarLines), kPolarLines);
}

TEST(DataFormat, ComesBackAsItWas) {
    const FormatSettings former = gSettings.format;
    gConventions = -14;
    gFileDelimiter = ";";
    gFileColumnSettings[kSlotText] = 77;
    gPlotDataKind = kPolarLines;
    gSettings.format.hasHeadings = !former.hasHeadings;
    gSettings.format = former;
    EXPECT_EQ(gConventions, former.conventions);
    EXPECT_EQ(gFileDelimiter, former.delimiter);
    EXPECT_EQ(gFileColumnSettings, former.columns);
    EXPECT_EQ(gPlotDataKind, former.plotDataKind);
    EXPECT_EQ(gSettings.format.hasHeadings, former.hasHeadings);
}

} // namespace
} // namespace quandrel
