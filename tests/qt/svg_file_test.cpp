// SPDX-License-Identifier: MIT
//
// SVG files as a reader of XML and a viewer read them.

#include "image_checks.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "qt/picture_file.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace quandrel {
namespace {

constexpr int kSide = 220; ///< logical pixels, ten plot units each
constexpr double kTwoPi = 6.283185307179586;

using Drawing = std::function<void(Surface&)>;

class SvgFile : public ::testing::Test {
protected:
    void SetUp() override { gPlatform.status = &status; }

    void TearDown() override { gPlatform = {}; }

    /// The bytes of a file with a drawing in the scale of a plot.
    [[nodiscard]] QByteArray Saved(const Drawing& draw, const std::string& title = "") const {
        const QString path = folder.filePath("a.svg");
        EXPECT_EQ(SavePicture(path.toStdString(), {kSide, kSide}, title,
                              [&](PicturePage& page) {
                                  Surface& surface = page.In({0, 0, kSide, kSide});
                                  surface.SetUserScale(kPlotScale);
                                  draw(surface);
                              }),
                  "");
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QuietStatusLine status;
    QTemporaryDir folder;
};

/// The contents of the elements of a name, in order.
QStringList ContentsOf(const QByteArray& svg, const char* name) {
    QXmlStreamReader xml(svg);
    QStringList contents;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String(name)) {
            contents.append(xml.readElementText());
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return contents;
}

/// The values of an attribute around each text, outermost first: "a: clip1 clip2".
QStringList AroundTexts(const QByteArray& svg, const char* attribute) {
    QXmlStreamReader xml(svg);
    QStringList open; // of the open elements, empty without one
    QStringList texts;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("text")) {
            QStringList around = open;
            around.removeAll(QString());
            texts.append(xml.readElementText() + ": " + around.join(" "));
        } else if (xml.isStartElement()) {
            open.append(xml.attributes().value(attribute).toString());
        } else if (xml.isEndElement()) {
            open.removeLast();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return texts;
}

TEST_F(SvgFile, ClipsAreGroupsAboutWhatTheyClip) {
    const QByteArray svg = Saved([](Surface& surface) {
        surface.Text({-1000, 1000}, "before");
        {
            const CircleClip outer(surface, {0, 100}, 1000);
            surface.Text({-800, 0}, "outer");
            {
                const CircleClip inner(surface, {300, 0}, 500);
                surface.Text({-800, 0}, "both");
            }
            surface.Circle({0, 0}, 300, kBlack);
            surface.Text({-800, 0}, "outer again");
        }
        surface.Text({-1000, -900}, "after");
    });
    EXPECT_EQ(AroundTexts(svg, "clip-path").join("; ").toStdString(),
              "before: ; outer: url(#clip82.5_75_75); both: url(#clip82.5_75_75) "
              "url(#clip105_82.5_37.5); outer again: url(#clip82.5_75_75); after: ");
}

TEST_F(SvgFile, GroupsHaveTheirNames) {
    const QByteArray svg = Saved([](Surface& surface) {
        const NamedGroup rows(surface, "rows", "Beds <of> the \"north\"");
        surface.Text({0, 0}, "a");
        const NamedGroup contours(surface, "contours", "Contours");
        surface.Text({0, 0}, "b");
    });
    EXPECT_EQ(AroundTexts(svg, "id").join("; ").toStdString(), "a: rows; b: rows contours");
    EXPECT_EQ(ContentsOf(svg, "title").join("; ").toStdString(),
              "Beds <of> the \"north\"; Contours");
}

TEST_F(SvgFile, IsWellFormedForAnyText) {
    std::mt19937 random(20240501);
    for (int round = 0; round < 400; ++round) {
        std::string text;
        for (auto length = random() % 12; length > 0; --length) {
            // Mostly what matters to XML and to UTF-8, else any byte.
            const char likely[] = "<>&'\"]\\-\t\n\x01\xc3\xa9\xe2\x80\xed\xa0\xf0\x9f\xef\xbf\xbe";
            text += random() % 4 == 0 ? static_cast<char>(random() % 256)
                                      : likely[random() % (sizeof(likely) - 1)];
        }
        const QByteArray svg = Saved(
            [&](Surface& surface) {
                const NamedGroup group(surface, text, text);
                DrawState state;
                state.font.family = text;
                surface.SetState(state);
                surface.Text({0, 0}, text + ".");
            },
            text);
        EXPECT_EQ(ContentsOf(svg, "text").size(), 1) << svg.toStdString();
        EXPECT_TRUE(std::ranges::none_of(svg, [](char c) {
            return static_cast<unsigned char>(c) < 0x20 && c != '\n';
        })) << round;
    }
}

TEST_F(SvgFile, TextsAreReadAsTheyWere) {
    for (const char* text : {"045/30", "  two  blanks ", "St\xc3\xb6rung <&> \"q\"", "\xe6\x9d\xb1",
                             "\xce\xb1\xd0\x96", "\xf0\x9f\x8c\x8d"}) {
        const QByteArray svg = Saved([&](Surface& surface) { surface.Text({0, 0}, text); });
        EXPECT_EQ(ContentsOf(svg, "text").join("|").toStdString(), text);
        EXPECT_EQ(AroundTexts(svg, "xml:space").join("").toStdString(),
                  std::string(text) + ": preserve");
    }
}

DrawState StateOf(int style, double width, int fill, double opacity = 1) {
    DrawState state;
    state.drawStyle = style;
    state.drawWidth = width;
    state.fillStyle = fill;
    state.fillColour = {255, 160, 60};
    state.lineOpacity = opacity;
    state.fillOpacity = opacity;
    return state;
}

/// Drawings of all operations that the viewer can show; it knows neither hatches nor clips.
std::vector<std::pair<const char*, Drawing>> Drawings() {
    static const Glyph glyph{
        "sample",
        {{GlyphPart::Kind::Circle, GlyphPart::Ink::White, {{0, 0}}, 60},
         {GlyphPart::Kind::Polygon, GlyphPart::Ink::Filled, {{-30, -30}, {40, -30}, {0, 40}}, 0},
         {GlyphPart::Kind::Polyline, GlyphPart::Ink::Outline, {{-90, 0}, {90, 50}}, 0}}};
    return {
        {"lines",
         [](Surface& surface) {
             surface.Line({-1000, -1000}, {1000, 700}, kBlack);
             surface.SetState(StateOf(kSolidLine, 5, kNoFill));
             surface.Line({-1000, 900}, {1000, 900}, {0, 0, 255});
             surface.Polyline(std::vector<Point>{{-900, 0}, {0, 500}, {800, -300}}, {200, 0, 0});
         }},
        {"dashes",
         [](Surface& surface) {
             for (int style = kDashedLine; style <= kDashDotDotLine; ++style) {
                 surface.SetState(StateOf(style, 4, kNoFill));
                 surface.Line({-1000, 400.0 * style - 1000}, {1000, 400.0 * style - 1000}, kBlack);
             }
         }},
        {"boxes",
         [](Surface& surface) {
             surface.Box({-900, 900}, {-100, 200}, kBlack);
             surface.FilledBox({900, -900}, {100, -200}, {0, 100, 0});
             surface.SetPixel({0, 0}, kBlack);
         }},
        {"circles",
         [](Surface& surface) {
             surface.Circle({0, 0}, 1000, kBlack);
             surface.SetState(StateOf(kSolidLine, 3, kSolidFill));
             surface.Circle({300, 200}, 400, {120, 0, 0});
             surface.SetState(StateOf(kNoLine, 3, kSolidFill));
             surface.Circle({-500, -500}, 200, {120, 0, 0});
         }},
        {"arcs",
         [](Surface& surface) {
             surface.Arc({0, 0}, 900, 0.3, 2.9, kBlack);
             surface.Arc({100, 0}, 700, 2, 1, kBlack);
             surface.Arc({0, 0}, 500, 1, 1 + kTwoPi, kBlack);
             surface.Arc({0, -800}, 300, 5, 5 + kTwoPi / 2, kBlack);
         }},
        {"wedges",
         [](Surface& surface) {
             surface.SetState(StateOf(kSolidLine, 2, kSolidFill));
             surface.Wedge({0, 0}, 1000, 0.2, 0.9, kBlack);
             surface.Wedge({0, 0}, 800, 3, 6.1, kBlack);
         }},
        {"holes",
         [](Surface& surface) {
             surface.SetState(StateOf(kSolidLine, 2, kSolidFill));
             surface.Path(std::vector<std::vector<Point>>{{{-900, -900}, {900, -900}, {900, 900}},
                                                          {},
                                                          {{0, -600}, {600, -600}, {600, 0}}},
                          kBlack);
             surface.Polygon(std::vector<Point>{{-900, 900}, {-300, 900}, {-900, 300}}, kBlack);
         }},
        {"translucent shapes",
         [](Surface& surface) {
             surface.SetState(StateOf(kSolidLine, 9, kSolidFill, 0.5));
             surface.Circle({-200, 0}, 600, kBlack);
             surface.Circle({300, 0}, 600, {0, 0, 200});
         }},
        {"markers",
         [](Surface& surface) {
             surface.Markers(glyph, {0, 0, 160},
                             std::vector<Point>{{-600, 600}, {0, 0}, {613, -587}, {30, 10}});
             surface.SetState(StateOf(kSolidLine, 3, kNoFill));
             surface.Markers(glyph, {160, 0, 0}, std::vector<Point>{{600, 600}, {-600, -600}});
         }},
    };
}

constexpr int kZoom = 3;

/// Where `one` is inked and `other` has no similar ink within a pixel.
int Unmatched(const QImage& one, const QImage& other) {
    int unmatched = 0;
    for (int y = 1; y + 1 < one.height(); ++y) {
        for (int x = 1; x + 1 < one.width(); ++x) {
            const QRgb ink = one.pixel(x, y);
            int best = 255;
            for (int step = 0; step < 9; ++step) {
                const QRgb near = other.pixel(x + step % 3 - 1, y + step / 3 - 1);
                best = std::min(best, std::max({std::abs(qRed(ink) - qRed(near)),
                                                std::abs(qGreen(ink) - qGreen(near)),
                                                std::abs(qBlue(ink) - qBlue(near))}));
            }
            unmatched += best > 70 ? 1 : 0;
        }
    }
    return unmatched;
}

TEST_F(SvgFile, LooksAsThePainterDraws) {
    for (const auto& [name, draw] : Drawings()) {
        QSvgRenderer viewer(Saved(draw));
        ASSERT_TRUE(viewer.isValid()) << name;
        QImage viewed = WhiteImage(kZoom * kSide, kZoom * kSide);
        QPainter viewing(&viewed);
        viewer.render(&viewing);
        viewing.end();
        QImage painted = WhiteImage(kZoom * kSide, kZoom * kSide);
        QPainter painter(&painted);
        PainterPage page(painter, kZoom, Medium::Raster);
        Surface& surface = page.In({0, 0, kSide, kSide});
        surface.SetUserScale(kPlotScale);
        draw(surface);
        painter.end();
        const int ink = CountOther(painted, qRgb(255, 255, 255));
        EXPECT_GT(ink, 500) << name;
        EXPECT_LE(Unmatched(painted, viewed) + Unmatched(viewed, painted), ink / 200) << name;
    }
}

} // namespace
} // namespace quandrel
