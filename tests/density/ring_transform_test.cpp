// SPDX-License-Identifier: MIT

#include "density/ring_transform.h"
#include "support/density_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

namespace quandrel {
namespace {

std::vector<double> RandomRings(std::size_t rings) {
    RandomLines random(7);
    std::vector<double> values(rings * kRingLength);
    for (double& value : values) {
        value = random.Fraction() - 0.5;
    }
    return values;
}

/// The definition of the transform.
std::complex<double> FrequencyOf(const double* ring, std::size_t frequency) {
    std::complex<double> sum;
    for (std::size_t j = 0; j < kRingLength; ++j) {
        const auto turned = static_cast<double>(j * frequency % kRingLength);
        sum += ring[j] * std::polar(1.0, -2 * std::acos(-1.0) * turned / kRingLength);
    }
    return sum;
}

TEST(RingTransform, IsTheDefinition) {
    const std::vector<double> rings = RandomRings(5); // more than are transformed at once
    std::vector<double> real;
    std::vector<double> imaginary;
    TransformRealRings(rings, real, imaginary);
    ASSERT_EQ(real.size(), 5 * kRingFrequencies);
    for (std::size_t ring = 0; ring < 5; ++ring) {
        for (std::size_t m = 0; m < kRingFrequencies; ++m) {
            const std::complex<double> expected = FrequencyOf(rings.data() + ring * kRingLength, m);
            const std::size_t place = ring * kRingFrequencies + m;
            ASSERT_NEAR(real[place], expected.real(), 1e-12) << ring << " " << m;
            ASSERT_NEAR(imaginary[place], expected.imag(), 1e-12) << ring << " " << m;
        }
    }
}

TEST(RingTransform, TransformsComplexRings) {
    RandomLines random(8);
    RingTransform transform;
    std::vector<double> real(kRingLength);
    std::vector<double> imaginary(kRingLength);
    for (std::size_t place = 0; place < kRingLength; ++place) {
        transform.Real(place, 2) = real[place] = random.Fraction();
        transform.Imaginary(place, 2) = imaginary[place] = random.Fraction();
    }
    transform.Transform();
    for (std::size_t m = 0; m < kRingLength; ++m) {
        const std::complex<double> expected =
            FrequencyOf(real.data(), m)
            + std::complex<double>(0, 1) * FrequencyOf(imaginary.data(), m);
        ASSERT_NEAR(transform.Real(m, 2), expected.real(), 1e-12) << m;
        ASSERT_NEAR(transform.Imaginary(m, 2), expected.imag(), 1e-12) << m;
        ASSERT_EQ(transform.Real(m, 1), 0) << "another ring";
    }
}

TEST(RingTransform, LeadsBack) {
    const std::vector<double> rings = RandomRings(7);
    std::vector<double> real;
    std::vector<double> imaginary;
    TransformRealRings(rings, real, imaginary);
    std::vector<double> back(rings.size());
    RealRingsOf(real, imaginary, back);
    for (std::size_t place = 0; place < rings.size(); ++place) {
        ASSERT_NEAR(back[place], rings[place], 1e-15);
    }
}

} // namespace
} // namespace quandrel
