// SPDX-License-Identifier: MIT
//
// The columns of the grid of a plot, and formatting and parsing the texts of its cells.

#pragma once

#include "core/map_places.h"
#include "core/measured_rows.h"
#include "core/plot_record.h"
#include "input/data_rows.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

enum class GridAlign { Left, Right, Centre };

/// What a column of the grid shows.
enum class GridColumnKind {
    RowNumber,
    Dip, ///< or plunge
    Azimuth,
    SecondaryDip,
    SecondaryAzimuth,
    LinePlunge,
    LineTrend,
    Number,
    Text,
    MapX, ///< place on the map, if any row has one
    MapY,
    Edited, ///< kEditedMark in rows with edits
};

struct GridColumn {
    GridColumnKind kind = GridColumnKind::RowNumber;
    std::string header;
    GridAlign align = GridAlign::Left;
};

inline constexpr std::string_view kEditedMark = "*";
inline constexpr std::string_view kDeletedRow = "deleted"; ///< in the first data cell
inline constexpr std::string_view kNonDataRow = "non-data";

/// The heads of a plot's columns in one text: separated by "|", each preceded by ">" if
/// right-aligned and "^" if centred.
///
/// @param hasPlaces  whether rows have places on the map
[[nodiscard]] std::string GridFormatOf(const PlotRecord& record, bool hasPlaces = false);

/// The columns of GridFormatOf.
[[nodiscard]] std::vector<GridColumn> GridColumnsOf(const PlotRecord& record,
                                                    bool hasPlaces = false);

/// The caption of the grid of a plot.
[[nodiscard]] std::string DataGridCaption(const PlotRecord& record);

/// A pair of cells as an orientation, parsed as dip, dip direction or plunge, trend in a file.
/// Nothing when they are invalid.
[[nodiscard]] std::optional<KeptAttitude> ReadGridPair(std::string_view dip,
                                                       std::string_view azimuth, bool isPlane);

/// A cell as an appended number; nothing when it is not a number that a column can hold.
[[nodiscard]] std::optional<float> ReadGridNumber(std::string_view text);

/// A pair of cells as a place on the map; nothing when they are not two numbers.
[[nodiscard]] std::optional<MapPlace> ReadGridPlace(std::string_view x, std::string_view y);

/// The columns of an orientation.
struct PairKinds {
    GridColumnKind dip;
    GridColumnKind azimuth;
};

/// The pair that a column belongs to, or nothing.
[[nodiscard]] std::optional<PairKinds> PairOf(GridColumnKind kind);

/// The orientation that a pair of columns shows.
[[nodiscard]] RowAngles AnglesOf(const PairKinds& pair);

/// True for the columns of places on the map.
[[nodiscard]] constexpr bool IsPlaceKind(GridColumnKind kind) {
    return kind == GridColumnKind::MapX || kind == GridColumnKind::MapY;
}

/// True for an invalid pair; all but the primary one may be empty.
[[nodiscard]] bool IsBadPair(const PlotRecord& record, const PairKinds& pair, std::string_view dip,
                             std::string_view azimuth);

/// True for a column of row data.
[[nodiscard]] constexpr bool IsDataKind(GridColumnKind kind) {
    return kind != GridColumnKind::RowNumber && kind != GridColumnKind::Edited;
}

/// How many decimals the text of an angle has.
enum class AngleDigits : std::uint8_t {
    Whole,
    OneDecimal,
    All, ///< at most six, without trailing zeros
};

/// The texts of cells. An azimuth has three digits before its decimals. Decimals have the delimiter
/// of the region, as when they are read.
[[nodiscard]] std::string DipText(double dip, AngleDigits digits);
[[nodiscard]] std::string AzimuthText(double azimuth, AngleDigits digits);
[[nodiscard]] std::string RegionalText(float number);
[[nodiscard]] std::string RegionalCoordinate(double coordinate);

} // namespace quandrel
