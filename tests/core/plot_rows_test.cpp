// SPDX-License-Identifier: MIT

#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "platform/platform.h"

#include <limits>
#include <random>
#include <set>

namespace quandrel {
namespace {

/// A row as a plain value, to hold plots against.
struct ModelRow {
    bool isData = false;
    std::array<std::int32_t, 6> angles{}; ///< both orientations and the line
    MeasuredValues measured;
    std::optional<MapPlace> mapPlace;
    float number = 0;
    std::string text;
    std::string line;
    int overlay = 0;

    friend bool operator==(const ModelRow&, const ModelRow&) = default;
};

std::ostream& operator<<(std::ostream& out, const ModelRow& row) {
    out << (row.isData ? "data" : "error");
    for (const std::int32_t angle : row.angles) {
        out << ' ' << angle;
    }
    for (const std::optional<Attitude>& measured : row.measured) {
        out << (measured
                    ? " " + std::to_string(measured->dip) + "/" + std::to_string(measured->azimuth)
                    : " -");
    }
    if (row.mapPlace) {
        out << " at " << row.mapPlace->x << ',' << row.mapPlace->y;
    }
    return out << ' ' << row.number << " \"" << row.text << "\" \"" << row.line << "\" overlay "
               << row.overlay;
}

/// What a plot holds, by its columns and counts.
std::vector<ModelRow> RowsOf(const Plot& plot) {
    std::vector<ModelRow> rows;
    for (std::int32_t row = 1; row <= plot.record.NumLoadedData; ++row) {
        const PlotRows& cells = plot.rows;
        ModelRow held;
        held.isData = cells.dip(row) != kErrorRow;
        held.angles = {cells.dip(row),      cells.azimuth(row), cells.dip2(row),
                       cells.azimuth2(row), cells.lineDip(row), cells.lineAzimuth(row)};
        for (const RowAngles which : kRowAngles) {
            held.measured[static_cast<std::size_t>(which)] = DecimalsOf(cells, which, row);
        }
        held.mapPlace = MapPlaceOf(cells, row);
        held.number = cells.number(row);
        held.text = cells.text(row);
        const auto line = cells.errorLines.find(row);
        held.line = line == cells.errorLines.end() ? "" : line->second;
        held.overlay = OverlayOfRow(plot.record, row);
        rows.push_back(held);
    }
    return rows;
}

class PlotRowsTest : public ::testing::Test {
protected:
    ~PlotRowsTest() override { gPlatform.mostRows = std::numeric_limits<std::int32_t>::max() / 2; }

    /// A plot of its own, in no slot, with all columns.
    static Plot FullPlot() {
        Plot plot;
        plot.record = NewPlotRecord();
        plot.record.SecondaryFormat = 3;
        plot.record.HasAppendedLine = kTrue;
        plot.record.HasAppendedNumeric = kTrue;
        plot.record.HasAppendedText = kTrue;
        return plot;
    }

    int Random(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

    ModelRow RandomRow(int overlay) {
        ModelRow row;
        row.overlay = overlay;
        row.isData = Random(0, 4) != 0;
        if (row.isData) {
            row.angles = {Random(-90, 90), Random(0, 360), Random(-90, 90),
                          Random(0, 360),  Random(0, 90),  Random(0, 360)};
            for (std::optional<Attitude>& measured : row.measured) {
                if (Random(0, 3) == 0) { // sixty-fourths are exact in columns
                    measured =
                        Attitude{Random(-90 * 64, 90 * 64) / 64.0, Random(0, 360 * 64) / 64.0};
                }
            }
            if (Random(0, 2) == 0) { // 0,0 is a place, too
                row.mapPlace = MapPlace{Random(-1, 1) * 600123.456, Random(-1, 1) / 3.0};
            }
            row.number = Random(0, 9) == 0 ? kInvalidNumber : static_cast<float>(Random(-20, 20));
            static constexpr std::array<const char*, 6> kTexts = {"",   "Slate", "slate",
                                                                  "12", "-3.5",  "gneiss"};
            row.text = kTexts[static_cast<std::size_t>(Random(0, 5))];
            row.text += Random(0, 3) == 0 ? std::to_string(Random(0, 30)) : "";
        } else {
            row.angles[0] = kErrorRow;
            row.line = Random(0, 1) == 0 ? "" : "; line " + std::to_string(Random(0, 99));
        }
        return row;
    }

    static RowValues ValuesOf(const ModelRow& row) {
        RowValues values;
        values.isData = row.isData;
        values.dip = row.angles[0];
        values.azimuth = row.angles[1];
        values.code = row.isData ? MakeSymbolCode(1, 2, 3) : 0;
        values.hasSecondary = true;
        values.dip2 = row.angles[2];
        values.azimuth2 = row.angles[3];
        values.lineDip = row.angles[4];
        values.lineAzimuth = row.angles[5];
        values.measured = row.measured;
        values.mapPlace = row.mapPlace;
        values.number = row.number;
        values.text = row.text;
        values.isInRange = row.isData && row.number != kInvalidNumber;
        values.place.x = static_cast<std::int16_t>(row.angles[0]);
        values.place.y = static_cast<std::int16_t>(row.angles[1]);
        values.place.plunge = row.angles[0];
        values.place.trend = row.angles[1];
        values.errorLine = row.line;
        return values;
    }

    static void ExpectEqualPlots(const Plot& a, const Plot& b) {
        EXPECT_EQ(RowsOf(a), RowsOf(b));
        EXPECT_EQ(a.table.index, b.table.index);
        EXPECT_EQ(a.table.x, b.table.x);
        EXPECT_EQ(a.table.y, b.table.y);
        EXPECT_EQ(a.table.plunge, b.table.plunge);
        EXPECT_EQ(a.table.trend, b.table.trend);
        EXPECT_EQ(a.rows.errorLines, b.rows.errorLines);
        EXPECT_EQ(a.record.NumData, b.record.NumData);
        EXPECT_EQ(a.record.NumValidData, b.record.NumValidData);
        EXPECT_EQ(a.record.NumLoadedData, b.record.NumLoadedData);
        EXPECT_EQ(a.record.OverlayRows, b.record.OverlayRows);
        EXPECT_EQ(a.record.AppendedMin, b.record.AppendedMin);
        EXPECT_EQ(a.record.AppendedMax, b.record.AppendedMax);
        EXPECT_EQ(a.record.DistinctValues, b.record.DistinctValues);
        EXPECT_EQ(a.record.DataFull, b.record.DataFull);
        for (std::int32_t row = 1; row <= a.record.NumLoadedData; ++row) {
            ASSERT_EQ(a.rows.order(row), b.rows.order(row));
            ASSERT_EQ(a.rows.symbol(row), b.rows.symbol(row));
            ASSERT_EQ(a.rows.symbolBase(row), b.rows.symbolBase(row));
        }
    }

    std::mt19937 random_{20};
};

TEST_F(PlotRowsTest, APlotWithoutASlotTakesRowsAndCountsThem) {
    Plot plot = FullPlot();
    std::vector<ModelRow> model;
    std::int32_t valid = 0;
    for (int i = 0; i < 300; ++i) {
        const int overlay = i < 200 ? 0 : i < 260 ? 1 : 2;
        if (i == 200 || i == 260) {
            EXPECT_EQ(OpenOverlay(plot.record, kOverlayLines), overlay);
        }
        model.push_back(RandomRow(overlay));
        valid += model.back().isData && overlay == 0 ? 1 : 0;
        ASSERT_TRUE(AppendRow(plot, overlay, ValuesOf(model.back())));
    }
    EXPECT_EQ(RowsOf(plot), model);
    EXPECT_EQ(plot.record.NumData, 200);
    EXPECT_EQ(plot.record.NumValidData, valid);
    EXPECT_EQ(plot.record.NumLoadedData, 300);
    EXPECT_EQ(plot.record.OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(plot.record.OverlayRows[1], 60);
    EXPECT_EQ(plot.record.OverlayRows[2], 40);
    EXPECT_EQ(plot.table.size(), 300U);
    EXPECT_EQ(plot.table.index[299], 300);
}

TEST_F(PlotRowsTest, BlocksGiveWhatTheirRowsGiveOneByOne) {
    for (int round = 0; round < 50; ++round) {
        Plot single = FullPlot();
        Plot blocks = FullPlot();
        for (int part = 0; part < 4; ++part) {
            const int overlay = part < 2 ? 0 : 1;
            if (part == 2) {
                (void)OpenOverlay(single.record, kOverlayPoles);
                (void)OpenOverlay(blocks.record, kOverlayPoles);
            }
            RowBlock block(ColumnsOf(blocks.record, true));
            for (int i = Random(0, 40); i > 0; --i) {
                const ModelRow row = RandomRow(overlay);
                ASSERT_TRUE(AppendRow(single, overlay, ValuesOf(row)));
                block.Add(ValuesOf(row));
            }
            EXPECT_EQ(AppendBlock(blocks, overlay, block), block.Count());
        }
        ExpectEqualPlots(single, blocks);
    }
}

TEST_F(PlotRowsTest, ABlockThatIsUsedAgainHoldsNothingOfItsFormerRows) {
    RowBlock reused({});
    for (int round = 0; round < 100; ++round) {
        Plot fresh = FullPlot();
        Plot again = FullPlot();
        RowBlock block(ColumnsOf(fresh.record, true));
        reused.Begin(ColumnsOf(again.record, true), Random(0, 30)); // more may come, or less
        for (int i = Random(0, 40); i > 0; --i) {
            const ModelRow row = RandomRow(0);
            block.Add(ValuesOf(row));
            reused.Add(ValuesOf(row));
        }
        EXPECT_EQ(reused.CountOfValid(), block.CountOfValid());
        EXPECT_EQ(AppendBlock(fresh, 0, block), block.Count());
        ReserveBlocks(again, reused.Count(), true);
        EXPECT_EQ(AppendBlock(again, 0, reused), block.Count());
        ExpectEqualPlots(fresh, again);
    }
}

TEST_F(PlotRowsTest, ABlockThatDoesNotFitIsAppendedAsFarAsMemoryAllows) {
    Plot single = FullPlot();
    Plot blocks = FullPlot();
    RowBlock block(ColumnsOf(blocks.record, true));
    std::vector<ModelRow> rows;
    for (int i = 0; i < 30; ++i) {
        rows.push_back(RandomRow(0));
        block.Add(ValuesOf(rows.back()));
    }
    gPlatform.mostRows = 50;
    EXPECT_EQ(AppendBlock(blocks, 0, block), 30);
    EXPECT_EQ(blocks.record.DataFull, 0);
    EXPECT_EQ(AppendBlock(blocks, 0, block), 20);
    EXPECT_NE(blocks.record.DataFull, 0);
    for (int i = 0; i < 50; ++i) {
        EXPECT_TRUE(AppendRow(single, 0, ValuesOf(rows[static_cast<std::size_t>(i % 30)])));
    }
    EXPECT_FALSE(AppendRow(single, 0, ValuesOf(rows[0])));
    ExpectEqualPlots(single, blocks);
}

TEST_F(PlotRowsTest, AnErrorRowLeavesNothingOfTheRowThatWasCut) {
    Plot plot = FullPlot();
    ModelRow full = RandomRow(0);
    full.isData = true;
    full.angles = {30, 120, 45, 200, 10, 20};
    full.number = 7;
    full.text = "slate";
    ASSERT_TRUE(AppendRow(plot, 0, ValuesOf(full)));
    CutRows(plot, {});
    ModelRow error;
    error.angles[0] = kErrorRow;
    error.line = "no data";
    ASSERT_TRUE(AppendRow(plot, 0, ValuesOf(error)));
    EXPECT_EQ(RowsOf(plot), std::vector{error});
}

TEST_F(PlotRowsTest, CuttingRemovesTheRowsAndOverlaysThatCameSince) {
    Plot plot = FullPlot();
    std::vector<ModelRow> model;
    for (int i = 0; i < 20; ++i) {
        model.push_back(RandomRow(0));
        ASSERT_TRUE(AppendRow(plot, 0, ValuesOf(model.back())));
    }
    const RowCounts former = CountsOf(plot.record);
    (void)OpenOverlay(plot.record, kOverlayPoles);
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(AppendRow(plot, 1, ValuesOf(RandomRow(1))));
    }
    CutRows(plot, former);
    EXPECT_EQ(RowsOf(plot), model);
    EXPECT_EQ(plot.record.OverlayRows[kOverlayCount], 0);
    EXPECT_EQ(plot.table.size(), 20U);
    for (const auto& [row, line] : plot.rows.errorLines) {
        EXPECT_LE(row, 20);
    }
    ClearRows(plot);
    EXPECT_EQ(plot.record.NumData + plot.record.NumValidData + plot.record.NumLoadedData, 0);
    EXPECT_EQ(plot.table.size(), 0U);
}

TEST_F(PlotRowsTest, RemovalKeepsTheOtherRowsAndDropsEmptyOverlays) {
    for (int round = 0; round < 60; ++round) {
        Plot plot = FullPlot();
        std::vector<ModelRow> model;
        for (int overlay = 0; overlay <= 3; ++overlay) {
            if (overlay > 0) {
                (void)OpenOverlay(plot.record, static_cast<std::int16_t>(overlay));
            }
            for (int i = Random(1, 6); i > 0; --i) {
                model.push_back(RandomRow(overlay));
                ASSERT_TRUE(AppendRow(plot, overlay, ValuesOf(model.back())));
            }
        }
        std::vector<std::int32_t> removed;
        std::vector<ModelRow> stay;
        std::set<int> overlaysLeft;
        for (std::size_t i = 0; i < model.size(); ++i) {
            if (Random(0, 2) > 0) {
                removed.push_back(static_cast<std::int32_t>(i) + 1);
            } else {
                stay.push_back(model[i]);
                overlaysLeft.insert(model[i].overlay);
            }
        }
        overlaysLeft.erase(0);
        std::int32_t valid = 0;
        for (ModelRow& row : stay) {
            valid += row.isData && row.overlay == 0 ? 1 : 0;
            if (row.overlay > 0) { // numbers of those below that have gone close up
                row.overlay = static_cast<int>(
                    std::distance(overlaysLeft.begin(), overlaysLeft.find(row.overlay)) + 1);
            }
        }
        RemoveRows(plot, removed);
        EXPECT_EQ(RowsOf(plot), stay);
        EXPECT_EQ(plot.record.NumValidData, valid);
        EXPECT_EQ(plot.record.OverlayRows[kOverlayCount], static_cast<int>(overlaysLeft.size()));
        int number = 0;
        for (const int former : overlaysLeft) {
            EXPECT_EQ(plot.record.OverlayKind[static_cast<std::size_t>(++number)], former);
        }
    }
}

TEST_F(PlotRowsTest, SpoiltAndMendedRowsAreCounted) {
    Plot plot = FullPlot();
    ModelRow row = RandomRow(0);
    row.isData = true;
    row.angles[0] = 40;
    ASSERT_TRUE(AppendRow(plot, 0, ValuesOf(row)));
    (void)OpenOverlay(plot.record, kOverlayPoles);
    ASSERT_TRUE(AppendRow(plot, 1, ValuesOf(row)));
    SpoilRow(plot, 1, "was 40");
    SpoilRow(plot, 1);
    SpoilRow(plot, 2, "overlay");
    EXPECT_EQ(plot.record.NumValidData, 0);
    EXPECT_EQ(plot.rows.dip(1), kErrorRow);
    EXPECT_EQ(plot.rows.errorLines.at(1), "was 40");
    SetOrientation(plot, 2, 10, 20);
    EXPECT_EQ(plot.record.NumValidData, 0);
    SetOrientation(plot, 1, 30, 50);
    SetOrientation(plot, 1, 31, 51);
    EXPECT_EQ(plot.record.NumValidData, 1);
    EXPECT_EQ(plot.rows.azimuth(1), 51);
    EXPECT_TRUE(plot.rows.errorLines.empty());
    SetOrientation(plot, 1, kErrorRow, 0);
    EXPECT_EQ(plot.record.NumValidData, 0);
    EXPECT_EQ(plot.record.NumData, 1);
}

TEST_F(PlotRowsTest, RemovingTheLastOverlayLeavesTheRowsBelowIt) {
    Plot plot = FullPlot();
    for (int overlay = 0; overlay <= 2; ++overlay) {
        if (overlay > 0) {
            (void)OpenOverlay(plot.record, kOverlayPoles);
        }
        for (int i = 0; i < 3; ++i) {
            ASSERT_TRUE(AppendRow(plot, overlay, ValuesOf(RandomRow(overlay))));
        }
    }
    const std::vector<ModelRow> before = RowsOf(plot);
    RemoveOverlay(plot);
    EXPECT_EQ(RowsOf(plot), std::vector(before.begin(), before.begin() + 6));
    EXPECT_EQ(plot.record.OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(plot.record.OverlayRows[1], 3);
    EXPECT_EQ(plot.record.OverlayRows[2], 0);
    EXPECT_EQ(plot.table.size(), 6U);
}

} // namespace
} // namespace quandrel
