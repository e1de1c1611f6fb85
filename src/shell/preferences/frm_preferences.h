// SPDX-License-Identifier: MIT
//
// The preferences: how plots look, and the program's general options.
//
// The dialog works on a copy (preferences/preferences.h), which also determines how all samples
// look. OK applies the copy, Cancel discards it.
//
// This is the chief header of the room.
// Input: the settings as a copy.
// Output: the copy to ApplyPreferences at OK; nothing at Cancel.

#pragma once

#include "core/style_tables.h"
#include "preferences/preferences.h"
#include "preferences/style_samples.h"
#include "shell/styles/style_patch.h"

#include <QDialog>
#include <QString>

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <vector>

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFont;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QSpinBox;
class QTabWidget;
class QVBoxLayout;

namespace quandrel {

class PictureBox;
class SampleButton;

enum PreferencesTab : int {
    kSymbolsPage = 0,
    kLinesPage = 1,
    kRosesPage = 2,
    kPlotStylePage = 3,
    kFontsPage = 4,
    kGeneralPage = 5,
};

/// A style that a page can change.
struct StyleSlot {
    enum class Table {
        Symbol,  ///< a row of gSymbolTable
        Axis,    ///< a row of gAxisStyleTable
        Contour, ///< a row of gSettings.styles.contours
        Blank,   ///< the colour of the blank parts of a rose
        Outline, ///< the colour of the outlines of petals
    };
    Table table = Table::Symbol;
    std::size_t row = 0;

    friend auto operator<=>(const StyleSlot&, const StyleSlot&) = default;
};

/// The slot of a row of gSymbolTable.
[[nodiscard]] constexpr StyleSlot SymbolSlot(int row) {
    return {StyleSlot::Table::Symbol, static_cast<std::size_t>(row)};
}

class frmPreferences : public QDialog {
public:
    frmPreferences(QWidget* parent, int tab);

    /// The preferences as the controls show them.
    [[nodiscard]] Settings Choice() const;

    /// True if the settings are also saved.
    [[nodiscard]] bool IsSaveWanted() const;

    QTabWidget* tabPreferences = nullptr;
    std::array<QPushButton*, 5> cmdOK{}; ///< OK, Cancel, Defaults, Help, more colours
    QCheckBox* chkSaveSettings = nullptr;
    QSlider* sldSymbSize = nullptr;
    QSpinBox* spnSymbSize = nullptr;
    QSlider* sldLineWidth = nullptr;
    QSpinBox* spnLineWidth = nullptr;
    PictureBox* picLineBox = nullptr;
    PictureBox* picPlotBox = nullptr;
    QCheckBox* chkRoseOuterCircle = nullptr;
    QCheckBox* chkShowCompass = nullptr;
    QCheckBox* chkShowNorth = nullptr;
    QLineEdit* txtPlotSize = nullptr;
    QCheckBox* chkPlotLast = nullptr;
    QComboBox* cboPlotAspect = nullptr;
    std::array<QLineEdit*, 10> txtFontBox{};
    std::array<QPushButton*, 10> cmdFont{};
    std::array<QPushButton*, 10> cmdFontColour{};
    std::array<QPushButton*, 2> cmdPlotColour{}; ///< background, axes and circle
    QLineEdit* txtNumPlots = nullptr;
    QLineEdit* txtDirectory = nullptr;
    QPushButton* cmdDirectory = nullptr;
    QCheckBox* chkUseLastDirectory = nullptr;
    std::array<QRadioButton*, 2> optPitchName{};
    std::array<QRadioButton*, 2> optFormulas{}; ///< the program's own, or those of textbooks
    QComboBox* cboNewPlotStyle =
        nullptr; ///< the standard styles, then that of a file if it is in use
    QCheckBox* chkUseDecimals = nullptr; ///< in new plots
    QCheckBox* chkDecimalConv = nullptr;
    QCheckBox* chkSaveLinesOption = nullptr;
    QCheckBox* chkIsolatedPts = nullptr;

    /// Asks for a colour, given the initial colour and a title. Nothing on Cancel.
    std::function<std::optional<Colour>(Colour, const QString&)> askColour;

    /// Asks for a font. Nothing on Cancel.
    std::function<std::optional<QFont>(const QFont&)> askFont;

    /// Asks for a folder, given the initial one; empty is that of the last file. Nothing on Cancel.
    std::function<std::optional<QString>(const QString&)> askFolder;

    /// Shows a text with a title.
    std::function<void(const QString&, const QString&)> showText;

private:
    /// The purpose of the cells of a page.
    enum class Part { Colour, Shape, Size };

    void UseOwnDialogs();
    [[nodiscard]] QGroupBox* MakePalette();
    void NameColours();
    void MakeButtons();
    void Connect();

    // Symbols, lines and roses
    [[nodiscard]] QWidget* MakeSymbolsPage();
    [[nodiscard]] QWidget* MakeLinesPage();
    [[nodiscard]] QWidget* MakeRosesPage();
    [[nodiscard]] QWidget* MakeSymbolArray();
    void AddSymbol(QGridLayout& grid, int row, int line, int column, const QString& text);
    void AddSymbolPairs(QGridLayout& grid);
    void AddOverlaySymbols(QGridLayout& grid);
    void AddBandSymbols(QGridLayout& grid);
    void AddBetaSymbol(QGridLayout& grid);
    void AddClassSymbols(QGridLayout& grid);
    [[nodiscard]] QGroupBox* MakeTypes();
    [[nodiscard]] QGroupBox* MakeSizes();
    [[nodiscard]] QWidget* MakeLineSamples();
    [[nodiscard]] QGroupBox* MakeLineStyles();
    [[nodiscard]] QWidget* MakeRoseSlots();
    void AddRoseSlots(QGridLayout& grid);
    void AddRoseClassSlots(QGridLayout& grid, int line);
    [[nodiscard]] QGroupBox* MakePatterns();
    [[nodiscard]] StylePatch* MakeSlot(PreferencesTab page, const StyleSlot& slot,
                                       const QString& name, const QString& text);
    [[nodiscard]] SampleButton* MakeLineSlot(const StyleSlot& slot, const QString& name,
                                             const QString& text);
    void AddSlot(PreferencesTab page, QAbstractButton& sample, const StyleSlot& slot,
                 const QString& name, const QString& text);
    void PickSlot(const StyleSlot& slot);
    void Choose(Part part, int value, Qt::MouseButton button);
    [[nodiscard]] std::optional<StyleSlot> UpwardSlotOf(const StyleSlot& slot) const;
    [[nodiscard]] std::int16_t* PlaceOf(const StyleSlot& slot, Part part);
    [[nodiscard]] SymbolRow StyleOf(const StyleSlot& slot) const;
    [[nodiscard]] std::optional<StyleSlot> CurrentSlot() const;
    void PickInRoses(double across, double down);
    void ReplaceColour();

    // Plot style, fonts, general
    [[nodiscard]] QWidget* MakePlotStylePage();
    [[nodiscard]] QGroupBox* MakeNetStyles();
    [[nodiscard]] QGroupBox* MakeRoseStyles();
    [[nodiscard]] QGroupBox* MakeWindowSizes();
    void AddPlotColours(QGridLayout& grid, int line);
    [[nodiscard]] QWidget* MakeFontsPage();
    void AddFont(QGridLayout& grid, int line, std::size_t font, const QString& caption);
    [[nodiscard]] QLayout* MakePlotCount();
    [[nodiscard]] QGroupBox* MakePitchBox();
    [[nodiscard]] QLayout* MakeStyleOfNewPlots();
    void ShowNewPlotStyle();
    [[nodiscard]] StyleChoice NewPlotStyle() const;
    void AddGeneralChecks(QVBoxLayout& layout);
    [[nodiscard]] QWidget* MakeGeneralPage();
    [[nodiscard]] QGroupBox* MakeFolderBox();
    [[nodiscard]] QGroupBox* MakeFormulasBox();
    void ChooseFont(std::size_t font);
    void ChooseFontColour(std::size_t font);
    void ChoosePlotColour(std::size_t which);
    void ChooseFolder();
    void ShowHelp();

    void Load();
    void ShowSlots();
    void ShowSamples();
    void CheckSample(const StyleSlot& current);
    void ShowCells(const StyleSlot& current);
    void ShowWidth(int width);
    void ShowFonts();
    void ShowFolder();
    void DrawPictures();
    Settings now_;
    std::array<std::optional<StyleSlot>, 3> current_; ///< of the first three pages
    std::map<QAbstractButton*, StyleSlot> slots_;     ///< of each sample that can be selected
    std::array<QButtonGroup*, 3> samples_{};          ///< the samples of the first three pages
    QGroupBox* palette_ = nullptr;
    QButtonGroup* colours_ = nullptr;
    QButtonGroup* types_ = nullptr;
    QButtonGroup* lineStyles_ = nullptr;
    QButtonGroup* patterns_ = nullptr;
    QButtonGroup* netStyles_ = nullptr;
    QButtonGroup* roseStyles_ = nullptr;
    SampleWedges roses_;
};

/// Applies the chosen fonts to the status line of the main window and its box of orientations.
void UseInfoFonts(QLabel& infoLine, QLabel& orientationBox);

/// Shows the preferences at a page, and applies them on OK: all open plots are redrawn.
///
/// @param tab  a PreferencesTab
/// @return false on Cancel
bool ShowPreferences(QWidget* parent, int tab);

} // namespace quandrel
