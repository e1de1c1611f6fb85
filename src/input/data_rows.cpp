// SPDX-License-Identifier: MIT

#include "input/data_rows.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <utility>

namespace quandrel {

namespace {

/// Degrees rounded, halves to even. Most are whole as they come, which is sooner seen than rounded.
std::int32_t WholeDegrees(double degrees) {
    const auto whole = static_cast<std::int32_t>(degrees);
    return whole == degrees ? whole : static_cast<std::int32_t>(RoundToEven(degrees));
}

std::int32_t WholeAzimuth(double degrees) {
    const std::int32_t whole = WholeDegrees(degrees);
    if (whole >= 0 && whole <= 360) {
        return whole;
    }
    double azimuth = whole;
    WrapDegrees(azimuth);
    return static_cast<std::int32_t>(azimuth);
}

/// True when a column of the active plot has a place for a row.
template <class Column>
bool Holds(const Column& column, std::int32_t index) {
    return index < column.RowCount(gActivePlot);
}

/// Grows the columns to hold a row; `ahead` half as many again, for rows come one after the other.
[[nodiscard]] bool GrowForRow(std::int32_t index, const RowTarget& target, bool ahead) {
    constexpr std::int32_t kLeastAhead = 1024;
    const std::int32_t most = std::max(index, gRowLimit);
    const std::int32_t room = ahead ? std::min(index / 2 + kLeastAhead, most - index) : 0;
    const std::int16_t wasFull = ActiveRecord().DataFull;
    int secondary = target.secondaryFormat != 0 ? 1 : 0;
    GrowDataColumns(secondary, index + room);
    if (ahead) {
        // Only the row itself has to find room.
        ActiveRecord().DataFull = wasFull;
    }
    return secondary == 0;
}

[[nodiscard]] bool MakeRoom(std::int32_t index, const RowTarget& target, const PlotRecord& record) {
    const bool needsSecondary = target.secondaryFormat != 0 && !Holds(gData2Dip, index);
    if ((!Holds(gDataDip, index) || needsSecondary) && !GrowForRow(index, target, true)
        && !GrowForRow(index, target, false)) {
        return false;
    }
    return (record.HasAppendedLine == 0 || Holds(gAppLineAz, index)
            || GrowAppendedColumn(AppendedColumn::Line))
           && (record.HasAppendedNumeric == 0 || Holds(gAppNumeric, index)
               || GrowAppendedColumn(AppendedColumn::Number))
           && (record.HasAppendedText == 0 || Holds(gAppText, index)
               || GrowAppendedColumn(AppendedColumn::Text));
}

void StoreErrorRow(std::int32_t index) {
    gDataDip.At(gActivePlot, index) = kErrorRow;
    gDataAz.At(gActivePlot, index) = 0;
    gDataSymbol.At(gActivePlot, index) = 0;
    gDataSymbolBase.At(gActivePlot, index) = 0;
    gPointDensity.At(gActivePlot, index) = 0;
    gDataOrder.At(gActivePlot, index) = index;
    AppendRow(TableOf(gActivePlot), {index, 0, 0, static_cast<double>(kErrorRow), 0});
}

/// Stores both orientations and gives the primary one as it now stands.
ShownOrientation StoreOrientations(const ParsedRow& row, std::int32_t index,
                                   const RowTarget& target, const PlotRecord& record) {
    ShownOrientation primary = RoundedOrientation(row.dip, row.az, row.isPlane);
    if (target.turnToPole) {
        primary = PoleInDegrees(primary);
    }
    if (target.secondaryFormat != 0) {
        ShownOrientation secondary{kErrorRow, kErrorRow};
        if (row.secondaryPresent) {
            secondary = RoundedOrientation(row.dip2, row.az2, row.isPlane2);
            secondary = target.turnSecondary ? PoleInDegrees(secondary) : secondary;
        }
        if (target.overlay > 0 && record.ShowSecondary != 0) {
            std::swap(primary, secondary);
        }
        gData2Dip.At(gActivePlot, index) = secondary.dip;
        gData2Az.At(gActivePlot, index) = secondary.azimuth;
    }
    gDataDip.At(gActivePlot, index) = primary.dip;
    gDataAz.At(gActivePlot, index) = primary.azimuth;
    return primary;
}

void StoreLine(const ParsedRow& row, std::int32_t index, RowFaults& faults) {
    faults.line = row.lineStatus != AppendedLineStatus::Good;
    const ShownOrientation line = faults.line
                                      ? ShownOrientation{kInvalidAppendedLine, 0}
                                      : RoundedOrientation(row.linePlunge, row.lineTrend, false);
    gAppLineDip.At(gActivePlot, index) = line.dip;
    gAppLineAz.At(gActivePlot, index) = line.azimuth;
}

void StoreNumber(const ParsedRow& row, std::int32_t index, RowFaults& faults) {
    // A number beyond the column's width is none that could be kept. Kept: nor is -9999, which
    // marks the invalid ones; the row counts as such, so that the number is not lost in silence.
    const bool fits = std::abs(row.number) <= std::numeric_limits<float>::max();
    const float number = fits ? static_cast<float>(row.number) : kInvalidNumber;
    faults.number = row.numberStatus != NumberStatus::Good || number == kInvalidNumber;
    gAppNumeric.At(gActivePlot, index) = faults.number ? kInvalidNumber : number;
}

/// Stores a row that was read.
void StoreGoodRow(const ParsedRow& row, std::int32_t index, const RowTarget& target,
                  const PlotRecord& record, RowFaults& faults) {
    const ShownOrientation stored = StoreOrientations(row, index, target, record);
    gDataOrder.At(gActivePlot, index) = index;
    gPointDensity.At(gActivePlot, index) = 0;
    if (record.HasAppendedLine != 0) {
        StoreLine(row, index, faults);
    }
    if (record.HasAppendedNumeric != 0) {
        StoreNumber(row, index, faults);
    }
    if (record.HasAppendedText != 0) {
        faults.text = row.textStatus != TextStatus::Good;
        gAppText.Set(gActivePlot, index, row.text);
    }
    if (!faults.number && !faults.text
        && (record.HasAppendedNumeric != 0 || record.HasAppendedText != 0)) {
        TrackAppendedRange(index);
    }
    ShownOrientation shown = stored;
    if (target.overlay == 0 && record.ShowSecondary != 0) {
        shown = {gData2Dip(gActivePlot, index), gData2Az(gActivePlot, index)};
    }
    const SymbolCode code = CodeOfNewRow(target.overlay, shown.dip < 0 && shown.dip != kErrorRow);
    gDataSymbol.At(gActivePlot, index) = code;
    gDataSymbolBase.At(gActivePlot, index) = code;
    AppendRow(
        TableOf(gActivePlot),
        PlottedOrientation(record.PlotKind, IsPlottedAsPole(record, target.overlay), index, shown));
}

} // namespace

SymbolCode CodeOfNewRow(int overlay, bool upward) {
    const PlotRecord& record = ActiveRecord();
    if (overlay > 0) {
        const bool isPolar =
            record.OverlayKind[static_cast<std::size_t>(overlay)] == kOverlayPolarLines;
        const int style = isPolar && upward ? overlay + 1 : overlay;
        return CodeOfStyleRow(kFirstOverlaySymbol + style % kOverlaySymbols);
    }
    if (!record.AxesTitle.empty()) {
        const bool isUp = upward && record.DataKind == kPolarLines;
        return CodeOfStyleRow(isUp ? kDerivedUpSymbol : kDerivedSymbol);
    }
    return CodeOfStyleRow(upward ? kUpRowSymbol : kRowSymbol);
}

ShownOrientation RoundedOrientation(double dip, double azimuth, bool isPlane) {
    const ShownOrientation rounded{WholeDegrees(dip), WholeAzimuth(azimuth)};
    if (isPlane || rounded.dip != 0 || !(dip < 0)) {
        return rounded;
    }
    return {0, rounded.azimuth < 180 ? rounded.azimuth + 180 : rounded.azimuth - 180};
}

bool StoreDataRow(const ParsedRow& row, std::int32_t index, const RowTarget& target,
                  RowFaults& faults) {
    faults = {};
    PlotRecord& record = ActiveRecord();
    try {
        if (!MakeRoom(index, target, record)) {
            return false;
        }
        if (row.status == LineStatus::Row) {
            StoreGoodRow(row, index, target, record, faults);
        } else {
            StoreErrorRow(index);
        }
        return true;
    } catch (const std::bad_alloc&) {
        record.DataFull = kTrue;
        ResizeRowTable(TableOf(gActivePlot), static_cast<std::size_t>(index) - 1);
        return false;
    }
}

void MakeRoomForRows(std::int32_t last, const RowTarget& target) {
    const std::int16_t wasFull = ActiveRecord().DataFull;
    (void)MakeRoom(last, target, ActiveRecord());
    ActiveRecord().DataFull = wasFull;
    ReserveRows(TableOf(gActivePlot), static_cast<std::size_t>(last));
}

void KeepErrorLine(std::int32_t index, std::string_view line) {
    if (!line.empty()) {
        gErrorLines[static_cast<std::size_t>(gActivePlot)][index] = std::string(line);
    }
}

} // namespace quandrel
