// SPDX-License-Identifier: MIT

#include "core/item_style.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(ItemStyle, EveryKindOfItemHasARowOfItsOwn) {
    EXPECT_EQ(StyleRowOfItem(kMeanItem), std::size_t{kMeanGirdleStyle});
    EXPECT_EQ(StyleRowOfItem(kFirstUserGirdle), std::size_t{kUserGirdleStyle});
    EXPECT_EQ(StyleRowOfItem(kLastUserGirdle), std::size_t{kUserGirdleStyle});
    EXPECT_EQ(StyleRowOfItem(kMeanPlaneItem), std::size_t{kCalculatedGirdleStyle});
    EXPECT_EQ(StyleRowOfItem(kGirdleItem), std::size_t{kCalculatedGirdleStyle});
}

TEST(ItemStyle, TakesThePlacesOfAnItemThatHoldIt) {
    AxisItem item;
    item[kItemText] = std::string("30/120");
    SetStyleOfItem(item, {7, 2, 3});
    EXPECT_EQ(NumberOf(item[kItemColour]), 7);
    EXPECT_EQ(NumberOf(item[kItemDrawStyle]), 2);
    EXPECT_EQ(NumberOf(item[kItemDrawWidth]), 3);
    EXPECT_EQ(TextOf(item[kItemText]), "30/120");
    EXPECT_TRUE(HasStyleOfItem(item, {7, 2, 3}));
    for (const AxisStyle& other : {AxisStyle{8, 2, 3}, AxisStyle{7, 1, 3}, AxisStyle{7, 2, 4}}) {
        EXPECT_FALSE(HasStyleOfItem(item, other));
    }
}

} // namespace
} // namespace quandrel
