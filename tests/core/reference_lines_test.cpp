// SPDX-License-Identifier: MIT

#include "core/reference_lines.h"
#include "orientation/angles.h"

#include <gtest/gtest.h>

#include <limits>

namespace quandrel {
namespace {

TEST(ReferenceLines, NameWhatIsPrintedOnlyWhereItRoundsToSomethingElse) {
    ReferenceLines lines;
    lines.Add("n", 3);
    lines.Add("same", 0.1234, 0.1199, "Fixed");
    lines.Add("other", 0.126, 0.12, "Fixed");
    lines.Add("none", std::nullopt, 0.12, "Fixed");
    lines.Add("unknown", std::nullopt);
    lines.AddBesideWords("told", 2.5, "not calculated");
    lines.Add("endless", std::numeric_limits<double>::infinity(), 0, "Fixed");
    EXPECT_EQ(TextOfReference(lines.Take()), "n = 3\n"
                                             "same = 0.1234\n"
                                             "other = 0.126 (printed 0.12)\n"
                                             "none = undetermined (printed 0.12)\n"
                                             "unknown = undetermined\n"
                                             "told = 2.5 (printed not calculated)\n"
                                             "endless = inf (printed 0.00)\n");
    EXPECT_TRUE(lines.Take().empty());
}

TEST(ReferenceLines, HaveAnglesInDegrees) {
    ReferenceLines lines;
    lines.AddAngle("right angle", kPi / 2, kPi / 4, "0.0");
    lines.AddAngle("none", std::nullopt, 0, "0.0");
    EXPECT_EQ(TextOfReference(lines.Take()), "right angle = 90 (printed 45.0)\n"
                                             "none = undetermined (printed 0.0)\n");
}

TEST(ReferenceLines, TakeDirectionsAPeriodApartForTheSame) {
    ReferenceLines lines;
    lines.AddDirection("north", 0.0, kTwoPi, "0.0", kTwoPi);
    lines.AddDirection("axis", 0.0, kPi, "0.0", kPi);
    lines.AddDirection("east", kPi / 2, kPi, "0.0", kTwoPi);
    lines.AddDirection("north again", 0.0, kTwoPi - kPi / 180, "0.0", kTwoPi);
    lines.AddDirection("none", std::nullopt, kPi, "0.0", kTwoPi);
    EXPECT_EQ(TextOfReference(lines.Take()), "north = 0\n"
                                             "axis = 0\n"
                                             "east = 90 (printed 180.0)\n"
                                             "north again = 0 (printed 359.0)\n"
                                             "none = undetermined (printed 180.0)\n");
}

} // namespace
} // namespace quandrel
