// SPDX-License-Identifier: MIT

#include "input/data_line.h"
#include "input/format_model.h"
#include "support/text_table.h"

#include <gtest/gtest.h>

namespace quandrel {

namespace {

/// The value that an option names.
template <class Value>
Value Named(const TableRow& row, const std::string& key, const std::string& without,
            const std::map<std::string, Value>& names) {
    const std::string name = OptionOf(row, key, without);
    const auto found = names.find(name);
    if (found == names.end()) {
        throw TableError(row.place + ": " + key + " cannot be '" + name + "'");
    }
    return found->second;
}

std::vector<std::string> ListOf(std::string text) {
    std::replace(text.begin(), text.end(), ',', ' ');
    return WordsOf(text);
}

void TakeColumns(const TableRow& row, LineFormat& format) {
    const std::vector<std::string> columns = ListOf(OptionOf(row, "columns", "0,1"));
    if (columns.size() > format.slots.size()) {
        throw TableError(row.place + ": ten columns at most");
    }
    for (std::size_t slot = 0; slot < columns.size(); ++slot) {
        format.slots[slot] = static_cast<std::int32_t>(NumberInWord(columns[slot]).value_or(-1));
    }
}

void TakeAppended(const TableRow& row, LineFormat& format) {
    for (const std::string& kind : ListOf(OptionOf(row, "appended", ""))) {
        format.wantLine |= kind == "line";
        format.wantNumber |= kind == "numeric";
        format.wantText |= kind == "text";
    }
}

/// The words are those of the batch program.
LineFormat FormatOf(const TableRow& row) {
    LineFormat format;
    format.primary = Named<std::int16_t>(
        row, "primary", "plane",
        {{"plane", kPrimaryPlane}, {"line", kPrimaryLine}, {"directions", kDirections}});
    format.secondary = Named<std::int16_t>(row, "secondary", "none",
                                           {{"none", kNoSecondary},
                                            {"pitch", kPitchInPlane},
                                            {"trend", kTrendInPlane},
                                            {"line", kSecondaryLine},
                                            {"plane", kSecondaryPlane},
                                            {"hade", kHadeInPlane}});
    std::int16_t convention = 1;
    DecodeConventions(
        static_cast<std::int16_t>(NumberInWord(OptionOf(row, "conventions", "1")).value_or(1)),
        convention, format.lineIsTrendFirst, format.isQuadrant);
    format.planeConvention = convention;
    format.delimiter = Named<char>(row, "delimiter", "space",
                                   {{"tab", '\t'},
                                    {"space", ' '},
                                    {"comma", ','},
                                    {"semicolon", ';'},
                                    {"any", kAnyDelimiter}});
    format.decimalIsComma = OptionOf(row, "decimalcomma", "no") == "yes";
    format.negativePlunge = Named<NegativePlunge>(
        row, "upward", "lowerend",
        {{"lowerend", NegativePlunge::LowerEnd}, {"vector", NegativePlunge::Vector}});
    TakeColumns(row, format);
    TakeAppended(row, format);
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

const char* NameOf(LineStatus status) {
    switch (status) {
    case LineStatus::Row:
        return "row";
    case LineStatus::Blank:
        return "blank";
    case LineStatus::ParameterLine:
        return "parameter-line";
    case LineStatus::Comment:
        return "comment";
    case LineStatus::NotData:
        return "not-data";
    case LineStatus::TooFewItems:
        return "too-few-items";
    case LineStatus::NotQuadrant:
        return "not-quadrant";
    case LineStatus::NotOrientation:
        return "not-orientation";
    case LineStatus::Missing:
        return "missing";
    }
    return "unknown";
}

std::string SecondaryOf(const ParsedRow& row) {
    if (!row.secondaryPresent) {
        return " and none";
    }
    return std::string(row.isPlane2 ? " and plane " : " and line ")
           + NumberWords({row.dip2, row.az2});
}

std::string AppendedOf(const ParsedRow& row) {
    std::string words;
    if (row.lineStatus != AppendedLineStatus::Absent) {
        words += row.lineStatus == AppendedLineStatus::Good
                     ? " axis " + NumberWords({row.linePlunge, row.lineTrend})
                     : " axis invalid";
    }
    if (row.numberStatus == NumberStatus::Good) {
        words += " number " + NumberWords({row.number});
    } else if (row.numberStatus != NumberStatus::Absent) {
        words += row.numberStatus == NumberStatus::Missing     ? " number missing"
                 : row.numberStatus == NumberStatus::Incorrect ? " number invalid"
                                                               : " number delimiter";
    }
    if (row.textStatus == TextStatus::Good) {
        words.append(" text ").append(std::string_view(row.text));
    }
    return words;
}

std::string WithTabs(std::string text) {
    constexpr std::string_view kTab = "<tab>";
    for (std::size_t at = text.find(kTab); at != std::string::npos; at = text.find(kTab)) {
        text.replace(at, kTab.size(), "\t");
    }
    return text;
}

std::string Parsed(const TableRow& row) {
    const LineFormat format = FormatOf(row);
    const std::string line = WithTabs(row.input);
    const ParsedRow parsed = ParseLine(line, format);
    if (parsed.status != LineStatus::Row) {
        return NameOf(parsed.status);
    }
    std::string words = format.primary == kDirections ? "direction " + NumberWords({parsed.az})
                        : parsed.isPlane ? "plane " + NumberWords({parsed.dip, parsed.az})
                                         : "line " + NumberWords({parsed.dip, parsed.az});
    if (format.secondary != kNoSecondary) {
        words += SecondaryOf(parsed);
    }
    return words + AppendedOf(parsed);
}

} // namespace

TEST(LineParserTable, GivesWhatItsRowsExpect) {
    const auto rows = ReadTableFile("line_parser.txt");
    EXPECT_GE(rows.size(), 40U);
    EXPECT_EQ(LinesOf(TableComplaints(rows, {{"line", Parsed}})), "");
}

} // namespace quandrel
