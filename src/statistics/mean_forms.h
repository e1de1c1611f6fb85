// SPDX-License-Identifier: MIT
//
// The uncertainty of the mean of axes or directions as a quadratic form, from sums over rows: with
// the sums, samples that exchange rows need not be looked at row by row.

#pragma once

#include "orientation/angles.h"
#include "orientation/eigen.h"

#include <array>
#include <optional>

namespace quandrel {

/// The mean of a sample and A = n F E^-1 F' (equal_means.h): u' A u is what speaks against the
/// direction u as the mean, chi-square with 2 degrees of freedom in large samples.
struct MeanForm {
    Direction mean;
    Matrix3 form{};
};

/// Sums over axes: the products of their components, two by two.
class AxisSums {
public:
    /// The six products ll, mm, nn, lm, ln, mn of two components, and the products of these.
    static constexpr std::size_t kTerms = 21;
    using Terms = std::array<double, kTerms>;

    [[nodiscard]] static Terms TermsOf(const Direction& axis);

    /// @param sums  of the terms of n axes
    /// @return empty where the axes are in one plane or along one line, or do not have a greatest
    ///         eigenvalue
    [[nodiscard]] static std::optional<MeanForm> FormOf(const Terms& sums, double n);
};

/// Sums over directions: their components, and the products of these.
class DirectionSums {
public:
    static constexpr std::size_t kTerms = 9;
    using Terms = std::array<double, kTerms>;

    [[nodiscard]] static Terms TermsOf(const Direction& direction);

    /// @param sums  of the terms of n directions
    /// @return empty where the directions are in one plane with their mean, or do not have a mean
    [[nodiscard]] static std::optional<MeanForm> FormOf(const Terms& sums, double n);
};

} // namespace quandrel
