// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "rose/bias_weights.h"
#include "rose/circular_median.h"
#include "rose/circular_statistics.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>
#include <complex>
#include <numbers>
#include <random>

namespace quandrel {
namespace {

using std::numbers::pi;

constexpr unsigned kSeed = 1993;

TEST(AngleFromSinCos, IsTheAngleOfTheVectorOffTheAxes) {
    for (int degrees = 1; degrees < 360; ++degrees) {
        if (degrees % 90 != 0) {
            const double angle = degrees * pi / 180;
            EXPECT_NEAR(AngleFromSinCos(3 * std::sin(angle), 3 * std::cos(angle)), angle, 1e-12)
                << degrees;
        }
    }
}

struct AxisCase {
    double y;
    double x;
    double angle;
};

// Kept: east of the sines is pi.
// Kept: 2 pi for a y of exactly 0.
TEST(AngleFromSinCos, KeepsItsLeaningsAtTheAxes) {
    const std::vector<AxisCase> cases = {
        {0, 0, 0},
        {9e-11, -9e-11, 0},
        {1, 0, kPi}, // not pi/2
        {1, -9e-11, kPi},
        {-1, 0, 4.712388980384685},
        {-1, 9e-11, 4.712388980384685},
        {0, 1, kTwoPi},  // not 0
        {0, -1, kTwoPi}, // not pi
        {1, 2e-10, std::atan(1 / 2e-10)},
    };
    for (const AxisCase& test : cases) {
        EXPECT_EQ(AngleFromSinCos(test.y, test.x), test.angle) << test.y << ", " << test.x;
    }
}

/// The sums of angles in radians, each counted once.
std::array<double, 4> SumsOf(const std::vector<double>& angles, AngleSense sense) {
    const double factor = sense == AngleSense::kAxial ? 2 : 1;
    std::array<double, 4> sums{};
    for (const double angle : angles) {
        sums[0] += std::sin(factor * angle);
        sums[1] += std::cos(factor * angle);
        sums[2] += std::sin(2 * factor * angle);
        sums[3] += std::cos(2 * factor * angle);
    }
    return sums;
}

CircularResults StatisticsOf(const std::vector<double>& angles, AngleSense sense) {
    return *CircularStatistics(SumsOf(angles, sense), static_cast<double>(angles.size()), sense);
}

/// Mean of exp(i p angle).
std::complex<double> MomentOf(const std::vector<double>& angles, double p) {
    std::complex<double> sum;
    for (const double angle : angles) {
        sum += std::polar(1.0, p * angle);
    }
    return sum / static_cast<double>(angles.size());
}

double TurnDistance(double a, double b, double turn) {
    return std::abs(std::remainder(a - b, turn));
}

TEST(CircularStatistics, OfRandomAnglesAgreeWithComplexMoments) {
    std::mt19937 random(kSeed);
    for (int sample = 0; sample < 200; ++sample) {
        const bool isAxial = sample % 2 == 1;
        const double p = isAxial ? 2 : 1;
        std::normal_distribution<double> spread(sample * 0.1, 0.05 + sample * 0.01);
        std::vector<double> angles(5 + random() % 60);
        for (double& angle : angles) {
            angle = spread(random);
        }
        const std::complex<double> m1 = MomentOf(angles, p);
        const std::complex<double> m2 = MomentOf(angles, 2 * p);
        const double r1 = std::abs(m1);
        const CircularResults found =
            StatisticsOf(angles, isAxial ? AngleSense::kAxial : AngleSense::kDirected);
        SCOPED_TRACE(testing::Message() << "seed " << kSeed << " sample " << sample);
        EXPECT_NEAR(found.moments[0], m1.real(), 1e-12);
        EXPECT_NEAR(found.moments[1], m1.imag(), 1e-12);
        EXPECT_NEAR(found.resultant[0], r1, 1e-12);
        EXPECT_NEAR(found.resultant[1], std::abs(m2), 1e-12);
        EXPECT_LT(TurnDistance(found.meanDirection[0], std::arg(m1) / p, 2 * pi / p), 1e-9);
        EXPECT_LT(TurnDistance(found.meanDirection[1], std::arg(m2) / p, 2 * pi / p), 1e-9);
        EXPECT_NEAR(found.variance, isAxial ? 1 - std::sqrt(std::sqrt(r1)) : 1 - r1, 1e-12);
        EXPECT_NEAR(found.standardDeviation, std::sqrt(-2 * std::log(r1)) / p, 1e-9);
        EXPECT_NEAR(found.dispersion, (1 - std::abs(m2)) / (2 * r1 * r1), 1e-9 / (r1 * r1));
        // Both are components of m2 turned back by twice the mean.
        const std::complex<double> turned = m2 * std::polar(1.0, -2 * std::arg(m1));
        EXPECT_NEAR(found.skewness * std::pow(1 - r1, 1.5), turned.imag(), 1e-9);
        EXPECT_NEAR(found.kurtosis * std::pow(1 - r1, 2) + std::pow(r1, 4), turned.real(), 1e-9);
    }
}

// Kept: identical angles give 0.
TEST(CircularStatistics, OfIdenticalAnglesHaveNoSpread) {
    for (const AngleSense sense : {AngleSense::kDirected, AngleSense::kAxial}) {
        for (int degrees = 1; degrees < 180; ++degrees) {
            const std::vector<double> angles(7, degrees * pi / 180);
            const CircularResults found = StatisticsOf(angles, sense);
            EXPECT_EQ(found.resultant[0], 1) << degrees;
            EXPECT_EQ(found.variance, 0) << degrees;
            EXPECT_EQ(found.standardDeviation, 0) << degrees;
            EXPECT_EQ(found.kappa, 0) << degrees << ": kept";
            EXPECT_EQ(found.skewness, 0) << degrees;
            EXPECT_EQ(found.kurtosis, 0) << degrees;
            EXPECT_EQ(found.dispersion, 0) << degrees;
        }
    }
}

TEST(CircularStatistics, OfOppositeAnglesHaveNoResultant) {
    for (int degrees = 0; degrees < 180; ++degrees) {
        const double angle = degrees * pi / 180;
        const CircularResults found = StatisticsOf({angle, angle + pi}, AngleSense::kDirected);
        EXPECT_EQ(found.resultant[0], 0) << degrees;
        EXPECT_EQ(found.resultant[1], 1) << degrees;
        EXPECT_EQ(found.variance, 1) << degrees;
        EXPECT_EQ(found.standardDeviation, kPi) << degrees;
        EXPECT_EQ(found.dispersion, kNoDispersion) << degrees;
        EXPECT_EQ(found.kappa, 0) << degrees;
    }
}

TEST(CircularStatistics, OfAxesAtRightAnglesHaveHalfTheDeviationOfOppositeOnes) {
    const CircularResults found = StatisticsOf({0.3, 0.3 + pi / 2}, AngleSense::kAxial);
    EXPECT_EQ(found.resultant[0], 0);
    EXPECT_EQ(found.standardDeviation, kPi / 2);
    EXPECT_EQ(found.dispersion, kNoDispersion);
}

TEST(CircularStatistics, KeepTheMeanOfEastAtSouthAndOfNorthAtAFullTurn) {
    const CircularResults east = StatisticsOf({pi / 2, pi / 2}, AngleSense::kDirected);
    EXPECT_EQ(east.meanDirection[0], kPi);
    const CircularResults north = StatisticsOf({0, 0}, AngleSense::kDirected);
    EXPECT_EQ(north.meanDirection[0], kTwoPi);
    const CircularResults axis = StatisticsOf({0, 0}, AngleSense::kAxial);
    EXPECT_EQ(axis.meanDirection[0], kPi);
}

// Kept: concentrated angles give 1 / (2 (1 - R)).
TEST(CircularStatistics, KeepTheThreeFormulasOfKappa) {
    struct KappaCase {
        double r;
        double kappa;
    };

    // Worked out by hand from the three formulas.
    const std::vector<KappaCase> cases = {
        {0, 0},
        {0.2, 0.40826666666666667},
        {0.5, 1.1510416666666667},
        {0.52, 1.2122916693333333},
        {0.53, 1.2515936170212766}, // 0.43 / 0.47 + 0.7367 - 0.4
        {0.8, 2.862},
        {0.9, 5},
        {0.85, 10.0 / 3},
        {0.99, 50},
        {1, 0},
    };
    for (const KappaCase& test : cases) {
        const CircularResults found =
            *CircularStatistics({0, test.r, 0, 1}, 1, AngleSense::kDirected);
        EXPECT_NEAR(found.kappa, test.kappa, 1e-9) << test.r;
    }
}

TEST(AngleFromSinCos, IsTheArcTangentInTheTextbook) {
    for (int degrees = 0; degrees < 360; ++degrees) {
        const double angle = degrees * pi / 180;
        const double found = AngleFromSinCos(std::sin(angle), std::cos(angle), Formulas::Textbook);
        EXPECT_NEAR(found, angle, 1e-12) << degrees;
    }
    EXPECT_EQ(AngleFromSinCos(0, 0, Formulas::Textbook), 0);
    EXPECT_EQ(AngleFromSinCos(0, 2, Formulas::Textbook), 0);
    EXPECT_EQ(AngleFromSinCos(-0.0, 2, Formulas::Textbook), 0);
    EXPECT_DOUBLE_EQ(AngleFromSinCos(0, -2, Formulas::Textbook), pi);
}

TEST(CircularStatistics, OfTheTextbookHaveTheMeanWhereTheAnglesAre) {
    // Their cosines sum to 0: the mean of 40, 45 and 50 is 45, of axes; that of east is east.
    const std::vector<double> degrees = {40, 45, 50};
    std::vector<double> angles;
    for (const double one : degrees) {
        angles.push_back(one * pi / 180);
    }
    const auto sums = SumsOf(angles, AngleSense::kAxial);
    const auto textbook = CircularStatistics(sums, 3, AngleSense::kAxial, Formulas::Textbook);
    const auto own = CircularStatistics(sums, 3, AngleSense::kAxial, Formulas::Own);
    EXPECT_NEAR(textbook->meanDirection[0], pi / 4, 1e-12);
    EXPECT_NEAR(own->meanDirection[0], pi / 2, 1e-12);
}

TEST(KappaOfLength, IsThatOfMaximumLikelihoodInTheTextbook) {
    // I1(kappa) / I0(kappa) gives the length back.
    for (const double r : {0.05, 0.3, 0.52, 0.54, 0.84, 0.86, 0.95, 0.99}) {
        const double kappa = KappaOfLength(r, Formulas::Textbook);
        EXPECT_NEAR(std::cyl_bessel_i(1.0, kappa) / std::cyl_bessel_i(0.0, kappa), r, 1e-9) << r;
    }
    EXPECT_EQ(KappaOfLength(0, Formulas::Textbook), 0);
    EXPECT_EQ(KappaOfLength(1, Formulas::Textbook), kBoundlessKappa);
    EXPECT_NEAR(KappaOfLength(0.85, Formulas::Textbook), 3.68041, 1e-5); // as tables have it
    // The program's own is close to it below 0.85, and 9% below it there.
    EXPECT_NEAR(KappaOfLength(0.8, Formulas::Own) / KappaOfLength(0.8, Formulas::Textbook), 1,
                0.01);
    EXPECT_NEAR(KappaOfLength(0.85, Formulas::Own), 3.68041 * 0.9057, 1e-3);
}

TEST(CircularStatistics, SkewnessAndKurtosisOfAxesAreThoseOfTheDoubledAnglesByBothFormulas) {
    const std::vector<double> axes = {0.1, 0.2, 0.25, 0.7, 1.0};
    std::vector<double> doubled;
    for (const double angle : axes) {
        doubled.push_back(2 * angle);
    }
    const auto sums = SumsOf(axes, AngleSense::kAxial);
    for (const Formulas formulas : {Formulas::Own, Formulas::Textbook}) {
        const auto ofAxes = CircularStatistics(sums, 5, AngleSense::kAxial, formulas);
        const auto ofDoubled = CircularStatistics(SumsOf(doubled, AngleSense::kDirected), 5,
                                                  AngleSense::kDirected, formulas);
        EXPECT_NEAR(ofAxes->skewness, ofDoubled->skewness, 1e-12);
        EXPECT_NEAR(ofAxes->kurtosis, ofDoubled->kurtosis, 1e-12);
    }
}

TEST(MeanResultantLength, IsTakenForOneWithinRoundingAlone) {
    EXPECT_EQ(MeanResultantLength(1 + 9e-13, 0), 1);
    EXPECT_EQ(MeanResultantLength(0, 1 - 9e-13), 1);
    EXPECT_EQ(MeanResultantLength(0.6, -0.8), 1);
    EXPECT_EQ(MeanResultantLength(9e-13, 0), 0);
    EXPECT_DOUBLE_EQ(*MeanResultantLength(0.3, 0.4), 0.5);
    EXPECT_FALSE(MeanResultantLength(1 + 2e-12, 0));
    EXPECT_FALSE(MeanResultantLength(-1, 1));
}

TEST(CircularStatistics, AreNoneWhenMixedSignsMakeALongResultant) {
    // 3 times north less 1 times east, over a weight of 2: the vector (-1, 3) / 2.
    EXPECT_FALSE(CircularStatistics({-1, 3, 0, 4}, 2, AngleSense::kDirected));
    // 2 times north, 2 times south less 1 times east, over 3: R1 is 1/3, R2 is 5/3.
    EXPECT_FALSE(CircularStatistics({-1, 0, 0, 5}, 3, AngleSense::kDirected));
    // All negative: north again.
    const auto north = CircularStatistics({0, -3, 0, -3}, -3, AngleSense::kDirected);
    ASSERT_TRUE(north);
    EXPECT_EQ(north->resultant[0], 1);
}

class RoseCircularStatistics : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gRoseOddAsked = false;
        NewRose(kPolarLines);
    }

    void NewRose(std::int16_t kind) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
        ActiveRecord().PlotKind = kRose;
        ActiveRecord().RoseSectorSize = 10;
    }

    static void AddRows(const std::vector<std::int32_t>& azimuths) {
        for (const std::int32_t azimuth : azimuths) {
            AddRow(0, azimuth);
        }
    }

    static void AddNumbers(const std::vector<float>& numbers) {
        ActiveRecord().HasAppendedNumeric = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        std::int32_t row = 0;
        for (const float number : numbers) {
            gAppNumeric.At(gActivePlot, ++row) = number;
        }
    }

    static void Work(int measure = kRoseFrequency) {
        ActiveRecord().RoseType = static_cast<std::int16_t>(measure);
        ASSERT_TRUE(RoseCountSectors());
        RoseCircularStats(measure);
    }
};

TEST_F(RoseCircularStatistics, OfFrequenciesGoByTheRows) {
    AddRows({10, 20, 60});
    Work();
    const PlotRecord& record = ActiveRecord();
    const std::complex<double> mean = MomentOf({pi / 18, pi / 9, pi / 3}, 1);
    EXPECT_NEAR(record.RoseMeanDir[kOfAngles], std::arg(mean), 1e-12);
    EXPECT_NEAR(record.RoseResultant[kOfAngles], std::abs(mean), 1e-12);
    EXPECT_NEAR(record.RoseMedian, pi / 9, 1e-12);
    EXPECT_NEAR(record.RoseMeanDev, (10 + 40) / 3.0 * pi / 180, 1e-12);
    EXPECT_TRUE(HasCircularStatistics(record));
    EXPECT_EQ(WeightOfStatistics(record), 3);
}

TEST_F(RoseCircularStatistics, OfAxialDataAreHalvedBack) {
    NewRose(kLines);
    AddRows({350, 10, 200}); // as axes 170, 10 and 20
    Work();
    const PlotRecord& record = ActiveRecord();
    EXPECT_NEAR(RadToDeg(record.RoseMedian), 10, 1e-9);
    EXPECT_NEAR(RadToDeg(record.RoseMeanDev), 30 / 3.0, 1e-9);
    const std::complex<double> mean = MomentOf({-pi / 18, pi / 18, pi / 9}, 2);
    EXPECT_NEAR(record.RoseMeanDir[kOfAngles], std::arg(mean) / 2, 1e-12);
    EXPECT_NEAR(record.RoseStdDev, std::sqrt(-2 * std::log(std::abs(mean))) / 2, 1e-12);
}

TEST_F(RoseCircularStatistics, OfValuesGoByTheValues) {
    AddRows({0, 90});
    AddNumbers({1, 3});
    Work(kRoseValue);
    const PlotRecord& record = ActiveRecord();
    EXPECT_NEAR(record.RoseMeanDir[kOfAngles], std::atan(3), 1e-12);
    EXPECT_NEAR(record.RoseResultant[kOfAngles], std::sqrt(10) / 4, 1e-12);
    EXPECT_EQ(WeightOfStatistics(record), 4);
}

TEST_F(RoseCircularStatistics, OfMeansAndDeviationsAreNone) {
    AddRows({10, 20, 60});
    AddNumbers({1, 2, 3});
    for (const int measure : {kRoseMeanValue, kRoseVariance}) {
        Work(kRoseValue);
        EXPECT_GT(ActiveRecord().RoseMedian, 0);
        Work(measure);
        const PlotRecord& record = ActiveRecord();
        EXPECT_EQ(record.RoseMeanDir[kOfAngles], 0);
        EXPECT_EQ(record.RoseVariance, 0);
        EXPECT_EQ(record.RoseStdDev, 0);
        EXPECT_EQ(record.RoseMedian, 0);
        EXPECT_EQ(record.RoseKappa, 0);
        EXPECT_FALSE(HasCircularStatistics(record));
    }
}

TEST_F(RoseCircularStatistics, OfBothSignsAreNoneOnceTheResultantIsTooLong) {
    AddRows({0, 90});
    AddNumbers({3, -1}); // (3, -1) over 2 is longer than 1
    Work(kRoseValue);
    const PlotRecord& record = ActiveRecord();
    EXPECT_TRUE(IsResultantTooLong(record));
    EXPECT_FALSE(HasCircularStatistics(record));
    EXPECT_EQ(record.RoseMeanDir[kOfAngles], 0);
    EXPECT_EQ(record.RoseResultant[kOfAngles], 0);
    EXPECT_EQ(record.RoseStdDev, 0);
    EXPECT_EQ(record.RoseDispersion, 0);
    EXPECT_EQ(record.RoseMedian, 0);
    AddNumbers({3, 1});
    Work(kRoseValue);
    EXPECT_FALSE(IsResultantTooLong(record));
    EXPECT_TRUE(HasCircularStatistics(record));
    EXPECT_NEAR(record.RoseResultant[kOfAngles], std::sqrt(10) / 4, 1e-12);
}

TEST_F(RoseCircularStatistics, WithoutWeightAreNone) {
    AddRows({10, 20});
    AddNumbers({2, -2});
    Work(kRoseValue);
    EXPECT_EQ(ActiveRecord().RoseMeanDir[kOfAngles], 0);
    EXPECT_EQ(ActiveRecord().RoseMedian, 0);
    EXPECT_FALSE(HasCircularStatistics(ActiveRecord()));
    EXPECT_FALSE(IsResultantTooLong(ActiveRecord()));
}

TEST_F(RoseCircularStatistics, TakeAMedianAtNorthForAFullTurn) {
    AddRows({350, 0, 10});
    Work();
    EXPECT_EQ(ActiveRecord().RoseMedian, kTwoPi);
    EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMeanDev), 20 / 3.0, 1e-9);
}

TEST_F(RoseCircularStatistics, OfAnyNumberOfDataHaveTheMedianAndAskNothing) {
    for (const int rows : {2000, 2001, 50000}) {
        NewRose(kPolarLines);
        for (int i = 0; i < rows; ++i) {
            AddRow(0, i % 3);
        }
        Work();
        EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMedian), 1, 1e-9) << rows;
        EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMeanDev), 2.0 / 3, 1e-3) << rows;
    }
    EXPECT_TRUE(prompts.Shown().empty());
}

/// A grouped row and its correction of bias.
struct GroupedRow {
    std::int32_t azimuth = 0;
    int count = 0;
};

TEST_F(RoseCircularStatistics, OfGroupedDataHaveTheMedianOfTheRowsRepeated) {
    std::mt19937 random(44);
    for (int sample = 0; sample < 200; ++sample) {
        std::vector<GroupedRow> rows;
        for (int i = 0; i < 9; ++i) {
            rows.push_back({static_cast<int>(random() % 361), static_cast<int>(random() % 6)});
        }
        rows.push_back({static_cast<int>(random() % 361), 1});
        const std::int16_t kind = sample % 2 == 0 ? kPolarLines : kLines;
        const std::int16_t bias = sample % 3 == 0 ? kHorizontalAngle : kNoBias;
        std::array<std::array<double, 3>, 2> worked{};
        for (const bool isGrouped : {true, false}) {
            NewRose(kind);
            std::vector<float> counts;
            for (const GroupedRow& row : rows) {
                AddRows(std::vector<std::int32_t>(
                    static_cast<std::size_t>(isGrouped ? 1 : row.count), row.azimuth));
                counts.push_back(static_cast<float>(row.count));
            }
            if (isGrouped) {
                AddNumbers(counts);
                ActiveRecord().HasFrequencyColumn = kTrue;
            }
            PlotRecord& record = ActiveRecord();
            record.RoseSectorSize = sample % 5 == 0 ? 40 : 30;
            record.RoseBiasMode = bias;
            record.RoseSamplePlunge = 0;
            record.RoseSampleTrend = 35;
            record.RoseMinBiasAngle = 5;
            Work();
            worked[isGrouped ? 0 : 1] = {record.RoseMedian, record.RoseMeanDev,
                                         record.RoseMeanDir[kOfAngles]};
            ReleasePlotSlot(gActivePlot);
        }
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(worked[0][i], worked[1][i], 1e-9) << sample << " value " << i;
        }
    }
}

TEST_F(RoseCircularStatistics, OfGroupedDataGoByTheRowsWhereverSectorsLie) {
    for (const double size : {30.0, 40.0, 24.0, 7.0}) {
        for (const double start : {0.0, 97.0}) {
            NewRose(kPolarLines);
            gRoseOddAsked = true;
            ActiveRecord().RoseStartAngle = start;
            ActiveRecord().RoseSectorSize = size;
            AddRows({100, 190, 100, 250});
            AddNumbers({3, 1, 6, 1});
            ActiveRecord().HasFrequencyColumn = kTrue;
            Work();
            EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMedian), 100, 1e-9);
            EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMeanDev), (90 + 150) / 11.0, 1e-9);
        }
    }
}

TEST_F(RoseCircularStatistics, OfWeightedDataHaveAWeightedMedian) {
    // Sampled along 000, 10 counts 1 / sin 10 = 5.76 and 90 counts 1: the two of 10 outweigh.
    AddRows({10, 10, 90, 90, 90});
    PlotRecord& record = ActiveRecord();
    record.RoseBiasMode = kHorizontalAngle;
    record.RoseSamplePlunge = 0;
    record.RoseSampleTrend = 0;
    record.RoseMinBiasAngle = 1;
    Work();
    EXPECT_NEAR(RadToDeg(record.RoseMedian), 10, 1e-9);
    const double weight = 1 / std::sin(pi / 18);
    EXPECT_NEAR(RadToDeg(record.RoseMeanDev), 3 * 80 / (2 * weight + 3), 1e-9);
}

TEST_F(RoseCircularStatistics, OfAnEvenSplitLieHalfWay) {
    AddRows({12, 38});
    AddNumbers({2, 2});
    ActiveRecord().HasFrequencyColumn = kTrue;
    Work();
    EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMedian), 25, 1e-9);
    EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMeanDev), 13, 1e-9);
}

TEST_F(RoseCircularStatistics, OfAxesCountedAtBothEndsCountEachOnce) {
    // Nine axes about north: the same statistics whatever the sectors.
    std::array<int, 2> worked{};
    for (const double size : {10.0, 40.0}) {
        NewRose(kLines);
        ActiveRecord().RoseSectorSize = size;
        ActiveRecord().RoseStartAngle = 340;
        AddRows({356, 357, 358, 359, 360, 1, 2, 3, 4});
        Work();
        worked[size == 10 ? 0 : 1] = gActivePlot;
    }
    const PlotRecord& tens = RecordOf(worked[0]);
    const PlotRecord& forties = RecordOf(worked[1]);
    EXPECT_EQ(tens.RoseStats[kRoseCount][kRawTotal], 9);
    EXPECT_EQ(forties.RoseStats[kRoseCount][kRawTotal], 9);
    EXPECT_EQ(forties.RoseStats[kRoseCount][kLargestSector], 9) << "all have an end in 340 to 20";
    EXPECT_EQ(tens.RoseResultant, forties.RoseResultant);
    EXPECT_EQ(tens.RoseMeanDir, forties.RoseMeanDir);
    EXPECT_EQ(tens.RoseMedian, forties.RoseMedian);
    EXPECT_EQ(forties.RoseMedian, kTwoPi);
    EXPECT_EQ(tens.RoseDispersion, forties.RoseDispersion);
}

TEST_F(RoseCircularStatistics, OfMoreDataThanAreListedHaveAMedian) {
    AddRows({12, 38});
    AddNumbers({1e8F, 1e8F});
    ActiveRecord().HasFrequencyColumn = kTrue;
    Work();
    EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMedian), 25, 1e-9);
    EXPECT_NEAR(RadToDeg(ActiveRecord().RoseMeanDir[kOfAngles]), 25, 1e-9);
}

} // namespace
} // namespace quandrel
