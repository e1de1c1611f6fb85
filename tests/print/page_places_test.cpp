// SPDX-License-Identifier: MIT

#include "print/page_places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

struct PaperCase {
    const char* name;
    PageRect area;
};

const std::vector<PaperCase>& Papers() {
    static const std::vector<PaperCase> papers = {
        {"A4 portrait", {10, 10, 190, 277}},     {"A4 landscape", {10, 10, 277, 190}},
        {"letter portrait", {10, 10, 196, 259}}, {"letter landscape", {10, 10, 259, 196}},
        {"square", {10, 10, 200, 200}},          {"A6", {10, 10, 85, 128}},
    };
    return papers;
}

bool IsInside(const PageRect& inner, const PageRect& outer) {
    constexpr double kHair = 1e-6;
    return inner.left >= outer.left - kHair && inner.top >= outer.top - kHair
           && inner.Right() <= outer.Right() + kHair && inner.Bottom() <= outer.Bottom() + kHair;
}

TEST(FittedPlaces, AreInsideAndApartForUpToTwelvePlots) {
    for (const auto& [name, area] : Papers()) {
        for (std::size_t count = 1; count <= 12; ++count) {
            std::vector<PageRect> all;
            for (const PlotPlaces& places : FittedPlaces(area, count)) {
                all.push_back(places.net);
                all.push_back(places.texts);
            }
            ASSERT_EQ(all.size(), 2 * count);
            for (std::size_t i = 0; i < all.size(); ++i) {
                EXPECT_TRUE(IsInside(all[i], area)) << name << ' ' << count << ' ' << i;
                EXPECT_GT(std::min(all[i].width, all[i].height), 8) << name << ' ' << count;
                for (std::size_t k = 0; k < i; ++k) {
                    EXPECT_FALSE(DoOverlap(all[i], all[k])) << name << ' ' << count;
                }
            }
        }
    }
}

TEST(FittedPlaces, AreSquaresOfOneSizeForSeveralPlots) {
    for (const auto& [name, area] : Papers()) {
        const std::vector<PlotPlaces> places = FittedPlaces(area, 5);
        for (const PlotPlaces& place : places) {
            EXPECT_NEAR(place.net.width, place.net.height, 1e-9) << name;
            EXPECT_NEAR(place.net.width, places[0].net.width, 1e-9) << name;
        }
    }
}

TEST(FittedPlaces, GiveOnePlotTheWholeSmallerSideInTheMiddle) {
    const std::vector<PlotPlaces> upright = FittedPlaces({10, 10, 190, 277}, 1);
    EXPECT_EQ(upright[0].net, (PageRect{10, 53.5, 190, 190}));
    EXPECT_GE(upright[0].texts.top, upright[0].net.Bottom());
    const std::vector<PlotPlaces> lying = FittedPlaces({10, 10, 277, 190}, 1);
    EXPECT_EQ(lying[0].net, (PageRect{53.5, 10, 190, 190}));
    EXPECT_GE(lying[0].texts.left, lying[0].net.Right());
}

TEST(FittedPlaces, LeaveRoomForTextsOfOnePlotOnSquarePaper) {
    const PlotPlaces places = FittedPlaces({0, 0, 200, 200}, 1)[0];
    EXPECT_GE(std::min(places.texts.width, places.texts.height), 39);
}

TEST(FittedPlaces, AreNoneForNoPlots) {
    EXPECT_TRUE(FittedPlaces({0, 0, 200, 200}, 0).empty());
}

TEST(RoomBeside, IsOnTheSideWithRoom) {
    const PageRect area{0, 0, 200, 200};

    struct Case {
        PageRect square;
        bool (*isThere)(const PageRect& room, const PageRect& square);
    };

    const std::vector<Case> cases = {
        {{0, 20, 100, 100}, [](auto& room, auto& square) { return room.left >= square.Right(); }},
        {{100, 0, 100, 200}, [](auto& room, auto& square) { return room.Right() <= square.left; }},
        {{0, 0, 200, 120}, [](auto& room, auto& square) { return room.top >= square.Bottom(); }},
        {{0, 80, 200, 120}, [](auto& room, auto& square) { return room.Bottom() <= square.top; }},
    };
    for (const auto& [square, isThere] : cases) {
        const PageRect room = RoomBeside(square, area, {});
        EXPECT_TRUE(isThere(room, square)) << square.left << ' ' << square.top;
        EXPECT_TRUE(IsInside(room, area));
        EXPECT_GT(room.width, 0);
    }
}

TEST(RoomBeside, KeepsClearOfOtherSquares) {
    const PageRect area{0, 0, 200, 300};
    for (double x = 0; x <= 140; x += 10) {
        for (double y = 0; y <= 240; y += 10) {
            const PageRect square{60, 100, 60, 60};
            const std::vector<PageRect> others = {{x, y, 55, 55}, {140, 20, 50, 50}};
            const PageRect room = RoomBeside(square, area, others);
            for (const PageRect& other : others) {
                EXPECT_FALSE(DoOverlap(room, other)) << x << ' ' << y;
            }
            EXPECT_FALSE(DoOverlap(room, square));
            EXPECT_TRUE(IsInside(room, area));
        }
    }
}

TEST(RoomBeside, IsEmptyWhereTheSquareFillsTheArea) {
    const PageRect room = RoomBeside({-10, -10, 300, 300}, {0, 0, 200, 200}, {});
    EXPECT_EQ(room.width * room.height, 0);
}

} // namespace
} // namespace quandrel
