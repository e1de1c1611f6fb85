// SPDX-License-Identifier: MIT
//
// Discrete Fourier transforms of rings: of 360 values that go on around the turn. Several are
// transformed at once.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace quandrel {

inline constexpr std::size_t kRingLength = 360;

/// The frequencies of a real ring, 0 to 180. The others are their conjugates.
inline constexpr std::size_t kRingFrequencies = kRingLength / 2 + 1;

/// Rings of complex numbers that are transformed together. Value `place` of ring `ring` is element
/// place * kLanes + ring of both vectors.
class RingTransform {
public:
    static constexpr std::size_t kLanes = 4;

    RingTransform();

    [[nodiscard]] double& Real(std::size_t place, std::size_t ring) {
        return real_[place * kLanes + ring];
    }

    [[nodiscard]] double& Imaginary(std::size_t place, std::size_t ring) {
        return imaginary_[place * kLanes + ring];
    }

    /// Replaces each ring x by the sums over j of x[j] exp(-2 pi i j m / 360), m from 0 to 359. By
    /// factors of 4, 5, 3, 3 and 2 that sort themselves (C. Temperton, Journal of Computational
    /// Physics 52 (1983), 1). Accurate to 1e-15 of the sum of the absolute values.
    ///
    /// To go back, exchange the real and the imaginary parts before and after it, and divide by
    /// 360.
    void Transform();

private:
    std::vector<double> real_;
    std::vector<double> imaginary_;
    std::vector<double> realOut_;
    std::vector<double> imaginaryOut_;
};

/// The spectra of real rings.
///
/// @param rings  a multiple of kRingLength values, ring by ring
/// @param[out] real, imaginary  kRingFrequencies values for each ring
void TransformRealRings(std::span<const double> rings, std::vector<double>& real,
                        std::vector<double>& imaginary);

/// The real rings of spectra, the inverse of TransformRealRings.
///
/// @param[out] rings  kRingLength values for each kRingFrequencies of the others
void RealRingsOf(std::span<const double> real, std::span<const double> imaginary,
                 std::span<double> rings);

} // namespace quandrel
