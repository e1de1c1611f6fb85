// SPDX-License-Identifier: MIT

#include "shell/controls/control_kit.h"
#include "support/shell_test.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>
#include <memory>

namespace quandrel {
namespace {

TEST(ControlKit, NumbersTheControlsOfAnArray) {
    EXPECT_EQ(Numbered("optScale", 0).toStdString(), "optScale_0");
    EXPECT_EQ(Numbered("txtBias", std::size_t{12}).toStdString(), "txtBias_12");
}

TEST(ControlKit, TakesNoLabelForFormattedText) {
    QWidget window;
    auto* box = new QLineEdit(&window);
    const std::unique_ptr<QLabel> label(MakeLabel("<b>&Number</b>", "lblNumber", box));
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(label->buddy(), box);
    EXPECT_EQ(label->objectName().toStdString(), "lblNumber");
}

TEST(ControlKit, PutsOptionsIntoTheirGroupByNumber) {
    QButtonGroup group;
    const std::unique_ptr<QRadioButton> option(
        MakeOption("optKind_3", {"&Kind", "Its tip"}, &group, 3));
    EXPECT_EQ(group.button(3), option.get());
    EXPECT_EQ(option->toolTip().toStdString(), "Its tip");
}

TEST(ControlKit, VisitsControlsInTheOrderInWhichTheyWereAdded) {
    QWidget window;
    std::array<QPushButton*, 4> buttons{};
    for (QPushButton*& button : buttons) {
        button = new QPushButton(&window);
    }
    const std::array<QPushButton*, 2> pair = {buttons[3], buttons[2]};
    TabOrder().Then(buttons[0]).Then(static_cast<QWidget*>(nullptr)).Then(pair).Then(buttons[1]);
    EXPECT_EQ(buttons[0]->nextInFocusChain(), buttons[3]);
    EXPECT_EQ(buttons[3]->nextInFocusChain(), buttons[2]);
    EXPECT_EQ(buttons[2]->nextInFocusChain(), buttons[1]);
}

TEST(ControlKit, KeepsTheRoomOfWhatIsHidden) {
    QPushButton button;
    KeepRoomWhenHidden(button);
    EXPECT_TRUE(button.sizePolicy().retainSizeWhenHidden());
}

} // namespace
} // namespace quandrel
