// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/density.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace quandrel::api {
namespace {

/// Lines of whole degrees all over the net.
std::vector<Line> WholeLines(std::size_t count, std::uint32_t seed) {
    std::vector<Line> lines = RandomValues(seed).Lines(count, -90);
    for (Line& line : lines) {
        line = {std::nearbyint(line.plunge), std::nearbyint(line.trend)};
    }
    return lines;
}

/// Lines within a cone, pair by pair; nothing if one is too near the rim for this method to decide.
std::optional<std::int32_t> TrueCount(const std::vector<Line>& lines, const Line& axis,
                                      double halfAngle) {
    std::int32_t count = 0;
    for (const Line& line : lines) {
        const double apart = AxesApart({std::abs(line.plunge), line.trend}, axis);
        if (std::abs(apart - halfAngle) < 1e-5) {
            return std::nullopt;
        }
        count += apart < halfAngle ? 1 : 0;
    }
    return count;
}

std::int32_t CountAt(const DensityField& field, int column, int row) {
    const auto side = static_cast<std::size_t>(field.nodes);
    return field.counts[static_cast<std::size_t>(column) * side + static_cast<std::size_t>(row)];
}

TEST(PublicDensity, ConesCountWhatLiesInThem) {
    const std::vector<Line> lines = WholeLines(500, 20260811);
    const std::vector<Line> axes = RandomValues(20260812).Lines(300);
    std::vector<std::int32_t> counts(axes.size());
    for (const double halfAngle : {kCountingCone, 3.0, 40.0}) {
        CountAbout(lines, axes, halfAngle, counts);
        int compared = 0;
        for (std::size_t i = 0; i < axes.size(); ++i) {
            if (const auto truth = TrueCount(lines, axes[i], halfAngle)) {
                EXPECT_EQ(counts[i], *truth) << i;
                ++compared;
            }
        }
        EXPECT_GT(compared, 250);
    }
}

TEST(PublicDensity, NodesCountWhatLiesAboutTheLineUnderThem) {
    const std::vector<Line> lines = WholeLines(200, 20260813);
    for (const Projection projection : {Projection::kEqualArea, Projection::kEqualAngle}) {
        const DensityField field = DensityFieldOf(lines, projection, 20);
        ASSERT_EQ(field.counts.size(), static_cast<std::size_t>(field.nodes * field.nodes));
        int compared = 0;
        for (int i = 0; i < field.nodes; ++i) {
            for (int j = 0; j < field.nodes; ++j) {
                const NetPoint node = {field.first + i * field.step, field.first + j * field.step};
                if (std::hypot(node.east, node.north) > 0.999) {
                    continue;
                }
                const Line axis = LineAtPoint(node, projection);
                if (const auto truth = TrueCount(lines, axis, kCountingCone)) {
                    EXPECT_EQ(CountAt(field, i, j), *truth);
                    ++compared;
                }
            }
        }
        EXPECT_GT(compared, 250);
    }
}

TEST(PublicDensity, LinesCountAtTheirNearestWholeDegrees) {
    const std::vector<Line> measured = {{40.4, 100.4}, {40.5, 99.6}, {41.5, 359.7}, {-0.4, 20}};
    const std::vector<Line> whole = {{40, 100}, {40, 100}, {42, 0}, {0, 20}};
    EXPECT_EQ(DensityFieldOf(measured, Projection::kEqualArea, 30).counts,
              DensityFieldOf(whole, Projection::kEqualArea, 30).counts);
}

TEST(PublicDensity, TheConeIsTheOneOfTheCosine) {
    EXPECT_NEAR(std::cos(testing::Radians(kCountingCone)), 0.98, 1e-13);
}

double InField(const DensityField& field, const NetPoint& point) {
    const double i = (point.east - field.first) / field.step;
    const double j = (point.north - field.first) / field.step;
    const auto column = static_cast<int>(i);
    const auto row = static_cast<int>(j);
    const auto count = [&field](int a, int b) { return CountAt(field, a, b); };
    return std::min({count(column, row), count(column + 1, row), count(column, row + 1),
                     count(column + 1, row + 1)});
}

double MostInField(const DensityField& field, const NetPoint& point) {
    DensityField turned = field;
    for (std::int32_t& count : turned.counts) {
        count = -count;
    }
    return -InField(turned, point);
}

TEST(PublicDensity, ContoursRunBetweenNodesOnEitherSideOfTheirLevel) {
    const std::vector<Line> lines = WholeLines(100, 20260814);
    const DensityField field = DensityFieldOf(lines, Projection::kEqualArea, 60);
    const std::vector<double> levels = {1, 2, 3.5, 5};
    const std::vector<Contour> contours = ContoursOf(field, levels);
    ASSERT_EQ(contours.size(), levels.size());
    std::size_t vertices = 0;
    for (const Contour& contour : contours) {
        // Half-way between the least count of the level and the one below.
        const double height = std::ceil(contour.level * field.lines / 100) - 0.5;
        for (const NetLine& line : contour.lines) {
            EXPECT_GE(line.size(), 2U);
            const bool isClosed = line.front() == line.back();
            const bool endsOnRim = std::hypot(line.front().east, line.front().north) > 0.999
                                   && std::hypot(line.back().east, line.back().north) > 0.999;
            EXPECT_TRUE(isClosed || endsOnRim);
            for (const NetPoint& point : line) {
                EXPECT_LE(std::hypot(point.east, point.north), 1 + 1e-9);
                EXPECT_LE(InField(field, point), height);
                EXPECT_GE(MostInField(field, point), height);
                ++vertices;
            }
        }
    }
    EXPECT_GT(vertices, 100U);
}

TEST(PublicDensity, UsualLevelsAreDoublesUpToTheGreatestDensity) {
    const std::vector<Line> lines(40, Line{30, 100});
    const DensityField field = DensityFieldOf(lines, Projection::kEqualArea, 50);
    EXPECT_EQ(GreatestDensity(field), 100);
    EXPECT_EQ(UsualLevels(field), (std::vector<double>{3, 6, 12, 24, 48, 96}));
}

TEST(PublicDensity, WithoutLinesThereIsNothing) {
    const DensityField field = DensityFieldOf({}, Projection::kEqualAngle, 10);
    EXPECT_EQ(GreatestDensity(field), 0);
    EXPECT_TRUE(UsualLevels(field).empty());
    EXPECT_TRUE(ContoursOf(field, std::vector<double>{5})[0].lines.empty());
    EXPECT_TRUE(
        ContoursOf(DensityField{Projection::kEqualArea, 0, 0, 0, 1, {}}, std::vector<double>{5})[0]
            .lines.empty());
}

TEST(PublicDensity, RefusesWhatItCannotCount) {
    const std::vector<Line> lines = {{10, 20}};
    EXPECT_THROW(static_cast<void>(DensityFieldOf(lines, Projection::kEqualArea, 9)),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(DensityFieldOf(lines, Projection::kEqualArea, 151)),
                 std::invalid_argument);
    DensityField field = DensityFieldOf(lines, Projection::kEqualArea, 10);
    EXPECT_THROW(static_cast<void>(ContoursOf(field, std::vector<double>{0})),
                 std::invalid_argument);
    field.counts.pop_back();
    EXPECT_THROW(static_cast<void>(ContoursOf(field, std::vector<double>{5})),
                 std::invalid_argument);
    std::vector<std::int32_t> counts(1);
    EXPECT_THROW(CountAbout(lines, lines, 45, counts), std::invalid_argument);
    EXPECT_THROW(CountAbout(lines, {}, 10, counts), std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
