// SPDX-License-Identifier: MIT

#include "shell/plot/window_arrangement.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

constexpr QSize kRoom(1000, 700);

TEST(WindowArrangement, TilesFillTheRoomWithoutOverlap) {
    for (const Arrangement way : {Arrangement::TileVertically, Arrangement::TileHorizontally}) {
        for (int count = 1; count <= 20; ++count) {
            const QList<QRect> places = PlacesOf(count, way, kRoom);
            ASSERT_EQ(places.size(), count);
            int area = 0;
            for (qsizetype i = 0; i < places.size(); ++i) {
                area += places[i].width() * places[i].height();
                EXPECT_TRUE(QRect(QPoint(0, 0), kRoom).contains(places[i])) << count;
                for (qsizetype j = i + 1; j < places.size(); ++j) {
                    EXPECT_FALSE(places[i].intersects(places[j])) << count;
                }
            }
            EXPECT_EQ(area, kRoom.width() * kRoom.height()) << count;
        }
    }
}

TEST(WindowArrangement, TwoTilesStandSideBySideOrOneBelowTheOther) {
    const QList<QRect> vertical = PlacesOf(2, Arrangement::TileVertically, kRoom);
    EXPECT_EQ(vertical[0], QRect(0, 0, 500, 700));
    EXPECT_EQ(vertical[1], QRect(500, 0, 500, 700));
    const QList<QRect> horizontal = PlacesOf(2, Arrangement::TileHorizontally, kRoom);
    EXPECT_EQ(horizontal[0], QRect(0, 0, 1000, 350));
    EXPECT_EQ(horizontal[1], QRect(0, 350, 1000, 350));
}

TEST(WindowArrangement, FourTilesMakeASquare) {
    const QList<QRect> places = PlacesOf(4, Arrangement::TileVertically, kRoom);
    for (const QRect& place : places) {
        EXPECT_EQ(place.size(), QSize(500, 350));
    }
}

TEST(WindowArrangement, CascadedWindowsShowTheTitleOfTheOneBehind) {
    const QList<QRect> places = PlacesOf(5, Arrangement::Cascade, kRoom);
    for (qsizetype i = 1; i < places.size(); ++i) {
        EXPECT_GE(places[i].top() - places[i - 1].top(), 20);
        EXPECT_GE(places[i].left() - places[i - 1].left(), 20);
        EXPECT_EQ(places[i].size(), places[0].size());
    }
    for (const QRect& place : PlacesOf(60, Arrangement::Cascade, kRoom)) {
        EXPECT_TRUE(QRect(QPoint(0, 0), kRoom).contains(place));
    }
}

TEST(WindowArrangement, PlacesThatHangOverAnEdgeAreMovedIn) {
    const QSize room(1000, 700);
    EXPECT_EQ(WithinRoom({800, 10, 400, 300}, room), QRect(600, 10, 400, 300));
    EXPECT_EQ(WithinRoom({-50, 600, 400, 300}, room), QRect(0, 400, 400, 300));
    EXPECT_EQ(WithinRoom({100, 100, 2000, 2000}, room), QRect(0, 0, 1000, 700));
    EXPECT_EQ(WithinRoom({100, 100, 200, 200}, room), QRect(100, 100, 200, 200));
}

TEST(WindowArrangement, NoWindowsHaveNoPlaces) {
    EXPECT_TRUE(PlacesOf(0, Arrangement::Cascade, kRoom).isEmpty());
    EXPECT_TRUE(PlacesOf(0, Arrangement::TileVertically, kRoom).isEmpty());
}

} // namespace
} // namespace quandrel
