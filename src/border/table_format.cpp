// SPDX-License-Identifier: MIT

#include "border/table_format.h"

#include "border/border.h"
#include "input/parameter_line.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace quandrel::api {

namespace {

constexpr int kLastColumn = 254;
constexpr int kTrendFirstCode = 10; ///< added to a convention; quadrant codes do not have it

/// The columns in the order of the parser's slots.
constexpr std::array kColumnsBySlot = {
    &TableColumns::dip,        &TableColumns::direction,       &TableColumns::sense,
    &TableColumns::secondDip,  &TableColumns::secondDirection, &TableColumns::secondSense,
    &TableColumns::linePlunge, &TableColumns::lineTrend,       &TableColumns::number,
    &TableColumns::text,
};
static_assert(kColumnsBySlot.size() == kColumnSlots);

ColumnSettings ColumnsIn(const TableColumns& columns) {
    ColumnSettings slots{};
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        slots[slot] = columns.*kColumnsBySlot[slot];
    }
    return slots;
}

TableColumns ColumnsOut(const ColumnSettings& slots) {
    TableColumns columns;
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        columns.*kColumnsBySlot[slot] = slots[slot];
    }
    return columns;
}

void RequireValid(const TableFormat& format) {
    Within(static_cast<int>(format.primary), kDirections, kPrimaryLine, "primary");
    Within(static_cast<int>(format.secondary), kNoSecondary, kHadeInPlane, "secondary");
    Within(static_cast<int>(format.convention), kDipDipDirection, kStrikeDipRightHand,
           "convention");
    for (const std::int32_t column : ColumnsIn(format.columns)) {
        Within(column, 0, kLastColumn, "column");
    }
    constexpr std::string_view kDelimiters("\0\t ,;", 5);
    if (kDelimiters.find(format.delimiter) == std::string_view::npos) {
        throw std::invalid_argument("a delimiter is not a comma, semicolon, tab or blank");
    }
    if (!CommentMarksIn(format.commentMarks)) {
        throw std::invalid_argument("a comment mark is not one of #, % and //");
    }
    const bool isInPlane = format.secondary == Secondary::kPitch
                           || format.secondary == Secondary::kTrend
                           || format.secondary == Secondary::kAngle;
    if (isInPlane && format.primary != Primary::kPlanes) {
        throw std::invalid_argument("a line is measured in a plane, but the format has no plane");
    }
}

FormatSettings SettingsIn(const TableFormat& format) {
    FormatSettings settings;
    const int code = static_cast<int>(format.convention)
                     + (format.pairsAreTrendFirst && !format.isQuadrant ? kTrendFirstCode : 0);
    settings.conventions = static_cast<std::int16_t>(format.isQuadrant ? -code : code);
    settings.delimiter =
        format.delimiter == kAnyDelimiter ? std::string() : std::string(1, format.delimiter);
    settings.primary = static_cast<std::int16_t>(format.primary);
    settings.secondary = static_cast<std::int16_t>(format.secondary);
    settings.lineAppended = format.hasLine;
    settings.numericAppended = format.hasNumber;
    settings.nonNumericAppended = format.hasText;
    settings.columns = ColumnsIn(format.columns);
    settings.hasHeadings = format.hasHeading;
    settings.negativePlunge =
        format.trendsNameUpperEnds ? NegativePlunge::Vector : NegativePlunge::LowerEnd;
    settings.comments = CommentMarksIn(format.commentMarks).value_or(CommentMarks());
    settings.pairsInCells = format.hasPairs;
    return settings;
}

} // namespace

TableFormat FormatOut(const FormatSettings& settings, TableFormat format) {
    std::int16_t convention = 0;
    DecodeConventions(settings.conventions, convention, format.pairsAreTrendFirst,
                      format.isQuadrant);
    format.convention = static_cast<PlaneConvention>(convention);
    format.delimiter = settings.delimiter.empty() ? kAnyDelimiter : settings.delimiter.front();
    format.primary = static_cast<Primary>(std::max(settings.primary, std::int16_t{kDirections}));
    format.secondary = static_cast<Secondary>(settings.secondary);
    format.hasLine = settings.lineAppended;
    format.hasNumber = settings.numericAppended;
    format.hasText = settings.nonNumericAppended;
    format.columns = ColumnsOut(settings.columns);
    format.hasHeading = settings.hasHeadings;
    format.trendsNameUpperEnds = settings.negativePlunge == NegativePlunge::Vector;
    format.commentMarks = TextOfCommentMarks(settings.comments);
    format.hasPairs = settings.pairsInCells;
    return format;
}

LineFormat LineFormatIn(const TableFormat& format) {
    RequireValid(format);
    LineFormat line;
    line.primary = static_cast<std::int16_t>(format.primary);
    line.secondary = static_cast<std::int16_t>(format.secondary);
    line.planeConvention = static_cast<int>(format.convention);
    line.isQuadrant = format.isQuadrant;
    line.slots = ColumnsIn(format.columns);
    line.delimiter = format.delimiter;
    line.wantLine = format.hasLine;
    line.wantNumber = format.hasNumber;
    line.wantText = format.hasText;
    line.secondaryMayBeMissing = format.secondaryMayBeMissing;
    line.decimalIsComma = format.decimalIsComma;
    line.negativePlunge =
        format.trendsNameUpperEnds ? NegativePlunge::Vector : NegativePlunge::LowerEnd;
    line.lineIsTrendFirst = format.pairsAreTrendFirst;
    line.comments = CommentMarksIn(format.commentMarks).value_or(CommentMarks());
    line.pairsInCells = format.hasPairs;
    line.neededColumns = HighestColumnNeeded(line) + 1;
    return line;
}

TableFormat WithParameterLines(std::string_view text, const TableFormat& format) {
    RequireValid(format);
    const ParameterItems items = ReadParameterLines(text);
    return FormatOut(WithNewPlotItems(WithFormatItems(SettingsIn(format), items), items), format);
}

std::string ReasonOf(LineStatus status) {
    // "ERROR 5: not orientation data"
    const std::string_view text = ErrorText(status);
    const std::size_t colon = text.find(": ");
    return std::string(colon == std::string_view::npos ? text : text.substr(colon + 2));
}

} // namespace quandrel::api
