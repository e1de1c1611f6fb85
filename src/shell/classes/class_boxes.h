// SPDX-License-Identifier: MIT
//
// The controls of classes that the classification and the rose dialog share: number of classes,
// procedures, limits or names, what is kept outside of them, and a patch with each class's style.
//
// The boxes edit copies of the settings and of the styles, made by Load from what the dialog gives;
// the plot and the style table change only when the dialog applies them. Procedures read
// gActivePlot. One page shows at a time: limits of the appended numbers, or the types. Alt keys
// taken: U, P, M, V.
//
// This is the chief header of the room. Enters: class settings and styles of the dialog that holds
// the boxes. Leaves: the edited copies, and signals that tell of each change and of a fault in a
// box.

#pragma once

#include "classify/class_editing.h"
#include "shell/styles/style_patch.h"

#include <QWidget>

#include <array>
#include <string>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace quandrel {

/// Indices of chkShowOthers.
enum ShowOthersBox : std::size_t {
    kLowNumbers = 0,
    kHighNumbers = 1,
    kLowTextNumbers = 2,
    kHighTextNumbers = 3,
    kOtherNames = 4,
};

class ClassBoxes : public QWidget {
    Q_OBJECT

public:
    /// @param patches  what the patches show and a click on one edits
    explicit ClassBoxes(StyleKind patches, QWidget* parent = nullptr);

    /// Shows settings and styles, under "Last Used". The kind is that of settings.mode; one whose
    /// column gActivePlot does not have counts as None.
    void Load(const ClassSettings& settings, const ClassStyles& styles);

    /// The settings as edited, the mode among them. Limits are in full precision.
    [[nodiscard]] const ClassSettings& Settings() const { return settings_; }

    /// Styles of classes 1 to 12 as edited.
    [[nodiscard]] const ClassStyles& Styles() const { return styles_; }

    void SetStyles(const ClassStyles& styles);

    /// What the plot is to show of its numbers. Limits that a procedure made are made anew where a
    /// grid has other values than the rows.
    void ChoosePlotType(std::int16_t plotType, ClassGridValue gridValue);

    /// What is classified by. None keeps the page before and disables it.
    void ChooseKind(ClassKind kind);

    [[nodiscard]] ClassKind Kind() const { return kind_; }

    /// The first box that holds no number gets the focus.
    ///
    /// @return what is wrong with it, empty when all is well
    [[nodiscard]] std::string GoToFault();

    /// Asks for the style of a class. Connected to PatchClicked.
    void ChooseStyle(int classNumber);

    std::array<QComboBox*, 2> cboNumClasses{}; ///< of numbers, of types
    QComboBox* cboRange;
    QComboBox* cboType;
    std::array<QLineEdit*, kLimitBoxes> txtRange{};     ///< lower and upper limit of each range
    std::array<QLineEdit*, kLimitBoxes> txtTypeRange{}; ///< the same of types that are numbers
    std::array<QLineEdit*, kMostNames> txtType{};
    QCheckBox* chkTypeNumeric;
    QCheckBox* chkCaseSensitive;
    std::array<QCheckBox*, 5> chkShowOthers{};         ///< [ShowOthersBox]
    std::array<StylePatch*, kClassLines> picPlotBox{}; ///< by line, see class_editing.h
    QLabel* lblRanges;
    QLabel* lblTypes;
    QLabel* lblClassNote; ///< what is odd about the classes

Q_SIGNALS:
    /// The user changed settings or styles.
    void Changed();

    /// A patch was clicked, or pressed by its key. `classNumber` from 1.
    void PatchClicked(int classNumber);

protected:
    void changeEvent(QEvent* event) override;

private:
    using LimitBoxes = std::array<QLineEdit*, kLimitBoxes>;

    /// What a box was given last.
    struct Given {
        QString text;
        double value = 0;
    };

    using GivenLimits = std::array<Given, kLimitBoxes>;

    /// Property of a box whose text is not a number.
    static constexpr const char* kFault = "isFault";

    /// The page of a kind: numbers first.
    [[nodiscard]] static std::size_t PlaceOf(ClassKind kind) {
        return kind == ClassKind::Types ? 1 : 0;
    }

    [[nodiscard]] static std::size_t At(int box) { return static_cast<std::size_t>(box); }

    [[nodiscard]] QWidget* MakeNumbersPage();
    [[nodiscard]] QWidget* MakeTypesPage();
    [[nodiscard]] QWidget* MakeLines();
    void MakeLimits(LimitBoxes& boxes, const char* name, QGridLayout& lines);
    void MakeNames(QGridLayout& lines);
    void MakeOthers(QGridLayout& lines);
    void MakePatches(QGridLayout& lines);
    void SetOrder();
    void ConnectProcedures();
    void ConnectLines();

    void ChooseRange(RangeProcedure procedure);
    void ChooseType(TypeProcedure procedure);
    void ChooseNumberOfRanges(int classes);
    void ChooseNumberOfTypes(int classes);
    void FillRangesAnew(RangeProcedure procedure, int classes);
    void FillTypesAnew(TypeProcedure procedure, int classes);
    void LimitEdited(ClassKind kind, int box);
    void NameEdited(int place);
    void OthersChanged(std::size_t index, bool isKept);
    void BecomeCustom();
    void MarkBox(QLineEdit& box, bool isFault);
    [[nodiscard]] LimitBoxes& BoxesOf(ClassKind kind);
    [[nodiscard]] QString TextOfLimit(ClassKind kind, int box);
    [[nodiscard]] QString LabelOfClass(int classNumber) const;

    void Refresh();
    void ShowLimit(ClassKind kind, int box);
    void ShowNeighbours(ClassKind kind, int box);
    void ShowPage();
    void ShowBoxes();
    void ShowLines();
    void ShowOthers();
    void ShowPatches();
    void ShowNote();
    void EnableBoxes();

    StyleKind patches_;
    std::array<QWidget*, 2> pages_{}; ///< of numbers, of types
    QWidget* lines_ = nullptr;
    std::array<QLabel*, kMostRanges> dashes_{};
    ClassSettings settings_;
    ClassSettings lastUsed_; ///< as loaded
    ClassStyles styles_{};
    ClassKind kind_ = ClassKind::None;
    ClassKind page_ = ClassKind::Numbers; ///< Numbers or Types
    RangeProcedure rangeProcedure_ = RangeProcedure::LastUsed;
    LimitForm numberForm_ = LimitForm::Plain;
    TypeProcedure typeProcedure_ = TypeProcedure::LastUsed;
    std::array<GivenLimits, 2> given_{}; ///< of numbers, of types
    bool hasNumericTypes_ = false;       ///< of the plot loaded
    bool loading_ = false;               ///< controls are being set by the program
};

} // namespace quandrel
