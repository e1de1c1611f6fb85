// SPDX-License-Identifier: MIT
//
// The application object that windows need, and a separate engine for each test of a window.

#pragma once

#include "support/test_platform.h"

#include <QApplication>
#include <QImage>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quandrel {

class WidgetApplication : public ::testing::Environment {
public:
    void SetUp() override {
        // Few tests need a screen; whoever runs them on one sets the variable.
        qputenv("QT_QPA_PLATFORM",
                qEnvironmentVariable("QUANDREL_TEST_PLATFORM", "offscreen").toUtf8());
        application_ = std::make_unique<QApplication>(argumentCount_, arguments_);
        QApplication::setQuitOnLastWindowClosed(false);
        QStandardPaths::setTestModeEnabled(true); // nothing of the user is read or written
        qputenv("HOME", home_.path().toUtf8());   // nor of tests that run at the same time
    }

    void TearDown() override { application_.reset(); }

private:
    QTemporaryDir home_;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    int argumentCount_ = 1;
    std::unique_ptr<QApplication> application_;
};

inline ::testing::Environment* const kWidgetApplication =
    ::testing::AddGlobalTestEnvironment(new WidgetApplication);

/// The control with a name below a window; the test fails when there is none.
template <class Control>
Control& ControlOf(const QWidget& window, const std::string& name) {
    auto* control = window.findChild<Control*>(QString::fromStdString(name));
    if (control == nullptr) {
        ADD_FAILURE() << "no control " << name;
        std::abort();
    }
    return *control;
}

} // namespace quandrel
