// SPDX-License-Identifier: MIT

#include "rotation/turned_rows.h"

#include "core/data_format.h"
#include "core/measured_rows.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "rotation/rotation_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace quandrel {

namespace {

constexpr double kRightAngle = kPi / 2;

/// A line in radians, plunge negative when it points upward.
struct Line {
    double plunge = 0;
    double trend = 0;
};

Line LineOf(Attitude degrees) {
    return {DegToRad(degrees.dip), DegToRad(degrees.azimuth)};
}

Line PoleOf(Attitude plane) {
    Line pole;
    PoleOfPlane(DegToRad(plane.dip), DegToRad(plane.azimuth), pole.plunge, pole.trend);
    return pole;
}

Line OppositeOf(Line line) {
    // The sign of a horizontal line cannot be changed: its trend names the end.
    return line.plunge == 0 ? Line{0, WrappedAngle(line.trend + kPi)}
                            : Line{-line.plunge, line.trend};
}

/// An orientation of a row before a rotation.
struct Former {
    Attitude start;  ///< as measured: what is rotated
    Attitude stored; ///< in the columns that the result is meant for
};

/// Rounds rotated directions for one kind of columns.
class Rounder {
public:
    explicit Rounder(AngleColumns columns)
        : columns_(columns) {}

    [[nodiscard]] double Tolerance() const {
        return columns_ == AngleColumns::Whole ? kTiltTolerance : kFineTolerance;
    }

    [[nodiscard]] Attitude RoundedLine(Line line, EndsOfLine sense, const Former& former) const {
        const bool isVertical = std::abs(line.plunge) == kRightAngle;
        Attitude rounded;
        rounded.dip = sense == EndsOfLine::Level ? 0 : Degrees(line.plunge);
        if (rounded.dip == 0 && line.plunge < 0) {
            line.trend += kPi;
        }
        rounded.azimuth = isVertical ? 0 : Azimuth(line.trend);
        if (sense == EndsOfLine::None) {
            rounded.dip = std::abs(rounded.dip);
        } else if (sense == EndsOfLine::Kept) {
            rounded.dip = former.start.dip < 0 ? -std::abs(rounded.dip) : std::abs(rounded.dip);
        }
        const bool hasTrend =
            std::abs(rounded.dip) != 90 && !(sense == EndsOfLine::Level && isVertical);
        return IsSame(rounded, former.stored, hasTrend) ? former.stored : rounded;
    }

    /// The plane of a pole, with the sign that the dip had.
    [[nodiscard]] Attitude RoundedPlane(Line pole, const Former& former) const {
        const double dip = Degrees(kRightAngle - std::abs(pole.plunge));
        Attitude rounded{former.start.dip < 0 ? -dip : dip, 0};
        if (std::abs(pole.plunge) != kRightAngle) {
            rounded.azimuth = Azimuth(pole.trend + kPi);
        }
        return IsSame(rounded, former.stored, dip != 0) ? former.stored : rounded;
    }

private:
    [[nodiscard]] double Degrees(double radians) const {
        const double degrees = RadToDeg(radians);
        const double measured = ToMicrodegree(degrees);
        return columns_ == AngleColumns::Whole ? RoundToEven(measured) : measured;
    }

    /// From 0 to less than 360.
    [[nodiscard]] double Azimuth(double radians) const {
        return std::fmod(Degrees(WrappedAngle(radians)), 360);
    }

    static bool IsSame(const Attitude& a, const Attitude& b, bool hasAzimuth) {
        return a.dip == b.dip && (!hasAzimuth || std::fmod(a.azimuth - b.azimuth, 360) == 0);
    }

    AngleColumns columns_;
};

/// Applies a rotation that does not unfold to a line.
Line Turned(const Rotation& rotation, Line line, double tolerance) {
    Line turned;
    switch (rotation.operation) {
    case kPlaneToVertical:
        RotatePlaneToVertical(line.plunge, line.trend, rotation.strike, rotation.inclination,
                              rotation.azimuth, rotation.pitch, rotation.angle, turned.plunge,
                              turned.trend, tolerance);
        break;
    case kLineToVertical:
        TiltLine(line.plunge, line.trend, rotation.inclination, rotation.azimuth, turned.plunge,
                 turned.trend, tolerance);
        break;
    default:
        RotateLineAboutAxis(line.plunge, line.trend, rotation.angle, rotation.inclination,
                            rotation.azimuth, turned.plunge, turned.trend, tolerance);
        break;
    }
    return turned;
}

/// How the rows of a set are interpreted.
struct SetRule {
    bool isPlane = false;
    EndsOfLine sense = EndsOfLine::None;
};

Attitude TurnedOrientation(const Rotation& rotation, SetRule rule, const Rounder& rounder,
                           const Former& row) {
    const double tolerance = rounder.Tolerance();
    return rule.isPlane ? rounder.RoundedPlane(Turned(rotation, PoleOf(row.start), tolerance), row)
                        : rounder.RoundedLine(Turned(rotation, LineOf(row.start), tolerance),
                                              rule.sense, row);
}

/// The slip line of a fault: that of the other block when the fault is turned over, which both
/// kinds of columns decide alike.
Attitude TurnedSlip(const Rotation& rotation, const Attitude& fault, const Rounder& rounder,
                    const Former& slip) {
    const Line line = Turned(rotation, LineOf(slip.start), rounder.Tolerance());
    const bool turnsOver = Turned(rotation, PoleOf(fault), kTiltTolerance).plunge < 0;
    return rounder.RoundedLine(turnsOver ? OppositeOf(line) : line, EndsOfLine::Directed, slip);
}

bool HasUpward(RowAngles which, int slot, std::int32_t first, std::int32_t last) {
    const PlotRows& rows = PlotOf(slot).rows;
    for (std::int32_t row = first; row <= last; ++row) {
        const double plunge = MeasuredAttitude(rows, which, row).dip;
        if (plunge < 0 && plunge >= -90 && DipOfRow(slot, row) != kErrorRow) {
            return true;
        }
    }
    return false;
}

EndsOfLine Directed(bool isDirected) {
    return isDirected ? EndsOfLine::Directed : EndsOfLine::None;
}

SetRule RuleOfPrimary(int slot) {
    const PlotRecord& record = RecordOf(slot);
    const bool isPlane = record.ShowSecondary != 0 ? record.PrimaryFormat == kPrimaryPlane
                                                   : IsPlottedAsPole(record, 0);
    return {isPlane, SenseOfPrimaryLines(slot)};
}

SetRule RuleOfSecondary(int slot) {
    const PlotRecord& record = RecordOf(slot);
    const bool isPlane = record.ShowSecondary != 0 ? IsPlottedAsPole(record, 0)
                                                   : record.SecondaryFormat == kSecondaryPlane;
    return {isPlane, SenseOfSecondaryLines(slot)};
}

SetRule RuleOfOverlay(int slot, int overlay, std::int32_t first, std::int32_t last) {
    const PlotRecord& record = RecordOf(slot);
    const bool isPolar =
        record.OverlayKind[static_cast<std::size_t>(overlay)] == kOverlayPolarLines;
    return {IsPlottedAsPole(record, overlay),
            Directed(isPolar || HasUpward(RowAngles::Primary, slot, first, last))};
}

/// True when an open plot shows the P or T axes of these faults.
bool HasKinematicAxes(int slot) {
    for (int other = 1; other <= HighestSlot(); ++other) {
        if (IsOpenSlot(other) && RecordOf(other).KinematicState == slot
            && !RecordOf(other).AxesTitle.empty()) {
            return true;
        }
    }
    return false;
}

/// Rotates the rows of one plot.
class RowTurner {
public:
    RowTurner(int slot, const Rotation& rotation, AngleColumns columns)
        : slot_(slot)
        , rotation_(rotation)
        , columns_(columns)
        , rounder_(columns)
        , record_(RecordOf(slot))
        , primary_(RuleOfPrimary(slot))
        , secondary_(RuleOfSecondary(slot))
        , hasAxes_(HasKinematicAxes(slot)) {}

    TurnedRows Turn() {
        CopyRows();
        TurnRange(1, record_.NumData, primary_);
        for (int overlay = 1; overlay <= record_.OverlayRows[kOverlayCount]; ++overlay) {
            TurnOverlay(overlay);
        }
        return std::move(rows_);
    }

private:
    using Rows = std::vector<Attitude>;

    static Attitude& At(Rows& rows, std::int32_t row) {
        return rows[static_cast<std::size_t>(row)];
    }

    static bool IsError(Rows& rows, std::int32_t row) { return At(rows, row).dip == kErrorRow; }

    /// True for a row that stays unchanged.
    [[nodiscard]] bool IsNoRow(std::int32_t row) const { return DipOfRow(slot_, row) == kErrorRow; }

    [[nodiscard]] Attitude Measured(RowAngles which, std::int32_t row) const {
        return MeasuredAttitude(PlotOf(slot_).rows, which, row);
    }

    [[nodiscard]] Rows Copied(RowAngles which) const {
        const PlotRows& columns = PlotOf(slot_).rows;
        Rows rows(static_cast<std::size_t>(record_.NumLoadedData) + 1);
        for (std::int32_t row = 1; row <= record_.NumLoadedData; ++row) {
            At(rows, row) = columns_ == AngleColumns::Whole ? WholeAttitude(columns, which, row)
                                                            : MeasuredAttitude(columns, which, row);
        }
        return rows;
    }

    void CopyRows() {
        rows_.primary = Copied(RowAngles::Primary);
        if (record_.SecondaryFormat != kNoSecondary) {
            rows_.secondary = Copied(RowAngles::Secondary);
        }
        if (record_.HasAppendedLine != 0 && !IsUnfolding(rotation_.operation)) {
            rows_.appended = Copied(RowAngles::Line);
            appendedSense_ = Directed(HasUpward(RowAngles::Line, slot_, 1, record_.NumData));
        }
    }

    [[nodiscard]] bool HasSecondary(std::int32_t row) {
        return !rows_.secondary.empty() && !IsError(rows_.secondary, row);
    }

    void TurnRange(std::int32_t first, std::int32_t last, SetRule rule) {
        for (std::int32_t row = first; row <= last; ++row) {
            if (IsNoRow(row)) {
                continue;
            }
            if (IsUnfolding(rotation_.operation)) {
                Unfold(row, rule);
            } else {
                TurnRow(row, rule);
            }
        }
    }

    void TurnRow(std::int32_t row, SetRule rule) {
        Attitude& main = At(rows_.primary, row);
        const Former former{Measured(RowAngles::Primary, row), main};
        if (HasSecondary(row)) {
            Attitude& second = At(rows_.secondary, row);
            const Former formerSecond{Measured(RowAngles::Secondary, row), second};
            const bool isSlip = rule.isPlane && !secondary_.isPlane
                                && (hasAxes_ || secondary_.sense == EndsOfLine::Directed);
            second = isSlip ? TurnedSlip(rotation_, former.start, rounder_, formerSecond)
                            : TurnedOrientation(rotation_, secondary_, rounder_, formerSecond);
        }
        main = TurnedOrientation(rotation_, rule, rounder_, former);
        TurnAppended(row);
        ++rows_.turned;
    }

    void TurnAppended(std::int32_t row) {
        if (!rows_.appended.empty() && At(rows_.appended, row).dip != kInvalidAppendedLine) {
            Attitude& line = At(rows_.appended, row);
            line = TurnedOrientation(rotation_, {false, appendedSense_}, rounder_,
                                     {Measured(RowAngles::Line, row), line});
        }
    }

    /// The fold axis of a row, or kInvalidAppendedLine for its plunge.
    [[nodiscard]] Attitude OwnAxis(std::int32_t row) const {
        return Measured(RowAngles::Line, row);
    }

    void Unfold(std::int32_t row, SetRule rule) {
        const bool hasOwnAxis = rotation_.operation == kUnfoldAboutAppended;
        if (!rule.isPlane) {
            ++rows_.withoutPlane;
            return;
        }
        if (hasOwnAxis && OwnAxis(row).dip == kInvalidAppendedLine) {
            ++rows_.withoutAxis;
            return;
        }
        const Line axis =
            hasOwnAxis ? LineOf(OwnAxis(row)) : Line{rotation_.inclination, rotation_.azimuth};
        Attitude& bed = At(rows_.primary, row);
        if (HasSecondary(row)) {
            Attitude& second = At(rows_.secondary, row);
            second = UnfoldedSecondary(Measured(RowAngles::Primary, row), axis,
                                       {Measured(RowAngles::Secondary, row), second});
        }
        bed.dip = 0;
        ++rows_.turned;
    }

    [[nodiscard]] Attitude UnfoldedSecondary(const Attitude& bed, Line axis,
                                             const Former& second) const {
        const Line line = secondary_.isPlane ? PoleOf(second.start) : LineOf(second.start);
        Line unfolded;
        UnfoldRow(DegToRad(bed.dip), DegToRad(bed.azimuth), axis.plunge, axis.trend, line.plunge,
                  line.trend, unfolded.plunge, unfolded.trend, rounder_.Tolerance());
        if (secondary_.isPlane) {
            return rounder_.RoundedPlane(unfolded, second);
        }
        return rounder_.RoundedLine(
            unfolded, rotation_.forced ? EndsOfLine::Level : secondary_.sense, second);
    }

    void TurnOverlay(int overlay) {
        const std::int32_t first = FirstRowOfOverlay(record_, overlay);
        const std::int32_t count = record_.OverlayRows[static_cast<std::size_t>(overlay)];
        const std::int32_t last = std::min(first + count - 1, record_.NumLoadedData);
        if (overlay == record_.SelectedOverlay && count == record_.NumData
            && !rows_.secondary.empty()) {
            for (std::int32_t row = first; row <= last; ++row) {
                FollowSecondary(row, row - first + 1);
            }
            return;
        }
        TurnRange(first, last, RuleOfOverlay(slot_, overlay, first, last));
    }

    void FollowSecondary(std::int32_t overlaid, std::int32_t row) {
        if (!IsError(rows_.primary, overlaid) && !IsError(rows_.primary, row)
            && HasSecondary(row)) {
            At(rows_.primary, overlaid) = At(rows_.secondary, row);
        }
    }

    int slot_;
    const Rotation& rotation_;
    AngleColumns columns_;
    Rounder rounder_;
    const PlotRecord& record_;
    SetRule primary_;
    SetRule secondary_;
    bool hasAxes_; ///< the lines state slip: a fault that turns over keeps its movement
    EndsOfLine appendedSense_ = EndsOfLine::None;
    TurnedRows rows_;
};

} // namespace

Rotation RotationOf(const RotationSettings& settings) {
    Rotation rotation;
    rotation.operation = settings.operation;
    rotation.forced = RotationStateOf(settings) < 0;
    if (settings.operation == kUnfoldAboutAppended) {
        return rotation;
    }
    rotation.inclination = DegToRad(*settings.inclination);
    rotation.azimuth = DegToRad(*settings.azimuth);
    if (settings.operation == kRotateAboutAxis || settings.operation == kPlaneToVertical) {
        rotation.angle = DegToRad(*settings.angle);
    }
    if (settings.operation == kPlaneToVertical) {
        rotation.strike = DegToRad(NearerStrike(*settings.azimuth, *settings.angle));
        rotation.pitch = DegToRad(PitchFromStrike(settings));
    }
    return rotation;
}

EndsOfLine SenseOfPrimaryLines(int slot) {
    const PlotRecord& record = RecordOf(slot);
    if (record.PrimaryFormat <= kDirections) {
        return EndsOfLine::Level;
    }
    if (!record.AxesTitle.empty()) {
        return EndsOfLine::Kept;
    }
    return Directed((record.ShowSecondary == 0 && record.DataKind == kPolarLines)
                    || HasUpward(RowAngles::Primary, slot, 1, record.NumData));
}

EndsOfLine SenseOfSecondaryLines(int slot) {
    const PlotRecord& record = RecordOf(slot);
    return Directed(record.NumSymbolsInPlot > 0
                    || (record.ShowSecondary != 0 && record.DataKind == kPolarLines)
                    || HasUpward(RowAngles::Secondary, slot, 1, record.NumData));
}

TurnedRows TurnRows(int slot, const Rotation& rotation, AngleColumns columns) {
    return RowTurner(slot, rotation, columns).Turn();
}

} // namespace quandrel
