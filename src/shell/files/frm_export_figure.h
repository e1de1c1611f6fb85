// SPDX-License-Identifier: MIT
//
// The export of a plot: as a figure for print with a live preview, or as the window shows it. This
// dialog comes before the one for the path.

#pragma once

#include "core/plot.h"
#include "core/style_choice.h"
#include "qt/plot_picture.h"

#include <QDialog>
#include <QTemporaryDir>

#include <memory>
#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGroupBox;
class QLabel;
class QMimeData;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QTimer;

namespace quandrel {

/// What the pages of figures are as wide as; in the order of the list.
enum class FigureWidth { Column, HalfPage, Page, Slide, Free, Net };

class frmExportFigure : public QDialog {
public:
    /// @param plot  gActivePlot; it outlives the dialog
    frmExportFigure(QWidget* parent, Plot& plot);

    [[nodiscard]] PictureOptions Options() const;

    /// The style that was chosen, for later exports.
    [[nodiscard]] const StyleChoice& Style() const { return styles_[StyleIndex()]; }

    QRadioButton* optFigure;
    QRadioButton* optPart[2]; ///< the whole plot, the net alone
    QComboBox* cboStyle;
    QComboBox* cboWidth;
    QDoubleSpinBox* spnWidth;
    QComboBox* cboLegend;
    QSpinBox* spnDots;
    QSpinBox* spnSize;
    QCheckBox* chkTransparent;
    QCheckBox* chkData;
    QLabel* lblPreview;
    QLabel* lblNote; ///< the size of the page, or why there is no picture
    QPushButton* cmdOK;
    QPushButton* cmdCopy; ///< puts the figure on the clipboard

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakeControls();
    [[nodiscard]] QGroupBox* MakeKinds();
    [[nodiscard]] QGroupBox* MakeFigureBox();
    [[nodiscard]] QWidget* MakePreview();
    void FillStyles();
    void AddStyle(const StyleChoice& choice);
    void ChooseStyle(int index);
    void OpenStyleFile();
    void ChooseWidth();
    void EnableFields();
    void ShowSoon();
    void ShowPreview();
    [[nodiscard]] std::unique_ptr<QMimeData> Picture();
    void DragPicture();
    void CopyPicture();
    [[nodiscard]] std::size_t StyleIndex() const;
    [[nodiscard]] FigureExport Figure() const;

    Plot& plot_;
    std::vector<StyleChoice> styles_; ///< in the order of the list
    std::size_t style_ = 0;           ///< the one that was last chosen
    QTimer* timer_;
    QPoint pressedAt_;
    QTemporaryDir dragged_; ///< holds the picture that is dragged out
};

} // namespace quandrel
