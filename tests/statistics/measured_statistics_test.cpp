// SPDX-License-Identifier: MIT
//
// Statistics of plots with decimals, against sums written out here.

#include "core/data_format.h"
#include "core/settings_value.h"
#include "orientation/vectors.h"
#include "statistics/axis_statistics.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"
#include "statistics/orientation_notation.h"
#include "statistics/reference_entries.h"
#include "statistics/statistics_texts.h"
#include "support/measured_plots.h"
#include "support/test_platform.h"

#include <Eigen/Eigenvalues>

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

using testing::Radians;

/// Twelve directions within a degree or two of each other.
const std::vector<Attitude> kTwelve = {{47.82, 218.49}, {47.36, 218.34}, {47.1, 218.87},
                                       {47.8, 218.83},  {48.85, 218.39}, {47.41, 217.47},
                                       {47.36, 218.39}, {47.62, 219.95}, {47.55, 218.84},
                                       {47.05, 218.52}, {47.94, 218.2},  {47.59, 218.72}};

/// Fisher's estimate (n - 1) / (n - R) in long doubles.
double KappaOf(const std::vector<Attitude>& rows) {
    constexpr long double kDegree = 3.14159265358979323846L / 180;
    long double north = 0;
    long double east = 0;
    long double down = 0;
    for (const Attitude& row : rows) {
        const long double plunge = kDegree * static_cast<long double>(row.dip);
        const long double trend = kDegree * static_cast<long double>(row.azimuth);
        north += std::cos(plunge) * std::cos(trend);
        east += std::cos(plunge) * std::sin(trend);
        down += std::sin(plunge);
    }
    const auto n = static_cast<long double>(rows.size());
    const long double resultant = std::sqrt(north * north + east * east + down * down);
    return static_cast<double>((n - 1) / (n - resultant));
}

std::vector<Attitude> Rounded(std::vector<Attitude> rows) {
    std::transform(rows.begin(), rows.end(), rows.begin(),
                   [](const Attitude& row) { return RoundedAttitude(row, false); });
    return rows;
}

class MeasuredStatistics : public EngineTest {
protected:
    void NewPlotOf(const std::vector<Attitude>& rows, std::int16_t kind) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
        AddMeasuredRows(rows);
        ComputeFabricStatistics();
    }

    static void Switch(bool on) {
        UseDecimals(on);
        ComputeFabricStatistics();
    }

    static std::vector<ReferenceLine> Entries() {
        return ReferenceEntries(*ReferenceStatisticsOfActivePlot(), ActiveRecord());
    }

    static ReferenceLine EntryOf(std::string_view name) {
        for (const ReferenceLine& entry : Entries()) {
            if (entry.name == name) {
                return entry;
            }
        }
        ADD_FAILURE() << "no entry " << name;
        return {};
    }
};

TEST_F(MeasuredStatistics, KappaOfTheReferenceIsThatOfTheDecimals) {
    NewPlotOf(kTwelve, kPolarLines);
    const double kappa = KappaOf(kTwelve);
    const double whole = KappaOf(Rounded(kTwelve));
    EXPECT_NEAR(kappa, 17536.1, 0.1);
    EXPECT_NEAR(whole, 9204.1, 0.1); // whole degrees hide how close the directions are
    EXPECT_NEAR(*EntryOf("Fisher kappa").value, kappa, 1e-6 * kappa);
    Switch(true);
    EXPECT_NEAR(*EntryOf("Fisher kappa").value, kappa, 1e-6 * kappa);
    RemoveDecimals();
    EXPECT_NEAR(*EntryOf("Fisher kappa").value, whole, 1e-6 * whole);
}

TEST_F(MeasuredStatistics, PrintedNumbersOfWholeDegreesAreMarkedInTheReference) {
    NewPlotOf(kTwelve, kPolarLines);
    EXPECT_FALSE(EntryOf("Fisher mean trend").printed.empty());
    EXPECT_FALSE(EntryOf("axis 3 trend").printed.empty());
    Switch(true);
    for (const char* name : {"Fisher mean plunge", "Fisher mean trend", "axis 3 plunge",
                             "axis 3 trend", "Fisher R/n", "n"}) {
        EXPECT_EQ(EntryOf(name).printed, "") << name;
    }
}

TEST_F(MeasuredStatistics, EigenvaluesAreThoseOfTheTensorOfTheRows) {
    for (const MeasuredSample& sample : MeasuredSamples(3000)) {
        NewPlotOf(sample.rows, kLines);
        Switch(true);
        Eigen::Matrix3d tensor = Eigen::Matrix3d::Zero();
        for (const Attitude& row : sample.rows) {
            const double plunge = Radians(row.dip);
            const double trend = Radians(row.azimuth);
            const Eigen::Vector3d line(std::cos(plunge) * std::cos(trend),
                                       std::cos(plunge) * std::sin(trend), std::sin(plunge));
            tensor += line * line.transpose() / 3000;
        }
        const Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solved(tensor);
        const ReferenceStatistics reference = ReferenceStatisticsOfActivePlot().value();
        for (std::size_t i = 0; i < 3; ++i) {
            const double expected = solved.eigenvalues()[static_cast<Eigen::Index>(i)];
            EXPECT_NEAR(reference.eigenvalues.at(i), expected, 1e-12) << sample.name;
            EXPECT_NEAR(ActiveRecord().FabricResults[i + 1][kEigenvalue], expected, 1e-6);
        }
        ReleasePlotSlot(gActivePlot);
    }
}

TEST_F(MeasuredStatistics, SwitchedOffTheyAreThoseOfWholeDegrees) {
    for (const MeasuredSample& sample : MeasuredSamples(300)) {
        NewPlotOf(sample.rows, kPolarLines);
        const std::string normal = StatsBoxText();
        const std::string advanced = FabricBoxText();
        Switch(true);
        EXPECT_NE(StatsBoxText(), normal) << sample.name;
        EXPECT_NE(FabricBoxText(), advanced) << sample.name;
        Switch(false);
        EXPECT_EQ(StatsBoxText(), normal) << sample.name;
        RemoveDecimals();
        ComputeFabricStatistics();
        EXPECT_EQ(StatsBoxText(), normal) << sample.name;
        EXPECT_EQ(FabricBoxText(), advanced) << sample.name;
        ReleasePlotSlot(gActivePlot);
    }
}

TEST_F(MeasuredStatistics, BoxesShowOneDecimal) {
    NewPlotOf({{47.26, 8.64}}, kLines);
    EXPECT_NE(StatsBoxText().find("Mean Resultant dir'n = 47-009\r\n"), std::string::npos);
    Switch(true);
    const std::string text = StatsBoxText();
    EXPECT_NE(text.find("Mean Resultant dir'n = 47.3-008.6\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Mean Principal Orientation = 47.3-008.6\r\n"), std::string::npos) << text;
}

TEST_F(MeasuredStatistics, AxesOfOneKindCountAsMeasured) {
    NewPlotOf({{30.5, 40.25}, {-20.26, 130.78}}, kPolarLines);
    ActiveRecord().AxesTitle = kBothAxes;
    Switch(true);
    const AxisStatistics t = StatisticsOfAxes(AxisKind::Extension);
    EXPECT_EQ(t.record.NumValidData, 1);
    EXPECT_NEAR(RadToDeg(FabricAxis(t.record, 3).plunge), 20.26, 1e-4);
    EXPECT_NEAR(RadToDeg(FabricAxis(t.record, 3).trend), 130.78, 1e-4);
    EXPECT_EQ(AxisLegendTexts(t).at(1), "principal axis 20.3-130.8");
    Switch(false);
    EXPECT_EQ(AxisLegendTexts(StatisticsOfAxes(AxisKind::Extension)).at(1),
              "principal axis 20-131");
}

TEST(TextOfAngle, OfOneDecimalWrapsAtNorth) {
    EXPECT_EQ(TextOfAngle(Radians(47.26), 1), "47.3");
    EXPECT_EQ(TextOfAngle(Radians(47.26), 0), "47");
    EXPECT_EQ(TextOfAzimuth(Radians(359.96), 1), "0.0");
    EXPECT_EQ(TextOfAzimuth(Radians(359.94), 1), "359.9");
    EXPECT_EQ(TextOfAzimuth(Radians(359.6), 0), "0");
}

} // namespace
} // namespace quandrel
