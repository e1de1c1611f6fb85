// SPDX-License-Identifier: MIT

#include "summary/summary_results.h"

#include "orientation/direction_vectors.h"
#include "orientation/eigen.h"
#include "stereo/distinct_lines.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kTrends = 361;

template <std::size_t N>
std::array<double, N> ValuesOf(const std::array<ExactSum, N>& sums) {
    std::array<double, N> values{};
    std::transform(sums.begin(), sums.end(), values.begin(),
                   [](const ExactSum& sum) { return sum.Value(); });
    return values;
}

MomentSums SumsInUse(const RowSummary& summary) {
    return summary.Kind().isWeighted ? summary.WeightedMoments() : summary.Moments();
}

double CountInUse(const RowSummary& summary) {
    return summary.Kind().isWeighted ? summary.TotalWeight() : static_cast<double>(summary.Rows());
}

/// A resultant over a number of rows: its unit vector, if it has a direction, and R/n.
struct Mean {
    std::optional<Direction> direction;
    double length = 0;
};

Mean MeanOf(const std::array<double, 3>& sums, double count) {
    const Direction resultant = {sums[0], sums[1], sums[2]};
    const double length = LengthOf(resultant) / count;
    if (length < kLeastMeanLength) {
        return {};
    }
    return {Normalised(resultant), std::min(length, 1.0)};
}

/// The sums of sensed vectors: lower ends, less twice those of lines that point up.
std::array<double, 3> Directed(const MomentSums& sums) {
    std::array<double, 3> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        ExactSum sum = sums.downward[i];
        ExactSum::Digits up = sums.upward[i].Canonical();
        up.isNegative = !up.isNegative && !up.digits.empty();
        const ExactSum reversed = ExactSum::OfDigits(up).value();
        sum.Add(reversed);
        sum.Add(reversed);
        values[i] = sum.Value();
    }
    return values;
}

std::optional<double> KappaOf(double count, double length) {
    const double scatter = count * (1 - length);
    return count > 1 && scatter > 0 ? std::optional((count - 1) / scatter) : std::nullopt;
}

} // namespace

std::optional<SummaryFabric> FabricOf(const RowSummary& summary) {
    const double count = CountInUse(summary);
    if (!(count > 0)) {
        return std::nullopt;
    }
    const MomentSums sums = SumsInUse(summary);
    const auto [ll, mm, nn, lm, ln, mn] = ValuesOf(sums.products);
    const Matrix3 tensor = {{{ll / count, lm / count, ln / count},
                             {lm / count, mm / count, mn / count},
                             {ln / count, mn / count, nn / count}}};
    SummaryFabric fabric;
    fabric.count = count;
    fabric.axes = SortedAxes(SymmetricEigen3(tensor));
    fabric.shape = ShapeOf(fabric.axes.values);
    const Mean ofAxes = MeanOf(ValuesOf(sums.downward), count);
    fabric.meanOfAxes = ofAxes.direction;
    fabric.lengthOfAxes = ofAxes.length;
    const Mean ofDirections = MeanOf(Directed(sums), count);
    fabric.mean = ofDirections.direction;
    fabric.length = ofDirections.length;
    fabric.kappa = KappaOf(count, fabric.length);
    return fabric;
}

std::optional<SummaryCircular> CircularOf(const RowSummary& summary, bool areAxes) {
    const double count = CountInUse(summary);
    if (!(count > 0)) {
        return std::nullopt;
    }
    const std::array<double, 6> sums = ValuesOf(SumsInUse(summary).azimuths);
    // A strike is a right angle before its dip direction: a - 90, doubled 2a - 180.
    const bool isStrike = summary.IsPlane();
    const double c = areAxes ? (isStrike ? -sums[2] : sums[2]) : isStrike ? sums[1] : sums[0];
    const double s = areAxes ? (isStrike ? -sums[3] : sums[3]) : isStrike ? -sums[0] : sums[1];
    SummaryCircular circular;
    circular.count = count;
    const double length = std::hypot(c, s) / count;
    if (length < kLeastMeanLength) {
        return circular;
    }
    const double angle = std::atan2(s, c);
    const double turned = angle < 0 ? angle + kTwoPi : angle;
    circular.mean = areAxes ? turned / 2 : turned;
    circular.length = std::min(length, 1.0);
    return circular;
}

std::vector<HistogramBin> HistogramOf(const NumberSummary& numbers) {
    std::vector<HistogramBin> bins;
    for (std::size_t bin = 0; bin < numbers.bins.size(); ++bin) {
        if (numbers.bins[bin] > 0) {
            const auto [first, end] = LimitsOfBin(bin);
            bins.push_back({first, end, numbers.bins[bin]});
        }
    }
    std::sort(bins.begin(), bins.end(), [](const HistogramBin& one, const HistogramBin& other) {
        return one.first < other.first;
    });
    return bins;
}

std::vector<SummaryCell> CellsOf(const RowSummary& summary) {
    const std::vector<std::uint64_t> counts = summary.Cells();
    std::vector<SummaryCell> cells;
    for (int key = 0; key < kLineKeys; ++key) {
        const auto place = static_cast<std::size_t>(key);
        if (counts[place] > 0) {
            const double weight = summary.Kind().isWeighted ? summary.Weights()[place].Value()
                                                            : static_cast<double>(counts[place]);
            cells.push_back({key / kTrends - 90, key % kTrends, counts[place], weight});
        }
    }
    return cells;
}

} // namespace quandrel
