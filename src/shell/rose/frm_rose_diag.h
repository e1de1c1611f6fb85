// SPDX-License-Identifier: MIT
//
// The rose dialog: shows and edits the rose settings of the active plot. It stays open beside the
// plots and follows the active one. Only GO changes a plot.
//
// The indices of control arrays are the values of the settings: optRoseType[kind],
// optRoseClassif[class], optRoseOptions[shape], optHistStyle[style], optSegShape[shape],
// optBias[mode], txtBias[BiasBox]; optScale is in the order of its captions, circles first.
//
// This is the chief header of the room.
// Input: the rose settings of the active plot.
// Output: settings to rose/rose_go at GO, and marks on invalid boxes.

#pragma once

#include "rose/rose_choices.h"
#include "rose/rose_go.h"

#include <QDialog>

#include <array>
#include <functional>
#include <optional>
#include <string>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QTabWidget;

namespace quandrel {

class ClassBoxes;

/// Pages of tabRose, and positions in tabFrameRose.
enum RosePage : int {
    kRoseTypePage = 0,
    kRoseSectorPage = 1,
    kRoseStylePage = 2,
    kRoseBiasPage = 3,
    kRoseClassPage = 4,
};

class frmRoseDiag : public QDialog {
public:
    /// @param showPreferences  opens the preferences at a page; empty if there are none
    explicit frmRoseDiag(QWidget* parent, std::function<void(int tab)> showPreferences = {});

    frmRoseDiag(const frmRoseDiag&) = delete;
    frmRoseDiag& operator=(const frmRoseDiag&) = delete;

    /// Shows the settings of gActivePlot. Changes to the same plot that are not plotted yet are
    /// kept.
    void FollowActivePlot();

    /// Enables and explains the bias corrections and the boxes of their sampling line.
    void SetBiasOptButtons();

    /// Enables the controls that depend on the classes: their boxes, and the shape of their
    /// segments.
    void EnableRoseClassifControls();

    /// Enables the kinds and classes that the plot has data for.
    void EnableRoseClassifOptions();

    /// Plots the rose. A refused value is marked, and the status line shows the reason.
    void Go();

    QTabWidget* tabRose = nullptr;
    std::array<QWidget*, 5> tabFrameRose{};
    std::array<QRadioButton*, 9> optRoseType{};
    std::array<QRadioButton*, 3> optRoseClassif{};
    std::array<QRadioButton*, 5> optRoseOptions{};
    QComboBox* cboNumSectors = nullptr;
    QLineEdit* txtRoseSectSize = nullptr;
    QSlider* sldRoseSectSize = nullptr;
    QLabel* lblCheckSectorSize = nullptr;
    QLineEdit* txtRoseStartAz = nullptr;
    QSlider* sldRoseStartAz = nullptr;
    QCheckBox* chkRoseWeight = nullptr;
    std::array<QRadioButton*, 4> optHistStyle{};
    std::array<QRadioButton*, 2> optSegShape{};
    QLineEdit* txtSectorWidth = nullptr;
    QSlider* sldrSectorWidth = nullptr;
    QLineEdit* txtZeroCircle = nullptr;
    QSlider* sldrZeroCircle = nullptr;
    std::array<QRadioButton*, 2> optScale{};
    QComboBox* cboScaleInt = nullptr;
    QCheckBox* chkRoseOuterCircle = nullptr;
    QGroupBox* fraBias = nullptr;
    std::array<QRadioButton*, 4> optBias{};
    std::array<QLabel*, 3> lblBias{};
    std::array<QLineEdit*, 3> txtBias{};
    QCheckBox* chkBiasAppended = nullptr;
    QLabel* lblBiasLine = nullptr;
    ClassBoxes* classBoxes = nullptr;
    QLabel* lblRoseStatus = nullptr;
    QPushButton* cmdRoseGo = nullptr;
    QPushButton* cmdPreferences = nullptr;
    QPushButton* cmdClose = nullptr;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakePages();
    [[nodiscard]] QWidget* MakeTypePage();
    [[nodiscard]] QWidget* MakeSectorPage();
    [[nodiscard]] QGroupBox* MakeSizeBox();
    [[nodiscard]] QGroupBox* MakeStartBox();
    [[nodiscard]] QWidget* MakeStylePage();
    [[nodiscard]] QGroupBox* MakeScaleBox();
    [[nodiscard]] QWidget* MakeBiasPage();
    [[nodiscard]] QGroupBox* MakeSampleLineBox();
    [[nodiscard]] QWidget* MakeClassPage();
    [[nodiscard]] QWidget* MakeButtonLine();
    void SetOrder();

    void ConnectChoices();
    void ConnectSectors();
    void ConnectScaleAndBias();
    void ConnectButtons();
    void Tie(QSlider& slider, QLineEdit& box);

    void Load();
    void LoadSectors(const RoseSettings& settings);
    void LoadBias(const RoseSettings& settings);
    [[nodiscard]] RoseSettings SettingsOfControls() const;
    [[nodiscard]] RoseChoices Choices() const;

    void Changed();
    void KindChosen();
    void BiasChosen();
    void ClassesEdited();
    [[nodiscard]] static double NumberIn(const QString& text);
    static void ShowOnSlider(QSlider& slider, double value);
    void ShowSectorSize(double size, const QWidget* source);
    void CorrectBiasBox(BiasBox box);
    void FollowFault();
    void Mark(RoseField field, const std::string& reason);
    void ColourMark();
    void ClearMark();
    void SetStatus(const QString& text);
    [[nodiscard]] QWidget* BoxOf(RoseField field) const;

    std::function<void(int tab)> showPreferences_;
    int slot_ = 0;
    int fault_ = kNoRoseFault;
    // Numbers that their boxes may show rounded. They keep full precision until the user types
    // others. NaN means a text that is not a number.
    double sectorSize_ = 10; ///< degrees
    double startAngle_ = 0;  ///< degrees
    std::optional<double> interval_;
    QWidget* marked_ = nullptr; ///< the box with the refused value
    bool changed_ = false;      ///< the controls differ from the plot
    bool loading_ = false;      ///< the program is setting the controls
};

} // namespace quandrel
