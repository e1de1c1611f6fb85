// SPDX-License-Identifier: MIT
//
// The mouse and the keys on a plot: pressing, moving and releasing over its picture.
//
// The window passes each event with its position in plot units, the button, the keys held and the
// modes of the program, and receives what to show. Everything works on gActivePlot, which must be
// the window's plot when it sends a press.
//
// A frame drawn with Shift adds to the selection, unless a girdle is active, which uses Shift
// itself; one drawn with Ctrl toggles. A click with these keys affects the rows at the pointer.

#pragma once

#include "edit/selection/marquee.h"
#include "platform/surface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// Keys held, as a sum.
enum ShiftKeys : int { kShiftKey = 1, kCtrlKey = 2, kAltKey = 4 };

/// The shape of the pointer.
enum class PointerShape {
    Arrow,
    Cross,        ///< over the net
    Add,          ///< a press adds a point
    Move,         ///< a press moves the selection
    HandleRising, ///< on a corner that is dragged along "/"
    HandleFalling ///< along "\"
};

/// The state of the program that determines the meaning of a press.
struct MouseModes {
    bool roseDialog = false; ///< the rose dialog is open
    bool addsPoints = false; ///< a plain press acts like a press with Alt
    bool lasso = false;      ///< a marquee is drawn as a lasso
    Point pixel{1, 1};       ///< length of a logical pixel in plot units, across and up
};

/// An event of the mouse.
struct MouseEvent {
    int button = 0; ///< kLeftMouseButton or kRightMouseButton; 0 for a move
    int shift = 0;  ///< sum of ShiftKeys
    double x = 0;   ///< plot units
    double y = 0;
};

/// What the window has to show after an event.
struct MouseReport {
    PointerShape pointer = PointerShape::Arrow;
    std::string readout;         ///< text of panDipAzBox
    std::string information;     ///< its text on the information line; usually empty
    bool overlayChanged = false; ///< OverlayShapes must be repainted
    bool opensEditMenu = false;  ///< open mnuEdit as a popup at the pointer
};

/// Keys that act on a plot in addition to those of menus.
enum class PlotKey { Left, Right, Up, Down, Escape };

/// The mouse over the pictures of the plots. All windows share one object, as there is one mouse.
class PlotMouse {
public:
    [[nodiscard]] MouseReport Press(const MouseEvent& event, const MouseModes& modes);
    [[nodiscard]] MouseReport Move(const MouseEvent& event, const MouseModes& modes);
    [[nodiscard]] MouseReport Release(const MouseEvent& event, const MouseModes& modes);

    /// The pointer has left the picture: empties the readout.
    [[nodiscard]] static MouseReport Leave();

    /// A key on the plot. Arrows change the selected rows by a degree: up and down the plunge or
    /// dip, left and right the azimuth. Esc ends a drag, or removes marquee and selection.
    /// @return false when the key has no effect here
    bool Key(PlotKey key);

    /// Cancels a drag without its effect; the marquee is restored.
    void Cancel();

    /// True while a button that started something is held.
    [[nodiscard]] bool IsDragging() const { return drag_ != Drag::None; }

    /// How far the selection has been dragged, plot units.
    [[nodiscard]] Point DragOffset() const;

    /// Draws what is above the picture of a plot: rings around the rows that are selected, or that
    /// match selected ones of another plot, or discs if there are many; the marquee with its
    /// handles, or the lasso; handles at selected annotations. While the selection is dragged, all
    /// of these are drawn at their new positions. Over the active plot, also the girdle or the
    /// small circle that the mouse drags.
    ///
    /// @param surface    in plot scale; its state is restored
    /// @param highlight  colour of rings and handles
    void OverlayShapes(Surface& surface, std::int32_t slot, Colour highlight) const;

private:
    enum class Drag { None, Marquee, Lasso, Selection, Girdle, Point, Polyline, Pick };

    [[nodiscard]] MouseReport ReportAt(const MouseEvent& event, const MouseModes& modes) const;
    [[nodiscard]] PointerShape ShapeAt(const MouseEvent& event, const MouseModes& modes) const;
    [[nodiscard]] bool IsAddPress(const MouseEvent& event, const MouseModes& modes) const;
    void Begin(const MouseEvent& event, const MouseModes& modes);
    [[nodiscard]] static Drag BeginAnnotation(const MouseEvent& event);
    void BeginMarquee(const MouseEvent& event, const MouseModes& modes);
    void Follow(const MouseEvent& event);
    void End(const MouseEvent& event, const MouseModes& modes);
    void BeginFrame(const MouseEvent& event, int handle);
    void EndMarquee(const MouseEvent& event, const MouseModes& modes, bool isClick, bool isLasso);
    void SelectUnder(Point at, Point pixel);
    void EndSelection(const MouseEvent& event, bool isClick);
    [[nodiscard]] bool IsClick(const MouseEvent& event, const MouseModes& modes) const;

    Drag drag_ = Drag::None;
    int button_ = 0;           ///< that started the drag
    int shift_ = 0;            ///< keys held then
    std::int32_t slot_ = 0;    ///< plot of the drag
    Point start_;              ///< where the button went down
    Point anchor_;             ///< fixed corner of a marquee
    Point last_;               ///< present position of the pointer
    std::vector<Point> lasso_; ///< drawn so far
    Selection kept_;           ///< the selection before the drag
    Selection base_;           ///< the part of it that the frame adds to, or toggles
    SelectionWay way_ = SelectionWay::Replace;
};

} // namespace quandrel
