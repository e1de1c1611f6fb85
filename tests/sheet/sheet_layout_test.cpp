// SPDX-License-Identifier: MIT
//
// Pages of figure sheets: exact widths, equal nets, nothing over anything else or off the page.

#include "sheet/panel_grid.h"
#include "sheet/shared_legend.h"
#include "sheet_samples.h"

namespace quandrel {
namespace {

constexpr double kSlack = 1e-6;

bool Overlap(const FigureBox& one, const FigureBox& other) {
    return one.left + one.width > other.left + kSlack
           && other.left + other.width > one.left + kSlack
           && one.top + one.height > other.top + kSlack
           && other.top + other.height > one.top + kSlack;
}

/// All boxes of a page: panels with what is in them as one, entries, bars.
std::vector<FigureBox> BoxesOf(const SheetLayout& layout) {
    std::vector<FigureBox> boxes;
    for (const PlacedPanel& placed : layout.panels) {
        boxes.push_back(placed.box);
    }
    for (const PlacedEntry& placed : layout.legend.entries) {
        boxes.push_back(placed.box);
    }
    for (const PlacedBar& placed : layout.legend.bars) {
        boxes.push_back(placed.box);
    }
    return boxes;
}

void ExpectTidy(const SheetLayout& layout) {
    const std::vector<FigureBox> boxes = BoxesOf(layout);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_GE(boxes[i].left, kFigureMargin - kSlack) << i;
        EXPECT_GE(boxes[i].top, kFigureMargin - kSlack) << i;
        EXPECT_LE(boxes[i].left + boxes[i].width, layout.width - kFigureMargin + kSlack) << i;
        EXPECT_LE(boxes[i].top + boxes[i].height, layout.height - kFigureMargin + kSlack) << i;
        for (std::size_t k = 0; k < i; ++k) {
            EXPECT_FALSE(Overlap(boxes[i], boxes[k])) << i << " and " << k;
        }
    }
    for (const PlacedPanel& placed : layout.panels) {
        EXPECT_LE(placed.inside.top + placed.inside.height,
                  placed.box.top + placed.box.height + kSlack);
        EXPECT_GE(placed.inside.top, placed.box.top - kSlack);
        if (placed.net.width > 0) {
            // The primitive, without the part of the net's box around it.
            const double rim = placed.net.width * (1 - 1 / 1.1) / 2;
            EXPECT_GE(placed.net.left + rim, placed.box.left - kSlack);
            EXPECT_LE(placed.net.left + placed.net.width - rim,
                      placed.box.left + placed.box.width + kSlack);
            EXPECT_GE(placed.net.top + rim, placed.inside.top - kSlack);
            EXPECT_LE(placed.net.top + placed.net.height - rim,
                      placed.inside.top + placed.inside.height + kSlack);
        }
    }
}

SampleSheet SixPanels() {
    SampleSheet sample;
    sample.AddPlot(kEqualArea, 1, "Beds");
    sample.AddPlot(kEqualAngle, 2);
    sample.AddText("No. of Data = 60\r\nA\t1.0\t2.0\r\nB\t-0.5\t3.0\r\n");
    sample.AddPlot(kEqualArea, 3, "A title that needs two or three lines in a column");
    sample.AddText("Some words that go on over several lines of a panel of this sheet.");
    sample.AddPlot(kEqualArea, 4);
    return sample;
}

TEST(LayOutSheet, IsExactlyAsWideAsThePageAndTidy) {
    for (const double width : {120.0, 174.0}) {
        for (const LegendPlace place :
             {LegendPlace::Below, LegendPlace::None, LegendPlace::Right}) {
            for (const auto style : {kClassicStyle, kScreenStyle, kJournalStyle, kGreyStyle}) {
                SampleSheet sample = SixPanels();
                sample.sheet.width = width;
                sample.sheet.columns = width == 120 || place == LegendPlace::Right ? 2 : 3;
                sample.sheet.legend = place;
                sample.sheet.style = style;
                const Result<SheetLayout> layout = sample.Layout();
                ASSERT_TRUE(layout) << width << " " << style << ": " << layout.Error();
                EXPECT_NEAR(layout->width, width, 0.01);
                ExpectTidy(*layout);
            }
        }
    }
}

TEST(LayOutSheet, FillsAColumn) {
    SampleSheet sample;
    sample.AddPlot(kEqualArea, 1);
    sample.AddPlot(kEqualArea, 2);
    sample.sheet.width = 84;
    sample.sheet.columns = 2;
    const Result<SheetLayout> layout = sample.Layout();
    ASSERT_TRUE(layout) << layout.Error();
    EXPECT_NEAR(layout->width, 84, 0.01);
    ExpectTidy(*layout);
    EXPECT_NEAR(layout->panels[0].box.width, (84 - 4 - 4) / 2.0, 1e-9) << "two margins, one gap";
    EXPECT_NEAR(layout->panels[1].box.left - layout->panels[0].box.left
                    - layout->panels[0].box.width,
                4, 1e-9);
}

TEST(LayOutSheet, GivesNetsOfARowOneSizeAndOneLine) {
    SampleSheet sample = SixPanels();
    sample.sheet.panels[1].columns = 2;
    const Result<SheetLayout> layout = sample.Layout();
    ASSERT_TRUE(layout) << layout.Error();
    ExpectTidy(*layout);
    const FigureBox& one = layout->panels[0].net;
    const FigureBox& other = layout->panels[1].net;
    EXPECT_NEAR(one.width, other.width, 1e-9);
    EXPECT_NEAR(one.top + one.height / 2, other.top + other.height / 2, 1e-9);
}

TEST(LayOutSheet, MakesNetsAsSmallAsAPageOfAHeightNeeds) {
    SampleSheet sample = SixPanels();
    sample.sheet.width = 254;
    sample.sheet.height = 142.875;
    sample.AddFabric(5);
    sample.sheet.columns = 4;
    const Result<SheetLayout> layout = sample.Layout();
    ASSERT_TRUE(layout) << layout.Error();
    EXPECT_NEAR(layout->height, 142.875, 1e-9);
    ExpectTidy(*layout);
    sample.sheet.height = 30;
    EXPECT_FALSE(sample.Layout());
}

TEST(LayOutSheet, RefusesWhatHasNoRoom) {
    SampleSheet sample;
    EXPECT_FALSE(sample.Layout()) << "no panels";
    sample = SixPanels();
    sample.sheet.width = 40;
    EXPECT_FALSE(sample.Layout());
    sample = SampleSheet();
    sample.AddText("A\tB\tC\tD\tE\tF\tG\tH\tI\tJ\tK\tL\tM\tN\tO");
    sample.sheet.columns = 6;
    const Result<SheetLayout> layout = sample.Layout();
    ASSERT_FALSE(layout);
    EXPECT_NE(layout.Error().find("(a)"), std::string::npos) << layout.Error();
}

TEST(GridOfPanels, FillsRowsAroundLargePanels) {
    FigureSheet sheet;
    sheet.columns = 3;
    sheet.panels.resize(4);
    sheet.panels[0].rows = 2;
    sheet.panels[1].columns = 2;
    const PanelGrid grid = GridOfPanels(sheet);
    // By hand: a at the left of two rows, b right of it, c and d below b.
    const int expected[][2] = {{0, 0}, {1, 0}, {1, 1}, {2, 1}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(grid.places[i].column, expected[i][0]) << i;
        EXPECT_EQ(grid.places[i].row, expected[i][1]) << i;
    }
    EXPECT_EQ(grid.rows, 2);
}

TEST(SharedLegendOf, HasEachEntryOnce) {
    SampleSheet sample;
    sample.AddPlot(kEqualArea, 1);
    RecordingSurface unseen(100, 100);
    const auto entries = [&] {
        return SharedLegendOf(sample.sheet, sample.contents, sample.Look(), unseen).entries.size();
    };
    const std::size_t ofOne = entries();
    ASSERT_GT(ofOne, 2U);
    sample.AddPlot(kEqualArea, 1);
    EXPECT_EQ(entries(), ofOne) << "the same plot again";
    sample.AddPlot(kEqualArea, 5);
    EXPECT_EQ(entries(), ofOne) << "the same things with other numbers";
}

TEST(WordsOfEntry, AreWithoutNumbers) {
    EXPECT_EQ(WordsOfEntry("Poles to planes, n = 1,200"), "Poles to planes");
    EXPECT_EQ(WordsOfEntry("Best girdle 252/71"), "Best girdle");
    EXPECT_EQ(WordsOfEntry("Principal axis 19-169.5"), "Principal axis");
    EXPECT_EQ(WordsOfEntry("Locality 3"), "Locality 3");
    EXPECT_EQ(WordsOfEntry("95% region (Prentice)"), "95% region (Prentice)");
}

} // namespace
} // namespace quandrel
