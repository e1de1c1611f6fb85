// SPDX-License-Identifier: MIT

#include "rotation_fixture.h"

#include <map>

namespace quandrel {
namespace {

class Preview : public RotationTest {};

TEST_F(Preview, StandsWhereTheRotationWillPutTheRowsAndTouchesNothing) {
    std::vector<RotationSettings> rotations = {AboutAxis(35, 210, 70), LineUp(20, 300),
                                               PlaneUp(40, 120, 20, 30, "SW"), Unfolding(25, 140),
                                               UnfoldingOwn()};
    const std::vector<Pair> axes = RandomRows(100, 0, 22);
    for (const std::int16_t plotKind : {kEqualArea, kEqualAngle}) {
        for (const bool showsSecondary : {false, true}) {
            for (const RotationSettings& rotation : rotations) {
                PlanesWith(kSecondaryLine, RandomRows(100, 0, 20), RandomRows(100, 0, 21));
                AddAppended(axes);
                AddOverlay(kOverlayGreatCircles, 50, 60, 0);
                gDataDip.At(gActivePlot, 7) = kErrorRow;
                PlotRecord& record = ActiveRecord();
                record.PlotKind = plotKind;
                record.ShowSecondary = showsSecondary ? kTrue : std::int16_t{0};
                record.DataKind = showsSecondary ? kLines : kPlanes;
                RebuildRowTable(gActivePlot);
                record.RowsChanged = 0;
                record.Modified = 0;
                const std::vector<Pair> primary = Primary();
                const std::vector<Pair> secondary = Secondary();
                const std::uint64_t version = TableOf(gActivePlot).version;
                const std::vector<PreviewedRow> preview = PreviewRotation(rotation);
                EXPECT_EQ(Primary(), primary);
                EXPECT_EQ(Secondary(), secondary);
                EXPECT_EQ(TableOf(gActivePlot).version, version);
                EXPECT_EQ(record.RowsChanged, 0);
                EXPECT_EQ(record.Modified, 0);
                EXPECT_EQ(record.RotationState, 0);
                EXPECT_FALSE(CanUndoRotation());
                Rotate(rotation);
                ASSERT_EQ(preview.size(), 100U);
                std::map<std::int32_t, Point> places;
                for (std::size_t place = 0; place < TableOf(gActivePlot).size(); ++place) {
                    const PlottedRow row = TableOf(gActivePlot)[place];
                    places[row.index] = {static_cast<double>(row.x), static_cast<double>(row.y)};
                }
                for (const PreviewedRow& row : preview) {
                    ASSERT_NE(row.row, 7);
                    ASSERT_EQ(row.place, places[row.row]) << row.row;
                }
                gActivePlot = 0;
                MakeStoreTables();
            }
        }
    }
}

TEST_F(Preview, IsEmptyWhatCannotBeRotatedOrShown) {
    PlotOf(kPrimaryPlane, kPlanes, {{30, 40}});
    EXPECT_EQ(PreviewRotation(AboutAxis(0, 0, 10)).size(), 1U);
    EXPECT_TRUE(PreviewRotation(AboutAxis(0, 0, 400)).empty());
    EXPECT_TRUE(PreviewRotation(Unfolding(0, 0)).empty());
    ActiveRecord().PlotKind = kRose;
    EXPECT_TRUE(PreviewRotation(AboutAxis(0, 0, 10)).empty());
    gActivePlot = 0;
    EXPECT_TRUE(PreviewRotation(AboutAxis(0, 0, 10)).empty());
}

} // namespace
} // namespace quandrel
