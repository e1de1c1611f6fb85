// SPDX-License-Identifier: MIT

#include "core/map_places.h"
#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "platform/platform.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace quandrel {
namespace {

using Limits = std::numeric_limits<double>;

RowValues RowAt(const std::optional<MapPlace>& place) {
    RowValues row;
    row.isData = true;
    row.dip = 30;
    row.azimuth = 120;
    row.mapPlace = place;
    return row;
}

TEST(MapPlaces, AnyFiniteCoordinateIsKeptBitForBit) {
    MapColumns columns;
    columns.Grow(1);
    std::mt19937_64 random(7);
    std::vector<double> values = {0.0,
                                  -0.0,
                                  1.0,
                                  -1.0,
                                  Limits::max(),
                                  Limits::lowest(),
                                  0.1,
                                  Limits::min(),
                                  Limits::denorm_min(),
                                  651234.123456789,
                                  -7.5,
                                  4.9e-310};
    while (values.size() < 2000) {
        const double value = std::bit_cast<double>(random());
        if (std::isfinite(value)) {
            values.push_back(value);
        }
    }
    for (std::size_t i = 0; i + 1 < values.size(); ++i) {
        const MapPlace place{values[i], values[i + 1]};
        columns.Set(1, place);
        ASSERT_TRUE(columns.Has(1)) << place.x;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(columns.At(1).x),
                  std::bit_cast<std::uint64_t>(place.x));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(columns.At(1).y),
                  std::bit_cast<std::uint64_t>(place.y));
    }
    columns.Clear(1);
    EXPECT_FALSE(columns.Has(1));
    columns.Clear(1000);
    EXPECT_FALSE(columns.Has(1000)) << "beyond the columns there is none";
}

TEST(MapPlaces, RowsWithoutOneTakeNoMemory) {
    Plot plot;
    ASSERT_TRUE(AppendRow(plot, 0, RowAt(std::nullopt)));
    EXPECT_EQ(plot.rows.mapPlaces.RowCount(), 0);
    EXPECT_FALSE(HasMapPlaces(plot));
    ASSERT_TRUE(AppendRow(plot, 0, RowAt(MapPlace{0, 0})));
    EXPECT_TRUE(HasMapPlaces(plot));
    EXPECT_EQ(MapPlaceOf(plot.rows, 1), std::nullopt);
    EXPECT_EQ(MapPlaceOf(plot.rows, 2), (MapPlace{0, 0}));
}

TEST(MapPlaces, FollowTheirRows) {
    Plot plot;
    for (const double x : {1.0, 2.0, 3.0, 4.0}) {
        ASSERT_TRUE(AppendRow(plot, 0, RowAt(MapPlace{x, -x})));
    }
    RemoveRows(plot, std::array{2});
    EXPECT_EQ(MapPlaceOf(plot.rows, 2), (MapPlace{3, -3}));
    SpoilRow(plot, 1, "a line");
    EXPECT_EQ(MapPlaceOf(plot.rows, 1), std::nullopt) << "an error row is nowhere";
    SetMapPlace(plot, 1, MapPlace{9, 9});
    EXPECT_EQ(MapPlaceOf(plot.rows, 1), (MapPlace{9, 9}));
    SetMapPlace(plot, 1, std::nullopt);
    EXPECT_EQ(MapPlaceOf(plot.rows, 1), std::nullopt);
}

TEST(MapPlaces, OfRemovedRowsDoNotComeBack) {
    Plot plot;
    ASSERT_TRUE(AppendRow(plot, 0, RowAt(MapPlace{1, 2})));
    ASSERT_TRUE(AppendRow(plot, 0, RowAt(MapPlace{3, 4})));
    ClearRows(plot);
    EXPECT_FALSE(HasMapPlaces(plot));
    ASSERT_TRUE(AppendRow(plot, 0, RowAt(std::nullopt)));
    RowBlock block(ColumnsOf(plot.record, false));
    block.Add(RowAt(std::nullopt));
    ASSERT_EQ(AppendBlock(plot, 0, block), 1);
    EXPECT_FALSE(HasMapPlaces(plot));
}

TEST(MapPlaces, WithoutMemoryTheRowIsRefusedWhole) {
    Plot plot;
    ASSERT_TRUE(AppendRow(plot, 0, RowAt(std::nullopt)));
    const std::int32_t most = gPlatform.mostRows;
    gPlatform.mostRows = 0;
    SetMapPlace(plot, 1, MapPlace{1, 2});
    gPlatform.mostRows = most;
    EXPECT_EQ(MapPlaceOf(plot.rows, 1), std::nullopt);
    EXPECT_NE(plot.record.DataFull, 0);
}

} // namespace
} // namespace quandrel
