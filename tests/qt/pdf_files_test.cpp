// SPDX-License-Identifier: MIT

#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "qt/picture_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace quandrel {
namespace {

using Drawing = std::function<void(Surface&)>;

/// Pictures of 220 pixels in the scale of a plot, as the bytes of files.
class PdfFiles : public ::testing::Test {
protected:
    void SetUp() override { gPlatform.status = &status; }

    void TearDown() override { gPlatform = {}; }

    [[nodiscard]] QByteArray Saved(const char* name, const Drawing& draw) const {
        const QString path = folder.filePath(QString::fromLatin1(name));
        const std::string error =
            SavePicture(path.toStdString(), {220, 220}, "clips", [&](PicturePage& page) {
                Surface& surface = page.In({0, 0, 220, 220});
                surface.SetUserScale(kPlotScale);
                draw(surface);
            });
        EXPECT_EQ(error, "");
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QuietStatusLine status;
    QTemporaryDir folder;
};

DrawState Fine() {
    DrawState state;
    state.drawWidth = 7;
    state.widthInPoints = 0.3;
    state.lineOpacity = 0.25;
    state.fillStyle = kSolidFill;
    state.fillOpacity = 0.5;
    return state;
}

const std::vector<std::vector<Point>> kSquareWithHole = {
    {{-400, -400}, {400, -400}, {400, 400}, {-400, 400}},
    {{-200, -200}, {200, -200}, {200, 200}, {-200, 200}}};

/// The drawing commands of a PDF file's page.
QByteArray ContentOf(const QByteArray& pdf) {
    qsizetype start = pdf.indexOf("stream\n");
    while (start >= 0) {
        start += 7;
        // qUncompress wants the length first, of which any guess will do.
        const QByteArray packed = pdf.mid(start, pdf.indexOf("endstream", start) - start);
        const QByteArray text = qUncompress(QByteArray("\0\1\0\0", 4) + packed);
        if (text.contains(" cm\n")) {
            return text;
        }
        start = pdf.indexOf("\nstream\n", start) < 0 ? -1 : pdf.indexOf("\nstream\n", start) + 1;
    }
    return {};
}

TEST_F(PdfFiles, HaveHolesOpacitiesAndWidthsInPoints) {
    const QByteArray opaque = Saved("a.pdf", [](Surface& surface) {
        DrawState state;
        state.widthInPoints = 0.3;
        surface.SetState(state);
        surface.Line({-400, 0}, {400, 0}, kBlack);
    });
    // At 1200 dots per inch 0.3 points are 5 dots.
    EXPECT_TRUE(ContentOf(opaque).contains("\n5 w")) << ContentOf(opaque).toStdString();
    const QByteArray faint = Saved("b.pdf", [](Surface& surface) {
        surface.SetState(Fine());
        surface.Path(kSquareWithHole, kBlack);
    });
    const QByteArray content = ContentOf(faint);
    EXPECT_TRUE(content.contains("h\nf*\n")) << "odd-even: " << content.toStdString();
    // The outline is a filled shape; its left side is 5 dots wide about 875.
    EXPECT_TRUE(content.contains("872.500000 1875 l")) << content.toStdString();
    EXPECT_TRUE(content.contains("877.500000 1875 l"));
    EXPECT_TRUE(faint.contains("/ca 0.5")) << faint.toStdString();
    EXPECT_TRUE(faint.contains("/ca 0.25"));
}

TEST_F(PdfFiles, HaveClips) {
    const auto clipsOf = [this](const char* name, bool isClipped) {
        const QByteArray content = ContentOf(Saved(name, [=](Surface& surface) {
            if (isClipped) {
                const CircleClip outer(surface, {0, 0}, 500);
                const CircleClip inner(surface, {200, 0}, 500);
                surface.Circle({0, 0}, 300, kBlack);
            } else {
                surface.Circle({0, 0}, 300, kBlack);
            }
        }));
        EXPECT_FALSE(content.isEmpty());
        return content.count("W* n") + content.count("W n");
    };
    EXPECT_GE(clipsOf("a.pdf", true), 2);
    EXPECT_EQ(clipsOf("b.pdf", false), 0);
}

} // namespace
} // namespace quandrel
