// SPDX-License-Identifier: MIT
//
// Densities of lines by six methods as continuous fields: values anywhere, contours, maxima, and
// the envelope of what even lines reach.
//
// Angles are degrees. Lines are used unrounded.
//
// Example: the kernel density of poles, at its maximum and at right angles to it.
//
//     namespace qd = quandrel::api;
//     const std::vector<qd::Line> poles = {{60, 120}, {62, 118}, {58, 125}, {61, 119}};
//     const qd::SmoothDensity density(poles, {.halfWidth = 10});
//     std::cout << std::round(density.Greatest().at.plunge) << '\n'; // -> 60
//     std::cout << (density.At({10, 300}) < 0.01) << '\n'; // -> 1
//     std::cout << density.Contours(std::vector<double>{10}).front().lines.size() << '\n'; // -> 1

#pragma once

#include "quandrel/orientation.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace quandrel::api {

enum class DensityMethod {
    kCone = 0,            ///< lines within a cone of 1% of the hemisphere, always of axes
    kKamb = 1,            ///< within a cone that follows from their number; W. B. Kamb (1959), J.
                          ///< Geophys. Res. 64
    kKambLinear = 2,      ///< weights that fall linearly within this cone; F. W. Vollmer (1995),
                          ///< Computers & Geosciences 21
    kKambSquare = 3,      ///< the same with their square
    kKambExponential = 4, ///< weights that fall exponentially
    kKernel = 5,          ///< a probability density; Fisher, Lewis, Embleton (1987), ch. 3
};

enum class DensityUnit {
    kPerCentInCone = 0,      ///< share of the lines in the cone
    kCounts = 1,             ///< lines in the cone
    kSigma = 2,              ///< multiples of Kamb's unit: even lines are at k
    kDeviation = 3,          ///< standard deviations from the mean of even lines, which are at 0
    kMultiplesOfUniform = 4, ///< multiples of the mean of even lines
};

struct DensityChoice {
    DensityMethod method = DensityMethod::kKernel;
    Sense sense = Sense::kAxes;
    double k = 3;                         ///< of Kamb's methods, 1 to 1000
    double halfWidth = 0;                 ///< of the kernel, 2 to 60; 0 for the most likely one
    std::optional<DensityUnit> unit = {}; ///< one that the method has; nothing for its first
    unsigned threads = 1;                 ///< 1 or more; no result depends on them
};

/// A place of the lower hemisphere with its density.
struct DensityPlace {
    Line at;
    double density = 0;
};

/// The contours of a level. A closed line repeats its first place at the end; the others end on the
/// primitive.
struct SphereContour {
    double level = 0;
    std::vector<std::vector<Line>> lines;
};

/// Where the density exceeds what as many even lines reach anywhere with a probability of 5%.
struct SignificantDensity {
    double level = 0;
    double error = 0; ///< of the level, by the chance of the simulation
    std::vector<std::vector<Line>> lines;
};

/// The density of n lines.
class SmoothDensity {
public:
    /// @param weights  n numbers >= 0, or empty for equal weights
    ///
    /// Throws std::invalid_argument without lines of a weight, and for a unit that the method does
    /// not have.
    explicit SmoothDensity(std::span<const Line> lines, const DensityChoice& choice = {},
                           std::span<const double> weights = {});
    SmoothDensity(SmoothDensity&&) noexcept;
    SmoothDensity& operator=(SmoothDensity&&) noexcept;
    SmoothDensity(const SmoothDensity&) = delete;
    SmoothDensity& operator=(const SmoothDensity&) = delete;
    ~SmoothDensity();

    [[nodiscard]] DensityUnit Unit() const;

    /// Half-angle of the cone; of a kernel and of kKambExponential the angle at which the weight is
    /// half of its greatest.
    [[nodiscard]] double HalfAngle() const;

    /// The density about a line, in the unit.
    [[nodiscard]] double At(const Line& line) const;

    /// At for m lines.
    ///
    /// @param[out] densities  m numbers
    void At(std::span<const Line> lines, std::span<double> densities) const;

    /// The greatest density of the lower hemisphere.
    [[nodiscard]] DensityPlace Greatest() const;

    /// The levels that the program draws at first: doubled from 1 (or 2) up to the greatest
    /// density.
    [[nodiscard]] std::vector<double> UsualLevels() const;

    /// @param levels  above 0
    [[nodiscard]] std::vector<SphereContour> Contours(std::span<const double> levels) const;

    /// The local maxima that reach the first of the usual levels, highest first.
    [[nodiscard]] std::vector<DensityPlace> Maxima() const;

    /// The envelope of 999 even samples; some seconds for many lines.
    [[nodiscard]] SignificantDensity Significant(std::uint64_t seed = 950) const;

private:
    struct Field;
    std::unique_ptr<Field> field_;
};

} // namespace quandrel::api
