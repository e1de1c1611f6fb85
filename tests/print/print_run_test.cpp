// SPDX-License-Identifier: MIT

#include "core/plot_texts.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "platform/scripted/no_printers.h"
#include "platform/scripted/recording_printer.h"
#include "print/print_run.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <map>
#include <new>

namespace quandrel {
namespace {

constexpr const char* kFailure =
    "There has been an unknown problem printing these plots to your printer.";

class PrintTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlatform.printers = &printer;
    }

    /// A plot of three rows with every kind of text.
    int MakePlot(const std::string& fabric) {
        const int slot = NewPlot();
        AddRow(30, 120);
        AddRow(45, 270);
        AddRow(60, 10);
        PlotRecord& record = ActiveRecord();
        record.LayerVisible.fill(kTrue);
        record.FabricText = fabric;
        record.DescriptionText = "Upper limb of the fold";
        KeepNormalStatistics(PlotOf(slot), "No. of Data = 3\r\nMean = 12 - 345\r\n");
        return slot;
    }

    static PrintLayout LayoutOf(const std::vector<int>& plots, const Sheet& paper) {
        PrintLayout layout;
        layout.paper = paper;
        for (const int slot : plots) {
            SelectPlot(layout, slot);
        }
        return layout;
    }

    [[nodiscard]] const RecordedPage& Page() const { return printer.pages.back(); }

    /// The part of the page that holds a text; the test fails if there is none.
    [[nodiscard]] const RecordedPart& PartWith(const std::string& text) const {
        for (const RecordedPart& part : Page().parts) {
            for (const DrawOperation& operation : part.surface.Operations()) {
                if (operation.text == text) {
                    return part;
                }
            }
        }
        ADD_FAILURE() << "nowhere: " << text;
        return Page().parts.front();
    }

    RecordingPrinter printer;
};

/// The rectangles of the texts of a part, millimetres on the page.
std::vector<PageRect> TextRects(const RecordedPart& part) {
    std::vector<PageRect> rects;
    const UserScale scale = part.surface.Scale();
    const double perUnitX = part.rect.width / (scale.right - scale.left);
    const double perUnitY = part.rect.height / (scale.top - scale.bottom);
    for (const DrawOperation& operation : part.surface.Operations()) {
        if (operation.kind == DrawOperation::Kind::Text && !operation.text.empty()) {
            RecordingSurface measure = part.surface;
            measure.SetState(operation.state);
            rects.push_back({part.rect.left + (operation.points[0].x - scale.left) * perUnitX,
                             part.rect.top + (scale.top - operation.points[0].y) * perUnitY,
                             measure.TextWidth(operation.text) * perUnitX,
                             measure.TextHeight() * perUnitY});
        }
    }
    return rects;
}

bool DoRectsMeet(const PageRect& a, const PageRect& b) {
    constexpr double kHair = 1e-6;
    return a.left < b.Right() - kHair && b.left < a.Right() - kHair && a.top < b.Bottom() - kHair
           && b.top < a.Bottom() - kHair;
}

TEST_F(PrintTest, DrawsTheNetAtItsTrueSizeAndPlace) {
    const int slot = MakePlot("Bedding");
    PrintLayout layout = LayoutOf({slot}, printer.paper);
    SizePlot(layout, 0, 70);
    MovePlot(layout, 0, 100, 110);
    EXPECT_EQ(PrintSelectedPlots(layout.plots), PrintOutcome::Printed);
    ASSERT_EQ(printer.pages.size(), 1U);
    EXPECT_TRUE(Page().isSent);
    const RecordedPart& net = Page().parts.front();
    EXPECT_EQ(net.surface.Scale(), kPlotScale);
    // 2200 units across are 2.2 radii: the circle of 1000 units has a radius of 70 mm.
    EXPECT_NEAR(net.rect.width * 1000 / 2200, 70, 1e-9);
    EXPECT_NEAR(net.rect.left + net.rect.width / 2, 100, 1e-9);
    EXPECT_NEAR(net.rect.top + net.rect.height / 2, 110, 1e-9);
    const DrawOperation& primitive = net.surface.Operations().front();
    EXPECT_EQ(primitive.kind, DrawOperation::Kind::Circle);
    EXPECT_EQ(primitive.radius, 1000);
}

TEST_F(PrintTest, WritesLegendFabricDescriptionAndStatisticsInThisOrder) {
    const int slot = MakePlot("Bedding");
    PrintLayout layout = LayoutOf({slot}, printer.paper);
    MovePlot(layout, 0, 70, 100);
    SizePlot(layout, 0, 50); // a column beside the net
    EXPECT_EQ(PrintSelectedPlots(layout.plots), PrintOutcome::Printed);
    const RecordedPart& texts = PartWith("Bedding");
    double below = PartWith("Poles to planes").rect.Bottom();
    for (const char* text :
         {"Bedding", "Upper limb of the fold", "No. of Data = 3", "Mean = 12 - 345"}) {
        const auto found =
            std::ranges::find(texts.surface.Operations(), text, &DrawOperation::text);
        ASSERT_NE(found, texts.surface.Operations().end()) << text;
        const double top = texts.rect.top - found->points[0].y;
        EXPECT_GE(top, below) << text;
        below = top;
    }
}

TEST_F(PrintTest, DrawsAPlotInItsStyle) {
    const int slot = MakePlot("bedding");
    RecordOf(slot).StyleName = "Journal";
    PrintLayout layout = LayoutOf({slot}, printer.paper);
    SizePlot(layout, 0, 50);
    EXPECT_EQ(PrintSelectedPlots(layout.plots), PrintOutcome::Printed);
    (void)PartWith("N");
    (void)PartWith("Poles to bedding, n = 3");
}

TEST_F(PrintTest, LeavesOutTextsThatThePlotDoesNotShow) {
    const int slot = MakePlot("Bedding");
    ActiveRecord().LayerVisible.fill(0);
    ActiveRecord().LayerVisible[kNumberLayer] = kTrue;
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Printed);
    std::vector<std::string> texts;
    for (const RecordedPart& part : Page().parts) {
        for (const DrawOperation& operation : part.surface.Operations()) {
            if (operation.kind == DrawOperation::Kind::Text) {
                texts.push_back(operation.text);
            }
        }
    }
    EXPECT_EQ(texts, std::vector<std::string>{"n = 3"});
}

TEST_F(PrintTest, UsesTheFontsOfThePrinterInPoints) {
    const int slot = MakePlot("Bedding");
    for (const int place : {kPrintFabricFont, kPrintLegendFont, kPrintStatsFont, kPrintPlotFont}) {
        gSettings.styles.fonts[static_cast<std::size_t>(place)].font = {"Paper", 5.0 + place, false,
                                                                        true};
    }
    const auto former = gSettings.styles.fonts;
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Printed);
    const std::map<std::string, int> fonts = {{"Bedding", kPrintFabricFont},
                                              {"Poles to planes", kPrintLegendFont},
                                              {"No. of Data = 3", kPrintStatsFont},
                                              {"Upper limb of the fold", kPrintPlotFont}};
    for (const auto& [text, place] : fonts) {
        const auto& operations = PartWith(text).surface.Operations();
        const auto found = std::ranges::find(operations, text, &DrawOperation::text);
        ASSERT_NE(found, operations.end());
        EXPECT_EQ(found->state.font, gSettings.styles.fonts[static_cast<std::size_t>(place)].font)
            << text;
    }
    for (std::size_t i = 0; i < former.size(); ++i) {
        EXPECT_EQ(gSettings.styles.fonts[i].font, former[i].font) << i;
    }
}

TEST_F(PrintTest, SetsTextsSmallerWhereTheRoomIsNarrow) {
    const int slot = MakePlot("Bedding");
    std::string text;
    for (int i = 0; i < 40; ++i) {
        text += "Line " + std::to_string(i) + "\r\n";
    }
    KeepNormalStatistics(PlotOf(slot), text);
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Printed);
    const auto& operations = PartWith("Line 39").surface.Operations();
    const double points = operations.back().state.font.points;
    EXPECT_GE(points, 4);
    EXPECT_LE(points, 8);
    KeepNormalStatistics(PlotOf(slot), text + text + text + text + text + text);
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Printed);
    EXPECT_EQ(PartWith("...").surface.Operations().back().text, "...");
}

TEST_F(PrintTest, CutsAnEndlessNameInTheLegendRatherThanMakeAllTextsTiny) {
    const int slot = MakePlot("Bedding");
    const double points = gSettings.styles.fonts[kPrintStatsFont].font.points;
    bool wasSmaller = false;
    for (std::size_t length = 10; length <= 200; length += 2) {
        const std::string name(length, 'x');
        RecordOf(slot).FileTitle = name;
        EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Printed);
        const auto& texts = PartWith("Mean = 12 - 345").surface.Operations();
        EXPECT_GE(texts.back().state.font.points, 0.75 * points - 1e-9) << length;
        if (texts.back().state.font.points < points) {
            wasSmaller = true;
            EXPECT_FALSE(PartWith("Data: " + name).surface.Operations().empty());
        }
    }
    EXPECT_TRUE(wasSmaller) << "a name that is a little too long is shown whole";
}

TEST_F(PrintTest, LeavesNothingOverlappingOnAFittedPageOfThreePlots) {
    const std::vector<int> plots = {MakePlot("One"), MakePlot("Two"), MakePlot("Three")};
    for (const Sheet& paper : {Sheet{210, 297, 5}, Sheet{297, 210, 5}, Sheet{215.9, 279.4, 5}}) {
        const PrintLayout layout = LayoutOf(plots, paper);
        EXPECT_EQ(PrintSelectedPlots(layout.plots), PrintOutcome::Printed);
        std::vector<PageRect> rects;
        for (const PlotOnPage& plot : layout.plots) {
            rects.push_back(NetSquare(plot));
        }
        for (const RecordedPart& part : Page().parts) {
            for (const PageRect& rect : TextRects(part)) {
                rects.push_back(rect);
            }
        }
        EXPECT_EQ(rects.size(), 3U + 3U * 6U);
        const PageRect page{0, 0, paper.width, paper.height};
        for (std::size_t i = 0; i < rects.size(); ++i) {
            EXPECT_TRUE(rects[i].left >= 0 && rects[i].Right() <= page.width && rects[i].top >= 0
                        && rects[i].Bottom() <= page.height);
            for (std::size_t k = 0; k < i; ++k) {
                EXPECT_FALSE(DoRectsMeet(rects[i], rects[k])) << i << ' ' << k;
            }
        }
    }
}

TEST_F(PrintTest, TellsWhileItPrintsAndPutsBackWhatWasActive) {
    const int first = MakePlot("One");
    const int second = MakePlot("Two");
    gActivePlot = first;
    std::vector<std::vector<int>> seen;
    printer.onSurface = [&seen] {
        const std::vector<int> state = {gPrinting, gActivePlot};
        if (seen.empty() || seen.back() != state) {
            seen.push_back(state);
        }
    };
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({second, first}, printer.paper).plots),
              PrintOutcome::Printed);
    EXPECT_EQ(seen, (std::vector<std::vector<int>>{{1, second}, {1, first}}));
    EXPECT_EQ(gPrinting, 0);
    EXPECT_EQ(gActivePlot, first);
}

TEST_F(PrintTest, APlotIsPrintedWithTheGridThatItHas) {
    const int slot = MakePlot("One");
    RecordOf(slot).PlotSymbolMode = kContours;
    gSettings.gridSize = 30;
    ReplotActivePlot(true);
    gSettings.gridSize = 70;
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Printed);
    EXPECT_EQ(RecordOf(slot).GridSize, 30);
    EXPECT_EQ(gSettings.gridSize, 70);
}

TEST_F(PrintTest, LeavesTheScreenAsItWas) {
    const int slot = MakePlot("One");
    ReplotActivePlot(true);
    const std::size_t drawn = Form(slot).Plot().Operations().size();
    const int shown = Form(slot).TimesShown();
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Printed);
    EXPECT_EQ(Form(slot).Plot().Operations().size(), drawn);
    EXPECT_EQ(Form(slot).TimesShown(), shown);
}

TEST_F(PrintTest, PutsEverythingBackWhenMemoryRunsOut) {
    const int first = MakePlot("One");
    const int second = MakePlot("Two");
    gActivePlot = first;
    printer.onSurface = [second] {
        if (gActivePlot == second) {
            throw std::bad_alloc();
        }
    };
    const auto fonts = gSettings.styles.fonts;
    Expect(kFailure);
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({first, second}, printer.paper).plots),
              PrintOutcome::Failed);
    EXPECT_EQ(gPrinting, 0);
    EXPECT_EQ(gActivePlot, first);
    EXPECT_EQ(gSettings.styles.fonts[kLegendFont].font, fonts[kLegendFont].font);
    EXPECT_FALSE(Page().isSent);
    FormOf(gActivePlot).PlotSurface().Line({0, 0}, {1, 1}, kBlack);
    EXPECT_EQ(Form(first).Plot().Operations().back().kind, DrawOperation::Kind::Line);
}

TEST_F(PrintTest, TellsWhenThePrinterDoesNotTakeThePage) {
    const int slot = MakePlot("One");
    printer.takesPages = false;
    Expect(kFailure);
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Failed);
    printer.hasPaper = false;
    Expect(kFailure);
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Failed);
    Expect(kFailure);
    EXPECT_EQ(PrintSelectedPlots({}), PrintOutcome::Failed);
    EXPECT_EQ(gPrinting, 0);
}

TEST_F(PrintTest, StopsBetweenPlotsAndPrintsNothing) {
    const std::vector<int> plots = {MakePlot("One"), MakePlot("Two"), MakePlot("Three")};
    PrintRun run(LayoutOf(plots, printer.paper).plots);
    run.PrintNext();
    EXPECT_TRUE(run.HasMore());
    EXPECT_EQ(gPrinting, 1);
    run.Stop();
    EXPECT_FALSE(run.HasMore());
    run.PrintNext();
    EXPECT_EQ(run.Finish(), PrintOutcome::Stopped);
    EXPECT_EQ(std::ranges::count_if(
                  Page().parts,
                  [](const RecordedPart& part) { return part.surface.Scale() == kPlotScale; }),
              1);
    EXPECT_FALSE(Page().isSent);
    EXPECT_EQ(gPrinting, 0);
}

TEST_F(PrintTest, AsksForAFileWhereThereIsNoPrinter) {
    const int slot = MakePlot("One");
    printer.printers.clear();
    printer.defaultPrinter.clear();
    printer.chosen = {"PDF file", "", true};
    EXPECT_TRUE(CanPrint());
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Cancelled);
    EXPECT_TRUE(printer.pages.empty());
    prompts.QueueSavePath("/tmp/page.pdf");
    EXPECT_EQ(PrintSelectedPlots(LayoutOf({slot}, printer.paper).plots), PrintOutcome::Printed);
    EXPECT_EQ(Page().path, "/tmp/page.pdf");
}

TEST_F(PrintTest, IsNotToBeHadWithoutPrinterAndFile) {
    NoPrinters none;
    gPlatform.printers = &none;
    Expect("The Print Page setup window is not available until a Default Printer is setup in the "
           "Windows Control Panel.");
    EXPECT_FALSE(CanPrint());
}

TEST_F(PrintTest, TellsThatNoPrinterIsTheDefaultOne) {
    printer.defaultPrinter.clear();
    printer.chosen = {};
    Expect("Can't detect a default printer.\nYou will need to choose Printer Setup.. from the "
           "Files Menu before you can print any data.");
    EXPECT_TRUE(CanPrint());
}

TEST_F(PrintTest, ListsThePrintersAfterTheirSetup) {
    gPrinters.clear();
    printer.onSetUp = [this] {
        printer.printers = {"New"};
        return true;
    };
    EXPECT_TRUE(PrinterSetup());
    EXPECT_EQ(gPrinters, std::vector<std::string>{"New"});
    printer.onSetUp = {};
    EXPECT_FALSE(PrinterSetup());
}

TEST_F(PrintTest, NamesThePrinterAndItsPaper) {
    EXPECT_EQ(PrinterText({"Office", "room 3", false}), "Office on room 3");
    EXPECT_EQ(PrinterText({"PDF file", "", true}), "PDF file");
    EXPECT_EQ(PaperText({210, 297, 0}), "Portrait");
    EXPECT_EQ(PaperText({297, 210, 0}), "Landscape");
    double width = 0;
    double height = 0;
    double margin = 0;
    GetPagePrintArea(width, height, margin);
    EXPECT_EQ(width, 210);
    EXPECT_EQ(height, 297);
    EXPECT_EQ(margin, 5);
}

TEST_F(PrintTest, DrawsNoTextsWithoutRoom) {
    const int slot = MakePlot("Bedding");
    PrintLayout layout = LayoutOf({slot}, {100, 100, 0});
    SizePlot(layout, 0, 50);
    EXPECT_EQ(PrintSelectedPlots(layout.plots), PrintOutcome::Printed);
    EXPECT_EQ(Page().parts.size(), 1U);
}

} // namespace
} // namespace quandrel
