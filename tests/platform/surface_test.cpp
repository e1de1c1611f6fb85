// SPDX-License-Identifier: MIT

#include "platform/surface.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(HexOf, WritesSixDigitsRedFirst) {
    EXPECT_EQ(HexOf(kBlack), "000000");
    EXPECT_EQ(HexOf(kWhite), "ffffff");
    EXPECT_EQ(HexOf({1, 0x20, 0xfe}), "0120fe");
}

TEST(Opacity, IsThatOfTheStateWithinNoneAndWhole) {
    DrawState state;
    EXPECT_EQ(LineOpacityOf(state), 1);
    EXPECT_EQ(FillOpacityOf(state), 1);
    state.lineOpacity = 0.25;
    state.fillOpacity = 0.75;
    EXPECT_EQ(LineOpacityOf(state), 0.25);
    EXPECT_EQ(FillOpacityOf(state), 0.75);
    state.lineOpacity = -1;
    state.fillOpacity = 3;
    EXPECT_EQ(LineOpacityOf(state), 0);
    EXPECT_EQ(FillOpacityOf(state), 1);
}

TEST(Opacity, MarksThatAreToggledAreOpaque) {
    DrawState state;
    state.drawMode = kDrawNotXor;
    state.lineOpacity = 0.25;
    state.fillOpacity = 0.75;
    EXPECT_EQ(LineOpacityOf(state), 1);
    EXPECT_EQ(FillOpacityOf(state), 1);
}

} // namespace
} // namespace quandrel
