// SPDX-License-Identifier: MIT

#include "recovery/recovery_copy.h"

#include "core/data_format.h"
#include "core/fingerprint.h"
#include "core/plot_life.h"
#include "core/plot_record.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "edit/rows/kept_rows.h"
#include "input/text_file.h"
#include "persistence/binary_plot_file.h"
#include "recovery/copy_names.h"

#include <array>
#include <map>
#include <memory>
#include <new>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace quandrel {

namespace fs = std::filesystem;

namespace {

template <class T>
concept Plain = std::is_arithmetic_v<T>;

/// A struct that names its fields.
template <class T>
concept Part = requires {
    T::kFieldNames;
};

/// The hash of a plot's contents. A part counts with all the fields that it names.
class PlotFingerprint {
public:
    template <Plain T>
    void Add(T value) {
        mix_.AddBytes(&value, sizeof(value));
    }

    void Add(std::string_view text) { mix_.Add(text); }

    void Add(const std::string& text) { mix_.Add(std::string_view(text)); }

    void Add(std::monostate) { Add(0); }

    void Add(const TaggedValue& value) {
        Add(value.index());
        std::visit([this](const auto& held) { Add(held); }, value);
    }

    template <class T, std::size_t Count>
    void Add(const std::array<T, Count>& values) {
        for (const T& value : values) {
            Add(value);
        }
    }

    template <class T>
    void Add(const std::vector<T>& values) {
        Add(values.size());
        for (const T& value : values) {
            Add(value);
        }
    }

    template <class T>
    void Add(const std::unique_ptr<T>& held) {
        Add(held != nullptr);
        if (held != nullptr) {
            Add(*held);
        }
    }

    template <Part T>
    void Add(const T& part) {
        const auto addNamed = [this](const char*, const auto& field) { this->Add(field); };
        const auto add = [this](const auto& field) { this->Add(field); };
        VisitFieldsOf(part, addNamed);
        VisitFurtherFieldsOf(part, add);
    }

    void Add(const PlotRecord& record) {
        VisitPlotFields(record, [this](const char*, const auto& field) { this->Add(field); });
        VisitFurtherPlotFields(record, [this](const auto& field) { this->Add(field); });
    }

    template <class T>
    void Rows(const DataColumn<T>& column, int slot) {
        const std::span<const T> rows = column.Rows(slot);
        mix_.AddBytes(rows.data(), rows.size_bytes());
    }

    /// The texts of error rows, in the order of the rows.
    void Add(const ErrorLines& lines) {
        const std::map<std::int32_t, std::string_view> inOrder(lines.begin(), lines.end());
        Add(inOrder.size());
        for (const auto& [row, line] : inOrder) {
            Add(row);
            Add(line);
        }
    }

    [[nodiscard]] std::uint64_t Value() const { return mix_.Value(); }

private:
    Fingerprint mix_;
};

/// True for a column that a copy keeps: densities are counted again, and the symbols to restore
/// follow from those that are drawn.
constexpr bool IsKept(std::size_t column) {
    return column != kDensityColumn && column != kBaseColumn;
}

/// Draws the active plot like any opened plot, and marks it as unsaved.
void DrawRecovered() {
    ReplotPlot(gActivePlot, ReplotCause::File);
    ActiveRecord().Modified = kTrue;
}

} // namespace

std::uint64_t FingerprintOf(int slot) {
    const PlotRecord& record = RecordOf(slot);
    PlotFingerprint print;
    print.Add(record);
    ForEachColumn([&print, slot](const auto& column, std::size_t place) {
        if (IsKept(place)) {
            print.Rows(column, slot);
        }
    });
    print.Add(PlotOf(slot).rows.errorLines);
    for (std::int32_t row = 1; record.HasAppendedText != 0 && row <= record.NumData; ++row) {
        print.Add(gAppText(slot, row));
    }
    return print.Value();
}

Result<std::string> RecoveryCopyBytes(int slot) {
    try {
        Result<std::string> bytes = BinaryPlotBytes(slot);
        if (bytes) {
            *bytes += NamesBlock(NamesOf(RecordOf(slot)));
        }
        return bytes;
    } catch (const std::bad_alloc&) {
        return Failure{"there is not enough memory"};
    }
}

RecoveredPlot OpenRecoveryCopy(const fs::path& file) {
    RecoveredPlot recovered{file, 0, {}};
    const Result<std::string> bytes = FirstBytes(file.string(), kLargestTextFile);
    if (!bytes) {
        recovered.problem = bytes.Error();
        return recovered;
    }
    Result<BinaryPlot> plot = ReadBinaryPlot(*bytes);
    if (!plot) {
        recovered.problem = plot.Error();
        return recovered;
    }
    BinaryPlotRemarks remarks; // of a copy only damage is new to the user
    remarks.leftOut = plot->leftOut;
    const std::int32_t formerPlot = gActivePlot;
    if (!PrepareNewPlotWindow()) {
        recovered.problem = "There are too many plot windows.";
        return recovered;
    }
    if (!StoreBinaryPlot(std::move(*plot), file.string(), gActivePlot)) {
        ClosePlot(gActivePlot);
        gActivePlot = IsOpenSlot(formerPlot) ? formerPlot : gActivePlot;
        recovered.problem = kNoMemoryForPlot;
        return recovered;
    }
    CopyNames nameless;
    nameless.title = "Plot " + std::to_string(gActivePlot) + ": Recovered";
    RestoreNames(ActiveRecord(), NamesOfCopy(*bytes).value_or(std::move(nameless)));
    DrawRecovered();
    TellRemarks(remarks);
    recovered.slot = gActivePlot;
    return recovered;
}

} // namespace quandrel
