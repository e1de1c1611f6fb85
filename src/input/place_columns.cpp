// SPDX-License-Identifier: MIT

#include "input/place_columns.h"

#include "input/decimal_delimiter.h"
#include "input/line_tokens.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <cstddef>

namespace quandrel {

namespace {

std::optional<double> CoordinateIn(const Token& token, const LineFormat& format) {
    const std::optional<double> number = NumberIn(token);
    return number ? number
                  : NumberWithGroups(token.Text(), format.decimalIsComma, format.convertDecimals);
}

} // namespace

std::optional<MapPlace> MapPlaceIn(std::string_view line, const LineFormat& format) {
    const PlaceColumns& columns = format.placeColumns;
    if (!columns.AreUsed()) {
        return std::nullopt;
    }
    std::optional<double> x;
    std::optional<double> y;
    std::size_t position = 0;
    Token token;
    const std::int32_t last = std::max(columns.x, columns.y);
    for (std::int32_t column = 0;
         column <= last && NextToken(line, position, token, format.delimiter); ++column) {
        x = column == columns.x ? CoordinateIn(token, format) : x;
        y = column == columns.y ? CoordinateIn(token, format) : y;
    }
    return x && y ? std::optional(MapPlace{*x, *y}) : std::nullopt;
}

std::string CoordinateText(double coordinate) {
    return FormatNumber(coordinate, "General Number");
}

} // namespace quandrel
