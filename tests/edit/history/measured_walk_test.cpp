// SPDX-License-Identifier: MIT
//
// A random walk through edits, undo and redo, rotations, overlays and switches of what is shown,
// with a plain model of the measured orientations kept beside the plot.

#include "classify/classification.h"
#include "derive/secondary_data.h"
#include "edit/commands/edit_menu.h"
#include "edit/measured_model.h"
#include "edit/rows/edit_rows.h"
#include "edit/rows/move_rows.h"
#include "rotation/rotate_data.h"
#include "rotation/rotation_kernels.h"
#include "support/trial.h"
#include "support/turning.h"

namespace quandrel {

namespace {

using namespace testing;

constexpr double kRounding = 2e-6; // degrees, of two angles that are rounded to 1e-6

class MeasuredWalk : public MeasuredModel {
protected:
    void SetUp() override {
        MeasuredModel::SetUp();
        ForgetRotation();
    }

    /// The row of the secondary overlay's main row, or 0: moves of the one are moves of the other.
    [[nodiscard]] std::int32_t MainOf(std::int32_t row) const {
        const int overlay = Record().SelectedOverlay;
        const bool isOf =
            overlay > 0 && OverlayOfRow(Record(), row) == overlay
            && Record().OverlayRows[static_cast<std::size_t>(overlay)] == Record().NumData;
        return isOf ? row - FirstRowOfOverlay(Record(), overlay) + 1 : 0;
    }

    [[nodiscard]] RowAngles ShownOf(std::int32_t row) const {
        return Record().ShowSecondary != 0 && row <= Record().NumData ? RowAngles::Secondary
                                                                      : RowAngles::Primary;
    }

    void TakeInModel(std::int32_t row, const Attitude& now) {
        At(RowAt(row), ShownOf(row)) = now;
        if (const std::int32_t main = MainOf(row); main != 0) {
            At(RowAt(main), RowAngles::Secondary) = now;
        }
    }

    void NudgeSome() {
        SelectSome();
        const int steps = Below(5) - 2;
        const int turn = Below(7) - 3;
        const std::vector<std::int32_t> rows = gSelectionRows;
        NudgeSelection(steps, turn);
        for (const std::int32_t row : rows) {
            Attitude now = At(RowAt(row), ShownOf(row));
            const bool isPlane = row <= Record().NumData && Record().ShowSecondary == 0;
            const double dip = std::abs(now.dip) + steps;
            if (dip < 0 || dip > 90 || (steps == 0 && turn == 0)) {
                continue;
            }
            const double sign = now.dip < 0 ? -1 : 1;
            now.azimuth = turn == 0 ? now.azimuth : std::fmod(now.azimuth + turn + 360, 360);
            if (!isPlane && sign < 0 && dip == 0) {
                now.azimuth = std::fmod(now.azimuth + 180, 360);
            }
            now.dip = sign * dip;
            TakeInModel(row, ToMicrodegree(now));
        }
    }

    /// The line of a row on the net, as a unit vector of its lower end.
    Vector PlottedLine(std::int32_t row, const Attitude& shown) const {
        const bool isPole = row <= Record().NumData && Record().ShowSecondary == 0;
        return isPole ? NormalOfPlane(shown) : VectorOf({std::abs(shown.dip), shown.azimuth});
    }

    /// A move of a line over the equal area net, by the formulas of the projection.
    static Vector MovedOnNet(const Vector& line, double dx, double dy, bool fromPlottedPlace) {
        constexpr double kRadius = 1000;
        const double scale = kRadius / std::sqrt(1 + line.down);
        double x = line.east * scale;
        double y = line.north * scale;
        if (fromPlottedPlace) {
            x = std::nearbyint(x);
            y = std::nearbyint(y);
        }
        x = (x + dx) / kRadius;
        y = (y + dy) / kRadius;
        const double square = x * x + y * y;
        const double length = std::sqrt(2 - square);
        return {y * length, x * length, 1 - square};
    }

    void MoveSome() {
        SelectSome();
        const double dx = std::round(Part() * 200 - 100) + 0.25;
        const double dy = std::round(Part() * 200 - 100) + 0.5;
        const std::vector<std::int32_t> rows = gSelectionRows;
        MoveSelection(dx, dy);
        for (const std::int32_t row : rows) {
            const Attitude before = At(RowAt(row), ShownOf(row));
            const Attitude now = MeasuredAttitude(Here().rows, ShownOf(row), row);
            const Vector line = PlottedLine(row, before);
            const Vector wanted = MovedOnNet(line, dx, dy, IsWhole(before));
            const bool leaves = wanted.down < 0;
            const Vector moved = PlottedLine(row, now);
            ASSERT_LT(DegreesOf(AcuteAngleOf(moved, leaves ? line : wanted)), kRounding) << row;
            ASSERT_TRUE(now.dip == 0 || std::signbit(now.dip) == std::signbit(before.dip)
                        || leaves);
            TakeInModel(row, now);
        }
    }

    void Unfold() {
        RotationSettings turn;
        turn.operation = kUnfoldAboutSelected;
        turn.inclination = std::floor(Part() * 90);
        turn.azimuth = std::floor(Part() * 360);
        RotationReport report;
        const auto refusal = ApplyRotation(turn, report);
        ASSERT_FALSE(refusal) << refusal->reason;
        for (std::int32_t row = 1; row <= Record().NumData; ++row) {
            const Attitude bed = At(RowAt(row), RowAngles::Primary);
            const Attitude line = At(RowAt(row), RowAngles::Secondary);
            double plunge = 0;
            double trend = 0;
            UnfoldRow(DegToRad(bed.dip), DegToRad(bed.azimuth), DegToRad(*turn.inclination),
                      DegToRad(*turn.azimuth), DegToRad(line.dip), DegToRad(line.azimuth), plunge,
                      trend, kFineTolerance);
            const Attitude now = MeasuredAttitude(Here().rows, RowAngles::Secondary, row);
            ASSERT_LT(DegreesOf(AcuteAngleOf(VectorOf(now), LineVector(plunge, trend))), kRounding);
            At(RowAt(row), RowAngles::Primary).dip = 0;
            At(RowAt(row), RowAngles::Secondary) = now;
        }
        FollowInModel();
    }

    void TurnAll() {
        const RotationSettings turn = TurnAtRandom();
        const Vector axis = VectorOf({*turn.inclination, *turn.azimuth});
        for (std::int32_t row = 1; row <= Record().NumLoadedData; ++row) {
            for (const RowAngles which : kRowAngles) {
                if (row > Record().NumData && which == RowAngles::Secondary) {
                    continue;
                }
                const bool isPlane = which == RowAngles::Primary && row <= Record().NumData;
                const auto vectorOf = isPlane ? NormalOfPlane : VectorOf;
                Attitude& before = At(RowAt(row), which);
                const Attitude now = MeasuredAttitude(Here().rows, which, row);
                // The overlay of the secondary data takes nothing but these along.
                const bool stays = which == RowAngles::Line && MainOf(row) != 0;
                const Vector wanted =
                    TurnedAbout(vectorOf(before), axis, stays ? 0 : Radians(*turn.angle));
                ASSERT_LT(DegreesOf(AcuteAngleOf(vectorOf(now), wanted)), kRounding)
                    << "row " << row << " set " << static_cast<int>(which);
                before = now;
            }
        }
        FollowInModel();
    }

    /// The overlay of the secondary data shows them.
    void FollowInModel() {
        for (std::int32_t row = Record().NumData + 1; row <= Record().NumLoadedData; ++row) {
            if (const std::int32_t main = MainOf(row); main != 0) {
                At(RowAt(row), RowAngles::Primary) = At(RowAt(main), RowAngles::Secondary);
            }
        }
    }

    void OverlaySecondary() {
        const bool isDown = Record().SelectedOverlay > 0;
        if (Record().ShowSecondary != 0 || Record().OverlayRows[kOverlayCount] > 2) {
            return;
        }
        SetSecondaryButton(kOverlaySecondary, !isDown);
        if (isDown) {
            model_.resize(static_cast<std::size_t>(Record().NumLoadedData));
            return;
        }
        for (std::int32_t row = 1; row <= Record().NumData; ++row) {
            const ModelRow main = RowAt(row);
            model_.push_back({main[1], {}, main[2]});
        }
    }

    /// An edit that can be undone, or none.
    void EditOnce() {
        switch (Below(5)) {
        case 0:
            CutSome(Below(2) == 0 ? kCutItem : kDeleteItem);
            break;
        case 1:
            NudgeSome();
            break;
        case 2:
            MoveSome();
            break;
        case 3:
            SelectSome();
            ChangeSymbols({{static_cast<std::int16_t>(Below(25)), 3, 4}, {1, 2, 3}});
            break;
        default: {
            const bool isRemoved =
                Record().OverlayRows[kOverlayCount] >= 1
                && Record().OverlayRows[kOverlayCount] != Record().SelectedOverlay;
            RemoveOverlay();
            if (isRemoved) {
                model_.resize(static_cast<std::size_t>(Record().NumLoadedData));
            }
        }
        }
    }

    void ChangeOtherwise() {
        switch (Below(8)) {
        case 0:
        case 1:
            TurnAll();
            break;
        case 2: {
            const Model before = model_;
            if (Below(2) == 0) {
                Unfold();
            } else {
                TurnAll();
            }
            if (!HasFatalFailure() && UndoRotation()) {
                model_ = before;
                ++rotationsUndone_;
            }
            break;
        }
        case 3:
            OverlaySecondary();
            break;
        case 4:
            if (Record().OverlayRows[kOverlayCount] == 0) {
                ToggleSecondaryData();
            }
            break;
        case 5:
            SwitchDecimals();
            break;
        case 6:
            ApplyClassification(Below(2) == 0 ? kClassesByNumber : kNotClassified);
            break;
        default:
            while (Record().OverlayRows[kOverlayCount] == 0 && Record().NumData < 12) {
                AddParsedRow({RandomAttitude(), RandomAttitude(), RandomAttitude()});
            }
            Record().RowsChanged = kTrue;
            ReplotActivePlot(true);
        }
    }

    int rotationsUndone_ = 0;
};

TEST_F(MeasuredWalk, CarriesTheDecimalsThroughEveryEditTrial) {
    MakePlot();
    ExpectModel("load");
    const int rounds = TrialRounds(1000);
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        EditAndUndo(1 + Below(8), [this] { EditOnce(); });
        if (!HasFailure()) {
            ChangeOtherwise();
            ExpectModel("round " + std::to_string(round));
        }
    }
    EXPECT_GT(rotationsUndone_, 3);
    EXPECT_LT(apart_, rounded_ / 20) << "few azimuths are apart from the measured ones by rule";
}

} // namespace

} // namespace quandrel
