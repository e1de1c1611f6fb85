// SPDX-License-Identifier: MIT

#include "drawing/format_sample.h"
#include "orientation/projection.h"
#include "platform/scripted/recording_surface.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

class FormatSamples : public EngineTest {
protected:
    FormatSample Of(const std::vector<std::string>& text) {
        return SampleOfLines(text, choice, gSettings);
    }

    static std::string TextOfRow(const FormatSample& sample, std::size_t line) {
        RecordingSurface surface{400, 400};
        surface.SetUserScale(kPlotScale);
        DrawRowOfLine(sample, surface, gSettings.styles, line);
        std::string text;
        for (const DrawOperation& operation : surface.Operations()) {
            text += OperationText(operation) + '\n';
        }
        return text;
    }

    void SetUp() override {
        EngineTest::SetUp();
        choice.delimiter = ",";
        choice.columnHeadings = true;
        choice.comments.hash = true;
        choice.plotDataKind = kPlanes;
    }

    FormatChoice choice;
    std::vector<std::string> lines = {"# 1979", "dip,dir", "45,120", "words", "80,300", "99,10"};
};

TEST_F(FormatSamples, HoldTheRowsOfTheLinesThatAreRows) {
    const FormatSample sample = Of(lines);
    EXPECT_EQ(sample.lines, (std::vector<std::size_t>{2, 4}));
    EXPECT_EQ(sample.plot.record.NumValidData, 2);
    EXPECT_EQ(sample.plot.record.PlotKind, kEqualArea);
    EXPECT_EQ(sample.plot.rows.dip(1), 45);
    EXPECT_EQ(sample.plot.rows.azimuth(2), 300);
}

TEST_F(FormatSamples, StopAtTheirNumberOfRows) {
    lines.resize(2);
    for (std::size_t i = 0; i < kSampleRows + 50; ++i) {
        lines.push_back(std::to_string(i % 90) + "," + std::to_string(i % 360));
    }
    EXPECT_EQ(Of(lines).lines.size(), kSampleRows);
    EXPECT_EQ(Of({}).lines.size(), 0U);
}

TEST_F(FormatSamples, FindTheLineOfAPole) {
    const FormatSample sample = Of(lines);
    // The pole of 45/120 plunges 45 toward 300.
    std::int16_t x = 0;
    std::int16_t y = 0;
    ProjectPointInt(kEqualArea, DegToRad(45), DegToRad(300), x, y);
    const Point pole{static_cast<double>(x), static_cast<double>(y)};
    EXPECT_EQ(LineAt(sample, pole, 20), 2U);
    EXPECT_EQ(LineAt(sample, {pole.x + 15, pole.y}, 20), 2U);
    EXPECT_EQ(LineAt(sample, {pole.x, -pole.y}, 20), std::nullopt);
}

TEST_F(FormatSamples, LightAPlaneByItsCircleAndItsPole) {
    const FormatSample sample = Of(lines);
    const std::string lit = TextOfRow(sample, 2);
    EXPECT_GE(std::ranges::count(lit, '\n'), 2) << lit;
    EXPECT_NE(TextOfRow(sample, 4), lit);
    EXPECT_TRUE(TextOfRow(sample, 1).empty()) << "the heading";
    EXPECT_TRUE(TextOfRow(sample, 5).empty()) << "no row";
    EXPECT_TRUE(TextOfRow(sample, 99).empty());
}

TEST_F(FormatSamples, AreRosesOfDirections) {
    choice.primary = kDirections;
    choice.columns[kSlotDirection] = 0;
    choice.columnHeadings = false;
    choice.plotDataKind = kPolarLines;
    const FormatSample sample = Of({"90", "180", "270"});
    EXPECT_EQ(sample.plot.record.PlotKind, kRose);
    EXPECT_EQ(LineAt(sample, {500, 3}, 20), 0U) << "east";
    EXPECT_EQ(LineAt(sample, {-500, 3}, 20), 2U);
    EXPECT_EQ(LineAt(sample, {300, 300}, 20), std::nullopt);
    EXPECT_EQ(std::ranges::count(TextOfRow(sample, 0), '\n'), 1);
}

TEST_F(FormatSamples, OfPlanesInARoseAreStrikes) {
    Settings ofRose = gSettings;
    ofRose.format.plotKind = kRose;
    choice.columnHeadings = false;
    const FormatSample sample = SampleOfLines(std::vector<std::string>{"45,120"}, choice, ofRose);
    ASSERT_EQ(sample.plot.record.PlotKind, kRose);
    const auto on = [](double azimuth) {
        return Point{800 * std::sin(DegToRad(azimuth)), 800 * std::cos(DegToRad(azimuth))};
    };
    EXPECT_EQ(LineAt(sample, on(30), 20), 0U) << "the strike of 45/120";
    EXPECT_EQ(LineAt(sample, on(210), 20), 0U) << "its other end";
    EXPECT_EQ(LineAt(sample, on(120), 20), std::nullopt);
}

TEST_F(FormatSamples, UpwardPolarLinesPointTheOtherWayInARose) {
    Settings ofRose = gSettings;
    ofRose.format.plotKind = kRose;
    choice.primary = kPrimaryLine;
    choice.plotDataKind = kPolarLines;
    choice.columnHeadings = false;
    const FormatSample sample = SampleOfLines(std::vector<std::string>{"-30,90"}, choice, ofRose);
    EXPECT_EQ(LineAt(sample, {-800, 1}, 20), 0U);
    EXPECT_EQ(LineAt(sample, {800, 1}, 20), std::nullopt);
}

TEST_F(FormatSamples, AreDrawnWithoutAWindow) {
    RecordingSurface net{400, 400};
    RecordingSurface legend{10, 10};
    DrawSample(Of(lines), net, legend, gSettings.styles);
    RecordingSurface empty{400, 400};
    DrawSample(Of({}), empty, legend, gSettings.styles);
    EXPECT_GT(net.Operations().size(), empty.Operations().size());
}

} // namespace
} // namespace quandrel
