// SPDX-License-Identifier: MIT

#include "persistence/row_cells.h"

#include "core/data_format.h"
#include "core/measured_rows.h"
#include "core/tagged_value.h"
#include "orientation/degrees_text.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <string_view>

namespace quandrel {

namespace {

using Cells = std::vector<std::string>;

/// An orientation in two cells; both are empty where it is missing.
void AddPair(const Attitude& attitude, bool isPresent, Cells& cells) {
    cells.push_back(isPresent ? DegreesText(attitude.dip) : std::string());
    cells.push_back(isPresent ? DegreesText(attitude.azimuth) : std::string());
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

std::string CsvOfRows(const Plot& plot, SavedDegrees degrees) {
    std::string text = CsvLine(HeadingsOfRows(plot.record));
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        if (DipOfRow(plot, row) != kErrorRow) {
            text += CsvLine(CellsOfRow(plot, row, degrees));
        }
    }
    return text;
}

} // namespace quandrel
