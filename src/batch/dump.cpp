// SPDX-License-Identifier: MIT

#include "batch/dump.h"

#include "batch/field_access.h"
#include "batch/file_dump.h"
#include "batch/rose_dump.h"
#include "classify/value_grid.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "density/contours.h"
#include "density/grid_geometry.h"
#include "input/load_report.h"
#include "input/text_file.h"
#include "orientation/angles.h"
#include "program/reference.h"
#include "statistics/axis_statistics.h"
#include "stereo/legend.h"
#include "stereo/plot_driver.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <optional>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

/// A column of the active plot, from row 1 to the last one loaded.
template <class Column>
Json ColumnJson(const Column& column) {
    Json array = Json::array();
    for (std::int32_t row = 1; row <= ActiveRecord().NumLoadedData; ++row) {
        array.push_back(column(gActivePlot, row));
    }
    return array;
}

Json CodesJson(const DataColumn<SymbolCode>& column) {
    Json array = Json::array();
    for (std::int32_t row = 1; row <= ActiveRecord().NumLoadedData; ++row) {
        array.push_back(SymbolCodeText(column(gActivePlot, row)));
    }
    return array;
}

Json RowsJson() {
    const PlotRecord& record = ActiveRecord();
    Json rows;
    rows["gDataDip"] = ColumnJson(gDataDip);
    rows["gDataAz"] = ColumnJson(gDataAz);
    rows["gDataSymbol"] = CodesJson(gDataSymbol);
    rows["gDataSymbolBase"] = CodesJson(gDataSymbolBase);
    rows["gPointDensity"] = ColumnJson(gPointDensity);
    rows["gDataOrder"] = ColumnJson(gDataOrder);
    if (record.SecondaryFormat != 0) {
        rows["gData2Dip"] = ColumnJson(gData2Dip);
        rows["gData2Az"] = ColumnJson(gData2Az);
    }
    if (record.HasAppendedLine != 0) {
        rows["gAppLineDip"] = ColumnJson(gAppLineDip);
        rows["gAppLineAz"] = ColumnJson(gAppLineAz);
    }
    if (record.HasAppendedNumeric != 0) {
        rows["gAppNumeric"] = ColumnJson(gAppNumeric);
    }
    if (record.HasAppendedText != 0) {
        rows["gAppText"] = ColumnJson(gAppText);
    }
    return rows;
}

Json TableJson() {
    const RowTable& table = TableOf(gActivePlot);
    return {{"index", table.index},
            {"x", table.x},
            {"y", table.y},
            {"plunge", table.plunge},
            {"trend", table.trend}};
}

Json LoadJson(const LoadCounters& counters) {
    Json load = {{"rowsRead", counters.rowsRead},     {"rowsValid", counters.rowsValid},
                 {"blankLines", counters.blankLines}, {"invalidLines", counters.invalidLines},
                 {"badNumeric", counters.badNumeric}, {"badText", counters.badText},
                 {"badLine", counters.badLine}};
    if (counters.stoppedAtLine > 0) {
        load["stoppedAtLine"] = counters.stoppedAtLine;
    }
    return load;
}

Json LegendJson() {
    Json lines = Json::array();
    for (const LegendLine& line : LegendLines()) {
        lines.push_back(line.text);
    }
    return lines;
}

Json DensityGridJson(const PlotRecord& record) {
    const int nodes = GridNodes(record.GridSize);
    const int step = GridStep(record.GridSize);
    Json counts = Json::array();
    for (int i = 0; i < nodes; ++i) {
        const auto& column = (*record.DensityGrid)[static_cast<std::size_t>(i)];
        counts.push_back(std::vector<std::int32_t>(column.begin(), column.begin() + nodes));
    }
    return {{"size", record.GridSize},
            {"step", step},
            {"first", NodePosition(0, step)},
            {"counts", counts}};
}

Json ContoursJson() {
    Json levels = Json::array();
    Json segments = Json::array();
    for (const LevelContour& contour : ContoursOfActivePlot()) {
        levels.push_back(contour.level);
        for (const ContourSegment& segment : contour.segments) {
            segments.push_back(
                {contour.level, segment.from.x, segment.from.y, segment.to.x, segment.to.y});
        }
    }
    return {{"levels", levels}, {"segments", segments}};
}

/// A number, "inf", or null for one that is undetermined.
Json NumberJson(const std::optional<double>& value) {
    if (!value) {
        return nullptr;
    }
    return std::isinf(*value) ? Json("inf") : Json(*value);
}

Json ReferenceJson(const std::vector<ReferenceLine>& lines) {
    Json json = Json::object();
    for (const ReferenceLine& entry : lines) {
        const Json value = NumberJson(entry.value);
        json[entry.name] =
            entry.printed.empty() ? value : Json{{"value", value}, {"printed", entry.printed}};
    }
    return json;
}

/// Contours of the gridded values of a classified plot: limits, then class and ends of segments.
Json ValueContoursJson() {
    Json limits = Json::array();
    Json segments = Json::array();
    for (const ValueContour& contour : ValueContoursOfActivePlot()) {
        limits.push_back(contour.limit);
        for (const ContourSegment& segment : contour.segments) {
            segments.push_back(
                {contour.classNumber, segment.from.x, segment.from.y, segment.to.x, segment.to.y});
        }
    }
    return {{"limits", limits}, {"segments", segments}};
}

/// Mean and sum of the appended numbers at each node, null where there is none.
Json ValueGridJson(const PlotRecord& record) {
    const GridValues& values = *gGridValues[static_cast<std::size_t>(gActivePlot)];
    const auto nodes = static_cast<std::size_t>(GridNodes(record.GridSize));
    const auto layerJson = [&](GridLayer layer) {
        Json columns = Json::array();
        for (std::size_t i = 0; i < nodes; ++i) {
            Json column = Json::array();
            for (std::size_t j = 0; j < nodes; ++j) {
                const double value = values[layer][i][j];
                column.push_back(value == kUnsetValue ? Json(nullptr) : Json(value));
            }
            columns.push_back(std::move(column));
        }
        return columns;
    };
    return {{"mean", layerJson(kMeanLayer)},
            {"cumulative", layerJson(kCumulativeLayer)},
            {"contours", ValueContoursJson()}};
}

/// Number, axes and girdle of P or of T; angles in degrees.
Json AxesJson(AxisKind kind) {
    const AxisStatistics axes = StatisticsOfAxes(kind);
    Json json = {{"count", axes.record.NumValidData}};
    if (axes.lines.empty()) {
        return json;
    }
    for (const std::size_t axis : {3U, 2U, 1U}) {
        const AxisLine line = FabricAxis(axes.record, axis);
        const bool isKnown = IsAxisDetermined(axes.record, axis);
        json["E" + std::to_string(axis)] = {
            {"eigenvalue", axes.record.FabricResults.at(axis)[0]},
            {"plunge", isKnown ? Json(RadToDeg(line.plunge)) : Json(nullptr)},
            {"trend", isKnown ? Json(RadToDeg(line.trend)) : Json(nullptr)}};
    }
    json["girdle"] = nullptr;
    if (!IsAxisDetermined(axes.record, 1)) {
        return json;
    }
    const AxisLine beta = FabricAxis(axes.record, 1);
    double dip = 0;
    double dipDirection = 0;
    PoleOfPlane(beta.plunge, beta.trend, dip, dipDirection);
    json["girdle"] = {{"dip", RadToDeg(dip)}, {"dipDirection", RadToDeg(dipDirection)}};
    return json;
}

/// What a plot of P and T axes together has of each.
Json BothAxesJson() {
    return {{"P", AxesJson(AxisKind::Shortening)}, {"T", AxesJson(AxisKind::Extension)}};
}

/// Densities, contours and statistics of a plot, or the tables of a rose, as far as they were
/// worked out.
void AddResults(Json& json) {
    const PlotRecord& record = ActiveRecord();
    const PlotForm& form = FormOf(gActivePlot);
    if (record.PlotKind == kRose) {
        json["rose"] = RoseJson();
    }
    if (gGridCount[static_cast<std::size_t>(gActivePlot)] != 0 && record.GridSize > 0) {
        json["valueGrid"] = ValueGridJson(record);
    }
    if (record.DensityGrid != nullptr && record.GridSize > 0) {
        json["densityGrid"] = DensityGridJson(record);
    }
    if (record.PlotSymbolMode == kContours || record.PlotSymbolMode == kContoursAndGrid) {
        json["contours"] = ContoursJson();
    }
    json["statsNormal"] = form.BoxText(PlotBox::StatsNormal);
    json["statsAdvanced"] = form.BoxText(PlotBox::StatsAdvanced);
    if (HoldsBothAxes(record)) {
        json["axes"] = BothAxesJson();
    }
    if (const std::vector<ReferenceLine> lines = ReferenceOfActivePlot(); !lines.empty()) {
        json["statsReference"] = ReferenceJson(lines);
    }
}

Json PromptsJson(const ScriptedPrompts& prompts) {
    Json boxes = Json::array();
    for (const ShownBox& box : prompts.Shown()) {
        boxes.push_back({{"title", box.message.title},
                         {"text", box.message.text},
                         {"answer", ButtonName(box.answer)}});
    }
    return boxes;
}

Json OperationsJson(const RecordingSurface& surface) {
    Json operations = Json::array();
    for (const auto& operation : surface.Operations()) {
        operations.push_back(OperationText(operation));
    }
    return operations;
}

Json AnnotationsJson(const PlotRecord& record) {
    Json marks = Json::array();
    if (record.PlotAnnotations == nullptr) {
        return marks;
    }
    for (const Annotation& mark : *record.PlotAnnotations) {
        Json nodes = Json::array();
        for (const LineNode& node : mark.LineNodes) {
            nodes.push_back({node.X, node.Y});
        }
        marks.push_back({{"X", mark.X},
                         {"Y", mark.Y},
                         {"SymbolType", mark.SymbolType},
                         {"Colour", mark.Colour},
                         {"Size", mark.Size},
                         {"lineStyle", mark.lineStyle},
                         {"Tag", mark.Tag},
                         {"LineNodes", nodes}});
    }
    return marks;
}

Json SmallCirclesJson(const PlotRecord& record) {
    Json circles = Json::array();
    if (record.PlotSmallCircles == nullptr) {
        return circles;
    }
    for (const SmallCircle& circle : *record.PlotSmallCircles) {
        circles.push_back({{"LineColour", circle.LineColour},
                           {"lineStyle", circle.lineStyle},
                           {"LineWidth", circle.LineWidth},
                           {"Visible", circle.Visible},
                           {"LastPlotSects", circle.LastPlotSects},
                           {"Angle", circle.Angle},
                           {"AxisAz", circle.AxisAz},
                           {"AxisPl", circle.AxisPl}});
    }
    return circles;
}

/// What of a plot stands beside its record and its rows.
void AddParts(Json& json) {
    const PlotRecord& record = ActiveRecord();
    json["annotations"] = AnnotationsJson(record);
    json["smallCircles"] = SmallCirclesJson(record);
    json["gridCount"] = gGridCount[static_cast<std::size_t>(gActivePlot)];
    const WindowPlace place = FormOf(gActivePlot).Place();
    json["window"] = {{"state", place.state},
                      {"top", place.top},
                      {"left", place.left},
                      {"width", place.width},
                      {"height", place.height}};
}

/// The binary plot file that a plot was opened from or saved to, null without one.
Json FileJson(const PlotRecord& record) {
    if (record.SaveFileName.empty()) {
        return nullptr;
    }
    const Result<std::string> bytes = FirstBytes(record.SaveFileName, kLargestTextFile);
    if (!bytes) {
        return {{"problem", bytes.Error()}};
    }
    Result<Json> fields = BinaryFileJson(*bytes);
    return fields ? std::move(*fields) : Json{{"problem", fields.Error()}};
}

} // namespace

Json DumpActivePlot(const ScriptedPrompts& prompts, const RecordingSurface& operations) {
    Json json;
    json["slot"] = gActivePlot;
    json["title"] = TitleOfPlot();
    json["record"] = RecordJson(ActiveRecord());
    json["rows"] = RowsJson();
    json["table"] = TableJson();
    AddParts(json);
    const auto load = gPlotLoads.find(gActivePlot);
    if (load != gPlotLoads.end() && ActiveRecord().NumFiles > 0) {
        json["load"] = LoadJson(load->second);
    }
    AddResults(json);
    if (Json file = FileJson(ActiveRecord()); !file.is_null()) {
        json["file"] = std::move(file);
    }
    json["legend"] = LegendJson();
    json["prompts"] = PromptsJson(prompts);
    json["operations"] = OperationsJson(operations);
    return json;
}

} // namespace quandrel
