// SPDX-License-Identifier: MIT

#include "image_checks.h"
#include "qt/painter_surface.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace quandrel {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr QRgb kWhitePixel = qRgb(255, 255, 255);

using Drawing = std::function<void(PainterSurface&)>;

/// A drawing on a fresh white image in the scale of a plot.
QImage Draw(const Drawing& draw, int side = 300, double factor = 1) {
    QImage image = WhiteImage(side, side);
    QPainter painter(&image);
    PainterSurface surface(painter, QRectF(0, 0, side, side), factor, Medium::Raster);
    surface.SetUserScale(kPlotScale);
    draw(surface);
    painter.end();
    return image;
}

QByteArray DrawSvg(const Drawing& draw) {
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(QSize(300, 300));
    QPainter painter(&generator);
    PainterSurface surface(painter, QRectF(0, 0, 300, 300), 1, Medium::Vector);
    surface.SetUserScale(kPlotScale);
    draw(surface);
    painter.end();
    return buffer.data();
}

DrawState StateOf(int drawMode, int drawStyle = kSolidLine, double drawWidth = 1,
                  int fillStyle = kNoFill) {
    DrawState state;
    state.drawMode = drawMode;
    state.drawStyle = drawStyle;
    state.drawWidth = drawWidth;
    state.fillStyle = fillStyle;
    return state;
}

bool IsDark(const QImage& image, QPointF at) {
    const QPoint pixel(static_cast<int>(std::floor(at.x())), static_cast<int>(std::floor(at.y())));
    return image.valid(pixel) && qGray(image.pixel(pixel)) < 200;
}

/// Every operation once.
void DrawEverything(PainterSurface& surface) {
    const std::vector<Point> points = {{-900, -200}, {-300, 500}, {100, -700}};
    surface.Line({-800, -900}, {700, 650}, {0, 0, 255});
    surface.Box({-500, -500}, {300, 200}, kBlack);
    surface.FilledBox({200, 200}, {600, 700}, {10, 200, 30});
    surface.Circle({0, 0}, 800, kBlack);
    surface.Arc({-100, 50}, 650, 0.3, 4, {200, 0, 0});
    surface.Wedge({300, -300}, 400, 1, 2.5, kBlack);
    surface.Polyline(points, kBlack);
    surface.Polygon(points, {90, 0, 90});
    surface.SetPixel({500, 0}, kBlack);
}

TEST(PainterSurface, MapsTheUserScaleToItsRectangle) {
    QImage image = WhiteImage(100, 80);
    QPainter painter(&image);
    PainterSurface surface(painter, QRectF(20, 10, 50, 40), 1, Medium::Raster);
    surface.SetUserScale({-10, 10, 10, -10});
    surface.SetState(StateOf(kDrawCopy, kNoLine));
    surface.FilledBox({-6, 5}, {6, -5}, kBlack);
    painter.end();
    EXPECT_EQ(InkedRect(image), QRect(30, 20, 30, 20));
    EXPECT_EQ(CountOther(image, kWhitePixel), 30 * 20);
}

TEST(PainterSurface, StartsInLogicalPixelsFromTheTopLeftDown) {
    QImage image = WhiteImage(100, 80);
    QPainter painter(&image);
    const PainterSurface surface(painter, QRectF(0, 0, 100, 80), 2, Medium::Raster);
    EXPECT_EQ(surface.Scale(), (UserScale{0, 0, 50, -40}));
    EXPECT_EQ(surface.PixelSize(), (Point{1, 1}));
}

TEST(PainterSurface, PixelsAreLogicalOnes) {
    QImage image = WhiteImage(600, 300);
    QPainter painter(&image);
    PainterSurface surface(painter, QRectF(0, 0, 600, 300), 3, Medium::Raster);
    surface.SetUserScale({0, 0, 1000, -1000});
    EXPECT_DOUBLE_EQ(surface.PixelSize().x, 5);
    EXPECT_DOUBLE_EQ(surface.PixelSize().y, 10);
    surface.SetPixel({500, -500}, kBlack);
    painter.end();
    EXPECT_EQ(InkedRect(image), QRect(298, 148, 4, 4)) << "three pixels, the outer ones halved";
    EXPECT_EQ(qRed(image.pixel(300, 150)), 0);
}

TEST(PainterSurface, ClearFillsItsRectangleAlone) {
    QImage image = WhiteImage(50, 50);
    QPainter painter(&image);
    PainterSurface(painter, QRectF(10, 10, 20, 30), 1, Medium::Raster).Clear({255, 0, 0});
    painter.end();
    EXPECT_EQ(InkedRect(image), QRect(10, 10, 20, 30));
    EXPECT_EQ(image.pixel(15, 15), qRgb(255, 0, 0));
}

TEST(PainterSurface, WidthsOfLinesAreLogicalPixels) {
    for (const double factor : {1.0, 2.0, 4.0}) {
        const QImage image = Draw(
            [](PainterSurface& surface) {
                surface.SetState(StateOf(kDrawCopy, kSolidLine, 3));
                surface.Line({-2000, 0}, {2000, 0}, kBlack);
            },
            300, factor);
        double ink = 0;
        for (int y = 0; y < 300; ++y) {
            ink += 1 - qGray(image.pixel(150, y)) / 255.0;
        }
        EXPECT_NEAR(ink, 3 * factor, 0.02);
    }
}

TEST(PainterSurface, AnglesRunCounterClockwiseFromTheRight) {
    const QImage image = Draw([](PainterSurface& surface) {
        surface.Arc({0, 0}, 500, 0.1, kPi / 2 - 0.1, kBlack);
    });
    const QRect inked = InkedRect(image);
    EXPECT_GE(inked.left(), 150);
    EXPECT_LT(inked.bottom(), 150);
}

TEST(PainterSurface, AnEndAtOrBeforeTheStartGoesOnceRoundFurther) {
    const auto arc = [](double start, double end) {
        return Draw([=](PainterSurface& surface) { surface.Arc({0, 0}, 500, start, end, kBlack); });
    };
    EXPECT_LE(LargestDifference(arc(5, 1), arc(5, 1 + 2 * kPi)), 1);
    EXPECT_LE(LargestDifference(arc(1, 1), arc(1, 1 + 2 * kPi)), 1);
    EXPECT_LE(LargestDifference(arc(7, -8), arc(7, -8 + 6 * kPi)), 1);
    EXPECT_GT(CountOther(arc(1, 1), kWhitePixel), 400) << "the whole circle";
}

/// An arc as a great circle has it: through (0, -1000), (0, 1000) and a place on the x axis.
struct DeepArc {
    double radius;
    double factor;
    int side;
};

class ArcsOfGreatCircles : public ::testing::TestWithParam<DeepArc> {};

TEST_P(ArcsOfGreatCircles, LieOnTheirCircleFromEndToEnd) {
    const auto [radius, factor, side] = GetParam();
    const double centreX = -std::sqrt(radius * radius - 1e6);
    const double half = std::asin(1000 / radius);
    const QImage image = Draw(
        [&, radius = radius](PainterSurface& surface) {
            surface.Arc({centreX, 0}, radius, -half, half, kBlack);
        },
        side, factor);
    const double scale = side / 2200.0;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            if (IsDark(image, QPointF(x, y))) {
                const double plotX = (x + 0.5) / scale - 1100 - centreX;
                const double plotY = 1100 - (y + 0.5) / scale;
                ASSERT_LE(std::abs(std::hypot(plotX, plotY) - radius) * scale, 0.6 + factor / 2)
                    << x << " " << y;
                ASSERT_LE(std::abs(plotY) * scale, 1000 * scale + 0.6 + factor / 2);
            }
        }
    }
    int missing = 0;
    for (int i = 0; i <= 1000; ++i) {
        const double angle = half * (i / 500.0 - 1) * 0.999;
        const QPointF at((centreX + radius * std::cos(angle) + 1100) * scale,
                         (1100 - radius * std::sin(angle)) * scale);
        // Ink at half a pixel to the left or to the right.
        missing +=
            IsDark(image, at - QPointF(0.5, 0)) || IsDark(image, at + QPointF(0.5, 0)) ? 0 : 1;
    }
    EXPECT_EQ(missing, 0);
}

INSTANTIATE_TEST_SUITE_P(Radii, ArcsOfGreatCircles,
                         ::testing::Values(DeepArc{1001, 1, 1000}, DeepArc{1414, 1, 1000},
                                           DeepArc{5000, 1, 1000}, DeepArc{60000, 1, 1000},
                                           DeepArc{60000, 2.5, 1700}, DeepArc{1200, 1, 250}));

TEST(PainterSurface, ArcsOnAScaledImageLieWhereThePainterPutsThem) {
    QImage image = WhiteImage(200, 200);
    image.setDevicePixelRatio(2);
    QPainter painter(&image);
    PainterSurface surface(painter, QRectF(0, 0, 100, 100), 1, Medium::Raster);
    surface.SetUserScale(kPlotScale);
    surface.Arc({0, 0}, 1000, 0, 2 * kPi, kBlack);
    painter.end();
    const QRect inked = InkedRect(image);
    EXPECT_NEAR(inked.left(), 100 - 1000 / 11.0, 2);
    EXPECT_NEAR(inked.right(), 100 + 1000 / 11.0, 2);
    EXPECT_NEAR(inked.bottom(), 100 + 1000 / 11.0, 2);
}

TEST(PainterSurface, DrawsNothingWhereAnArcIsNoNumber) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    const QImage image = Draw([&](PainterSurface& surface) {
        surface.Arc({0, 0}, nan, 0, 1, kBlack);
        surface.Arc({0, 0}, infinite, 0, 1, kBlack);
        surface.Arc({0, 0}, 500, nan, 1, kBlack);
        surface.Arc({0, 0}, 500, 0, infinite, kBlack);
    });
    EXPECT_EQ(CountOther(image, kWhitePixel), 0);
}

TEST(PainterSurface, DrawingTwiceInTheToggleModeRestoresEveryPixel) {
    for (int style = kSolidLine; style <= kDashDotDotLine; ++style) {
        for (int fill = kSolidFill; fill <= kDiagonalCrossHatch; ++fill) {
            const double width = 1 + fill % 3;
            const auto once = [&](PainterSurface& surface) {
                surface.SetState(StateOf(kDrawCopy));
                surface.Clear({192, 192, 192});
                surface.FilledBox({-700, -700}, {0, 0}, {200, 30, 90});
                surface.SetState(StateOf(kDrawNotXor, style, width, fill));
                DrawEverything(surface);
            };
            const QImage ground = Draw([&](PainterSurface& surface) {
                surface.Clear({192, 192, 192});
                surface.FilledBox({-700, -700}, {0, 0}, {200, 30, 90});
            });
            const QImage toggled = Draw(once);
            const QImage back = Draw([&](PainterSurface& surface) {
                once(surface);
                DrawEverything(surface);
            });
            EXPECT_EQ(LargestDifference(ground, back), 0) << style << " " << fill;
            EXPECT_GT(LargestDifference(ground, toggled), 100) << style << " " << fill;
        }
    }
}

TEST(PainterSurface, TheToggleModeInvertsTheDifferenceToTheGround) {
    const QImage image = Draw([](PainterSurface& surface) {
        surface.Clear({192, 192, 192});
        surface.SetState(StateOf(kDrawNotXor, kSolidLine, 5));
        surface.Line({-500, 0}, {500, 0}, {0, 0, 255});
    });
    EXPECT_EQ(image.pixel(150, 150), qRgb(0x3f, 0x3f, 0xc0));
}

TEST(PainterSurface, TheToggleModeEndsWithTheState) {
    const QImage image = Draw([](PainterSurface& surface) {
        surface.Clear({100, 150, 200}); // white ground would hide it
        surface.SetState(StateOf(kDrawNotXor, kSolidLine, 3));
        surface.Line({-500, 0}, {500, 0}, kBlack);
        surface.Clear({250, 250, 250});
        surface.SetState({});
        surface.Line({-500, 0}, {500, 0}, kBlack);
        surface.SetState(StateOf(kDrawNotXor, kSolidLine, 3));
        surface.Line({-500, 900}, {500, 900}, kBlack);
        surface.SetState({});
        surface.SetPixel({0, -500}, {1, 2, 3});
        surface.SetPixel({0, -500}, {1, 2, 3});
    });
    EXPECT_EQ(image.pixel(10, 10), qRgb(250, 250, 250));
    EXPECT_LT(qGray(image.pixel(150, 150)), 140);
    EXPECT_LT(qGray(image.pixel(150, 218)), 140) << "drawn twice, not wiped";
}

TEST(PainterSurface, VectorFilesShowToggledLinesPlainly) {
    const auto drawing = [](int mode) {
        return [mode](PainterSurface& surface) {
            surface.SetState(StateOf(mode, kDottedLine, 2));
            DrawEverything(surface);
        };
    };
    EXPECT_EQ(DrawSvg(drawing(kDrawNotXor)), DrawSvg(drawing(kDrawCopy)));
}

/// How many whole pixels of ink there are on an image.
double InkOf(const QImage& image) {
    double ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ink += 1 - qGray(image.pixel(x, y)) / 255.0;
        }
    }
    return ink;
}

/// The share of a box that is inked by a fill.
double InkOfFill(int fill, double factor) {
    const QImage image = Draw(
        [fill](PainterSurface& surface) {
            DrawState state = StateOf(kDrawCopy, kNoLine, 1, fill);
            state.fillColour = kBlack;
            surface.SetState(state);
            surface.Polygon(
                std::vector<Point>{{-1100, -1100}, {1100, -1100}, {1100, 1100}, {-1100, 1100}},
                kBlack);
        },
        static_cast<int>(240 * factor), factor);
    return InkOf(image) / image.width() / image.height();
}

// Lines of one logical pixel at every sixth; of two families that cross, 1 - (5/6)^2.
TEST(PainterSurface, FillsCoverTheSameShareAtEveryResolution) {
    const double lines = 1.0 / 6;
    const double crossed = 11.0 / 36;
    const double expected[] = {1, 0, lines, lines, lines, lines, crossed, crossed};
    for (int fill = kSolidFill; fill <= kDiagonalCrossHatch; ++fill) {
        EXPECT_NEAR(InkOfFill(fill, 2), expected[fill], 0.01) << fill;
        EXPECT_NEAR(InkOfFill(fill, 5), expected[fill], 0.01) << fill;
        // The painter draws slanting lines of a single pixel lighter.
        EXPECT_NEAR(InkOfFill(fill, 1), expected[fill], 0.09) << fill;
    }
}

TEST(PainterSurface, HatchesStayInsideTheirShape) {
    const auto inkedBy = [](const Drawing& draw) {
        return InkedRect(Draw([&](PainterSurface& surface) {
            surface.SetState(StateOf(kDrawCopy, kNoLine, 1, kDiagonalCrossHatch));
            draw(surface);
        }));
    };
    // 220 plot units are 30 pixels.
    const QRect circle = inkedBy([](PainterSurface& s) { s.Circle({0, 0}, 660, kBlack); });
    EXPECT_TRUE(QRect(58, 58, 184, 184).contains(circle));
    EXPECT_TRUE(circle.contains(QRect(64, 64, 172, 172)));
    const QRect wedge = inkedBy([](PainterSurface& s) {
        s.Wedge({0, 0}, 660, 0, kPi / 2, kBlack);
    });
    EXPECT_TRUE(QRect(149, 58, 94, 93).contains(wedge));
    EXPECT_TRUE(wedge.contains(QRect(155, 64, 80, 80)));
}

TEST(PainterSurface, HatchesInVectorFilesAreLines) {
    const QByteArray svg = DrawSvg([](PainterSurface& surface) {
        surface.SetState(StateOf(kDrawCopy, kSolidLine, 1, kCrossHatch));
        surface.Circle({0, 0}, 660, kBlack);
    });
    EXPECT_FALSE(svg.contains("pattern"));
    EXPECT_GE(svg.count("<polyline") + svg.count("<path"), 2 * (180 / 6 - 1));
}

TEST(PainterSurface, NoLineLeavesOutlinesAway) {
    const QImage image = Draw([](PainterSurface& surface) {
        surface.SetState(StateOf(kDrawCopy, kNoLine));
        surface.Circle({0, 0}, 500, kBlack);
        surface.Line({-500, 0}, {500, 0}, kBlack);
        surface.Arc({0, 0}, 700, 0, 2, kBlack);
    });
    EXPECT_EQ(CountOther(image, kWhitePixel), 0);
}

TEST(PainterSurface, TextStandsUprightBelowItsPlace) {
    QImage image = WhiteImage(300, 300);
    QPainter painter(&image);
    PainterSurface surface(painter, QRectF(0, 0, 300, 300), 1, Medium::Raster);
    surface.SetUserScale(kPlotScale);
    DrawState state;
    state.font.points = 30;
    surface.SetState(state);
    surface.Text({-900, 600}, "L");
    const double width = surface.TextWidth("L") / surface.PixelSize().x;
    const double height = surface.TextHeight() / surface.PixelSize().y;
    painter.end();
    const QRect inked = InkedRect(image);
    const double left = 200 * 300 / 2200.0;
    const double top = 500 * 300 / 2200.0;
    EXPECT_TRUE(QRectF(left - 1, top - 1, width + 2, height + 2).contains(inked)) << inked.height();
    EXPECT_GT(inked.height(), 20);
    // The foot of an L is at its bottom: more ink in the lower half.
    const auto inkOf = [&](int from, int to) {
        return CountOther(image.copy(0, from, 300, to - from), kWhitePixel);
    };
    const int middle = inked.center().y();
    EXPECT_GT(inkOf(middle, 300), inkOf(0, middle) * 5 / 4);
}

TEST(PainterSurface, TextIsMeasuredAlikeAtEveryResolution) {
    double width = 0;
    double height = 0;
    for (const double factor : {1.0, 2.0, 12.5}) {
        QImage image = WhiteImage(10, 10);
        QPainter painter(&image);
        PainterSurface surface(painter, QRectF(0, 0, 300 * factor, 300 * factor), factor,
                               Medium::Raster);
        surface.SetUserScale(kPlotScale);
        if (width == 0) {
            width = surface.TextWidth("045\xc2\xb0 Bedding");
            height = surface.TextHeight();
        }
        EXPECT_NEAR(surface.TextWidth("045\xc2\xb0 Bedding"), width, width * 1e-9);
        EXPECT_NEAR(surface.TextHeight(), height, height * 1e-9);
        EXPECT_EQ(surface.TextWidth(""), 0);
        DrawState twice;
        twice.font.points = 16;
        surface.SetState(twice);
        EXPECT_NEAR(surface.TextWidth("045\xc2\xb0 Bedding"), 2 * width, width * 0.01);
        EXPECT_NEAR(surface.TextHeight(), 2 * height, height * 0.02);
    }
    EXPECT_GT(width, 0);
}

TEST(PainterSurface, TextInVectorFilesIsText) {
    const QByteArray svg = DrawSvg([](PainterSurface& surface) {
        surface.Text({0, 0}, "045 <Bedding>");
    });
    EXPECT_TRUE(svg.contains("<text")) << svg.toStdString();
    EXPECT_TRUE(svg.contains("045 &lt;Bedding&gt;"));
}

} // namespace
} // namespace quandrel
