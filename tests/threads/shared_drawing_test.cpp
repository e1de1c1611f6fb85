// SPDX-License-Identifier: MIT
//
// Two threads draw two plots at once with the results of one after the other.

#include "support/slotless_plots.h"
#include "support/test_platform.h"

#include <array>
#include <thread>

namespace quandrel {
namespace {

constexpr int kGridSize = 30;

class SharedDrawing : public EngineTest {
protected:
    static Plot WorkedOut(std::int16_t kind, std::int16_t mode, std::int32_t seed) {
        Plot plot = SlotlessPlot(kind, mode, seed);
        WorkOutPlot(plot, {ReplotCause::Rows, gSettings.styles, Formulas::Own, kGridSize});
        return plot;
    }

    /// Draws both at once, several times.
    static void ExpectSameAtOnce(const Plot& first, const Plot& second) {
        constexpr int kTimes = 3;
        const Styles bright = [] {
            Styles styles = gSettings.styles;
            styles.plotAxesStyle = 3;
            styles.showIsolatedPts = 1;
            return styles;
        }();
        const std::array<std::string, 2> expected = {DrawnText(first, gSettings.styles),
                                                     DrawnText(second, bright)};
        std::array<std::string, 2> drawn;
        const auto draw = [&drawn](const Plot& plot, const Styles& styles, std::size_t place) {
            for (int i = 0; i < kTimes; ++i) {
                drawn[place] = DrawnText(plot, styles);
            }
        };
        std::thread other(draw, std::cref(second), std::cref(bright), 1);
        draw(first, gSettings.styles, 0);
        other.join();
        EXPECT_EQ(drawn[0], expected[0]);
        EXPECT_EQ(drawn[1], expected[1]);
        EXPECT_NE(drawn[0], drawn[1]);
    }
};

TEST_F(SharedDrawing, NetsOfAllModesAreDrawnAtOnce) {
    for (std::int16_t mode = kGreatCircles; mode <= kContoursAndGrid; ++mode) {
        SCOPED_TRACE(mode);
        ExpectSameAtOnce(WorkedOut(kEqualArea, mode, 3), WorkedOut(kEqualAngle, mode, 8));
    }
}

TEST_F(SharedDrawing, NetsOfDifferentModesAreDrawnAtOnce) {
    ExpectSameAtOnce(WorkedOut(kEqualArea, kContoursAndGrid, 3),
                     WorkedOut(kEqualArea, kBetaIntersections, 4));
    ExpectSameAtOnce(WorkedOut(kEqualAngle, kGreatCircles, 5),
                     WorkedOut(kEqualArea, kPointDensitySymbols, 6));
}

TEST_F(SharedDrawing, PlotsThatNothingIsKeptForAreDrawnAtOnce) {
    ExpectSameAtOnce(SlotlessPlot(kEqualArea, kBetaIntersections, 3),
                     SlotlessPlot(kEqualAngle, kBetaIntersections, 4));
}

TEST_F(SharedDrawing, ClassesOfNumbersAreDrawnAtOnce) {
    const auto classed = [](std::int16_t type, std::int32_t seed) {
        Plot plot = SlotlessPlot(kEqualArea, kPointSymbols, seed);
        plot.record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
        plot.record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
        plot.record.ClassTable[kLowestRow + 1][kNumberClasses] = 4.0;
        plot.record.ClassTable[kTopRow][kNumberClasses] = 9.0;
        plot.record.ClassMode = 1;
        plot.record.NumClasses = type;
        WorkOutPlot(plot, {ReplotCause::Rows, gSettings.styles, Formulas::Own, kGridSize});
        return plot;
    };
    ExpectSameAtOnce(classed(3, 3), classed(4, 4));
}

TEST_F(SharedDrawing, ARoseAndANetAreDrawnAtOnce) {
    const Plot rose = WorkedOut(kRose, kPointSymbols, 3);
    ExpectSameAtOnce(rose, WorkedOut(kEqualArea, kContoursAndGrid, 4));
    ExpectSameAtOnce(rose, WorkedOut(kRose, kPointSymbols, 5));
    EXPECT_NE(DrawnText(rose, gSettings.styles).find("wedge"), std::string::npos);
}

} // namespace
} // namespace quandrel
