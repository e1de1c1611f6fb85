// SPDX-License-Identifier: MIT
//
// The classification dialog: classes of the rows of the active plot by their appended values, the
// display of a plot of numbers, and the statistics of the numbers.
//
// The dialog can stay open beside the plots and follows the active plot. It edits copies, including
// the symbols of classes, until OK or Apply.

#pragma once

#include "classify/class_editing.h"

#include <QDialog>

#include <array>
#include <functional>
#include <optional>

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quandrel {

class ClassBoxes;

/// Indices of lblNumericStats.
enum NumericStatsLabel : std::size_t {
    kStatsMinimum = 0,
    kStatsMaximum = 1,
    kStatsMean = 2,
    kStatsDeviation = 3,
    kStatsMeansMin = 4,
    kStatsMeansMax = 5,
    kStatsSumsMin = 6,
    kStatsSumsMax = 7,
};

class frmDataClassification : public QDialog {
public:
    /// @param showPreferences  opens the preferences at a page; empty if there are none
    explicit frmDataClassification(QWidget* parent,
                                   std::function<void(int tab)> showPreferences = {});

    /// Shows gActivePlot. While the dialog is open, changes to the same plot that are not applied
    /// yet are kept. When the dialog opens, they are discarded.
    void FollowActivePlot();

    /// Enables the controls that the appended columns and the choices allow. Disabled controls show
    /// the reason.
    void EnableClassOptions();

    /// Classifies the plot with the settings of the dialog.
    ///
    /// @return false if a setting is refused: then nothing has changed, and the user has seen the
    ///         reason
    bool Apply();

    void accept() override;

    std::array<QRadioButton*, 3> optDataClassif{};     ///< by the values of ClassKind
    std::array<QRadioButton*, 5> optClassifPlotType{}; ///< [ClassPlotType]
    std::array<QCheckBox*, 2> chkGridValues{};         ///< cumulative, mean
    QLineEdit* txtMinValue;
    std::array<QLabel*, 8> lblNumericStats{}; ///< [NumericStatsLabel]
    QLabel* lblValues;                        ///< the number of rows with a value
    ClassBoxes* boxes;
    QPushButton* OKButton;
    QPushButton* CancelButton;
    QPushButton* cmdApply;
    QPushButton* cmdPreferences;

private:
    [[nodiscard]] QGroupBox* MakeKindBox();
    [[nodiscard]] QGroupBox* MakePlotTypeBox();
    [[nodiscard]] QGroupBox* MakeGridValuesBox();
    [[nodiscard]] QGroupBox* MakeNullValueBox();
    [[nodiscard]] QGroupBox* MakeStatsBox();
    [[nodiscard]] QHBoxLayout* MakeButtons();
    void AddFigure(QGridLayout& grid, std::size_t index, const char* caption, int line, int column);
    void Connect();

    void Load();
    void ShowStatistics();
    [[nodiscard]] ClassSettings SettingsOfControls() const;
    [[nodiscard]] bool ReadBackground(ClassSettings& settings);
    void OpenPreferences();

    std::function<void(int)> showPreferences_;
    QString shownBackground_;
    std::optional<double> background_; ///< in full precision, of shownBackground_
    int slot_ = 0;                     ///< the plot that is shown
    bool changed_ = false;             ///< the controls differ from the plot
    bool loading_ = false;             ///< the program is setting the controls
};

} // namespace quandrel
