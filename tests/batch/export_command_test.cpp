// SPDX-License-Identifier: MIT
//
// Figures as their SVG files have them.

#include "batch_fixture.h"
#include "figure_texts.h"
#include "pdf/pdf_file.h"

#include <QImage>

#include <vector>

namespace quandrel {
namespace {

class ExportFigure : public BatchTest {
protected:
    std::string Svg(const std::string& commands, const std::string& keys) {
        EXPECT_EQ(
            Run("open \"FOLDER/planes.txt\"; " + commands + "export \"FOLDER/a.svg\" " + keys), "");
        std::ifstream file(folder / "a.svg");
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

constexpr const char* kBands = "symbols 5; density method=kernel unit=uniform picture=both "
                               "levels=even; layer add main symbols; ";

TEST_F(ExportFigure, IsAsWideAsWantedInEveryStyle) {
    for (const std::string commands : {"symbols 1; ", "symbols 0; ", kBands}) {
        for (const std::string style : {"screen", "journal", "grey"}) {
            const std::string svg = Svg(commands, "width=84mm style=" + style);
            EXPECT_NE(svg.find(" width=\"84mm\""), std::string::npos) << svg.substr(0, 200);
            const std::vector<TextBox> boxes = TextsOf(svg);
            EXPECT_TRUE(Has(boxes, "N")) << style;
            EXPECT_TRUE(
                Has(boxes, commands == "symbols 0; " ? "Planes, n = 3" : "Poles to planes, n = 3"));
            ExpectClear(boxes);
        }
    }
}

TEST_F(ExportFigure, HasTheLineWidthsOfItsStyle) {
    const std::string svg = Svg("symbols 0; ", "style=journal");
    EXPECT_NE(svg.find("stroke-width=\"0.75\""), std::string::npos) << "rim";
    EXPECT_NE(svg.find("stroke-width=\"0.5\""), std::string::npos) << "great circles, ticks";
}

TEST_F(ExportFigure, DrawsEveryRose) {
    std::string rows;
    for (int i = 0; i < 120; ++i) {
        const int azimuth = i % 3 == 0 ? 40 + i % 11 : i * i % 360;
        rows += std::to_string(azimuth) + "\t" + std::to_string(i % 13) + "\t"
                + std::to_string(1 + i % 7) + "\n";
    }
    Write("wind.txt", rows);
    const std::string open =
        "close; format primary=directions delimiter=tab columns=0,0,2,3,4,5,6,7,1,2 "
        "appended=numeric,text data=polar numericname=length textname=speed; "
        "open \"FOLDER/wind.txt\"; set RoseDisplay8 -1; ";
    const std::string classes = "classify mode=1 procedure=equal classes=5; ";
    for (const std::string keys :
         {"type=0 equalarea=yes", "type=1 sector=20", "type=2 scale=circauto", "type=3", "type=4",
          "type=5", "type=6", "type=7 zero=20", "type=8", "type=0 classify=length segshape=1",
          "type=1 classify=length zero=15 equalarea=yes", "type=0 shape=1", "type=0 shape=2",
          "type=0 shape=3 sector=7 bias=0", "type=0 shape=4 scale=circ3"}) {
        for (const std::string style : {"screen", "journal", "grey"}) {
            const bool hasClasses = keys.find("classify") != std::string::npos;
            const std::string svg = Svg(open + (hasClasses ? classes : "") + "rose " + keys + "; ",
                                        "width=84mm legend=below style=" + style);
            SCOPED_TRACE(keys + " " + style);
            EXPECT_NE(svg.find(" width=\"84mm\""), std::string::npos) << svg.substr(0, 200);
            const std::vector<TextBox> boxes = TextsOf(svg);
            EXPECT_EQ(Has(boxes, "N"), keys.find("shape=3") == std::string::npos);
            EXPECT_TRUE(std::ranges::any_of(
                boxes, [](const TextBox& box) { return box.text.starts_with("Petals by "); }));
            EXPECT_NE(svg.find("stroke-width=\"0.4\""), std::string::npos) << "petals";
            ExpectClear(boxes);
        }
    }
}

TEST_F(ExportFigure, LeavesTheStyleOfThePlotAndOtherPicturesAlone) {
    const std::string before = Svg("symbols 1; ", "");
    const std::string after =
        Svg("symbols 1; export \"FOLDER/b.svg\" style=journal width=84mm; ", "");
    EXPECT_EQ(after, before);
}

TEST_F(ExportFigure, CanBeTransparentAndWithoutALegend) {
    EXPECT_NE(Svg("", "width=84mm").find("<rect"), std::string::npos);
    const std::string svg = Svg("", "width=84mm background=transparent legend=none");
    EXPECT_EQ(svg.find("<rect"), std::string::npos);
    EXPECT_EQ(svg.find("n = 3"), std::string::npos);
}

TEST_F(ExportFigure, SaysTheResolutionOfAPng) {
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/a.png\" width=84mm dpi=600"), "");
    const QImage image(QString::fromStdString((folder / "a.png").string()));
    EXPECT_EQ(image.width(), 1984) << "84 / 25.4 * 600";
    EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, 600, 0.1);
}

TEST_F(ExportFigure, TakesTheSizeOfASlide) {
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/a.png\" width=slide dpi=100"), "");
    const QImage image(QString::fromStdString((folder / "a.png").string()));
    EXPECT_EQ(image.size(), QSize(1000, 563)) << "10 by 5.625 inches";
}

TEST_F(ExportFigure, HasAPageOfItsSizeInAPdf) {
    for (const double width : {84.0, 120.0, 174.0}) {
        const std::string svg = Svg("export \"FOLDER/a.pdf\" width=" + std::to_string(width) + "; ",
                                    "width=" + std::to_string(width));
        std::ifstream file(folder / "a.pdf", std::ios::binary);
        const Result<PdfFacts> facts = FactsOfPdf(std::string(std::istreambuf_iterator(file), {}));
        ASSERT_TRUE(facts) << facts.Error();
        ASSERT_EQ(facts->pages.size(), 1U);
        EXPECT_NEAR(facts->pages[0].width / 72 * 25.4, width, 1e-3);
        EXPECT_EQ(facts->info.at("/Subject"), "Drawn by Quandrel 9.5.1 in the style Journal");
        EXPECT_NE(svg.find("<desc>Drawn by Quandrel 9.5.1 in the style Journal</desc>"),
                  std::string::npos);
    }
}

TEST_F(ExportFigure, RefusesWhatItCannotDraw) {
    const std::string open = "open \"FOLDER/planes.txt\"; ";
    EXPECT_NE(Run(open + "export \"FOLDER/a.svg\" width=84cm").find("84cm"), std::string::npos);
    EXPECT_NE(Run(open + "export \"FOLDER/a.svg\" style=nosuch").find("nosuch"), std::string::npos);
    EXPECT_NE(Run(open + "export \"FOLDER/a.svg\" width=84mm size=600").find("size"),
              std::string::npos);
    EXPECT_NE(Run(open + "export \"FOLDER/a.svg\" width=40mm net=60mm").find("narrow"),
              std::string::npos);
}

} // namespace
} // namespace quandrel
