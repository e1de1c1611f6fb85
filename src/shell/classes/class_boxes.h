// SPDX-License-Identifier: MIT
//
// The class controls that the classification dialog and the rose dialog share: number of classes,
// procedures, limits or names, options that are stored outside the class settings, and a patch that
// shows the style of each class.
//
// The boxes edit copies of the settings and styles that the dialog passes to Load. The plot and the
// style table change only when the dialog applies the copies. Procedures read gActivePlot. One page
// is visible at a time: the limits of the appended numbers, or the types. Alt keys in use: U, P, M,
// V.
//
// This is the chief header of the room.
// Input: class settings and styles of the dialog that contains the boxes.
// Output: the edited copies, and signals for each change and for an invalid text in a box.

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
    /// @param patches  what the patches show, and what a click on a patch edits
    explicit ClassBoxes(StyleKind patches, QWidget* parent = nullptr);

    /// Shows settings and styles under "Last Used". The kind follows from settings.mode. If
    /// gActivePlot does not have the column of that kind, the kind is None.
    void Load(const ClassSettings& settings, const ClassStyles& styles);

    /// The edited settings, including the mode. Limits have full precision.
    [[nodiscard]] const ClassSettings& Settings() const { return settings_; }

    /// The edited styles of classes 1 to 12.
    [[nodiscard]] const ClassStyles& Styles() const { return styles_; }

    void SetStyles(const ClassStyles& styles);

    /// What the plot shows of its numbers. If a procedure made the limits and a grid has other
    /// values than the rows, the limits are calculated again.
    void ChoosePlotType(std::int16_t plotType, ClassGridValue gridValue);

    /// Sets the kind of classification. None keeps the previous page and disables it.
    void ChooseKind(ClassKind kind);

    [[nodiscard]] ClassKind Kind() const { return kind_; }

    /// Gives the focus to the first box with an invalid number.
    ///
    /// @return what is wrong with it, empty if all boxes are valid
    [[nodiscard]] std::string GoToFault();

    /// Asks for the style of a class. Connected to PatchClicked.
    void ChooseStyle(int classNumber);

    std::array<QComboBox*, 2> cboNumClasses{}; ///< for numbers, for types
    QComboBox* cboRange;
    QComboBox* cboType;
    std::array<QLineEdit*, kLimitBoxes> txtRange{};     ///< lower and upper limit of each range
    std::array<QLineEdit*, kLimitBoxes> txtTypeRange{}; ///< the same for numeric types
    std::array<QLineEdit*, kMostNames> txtType{};
    QCheckBox* chkTypeNumeric;
    QCheckBox* chkCaseSensitive;
    std::array<QCheckBox*, 5> chkShowOthers{};         ///< [ShowOthersBox]
    std::array<StylePatch*, kClassLines> picPlotBox{}; ///< by line, see class_editing.h
    QLabel* lblRanges;
    QLabel* lblTypes;
    QLabel* lblClassNote; ///< a note about unusual classes

Q_SIGNALS:
    /// The user changed settings or styles.
    void Changed();

    /// A patch was clicked, or pressed by its key. `classNumber` from 1.
    void PatchClicked(int classNumber);

protected:
    void changeEvent(QEvent* event) override;

private:
    using LimitBoxes = std::array<QLineEdit*, kLimitBoxes>;

    /// The last values that were set in a box.
    struct Given {
        QString text;
        double value = 0;
    };

    using GivenLimits = std::array<Given, kLimitBoxes>;

    /// The property of a box whose text is not a number.
    static constexpr const char* kFault = "isFault";

    /// The page of a kind; numbers come first.
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
    std::array<QWidget*, 2> pages_{}; ///< for numbers, for types
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
    std::array<GivenLimits, 2> given_{}; ///< for numbers, for types
    bool hasNumericTypes_ = false;       ///< of the loaded plot
    bool loading_ = false;               ///< the program is setting the controls
};

} // namespace quandrel
