// SPDX-License-Identifier: MIT

#include "batch/file_dump.h"

#include "core/plot_store.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_stream.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kMarkLength = 3;
constexpr std::size_t kShortVersionLength = 3;
constexpr std::size_t kFullVersionLength = 5;
constexpr int kCellsOfRow = 5;

Json NumberJson(double value) {
    if (std::isnan(value)) {
        return "nan";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-inf" : "inf";
    }
    return value;
}

/// Lists the fields of a file that was found good.
class FieldLister {
public:
    FieldLister(std::string_view bytes, const BinaryPlot& plot)
        : reader_(bytes)
        , plot_(plot) {}

    [[nodiscard]] Result<Json> List() {
        Head();
        json_["rows"] = Rows(plot_.record.NumData, true);
        Overlays();
        const auto cellRows = json_["NumLoadedData"].get<int>(); // the record has it mended
        json_["cells"] = Table(cellRows, kCellsOfRow, &FieldLister::Text);
        Densities();
        Statistics();
        EarlierRose();
        if (plot_.version > 70) {
            Window();
        }
        if (plot_.version > 71) {
            LaterStatistics();
        }
        if (plot_.version >= 80) {
            Marks();
        }
        if (plot_.version >= 90) {
            Rose();
            Classes();
        }
        if (plot_.version >= 91) {
            json_["LayerVisible"] = Array(6, &FieldLister::Short);
        }
        if (plot_.version >= 92) {
            LaterRose();
        }
        if (plot_.version >= 94) {
            GridsOfValues();
        }
        if (plot_.version >= 95) {
            AxisItems(6, 8);
        }
        json_["bytesBehind"] = reader_.Left();
        if (reader_.HasFailed()) {
            return Failure{reader_.Error()};
        }
        return std::move(json_);
    }

private:
    using Read = Json (FieldLister::*)();

    Json Short() {
        std::int16_t value = 0;
        reader_.Short(value);
        return value;
    }

    Json Long() {
        std::int32_t value = 0;
        reader_.Long(value);
        return value;
    }

    Json Single() {
        float value = 0;
        reader_.AnySingle(value);
        return NumberJson(static_cast<double>(value));
    }

    Json Double() {
        double value = 0;
        reader_.Double(value);
        return NumberJson(value);
    }

    Json Text() {
        std::string text;
        reader_.Text(text);
        return text;
    }

    Json Fixed(std::size_t length) {
        std::string text;
        reader_.Fixed(text, length);
        return text;
    }

    Json Value() {
        TaggedValue value;
        reader_.Value(value);
        return std::visit(
            [](const auto& held) -> Json {
                using Held = std::decay_t<decltype(held)>;
                if constexpr (std::is_same_v<Held, std::monostate>) {
                    return nullptr;
                } else if constexpr (std::is_floating_point_v<Held>) {
                    return NumberJson(static_cast<double>(held));
                } else {
                    return held;
                }
            },
            value);
    }

    Json Array(int count, Read read) {
        Json array = Json::array();
        for (int i = 0; i < count; ++i) {
            array.push_back((this->*read)());
        }
        return array;
    }

    Json Table(int rows, int columns, Read read) {
        Json table = Json::array();
        for (int i = 0; i < rows; ++i) {
            table.push_back(Array(columns, read));
        }
        return table;
    }

    /// A table that stands in the file column by column.
    Json TableByColumns(int rows, int columns, Read read) {
        Json table = Json::array();
        for (int i = 0; i < rows; ++i) {
            table.push_back(Json::array());
        }
        for (int column = 0; column < columns; ++column) {
            for (Json& row : table) {
                row.push_back((this->*read)());
            }
        }
        return table;
    }

    void Each(Json& json, std::initializer_list<const char*> names, Read read) {
        for (const char* name : names) {
            json[name] = (this->*read)();
        }
    }

    void Each(std::initializer_list<const char*> names, Read read) { Each(json_, names, read); }

    void Head() {
        json_["mark"] = Fixed(kMarkLength);
        json_["version"] = Fixed(kShortVersionLength);
        Each({"NumValidData", "NumData", "NumLoadedData"}, &FieldLister::Long);
        Each({"PrimaryFormat", "SecondaryFormat", "ShowSecondary", "SelectedOverlay",
              "ShowAnnotations", "HasAppendedLine", "HasAppendedNumeric", "HasAppendedText"},
             &FieldLister::Short);
        Each({"AxesTitle", "FabricText", "DescriptionText"}, &FieldLister::Text);
        Each({"PlotKind", "DataKind", "PlotSymbolMode", "NumSymbolsInPlot"}, &FieldLister::Short);
    }

    /// Columns of so many rows; those of overlays have no appended data.
    Json Rows(std::int32_t count, bool areMain) {
        const PlotRecord& record = plot_.record;
        Json rows = Json::object();
        const auto add = [&](const char* name, Read read) {
            rows[name].push_back((this->*read)());
        };
        for (std::int32_t i = 0; i < count; ++i) {
            for (const char* name : {"gDataDip", "gDataAz", "gPointDensity", "gDataOrder"}) {
                add(name, &FieldLister::Long);
            }
            add("gDataSymbol", &FieldLister::Text);
            if (record.SecondaryFormat != 0) {
                add("gData2Dip", &FieldLister::Long);
                add("gData2Az", &FieldLister::Long);
            }
            if (areMain && record.HasAppendedLine != 0) {
                add("gAppLineDip", &FieldLister::Long);
                add("gAppLineAz", &FieldLister::Long);
            }
            if (areMain && record.HasAppendedNumeric != 0) {
                add("gAppNumeric", &FieldLister::Single);
            }
            if (areMain && record.HasAppendedText != 0) {
                add("gAppText", plot_.version < 90 ? &FieldLister::Single : &FieldLister::Text);
            }
        }
        return rows;
    }

    void Overlays() {
        Json rows = Json::array({Short()});
        Json kinds = Json::array({Short()});
        Json overlays = Json::array();
        for (std::size_t k = 1; k <= static_cast<std::size_t>(plot_.record.OverlayRows[0]); ++k) {
            rows.push_back(Short());
            kinds.push_back(Short());
            overlays.push_back(Rows(plot_.record.OverlayRows[k], false));
        }
        json_["OverlayRows"] = std::move(rows);
        json_["OverlayKind"] = std::move(kinds);
        json_["overlays"] = std::move(overlays);
    }

    void Densities() {
        Each({"PointDensityMax", "GridDensityMax"}, &FieldLister::Single);
        Each({"DensityCount"}, &FieldLister::Long);
        Each({"GridSize", "NumContours"}, &FieldLister::Short);
        if (const int size = plot_.record.GridSize; size > 0) {
            json_["DensityGrid"] = Table(size + 1, size + 1, &FieldLister::Short);
        }
        json_["ContourLevels"] = Array(9, &FieldLister::Short);
    }

    void AxisItems(std::size_t first, std::size_t last) {
        Json& items = json_["AxisItems"];
        if (items.is_null()) {
            items = Json::array();
            items.get_ref<Json::array_t&>().resize(kAxisItems); // null until the file tells it
        }
        for (std::size_t item = first; item <= last; ++item) {
            items[item] = Array(kAxisValues, &FieldLister::Value);
        }
    }

    void Statistics() {
        json_["FabricResults"] = Table(3, 4, &FieldLister::Single);
        Each({"FabricValueF"}, &FieldLister::Single);
        earlier_["RoseResultant"] = Single();
        Each({"FabricValueA", "FabricValueB"}, &FieldLister::Single);
        AxisItems(0, 5);
        AxisItems(9, 9);
    }

    void EarlierRose() {
        Each({"RoseShape"}, &FieldLister::Short);
        Each(earlier_, {"RoseType"}, &FieldLister::Short);
        Each({"RoseEqualArea", "RoseDisplay6", "RoseDisplay7", "RoseDisplay8"},
             &FieldLister::Short);
        Each(earlier_, {"RoseSectorSize", "RoseStartAngle", "RoseRangeA", "RoseRangeB"},
             &FieldLister::Single);
        Each({"RoseBiasMode"}, &FieldLister::Short);
        Each(earlier_, {"RoseStatsRounded"}, &FieldLister::Short);
        Each(earlier_, {"RoseStats"}, &FieldLister::Single);
        Each({"RoseSamplePlunge", "RoseSampleTrend", "RoseMinBiasAngle"}, &FieldLister::Short);
        Each(earlier_, {"RoseMeanDir", "RoseVariance", "RoseStdDev"}, &FieldLister::Single);
        json_["earlierRose"] = std::move(earlier_);
    }

    void Window() {
        Json window = Json::object();
        Each(window, {"state"}, &FieldLister::Long);
        Each(window, {"top", "left", "width", "height"}, &FieldLister::Single);
        json_["window"] = std::move(window);
    }

    void LaterStatistics() {
        Each({"FabricValueD", "FabricValueE"}, &FieldLister::Single);
        Each({"FabricValueC"}, &FieldLister::Double);
        Each({"StatsBoxKind"}, &FieldLister::Short);
        json_["EigenResults"] = Table(3, 4, &FieldLister::Single);
        AxisItems(10, 10);
    }

    void Marks() {
        Json marks = Json::array();
        for (std::int32_t left = Long(); left > 0 && !reader_.HasFailed(); --left) {
            Json mark = Json::object();
            Each(mark, {"X", "Y", "SymbolType", "Colour", "Size", "lineStyle", "Tag"},
                 &FieldLister::Short);
            const int nodes = Short();
            mark["LineNodes"] = Table(nodes, 2, &FieldLister::Short);
            marks.push_back(std::move(mark));
        }
        json_["annotations"] = std::move(marks);
        Json circles = Json::array();
        for (int i = 1; i <= 4; ++i) {
            Json circle = Json::object();
            Each(circle, {"LineColour", "lineStyle", "LineWidth", "Visible", "LastPlotSects"},
                 &FieldLister::Short);
            Each(circle, {"Angle", "AxisAz", "AxisPl"}, &FieldLister::Text);
            circles.push_back(std::move(circle));
        }
        json_["smallCircles"] = std::move(circles);
    }

    void Rose() {
        Each({"RoseType"}, &FieldLister::Short);
        Each({"AppNumName", "AppNonNumName", "RoseScaleType"}, &FieldLister::Text);
        Each({"RoseHistStyle", "RoseSegShape", "RoseSectorFraction", "RoseZeroCircle"},
             &FieldLister::Short);
        Each({"RoseMeanDev", "RoseDispersion", "RoseSkewness", "RoseKurtosis", "RoseKappa",
              "RoseVariance", "RoseStdDev", "RoseSectorSize", "RoseStartAngle"},
             &FieldLister::Double);
        for (const char* name : {"RoseResultant", "RoseMoments"}) {
            json_[name] = Array(2, &FieldLister::Double);
        }
        for (const char* name : {"RoseRangeA", "RoseRangeB"}) {
            json_[name] = Table(3, 2, &FieldLister::Double);
        }
        for (const char* name : {"AppendedMin", "AppendedMax"}) {
            json_[name] = Array(2, &FieldLister::Double);
        }
        json_["RoseStats"] = Table(7, 3, &FieldLister::Double);
    }

    void Classes() {
        json_["DistinctValues"] = TableByColumns(kDistinctValues, 2, &FieldLister::Value);
        json_["ClassTable"] = TableByColumns(kClassRows, 3, &FieldLister::Value);
        Each({"ClassMode"}, &FieldLister::Short);
        Each({"NumClassified"}, &FieldLister::Long);
    }

    void LaterRose() {
        Each({"RoseMedian"}, &FieldLister::Double);
        Each({"NumClasses"}, &FieldLister::Short);
        Each({"ClassWidth", "ClassLow", "ClassHigh"}, &FieldLister::Double);
        json_["RoseMeanDir"] = Array(2, &FieldLister::Double);
    }

    void GridsOfValues() {
        json_["fullVersion"] = Fixed(kFullVersionLength);
        Each({"gGridCount"}, &FieldLister::Short);
        Json means = Json::array();
        Json sums = Json::array();
        for (int i = 0; i < kGridNodes; ++i) {
            Json mean = Json::array();
            Json sum = Json::array();
            for (int j = 0; j < kGridNodes; ++j) {
                mean.push_back(Double());
                sum.push_back(Double());
            }
            means.push_back(std::move(mean));
            sums.push_back(std::move(sum));
        }
        json_["gGridValues"] = {{"mean", std::move(means)}, {"cumulative", std::move(sums)}};
        json_["ClassStats"] = Table(5, 2, &FieldLister::Double);
        if (plot_.hasFrequencyField) {
            Each({"HasFrequencyColumn"}, &FieldLister::Short);
        }
    }

    BinaryReader reader_;
    const BinaryPlot& plot_;
    Json json_ = Json::object();
    Json earlier_ = Json::object();
};

} // namespace

Result<Json> BinaryFileJson(std::string_view bytes) {
    const Result<BinaryPlot> plot = ReadBinaryPlot(bytes);
    if (!plot) {
        return Failure{plot.Error()};
    }
    return FieldLister(bytes, *plot).List();
}

} // namespace quandrel
