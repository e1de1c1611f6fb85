// SPDX-License-Identifier: MIT

#include "image_checks.h"
#include "platform/qt/picture_file.h"

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

class PictureFile : public ::testing::Test {
protected:
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
    static void Draw(QPainter& painter, double factor, Medium medium) {
        PainterSurface surface(painter, QRectF(0, 0, 100 * factor, 50 * factor), factor, medium);
        DrawState state;
        state.drawStyle = kNoLine;
        surface.SetState(state);
        surface.FilledBox({10, 0}, {50, -50}, kBlack);
        surface.Text({60, -10}, "Bedding");
    }

    [[nodiscard]] std::string Save(const std::string& path, double scale = 1) const {
        return SavePicture(path, {100, 50, scale}, "A < B & C", Draw);
    }

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
    EXPECT_EQ(viewBox.toStdString(), "0 0 100 50");
    EXPECT_NEAR(width.chopped(2).toDouble(), 100 * 25.4 / 96, 0.01) << width.toStdString();
}

TEST_F(PictureFile, ThePageOfAPdfIsAsLargeAsThePicture) {
    ASSERT_EQ(Save(Path("a.pdf")), "");
    const std::string pdf = Bytes(Path("a.pdf"));
    EXPECT_EQ(pdf.compare(0, 5, "%PDF-"), 0);
    const std::string key = "/MediaBox [0 0 ";
    const std::size_t box = pdf.find(key);
    ASSERT_NE(box, std::string::npos);
    std::istringstream sides(pdf.substr(box + key.size(), 40));
    double width = 0;
    double height = 0;
    sides >> width >> height;
    EXPECT_NEAR(width, 75, 0.51) << "hundred pixels of three quarters of a point";
    EXPECT_NEAR(height, 37.5, 0.51);
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
    for (const char* ending : {".png", ".svg", ".pdf"}) {
        ASSERT_EQ(Save(Path(std::string("a") + ending)), "");
        ASSERT_EQ(Save(Path(std::string("b") + ending)), "");
        EXPECT_EQ(Bytes(Path(std::string("a") + ending)), Bytes(Path(std::string("b") + ending)))
            << ending;
    }
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
        EXPECT_EQ(Save(Path(name)), "'" + Path(name) + "' ends in none of .png, .svg, .pdf");
    }
    EXPECT_EQ(CountFiles(), 0U);
}

TEST_F(PictureFile, AFailureSaysWhyAndLeavesTheOldFile) {
    fs::create_directory(Path("folder.png"));
    EXPECT_NE(Save(Path("folder.png")), "");
    EXPECT_NE(Save(Path("missing/a.svg")).find("No such file"), std::string::npos);
    fs::create_symlink("/dev/full", Path("full.pdf"));
    EXPECT_NE(Save(Path("full.pdf")), "");
    EXPECT_EQ(CountFiles(), 2U) << "nothing is left behind";

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

} // namespace
} // namespace quandrel
