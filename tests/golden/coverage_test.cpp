// SPDX-License-Identifier: MIT
//
// Scripts, and with them reference files, for every mode of both nets and for every kind of rose.

#include "core/plot_store.h"
#include "golden/golden_file.h"
#include "golden/script_run.h"
#include "rose/rose_radii.h"
#include "rose/rose_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

namespace quandrel {
namespace {

/// The ends of the names of scripts, by PlotSymbolModeCode. The second mode of points draws as the
/// first.
constexpr std::array<const char*, kContoursAndGrid + 1> kModes = {
    "great_circles", "poles",        "",         "beta",
    "point_density", "grid_density", "contours", "contours_and_grid"};

/// Plays a script. False when there is no such script, or it has no reference file.
bool Play(ScriptRun& run, const std::string& name) {
    if (BytesOf(ScriptFolder() / (name + ".txt")).empty()
        || BytesOf(GoldenFolder() / (name + ".txt")).empty()) {
        return false;
    }
    run.Play(name);
    return true;
}

void ExpectScriptsOfNet(const std::string& net, std::int16_t kind) {
    for (std::int16_t mode = kGreatCircles; mode <= kContoursAndGrid; ++mode) {
        if (mode == kPointSymbolsToo) {
            continue;
        }
        const std::string name = net + kModes.at(static_cast<std::size_t>(mode));
        ScriptRun run;
        ASSERT_TRUE(Play(run, name)) << name;
        EXPECT_EQ(ActiveRecord().PlotKind, kind) << name;
        EXPECT_EQ(ActiveRecord().PlotSymbolMode, mode) << name;
    }
}

TEST(GoldenCoverage, EveryModeOfTheEqualAreaNetHasAReference) {
    ExpectScriptsOfNet("net_area_", kEqualArea);
}

TEST(GoldenCoverage, EveryModeOfTheEqualAngleNetHasAReference) {
    ExpectScriptsOfNet("net_angle_", kEqualAngle);
}

TEST(GoldenCoverage, EveryKindOfRoseHasAReference) {
    int kinds = 0;
    for (; IsRoseKind(kinds); ++kinds) {
        const std::string name = "rose_type_" + std::to_string(kinds);
        ScriptRun run;
        ASSERT_TRUE(Play(run, name)) << name;
        EXPECT_EQ(ActiveRecord().PlotKind, kRose) << name;
        EXPECT_EQ(RoseKindOf(ActiveRecord().RoseType), kinds) << name;
    }
    EXPECT_GT(kinds, kRoseValueOverMean);
}

} // namespace
} // namespace quandrel
