// SPDX-License-Identifier: MIT

#include "core/style_preset.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(PresetByStyle, LeavesPlotsOfClassicAsTheyAre) {
    PlotRecord record;
    record.RoseEqualArea = kTrue;
    record.RoseDisplay7 = 0;
    PresetByStyle(record, ClassicStyle());
    EXPECT_EQ(record.RoseEqualArea, kTrue);
    EXPECT_EQ(record.RoseDisplay7, 0);
    EXPECT_EQ(record.RoseDisplay8, 0);
}

TEST(PresetByStyle, GivesNewRosesPetalsByAreaAndTheMeanWithItsInterval) {
    for (const std::string_view name : {kScreenStyle, kJournalStyle, kGreyStyle}) {
        PlotRecord record;
        PresetByStyle(record, *StandardStyle(name));
        EXPECT_EQ(record.RoseEqualArea, kTrue) << name;
        EXPECT_EQ(record.RoseDisplay7, kTrue) << name;
        EXPECT_EQ(record.RoseDisplay8, kTrue) << name;
    }
}

TEST(PresetByStyle, FollowsAStyleOfOnesOwn) {
    FigureStyle style = *StandardStyle(kJournalStyle);
    style.roses.equalArea = false;
    style.roses.meanIfSignificant = false;
    PlotRecord record;
    record.RoseEqualArea = kTrue;
    record.RoseDisplay7 = 0;
    PresetByStyle(record, style);
    EXPECT_EQ(record.RoseEqualArea, 0);
    EXPECT_EQ(record.RoseDisplay7, 0) << "the switches of the preferences stay";
}

} // namespace
} // namespace quandrel
