// SPDX-License-Identifier: MIT
//
// The dialog of the statistical tests of the rows of plots: the tests of a set of rows of the
// active plot, or of that set and another one. It stays open beside the plots and follows the
// active one. It changes no plot.
//
// Tests that are simulated run at once where that takes hardly any time, else by the button. They
// can be stopped with Esc.

#pragma once

#include "hypotheses/test_form.h"

#include <QDialog>

#include <optional>
#include <vector>

class QComboBox;
class QGroupBox;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

namespace quandrel {

class PictureBox;

class frmStatisticalTests : public QDialog {
public:
    explicit frmStatisticalTests(QWidget* parent);

    /// Shows the tests of gActivePlot. Does nothing while the dialog is hidden.
    void FollowActivePlot();

    QComboBox* cboRows;
    QComboBox* cboWith; ///< the first entry is none
    QSpinBox* spnTries;
    QSpinBox* spnSeed;
    QPlainTextEdit* txtResults;
    PictureBox* picQuantiles; ///< hidden without quantile plots
    QPushButton* cmdSimulate;
    QPushButton* cmdExport;
    QPushButton* cmdCopy;
    QPushButton* cmdClose;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void MakeControls();
    [[nodiscard]] QGroupBox* MakeRows();
    [[nodiscard]] QGroupBox* MakeResults();
    void SetOrder();
    void Connect();
    void Refresh();
    void ShowSets();
    void ShowOthers();
    [[nodiscard]] TestQuestion Question() const;
    void Answer();
    void Run(bool simulates);
    void ShowAnswer();
    void DrawPicture();
    void ExportPicture();
    [[nodiscard]] QString Text() const;

    std::vector<RowSetEntry> sets_;   ///< as cboRows shows them
    std::vector<RowSetEntry> others_; ///< as cboWith shows them after none
    std::optional<TestRows> rows_;    ///< those of the tests shown
    TestChoice choice_;               ///< of the tests shown
    RowTests tests_;
    bool isRunning_ = false; ///< while tests run, which handle events
};

} // namespace quandrel
