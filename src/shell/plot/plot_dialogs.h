// SPDX-License-Identifier: MIT
//
// The dialogs that stay open beside the plots and follow the active one. Each is created when it is
// first needed.

#pragma once

#include "persistence/open_plot.h"
#include "platform/surface.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <string>

class QDialog;
class QMouseEvent;
class QWidget;

namespace quandrel {

class frmConfidenceRegions;
class frmDataClassification;
class frmDensities;
class frmFabricPlots;
class frmFigureSheet;
class frmPlotForms;
class frmRoseDiag;
class frmRotationMenu;
class frmSmallCircle;
class frmStatisticalTests;

class PlotDialogs : public QObject, public SheetHolder {
public:
    /// @param window   the owner of the dialogs
    /// @param changed  called when a dialog has opened, closed or changed the plot
    /// @param preferences  shows a page of the preferences
    PlotDialogs(QWidget& window, std::function<void()> changed,
                std::function<void(int tab)> preferences);

    ~PlotDialogs() override;

    PlotDialogs(const PlotDialogs&) = delete;
    PlotDialogs& operator=(const PlotDialogs&) = delete;

    /// Opens the rose dialog if the active plot is a rose.
    void ShowRose();

    /// Opens the rotation dialog if there is an active plot.
    void ShowRotation();

    /// Opens the small circle dialog if the active plot has a net.
    void ShowSmallCircles();

    /// Updates the small circle dialog from the active plot, if it is open.
    void FollowSmallCircles();

    /// Opens the dialog of densities if there is an active plot.
    void ShowDensities();

    /// Opens the window of fabric plots if there is a plot.
    void ShowFabric();

    /// Opens the window of figures with panels.
    void ShowFigureSheet();

    /// Opens the sheet of a file in it, after a question about unsaved changes. False when the
    /// user keeps the present one, or, with a message, when the file cannot be read.
    [[nodiscard]] bool OpenSheet(const std::string& path) override;

    /// The same of the sheet that a picture holds.
    [[nodiscard]] bool OpenSheetOfPicture(const std::string& path,
                                          const std::string& text) override;

    /// Its file, if it is open.
    [[nodiscard]] std::optional<std::string> SavedSheet() override;

    /// Closes it. False when the user keeps it, because of unsaved changes.
    [[nodiscard]] bool CloseFigureSheet();

    /// Opens the dialog of confidence regions if the active plot has a net.
    void ShowRegions();

    /// Opens the dialog of statistical tests if there is an active plot.
    void ShowTests();

    [[nodiscard]] bool IsRoseShown() const;

    /// Offers a press on the picture of a plot's window to the dialogs.
    /// @return true if a dialog has used it
    [[nodiscard]] bool TakePress(const frmPlotForms& form, Point at, const QMouseEvent& event);

    /// What a press would do in the dialogs, in words; empty if it would do nothing.
    [[nodiscard]] QString HintAt(const frmPlotForms& form, Point at,
                                 const QMouseEvent& event) const;

    /// Draws the dialogs' previews above the picture of a plot.
    void DrawPreview(Surface& surface, int slot) const;

    /// Opens or closes the dialog for the active plot's classes: the rose dialog for a rose,
    /// otherwise the classification dialog.
    void ToggleClassification();

    /// True while the dialog of the active plot's classes is open.
    [[nodiscard]] bool IsClassificationShown() const;

    /// Updates the open dialogs from the active plot. A dialog closes if there are no plots, or if
    /// the active plot is of another kind.
    void FollowActivePlot();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// Opens a sheet in its window, which is closed again if it was and nothing is opened.
    [[nodiscard]] bool OpensSheet(const std::function<bool()>& open);
    /// The dialog for the active plot's classes; null if it does not exist yet.
    [[nodiscard]] QDialog* ClassDialog() const;
    void Show(QDialog& dialog);

    /// Places a dialog so that it does not cover the net.
    void PlaceBesideNet(QDialog& dialog) const;
    void FollowInClassification();

    /// Brings the active plot to the front, ready for keys.
    void GoToNet();

    QWidget& window_;
    std::function<void()> changed_;
    std::function<void(int)> preferences_;
    frmRoseDiag* rose_ = nullptr;
    frmDataClassification* classification_ = nullptr;
    frmRotationMenu* rotation_ = nullptr;
    frmSmallCircle* circles_ = nullptr;
    frmDensities* densities_ = nullptr;
    frmFabricPlots* fabric_ = nullptr;
    frmFigureSheet* sheet_ = nullptr;
    frmConfidenceRegions* regions_ = nullptr;
    frmStatisticalTests* tests_ = nullptr;
};

} // namespace quandrel
