// SPDX-License-Identifier: MIT

#include "drawing/row_classes.h"

#include "classify/class_settings.h"
#include "classify/classification.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace quandrel {

RowClasses RowClassesOf(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const std::optional<ClassColumn> column = ColumnOfClassMode(record.ClassMode);
    RowClasses classes;
    if (!column) {
        return classes;
    }
    const ClassRule rule = RuleOfClassTable(record.ClassTable, *column);
    classes.ofRow.resize(static_cast<std::size_t>(std::max(record.NumData, 0)) + 1);
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        classes.ofRow[static_cast<std::size_t>(row)] =
            static_cast<std::uint8_t>(ClassOfRow(plot, rule, row));
    }
    const LimitForm form = LimitFormOf(plot, *column);
    const int last = LastClass(rule);
    classes.names.resize(static_cast<std::size_t>(last) + 1);
    for (int c = 1; c <= last; ++c) {
        classes.names[static_cast<std::size_t>(c)] =
            ClassLabel(record.ClassTable, *column, c, form);
    }
    return classes;
}

} // namespace quandrel
