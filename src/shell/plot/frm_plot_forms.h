// SPDX-License-Identifier: MIT
//
// The window of a plot: the net, the boxes about it, and the layer under edit. It passes on what
// the user does and shows what the plot's record says.
//
// Inside the room: that window with its layout, the mouse on its net (net_mouse.h), the dialogs
// that stay open beside plots (plot_dialogs.h), the girdles' panel, windows in order.
// Enters: drawings and texts of the engine, through the port PlotForm.
// Leaves: presses, keys and typed texts to the engine; wishes, such as to be closed, as signals.

#pragma once

#include "platform/plot_form.h"
#include "shell/plot/plot_layout.h"

#include <QMdiSubWindow>
#include <QSize>

#include <array>

class QLabel;
class QKeyEvent;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QTabBar;
class QToolButton;

namespace quandrel {

class PictureBox;

class frmPlotForms : public QMdiSubWindow, public PlotForm {
    Q_OBJECT

public:
    explicit frmPlotForms(int slot);

    /// The slot, as the window's Tag says.
    [[nodiscard]] int Slot() const;

    [[nodiscard]] Surface& PlotSurface() override;
    [[nodiscard]] Surface& LegendSurface() override;
    void SetCaption(const std::string& caption) override;
    void SetBoxText(PlotBox box, const std::string& text) override;
    [[nodiscard]] WindowPlace Place() const override;
    void SetPlace(const WindowPlace& place) override;
    void PlaceBeside(const PlotForm& neighbour) override;
    void Show() override;
    void Raise() override;
    void Close() override;

    /// Selects the tab of the data when data arrive; a file without a name of its own names it.
    void AddLayerTab(const QString& name, const QString& kind);

    /// Shows and hides the parts as the plot's record says, and places them.
    void FollowRecord();

    /// Gives the window a place that is not the user's doing.
    void Place(const QRect& rect);

    /// Lays the boxes out anew and draws the plot into the present size.
    void ReplotIntoWindow();

    /// Takes the fonts in force for the boxes.
    void ApplyFonts();

    /// Makes a layer, kAnnotationLayer or kDataLayer, that of this window.
    void ShowLayer(int layer);

    /// Takes the layer of this window as the one under edit.
    void UseOwnLayer();

    PictureBox* picStereoArea = nullptr;
    PictureBox* picLegendBox = nullptr;
    QPlainTextEdit* txtDescBox = nullptr;
    std::array<QPlainTextEdit*, 2> txtStatsBox{}; ///< normal, advanced
    QTabBar* tabLayers = nullptr;
    QLineEdit* txtFabricBox = nullptr;
    QToolButton* cmdResizeButton = nullptr;
    QLabel* shpAnnUp = nullptr;
    QLabel* lblNumBox = nullptr;

Q_SIGNALS:
    /// The user wants the window closed.
    void CloseWanted(int slot);
    /// The menu of a box is wanted at a place of the screen, with the items of the View menu below
    /// its own. It deletes itself.
    void BoxMenuWanted(QMenu* menu, const QPoint& at);
    /// The picture of the legend is wanted on the clipboard.
    void LegendCopyWanted();
    /// A text for the hint line; empty puts the usual one back.
    void Hint(const QString& text);
    /// The user has given the window another size.
    void ResizedByHand(const QSize& size);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    static constexpr int kLegendMargin = 5; ///< logical pixels about the picture of the legend

    void MakePictures();
    void MakeTexts();
    void MakeTabs();
    void SetOrder();
    /// Names the tab of the data by whether there are any.
    void NameDataTab();
    void LayOut();
    [[nodiscard]] PlotParts ShownParts() const;
    /// The box that has a menu of its own and is this object, or shows its text in it; or none.
    [[nodiscard]] QWidget* BoxOf(const QObject& object) const;
    void ShowBoxMenu(QWidget& box, const QPoint& at);
    [[nodiscard]] bool TakeKeyOfBox(QWidget& box, QKeyEvent& event);
    [[nodiscard]] QPlainTextEdit* MakeTextBox(const QString& name, const QString& title);

    QWidget* body_ = nullptr;
    std::string description_; ///< as the record had it when it was last shown
    std::string fabric_;
    QSize legendSize_;         ///< what the legend needs, as it was last drawn
    bool isNamedFile_ = false; ///< the data's tab is called "File"
    bool placing_ = false;
};

} // namespace quandrel
