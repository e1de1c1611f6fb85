// SPDX-License-Identifier: MIT

#include "image_checks.h"
#include "qt/painter_surface.h"

#include <QPainter>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace quandrel {
namespace {

constexpr int kSide = 220; ///< pixels; of a plot, ten units each
constexpr double kPi = 3.14159265358979323846;
constexpr QRgb kWhitePixel = qRgb(255, 255, 255);

using Drawing = std::function<void(PainterSurface&)>;
using Rings = std::vector<std::vector<Point>>;

/// A drawing on a white image in the scale of a plot.
QImage Draw(const Drawing& draw, double factor = 1) {
    QImage image = WhiteImage(static_cast<int>(kSide * factor), static_cast<int>(kSide * factor));
    QPainter painter(&image);
    PainterSurface surface(painter, QRectF(image.rect()), factor, Medium::Raster);
    surface.SetUserScale(kPlotScale);
    draw(surface);
    painter.end();
    return image;
}

/// A state that fills with black; opacities of lines and fills.
DrawState Filling(double lineOpacity = 1, double fillOpacity = 1, int drawStyle = kNoLine) {
    DrawState state;
    state.drawStyle = drawStyle;
    state.fillStyle = kSolidFill;
    state.lineOpacity = lineOpacity;
    state.fillOpacity = fillOpacity;
    return state;
}

std::vector<Point> Ring(Point centre, double radius, int corners, int bend = 0) {
    std::vector<Point> ring;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * kPi * i / corners;
        const double reach = radius * (1 + 0.3 * std::sin(bend * angle));
        ring.push_back({centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle)});
    }
    return ring;
}

/// The place of the middle of a pixel.
Point PlaceOf(int x, int y) {
    return {-1100 + (x + 0.5) * 10, 1100 - (y + 0.5) * 10};
}

/// By the crossings of a ray to the right with all rings.
bool IsWithin(const Rings& rings, Point at) {
    bool isWithin = false;
    for (const std::vector<Point>& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Point& a = ring[i];
            const Point& b = ring[(i + 1) % ring.size()];
            if ((a.y > at.y) != (b.y > at.y)
                && at.x < a.x + (at.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
                isWithin = !isWithin;
            }
        }
    }
    return isWithin;
}

int DarkestGrey(const QImage& image) {
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            darkest = std::min(darkest, qGray(image.pixel(x, y)));
        }
    }
    return darkest;
}

TEST(Paths, AreFilledWithinAnOddNumberOfRings) {
    Rings rings = {Ring({0, 0}, 700, 90, 5), Ring({100, 0}, 400, 60, 3), Ring({150, 20}, 150, 40),
                   Ring({-500, -400}, 350, 50)};
    std::ranges::reverse(rings[2]);
    const auto draw = [&](PainterSurface& surface) {
        surface.SetState(Filling());
        surface.Path(rings, kBlack);
    };
    const QImage image = Draw(draw);
    int inked = 0;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const int grey = qGray(image.pixel(x, y));
            if (grey == 0 || grey == 255) { // the others are at an edge
                ASSERT_EQ(grey == 0, IsWithin(rings, PlaceOf(x, y))) << x << " " << y;
                inked += grey == 0 ? 1 : 0;
            }
        }
    }
    EXPECT_GT(inked, 8000);
    for (std::vector<Point>& ring : rings) {
        std::ranges::reverse(ring);
    }
    EXPECT_LE(LargestDifference(image, Draw(draw)), 1) << "whichever way the rings run";
}

TEST(Paths, OutlinesCloseEachRingAndFillsNeedNone) {
    const Rings rings = {{{-800, -800}, {800, -800}, {800, 800}, {-800, 800}},
                         {},
                         {{-400, -400}, {400, -400}, {400, 400}, {-400, 400}}};
    DrawState state;
    state.drawWidth = 3;
    const QImage image = Draw([&](PainterSurface& surface) {
        surface.SetState(state);
        surface.Path(rings, kBlack);
    });
    // The last sides, on the left, lie at the pixels 30 and 70; nothing joins the rings.
    EXPECT_EQ(qGray(image.pixel(30, 110)), 0);
    EXPECT_EQ(qGray(image.pixel(70, 110)), 0);
    EXPECT_EQ(image.pixel(50, 110), kWhitePixel);
    EXPECT_EQ(image.pixel(50, 50), kWhitePixel);
    EXPECT_EQ(image.pixel(110, 110), kWhitePixel);
    EXPECT_EQ(
        CountOther(Draw([](PainterSurface& surface) { surface.Path({}, kBlack); }), kWhitePixel),
        0);
}

TEST(Paths, HatchesLeaveOutTheHoles) {
    const Rings rings = {Ring({0, 0}, 900, 90), Ring({0, 0}, 500, 90)};
    for (const double opacity : {1.0, 0.5}) {
        const QImage image = Draw([&](PainterSurface& surface) {
            DrawState state = Filling(1, opacity);
            state.fillStyle = kCrossHatch;
            surface.SetState(state);
            surface.Path(rings, kBlack);
        });
        const QRect hole(110 - 34, 110 - 34, 68, 68);
        EXPECT_EQ(CountOther(image.copy(hole), kWhitePixel), 0) << opacity;
        EXPECT_GT(CountOther(image, kWhitePixel), 4000) << opacity;
        EXPECT_GE(DarkestGrey(image), 255 * (1 - opacity) - 2) << "also where lines cross";
    }
}

TEST(Opacity, MixesFillsAndLinesWithTheGround) {
    const QImage image = Draw([](PainterSurface& surface) {
        DrawState state = Filling(0.25, 0.5, kSolidLine);
        state.drawWidth = 20;
        state.fillColour = {200, 0, 100};
        surface.SetState(state);
        surface.Path(Rings{{{-800, -800}, {800, -800}, {800, 800}, {-800, 800}}}, kBlack);
    });
    const auto expectNear = [&](int x, int red, int green, int blue) {
        const QRgb pixel = image.pixel(x, 110);
        EXPECT_NEAR(qRed(pixel), red, 1) << x;
        EXPECT_NEAR(qGreen(pixel), green, 1) << x;
        EXPECT_NEAR(qBlue(pixel), blue, 1) << x;
    };
    expectNear(25, 191, 191, 191); // the outer half of the line
    expectNear(110, 228, 128, 178);
    expectNear(35, 171, 96, 133); // its inner half is over the fill
}

/// Draws one shape; rounded ones have many corners.
struct Shape {
    const char* name;
    Drawing draw;
};

std::vector<Shape> ShapesOfLines() {
    const std::vector<Point> wave = [] {
        std::vector<Point> points;
        for (int i = 0; i <= 300; ++i) {
            points.push_back({-900 + 6.0 * i, 300 * std::sin(i / 30.0)});
        }
        return points;
    }();
    return {
        {"line",
         [](PainterSurface& s) {
             s.Line({-900, -700}, {900, 730}, kBlack);
         }},
        {"polyline", [=](PainterSurface& s) { s.Polyline(wave, kBlack); }},
        {"polygon", [=](PainterSurface& s) { s.Polygon(wave, kBlack); }},
        {"path",
         [=](PainterSurface& s) {
             s.Path(Rings{wave, Ring({0, -700}, 200, 80)}, kBlack);
         }},
        {"arc",
         [](PainterSurface& s) {
             s.Arc({0, 0}, 900, 0.3, 4, kBlack);
         }},
        {"wedge",
         [](PainterSurface& s) {
             s.Wedge({0, 0}, 900, 0.3, 2, kBlack);
         }},
        {"circle",
         [](PainterSurface& s) {
             s.Circle({0, 0}, 900, kBlack);
         }},
        {"box",
         [](PainterSurface& s) {
             s.Box({-900, 900}, {500, -500}, kBlack);
         }},
    };
}

TEST(Opacity, NoPixelOfALineIsInkedTwice) {
    for (const Shape& shape : ShapesOfLines()) {
        for (const double width : {0.7, 1.0, 2.5}) {
            const auto drawn = [&](double opacity) {
                return Draw([&](PainterSurface& surface) {
                    DrawState state;
                    state.drawWidth = width;
                    state.lineOpacity = opacity;
                    surface.SetState(state);
                    shape.draw(surface);
                });
            };
            const QImage faint = drawn(0.5);
            EXPECT_GE(DarkestGrey(faint), 126) << shape.name << " " << width;
            EXPECT_GT(CountOther(faint, kWhitePixel), 150) << shape.name << " " << width;
            EXPECT_EQ(CountOther(drawn(0), kWhitePixel), 0) << shape.name << " " << width;
            EXPECT_LT(DarkestGrey(drawn(1)), 120) << shape.name << " " << width;
        }
    }
}

TEST(Opacity, OfFillsIsThatOfBoxesCirclesAndPixels) {
    const QImage image = Draw([](PainterSurface& surface) {
        surface.SetState(Filling(1, 0.5));
        surface.FilledBox({-900, 900}, {-500, 500}, kBlack);
        surface.Circle({500, 500}, 300, kBlack);
        surface.Wedge({-600, -600}, 400, 0, kPi, kBlack);
        surface.Polygon(Ring({600, -600}, 300, 40), kBlack);
    });
    for (const QPoint at : {QPoint(40, 40), QPoint(160, 60), QPoint(50, 150), QPoint(170, 170)}) {
        EXPECT_NEAR(qGray(image.pixel(at)), 128, 1) << at.x() << " " << at.y();
    }
    const auto pixel = [](double opacity) {
        return DarkestGrey(Draw(
            [=](PainterSurface& surface) {
                surface.SetState(Filling(1, opacity));
                surface.SetPixel({0, 0}, kBlack);
            },
            4));
    };
    EXPECT_NEAR(pixel(0.25), 191, 1);
    EXPECT_EQ(pixel(1), 0);
}

TEST(Opacity, TextsAndToggledMarksAreOpaque) {
    const auto text = [](double opacity) {
        return Draw([=](PainterSurface& surface) {
            surface.SetState(Filling(opacity, opacity));
            surface.Text({-800, 800}, "Bedding");
        });
    };
    EXPECT_EQ(text(0.2), text(1));
    const auto toggled = [](double opacity) {
        return Draw([=](PainterSurface& surface) {
            DrawState state = Filling(opacity, opacity, kSolidLine);
            state.drawMode = kDrawNotXor;
            surface.SetState(state);
            surface.Path(Rings{Ring({0, 0}, 600, 40), Ring({0, 0}, 300, 40)}, {0, 0, 255});
            surface.Arc({0, 0}, 800, 0, 3, {0, 0, 255});
        });
    };
    EXPECT_EQ(toggled(0.2), toggled(1));
    EXPECT_GT(CountOther(toggled(1), kWhitePixel), 3000);
}

TEST(Opacity, MarkersOnOneAnotherAddUp) {
    const Glyph dot{"dot", {{GlyphPart::Kind::Circle, GlyphPart::Ink::Filled, {{0, 0}}, 200}}};
    const auto grey = [&](int count, double lineOpacity, double fillOpacity, bool isClipped) {
        const QImage image = Draw([&](PainterSurface& surface) {
            if (isClipped) {
                surface.PushClip({0, 0}, 900);
            }
            surface.SetState(Filling(1, 1));
            surface.Markers(dot, kBlack, std::vector<Point>{{-600, 0}}); // opaque, kept as a sprite
            surface.SetState(Filling(lineOpacity, fillOpacity));
            surface.Markers(dot, kBlack, std::vector<Point>(static_cast<std::size_t>(count)));
            if (isClipped) {
                surface.PopClip();
            }
        });
        EXPECT_EQ(qGray(image.pixel(50, 110)), 0);
        return qGray(image.pixel(110, 110));
    };
    for (const bool isClipped : {false, true}) {
        EXPECT_NEAR(grey(1, 1, 0.5, isClipped), 128, 1);
        EXPECT_NEAR(grey(3, 1, 0.5, isClipped), 32, 2);
        EXPECT_EQ(grey(3, 1, 1, isClipped), 0);
        EXPECT_EQ(grey(1, 0.5, 0, isClipped), 255);
    }
}

/// The ink across a horizontal line in the middle of an image, in its pixels.
double InkAcross(const QImage& image) {
    double ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        ink += 1 - qGray(image.pixel(image.width() / 2, y)) / 255.0;
    }
    return ink;
}

/// The ink across a line or a flat arc, in logical pixels.
double InkOfWidth(const DrawState& state, double factor, bool isArc) {
    const QImage image = Draw(
        [&](PainterSurface& surface) {
            surface.SetState(state);
            if (isArc) {
                surface.Arc({0, -9e5}, 9e5, kPi / 2 - 0.001, kPi / 2 + 0.001, kBlack);
            } else {
                surface.Line({-2000, 3}, {2000, 3}, kBlack);
            }
        },
        factor);
    return InkAcross(image) / factor;
}

TEST(WidthInPoints, IsExactAndReplacesTheWidthInPixels) {
    DrawState state;
    state.drawWidth = 9;
    for (const double factor : {1.0, 2.0, 12.5}) {
        for (const double points : {0.2, 0.5, 0.75, 1.5, 2.0}) {
            for (const double opacity : {1.0, 0.5}) {
                state.widthInPoints = points;
                state.lineOpacity = opacity;
                const double expected = points * 96 / 72 * opacity;
                for (const bool isArc : {false, true}) {
                    // An opacity is rounded to a byte, and so is the ink of each pixel.
                    EXPECT_NEAR(InkOfWidth(state, factor, isArc), expected, 0.02 + 0.005 * expected)
                        << factor << " " << points << " " << opacity << " " << isArc;
                }
            }
        }
    }
}

TEST(Clips, LeaveNoInkOutsideAndChangeNothingInside) {
    const auto drawMuch = [](PainterSurface& surface) {
        DrawState state = Filling(1, 1, kSolidLine);
        state.font.points = 20;
        state.fillColour = {0, 90, 200};
        surface.SetState(state);
        surface.FilledBox({-1100, 1100}, {1100, 300}, {200, 100, 0});
        surface.Path(Rings{Ring({0, -200}, 900, 60, 3), Ring({0, -200}, 300, 60)}, kBlack);
        surface.Line({-1100, -900}, {1100, 200}, kBlack);
        surface.Text({-900, -100}, "Bedding cleavage");
    };
    const Point centre{100, -50};
    const double radius = 700;
    const QImage all = Draw(drawMuch);
    const QImage clipped = Draw([&](PainterSurface& surface) {
        const CircleClip clip(surface, centre, radius);
        drawMuch(surface);
    });
    int partly = 0;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const Point at = PlaceOf(x, y);
            const double beyond = (std::hypot(at.x - centre.x, at.y - centre.y) - radius) / 10;
            if (beyond > 1) {
                ASSERT_EQ(clipped.pixel(x, y), kWhitePixel) << x << " " << y;
            } else if (beyond < -1) {
                ASSERT_EQ(clipped.pixel(x, y), all.pixel(x, y)) << x << " " << y;
            } else {
                const bool isWhole = clipped.pixel(x, y) == all.pixel(x, y);
                partly += !isWhole && clipped.pixel(x, y) != kWhitePixel ? 1 : 0;
            }
        }
    }
    EXPECT_GT(partly, 100) << "the edge is smooth";
}

TEST(Clips, HoldForArcsMarkersAndToggledMarks) {
    for (const int mode : {kDrawCopy, kDrawNotXor}) {
        const QImage image = Draw([&](PainterSurface& surface) {
            const CircleClip clip(surface, {0, 0}, 500);
            DrawState state;
            state.drawMode = mode;
            surface.SetState(state);
            surface.Arc({0, 900}, 900, 0, 2 * kPi, kBlack);
            surface.Markers(
                {"dot", {{GlyphPart::Kind::Circle, GlyphPart::Ink::Filled, {{0, 0}}, 80}}}, kBlack,
                std::vector<Point>{{480, 0}, {0, -200}, {700, 700}});
        });
        const QRect inked = InkedRect(image);
        EXPECT_TRUE(QRect(59, 59, 102, 102).contains(inked)) << mode;
        EXPECT_GT(CountOther(image, kWhitePixel), 200) << mode;
        EXPECT_LT(qGray(image.pixel(110, 130)), 10) << mode;
    }
}

TEST(Clips, WithinOthersIntersectAndEndInTurn) {
    const auto fill = [](PainterSurface& surface) {
        surface.FilledBox({-1100, 1100}, {1100, -1100}, kBlack);
    };
    const auto areaOf = [](const QImage& image) { return CountOther(image, kWhitePixel); };
    const QImage lens = Draw([&](PainterSurface& surface) {
        surface.SetState(Filling());
        const CircleClip left(surface, {-300, 0}, 600);
        const CircleClip right(surface, {300, 0}, 600);
        fill(surface);
    });
    // The lens of two circles of radius r whose centres are r apart.
    const double area = (2 * kPi / 3 - std::sqrt(3.0) / 2) * 60 * 60;
    EXPECT_NEAR(areaOf(lens), area, 150);
    const QImage left = Draw([&](PainterSurface& surface) {
        surface.SetState(Filling());
        const CircleClip outer(surface, {-300, 0}, 600);
        { const CircleClip right(surface, {300, 0}, 600); }
        fill(surface);
    });
    EXPECT_NEAR(areaOf(left), kPi * 60 * 60, 250);
    const QImage all = Draw([&](PainterSurface& surface) {
        surface.SetState(Filling());
        { const CircleClip small(surface, {0, 0}, 100); }
        fill(surface);
        surface.Arc({0, 0}, 1000, 0, 1, kWhite);
    });
    EXPECT_GT(areaOf(all), kSide * kSide - 400);
}

TEST(Clips, AreInUnitsOfTheScaleAndCirclesBecomeEllipsesAsCirclesDo) {
    const QImage image = Draw([&](PainterSurface& surface) {
        surface.SetUserScale({0, 0, 440, -220});
        surface.SetState(Filling());
        const CircleClip clip(surface, {220, -110}, 100);
        surface.FilledBox({0, 0}, {440, -220}, kBlack);
    });
    const QRect inked = InkedRect(image);
    EXPECT_EQ(inked, QRect(60, 10, 100, 200));
}

} // namespace
} // namespace quandrel
