// SPDX-License-Identifier: MIT
//
// Figure sheets in scripts.

#include "batch_fixture.h"
#include "pdf/pdf_file.h"
#include "sheet/sheet_text.h"

#include <QImage>

#include <iterator>

namespace quandrel {
namespace {

class BatchSheet : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        std::string rows;
        for (int i = 0; i < 60; ++i) {
            rows += std::to_string(10 + i % 70) + "\t" + std::to_string(i * 7 % 360) + "\n";
        }
        Write("rows.txt", rows);
    }

    [[nodiscard]] std::string BytesOf(const std::string& name) const {
        std::ifstream stream(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static constexpr const char* kOpen =
        "format primary=plane data=planes delimiter=tab; open \"FOLDER/rows.txt\"; ";
    static constexpr const char* kSix =
        "format primary=plane data=planes delimiter=tab; open \"FOLDER/rows.txt\"; figure new; "
        "figure add plot title=Planes; figure add statistics; figure add fabric; "
        "figure add text text=\"Some words\"; save \"FOLDER/rows.qpx\"; "
        "figure add \"FOLDER/rows.qpx\"; rose; figure add rose; ";
};

TEST_F(BatchSheet, HasAPageOfItsWidth) {
    for (const std::string width : {"84", "120", "174"}) {
        const std::string columns = width == "174" ? "3" : width == "120" ? "2" : "1";
        ASSERT_EQ(Run(kSix + ("figure page width=" + width + "mm columns=" + columns)
                      + "; figure export \"FOLDER/a.svg\"; figure export \"FOLDER/a.pdf\""),
                  "");
        const std::string svg = BytesOf("a.svg");
        EXPECT_NE(svg.find(" width=\"" + width + "mm\""), std::string::npos) << svg.substr(0, 200);
        EXPECT_NE(svg.find("in the style Journal"), std::string::npos);
        const Result<PdfFacts> facts = FactsOfPdf(BytesOf("a.pdf"));
        ASSERT_TRUE(facts) << facts.Error();
        ASSERT_EQ(facts->pages.size(), 1U);
        EXPECT_NEAR(facts->pages[0].width / 72 * 25.4, std::stod(width), 1e-3);
    }
}

TEST_F(BatchSheet, HasLettersTitlesAndTexts) {
    ASSERT_EQ(Run(std::string(kSix) + "figure export \"FOLDER/a.svg\""), "");
    const std::string svg = BytesOf("a.svg");
    for (const char* text : {">(a)<", ">(f)<", ">Planes<", ">Some words<", ">No. of Data = 60<"}) {
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(svg.find(">(g)<"), std::string::npos);
}

TEST_F(BatchSheet, NamesThePanelsOfScalesThatDiffer) {
    const std::string two = std::string(kOpen) + "rose; figure add rose; ";
    ASSERT_EQ(Run(two + "rose sector=30; figure add rose; figure export \"FOLDER/a.svg\""), "");
    EXPECT_NE(BytesOf("a.svg").find(">(a) Petals by length, 10"), std::string::npos);
    EXPECT_NE(BytesOf("a.svg").find(">(b) Petals by length, 30"), std::string::npos);
    ASSERT_EQ(Run(two + "figure add rose; figure export \"FOLDER/b.svg\""), "");
    EXPECT_NE(BytesOf("b.svg").find(">Petals by length, 10"), std::string::npos);
}

TEST_F(BatchSheet, APictureHoldsItsSheetWithAllPlots) {
    ASSERT_EQ(Run(std::string(kSix)
                  + "figure export \"FOLDER/a.svg\" data=yes; figure export \"FOLDER/a.png\" "
                    "data=yes; figure export \"FOLDER/a.pdf\" data=yes; figure export "
                    "\"FOLDER/plain.svg\""),
              "");
    std::filesystem::remove(folder / "rows.qpx");
    std::filesystem::remove(folder / "rows.txt");
    for (const std::string name : {"a.svg", "a.png", "a.pdf"}) {
        ASSERT_EQ(Run("open \"FOLDER/" + name + "\"; figure export \"FOLDER/again-" + name
                      + "\" data=yes; figure save \"FOLDER/held.qsheet\""),
                  "")
            << name;
        EXPECT_EQ(BytesOf("again-" + name), BytesOf(name)) << name;
        EXPECT_EQ(BytesOf("held.qsheet").find(folder.string()), std::string::npos)
            << "the paths are left out";
    }
    EXPECT_NE(Run("open \"FOLDER/plain.svg\""), "");
}

TEST_F(BatchSheet, ASheetInAPictureOpensBesideAPlot) {
    ASSERT_EQ(Run("figure add text text=Words; figure export \"FOLDER/a.svg\" data=yes"), "");
    ASSERT_EQ(Run(std::string(kOpen) + "overlay \"FOLDER/a.svg\"; figure save \"FOLDER/b.qsheet\""),
              "")
        << log.str();
    EXPECT_NE(BytesOf("b.qsheet").find("Words"), std::string::npos);
}

TEST_F(BatchSheet, ASheetInAPictureNamesNoFiles) {
    const Result<FigureSheet> sheet = SheetOfPicture(
        R"({"quandrelFigure": 1, "panels": [{"kind": "plot", "file": "/tmp/a.qpx"}]})");
    ASSERT_FALSE(sheet);
    EXPECT_NE(sheet.Error().find("names files"), std::string::npos) << sheet.Error();
}

TEST_F(BatchSheet, IsSavedOpenedAndDrawnTheSame) {
    ASSERT_EQ(
        Run(std::string(kSix) + "figure export \"FOLDER/a.svg\"; figure save \"FOLDER/f.qsheet\""),
        "");
    ASSERT_EQ(Run("figure open \"FOLDER/f.qsheet\"; figure export \"FOLDER/b.svg\"; "
                  "figure save \"FOLDER/g.qsheet\""),
              "");
    EXPECT_EQ(BytesOf("b.svg"), BytesOf("a.svg"));
    EXPECT_EQ(BytesOf("g.qsheet"), BytesOf("f.qsheet"));
    EXPECT_NE(BytesOf("f.qsheet").find("\"file\": \"rows.qpx\""), std::string::npos);
}

TEST_F(BatchSheet, DrawsPixelsOfItsResolution) {
    ASSERT_EQ(Run(std::string(kOpen)
                  + "figure new width=84mm columns=1; figure add plot; "
                    "figure export \"FOLDER/a.png\" dpi=600 background=transparent"),
              "");
    const QImage image(QString::fromStdString((folder / "a.png").string()));
    EXPECT_EQ(image.width(), 1984) << "84 / 25.4 * 600";
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
}

TEST_F(BatchSheet, PrintsItsCaption) {
    ASSERT_EQ(
        Run(std::string(kOpen) + "figure add plot; figure caption \"{net} of {name}, n = {n}.\""),
        "");
    EXPECT_EQ(out.str(), "Lower-hemisphere equal-area net of rows, n = 60.\n");
}

TEST_F(BatchSheet, ChangesMovesAndRemovesPanels) {
    ASSERT_EQ(
        Run("figure add text title=One; figure add text title=Two; figure add text title=Three; "
            "figure move 3 1; figure change 2 title=Uno; figure remove 3; figure caption"),
        "");
    EXPECT_EQ(out.str(), "(a) Three. (b) Uno.\n");
}

TEST_F(BatchSheet, RefusesWithTheReason) {
    struct Row {
        const char* commands;
        const char* reason;
    };

    constexpr Row kRows[] = {
        {"figure", "does not begin"},
        {"figure draw", "does not begin"},
        {"figure add plot", "no plot is open"},
        {"figure add nothere.qpx", "nothere.qpx"},
        {"figure add text columns=4", "columns"},
        {"figure new width=84cm", "84cm"},
        {"figure new width=5mm", "5mm"},
        {"figure new style=none.json", "none.json"},
        {"figure new colour=red", "colour"},
        {"figure remove 1", "panel is missing"},
        {"figure add text title=A; figure move 1 2", "panel is missing"},
        {"figure caption {m}", "{m}"},
        {"figure open nothere.qsheet", "nothere.qsheet"},
        {"figure save a b", "too many"},
        {"figure export a.png", "no panels"},
        {"figure add text title=A; figure export \"FOLDER/a.tif\" data=yes", "a TIFF cannot hold"},
        {"figure add text title=A; figure export \"FOLDER/a.gif\"", "a.gif"},
    };
    for (const Row& row : kRows) {
        EXPECT_NE(Run(row.commands).find(row.reason), std::string::npos)
            << row.commands << ": " << Run(row.commands);
    }
    EXPECT_NE(Run(std::string(kOpen) + "figure add rose").find("not a rose"), std::string::npos);
    Write("bad.qpx", "no plot");
    EXPECT_NE(Run("figure add \"FOLDER/bad.qpx\"").find("bad.qpx"), std::string::npos);
}

TEST_F(BatchSheet, OpensAsAnyFile) {
    ASSERT_EQ(
        Run(std::string(kSix) + "figure export \"FOLDER/a.svg\"; figure save \"FOLDER/f.qsheet\""),
        "");
    ASSERT_EQ(Run("open \"FOLDER/f.qsheet\"; figure export \"FOLDER/b.svg\""), "");
    EXPECT_EQ(BytesOf("a.svg"), BytesOf("b.svg"));
    std::filesystem::copy_file(folder / "f.qsheet", folder / "renamed.txt");
    ASSERT_EQ(Run("open \"FOLDER/renamed.txt\"; figure export \"FOLDER/c.svg\""), "");
    EXPECT_EQ(BytesOf("a.svg"), BytesOf("c.svg"));
}

TEST_F(BatchSheet, JoinsNoPlotAndStaysWhenAFileIsWrong) {
    ASSERT_EQ(Run("figure new columns=2; figure add text text=A; figure save \"FOLDER/f.qsheet\""),
              "");
    Write("wrong.qsheet", "{\"quandrelFigure\": 1, \"columns\": 11}");
    EXPECT_NE(Run("figure new; open \"FOLDER/wrong.qsheet\""), "");
    EXPECT_NE(log.str().find("columns"), std::string::npos) << log.str();
    EXPECT_NE(Run(std::string(kOpen) + "merge \"FOLDER/f.qsheet\""), "");
    EXPECT_NE(log.str().find("You can't Merge a figure"), std::string::npos) << log.str();
}

TEST_F(BatchSheet, IsInTheWorkspaceOnceItIsSaved) {
    ASSERT_EQ(Run(std::string(kSix)
                  + "figure save \"FOLDER/f.qsheet\"; save \"FOLDER/rows.qpx\"; "
                    "workspace save \"FOLDER/all.qwo\"; figure export \"FOLDER/a.svg\""),
              "");
    EXPECT_NE(BytesOf("all.qwo").find("[Figure Sheet]: f.qsheet\r\n"), std::string::npos);
    ASSERT_EQ(Run("workspace open \"FOLDER/all.qwo\"; figure export \"FOLDER/b.svg\""), "");
    EXPECT_EQ(BytesOf("a.svg"), BytesOf("b.svg"));
    ASSERT_EQ(Run("workspace open \"FOLDER/all.qwo\"; figure page columns=1; "
                  "workspace save \"FOLDER/changed.qwo\""),
              "");
    EXPECT_EQ(BytesOf("changed.qwo").find("[Figure Sheet]"), std::string::npos);
    EXPECT_NE(log.str().find("left out of the workspace"), std::string::npos);
}

} // namespace
} // namespace quandrel
