// SPDX-License-Identifier: MIT
//
// A random walk through pastes of map tables, removals and undo, with a plain model of the measured
// planes and of the table rows that they are linked to.

#include "core/measured_rows.h"
#include "core/plot_life.h"
#include "input/load_report.h"
#include "link_test_base.h"
#include "orientation/degrees_text.h"
#include "support/trial.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

/// A plane and the row of the table that it comes from.
struct ModelRow {
    Attitude measured;
    std::int32_t tableRow = 0; ///< 0: none
};

class MeasuredTableWalk : public LinkTest {
protected:
    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

    /// With 0 to 6 decimals.
    double Angle(int most) {
        const double unit = std::pow(10, Below(7));
        const double steps =
            std::floor(most * unit * static_cast<double>(random_()) / 4294967296.0);
        return ToMicrodegree(steps / unit);
    }

    Attitude Plane() {
        const double dip = Angle(90);
        return {dip, Angle(360)};
    }

    /// A table of random planes; they become the model.
    ScriptedTable Table(const std::string& name, std::int32_t rows) {
        ScriptedTable table{name, {"Dip", "DipDir", "Length", "Kind"}, {}};
        model_.clear();
        for (std::int32_t row = 1; row <= rows; ++row) {
            const Attitude plane = Plane();
            table.rows.push_back(
                {DegreesText(plane.dip), DegreesText(plane.azimuth), "1.5", "joint"});
            model_.push_back({plane, row});
        }
        return table;
    }

    void ExpectModel(const std::string& after) const {
        ASSERT_EQ(static_cast<std::size_t>(RecordOf(slot_).NumData), model_.size()) << after;
        for (std::size_t i = 0; i < model_.size(); ++i) {
            const auto row = static_cast<std::int32_t>(i) + 1;
            const PlotRows& rows = PlotOf(slot_).rows;
            const Attitude wanted = model_[i].measured;
            ASSERT_EQ(MeasuredAttitude(rows, RowAngles::Primary, row), wanted) << after << row;
            const Attitude whole = WholeAttitude(rows, RowAngles::Primary, row);
            ASSERT_EQ(whole.dip, std::nearbyint(wanted.dip)) << after << row;
            ASSERT_EQ(whole.azimuth, std::nearbyint(wanted.azimuth)) << after << row;
            ASSERT_EQ(TableRowOf(row), model_[i].tableRow) << after << row;
        }
    }

    [[nodiscard]] std::int32_t TableRowOf(std::int32_t row) const {
        std::int32_t tableRow = 0;
        const MIGeoLink* link = gMIGeoLinks.Item(slot_);
        return link != nullptr && link->GetMIRow(row, tableRow) ? tableRow : 0;
    }

    void RemoveSome() {
        Rows gone;
        for (std::int32_t row = 1; row <= RecordOf(slot_).NumData; ++row) {
            if (Below(5) == 0) {
                gone.push_back(row);
            }
        }
        if (gone.empty() || gone.size() + 2 > model_.size()) {
            return;
        }
        SelectRows(slot_, gone);
        RemoveSelectedRows(kDeleteEdit);
        for (auto row = gone.rbegin(); row != gone.rend(); ++row) {
            model_.erase(model_.begin() + (*row - 1));
        }
    }

    /// Removals, all the way back through them and forward again.
    void RemoveAndUndo() {
        std::vector<std::vector<ModelRow>> states = {model_};
        for (int edit = 0; edit < 4; ++edit) {
            RemoveSome();
            ExpectModel("removal ");
            if (UseOfUndo().steps == states.size()) {
                states.push_back(model_);
            }
        }
        for (std::size_t state = states.size() - 1; state > 0; --state) {
            UndoLastEdit();
            model_ = states[state - 1];
            ExpectModel("undo ");
        }
        for (std::size_t state = 1; state < states.size(); ++state) {
            RedoLastEdit();
            model_ = states[state];
            ExpectModel("redo ");
        }
    }

    std::mt19937 random_{20261122};
    int slot_ = 0;
    std::vector<ModelRow> model_;
};

TEST_F(MeasuredTableWalk, KeepsTheDecimalsOfTheTableTrial) {
    Link();
    const int rounds = TrialRounds(300);
    std::int32_t withDecimals = 0;
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        script.tables = {Table("Joints", 5 + Below(30))};
        slot_ = PasteNew("Joints");
        ExpectModel("paste ");
        withDecimals += LastLoad().rowsWithDecimals;
        EXPECT_EQ(LastLoad().rowsWithDecimals,
                  CountRowsWithDecimals(PlotOf(slot_).rows, 1, RecordOf(slot_).NumData));
        RemoveAndUndo();
        ClearSelection();
        ForgetUndo();
        ClosePlot(slot_);
    }
    EXPECT_GT(withDecimals, rounds * 5);
}

} // namespace
} // namespace quandrel
