// SPDX-License-Identifier: MIT

#include "batch/dump.h"

#include "batch/field_access.h"
#include "batch/figure_command.h"
#include "batch/file_dump.h"
#include "batch/region_command.h"
#include "batch/rose_dump.h"
#include "batch/row_dump.h"
#include "classify/value_grid.h"
#include "core/data_format.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/settings_value.h"
#include "density/contours.h"
#include "density/grid_geometry.h"
#include "drawing/legend.h"
#include "input/load_report.h"
#include "input/text_file.h"
#include "orientation/angles.h"
#include "session/reference.h"
#include "statistics/axis_statistics.h"
#include "stereo/legend_line.h"
#include "stereo/plot_title.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <string>
#include <vector>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

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
    const Plot& plot = ActivePlot();
    for (const LegendLine& line :
         LegendLines(plot, gSettings.styles, FormulasInForce(plot.record))) {
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
    for (const LevelContour& contour : ContoursOf(ActivePlot())) {
        levels.push_back(contour.level);
        for (const ContourSegment& segment : contour.segments) {
            segments.push_back(
                {contour.level, segment.from.x, segment.from.y, segment.to.x, segment.to.y});
        }
    }
    return {{"levels", levels}, {"segments", segments}};
}

/// The values of lines; an undetermined or infinite number is null.
Json ValuesJson(const std::vector<ReferenceLine>& lines) {
    Json json = Json::object();
    for (const ReferenceLine& entry : lines) {
        json[entry.name] = entry.value ? Json(*entry.value) : Json(nullptr);
    }
    return json;
}

/// The texts of the lines whose printed text differs from their number.
Json PrintedJson(const std::vector<ReferenceLine>& lines) {
    Json json = Json::object();
    for (const ReferenceLine& entry : lines) {
        if (!entry.printed.empty()) {
            json[entry.name] = entry.printed;
        } else if (entry.value && std::isinf(*entry.value)) {
            json[entry.name] = *entry.value < 0 ? "-inf" : "inf";
        }
    }
    return json;
}

/// Contours of the gridded values of a classified plot: limits, then class and end points of
/// segments.
Json ValueContoursJson() {
    Json limits = Json::array();
    Json segments = Json::array();
    for (const ValueContour& contour : ValueContoursOf(ActivePlot())) {
        limits.push_back(contour.limit);
        for (const ContourSegment& segment : contour.segments) {
            segments.push_back(
                {contour.classNumber, segment.from.x, segment.from.y, segment.to.x, segment.to.y});
        }
    }
    return {{"limits", limits}, {"segments", segments}};
}

/// Mean and sum of the appended numbers at each node, null if there are none.
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

/// Number, axes and girdle of P or T axes; angles in degrees.
Json AxesJson(AxisKind kind) {
    const AxisStatistics axes = StatisticsOfAxes(kind);
    Json json = {{"count", axes.record.NumValidData}};
    if (axes.lines.empty()) {
        return json;
    }
    for (const std::size_t axis : {kGreatestAxis, kMiddleAxis, kLeastAxis}) {
        const AxisLine line = FabricAxis(axes.record, axis);
        const bool isKnown = IsAxisDetermined(axes.record, axis);
        json["E" + std::to_string(axis)] = {
            {"eigenvalue", axes.record.FabricResults.at(axis)[kEigenvalue]},
            {"plunge", isKnown ? Json(RadToDeg(line.plunge)) : Json(nullptr)},
            {"trend", isKnown ? Json(RadToDeg(line.trend)) : Json(nullptr)}};
    }
    json["girdle"] = nullptr;
    if (!IsAxisDetermined(axes.record, kLeastAxis)) {
        return json;
    }
    const AxisLine beta = FabricAxis(axes.record, kLeastAxis);
    double dip = 0;
    double dipDirection = 0;
    PoleOfPlane(beta.plunge, beta.trend, dip, dipDirection);
    json["girdle"] = {{"dip", RadToDeg(dip)}, {"dipDirection", RadToDeg(dipDirection)}};
    return json;
}

/// The separate results for P and T axes in a plot of both.
Json BothAxesJson() {
    return {{"P", AxesJson(AxisKind::Shortening)}, {"T", AxesJson(AxisKind::Extension)}};
}

/// Densities, contours and statistics of a plot, or the tables of a rose, as far as they have been
/// calculated.
void AddResults(Json& json) {
    const PlotRecord& record = ActiveRecord();
    if (record.PlotKind == kRose) {
        json["rose"] = RoseJson(ActivePlot());
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
    json["statsNormal"] = StatisticsOf(ActivePlot()).normal;
    json["statsAdvanced"] = StatisticsOf(ActivePlot()).advanced;
    if (HoldsBothAxes(record)) {
        json["axes"] = BothAxesJson();
    }
    if (record.RegionsAbout != 0) {
        json["regions"] = RegionsJson(ActivePlot());
    }
    if (const std::vector<ReferenceLine> lines = ReferenceOfActivePlot(); !lines.empty()) {
        json["statsReference"] = ValuesJson(lines);
        json["statsPrinted"] = PrintedJson(lines);
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

void WriteOperations(JsonWriter& writer, const RecordingSurface& surface) {
    const auto& operations = surface.Operations();
    WriteArray(writer, "operations", operations.size(),
               [&](std::size_t i) { writer.Text(OperationText(operations[i])); });
}

/// The named fields of a part of the dump.
template <class Part>
Json FieldsJson(const Part& part) {
    Json json = Json::object();
    const auto add = [&json](const char* name, const auto& field) { json[name] = field; };
    VisitFieldsOf(part, add);
    return json;
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
        marks.push_back(FieldsJson(mark));
        marks.back()["LineNodes"] = std::move(nodes);
    }
    return marks;
}

Json SmallCirclesJson(const PlotRecord& record) {
    Json circles = Json::array();
    if (record.PlotSmallCircles != nullptr) {
        for (const SmallCircle& circle : *record.PlotSmallCircles) {
            circles.push_back(FieldsJson(circle));
        }
    }
    return circles;
}

/// The data of a plot outside its record and rows.
void AddParts(Json& json) {
    const PlotRecord& record = ActiveRecord();
    json["annotations"] = AnnotationsJson(record);
    json["smallCircles"] = SmallCirclesJson(record);
    json["figure"] = FigureJson(ActivePlot());
    json["gridCount"] = gGridCount[static_cast<std::size_t>(gActivePlot)];
    const WindowPlace place = FormOf(gActivePlot).Place();
    json["window"] = {{"state", place.state},
                      {"top", place.top},
                      {"left", place.left},
                      {"width", place.width},
                      {"height", place.height}};
}

/// The binary plot file that a plot was opened from or saved to, if there is one.
void WriteFile(JsonWriter& writer) {
    const std::string& path = ActiveRecord().SaveFileName;
    if (path.empty()) {
        return;
    }
    writer.Key("file");
    const Result<std::string> bytes = FirstBytes(path, kLargestTextFile);
    const std::string problem = bytes ? WriteBinaryFile(*bytes, writer) : bytes.Error();
    if (!problem.empty()) {
        writer.Value({{"problem", problem}});
    }
}

void WriteMembers(JsonWriter& writer, const Json& json) {
    for (const auto& [name, value] : json.items()) {
        writer.Member(name, value);
    }
}

/// The part of the dump between the rows and the file.
Json PartsJson() {
    Json json = Json::object();
    AddParts(json);
    const LoadCounters* load = LoadOf(ActivePlot());
    if (load != nullptr && ActiveRecord().NumFiles > 0) {
        json["load"] = LoadJson(*load);
    }
    AddResults(json);
    return json;
}

} // namespace

bool DumpActivePlot(const ScriptedPrompts& prompts, const RecordingSurface& operations,
                    JsonLayout layout, const PutBytes& put) {
    JsonWriter writer(put, layout);
    writer.BeginObject();
    writer.Member("slot", gActivePlot);
    writer.Member("title", TitleOfPlot());
    writer.Member("record", RecordJson(ActiveRecord()));
    WriteRows(writer);
    WriteRowTable(writer);
    WriteMembers(writer, PartsJson());
    WriteFile(writer);
    writer.Member("legend", LegendJson());
    writer.Member("prompts", PromptsJson(prompts));
    WriteOperations(writer, operations);
    writer.EndObject();
    return writer.Finish();
}

} // namespace quandrel
