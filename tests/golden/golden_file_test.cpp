// SPDX-License-Identifier: MIT

#include "golden/drawing_picture.h"
#include "golden/drawing_text.h"
#include "golden/golden_file.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>

namespace quandrel {
namespace {

/// A drawing with every kind of operation.
RecordedDrawing SampleDrawing() {
    RecordingSurface surface(1000, 500);
    surface.SetUserScale(kPlotScale);
    surface.Clear(kWhite);
    DrawState state;
    state.drawWidth = 2.5;
    state.drawStyle = kDottedLine;
    state.drawMode = kDrawNotXor;
    state.fillStyle = kCrossHatch;
    state.fillColour = {1, 2, 3};
    surface.SetState(state);
    const std::vector<Point> points = {{0, 1},   {2, 3},   {4, 5},   {6, 7},           {8, 9},
                                       {10, 11}, {12, 13}, {14, 15}, {16.254, -17.256}};
    surface.Line({0, 1}, {2, 3}, {255, 16, 0});
    surface.Box({0, 1}, {2, 3}, kBlack);
    surface.FilledBox({0, 1}, {2, 3}, kBlack);
    surface.Circle({0, 0}, 1000, kBlack);
    surface.Arc({1, 2}, 30, 0.5, 1.5, kBlack);
    surface.Wedge({1, 2}, 30, -0.5, 1.5, kBlack);
    surface.Polyline(points, kBlack);
    surface.Polygon(points, kBlack);
    surface.SetPixel({3, 4}, kBlack);
    surface.Markers({"2/3",
                     {{GlyphPart::Kind::Circle, GlyphPart::Ink::White, {{0, 0}}, 4},
                      {GlyphPart::Kind::Polygon, GlyphPart::Ink::Filled, points, 0}}},
                    kBlack, points);
    state.drawMode = kDrawCopy;
    state.widthInPoints = 0.25;
    state.lineOpacity = 0.5;
    state.fillOpacity = 0.75;
    surface.SetState(state);
    {
        const CircleClip clip(surface, {0, 0}, 1000);
        surface.Path(std::vector<std::vector<Point>>{points, {{1, 1}, {2, 1}, {2, 2}}}, kBlack);
    }
    state.font = {"Some Font", 12, true, true, true};
    surface.SetState(state);
    surface.Text({5, 6}, "a \"quoted\" text \\ at 5");
    return DrawingOf("sample", surface);
}

TEST(DrawingText, IsReadBackAsWhatItSays) {
    const std::string text = TextOfDrawing(SampleDrawing());
    const std::vector<RecordedDrawing> read = DrawingsOfText("before\n" + text + "after\n");
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(TextOfDrawing(read[0]), text);
    const RecordedDrawing sample = SampleDrawing();
    ASSERT_EQ(read[0].operations.size(), sample.operations.size());
    for (std::size_t i = 0; i < sample.operations.size(); ++i) {
        EXPECT_EQ(read[0].operations[i].kind, sample.operations[i].kind);
        EXPECT_EQ(read[0].operations[i].rings.size(), sample.operations[i].rings.size());
    }
}

TEST(DrawingText, IsDrawnAgainByEveryOperation) {
    const RecordedDrawing sample = SampleDrawing();
    RecordingSurface again(1000, 500);
    DrawAgain(sample, again);
    EXPECT_EQ(TextOfDrawing(DrawingOf("sample", again)), TextOfDrawing(sample));
}

TEST(DrawingText, NoiseTurnsNoDigit) {
    RecordingSurface plain(10, 10);
    RecordingSurface noisy(10, 10);
    for (int i = -300; i < 300; ++i) { // halves of the last digit among them
        const double place = i / 200.0;
        const double noise = (i % 2 == 0 ? 1 : -1) * 1e-12;
        plain.Line({place, 0}, {0, place}, kBlack);
        noisy.Line({place + noise, noise}, {-noise, place - noise}, kBlack);
        plain.Arc({0, 0}, 1, place, i / 2e6, kBlack);
        noisy.Arc({0, 0}, 1 + noise, place + noise, i / 2e6 - noise, kBlack);
    }
    EXPECT_EQ(
        DifferenceOf(TextOfDrawing(DrawingOf("", plain)), TextOfDrawing(DrawingOf("", noisy))), "");
}

TEST(DrawingText, TellsAHundredthOfAUnit) {
    RecordingSurface one(10, 10);
    RecordingSurface other(10, 10);
    one.Line({1.00, 0}, {1, 1}, kBlack);
    other.Line({1.01, 0}, {1, 1}, kBlack);
    EXPECT_NE(TextOfDrawing(DrawingOf("", one)), TextOfDrawing(DrawingOf("", other)));
}

TEST(Difference, ShowsTheFirstLinesThatDifferAfterThoseBeforeThem) {
    EXPECT_EQ(DifferenceOf("a\nb\n", "a\nb\n"), "");
    EXPECT_EQ(DifferenceOf("1\n2\n3\n4\n5\nold\n7\n", "1\n2\n3\n4\n5\nnew\n7\n"),
              "  3: 3\n  4: 4\n  5: 5\n- 6: old\n- 7: 7\n+ 6: new\n+ 7: 7\n");
    EXPECT_EQ(DifferenceOf("1\n", "1\n2\n"), "  1: 1\n+ 2: 2\n");
}

/// Compares rather than rewrites for the scope of a block.
class ComparedAlone {
public:
    ComparedAlone() {
        if (const char* value = std::getenv(kSwitch)) {
            former_ = value;
            ::unsetenv(kSwitch);
        }
    }

    ~ComparedAlone() {
        if (former_) {
            ::setenv(kSwitch, former_->c_str(), 1);
        }
    }

    ComparedAlone(const ComparedAlone&) = delete;
    ComparedAlone& operator=(const ComparedAlone&) = delete;

private:
    static constexpr const char* kSwitch = "QUANDREL_WRITE_GOLDEN";
    std::optional<std::string> former_;
};

TEST(ExpectGolden, FailsWithTheDifferenceAndBothPictures) {
    const ComparedAlone compared;
    const std::filesystem::path left(QUANDREL_GOLDEN_OUTPUT "/symbols");
    for (const char* side : {"00.expected.svg", "00.actual.svg"}) {
        std::filesystem::remove(left / side);
    }
    EXPECT_NONFATAL_FAILURE(ExpectGolden("symbols/00", TextOfDrawing(SampleDrawing())),
                            "+ 1: drawing \"sample\"");
    EXPECT_NE(BytesOf(left / "00.expected.svg").find("<svg"), std::string::npos);
    EXPECT_NE(BytesOf(left / "00.actual.svg").find("quoted"), std::string::npos);
}

TEST(ExpectGolden, FailsWithoutAReferenceFile) {
    const ComparedAlone compared;
    EXPECT_NONFATAL_FAILURE(ExpectGolden("symbols/none", TextOfDrawing(SampleDrawing())),
                            "+ 1: drawing");
}

TEST(DrawingPicture, IsAFileForEyes) {
    const std::string path = ::testing::TempDir() + "golden" + std::to_string(::getpid()) + ".svg";
    EXPECT_EQ(WritePicture(path, {SampleDrawing(), SampleDrawing()}), "");
    const std::string svg = BytesOf(path);
    EXPECT_NE(svg.find("<svg"), std::string::npos);
    EXPECT_NE(svg.find("quoted"), std::string::npos);
    std::filesystem::remove(path);
}

} // namespace
} // namespace quandrel
