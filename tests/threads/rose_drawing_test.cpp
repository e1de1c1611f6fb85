// SPDX-License-Identifier: MIT
//
// Roses that threads draw at once, each onto a surface of its own.

#include "platform/scripted/recording_surface.h"
#include "rose/draw_rose.h"
#include "rose/rose_plot.h"
#include "support/test_platform.h"

#include <thread>

namespace quandrel {
namespace {

class RosesOfThreads : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        styles = gSettings.styles;
        styles.showCompassPoints = true;
    }

    /// A rose in no slot, of rows with numbers and texts.
    static void MakeRose(Plot& plot, std::int16_t type, std::int16_t dataKind) {
        constexpr std::int32_t kRows = 60;
        plot.record = NewPlotRecord();
        plot.record.PlotKind = kRose;
        plot.record.DataKind = dataKind;
        plot.record.RoseType = type;
        plot.record.RoseSectorSize = 10;
        plot.record.RoseDisplay6 = plot.record.RoseDisplay7 = plot.record.RoseDisplay8 = kTrue;
        plot.record.HasAppendedNumeric = plot.record.HasAppendedText = kTrue;
        plot.record.NumLoadedData = plot.record.NumData = plot.record.NumValidData = kRows;
        plot.rows.dip.Grow(kRows);
        plot.rows.azimuth.Grow(kRows);
        plot.rows.number.Grow(kRows);
        plot.rows.text.Grow(kRows);
        for (std::int32_t row = 1; row <= kRows; ++row) {
            plot.rows.azimuth.At(row) = (dataKind * 40 + row * row) % 170;
            plot.rows.number.At(row) = static_cast<float>(row % 7 + 1);
            plot.rows.text.Set(row, std::to_string(row % 5 + 1));
        }
        WorkOutRose(plot, ReplotCause::Rows, Formulas::Own);
    }

    /// What a drawing of a rose leaves on a surface.
    [[nodiscard]] std::string Drawn(const Plot& plot) const {
        RecordingSurface surface(600, 600);
        surface.SetUserScale(kPlotScale);
        DrawRose(plot, {surface, surface, styles, DrawnFor::Paper});
        std::string text;
        for (const DrawOperation& operation : surface.Operations()) {
            text += OperationText(operation) + "\n";
        }
        return text;
    }

    /// Draws a rose many times; returns how often it was not as expected.
    [[nodiscard]] int Faults(const Plot& plot, const std::string& expected) const {
        int faults = 0;
        for (int time = 0; time < 20; ++time) {
            faults += Drawn(plot) == expected ? 0 : 1;
        }
        return faults;
    }

    /// The faults of two roses that are drawn at once.
    void ExpectAsOneAfterTheOther(const Plot& first, const Plot& second) const {
        const std::string firstAlone = Drawn(first);
        const std::string secondAlone = Drawn(second);
        ASSERT_NE(firstAlone.find("wedge"), std::string::npos);
        ASSERT_NE(secondAlone.find("wedge"), std::string::npos);
        int faults = 0;
        std::thread other([&] { faults = Faults(first, firstAlone); });
        EXPECT_EQ(Faults(second, secondAlone), 0);
        other.join();
        EXPECT_EQ(faults, 0);
    }

    Styles styles;
};

TEST_F(RosesOfThreads, OfTwoPlotsAreDrawnAsOneAfterTheOther) {
    Plot lines;
    Plot winds;
    MakeRose(lines, kRoseFrequency, kLines);
    MakeRose(winds, kRoseOverlaidWind, kPolarLines);
    EXPECT_NE(Drawn(lines), Drawn(winds));
    ExpectAsOneAfterTheOther(lines, winds);
}

TEST_F(RosesOfThreads, OfOnePlotAreTheSame) {
    Plot plot;
    MakeRose(plot, kRoseValue, kLines);
    ExpectAsOneAfterTheOther(plot, plot);
}

TEST_F(RosesOfThreads, AreDrawnWhileTheSettingsChange) {
    Plot plot;
    MakeRose(plot, kRoseFrequency, kLines);
    const std::string expected = Drawn(plot);
    int faults = 0;
    std::thread other([&] { faults = Faults(plot, expected); });
    for (int time = 0; time < 20; ++time) {
        gSettings.styles.roseAxesStyle = static_cast<std::int16_t>(time % 4);
        gSymbolTable[kRoseStyle][kPlaceColour] = static_cast<std::int16_t>(time);
    }
    other.join();
    EXPECT_EQ(faults, 0);
}

} // namespace
} // namespace quandrel
