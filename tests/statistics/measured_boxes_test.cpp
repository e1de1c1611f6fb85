// SPDX-License-Identifier: MIT
//
// The printed statistics of plots with decimals, against sums in doubles written out here.

#include "core/data_format.h"
#include "core/settings_value.h"
#include "orientation/vectors.h"
#include "statistics/fabric_statistics.h"
#include "statistics/statistics_texts.h"
#include "support/measured_plots.h"
#include "support/test_platform.h"

#include <Eigen/Eigenvalues>

#include <cmath>
#include <sstream>

namespace quandrel {
namespace {

using testing::Radians;

constexpr int kRows = 3000;
constexpr double kDegree = 180 / std::numbers::pi;

/// The samples, and one that is symmetric about its axis.
std::vector<MeasuredSample> Samples() {
    std::vector<MeasuredSample> samples = MeasuredSamples(kRows);
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> unit;
    samples.push_back({"steep", {}});
    for (int i = 0; i < kRows; ++i) {
        const double fromVertical = 12 * std::sqrt(-2 * std::log(1 - 0.999 * unit(random)));
        samples[3].rows.push_back(ToMicrodegree({90 - fromVertical, 360 * unit(random)}));
    }
    return samples;
}

/// Everything that the boxes print, of lines that point down.
struct BruteForce {
    Eigen::Vector3d sum = Eigen::Vector3d::Zero();
    Eigen::Matrix3d tensor = Eigen::Matrix3d::Zero();
    Eigen::Vector3d values;
    Eigen::Matrix3d axes; ///< columns, pointing down
    double fourthMoment = 0;

    explicit BruteForce(const std::vector<Attitude>& rows) {
        for (const Attitude& row : rows) {
            sum += LineOf(row);
            tensor += LineOf(row) * LineOf(row).transpose() / kRows;
        }
        const Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solved(tensor);
        values = solved.eigenvalues();
        axes = solved.eigenvectors();
        for (Eigen::Index i = 0; i < 3; ++i) {
            axes.col(i) *= axes(2, i) < 0 ? -1 : 1;
        }
        for (const Attitude& row : rows) {
            fourthMoment += std::pow(axes.col(2).dot(LineOf(row)), 4) / kRows;
        }
    }

    static Eigen::Vector3d LineOf(const Attitude& row) {
        const double plunge = Radians(row.dip);
        const double trend = Radians(row.azimuth);
        return {std::cos(plunge) * std::cos(trend), std::cos(plunge) * std::sin(trend),
                std::sin(plunge)};
    }

    [[nodiscard]] bool IsSymmetric() const {
        const double apart = values[1] - values[0];
        return 2 * kRows * apart * apart / (1 - 2 * values[2] + fourthMoment)
               <= -2 * std::log(0.05);
    }

    [[nodiscard]] double StandardError() const {
        return std::sqrt((values[2] - fourthMoment) / kRows) / (values[2] - values[1]);
    }
};

/// Plunge and trend in degrees.
Attitude LineOf(const Eigen::Vector3d& axis) {
    return {std::asin(axis[2] / axis.norm()) * kDegree,
            std::fmod(std::atan2(axis[1], axis[0]) * kDegree + 360, 360)};
}

/// Dip and dip direction of the plane normal to an axis.
Attitude PlaneOf(const Eigen::Vector3d& axis) {
    const Attitude pole = LineOf(axis);
    return {90 - pole.dip, std::fmod(pole.azimuth + 180, 360)};
}

/// The numbers in a text, from a label on.
std::vector<double> NumbersAfter(const std::string& text, const std::string& label) {
    const std::size_t start = text.find(label);
    EXPECT_NE(start, std::string::npos) << label << " in\n" << text;
    std::string rest = text.substr(std::min(start, text.size()) + label.size());
    rest.resize(std::min(rest.find("\r\n"), rest.size()));
    for (std::size_t i = 0; i < rest.size(); ++i) {
        // A dash after a digit separates two numbers.
        const bool isDash = rest[i] == '-' && i > 0 && rest[i - 1] >= '0' && rest[i - 1] <= '9';
        if (isDash || std::string("0123456789.-").find(rest[i]) == std::string::npos) {
            rest[i] = ' ';
        }
    }
    std::istringstream words(rest);
    std::vector<double> numbers;
    for (std::string word; words >> word;) {
        if (word != "-" && word != ".") {
            numbers.push_back(std::stod(word));
        }
    }
    return numbers;
}

/// Expects printed numbers to be those of doubles to the last digit.
void ExpectPrinted(const std::string& text, const std::string& label,
                   const std::vector<double>& wanted, double lastDigit) {
    const std::vector<double> numbers = NumbersAfter(text, label);
    ASSERT_GE(numbers.size(), wanted.size()) << label << " in\n" << text;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        // The fields of the results are floats.
        EXPECT_NEAR(numbers[i], wanted[i], 0.5001 * lastDigit + 1e-6 * std::abs(wanted[i]))
            << label << " " << i;
    }
}

class MeasuredBoxes : public EngineTest {
protected:
    static void NewPlotOf(const std::vector<Attitude>& rows) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        gSettings.notation.formulas = Formulas::Textbook;
        const int slot = FindFreePlotSlot();
        gActivePlot = slot;
        ResetPlotRecord(slot);
        AddMeasuredRows(rows);
        Switch(false);
    }

    static void Switch(bool on) {
        UseDecimals(on);
        ComputeFabricStatistics();
    }

    static void ExpectNormalBox(const BruteForce& wanted, double lastDegree) {
        const std::string text = StatsBoxText();
        const auto expectPair = [&](const char* label, const Attitude& pair) {
            ExpectPrinted(text, label, {pair.dip, pair.azimuth}, lastDegree);
        };
        const double length = wanted.sum.norm() / kRows;
        ExpectPrinted(text, "No. of Data = ", {kRows}, 1e-9);
        expectPair("Mean Principal Direction = ", LineOf(wanted.axes.col(2)));
        expectPair("Mean Resultant dir'n = ", LineOf(wanted.sum));
        ExpectPrinted(text, "Mean Resultant length = ", {length}, 0.01);
        ExpectPrinted(text, "(Variance = ", {1 - length}, 0.01);
        expectPair("Calculated. girdle: ", PlaneOf(wanted.axes.col(0)));
        expectPair("Calculated beta axis: ", LineOf(wanted.axes.col(0)));
    }

    static void ExpectAdvancedBox(const BruteForce& wanted) {
        const std::string text = FabricBoxText();
        const Attitude principal = LineOf(wanted.axes.col(2));
        const Attitude plane = PlaneOf(wanted.axes.col(2));
        const Attitude mean = LineOf(wanted.sum);
        const Attitude girdle = PlaneOf(wanted.axes.col(0));
        const double length = wanted.sum.norm() / kRows;
        ExpectPrinted(text, "Principal Eigenvector: ", {principal.dip, principal.azimuth}, 0.01);
        ExpectPrinted(text, "plane dipping: ", {plane.dip, plane.azimuth}, 0.01);
        ExpectPrinted(text, "Mean Direction:  ", {mean.azimuth, mean.dip}, 0.01);
        ExpectPrinted(text, "Mean Resultant = ", {length}, 0.001);
        ExpectPrinted(text, "('Variance' = ", {1 - length}, 0.001);
        ExpectPrinted(text, "E2-E3 (girdle) plane: ", {girdle.dip, girdle.azimuth}, 0.01);
        if (wanted.IsSymmetric()) {
            const double error = wanted.StandardError();
            const double cone = std::asin(error * std::sqrt(-std::log(0.05))) * kDegree;
            ExpectPrinted(text, "Spherical standard error: ", {error}, 0.001);
            EXPECT_NEAR(static_cast<double>(ActiveRecord().FabricValueC), error, 1e-4 * error);
            ExpectPrinted(text, "95% conf. cone semi-angle: ", {cone}, 0.01);
        } else {
            EXPECT_NE(text.find("(non-symmetric distribution)"), std::string::npos) << text;
        }
        ExpectEigenLines(text, wanted);
        const double ratio12 = std::log(wanted.values[1] / wanted.values[0]);
        const double ratio23 = std::log(wanted.values[2] / wanted.values[1]);
        ExpectPrinted(text, "gamma = ", {ratio23 / ratio12}, 0.01);
        ExpectPrinted(text, "zeta   = ", {ratio12 + ratio23}, 0.01);
        ExpectPrinted(text, "(E2/E1\t|    E3/E2)\r\n", {ratio12, ratio23}, 0.01);
    }

    /// A line for each axis: its components, n times its eigenvalue, its eigenvalue.
    static void ExpectEigenLines(const std::string& text, const BruteForce& wanted) {
        std::string rest = text.substr(text.find("(Eigenvalue)"));
        for (Eigen::Index i = 0; i < 3; ++i) {
            rest = rest.substr(rest.find("\r\n") + 2);
            const Eigen::Vector3d axis = wanted.axes.col(i);
            ExpectPrinted(rest, "", {axis[0], axis[1], axis[2]}, 0.001);
            const double value = wanted.values[i];
            const std::vector<double> numbers = NumbersAfter(rest, "");
            EXPECT_NEAR(numbers.at(3), kRows * value, 0.0006 + 1e-6 * kRows * value);
            EXPECT_NEAR(numbers.at(4), value, 0.000501);
        }
    }
};

TEST_F(MeasuredBoxes, PrintTheSumsOfTheRows) {
    int symmetric = 0;
    for (const MeasuredSample& sample : Samples()) {
        SCOPED_TRACE(sample.name);
        NewPlotOf(sample.rows);
        Switch(true);
        const BruteForce wanted(sample.rows);
        symmetric += wanted.IsSymmetric() ? 1 : 0;
        ExpectNormalBox(wanted, 0.1);
        ExpectAdvancedBox(wanted);
        ReleasePlotSlot(gActivePlot);
    }
    EXPECT_GT(symmetric, 0) << "one has a standard error";
}

TEST_F(MeasuredBoxes, PrintTheSumsOfWholeDegreesWhenSwitchedOff) {
    for (const MeasuredSample& sample : Samples()) {
        SCOPED_TRACE(sample.name);
        std::vector<Attitude> whole;
        for (const Attitude& row : sample.rows) {
            whole.push_back(RoundedAttitude(row, false));
        }
        NewPlotOf(sample.rows);
        Switch(true);
        Switch(false);
        const BruteForce wanted(whole);
        ExpectNormalBox(wanted, 1);
        ExpectAdvancedBox(wanted);
        ReleasePlotSlot(gActivePlot);
    }
}

TEST_F(MeasuredBoxes, AreByteForByteThoseOfTheRoundedFileWhenSwitchedOff) {
    for (const MeasuredSample& sample : Samples()) {
        SCOPED_TRACE(sample.name);
        std::vector<Attitude> whole;
        for (const Attitude& row : sample.rows) {
            whole.push_back(RoundedAttitude(row, false));
        }
        for (const Formulas formulas : {Formulas::Own, Formulas::Textbook}) {
            gSettings.notation.formulas = formulas;
            NewPlotOf(whole);
            gSettings.notation.formulas = formulas;
            Switch(false);
            ASSERT_EQ(CountRowsWithDecimals(ActivePlot().rows, 1, kRows), 0);
            const std::string normal = StatsBoxText();
            const std::string advanced = FabricBoxText();
            ReleasePlotSlot(gActivePlot);
            NewPlotOf(sample.rows);
            gSettings.notation.formulas = formulas;
            Switch(true);
            EXPECT_NE(FabricBoxText(), advanced);
            Switch(false);
            EXPECT_EQ(StatsBoxText(), normal);
            EXPECT_EQ(FabricBoxText(), advanced);
            ReleasePlotSlot(gActivePlot);
        }
    }
}

} // namespace
} // namespace quandrel
