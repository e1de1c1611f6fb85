// SPDX-License-Identifier: MIT
//
// The state of buttons and menus for the active plot: which can be used, which are down, and the
// captions that change. It is read from the store again whenever something may have changed;
// windows only display it.

#pragma once

#include "drawing/plot_state.h"

#include <array>
#include <string>

namespace quandrel {

/// A button, or the menu item with the same action.
struct ControlState {
    bool enabled = false;
    bool down = false;

    friend bool operator==(const ControlState&, const ControlState&) = default;
};

/// Symbol buttons: 0 to 6 the modes, 7 the secondary data as an overlay, 8 to 10 slip arrows.
inline constexpr int kSymbolButtons = 11;
inline constexpr int kOverlaySecondaryButton = 7;

struct ToolbarState {
    std::array<ControlState, 3> plotTypes; ///< equal area, equal angle, rose
    std::array<ControlState, 3> dataTypes; ///< planes, lines, polar lines
    std::array<ControlState, kSymbolButtons> symbols;
    std::array<ControlState, kDisplayButtons> display;
    std::array<ControlState, 2> secondary; ///< as the base plot, as an overlay
    ControlState useDecimals;
    std::array<ControlState, 3> formulas; ///< by PlotFormulasCode
    std::array<ControlState, 4> styles;   ///< in the order of StandardStyles()
    bool hasOwnStyle = false;             ///< the plot's style is that of a file
    ControlState annotations;
    ControlState bestGirdle;
    ControlState confidenceCone;
    bool intersections = false; ///< each row holds two planes
    bool gridDensity = false;   ///< the mode in force counts on the grid
    bool hasPlot = false;       ///< a plot is open
    bool hasRows = false;       ///< it has valid rows
    bool isStereo = false;      ///< it is not a rose
    bool hasSeveralPlots = false;
    bool showsLegend = false;
};

/// The state for the active plot. Without a plot the types are those of the next new plot.
[[nodiscard]] ToolbarState StateOfToolbar();

/// Captions and tips that depend on the plot.
struct MenuCaptions {
    std::string plotSecondary;   ///< switches to the other set
    std::string viewAdvStats;    ///< switches to the other box
    std::string viewAnnotations; ///< hides or shows them
    std::string annotationTip;   ///< the same for the button
    std::string greatCircles;    ///< the first two symbols: those of the top overlay, if any
    std::string pointSymbols;
};

[[nodiscard]] MenuCaptions CaptionsOfMenus();

/// What the Edit menu can do with the active plot and the selection.
struct EditMenuState {
    bool cut = false;
    bool copy = false;
    bool copyAllFields = false;
    bool remove = false;
    bool changeSymbol = false;
    bool selectAll = false;
    bool unselect = false;
    bool removeOverlay = false;
    bool removeAnnotation = false;
};

[[nodiscard]] EditMenuState StateOfEditMenu();

/// True when the files of the active plot are texts whose lines can be shown.
[[nodiscard]] bool HasRawFiles();

/// What "Undo" and "Redo" would do.
struct UndoState {
    ControlState undo;
    ControlState redo;
    std::string undoCaption;
    std::string redoCaption;
};

/// Checks whether the plot of the last edit is unchanged since. O(rows) of that plot.
[[nodiscard]] UndoState StateOfUndo();

/// What can be done with the mouse on gActivePlot as it is; empty without a plot, and when the plot
/// cannot be edited.
[[nodiscard]] std::string HintOfActivePlot();

/// What "Paste" would do.
struct PasteState {
    std::string caption = "&Paste"; ///< states the kind of text on the clipboard
    bool enabled = false;
};

/// Reads the clipboard; may wait for the program that owns it.
[[nodiscard]] PasteState StateOfPaste();

/// Sets the plot type of the active plot, or without one that of the next new plot.
void PressPlotType(int button);

/// Sets the data type of the active plot, after a question when it has rows, or without a plot that
/// of the next data.
void PressDataType(int button);

} // namespace quandrel
