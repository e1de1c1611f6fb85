// SPDX-License-Identifier: MIT
//
// A plot of random rows with decimals, and a plain model of what its rows should be.

#pragma once

#include "core/replot.h"
#include "edit/commands/edit_menu.h"
#include "edit/edit_plot.h"
#include "edit/rows/edit_rows.h"
#include "input/data_rows.h"
#include "rotation/rotate_data.h"
#include "support/measured.h"

#include <algorithm>
#include <array>
#include <random>

namespace quandrel {

/// The measured orientations of a row, by RowAngles.
using ModelRow = std::array<Attitude, 3>;
using Model = std::vector<ModelRow>;

inline Attitude& At(ModelRow& row, RowAngles which) {
    return row[static_cast<std::size_t>(which)];
}

inline const Attitude& At(const ModelRow& row, RowAngles which) {
    return row[static_cast<std::size_t>(which)];
}

class MeasuredModel : public EditTest {
protected:
    double Part() { return std::uniform_real_distribution<double>(0, 1)(random_); }

    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

    /// With 0 to 6 decimals.
    double Angle(double most) {
        const double unit = std::pow(10, Below(7));
        return ToMicrodegree(std::floor(Part() * most * unit) / unit);
    }

    Attitude RandomAttitude() {
        const double dip = Angle(90);
        return {dip, Angle(360)};
    }

    [[nodiscard]] Plot& Here() const { return PlotOf(slot_); }

    [[nodiscard]] PlotRecord& Record() const { return RecordOf(slot_); }

    ModelRow& RowAt(std::int32_t row) { return model_[static_cast<std::size_t>(row) - 1]; }

    /// Planes with secondary orientations, appended lines and numbers.
    void MakePlot(std::int16_t secondaryFormat = kSecondaryLine) {
        slot_ = NewPlot();
        Record().PrimaryFormat = kPrimaryPlane;
        Record().SecondaryFormat = secondaryFormat;
        Record().DataKind = kPlanes;
        Record().HasAppendedLine = kTrue;
        Record().HasAppendedNumeric = kTrue;
        for (int row = 0; row < 12; ++row) {
            AddParsedRow({RandomAttitude(), RandomAttitude(), RandomAttitude()});
        }
        ReplotActivePlot(true);
    }

    /// Appends a main row as a load does.
    void AddParsedRow(const ModelRow& row) {
        ParsedRow parsed;
        parsed.status = LineStatus::Row;
        parsed.isPlane = true;
        parsed.isPlane2 = Record().SecondaryFormat == kSecondaryPlane;
        parsed.dip = row[0].dip;
        parsed.az = row[0].azimuth;
        parsed.secondaryPresent = true;
        parsed.dip2 = row[1].dip;
        parsed.az2 = row[1].azimuth;
        parsed.lineStatus = AppendedLineStatus::Good;
        parsed.linePlunge = row[2].dip;
        parsed.lineTrend = row[2].azimuth;
        parsed.numberStatus = NumberStatus::Good;
        parsed.number = Part() * 10;
        RowFaults faults;
        const RowTarget target{0, Record().SecondaryFormat, false, false};
        ASSERT_TRUE(StoreDataRow(Here(), parsed, target, faults));
        model_.push_back(row);
    }

    /// Whether an orientation of a row is a plane.
    [[nodiscard]] bool IsPlane(std::int32_t row, RowAngles which) const {
        if (row > Record().NumData || which == RowAngles::Line) {
            return which == RowAngles::Primary
                   && IsPlottedAsPole(Record(), OverlayOfRow(Record(), row));
        }
        return which == RowAngles::Primary ? Record().PrimaryFormat == kPrimaryPlane
                                           : Record().SecondaryFormat == kSecondaryPlane;
    }

    void ExpectModel(const std::string& after) {
        ASSERT_EQ(static_cast<std::size_t>(Record().NumLoadedData), model_.size()) << after;
        for (std::int32_t row = 1; row <= Record().NumLoadedData; ++row) {
            for (const RowAngles which : kRowAngles) {
                if (which == RowAngles::Secondary && row > Record().NumData) {
                    continue; // rows of overlays have none
                }
                const Attitude now = MeasuredAttitude(Here().rows, which, row);
                const Attitude wanted = At(RowAt(row), which);
                ASSERT_LT(std::hypot(now.dip - wanted.dip, now.azimuth - wanted.azimuth), 1e-7)
                    << after << ", row " << row << " set " << static_cast<int>(which) << ": "
                    << now.dip << "/" << now.azimuth << " is not " << wanted.dip << "/"
                    << wanted.azimuth;
                if (now.dip >= -90) {
                    ExpectWholeBeside(row, which, now, after);
                }
            }
        }
    }

    /// The whole degrees of a row are those of its measured angles, halves to even. North is 0 or
    /// 360. A line that points up by less than half a degree is level, and its trend is reversed.
    void ExpectWholeBeside(std::int32_t row, RowAngles which, const Attitude& measured,
                           const std::string& after) {
        const Attitude whole = WholeAttitude(Here().rows, which, row);
        const bool isPlane = IsPlane(row, which);
        const double dip = std::nearbyint(measured.dip);
        const bool isReversed = !isPlane && measured.dip < 0 && dip == 0;
        const double azimuth = std::nearbyint(measured.azimuth) + (isReversed ? 180 : 0);
        ASSERT_EQ(whole.dip, dip) << after << ", row " << row;
        ASSERT_GE(whole.azimuth, 0) << after << ", row " << row;
        ASSERT_LE(whole.azimuth, 360) << after << ", row " << row;
        const double turn = std::abs(std::fmod(whole.azimuth - azimuth, 360));
        ++(turn == 0 ? rounded_ : apart_);
        ASSERT_TRUE(turn == 0 || IsFreeByRule(isPlane, whole, measured, turn))
            << after << ", row " << row << " set " << static_cast<int>(which) << ": " << whole.dip
            << "/" << whole.azimuth << " beside " << measured.dip << "/" << measured.azimuth;
    }

    /// The rules by which the whole azimuth is not the rounded one.
    static bool IsFreeByRule(bool isPlane, const Attitude& whole, const Attitude& measured,
                             double turn) {
        // A row that stays a level plane or a vertical line keeps the azimuth that it had.
        const bool keepsAzimuth = isPlane ? whole.dip == 0 : std::abs(whole.dip) == 90;
        // An axis that is turned up by less than half a degree is level and gets the trend that it
        // points to, while the measured one is that of its lower end.
        const bool isLevelAxis = !isPlane && whole.dip == 0 && measured.dip > 0 && turn == 180;
        return keepsAzimuth || isLevelAxis;
    }

    /// Selects about a quarter of the rows up to one.
    void SelectSome(std::int32_t last) {
        std::vector<std::int32_t> chosen;
        for (std::int32_t row = 1; row <= last; ++row) {
            if (Below(4) == 0) {
                chosen.push_back(row);
            }
        }
        SelectRows(slot_, chosen);
    }

    void SelectSome() { SelectSome(Record().NumLoadedData); }

    /// Cuts or deletes some rows, unless too few main rows would be left; returns whether.
    bool CutSome(EditItem item) {
        SelectSome();
        const std::vector<std::int32_t> gone = RowsToRemove(slot_, SelectedRowsOf(slot_));
        if (static_cast<std::int32_t>(gone.size()) + 4 > Record().NumData) {
            return false;
        }
        EditSelection(item);
        for (auto row = gone.rbegin(); row != gone.rend(); ++row) {
            model_.erase(model_.begin() + (*row - 1));
        }
        return true;
    }

    /// Rotates the plot by a random angle about a random axis. The model stays as it was.
    RotationSettings TurnAtRandom() {
        RotationSettings turn;
        turn.operation = kRotateAboutAxis;
        turn.inclination = Angle(90);
        turn.azimuth = Angle(360);
        turn.angle = Angle(720) - 360;
        RotationReport report;
        EXPECT_FALSE(ApplyRotation(turn, report));
        return turn;
    }

    /// A run of edits, all the way back through them and forward again.
    ///
    /// @param editOnce  makes an edit that can be undone, or none
    template <class Edit>
    void EditAndUndo(int count, Edit editOnce) {
        ForgetUndo();
        std::vector<Model> states = {model_};
        for (int edit = 0; edit < count && !HasFatalFailure(); ++edit) {
            editOnce();
            ExpectModel("edit");
            const std::size_t steps = UseOfUndo().steps;
            states.resize(std::max(states.size(), steps + 1), model_);
            states[steps] = model_; // a nudge may have joined the last step
        }
        for (std::size_t state = states.size() - 1; state > 0 && !HasFatalFailure(); --state) {
            UndoLastEdit();
            model_ = states[state - 1];
            ExpectModel("undo");
        }
        for (std::size_t state = 1; state < states.size() && !HasFatalFailure(); ++state) {
            RedoLastEdit();
            model_ = states[state];
            ExpectModel("redo");
        }
    }

    void SwitchDecimals() {
        Record().UseDecimals = Record().UseDecimals != 0 ? std::int16_t{0} : kTrue;
        RebuildRowTable(slot_);
        ReplotActivePlot(true);
    }

    std::mt19937 random_{20261122};
    int slot_ = 0;
    Model model_;
    int rounded_ = 0; ///< orientations whose whole azimuth is the rounded one
    int apart_ = 0;   ///< and those where a rule gives another one
};

} // namespace quandrel
