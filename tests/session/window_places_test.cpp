// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "session/window_places.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

constexpr WindowRect kScreen{0, 0, 1920, 1080};

class WindowPlaces : public EngineTest {
protected:
    static void Keep(int state, int left, int top, int width, int height) {
        gSettings.windows.main = {state, top * 15, left * 15, width * 15, height * 15};
    }
};

TEST_F(WindowPlaces, AFirstRunStartsMaximised) {
    EXPECT_EQ(StartOfMainWindow(kScreen).state, WindowState::Maximised);
}

TEST_F(WindowPlaces, APlaceIsFifteenUnitsToThePixel) {
    Keep(0, 100, 50, 1000, 700);
    EXPECT_EQ(StartOfMainWindow(kScreen).state, WindowState::Normal);
    EXPECT_EQ(StartOfMainWindow(kScreen).rect, (WindowRect{100, 50, 1000, 700}));
    KeepMainWindowPlace(WindowState::Normal, {10, 20, 900, 800});
    EXPECT_EQ(gSettings.windows.main.left, 150);
    EXPECT_EQ(gSettings.windows.main.top, 300);
    EXPECT_EQ(gSettings.windows.main.width, 13500);
    EXPECT_EQ(gSettings.windows.main.height, 12000);
    EXPECT_EQ(gSettings.windows.main.state, 0);
}

TEST_F(WindowPlaces, AMaximisedOrMinimisedWindowKeepsItsFormerPlace) {
    Keep(0, 100, 50, 1000, 700);
    KeepMainWindowPlace(WindowState::Maximised, kScreen);
    EXPECT_EQ(gSettings.windows.main.state, 2);
    EXPECT_EQ(gSettings.windows.main.width, 15000);
    KeepMainWindowPlace(WindowState::Minimised, {0, 0, 10, 10});
    EXPECT_EQ(gSettings.windows.main.state, 1);
    EXPECT_EQ(gSettings.windows.main.width, 15000);
    EXPECT_EQ(StartOfMainWindow(kScreen).state, WindowState::Maximised)
        << "nobody finds a program that starts as an icon";
}

TEST_F(WindowPlaces, APlaceThatCannotBeWorkedInIsNotUsed) {
    const WindowRect bad[] = {
        {0, 0, 799, 700},     {0, 0, 1000, 599},   {-1, 0, 1000, 700},      {0, -5, 1000, 700},
        {1000, 0, 1000, 700}, {0, 500, 1000, 700}, {5000, 5000, 1000, 700},
    };
    for (const WindowRect& rect : bad) {
        Keep(0, rect.left, rect.top, rect.width, rect.height);
        EXPECT_EQ(StartOfMainWindow(kScreen).state, WindowState::Maximised)
            << rect.left << " " << rect.top << " " << rect.width << " " << rect.height;
    }
    Keep(0, 0, 0, 800, 600);
    EXPECT_EQ(StartOfMainWindow(kScreen).state, WindowState::Normal);
    Keep(0, 920, 380, 1000, 700);
    EXPECT_EQ(StartOfMainWindow(kScreen).state, WindowState::Normal) << "just on the screen";
}

TEST_F(WindowPlaces, ANewPlotWindowIsAShareOfTheMainWindow) {
    gPlotWidthPercent = 50;
    gPlotAspect = 0.75F;
    EXPECT_EQ(NewPlotWindowPlace(1, 1200, 1190, 700), (WindowRect{0, 3, 600, 450}));
    gPlotWidthPercent = 100;
    EXPECT_EQ(NewPlotWindowPlace(1, 1200, 1190, 700), (WindowRect{0, 0, 1190, 700}))
        << "cut to the room";
}

TEST_F(WindowPlaces, TheFirstPlotTakesTheHeightAndMostOfTheWidth) {
    const struct {
        int percent;
        WindowRect place;
    } cases[] = {{50, {0, 0, 1000, 700}},  // with room for boxes beside the net
                 {95, {0, 0, 1140, 700}},  // as wide as the settings say
                 {100, {0, 0, 1190, 700}}, // cut to the room
                 {1, {0, 0, 1000, 700}}};

    for (const auto& [percent, place] : cases) {
        gPlotWidthPercent = static_cast<std::int16_t>(percent);
        EXPECT_EQ(FirstPlotWindowPlace(1200, 1190, 700), place) << percent;
    }
    gPlotWidthPercent = 50;
    EXPECT_EQ(FirstPlotWindowPlace(2000, 1991, 700), (WindowRect{0, 0, 1195, 700}))
        << "60 per cent of the room, rounded up";
    EXPECT_EQ(FirstPlotWindowPlace(500, 490, 700), (WindowRect{0, 0, 490, 700}));
}

TEST_F(WindowPlaces, PlotWindowsStepDownAndStayInTheRoom) {
    gPlotWidthPercent = 50;
    gPlotAspect = 0.75F;
    WindowRect before = NewPlotWindowPlace(1, 1200, 1190, 700);
    for (int slot = 2; slot <= 8; ++slot) {
        const WindowRect place = NewPlotWindowPlace(slot, 1200, 1190, 700);
        EXPECT_GT(place.left, before.left);
        EXPECT_GT(place.top, before.top);
        before = place;
    }
    for (int slot = 1; slot <= 99; ++slot) {
        const WindowRect place = NewPlotWindowPlace(slot, 1200, 1190, 700);
        EXPECT_GE(place.left, 0);
        EXPECT_GE(place.top, 0);
        EXPECT_LE(place.left + place.width, 1190);
        EXPECT_LE(place.top + place.height, 700);
    }
}

TEST_F(WindowPlaces, ASizeGivenByHandCountsOnlyWhileTheSettingSaysSo) {
    gPlotWidthPercent = 50;
    gPlotAspect = 0.75F;
    gPlotWinLast = false;
    KeepPlotWindowSize(300, 300, 1000);
    EXPECT_EQ(gPlotWidthPercent, 50);
    gPlotWinLast = true;
    KeepPlotWindowSize(300, 150, 1000);
    EXPECT_EQ(gPlotWidthPercent, 30);
    EXPECT_FLOAT_EQ(gPlotAspect, 0.5F);
    KeepPlotWindowSize(2000, 3000, 1000);
    EXPECT_EQ(gPlotWidthPercent, 100);
    EXPECT_FLOAT_EQ(gPlotAspect, 1) << "the settings hold no taller windows";
    gPlotWinLast = false;
}

} // namespace
} // namespace quandrel
