// SPDX-License-Identifier: MIT

#include "recovery/copy_names.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(RecoveryNames, OfFoldersAreAProcessAndANumber) {
    for (const char* name : {"1-0", "-", "123-45"}) {
        EXPECT_TRUE(IsSessionName(name)) << name;
    }
    for (const char* name : {"", "123", "1-2-3", "1-a", "../1-2", "1-2/", " 1-2"}) {
        EXPECT_FALSE(IsSessionName(name)) << name;
    }
}

TEST(RecoveryNames, OfCopiesTellTheirSlot) {
    for (const int slot : {1, 12, 99}) {
        EXPECT_EQ(SlotOfCopyName(CopyName(slot)), slot);
    }
    for (const char* name :
         {"", "plot_", "plot_.qpx", "plot_1.qpx.new", "plot_1", "plot_x.qpx", "plot_ 1.qpx",
          "plot_99999999999.qpx", "Plot_1.qpx", ".plot_1.qpx", "plot_1.QPX"}) {
        EXPECT_FALSE(SlotOfCopyName(name)) << name;
    }
}

TEST(RecoveryNames, OfAPlotAreReadBack) {
    PlotRecord record;
    record.PlotTitle = "Plot 3: beds.txt";
    record.FileTitle = "beds.txt";
    record.NumFiles = 2;
    record.FileNames[kFirstFile] = "/a/beds.txt";
    record.FileNames[kFirstFile + 1] = "/a/more beds.txt";
    record.MainFiles = {"/a/beds.txt"};
    record.OverlayFiles[2] = {"/b/x.txt", ""};
    const CopyNames names = NamesOf(record);
    const std::string copy = "a plot" + NamesBlock(names);
    EXPECT_EQ(NamesOfCopy(copy), names);
    PlotRecord again;
    RestoreNames(again, *NamesOfCopy(copy));
    EXPECT_EQ(again.NumFiles, 2);
    EXPECT_EQ(again.FileNames, record.FileNames);
    EXPECT_EQ(again.OverlayFiles, record.OverlayFiles);
    EXPECT_EQ(again.PlotTitle, record.PlotTitle);
}

TEST(RecoveryNames, ThatAreDamagedGiveNothingOrLess) {
    CopyNames names;
    names.title = "title";
    names.files = {"one", "two"};
    names.overlayFiles.resize(std::tuple_size_v<decltype(PlotRecord::OverlayFiles)>);
    const std::string block = NamesBlock(names);
    EXPECT_FALSE(NamesOfCopy("a plot"));
    EXPECT_FALSE(NamesOfCopy(block.substr(0, block.size() - 1)));
    EXPECT_FALSE(NamesOfCopy(block.substr(1))) << "longer than what is left";
    std::string endless = block;
    endless.replace(endless.find("2", 5), 1, "9");
    ASSERT_TRUE(NamesOfCopy(endless));
    EXPECT_LE(NamesOfCopy(endless)->files.size(), 9U);
}

TEST(RecoveryNames, BeyondThoseThatAPlotHoldsAreDropped) {
    CopyNames names;
    names.files.assign(kMaxFiles + 5, "x");
    names.overlayFiles.resize(1000);
    PlotRecord record;
    RestoreNames(record, names);
    EXPECT_EQ(record.NumFiles, kMaxFiles);
}

} // namespace
} // namespace quandrel
