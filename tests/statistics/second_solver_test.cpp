// SPDX-License-Identifier: MIT
//
// Eigenvalues and eigenvectors of orientation tensors, compared with another library's solver.

#include "orientation/eigen.h"

#include <Eigen/Eigenvalues>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace quandrel {
namespace {

constexpr unsigned kSeed = 1977;
constexpr int kTensors = 1000;

/// Eigenvectors are compared if their eigenvalue is at least this far from the others: closer ones
/// turn with the last digits of the tensor.
constexpr double kGap = 1e-3;

using Vector = Eigen::Vector3d;
using Tensor = Eigen::Matrix3d;

Vector RandomDirection(std::mt19937& random) {
    std::normal_distribution<double> normal;
    return Vector(normal(random), normal(random), normal(random)).normalized();
}

Tensor FromValues(std::mt19937& random, double e1, double e2, double e3) {
    const Vector axis3 = RandomDirection(random);
    const Vector axis2 = axis3.cross(RandomDirection(random)).normalized();
    const Vector axis1 = axis2.cross(axis3);
    return e1 * axis1 * axis1.transpose() + e2 * axis2 * axis2.transpose()
           + e3 * axis3 * axis3.transpose();
}

/// Tensors of few or many directions, of lines, planes, equal and nearly equal eigenvalues.
Tensor TensorOf(std::mt19937& random, int kind) {
    std::uniform_real_distribution<double> share(0, 1);
    const double part = share(random);
    switch (kind % 8) {
    case 0: { // one line
        const Vector axis = RandomDirection(random);
        return axis * axis.transpose();
    }
    case 1: // two equal, none, two lines at a right angle
        return FromValues(random, 0, 0.5, 0.5);
    case 2: // a girdle
        return FromValues(random, 0, part, 1 - part);
    case 3: // all directions alike
        return FromValues(random, 1.0 / 3, 1.0 / 3, 1.0 / 3);
    case 4: // symmetric about the axis of another value
        return FromValues(random, part / 2, part / 2, 1 - part);
    case 5: // close together
        return FromValues(random, 0.33, 0.33 + part / 100, 0.34 - part / 100);
    default: { // the sum of random directions
        Tensor sum = Tensor::Zero();
        const int rows = 2 + static_cast<int>(random() % 40);
        for (int row = 0; row < rows; ++row) {
            const Vector axis = RandomDirection(random);
            sum += axis * axis.transpose();
        }
        return sum / rows;
    }
    }
}

/// Distance of two axes as unit vectors, either way round.
double DistanceOfAxes(const Vector& a, const Vector& b) {
    return std::min((a - b).norm(), (a + b).norm());
}

bool StandsApart(const Vector& values, int i) {
    for (int k = 0; k < 3; ++k) {
        if (k != i && std::abs(values[k] - values[i]) < kGap) {
            return false;
        }
    }
    return true;
}

/// The results of a solution, sorted in ascending order.
struct Solution {
    Vector values;
    Tensor vectors; ///< columns
};

Solution Sorted(const Vector& values, const Tensor& vectors) {
    std::array<int, 3> order = {0, 1, 2};
    std::stable_sort(order.begin(), order.end(),
                     [&values](int a, int b) { return values[a] < values[b]; });
    Solution sorted;
    for (int i = 0; i < 3; ++i) {
        sorted.values[i] = values[order[static_cast<std::size_t>(i)]];
        sorted.vectors.col(i) = vectors.col(order[static_cast<std::size_t>(i)]);
    }
    return sorted;
}

Solution OursInFloats(const Tensor& tensor) {
    EigenTable given{};
    EigenTable found{};
    Vector values;
    Tensor vectors;
    for (std::size_t row = 1; row <= 3; ++row) {
        for (std::size_t column = 1; column <= 3; ++column) {
            given[row][column] = static_cast<float>(
                tensor(static_cast<Eigen::Index>(row) - 1, static_cast<Eigen::Index>(column) - 1));
        }
    }
    JacobiEigen3(given, found);
    for (std::size_t row = 1; row <= 3; ++row) {
        values[static_cast<Eigen::Index>(row) - 1] = static_cast<double>(found[row][0]);
        for (std::size_t column = 1; column <= 3; ++column) {
            vectors(static_cast<Eigen::Index>(row) - 1, static_cast<Eigen::Index>(column) - 1) =
                static_cast<double>(found[row][column]);
        }
    }
    return Sorted(values, vectors);
}

Solution OursInDoubles(const Tensor& tensor) {
    Matrix3 given{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            given[row][column] =
                tensor(static_cast<Eigen::Index>(row), static_cast<Eigen::Index>(column));
        }
    }
    const EigenSystem3 found = SymmetricEigen3(given);
    Tensor vectors;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            vectors(static_cast<Eigen::Index>(row), static_cast<Eigen::Index>(column)) =
                found.vectors[row][column];
        }
    }
    return Sorted(Vector(found.values[0], found.values[1], found.values[2]), vectors);
}

/// Compares with the other solver; returns how many eigenvectors were compared.
int CompareWithOtherSolver(const Tensor& tensor, const Solution& ours, double tolerance) {
    const Eigen::SelfAdjointEigenSolver<Tensor> other(tensor);
    int compared = 0;
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(ours.values[i], other.eigenvalues()[i], tolerance);
        const Vector vector = ours.vectors.col(i);
        EXPECT_LT((tensor * vector - other.eigenvalues()[i] * vector).norm(), tolerance);
        if (StandsApart(other.eigenvalues(), i)) {
            EXPECT_LT(DistanceOfAxes(vector, other.eigenvectors().col(i)), tolerance);
            ++compared;
        }
    }
    EXPECT_LT((ours.vectors.transpose() * ours.vectors - Tensor::Identity()).norm(), tolerance);
    return compared;
}

TEST(JacobiEigen3, AgreesWithAnotherSolverInFloats) {
    std::mt19937 random(kSeed);
    int compared = 0;
    for (int i = 0; i < kTensors && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        // The other solver gets the tensor in single precision.
        const Tensor tensor = TensorOf(random, i).cast<float>().cast<double>();
        compared += CompareWithOtherSolver(tensor, OursInFloats(tensor), 1e-6);
    }
    EXPECT_GT(compared, kTensors);
}

TEST(SymmetricEigen3, AgreesWithAnotherSolverInDoubles) {
    std::mt19937 random(kSeed);
    for (int i = 0; i < kTensors && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const Tensor tensor = TensorOf(random, i);
        const Tensor symmetric = (tensor + tensor.transpose()) / 2;
        CompareWithOtherSolver(symmetric, OursInDoubles(symmetric), 1e-12);
    }
}

} // namespace
} // namespace quandrel
