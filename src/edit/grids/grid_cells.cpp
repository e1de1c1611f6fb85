// SPDX-License-Identifier: MIT

#include "edit/grids/grid_cells.h"

#include "core/plot_store.h"
#include "input/data_rows.h"
#include "input/place_columns.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace quandrel {

namespace {

/// A group of columns: its head format and their kinds.
struct GridPiece {
    const char* format;
    std::vector<GridColumnKind> kinds;
};

std::vector<GridPiece> PiecesOf(const PlotRecord& record, bool hasPlaces) {
    using Kind = GridColumnKind;
    std::vector<GridPiece> pieces = {
        {"        |>Dip/Plunge  |>Azimuth  ", {Kind::RowNumber, Kind::Dip, Kind::Azimuth}}};
    if (record.SecondaryFormat > kNoSecondary) {
        pieces.push_back(
            {"|>Sec. Dip/Pl |>Sec Azim ", {Kind::SecondaryDip, Kind::SecondaryAzimuth}});
    }
    if (record.HasAppendedLine != 0) {
        pieces.push_back({"|>App.Line Plunge |>Line Azim ", {Kind::LinePlunge, Kind::LineTrend}});
    }
    if (record.HasAppendedNumeric != 0) {
        pieces.push_back({"|>Numeric ", {Kind::Number}});
    }
    if (record.HasAppendedText != 0) {
        pieces.push_back({"|>AlphaNum. ", {Kind::Text}});
    }
    if (hasPlaces) {
        pieces.push_back({"|>Map X |>Map Y ", {Kind::MapX, Kind::MapY}});
    }
    pieces.push_back({"|^Edited", {Kind::Edited}});
    return pieces;
}

GridColumn ColumnOf(std::string_view piece, GridColumnKind kind) {
    GridColumn column;
    column.kind = kind;
    if (piece.starts_with('>') || piece.starts_with('^')) {
        column.align = piece.front() == '>' ? GridAlign::Right : GridAlign::Centre;
        piece.remove_prefix(1);
    }
    column.header = std::string(WithoutBlanks(piece));
    return column;
}

std::string WithRegionalDelimiter(std::string text) {
    if (gDecimalIsComma) {
        std::ranges::replace(text, '.', ',');
    }
    return text;
}

/// @param wholeFormat  number format of the whole degrees
std::string AngleText(double degrees, const std::string& wholeFormat, AngleDigits digits) {
    const char* decimals = digits == AngleDigits::Whole        ? ""
                           : digits == AngleDigits::OneDecimal ? ".0"
                                                               : ".######";
    return WithRegionalDelimiter(FormatNumber(degrees, wholeFormat + decimals));
}

} // namespace

std::string GridFormatOf(const PlotRecord& record, bool hasPlaces) {
    std::string format;
    for (const GridPiece& piece : PiecesOf(record, hasPlaces)) {
        format += piece.format;
    }
    return format;
}

std::vector<GridColumn> GridColumnsOf(const PlotRecord& record, bool hasPlaces) {
    std::vector<GridColumn> columns;
    for (const GridPiece& piece : PiecesOf(record, hasPlaces)) {
        std::string_view rest = piece.format;
        rest.remove_prefix(rest.starts_with('|') ? 1 : 0);
        for (const GridColumnKind kind : piece.kinds) {
            const std::size_t end = std::min(rest.find('|'), rest.size());
            columns.push_back(ColumnOf(rest.substr(0, end), kind));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return columns;
}

std::string DataGridCaption(const PlotRecord& record) {
    return "Processed data in: " + record.PlotTitle;
}

std::optional<KeptAttitude> ReadGridPair(std::string_view dip, std::string_view azimuth,
                                         bool isPlane) {
    LineFormat format;
    format.primary = isPlane ? kPrimaryPlane : kPrimaryLine;
    const ParsedRow row = ParseValues({WithoutBlanks(dip), WithoutBlanks(azimuth)}, format);
    if (row.status != LineStatus::Row) {
        return std::nullopt;
    }
    return KeptOf({row.dip, row.az}, isPlane);
}

std::optional<float> ReadGridNumber(std::string_view text) {
    LineFormat format;
    format.wantNumber = true;
    format.decimalIsComma = gDecimalIsComma;
    format.convertDecimals = gConvertDecimals;
    // The orientation is only there because the parser needs one.
    std::array<std::string_view, kColumnSlots> values = {"0", "0"};
    values[kSlotNumber] = WithoutBlanks(text);
    const ParsedRow row = ParseValues(values, format);
    if (row.numberStatus != NumberStatus::Good
        || std::abs(row.number) > static_cast<double>(std::numeric_limits<float>::max())) {
        return std::nullopt;
    }
    const auto number = static_cast<float>(row.number);
    return number == kInvalidNumber ? std::nullopt : std::optional(number);
}

std::optional<MapPlace> ReadGridPlace(std::string_view x, std::string_view y) {
    const std::optional<double> easting = ReadNumber(x);
    const std::optional<double> northing = ReadNumber(y);
    return easting && northing ? std::optional(MapPlace{*easting, *northing}) : std::nullopt;
}

std::optional<PairKinds> PairOf(GridColumnKind kind) {
    using Kind = GridColumnKind;
    switch (kind) {
    case Kind::Dip:
    case Kind::Azimuth:
        return PairKinds{Kind::Dip, Kind::Azimuth};
    case Kind::SecondaryDip:
    case Kind::SecondaryAzimuth:
        return PairKinds{Kind::SecondaryDip, Kind::SecondaryAzimuth};
    case Kind::LinePlunge:
    case Kind::LineTrend:
        return PairKinds{Kind::LinePlunge, Kind::LineTrend};
    default:
        return std::nullopt;
    }
}

RowAngles AnglesOf(const PairKinds& pair) {
    switch (pair.dip) {
    case GridColumnKind::SecondaryDip:
        return RowAngles::Secondary;
    case GridColumnKind::LinePlunge:
        return RowAngles::Line;
    default:
        return RowAngles::Primary;
    }
}

bool IsBadPair(const PlotRecord& record, const PairKinds& pair, std::string_view dip,
               std::string_view azimuth) {
    const bool isPrimary = pair.dip == GridColumnKind::Dip;
    if (!isPrimary && WithoutBlanks(dip).empty() && WithoutBlanks(azimuth).empty()) {
        return false;
    }
    const bool isPlane = isPrimary ? record.PrimaryFormat == kPrimaryPlane
                                   : pair.dip == GridColumnKind::SecondaryDip
                                         && record.SecondaryFormat == kSecondaryPlane;
    return !ReadGridPair(dip, azimuth, isPlane);
}

std::string DipText(double dip, AngleDigits digits) {
    return AngleText(dip, "0", digits);
}

std::string AzimuthText(double azimuth, AngleDigits digits) {
    return AngleText(azimuth, "000", digits);
}

std::string RegionalText(float number) {
    return WithRegionalDelimiter(TextOf(TaggedValue(number)));
}

std::string RegionalCoordinate(double coordinate) {
    return WithRegionalDelimiter(CoordinateText(coordinate));
}

} // namespace quandrel
