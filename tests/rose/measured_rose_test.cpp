// SPDX-License-Identifier: MIT
//
// Roses of plots that use decimals, against counts and sums row by row.

#include "core/data_format.h"
#include "core/formulas.h"
#include "orientation/vectors.h"
#include "rose/bias_weights.h"
#include "rose/circular_median.h"
#include "rose/circular_statistics.h"
#include "rose/rose_confidence.h"
#include "rose/rose_plot.h"
#include "rose/rose_radii.h"
#include "rose/rose_reference.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "support/measured_plots.h"
#include "support/test_platform.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quandrel {
namespace {

using testing::Radians;

constexpr int kRows = 3000;

class MeasuredRose : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gRoseOddAsked = true;
    }

    void NewRose(const std::vector<Attitude>& rows, std::int16_t kind, double sectorSize) {
        gPrimaryDataType = kind == kPlanes ? kPrimaryPlane : kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
        ActiveRecord().PlotKind = kRose;
        ActiveRecord().RoseSectorSize = sectorSize;
        AddMeasuredRows(rows);
    }

    static const PlotRose& Count() {
        gRoseOddAsked = true;
        EXPECT_TRUE(RoseCountSectors());
        RoseCircularStats(MeasureOfRose(ActiveRecord().RoseType));
        return ActiveRose();
    }

    static void Switch(bool on) {
        UseDecimals(on);
        Count();
    }
};

/// The end of a sector clockwise: an azimuth on an edge is in the sector that ends there.
double EndOf(int sector, double size) {
    return 360 - (sector - 2) * size;
}

/// Whether an azimuth is in a sector of equal ones from north.
bool IsInSector(double azimuth, int sector, double size) {
    constexpr double kEdge = 1e-9;
    const double before = std::fmod(EndOf(sector, size) - azimuth + 720 + kEdge, 360);
    return before < size - kEdge / 2 + kEdge;
}

TEST_F(MeasuredRose, SectorsOfPolarLinesCountEachRow) {
    for (const double size : {10.0, 7.5, 2.0}) {
        for (MeasuredSample& sample : MeasuredSamples(kRows)) {
            for (std::size_t i = 0; i < sample.rows.size(); i += 4) {
                sample.rows[i].dip = -sample.rows[i].dip - 1e-6;
            }
            NewRose(sample.rows, kPolarLines, size);
            Switch(true);
            const int sectors = static_cast<int>(360 / size);
            std::vector<double> counts(static_cast<std::size_t>(sectors) + 1);
            for (const Attitude& row : sample.rows) {
                const double shown = std::fmod(row.azimuth + (row.dip < 0 ? 180 : 0), 360);
                for (int sector = 1; sector <= sectors; ++sector) {
                    counts[static_cast<std::size_t>(sector)] +=
                        IsInSector(shown, sector, size) ? 1 : 0;
                }
            }
            for (int sector = 1; sector <= sectors; ++sector) {
                ASSERT_EQ(ActiveRose().sectorStats[static_cast<std::size_t>(sector)][kRoseCount],
                          counts[static_cast<std::size_t>(sector)])
                    << sample.name << " " << size << " " << sector;
            }
            ReleasePlotSlot(gActivePlot);
        }
    }
}

/// The value of a row.
float ValueOf(std::size_t row) {
    return static_cast<float>(row % 37) + 0.25F;
}

/// The values of the axes with an end in a sector.
std::vector<double> ValuesInSector(const std::vector<double>& axes, int sector, double size) {
    std::vector<double> values;
    for (std::size_t row = 0; row < axes.size(); ++row) {
        if (IsInSector(axes[row], sector, size) || IsInSector(axes[row] + 180, sector, size)) {
            values.push_back(static_cast<double>(ValueOf(row)));
        }
    }
    return values;
}

/// The counts and values of a sector against its rows. Of a pair one sector counts all.
void ExpectSector(int sector, int sectors, const std::vector<double>& values) {
    const RoseSectorStats& all = ActiveRose().sectorStats;
    std::array<double, 7> found = all[static_cast<std::size_t>(sector)];
    if (sectors % 2 == 0) {
        const int opposite = (sector - 1 + sectors / 2) % sectors + 1;
        for (std::size_t column = 0; column < found.size(); ++column) {
            found[column] += all[static_cast<std::size_t>(opposite)][column];
        }
    }
    const auto count = static_cast<double>(values.size());
    double sum = 0;
    for (const double value : values) {
        sum += value;
    }
    double squares = 0;
    for (const double value : values) {
        squares += (value - sum / count) * (value - sum / count);
    }
    ASSERT_EQ(found[kRoseCount], count) << sector;
    ASSERT_NEAR(found[kRoseValueSum], sum, 1e-9 * sum) << sector;
    ASSERT_NEAR(found[kRoseMean], values.empty() ? 0 : sum / count, 1e-9) << sector;
    ASSERT_NEAR(found[kRoseDeviation], count < 2 ? 0 : std::sqrt(squares / (count - 1)), 1e-9)
        << sector;
}

TEST_F(MeasuredRose, SectorsOfPlanesAndAxesCountEachRowAndItsValue) {
    for (const std::int16_t kind : {kPlanes, kLines}) {
        for (const double size : {10.0, 7.5, 40.0}) { // 40: nine sectors, which make no pairs
            for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
                SCOPED_TRACE(sample.name + " " + std::to_string(kind) + " " + std::to_string(size));
                NewRose(sample.rows, kind, size);
                PlotRecord& record = ActiveRecord();
                record.RoseType = kRoseMeanValue;
                record.HasAppendedNumeric = kTrue;
                ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
                std::vector<double> axes;
                for (std::size_t row = 0; row < sample.rows.size(); ++row) {
                    gAppNumeric.At(gActivePlot, static_cast<std::int32_t>(row) + 1) = ValueOf(row);
                    axes.push_back(sample.rows[row].azimuth + (kind == kPlanes ? 90 : 0));
                }
                Switch(true);
                const int sectors = static_cast<int>(360 / size);
                for (int sector = 1; sector <= sectors; ++sector) {
                    ExpectSector(sector, sectors, ValuesInSector(axes, sector, size));
                }
                ReleasePlotSlot(gActivePlot);
            }
        }
    }
}

TEST_F(MeasuredRose, DecimalsOnAnEdgeAreInTheSectorThatEndsThere) {
    NewRose({{10.5, 7.2}, {10.5, 14.4}, {10.5, 14.400001}, {10.5, 349.2}}, kPolarLines, 7.2);
    Switch(true);
    const auto countAt = [](double azimuth) {
        const int sector = SectorOfAzimuth(LayoutOfRose(ActiveRecord()), azimuth);
        return ActiveRose().sectorStats[static_cast<std::size_t>(sector)][kRoseCount];
    };
    EXPECT_EQ(countAt(5), 1);
    EXPECT_EQ(countAt(10), 1);
    EXPECT_EQ(countAt(15), 1);
    EXPECT_EQ(countAt(347), 1);
}

TEST_F(MeasuredRose, StatisticsAreThoseOfTheRows) {
    for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
        NewRose(sample.rows, kPlanes, 10); // strikes, as axes
        Switch(true);
        double sine = 0;
        double cosine = 0;
        std::vector<double> strikes;
        for (const Attitude& row : sample.rows) {
            const double strike = std::fmod(row.azimuth + 90, 180);
            sine += std::sin(2 * Radians(strike));
            cosine += std::cos(2 * Radians(strike));
            strikes.push_back(Radians(strike));
        }
        const PlotRecord& record = ActiveRecord();
        EXPECT_NEAR(record.RoseResultant[kOfAngles], std::hypot(sine, cosine) / kRows, 1e-12);
        EXPECT_EQ(record.RoseStats[kRoseCount][kWeightedTotal], kRows);
        const double median =
            CircularMedian(strikes, record.RoseMeanDir[kOfAngles], AngleSense::kAxial);
        EXPECT_NEAR(std::remainder(record.RoseMedian - median, kPi), 0, 1e-9) << sample.name;
        EXPECT_NEAR(record.RoseMeanDev, CircularMeanDeviation(strikes, median, AngleSense::kAxial),
                    1e-9);
        ReleasePlotSlot(gActivePlot);
    }
}

TEST_F(MeasuredRose, BiasWeightsAreThoseOfTheMeasuredAngles) {
    for (const std::int16_t mode : {kSpaceAngle, kHorizontalAngle}) {
        const MeasuredSample sample = MeasuredSamples(kRows)[1];
        NewRose(sample.rows, kPlanes, 10);
        PlotRecord& record = ActiveRecord();
        record.RoseBiasMode = mode;
        record.RoseMinBiasAngle = 5;
        record.RoseSamplePlunge = 12;
        record.RoseSampleTrend = 75;
        Switch(true);
        const testing::Vector line = {std::cos(Radians(12)) * std::cos(Radians(75)),
                                      std::cos(Radians(12)) * std::sin(Radians(75)),
                                      std::sin(Radians(12))};
        double sum = 0;
        for (const Attitude& row : sample.rows) {
            const double dip = Radians(row.dip);
            const double direction = Radians(row.azimuth);
            const testing::Vector pole = {-std::sin(dip) * std::cos(direction),
                                          -std::sin(dip) * std::sin(direction), std::cos(dip)};
            const double sineInSpace = std::abs(testing::Dot(pole, line));
            const double sineOnMap = std::abs(std::sin(direction + Radians(90) - Radians(75)));
            const double sine = mode == kSpaceAngle ? sineInSpace : sineOnMap;
            sum += 1 / std::max(sine, std::sin(Radians(5)));
        }
        EXPECT_NEAR(record.RoseStats[kRoseCount][kWeightedTotal], sum, 1e-9 * sum) << mode;
        ReleasePlotSlot(gActivePlot);
    }
}

TEST_F(MeasuredRose, SwitchedOffItIsThatOfWholeDegrees) {
    for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
        std::vector<Attitude> rounded;
        for (const Attitude& row : sample.rows) {
            rounded.push_back(RoundedAttitude(row, false));
        }
        NewRose(rounded, kLines, 5);
        const RoseSectorStats ofRounded = Count().sectorStats;
        ReleasePlotSlot(gActivePlot);
        NewRose(sample.rows, kLines, 5);
        const RoseSectorStats whole = Count().sectorStats;
        EXPECT_EQ(whole, ofRounded) << sample.name;
        const double median = ActiveRecord().RoseMedian;
        Switch(true);
        EXPECT_NE(ActiveRose().sectorStats, whole) << sample.name;
        Switch(false);
        EXPECT_EQ(ActiveRose().sectorStats, whole) << sample.name;
        RemoveDecimals();
        Switch(true); // of a plot without decimals
        EXPECT_EQ(ActiveRose().sectorStats, whole) << sample.name;
        EXPECT_EQ(ActiveRecord().RoseMedian, median) << sample.name;
        ReleasePlotSlot(gActivePlot);
    }
}

std::optional<ReferenceLine> ReferenceLineOf(std::string_view name) {
    const auto reference = RoseReferenceOf(ActivePlot());
    for (const ReferenceLine& line :
         RoseReferenceLines(reference.value(), ActivePlot(), Formulas::Own)) {
        if (line.name == name) {
            return line;
        }
    }
    return std::nullopt;
}

TEST_F(MeasuredRose, TheReferenceIsOfMeasuredAzimuthsAlways) {
    NewRose({{0, 10.4}, {0, 11.4}, {0, 12.4}}, kPolarLines, 10);
    Count();
    const ReferenceLine off = ReferenceLineOf("mean direction").value();
    EXPECT_NEAR(*off.value, 11.4, 1e-9);
    EXPECT_EQ(off.printed, "11.0");
    EXPECT_NEAR(*ReferenceLineOf("median of least mean deviation")->value, 11.4, 1e-9);
    Switch(true);
    const ReferenceLine on = ReferenceLineOf("mean direction").value();
    EXPECT_NEAR(*on.value, 11.4, 1e-9);
    EXPECT_EQ(on.printed, "");
}

TEST_F(MeasuredRose, TheBootstrapDrawsMeasuredAzimuths) {
    std::vector<Attitude> rows;
    for (int i = 0; i < 12; ++i) {
        rows.push_back({0.0, 40 + 0.03 * i});
    }
    NewRose(rows, kPolarLines, 10);
    Count();
    EXPECT_EQ(ActiveRose().confidence->halfWidth, 0); // all rows are 40
    Switch(true);
    const double halfWidth = RadToDeg(ActiveRose().confidence->halfWidth.value());
    EXPECT_GT(halfWidth, 0.03);
    EXPECT_LT(halfWidth, 0.2);
}

} // namespace
} // namespace quandrel
