// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/circular.h"
#include "quandrel/fabric.h"
#include "quandrel/summary.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>

namespace quandrel::api {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(PublicSummary, HasTheAxesOfItsLines) {
    RandomValues random(17);
    const std::vector<Line> lines = random.Lines(500, -90);
    Summary summary(Primary::kLines);
    summary.Add(lines);
    const auto fabric = FabricOf(lines, {}, Sense::kDirections);
    const auto axes = summary.Axes();
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(axes->eigenvalues[i], fabric->eigenvalues[i], 1e-7) << "to 1e-6 degree";
        EXPECT_LT(AxesApart(axes->axes[i], fabric->axes[i]), 1e-3);
    }
    const auto directions = summary.Directions();
    EXPECT_NEAR(directions->resultant, fabric->fisher->resultant, 1e-4);
    EXPECT_LT(DirectionsApart(*directions->mean, *fabric->fisher->mean), 1e-3);
    std::vector<double> trends;
    for (const Line& line : lines) {
        trends.push_back(line.trend);
    }
    const auto circular = CircularStatisticsOf(trends, Sense::kAxes);
    EXPECT_NEAR(*summary.Azimuths(Sense::kAxes)->mean, *circular->meanDirection, 1e-4);
}

TEST(PublicSummary, MergesInAnyOrder) {
    const std::vector<Plane> planes = {{40, 120}, {38.5, 118}, {41, 725}, {90, 0}};
    const std::vector<double> numbers = {1, kNan, 3, 0.1};
    const auto part = [&](std::size_t first, std::size_t count) {
        Summary summary(Primary::kPlanes, true);
        summary.Add(std::span(planes).subspan(first, count),
                    std::span(numbers).subspan(first, count));
        return summary;
    };
    const Summary whole = part(0, 4);
    Summary merged = part(2, 2);
    EXPECT_EQ(*merged.Merge(part(0, 2)), 4U);
    EXPECT_EQ(merged.Bytes(), whole.Bytes());
    EXPECT_NEAR(whole.Weight(), 4.1, 1e-6);
    EXPECT_EQ(whole.Numbers().count, 3U);
    EXPECT_EQ(Summary::Read(whole.Bytes())->Bytes(), whole.Bytes());
    EXPECT_FALSE(Summary::Read("a letter"));
    EXPECT_FALSE(merged.Merge(Summary(Primary::kLines)));
}

TEST(PublicSummary, ReadsFilesOfAnyLength) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("quandrel_summary_" + std::to_string(::getpid()));
    std::ofstream(path) << "dip\tdirection\n40\t120\n38.5\t118\nnone\n";
    TableFormat format;
    format.hasHeading = true;
    Summary summary(Primary::kPlanes);
    EXPECT_EQ(*summary.AddFile(path.string(), format, 2), 2U);
    EXPECT_EQ(summary.RefusedLines(), 1U);
    std::filesystem::remove(path);
    EXPECT_FALSE(summary.AddFile(path.string(), format));
    EXPECT_FALSE(Summary(Primary::kLines).AddFile(path.string(), format));
}

TEST(PublicSummary, RefusesOddRows) {
    Summary summary(Primary::kPlanes);
    EXPECT_THROW(summary.Add(std::vector<Plane>{{40, 120}, {95, 0}}), std::invalid_argument);
    EXPECT_EQ(summary.Rows(), 0U) << "nothing of refused rows is added";
    EXPECT_THROW(summary.Add(std::vector<Line>{{40, 120}}), std::invalid_argument);
    EXPECT_THROW(summary.Add(std::vector<Plane>{{40, 120}}, std::vector<double>{1, 2}),
                 std::invalid_argument);
    summary.Add(std::vector<Plane>{{kNan, kNan}, {40, 120}});
    EXPECT_EQ(summary.Rows(), 1U);
    EXPECT_EQ(summary.RefusedLines(), 1U);
    EXPECT_FALSE(Summary(Primary::kLines).Axes());
}

} // namespace
} // namespace quandrel::api
