// SPDX-License-Identifier: MIT
//
// The mouse and the keys on the pictures of the plot windows. Events go to the open dialogs that
// wait for them, otherwise to the engine's mouse; then the results are shown. One object serves all
// windows.

#pragma once

#include "edit/commands/plot_mouse.h"

#include <QPoint>
#include <QString>

#include <functional>

class QAction;
class QKeyEvent;
class QMouseEvent;

namespace quandrel {

class PictureBox;
class PlotDialogs;
class frmPlotForms;

/// What the main window does when the mouse reports an event.
struct NetMouseSigns {
    std::function<void(const QString&)> readout;
    std::function<void(const QString&)>
        hint; ///< for the information line; empty restores the usual hint
    std::function<void(const QPoint&)> editMenu;
    std::function<void()> dragged; ///< the mouse has moved a girdle or a small circle
    std::function<void()> done;    ///< a button or a key may have changed the plot
    /// A plain press of the left button, plot units; the second one of a double click opens what is
    /// there.
    std::function<void(Point at, bool opens)> pointed;
};

class NetMouse {
public:
    /// @param dialogs   may wait for presses; outlives the mouse
    /// @param addsMode  checked while a plain press adds points
    /// @param lasso     checked while marquees are lassos
    NetMouse(PlotDialogs& dialogs, const QAction& addsMode, const QAction& lasso,
             NetMouseSigns signs);

    /// Watches the picture of a window.
    void Watch(frmPlotForms& form);

    /// Repaints everything that is drawn above the pictures of all plots.
    static void UpdateOverlays();

    /// Removes the hint of the mouse or a dialog from the information line.
    void ClearHint() { ShowHint({}); }

    /// Another plot comes to the front, or a window closes: the current mouse action ends.
    void Cancel();

private:
    bool Press(const frmPlotForms& form, Point at, const QMouseEvent& event);
    void Move(const frmPlotForms& form, Point at, const QMouseEvent& event);
    void Release(const frmPlotForms& form, Point at, const QMouseEvent& event);
    bool Key(const frmPlotForms& form, const QKeyEvent& event);
    void Leave(const frmPlotForms& form);
    void Show(const frmPlotForms& form, const MouseReport& report);
    void ShowHint(const QString& hint);
    void Overlay(Surface& surface, int slot) const;
    [[nodiscard]] MouseModes ModesOf(const frmPlotForms& form) const;

    PlotDialogs& dialogs_;
    const QAction& addsMode_;
    const QAction& lasso_;
    NetMouseSigns signs_;
    PlotMouse mouse_;
    bool lassoKey_ = false; ///< L is held
    QString hinted_;        ///< the mouse's text on the information line
};

} // namespace quandrel
