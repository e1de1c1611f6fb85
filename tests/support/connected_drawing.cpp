// SPDX-License-Identifier: MIT
//
// Linked into test programs that test whole plots: connects the folder that draws them before each
// test.

#include "drawing/plot_driver.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

class ConnectedDrawing : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override { ConnectDrawing(); }
};

[[maybe_unused]] const bool kIsListening = [] {
    ::testing::UnitTest::GetInstance()->listeners().Append(new ConnectedDrawing);
    return true;
}();

} // namespace
} // namespace quandrel
