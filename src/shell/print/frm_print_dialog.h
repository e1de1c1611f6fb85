// SPDX-License-Identifier: MIT
//
// The print layout dialog: places plots on a page at their printed size, and prints them.
//
// Boxes and sliders show the size and position of the plot that cboPlotName names, if it is on the
// page. Sliders count tenths of a millimetre. Centre boxes: 0 from the left, 1 from the top.
// optScale, cmdSelect and cmdOK have the indices 0 and 1 in the order of their captions.
//
// This is the chief header of the room.
// Input: open plots and the paper of the printer.
// Output: a layout to print/print_run, and the user's choice of printer (widget_printers.h).

#pragma once

#include "print/print_layout.h"
#include "print/print_run.h"

#include <QDialog>
#include <QPoint>

#include <array>
#include <memory>
#include <optional>
#include <vector>

class QComboBox;
class QFrame;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

namespace quandrel {

class frmPrintDialog : public QDialog {
public:
    /// Starts with the active plot, fitted to the page.
    explicit frmPrintDialog(QWidget* parent);
    ~frmPrintDialog() override;

    frmPrintDialog(const frmPrintDialog&) = delete;
    frmPrintDialog& operator=(const frmPrintDialog&) = delete;

    /// The layout that will be printed.
    [[nodiscard]] const PrintLayout& Layout() const { return layout_; }

    [[nodiscard]] bool IsPrinting() const { return run_ != nullptr; }

    void reject() override;

    QGroupBox* frmSelection = nullptr;
    QComboBox* cboPlotName = nullptr;
    std::array<QPushButton*, 2> cmdSelect{};
    QWidget* picPage = nullptr;
    std::vector<QLabel*> picPlotCircle; ///< by index in the layout; surplus circles are hidden
    std::vector<QLabel*> PlotNo;
    std::vector<QFrame*> shpLegend;
    QGroupBox* frmScaleBox = nullptr;
    std::array<QRadioButton*, 2> optScale{};
    QLineEdit* txtScale = nullptr;
    QSlider* sldScale = nullptr;
    QComboBox* cboScaleUnits = nullptr;
    std::array<QLineEdit*, 2> txtCentre{};
    std::array<QSlider*, 2> SldCentre{};
    std::array<QLabel*, 2> lblXY{};
    QLabel* lblCentre = nullptr;
    QLabel* lblOverEdge = nullptr; ///< names plots whose nets extend beyond the page
    QGroupBox* fraDestination = nullptr;
    QLabel* lblDefaultPrinter = nullptr;
    QLabel* lblPrinterName = nullptr;
    QLabel* lblOrientation = nullptr;
    QPushButton* cmdPrinterSetup = nullptr;
    std::array<QPushButton*, 2> cmdOK{};

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void MakeControls();
    [[nodiscard]] QWidget* MakePage();
    void MakeSelection();
    void MakeScale();
    void AddScaleChoice(QGridLayout& grid);
    void AddNumber(QGridLayout& grid, int row, QLabel* label, QLineEdit* box, QSlider* slider);
    void AddSize(QGridLayout& grid, int row);
    void AddUnits(QGridLayout& grid, int row);
    void AddCentre(QGridLayout& grid, int row);
    void MakeDestination();
    [[nodiscard]] QWidget* MakeButtons();
    void SetOrder();
    void Connect();

    void ListPlots();
    void ShowAll();
    void ShowPage();
    void ShowBoxes();
    void ShowSliders();
    void ShowDestination();
    void EnableControls();
    void AddPageMarks();
    void ShowMark(std::size_t index, double scale);

    [[nodiscard]] std::optional<std::size_t> Current() const;
    void SetCurrent(std::size_t index);
    void Select();
    void Remove();
    void TakeScaleBox();
    void TakeCentreBox(std::size_t box);
    void MoveByMouse(std::size_t index, QPoint position);
    [[nodiscard]] bool TakeMouse(std::size_t index, QEvent& event);
    void ChoosePrinter();
    void PrintOrStop();
    void PrintOn();
    void EndRun();

    PrintLayout layout_;
    std::unique_ptr<PrintRun> run_;
    QPoint grip_; ///< relative to the corner of the dragged circle
};

/// Shows the dialog, if there is an active plot and a printer or file to print to.
void ShowPrintDialog(QWidget* parent);

} // namespace quandrel
