// SPDX-License-Identifier: MIT

#include "session/window_places.h"

#include "core/plot_store.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kFirstTop = 50 / kUnitsPerPixel;
constexpr int kCascadeStep = 26;
constexpr int kCascadeLength = 8;
constexpr int kBoxesBesideNet = 300; ///< width for legend and statistics

bool LiesOn(const WindowRect& rect, const WindowRect& screen) {
    return rect.left >= screen.left && rect.top >= screen.top
           && rect.left + rect.width <= screen.left + screen.width
           && rect.top + rect.height <= screen.top + screen.height;
}

} // namespace

WindowRect KeptMainWindowRect() {
    const WindowPlace& kept = gSettings.windows.main;
    return {kept.left / kUnitsPerPixel, kept.top / kUnitsPerPixel, kept.width / kUnitsPerPixel,
            kept.height / kUnitsPerPixel};
}

MainWindowStart StartOfMainWindow(const WindowRect& screen) {
    MainWindowStart start;
    start.rect = KeptMainWindowRect();
    const bool isLarge =
        start.rect.width >= kSmallestMainWidth && start.rect.height >= kSmallestMainHeight;
    const bool isUsable = isLarge && LiesOn(start.rect, screen);
    start.state = gSettings.windows.main.state == static_cast<int>(WindowState::Normal) && isUsable
                      ? WindowState::Normal
                      : WindowState::Maximised;
    return start;
}

void KeepMainWindowPlace(WindowState state, const WindowRect& rect) {
    gSettings.windows.main.state = static_cast<std::int32_t>(state);
    if (state == WindowState::Normal) {
        gSettings.windows.main.left = rect.left * kUnitsPerPixel;
        gSettings.windows.main.top = rect.top * kUnitsPerPixel;
        gSettings.windows.main.width = rect.width * kUnitsPerPixel;
        gSettings.windows.main.height = rect.height * kUnitsPerPixel;
    }
}

WindowRect NewPlotWindowPlace(int slot, int mainWidth, int roomWidth, int roomHeight) {
    const double width = static_cast<double>(gPlotWidthPercent) * mainWidth / 100;
    const int step = (slot - 1) % kCascadeLength * kCascadeStep;
    WindowRect place;
    place.width = std::min(static_cast<int>(std::lround(width)), roomWidth);
    place.height = std::min(static_cast<int>(std::lround(width * static_cast<double>(gPlotAspect))),
                            roomHeight);
    place.left = std::clamp(step, 0, std::max(roomWidth - place.width, 0));
    place.top = std::clamp(kFirstTop + step, 0, std::max(roomHeight - place.height, 0));
    return place;
}

WindowRect FirstPlotWindowPlace(int mainWidth, int roomWidth, int roomHeight) {
    constexpr int kLeastShare = 60;
    const int wanted =
        static_cast<int>(std::lround(static_cast<double>(gPlotWidthPercent) * mainWidth / 100));
    const int least = (kLeastShare * roomWidth + 99) / 100;
    const int forBoxes = roomHeight + kBoxesBesideNet;
    return {0, 0, std::min(std::max({wanted, least, forBoxes}), roomWidth), roomHeight};
}

void KeepPlotWindowSize(int width, int height, int mainWidth) {
    if (!gPlotWinLast || width <= 0 || height <= 0 || mainWidth <= 0) {
        return;
    }
    const double percent = 100.0 * width / mainWidth;
    gPlotWidthPercent = static_cast<std::int16_t>(std::clamp(std::lround(percent), 1L, 100L));
    gPlotAspect = std::min(static_cast<float>(height) / static_cast<float>(width), 1.0F);
}

} // namespace quandrel
