// SPDX-License-Identifier: MIT

#include "batch/row_dump.h"

#include "core/measured_rows.h"
#include "core/plot_store.h"
#include "core/style_tables.h"

#include <bit>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace quandrel {

namespace {

/// A column of the active plot, from row 1 to the last loaded row.
template <class Column>
void WriteColumn(JsonWriter& writer, const char* name, const Column& column) {
    WriteArray(writer, name, ActiveRecord().NumLoadedData, [&](std::int32_t i) {
        const auto value = column(gActivePlot, i + 1);
        using Value = std::remove_const_t<decltype(value)>;
        if constexpr (std::is_floating_point_v<Value>) {
            writer.Number(static_cast<double>(value));
        } else if constexpr (std::is_integral_v<Value>) {
            writer.Number(std::int64_t{value});
        } else {
            writer.Text(value);
        }
    });
}

/// Symbol codes. Neighbouring rows mostly have the same code, whose text is created once.
void WriteCodes(JsonWriter& writer, const char* name, const DataColumn<SymbolCode>& column) {
    SymbolCode last = 0;
    std::string text = SymbolCodeText(last);
    WriteArray(writer, name, ActiveRecord().NumLoadedData, [&](std::int32_t i) {
        if (const SymbolCode code = column(gActivePlot, i + 1); code != last) {
            last = code;
            text = SymbolCodeText(code);
        }
        writer.Text(text);
    });
}

/// Measured angles of the active plot: [dip, azimuth] for a row with decimals, null for others. If
/// no row has decimals, there is no such column.
void WriteMeasured(JsonWriter& writer, const char* name, RowAngles which) {
    const std::int32_t rows = ActiveRecord().NumLoadedData;
    const MeasuredColumns& measured = MeasuredOf(ActivePlot().rows, which);
    std::int32_t first = 1;
    while (first <= rows && !measured.Has(first)) {
        ++first;
    }
    if (first > rows) {
        return;
    }
    WriteArray(writer, name, rows, [&](std::int32_t i) {
        if (!measured.Has(i + 1)) {
            writer.Ready("null");
            return;
        }
        const Attitude angles = ToMicrodegree(measured.At(i + 1));
        writer.BeginArray();
        writer.Number(angles.dip);
        writer.Number(angles.azimuth);
        writer.EndArray();
    });
}

/// Places on the map of the active plot: [x, y], or null for a row without one. If no row has one,
/// there is no such column.
void WritePlaces(JsonWriter& writer) {
    const Plot& plot = ActivePlot();
    if (!HasMapPlaces(plot)) {
        return;
    }
    WriteArray(writer, "places", plot.record.NumLoadedData, [&](std::int32_t i) {
        const std::optional<MapPlace> place = MapPlaceOf(plot.rows, i + 1);
        if (!place) {
            writer.Ready("null");
            return;
        }
        writer.BeginArray();
        writer.Number(place->x);
        writer.Number(place->y);
        writer.EndArray();
    });
}

/// Angles of whole degrees: few different texts, which are slow to create.
class KnownNumbers {
public:
    [[nodiscard]] std::string_view TextOf(double value) {
        constexpr int kShift = 64 - kBits;
        const auto bits = std::bit_cast<std::uint64_t>(value);
        Entry& entry = entries_[bits * 0x9E3779B97F4A7C15U >> kShift]; // spread by Knuth's constant
        if (entry.text.empty() || entry.bits != bits) {
            entry.bits = bits;
            entry.text.clear();
            AppendJsonNumber(value, entry.text);
        }
        return entry.text;
    }

private:
    static constexpr int kBits = 12;

    struct Entry {
        std::uint64_t bits = 0;
        std::string text;
    };

    std::vector<Entry> entries_ = std::vector<Entry>(std::size_t{1} << kBits);
};

} // namespace

void WriteRows(JsonWriter& writer) {
    const PlotRecord& record = ActiveRecord();
    writer.Key("rows");
    writer.BeginObject();
    WriteColumn(writer, "gDataDip", gDataDip);
    WriteColumn(writer, "gDataAz", gDataAz);
    WriteMeasured(writer, "measured", RowAngles::Primary);
    WriteCodes(writer, "gDataSymbol", gDataSymbol);
    WriteCodes(writer, "gDataSymbolBase", gDataSymbolBase);
    WriteColumn(writer, "gPointDensity", gPointDensity);
    WriteColumn(writer, "gDataOrder", gDataOrder);
    if (record.SecondaryFormat != 0) {
        WriteColumn(writer, "gData2Dip", gData2Dip);
        WriteColumn(writer, "gData2Az", gData2Az);
        WriteMeasured(writer, "measured2", RowAngles::Secondary);
    }
    if (record.HasAppendedLine != 0) {
        WriteColumn(writer, "gAppLineDip", gAppLineDip);
        WriteColumn(writer, "gAppLineAz", gAppLineAz);
        WriteMeasured(writer, "measuredLine", RowAngles::Line);
    }
    if (record.HasAppendedNumeric != 0) {
        WriteColumn(writer, "gAppNumeric", gAppNumeric);
    }
    if (record.HasAppendedText != 0) {
        WriteColumn(writer, "gAppText", gAppText);
    }
    WritePlaces(writer);
    writer.EndObject();
}

void WriteRowTable(JsonWriter& writer) {
    const RowTable& table = TableOf(gActivePlot);
    const auto whole = [&writer](const char* name, const auto& column) {
        WriteArray(writer, name, column.size(),
                   [&](std::size_t i) { writer.Number(std::int64_t{column[i]}); });
    };
    KnownNumbers known;
    const auto angles = [&](const char* name, const std::vector<double>& column) {
        WriteArray(writer, name, column.size(),
                   [&](std::size_t i) { writer.Ready(known.TextOf(column[i])); });
    };
    writer.Key("table");
    writer.BeginObject();
    whole("index", table.index);
    whole("x", table.x);
    whole("y", table.y);
    angles("plunge", table.plunge);
    angles("trend", table.trend);
    writer.EndObject();
}

} // namespace quandrel
