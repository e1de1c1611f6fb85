// SPDX-License-Identifier: MIT
//
// Sizes and positions of windows, and how they are saved. Settings keep them in 1/1440 inch; a
// logical pixel is 15 of these.

#pragma once

#include <cstdint>

namespace quandrel {

inline constexpr int kUnitsPerPixel = 15;
inline constexpr int kSmallestMainWidth = 800; ///< a smaller main window starts maximised
inline constexpr int kSmallestMainHeight = 600;

/// A position and size in logical pixels.
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

/// The last position of the main window, from the settings.
[[nodiscard]] WindowRect KeptMainWindowRect();

/// The initial position of the main window. It is maximised when its last position is off the
/// screen or too small to work in.
[[nodiscard]] MainWindowStart StartOfMainWindow(const WindowRect& screen);

/// Saves the state of the main window for the next start, and its position unless it is minimised
/// or maximised.
void KeepMainWindowPlace(WindowState state, const WindowRect& rect);

/// The position of a new plot's window in the area for plots: as wide as the settings say, with
/// their ratio of height to width, cut to the area, and one step down and right of the previous
/// one.
[[nodiscard]] WindowRect NewPlotWindowPlace(int slot, int mainWidth, int roomWidth, int roomHeight);

/// The position of the first plot in an empty area: its full height, and as wide as the settings
/// say, but at least 60% of the area and wide enough for legend and statistics beside the net.
[[nodiscard]] WindowRect FirstPlotWindowPlace(int mainWidth, int roomWidth, int roomHeight);

/// Called after the user has resized a plot window: later windows get that size if the settings say
/// so.
void KeepPlotWindowSize(int width, int height, int mainWidth);

} // namespace quandrel
