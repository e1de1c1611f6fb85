// SPDX-License-Identifier: MIT
//
// The list of reference numbers beside the texts of the same plots.

#include "core/formulas.h"
#include "core/plot_store.h"
#include "orientation/number_text.h"
#include "orientation/vectors.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"
#include "statistics/reference_entries.h"
#include "statistics/statistics_texts.h"
#include "stereo/row_positions.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <Eigen/Eigenvalues>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace quandrel {
namespace {

using testing::Radians;

constexpr unsigned kSeed = 1987;

struct Line {
    int plunge;
    int trend;
};

using Rows = std::vector<Line>;

// Tensor diag(1/8, 1/4, 5/8).
const Rows kFourLines = {{60, 0}, {60, 180}, {90, 0}, {0, 90}};

class ReferenceEntriesOfPlot : public EngineTest {
protected:
    /// The entries of a new plot with these rows.
    std::vector<ReferenceLine> EntriesOf(std::int16_t kind, const Rows& rows) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kind;
        MakeStoreTables();
        NewPlot();
        for (const Line& row : rows) {
            AddRow(row.plunge, row.trend);
        }
        ComputeFabricStatistics();
        return EntriesOfPlot();
    }

    static std::vector<ReferenceLine> EntriesOfPlot() {
        return ReferenceEntries(*ReferenceStatisticsOfActivePlot(), ActiveRecord());
    }

    static ReferenceLine EntryOf(const std::vector<ReferenceLine>& entries, std::string_view name) {
        const auto found =
            std::find_if(entries.begin(), entries.end(),
                         [name](const ReferenceLine& entry) { return entry.name == name; });
        if (found == entries.end()) {
            ADD_FAILURE() << "no entry '" << name << "'";
            return {};
        }
        return *found;
    }

    static bool HasEntry(const std::vector<ReferenceLine>& entries, std::string_view name) {
        return std::any_of(entries.begin(), entries.end(),
                           [name](const ReferenceLine& entry) { return entry.name == name; });
    }
};

TEST_F(ReferenceEntriesOfPlot, TellWhatThePlotHas) {
    const auto entries = EntriesOf(kLines, kFourLines);

    struct Case {
        const char* name;
        double value;
    };

    const std::vector<Case> cases = {
        {"n", 4},
        {"eigenvalue 3", 0.625},
        {"n x eigenvalue 3", 2.5},
        {"axis 3 down", 1},
        {"axis 2 trend", 90},
        {"axis 3 plunge", 90},
        {"girdle dip direction", 180},
        {"plane normal to axis 3, dip", 0},
        {"ln(E2/E1)", std::log(2.0)},
        {"fourth moment", 0.53125},
        {"symmetry statistic, 1 - 2 E3 + m4", 0.125 / 0.28125},
        {"axial mean trend", 90},
        {"axial R/n", std::sqrt(5 + 2 * std::sqrt(3.0)) / 4},
    };
    for (const Case& c : cases) {
        const ReferenceLine entry = EntryOf(entries, c.name);
        ASSERT_TRUE(entry.value) << c.name;
        EXPECT_NEAR(*entry.value, c.value, 1e-9) << c.name;
        EXPECT_EQ(entry.printed, "") << c.name;
    }
    EXPECT_FALSE(HasEntry(entries, "Fisher R"));
    EXPECT_TRUE(HasEntry(EntriesOf(kPolarLines, kFourLines), "Fisher R"));
}

TEST_F(ReferenceEntriesOfPlot, TheJudgementIsTheOneThatThePlotHas) {
    const auto entries = EntriesOf(kLines, kFourLines);
    const ReferenceLine judgement =
        EntryOf(entries, "symmetry statistic, 1 - E3 + m4 (printed judgement)");
    EXPECT_EQ(static_cast<float>(*judgement.value),
              ActiveRecord().EigenResults[kSymmetryStatistic][kLogRatio]);
    EXPECT_NEAR(*judgement.value, 0.125 / 0.90625, 1e-7);
    // Of two equal axes the plot has taken one, and judges by that: 2 n (1/2)^2 / (1 - 1/2 + 1/2).
    const auto tied = EntriesOf(kLines, {{0, 0}, {0, 90}, {0, 0}, {0, 90}});
    EXPECT_EQ(EntryOf(tied, "symmetry statistic, 1 - E3 + m4 (printed judgement)").value, 2);
    EXPECT_FALSE(EntryOf(tied, "symmetry statistic, 1 - 2 E3 + m4").value);
}

TEST_F(ReferenceEntriesOfPlot, TheJudgementOfRowsOfOneLineHasNoRounding) {
    const auto entries = EntriesOf(kLines, {{10, 20}});
    EXPECT_EQ(EntryOf(entries, "symmetry statistic, 1 - E3 + m4 (printed judgement)").value, 0);
    EXPECT_EQ(EntryOf(entries, "eigenvalue 1").value, 0);
}

TEST_F(ReferenceEntriesOfPlot, AxesOfEqualEigenvaluesAreUndetermined) {
    const auto entries = EntriesOf(kLines, {{0, 0}, {0, 90}});
    for (const char* const name : {"axis 2 north", "axis 2 plunge", "axis 3 trend",
                                   "plane normal to axis 3, dip", "ln(E3/E2)", "fourth moment"}) {
        EXPECT_FALSE(EntryOf(entries, name).value) << name;
    }
    EXPECT_EQ(EntryOf(entries, "axis 1 plunge").value, 90);
    EXPECT_EQ(EntryOf(entries, "girdle dip").value, 0);
    EXPECT_EQ(EntryOf(entries, "ln(E3/E2)").printed, "0.00");
    EXPECT_EQ(EntryOf(entries, "zeta").printed, "99999.00");
    const std::string text = TextOfReference(entries);
    EXPECT_NE(text.find("\naxis 2 plunge = undetermined\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nln(E3/E2) = undetermined (printed 0.00)\n"), std::string::npos) << text;
}

TEST_F(ReferenceEntriesOfPlot, ADistributionThatIsJudgedUnsymmetricIsToldInWords) {
    Rows rows;
    for (int i = 0; i < 20; ++i) {
        rows.insert(rows.end(), {{90, 0}, {90, 0}, {80, 0}, {0, 90}});
    }
    const auto entries = EntriesOf(kLines, rows);
    const ReferenceLine error = EntryOf(entries, "spherical standard error");
    EXPECT_TRUE(error.value);
    EXPECT_EQ(error.printed, "non-symmetric distribution");
}

TEST_F(ReferenceEntriesOfPlot, TheRoundedFactorOfTheConeShowsWhereItDoes) {
    // Three lines about the vertical, s = sin^2 70: E3 = s, E2 = (1 - s) / 2, m4 = s^2.
    const auto entries = EntriesOf(kLines, {{70, 0}, {70, 120}, {70, 240}});
    const double s = std::pow(std::sin(Radians(70)), 2);
    const double error = std::sqrt((s - s * s) / 3) / (s - (1 - s) / 2);
    const double exact = std::asin(std::sqrt(-std::log(0.05)) * error) / Radians(1);
    const double rounded = std::asin(1.731 * error) / Radians(1);
    const ReferenceLine cone = EntryOf(entries, "95% cone semi-angle");
    EXPECT_NEAR(*cone.value, exact, 1e-9);
    EXPECT_NE(FormatNumber(exact, "0.00"), FormatNumber(rounded, "0.00"));
    EXPECT_EQ(cone.printed, FormatNumber(rounded, "0.00"));
    EXPECT_NE(FabricBoxText().find("semi-angle: " + cone.printed + "°"), std::string::npos);
}

/// A column of a 32-bit float cannot hold the three decimals of a great n times an eigenvalue.
TEST_F(ReferenceEntriesOfPlot, AMillionRowsShowTheWidthOfTheTable) {
    constexpr std::int32_t kRows = 1000000;
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kLines;
    NewPlot();
    PlotRecord& record = ActiveRecord();
    record.NumData = record.NumValidData = record.NumLoadedData = kRows;
    int secondary = 0;
    GrowDataColumns(secondary, kRows);
    std::mt19937 random(kSeed);
    std::normal_distribution<double> plunges(40, 12);
    std::normal_distribution<double> trends(150, 25);
    Eigen::Matrix3d tensor = Eigen::Matrix3d::Zero();
    for (std::int32_t row = 1; row <= kRows; ++row) {
        const auto plunge = static_cast<int>(std::clamp(plunges(random), 0.0, 90.0));
        const auto trend = static_cast<int>(std::clamp(trends(random), 0.0, 359.0));
        gDataDip.At(gActivePlot, row) = plunge;
        gDataAz.At(gActivePlot, row) = trend;
        const testing::Vector line = testing::LineVector(Radians(plunge), Radians(trend));
        const Eigen::Vector3d axis(line.north, line.east, line.down);
        tensor += axis * axis.transpose();
    }
    RebuildRowTable(gActivePlot);
    ComputeFabricStatistics();
    const Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> other(tensor);
    const auto entries = EntriesOfPlot();
    const std::string text = FabricBoxText();
    int differing = 0;
    for (int i = 0; i < 3; ++i) {
        const ReferenceLine entry = EntryOf(entries, "n x eigenvalue " + std::to_string(i + 1));
        EXPECT_NEAR(*entry.value, other.eigenvalues()[i], 1e-4) << "seed " << kSeed;
        const std::string full = FormatNumber(*entry.value, "0.000");
        const std::string& shown = entry.printed.empty() ? full : entry.printed;
        EXPECT_NE(text.find("\t" + shown + " ("), std::string::npos) << shown << " in\n" << text;
        differing += entry.printed.empty() ? 0 : 1;
    }
    EXPECT_GT(differing, 0);
    EXPECT_EQ(EntryOf(entries, "eigenvalue 3").printed, "") << "three decimals of it are right";
}

TEST_F(ReferenceEntriesOfPlot, ANumberInTwoFormatsTellsBothTexts) {
    EntriesOf(kLines, kFourLines);
    PlotRecord& record = ActiveRecord();
    record.RoseResultant[kOfAngles] = 0.5;
    EXPECT_EQ(EntryOf(EntriesOfPlot(), "axial R/n").printed, "0.500, 0.50");
    record.RoseResultant[kOfAngles] = 0.7274;
    EXPECT_EQ(EntryOf(EntriesOfPlot(), "axial R/n").printed, "") << "0.72734 in both formats";
    record.FabricValueB = static_cast<float>(Radians(90.3));
    EXPECT_EQ(EntryOf(EntriesOfPlot(), "axial mean trend").printed, "90.30");
}

TEST_F(ReferenceEntriesOfPlot, AMeanWithoutDirectionIsUndetermined) {
    const auto entries = EntriesOf(kPolarLines, {{30, 10}, {-30, 10}});
    EXPECT_FALSE(EntryOf(entries, "Fisher mean plunge").value);
    EXPECT_EQ(EntryOf(entries, "Fisher mean plunge").printed, "") << "undetermined there too";
    EXPECT_EQ(EntryOf(entries, "Fisher R").value, 0);
}

TEST_F(ReferenceEntriesOfPlot, TakeTheTextsOfTheFormulasInForce) {
    EXPECT_EQ(EntryOf(EntriesOf(kLines, {{40, 200}}), "gamma").printed, "99999.00");
    EXPECT_EQ(EntryOf(EntriesOf(kLines, {{40, 200}}), "girdle dip").printed, "");
    gSettings.notation.formulas = Formulas::Textbook;
    const auto one = EntriesOf(kLines, {{40, 200}});
    EXPECT_FALSE(EntryOf(one, "gamma").value);
    EXPECT_EQ(EntryOf(one, "gamma").printed, "");
    EXPECT_EQ(EntryOf(one, "spherical standard error").printed, "");
    const auto entries = EntriesOf(kLines, kFourLines);
    EXPECT_TRUE(HasEntry(entries, "symmetry statistic, 1 - 2 E3 + m4 (printed judgement)"));
    EXPECT_TRUE(HasEntry(entries, "symmetry statistic, 1 - E3 + m4"));
    EXPECT_EQ(EntryOf(entries, "95% cone semi-angle").printed, "") << "the full factor";
}

TEST(ReferenceText, WritesAllDigitsInfinityAndWhatIsUndetermined) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(TextOfReference({{"a", 0.1, ""},
                               {"b", infinite, ""},
                               {"c", infinite, "7.00"},
                               {"d", std::nullopt, ""},
                               {"e", std::nullopt, "99999.00"},
                               {"f", 1.0 / 3, "0.334"}}),
              "a = 0.1\nb = inf\nc = inf (printed 7.00)\nd = undetermined\n"
              "e = undetermined (printed 99999.00)\nf = 0.3333333333333333 (printed 0.334)\n");
}

} // namespace
} // namespace quandrel
