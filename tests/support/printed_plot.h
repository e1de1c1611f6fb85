// SPDX-License-Identifier: MIT
//
// The whole contents of a plot as a text, to compare plots.

#pragma once

#include "core/plot_record.h"
#include "core/plot_store.h"

#include <map>
#include <ranges>
#include <sstream>
#include <string>
#include <type_traits>

namespace quandrel {

template <class T>
void Print(std::ostream& out, const T& value) {
    if constexpr (std::is_same_v<T, TaggedValue>) {
        out << value.index() << ':' << TextOf(value) << ' ';
    } else if constexpr (std::is_convertible_v<T, std::string_view>) {
        out << '"' << std::string_view(value) << "\" ";
    } else if constexpr (std::is_enum_v<T>) {
        out << static_cast<long>(value) << ' ';
    } else if constexpr (std::is_arithmetic_v<T>) {
        out << std::hexfloat << +value << ' ';
    } else {
        static_assert(std::ranges::range<const T>);
        for (const auto& part : value) {
            Print(out, part);
        }
    }
}

/// The cells of a row, including columns that the plot does not use, its line of the table and its
/// text in the file.
inline std::string PrintedRow(const Plot& plot, std::int32_t row) {
    const PlotRows& rows = plot.rows;
    std::ostringstream out;
    for (const std::int32_t cell :
         {rows.dip(row), rows.azimuth(row), rows.pointDensity(row), rows.order(row), rows.dip2(row),
          rows.azimuth2(row), rows.lineDip(row), rows.lineAzimuth(row)}) {
        out << cell << ' ';
    }
    out << rows.symbol(row) << ' ' << rows.symbolBase(row) << ' ';
    Print(out, rows.number(row));
    Print(out, rows.text(row));
    const PlottedRow line = plot.table[static_cast<std::size_t>(row) - 1];
    out << line.index << ' ' << line.x << ' ' << line.y << ' ';
    Print(out, line.plunge);
    Print(out, line.trend);
    return out.str();
}

/// Record, rows and error lines of a plot, one per line.
inline std::string PrintedPlot(const Plot& plot) {
    std::ostringstream out;
    VisitPlotFields(plot.record, [&out](const char* name, const auto& field) {
        out << name << ' ';
        Print(out, field);
        out << '\n';
    });
    out << "table of " << plot.table.size() << '\n';
    for (std::int32_t row = 1; row <= plot.record.NumLoadedData; ++row) {
        out << row << ": " << PrintedRow(plot, row) << '\n';
    }
    for (const auto& [row, line] : std::map<std::int32_t, std::string>(
             plot.rows.errorLines.begin(), plot.rows.errorLines.end())) {
        out << row << " was \"" << line << "\"\n";
    }
    return out.str();
}

} // namespace quandrel
