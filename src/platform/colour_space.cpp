// SPDX-License-Identifier: MIT

#include "platform/colour_space.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace quandrel {

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr double kDegree = std::numbers::pi / 180;

/// Red, green and blue without gamma to X, Y, Z, with the white of D65 at Y = 1.
constexpr Matrix kXyzOfRgb{{{0.4124564, 0.3575761, 0.1804375},
                            {0.2126729, 0.7151522, 0.0721750},
                            {0.0193339, 0.1191920, 0.9503041}}};

/// Red, green and blue to long, middle and short-wave cones (Vienot and others, 1999).
constexpr Matrix kConesOfRgb{
    {{17.8824, 43.5161, 4.11935}, {3.45565, 27.1554, 3.86714}, {0.0299566, 0.184309, 1.46709}}};

/// What the missing cones would see if white and blue looked as they do (same source).
constexpr Matrix kProtanopia{{{0, 2.02344, -2.52581}, {0, 1, 0}, {0, 0, 1}}};
constexpr Matrix kDeuteranopia{{{1, 0, 0}, {0.494207, 0, 1.24827}, {0, 0, 1}}};

Triple Times(const Matrix& matrix, const Triple& vector) {
    Triple product{};
    for (std::size_t row = 0; row < 3; ++row) {
        product[row] =
            matrix[row][0] * vector[0] + matrix[row][1] * vector[1] + matrix[row][2] * vector[2];
    }
    return product;
}

/// The inverse by cofactors.
Matrix Inverse(const Matrix& m) {
    Matrix inverse{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            const std::size_t r1 = (j + 1) % 3;
            const std::size_t r2 = (j + 2) % 3;
            const std::size_t c1 = (i + 1) % 3;
            const std::size_t c2 = (i + 2) % 3;
            inverse[i][j] = m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
        }
    }
    const double determinant =
        m[0][0] * inverse[0][0] + m[0][1] * inverse[1][0] + m[0][2] * inverse[2][0];
    for (Triple& row : inverse) {
        for (double& value : row) {
            value /= determinant;
        }
    }
    return inverse;
}

double Linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double WithGamma(double linear) {
    return linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

Triple LinearOf(Colour colour) {
    return {Linear(colour.red / 255.0), Linear(colour.green / 255.0), Linear(colour.blue / 255.0)};
}

Colour ColourOfLinear(const Triple& linear) {
    const auto byte = [](double channel) {
        return static_cast<std::uint8_t>(
            std::lround(255 * WithGamma(std::clamp(channel, 0.0, 1.0))));
    };
    return {byte(linear[0]), byte(linear[1]), byte(linear[2])};
}

// CIE 15: the cube root, and the straight line that meets it at (6/29)^3.
double Compressed(double ratio) {
    constexpr double kBend = 6.0 / 29;
    return ratio > kBend * kBend * kBend ? std::cbrt(ratio)
                                         : ratio / (3 * kBend * kBend) + 4.0 / 29;
}

double Expanded(double compressed) {
    constexpr double kBend = 6.0 / 29;
    return compressed > kBend ? compressed * compressed * compressed
                              : 3 * kBend * kBend * (compressed - 4.0 / 29);
}

Triple LinearOfLab(const LabColour& lab) {
    const Triple white = Times(kXyzOfRgb, {1, 1, 1});
    const double y = (lab.lightness + 16) / 116;
    return Times(Inverse(kXyzOfRgb), {white[0] * Expanded(y + lab.a / 500), white[1] * Expanded(y),
                                      white[2] * Expanded(y - lab.b / 200)});
}

/// Chroma and hue of a colour with the a of CIEDE2000; the hue is 0 to below 360 degrees.
struct Polar {
    double chroma = 0;
    double hue = 0;
};

Polar PolarOf(double a, double b) {
    const double hue = std::atan2(b, a) / kDegree;
    return {std::hypot(a, b), hue < 0 ? hue + 360 : hue};
}

/// From one hue to another the shorter way; 0 when a grey has none.
double HueStep(const Polar& first, const Polar& second) {
    const double step = second.hue - first.hue;
    if (first.chroma * second.chroma == 0) {
        return 0;
    }
    return step > 180 ? step - 360 : step < -180 ? step + 360 : step;
}

double MeanHue(const Polar& first, const Polar& second) {
    const double sum = first.hue + second.hue;
    if (first.chroma * second.chroma == 0) {
        return sum;
    }
    if (std::abs(first.hue - second.hue) <= 180) {
        return sum / 2;
    }
    return sum < 360 ? (sum + 360) / 2 : (sum - 360) / 2;
}

/// How much of a chroma beyond about 25 there is, 0 to 1.
double Saturation(double chroma) {
    return std::sqrt(std::pow(chroma, 7) / (std::pow(chroma, 7) + std::pow(25.0, 7)));
}

double HueWeight(double hue) {
    return 1 - 0.17 * std::cos((hue - 30) * kDegree) + 0.24 * std::cos(2 * hue * kDegree)
           + 0.32 * std::cos((3 * hue + 6) * kDegree) - 0.20 * std::cos((4 * hue - 63) * kDegree);
}

} // namespace

LabColour LabOf(Colour colour) {
    const Triple white = Times(kXyzOfRgb, {1, 1, 1});
    const Triple xyz = Times(kXyzOfRgb, LinearOf(colour));
    const double x = Compressed(xyz[0] / white[0]);
    const double y = Compressed(xyz[1] / white[1]);
    const double z = Compressed(xyz[2] / white[2]);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

Colour ColourOfLab(const LabColour& lab) {
    return ColourOfLinear(LinearOfLab(lab));
}

bool IsInSrgb(const LabColour& lab) {
    constexpr double kHalfByte = 0.5 / 255;
    return std::ranges::all_of(LinearOfLab(lab), [](double linear) {
        return WithGamma(linear) >= -kHalfByte && WithGamma(linear) <= 1 + kHalfByte;
    });
}

double ColourDifference(const LabColour& first, const LabColour& second) {
    const double meanChroma = (std::hypot(first.a, first.b) + std::hypot(second.a, second.b)) / 2;
    const double stretch = 1.5 - 0.5 * Saturation(meanChroma);
    const Polar one = PolarOf(first.a * stretch, first.b);
    const Polar two = PolarOf(second.a * stretch, second.b);
    const double hueStep =
        2 * std::sqrt(one.chroma * two.chroma) * std::sin(HueStep(one, two) / 2 * kDegree);

    const double chroma = (one.chroma + two.chroma) / 2;
    const double hue = MeanHue(one, two);
    const double middle = (first.lightness + second.lightness) / 2 - 50;
    const double lightnessScale = 1 + 0.015 * middle * middle / std::sqrt(20 + middle * middle);
    const double lightnessPart = (second.lightness - first.lightness) / lightnessScale;
    const double chromaPart = (two.chroma - one.chroma) / (1 + 0.045 * chroma);
    const double huePart = hueStep / (1 + 0.015 * chroma * HueWeight(hue));
    const double nearBlue = (hue - 275) / 25;
    const double turn = 60 * std::exp(-nearBlue * nearBlue) * kDegree;
    const double mixed = -2 * Saturation(chroma) * std::sin(turn) * chromaPart * huePart;
    return std::sqrt(lightnessPart * lightnessPart + chromaPart * chromaPart + huePart * huePart
                     + mixed);
}

Colour ColourAsSeen(Colour colour, ColourVision vision) {
    if (vision == ColourVision::Normal) {
        return colour;
    }
    const Matrix& reduction = vision == ColourVision::Protanopia ? kProtanopia : kDeuteranopia;
    const Triple cones = Times(reduction, Times(kConesOfRgb, LinearOf(colour)));
    return ColourOfLinear(Times(Inverse(kConesOfRgb), cones));
}

} // namespace quandrel
