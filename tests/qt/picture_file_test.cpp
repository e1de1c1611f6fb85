// SPDX-License-Identifier: MIT

#include "image_checks.h"
#include "pdf/pdf_file.h"
#include "persistence/picture_data.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "qt/picture_file.h"

#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <sstream>
#include <string>
#include <vector>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

class PictureFile : public ::testing::Test {
protected:
    void SetUp() override {
        gPlatform = {};
        gPlatform.status = &status;
    }

    void TearDown() override { gPlatform = {}; }

    [[nodiscard]] std::string Path(const std::string& name) const {
        return (fs::path(folder.path().toStdString()) / name).string();
    }

    [[nodiscard]] static std::string Bytes(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    [[nodiscard]] std::size_t CountFiles() const {
        const fs::directory_iterator files(folder.path().toStdString());
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    /// A black box from a tenth to a half of the width, over the whole height, and a text.
    static void Draw(PicturePage& page) {
        Surface& surface = page.In({0, 0, 100, 50});
        DrawState state;
        state.drawStyle = kNoLine;
        surface.SetState(state);
        surface.FilledBox({10, 0}, {50, -50}, kBlack);
        surface.Text({60, -10}, "Bedding");
    }

    [[nodiscard]] std::string Save(const std::string& path, double scale = 1) const {
        return SavePicture(path, {100, 50, scale}, "A < B & C", Draw);
    }

    QuietStatusLine status;
    QTemporaryDir folder;
};

TEST_F(PictureFile, APngHasThePixelsAndTheResolutionOfItsScale) {
    for (const double scale : {1.0, 3.0}) {
        ASSERT_EQ(Save(Path("a.png"), scale), "");
        const QImage image(QString::fromStdString(Path("a.png")));
        const int factor = static_cast<int>(scale);
        EXPECT_EQ(image.size(), QSize(100 * factor, 50 * factor));
        EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, 96 * scale, 0.1);
        EXPECT_EQ(image.pixelColor(9 * factor, 25 * factor), Qt::white);
        EXPECT_EQ(image.pixelColor(11 * factor, 0), Qt::black);
        EXPECT_EQ(image.pixelColor(49 * factor, 49 * factor), Qt::black);
        EXPECT_GT(
            CountOther(image.copy(60 * factor, 0, 40 * factor, 50 * factor), qRgb(255, 255, 255)),
            50);
    }
}

TEST_F(PictureFile, AnSvgIsWellFormedAndHoldsTextAsText) {
    ASSERT_EQ(Save(Path("a.svg")), "");
    QXmlStreamReader xml(QByteArray::fromStdString(Bytes(Path("a.svg"))));
    QString texts;
    QString title;
    QString viewBox;
    QString width;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("svg")) {
            viewBox = xml.attributes().value("viewBox").toString();
            width = xml.attributes().value("width").toString();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("title")) {
            title = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("text")) {
            texts += xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(title.toStdString(), "A < B & C");
    EXPECT_EQ(texts.trimmed().toStdString(), "Bedding");
    EXPECT_EQ(viewBox.toStdString(), "0 0 75 37.5") << "points";
    EXPECT_EQ(width.toStdString(), "26.458mm");
}

TEST_F(PictureFile, ThePageOfAPdfIsAsLargeAsThePicture) {
    ASSERT_EQ(Save(Path("a.pdf")), "");
    const std::string pdf = Bytes(Path("a.pdf"));
    EXPECT_EQ(pdf.compare(0, 5, "%PDF-"), 0);
    const Result<PdfFacts> facts = FactsOfPdf(pdf);
    ASSERT_TRUE(facts) << facts.Error();
    ASSERT_EQ(facts->pages.size(), 1U);
    EXPECT_NEAR(facts->pages[0].width, 75, 1e-3) << "hundred pixels of three quarters of a point";
    EXPECT_NEAR(facts->pages[0].height, 37.5, 1e-3);
    EXPECT_EQ(facts->info.at("/Title"), "A < B & C");
    EXPECT_NE(pdf.find("/FontFile"), std::string::npos) << "text with its font";
}

TEST_F(PictureFile, ThePartsOfAPdfAreWhereItSays) {
    ASSERT_EQ(Save(Path("a.pdf")), "");
    const std::string pdf = Bytes(Path("a.pdf"));
    const std::size_t start = pdf.rfind("startxref");
    ASSERT_NE(start, std::string::npos);
    const std::size_t table = std::stoul(pdf.substr(start + 9));
    EXPECT_EQ(pdf.compare(table, 4, "xref"), 0);
    EXPECT_EQ(pdf.find("CreationDate"), std::string::npos);
}

TEST_F(PictureFile, TheSameDrawingGivesTheSameBytes) {
    for (const char* ending : {".png", ".svg", ".pdf", ".tif"}) {
        ASSERT_EQ(Save(Path(std::string("a") + ending)), "");
        ASSERT_EQ(Save(Path(std::string("b") + ending)), "");
        EXPECT_EQ(Bytes(Path(std::string("a") + ending)), Bytes(Path(std::string("b") + ending)))
            << ending;
    }
}

TEST_F(PictureFile, ATiffHasThePixelsAndTheResolutionOfAPng) {
    ASSERT_TRUE(CanWriteTiff());
    for (const double scale : {1.0, 3.125, 6.25}) { // 96, 300, 600 dots per inch
        ASSERT_EQ(Save(Path("a.png"), scale), "");
        ASSERT_EQ(Save(Path("a.tiff"), scale), "");
        const QImage png(QString::fromStdString(Path("a.png")));
        const QImage tiff(QString::fromStdString(Path("a.tiff")));
        EXPECT_EQ(tiff.convertToFormat(QImage::Format_RGB32), png);
        EXPECT_FALSE(tiff.hasAlphaChannel());
        EXPECT_NEAR(tiff.dotsPerMeterX() * 0.0254, 96 * scale, 0.1);
        EXPECT_NEAR(tiff.dotsPerMeterY() * 0.0254, 96 * scale, 0.1);
    }
}

TEST_F(PictureFile, ATiffThatIsTooLargeIsRefused) {
    EXPECT_EQ(SavePicture(Path("a.tif"), {20000, 20000, 1}, "", Draw),
              "'" + Path("a.tif")
                  + "' could not be written: a TIFF has 300 million pixels at most");
    EXPECT_EQ(CountFiles(), 0U);
}

TEST_F(PictureFile, ATransparentPictureHasNoGround) {
    PictureSize size{100, 50, 2};
    size.isTransparent = true;
    for (const char* name : {"a.png", "a.tif"}) {
        ASSERT_EQ(SavePicture(Path(name), size, "", Draw), "");
        const QImage image(QString::fromStdString(Path(name)));
        ASSERT_TRUE(image.hasAlphaChannel()) << name;
        EXPECT_EQ(image.pixel(5, 50), 0U) << name;
        EXPECT_EQ(image.pixel(50, 50), qRgb(0, 0, 0)) << name;
        int between = 0; // the edges of letters: black, more or less
        for (int x = 120; x < 200; ++x) {
            for (int y = 0; y < 100; ++y) {
                const QRgb pixel = image.pixel(x, y);
                between += qAlpha(pixel) > 0 && qAlpha(pixel) < 255 ? 1 : 0;
                EXPECT_EQ(pixel & 0xffffffU, 0U) << name;
            }
        }
        EXPECT_GT(between, 20) << name;
    }
    ASSERT_EQ(SavePicture(Path("a.svg"), size, "", Draw), "");
    EXPECT_EQ(Bytes(Path("a.svg")).find("#ffffff"), std::string::npos);
}

TEST_F(PictureFile, BandsOfATransparentPngAreThoseOfOneDrawnAtOnce) {
    PictureSize size{100, 50, 3};
    size.isTransparent = true;
    ASSERT_EQ(SavePicture(Path("a.png"), size, "", Draw), "");
    size.bandBytes = 300 * 4 * 7;
    ASSERT_EQ(SavePicture(Path("b.png"), size, "", Draw), "");
    EXPECT_EQ(Bytes(Path("a.png")), Bytes(Path("b.png")));
}

TEST_F(PictureFile, NamesTheProgramAndTheStyle) {
    PictureFacts facts;
    facts.title = "beds.txt";
    facts.style = "Th\xc3\xa8se & co";
    const std::string origin = "Drawn by Quandrel 9.5.1 in the style ";
    ASSERT_EQ(SavePicture(Path("a.png"), {100, 50}, facts, Draw), "");
    const QImage image(QString::fromStdString(Path("a.png")));
    EXPECT_EQ(image.text("Software").toStdString(), "Quandrel 9.5.1");
    EXPECT_EQ(image.text("Description").toStdString(), origin + facts.style);
    ASSERT_EQ(SavePicture(Path("a.svg"), {100, 50}, facts, Draw), "");
    EXPECT_NE(Bytes(Path("a.svg")).find("<desc>" + origin + "Th\xc3\xa8se &amp; co</desc>"),
              std::string::npos);
    ASSERT_EQ(SavePicture(Path("a.pdf"), {100, 50}, facts, Draw), "");
    const Result<PdfFacts> ofPdf = FactsOfPdf(Bytes(Path("a.pdf")));
    ASSERT_TRUE(ofPdf);
    EXPECT_EQ(ofPdf->info.at("/Creator"), "Quandrel 9.5.1");
    EXPECT_EQ(ofPdf->info.at("/Subject"), origin + facts.style);
    EXPECT_EQ(ofPdf->info.at("/Title"), "beds.txt");
    EXPECT_TRUE(ofPdf->attachments.empty());
}

TEST_F(PictureFile, HoldsAPlot) {
    const std::string plot = std::string("bin9.5\0\xff", 8) + std::string(100'000, 'x');
    PictureFacts facts;
    facts.plotFile = plot;
    facts.plotText = *TextOfPlotFile(plot);
    for (const char* name : {"a.png", "a.svg", "a.pdf"}) {
        ASSERT_EQ(SavePicture(Path(name), {100, 50}, facts, Draw), "");
        const Result<std::string> back = PlotFileOfPicture(Bytes(Path(name)), AttachmentOfPdf);
        ASSERT_TRUE(back) << name << " " << back.Error();
        EXPECT_EQ(*back, plot) << name;
    }
    EXPECT_FALSE(QImage(QString::fromStdString(Path("a.png"))).isNull());
}

TEST_F(PictureFile, SaysWhatATypeCanHave) {
    EXPECT_EQ(PictureTypeOf("a.TIF"), PictureType::Tiff);
    EXPECT_EQ(PictureTypeOf("a.tiff"), PictureType::Tiff);
    EXPECT_EQ(PictureTypeOf("a.Svg"), PictureType::Svg);
    EXPECT_FALSE(PictureTypeOf("a.gif"));
    EXPECT_TRUE(AbilitiesOf(PictureType::Tiff).hasPixels);
    EXPECT_FALSE(AbilitiesOf(PictureType::Tiff).holdsPlot);
    EXPECT_TRUE(AbilitiesOf(PictureType::Png).hasPixels);
    EXPECT_TRUE(AbilitiesOf(PictureType::Png).holdsPlot);
    EXPECT_FALSE(AbilitiesOf(PictureType::Pdf).hasPixels);
    EXPECT_TRUE(AbilitiesOf(PictureType::Svg).namesOrigin);
}

TEST_F(PictureFile, EndingsCountInAnyCaseAndPathsMayHoldAnyLetters) {
    EXPECT_EQ(Save(Path("a.PNG")), "");
    EXPECT_EQ(Bytes(Path("a.PNG")).substr(1, 3), "PNG");
    const std::string path = Path("Gef\xc3\xbcge \xe6\x9d\xb1.svg");
    EXPECT_EQ(Save(path), "");
    EXPECT_TRUE(fs::exists(path));
}

TEST_F(PictureFile, AnUnknownEndingIsRefused) {
    for (const char* name : {"a.jpg", "a", "png", "a.png.bak", ""}) {
        EXPECT_EQ(Save(Path(name)),
                  "'" + Path(name) + "' does not end in .png, .svg, .pdf or .tif");
    }
    EXPECT_EQ(CountFiles(), 0U);
}

TEST_F(PictureFile, AFailureSaysWhyAndLeavesTheOldFile) {
    fs::create_directory(Path("folder.png"));
    EXPECT_NE(Save(Path("folder.png")), "");
    EXPECT_NE(Save(Path("missing/a.svg")).find("No such file"), std::string::npos);
    fs::create_symlink("/dev/full", Path("full.pdf"));
    EXPECT_NE(Save(Path("full.pdf")), "");
    EXPECT_EQ(CountFiles(), 2U) << "no file is left over";

    ASSERT_EQ(Save(Path("old.png")), "");
    const std::string before = Bytes(Path("old.png"));
    EXPECT_NE(Save(Path("old.png"), 1e6), "") << "too large";
    EXPECT_EQ(Bytes(Path("old.png")), before);
}

TEST_F(PictureFile, SizesThatNobodyMeansAreRefused) {
    for (const PictureSize size : {PictureSize{0, 50, 1}, PictureSize{100, -1, 1},
                                   PictureSize{100, 50, 0}, PictureSize{1e9, 50, 1}}) {
        EXPECT_NE(SavePicture(Path("a.png"), size, "", Draw), "") << size.width;
    }
    EXPECT_EQ(CountFiles(), 0U);
}

/// Translucent shapes of the surface's state within a circle.
void DrawClipped(Surface& surface, Point centre, double radius) {
    const SavedState saved(surface);
    DrawState state = surface.State();
    state.lineOpacity = 0.4;
    state.fillOpacity = 0.3;
    surface.SetState(state);
    const CircleClip clip(surface, centre, radius);
    surface.Path(std::vector<std::vector<Point>>{{{83.3, -59.1}, {190.7, -60.3}, {120.1, -150.9}},
                                                 {{100.3, -70.1}, {150.7, -75.3}, {120.1, -130.9}}},
                 {120, 0, 0});
    surface.Arc({centre.x + 9, centre.y}, radius, 0, 6, {0, 120, 0});
}

/// Shapes, lines, arcs, markers and texts all over a picture of 300 by 200.
void DrawMuch(PicturePage& page) {
    Surface& surface = page.In({0, 0, 300, 200});
    surface.SetUserScale({0, 0, 300, -200});
    DrawState state;
    for (int i = 0; i < 30; ++i) {
        state.drawStyle = i % 5;
        state.drawWidth = 0.5 + i % 7 * 0.45; // a pixel or more, as in all pictures with bands
        state.fillStyle = i % 8;
        state.fillColour = {static_cast<std::uint8_t>(i * 8), 120, 200};
        state.font.points = 6 + i % 9;
        surface.SetState(state);
        const double at = 9.37 * i;
        surface.Line({at, -3.1}, {300 - at, -197.3}, kBlack);
        surface.Arc({150.2, -100.7}, 20 + 2.9 * i, 0.1 * i, 0.1 * i + 2.7, {200, 30, 30});
        surface.Wedge({at, -60.5 - i}, 17, 0.3, 2.1, {10, 90, 10});
        surface.Circle({300 - at, -150.3 + i}, 11.3, kBlack);
        surface.Text({at, -6.5 * i}, "Bedding 045/30 \xc3\xa9");
        surface.FilledBox({at, -6.3 * i}, {at + 4.4, -6.3 * i - 2.2}, {0, 0, 160});
        surface.SetPixel({at, -100.4}, kBlack);
        if (i % 13 == 0) {
            DrawClipped(surface, {150.2, -100.7}, 20 + 2.9 * i);
        }
    }
    const Glyph glyph{"a", {{GlyphPart::Kind::Circle, GlyphPart::Ink::White, {{0, 0}}, 3.3}}};
    const Glyph large{"b", {{GlyphPart::Kind::Circle, GlyphPart::Ink::Filled, {{0, 0}}, 60}}};
    std::vector<Point> places;
    for (int i = 0; i < 400; ++i) {
        places.push_back({i * 37 % 300 + 0.21 * (i % 5), -(i * 53 % 200) - 0.13 * (i % 7)});
    }
    surface.Markers(large, {250, 240, 200}, std::span(places).first(2));
    surface.Markers(glyph, {0, 60, 120}, places);
}

TEST_F(PictureFile, BandsCannotBeSeen) {
    const double scale = 2.35;
    QImage whole(705, 470, QImage::Format_RGB32);
    whole.fill(Qt::white);
    {
        QPainter painter(&whole);
        PainterPage page(painter, scale, Medium::Raster);
        DrawMuch(page);
    }
    EXPECT_GT(CountOther(whole, qRgb(255, 255, 255)), 20000);
    for (const std::size_t lines : {13U, 64U, 101U, 469U, 470U, 5000U}) {
        const PictureSize size{300, 200, scale, lines * 705 * 4};
        ASSERT_EQ(SavePicture(Path("a.png"), size, "", DrawMuch), "");
        const QImage written = QImage(QString::fromStdString(Path("a.png")));
        EXPECT_EQ(written.convertToFormat(QImage::Format_RGB32), whole)
            << lines << " lines: " << LargestDifference(written, whole);
        EXPECT_EQ(written.dotsPerMeterX(), 8882) << "96 dots an inch, 2.35 times";
    }
}

/// The most memory that this program has held so far, in megabytes.
long PeakMegabytes() {
    struct rusage usage {};

    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

TEST_F(PictureFile, ALargePngTakesTheMemoryOfABand) {
    const long before = PeakMegabytes();
    // 12000 by 8000 pixels, 384 MB.
    const PictureSize size{300, 200, 40, std::size_t{16} << 20};
    ASSERT_EQ(SavePicture(Path("a.png"), size, "", Draw), "");
    EXPECT_LT(PeakMegabytes() - before, 64);
    QImageReader reader(QString::fromStdString(Path("a.png")));
    EXPECT_EQ(reader.size(), QSize(12000, 8000));
}

TEST_F(PictureFile, ALongPngShowsHowFarItIsAndCanBeStopped) {
    bool wasShown = false;
    const auto slowly = [&](PicturePage&) {
        const auto start = std::chrono::steady_clock::now();
        while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(1)) {
        }
        wasShown = wasShown || status.ProgressIsShown();
    };
    const PictureSize size{10, 600, 1, 40}; // a band is a line
    EXPECT_EQ(SavePicture(Path("a.png"), size, "", slowly), "");
    EXPECT_TRUE(wasShown);
    EXPECT_FALSE(status.ProgressIsShown());
    const std::string before = Bytes(Path("a.png"));
    status.RequestCancel();
    EXPECT_EQ(SavePicture(Path("a.png"), size, "", slowly), kPictureStopped);
    EXPECT_EQ(Bytes(Path("a.png")), before);
    EXPECT_EQ(CountFiles(), 1U);
    EXPECT_FALSE(status.ProgressIsShown());
}

} // namespace
} // namespace quandrel
