// SPDX-License-Identifier: MIT

#include "quandrel/table.h"

#include "border/border.h"
#include "border/table_format.h"
#include "input/data_line.h"
#include "input/text_file.h"

#include <cmath>
#include <limits>

namespace quandrel::api {

namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// An azimuth in the range of texts, 0 to below 360.
double Turned(double degrees) {
    return degrees < 0 ? degrees + 360 : degrees < 360 ? degrees : degrees - 360;
}

/// Appends rows to the columns that the format contains.
class TableFiller {
public:
    TableFiller(const TableFormat& format, Table& table)
        : format_(format)
        , table_(table) {}

    void Add(const ParsedRow& row, std::size_t lineNumber) {
        table_.lineNumbers.push_back(lineNumber);
        AddPair(row.isPlane, row.dip, row.az, table_.planes, table_.lines);
        AddSecondary(row);
        if (format_.hasLine) {
            const bool isGood = row.lineStatus == AppendedLineStatus::Good;
            table_.appendedLines.push_back(isGood ? Line{row.linePlunge, Turned(row.lineTrend)}
                                                  : Line{kNoNumber, kNoNumber});
        }
        if (format_.hasNumber) {
            const bool isNumber = row.numberStatus == NumberStatus::Good
                                  || row.numberStatus == NumberStatus::WrongDelimiter;
            table_.numbers.push_back(isNumber ? row.number : kNoNumber);
        }
        if (format_.hasText) {
            table_.texts.emplace_back(std::string_view(row.text));
        }
    }

private:
    static void AddPair(bool isPlane, double dip, double azimuth, std::vector<Plane>& planes,
                        std::vector<Line>& lines) {
        if (isPlane) {
            planes.push_back({dip, Turned(azimuth)});
        } else {
            lines.push_back({dip, Turned(azimuth)});
        }
    }

    void AddSecondary(const ParsedRow& row) {
        if (format_.secondary != Secondary::kNone) {
            const bool isThere = row.secondaryPresent;
            AddPair(row.isPlane2, isThere ? row.dip2 : kNoNumber, isThere ? row.az2 : kNoNumber,
                    table_.secondPlanes, table_.secondLines);
        }
    }

    const TableFormat& format_;
    Table& table_;
};

/// True for a line without information about rows; it may also precede a heading.
bool IsBesideRows(LineStatus status) {
    return status == LineStatus::Blank || status == LineStatus::Comment
           || status == LineStatus::ParameterLine;
}

} // namespace

Table ReadTable(std::string_view text, const TableFormat& format) {
    const LineFormat lineFormat = LineFormatIn(format);
    Table table;
    TableFiller filler(format, table);
    LineReader reader(text);
    bool headingIsAhead = format.hasHeading;
    std::string_view line;
    for (std::size_t number = 1; reader.Next(line); ++number) {
        const ParsedRow row = ParseLine(line, lineFormat);
        if (IsBesideRows(row.status)) {
            continue;
        }
        if (headingIsAhead) {
            table.heading = line;
            headingIsAhead = false;
        } else if (row.status == LineStatus::Row) {
            filler.Add(row, number);
        } else {
            table.refused.push_back({number, ReasonOf(row.status)});
        }
    }
    return table;
}

TableFormat FormatOfText(std::string_view text, const TableFormat& format) {
    return WithParameterLines(text, format);
}

std::string DecodedText(std::string bytes) {
    return DecodeText(std::move(bytes));
}

} // namespace quandrel::api
