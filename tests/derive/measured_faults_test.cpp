// SPDX-License-Identifier: MIT

#include "derive/derived_plots.h"
#include "derive/fault_plot.h"
#include "derive/intersection_lines.h"
#include "derive/kinematic_plots.h"
#include "derive/secondary_data.h"
#include "stereo/row_sense.h"
#include "support/measured.h"

namespace quandrel {
namespace {

using namespace testing;

class MeasuredFaults : public FaultTest {
protected:
    /// A plot of measured planes, each with a secondary orientation.
    int NewMeasured(const std::vector<Attitude>& planes, const std::vector<Attitude>& others,
                    std::int16_t format = kSecondaryLine) {
        const int slot = NewFaultPlot(std::vector<FaultRow>(planes.size()), format);
        for (std::size_t i = 0; i < planes.size(); ++i) {
            const auto row = static_cast<std::int32_t>(i) + 1;
            Measure(slot, RowAngles::Primary, row, planes[i], true);
            Measure(slot, RowAngles::Secondary, row, others[i], format == kSecondaryPlane);
        }
        RebuildRowTable(slot);
        return slot;
    }

    /// Random faults with slip lines in their planes, to six decimals.
    int NewFaults(int count, unsigned int seed) {
        const std::vector<Attitude> planes = RandomAttitudes(count, 1, seed);
        std::mt19937 random(seed + 1);
        std::uniform_real_distribution<double> pitch(1, 179);
        std::vector<Attitude> lines;
        for (const Attitude& plane : planes) {
            const Vector strike = Horizontal(plane.azimuth - 90);
            const Vector dipLine = VectorOf(plane);
            const double angle = Radians(pitch(random));
            const Vector line = Sum(strike, std::cos(angle), dipLine, std::sin(angle));
            const Attitude slip{DegreesOf(std::asin(line.down)), TrendOf(line)};
            lines.push_back(
                ToMicrodegree(Attitude{random() % 2 == 0 ? slip.dip : -slip.dip, slip.azimuth}));
        }
        return NewMeasured(planes, lines);
    }

    static Vector Horizontal(double azimuth) { return LineVector(0, Radians(azimuth)); }

    static double TrendOf(const Vector& line) {
        return std::fmod(DegreesOf(std::atan2(line.east, line.north)) + 360, 360);
    }

    /// Slip lines moved into their planes, by vectors.
    static Vector SlipIn(const Vector& normal, const Attitude& line) {
        const Vector slip = VectorOf({std::abs(line.dip), line.azimuth});
        return Unit(Sum(slip, 1, normal, -Dot(slip, normal)));
    }

    static double Apart(const Attitude& line, const Vector& wanted) {
        return DegreesOf(AcuteAngleOf(VectorOf(line), wanted));
    }
};

TEST_F(MeasuredFaults, GiveMeasuredAxes) {
    constexpr int kFaults = 200;
    const int parent = NewFaults(kFaults, 3);
    const auto planes = MeasuredRowsOf(parent, RowAngles::Primary);
    const auto lines = MeasuredRowsOf(parent, RowAngles::Secondary);
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnTwoPlots));
    const int ofT = gActivePlot;
    const int ofP = ofT - 1;
    ASSERT_EQ(RecordOf(ofP).NumData, kFaults);
    const auto p = MeasuredRowsOf(ofP, RowAngles::Primary);
    const auto t = MeasuredRowsOf(ofT, RowAngles::Primary);
    for (std::size_t i = 0; i < planes.size(); ++i) {
        const Vector normal = NormalOfPlane(planes[i]);
        const Vector slip = SlipIn(normal, lines[i]);
        const double sense = lines[i].dip < 0 ? -1 : 1;
        ASSERT_LT(Apart(p[i], Sum(normal, 1, slip, sense)), 1e-6) << i;
        ASSERT_LT(Apart(t[i], Sum(normal, 1, slip, -sense)), 1e-6) << i;
        ASSERT_GE(p[i].dip, 0);
        ASSERT_LE(t[i].dip, 0);
        const auto row = static_cast<std::int32_t>(i) + 1;
        ASSERT_EQ(gDataDip(ofP, row), WholeDegree(p[i].dip)) << i;
        ASSERT_EQ(gDataAz(ofP, row), WholeDegree(p[i].azimuth) % 360) << i;
    }
}

TEST_F(MeasuredFaults, GiveAxesAnewFromWhatTheyAreThen) {
    const int parent = NewFaults(3, 8);
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot));
    const int child = gActivePlot;
    const auto before = MeasuredRowsOf(child, RowAngles::Primary);
    const Attitude slip = MeasuredAttitude(PlotOf(parent).rows, RowAngles::Secondary, 2);
    Measure(parent, RowAngles::Secondary, 2, {slip.dip * 0.999, slip.azimuth}, false);
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot));
    const auto after = MeasuredRowsOf(child, RowAngles::Primary);
    ASSERT_EQ(after.size(), 6U);
    EXPECT_EQ(after[0], before[0]);
    EXPECT_NE(after[2], before[2]);
    EXPECT_EQ(after[5], before[5]);
}

TEST_F(MeasuredFaults, OfWholeDegreesGiveDecimalsBesideTheSameWholeDegrees) {
    NewFaultPlot({{50, 90, 50, 90}, {60, 90, -60, 90}});
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot));
    EXPECT_EQ(Lines(gActivePlot),
              (std::vector<std::string>{"85/270", "-5/090", "15/090", "-75/270"}));
    for (std::int32_t row = 1; row <= 4; ++row) {
        EXPECT_FALSE(HasDecimals(ActivePlot().rows, row)) << "whole without a remainder";
    }
    NewFaultPlot({{50, 90, 38, 39}, {60, 90, -60, 90}});
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot));
    EXPECT_TRUE(HasDecimals(ActivePlot().rows, 1));
}

TEST_F(MeasuredFaults, PassOnThatTheyUseDecimals) {
    for (const std::int16_t uses : {kTrue, std::int16_t{0}}) {
        const int parent = NewFaults(5, 4);
        RecordOf(parent).UseDecimals = uses;
        ASSERT_TRUE(MakeKinematicPlots(kAxesOnTwoPlots));
        for (const int child : {gActivePlot, gActivePlot - 1}) {
            EXPECT_EQ(RecordOf(child).UseDecimals, uses);
            const RowTable& table = TableOf(child);
            for (std::size_t place = 0; place < table.size(); ++place) {
                const Attitude shown = OrientationShown(child, table.index[place]);
                EXPECT_NEAR(table.plunge[place], DegToRad(shown.dip), 1e-12);
                EXPECT_EQ(IsWhole(shown), uses == 0);
            }
        }
    }
}

TEST_F(MeasuredFaults, OfTwoPlanesMeetInMeasuredLines) {
    constexpr int kRows = 200;
    const auto first = RandomAttitudes(kRows, 1, 31);
    auto second = RandomAttitudes(kRows, 1, 32);
    second[7] = first[7]; // no line
    const int source = NewMeasured(first, second, kSecondaryPlane);
    ASSERT_TRUE(MakeIntersectionPlot());
    const int slot = gActivePlot;
    ASSERT_NE(slot, source);
    const auto lines = MeasuredRowsOf(slot, RowAngles::Primary);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == 7) {
            EXPECT_FALSE(IsKnown(OrientationShown(slot, 8)));
            EXPECT_FALSE(HasDecimals(PlotOf(slot).rows, 8));
            continue;
        }
        const Vector wanted = CrossProduct(NormalOfPlane(first[i]), NormalOfPlane(second[i]));
        ASSERT_LT(Apart(lines[i], wanted), 1e-6) << i;
        const auto row = static_cast<std::int32_t>(i) + 1;
        ASSERT_EQ(gDataDip(slot, row), WholeDegree(lines[i].dip)) << i;
    }
}

TEST_F(MeasuredFaults, LendTheirLinesToAnOverlay) {
    const int slot = NewFaults(4, 12);
    RecordOf(slot).HasAppendedLine = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
    for (std::int32_t row = 1; row <= 4; ++row) {
        Measure(slot, RowAngles::Line, row, {12.25, 100.5 + row}, false);
    }
    gActivePlot = slot;
    MakeSecondaryOverlay();
    ASSERT_EQ(RecordOf(slot).NumLoadedData, 8);
    const auto lines = MeasuredRowsOf(slot, RowAngles::Secondary);
    const auto rows = MeasuredRowsOf(slot, RowAngles::Primary);
    const auto appended = MeasuredRowsOf(slot, RowAngles::Line);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(rows[i + 4], lines[i]);
        EXPECT_EQ(appended[i + 4], appended[i]);
        const auto row = static_cast<std::int32_t>(i) + 1;
        EXPECT_EQ(WholeAttitude(PlotOf(slot).rows, RowAngles::Primary, row + 4),
                  WholeAttitude(PlotOf(slot).rows, RowAngles::Secondary, row));
    }
    Measure(slot, RowAngles::Secondary, 2, {33.3, 44.4}, false);
    SetWholeAttitude(PlotOf(slot).rows, RowAngles::Secondary, 3, {50, 60});
    RefreshSecondaryOverlay();
    EXPECT_EQ(MeasuredAttitude(PlotOf(slot).rows, RowAngles::Primary, 6), (Attitude{33.3, 44.4}));
    EXPECT_EQ(MeasuredAttitude(PlotOf(slot).rows, RowAngles::Primary, 7), (Attitude{50, 60}));
    EXPECT_FALSE(DecimalsOf(PlotOf(slot).rows, RowAngles::Primary, 7));
}

TEST_F(MeasuredFaults, HaveArrowsOfWholeDegreesUntilThePlotUsesDecimals) {
    const int whole = NewFaultPlot({{60, 90, 50, 50}});
    const float ofWhole = SlipArrowAngle(PlotOf(whole), 1);
    const int slot = NewMeasured({{60.4, 90.3}}, {{50.4, 49.6}});
    EXPECT_EQ(SlipArrowAngle(PlotOf(slot), 1), ofWhole);
    RecordOf(slot).UseDecimals = kTrue;
    EXPECT_NE(SlipArrowAngle(PlotOf(slot), 1), ofWhole);
    EXPECT_NEAR(SlipArrowAngle(PlotOf(slot), 1), ofWhole, 0.05);
}

TEST_F(MeasuredFaults, KeepTheSymbolsOfTheirWholeDegreesAndAreDrawnByTheirSense) {
    const int slot = NewMeasured({{60, 90}, {60, 90}}, {{-0.3, 100.2}, {-0.8, 100.2}});
    RecordOf(slot).UseDecimals = kTrue;
    gActivePlot = slot;
    ToggleSecondaryData();
    ASSERT_LT(OrientationShown(slot, 1).dip, 0);
    EXPECT_EQ(gDataSymbol(slot, 1), CodeOfStyleRow(kRowSymbol)) << "level in whole degrees";
    EXPECT_EQ(gDataSymbol(slot, 2), CodeOfStyleRow(kUpRowSymbol));
    EXPECT_EQ(CodeShown(PlotOf(slot), gSettings.styles, 1), CodeOfStyleRow(kUpRowSymbol));
    RecordOf(slot).UseDecimals = 0;
    EXPECT_EQ(CodeShown(PlotOf(slot), gSettings.styles, 1), CodeOfStyleRow(kRowSymbol));
    gDataSymbol.At(slot, 1) = CodeOfStyleRow(kFirstBandSymbol);
    RecordOf(slot).UseDecimals = kTrue;
    EXPECT_EQ(CodeShown(PlotOf(slot), gSettings.styles, 1), CodeOfStyleRow(kFirstBandSymbol))
        << "a style that the user gave stays";
}

} // namespace
} // namespace quandrel
