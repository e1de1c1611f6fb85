// SPDX-License-Identifier: MIT

#include "core/settings.h"
#include "shell/help/frm_about.h"
#include "shell/help/help_keys.h"
#include "support/shell_test.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include <fstream>
#include <iterator>

namespace quandrel {
namespace {

class AboutBox : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        about_.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&about_));
    }

    QPushButton& Close() {
        return *about_.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close);
    }

    QString TextOf(const std::string& label) { return ControlOf<QLabel>(about_, label).text(); }

    frmAbout about_{nullptr};
};

/// The version that the build states.
QString BuiltVersion() {
    std::ifstream stream(QUANDREL_SOURCE_DIR "/CMakeLists.txt");
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const auto match = QRegularExpression("project\\(Quandrel VERSION (\\d+\\.\\d+\\.\\d+)")
                           .match(QString::fromStdString(text));
    return match.captured(1);
}

/// The controls that Tab goes through, from the focused one back to it.
std::vector<QWidget*> TabRound(QWidget& window) {
    std::vector<QWidget*> round;
    QWidget* const first = window.focusWidget();
    for (QWidget* at = first; at != nullptr;) {
        round.push_back(at);
        QTest::keyClick(at, Qt::Key_Tab);
        at = window.focusWidget();
        if (at == first || round.size() > 20) {
            break;
        }
    }
    return round;
}

TEST_F(AboutBox, IsADialogOfTheProgram) {
    EXPECT_EQ(about_.objectName(), "frmAbout");
    EXPECT_EQ(about_.windowTitle(), "About Quandrel");
    EXPECT_TRUE(about_.isVisible());
    EXPECT_EQ(about_.minimumSize(), about_.maximumSize()) << "there is nothing to make larger";
}

TEST_F(AboutBox, NamesTheVersionThatWasBuilt) {
    ASSERT_FALSE(BuiltVersion().isEmpty());
    EXPECT_EQ(TextOf("lblCaption"), "Quandrel, ver " + BuiltVersion());
    EXPECT_EQ(TextOf("lblVersionDate"), QString("Version Date: ") + kVersionDate);
}

TEST_F(AboutBox, SaysWhatItIsAndUnderWhichLicence) {
    const QStringList lines = TextOf("lblNotice").split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], "Stereonets, rose diagrams and statistics of orientation data.");
    EXPECT_EQ(lines[1], "Free software under the MIT licence.");
    EXPECT_EQ(lines[2], QString("Built on Qt ") + QT_VERSION_STR + ".");
    std::ifstream licence(QUANDREL_SOURCE_DIR "/LICENSE");
    std::string title;
    std::getline(licence, title);
    EXPECT_EQ(title, "MIT License");
}

TEST_F(AboutBox, ShowsAllItsTextsWhole) {
    for (const QLabel* label : about_.findChildren<QLabel*>()) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        EXPECT_GE(label->height(), label->sizeHint().height()) << label->text().toStdString();
        EXPECT_FALSE(label->text().isEmpty() && label->pixmap().isNull());
    }
}

TEST_F(AboutBox, LeadsToItsPlaceInTheHelp) {
    EXPECT_EQ(HelpPageOfWidget(&Close()), "menu_help.html#about");
    std::ifstream page(QUANDREL_SOURCE_DIR "/docs/help/menu_help.html");
    const std::string text{std::istreambuf_iterator<char>(page), {}};
    EXPECT_NE(text.find("id=\"about\""), std::string::npos);
}

TEST_F(AboutBox, IsClosedByEscape) {
    QTest::keyClick(&about_, Qt::Key_Escape);
    EXPECT_FALSE(about_.isVisible());
    EXPECT_EQ(about_.result(), QDialog::Rejected);
}

TEST_F(AboutBox, IsClosedByReturn) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        about_.show();
        QTest::keyClick(&about_, key);
        EXPECT_FALSE(about_.isVisible()) << key;
    }
}

TEST_F(AboutBox, IsClosedByItsButton) {
    QTest::mouseClick(&Close(), Qt::LeftButton);
    EXPECT_FALSE(about_.isVisible());
}

TEST_F(AboutBox, HasTheFocusOnCloseAndTabComesBackToIt) {
    EXPECT_EQ(about_.focusWidget(), &Close());
    EXPECT_TRUE(Close().isDefault());
    EXPECT_EQ(TabRound(about_), std::vector<QWidget*>{&Close()}) << "it is all that can be pressed";
}

TEST_F(AboutBox, HasANameToReadOutForEachOfItsParts) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&about_)->text(QAccessible::Name),
              "About Quandrel");
    int parts = 0;
    for (QWidget* part : about_.findChildren<QWidget*>()) {
        if (qobject_cast<QLabel*>(part) == nullptr && qobject_cast<QPushButton*>(part) == nullptr) {
            continue;
        }
        ++parts;
        const QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(part);
        ASSERT_NE(access, nullptr);
        EXPECT_FALSE(access->text(QAccessible::Name).isEmpty()) << part->objectName().toStdString();
    }
    EXPECT_EQ(parts, 5) << "the icon, three texts and the button";
}

} // namespace
} // namespace quandrel
