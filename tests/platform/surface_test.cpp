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

} // namespace
} // namespace quandrel
