// SPDX-License-Identifier: MIT

#include "batch/file_dump.h"

#include "batch/json_writer.h"
#include "core/plot_store.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_stream.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

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

/// What the listing takes from a plot that was read from the same bytes.
struct FileFacts {
    int version = 0;
    std::int32_t rows = 0; ///< main rows
    std::array<std::int32_t, kMaxOverlays + 1> overlayRows{};
    std::int16_t secondaryFormat = 0;
    bool hasLine = false;
    bool hasNumber = false;
    bool hasText = false;
    int gridSize = 0;
    bool hasFrequencyField = false;
};

FileFacts FactsOf(const BinaryPlot& plot) {
    const PlotRecord& record = plot.record;
    return {plot.version,
            record.NumData,
            record.OverlayRows,
            record.SecondaryFormat,
            record.HasAppendedLine != 0,
            record.HasAppendedNumeric != 0,
            record.HasAppendedText != 0,
            record.GridSize,
            plot.hasFrequencyField};
}

/// Columns of rows under their names: the elements of JSON arrays.
using ColumnTexts = std::vector<std::pair<const char*, std::string>>;

void AppendElement(std::int32_t value, std::string& elements) {
    elements += elements.empty() ? "" : ",";
    AppendJsonNumber(std::int64_t{value}, elements);
}

void AppendElement(float value, std::string& elements) {
    elements += elements.empty() ? "" : ",";
    if (std::isfinite(value)) {
        AppendJsonNumber(static_cast<double>(value), elements);
    } else {
        elements += NumberJson(static_cast<double>(value)).dump();
    }
}

void AppendElement(const std::string& text, std::string& elements) {
    elements += elements.empty() ? "" : ",";
    AppendJsonText(text, elements);
}

/// Lists the fields of a file that was found good: what grows with the rows as it is read, columns
/// of rows as text, the rest in one piece each.
class FieldLister {
public:
    FieldLister(std::string_view bytes, const FileFacts& facts, JsonWriter& writer)
        : reader_(bytes)
        , facts_(facts)
        , writer_(writer) {}

    void List() {
        writer_.BeginObject();
        Head();
        const auto cellRows = json_["NumLoadedData"].get<int>(); // the record has it mended
        WriteFields();
        writer_.Key("rows");
        WriteRows(facts_.rows, true);
        Overlays();
        WriteCells(cellRows);
        Densities();
        Statistics();
        EarlierRose();
        if (facts_.version > 70) {
            Window();
        }
        if (facts_.version > 71) {
            LaterStatistics();
        }
        if (facts_.version >= 80) {
            Marks();
        }
        if (facts_.version >= 90) {
            Rose();
            Classes();
        }
        if (facts_.version >= 91) {
            json_["LayerVisible"] = Array(6, &FieldLister::Short);
        }
        if (facts_.version >= 92) {
            LaterRose();
        }
        if (facts_.version >= 94) {
            GridsOfValues();
        }
        if (facts_.version >= 95) {
            AxisItems(6, 8);
        }
        json_["bytesBehind"] = reader_.Left();
        if (reader_.HasFailed()) {
            json_["problem"] = reader_.Error();
        }
        WriteFields();
        writer_.EndObject();
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

    /// Puts out the fields gathered so far.
    void WriteFields() {
        for (const auto& [name, value] : json_.items()) {
            writer_.Member(name, value);
        }
        json_ = Json::object();
    }

    template <class Value>
    void AddTo(ColumnTexts& columns, std::size_t& place, const char* name, const Value& value) {
        if (place == columns.size()) {
            columns.emplace_back(name, std::string());
        }
        AppendElement(value, columns[place++].second);
    }

    void AddLong(ColumnTexts& columns, std::size_t& place, const char* name) {
        std::int32_t value = 0;
        reader_.Long(value);
        AddTo(columns, place, name, value);
    }

    void AddSingle(ColumnTexts& columns, std::size_t& place, const char* name) {
        float value = 0;
        reader_.AnySingle(value);
        AddTo(columns, place, name, value);
    }

    void AddText(ColumnTexts& columns, std::size_t& place, const char* name) {
        std::string text;
        reader_.Text(text);
        AddTo(columns, place, name, text);
    }

    void ReadRow(ColumnTexts& columns, bool isMain) {
        std::size_t place = 0;
        for (const char* name : {"gDataDip", "gDataAz", "gPointDensity", "gDataOrder"}) {
            AddLong(columns, place, name);
        }
        AddText(columns, place, "gDataSymbol");
        if (facts_.secondaryFormat != 0) {
            AddLong(columns, place, "gData2Dip");
            AddLong(columns, place, "gData2Az");
        }
        if (isMain && facts_.hasLine) {
            AddLong(columns, place, "gAppLineDip");
            AddLong(columns, place, "gAppLineAz");
        }
        if (isMain && facts_.hasNumber) {
            AddSingle(columns, place, "gAppNumeric");
        }
        if (isMain && facts_.hasText && facts_.version < 90) {
            AddSingle(columns, place, "gAppText");
        } else if (isMain && facts_.hasText) {
            AddText(columns, place, "gAppText");
        }
    }

    /// Columns of so many rows; those of overlays have no appended data.
    void WriteRows(std::int32_t count, bool areMain) {
        ColumnTexts columns;
        for (std::int32_t i = 0; i < count && !reader_.HasFailed(); ++i) {
            ReadRow(columns, areMain);
        }
        writer_.BeginObject();
        for (auto& [name, elements] : columns) {
            writer_.Key(name);
            writer_.BeginArray();
            writer_.Ready(elements);
            writer_.EndArray();
            elements = {};
        }
        writer_.EndObject();
    }

    void Overlays() {
        Json rows = Json::array({Short()});
        Json kinds = Json::array({Short()});
        writer_.Key("overlays");
        writer_.BeginArray();
        for (std::size_t k = 1; k <= static_cast<std::size_t>(facts_.overlayRows[0]); ++k) {
            rows.push_back(Short());
            kinds.push_back(Short());
            WriteRows(facts_.overlayRows[k], false);
        }
        writer_.EndArray();
        json_["OverlayRows"] = std::move(rows);
        json_["OverlayKind"] = std::move(kinds);
    }

    void WriteCells(int rows) {
        writer_.Key("cells");
        writer_.BeginArray();
        std::string text;
        for (int i = 0; i < rows && !reader_.HasFailed(); ++i) {
            writer_.BeginArray();
            for (int j = 0; j < kCellsOfRow; ++j) {
                reader_.Text(text);
                writer_.Text(text);
            }
            writer_.EndArray();
        }
        writer_.EndArray();
    }

    void Densities() {
        Each({"PointDensityMax", "GridDensityMax"}, &FieldLister::Single);
        Each({"DensityCount"}, &FieldLister::Long);
        Each({"GridSize", "NumContours"}, &FieldLister::Short);
        if (const int size = facts_.gridSize; size > 0) {
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
        if (facts_.hasFrequencyField) {
            Each({"HasFrequencyColumn"}, &FieldLister::Short);
        }
    }

    BinaryReader reader_;
    const FileFacts& facts_;
    JsonWriter& writer_;
    Json json_ = Json::object();
    Json earlier_ = Json::object();
};

} // namespace

std::string WriteBinaryFile(std::string_view bytes, JsonWriter& writer) {
    FileFacts facts;
    { // the plot is let go before its fields are listed
        const Result<BinaryPlot> plot = ReadBinaryPlot(bytes);
        if (!plot) {
            return plot.Error();
        }
        facts = FactsOf(*plot);
    }
    FieldLister(bytes, facts, writer).List();
    return {};
}

} // namespace quandrel
