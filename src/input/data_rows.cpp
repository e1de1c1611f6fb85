// SPDX-License-Identifier: MIT

#include "input/data_rows.h"

#include "orientation/angles.h"
#include "orientation/notation.h"
#include "stereo/row_positions.h"

#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

/// An azimuth from -360 on as rows keep it: 0 to 360.
double OnCompass(double azimuth) {
    if (azimuth < 0) {
        WrapDegrees(azimuth);
    }
    return azimuth;
}

/// A line that was computed from an angle in the plane. It keeps all its digits, so that the angle
/// can be computed from it again.
KeptAttitude KeptOfComputed(const Attitude& line, SecondaryOrigin origin) {
    KeptAttitude kept{RoundedAttitude(line, false), std::nullopt};
    const Attitude measured{line.dip, OnCompass(line.azimuth)};
    if (origin == SecondaryOrigin::Decimals && measured != kept.whole) {
        kept.measured = measured;
    }
    return kept;
}

/// The pole of a plane, or the plane of a pole. A right angle added to an angle of six decimals
/// leaves the seventh unclean.
void TurnToPole(KeptAttitude& kept, SecondaryOrigin origin) {
    kept.whole = PoleInDegrees(kept.whole);
    if (kept.measured) {
        const Attitude pole = PoleInDegrees(*kept.measured);
        kept.measured = origin == SecondaryOrigin::Stated ? ToMicrodegree(pole) : pole;
    }
}

KeptAttitude PrimaryOf(const ParsedRow& row, const RowTarget& target) {
    KeptAttitude kept = KeptOf({row.dip, row.az}, row.isPlane);
    if (target.turnToPole) {
        TurnToPole(kept, SecondaryOrigin::Stated);
    }
    return kept;
}

KeptAttitude SecondaryOf(const ParsedRow& row, const RowTarget& target) {
    if (!row.secondaryPresent) {
        return {};
    }
    const Attitude parsed{row.dip2, row.az2};
    KeptAttitude kept = row.secondaryOrigin == SecondaryOrigin::Stated
                            ? KeptOf(parsed, row.isPlane2)
                            : KeptOfComputed(parsed, row.secondaryOrigin);
    if (target.turnSecondary) {
        TurnToPole(kept, row.secondaryOrigin);
    }
    return kept;
}

std::optional<Attitude>& MeasuredIn(RowValues& values, RowAngles which) {
    return values.measured[static_cast<std::size_t>(which)];
}

/// The orientations of a row, in the columns that keep them.
void SetOrientations(const ParsedRow& row, const RowForm& form, RowValues& values) {
    const RowTarget& target = form.target;
    KeptAttitude primary = PrimaryOf(row, target);
    values.hasSecondary = form.columns.secondary;
    if (values.hasSecondary) {
        KeptAttitude secondary = SecondaryOf(row, target);
        if (target.overlay > 0 && form.showsSecondary) {
            std::swap(primary, secondary);
        }
        values.dip2 = WholeDegree(secondary.whole.dip);
        values.azimuth2 = WholeDegree(secondary.whole.azimuth);
        MeasuredIn(values, RowAngles::Secondary) = secondary.measured;
    }
    values.dip = WholeDegree(primary.whole.dip);
    values.azimuth = WholeDegree(primary.whole.azimuth);
    MeasuredIn(values, RowAngles::Primary) = primary.measured;
}

void SetLine(const ParsedRow& row, RowValues& values, RowFaults& faults) {
    faults.line = row.lineStatus != AppendedLineStatus::Good;
    if (!faults.line) {
        const KeptAttitude line = KeptOf({row.linePlunge, row.lineTrend}, false);
        values.lineDip = WholeDegree(line.whole.dip);
        values.lineAzimuth = WholeDegree(line.whole.azimuth);
        MeasuredIn(values, RowAngles::Line) = line.measured;
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

/// The orientation shown for a row in whole degrees: a secondary one that is not kept reads as 0.
Attitude WholeShownOf(const RowValues& values, RowAngles which) {
    if (which == RowAngles::Primary) {
        return {values.dip, values.azimuth};
    }
    return values.hasSecondary ? Attitude{values.dip2, values.azimuth2} : Attitude{};
}

} // namespace

KeptAttitude KeptOf(const Attitude& attitude, bool isPlane) {
    KeptAttitude kept{RoundedAttitude(attitude, isPlane), std::nullopt};
    if (IsWhole(attitude)) {
        return kept;
    }
    const Attitude measured = ToMicrodegree({attitude.dip, OnCompass(attitude.azimuth)});
    if (measured != kept.whole) {
        kept.measured = measured;
    }
    return kept;
}

SymbolCode CodeOfNewRow(const PlotRecord& record, int overlay, bool upward) {
    return CodeOfNewRow(gSettings.styles, record, overlay, upward);
}

RowForm FormOfRows(const PlotRecord& record, const RowTarget& target) {
    return {
        target,
        ColumnsOf(record, target.secondaryFormat != 0),
        record.ShowSecondary != 0,
        record.UseDecimals != 0,
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
    values.mapPlace = row.mapPlace;
    const RowAngles which =
        form.target.overlay > 0 || !form.showsSecondary ? RowAngles::Primary : RowAngles::Secondary;
    const Attitude whole = WholeShownOf(values, which);
    const bool isUpward = whole.dip < 0 && IsKnown(whole);
    values.code = form.codes[isUpward ? 1 : 0];
    const std::optional<Attitude>& measured = MeasuredIn(values, which);
    const bool isMeasured = form.usesDecimals && measured;
    values.place =
        PlottedOrientation(form.plotKind, form.isPlottedAsPole, 0, isMeasured ? *measured : whole);
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
