// SPDX-License-Identifier: MIT
//
// The classification dialog: classes of the rows of the active plot by their appended values, what
// a plot of numbers shows, and the statistics of the numbers.
//
// The dialog may stay open beside the plots and follow the active one. Everything in it is a copy,
// symbols of classes included, until OK or Apply.

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
    /// @param showPreferences  opens the preferences at a page; empty while there are none
    explicit frmDataClassification(QWidget* parent,
                                   std::function<void(int tab)> showPreferences = {});

    /// Shows gActivePlot. While the dialog is open, what was changed of the same plot and not
    /// applied yet stays as it is; a dialog that comes up begins anew.
    void FollowActivePlot();

    /// Enables what the appended columns and the choices so far allow, and tells why not.
    void EnableClassOptions();

    /// Classifies the plot by what the dialog shows.
    ///
    /// @return false when something is refused: then nothing has changed, and the user knows why
    bool Apply();

    void accept() override;

    std::array<QRadioButton*, 3> optDataClassif{};     ///< by the values of ClassKind
    std::array<QRadioButton*, 5> optClassifPlotType{}; ///< [ClassPlotType]
    std::array<QCheckBox*, 2> chkGridValues{};         ///< cumulative, mean
    QLineEdit* txtMinValue;
    std::array<QLabel*, 8> lblNumericStats{}; ///< [NumericStatsLabel]
    QLabel* lblValues;                        ///< how many rows have a value
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
    std::optional<double> background_; ///< in full, of shownBackground_
    int slot_ = 0;                     ///< the plot shown
    bool changed_ = false;             ///< controls differ from the plot
    bool loading_ = false;             ///< controls are being set by the program
};

} // namespace quandrel
