// SPDX-License-Identifier: MIT
//
// The dialog of the confidence regions of the active plot: what they are about, of which rows, by
// which method, and what came out. It stays open beside the plots and follows the active one. Each
// change in the dialog changes the plot at once.

#pragma once

#include "core/record_density_view.h"

#include <QDialog>

#include <array>
#include <cstddef>
#include <functional>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLayout;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

namespace quandrel {

class frmConfidenceRegions : public QDialog {
public:
    /// @param changed  called after each change of the plot
    explicit frmConfidenceRegions(QWidget* parent, std::function<void()> changed = {});

    /// Shows the regions of gActivePlot. Does nothing while the dialog is hidden.
    void FollowActivePlot();

    static constexpr std::size_t kParts = 3; ///< targets, and kinds of rows

    std::array<QCheckBox*, kParts> chkAbout{}; ///< bits of RegionsAboutCode, ascending
    std::array<QCheckBox*, kParts> chkOf{};    ///< bits of RegionsOfCode, ascending
    QComboBox* cboMethod;
    QComboBox* cboLevel;
    QSpinBox* spnResamples;
    QSpinBox* spnSeed;
    QCheckBox* chkDespite;
    QCheckBox* chkCloud;
    QPlainTextEdit* txtRegions;
    QPushButton* cmdCopy;
    QPushButton* cmdClose;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void MakeControls();
    [[nodiscard]] QGroupBox* MakeAbout();
    [[nodiscard]] QGroupBox* MakeMethod();
    [[nodiscard]] QGroupBox* MakeResult();
    void SetOrder();
    void Connect();
    void Refresh();
    void ShowChoice();
    void ShowMethods();
    void ShowOffer();
    void Change(const RecordRegions& regions);

    std::function<void()> changed_;
};

} // namespace quandrel
