// SPDX-License-Identifier: MIT

#include "input/data_rows.h"

#include "orientation/angles.h"
#include "orientation/notation.h"
#include "stereo/row_positions.h"

#include <cmath>
#include <limits>
#include <utility>

namespace quandrel {

namespace {

/// Degrees rounded, halves to even. Most are whole already, which is faster to test than to round.
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

/// The orientations of a row, in the columns that keep them.
void SetOrientations(const ParsedRow& row, const RowForm& form, RowValues& values) {
    const RowTarget& target = form.target;
    ShownOrientation primary = RoundedOrientation(row.dip, row.az, row.isPlane);
    if (target.turnToPole) {
        primary = PoleInDegrees(primary);
    }
    values.hasSecondary = form.columns.secondary;
    if (values.hasSecondary) {
        ShownOrientation secondary{kErrorRow, kErrorRow};
        if (row.secondaryPresent) {
            secondary = RoundedOrientation(row.dip2, row.az2, row.isPlane2);
            secondary = target.turnSecondary ? PoleInDegrees(secondary) : secondary;
        }
        if (target.overlay > 0 && form.showsSecondary) {
            std::swap(primary, secondary);
        }
        values.dip2 = secondary.dip;
        values.azimuth2 = secondary.azimuth;
    }
    values.dip = primary.dip;
    values.azimuth = primary.azimuth;
}

void SetLine(const ParsedRow& row, RowValues& values, RowFaults& faults) {
    faults.line = row.lineStatus != AppendedLineStatus::Good;
    if (!faults.line) {
        const ShownOrientation line = RoundedOrientation(row.linePlunge, row.lineTrend, false);
        values.lineDip = line.dip;
        values.lineAzimuth = line.azimuth;
    }
}

void SetNumber(const ParsedRow& row, RowValues& values, RowFaults& faults) {
    // A number beyond the column's width cannot be stored. Kept: -9999 cannot be stored either. It
    // marks invalid numbers; the row is counted as such, so that the number is not lost silently.
    const bool fits = std::abs(row.number) <= std::numeric_limits<float>::max();
    const float number = fits ? static_cast<float>(row.number) : kInvalidNumber;
    faults.number = row.numberStatus != NumberStatus::Good || number == kInvalidNumber;
    values.number = faults.number ? kInvalidNumber : number;
}

void SetAppended(const ParsedRow& row, const ColumnSet& columns, RowValues& values,
                 RowFaults& faults) {
    if (columns.line) {
        SetLine(row, values, faults);
    }
    if (columns.number) {
        SetNumber(row, values, faults);
    }
    if (columns.text) {
        faults.text = row.textStatus != TextStatus::Good;
        values.text = row.text;
    }
    values.isInRange = !faults.number && !faults.text && (columns.number || columns.text);
}

/// The orientation shown for a row: a secondary one that is not kept reads as 0.
ShownOrientation ShownOf(const RowValues& values, const RowForm& form) {
    if (form.target.overlay > 0 || !form.showsSecondary) {
        return {values.dip, values.azimuth};
    }
    return values.hasSecondary ? ShownOrientation{values.dip2, values.azimuth2}
                               : ShownOrientation{};
}

} // namespace

SymbolCode CodeOfNewRow(const Styles& styles, const PlotRecord& record, int overlay, bool upward) {
    if (overlay > 0) {
        const bool isPolar =
            record.OverlayKind[static_cast<std::size_t>(overlay)] == kOverlayPolarLines;
        const int style = isPolar && upward ? overlay + 1 : overlay;
        return CodeOfStyleRow(styles, kFirstOverlaySymbol + style % kOverlaySymbols);
    }
    if (!record.AxesTitle.empty()) {
        const bool isUp = upward && record.DataKind == kPolarLines;
        return CodeOfStyleRow(styles, isUp ? kDerivedUpSymbol : kDerivedSymbol);
    }
    return CodeOfStyleRow(styles, upward ? kUpRowSymbol : kRowSymbol);
}

SymbolCode CodeOfNewRow(const PlotRecord& record, int overlay, bool upward) {
    return CodeOfNewRow(gSettings.styles, record, overlay, upward);
}

ShownOrientation RoundedOrientation(double dip, double azimuth, bool isPlane) {
    const ShownOrientation rounded{WholeDegrees(dip), WholeAzimuth(azimuth)};
    if (isPlane || rounded.dip != 0 || !(dip < 0)) {
        return rounded;
    }
    return {0, rounded.azimuth < 180 ? rounded.azimuth + 180 : rounded.azimuth - 180};
}

RowForm FormOfRows(const PlotRecord& record, const RowTarget& target) {
    return {
        target,
        ColumnsOf(record, target.secondaryFormat != 0),
        record.ShowSecondary != 0,
        IsPlottedAsPole(record, target.overlay),
        record.PlotKind,
        {CodeOfNewRow(record, target.overlay, false), CodeOfNewRow(record, target.overlay, true)}};
}

RowValues ValuesOfRow(const ParsedRow& row, const RowForm& form, RowFaults& faults) {
    faults = {};
    RowValues values;
    if (row.status != LineStatus::Row) {
        return values;
    }
    values.isData = true;
    SetOrientations(row, form, values);
    SetAppended(row, form.columns, values, faults);
    const ShownOrientation shown = ShownOf(values, form);
    const bool isUpward = shown.dip < 0 && shown.dip != kErrorRow;
    values.code = form.codes[isUpward ? 1 : 0];
    values.place = PlottedOrientation(form.plotKind, form.isPlottedAsPole, 0, shown);
    return values;
}

bool StoreDataRow(Plot& plot, const ParsedRow& row, const RowTarget& target, RowFaults& faults,
                  std::string_view line) {
    RowValues values = ValuesOfRow(row, FormOfRows(plot.record, target), faults);
    if (!values.isData) {
        values.errorLine = line;
    }
    return AppendRow(plot, target.overlay, values);
}

} // namespace quandrel
