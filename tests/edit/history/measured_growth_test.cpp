// SPDX-License-Identifier: MIT
//
// A random walk through everything that brings rows into a plot or takes them elsewhere: pastes,
// merged and overlaid files, points and rows added by hand, edits of the grid, derived plots, saves
// and loads. A plain model of the measured orientations is kept beside the plot.

#include "core/plot_life.h"
#include "derive/derived_plots.h"
#include "derive/intersection_lines.h"
#include "derive/kinematic_plots.h"
#include "edit/commands/edit_menu.h"
#include "edit/grids/data_grid.h"
#include "edit/measured_model.h"
#include "edit/rows/add_point.h"
#include "edit/rows/edit_rows.h"
#include "orientation/degrees_text.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "rotation/rotate_data.h"
#include "support/trial.h"

#include <map>
#include <utility>

namespace quandrel {

namespace {

using namespace testing;

constexpr std::int32_t kMostRows = 60;

class MeasuredGrowth : public MeasuredModel, public ::testing::WithParamInterface<std::int16_t> {
protected:
    void SetUp() override {
        MeasuredModel::SetUp();
        AcceptFormat({}, 1000000);
    }

    /// A plane with its secondary orientation, often a line within 10 degrees of the plane, and a
    /// line, half of which point up.
    ModelRow RandomRow() {
        ModelRow row{RandomAttitude(), RandomAttitude(), RandomAttitude()};
        if (GetParam() == kSecondaryLine && Below(3) > 0) {
            const Vector normal = NormalOfPlane(row[0]);
            const Vector strike = VectorOf({0, row[0].azimuth + 90});
            const double pitch = Radians(1 + 178 * Part());
            const Vector down = CrossProduct(normal, strike);
            Vector line = Sum(strike, std::cos(pitch), down, std::sin(pitch));
            line = line.down < 0 ? Sum(line, -1, {}, 0) : line;
            row[1] = ToMicrodegree({DegreesOf(std::asin(std::min(line.down, 1.0))), TrendOf(line)});
        }
        if (GetParam() == kSecondaryLine && Below(2) == 0) {
            row[1].dip = -row[1].dip;
        }
        if (Below(2) == 0) {
            row[2].dip = -row[2].dip;
        }
        return row;
    }

    static double TrendOf(const Vector& line) {
        return std::fmod(DegreesOf(std::atan2(line.east, line.north)) + 360, 360);
    }

    [[nodiscard]] bool HasOverlays() const { return Record().OverlayRows[kOverlayCount] > 0; }

    [[nodiscard]] bool IsFull() const { return Record().NumLoadedData >= kMostRows; }

    /// Selects some main rows, at least one; returns them.
    std::vector<std::int32_t> ChooseMainRows() {
        SelectSome(Record().NumData);
        if (SelectedRowsOf(slot_).empty()) {
            SelectRows(slot_, {1 + Below(Record().NumData)});
        }
        const std::span<const std::int32_t> chosen = SelectedRowsOf(slot_);
        return {chosen.begin(), chosen.end()};
    }

    Model CopiesOf(const std::vector<std::int32_t>& rows) {
        Model copies;
        for (const std::int32_t row : rows) {
            copies.push_back(RowAt(row));
        }
        return copies;
    }

    void Append(const Model& rows) { model_.insert(model_.end(), rows.begin(), rows.end()); }

    void PasteHere() {
        if (HasOverlays() || IsFull()) {
            return;
        }
        const Model copies = CopiesOf(ChooseMainRows());
        EditSelection(kCopyAllItem);
        PasteData();
        ++done_["pasted here"];
        Append(copies);
    }

    /// Over overlays the row is one of an overlay made by hand. It lacks further orientations.
    void AddPoint() {
        if (IsFull()) {
            return;
        }
        const Attitude point = RandomAttitude();
        ASSERT_TRUE(AddPointToPlot(DegreesText(point.dip), DegreesText(point.azimuth)));
        model_.push_back({point, {kErrorRow, kErrorRow}, {kInvalidAppendedLine, 0}});
        ++done_["added"];
    }

    /// Types both angles of a pair. A cell that is typed as it is shown stays as it was: returns
    /// false when one does.
    static bool TypePair(DataGrid& grid, std::size_t row, RowAngles which, const Attitude& angles) {
        const std::size_t column = 1 + 2 * static_cast<std::size_t>(which);
        const bool isDipEdited = grid.SetCell(row, column, DegreesText(angles.dip));
        return grid.SetCell(row, column + 1, DegreesText(angles.azimuth)) && isDipEdited;
    }

    /// Types orientations of some rows, and fills a new row.
    void EditGrid() {
        DataGrid grid(slot_);
        const int edits = 1 + Below(3);
        for (int edit = 0; edit < edits; ++edit) {
            const std::int32_t row = 1 + Below(Record().NumData);
            const RowAngles which = kRowAngles[static_cast<std::size_t>(Below(3))];
            Attitude& angles = At(RowAt(row), which);
            do {
                angles = At(RandomRow(), which);
            } while (!TypePair(grid, grid.RowOfPoint(row).value(), which, angles));
        }
        if (!IsFull() && grid.AddRow()) {
            const ModelRow row = RandomRow();
            for (const RowAngles which : kRowAngles) {
                EXPECT_TRUE(TypePair(grid, grid.RowCount() - 1, which, At(row, which)));
            }
            model_.push_back(row);
        }
        EXPECT_EQ(ApplyGridEdits(grid).spoilt, 0);
        ++done_["grid"];
    }

    void EditOnce() {
        switch (Below(5)) {
        case 0:
            PasteHere();
            break;
        case 1:
            AddPoint();
            break;
        case 2:
            done_["cut"] += CutSome(kCutItem) ? 1 : 0;
            break;
        case 3:
            EditGrid();
            break;
        default:
            RemoveOverlay();
            model_.resize(static_cast<std::size_t>(Record().NumLoadedData));
        }
    }

    /// The rows of another plot against a model, in measured and whole degrees.
    void ExpectRowsOf(int slot, const Model& wanted, const std::string& after) {
        const int here = std::exchange(slot_, slot);
        Model kept = std::exchange(model_, wanted);
        ExpectModel(after);
        model_ = std::move(kept);
        slot_ = here;
    }

    void PasteElsewhere() {
        const Model copies = CopiesOf(ChooseMainRows());
        EditSelection(kCopyAllItem);
        const int other = NewPlot();
        PasteData();
        ASSERT_EQ(RecordOf(other).SecondaryFormat, GetParam());
        ExpectRowsOf(other, copies, "paste elsewhere");
        ++done_["pasted elsewhere"];
        CloseAgain(other);
    }

    void CloseAgain(int other) {
        ClosePlot(other);
        gActivePlot = slot_;
        ForgetUndo();
    }

    /// Puts the format of the files of this test in force.
    void UseFormat() const {
        gConventions = kDipDipDirection;
        gPrimaryDataType = kPrimaryPlane;
        gSecondaryDataType = GetParam();
        gFileLineAppended = true;
        gFileNumericAppended = true;
        gFileNonNumericAppended = false;
        gFileDelimiter = "\t";
        gFileColumnSettings = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        gPlotDataKind = kPlanes;
        gPlotKind = kEqualArea;
    }

    /// A file is opened once.
    std::string NewName() { return "file " + std::to_string(++files_); }

    /// Adds the rows of a file to the plot.
    void LoadMore(const char* command, const Model& rows) {
        UseFormat();
        std::string text;
        for (const ModelRow& row : rows) {
            text += DegreesText(row[0].dip) + "\t" + DegreesText(row[0].azimuth) + "\tx\t"
                    + DegreesText(row[1].dip) + "\t" + DegreesText(row[1].azimuth) + "\tx\t"
                    + DegreesText(row[2].dip) + "\t" + DegreesText(row[2].azimuth) + "\t1.5\n";
        }
        ASSERT_EQ(OpenPlotFile(command, WriteFile(NewName() + ".txt", text)), command);
        Append(rows);
        ++done_[command];
        ForgetUndo();
    }

    Model RandomRows(int count) {
        Model rows;
        for (int i = 0; i < count; ++i) {
            rows.push_back(RandomRow());
        }
        return rows;
    }

    void SaveAndReload(const std::string& ending) {
        const std::string path = (folder / (NewName() + ending)).string();
        prompts.ExpectAny("contains data from more than one file");
        ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
        const bool isText = ending == ".txt";
        if (isText) {
            prompts.ExpectAny("Only the primary data set will be saved");
            prompts.ExpectAny("non-data");
            prompts.ExpectAny("invalid appended");
        }
        ASSERT_EQ(OpenPlotFile(kNewCommand, path), isText ? kNewCommand : kBinaryCommand);
        const int saved = std::exchange(slot_, gActivePlot);
        if (isText) { // the head lines are rows, too, and overlays are not saved
            TakeReloadedText(RecordOf(saved).NumData);
        } else { // appended lines of overlays are not saved
            for (std::int32_t row = Record().NumData + 1; row <= Record().NumLoadedData; ++row) {
                At(RowAt(row), RowAngles::Line) = {kInvalidAppendedLine, 0};
            }
        }
        ++done_[ending];
        ClosePlot(saved);
        gActivePlot = slot_;
        ForgetUndo();
    }

    void TakeReloadedText(std::int32_t savedRows) {
        const std::int32_t headLines = Record().NumData - savedRows;
        std::vector<std::int32_t> head;
        for (std::int32_t row = 1; row <= headLines; ++row) {
            ASSERT_EQ(gDataDip(slot_, row), kErrorRow) << row;
            head.push_back(row);
        }
        SelectRows(slot_, head);
        RemoveSelectedRows(kDeleteEdit);
        model_.resize(static_cast<std::size_t>(savedRows));
    }

    /// The axes of each fault whose line is within 10 degrees of its plane.
    std::vector<Attitude> AxesOfFaults() {
        std::vector<Attitude> axes;
        for (std::int32_t row = 1; row <= Record().NumData; ++row) {
            const Attitude line = At(RowAt(row), RowAngles::Secondary);
            if (line.dip < -90) {
                continue;
            }
            const Vector normal = NormalOfPlane(At(RowAt(row), RowAngles::Primary));
            const Vector slip = VectorOf({std::abs(line.dip), line.azimuth});
            const double apart = DegreesOf(std::asin(std::abs(Dot(normal, slip))));
            EXPECT_GT(std::abs(apart - 10), 1e-9) << "too close to tell";
            if (apart < 10) {
                const Vector inPlane = Unit(Sum(slip, 1, normal, -Dot(normal, slip)));
                const double sense = line.dip < 0 ? -1 : 1;
                axes.push_back(LineOf(Sum(normal, 1, inPlane, sense), 1));
                axes.push_back(LineOf(Sum(normal, 1, inPlane, -sense), -1));
            }
        }
        return axes;
    }

    /// The attitude of the lower end of an axis, with a sign.
    static Attitude LineOf(const Vector& axis, double sign) {
        const Vector lower = Unit(axis.down < 0 ? Sum(axis, -1, {}, 0) : axis);
        return {sign * DegreesOf(std::asin(std::min(lower.down, 1.0))), TrendOf(lower)};
    }

    /// The lines in which the planes of rows meet.
    std::vector<Attitude> LinesOfPlanes() {
        std::vector<Attitude> lines;
        for (std::int32_t row = 1; row <= Record().NumData; ++row) {
            const Attitude second = At(RowAt(row), RowAngles::Secondary);
            if (second.dip >= -90) {
                const Vector first = NormalOfPlane(At(RowAt(row), RowAngles::Primary));
                lines.push_back(LineOf(CrossProduct(first, NormalOfPlane(second)), 1));
            }
        }
        return lines;
    }

    /// A line of a derived plot in whole degrees.
    static void ExpectWholeOfAxis(int slot, std::int32_t row, const Attitude& measured) {
        const Attitude whole = WholeAttitude(PlotOf(slot).rows, RowAngles::Primary, row);
        ASSERT_EQ(whole.dip, std::nearbyint(measured.dip)) << row;
        const double turn = std::fmod(whole.azimuth - std::nearbyint(measured.azimuth), 360);
        ASSERT_TRUE(turn == 0 || (whole.dip == 0 && std::abs(turn) == 180)) << row;
    }

    /// Expects lines that were computed, to six decimals, and their whole degrees.
    void ExpectLines(int slot, const std::vector<Attitude>& wanted) {
        ASSERT_EQ(static_cast<std::size_t>(RecordOf(slot).NumData), wanted.size());
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            const auto row = static_cast<std::int32_t>(i) + 1;
            const Attitude now = MeasuredAttitude(PlotOf(slot).rows, RowAngles::Primary, row);
            ASSERT_LT(DegreesOf(AcuteAngleOf(VectorOf(now), VectorOf(wanted[i]))), 2e-6) << row;
            ASSERT_TRUE(wanted[i].dip * now.dip >= 0) << row;
            ExpectWholeOfAxis(slot, row, now);
        }
    }

    void Derive() {
        const bool arePlanes = GetParam() == kSecondaryPlane;
        const std::vector<Attitude> wanted = arePlanes ? LinesOfPlanes() : AxesOfFaults();
        const auto sense = LacksMovement(slot_) ? std::optional(SlipSense::Normal) : std::nullopt;
        ASSERT_TRUE(arePlanes ? MakeIntersectionPlot() : MakeKinematicPlots(kAxesOnOnePlot, sense));
        ExpectLines(gActivePlot, wanted);
        done_["derived"] += static_cast<int>(wanted.size());
        const int child = gActivePlot;
        CloseDerivedPlot(child);
        gActivePlot = slot_;
    }

    /// Rotations are compared with vectors elsewhere; here they give all angles six decimals.
    void Turn() {
        TurnAtRandom();
        for (std::int32_t row = 1; row <= Record().NumLoadedData; ++row) {
            for (const RowAngles which : kRowAngles) {
                At(RowAt(row), which) = MeasuredAttitude(Here().rows, which, row);
            }
        }
    }

    void ChangeOtherwise() {
        switch (Below(7)) {
        case 0:
            if (!HasOverlays()) {
                PasteElsewhere();
            }
            break;
        case 1:
            if (!HasOverlays() && !IsFull()) {
                LoadMore(kMergeCommand, RandomRows(3));
            }
            break;
        case 2:
            LoadMore(kOverlayCommand, RandomRows(4));
            break;
        case 3:
            SaveAndReload(".txt");
            break;
        case 4:
            SaveAndReload(".qpx");
            break;
        case 5:
            Turn();
            break;
        default:
            SwitchDecimals();
        }
    }

    int files_ = 0;
    std::map<std::string, int> done_; ///< how often each change was made
};

TEST_P(MeasuredGrowth, CarriesTheDecimalsIntoThePlotAndOutOfItTrial) {
    MakePlot(GetParam());
    ExpectModel("load");
    const int rounds = TrialRounds(200);
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        EditAndUndo(1 + Below(6), [this] { EditOnce(); });
        if (!HasFailure()) {
            ChangeOtherwise();
            ExpectModel("round " + std::to_string(round));
        }
        if (!HasFailure()) {
            Derive();
        }
    }
    for (const char* change : {"pasted here", "pasted elsewhere", "added", "cut", "grid", "derived",
                               kMergeCommand, kOverlayCommand, ".txt", ".qpx"}) {
        EXPECT_GT(done_[change], 0) << change;
    }
    EXPECT_LT(apart_, rounded_ / 20) << "few azimuths are apart from the measured ones by rule";
}

INSTANTIATE_TEST_SUITE_P(OfSecondary, MeasuredGrowth,
                         ::testing::Values(std::int16_t{kSecondaryLine},
                                           std::int16_t{kSecondaryPlane}));

} // namespace

} // namespace quandrel
