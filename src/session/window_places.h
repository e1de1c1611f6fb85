// SPDX-License-Identifier: MIT
//
// Sizes and places of windows, and how they last. Settings keep them in 1/1440 inch, of which a
// logical pixel has 15.

#pragma once

#include <cstdint>

namespace quandrel {

inline constexpr int kUnitsPerPixel = 15;
inline constexpr int kSmallestMainWidth = 800; ///< a smaller main window starts maximised
inline constexpr int kSmallestMainHeight = 600;

/// A place in logical pixels.
struct WindowRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const WindowRect&, const WindowRect&) = default;
};

enum class WindowState : std::int8_t { Normal = 0, Minimised = 1, Maximised = 2 };

struct MainWindowStart {
    WindowState state = WindowState::Maximised;
    WindowRect rect;
};

/// The last place of the main window, as the settings keep it.
[[nodiscard]] WindowRect KeptMainWindowRect();

/// Where the main window opens. It is maximised where its last place lies off the screen or is too
/// small to work in.
[[nodiscard]] MainWindowStart StartOfMainWindow(const WindowRect& screen);

/// Keeps state and, of a window neither minimised nor maximised, place of the main window for the
/// next start.
void KeepMainWindowPlace(WindowState state, const WindowRect& rect);

/// Where the window of a new plot opens in the room for plots: as wide as the settings say, with
/// the same ratio of height to width, cut to the room, and a step down and right of the one before.
[[nodiscard]] WindowRect NewPlotWindowPlace(int slot, int mainWidth, int roomWidth, int roomHeight);

/// Where the first plot opens in an empty room: over all its height, and as wide as the settings
/// say, but not below 60% of the room and with room for legend and statistics beside the net.
[[nodiscard]] WindowRect FirstPlotWindowPlace(int mainWidth, int roomWidth, int roomHeight);

/// The user has given a plot window another size: windows to come follow while the settings say so.
void KeepPlotWindowSize(int width, int height, int mainWidth);

} // namespace quandrel
