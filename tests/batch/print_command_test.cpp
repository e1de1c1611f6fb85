// SPDX-License-Identifier: MIT

#include "batch/print_command.h"
#include "batch_fixture.h"
#include "core/atomic_file.h"
#include "print/print_run.h"
#include "support/pdf_shapes.h"

namespace quandrel {
namespace {

constexpr double kTolerance = 0.05; ///< millimetres

class PrintCommandTest : public BatchTest {
protected:
    /// Opens plots of the same file, prints with the words after "print", and returns the error.
    std::string Print(const std::string& words, int plots = 1) {
        out.str("");
        log.str("");
        BatchSession session(out, log);
        for (int i = 0; i < plots; ++i) {
            const auto open = ParseScript("open \"" + (folder / "planes.txt").string() + "\"",
                                          CommandBreak::LineOnly);
            EXPECT_EQ(session.Run(*open), "");
        }
        const auto print = ParseScript("print \"" + Path() + "\" " + words, CommandBreak::LineOnly);
        return PrintToFile(print->front(), log);
    }

    [[nodiscard]] std::string Path() const { return (folder / "page.pdf").string(); }

    [[nodiscard]] PdfPageContent Page() const { return PdfReader::Read(Path()); }
};

struct PageCase {
    const char* words;
    double width;
    double height;
    double radius;
    double centreX;
    double centreY;
};

TEST_F(PrintCommandTest, PrintsTheNetAtItsTrueSizeWhereItWasPut) {
    const std::vector<PageCase> cases = {
        {"size=10 centre=10.5,14", 210, 297, 100, 105, 140},
        {"size=10.0 centre=10.2,18.3", 210, 297, 100, 102, 183},
        {"size=6 centre=20,9 orientation=landscape", 297, 210, 60, 200, 90},
        {"units=inches size=3 centre=4.25,5 paper=letter", 215.9, 279.4, 76.2, 107.95, 127},
        {"units=inches size=3.5 centre=4,4 paper=letter orientation=landscape", 279.4, 215.9, 88.9,
         101.6, 101.6},
        {"units=inches size=2.5 centre=3,4.5", 210, 297, 63.5, 76.2, 114.3},
        {"", 210, 297, 190.0 / 2.2, 105, 148.5},
        {"orientation=landscape", 297, 210, 190.0 / 2.2, 148.5, 105},
    };
    for (const auto& [words, width, height, radius, centreX, centreY] : cases) {
        ASSERT_EQ(Print(words), "") << words;
        const PdfPageContent page = Page();
        // Pages are as large as whole points allow.
        EXPECT_NEAR(page.width, width, 0.2) << words;
        EXPECT_NEAR(page.height, height, 0.2) << words;
        const std::vector<PdfShape> circles = CirclesOf(page, 20);
        ASSERT_EQ(circles.size(), 1U) << words;
        const PdfShape& net = circles.front();
        EXPECT_NEAR((net.right - net.left) / 2, radius, kTolerance) << words;
        EXPECT_NEAR((net.bottom - net.top) / 2, radius, kTolerance) << words;
        EXPECT_NEAR((net.left + net.right) / 2, centreX, kTolerance) << words;
        EXPECT_NEAR((net.top + net.bottom) / 2, centreY, kTolerance) << words;
    }
}

TEST_F(PrintCommandTest, PrintsEachPlotWhereItWasPut) {
    ASSERT_EQ(Print("plots=3,1 size=4,6 centre=6,6,12,20", 3), "");
    const std::vector<PdfShape> circles = CirclesOf(Page(), 20);
    ASSERT_EQ(circles.size(), 2U);
    EXPECT_NEAR(circles[0].right - circles[0].left, 80, 2 * kTolerance);
    EXPECT_NEAR((circles[0].left + circles[0].right) / 2, 60, kTolerance);
    EXPECT_NEAR(circles[1].right - circles[1].left, 120, 2 * kTolerance);
    EXPECT_NEAR((circles[1].top + circles[1].bottom) / 2, 200, kTolerance);
}

TEST_F(PrintCommandTest, FitsThreePlotsOfOneSizeApart) {
    ASSERT_EQ(Print("plots=1,2,3", 3), "");
    const std::vector<PdfShape> nets = CirclesOf(Page(), 20);
    ASSERT_EQ(nets.size(), 3U);
    for (std::size_t i = 0; i < nets.size(); ++i) {
        EXPECT_NEAR(nets[i].right - nets[i].left, nets[0].right - nets[0].left, 0.01);
        for (std::size_t k = 0; k < i; ++k) {
            EXPECT_TRUE(nets[i].left > nets[k].right || nets[k].left > nets[i].right
                        || nets[i].top > nets[k].bottom || nets[k].top > nets[i].bottom);
        }
    }
}

TEST_F(PrintCommandTest, GivesTheSameBytesForTheSamePlot) {
    ASSERT_EQ(Print("size=5"), "");
    std::filesystem::rename(folder / "page.pdf", folder / "former.pdf");
    ASSERT_EQ(Print("size=5"), "");
    const auto bytes = [](const std::filesystem::path& path) {
        std::ifstream stream(path, std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(stream), {}};
    };
    EXPECT_EQ(bytes(folder / "page.pdf"), bytes(folder / "former.pdf"));
}

TEST_F(PrintCommandTest, RefusesWhatItCannotPrint) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"plots=2", "plots: '2' is not an open plot"},
        {"plots=1,1", "plots: plot 1 is named twice"},
        {"size=0.1", "size: a net's radius is 0.5 to 14.9 cms"},
        {"size=15", "size: a net's radius is 0.5 to 14.9 cms"},
        {"size=1,2", "size: one value is required, or one for each plot"},
        {"size=wide", "size: 'wide' is not a number"},
        {"centre=5", "centre: two numbers are required for each plot"},
        {"centre=5,30", "centre: it is not on the paper"},
        {"paper=foolscap", "paper: 'foolscap' is not one of a3, a4, a5, legal, letter"},
        {"size", "'size' lacks a value: size=..."},
        {"other.pdf", "'other.pdf' is one path too many"},
        {"scale=2",
         "'scale' is not a key of print: centre, orientation, paper, plots, size, units"},
    };
    for (const auto& [words, error] : cases) {
        EXPECT_EQ(Print(words), error) << words;
        EXPECT_FALSE(std::filesystem::exists(Path())) << words;
    }
}

TEST_F(PrintCommandTest, RefusesPathsThatCannotBe) {
    const auto printTo = [this](const std::string& words) {
        BatchSession session(out, log);
        const auto open = ParseScript("open \"" + (folder / "planes.txt").string() + "\"",
                                      CommandBreak::LineOnly);
        EXPECT_EQ(session.Run(*open), "");
        const auto print = ParseScript("print " + words, CommandBreak::LineOnly);
        return PrintToFile(print->front(), log);
    };
    EXPECT_EQ(printTo("size=5"), "a path is missing");
    EXPECT_EQ(printTo("page.png"), "'page.png' does not end in .pdf");
    const std::string nowhere = (folder / "no folder" / "page.pdf").string();
    EXPECT_EQ(printTo("\"" + nowhere + "\""),
              "'" + nowhere + "' could not be written: " + WriteFileAtomically(nowhere, "x"));
    const std::string link = (folder / "link.pdf").string();
    std::filesystem::create_symlink(folder / "gone" / "page.pdf", link);
    const std::string reason = WriteFileAtomically(link, "x");
    ASSERT_NE(reason, "");
    EXPECT_EQ(printTo("\"" + link + "\""), "'" + link + "' could not be written: " + reason);
    EXPECT_EQ(gPrinting, 0);
}

TEST_F(PrintCommandTest, TellsOfNetsOverTheEdge) {
    EXPECT_EQ(Print("plots=1,2 size=5 centre=10,10,18,20", 2), "");
    EXPECT_EQ(log.str(), "print: Plot 2 reaches over the edge of the paper\n");
    EXPECT_EQ(Print("size=5 centre=10,10"), "");
    EXPECT_EQ(log.str(), "");
}

} // namespace
} // namespace quandrel
