// SPDX-License-Identifier: MIT
//
// Eigenvalues and eigenvectors of symmetric 3 x 3 matrices, and the swap of two numbers.

#pragma once

#include <array>
#include <cstdint>

namespace quandrel {

/// A table as the plot record keeps it: the matrix is in rows and columns 1 to 3.
using EigenTable = std::array<std::array<float, 4>, 4>;

using Matrix3 = std::array<std::array<double, 3>, 3>; ///< [row][column]

/// Eigenvalues of a matrix, each with a unit eigenvector: column i of `vectors` belongs to
/// `values[i]`. They are not sorted.
struct EigenSystem3 {
    std::array<double, 3> values{};
    Matrix3 vectors{};
};

/// Eigenvalues and eigenvectors to the precision of 32-bit floats.
///
/// @param a       [1..3][1..3] a symmetric matrix; otherwise the two halves are averaged
/// @param[out] v  [1..3][1..3] the unit eigenvectors as columns, [i][0] the eigenvalue of column i,
///                not sorted
///
/// A matrix whose off-diagonal entries are too small to change its diagonal in single precision
/// is taken as diagonal: the values stay in place, the vectors are the identity. Does not fail; a
/// matrix that has not converged after 31 sweeps (one with NaN or infinity) is returned as it is.
/// Method: C. G. J. Jacobi (1846), J. reine angew. Math. 30, 51-94, in cyclic sweeps, with the
/// rotation of J. C. Nash, Compact Numerical Methods for Computers (1979), algorithm 14.
void JacobiEigen3(const EigenTable& a, EigenTable& v);

/// JacobiEigen3 in double precision: values to about 1e-15 of the largest.
[[nodiscard]] EigenSystem3 SymmetricEigen3(const Matrix3& a);

/// Swaps two numbers.
void SwapInt16(std::int16_t& a, std::int16_t& b);
void SwapDouble(double& a, double& b);

} // namespace quandrel
