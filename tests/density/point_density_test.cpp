// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "density/cone_counts.h"
#include "density/point_density.h"
#include "orientation/angles.h"
#include "support/line_samples.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace quandrel {
namespace {

class PointDensities : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        NewPlot();
    }

    /// A new plot in the place of the active one.
    void FreshPlot() {
        ReleasePlotSlot(gActivePlot);
        NewPlot();
    }

    static void AddRows(const WholeDegreeRows& rows) {
        for (const auto& [plunge, trend] : rows) {
            AddRow(plunge, trend);
        }
    }

    /// Sorts the main rows and computes, as a drawing does.
    static void Compute() {
        SortRowTable(TableOf(gActivePlot), static_cast<std::size_t>(ActiveRecord().NumData));
        ComputePointDensities();
    }

    static std::vector<std::int32_t> Bands() {
        std::vector<std::int32_t> bands;
        for (std::int32_t row = 1; row <= ActiveRecord().NumData; ++row) {
            bands.push_back(gPointDensity(gActivePlot, row));
        }
        return bands;
    }
};

using Bands = std::vector<std::int32_t>;

struct BandCase {
    std::int32_t rows;
    std::int32_t count;
    int band;
    const char* why;
};

TEST(PointDensityBand, DoublesFromTheBaseOn) {
    const std::vector<BandCase> cases = {
        {1, 1, 1, "alone"},
        {2, 1, 1, "alone"},
        {2, 2, 4, "100% is twice the base of 50%"},
        {3, 2, 4, "66.7 over 33"},
        {3, 3, 4, "100 over 33"},
        {60, 2, 4, "3.33 over 1"},
        {60, 3, 5, "5 over 1"},
        {99, 2, 4, "2.02 over 1"},
        {100, 1, 1, "alone"},
        {100, 2, 4, "2 over 1"},
        {100, 3, 4, "3 over 1"},
        {100, 4, 5, "4 over 1"},
        {100, 8, 6, "8 over 1"},
        {100, 100, 9, "64 is passed"},
        {101, 2, 3, "1.98 over 1"},
        {200, 2, 3, "exactly the base"},
        {200, 3, 3, "1.5 over 1"},
        {200, 4, 4, "2 over 1"},
        {1000, 1, 1, "alone, and below the base"},
        {1000, 2, 2, "0.2%"},
        {1000, 9, 2, "0.9%"},
        {1000, 10, 3, "exactly the base"},
        {1000, 20, 4, "2 over 1"},
        {1000, 1000, 9, "100 over 1"},
        {1000000, 9999, 2, "just below 1%"},
        {1000000, 10000, 3, "1%"},
        {1000000, 19999, 3, "just below 2%"},
        {1000000, 20000, 4, "2%"},
    };
    for (const BandCase& test : cases) {
        EXPECT_EQ(PointDensityBand(test.count, test.rows), test.band)
            << test.count << " of " << test.rows << ": " << test.why;
    }
}

TEST(PointDensity, IsAShareInPerCent) {
    EXPECT_FLOAT_EQ(PointDensity(1, 1), 100);
    EXPECT_FLOAT_EQ(PointDensity(1, 3), 33.333333F);
    EXPECT_FLOAT_EQ(PointDensity(3, 400), 0.75F);
}

TEST_F(PointDensities, OneRowIsAlone) {
    AddRow(30, 120);
    Compute();
    EXPECT_EQ(ActiveRecord().PointDensityMax, 100);
    EXPECT_EQ(PointDensities::Bands(), (quandrel::Bands{kIsolatedBand}));
}

TEST_F(PointDensities, NoRowsHaveNoDensity) {
    ActiveRecord().PointDensityMax = 7;
    Compute();
    EXPECT_EQ(ActiveRecord().PointDensityMax, 0);
}

TEST_F(PointDensities, TwoIdenticalRowsAreInBandFour) {
    AddRows({{30, 120}, {30, 120}});
    Compute();
    EXPECT_EQ(ActiveRecord().PointDensityMax, 100);
    EXPECT_EQ(PointDensities::Bands(), (quandrel::Bands{4, 4}));
}

TEST_F(PointDensities, OppositeRimRowsCountEachOther) {
    AddRows({{0, 90}, {0, 270}, {45, 0}, {45, 90}});
    Compute();
    ASSERT_EQ(std::abs(TableOf(gActivePlot).x.back() - TableOf(gActivePlot).x.front()), 2000);
    EXPECT_EQ(ActiveRecord().PointDensityMax, 50);
    EXPECT_EQ(PointDensities::Bands(), (quandrel::Bands{4, 4, 1, 1}));
}

TEST_F(PointDensities, ErrorRowsTakeNoPartAndHaveBandZero) {
    AddRows({{30, 120}, {kErrorRow, 0}, {60, 300}});
    gPointDensity.At(gActivePlot, 2) = 5;
    Compute();
    EXPECT_EQ(PointDensities::Bands(), (quandrel::Bands{1, 0, 1}));
    EXPECT_EQ(ActiveRecord().PointDensityMax, 50) << "of the two rows that count";
}

TEST_F(PointDensities, RowsOfOverlaysAreLeftAlone) {
    AddRow(30, 120);
    AddOverlay(kOverlayLines, 30, 120, CodeOfStyleRow(2));
    gPointDensity.At(gActivePlot, 2) = 9;
    Compute();
    EXPECT_EQ(gPointDensity(gActivePlot, 1), 1);
    EXPECT_EQ(gPointDensity(gActivePlot, 2), 9);
    EXPECT_EQ(ActiveRecord().PointDensityMax, 100);
}

TEST_F(PointDensities, AreSharesOfTheRowsCountedInAPlotOfKinematicAxes) {
    AddRows({{10, 0}, {10, 0}, {80, 0}, {45, 90}});
    ActiveRecord().AxesTitle = "P & T";
    ActiveRecord().NumValidData = 2; // faults: each has two axes
    Compute();
    EXPECT_EQ(ActiveRecord().PointDensityMax, 50);
    EXPECT_EQ(PointDensities::Bands(), (quandrel::Bands{4, 4, 1, 1}));
}

/// The count of each row of the table with every row, by the rule itself.
std::vector<std::int32_t> CountsOfEveryPair(const RowTable& table) {
    std::vector<std::int32_t> counts(table.size(), 0);
    for (std::size_t i = 0; i < table.size(); ++i) {
        for (std::size_t j = 0; j < table.size(); ++j) {
            double angle = 0;
            AngleBetweenLines(table.plunge[i], table.trend[i], table.plunge[j], table.trend[j],
                              angle, LineAngle::kAcute);
            counts[i] += angle <= kCountCone ? 1 : 0;
        }
    }
    return counts;
}

TEST_F(PointDensities, AreThoseOfEveryPairOfRowsInBothProjections) {
    for (const std::int16_t kind : {kEqualArea, kEqualAngle}) {
        for (const LineSample& sample : LineSamples()) {
            FreshPlot();
            ActiveRecord().PlotKind = kind;
            AddRows(sample.rows);
            Compute();
            const RowTable& table = TableOf(gActivePlot);
            const std::vector<std::int32_t> counts = CountsOfEveryPair(table);
            const auto rows = static_cast<std::int32_t>(sample.rows.size());
            EXPECT_FLOAT_EQ(ActiveRecord().PointDensityMax,
                            100.0F * static_cast<float>(std::ranges::max(counts))
                                / static_cast<float>(rows))
                << sample.name;
            for (std::size_t place = 0; place < table.size(); ++place) {
                ASSERT_EQ(gPointDensity(gActivePlot, table.index[place]),
                          PointDensityBand(counts[place], rows))
                    << sample.name << " row " << table.index[place];
            }
        }
    }
}

TEST_F(PointDensities, DoNotDependOnTheOrderOfTheRows) {
    const WholeDegreeRows rows = LineSamples()[1].rows;
    AddRows(rows);
    Compute();
    const quandrel::Bands bands = PointDensities::Bands();
    const float greatest = ActiveRecord().PointDensityMax;

    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::shuffle(order.begin(), order.end(), std::mt19937(3));
    FreshPlot();
    for (const std::size_t place : order) {
        AddRow(rows[place].first, rows[place].second);
    }
    Compute();
    EXPECT_EQ(ActiveRecord().PointDensityMax, greatest);
    for (std::size_t i = 0; i < order.size(); ++i) {
        EXPECT_EQ(PointDensities::Bands()[i], bands[order[i]]);
    }
}

TEST_F(PointDensities, AreTheSameForTheAntipodesOfAllRows) {
    for (const LineSample& sample : LineSamples()) {
        FreshPlot();
        AddRows(sample.rows);
        Compute();
        const quandrel::Bands bands = PointDensities::Bands();
        FreshPlot();
        for (const auto& [plunge, trend] : sample.rows) {
            AddRow(-plunge, plunge == 0 ? (trend + 180) % 360 : trend);
        }
        Compute();
        EXPECT_EQ(PointDensities::Bands(), bands) << sample.name;
    }
}

TEST_F(PointDensities, PlanesCountByTheirPoles) {
    gPrimaryDataType = kPrimaryPlane;
    gPlotDataKind = kPlanes;
    FreshPlot();
    AddRows({{89, 90}, {89, 270}, {1, 0}, {1, 180}});
    Compute();
    EXPECT_EQ(PointDensities::Bands(), (quandrel::Bands{4, 4, 4, 4}));
}

TEST_F(PointDensities, AreQuickEnoughForAQuietStatusLine) {
    status.SetText("as before");
    AddRows(LineSamples()[0].rows);
    Compute();
    EXPECT_EQ(status.Text(), "as before");
    EXPECT_FALSE(status.ProgressIsShown());
}

} // namespace
} // namespace quandrel
