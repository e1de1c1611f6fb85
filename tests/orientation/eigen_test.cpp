// SPDX-License-Identifier: MIT
//
// Eigenvalues and eigenvectors by their definition: A v = lambda v, with vectors at right angles.

#include "orientation/eigen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace quandrel {
namespace {

EigenTable TableOf(const Matrix3& matrix) {
    EigenTable table{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            table[row + 1][column + 1] = static_cast<float>(matrix[row][column]);
        }
    }
    return table;
}

EigenTable SolutionOf(const Matrix3& matrix) {
    EigenTable solution{};
    JacobiEigen3(TableOf(matrix), solution);
    return solution;
}

void ExpectIdentityVectors(const EigenTable& solution) {
    for (std::size_t row = 1; row <= 3; ++row) {
        for (std::size_t column = 1; column <= 3; ++column) {
            EXPECT_EQ(solution[row][column], row == column ? 1.0F : 0.0F) << row << " " << column;
        }
    }
}

/// The greatest component of A v - lambda v, of V V' - 1, over all columns.
double WorstResidual(const Matrix3& a, const EigenSystem3& system) {
    double worst = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t row = 0; row < 3; ++row) {
            double left = 0;
            double product = 0;
            for (std::size_t k = 0; k < 3; ++k) {
                left += a[row][k] * system.vectors[k][i];
                product += system.vectors[k][row] * system.vectors[k][i];
            }
            worst = std::max(worst, std::abs(left - system.values[i] * system.vectors[row][i]));
            worst = std::max(worst, std::abs(product - (row == i ? 1 : 0)));
        }
    }
    return worst;
}

EigenSystem3 SystemOf(const EigenTable& table) {
    EigenSystem3 system;
    for (std::size_t row = 0; row < 3; ++row) {
        system.values[row] = static_cast<double>(table[row + 1][0]);
        for (std::size_t column = 0; column < 3; ++column) {
            system.vectors[row][column] = static_cast<double>(table[row + 1][column + 1]);
        }
    }
    return system;
}

struct DiagonalCase {
    const char* name;
    double first;
    double second;
    double third;
};

class DiagonalMatrix : public ::testing::TestWithParam<DiagonalCase> {};

TEST_P(DiagonalMatrix, StaysAsItIs) {
    const DiagonalCase& given = GetParam();
    const EigenTable solution =
        SolutionOf({{{given.first, 0, 0}, {0, given.second, 0}, {0, 0, given.third}}});
    EXPECT_EQ(solution[1][0], static_cast<float>(given.first));
    EXPECT_EQ(solution[2][0], static_cast<float>(given.second));
    EXPECT_EQ(solution[3][0], static_cast<float>(given.third));
    ExpectIdentityVectors(solution);
}

INSTANTIATE_TEST_SUITE_P(JacobiEigen3, DiagonalMatrix,
                         ::testing::Values(DiagonalCase{"Zero", 0, 0, 0},
                                           DiagonalCase{"Identity", 1, 1, 1},
                                           DiagonalCase{"Descending", 0.5, 0.3, 0.2},
                                           DiagonalCase{"Ascending", 0.2, 0.3, 0.5},
                                           DiagonalCase{"DominantLast", 0, 0, 1},
                                           DiagonalCase{"Mixed", 0.25, 0.625, 0.125},
                                           DiagonalCase{"Negative", -2, 3, -5}),
                         [](const auto& given) { return std::string(given.param.name); });

TEST(JacobiEigen3, AnOffDiagonalTooSmallForFloatsCountsAsZero) {
    // 100 g must be below half a step of 0.5 in single precision, 3e-8.
    const EigenTable solution =
        SolutionOf({{{0.5, 1e-11, 0}, {1e-11, 0.3, 1e-11}, {0, 1e-11, 0.2}}});
    ExpectIdentityVectors(solution);
}

TEST(JacobiEigen3, SolvesAMatrixDoneByHand) {
    // (2 - x)^2 = 1 gives 3 with (1, 1, 0) and 1 with (1, -1, 0); 5 is separate.
    const EigenTable solution = SolutionOf({{{2, 1, 0}, {1, 2, 0}, {0, 0, 5}}});
    std::vector<float> values = {solution[1][0], solution[2][0], solution[3][0]};
    std::sort(values.begin(), values.end());
    EXPECT_NEAR(values[0], 1, 1e-6);
    EXPECT_NEAR(values[1], 3, 1e-6);
    EXPECT_NEAR(values[2], 5, 1e-6);
    for (std::size_t column = 1; column <= 3; ++column) {
        if (std::abs(solution[column][0] - 3) < 1e-3) {
            EXPECT_NEAR(std::abs(solution[1][column]), std::sqrt(0.5), 1e-6);
            EXPECT_NEAR(solution[1][column], solution[2][column], 1e-6);
        }
    }
}

TEST(JacobiEigen3, LeavesItsInputUntouched) {
    const EigenTable given = TableOf({{{0.4, 0.1, 0.2}, {0.1, 0.3, 0.05}, {0.2, 0.05, 0.3}}});
    const EigenTable copy = given;
    EigenTable solution{};
    JacobiEigen3(given, solution);
    EXPECT_EQ(given, copy);
}

TEST(JacobiEigen3, SatisfiesItsDefinitionOnRandomMatrices) {
    constexpr unsigned kSeed = 20;
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<double> entry(-1, 1);
    for (int i = 0; i < 2000; ++i) {
        const double lm = entry(random);
        const double ln = entry(random);
        const double mn = entry(random);
        const Matrix3 a = {
            {{entry(random), lm, ln}, {lm, entry(random), mn}, {ln, mn, entry(random)}}};
        ASSERT_LT(WorstResidual(a, SystemOf(SolutionOf(a))), 1e-6) << "seed " << kSeed << " " << i;
        ASSERT_LT(WorstResidual(a, SymmetricEigen3(a)), 1e-14) << "seed " << kSeed << " " << i;
    }
}

TEST(JacobiEigen3, EndsOnWhatIsNoNumber) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const EigenTable solution = SolutionOf({{{nan, 1, 0}, {1, nan, 0}, {0, 0, 1}}});
    EXPECT_TRUE(std::isnan(solution[1][0]));
}

TEST(Swap, ExchangesTwoNumbers) {
    std::int16_t small = -3;
    std::int16_t large = 32767;
    SwapInt16(small, large);
    EXPECT_EQ(small, 32767);
    EXPECT_EQ(large, -3);
    double first = 0.25;
    double second = -1e300;
    SwapDouble(first, second);
    EXPECT_EQ(first, -1e300);
    EXPECT_EQ(second, 0.25);
}

} // namespace
} // namespace quandrel
