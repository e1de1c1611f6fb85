// SPDX-License-Identifier: MIT

#include "rose/circular_reference.h"

#include "orientation/angles.h"
#include "orientation/concentration.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace quandrel {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kHalfTurn = std::numbers::pi;

/// Angles closer to a full turn count as a full turn.
constexpr double kRounding = 1e-12;

/// Mean distances that differ by less are equal.
constexpr double kEqualDeviations = 1e-11;

/// 97.5 % quantile of the normal distribution.
constexpr double kNormalQuantile = 1.959963984540054;

/// Samples up to this size need a correction of kappa.
constexpr double kSmallestLargeSample = 16;

double InTurn(double angle) {
    const double within = std::fmod(angle, kTurn);
    const double positive = within < 0 ? within + kTurn : within;
    // Just below a full turn is north; in degrees it would print as 360 or more.
    return positive < kTurn - kRounding ? positive : 0;
}

double DistanceBetween(double a, double b) {
    return kHalfTurn - std::abs(kHalfTurn - InTurn(a - b));
}

std::vector<double> SortedTurn(std::span<const double> angles) {
    std::vector<double> sorted(angles.size());
    std::transform(angles.begin(), angles.end(), sorted.begin(), InTurn);
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

/// The groups with a positive count, ascending.
std::vector<AngleCount> SortedGroups(std::span<const AngleCount> groups) {
    std::vector<AngleCount> sorted;
    for (const auto& [angle, count] : groups) {
        if (count > 0) {
            sorted.push_back({InTurn(angle), count});
        }
    }
    std::sort(sorted.begin(), sorted.end(),
              [](const AngleCount& a, const AngleCount& b) { return a.angle < b.angle; });
    return sorted;
}

/// Mean distance of the angles from any direction, in O(log n) each.
class MeanDistances {
public:
    /// @param groups  ascending from 0, below a full turn
    explicit MeanDistances(std::span<const AngleCount> groups) {
        for (const auto& [angle, count] : groups) {
            if (angles_.empty() || angle > angles_.back()) {
                angles_.push_back(angle);
                counts_.push_back(0);
            }
            counts_.back() += count;
            total_ += count;
        }
        SumUp();
    }

    /// The distinct angles, ascending.
    [[nodiscard]] std::span<const double> Angles() const { return angles_; }

    [[nodiscard]] double From(double direction) const {
        // Half a turn to either side, within two turns. Each angle is included once: an angle
        // opposite to the direction must not be lost or counted twice by rounding.
        const double turned = InTurn(direction);
        const double middle = turned < kHalfTurn ? turned + kTurn : turned;
        const std::size_t from = PlaceOf(middle - kHalfTurn);
        const Sums& first = sums_[from];
        const Sums& centre = sums_[PlaceOf(middle)];
        const Sums& last = sums_[from + angles_.size()];
        const double behind = middle * (centre.count - first.count) - (centre.angle - first.angle);
        const double ahead = last.angle - centre.angle - middle * (last.count - centre.count);
        return (behind + ahead) / total_;
    }

private:
    struct Sums {
        double count = 0;
        double angle = 0;
    };

    void SumUp() {
        Sums sums;
        sums_.push_back(sums);
        for (std::size_t i = 0; i < 2 * angles_.size(); ++i) {
            const std::size_t place = i % angles_.size();
            const double angle = angles_[place] + (i < angles_.size() ? 0 : kTurn);
            turns_.push_back(angle);
            sums.count += counts_[place];
            sums.angle += counts_[place] * angle;
            sums_.push_back(sums);
        }
    }

    /// The number of angles in two turns that are below a value.
    [[nodiscard]] std::size_t PlaceOf(double angle) const {
        const auto found = std::lower_bound(turns_.begin(), turns_.end(), angle);
        return static_cast<std::size_t>(found - turns_.begin());
    }

    std::vector<double> angles_;
    std::vector<double> counts_;
    std::vector<double> turns_; ///< the angles in two turns
    std::vector<Sums> sums_;    ///< [i] of the first i of these
    double total_ = 0;
};

/// The directions of least mean distance: angles, and midpoints where all directions between are.
std::vector<double> LeastDirections(const MeanDistances& distances) {
    const std::span<const double> angles = distances.Angles();
    double least = std::numeric_limits<double>::infinity();
    for (const double angle : angles) {
        least = std::min(least, distances.From(angle));
    }
    const auto isLeast = [&distances, least](double direction) {
        return distances.From(direction) <= least + kEqualDeviations;
    };
    std::vector<double> found;
    std::vector<bool> isEnd(angles.size());
    for (std::size_t i = 0; i < angles.size() && angles.size() > 1; ++i) {
        const std::size_t next = (i + 1) % angles.size();
        const double middle = InTurn(angles[i] + InTurn(angles[next] - angles[i]) / 2);
        if (isLeast(angles[i]) && isLeast(angles[next]) && isLeast(middle)) {
            found.push_back(middle);
            isEnd[i] = isEnd[next] = true;
        }
    }
    for (std::size_t i = 0; i < angles.size(); ++i) {
        if (!isEnd[i] && isLeast(angles[i])) {
            found.push_back(angles[i]);
        }
    }
    return found;
}

/// The quotient of the asymptotic series of both functions for large arguments.
double LargeVonMisesLength(double kappa) {
    const double x = 1 / kappa;
    return 1 - x * (1.0 / 2 + x * (1.0 / 8 + x * (1.0 / 8 + x * (25.0 / 128))));
}

double ClampedProbability(double value) {
    return std::clamp(value, 0.0, 1.0);
}

double KuiperProbability(double statistic) {
    // Below this the series is 1 to more digits than a double has.
    if (statistic < 0.4) {
        return 1;
    }
    double sum = 0;
    for (int j = 1; j <= 100; ++j) {
        const double square = j * j * statistic * statistic;
        sum += 2 * (4 * square - 1) * std::exp(-2 * square);
    }
    return ClampedProbability(sum);
}

/// False when a resultant is longer than 1.
[[nodiscard]] bool FindMoments(CircularReference& result, const CircularSample& sample) {
    const auto [sine1, cosine1, sine2, cosine2] = sample.sums;
    // A negative weight reverses the vector.
    const double theta1 = std::atan2(sine1 / sample.weight, cosine1 / sample.weight);
    const double theta2 = std::atan2(sine2 / sample.weight, cosine2 / sample.weight);
    const auto first = MeanResultantLength(cosine1 / sample.weight, sine1 / sample.weight);
    const auto second = MeanResultantLength(cosine2 / sample.weight, sine2 / sample.weight);
    if (!first || !second) {
        return false;
    }
    const double r1 = *first;
    const double r2 = *second;
    const bool isAxial = sample.sense == AngleSense::kAxial;
    result.resultant = {r1, r2};
    result.variance = isAxial ? 1 - std::pow(r1, 0.25) : 1 - r1;
    if (r1 > 0) {
        const double mean = InTurn(theta1);
        result.meanDirection = isAxial ? mean / 2 : mean;
        result.standardDeviation = std::sqrt(-2 * std::log(r1)) / (isAxial ? 2 : 1);
        result.dispersion = (1 - r2) / (2 * r1 * r1);
    }
    if (r1 > 0 && r1 < 1) {
        const double difference = theta2 - 2 * theta1;
        result.skewness = r2 * std::sin(difference) / std::pow(1 - r1, 1.5);
        result.kurtosis = (r2 * std::cos(difference) - std::pow(r1, 4)) / std::pow(1 - r1, 2);
    }
    return true;
}

void FindPrecision(CircularReference& result, AngleSense sense) {
    const double r1 = result.resultant[kOfAngles];
    result.kappa = r1 < 1 ? VonMisesKappa(r1) : std::numeric_limits<double>::infinity();
    result.correctedKappa = CorrectedKappa(result.kappa, result.count);
    if (!result.dispersion || result.count <= 0) {
        return;
    }
    result.standardError = std::sqrt(*result.dispersion / result.count);
    const double sine = kNormalQuantile * *result.standardError;
    if (sine <= 1) {
        result.confidenceHalfWidth = std::asin(sine) / (sense == AngleSense::kAxial ? 2 : 1);
    }
}

/// @param angles  doubled for axial data
void FindTests(CircularReference& result, std::span<const double> angles) {
    double sine = 0;
    double cosine = 0;
    for (const double angle : angles) {
        sine += std::sin(angle);
        cosine += std::cos(angle);
    }
    const auto n = static_cast<double>(angles.size());
    result.rayleigh = RayleighTest(n, MeanResultantLength(cosine / n, sine / n).value_or(1));
    result.kuiper = KuiperTest(angles);
}

} // namespace

double VonMisesLength(double kappa) {
    if (kappa <= 0) {
        return 0;
    }
    if (kappa > 500) {
        return LargeVonMisesLength(kappa);
    }
    // I(n) / I(n-1) = 1 / (2 n / kappa + I(n+1) / I(n)); far above kappa any start value will do.
    double ratio = 0;
    for (int n = static_cast<int>(kappa) + 60; n >= 1; --n) {
        ratio = 1 / (2 * n / kappa + ratio);
    }
    return ratio;
}

double VonMisesKappa(double meanLength) {
    return ConcentrationOf(VonMisesLength, meanLength);
}

double CorrectedKappa(double kappa, double n) {
    if (n >= kSmallestLargeSample || std::isinf(kappa)) {
        return kappa;
    }
    if (kappa < 2) {
        return kappa > 0 ? std::max(kappa - 2 / (n * kappa), 0.0) : 0;
    }
    return std::pow(n - 1, 3) * kappa / (n * n * n + n);
}

UniformityTest RayleighTest(double n, double meanLength) {
    const double z = n * meanLength * meanLength;
    const double first = (2 * z - z * z) / (4 * n);
    const double second =
        (24 * z - 132 * z * z + 76 * std::pow(z, 3) - 9 * std::pow(z, 4)) / (288 * n * n);
    return {z, ClampedProbability(std::exp(-z) * (1 + first - second))};
}

KuiperResult KuiperTest(std::span<const double> angles) {
    const std::vector<double> sorted = SortedTurn(angles);
    const auto n = static_cast<double>(sorted.size());
    double above = 0;
    double below = 0;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        const double uniform = sorted[i] / kTurn;
        above = std::max(above, static_cast<double>(i + 1) / n - uniform);
        below = std::max(below, uniform - static_cast<double>(i) / n);
    }
    const double range = above + below;
    const double statistic = range * (std::sqrt(n) + 0.155 + 0.24 / std::sqrt(n));
    return {range, {statistic, KuiperProbability(statistic)}};
}

LeastDeviation MedianOfLeastDeviation(std::span<const double> angles,
                                      std::optional<double> meanDirection) {
    std::vector<AngleCount> groups;
    groups.reserve(angles.size());
    for (const double angle : angles) {
        groups.push_back({angle, 1});
    }
    return MedianOfLeastDeviation(groups, meanDirection);
}

LeastDeviation MedianOfLeastDeviation(std::span<const AngleCount> groups,
                                      std::optional<double> meanDirection) {
    const MeanDistances distances(SortedGroups(groups));
    const std::vector<double> found = LeastDirections(distances);
    double median = found.front();
    for (const double direction : found) {
        if (meanDirection
            && DistanceBetween(direction, *meanDirection)
                   < DistanceBetween(median, *meanDirection)) {
            median = direction;
        }
    }
    return {median, distances.From(median)};
}

LeastDeviation TextbookMedian(std::span<const AngleCount> groups, double meanDirection,
                              AngleSense sense) {
    const double factor = sense == AngleSense::kAxial ? 2 : 1;
    std::vector<AngleCount> worked;
    for (const auto& [angle, count] : groups) {
        if (count > 0) {
            worked.push_back({factor * angle, count});
        }
    }
    if (worked.empty()) {
        return {};
    }
    LeastDeviation least = MedianOfLeastDeviation(worked, factor * meanDirection);
    least.median = least.median > 0 ? least.median / factor : kTwoPi;
    least.deviation /= factor;
    return least;
}

std::optional<CircularReference> ComputeCircularReference(const CircularSample& sample) {
    if (sample.weight == 0 || !std::isfinite(sample.weight) || sample.count <= 0) {
        return std::nullopt;
    }
    CircularReference result;
    result.count = sample.count;
    if (!FindMoments(result, sample)) {
        return std::nullopt;
    }
    FindPrecision(result, sample.sense);
    if (sample.angles.empty()) {
        return result;
    }
    const double factor = sample.sense == AngleSense::kAxial ? 2 : 1;
    std::vector<double> angles(sample.angles.begin(), sample.angles.end());
    for (double& angle : angles) {
        angle *= factor;
    }
    std::optional<double> mean = result.meanDirection;
    if (mean) {
        *mean *= factor;
    }
    const LeastDeviation doubled = MedianOfLeastDeviation(angles, mean);
    result.median = {doubled.median / factor, doubled.deviation / factor};
    FindTests(result, angles);
    return result;
}

} // namespace quandrel
