// SPDX-License-Identifier: MIT
//
// What the mouse and the keys do on a plot: pressing, moving and releasing over its picture.
//
// The window tells each event with its place in plot units, the button, the keys held down and the
// modes of the program, and gets told what there is to show. All of it works on gActivePlot, which
// the window has to be when it sends a press.
//
// A frame drawn with Shift adds to the selection, unless a girdle is active, which has Shift for
// itself; one drawn with Ctrl toggles. A click with these keys is about the rows under the pointer.

#pragma once

#include "edit/selection/marquee.h"
#include "platform/surface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// Keys held down; their sum.
enum ShiftKeys : int { kShiftKey = 1, kCtrlKey = 2, kAltKey = 4 };

/// What the pointer looks like.
enum class PointerShape {
    Arrow,
    Cross,        ///< over the net
    Add,          ///< a press adds a point
    Move,         ///< a press moves the selection
    HandleRising, ///< on a corner that is pulled along "/"
    HandleFalling ///< along "\"
};

/// The state of the program that decides what a press means.
struct MouseModes {
    bool roseDialog = false; ///< the rose dialog is open
    bool addsPoints = false; ///< a plain press does what Alt and a press does
    bool lasso = false;      ///< a marquee is drawn as a lasso
    Point pixel{1, 1};       ///< length of a logical pixel in plot units, across and up
};

/// An event of the mouse.
struct MouseEvent {
    int button = 0; ///< kLeftMouseButton or kRightMouseButton; of a move 0
    int shift = 0;  ///< sum of ShiftKeys
    double x = 0;   ///< plot units
    double y = 0;
};

/// What the window has to show behind an event.
struct MouseReport {
    PointerShape pointer = PointerShape::Arrow;
    std::string readout;         ///< text of panDipAzBox
    std::string information;     ///< what the information line says of it; mostly empty
    bool overlayChanged = false; ///< paint OverlayShapes anew
    bool opensEditMenu = false;  ///< mnuEdit as a popup at the pointer
};

/// Keys that do something on a plot besides those of menus.
enum class PlotKey { Left, Right, Up, Down, Escape };

/// The mouse over the pictures of the plots. There is one for all windows, as there is one mouse.
class PlotMouse {
public:
    [[nodiscard]] MouseReport Press(const MouseEvent& event, const MouseModes& modes);
    [[nodiscard]] MouseReport Move(const MouseEvent& event, const MouseModes& modes);
    [[nodiscard]] MouseReport Release(const MouseEvent& event, const MouseModes& modes);

    /// The pointer has left the picture: the readout is empty.
    [[nodiscard]] static MouseReport Leave();

    /// A key on the plot. Arrows turn the selected rows by a degree: up and down the plunge or dip,
    /// left and right the azimuth; Esc ends a drag, or wipes marquee and selection.
    /// @return false when the key meant nothing here
    bool Key(PlotKey key);

    /// Ends a drag without doing what it was for; the marquee stands as before.
    void Cancel();

    /// True while a button is held that began something.
    [[nodiscard]] bool IsDragging() const { return drag_ != Drag::None; }

    /// How far the selection has been dragged, plot units.
    [[nodiscard]] Point DragOffset() const;

    /// Draws what is above the picture of a plot: rings about the rows that are selected, or are
    /// the same as selected ones of another plot, discs instead where there are many; the marquee
    /// with its handles, or the lasso; handles at selected annotations; while the selection is
    /// dragged, all of these where they would come to lie. Over the active plot also the girdle or
    /// the small circle that the mouse holds.
    ///
    /// @param surface    in plot scale; its state is left as it was
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
    int button_ = 0;           ///< that began the drag
    int shift_ = 0;            ///< keys held then
    std::int32_t slot_ = 0;    ///< plot of the drag
    Point start_;              ///< where the button went down
    Point anchor_;             ///< fixed corner of a marquee
    Point last_;               ///< where the pointer is
    std::vector<Point> lasso_; ///< drawn so far
    KeptSelection kept_;       ///< the selection before the drag
    KeptSelection base_;       ///< what of it the frame adds to, or toggles
    SelectionWay way_ = SelectionWay::Replace;
};

} // namespace quandrel
