// SPDX-License-Identifier: MIT
//
// The symbol picker: symbol, colour and size of one style, or of the two of downward and upward
// lines; for roses, fill and colour.
//
// The left mouse button chooses the downward style, the right one the upward style; keys choose the
// style whose option is selected. The picker works on copies; the caller applies the choice.
//
// This is the chief header of the room: patches and buttons that show a style, and the choice of a
// style.
// Input: a style of the table.
// Output: the style that the user chose, or nothing on Cancel.

#pragma once

#include "core/style_tables.h"
#include "shell/styles/style_patch.h"
#include "stereo/symbols.h"

#include <QDialog>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

class QButtonGroup;
class QGroupBox;
class QRadioButton;
class QSlider;
class QSpinBox;

namespace quandrel {

inline constexpr int kPickedSymbols = kLastTableSymbol + 1; ///< codes 0 to kLastTableSymbol
inline constexpr int kPickedFills = 8;                      ///< fill styles 0 to 7
inline constexpr int kLargestSymbolSize = 20;

/// The name of a symbol code from 0 to kPickedSymbols - 1.
[[nodiscard]] QString NameOfSymbol(int code);

/// The name of a fill style from 0 to kPickedFills - 1.
[[nodiscard]] QString NameOfFill(int pattern);

/// Checks the cell of a value, or none for a value without a cell. Tab enters at that cell.
void CheckCell(QButtonGroup& cells, int value);

/// The style that the picker asks for.
struct StyleQuestion {
    QString title; ///< what the style applies to
    StyleKind kind = StyleKind::Symbol;
    SymbolRow down{};            ///< the style, or that of downward lines
    std::optional<SymbolRow> up; ///< of upward lines, if they have their own
};

class frmSymbolSelect : public QDialog {
public:
    frmSymbolSelect(const StyleQuestion& question, QWidget* parent);

    [[nodiscard]] std::int16_t DownSymbolColourIndex() const { return rows_[0][kPlaceColour]; }

    [[nodiscard]] std::int16_t DownSymbolShape() const { return rows_[0][kPlaceSymbol]; }

    [[nodiscard]] std::int16_t DownSymbolSize() const { return rows_[0][kPlaceSize]; }

    [[nodiscard]] std::int16_t UpSymbolColourIndex() const { return rows_[1][kPlaceColour]; }

    [[nodiscard]] std::int16_t UpSymbolShape() const { return rows_[1][kPlaceSymbol]; }

    [[nodiscard]] std::int16_t UpSymbolSize() const { return rows_[1][kPlaceSize]; }

    [[nodiscard]] const SymbolRow& Down() const { return rows_[0]; }

    /// Equal to the initial style if only one style was asked for.
    [[nodiscard]] const SymbolRow& Up() const { return rows_[1]; }

    std::vector<StylePatch*> picSymbolTypes; ///< by symbol code, or fill style
    std::array<StylePatch*, kColourCount> picColour{};
    std::array<QRadioButton*, 2> optSymbol{}; ///< down, up
    std::array<StylePatch*, 2> picCurrentSymbol{};
    QSlider* sldSymbSize;
    QSpinBox* spnSymbSize;

private:
    [[nodiscard]] QGroupBox* MakeSamples(const StyleQuestion& question);
    [[nodiscard]] QGroupBox* MakeTypes();
    [[nodiscard]] QGroupBox* MakeColours();
    [[nodiscard]] QGroupBox* MakeSizes();
    void Connect();

    void Choose(SymbolPlace place, int value, Qt::MouseButton button);
    void SetSize(int size);
    void ShowChoice();

    StyleKind kind_;
    bool hasUp_;
    std::array<SymbolRow, 2> rows_{}; ///< down, up
    std::size_t current_ = 0;         ///< the style that the keys change
    QButtonGroup* types_;
    QButtonGroup* colours_;
};

/// The choice made in the picker.
struct ChosenStyles {
    SymbolRow down{};
    SymbolRow up{}; ///< the initial style if only one style was asked for
};

/// Shows the picker.
///
/// @return the new styles, nothing on Cancel
[[nodiscard]] std::optional<ChosenStyles> AskStyle(const StyleQuestion& question, QWidget* parent);

} // namespace quandrel
