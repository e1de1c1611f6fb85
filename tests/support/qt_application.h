// SPDX-License-Identifier: MIT
//
// The application object that fonts and pictures need, for the duration of a test program.

#pragma once

#include <QGuiApplication>
#include <gtest/gtest.h>

#include <memory>

namespace quandrel {

class QtApplication : public ::testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QGuiApplication>(argumentCount_, arguments_);
    }

    void TearDown() override { application_.reset(); }

private:
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    int argumentCount_ = 1;
    std::unique_ptr<QGuiApplication> application_;
};

} // namespace quandrel
