// SPDX-License-Identifier: MIT

#include "core/appended_number.h"
#include "core/plot_store.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

class AppendedNumber : public EngineTest {};

TEST_F(AppendedNumber, HasThePointWhereThePointIsTheRule) {
    gDecimalIsComma = false;
    EXPECT_EQ(ParseAppendedNumber("2.5"), 2.5);
    EXPECT_EQ(ParseAppendedNumber(" -3 "), -3.0);
    EXPECT_EQ(ParseAppendedNumber("2,5"), std::nullopt);
    EXPECT_EQ(ParseAppendedNumber(""), std::nullopt);
    EXPECT_EQ(ParseAppendedNumber("slate"), std::nullopt);
    EXPECT_EQ(ParseAppendedNumber("12 m"), std::nullopt);
}

TEST_F(AppendedNumber, HasTheCommaWhereTheCommaIsTheRule) {
    gDecimalIsComma = true;
    EXPECT_EQ(ParseAppendedNumber("2,5"), 2.5);
    EXPECT_EQ(ParseAppendedNumber("7"), 7.0);
    EXPECT_EQ(ParseAppendedNumber("2.5"), std::nullopt);
    EXPECT_EQ(ParseAppendedNumber("1,2,3"), std::nullopt);
}

} // namespace
} // namespace quandrel
