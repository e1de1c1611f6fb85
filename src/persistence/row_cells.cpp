// SPDX-License-Identifier: MIT

#include "persistence/row_cells.h"

#include "core/data_format.h"
#include "core/letter_case.h"
#include "core/measured_rows.h"
#include "core/plot_rows.h"
#include "core/tagged_value.h"
#include "input/place_columns.h"
#include "orientation/degrees_text.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>

namespace quandrel {

namespace {

using Cells = std::vector<std::string>;

/// An orientation in two cells; both are empty where it is missing.
void AddPair(const Attitude& attitude, bool isPresent, Cells& cells) {
    cells.push_back(isPresent ? DegreesText(attitude.dip) : std::string());
    cells.push_back(isPresent ? DegreesText(attitude.azimuth) : std::string());
}

/// The columns of a table, with numbers behind headings that it has already.
std::vector<WrittenTable::Column> ColumnsOfTable(const PlotRecord& record) {
    std::vector<WrittenTable::Column> columns;
    std::set<std::string> used = {"x", "y"};
    for (const std::string& heading : HeadingsOfRows(record)) {
        std::string unique = heading.empty() ? "value" : heading;
        for (int i = 2; !used.insert(LowerCase(unique)).second; ++i) {
            unique = heading + " " + std::to_string(i);
        }
        columns.push_back({unique, true});
    }
    columns.back().isNumber = record.HasAppendedText == 0;
    return columns;
}

void AddCsvCell(std::string_view cell, std::string& line) {
    if (cell.find_first_of(",\"\r\n") == std::string_view::npos) {
        line += cell;
        return;
    }
    line += '"';
    for (const char c : cell) {
        line.append(c == '"' ? 2 : 1, c);
    }
    line += '"';
}

std::string CsvLine(const Cells& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        line += &cell == &cells.front() ? "" : ",";
        AddCsvCell(cell, line);
    }
    return line + "\r\n";
}

} // namespace

std::vector<std::string> HeadingsOfRows(const PlotRecord& record) {
    Cells cells;
    const auto add = [&cells](const char* dip, const char* azimuth) {
        cells.insert(cells.end(), {dip, azimuth});
    };
    if (record.PrimaryFormat <= kDirections) {
        cells.emplace_back("direction");
    } else if (record.PrimaryFormat == kPrimaryPlane) {
        add("dip", "dip direction");
    } else {
        add("plunge", "trend");
    }
    if (record.SecondaryFormat == kSecondaryPlane) {
        add("second dip", "second dip direction");
    } else if (record.SecondaryFormat != kNoSecondary) {
        add("second plunge", "second trend");
    }
    if (record.HasAppendedLine != 0) {
        add("appended plunge", "appended trend");
    }
    if (record.HasAppendedNumeric != 0) {
        cells.push_back(record.AppNumName);
    }
    if (record.HasAppendedText != 0) {
        cells.push_back(record.AppNonNumName);
    }
    return cells;
}

std::vector<std::string> CellsOfRow(const Plot& plot, std::int32_t row, SavedDegrees degrees) {
    const PlotRecord& record = plot.record;
    const PlotRows& rows = plot.rows;
    const auto saved = [&rows, row, degrees](RowAngles which) {
        return degrees == SavedDegrees::Whole ? WholeAttitude(rows, which, row)
                                              : MeasuredAttitude(rows, which, row);
    };
    Cells cells;
    if (record.PrimaryFormat <= kDirections) {
        cells.push_back(DegreesText(saved(RowAngles::Primary).azimuth));
    } else {
        AddPair(saved(RowAngles::Primary), true, cells);
    }
    if (record.SecondaryFormat != kNoSecondary) {
        AddPair(saved(RowAngles::Secondary), rows.dip2(row) != kErrorRow, cells);
    }
    if (record.HasAppendedLine != 0) {
        AddPair(saved(RowAngles::Line), rows.lineDip(row) != kInvalidAppendedLine, cells);
    }
    if (record.HasAppendedNumeric != 0) {
        const float number = rows.number(row);
        cells.push_back(number == kInvalidNumber ? std::string() : TextOf(number));
    }
    if (record.HasAppendedText != 0) {
        cells.emplace_back(rows.text(row));
    }
    return cells;
}

std::array<std::string, 2> PlaceCells(const Plot& plot, std::int32_t row) {
    const std::optional<MapPlace> place = MapPlaceOf(plot.rows, row);
    if (!place) {
        return {};
    }
    return {CoordinateText(place->x), CoordinateText(place->y)};
}

WrittenTable TableOfRows(const Plot& plot, SavedDegrees degrees) {
    WrittenTable table;
    table.name = "orientations";
    table.columns = ColumnsOfTable(plot.record);
    const bool hasPlaces = HasMapPlaces(plot);
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        if (DipOfRow(plot, row) == kErrorRow) {
            continue;
        }
        table.rows.push_back(CellsOfRow(plot, row, degrees));
        if (hasPlaces) {
            const std::optional<MapPlace> place = MapPlaceOf(plot.rows, row);
            table.places.push_back(place ? std::optional(WrittenTable::Place{place->x, place->y})
                                         : std::nullopt);
        }
    }
    return table;
}

std::string CsvOfRows(const Plot& plot, SavedDegrees degrees) {
    const bool hasPlaces = HasMapPlaces(plot);
    Cells headings = HeadingsOfRows(plot.record);
    if (hasPlaces) {
        headings.insert(headings.end(), {"x", "y"});
    }
    std::string text = CsvLine(headings);
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        if (DipOfRow(plot, row) != kErrorRow) {
            Cells cells = CellsOfRow(plot, row, degrees);
            if (hasPlaces) {
                std::ranges::copy(PlaceCells(plot, row), std::back_inserter(cells));
            }
            text += CsvLine(cells);
        }
    }
    return text;
}

} // namespace quandrel
