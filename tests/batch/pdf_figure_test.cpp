// SPDX-License-Identifier: MIT
//
// Figures as their PDF files have them: the texts of the SVG, in sizes that can be read, and lines
// as wide as their style says.

#include "batch_fixture.h"
#include "figure_texts.h"
#include "pdf/pdf_file.h"
#include "pdf/pdf_marks.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace quandrel {
namespace {

class PdfFigure : public BatchTest {
protected:
    [[nodiscard]] std::string Bytes(const std::string& name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Exports a figure both ways; commands open the data.
    void Export(const std::string& commands, const std::string& keys) {
        ASSERT_EQ(
            Run(commands + "export \"FOLDER/a.svg\" " + keys + "; export \"FOLDER/a.pdf\" " + keys),
            "");
        pdf = Bytes("a.pdf");
        marks = MarksOfPdf(pdf);
        texts = TextsOf(Bytes("a.svg"));
    }

    [[nodiscard]] bool HasLine(double width) const {
        return std::ranges::any_of(
            marks.lineWidths, [width](double other) { return std::abs(other - width) < 0.005; });
    }

    std::string pdf;
    PdfMarks marks;
    std::vector<TextBox> texts;
};

/// The texts of the SVG stand in the PDF, each as often and in the same size. Their places differ
/// as the fonts do: those of the machine here, those of a table there.
void ExpectSameTexts(const std::vector<TextBox>& texts, const PdfMarks& marks) {
    std::map<std::string, std::vector<double>> inSvg;
    std::map<std::string, std::vector<double>> inPdf;
    for (const TextBox& text : texts) {
        inSvg[text.text].push_back(text.size);
    }
    for (const PdfText& text : marks.texts) {
        inPdf[text.text].push_back(text.size);
    }
    for (const auto& [text, sizes] : inSvg) {
        const std::vector<double>& others = inPdf[text];
        ASSERT_EQ(sizes.size(), others.size()) << text;
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            EXPECT_NEAR(others[i], sizes[i], 0.1) << text;
        }
    }
    EXPECT_EQ(inPdf.size(), inSvg.size());
}

/// Texts are within the page and not on each other. Letters are at least as wide as those of the
/// table.
void ExpectClear(const PdfMarks& marks, PdfPageSize page) {
    for (std::size_t i = 0; i < marks.texts.size(); ++i) {
        const PdfText& a = marks.texts[i];
        EXPECT_GE(a.size, 5.95) << a.text;
        EXPECT_GE(a.x, 0) << a.text;
        EXPECT_GE(a.y - 0.72 * a.size, 0) << a.text;
        EXPECT_LE(a.x + WidthInEms(a.text, false) * a.size, page.width) << a.text;
        EXPECT_LE(a.y, page.height) << a.text;
        for (std::size_t k = 0; k < i; ++k) {
            const PdfText& b = marks.texts[k];
            const PdfText& left = a.x < b.x ? a : b;
            const bool areApart = std::abs(a.x - b.x) >= WidthInEms(left.text, false) * left.size;
            EXPECT_TRUE(areApart || std::abs(a.y - b.y) > 0.9 * std::min(a.size, b.size))
                << a.text << " on " << b.text;
        }
    }
}

const std::vector<std::string>& Pictures() {
    static const std::vector<std::string> pictures = {
        "open \"FOLDER/planes.txt\"; symbols 0; ",
        "open \"FOLDER/planes.txt\"; symbols 5; density method=kernel unit=uniform picture=both "
        "levels=even; layer add main symbols; set AxisItems[10][0] -1; "
        "region about=girdle method=bootstrap despite=yes; ",
        "format primary=directions columns=0,0 data=polar; open \"FOLDER/azimuths.txt\"; set "
        "RoseDisplay8 -1; ",
    };
    return pictures;
}

TEST_F(PdfFigure, HasTheTextsOfTheSvgInEveryStyle) {
    Write("azimuths.txt", "30\n45\n60\n62\n58\n200\n");
    for (const std::string& commands : Pictures()) {
        for (const std::string style : {"screen", "journal", "grey"}) {
            SCOPED_TRACE(commands + style);
            Export(commands, "width=84mm legend=below style=" + style);
            const Result<PdfFacts> facts = FactsOfPdf(pdf);
            ASSERT_TRUE(facts) << facts.Error();
            EXPECT_NEAR(facts->pages.at(0).width / 72 * 25.4, 84, 0.01);
            ExpectSameTexts(texts, marks);
            ExpectClear(marks, facts->pages[0]);
        }
    }
}

TEST_F(PdfFigure, HasABoldNorthAndTheWidthsOfLinesOfTheJournal) {
    Export(Pictures().at(1), "width=84mm style=journal");
    const auto north =
        std::ranges::find_if(marks.texts, [](const PdfText& text) { return text.text == "N"; });
    ASSERT_NE(north, marks.texts.end());
    EXPECT_NEAR(north->size, 8, 0.1);
    EXPECT_NE(north->font.find("Bold"), std::string::npos) << north->font;
    EXPECT_TRUE(HasLine(0.75)) << "rim, region";
    EXPECT_TRUE(HasLine(0.5)) << "ticks";
    EXPECT_TRUE(HasLine(0.4)) << "contours";
    EXPECT_TRUE(HasLine(1)) << "girdle";
    Export(Pictures().at(0), "width=84mm style=journal");
    EXPECT_TRUE(HasLine(0.5)) << "great circles";
    EXPECT_FALSE(HasLine(1)) << "no girdle";
}

} // namespace
} // namespace quandrel
