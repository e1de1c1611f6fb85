// SPDX-License-Identifier: MIT

#include "input/data_line.h"
#include "input/data_rows.h"
#include "input/text_file.h"
#include "stereo/distinct_lines.h"
#include "summary/plain_pairs.h"
#include "summary/summary_file.h"
#include "summary/summary_text.h"

#include <gtest/gtest.h>

#include <random>

namespace quandrel {
namespace {

LineFormat Pairs(int convention = kDipDipDirection, char delimiter = '\t') {
    LineFormat format;
    format.planeConvention = convention;
    format.delimiter = delimiter;
    if (convention == kDipDirectionDip || convention == kStrikeDipRightHand) {
        format.slots[kSlotDip] = 1;
        format.slots[kSlotDirection] = 0;
    }
    return format;
}

TextSource SourceOf(const std::string& text, std::size_t& position) {
    return [&text, &position](std::span<char> into) -> Result<std::size_t> {
        const std::size_t count = std::min(into.size(), text.size() - position);
        std::copy_n(text.data() + position, count, into.data());
        position += count;
        return count;
    };
}

Result<RowSummary> Summarised(const std::string& text, const SummaryFormat& format,
                              unsigned threads = 1) {
    std::size_t position = 0;
    RowSummary summary({format.line.primary, format.isWeighted});
    const std::string error = SummariseText(SourceOf(text, position), format, threads, summary);
    if (!error.empty()) {
        return Failure{error};
    }
    return summary;
}

/// Random lines, plain and odd ones.
std::string RandomText(std::size_t lines, std::uint32_t seed) {
    std::mt19937 random(seed);
    const std::vector<std::string> numbers = {"40",  "7",   "090", "359", "360",      "361",
                                              "90",  "91",  "0",   "-5",  "12.5",     "12.3456789",
                                              "45.", ".5",  "",    " 30", "1e1",      "33,5",
                                              "N",   "270", "271", "180", "89.999999"};
    const std::vector<std::string> ends = {"\n", "\r\n", "\r", "\n", "\n"};
    const std::vector<std::string> rests = {"", "", "", "\tslate", " ", "\t", ";x", "x"};
    const std::vector<std::string> odd = {"", "; beds", "dip\tdirection", "/T1", "*", "abc", "\""};
    const auto pick = [&random](const auto& from) -> const std::string& {
        return from[random() % from.size()];
    };
    std::string text;
    for (std::size_t line = 0; line < lines; ++line) {
        text += random() % 9 == 0 ? pick(odd) : pick(numbers) + "\t" + pick(numbers) + pick(rests);
        text += pick(ends);
    }
    return text;
}

/// What the parser makes of each line.
RowSummary ByTheParser(const std::string& text, const SummaryFormat& format) {
    RowSummary summary({format.line.primary, format.isWeighted});
    LineReader reader(text);
    LineCounts counts;
    for (std::string_view line; reader.Next(line);) {
        const ParsedRow row = ParseLine(line, format.line);
        ++counts.read;
        if (row.status == LineStatus::Row) {
            // As the loader of files keeps it.
            summary.Add({KeptOf({row.dip, row.az}, summary.IsPlane()).Measured(), std::nullopt});
        } else if (row.status == LineStatus::Blank || row.status == LineStatus::Comment
                   || row.status == LineStatus::ParameterLine) {
            ++counts.blank;
        } else {
            ++counts.invalid;
        }
    }
    summary.AddLines(counts);
    return summary;
}

TEST(SummaryText, PlainLinesAreReadAsByTheParser) {
    for (const int convention : {kDipDipDirection, kDipDirectionDip, kDipStrikeRightHand,
                                 kStrikeDipRightHand, kStrikeDipSense}) {
        for (const char delimiter : {'\t', ' ', ',', kAnyDelimiter}) {
            SummaryFormat format{Pairs(convention, delimiter), false, false};
            std::string text = RandomText(5000, static_cast<std::uint32_t>(convention));
            if (delimiter != '\t' && delimiter != kAnyDelimiter) {
                std::replace(text.begin(), text.end(), '\t', delimiter);
            }
            EXPECT_EQ(*Summarised(text, format), ByTheParser(text, format))
                << convention << " '" << delimiter << "'";
            format.line.primary = kPrimaryLine;
            EXPECT_EQ(*Summarised(text, format), ByTheParser(text, format));
        }
    }
}

TEST(SummaryText, ThreadsAndPiecesChangeNothing) {
    std::string text;
    for (std::uint32_t part = 0; text.size() < 5'000'000; ++part) {
        text += RandomText(20'000, part);
    }
    const SummaryFormat format{Pairs(), false, false};
    const std::string one = SummaryBytes(*Summarised(text, format, 1));
    EXPECT_EQ(SummaryBytes(*Summarised(text, format, 3)), one);
    EXPECT_EQ(SummaryBytes(ByTheParser(text, format)), one);
}

TEST(SummaryText, HeadingsAndMarksAreNoRows) {
    const SummaryFormat format{Pairs(), true, false};
    const Result<RowSummary> summary = Summarised("\xEF\xBB\xBF; beds\n10\t20\n40\t120\n", format);
    EXPECT_EQ(summary->Rows(), 1U) << "the first line that is no comment is the heading";
    EXPECT_EQ(summary->Lines(), (LineCounts{3, 2, 0}));
}

TEST(SummaryText, AzimuthsBeyondTheCircleAreKeptAsTheLoaderKeepsThem) {
    const SummaryFormat format{Pairs(), false, false};
    const Result<RowSummary> summary = Summarised("40\t-90\n40\t270\n40.5\t-89.5\n", format);
    ASSERT_EQ(summary->Rows(), 3U);
    EXPECT_EQ(summary->Cells()[static_cast<std::size_t>(LineKeyOfDegrees(40, 270))], 3U);
}

TEST(SummaryText, NumbersAreSummedAndWeighRows) {
    SummaryFormat format{Pairs(), false, true};
    format.line.wantNumber = true;
    format.line.slots[kSlotNumber] = 2;
    format.line.neededColumns = 3;
    const Result<RowSummary> summary = Summarised("40\t120\t2.5\n40\t120\t1\n30\t10\t-\n", format);
    EXPECT_EQ(summary->Rows(), 3U);
    EXPECT_EQ(summary->Numbers().count, 2U);
    EXPECT_EQ(summary->Numbers().sum.Value(), 3.5);
    EXPECT_EQ(summary->TotalWeight(), 3.5);
}

TEST(SummaryText, WhatIsNoTextIsTold) {
    const SummaryFormat format{Pairs(), false, false};
    EXPECT_NE(Summarised("\xFF\xFE"
                         "4",
                         format)
                  .Error(),
              "");
    EXPECT_NE(Summarised(std::string(200, '\0'), format).Error(), "");
    EXPECT_NE(Summarised(std::string(3'000'000, '4'), format).Error(), "");
    RowSummary summary({kPrimaryPlane, false});
    EXPECT_NE(SummariseFile("/no such file", format, 1, summary), "");
    std::string text(3'000'000, '\n');
    std::size_t position = 0;
    EXPECT_NE(SummariseText(SourceOf(text, position), format, 2, summary,
                            [](std::uint64_t bytes) { return bytes < 1'500'000; }),
              "");
}

TEST(SummaryText, EmptyTextsHaveNoRows) {
    EXPECT_EQ(Summarised("", {Pairs(), false, false})->Rows(), 0U);
    EXPECT_EQ(Summarised("40\t120", {Pairs(), false, false})->Rows(), 1U);
}

} // namespace
} // namespace quandrel
