// SPDX-License-Identifier: MIT

#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "persistence/plot_file_bytes.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class PlotFileValues : public EngineTest {
protected:
    /// The bytes of a plot from a file as the store writes it, without the position of its window.
    std::string StoredAndWritten(const std::string& bytes) {
        Result<BinaryPlot> file = ReadBinaryPlot(bytes);
        EXPECT_TRUE(file);
        file->place.reset();
        const int slot = NewPlot();
        EXPECT_TRUE(StoreBinaryPlot(std::move(*file), "x.qpx", slot));
        FormOf(slot).SetPlace(WindowPlace());
        return *BinaryPlotBytes(slot);
    }
};

TEST_F(PlotFileValues, EveryVersionIsWrittenAsTheStoreWritesIt) {
    for (const OldVersion& version : OldVersions()) {
        const std::string bytes = OldPlotWriter(SampleOfVersion(version)).Bytes();
        const Result<Plot> plot = ReadPlotFile(bytes);
        ASSERT_TRUE(plot) << version.file;
        const Result<std::string> written = PlotFileBytes(*plot);
        ASSERT_TRUE(written) << version.file;
        EXPECT_TRUE(*written == StoredAndWritten(bytes)) << version.file;
        const Result<Plot> again = ReadPlotFile(*written);
        ASSERT_TRUE(again) << version.file;
        EXPECT_TRUE(*PlotFileBytes(*again) == *written) << version.file;
    }
}

TEST_F(PlotFileValues, NoSlotTakesPart) {
    const std::size_t slots = gPlots.size();
    const Result<Plot> plot = ReadPlotFile(OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes());
    ASSERT_TRUE(plot);
    ASSERT_TRUE(PlotFileBytes(*plot));
    EXPECT_EQ(gPlots.size(), slots);
    EXPECT_EQ(gActivePlot, 0);
    EXPECT_EQ(plot->record.NumData, 4);
    EXPECT_EQ(plot->record.PlotTitle, "") << "names are given by who opens a file";
    EXPECT_EQ(plot->rows.dip(2), 45);
    EXPECT_EQ(plot->rows.text(1), "12.5");
    EXPECT_EQ(plot->table.size(), 7U);
    EXPECT_EQ(plot->form, nullptr);
}

TEST_F(PlotFileValues, ADamagedFileIsAFailure) {
    const std::string bytes = OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes();
    const Result<Plot> plot = ReadPlotFile(std::string_view(bytes).substr(0, 900));
    ASSERT_FALSE(plot);
    EXPECT_EQ(plot.Error(), "It ends too early.");
}

TEST_F(PlotFileValues, WhatAReaderWouldRefuseIsNotWritten) {
    Result<Plot> plot = ReadPlotFile(OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes());
    ASSERT_TRUE(plot);
    plot->record.RoseShape = 99;
    const Result<std::string> written = PlotFileBytes(*plot);
    ASSERT_FALSE(written);
    EXPECT_TRUE(written.Error().starts_with("the file could not be opened again: "))
        << written.Error();
}

} // namespace
} // namespace quandrel
