// SPDX-License-Identifier: MIT

#include "classify/class_legend.h"

#include "classify/class_settings.h"
#include "classify/classification.h"
#include "classify/value_grid.h"
#include "core/data_format.h"
#include "stereo/row_drawing.h"

#include <algorithm>

namespace quandrel {

namespace {

/// What a plot draws in the styles of its classes.
struct ClassesShown {
    bool rows = false;
    bool nodes = false;
    bool contours = false;

    [[nodiscard]] bool Any() const { return rows || nodes || contours; }
};

ClassesShown ShownBy(const PlotRecord& record) {
    const std::int16_t mode = record.PlotSymbolMode;
    ClassesShown shown;
    shown.rows = ShowsMainRows(record)
                 && (mode == kGreatCircles || mode == kPointSymbols || mode == kPointSymbolsToo);
    if (record.ClassMode == kClassesByNumber) {
        const std::int16_t type = record.NumClasses;
        shown.nodes = type == kGriddedValues || type == kContoursWithGridPoints;
        shown.contours = type >= kContouredGriddedValues;
    }
    return shown;
}

/// True for each class shown by symbols or great circles.
std::vector<bool> ClassesWithSamples(const Plot& plot, const ClassesShown& shown) {
    if (shown.nodes) {
        return ClassesOfValueNodes(plot);
    }
    std::vector<bool> classes;
    if (shown.rows) {
        for (const std::int32_t rows : RowsOfClasses(plot, plot.record.ClassMode)) {
            classes.push_back(rows > 0);
        }
    }
    return classes;
}

bool Has(const std::vector<bool>& classes, std::size_t place) {
    return place < classes.size() && classes[place];
}

} // namespace

std::vector<LegendLine> ClassLegendLines(const Plot& plot, const Styles& styles) {
    const PlotRecord& record = plot.record;
    const std::optional<ClassColumn> column = ColumnOfClassMode(record.ClassMode);
    const ClassesShown shown = ShownBy(record);
    std::vector<LegendLine> lines;
    if (!column || !shown.Any()) {
        return lines;
    }
    const std::string& name = *column == kNumberClasses ? record.AppNumName : record.AppNonNumName;
    lines.push_back({LegendSample::None, 0, "Classified by: " + name});
    const std::vector<bool> samples = ClassesWithSamples(plot, shown);
    const std::vector<bool> contours =
        shown.contours ? ClassesOfValueContours(plot) : std::vector<bool>();
    const LimitForm form = LimitFormOf(plot, *column);
    const bool areCircles = shown.rows && record.PlotSymbolMode == kGreatCircles;
    for (std::size_t c = 1; c < std::max(samples.size(), contours.size()); ++c) {
        const int classNumber = static_cast<int>(c);
        const SymbolCode code = CodeOfClass(styles, classNumber);
        const std::string label = ClassLabel(record.ClassTable, *column, classNumber, form);
        if (Has(samples, c)) {
            lines.push_back(
                {areCircles ? LegendSample::GreatCircle : LegendSample::Symbol, code, label});
        } else if (Has(contours, c)) {
            lines.push_back(
                {LegendSample::Line, MakeSymbolCode(CodeColour(code), kSolidLine, 1), label});
        }
    }
    return lines;
}

} // namespace quandrel
