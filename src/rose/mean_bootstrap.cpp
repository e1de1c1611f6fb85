// SPDX-License-Identifier: MIT

#include "rose/mean_bootstrap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr std::uint32_t kSeed = 19930444;
constexpr int kPlaceOfLimit = kBootstrapResamples * 95 / 100 - 1; ///< of the sorted quotients

/// A length below this, per unit of weight, is rounding error.
constexpr double kRounding = 1e-12;

/// Weighted sums over angles: of cosine and sine, of those of the doubled angle, and of the
/// weights.
struct Sums {
    double cosine = 0;
    double sine = 0;
    double cosineOfDouble = 0;
    double sineOfDouble = 0;
    double weight = 0;

    void Add(const Sums& other) {
        cosine += other.cosine;
        sine += other.sine;
        cosineOfDouble += other.cosineOfDouble;
        sineOfDouble += other.sineOfDouble;
        weight += other.weight;
    }
};

/// A mean direction as a unit vector, with its standard error times the square root of n: the
/// sample size is the same for all resamples.
struct MeanVector {
    double cosine = 0;
    double sine = 0;
    double error = 0;
};

Sums SumsOf(const WeightedAngle& one) {
    const auto& [angle, weight] = one;
    return {weight * std::cos(angle), weight * std::sin(angle), weight * std::cos(2 * angle),
            weight * std::sin(2 * angle), weight};
}

/// Empty without a resultant.
std::optional<MeanVector> MeanOf(const Sums& sums) {
    const double length = std::hypot(sums.cosine, sums.sine);
    if (length <= kRounding * std::abs(sums.weight)) {
        return std::nullopt;
    }
    const double sign = sums.weight < 0 ? -1 : 1; // negative weights reverse the vector
    MeanVector mean{sign * sums.cosine / length, sign * sums.sine / length, 0};
    const double cosineOfDouble = mean.cosine * mean.cosine - mean.sine * mean.sine;
    const double sineOfDouble = 2 * mean.cosine * mean.sine;
    // The mean of cos 2(angle - mean), the second central moment.
    const double moment =
        (sums.cosineOfDouble * cosineOfDouble + sums.sineOfDouble * sineOfDouble) / sums.weight;
    const double spread = 1 - moment;
    const double meanLength = length / std::abs(sums.weight);
    mean.error = spread > kRounding ? std::sqrt(spread / 2) / meanLength : 0;
    return mean;
}

/// The sine of a resample's deviation in units of its standard error; infinite for an error of 0,
/// or a deviation of at least a right angle.
double QuotientOf(const std::optional<MeanVector>& resample, const MeanVector& mean) {
    if (!resample) {
        return std::numeric_limits<double>::infinity();
    }
    const double sine = std::abs(resample->sine * mean.cosine - resample->cosine * mean.sine);
    const double cosine = resample->cosine * mean.cosine + resample->sine * mean.sine;
    if (cosine > 0 && sine <= kRounding) {
        return 0;
    }
    return cosine > 0 && resample->error > 0 ? sine / resample->error
                                             : std::numeric_limits<double>::infinity();
}

/// Draws samples with replacement.
class Resampler {
public:
    explicit Resampler(std::vector<Sums> parts)
        : parts_(std::move(parts)) {}

    [[nodiscard]] Sums Draw() {
        Sums sums;
        for (std::size_t i = 0; i < parts_.size(); ++i) {
            sums.Add(parts_[Place()]);
        }
        return sums;
    }

private:
    /// The distributions of the standard library depend on its implementation, its generator does
    /// not. The probabilities of the indexes differ by less than n / 2^32.
    [[nodiscard]] std::size_t Place() {
        return static_cast<std::size_t>((std::uint64_t{random_()} * parts_.size()) >> 32U);
    }

    std::vector<Sums> parts_;
    std::mt19937 random_{kSeed};
};

} // namespace

std::optional<double> BootstrapHalfWidth(std::span<const WeightedAngle> sample) {
    // Sorted, so that the order of the rows does not matter.
    std::vector<WeightedAngle> sorted(sample.begin(), sample.end());
    std::sort(sorted.begin(), sorted.end(), [](const WeightedAngle& a, const WeightedAngle& b) {
        return a.angle != b.angle ? a.angle < b.angle : a.weight < b.weight;
    });
    std::vector<Sums> parts(sorted.size());
    std::transform(sorted.begin(), sorted.end(), parts.begin(), SumsOf);
    Sums whole;
    for (const Sums& part : parts) {
        whole.Add(part);
    }
    const std::optional<MeanVector> mean = MeanOf(whole);
    if (sample.size() < 2 || !mean) {
        return std::nullopt;
    }
    Resampler resampler(std::move(parts));
    std::array<double, kBootstrapResamples> quotients{};
    for (double& quotient : quotients) {
        quotient = QuotientOf(MeanOf(resampler.Draw()), *mean);
    }
    std::nth_element(quotients.begin(), quotients.begin() + kPlaceOfLimit, quotients.end());
    const double limit = quotients[kPlaceOfLimit];
    if (std::isinf(limit)) {
        return std::nullopt;
    }
    const double sine = limit * mean->error;
    return sine <= 1 ? std::optional(std::asin(sine)) : std::nullopt;
}

} // namespace quandrel
