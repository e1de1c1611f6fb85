// SPDX-License-Identifier: MIT
//
// Regions, tests, smooth densities and suggested formats, against sums and counts of their own.

#include "border/random_lines.h"
#include "quandrel/fabric.h"
#include "quandrel/region.h"
#include "quandrel/row_tests.h"
#include "quandrel/smooth_density.h"
#include "quandrel/suggest.h"
#include "quandrel/workspace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace quandrel::api {
namespace {

namespace qt = quandrel::testing;

std::vector<Line> Cluster(std::size_t count, double spread, std::uint32_t seed) {
    RandomValues random(seed);
    const qt::Vector axis = qt::Unit({0.4, 0.5, 0.8});
    std::vector<Line> lines;
    while (lines.size() < count) {
        const qt::Vector off = {random.Between(-1, 1), random.Between(-1, 1),
                                random.Between(-1, 1)};
        const qt::Vector v = qt::Unit(qt::Sum(axis, 1, off, spread));
        lines.push_back(LineOf({v.north, v.east, v.down}));
    }
    return lines;
}

TEST(PublicRegion, IsAboutThePrincipalAxis) {
    const std::vector<Line> lines = Cluster(80, 0.4, 3);
    const auto region = RegionOf(lines, {.method = RegionMethod::kAxisEllipse});
    ASSERT_TRUE(region && region->centre && region->semiAxes);
    EXPECT_LT(AxesApart(*region->centre, FabricOf(lines)->axes[2]), 1e-6);
    const auto& [major, minor] = *region->semiAxes;
    ASSERT_EQ(region->outline.size(), 181U);
    for (const Line& line : region->outline) {
        const double apart = AxesApart(*region->centre, line);
        EXPECT_LE(apart, major + 1e-6);
        EXPECT_GE(apart, minor - 1e-6);
    }
    EXPECT_LT(std::abs(AxesApart(*region->centre, *region->towards) - 90), 1e-6);
}

TEST(PublicRegion, CountsAreRepeatedLines) {
    const std::vector<Line> lines = Cluster(30, 0.4, 5);
    std::vector<Line> twice = lines;
    twice.insert(twice.end(), lines.begin(), lines.end());
    const RegionChoice choice = {.method = RegionMethod::kWatsonCone};
    const auto one = RegionOf(twice, choice);
    const auto other = RegionOf(lines, choice, std::vector<double>(lines.size(), 2));
    EXPECT_EQ(one->count, 60);
    EXPECT_EQ(other->count, 60);
    EXPECT_NEAR((*one->semiAxes)[0], (*other->semiAxes)[0], 1e-9);
}

TEST(PublicRegion, RefusesOddChoices) {
    const std::vector<Line> lines = Cluster(30, 0.4, 5);
    EXPECT_FALSE(RegionOf({}));
    EXPECT_THROW((void)RegionOf(lines, {.method = RegionMethod::kFisherCone}),
                 std::invalid_argument);
    EXPECT_THROW((void)RegionOf(lines, {.level = 1}), std::invalid_argument);
    EXPECT_THROW((void)RegionOf(lines, {.resamples = 10}), std::invalid_argument);
    EXPECT_THROW((void)RegionOf(lines, {}, std::vector<double>{1}), std::invalid_argument);
}

TEST(PublicSmoothDensity, IsTheSumOfItsKernels) {
    const std::vector<Line> lines = Cluster(100, 0.5, 9);
    const SmoothDensity density(lines, {.halfWidth = 14});
    EXPECT_NEAR(density.HalfAngle(), 14, 1e-9);
    const double kappa = std::log(2) / std::pow(std::sin(qt::Radians(14)), 2);
    const auto sumAt = [&](const Line& place) {
        double sum = 0;
        for (const Line& line : lines) {
            const double cosine = std::cos(qt::Radians(AxesApart(place, line)));
            sum += std::exp(kappa * (cosine * cosine - 1));
        }
        return sum;
    };
    const Line first = {60, 50};
    const Line second = {20, 300};
    EXPECT_NEAR(density.At(first) / density.At(second), sumAt(first) / sumAt(second),
                1e-3 * density.At(first) / density.At(second));
    const DensityPlace greatest = density.Greatest();
    EXPECT_NEAR(density.At(greatest.at), greatest.density, 1e-6);
    EXPECT_NEAR(density.Maxima().front().density, greatest.density, 1e-9);
    for (const SphereContour& contour : density.Contours(density.UsualLevels())) {
        for (const std::vector<Line>& line : contour.lines) {
            EXPECT_NEAR(density.At(line[line.size() / 2]), contour.level, 0.01 * contour.level);
        }
    }
}

TEST(PublicSmoothDensity, CountsWithKamb) {
    const std::vector<Line> lines = Cluster(90, 0.5, 2);
    const SmoothDensity density(
        lines, {.method = DensityMethod::kKamb, .k = 2, .unit = DensityUnit::kCounts});
    const Line place = {55, 45};
    const auto within = std::ranges::count_if(
        lines, [&](const Line& line) { return AxesApart(place, line) <= density.HalfAngle(); });
    EXPECT_EQ(density.At(place), static_cast<double>(within));
    EXPECT_THROW(SmoothDensity(lines, {.unit = DensityUnit::kCounts}), std::invalid_argument);
    EXPECT_THROW(SmoothDensity(lines, {.halfWidth = 80}), std::invalid_argument);
    EXPECT_THROW(SmoothDensity({}, {}), std::invalid_argument);
}

TEST(PublicRowTests, RejectWhatIsNotEven) {
    const TestChoice quick = {.tries = 199};
    const std::vector<RowTest> tests = TestsOf(Cluster(60, 0.4, 1), Sense::kAxes, quick);
    ASSERT_FALSE(tests.empty());
    EXPECT_LT(*tests[0].probability, 0.001);
    RandomValues random(4);
    std::vector<double> azimuths(60);
    std::ranges::generate(azimuths, [&random] { return random.Between(0, 360); });
    EXPECT_GT(*TestsOf(azimuths, Sense::kDirections, quick)[0].probability, 0.01);
    const std::vector<RowTest> two =
        TestsOf(Cluster(40, 0.4, 1), Cluster(40, 0.4, 2), Sense::kAxes, quick);
    ASSERT_FALSE(two.empty());
    EXPECT_GT(*two[0].probability, 0.01);
    EXPECT_FALSE(TestsOf(azimuths, azimuths, Sense::kAxes, quick).empty());
    EXPECT_THROW((void)TestsOf(azimuths, Sense::kAxes, {.tries = 5}), std::invalid_argument);
}

TEST(PublicPrincipalAxes, AreThoseOfTheFabricWithAnyThreads) {
    std::vector<Line> lines = Cluster(40'000, 0.8, 7);
    const auto one = PrincipalAxesOf(lines);
    const auto four = PrincipalAxesOf(lines, 4);
    const auto fabric = FabricOf(lines);
    std::vector<Vector> vectors(lines.size());
    VectorsOf(lines, vectors);
    const auto ofVectors = PrincipalAxesOf(vectors, 2);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(one->eigenvalues[i], four->eigenvalues[i]);
        EXPECT_NEAR(one->eigenvalues[i], fabric->eigenvalues[i], 1e-12);
        EXPECT_NEAR(one->eigenvalues[i], ofVectors->eigenvalues[i], 1e-12);
        EXPECT_LT(AxesApart(one->axes[i], fabric->axes[i]), 1e-5);
    }
    EXPECT_FALSE(PrincipalAxesOf(std::span<const Line>()));
    EXPECT_THROW((void)PrincipalAxesOf(std::vector<Line>{{91, 0}}), std::invalid_argument);
    EXPECT_THROW((void)PrincipalAxesOf(std::vector<Vector>{{0, 0, 0}}), std::invalid_argument);
}

TEST(PublicFabric, WholeDegreesInAnyTurnAreOneLine) {
    const auto turned = FabricOf(std::vector<Line>{{30, 400}, {20, -320}, {10, 90}});
    const auto usual = FabricOf(std::vector<Line>{{30, 40}, {20, 40}, {10, 90}});
    EXPECT_EQ(turned->eigenvalues, usual->eigenvalues);
}

TEST(PublicSuggest, FindsPairsAndComments) {
    const std::string text = "# bedding\nsite,attitude\n1,040/12\n2,121/33\n3,302/71\n4,359/45\n";
    const std::vector<SuggestedFormat> formats = SuggestFormats(text);
    ASSERT_FALSE(formats.empty());
    EXPECT_TRUE(formats[0].format.hasPairs);
    const Table table = ReadTable(text, formats[0].format);
    EXPECT_EQ(table.lineNumbers.size(), 4U);
    EXPECT_FALSE(SureFormat("nothing here\n"));
    const Result<TableFormat> stated = SureFormat("/T1\t/I2\t/C2\t/12\t/20\n120\t30\n");
    ASSERT_TRUE(stated);
    EXPECT_EQ(ReadTable("/T1\n120\t30\n", *stated).planes[0], (Plane{30, 120}));
}

TEST(PublicSuggest, FormatsWithOddMarksAreRefused) {
    TableFormat format;
    format.commentMarks = "!";
    EXPECT_THROW((void)ReadTable("40\t120\n", format), std::invalid_argument);
}

TEST(PublicWorkspace, OtherTextsListNothing) {
    EXPECT_TRUE(FilesOfWorkspace("40\t120\n", "/area").empty());
}

} // namespace
} // namespace quandrel::api
