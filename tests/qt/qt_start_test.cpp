// SPDX-License-Identifier: MIT

#include "qt/qt_clipboard.h"
#include "qt/qt_start.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <string>

namespace quandrel {
namespace {

/// The application object that fonts and the clipboard need, for all tests of the program.
class QtEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QGuiApplication>(count_, arguments_);
    }

    void TearDown() override { application_.reset(); }

private:
    int count_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QGuiApplication> application_;
};

const ::testing::Environment* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new QtEnvironment);

TEST(NeutralNumbers, TakeTheRulesForNumbersBackAndLeaveTheOthers) {
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    UseNeutralNumbers();
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C.UTF-8");
}

/// The exit code of a program started under a locale: 1 when its decimal delimiter is a comma.
void ExpectComma(const char* locale, int isComma) {
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe"; // runs this program again
    const std::string before = qgetenv("LC_ALL").toStdString();
    qputenv("LC_ALL", locale);
    EXPECT_EXIT(std::_Exit(QtDecimalIsComma() ? 1 : 0), ::testing::ExitedWithCode(isComma), "")
        << locale;
    qputenv("LC_ALL", before.c_str());
}

TEST(DecimalDelimiterDeathTest, FollowsTheRegionAlsoWhereItIsNotInstalled) {
    ExpectComma("de_DE.UTF-8", 1);
    ExpectComma("pt_BR.UTF-8", 1);
    ExpectComma("en_AU.UTF-8", 0);
    ExpectComma("C.UTF-8", 0);
}

TEST(QtClipboard, GivesBackTheTextByteForByte) {
    QtClipboard clipboard;
    for (const char* text : {"30\t120\r\n45\t60\r\n", "Sch\xc3\xb6n \xce\xb2", "a"}) {
        clipboard.SetText(text);
        EXPECT_EQ(clipboard.Text(), text);
    }
}

TEST(QtClipboard, HoldsNoTextWhenItIsEmptyOrHoldsAnImage) {
    QGuiApplication::clipboard()->clear();
    const QtClipboard clipboard;
    EXPECT_EQ(clipboard.Text(), std::nullopt);
    auto image = std::make_unique<QMimeData>();
    image->setData(QStringLiteral("image/png"), "not text");
    QGuiApplication::clipboard()->setMimeData(image.release());
    EXPECT_EQ(clipboard.Text(), std::nullopt);
    QGuiApplication::clipboard()->clear();
}

} // namespace
} // namespace quandrel
