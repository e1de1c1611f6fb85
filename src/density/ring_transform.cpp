// SPDX-License-Identifier: MIT

#include "density/ring_transform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

// The digits of kPi would show in the sums.
constexpr double kFullTurn = 6.283185307179586477;

struct Complex {
    double real = 0;
    double imaginary = 0;
};

Complex operator+(const Complex& a, const Complex& b) {
    return {a.real + b.real, a.imaginary + b.imaginary};
}

Complex operator-(const Complex& a, const Complex& b) {
    return {a.real - b.real, a.imaginary - b.imaginary};
}

Complex operator*(double a, const Complex& b) {
    return {a * b.real, a * b.imaginary};
}

Complex operator*(const Complex& a, const Complex& b) {
    return {a.real * b.real - a.imaginary * b.imaginary,
            a.real * b.imaginary + a.imaginary * b.real};
}

/// -i times a number.
Complex TurnedBack(const Complex& a) {
    return {a.imaginary, -a.real};
}

using Two = std::array<Complex, 2>;
using Three = std::array<Complex, 3>;
using Four = std::array<Complex, 4>;
using Five = std::array<Complex, 5>;

/// Transforms of two to five numbers.
Two SmallTransform(const Two& a) {
    return {a[0] + a[1], a[0] - a[1]};
}

Three SmallTransform(const Three& a) {
    constexpr double kSine = 0.86602540378443865; // of 120 degrees
    const Complex sum = a[1] + a[2];
    const Complex middle = a[0] - 0.5 * sum;
    const Complex side = TurnedBack(kSine * (a[1] - a[2]));
    return {a[0] + sum, middle + side, middle - side};
}

Four SmallTransform(const Four& a) {
    const Complex even = a[0] + a[2];
    const Complex odd = a[1] + a[3];
    const Complex middle = a[0] - a[2];
    const Complex side = TurnedBack(a[1] - a[3]);
    return {even + odd, middle + side, even - odd, middle - side};
}

Five SmallTransform(const Five& a) {
    constexpr double kCosine1 = 0.30901699437494742; // of 72 and of 144 degrees
    constexpr double kCosine2 = -0.80901699437494742;
    constexpr double kSine1 = 0.95105651629515357;
    constexpr double kSine2 = 0.58778525229247313;
    const Complex outerSum = a[1] + a[4];
    const Complex innerSum = a[2] + a[3];
    const Complex outer = a[1] - a[4];
    const Complex inner = a[2] - a[3];
    const Complex middle1 = a[0] + kCosine1 * outerSum + kCosine2 * innerSum;
    const Complex middle2 = a[0] + kCosine2 * outerSum + kCosine1 * innerSum;
    const Complex side1 = TurnedBack(kSine1 * outer + kSine2 * inner);
    const Complex side2 = TurnedBack(kSine2 * outer - kSine1 * inner);
    return {a[0] + outerSum + innerSum, middle1 + side1, middle2 + side2, middle2 - side2,
            middle1 - side1};
}

/// The numbers exp(-2 pi i j / 360).
const std::array<Complex, kRingLength>& Roots() {
    static const std::array<Complex, kRingLength> roots = [] {
        std::array<Complex, kRingLength> made;
        for (std::size_t j = 0; j < made.size(); ++j) {
            const double angle = kFullTurn * static_cast<double>(j) / kRingLength;
            made[j] = {std::cos(angle), -std::sin(angle)};
        }
        return made;
    }();
    return roots;
}

/// The vectors that a step reads and writes.
struct StepVectors {
    const double* real;
    const double* imaginary;
    double* realOut;
    double* imaginaryOut;
};

/// The small transforms of a step that share their roots.
///
/// @param stride  how many there are, one after another; also the elements between two results
/// @param apart   elements between two numbers of a small transform
template <std::size_t kRadix>
void TransformRun(const StepVectors& vectors, const std::array<Complex, kRadix>& roots,
                  std::size_t stride, std::size_t apart) {
    const double* __restrict real = vectors.real;
    const double* __restrict imaginary = vectors.imaginary;
    double* __restrict realOut = vectors.realOut;
    double* __restrict imaginaryOut = vectors.imaginaryOut;
    for (std::size_t i = 0; i < stride; ++i) {
        std::array<Complex, kRadix> numbers;
        for (std::size_t t = 0; t < kRadix; ++t) {
            numbers[t] = {real[i + t * apart], imaginary[i + t * apart]};
        }
        numbers = SmallTransform(numbers);
        for (std::size_t t = 0; t < kRadix; ++t) {
            const Complex turned = numbers[t] * roots[t];
            realOut[i + t * stride] = turned.real;
            imaginaryOut[i + t * stride] = turned.imaginary;
        }
    }
}

/// A step: rings of `length` become kRadix times as many of length / kRadix.
///
/// @param stride  elements between consecutive numbers of a ring
template <std::size_t kRadix>
void TransformStep(const StepVectors& vectors, std::size_t length, std::size_t stride) {
    const std::size_t parts = length / kRadix;
    for (std::size_t part = 0; part < parts; ++part) {
        std::array<Complex, kRadix> roots;
        for (std::size_t t = 0; t < kRadix; ++t) {
            roots[t] = Roots()[part * t * (kRingLength / length) % kRingLength];
        }
        const std::size_t from = stride * part;
        const std::size_t to = stride * kRadix * part;
        TransformRun<kRadix>({vectors.real + from, vectors.imaginary + from, vectors.realOut + to,
                              vectors.imaginaryOut + to},
                             roots, stride, stride * parts);
    }
}

} // namespace

RingTransform::RingTransform()
    : real_(kRingLength * kLanes)
    , imaginary_(kRingLength * kLanes)
    , realOut_(kRingLength * kLanes)
    , imaginaryOut_(kRingLength * kLanes) {}

void RingTransform::Transform() {
    std::size_t length = kRingLength;
    std::size_t stride = kLanes;
    const auto step = [&](auto transformStep, std::size_t radix) {
        transformStep(
            StepVectors{real_.data(), imaginary_.data(), realOut_.data(), imaginaryOut_.data()},
            length, stride);
        std::swap(real_, realOut_);
        std::swap(imaginary_, imaginaryOut_);
        length /= radix;
        stride *= radix;
    };
    step(TransformStep<4>, 4);
    step(TransformStep<5>, 5);
    step(TransformStep<3>, 3);
    step(TransformStep<3>, 3);
    step(TransformStep<2>, 2);
}

void TransformRealRings(std::span<const double> rings, std::vector<double>& real,
                        std::vector<double>& imaginary) {
    const std::size_t count = rings.size() / kRingLength;
    real.assign(count * kRingFrequencies, 0);
    imaginary.assign(count * kRingFrequencies, 0);
    RingTransform transform;
    for (std::size_t first = 0; first < count; first += RingTransform::kLanes) {
        const std::size_t lanes = std::min(RingTransform::kLanes, count - first);
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            for (std::size_t place = 0; place < kRingLength; ++place) {
                transform.Real(place, lane) = rings[(first + lane) * kRingLength + place];
                transform.Imaginary(place, lane) = 0;
            }
        }
        transform.Transform();
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            for (std::size_t m = 0; m < kRingFrequencies; ++m) {
                real[(first + lane) * kRingFrequencies + m] = transform.Real(m, lane);
                imaginary[(first + lane) * kRingFrequencies + m] = transform.Imaginary(m, lane);
            }
        }
    }
}

void RealRingsOf(std::span<const double> real, std::span<const double> imaginary,
                 std::span<double> rings) {
    const std::size_t count = rings.size() / kRingLength;
    RingTransform transform;
    for (std::size_t first = 0; first < count; first += RingTransform::kLanes) {
        const std::size_t lanes = std::min(RingTransform::kLanes, count - first);
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            const std::size_t offset = (first + lane) * kRingFrequencies;
            for (std::size_t m = 0; m < kRingLength; ++m) {
                const bool isConjugate = m >= kRingFrequencies;
                const std::size_t from = offset + (isConjugate ? kRingLength - m : m);
                transform.Imaginary(m, lane) = real[from];
                transform.Real(m, lane) = isConjugate ? -imaginary[from] : imaginary[from];
            }
        }
        transform.Transform();
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            for (std::size_t place = 0; place < kRingLength; ++place) {
                rings[(first + lane) * kRingLength + place] =
                    transform.Imaginary(place, lane) / kRingLength;
            }
        }
    }
}

} // namespace quandrel
