// SPDX-License-Identifier: MIT

#include "core/settings_value.h"
#include "orientation/angles.h"
#include "platform/scripted/recording_surface.h"
#include "stereo/symbols.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace quandrel {
namespace {

class Symbols : public EngineTest {
protected:
    RecordingSurface surface{1000, 1000};
};

/// Half of the height of a glyph.
double Reach(const Glyph& glyph) {
    double reach = 0;
    for (const GlyphPart& part : glyph.parts) {
        for (const Point& point : part.points) {
            reach = std::max(reach, std::abs(point.y) + part.radius);
        }
    }
    return reach;
}

TEST_F(Symbols, EveryCodeOfTheTableHasAShapeOfItsOwn) {
    std::vector<int> codes = {kPixelSymbol,     kSlipArrowSymbol, kSlipEndSymbol,
                              kSlipUpEndSymbol, kSlipLineSymbol,  kLargeCircleSymbol};
    for (int code = kFirstTableSymbol; code <= kLastTableSymbol; ++code) {
        codes.push_back(code);
    }
    std::set<std::string> shapes;
    for (const int code : codes) {
        const Glyph glyph = GlyphOfSymbol(code, 3, 0);
        EXPECT_FALSE(glyph.parts.empty()) << code;
        std::string shape;
        for (const GlyphPart& part : glyph.parts) {
            shape += std::to_string(static_cast<int>(part.kind))
                     + std::to_string(static_cast<int>(part.ink)) + std::to_string(part.radius);
            for (const Point& point : part.points) {
                shape += "," + std::to_string(point.x) + " " + std::to_string(point.y);
            }
        }
        EXPECT_TRUE(shapes.insert(shape).second) << code;
    }
}

TEST_F(Symbols, HalfSizesAreTheSizeTimesTheFactorOfTheCode) {
    EXPECT_DOUBLE_EQ(Reach(GlyphOfSymbol(2, 3, 0)), 12);
    EXPECT_DOUBLE_EQ(Reach(GlyphOfSymbol(3, 3, 0)), 12);
    EXPECT_DOUBLE_EQ(Reach(GlyphOfSymbol(4, 3, 0)), 18);
    EXPECT_DOUBLE_EQ(Reach(GlyphOfSymbol(5, 3, 0)), 15);
    EXPECT_DOUBLE_EQ(Reach(GlyphOfSymbol(7, 3, 0)), 12);
    EXPECT_DOUBLE_EQ(Reach(GlyphOfSymbol(8, 3, 0)), 12);
    EXPECT_DOUBLE_EQ(Reach(GlyphOfSymbol(100, 1, 0)), 100);
}

TEST_F(Symbols, SizeNoughtDrawsLikeSizeOne) {
    EXPECT_EQ(GlyphOfSymbol(2, 0, 0).parts, GlyphOfSymbol(2, 1, 0).parts);
}

TEST_F(Symbols, AColourBeyondTheTableIsRefused) {
    EXPECT_FALSE(DrawSymbol(surface, 0, 0, 25, 2, 3, 0));
    EXPECT_FALSE(DrawSymbol(surface, 0, 0, -1, 2, 3, 0));
    EXPECT_TRUE(surface.Operations().empty());
    EXPECT_TRUE(DrawSymbol(surface, 0, 0, 24, 2, 3, 0));
    EXPECT_EQ(surface.Operations().size(), 1U);
}

TEST_F(Symbols, CodeNoughtAndUnknownCodesDrawNothing) {
    EXPECT_TRUE(DrawSymbol(surface, 0, 0, 5, 0, 3, 0));
    EXPECT_TRUE(DrawSymbol(surface, 0, 0, 5, 47, 3, 0));
    const Point place{1, 2};
    EXPECT_TRUE(
        DrawSymbols(surface, gSettings.styles, std::span(&place, 1), MakeSymbolCode(5, 0, 2)));
    EXPECT_TRUE(surface.Operations().empty());
}

TEST_F(Symbols, AMarkerIsOneCallInTheColourOfItsIndex) {
    const std::vector<Point> places = {{1, 2}, {3, 4}};
    EXPECT_TRUE(DrawSymbols(surface, gSettings.styles, places, MakeSymbolCode(8, 3, 2)));
    ASSERT_EQ(surface.Operations().size(), 1U);
    EXPECT_EQ(surface.Operations()[0].points, places);
    EXPECT_EQ(surface.Operations()[0].colour, (Colour{255, 0, 0}));
}

TEST_F(Symbols, TheStateOfTheSurfaceStaysAsItWas) {
    DrawState state;
    state.fillStyle = kCrossHatch;
    state.drawWidth = 3;
    surface.SetState(state);
    DrawSymbol(surface, 0, 0, 5, 5, 3, 0);
    EXPECT_EQ(surface.State(), state);
}

TEST_F(Symbols, SlipArrowsHaveOneNameOnlyWhenTheyHaveOneShape) {
    const Glyph arrow = GlyphOfSymbol(50, 4, 0.7);
    EXPECT_EQ(GlyphOfSymbol(50, 4, 0.7).name, arrow.name);
    EXPECT_NE(GlyphOfSymbol(50, 4, 0.7001).parts, arrow.parts);
    EXPECT_NE(GlyphOfSymbol(50, 4, 0.7001).name, arrow.name);
    EXPECT_NE(GlyphOfSymbol(50, 5, 0.7).name, arrow.name);
}

TEST_F(Symbols, TheHeadOfASlipArrowIsEightTimesItsSizeLong) {
    const Glyph arrow = GlyphOfSymbol(50, 4, 0);
    ASSERT_EQ(arrow.parts.back().kind, GlyphPart::Kind::Polygon);
    double lowest = 100;
    for (const Point& point : arrow.parts.back().points) {
        lowest = std::min(lowest, point.y);
    }
    EXPECT_DOUBLE_EQ(lowest, 100 - 8 * 4);
}

TEST_F(Symbols, CodeOneIsOnePixelWhateverItsSize) {
    const Glyph pixel = GlyphOfSymbol(1, 9, 0);
    ASSERT_EQ(pixel.parts.size(), 1U);
    EXPECT_EQ(pixel.parts[0].kind, GlyphPart::Kind::Pixel);
    EXPECT_EQ(pixel.parts[0].points, (std::vector<Point>{{0, 0}}));
}

TEST_F(Symbols, ASlipArrowIsTwentyFiveTimesItsSizeLongAlongItsAzimuth) {
    for (const double azimuth : {0.0, 0.7, kPi / 2, 2.9, 5.0}) {
        const Glyph arrow = GlyphOfSymbol(50, 4, azimuth);
        Point tip;
        for (const GlyphPart& part : arrow.parts) {
            for (const Point& point : part.points) {
                if (std::hypot(point.x, point.y) > std::hypot(tip.x, tip.y)) {
                    tip = point;
                }
            }
        }
        EXPECT_NEAR(tip.x, 100 * std::sin(azimuth), 1e-9);
        EXPECT_NEAR(tip.y, 100 * std::cos(azimuth), 1e-9);
    }
}

} // namespace
} // namespace quandrel
