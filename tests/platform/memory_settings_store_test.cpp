// SPDX-License-Identifier: MIT

#include "platform/memory_settings_store.h"
#include "platform/scripted/memory_clipboard.h"
#include "platform/scripted/no_printers.h"
#include "platform/scripted/quiet_status_line.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(MemorySettings, GiveWhatWasWrittenAndElseTheDefault) {
    MemorySettingsStore store;
    EXPECT_EQ(store.Read("Quandrel", "Options", "Name", "none"), "none");
    store.Write("Quandrel", "Options", "Name", "");
    EXPECT_EQ(store.Read("Quandrel", "Options", "Name", "none"), "");
    EXPECT_EQ(store.Read("Quandrel", "Other", "Name", "none"), "none");
    EXPECT_EQ(store.Read("Quandrel", "Options", "name", "none"), "none") << "case counts";
    EXPECT_EQ(store.Read("Another", "Options", "Name", "none"), "none");
    store.Write("Quandrel", "Options", "Name", "second");
    EXPECT_EQ(store.Read("Quandrel", "Options", "Name", "none"), "second");
}

TEST(MemorySettings, AnApplicationIsThereWhileItHasAKey) {
    MemorySettingsStore store;
    EXPECT_FALSE(store.Exists("Quandrel"));
    store.Remove("Quandrel", "Options", "Name");
    EXPECT_FALSE(store.Exists("Quandrel")) << "removing makes nothing";
    store.Write("Quandrel", "Options", "Name", "x");
    EXPECT_TRUE(store.Exists("Quandrel"));
    EXPECT_FALSE(store.Exists("Another"));
    store.Remove("Quandrel", "Options", "Name");
    EXPECT_FALSE(store.Exists("Quandrel"));
}

TEST(MemorySettings, KeysThatAreNumbersComeInTheOrderOfTheirValue) {
    MemorySettingsStore store;
    for (const char* key : {"10", "Zeta", "2", " 1", "alpha", "0", "1a"}) {
        store.Write("Quandrel", "Colours", key, "x");
    }
    EXPECT_EQ(store.Keys("Quandrel", "Colours"),
              (std::vector<std::string>{"0", " 1", "2", "10", "1a", "Zeta", "alpha"}));
    store.Remove("Quandrel", "Colours", "2");
    EXPECT_EQ(store.Keys("Quandrel", "Colours").size(), 6U);
    EXPECT_TRUE(store.Keys("Quandrel", "None").empty());
    EXPECT_TRUE(store.Keys("None", "Colours").empty());
}

TEST(SortKeys, OrdersNumbersBeyondTheRangeOfANumberAsTexts) {
    std::vector<std::string> keys = {"99999999999999999999", "5", "", "-3"};
    SortKeys(keys);
    EXPECT_EQ(keys, (std::vector<std::string>{"-3", "5", "", "99999999999999999999"}));
}

TEST(MemoryClipboard, HoldsNothingUntilATextIsSet) {
    MemoryClipboard clipboard;
    EXPECT_EQ(clipboard.Text(), std::nullopt);
    clipboard.SetText("30\t120\r\n");
    EXPECT_EQ(clipboard.Text(), "30\t120\r\n");
    clipboard.SetText("");
    EXPECT_EQ(clipboard.Text(), "");
}

TEST(NoPrinters, HasNoneAndNoDefault) {
    const NoPrinters printers;
    EXPECT_TRUE(printers.Printers().empty());
    EXPECT_EQ(printers.DefaultPrinter(), "");
}

TEST(QuietStatusLine, KeepsTheLastTexts) {
    QuietStatusLine status(2);
    EXPECT_EQ(status.Text(), "");
    for (const char* text : {"one", "two", "three"}) {
        status.SetText(text);
    }
    EXPECT_EQ(status.Text(), "three");
    EXPECT_EQ(status.Texts(), (std::deque<std::string>{"two", "three"}));
}

TEST(QuietStatusLine, BusyPointersNestAndEndWithTheirBlocks) {
    QuietStatusLine status;
    {
        const BusyPointer outer(status);
        {
            const BusyPointer inner(status);
            EXPECT_EQ(status.BusyDepth(), 2);
        }
        EXPECT_EQ(status.BusyDepth(), 1);
    }
    EXPECT_EQ(status.BusyDepth(), 0);
}

TEST(QuietStatusLine, ShowsProgressUntilItIsTakenAway) {
    QuietStatusLine status;
    EXPECT_FALSE(status.ProgressIsShown());
    status.SetProgress(0, 100);
    EXPECT_TRUE(status.ProgressIsShown());
    status.SetProgress(0, 0);
    EXPECT_FALSE(status.ProgressIsShown());
    EXPECT_FALSE(status.CancelRequested());
    status.RequestCancel();
    EXPECT_TRUE(status.CancelRequested());
}

} // namespace
} // namespace quandrel
