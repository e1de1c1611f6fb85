// SPDX-License-Identifier: MIT

#include "statistics/mean_forms.h"

#include "orientation/direction_vectors.h"
#include "statistics/fabric_kernels.h"

#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

/// A covariance whose determinant is smaller, of the product of its diagonal, is of rows in a
/// plane.
constexpr double kLeastDeterminant = 1e-12;

/// A variance that is smaller is a rounding error.
constexpr double kLeastVariance = 1e-20;

/// Products of two components: ll, mm, nn, lm, ln, mn.
using Products = std::array<double, 6>;

/// What multiplies Products in the product of the components along two directions.
Products FactorsOf(const Direction& a, const Direction& b) {
    return {a.l * b.l,
            a.m * b.m,
            a.n * b.n,
            a.l * b.m + a.m * b.l,
            a.l * b.n + a.n * b.l,
            a.m * b.n + a.n * b.m};
}

Products ProductsOf(const Direction& axis) {
    return {axis.l * axis.l, axis.m * axis.m, axis.n * axis.n,
            axis.l * axis.m, axis.l * axis.n, axis.m * axis.n};
}

double Dot(const Products& a, const Products& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += a[i] * b[i];
    }
    return sum;
}

/// Means of the products of Products, multiplied by a vector.
Products MeansAlong(const AxisSums::Terms& sums, double n, const Products& vector) {
    Products result{};
    std::size_t term = 0;
    for (std::size_t i = 0; i < result.size(); ++i) {
        for (std::size_t j = i; j < result.size(); ++j, ++term) {
            const double mean = sums[term] / n;
            result[i] += mean * vector[j];
            if (i != j) {
                result[j] += mean * vector[i];
            }
        }
    }
    return result;
}

Matrix3 MatrixOf(const Products& products) {
    const auto [ll, mm, nn, lm, ln, mn] = products;
    return {{{ll, lm, ln}, {lm, mm, mn}, {ln, mn, nn}}};
}

/// A covariance of the components along two directions.
struct Covariance {
    double first = 0;
    double mixed = 0;
    double second = 0;
};

void AddProduct(Matrix3& sum, const Direction& a, const Direction& b, double factor) {
    const std::array<double, 3> left = {a.l, a.m, a.n};
    const std::array<double, 3> right = {b.l, b.m, b.n};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            sum[i][j] += factor * left[i] * right[j];
        }
    }
}

/// n F E^-1 F'; empty without an inverse.
std::optional<MeanForm> FormWith(const Direction& mean, const std::array<Direction, 2>& across,
                                 const Covariance& covariance, double n) {
    const auto& [first, mixed, second] = covariance;
    const double determinant = first * second - mixed * mixed;
    if (!(first > kLeastVariance && second > kLeastVariance
          && determinant > kLeastDeterminant * first * second)) {
        return std::nullopt;
    }
    MeanForm result{mean, {}};
    AddProduct(result.form, across[0], across[0], n * second / determinant);
    AddProduct(result.form, across[1], across[1], n * first / determinant);
    AddProduct(result.form, across[0], across[1], -n * mixed / determinant);
    AddProduct(result.form, across[1], across[0], -n * mixed / determinant);
    return result;
}

} // namespace

AxisSums::Terms AxisSums::TermsOf(const Direction& axis) {
    const Products products = ProductsOf(axis);
    Terms terms{};
    std::size_t term = 0;
    for (std::size_t i = 0; i < products.size(); ++i) {
        for (std::size_t j = i; j < products.size(); ++j, ++term) {
            terms[term] = products[i] * products[j];
        }
    }
    return terms;
}

std::optional<MeanForm> AxisSums::FormOf(const Terms& sums, double n) {
    // ll + mm + nn is 1: the tensor is in the products.
    const Products tensor = MeansAlong(sums, n, {1, 1, 1, 0, 0, 0});
    const FabricAxes eigen = SortedAxes(SymmetricEigen3(MatrixOf(tensor)));
    const auto& [e1, e2, e3] = eigen.axes;
    const double gap1 = eigen.values[2] - eigen.values[0];
    const double gap2 = eigen.values[2] - eigen.values[1];
    if (gap2 < kLeastEigenvalue) {
        return std::nullopt;
    }
    const Products along = MeansAlong(sums, n, FactorsOf(e3, e3));
    const Covariance covariance = {Dot(FactorsOf(e1, e1), along) / (gap1 * gap1),
                                   Dot(FactorsOf(e1, e2), along) / (gap1 * gap2),
                                   Dot(FactorsOf(e2, e2), along) / (gap2 * gap2)};
    return FormWith(e3, {e1, e2}, covariance, n);
}

DirectionSums::Terms DirectionSums::TermsOf(const Direction& direction) {
    const auto [ll, mm, nn, lm, ln, mn] = ProductsOf(direction);
    return {direction.l, direction.m, direction.n, ll, mm, nn, lm, ln, mn};
}

std::optional<MeanForm> DirectionSums::FormOf(const Terms& sums, double n) {
    const Direction resultant = {sums[0] / n, sums[1] / n, sums[2] / n};
    const double length = LengthOf(resultant);
    if (length < kLeastMeanLength) {
        return std::nullopt;
    }
    const Direction mean = {resultant.l / length, resultant.m / length, resultant.n / length};
    const Frame frame = FrameAbout(mean);
    const std::array<Direction, 2> across = {frame[0], frame[1]};
    Products products{};
    for (std::size_t i = 0; i < products.size(); ++i) {
        products[i] = sums[3 + i] / n / (length * length);
    }
    // Components across the mean have the mean 0.
    const Covariance covariance = {Dot(FactorsOf(across[0], across[0]), products),
                                   Dot(FactorsOf(across[0], across[1]), products),
                                   Dot(FactorsOf(across[1], across[1]), products)};
    return FormWith(mean, across, covariance, n);
}

} // namespace quandrel
