// SPDX-License-Identifier: MIT

#include "stereo/lines_of_rows.h"

#include "core/row_table.h"
#include "orientation/angles.h"

#include <cmath>
#include <cstddef>
#include <map>

namespace quandrel {

namespace {

DistinctLine WholeLine(const PlottedRow& row) {
    return {static_cast<std::int16_t>(std::lround(RadToDeg(row.plunge))),
            static_cast<std::int16_t>(std::lround(RadToDeg(row.trend))), 0};
}

RowLines LinesIn(const RowTable& table, bool areMeasured,
                 const std::function<bool(std::int32_t row)>& isWanted) {
    RowLines lines;
    std::map<int, DistinctLine> whole; // by number
    for (std::size_t place = 0; place < table.size(); ++place) {
        const PlottedRow row = table[place];
        if (IsErrorRow(row.plunge) || !isWanted(row.index)) {
            continue;
        }
        if (areMeasured) {
            lines.measured.push_back({row.plunge, row.trend});
            lines.rows.push_back(row.index);
        } else {
            const int key = LineKey(row.plunge, row.trend);
            ++whole.try_emplace(key, WholeLine(row)).first->second.rows;
        }
    }
    for (const auto& [key, line] : whole) {
        lines.whole.push_back(line);
    }
    return lines;
}

} // namespace

RowLines LinesOfRows(const Plot& plot, const std::function<bool(std::int32_t row)>& isWanted) {
    return LinesIn(plot.table, plot.record.UseDecimals != 0, isWanted);
}

RowLines LinesOfRows(const Plot& plot, const RowSet& set) {
    return LinesIn(*set.table, plot.record.UseDecimals != 0, [&set](std::int32_t row) {
        return row >= set.range.first && row <= set.range.last;
    });
}

} // namespace quandrel
