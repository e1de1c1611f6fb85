// SPDX-License-Identifier: MIT

#include "classify/class_legend.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "core/plot_store.h"

namespace quandrel {

namespace {

/// A class that is shown by the contour where it begins alone; the lowest has none.
void ShowAsLine(LegendLine& line, int classNumber) {
    line.sample = classNumber > 1 ? LegendSample::Line : LegendSample::Indent;
    line.code = MakeSymbolCode(CodeColour(line.code), kSolidLine, 1);
}

} // namespace

std::vector<LegendLine> ClassLegendLines() {
    const PlotRecord& record = ActiveRecord();
    const std::optional<ClassColumn> column = ColumnOfClassMode(record.ClassMode);
    std::vector<LegendLine> lines;
    if (!column) {
        return lines;
    }
    const std::string& name = *column == kNumberClasses ? record.AppNumName : record.AppNonNumName;
    lines.push_back({LegendSample::None, 0, "Classified by: " + name});
    const bool showsLines =
        record.ClassMode == kClassesByNumber && record.NumClasses == kContouredGriddedValues;
    const std::vector<std::int32_t> rows = RowsOfClasses(record.ClassMode);
    for (std::size_t c = 1; c < rows.size(); ++c) {
        if (rows[c] > 0) {
            const int classNumber = static_cast<int>(c);
            lines.push_back({LegendSample::Symbol, CodeOfClass(classNumber),
                             ClassLabel(record.ClassTable, *column, classNumber)});
            if (showsLines) {
                ShowAsLine(lines.back(), classNumber);
            }
        }
    }
    return lines;
}

} // namespace quandrel
