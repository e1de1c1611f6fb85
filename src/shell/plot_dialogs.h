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

class PlotDialogs : public QObject {
public:
    /// @param window   that the dialogs belong to
    /// @param changed  called when a dialog has come up or gone
    /// @param hint     shows a text for the information line; an empty one puts the usual one back
    PlotDialogs(QWidget& window, std::function<void()> changed,
                std::function<void(const QString&)> hint);

    PlotDialogs(const PlotDialogs&) = delete;
    PlotDialogs& operator=(const PlotDialogs&) = delete;

    /// Brings the rose dialog up, if the active plot is a rose.
    void ShowRose();

    /// Brings the rotation dialog up, if there is an active plot.
    void ShowRotation();

    /// Lets the dialogs take what is pressed on the net of a plot's window.
    void Watch(frmPlotForms& form);

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
    void FollowInClassification();
    [[nodiscard]] bool TakePress(const frmPlotForms& form, Point at, const QMouseEvent& event);
    void HintAt(const frmPlotForms& form, Point at, const QMouseEvent& event);
    void ShowHint(const QString& hint);
    void ShowPreview();

    QWidget& window_;
    std::function<void()> changed_;
    std::function<void(const QString&)> hint_;
    QString hinted_; ///< what stands on the information line for a dialog
    frmRoseDiag* rose_ = nullptr;
    frmDataClassification* classification_ = nullptr;
    frmRotationMenu* rotation_ = nullptr;
};

} // namespace quandrel
