// SPDX-License-Identifier: MIT

#include "quandrel/table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace quandrel::api {
namespace {

TableFormat CommaFormat() {
    TableFormat format;
    format.delimiter = ',';
    return format;
}

std::vector<std::size_t> RefusedLines(const Table& table) {
    std::vector<std::size_t> numbers;
    for (const RefusedLine& line : table.refused) {
        numbers.push_back(line.lineNumber);
    }
    return numbers;
}

TEST(PublicTable, PlanesAreReadInEachConvention) {
    struct Case {
        PlaneConvention convention;
        TableColumns columns;
        const char* text;
    };

    const TableColumns inOrder = {.dip = 0, .direction = 1, .sense = 2};
    const TableColumns swapped = {.dip = 1, .direction = 0, .sense = 2};
    const Case cases[] = {
        {PlaneConvention::kDipDirection, inOrder, "45,120"},
        {PlaneConvention::kDirectionDip, swapped, "120,45"},
        {PlaneConvention::kStrikeDipSense, swapped, "030,45,SE"},
        {PlaneConvention::kStrikeDipSense, {.dip = 1, .direction = 0, .sense = 1}, "210,45 se"},
        {PlaneConvention::kDipSenseStrike, {.dip = 0, .direction = 1, .sense = 0}, "45E,30"},
        {PlaneConvention::kDipStrike, inOrder, "45,30"},
        {PlaneConvention::kStrikeDip, swapped, "30,45"},
    };
    for (const Case& one : cases) {
        TableFormat format = CommaFormat();
        format.convention = one.convention;
        format.columns = one.columns;
        const Table table = ReadTable(one.text, format);
        ASSERT_EQ(table.planes.size(), 1U) << one.text;
        EXPECT_EQ(table.planes[0], (Plane{45, 120})) << one.text;
        EXPECT_TRUE(table.lines.empty());
    }
}

TEST(PublicTable, FractionsAndBothDelimitersAreKept) {
    TableFormat format;
    format.delimiter = ';';
    const Table table = ReadTable("45,25;119.75\n-30.5;-0.25\n", format);
    ASSERT_EQ(table.planes.size(), 2U);
    EXPECT_EQ(table.planes[0], (Plane{45.25, 119.75}));
    EXPECT_EQ(table.planes[1], (Plane{-30.5, 359.75}));
}

TEST(PublicTable, LinesOfAllEndsAreCountedAndRefusedWithTheirReason) {
    const Table table =
        ReadTable("; joints\r\n\r/T1\n45,120\r\n95,120\n45\nno data\n46,121", CommaFormat());
    EXPECT_EQ(table.lineNumbers, (std::vector<std::size_t>{4, 8}));
    EXPECT_EQ(RefusedLines(table), (std::vector<std::size_t>{5, 6, 7}));
    EXPECT_EQ(table.refused[0].reason, "not orientation data");
    EXPECT_EQ(table.refused[1].reason, "not enough items in each data line");
}

TEST(PublicTable, AHeadingIsTheFirstLineThatCouldBeARow) {
    TableFormat format = CommaFormat();
    format.hasHeading = true;
    const Table table = ReadTable(";comment\n\ndip 1,direction 2\n45,120\n", format);
    EXPECT_EQ(table.heading, "dip 1,direction 2");
    EXPECT_EQ(table.planes.size(), 1U);
    EXPECT_TRUE(table.refused.empty());
}

TEST(PublicTable, SecondaryLinesAreReadAsTheyWereMeasured) {
    TableFormat format = CommaFormat();
    const auto secondOf = [&format](Secondary secondary, const char* text) {
        format.secondary = secondary;
        const Table table = ReadTable(text, format);
        return table.secondLines.empty() ? Line{-99, -99} : table.secondLines[0];
    };
    const auto expectNear = [](const Line& found, const Line& truth) {
        EXPECT_NEAR(found.plunge, truth.plunge, 1e-9);
        EXPECT_NEAR(found.trend, truth.trend, 1e-9);
    };
    expectNear(secondOf(Secondary::kLine, "45,120,,45,120"), {45, 120});
    // Half-way down the plane of 45 degrees: the sine of the plunge is 1/2.
    const Line halfWay = LineAtPitch({45, 120}, 45);
    EXPECT_NEAR(halfWay.plunge, 30, 1e-9);
    expectNear(secondOf(Secondary::kAngle, "45,120,,,45"), halfWay);
    expectNear(secondOf(Secondary::kPitch, "45,120,,,45,N"), halfWay);
    expectNear(secondOf(Secondary::kTrend, "45,120,,,120"), {45, 120});
}

TEST(PublicTable, WhatARowLacksIsNoNumber) {
    TableFormat format = CommaFormat();
    format.secondary = Secondary::kPlane;
    format.secondaryMayBeMissing = true;
    format.hasLine = format.hasNumber = format.hasText = true;
    format.columns = {.secondDip = 2,
                      .secondDirection = 3,
                      .linePlunge = 4,
                      .lineTrend = 5,
                      .number = 6,
                      .text = 7};
    const Table table = ReadTable("10,20,30,40,50,60,\"1,5\",schist\n"
                                  "10,20,,,95,60,x,\"a \"\"b\"\"\"\n",
                                  format);
    ASSERT_EQ(table.lineNumbers.size(), 2U);
    EXPECT_EQ(table.secondPlanes[0], (Plane{30, 40}));
    EXPECT_EQ(table.appendedLines[0], (Line{50, 60}));
    EXPECT_EQ(table.numbers[0], 1.5);
    EXPECT_EQ(table.texts, (std::vector<std::string>{"schist", "a \"b\""}));
    EXPECT_TRUE(std::isnan(table.secondPlanes[1].dip));
    EXPECT_TRUE(std::isnan(table.appendedLines[1].trend));
    EXPECT_TRUE(std::isnan(table.numbers[1]));
}

TEST(PublicTable, TextsOfNumbersStayAsTheyAre) {
    TableFormat format;
    format.delimiter = ';';
    format.hasText = true;
    format.columns.text = 2;
    EXPECT_EQ(ReadTable("10;20;2,50", format).texts, (std::vector<std::string>{"2,50"}));
}

TEST(PublicTable, TrendsOfUpwardLinesNameTheEndThatTheFormatSays) {
    TableFormat format = CommaFormat();
    format.primary = Primary::kLines;
    EXPECT_EQ(ReadTable("-30,45", format).lines[0], (Line{-30, 45}));
    format.trendsNameUpperEnds = true;
    EXPECT_EQ(ReadTable("-30,45", format).lines[0], (Line{-30, 225}));
}

TEST(PublicTable, DirectionsAreLevelLines) {
    TableFormat format = CommaFormat();
    format.primary = Primary::kDirections;
    format.isQuadrant = true;
    format.columns.direction = 0;
    const Table table = ReadTable("N30W\nS10E\nN90W\n350\n", format);
    EXPECT_EQ(table.lines, (std::vector<Line>{{0, 330}, {0, 170}, {0, 270}}));
    EXPECT_EQ(RefusedLines(table), (std::vector<std::size_t>{4}));
}

TEST(PublicTable, ParameterLinesSayTheFormat) {
    const std::string_view text = "/T1 /N1 /I2 /C6 /12 /23\n030\t45\t20\t200\n";
    const TableFormat format = FormatOfText(text, {});
    EXPECT_EQ(format.primary, Primary::kPlanes);
    EXPECT_EQ(format.secondary, Secondary::kLine);
    EXPECT_EQ(format.convention, PlaneConvention::kStrikeDip);
    const Table table = ReadTable(text, format);
    ASSERT_EQ(table.planes.size(), 1U);
    EXPECT_EQ(table.planes[0], (Plane{45, 120}));
    EXPECT_EQ(table.secondLines[0], (Line{20, 200}));
    EXPECT_EQ(FormatOfText("45\t120\n", CommaFormat()), CommaFormat());
}

TEST(PublicTable, BytesOfFilesBecomeUtf8) {
    EXPECT_EQ(DecodedText("\xEF\xBB\xBF"
                          "45"),
              "45");
    EXPECT_EQ(DecodedText("Sch\xE4re"), "Sch\xC3\xA4re");
    EXPECT_EQ(DecodedText(std::string("\xFF\xFE"
                                      "4\0"
                                      "5\0",
                                      6)),
              "45");
}

TEST(PublicTable, AnExampleOfTheProgramIsReadWhole) {
    std::ifstream file(std::string(QUANDREL_SOURCE_DIR) + "/examples/folded_bedding.txt",
                       std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    TableFormat format;
    format.hasHeading = true;
    const Table table = ReadTable(DecodedText(text), format);
    EXPECT_GT(table.planes.size(), 50U);
    EXPECT_TRUE(table.refused.empty());
}

TEST(PublicTable, RefusesWhatIsNoFormat) {
    TableFormat format = CommaFormat();
    format.delimiter = 'x';
    EXPECT_THROW(static_cast<void>(ReadTable("", format)), std::invalid_argument);
    format = CommaFormat();
    format.columns.dip = 255;
    EXPECT_THROW(static_cast<void>(ReadTable("", format)), std::invalid_argument);
    format = CommaFormat();
    format.primary = Primary::kLines;
    format.secondary = Secondary::kPitch;
    EXPECT_THROW(static_cast<void>(ReadTable("", format)), std::invalid_argument);
    format = CommaFormat();
    format.convention = static_cast<PlaneConvention>(0);
    EXPECT_THROW(static_cast<void>(FormatOfText("", format)), std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
