// SPDX-License-Identifier: MIT

#include "core/messages.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(FileNames, HoldNothingThatASystemForbids) {
    EXPECT_EQ(FileNameOf("MapInfo Table:outcrops"), "MapInfo Table-outcrops");
    EXPECT_EQ(FileNameOf(R"(a/b\c:d*e?f"g<h>i|j)"), "a-b-c-d-e-f-g-h-i-j");
    EXPECT_EQ(FileNameOf("Klüfte 2. Ordnung.txt"), "Klüfte 2. Ordnung.txt");
}

} // namespace
} // namespace quandrel
