// SPDX-License-Identifier: MIT
//
// The dialogs that stay open beside the plots and follow the active one. Each is made when it is
// first wanted.

#pragma once

#include "platform/surface.h"

#include <QObject>
#include <QString>

#include <functional>

class QDialog;
class QMouseEvent;
class QWidget;

namespace quandrel {

class frmDataClassification;
class frmPlotForms;
class frmRoseDiag;
class frmRotationMenu;
class frmSmallCircle;

class PlotDialogs : public QObject {
public:
    /// @param window   that the dialogs belong to
    /// @param changed  called when a dialog has come up or gone
    /// @param preferences  shows a page of the preferences
    PlotDialogs(QWidget& window, std::function<void()> changed,
                std::function<void(int tab)> preferences);

    PlotDialogs(const PlotDialogs&) = delete;
    PlotDialogs& operator=(const PlotDialogs&) = delete;

    /// Brings the rose dialog up, if the active plot is a rose.
    void ShowRose();

    /// Brings the rotation dialog up, if there is an active plot.
    void ShowRotation();

    /// Brings the small circle dialog up, if the active plot has a net.
    void ShowSmallCircles();

    /// Shows what the small circles of the active plot have become, if their dialog is open.
    void FollowSmallCircles();

    /// True while the rose dialog is open.
    [[nodiscard]] bool IsRoseShown() const;

    /// Offers a press on the picture of a plot's window to the dialogs.
    /// @return true when one has taken it
    [[nodiscard]] bool TakePress(const frmPlotForms& form, Point at, const QMouseEvent& event);

    /// What a press would do for the dialogs, in words; empty where it would do nothing.
    [[nodiscard]] QString HintAt(const frmPlotForms& form, Point at,
                                 const QMouseEvent& event) const;

    /// Draws what the dialogs show above the picture of a plot.
    void DrawPreview(Surface& surface, int slot) const;

    /// Brings up the dialog in which the active plot's classes are edited, or takes it away: that
    /// of the classification, or that of the rose for a rose.
    void ToggleClassification();

    /// True while the dialog of the active plot's classes is open.
    [[nodiscard]] bool IsClassificationShown() const;

    /// Lets the open dialogs show the active plot. Without plots they close, and so does one that
    /// is of the other kind of plot.
    void FollowActivePlot();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// The dialog of the active plot's classes as far as it was made.
    [[nodiscard]] QDialog* ClassDialog() const;
    void Show(QDialog& dialog);

    /// Places a dialog so that the net can be seen, and pressed.
    void PlaceBesideNet(QDialog& dialog) const;
    void FollowInClassification();
    QWidget& window_;
    std::function<void()> changed_;
    std::function<void(int)> preferences_;
    frmRoseDiag* rose_ = nullptr;
    frmDataClassification* classification_ = nullptr;
    frmRotationMenu* rotation_ = nullptr;
    frmSmallCircle* circles_ = nullptr;
};

} // namespace quandrel
