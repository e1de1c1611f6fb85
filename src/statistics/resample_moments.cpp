// SPDX-License-Identifier: MIT

#include "statistics/resample_moments.h"

#include "orientation/eigen.h"
#include "statistics/fabric_kernels.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

/// A matrix whose determinant is below this part of its squared trace is singular.
constexpr double kSingular = 1e-14;

/// The exponents of the products of four components; the places in AxisSums.
constexpr std::array<std::array<std::size_t, 3>, 15> kExponents = {{{4, 0, 0},
                                                                    {3, 1, 0},
                                                                    {3, 0, 1},
                                                                    {2, 2, 0},
                                                                    {2, 1, 1},
                                                                    {2, 0, 2},
                                                                    {1, 3, 0},
                                                                    {1, 2, 1},
                                                                    {1, 1, 2},
                                                                    {1, 0, 3},
                                                                    {0, 4, 0},
                                                                    {0, 3, 1},
                                                                    {0, 2, 2},
                                                                    {0, 1, 3},
                                                                    {0, 0, 4}}};

/// The place of each product of components i, j, k, l.
using Places = std::array<std::array<std::array<std::array<std::size_t, 3>, 3>, 3>, 3>;

constexpr std::size_t PlaceOf(const std::array<std::size_t, 4>& factors) {
    std::array<std::size_t, 3> exponents{};
    for (const std::size_t factor : factors) {
        ++exponents[factor];
    }
    std::size_t place = 0;
    while (kExponents[place] != exponents) {
        ++place;
    }
    return place;
}

constexpr Places MakePlaces() {
    Places places{};
    for (std::size_t i = 0; i < 81; ++i) {
        const std::array<std::size_t, 4> factors = {i / 27, i / 9 % 3, i / 3 % 3, i % 3};
        places[factors[0]][factors[1]][factors[2]][factors[3]] = PlaceOf(factors);
    }
    return places;
}

constexpr Places kPlaces = MakePlaces();

using Vector3 = std::array<double, 3>;

Vector3 ColumnOf(const Matrix3& matrix, std::size_t column) {
    return {matrix[0][column], matrix[1][column], matrix[2][column]};
}

double Form(const Matrix3& matrix, const Vector3& a, const Vector3& b) {
    double sum = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        sum += a[i] * (matrix[i][0] * b[0] + matrix[i][1] * b[1] + matrix[i][2] * b[2]);
    }
    return sum;
}

/// d' matrix^-1 d of the matrix a b; b c; infinite where it is singular.
double InverseForm(double a, double b, double c, double d1, double d2) {
    const double determinant = a * c - b * b;
    if (!(determinant > kSingular * (a + c) * (a + c))) {
        return std::numeric_limits<double>::infinity();
    }
    return (c * d1 * d1 - 2 * b * d1 * d2 + a * d2 * d2) / determinant;
}

/// The place of the greatest or the least value.
std::size_t PlaceOfExtreme(const Vector3& values, bool isLeast) {
    std::size_t place = 0;
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (isLeast ? values[i] < values[place] : values[i] > values[place]) {
            place = i;
        }
    }
    return place;
}

Matrix3 SecondMoments(const AxisSums& sums, double total) {
    Matrix3 matrix{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            // The squares of the components of a unit vector add up to 1.
            matrix[i][j] = (sums.values[kPlaces[i][j][0][0]] + sums.values[kPlaces[i][j][1][1]]
                            + sums.values[kPlaces[i][j][2][2]])
                           / total;
        }
    }
    return matrix;
}

/// The mean of x x' (x . centre)^2.
Matrix3 WeightedMoments(const AxisSums& sums, const Vector3& centre, double total) {
    Matrix3 matrix{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = i; j < 3; ++j) {
            double sum = 0;
            for (std::size_t k = 0; k < 3; ++k) {
                for (std::size_t l = 0; l < 3; ++l) {
                    sum += sums.values[kPlaces[i][j][k][l]] * centre[k] * centre[l];
                }
            }
            matrix[i][j] = sum / total;
            matrix[j][i] = matrix[i][j];
        }
    }
    return matrix;
}

} // namespace

AxisSums AxisSums::Of(const std::array<double, 3>& axis) {
    AxisSums sums;
    for (std::size_t place = 0; place < kExponents.size(); ++place) {
        double product = 1;
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t power = 0; power < kExponents[place][i]; ++power) {
                product *= axis[i];
            }
        }
        sums.values[place] = product;
    }
    return sums;
}

ResampleCentre AxisSums::CentreOf(double total, bool isLeast) const {
    const EigenSystem3 system = SymmetricEigen3(SecondMoments(*this, total));
    const std::size_t own = PlaceOfExtreme(system.values, isLeast);
    const std::size_t first = own == 0 ? 1 : 0;
    const std::size_t second = 3 - own - first;
    ResampleCentre result;
    result.centre = ColumnOf(system.vectors, own);
    const double gap1 = system.values[own] - system.values[first];
    const double gap2 = system.values[own] - system.values[second];
    if (std::abs(gap1) < kLeastEigenvalue || std::abs(gap2) < kLeastEigenvalue) {
        return result;
    }
    const Matrix3 moments = WeightedMoments(*this, result.centre, total);
    const Vector3 axis1 = ColumnOf(system.vectors, first);
    const Vector3 axis2 = ColumnOf(system.vectors, second);
    // d' E^-1 d with the gaps of E as factors of d; d is the last axis of the sample's frame.
    result.statistic = InverseForm(Form(moments, axis1, axis1), Form(moments, axis1, axis2),
                                   Form(moments, axis2, axis2), gap1 * axis1[2], gap2 * axis2[2]);
    return result;
}

DirectionSums DirectionSums::Of(const std::array<double, 3>& direction) {
    const auto& [x, y, z] = direction;
    return {{x, y, z, x * x, x * y, x * z, y * y, y * z, z * z, 0}};
}

ResampleCentre DirectionSums::CentreOf(double total, bool /*isLeast*/) const {
    ResampleCentre result;
    const Direction mean = {values[0] / total, values[1] / total, values[2] / total};
    const double length = LengthOf(mean);
    if (length < kLeastMeanLength) {
        return result;
    }
    const Frame frame = FrameAbout(Scaled(mean, 1 / length));
    result.centre = {frame[2].l, frame[2].m, frame[2].n};
    if (frame[2].n <= 0) { // at a right angle and more, components do not measure the distance
        return result;
    }
    const Matrix3 second = {{{values[3] / total, values[4] / total, values[5] / total},
                             {values[4] / total, values[6] / total, values[7] / total},
                             {values[5] / total, values[7] / total, values[8] / total}}};
    const Vector3 axis1 = {frame[0].l, frame[0].m, frame[0].n};
    const Vector3 axis2 = {frame[1].l, frame[1].m, frame[1].n};
    // The division of V by the squared mean length is left to the factors of d.
    result.statistic =
        InverseForm(Form(second, axis1, axis1), Form(second, axis1, axis2),
                    Form(second, axis2, axis2), length * axis1[2], length * axis2[2]);
    return result;
}

} // namespace quandrel
