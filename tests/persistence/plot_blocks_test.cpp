// SPDX-License-Identifier: MIT
//
// Decimals and other properties of plots in the extension of their files.

#include "core/plot_rows.h"
#include "core/replot.h"
#include "input/file_loading.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "persistence/extension_by_hand.h"
#include "persistence/field_block.h"
#include "persistence/open_plot.h"
#include "persistence/plot_blocks.h"
#include "persistence/plot_file_bytes.h"
#include "persistence/workspace_file.h"
#include "stereo/row_positions.h"
#include "support/decimal_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace quandrel {
namespace {

constexpr const char* kLeftOut =
    "Part of this .qpx file was left out, such as decimals of its angles. It is lost if the plot "
    "is saved under the same name.\n";

/// Rows of the samples: dip, azimuth of each (secondary orientations, appended lines).
std::string CrcOfPairs(const std::vector<std::pair<int, int>>& pairs) {
    std::string bytes;
    for (const auto& [dip, azimuth] : pairs) {
        bytes += LongByHand(dip) + LongByHand(azimuth);
    }
    return LittleEndian(CrcBitByBit(bytes), 4);
}

const std::string kNoDecimals = AngleByHand(-9999, 0) + AngleByHand(0, 0);

/// The orientations of all seven rows of a sample. Row 1 is 30/120, measured as 30.25/119.75.
std::string OrientationsOfSample(const std::string& firstRow = AngleByHand(30, 0.25F)
                                                               + AngleByHand(120, -0.25F)) {
    std::string content =
        LongByHand(7)
        + CrcOfPairs({{30, 120}, {45, 270}, {-9999, 0}, {80, 5}, {10, 20}, {-20, 30}, {21, 31}})
        + firstRow;
    for (int row = 2; row <= 7; ++row) {
        content += kNoDecimals;
    }
    return content;
}

std::string MeasuredByHand() {
    return BlockByHand("MPRI", 0, OrientationsOfSample());
}

std::string SampleBytes() {
    return OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes();
}

std::string SampleWith(const std::string& blocks) {
    return SampleBytes() + ExtensionByHand(blocks);
}

class PlotBlocks : public EngineTest {
protected:
    static std::string Bytes(int slot) {
        const Result<std::string> bytes = BinaryPlotBytes(slot);
        EXPECT_TRUE(bytes) << bytes.Error();
        return bytes ? *bytes : std::string();
    }

    int Open(const std::string& bytes) {
        EXPECT_EQ(OpenPlotFile(kNewCommand, WriteFile("plot.qpx", bytes)), kBinaryCommand);
        return gActivePlot;
    }

    /// What the file of a plot has after some fields, which must be its own.
    static std::string AfterFields(int slot, const std::string& fields) {
        const std::string bytes = Bytes(slot);
        EXPECT_TRUE(bytes.starts_with(fields)) << "the fields are the same";
        return bytes.substr(std::min(fields.size(), bytes.size()));
    }

    static std::vector<std::string> LeftOutOf(const std::string& bytes) {
        const Result<BinaryPlot> plot = ReadBinaryPlot(bytes);
        EXPECT_TRUE(plot) << plot.Error();
        return plot ? plot->leftOut : std::vector<std::string>();
    }
};

using Sentences = std::vector<std::string>;

TEST_F(PlotBlocks, APlotWithoutDecimalsHasNoExtension) {
    for (const OldVersion& version : OldVersions()) {
        const Result<Plot> plot = ReadPlotFile(OldPlotWriter(SampleOfVersion(version)).Bytes());
        ASSERT_TRUE(plot);
        const std::string bytes = *PlotFileBytes(*plot);
        EXPECT_EQ(bytes.find("\x8fQX"), std::string::npos) << version.file;
    }
}

/// A part of a record with a value of its own in each field, all within their limits.
RecordDensityView OtherDensities() {
    RecordDensityView view;
    view.DensityMethod = kDensityByKernel;
    view.DensityK = 4.5;
    view.KernelWidth = 12.25;
    view.DensityUnit = kMultiplesUnit;
    view.LevelRule = kLevelsByHand;
    view.LevelStep = 0.5;
    view.LevelsByHand = "2, 4, 8";
    view.ContourPicture = kLinesOverBands;
    view.BandPalette = 2;
    view.PaletteReversed = kTrue;
    view.BandOpacity = 0.75;
    view.ShowEnvelope = kTrue;
    view.ShowMaxima = kTrue;
    return view;
}

RecordRegions OtherRegions() {
    return {kRegionOfAxis | kRegionOfGirdle,
            kRegionsOfOverlays,
            99,
            kRegionByBootstrap,
            kTrue,
            kTrue,
            5000,
            77};
}

TEST_F(PlotBlocks, DensitiesAndRegionsAreKept) {
    const int slot = Open(SampleBytes());
    const std::string plain = Bytes(slot);
    static_cast<RecordDensityView&>(ActiveRecord()) = OtherDensities();
    static_cast<RecordRegions&>(ActiveRecord()) = OtherRegions();
    const std::string bytes = Bytes(slot);
    EXPECT_TRUE(bytes.starts_with(plain));
    const int again = Open(bytes);
    EXPECT_EQ(static_cast<const RecordDensityView&>(RecordOf(again)), OtherDensities());
    EXPECT_EQ(static_cast<const RecordRegions&>(RecordOf(again)), OtherRegions());
    EXPECT_EQ(Bytes(again), bytes);
}

TEST_F(PlotBlocks, PartsOfEarlierAndLaterVersionsAreRead) {
    BinaryWriter writer;
    WriteFields(OtherDensities(), writer);
    const std::string bytes = writer.Bytes();
    EXPECT_EQ(PartOfBlock<RecordDensityView>(bytes + "later"), OtherDensities());
    EXPECT_EQ(PartOfBlock<RecordDensityView>(""), RecordDensityView());
    RecordDensityView earlier;
    earlier.DensityMethod = kDensityByKernel;
    EXPECT_EQ(PartOfBlock<RecordDensityView>(bytes.substr(0, 2)), earlier);
    EXPECT_EQ(PartOfBlock<RecordDensityView>(bytes.substr(0, 3)), std::nullopt) << "half a field";
}

TEST_F(PlotBlocks, ImpossibleDensitiesAndRegionsAreLeftOut) {
    const std::string sixth = LittleEndian(6, 2);
    EXPECT_EQ(LeftOutOf(SampleWith(BlockByHand("DENS", 1, sixth) + BlockByHand("REGN", 1, "x"))),
              (Sentences{"The choice of densities is damaged.",
                         "The choice of confidence regions is damaged."}));
}

TEST_F(PlotBlocks, TheBytesBeforeAnExtensionAreThoseWithoutIt) {
    const int slot = Open(SampleBytes());
    const std::string plain = Bytes(slot);
    PlotRows& rows = PlotOf(slot).rows;
    ASSERT_TRUE(SetDecimals(rows, RowAngles::Primary, 1, {30.25, 119.75}));
    EXPECT_EQ(AfterFields(slot, plain), ExtensionByHand(MeasuredByHand()));

    ActiveRecord().UseDecimals = kTrue;
    const std::string used = BlockByHand("UDEC", 1, LittleEndian(0xffff, 2));
    EXPECT_EQ(AfterFields(slot, plain), ExtensionByHand(used + MeasuredByHand()));

    ClearDecimals(rows, RowAngles::Primary, 1);
    EXPECT_EQ(AfterFields(slot, plain), ExtensionByHand(used))
        << "the rows have whole degrees again";

    ActiveRecord().UseDecimals = 0;
    EXPECT_EQ(AfterFields(slot, plain), "");
}

TEST_F(PlotBlocks, AChoiceOfFormulasHasABlock) {
    const int slot = Open(SampleBytes());
    const std::string plain = Bytes(slot);
    const auto block = [](std::uint32_t value) {
        return BlockByHand("FORM", 1, LittleEndian(value, 2));
    };
    PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.PlotFormulas, kFormulasOfPreferences);
    for (const std::int16_t choice : {kOwnFormulas, kTextbookFormulas}) {
        record.PlotFormulas = choice;
        const auto value = static_cast<std::uint32_t>(choice);
        EXPECT_EQ(AfterFields(slot, plain), ExtensionByHand(block(value)));
        const int again = Open(Bytes(slot));
        EXPECT_EQ(RecordOf(again).PlotFormulas, choice);
        EXPECT_EQ(AfterFields(again, plain), ExtensionByHand(block(value)));
    }
    record.UseDecimals = kTrue;
    ASSERT_TRUE(SetDecimals(PlotOf(slot).rows, RowAngles::Primary, 1, {30.25, 119.75}));
    EXPECT_EQ(AfterFields(slot, plain),
              ExtensionByHand(BlockByHand("UDEC", 1, LittleEndian(0xffff, 2)) + block(2)
                              + MeasuredByHand()));
}

TEST_F(PlotBlocks, AChoiceOfFormulasThatIsNoneIsLeftOut) {
    gSettings.notation.formulas = Formulas::Textbook;
    const std::string contents[] = {
        "",
        "x",
        LittleEndian(1, 2) + "x",
        LittleEndian(0, 2),
        LittleEndian(3, 2),
        LittleEndian(0xffff, 2),
        LittleEndian(0x0201, 2),
    };
    for (const std::string& content : contents) {
        const std::string bytes = SampleWith(BlockByHand("FORM", 1, content) + MeasuredByHand());
        EXPECT_EQ(LeftOutOf(bytes), Sentences{"The choice of formulas is damaged."});
        const Result<Plot> plot = ReadPlotFile(bytes);
        ASSERT_TRUE(plot);
        EXPECT_EQ(plot->record.PlotFormulas, kFormulasOfPreferences);
        EXPECT_TRUE(HasDecimals(plot->rows, 1)) << "the rest of the extension is read";
    }
}

TEST_F(PlotBlocks, EachOrientationHasABlock) {
    const int slot = Open(SampleBytes());
    const std::string plain = Bytes(slot);
    PlotRows& rows = PlotOf(slot).rows;
    ASSERT_TRUE(SetDecimals(rows, RowAngles::Secondary, 4, {11.5, 15}));
    ASSERT_TRUE(SetDecimals(rows, RowAngles::Line, 1, {10, 90.5}));
    std::string line = LongByHand(4) + CrcOfPairs({{10, 90}, {-99, 0}, {0, 0}, {5, 15}});
    // A half is nearest to the even degree. The azimuth of -9999 is 81 on the circle.
    const std::string second =
        LongByHand(7)
        + CrcOfPairs({{20, 80}, {-9999, 81}, {0, 0}, {11, 15}, {1, 2}, {0, 0}, {0, 0}})
        + kNoDecimals + kNoDecimals + kNoDecimals + AngleByHand(12, -0.5F) + AngleByHand(15, 0)
        + kNoDecimals + kNoDecimals + kNoDecimals;
    line += AngleByHand(10, 0) + AngleByHand(90, 0.5F) + kNoDecimals + kNoDecimals + kNoDecimals;
    EXPECT_EQ(AfterFields(slot, plain),
              ExtensionByHand(BlockByHand("MSEC", 0, second) + BlockByHand("MLIN", 0, line)));
}

TEST_F(PlotBlocks, DecimalsAreReadWhetherTheyAreUsedOrNot) {
    const Result<Plot> plot = ReadPlotFile(SampleWith(MeasuredByHand()));
    ASSERT_TRUE(plot);
    EXPECT_EQ(plot->record.UseDecimals, 0);
    EXPECT_EQ(MeasuredAttitude(plot->rows, RowAngles::Primary, 1), Attitude(30.25, 119.75));
    EXPECT_EQ(WholeAttitude(plot->rows, RowAngles::Primary, 1), Attitude(30, 120));
    EXPECT_EQ(CountRowsWithDecimals(plot->rows, 1, 7), 1);
    EXPECT_NEAR(plot->table.plunge[0], DegToRad(60), 1e-12);

    const Result<Plot> used =
        ReadPlotFile(SampleWith(BlockByHand("UDEC", 1, LittleEndian(1, 2)) + MeasuredByHand()));
    ASSERT_TRUE(used);
    EXPECT_EQ(used->record.UseDecimals, kTrue);
    EXPECT_NEAR(used->table.plunge[0], DegToRad(59.75), 1e-12) << "the pole as it was measured";
}

TEST_F(PlotBlocks, RandomRowsComeBackFromAFile) {
    NewPlot();
    FillWithDecimals(ActivePlot(), 2000, 1);
    ActiveRecord().UseDecimals = kTrue;
    RebuildRowTable(gActivePlot);
    const int slot = gActivePlot;
    const std::string path = (folder / "random.qpx").string();
    ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    ASSERT_EQ(OpenPlotFile(kNewCommand, path), kBinaryCommand);
    ExpectSameDecimals(ActivePlot(), PlotOf(slot));
    EXPECT_EQ(ActiveRecord().UseDecimals, kTrue);
}

TEST_F(PlotBlocks, RandomRowsComeBackThroughAWorkspace) {
    NewPlot();
    FillWithDecimals(ActivePlot(), 2000, 2);
    ActiveRecord().PlotFormulas = kOwnFormulas;
    const int slot = gActivePlot;
    ASSERT_EQ(SavePlotAs((folder / "random.qpx").string(), SaveKind::SaveAs), SaveOutcome::Saved);
    const std::string path = (folder / "all.qwo").string();
    ASSERT_EQ(SaveWorkspaceAs(path), WorkspaceOutcome::Saved);
    EXPECT_EQ(OpenWorkspace(path), 1);
    ASSERT_NE(gActivePlot, slot);
    ExpectSameDecimals(ActivePlot(), PlotOf(slot));
    EXPECT_EQ(ActiveRecord().UseDecimals, 0);
    EXPECT_EQ(ActiveRecord().PlotFormulas, kOwnFormulas);
}

TEST_F(PlotBlocks, AFileCutInItsExtensionOpensWithoutIt) {
    const std::string fields = SampleBytes();
    const std::string whole = SampleWith(BlockByHand("UDEC", 1, LittleEndian(0xffff, 2))
                                         + BlockByHand("FORM", 1, LittleEndian(2, 2))
                                         + MeasuredByHand() + BlockByHand("LATE", 1, "kept"));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Result<BinaryPlot> plot = ReadBinaryPlot(std::string_view(whole).substr(0, length));
        ASSERT_EQ(static_cast<bool>(plot), length >= fields.size()) << length;
        if (!plot) {
            ASSERT_EQ(plot.Error(), ReadBinaryPlot(fields.substr(0, length)).Error());
            continue;
        }
        ASSERT_EQ(plot->leftOut,
                  length > fields.size() ? Sentences{"Its extension is cut off."} : Sentences{})
            << length;
        ASSERT_EQ(plot->measured[0].RowCount(), 0) << length;
        ASSERT_EQ(plot->record.UseDecimals, 0) << length;
        ASSERT_EQ(plot->record.PlotFormulas, kFormulasOfPreferences) << length;
        ASSERT_TRUE(plot->unknownBlocks.empty()) << length;
    }
}

TEST_F(PlotBlocks, DamageIsReportedOnce) {
    std::string bytes = SampleWith(MeasuredByHand());
    bytes[bytes.size() - 60] = static_cast<char>(bytes[bytes.size() - 60] ^ 1);
    Expect(kLeftOut + std::string("Its extension is damaged."));
    const int slot = Open(bytes);
    EXPECT_EQ(CountRowsWithDecimals(PlotOf(slot).rows, 1, 7), 0);
    EXPECT_EQ(RecordOf(slot).NumLoadedData, 7);

    const std::string other =
        BlockByHand("MPRI", 0, OrientationsOfSample() + "x") + BlockByHand("UDEC", 1, "");
    Expect(kLeftOut
           + std::string("The decimals of orientations are damaged.\n"
                         "The choice to use decimals is damaged."));
    Open(SampleWith(other + other));
}

TEST_F(PlotBlocks, DecimalsOfOtherRowsAreLeftOut) {
    const Sentences primary = {"The decimals of orientations belong to other rows."};
    OldPlot sample = SampleOfVersion({92, "", ""});
    const auto extension = ExtensionByHand(MeasuredByHand());
    EXPECT_EQ(LeftOutOf(OldPlotWriter(sample).Bytes() + extension), Sentences{});
    sample.rows[1].azimuth = 271;
    EXPECT_EQ(LeftOutOf(OldPlotWriter(sample).Bytes() + extension), primary) << "another azimuth";
    sample.rows[1].azimuth = 270;
    std::swap(sample.rows[0], sample.rows[3]);
    EXPECT_EQ(LeftOutOf(OldPlotWriter(sample).Bytes() + extension), primary) << "another order";
    std::swap(sample.rows[0], sample.rows[3]);
    sample.overlays.pop_back();
    EXPECT_EQ(LeftOutOf(OldPlotWriter(sample).Bytes() + extension), primary) << "fewer rows";

    const std::string empty = LongByHand(0) + LongByHand(0);
    OldPlot bare;
    bare.version = 92;
    EXPECT_EQ(LeftOutOf(OldPlotWriter(bare).Bytes()
                        + ExtensionByHand(BlockByHand("MSEC", 0, empty + kNoDecimals))),
              Sentences{"The decimals of secondary orientations are damaged."});
    const std::string one = LongByHand(1) + CrcOfPairs({{0, 0}}) + kNoDecimals;
    EXPECT_EQ(
        LeftOutOf(OldPlotWriter(bare).Bytes()
                  + ExtensionByHand(BlockByHand("MSEC", 0, one) + BlockByHand("MLIN", 0, one))),
        (Sentences{"The decimals of secondary orientations belong to other rows.",
                   "The decimals of appended lines belong to other rows."}));
}

TEST_F(PlotBlocks, AnglesThatNoRowHasAreLeftOut) {
    const auto leftOut = [](const std::string& dip, const std::string& azimuth) {
        return LeftOutOf(SampleWith(BlockByHand("MPRI", 0, OrientationsOfSample(dip + azimuth))));
    };
    const std::string dip = AngleByHand(30, 0.25F);
    const std::string azimuth = AngleByHand(120, -0.25F);
    const Sentences damaged = {"The decimals of orientations are damaged."};
    EXPECT_EQ(leftOut(dip, azimuth), Sentences{});
    EXPECT_EQ(leftOut(AngleByHand(90, -0.5F), AngleByHand(360, -0.5F)), Sentences{});
    EXPECT_EQ(leftOut(AngleByHand(-90, 0.5F), AngleByHand(0, 0.5F)), Sentences{});
    EXPECT_EQ(leftOut(AngleByHand(91, -0.5F), azimuth), damaged);
    EXPECT_EQ(leftOut(AngleByHand(90, 0.25F), azimuth), damaged);
    EXPECT_EQ(leftOut(AngleByHand(-90, -0.25F), azimuth), damaged);
    EXPECT_EQ(leftOut(AngleByHand(30, 0.75F), azimuth), damaged);
    EXPECT_EQ(leftOut(AngleByHand(30, std::nanf("")), azimuth), damaged);
    EXPECT_EQ(leftOut(AngleByHand(30, INFINITY), azimuth), damaged);
    EXPECT_EQ(leftOut(dip, AngleByHand(361, -0.5F)), damaged);
    EXPECT_EQ(leftOut(dip, AngleByHand(0, -0.25F)), damaged);
    EXPECT_EQ(leftOut(dip, AngleByHand(-1, 0.25F)), damaged);
}

TEST_F(PlotBlocks, AnErrorRowHasNoDecimals) {
    std::string content = OrientationsOfSample();
    content.replace(8 + 2 * 12, 12, AngleByHand(1, 0.5F) + AngleByHand(1, 0.5F));
    EXPECT_EQ(LeftOutOf(SampleWith(BlockByHand("MPRI", 0, content))),
              Sentences{"The decimals of orientations belong to other rows."});

    const int slot = Open(SampleBytes());
    const std::string plain = Bytes(slot);
    PlotRows& rows = PlotOf(slot).rows;
    ASSERT_TRUE(SetDecimals(rows, RowAngles::Primary, 3, {1.5, 1.5}));
    ASSERT_TRUE(SetDecimals(rows, RowAngles::Line, 2, {1.5, 1.5}));
    EXPECT_EQ(AfterFields(slot, plain), "");
}

TEST_F(PlotBlocks, ACountBeyondTheBlockTakesNoMemory) {
    for (const std::int32_t count : {-1, 8, 1 << 28, 0x7fffffff}) {
        std::string content = OrientationsOfSample();
        content.replace(0, 4, LongByHand(count));
        EXPECT_EQ(LeftOutOf(SampleWith(BlockByHand("MPRI", 0, content))),
                  Sentences{"The decimals of orientations are damaged."})
            << count;
    }
}

/// The places of the seven rows of a sample: row 1 is at 1.5, -2.
std::string PlacesOfSample(const std::string& firstRow) {
    const std::string measured = OrientationsOfSample();
    std::string content = measured.substr(0, 8) + firstRow; // the same count and checksum
    for (int row = 2; row <= 7; ++row) {
        content += LittleEndian(0, 2) + DoubleByHand(0) + DoubleByHand(0);
    }
    return content;
}

const std::string kFirstPlace = LittleEndian(0xffff, 2) + DoubleByHand(1.5) + DoubleByHand(-2);

TEST_F(PlotBlocks, PlacesOnTheMapAreWrittenAndReadBack) {
    const int slot = Open(SampleBytes());
    const std::string plain = Bytes(slot);
    SetMapPlace(PlotOf(slot), 1, MapPlace{1.5, -2});
    const std::string extension =
        ExtensionByHand(BlockByHand("PLAC", 0, PlacesOfSample(kFirstPlace)));
    EXPECT_EQ(AfterFields(slot, plain), extension);
    const int again = Open(SampleBytes() + extension);
    EXPECT_EQ(MapPlaceOf(PlotOf(again).rows, 1), (MapPlace{1.5, -2}));
    EXPECT_EQ(MapPlaceOf(PlotOf(again).rows, 2), std::nullopt);
}

TEST_F(PlotBlocks, DamagedPlacesAreLeftOut) {
    const auto leftOut = [](const std::string& content) {
        return LeftOutOf(SampleWith(BlockByHand("PLAC", 0, content)));
    };
    const Sentences damaged = {"The places on the map are damaged."};
    const Sentences ofOthers = {"The places on the map belong to other rows."};
    const std::string good = PlacesOfSample(kFirstPlace);
    EXPECT_EQ(leftOut(good), Sentences{});
    for (std::size_t length = 0; length < good.size(); ++length) {
        ASSERT_EQ(leftOut(good.substr(0, length)), damaged) << length;
    }
    EXPECT_EQ(leftOut(good + "x"), damaged);
    for (const double odd : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_EQ(leftOut(PlacesOfSample(LittleEndian(1, 2) + DoubleByHand(odd) + DoubleByHand(0))),
                  damaged);
    }
    std::string other = good;
    other[4] = static_cast<char>(other[4] ^ 1);
    EXPECT_EQ(leftOut(other), ofOthers) << "another checksum";
    EXPECT_EQ(leftOut(LongByHand(0) + LongByHand(0)), ofOthers) << "fewer rows";
    for (const std::int32_t count : {-1, 8, 1 << 28, 0x7fffffff}) {
        EXPECT_EQ(leftOut(LongByHand(count) + good.substr(4)), damaged) << count;
    }
}

class UnknownBlocksOfFiles : public PlotBlocks {
protected:
    void SetUp() override {
        PlotBlocks::SetUp();
        slot = Open(SampleWith(MeasuredByHand() + about + always));
        plain = Bytes(slot);
        plain.resize(plain.find("\x8fQX"));
    }

    /// Whether the next save has the block about the rows. It always has the other one.
    [[nodiscard]] bool KeepsBlockAboutRows() const {
        const std::string bytes = Bytes(slot);
        EXPECT_TRUE(bytes.ends_with(ExtensionByHand(always).substr(8)));
        return bytes.ends_with(ExtensionByHand(about + always).substr(8));
    }

    const std::string about = BlockByHand("ROWS", 0, "about these rows");
    const std::string always = BlockByHand("LATE", 1, "about any rows");
    std::string plain;
    int slot = 0;
};

TEST_F(UnknownBlocksOfFiles, AreWrittenBack) {
    EXPECT_EQ(AfterFields(slot, plain), ExtensionByHand(MeasuredByHand() + about + always));
    const int again = Open(Bytes(slot));
    EXPECT_EQ(Bytes(again).substr(plain.size()), AfterFields(slot, plain));
}

TEST_F(UnknownBlocksOfFiles, StayWhenOnlyTheViewChanges) {
    Plot& plot = PlotOf(slot);
    plot.record.PlotKind = kEqualAngle;
    plot.record.UseDecimals = kTrue;
    plot.record.PlotFormulas = kTextbookFormulas;
    plot.record.ClassMode = 1;
    plot.rows.symbol.At(1) = CodeOfStyleRow(3);
    plot.rows.pointDensity.At(1) = 5;
    plot.record.FabricText = "S2";
    ReplotPlot(slot, ReplotCause::Settings);
    EXPECT_TRUE(KeepsBlockAboutRows());
}

TEST_F(UnknownBlocksOfFiles, AboutRowsGoWithAChangeOfTheRows) {
    struct Change {
        const char* what;
        std::function<void(Plot&)> make;
        std::function<void(Plot&)> revert;
    };

    const Change changes[] = {
        {"an orientation", [](Plot& p) { p.rows.azimuth.At(2) = 271; },
         [](Plot& p) { p.rows.azimuth.At(2) = 270; }},
        {"decimals",
         [](Plot& p) {
             ASSERT_TRUE(SetDecimals(p.rows, RowAngles::Primary, 1, {30.25, 119.5}));
         },
         [](Plot& p) {
             ASSERT_TRUE(SetDecimals(p.rows, RowAngles::Primary, 1, {30.25, 119.75}));
         }},
        {"a secondary orientation", [](Plot& p) { p.rows.dip2.At(1) = 21; },
         [](Plot& p) { p.rows.dip2.At(1) = 20; }},
        {"an appended line", [](Plot& p) { p.rows.lineAzimuth.At(1) = 91; },
         [](Plot& p) { p.rows.lineAzimuth.At(1) = 90; }},
        {"a number", [](Plot& p) { p.rows.number.At(1) = 2; },
         [](Plot& p) { p.rows.number.At(1) = 1.5F; }},
        {"a text", [](Plot& p) { p.rows.text.Set(1, "slate"); },
         [](Plot& p) { p.rows.text.Set(1, "12.5"); }},
        {"the kind of an overlay", [](Plot& p) { SetOverlayKind(p.record, 1, 2); },
         [](Plot& p) { SetOverlayKind(p.record, 1, 1); }},
    };
    Plot& plot = PlotOf(slot);
    for (const Change& change : changes) {
        change.make(plot);
        EXPECT_FALSE(KeepsBlockAboutRows()) << change.what;
        change.revert(plot);
        EXPECT_TRUE(KeepsBlockAboutRows()) << change.what << ", undone";
    }
}

TEST_F(UnknownBlocksOfFiles, AboutRowsGoWithAnOverlay) {
    RemoveOverlay(PlotOf(slot));
    EXPECT_FALSE(KeepsBlockAboutRows());
}

TEST_F(UnknownBlocksOfFiles, AboutRowsGoWithARow) {
    const std::int32_t row = 4;
    RemoveRows(PlotOf(slot), std::span(&row, 1));
    EXPECT_FALSE(KeepsBlockAboutRows());
}

TEST_F(UnknownBlocksOfFiles, GoWithThePlot) {
    ResetPlotRecord(slot);
    EXPECT_EQ(PlotOf(slot).attachments.Find<UnknownBlocks>(), nullptr);
}

} // namespace
} // namespace quandrel
