// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/settings.h"
#include "stereo/row_drawing.h"
#include "stereo/symbols.h"
#include "stereo/window_drawing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>

namespace quandrel {
namespace {

constexpr SymbolCode kNoClass = 0;

class RowDrawing : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        NewPlot();
        FormOf(gActivePlot).PlotSurface().SetUserScale(kPlotScale);
        FormOf(gActivePlot).PlotSurface().Clear(kWhite);
    }

    static std::vector<Colour> ColoursDrawn() {
        std::vector<Colour> colours;
        for (const DrawOperation& operation : DrawnOn(Form(gActivePlot).Plot())) {
            colours.push_back(operation.colour);
        }
        return colours;
    }
};

TEST_F(RowDrawing, HiddenRowsHaveNoGreatCircle) {
    AddRow(30, 120, kNoClass);
    AddRow(40, 200, MakeSymbolCode(8, kNoSymbol, 3));
    AddRow(50, 300, MakeSymbolCode(7, 2, 3));
    DrawRowGreatCircles(ActivePlot(), WindowDrawing(gActivePlot), {1, 3});
    const std::vector<Colour> colours = ColoursDrawn();
    ASSERT_FALSE(colours.empty());
    EXPECT_TRUE(std::ranges::all_of(colours, [](Colour c) { return c == TableColour(7); }));
}

TEST_F(RowDrawing, HiddenRowsHaveNoSymbolInAnyStyle) {
    AddRow(30, 120, kNoClass);
    AddRow(40, 200, MakeSymbolCode(8, kNoSymbol, 3));
    DrawRowSymbols(ActivePlot(), WindowDrawing(gActivePlot), {1, 2});
    DrawRowSymbols(ActivePlot(), WindowDrawing(gActivePlot), {1, 2}, RowStyle::DensityBand);
    EXPECT_TRUE(ColoursDrawn().empty());
}

TEST_F(RowDrawing, HiddenRowsStillMeetOtherPlanes) {
    AddRow(30, 120, kNoClass);
    AddRow(40, 200, kNoClass);
    AddRow(50, 300);
    AddRow(kErrorRow, 0);
    EXPECT_EQ(DrawBetaIntersections(), 3) << "three planes, none parallel to another";
}

TEST_F(RowDrawing, AGridOfValuesStandsInThePlaceOfRows) {
    PlotRecord& record = ActiveRecord();
    constexpr std::int16_t kOtherModes[] = {0, 2, 3};
    for (const std::int16_t mode : kOtherModes) {
        record.ClassMode = mode;
        EXPECT_TRUE(ShowsMainRows(record)) << mode;
    }
    record.ClassMode = 1;
    const bool shown[] = {true, false, false, false, true};
    for (std::int16_t type = 0; type <= 4; ++type) {
        record.NumClasses = type;
        EXPECT_EQ(ShowsMainRows(record), shown[type]) << type;
    }
}

} // namespace
} // namespace quandrel
