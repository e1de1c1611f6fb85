// SPDX-License-Identifier: MIT

#include "recovery/recovery_copy.h"

#include "core/data_format.h"
#include "core/fingerprint.h"
#include "core/plot_life.h"
#include "core/plot_record.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "input/text_file.h"
#include "persistence/binary_plot_file.h"
#include "recovery/copy_names.h"

#include <array>
#include <cstring>
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

/// The hash of a plot's contents, eight bytes a step.
class PlotFingerprint {
public:
    void Bytes(const void* data, std::size_t size) {
        const auto* bytes = static_cast<const char*>(data);
        for (; size >= sizeof(std::uint64_t); size -= sizeof(std::uint64_t)) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes, sizeof(word));
            mix_.Add(word);
            bytes += sizeof(word);
        }
        std::uint64_t tail = size;
        if (size > 0) { // an empty range may have no address
            std::memcpy(reinterpret_cast<char*>(&tail) + 1, bytes, size);
        }
        mix_.Add(tail);
    }

    template <Plain T>
    void Add(T value) {
        Bytes(&value, sizeof(value));
    }

    void Add(std::string_view text) {
        Add(text.size());
        Bytes(text.data(), text.size());
    }

    void Add(const std::string& text) { Add(std::string_view(text)); }

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

    void Add(const LineNode& node) {
        Add(node.X);
        Add(node.Y);
    }

    void Add(const Annotation& mark) {
        Add(std::array{mark.X, mark.Y, mark.SymbolType, mark.Colour, mark.Size, mark.lineStyle});
        Add(mark.Tag);
        Add(mark.LineNodes);
    }

    void Add(const SmallCircle& circle) {
        Add(std::array{circle.LineColour, circle.lineStyle, circle.LineWidth, circle.Visible});
        Add(circle.Angle);
        Add(circle.AxisAz);
        Add(circle.AxisPl);
    }

    template <class T>
    void Add(const std::unique_ptr<T>& held) {
        Add(held != nullptr);
        if (held != nullptr) {
            Add(*held);
        }
    }

    template <class T>
    void Rows(const DataColumn<T>& column, int slot) {
        const std::span<const T> rows = column.Rows(slot);
        Add(rows.size());
        Bytes(rows.data(), rows.size_bytes());
    }

    [[nodiscard]] std::uint64_t Value() const { return mix_.Value(); }

private:
    Fingerprint mix_;
};

/// Draws the active plot like any opened plot, and marks it as unsaved.
void DrawRecovered() {
    ReplotPlot(gActivePlot, ReplotCause::File);
    ActiveRecord().Modified = kTrue;
}

} // namespace

std::uint64_t FingerprintOf(int slot) {
    const PlotRecord& record = RecordOf(slot);
    PlotFingerprint print;
    VisitPlotFields(record, [&print](const char*, const auto& field) { print.Add(field); });
    print.Add(record.PlotAnnotations);
    print.Add(record.PlotSmallCircles);
    print.Add(record.MainFiles);
    print.Add(record.OverlayFiles);
    print.Rows(gDataDip, slot);
    print.Rows(gDataAz, slot);
    print.Rows(gDataSymbol, slot);
    print.Rows(gDataOrder, slot);
    print.Rows(gData2Dip, slot);
    print.Rows(gData2Az, slot);
    print.Rows(gAppLineDip, slot);
    print.Rows(gAppLineAz, slot);
    print.Rows(gAppNumeric, slot);
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
    recovered.slot = gActivePlot;
    return recovered;
}

} // namespace quandrel
