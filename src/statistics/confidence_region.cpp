// SPDX-License-Identifier: MIT

#include "statistics/confidence_region.h"

#include "orientation/direction_vectors.h"

#include <cmath>
#include <limits>
#include <utility>

namespace quandrel {

namespace {

/// A bound below this is rounding error: the rows do not differ.
constexpr double kLeastComponent = 1e-9;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Eigenvalues, the greater first, of the matrix a b; b c, with the angle from the first axis to
/// that of the greater.
struct Principal {
    double greater = 0;
    double lesser = 0;
    double angle = 0;
};

Principal PrincipalOf(const std::array<double, 3>& matrix) {
    const auto& [a, b, c] = matrix;
    const double half = (a - c) / 2;
    const double radius = std::hypot(half, b);
    Principal principal;
    principal.greater = (a + c) / 2 + radius;
    // The determinant over the greater keeps the digits that (a + c)/2 - radius would lose.
    principal.lesser = principal.greater > 0 ? (a * c - b * b) / principal.greater : 0;
    principal.angle = std::atan2(b, half) / 2;
    return principal;
}

void SetState(ConfidenceRegion& region, RegionState state, RegionReason reason) {
    region.state = state;
    region.reason = reason;
}

/// The angle of a vertex of a polygon; the last is exactly the first.
double VertexAngle(std::size_t vertex, std::size_t sides) {
    return kTwoPi * static_cast<double>(vertex % sides) / static_cast<double>(sides);
}

Frame FrameOf(const ConfidenceRegion& region) {
    return {region.frame[0], region.frame[1], region.centre};
}

} // namespace

bool HasBounds(const ConfidenceRegion& region) {
    return region.state != RegionState::Undefined;
}

std::optional<std::array<double, 2>> SemiAxes(const ConfidenceRegion& region) {
    if (!HasBounds(region)) {
        return std::nullopt;
    }
    return std::array{ArcSin(region.components[0]), ArcSin(region.components[1])};
}

bool Contains(const ConfidenceRegion& region, const Direction& direction) {
    if (std::isinf(region.components[0])) {
        return true;
    }
    if (region.target == RegionTarget::MeanDirection && DotProduct(direction, region.centre) <= 0) {
        return false;
    }
    double sum = 0;
    for (std::size_t i = 0; i < region.frame.size(); ++i) {
        const double along = DotProduct(direction, region.frame[i]) / region.components[i];
        sum += along * along;
    }
    return sum <= 1;
}

std::vector<Direction> RegionOutline(const ConfidenceRegion& region, std::size_t sides) {
    std::vector<Direction> outline;
    if (!HasBounds(region)) {
        return outline;
    }
    const auto& [greater, lesser] = region.components;
    for (std::size_t vertex = 0; vertex <= sides; ++vertex) {
        const double angle = VertexAngle(vertex, sides);
        const double cosine = std::cos(angle);
        const double sine = std::sin(angle);
        // 1 - (c1 cos)^2 - (c2 sin)^2, without a difference of numbers near 1 for bounds near 1.
        const double height = std::sqrt((1 - greater) * (1 + greater) * cosine * cosine
                                        + (1 - lesser) * (1 + lesser) * sine * sine);
        outline.push_back(FromFrame(FrameOf(region), {greater * cosine, lesser * sine, height}));
    }
    return outline;
}

std::array<std::vector<Direction>, 2> GirdleBand(const ConfidenceRegion& region,
                                                 std::size_t sides) {
    std::array<std::vector<Direction>, 2> edges;
    const auto semiAxes = SemiAxes(region);
    if (!semiAxes) {
        return edges;
    }
    const double greater = std::tan((*semiAxes)[0]);
    const double lesser = std::tan((*semiAxes)[1]);
    for (std::size_t vertex = 0; vertex <= sides; ++vertex) {
        const double angle = VertexAngle(vertex, sides);
        const double x = std::cos(angle);
        const double y = std::sin(angle);
        const double height = std::hypot(greater * x, lesser * y);
        const double length = std::hypot(1.0, height);
        edges[0].push_back(FromFrame(FrameOf(region), {x / length, y / length, height / length}));
        edges[1].push_back(FromFrame(FrameOf(region), {x / length, y / length, -height / length}));
    }
    return edges;
}

void SetSemiAxes(ConfidenceRegion& region, const Direction& centre,
                 const std::array<Direction, 2>& plane, const std::array<double, 2>& components) {
    region.centre = centre;
    region.frame = plane;
    region.components = components;
    if (components[0] < components[1]) {
        std::swap(region.frame[0], region.frame[1]);
        std::swap(region.components[0], region.components[1]);
    }
    if (!(region.components[0] < 1)) { // NaN has no bounds either
        SetState(region, RegionState::Undefined, RegionReason::WithoutBounds);
    } else if (region.components[1] < kLeastComponent) {
        SetState(region, RegionState::Undefined, RegionReason::RowsAlike);
    } else {
        SetState(region, RegionState::Given, RegionReason::None);
    }
}

ConfidenceRegion UnboundedRegion(RegionTarget target, RegionMethod method, double level,
                                 double count) {
    ConfidenceRegion region;
    region.target = target;
    region.method = method;
    region.level = level;
    region.count = count;
    region.state = RegionState::Undefined;
    region.reason = RegionReason::TooFewRows;
    return region;
}

void SetEllipse(ConfidenceRegion& region, const Direction& centre,
                const std::array<Direction, 2>& plane, const std::array<double, 3>& covariance,
                double limit) {
    const Principal principal = PrincipalOf(covariance);
    const double cosine = std::cos(principal.angle);
    const double sine = std::sin(principal.angle);
    const std::array<Direction, 2> turned = {Combined(plane[0], cosine, plane[1], sine),
                                             Combined(plane[0], -sine, plane[1], cosine)};
    if (std::isinf(limit)) {
        SetSemiAxes(region, centre, turned, {kInfinity, kInfinity});
        return;
    }
    SetSemiAxes(
        region, centre, turned,
        {std::sqrt(limit * principal.greater), std::sqrt(limit * std::max(principal.lesser, 0.0))});
}

} // namespace quandrel
