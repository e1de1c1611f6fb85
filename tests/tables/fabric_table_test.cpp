// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "statistics/fabric_kernels.h"
#include "statistics/reference_statistics.h"
#include "support/text_table.h"

#include <gtest/gtest.h>

#include <utility>

namespace quandrel {

namespace {

/// A line "PLUNGE/TREND", or "PLUNGE/TRENDxROWS" for one that stands for several rows.
void TakeLine(const TableRow& row, const std::string& word, WeightedDirections& lines) {
    const std::size_t slash = word.find('/');
    const std::size_t times = std::min(word.find('x'), word.size());
    const auto plunge = NumberInWord(word.substr(0, std::min(slash, word.size())));
    const auto trend = slash < times ? NumberInWord(word.substr(slash + 1, times - slash - 1))
                                     : std::optional<double>();
    const auto rows = times < word.size() ? NumberInWord(word.substr(times + 1)) : 1.0;
    if (!plunge || !trend || !rows) {
        throw TableError(row.place + ": '" + word + "' is not a line PLUNGE/TREND");
    }
    lines.directions.push_back(LineToCosines(DegToRad(*plunge), DegToRad(*trend)));
    lines.weights.push_back(*rows);
}

ReferenceStatistics StatisticsOf(const TableRow& row) {
    WeightedDirections polar;
    for (const std::string& word : WordsOf(row.input)) {
        TakeLine(row, word, polar);
    }
    WeightedDirections axes = polar;
    for (Direction& axis : axes.directions) {
        if (axis.n < 0) {
            axis = {-axis.l, -axis.m, -axis.n};
        }
    }
    const auto statistics = ReferenceStatisticsOf(axes, &polar);
    if (!statistics || !statistics->fisher) {
        throw TableError(row.place + ": there is no line");
    }
    return *statistics;
}

std::string WordOf(const std::optional<double>& number) {
    return number ? NumberWords({*number}) : "none";
}

std::string LineWords(double plunge, double trend) {
    return plunge == kNoDirection ? "none" : NumberWords({RadToDeg(plunge), RadToDeg(trend)});
}

std::string Eigenvalues(const TableRow& row) {
    const auto values = StatisticsOf(row).eigenvalues;
    return NumberWords({values[0], values[1], values[2]});
}

/// The axis of an eigenvalue, 1 least to 3 greatest.
std::string Axis(const TableRow& row) {
    const std::string number = OptionOf(row, "number", "");
    if (number != "1" && number != "2" && number != "3") {
        throw TableError(row.place + ": the number of an axis is 1, 2 or 3");
    }
    const ReferenceStatistics statistics = StatisticsOf(row);
    const auto axis = static_cast<std::size_t>(number[0] - '1');
    if (!statistics.hasAxis[axis]) {
        return "none";
    }
    double plunge = 0;
    double trend = 0;
    AxisToLine(statistics.axes[axis], plunge, trend);
    return LineWords(plunge, trend);
}

std::string MeanOfAxes(const TableRow& row) {
    const ReferenceStatistics statistics = StatisticsOf(row);
    return LineWords(statistics.axialPlunge, statistics.axialTrend);
}

std::string MeanOfPolarLines(const TableRow& row) {
    const ReferenceStatistics statistics = StatisticsOf(row);
    return LineWords(statistics.fisher->plunge, statistics.fisher->trend);
}

} // namespace

TEST(FabricTable, GivesWhatItsRowsExpect) {
    const std::map<std::string, TableOperation> operations{
        {"eigenvalues", Eigenvalues},
        {"axis", Axis},
        {"mean-of-axes", MeanOfAxes},
        {"mean-length-of-axes",
         [](const TableRow& row) { return NumberWords({StatisticsOf(row).axialResultantLength}); }},
        {"shape", [](const TableRow& row) { return WordOf(StatisticsOf(row).gamma); }},
        {"strength", [](const TableRow& row) { return WordOf(StatisticsOf(row).zeta); }},
        {"mean-of-polar-lines", MeanOfPolarLines},
        {"resultant-of-polar-lines",
         [](const TableRow& row) { return NumberWords({StatisticsOf(row).fisher->resultant}); }},
        {"fisher-kappa",
         [](const TableRow& row) { return WordOf(StatisticsOf(row).fisher->kappa); }},
    };
    const auto rows = ReadTableFile("fabric_statistics.txt");
    EXPECT_GE(rows.size(), 40U);
    EXPECT_EQ(LinesOf(TableComplaints(rows, operations)), "");
}

} // namespace quandrel
