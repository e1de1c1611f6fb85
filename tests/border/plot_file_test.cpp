// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "quandrel/plot_file.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <stdexcept>

namespace quandrel::api {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Dip and azimuth of each; "-" for NaN.
template <class Orientation>
std::string Pairs(const std::vector<Orientation>& orientations) {
    std::string text;
    for (const auto& [dip, azimuth] : orientations) {
        text += std::isnan(dip) && std::isnan(azimuth)
                    ? "-"
                    : std::to_string(std::lround(dip)) + "/" + std::to_string(std::lround(azimuth));
        text += ' ';
    }
    return text;
}

std::string TextOfRows(const PlotRows& rows) {
    std::string text = Pairs(rows.planes) + "| " + Pairs(rows.lines) + "| "
                       + Pairs(rows.secondPlanes) + "| " + Pairs(rows.secondLines) + "| "
                       + Pairs(rows.appendedLines) + "| ";
    for (const double number : rows.numbers) {
        text += std::isnan(number) ? "- " : std::to_string(number).substr(0, 5) + " ";
    }
    for (const std::string& held : rows.texts) {
        text += "\"" + held + "\" ";
    }
    for (const UnreadRow& unread : rows.unread) {
        text += "no " + std::to_string(unread.row) + ": " + unread.text + " ";
    }
    return text;
}

/// Faults with striae, an unread row, and two overlays.
Plot FaultPlot() {
    Plot plot;
    plot.kind = PlotKind::kEqualAngle;
    plot.secondary = Secondary::kLine;
    plot.fabric = "Störungen";
    plot.description = "two quarries";
    plot.numberName = "throw";
    plot.textName = "movement";
    plot.rows.planes = {{60, 120}, {kNan, kNan}, {-40, 300.4}};
    plot.rows.secondLines = {{-59, 121}, {kNan, kNan}, {kNan, kNan}};
    plot.rows.appendedLines = {{10, 360}, {kNan, kNan}, {-5, 20}};
    plot.rows.numbers = {1.5, kNan, kNan};
    plot.rows.texts = {"reverse", "", "normal"};
    plot.rows.unread = {{1, "# here the map ends"}};
    plot.overlays = {{OverlayKind::kPoles, {}}, {OverlayKind::kPolarLines, {}}};
    plot.overlays[0].rows.planes = {{10, 20}};
    plot.overlays[1].rows.lines = {{-20, 30}, {21, 31}};
    return plot;
}

TEST(PlotFile, GivesTheRowsOfEveryVersion) {
    for (const OldVersion& version : OldVersions()) {
        const Result<Plot> plot = ReadPlot(OldPlotWriter(SampleOfVersion(version)).Bytes());
        ASSERT_TRUE(plot) << version.file;
        EXPECT_EQ(plot->primary, Primary::kPlanes);
        EXPECT_EQ(plot->secondary, Secondary::kLine);
        EXPECT_EQ(Pairs(plot->rows.planes), "30/120 45/270 - 80/5 ") << version.file;
        EXPECT_EQ(Pairs(plot->rows.secondLines), "20/80 - - 11/15 ");
        EXPECT_EQ(Pairs(plot->rows.appendedLines), "10/90 - - 5/15 ");
        EXPECT_EQ(plot->rows.numbers[0], 1.5);
        EXPECT_TRUE(std::isnan(plot->rows.numbers[1]));
        EXPECT_EQ(plot->rows.numbers[3], 300);
        EXPECT_EQ(plot->rows.texts, (std::vector<std::string>{"12.5", "7", "0", "-3"}));
        ASSERT_EQ(plot->rows.unread.size(), 1U);
        EXPECT_EQ(plot->rows.unread[0].row, 2U);
        ASSERT_EQ(plot->overlays.size(), 2U);
        EXPECT_EQ(plot->overlays[0].kind, OverlayKind::kPoles);
        EXPECT_EQ(Pairs(plot->overlays[0].rows.planes), "10/20 ");
        EXPECT_EQ(plot->overlays[1].kind, OverlayKind::kPolarLines);
        EXPECT_EQ(Pairs(plot->overlays[1].rows.lines), "-20/30 21/31 ");
        EXPECT_TRUE(plot->overlays[1].rows.planes.empty());
    }
}

TEST(PlotFile, ComesBackAsItWasWritten) {
    const Plot plot = FaultPlot();
    const Result<Plot> again = ReadPlot(*PlotBytes(plot));
    ASSERT_TRUE(again) << again.Error();
    EXPECT_EQ(again->kind, PlotKind::kEqualAngle);
    EXPECT_EQ(again->drawnAs, DrawnAs::kPlanes);
    EXPECT_EQ(again->fabric, plot.fabric);
    EXPECT_EQ(again->description, plot.description);
    EXPECT_EQ(again->numberName + again->textName, "throwmovement");
    EXPECT_EQ(again->version, "9.51");
    EXPECT_EQ(TextOfRows(again->rows),
              "60/120 - -40/300 | | | -59/121 - - | 10/360 - -5/20 | 1.500 - - "
              "\"reverse\" \"\" \"normal\" no 1: # here the map ends ");
    ASSERT_EQ(again->overlays.size(), 2U);
    EXPECT_EQ(Pairs(again->overlays[0].rows.planes), "10/20 ");
    EXPECT_EQ(Pairs(again->overlays[1].rows.lines), "-20/30 21/31 ");
    EXPECT_EQ(*PlotBytes(*again), *PlotBytes(plot));
}

TEST(PlotFile, KeepsDirectionsAndSecondPlanes) {
    Plot plot;
    plot.kind = PlotKind::kRose;
    plot.drawnAs = DrawnAs::kPolarLines;
    plot.primary = Primary::kDirections;
    plot.numberIsFrequency = true;
    plot.rows.lines = {{0, 17.5}, {0, 340}};
    plot.rows.numbers = {3, 4};
    const Result<Plot> again = ReadPlot(*PlotBytes(plot));
    ASSERT_TRUE(again) << again.Error();
    EXPECT_EQ(again->primary, Primary::kDirections);
    EXPECT_TRUE(again->numberIsFrequency);
    EXPECT_EQ(Pairs(again->rows.lines), "0/18 0/340 ");
    EXPECT_TRUE(again->rows.planes.empty());

    Plot pairs;
    pairs.secondary = Secondary::kPlane;
    pairs.showsSecondary = true;
    pairs.rows.planes = {{30, 120}};
    pairs.rows.secondPlanes = {{70, 200}};
    const Result<Plot> both = ReadPlot(*PlotBytes(pairs));
    ASSERT_TRUE(both) << both.Error();
    EXPECT_TRUE(both->showsSecondary);
    EXPECT_EQ(Pairs(both->rows.secondPlanes), "70/200 ");
}

TEST(PlotFile, KeepsTheChoiceOfFormulas) {
    Plot plot = FaultPlot();
    EXPECT_EQ(ReadPlot(*PlotBytes(plot))->formulas, PlotFormulas::kOfPreferences);
    for (const PlotFormulas choice : {PlotFormulas::kOwn, PlotFormulas::kTextbook}) {
        plot.formulas = choice;
        const Result<Plot> again = ReadPlot(*PlotBytes(plot));
        ASSERT_TRUE(again) << again.Error();
        EXPECT_EQ(again->formulas, choice);
    }
}

TEST(PlotFile, KeepsSixDecimals) {
    Plot plot;
    plot.secondary = Secondary::kLine;
    plot.usesDecimals = true;
    plot.rows.planes = {{47.3, 218.6}, {30, 120}, {0.4, 359.7}, {89.9999996, 359.9999996}};
    plot.rows.secondLines = {{-0.3, 10.5}, {20, 80}, {-12.123456, 0.000001}, {kNan, kNan}};
    plot.rows.appendedLines = {{kNan, kNan}, {1.25, 2.5}, {3, 4}, {-89.7, 180.000001}};
    plot.overlays = {{OverlayKind::kLines, {}}};
    plot.overlays[0].rows.lines = {{12, 31}, {12.7, 31.2}};
    plot.overlays[0].rows.secondLines = {{kNan, kNan}, {5.5, 6.5}};
    const Result<Plot> again = ReadPlot(*PlotBytes(plot));
    ASSERT_TRUE(again) << again.Error();
    const auto expectLines = [](const std::vector<Line>& lines, const std::vector<Line>& expected) {
        ASSERT_EQ(lines.size(), expected.size());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_EQ(std::isnan(lines[i].plunge), std::isnan(expected[i].plunge)) << i;
            if (!std::isnan(expected[i].plunge)) {
                EXPECT_EQ(lines[i].plunge, expected[i].plunge) << i;
                EXPECT_EQ(lines[i].trend, expected[i].trend) << i;
            }
        }
    };
    const std::vector<std::pair<double, double>> planes = {
        {47.3, 218.6}, {30, 120}, {0.4, 359.7}, {90, 360}};
    ASSERT_EQ(again->rows.planes.size(), planes.size());
    for (std::size_t i = 0; i < planes.size(); ++i) {
        EXPECT_EQ(again->rows.planes[i].dip, planes[i].first) << i;
        EXPECT_EQ(again->rows.planes[i].dipDirection, planes[i].second) << i;
    }
    expectLines(again->rows.secondLines, plot.rows.secondLines);
    expectLines(again->rows.appendedLines, plot.rows.appendedLines);
    expectLines(again->overlays[0].rows.lines, plot.overlays[0].rows.lines);
    expectLines(again->overlays[0].rows.secondLines, plot.overlays[0].rows.secondLines);
    EXPECT_TRUE(again->usesDecimals);
    EXPECT_TRUE(again->leftOut.empty());
    EXPECT_EQ(*PlotBytes(*again), *PlotBytes(plot));
}

TEST(PlotFile, WithoutItsDecimalsIsOneInWholeDegrees) {
    Plot whole;
    whole.rows.planes = {{47, 219}, {30, 120}};
    Plot measured = whole;
    measured.rows.planes[0] = {47.3, 218.6};
    const std::string bytes = *PlotBytes(measured);
    const std::string fields = *PlotBytes(whole);
    EXPECT_TRUE(bytes.starts_with(fields));
    const Result<Plot> cut = ReadPlot(std::string_view(bytes).substr(0, fields.size() + 50));
    ASSERT_TRUE(cut) << cut.Error();
    EXPECT_EQ(Pairs(cut->rows.planes), "47/219 30/120 ");
    EXPECT_EQ(cut->rows.planes[0].dip, 47);
    EXPECT_EQ(cut->leftOut, std::vector<std::string>{"Its extension is cut off."});
}

TEST(PlotFile, KeepsWhatRowsLookLike) {
    EXPECT_EQ(ReadPlot(*PlotBytes({}))->rowsAs, RowsAs::kPoints);
    for (const RowsAs rowsAs :
         {RowsAs::kGreatCircles, RowsAs::kIntersections, RowsAs::kPointDensities,
          RowsAs::kDensities, RowsAs::kContours, RowsAs::kContoursOnDensities}) {
        Plot plot;
        plot.rowsAs = rowsAs;
        plot.rows.planes = {{30, 120}};
        EXPECT_EQ(ReadPlot(*PlotBytes(plot))->rowsAs, rowsAs);
    }
    // Files have two numbers for points.
    Plot points;
    points.rowsAs = static_cast<RowsAs>(2);
    EXPECT_EQ(ReadPlot(*PlotBytes(points))->rowsAs, RowsAs::kPoints);
}

TEST(PlotFile, RefusesEveryCutFileWithAText) {
    const std::string bytes = *PlotBytes(FaultPlot());
    for (std::size_t length = 0; length < bytes.size(); length += length < 2000 ? 1 : 9973) {
        const Result<Plot> plot = ReadPlot(std::string_view(bytes).substr(0, length));
        ASSERT_FALSE(plot) << length;
        ASSERT_FALSE(plot.Error().empty()) << length;
    }
}

TEST(PlotFile, RefusesATextThatNoFileHolds) {
    Plot plot = FaultPlot();
    plot.description.assign(40000, 'x');
    const Result<std::string> bytes = PlotBytes(plot);
    ASSERT_FALSE(bytes);
    EXPECT_NE(bytes.Error().find("40000"), std::string::npos) << bytes.Error();
}

TEST(PlotFile, ThrowsForArgumentsThatNoPlotHas) {
    const auto throws = [](const auto& spoil) {
        Plot plot = FaultPlot();
        spoil(plot);
        EXPECT_THROW((void)PlotBytes(plot), std::invalid_argument);
    };
    throws([](Plot& plot) { plot.rows.numbers.pop_back(); });
    throws([](Plot& plot) { plot.rows.texts.emplace_back("more"); });
    throws([](Plot& plot) { plot.rows.secondLines.clear(); });
    throws([](Plot& plot) { plot.secondary = Secondary::kPlane; });
    throws([](Plot& plot) { plot.rows.lines = {{1, 2}}; });
    throws([](Plot& plot) { plot.rows.planes[0].dip = 91; });
    throws([](Plot& plot) { plot.rows.planes[0].dipDirection = -1; });
    throws([](Plot& plot) { plot.rows.planes[0].dipDirection = kNan; });
    throws([](Plot& plot) { plot.rows.numbers[0] = std::numeric_limits<double>::infinity(); });
    throws([](Plot& plot) { plot.rows.unread[0].row = 0; });
    throws([](Plot& plot) { plot.rows.unread[0].row = 3; });
    throws([](Plot& plot) { plot.overlays.resize(21); });
    throws([](Plot& plot) { plot.overlays[0].rows.planes.resize(kMostOverlayRows + 1); });
    throws([](Plot& plot) { plot.overlays[0].kind = OverlayKind::kLines; });
}

class PlotFileOnDisk : public EngineTest {
protected:
    // Tests of this fixture may run at the same time.
    const std::string path = ::testing::TempDir()
                             + ::testing::UnitTest::GetInstance()->current_test_info()->name()
                             + "_border.qpx";

    void TearDown() override {
        std::filesystem::remove(path);
        EngineTest::TearDown();
    }
};

TEST_F(PlotFileOnDisk, OpensInTheProgram) {
    const Result<std::size_t> written = WritePlotFile(FaultPlot(), path);
    ASSERT_TRUE(written) << written.Error();
    EXPECT_EQ(*written, std::filesystem::file_size(path));
    EXPECT_EQ(Pairs(ReadPlotFile(path)->rows.planes), "60/120 - -40/300 ");

    const int slot = FindFreePlotSlot();
    std::string version;
    LoadBinaryPlot(path, slot, version);
    EXPECT_EQ(version, "9.5");
    const PlotRecord& record = RecordOf(slot);
    EXPECT_EQ(record.NumValidData, 2);
    EXPECT_EQ(record.NumData, 3);
    EXPECT_EQ(record.NumLoadedData, 6);
    EXPECT_EQ(record.AppendedMin[kOfNumbers], 1.5);
    EXPECT_EQ(gDataSymbol(slot, 1), CodeOfStyleRow(StartStyles(), 0));
    EXPECT_EQ(RecordOf(slot).RoseSectorSize, 10);
}

TEST_F(PlotFileOnDisk, SaysWhyAFileCannotBeReadOrWritten) {
    EXPECT_FALSE(ReadPlotFile(path).Error().empty());
    EXPECT_FALSE(
        WritePlotFile(FaultPlot(), ::testing::TempDir() + "nowhere/plot.qpx").Error().empty());
}

} // namespace
} // namespace quandrel::api
