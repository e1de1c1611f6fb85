// SPDX-License-Identifier: MIT
//
// Lines with a negative plunge, from text to the columns: the trend names the line's lower end, or
// the end that it points to.

#include "input/data_rows.h"
#include "input/file_loading.h"
#include "input/load_report.h"
#include "input/parameter_line.h"
#include "orientation/angles.h"
#include "orientation/vectors.h"
#include "stereo/row_positions.h"
#include "support/test_platform.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

using testing::Radians;
using testing::Vector;

constexpr unsigned kSeed = 2025;
constexpr NegativePlunge kBoth[] = {NegativePlunge::LowerEnd, NegativePlunge::Vector};

/// Columns of a plane or line, a second line, and an appended one.
LineFormat ThreePairs(std::int16_t primary, NegativePlunge meaning) {
    LineFormat format;
    format.primary = primary;
    format.secondary = kSecondaryLine;
    format.slots = {0, 1, 2, 2, 3, 2, 4, 5, 8, 9};
    format.slots[kSlotSecondaryDip] = 2;
    format.wantLine = true;
    format.negativePlunge = meaning;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

TEST(NegativePlunge, OfLinesIsGivenTheTrendOfTheLowerEnd) {
    const std::string line = "-30\t120\t-10\t200\t-1\t0";
    const ParsedRow stated = ParseLine(line, ThreePairs(kPrimaryLine, NegativePlunge::LowerEnd));
    EXPECT_EQ(stated.az, 120);
    EXPECT_EQ(stated.az2, 200);
    EXPECT_EQ(stated.lineTrend, 0);
    const ParsedRow turned = ParseLine(line, ThreePairs(kPrimaryLine, NegativePlunge::Vector));
    EXPECT_EQ(turned.dip, -30);
    EXPECT_EQ(turned.az, 300);
    EXPECT_EQ(turned.dip2, -10);
    EXPECT_EQ(turned.az2, 20);
    EXPECT_EQ(turned.linePlunge, -1);
    EXPECT_EQ(turned.lineTrend, 180);
}

TEST(NegativePlunge, OfPlanesAndOfLinesInThemIsNoMatterOfTheFormat) {
    for (const NegativePlunge meaning : kBoth) {
        const ParsedRow overturned =
            ParseLine("-30\t120\t10\t200\t5\t6", ThreePairs(kPrimaryPlane, meaning));
        EXPECT_EQ(overturned.dip, -30);
        EXPECT_EQ(overturned.az, 120);
        EXPECT_EQ(overturned.az2, 200);
        LineFormat hade;
        hade.secondary = kHadeInPlane;
        hade.slots = {0, 1, 2, 2, 2, 2, 6, 7, 8, 9};
        hade.negativePlunge = meaning;
        hade.neededColumns = 3;
        // 210 within a plane that dips 90 toward east is the opposite of 30: plunge 30 toward
        // north.
        const ParsedRow up = ParseLine("90\t90\t210", hade);
        EXPECT_NEAR(up.dip2, -30, 1e-9);
        EXPECT_NEAR(std::cos(Radians(up.az2)), 1, 1e-9) << up.az2;
    }
}

/// A unit vector as a file has it: plunge, and the trend of the end that the meaning names.
std::pair<double, double> Written(const Vector& vector, NegativePlunge meaning) {
    const double degrees = 180 / std::numbers::pi;
    double trend = std::atan2(vector.east, vector.north) * degrees;
    if (vector.down < 0 && meaning == NegativePlunge::LowerEnd) {
        trend += 180;
    }
    return {std::asin(vector.down) * degrees, trend < 0 ? trend + 360 : trend};
}

TEST(NegativePlunge, ReadsTheSameVectorsInBothMeanings) {
    std::mt19937 random(kSeed);
    std::normal_distribution<double> normal;
    // Vectors close to the horizon, too: rounding to whole degrees must not reverse them.
    for (const double flatness : {1.0, 0.1, 0.01, 0.001}) {
        for (int i = 0; i < 500; ++i) {
            const Vector vector =
                testing::Unit({normal(random), normal(random), flatness * normal(random)});
            for (const NegativePlunge meaning : kBoth) {
                const auto [plunge, trend] = Written(vector, meaning);
                LineFormat format;
                format.primary = kPrimaryLine;
                format.negativePlunge = meaning;
                const ParsedRow row =
                    ParseLine(std::to_string(plunge) + "\t" + std::to_string(trend), format);
                ASSERT_EQ(row.status, LineStatus::Row);
                const Attitude whole = RoundedAttitude({row.dip, row.az}, row.isPlane);
                const Vector stored =
                    testing::LineVector(Radians(whole.dip), Radians(whole.azimuth));
                ASSERT_LT(testing::AngleOf(stored, vector), Radians(0.75))
                    << plunge << " " << trend << " seed " << kSeed;
            }
        }
    }
}

TEST(RoundedAttitude, KeepsTheDirectionOfALineThatComesOutLevel) {
    EXPECT_EQ(RoundedAttitude({-0.3, 100}, false).azimuth, 280);
    EXPECT_EQ(RoundedAttitude({-0.3, 280}, false).azimuth, 100);
    EXPECT_EQ(RoundedAttitude({-0.3, 280}, false).dip, 0);
    EXPECT_EQ(RoundedAttitude({0.3, 100}, false).azimuth, 100);
    EXPECT_EQ(RoundedAttitude({0, 100}, false).azimuth, 100);
    EXPECT_EQ(RoundedAttitude({-0.6, 100}, false).azimuth, 100);
    EXPECT_EQ(RoundedAttitude({-0.3, 100}, true).azimuth, 100) << "a plane has no sense";
}

TEST(ParameterLine, SaysWhatTheTrendBesideANegativePlungeNames) {
    EXPECT_EQ(ParseParameterLine("/U1").U, NegativePlunge::Vector);
    EXPECT_EQ(ParseParameterLine("/T3 /u0").U, NegativePlunge::LowerEnd);
    EXPECT_FALSE(ParseParameterLine("/U2").U);
    EXPECT_FALSE(ParseParameterLine("/T1 /C1").U);
    FormatSettings vector;
    vector.negativePlunge = NegativePlunge::Vector;
    EXPECT_EQ(WithFormatItems({}, ParseParameterLine("/U1")).negativePlunge,
              NegativePlunge::Vector);
    EXPECT_EQ(WithFormatItems(vector, ParseParameterLine("/U0")).negativePlunge,
              NegativePlunge::LowerEnd);
    EXPECT_EQ(WithFormatItems(vector, ParseParameterLine("/T3")).negativePlunge,
              NegativePlunge::Vector);
    EXPECT_EQ(WithFormatItems(vector, ReadParameterLines(";Quandrel\n/T3\n")).negativePlunge,
              NegativePlunge::LowerEnd)
        << "a file of an earlier version";
}

class NegativePlungeLoading : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        AcceptFormat({}, 99);
    }

    void Load(const char* command, const std::string& name, const std::string& text) {
        if (command == std::string(kNewCommand)) {
            NewPlot();
        }
        ASSERT_EQ(ReadTextFile(command, WriteFile(name, text)), command);
    }

    using Pairs = std::vector<std::pair<int, int>>;

    static Pairs RowsOf(const DataColumn<std::int32_t>& plunges,
                        const DataColumn<std::int32_t>& trends) {
        Pairs rows;
        for (std::int32_t row = 1; row <= ActiveRecord().NumLoadedData; ++row) {
            rows.emplace_back(plunges(gActivePlot, row), trends(gActivePlot, row));
        }
        return rows;
    }

    static Pairs Rows() { return RowsOf(gDataDip, gDataAz); }
};

TEST_F(NegativePlungeLoading, ConvertsMainMergedAndOverlaidRows) {
    gSettings.format.negativePlunge = NegativePlunge::Vector;
    Load(kNewCommand, "a.txt", "30\t120\n-30\t120\n-30\t200\n");
    Load(kMergeCommand, "b.txt", "-5\t90\n");
    Load(kOverlayCommand, "c.txt", "-5\t270\n");
    EXPECT_EQ(Rows(), (Pairs{{30, 120}, {-30, 300}, {-30, 20}, {-5, 270}, {-5, 90}}));
}

TEST_F(NegativePlungeLoading, ConvertsSecondaryAndAppendedLines) {
    gPrimaryDataType = kPrimaryPlane;
    gPlotDataKind = kPlanes;
    gSecondaryDataType = kSecondaryLine;
    gFileLineAppended = true;
    gFileColumnSettings = {0, 1, 2, 2, 3, 2, 4, 5, 8, 9};
    gSettings.format.negativePlunge = NegativePlunge::Vector;
    Load(kNewCommand, "faults.txt", "-60\t90\t-20\t10\t-1\t350\n60\t90\t20\t10\t1\t350\n");
    EXPECT_EQ(Rows(), (Pairs{{-60, 90}, {60, 90}}));
    EXPECT_EQ(RowsOf(gData2Dip, gData2Az), (Pairs{{-20, 190}, {20, 10}}));
    EXPECT_EQ(RowsOf(gAppLineDip, gAppLineAz), (Pairs{{-1, 170}, {1, 350}}));
}

TEST_F(NegativePlungeLoading, AFileSaysItForItselfAlone) {
    prompts.ExpectAny("non-data"); // the parameter lines
    Load(kNewCommand, "own.txt", "/U1\n-30\t120\n");
    EXPECT_EQ(Rows(), (Pairs{{kErrorRow, 0}, {-30, 300}}));
    EXPECT_EQ(gSettings.format.negativePlunge, NegativePlunge::LowerEnd);
    Load(kNewCommand, "raw.txt", "-30\t120\n");
    EXPECT_EQ(Rows(), (Pairs{{-30, 120}}));
    gSettings.format.negativePlunge = NegativePlunge::Vector;
    prompts.ExpectAny("non-data");
    Load(kNewCommand, "stated.txt", "/U0\n-30\t120\n");
    EXPECT_EQ(Rows(), (Pairs{{kErrorRow, 0}, {-30, 120}}));
    EXPECT_EQ(gSettings.format.negativePlunge, NegativePlunge::Vector);
}

TEST_F(NegativePlungeLoading, WhatTheUserAnswersStays) {
    AcceptFormat([](FormatAnswer&) { gSettings.format.negativePlunge = NegativePlunge::Vector; });
    Load(kNewCommand, "raw.txt", "-30\t120\n");
    EXPECT_EQ(Rows(), (Pairs{{-30, 300}}));
    EXPECT_EQ(gSettings.format.negativePlunge, NegativePlunge::Vector);
}

TEST_F(NegativePlungeLoading, TellsOnceWhatWasDoneWithPlainLines) {
    gPlotDataKind = kLines;
    Expect("2 lines have a negative plunge. Their trends were taken to name their lower ends. "
           "Plotted as lines, they count as axes without a sense.");
    Load(kNewCommand, "a.txt", "30\t120\n-30\t120\n-30\t200\n");
    gSettings.format.negativePlunge = NegativePlunge::Vector;
    Expect("1 line has a negative plunge. Its trend was taken to name the end that it points to, "
           "and was turned to the lower end.");
    Load(kNewCommand, "b.txt", "30\t120\n-30\t120\n");
    EXPECT_EQ(Rows(), (Pairs{{30, 120}, {-30, 300}}));
}

TEST_F(NegativePlungeLoading, RowsThatJoinOthersAreAsTheseAre) {
    Load(kNewCommand, "polar.txt", "30\t120\n");
    gPlotDataKind = kLines;
    Load(kMergeCommand, "joins.txt", "-30\t120\n");
    EXPECT_EQ(LastLoad().upwardLines, 0) << "in a plot of polar lines it keeps its sense";
    Expect("1 line has a negative plunge.");
    Load(kOverlayCommand, "over.txt", "-30\t120\n");
}

TEST_F(NegativePlungeLoading, SaysNothingOfPolarLinesAndPlanes) {
    Load(kNewCommand, "polar.txt", "-30\t120\n");
    gPrimaryDataType = kPrimaryPlane;
    gPlotDataKind = kPlanes;
    Load(kNewCommand, "planes.txt", "-30\t120\n");
    EXPECT_EQ(LastLoad().upwardLines, 0);
}

} // namespace
} // namespace quandrel
