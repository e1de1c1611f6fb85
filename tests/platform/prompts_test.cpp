// SPDX-License-Identifier: MIT

#include "platform/prompts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quandrel {
namespace {

constexpr Buttons kAllSets[] = {Buttons::Ok, Buttons::OkCancel, Buttons::YesNo,
                                Buttons::YesNoCancel, Buttons::AbortRetryIgnore};

TEST(Prompts, ASetOfButtonsReadsFromLeftToRight) {
    EXPECT_EQ(ButtonsOf(Buttons::Ok), (std::vector{Button::Ok}));
    EXPECT_EQ(ButtonsOf(Buttons::OkCancel), (std::vector{Button::Ok, Button::Cancel}));
    EXPECT_EQ(ButtonsOf(Buttons::YesNo), (std::vector{Button::Yes, Button::No}));
    EXPECT_EQ(ButtonsOf(Buttons::YesNoCancel),
              (std::vector{Button::Yes, Button::No, Button::Cancel}));
    EXPECT_EQ(ButtonsOf(Buttons::AbortRetryIgnore),
              (std::vector{Button::Abort, Button::Retry, Button::Ignore}));
}

TEST(Prompts, TheDefaultButtonGoesOnWithWhatWasBegun) {
    EXPECT_EQ(DefaultButton(Buttons::Ok), Button::Ok);
    EXPECT_EQ(DefaultButton(Buttons::OkCancel), Button::Ok);
    EXPECT_EQ(DefaultButton(Buttons::YesNo), Button::Yes);
    EXPECT_EQ(DefaultButton(Buttons::YesNoCancel), Button::Yes);
    EXPECT_EQ(DefaultButton(Buttons::AbortRetryIgnore), Button::Ignore);
}

TEST(Prompts, TheDefaultButtonIsOneOfTheSet) {
    for (const Buttons set : kAllSets) {
        const std::vector<Button> buttons = ButtonsOf(set);
        EXPECT_NE(std::find(buttons.begin(), buttons.end(), DefaultButton(set)), buttons.end());
    }
}

TEST(Prompts, EveryButtonIsFoundByItsName) {
    for (const Buttons set : kAllSets) {
        for (const Button button : ButtonsOf(set)) {
            EXPECT_EQ(ButtonFromName(ButtonName(button)), button);
        }
    }
}

TEST(Prompts, NamesOfButtonsAreFoundInAnyCaseAndOnlyWhole) {
    EXPECT_EQ(ButtonName(Button::Ok), "OK");
    EXPECT_EQ(ButtonFromName("ok"), Button::Ok);
    EXPECT_EQ(ButtonFromName("cAnCeL"), Button::Cancel);
    EXPECT_EQ(ButtonFromName("IGNORE"), Button::Ignore);
    for (const char* none : {"", "O", "Okay", "Cancel ", "N"}) {
        EXPECT_EQ(ButtonFromName(none), std::nullopt) << none;
    }
}

} // namespace
} // namespace quandrel
