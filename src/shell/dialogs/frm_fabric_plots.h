// SPDX-License-Identifier: MIT
//
// The window of fabric plots: the diagram of log ratios, the triangle of shares, or both, of the
// active plot, its overlays and classes, or of all open plots, with the values in a table. It stays
// open beside the plots and follows them. It changes no plot.

#pragma once

#include "fabric/draw_fabric.h"

#include <QDialog>

#include <array>
#include <cstddef>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace quandrel {

class PictureBox;

class frmFabricPlots : public QDialog {
public:
    explicit frmFabricPlots(QWidget* parent);

    /// Shows the fabrics of gActivePlot, or of all open plots. Does nothing while the window is
    /// hidden.
    void FollowActivePlot();

    static constexpr std::size_t kKinds = 3; ///< kinds of diagrams, and of rows

    std::array<QRadioButton*, kKinds> optDiagram{}; ///< by FabricDiagram
    std::array<QCheckBox*, kKinds> chkOf{};         ///< bits of RegionsOfCode, ascending
    QCheckBox* chkAllPlots;
    PictureBox* picFabric;
    QTableWidget* tblFabrics;
    QLabel* lblNote;
    QPushButton* cmdCopyTable;
    QPushButton* cmdCopyPicture;
    QPushButton* cmdExport;
    QPushButton* cmdClose;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void MakeControls();
    void MakeTable();
    [[nodiscard]] QLayout* MakeChoice();
    [[nodiscard]] QLayout* MakeButtons();
    void SetOrder();
    void Connect();
    [[nodiscard]] FabricDiagram Diagram() const;
    [[nodiscard]] std::vector<Plot*> Plots() const;
    void Refresh();
    void ShowOffer(const std::vector<Plot*>& plots);
    void ShowTable();
    void DrawPicture();
    void Export();

    QButtonGroup* diagrams_;
    std::vector<FabricPoint> points_;
};

} // namespace quandrel
