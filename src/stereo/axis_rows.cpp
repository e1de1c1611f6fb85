// SPDX-License-Identifier: MIT

#include "stereo/axis_rows.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <charconv>
#include <set>

namespace quandrel {

namespace {

constexpr std::string_view kAssumedNormal = " (sense assumed: normal)";
constexpr std::string_view kAssumedReverse = " (sense assumed: reverse)";

SymbolCode CodeOfAxis(const Styles& styles, AxisKind kind) {
    return CodeOfStyleRow(styles, kind == AxisKind::Extension ? kDerivedUpSymbol : kDerivedSymbol);
}

bool IsAxisColumn(std::string_view name) {
    if (!name.starts_with(kAxisColumn)) {
        return false;
    }
    name.remove_prefix(std::string_view(kAxisColumn).size());
    return name.empty() || name == kAssumedNormal || name == kAssumedReverse;
}

/// The valid main rows of a plot with their texts' contents; empty when any text is of another
/// kind.
struct AxisRows {
    std::vector<std::pair<std::int32_t, AxisKind>> rows;
    std::set<std::int32_t> faults;
    bool hasShortening = false;
    bool hasExtension = false;
};

std::optional<AxisRows> ReadAxisRows(int slot) {
    AxisRows found;
    for (std::int32_t row = 1; row <= RecordOf(slot).NumData; ++row) {
        if (DipOfRow(slot, row) == kErrorRow) {
            continue;
        }
        const std::optional<AxisSource> source = ReadAxisText(gAppText(slot, row));
        if (!source) {
            return std::nullopt;
        }
        found.rows.emplace_back(row, source->kind);
        found.faults.insert(source->parentRow);
        (source->kind == AxisKind::Extension ? found.hasExtension : found.hasShortening) = true;
    }
    return found.rows.empty() ? std::nullopt : std::optional(std::move(found));
}

} // namespace

std::string AxisColumnName(std::optional<SlipSense> assumed) {
    std::string name = kAxisColumn;
    if (assumed) {
        name += *assumed == SlipSense::Normal ? kAssumedNormal : kAssumedReverse;
    }
    return name;
}

std::string AxisText(AxisKind kind, std::int32_t parentRow) {
    return (kind == AxisKind::Extension ? "T " : "P ") + std::to_string(parentRow);
}

std::optional<AxisSource> ReadAxisText(std::string_view text) {
    if (!text.starts_with("P ") && !text.starts_with("T ")) {
        return std::nullopt;
    }
    AxisSource source{text[0] == 'T' ? AxisKind::Extension : AxisKind::Shortening, 0};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data() + 2, end, source.parentRow);
    const bool isRow = error == std::errc() && rest == end && source.parentRow > 0;
    return isRow ? std::optional(source) : std::nullopt;
}

std::optional<SlipSense> AssumedSense(const PlotRecord& record) {
    const std::string_view name = record.AppNonNumName;
    if (record.AxesTitle.empty() || !IsAxisColumn(name)) {
        return std::nullopt;
    }
    if (name.ends_with(kAssumedNormal)) {
        return SlipSense::Normal;
    }
    return name.ends_with(kAssumedReverse) ? std::optional(SlipSense::Reverse) : std::nullopt;
}

std::string AssumedSenseText(const PlotRecord& record) {
    const std::optional<SlipSense> assumed = AssumedSense(record);
    if (!assumed) {
        return {};
    }
    return std::string("(sense assumed: the hanging walls moved ")
           + (*assumed == SlipSense::Normal ? "down)" : "up)");
}

bool HoldsBothAxes(const PlotRecord& record) {
    return record.AxesTitle == kBothAxes;
}

AxisKind AxisOfRow(const Plot& plot, const Styles& styles, std::int32_t row) {
    if (plot.record.HasAppendedText != 0) {
        if (const std::optional<AxisSource> source = ReadAxisText(plot.rows.text(row))) {
            return source->kind;
        }
    }
    const std::int32_t plunge = plot.rows.dip(row);
    const bool isExtension =
        plunge < 0
        || (plunge == 0 && plot.rows.symbolBase(row) == CodeOfAxis(styles, AxisKind::Extension));
    return isExtension ? AxisKind::Extension : AxisKind::Shortening;
}

void RestoreAxes(int slot) {
    PlotRecord& record = RecordOf(slot);
    if (record.HasAppendedText == 0 || record.PrimaryFormat != kPrimaryLine
        || record.DataKind != kPolarLines || !IsAxisColumn(record.AppNonNumName)) {
        return;
    }
    const std::optional<AxisRows> axes = ReadAxisRows(slot);
    if (!axes) {
        return;
    }
    record.AxesTitle = !axes->hasExtension    ? kShorteningAxes
                       : !axes->hasShortening ? kExtensionAxes
                                              : kBothAxes;
    SetCountOfValid(record, static_cast<std::int32_t>(HoldsBothAxes(record) ? axes->faults.size()
                                                                            : axes->rows.size()));
    for (const auto& [row, kind] : axes->rows) {
        gDataSymbol.At(slot, row) = CodeOfAxis(gSettings.styles, kind);
        gDataSymbolBase.At(slot, row) = CodeOfAxis(gSettings.styles, kind);
    }
    const bool wasRose = MixesAxesAsRose(record, record.PlotKind);
    MendMixedAxes(record);
    if (wasRose) {
        RebuildRowTable(slot);
        Tell(std::string(kOpensAsNet) + kMixedRoseRefusal, Icon::Information);
    }
}

bool MixesAxes(const PlotRecord& record, int symbolMode) {
    return HoldsBothAxes(record) && symbolMode >= kPointDensitySymbols
           && symbolMode <= kContoursAndGrid;
}

bool MixesAxesAsRose(const PlotRecord& record, int plotKind) {
    return HoldsBothAxes(record) && plotKind == kRose;
}

bool MendMixedAxes(PlotRecord& record) {
    const bool mixesAsRose = MixesAxesAsRose(record, record.PlotKind);
    const bool mixes = MixesAxes(record, record.PlotSymbolMode);
    if (mixesAsRose) {
        record.PlotKind = kEqualArea;
    }
    if (mixes) {
        record.PlotSymbolMode = kPointSymbols;
    }
    return mixesAsRose || mixes;
}

} // namespace quandrel
