// SPDX-License-Identifier: MIT

#include "core/measured_rows.h"
#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "core/row_room.h"
#include "support/allocated_memory.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

/// A plot of planes without decimals, in no slot.
Plot PlotOfPlanes(std::int32_t count) {
    Plot plot;
    plot.record = NewPlotRecord();
    for (std::int32_t row = 1; row <= count; ++row) {
        RowValues values;
        values.isData = true;
        values.dip = row % 90;
        values.azimuth = 3 * row % 360;
        EXPECT_TRUE(AppendRow(plot, 0, values));
    }
    return plot;
}

TEST(MeasuredColumns, KeepSixDecimalsOfAnyAngle) {
    std::mt19937 random(4);
    std::uniform_int_distribution<std::int32_t> dips(-90'000'000, 90'000'000);
    std::uniform_int_distribution<std::int32_t> azimuths(0, 360'000'000);
    MeasuredColumns columns;
    for (auto* offsets : {&columns.dipOffset, &columns.azimuthOffset}) {
        offsets->Grow(1);
    }
    columns.dip.Grow(1);
    columns.azimuth.Grow(1);
    for (int i = 0; i < 100'000; ++i) {
        const Attitude measured{dips(random) / 1e6, azimuths(random) / 1e6};
        columns.Set(1, measured);
        ASSERT_EQ(ToMicrodegree(columns.At(1)), measured) << measured.dip << measured.azimuth;
        ASSERT_NEAR(columns.At(1).azimuth, measured.azimuth, 3e-8);
    }
    columns.Clear(1);
    EXPECT_FALSE(columns.Has(1));
}

TEST(MeasuredRows, TakeNoMemoryUntilARowNeedsThem) {
    Plot plot = PlotOfPlanes(500);
    EXPECT_EQ(plot.rows.measured.RowCount(), 0);
    ASSERT_TRUE(SetDecimals(plot.rows, RowAngles::Primary, 40, {40, 120})); // as the columns
    EXPECT_EQ(plot.rows.measured.RowCount(), 0);
    ASSERT_TRUE(SetDecimals(plot.rows, RowAngles::Primary, 40, {40.25, 120}));
    EXPECT_GT(plot.rows.measured.RowCount(), 500);
    EXPECT_EQ(plot.rows.measured2.RowCount() + plot.rows.measuredLine.RowCount(), 0);
    EXPECT_EQ(MeasuredAttitude(plot.rows, RowAngles::Primary, 40), (Attitude{40.25, 120}));
    EXPECT_EQ(WholeAttitude(plot.rows, RowAngles::Primary, 40), (Attitude{40, 120}));
    EXPECT_EQ(MeasuredAttitude(plot.rows, RowAngles::Primary, 41), (Attitude{41, 123}));
    EXPECT_EQ(CountRowsWithDecimals(plot.rows, 1, 500), 1);
    EXPECT_EQ(CountRowsWithDecimals(plot.rows, 41, 500), 0);
}

TEST(MeasuredRows, AWholeOrientationReplacesDecimals) {
    Plot plot = PlotOfPlanes(3);
    SetMeasuredOrientation(plot, 2, {30, 50}, {30.4, 49.9});
    EXPECT_TRUE(HasDecimals(plot.rows, 2));
    EXPECT_EQ(plot.rows.azimuth(2), 50);
    SetOrientation(plot, 2, 30, 50);
    EXPECT_FALSE(HasDecimals(plot.rows, 2));
    SetMeasuredOrientation(plot, 2, {0, 280}, {-0.3, 100}); // the pair stands for itself
    EXPECT_EQ(ToMicrodegree(MeasuredAttitude(plot.rows, RowAngles::Primary, 2)),
              (Attitude{-0.3, 100}));
    SpoilRow(plot, 2, "unread");
    EXPECT_FALSE(HasDecimals(plot.rows, 2));
}

TEST(MeasuredRows, GiveBackSixDecimalsAndKeepFurtherDigits) {
    Plot plot = PlotOfPlanes(2);
    std::mt19937 random(8);
    std::uniform_int_distribution<std::int32_t> dips(-90'000'000, 90'000'000);
    std::uniform_int_distribution<std::int32_t> azimuths(0, 360'000'000);
    for (int i = 0; i < 10'000; ++i) {
        const Attitude measured{dips(random) / 1e6, azimuths(random) / 1e6};
        ASSERT_TRUE(SetDecimals(plot.rows, RowAngles::Primary, 1, measured));
        ASSERT_EQ(MeasuredAttitude(plot.rows, RowAngles::Primary, 1), measured);
    }
    const double dip = 47.1234567891;
    ASSERT_TRUE(SetDecimals(plot.rows, RowAngles::Primary, 2, {dip, 10}));
    EXPECT_NEAR(DecimalsOf(plot.rows, RowAngles::Primary, 2)->dip, dip, 3e-8);
    EXPECT_NE(DecimalsOf(plot.rows, RowAngles::Primary, 2)->dip, ToMicrodegree(dip));
}

TEST(Attitude, RoundsHalvesToEvenAndWraps) {
    EXPECT_EQ(RoundedAttitude({0.5, 359.7}, true), (Attitude{0, 360}));
    EXPECT_EQ(RoundedAttitude({1.5, -0.4}, true), (Attitude{2, 0}));
    EXPECT_EQ(RoundedAttitude({47.3, 218.6}, true), (Attitude{47, 219}));
    EXPECT_EQ(RoundedAttitude({-0.3, 100}, false), (Attitude{0, 280}));
    EXPECT_EQ(RoundedAttitude({-0.3, 200.2}, false), (Attitude{0, 20}));
    EXPECT_EQ(RoundedAttitude({-0.3, 100}, true), (Attitude{0, 100}));
    EXPECT_EQ(RoundedAttitude({10, -90}, true), (Attitude{10, 270}));
}

TEST(Attitude, PolesOfMeasuredPlanesArePerpendicular) {
    const Attitude pole = PoleInDegrees({-47.25, 218.5});
    EXPECT_EQ(pole, (Attitude{42.75, 38.5}));
    EXPECT_EQ(PoleInDegrees({42.75, 38.5}), (Attitude{47.25, 218.5}));
}

/// The bytes of the columns of an orientation.
std::size_t BytesOf(const MeasuredColumns& columns) {
    return columns.dip.Rows().size_bytes() + columns.dipOffset.Rows().size_bytes()
           + columns.azimuth.Rows().size_bytes() + columns.azimuthOffset.Rows().size_bytes();
}

TEST(MeasuredColumns, TakeTwelveBytesARowForEachPair) {
    constexpr std::int32_t kRows = 100000;
    constexpr std::size_t kBytes = 12 * (std::size_t{kRows} + 1); // row 0 is not used
    constexpr std::size_t kRounding = 4 * 8192;                   // of the heap, to pages
    Plot plot;
    ColumnSet columns;
    columns.secondary = true;
    columns.line = true;
    ASSERT_TRUE(MakeRoom(plot.rows, kRows, columns, RoomAhead::None));
    for (const RowAngles which : kRowAngles) {
        EXPECT_EQ(BytesOf(MeasuredOf(plot.rows, which)), 0U) << "of whole degrees";
    }
    for (const RowAngles which : kRowAngles) {
        const std::size_t before = AllocatedBytes();
        for (std::int32_t row = 1; row <= kRows; ++row) {
            ASSERT_TRUE(SetDecimals(plot.rows, which, row, {10.5, row % 360 + 0.25}));
        }
        const std::size_t taken = AllocatedBytes() - before;
        EXPECT_EQ(BytesOf(MeasuredOf(plot.rows, which)), kBytes);
        EXPECT_GE(taken, kBytes);
        EXPECT_LE(taken, kBytes + kRounding);
    }
}

} // namespace
} // namespace quandrel
