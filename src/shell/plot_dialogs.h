// SPDX-License-Identifier: MIT
//
// The dialogs that stay open beside the plots and follow the active one. Each is made when it is
// first wanted.

#pragma once

#include <QObject>

#include <functional>

class QDialog;
class QWidget;

namespace quandrel {

class frmDataClassification;
class frmRoseDiag;

class PlotDialogs : public QObject {
public:
    /// @param window   that the dialogs belong to
    /// @param changed  called when a dialog has come up or gone
    PlotDialogs(QWidget& window, std::function<void()> changed);

    PlotDialogs(const PlotDialogs&) = delete;
    PlotDialogs& operator=(const PlotDialogs&) = delete;

    /// Brings the rose dialog up, if the active plot is a rose.
    void ShowRose();

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

    QWidget& window_;
    std::function<void()> changed_;
    frmRoseDiag* rose_ = nullptr;
    frmDataClassification* classification_ = nullptr;
};

} // namespace quandrel
