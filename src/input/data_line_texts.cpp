// SPDX-License-Identifier: MIT
//
// The parser's results as texts.

#include "input/data_line.h"
#include "input/data_rows.h"
#include "input/decimal_delimiter.h"
#include "input/line_tokens.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"

#include <algorithm>

namespace quandrel {

namespace {

constexpr std::string_view kErrorStart = "ERROR ";
constexpr std::string_view kWrongDelimiter = "ERROR D:";
constexpr std::string_view kMissingNumber = "ERROR 8: missing numeric data";
constexpr std::string_view kIncorrectNumber = "ERROR 9: incorrect numeric data";
constexpr std::string_view kMissingLine = "ERROR A: missing Appended line data";
constexpr std::string_view kIncorrectLine = "ERROR B: incorrect Appended line data";
constexpr std::string_view kWanted = "TRUE";
constexpr std::string_view kNothing = "FALSE";

std::string GeneralText(double value) {
    return FormatNumber(value, "General Number");
}

bool IsComputed(std::int16_t secondaryFormat) {
    return secondaryFormat == kPitchInPlane || secondaryFormat == kTrendInPlane
           || secondaryFormat == kHadeInPlane;
}

void TellSecondary(const ParsedRow& row, const LineFormat& format, std::string& outDip2,
                   std::string& outAz2) {
    if (format.secondary == kNoSecondary) {
        return;
    }
    if (!row.secondaryPresent) {
        outDip2 = std::to_string(kErrorRow);
        outAz2 = "0";
        return;
    }
    if (IsComputed(format.secondary)) {
        const Attitude whole = RoundedAttitude({row.dip2, row.az2}, false);
        outDip2 = std::to_string(WholeDegree(whole.dip));
        outAz2 = std::to_string(WholeDegree(whole.azimuth));
        return;
    }
    outDip2 = GeneralText(row.dip2);
    outAz2 = GeneralText(row.az2);
}

void TellAppendedLine(const ParsedRow& row, std::string& outLineDip, std::string& outLineAz) {
    switch (row.lineStatus) {
    case AppendedLineStatus::Absent:
        outLineDip = kNothing;
        break;
    case AppendedLineStatus::Good:
        outLineDip = GeneralText(row.linePlunge);
        outLineAz = GeneralText(row.lineTrend);
        break;
    case AppendedLineStatus::Missing:
        outLineDip = kMissingLine;
        break;
    case AppendedLineStatus::Incorrect:
        outLineDip = kIncorrectLine;
        break;
    }
}

std::string NumberResult(const ParsedRow& row, std::string_view token, const LineFormat& format) {
    switch (row.numberStatus) {
    case NumberStatus::Good:
        return format.convertDecimals ? FixDecimalDelimiter(token, format.decimalIsComma)
                                      : std::string(token);
    case NumberStatus::Missing:
        return std::string(kMissingNumber);
    case NumberStatus::Incorrect:
        return std::string(kIncorrectNumber);
    case NumberStatus::WrongDelimiter:
        return std::string(kWrongDelimiter).append(token);
    default:
        return std::string(kNothing);
    }
}

// The token of the number as written in the line.
std::string NumberToken(std::string_view line, const LineFormat& format) {
    std::string token;
    std::size_t position = 0;
    for (int column = 0; column <= format.slots[kSlotNumber]; ++column) {
        if (!NextToken(line, position, token, format.delimiter)) {
            break;
        }
    }
    return token;
}

// The values in the slots; the slots are replaced by their own indexes.
std::array<std::string, kColumnSlots> TakeValues(SlotValues& slots) {
    std::array<std::string, kColumnSlots> values;
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        values[slot] = TextOf(slots[slot]);
        slots[slot] = static_cast<std::int32_t>(slot);
    }
    return values;
}

void TakeColumns(const SlotValues& slots, ColumnSettings& columns) {
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        const double column = NumberOf(slots[slot]);
        columns[slot] =
            column >= 0 && column < kMostColumns ? static_cast<std::int32_t>(column) : kMostColumns;
    }
}

} // namespace

std::string_view ErrorText(LineStatus status) {
    switch (status) {
    case LineStatus::ParameterLine:
        return "ERROR /: /parameter line";
    case LineStatus::Comment:
        return "ERROR 1: comments line";
    case LineStatus::NotData:
        return "ERROR 2: not data line";
    case LineStatus::TooFewItems:
        return "ERROR 3: not enough items in each data line";
    case LineStatus::NotQuadrant:
        return "ERROR 4: not quadrant data";
    case LineStatus::NotOrientation:
        return "ERROR 5: not orientation data";
    case LineStatus::Missing:
        return "ERROR 6: missing data";
    default:
        return {};
    }
}

bool IsErrorText(std::string_view text) {
    return text.substr(0, kErrorStart.size()) == kErrorStart;
}

void ParseDataLine(std::string_view line, std::string& outDip, std::string& outAz,
                   std::string& outDip2, std::string& outAz2, std::string& outNumeric,
                   std::string& outText, std::string& outLineDip, std::string& outLineAz,
                   int neededColumns, std::int16_t primaryFormat, std::int16_t secondaryFormat,
                   std::int16_t planeConvention, bool lineIsTrendFirst, bool isQuadrant,
                   SlotValues& slots, std::string_view delimiter, bool hasOverlays) {
    LineFormat format = LineFormatFromGlobals(hasOverlays);
    format.primary = primaryFormat;
    format.secondary = secondaryFormat;
    format.planeConvention = planeConvention;
    format.lineIsTrendFirst = lineIsTrendFirst;
    format.isQuadrant = isQuadrant;
    format.delimiter = delimiter.empty() ? kAnyDelimiter : delimiter.front();
    format.wantLine = outLineDip == kWanted;
    format.wantNumber = outNumeric == kWanted;
    format.wantText = outText == kWanted;
    format.neededColumns = neededColumns;

    ParsedRow row;
    std::array<std::string, kColumnSlots> values;
    std::string numberToken;
    if (neededColumns == kValuesInSlots) {
        values = TakeValues(slots);
        std::array<std::string_view, kColumnSlots> views;
        std::copy(values.begin(), values.end(), views.begin());
        row = ParseValues(views, format);
        numberToken = WithoutBlanks(values[kSlotNumber]);
    } else {
        TakeColumns(slots, format.slots);
        row = ParseLine(line, format);
        numberToken = format.wantNumber ? NumberToken(line, format) : std::string();
    }

    outDip = ErrorText(row.status);
    outAz.clear();
    outDip2.clear();
    outAz2.clear();
    outLineAz.clear();
    if (row.status == LineStatus::Row) {
        outDip = GeneralText(row.dip);
        outAz = GeneralText(row.az);
        TellSecondary(row, format, outDip2, outAz2);
    }
    TellAppendedLine(row, outLineDip, outLineAz);
    outNumeric = NumberResult(row, numberToken, format);
    outText = row.textStatus == TextStatus::Good ? std::string_view(row.text) : kNothing;
}

} // namespace quandrel
