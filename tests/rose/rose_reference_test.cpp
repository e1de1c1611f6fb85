// SPDX-License-Identifier: MIT

#include "core/formulas.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "rose/circular_statistics.h"
#include "rose/rose_confidence.h"
#include "rose/rose_plot.h"
#include "rose/rose_radii.h"
#include "rose/rose_reference.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quandrel {
namespace {

class RoseReference : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gRoseOddAsked = false;
    }

    void NewRose(std::int16_t kind, const std::vector<std::int32_t>& azimuths) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
        ActiveRecord().PlotKind = kRose;
        ActiveRecord().RoseSectorSize = 10;
        for (const std::int32_t azimuth : azimuths) {
            AddRow(0, azimuth);
        }
    }

    static std::vector<ReferenceLine> Work() {
        EXPECT_TRUE(RoseCountSectors());
        RoseCircularStats(MeasureOfRose(ActiveRecord().RoseType));
        const auto reference = RoseReferenceOf(ActivePlot());
        return reference ? RoseReferenceLines(*reference, ActivePlot(), gSettings.notation.formulas)
                         : std::vector<ReferenceLine>();
    }

    static std::optional<ReferenceLine> Find(const std::vector<ReferenceLine>& lines,
                                             std::string_view name) {
        const auto found =
            std::find_if(lines.begin(), lines.end(),
                         [name](const ReferenceLine& line) { return line.name == name; });
        return found != lines.end() ? std::optional(*found) : std::nullopt;
    }

    static void ExpectLine(const std::vector<ReferenceLine>& lines, std::string_view name,
                           double value, const std::string& printed) {
        const auto line = Find(lines, name);
        ASSERT_TRUE(line && line->value) << name;
        EXPECT_NEAR(*line->value, value, 1e-9) << name;
        EXPECT_EQ(line->printed, printed) << name;
    }
};

TEST_F(RoseReference, SaysWherePrintedNumbersLean) {
    NewRose(kPolarLines, {90, 90, 80, 100, 70, 110});
    const auto lines = Work();
    const double r1 = (2 + 2 * std::cos(DegToRad(10)) + 2 * std::cos(DegToRad(20))) / 6;
    ExpectLine(lines, "n", 6, "");
    ExpectLine(lines, "mean direction", 90, "180.0");
    ExpectLine(lines, "mean resultant length R1", r1, "");
    ExpectLine(lines, "circular variance", 1 - r1, "");
    ExpectLine(lines, "circular standard deviation", RadToDeg(std::sqrt(-2 * std::log(r1))), "");
    const auto kappa = Find(lines, "kappa, maximum likelihood");
    ASSERT_TRUE(kappa);
    EXPECT_NEAR(VonMisesLength(*kappa->value), r1, 1e-12);
    EXPECT_FALSE(kappa->printed.empty());
    const auto corrected = Find(lines, "kappa, corrected for small samples");
    ASSERT_TRUE(corrected);
    EXPECT_NEAR(*corrected->value, 125 * *kappa->value / 222, 1e-9);
    EXPECT_TRUE(Find(lines, "Rayleigh p"));
    EXPECT_TRUE(Find(lines, "Kuiper p"));
}

TEST_F(RoseReference, TakesAFullTurnForNorth) {
    NewRose(kPolarLines, {0, 0, 0});
    const auto lines = Work();
    EXPECT_EQ(ActiveRecord().RoseMeanDir[kOfAngles], kTwoPi);
    ExpectLine(lines, "mean direction", 0, "");
    ExpectLine(lines, "median of least mean deviation", 0, "");
    const auto kappa = Find(lines, "kappa, maximum likelihood");
    ASSERT_TRUE(kappa);
    EXPECT_TRUE(std::isinf(*kappa->value));
    EXPECT_EQ(kappa->printed, "0.00");
    const auto skewness = Find(lines, "circular skewness");
    ASSERT_TRUE(skewness);
    EXPECT_FALSE(skewness->value);
    EXPECT_EQ(skewness->printed, "0.00");
}

TEST_F(RoseReference, HasThePrintedTextsOfTheFormulasInForce) {
    NewRose(kPolarLines, {0, 0, 0});
    gSettings.notation.formulas = Formulas::Textbook;
    const auto equal = Work();
    EXPECT_EQ(Find(equal, "kappa, maximum likelihood")->printed, "");
    EXPECT_EQ(Find(equal, "circular skewness")->printed, "");
    NewRose(kPolarLines, {20, 40, 60, 150, 240});
    ExpectLine(Work(), "median of least mean deviation", 40, "");
    gSettings.notation.formulas = Formulas::Own;
    ExpectLine(Work(), "median of least mean deviation", 40, "60.0");
}

TEST_F(RoseReference, OfOppositeRowsHasWhatTheTextsLeaveOpen) {
    NewRose(kPolarLines, {20, 200});
    const auto lines = Work();
    EXPECT_FALSE(Find(lines, "mean direction")->value);
    EXPECT_EQ(Find(lines, "mean direction")->printed, "");
    EXPECT_EQ(Find(lines, "median of least mean deviation")->printed, "undetermined");
    EXPECT_FALSE(Find(lines, "95% bootstrap half-width"));
    NewRose(kPolarLines, {20, 32, 10, 41, 28, 35});
    const auto half = Find(Work(), "95% bootstrap half-width");
    ASSERT_TRUE(half && half->value);
    EXPECT_NEAR(*half->value * kPi / 180, *RoseConfidenceOf(ActivePlot(), Formulas::Own)->halfWidth,
                1e-12);
}

TEST_F(RoseReference, TakesOppositeEndsOfAnAxisForOne) {
    NewRose(kLines, {0, 180, 350, 10});
    const auto lines = Work();
    const auto mean = Find(lines, "mean direction");
    ASSERT_TRUE(mean);
    EXPECT_NEAR(std::remainder(*mean->value, 180), 0, 1e-9);
    EXPECT_EQ(mean->printed, "");
    EXPECT_EQ(Find(lines, "median of least mean deviation")->printed, "");
}

TEST_F(RoseReference, HasTheMedianOfManyData) {
    std::vector<std::int32_t> azimuths;
    for (int i = 0; i < 2001; ++i) {
        azimuths.push_back(40 + i % 3);
    }
    NewRose(kPolarLines, azimuths);
    ExpectLine(Work(), "median of least mean deviation", 41, "");
}

TEST_F(RoseReference, OfValuesIsWeighedByThem) {
    NewRose(kPolarLines, {0, 90});
    PlotRecord& record = ActiveRecord();
    record.RoseType = kRoseValue;
    record.HasAppendedNumeric = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    gAppNumeric.At(gActivePlot, 1) = 3;
    gAppNumeric.At(gActivePlot, 2) = 4;
    const auto lines = Work();
    ExpectLine(lines, "mean direction", RadToDeg(std::atan2(4, 3)), "");
    ExpectLine(lines, "mean resultant length R1", 5.0 / 7, "");
    ExpectLine(lines, "Rayleigh n R^2", 1, ""); // of the two directions
}

TEST_F(RoseReference, OfValuesOfBothSignsIsNone) {
    NewRose(kPolarLines, {0, 90});
    PlotRecord& record = ActiveRecord();
    record.RoseType = kRoseValue;
    record.HasAppendedNumeric = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    gAppNumeric.At(gActivePlot, 1) = 3;
    gAppNumeric.At(gActivePlot, 2) = -1;
    EXPECT_TRUE(Work().empty());
}

TEST_F(RoseReference, HasNoIntervalWhereThePrintedOneIsARightAngle) {
    std::vector<std::int32_t> azimuths = {1, 2}; // a weak mean of thirty-eight directions
    for (int i = 0; i < 36; ++i) {
        azimuths.push_back(i * 10);
    }
    NewRose(kPolarLines, azimuths);
    const auto line = Find(Work(), "95% confidence half-width");
    ASSERT_TRUE(line);
    EXPECT_FALSE(line->value);
    EXPECT_EQ(line->printed, "90.0");
}

TEST_F(RoseReference, IsOfRosesWithStatisticsAlone) {
    NewRose(kPolarLines, {10, 20});
    EXPECT_FALSE(Work().empty());
    ActiveRecord().PlotKind = kEqualArea;
    EXPECT_FALSE(RoseReferenceOf(ActivePlot()));
    ActiveRecord().PlotKind = kRose;
    ActiveRecord().RoseType = kRoseMeanValue;
    EXPECT_FALSE(RoseReferenceOf(ActivePlot()));
    ActiveRecord().RoseType = kRoseFrequency;
    EXPECT_TRUE(RoseReferenceOf(ActivePlot()));
    ActiveRose().isCounted = false;
    EXPECT_FALSE(RoseReferenceOf(ActivePlot()));
}

} // namespace
} // namespace quandrel
