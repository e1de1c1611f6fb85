// SPDX-License-Identifier: MIT
//
// The dialog of the densities of the active plot: method, unit, levels, picture, envelope and
// maxima. It stays open beside the plots and follows the active one. Each change in the dialog
// changes the plot at once; all steps of a slider that is dragged are undone together.

#pragma once

#include "core/record_density_view.h"
#include "density/density_form.h"
#include "density/maxima_table.h"
#include "platform/surface.h"

#include <QDialog>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QTableWidget;

namespace quandrel {

class PlotDensity;

class frmDensities : public QDialog {
public:
    /// @param changed      called after each change of the plot; once for a slider that is dragged
    /// @param markChanged  called when another maximum is to be marked on the net
    /// @param toNet        called when the user goes to the plot of the marked maximum
    explicit frmDensities(QWidget* parent, std::function<void()> changed = {},
                          std::function<void()> markChanged = {}, std::function<void()> toNet = {});

    /// Shows the densities of gActivePlot. Does nothing while the dialog is hidden.
    void FollowActivePlot();

    /// Whether a maximum is marked on the net.
    [[nodiscard]] bool HasMark() const { return marked_ >= 0; }

    /// Draws the mark above the picture of the active plot.
    void DrawMark(Surface& surface) const;

    QGroupBox* fraMethod;
    QComboBox* cboMethod;
    QSlider* sldK; ///< tenths
    QLineEdit* txtK;
    QLabel* lblCone;
    QLabel* lblNarrow;
    QPushButton* cmdWiderK;
    QSlider* sldWidth; ///< half degrees
    QLineEdit* txtWidth;
    QCheckBox* chkAutomatic;
    QComboBox* cboUnit;
    QGroupBox* fraLevels;
    std::array<QRadioButton*, 3> optLevels{}; ///< by LevelRuleCode
    QLineEdit* txtStep;
    QLineEdit* txtLevels;
    QGroupBox* fraPicture;
    std::array<QRadioButton*, 3> optPicture{}; ///< by ContourPictureCode
    QComboBox* cboPalette;
    QCheckBox* chkReversed;
    QSlider* sldOpacity; ///< per cent
    QLabel* lblOpacity;
    QGroupBox* fraMaxima;
    QCheckBox* chkEnvelope;
    QCheckBox* chkMaxima;
    QTableWidget* tblMaxima;
    QPushButton* cmdCopy;
    QLabel* lblNote;
    QPushButton* cmdContours;
    QPushButton* cmdClose;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    using View = RecordDensityView;

    void MakeControls();
    [[nodiscard]] QGroupBox* MakeMethod();
    [[nodiscard]] QGroupBox* MakeLevels();
    [[nodiscard]] QGroupBox* MakePicture();
    [[nodiscard]] QGroupBox* MakeMaxima();
    [[nodiscard]] QLayout* MakeBelow();
    void SetOrder();
    void Connect();
    void ConnectChecks();
    void ConnectButtons();
    void ConnectMaxima();
    void ConnectTexts();
    void ConnectSlider(QSlider& slider, std::function<void(View&, int)> give);
    void ConnectText(QLineEdit& box, std::function<std::string(View&, std::string_view)> give);

    void Refresh();
    void ShowOffer();
    void ShowMethod();
    void ShowUnits();
    void ShowTexts();
    void ShowPicture();
    void ShowSamples();
    void ShowMaxima();
    void ShowNote();

    [[nodiscard]] static const PlotDensity* Density(); ///< of the active plot; null without
    [[nodiscard]] static double WidthFound();          ///< of its kernel, degrees
    [[nodiscard]] bool HasPlot() const;
    [[nodiscard]] View Now() const; ///< of the plot, with the envelope that a drag hides
    void Change(const View& view);
    void ChangeBy(QSlider& slider, const View& view);
    void EndDrag();
    void ShowVerdict(QLineEdit& box, const std::string& refusal);
    void Mark(int row);
    void GoToNet() const;
    void SayChanged() const;

    std::function<void()> changed_;
    std::function<void()> markChanged_;
    std::function<void()> toNet_;
    int slot_ = 0; ///< the plot that is shown
    View shown_;   ///< its choice
    DensityOffer offer_;
    const QSlider* run_ = nullptr;        ///< the slider whose steps go on
    bool hidesEnvelope_ = false;          ///< until the slider is released
    std::optional<std::int16_t> sampled_; ///< the order of the palettes' samples
    std::string refused_;                 ///< why the text that was typed last is refused
    std::vector<DensityMaximum> maxima_;
    std::string maximaText_;
    int marked_ = -1; ///< row of the table
};

} // namespace quandrel
