// SPDX-License-Identifier: MIT

#include "image_checks.h"
#include "qt/painter_surface.h"
#include "stereo/symbols.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <utility>
#include <vector>

namespace quandrel {
namespace {

constexpr int kSide = 220; // ten plot units a pixel
constexpr QRgb kWhitePixel = qRgb(255, 255, 255);

/// Whether markers may be stamped, or have to be drawn by the painter: a clip that clips nothing
/// makes the difference.
enum class Way { Stamped, Painted };

QImage DrawMarkers(const Glyph& glyph, const std::vector<Point>& places, Way way = Way::Stamped,
                   int inCalls = 1) {
    QImage image = WhiteImage(kSide, kSide);
    QPainter painter(&image);
    if (way == Way::Painted) {
        painter.setClipRect(QRect(-10, -10, kSide + 20, kSide + 20));
    }
    PainterSurface surface(painter, QRectF(0, 0, kSide, kSide), 1, Medium::Raster);
    surface.SetUserScale(kPlotScale);
    const std::size_t share = places.size() / static_cast<std::size_t>(inCalls);
    for (std::size_t i = 0; i < places.size(); i += share) {
        surface.Markers(glyph, {20, 40, 160}, std::span(places).subspan(i, share));
    }
    painter.end();
    return image;
}

/// Places on quarters of pixels, far enough apart for large symbols to overlap only slightly.
std::vector<Point> QuarterPlaces() {
    std::mt19937 random(3);
    std::vector<Point> places;
    for (int i = 0; i < 64; ++i) {
        places.push_back(
            {-1000.0 + 250 * (i % 8) + 2.5 * static_cast<double>(random() % 4),
             1000.0 - 250 * static_cast<double>(i / 8) + 2.5 * static_cast<double>(random() % 4)});
    }
    return places;
}

TEST(Markers, AreStampedAsTheyWouldBePainted) {
    for (const int code : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 50, 51, 52}) {
        for (const int size : {1, 3, 8, 20}) {
            const Glyph glyph = GlyphOfSymbol(code, size, 0.8);
            const QImage stamped = DrawMarkers(glyph, QuarterPlaces());
            const QImage painted = DrawMarkers(glyph, QuarterPlaces(), Way::Painted);
            // Soft edges on soft edges are rounded once more.
            EXPECT_LE(LargestDifference(stamped, painted), 8) << code << " " << size;
            EXPECT_GT(CountOther(stamped, kWhitePixel), 63) << code << " " << size;
        }
    }
}

TEST(Markers, LieWithinAnEighthOfAPixelOfTheirPlace) {
    // A filled square of ten pixels; its centre of ink is its place.
    const Glyph square{"square",
                       {{GlyphPart::Kind::Polygon,
                         GlyphPart::Ink::Filled,
                         {{-50, -50}, {50, -50}, {50, 50}, {-50, 50}},
                         0}}};
    for (const double offset : {0.0, 1.0, 2.0, 3.3, 4.9, 7.7, 9.9}) {
        const QImage image = DrawMarkers(square, {{offset, -2 * offset}});
        double ink = 0;
        double sumX = 0;
        double sumY = 0;
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                const double share = 1 - qRed(image.pixel(x, y)) / 255.0;
                ink += share;
                sumX += share * (x + 0.5);
                sumY += share * (y + 0.5);
            }
        }
        EXPECT_NEAR(sumX / ink, 110 + offset / 10, 0.13);
        EXPECT_NEAR(sumY / ink, 110 + offset / 5, 0.13);
    }
}

TEST(Markers, ThatRepeatLookLikeOne) {
    const std::vector<Point> one = {{33, 44}};
    const std::vector<Point> hundred(100, one[0]);
    for (const Way way : {Way::Stamped, Way::Painted}) {
        const Glyph glyph = GlyphOfSymbol(5, 4, 0);
        EXPECT_EQ(LargestDifference(DrawMarkers(glyph, hundred, way), DrawMarkers(glyph, one, way)),
                  0);
    }
}

TEST(Markers, ThatRepeatLieWhereTheLastOfThemLies) {
    // Open circles hide each other, so that the order is seen.
    const Glyph glyph = GlyphOfSymbol(5, 20, 0);
    const Point a{0, 0};
    const Point b{100, 0};
    const QImage aOnTop = DrawMarkers(glyph, {b, a});
    ASSERT_GT(LargestDifference(aOnTop, DrawMarkers(glyph, {a, b})), 100);
    EXPECT_EQ(LargestDifference(DrawMarkers(glyph, {a, b, a}), aOnTop), 0);
    EXPECT_EQ(LargestDifference(DrawMarkers(glyph, {a, b, a}, Way::Painted),
                                DrawMarkers(glyph, {b, a}, Way::Painted)),
              0);
}

TEST(Markers, InManyCallsLookLikeThoseInOne) {
    for (const int code : {2, 5, 17}) {
        const Glyph glyph = GlyphOfSymbol(code, 5, 0);
        EXPECT_EQ(LargestDifference(DrawMarkers(glyph, QuarterPlaces()),
                                    DrawMarkers(glyph, QuarterPlaces(), Way::Stamped, 64)),
                  0);
    }
}

TEST(Markers, AreCutOffAtTheBordersOfTheImage) {
    const std::vector<Point> places = {{-1100, 0}, {1100, 0},        {0, 1100},
                                       {0, -1100}, {-1100, 1100},    {1100, -1100},
                                       {1e9, 0},   {-2000, -100000}, {1e300, 1e300}};
    const Glyph glyph = GlyphOfSymbol(4, 20, 0);
    const QImage stamped = DrawMarkers(glyph, places);
    EXPECT_LE(LargestDifference(stamped, DrawMarkers(glyph, places, Way::Painted)), 8);
    EXPECT_NE(stamped.pixel(0, kSide / 2), kWhitePixel);
    EXPECT_NE(stamped.pixel(kSide - 1, kSide / 2), kWhitePixel);
}

TEST(Markers, OfOneGlyphInTwoColoursAndScalesAreToldApart) {
    QImage image = WhiteImage(kSide, kSide);
    QPainter painter(&image);
    PainterSurface surface(painter, QRectF(0, 0, kSide, kSide), 1, Medium::Raster);
    surface.SetUserScale(kPlotScale);
    const Glyph glyph = GlyphOfSymbol(3, 10, 0);
    const Point left{-500, 0};
    const Point right{500, 0};
    surface.Markers(glyph, {255, 0, 0}, std::span(&left, 1));
    surface.Markers(glyph, {0, 0, 255}, std::span(&right, 1));
    surface.SetUserScale({-550, 550, 550, -550}); // twice as large
    const Point below{0, -250};
    surface.Markers(glyph, {255, 0, 0}, std::span(&below, 1));
    painter.end();
    EXPECT_EQ(image.pixel(60, 110), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(160, 110), qRgb(0, 0, 255));
    EXPECT_EQ(image.pixel(110 + 7, 160), qRgb(255, 0, 0)) << "a half-size of eight pixels";
    EXPECT_EQ(image.pixel(60 + 7, 110), kWhitePixel) << "a half-size of four pixels";
}

/// A ring of 40 logical pixels across, twice in one place with pens of two widths.
QImage DrawRingWithHalo(int density, QRgb ground, Medium medium = Medium::Raster) {
    QImage image = WhiteImage(kSide * density, kSide * density);
    image.fill(ground);
    QPainter painter(&image);
    PainterSurface surface(painter, QRectF(image.rect()), density, medium);
    surface.SetUserScale(kPlotScale);
    const Glyph ring{"ring", {{GlyphPart::Kind::Circle, GlyphPart::Ink::Outline, {{0, 0}}, 200}}};
    const Point centre{0, 0};
    DrawState state;
    for (const auto& [width, colour] : {std::pair(5.0, Colour{220, 160, 80}), {2.0, {0, 0, 255}}}) {
        state.drawWidth = width;
        surface.SetState(state);
        surface.Markers(ring, colour, std::span(&centre, 1));
    }
    painter.end();
    return image;
}

/// Pixels of approximately a colour, because curved edges are soft, from the centre of a picture to
/// its right border.
int CountOutward(const QImage& image, QColor colour) {
    constexpr int kSoftness = 16;
    int count = 0;
    for (int x = image.width() / 2; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, image.height() / 2);
        const bool isNear = std::abs(pixel.red() - colour.red()) <= kSoftness
                            && std::abs(pixel.green() - colour.green()) <= kSoftness
                            && std::abs(pixel.blue() - colour.blue()) <= kSoftness;
        count += isNear ? 1 : 0;
    }
    return count;
}

TEST(Markers, AreDrawnByPensOfTheStatesWidth) {
    for (const Medium medium : {Medium::Raster, Medium::Vector}) {
        for (const int density : {1, 2, 3}) {
            for (const QRgb ground : {kWhitePixel, qRgb(0, 0, 0)}) {
                const QImage image = DrawRingWithHalo(density, ground, medium);
                // The halo shows by a pixel and a half on both sides; at a density of 1 and 3 the
                // halves are mixed with the ground.
                EXPECT_EQ(CountOutward(image, QColor(0, 0, 255)), 2 * density) << density;
                EXPECT_EQ(CountOutward(image, {220, 160, 80}), 2 * (3 * density / 2)) << density;
            }
        }
    }
}

TEST(Markers, AreNeverDrawnByFinerPensThanAPixel) {
    const auto draw = [](double width) {
        QImage image = WhiteImage(kSide, kSide);
        QPainter painter(&image);
        PainterSurface surface(painter, QRectF(0, 0, kSide, kSide), 1, Medium::Raster);
        surface.SetUserScale(kPlotScale);
        DrawState state;
        state.drawWidth = width;
        surface.SetState(state);
        surface.Markers(GlyphOfSymbol(5, 10, 0), kBlack, QuarterPlaces());
        painter.end();
        return image;
    };
    EXPECT_EQ(LargestDifference(draw(0.25), draw(1)), 0);
    EXPECT_GT(LargestDifference(draw(1), draw(1.5)), 50);
}

TEST(Markers, ThatReachFurtherThanASpriteAreDrawnWhole) {
    const QImage image = DrawMarkers(GlyphOfSymbol(7, 25, 0), {{0, 0}});
    EXPECT_NEAR(InkedRect(image).width(), 21, 2);
    const Glyph huge{"huge", {{GlyphPart::Kind::Circle, GlyphPart::Ink::Outline, {{0, 0}}, 5000}}};
    QImage large = WhiteImage(1200, 1200);
    QPainter painter(&large);
    PainterSurface surface(painter, QRectF(0, 0, 1200, 1200), 1, Medium::Raster);
    surface.SetUserScale({-6000, 6000, 6000, -6000});
    const Point centre{0, 0};
    surface.Markers(huge, kBlack, std::span(&centre, 1));
    painter.end();
    EXPECT_NEAR(InkedRect(large).width(), 1001, 2);
}

TEST(Markers, KeepNothingOfTheToggleModeAndChangeNoState) {
    QImage image = WhiteImage(kSide, kSide);
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, kSide, kSide));
    PainterSurface surface(painter, QRectF(0, 0, kSide, kSide), 1, Medium::Raster);
    surface.SetUserScale(kPlotScale);
    DrawState toggle;
    toggle.drawMode = kDrawNotXor;
    toggle.fillStyle = kCrossHatch;
    surface.SetState(toggle);
    surface.Line({-1000, 900}, {1000, 900}, kBlack);
    const Point place{0, 0};
    surface.Markers(GlyphOfSymbol(3, 10, 0), {9, 9, 9}, std::span(&place, 1));
    EXPECT_EQ(surface.State(), toggle);
    painter.end();
    EXPECT_EQ(image.pixel(110, 110), qRgb(9, 9, 9));
}

TEST(Markers, InVectorFilesAreShapesWithoutRepeats) {
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(QSize(kSide, kSide));
    QPainter painter(&generator);
    PainterSurface surface(painter, QRectF(0, 0, kSide, kSide), 1, Medium::Vector);
    surface.SetUserScale(kPlotScale);
    // Two places a tenth of a pixel apart, each many times.
    std::vector<Point> places(50, Point{0, 0});
    places.insert(places.end(), 50, Point{1, 0});
    surface.Markers(GlyphOfSymbol(2, 3, 0), kBlack, places);
    painter.end();
    EXPECT_EQ(buffer.data().count("<circle"), 2) << buffer.data().toStdString();
    EXPECT_FALSE(buffer.data().contains("<image"));
}

} // namespace
} // namespace quandrel
