// SPDX-License-Identifier: MIT
//
// The window of a plot: the net, the boxes around it, and the layer being edited. It passes on the
// user's actions and shows the contents of the plot's record.
//
// This room holds that window with its layout, the mouse on its net (net_mouse.h), the dialogs that
// stay open beside plots (plot_dialogs.h), the girdle panel, and the arrangement of windows.
// Input: drawings and texts of the engine, through the port PlotForm.
// Output: presses, keys and typed texts to the engine; requests, such as to be closed, as signals.

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
    ~frmPlotForms() override;

    /// The slot, equal to the window's Tag.
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

    /// Selects the data tab when data arrive; a file without a name gives the tab its name.
    void AddLayerTab(const QString& name, const QString& kind);

    /// Shows or hides the parts as the plot's record says, and places them.
    void FollowRecord();

    /// Moves the window from the program, not as an action of the user.
    void Place(const QRect& rect);

    /// Lays the boxes out again and redraws the plot at the current size.
    void ReplotIntoWindow();

    /// Applies the current fonts to the boxes.
    void ApplyFonts();

    /// Sets the layer of this window: kAnnotationLayer or kDataLayer.
    void ShowLayer(int layer);

    /// Makes the layer of this window the one being edited.
    void UseOwnLayer();

    /// The page with the texts of the window: fabric, description, statistics. It is made on the
    /// first call, which takes them out of the window, and belongs to the window wherever it is
    /// shown.
    [[nodiscard]] QWidget& TextPage();

    /// Puts the texts back beside the net, and removes the page.
    void TakeTextsBack();

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
    /// The user closes the window.
    void CloseWanted(int slot);
    /// The context menu of a box is requested at a screen position, with the items of the View menu
    /// below its own. It deletes itself.
    void BoxMenuWanted(QMenu* menu, const QPoint& at);
    /// The user copies the picture of the legend to the clipboard.
    void LegendCopyWanted();
    /// The left button is pressed on the legend, logical pixels from the corner of its picture; the
    /// second press of a double click opens what is there.
    void LegendPressed(const QPointF& at, bool opens);
    /// A text for the hint line; empty restores the usual one.
    void Hint(const QString& text);
    /// The user has resized the window.
    void ResizedByHand(const QSize& size);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    static constexpr int kLegendMargin = 5; ///< logical pixels around the picture of the legend

    void MakePictures();
    void MakeTexts();
    void MakeTabs();
    void SetOrder();
    /// Names the data tab depending on whether there are data.
    void NameDataTab();
    void LayOut();
    [[nodiscard]] PlotParts ShownParts() const;
    [[nodiscard]] PlotMetrics Metrics() const;
    void Arrange(const PlotLayout& layout, const PlotParts& parts);
    void ArrangePage(const PlotParts& parts);
    [[nodiscard]] std::array<QWidget*, 4> Texts() const;
    /// The box with its own menu that is this object or contains it as its viewport; or null.
    [[nodiscard]] QWidget* BoxOf(const QObject& object) const;
    void ShowBoxMenu(QWidget& box, const QPoint& at);
    [[nodiscard]] bool TakeKeyOfBox(QWidget& box, QKeyEvent& event);
    [[nodiscard]] QPlainTextEdit* MakeTextBox(const QString& name, const QString& title);

    QWidget* body_ = nullptr;
    QWidget* page_ = nullptr; ///< with the texts, if they are not in the window
    std::string description_; ///< from the record, when it was last shown
    std::string fabric_;
    QSize legendSize_;         ///< the size that the legend needed when it was last drawn
    bool isNamedFile_ = false; ///< the data tab has the title "File"
    bool placing_ = false;
};

} // namespace quandrel
