// SPDX-License-Identifier: MIT

#include "orientation/eigen.h"

#include <cmath>
#include <utility>

namespace quandrel {

namespace {

constexpr int kLastSweep = 31;

constexpr Matrix3 kIdentity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

struct Rotation {
    double cosine = 1;
    double sine = 0;
};

/// True unless an off-diagonal entry is negligible beside a diagonal one in the precision of Real.
template <class Real>
bool Changes(double diagonal, double offDiagonal) {
    const auto size = static_cast<Real>(std::abs(diagonal));
    return size != static_cast<Real>(100 * std::abs(offDiagonal) + std::abs(diagonal));
}

/// The rotation that eliminates the entry g; h is the difference of the diagonal entries, w =
/// sqrt(4 g^2 + h^2).
Rotation RotationOf(double g, double h, double w) {
    Rotation rotation;
    if (h < 0) {
        rotation.sine = std::sqrt((w - h) / (2 * w));
        if (g < 0) {
            rotation.sine = -rotation.sine;
        }
    } else {
        rotation.sine = g / (w * std::sqrt((w + h) / (2 * w)));
    }
    if (rotation.sine != 0) {
        rotation.cosine = g / (w * rotation.sine);
    }
    return rotation;
}

void Turn(double& first, double& second, const Rotation& rotation) {
    const double turned = rotation.cosine * first + rotation.sine * second;
    second = rotation.cosine * second - rotation.sine * first;
    first = turned;
}

/// Rotates a and the vectors so that a[p][q] vanishes. Returns false when it is negligible already.
template <class Real>
bool Annihilate(Matrix3& a, Matrix3& vectors, std::size_t p, std::size_t q) {
    const double g = 0.5 * (a[p][q] + a[q][p]);
    const double h = a[p][p] - a[q][q];
    const double w = std::sqrt(4 * g * g + h * h);
    // Unordered values are no reason to rotate: a diagonal matrix stays as it is.
    if (w == 0 || (!Changes<Real>(a[p][p], g) && !Changes<Real>(a[q][q], g))) {
        return false;
    }
    const Rotation rotation = RotationOf(g, h, w);
    if (rotation.sine == 0) {
        return true;
    }
    for (std::size_t k = 0; k < 3; ++k) {
        Turn(a[p][k], a[q][k], rotation);
    }
    for (std::size_t k = 0; k < 3; ++k) {
        Turn(a[k][p], a[k][q], rotation);
    }
    for (std::size_t k = 0; k < 3; ++k) {
        Turn(vectors[k][p], vectors[k][q], rotation);
    }
    return true;
}

template <class Real>
EigenSystem3 Diagonalise(Matrix3 a) {
    EigenSystem3 system{{}, kIdentity};
    bool isSettled = false;
    for (int sweep = 1; sweep <= kLastSweep && !isSettled; ++sweep) {
        const bool turned01 = Annihilate<Real>(a, system.vectors, 0, 1);
        const bool turned02 = Annihilate<Real>(a, system.vectors, 0, 2);
        const bool turned12 = Annihilate<Real>(a, system.vectors, 1, 2);
        isSettled = !turned01 && !turned02 && !turned12;
    }
    system.values = {a[0][0], a[1][1], a[2][2]};
    return system;
}

} // namespace

void JacobiEigen3(const EigenTable& a, EigenTable& v) {
    Matrix3 matrix;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            matrix[row][column] = static_cast<double>(a[row + 1][column + 1]);
        }
    }
    // The rotations use doubles: floats would lose the vectors of close eigenvalues.
    const EigenSystem3 system = Diagonalise<float>(matrix);
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            v[row + 1][column + 1] = static_cast<float>(system.vectors[row][column]);
        }
        v[row + 1][0] = static_cast<float>(system.values[row]);
    }
}

EigenSystem3 SymmetricEigen3(const Matrix3& a) {
    return Diagonalise<double>(a);
}

void SwapInt16(std::int16_t& a, std::int16_t& b) {
    std::swap(a, b);
}

void SwapDouble(double& a, double& b) {
    std::swap(a, b);
}

} // namespace quandrel
