// SPDX-License-Identifier: MIT
//
// The data format dialog: the contents of a data file, and the notation of its orientations.
//
// The dialog holds a FormatChoice and shows it; the rules are in input/format_choice.h. The format
// globals change on OK only. The indices of control arrays are the codes of the format:
// optPrimary[1] to [3], optPlaneConv[1] to [6], cmdDataType[1] to [3], optLineConv[1] for trend
// first. optSecondary is in the order of its captions.
//
// This is the chief header of the room.
// Input: the first lines of a file and the current format.
// Output: the format that the user accepted, in the globals and as an answer to the prompt.

#pragma once

#include "core/style_tables.h"
#include "input/format_choice.h"
#include "input/format_preview.h"
#include "input/suggest/format_suggestion.h"
#include "platform/prompts.h"
#include "platform/surface.h"

#include <QDialog>

#include <array>
#include <span>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QVBoxLayout;

namespace quandrel {

class FormatGrid;
class PictureBox;
class SampleNet;
class SuggestionLine;

class frmFileFormat : public QDialog {
public:
    frmFileFormat(const FormatQuestion& question, QWidget* parent);

    /// The settings that a load takes from the accepted dialog in addition to the globals.
    [[nodiscard]] FormatAnswer Answer() const;

    /// Whether the secondary set is plotted.
    [[nodiscard]] bool PlotSecondary() const;

    /// The line of column headings, or empty.
    [[nodiscard]] std::string HeaderString() const;

    [[nodiscard]] std::string AppendedNumericName() const;
    [[nodiscard]] std::string AppendedNonNumericName() const;

    /// Updates options and boxes from the choice.
    void InitialiseOptButtons();

    /// Names and enables all controls that depend on the format.
    void CheckCombos();

    /// Names and enables the selectors of the primary set.
    void SetPrimaryCombos();

    /// Names and enables the selectors of the secondary set.
    void SetSecondaryCombos();

    /// Shows warnings about the format, if there are any.
    void CheckMisMatch();

    /// Splits the lines again.
    void DelimiterChanged();

    /// Takes the columns from the selectors.
    void StoreColumns();

    /// Fills the lists of the selectors with the columns of the file.
    void ResetColumnCombos();

    /// Sets the selectors to the columns.
    void LoadColumnCombos();

    /// Restores the saved column settings.
    void LoadSavedSettings();

    /// Puts the columns in the order of the format.
    void SetInitialColumns();

    /// Reports errors in the columns, and asks about unusual settings.
    /// @return false if the dialog must stay open
    [[nodiscard]] bool CheckColumnValidity();

    /// Fills the preview.
    void SetDataGrid();

    /// The convention code of the chosen options.
    [[nodiscard]] std::int16_t SetConventions() const;

    /// Stores the choice in the format globals.
    void SetGlobalSettings();

    void accept() override;

    QTabWidget* tabConventions;
    std::array<QRadioButton*, 4> optPrimary{}; ///< from index 1
    std::array<QRadioButton*, 6> optSecondary{};
    std::array<QComboBox*, kColumnSlots> cboColumns{};
    std::array<QLabel*, kColumnSlots> lblColumns{};
    std::array<QComboBox*, 2> cboPlace{}; ///< x, y on the map; the first entry is none
    std::array<QCheckBox*, 3> chkAppended{};
    QCheckBox* chkFreqIsAppended;
    std::array<QComboBox*, 2> cboAppName{};
    QComboBox* cboDelim;
    QComboBox* cboTable; ///< the sheets or layers of a file with several
    QLabel* lblTable;
    QCheckBox* chkTableHeadings;
    std::array<QCheckBox*, 3> chkSaveSettings{}; ///< columns, conventions, names
    QPushButton* cmdUseSaved;
    QPushButton* cmdInitialColumns;
    SuggestionLine* fraSuggestion = nullptr;
    SampleNet* netSample = nullptr;
    std::array<QCheckBox*, 3> chkComments{}; ///< "#", "%", "//"
    QCheckBox* chkPairs = nullptr;
    std::array<QRadioButton*, 7> optPlaneConv{}; ///< from index 1
    std::array<QLabel*, 7> lblPlaneSample{};     ///< an example of each, from index 1
    std::array<QRadioButton*, 2> optLineConv{};
    std::array<QRadioButton*, 2> optDirnConv{};
    std::array<QRadioButton*, 2> optNegativePlunge{}; ///< lower end, the end that it points to
    std::array<QComboBox*, 2> cboSeparator{};         ///< planes, lines
    std::array<QPushButton*, 4> cmdDataType{};        ///< from index 1
    QCheckBox* chkSecondaryData;
    std::array<PictureBox*, 2> picCurrentSymbol{};
    std::array<QLabel*, 2> lblUpSymbol{};
    FormatGrid* grdDataFormat = nullptr;
    QLabel* lblDataMismatch;
    QLabel* lblMismatchReasons;
    std::array<QLabel*, 2> lblOtherData{};
    QLabel* lblConventions;
    QLabel* lblPreview;
    std::array<QPushButton*, 4> cmdButtons{}; ///< OK, Cancel, Defaults, Change

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakePages();
    [[nodiscard]] QWidget* MakeColumnsPage();
    [[nodiscard]] QGroupBox* MakePrimaryBox();
    [[nodiscard]] QGroupBox* MakeSecondaryBox();
    void MakeAppendedChoices();
    [[nodiscard]] QGroupBox* MakeAppendedBox();
    [[nodiscard]] QWidget* MakeConventionsPage();
    [[nodiscard]] QGroupBox* MakePlaneConventionBox();
    [[nodiscard]] QGroupBox* MakeNegativePlungeBox();
    [[nodiscard]] QGroupBox* MakeSeparatorBox();
    [[nodiscard]] QGroupBox* MakeCommentBox();
    [[nodiscard]] QGroupBox* MakePlotBox();
    [[nodiscard]] QGroupBox* MakeSymbolBox();
    [[nodiscard]] QWidget* MakeFileLine();
    [[nodiscard]] QWidget* MakeMismatchLine();
    [[nodiscard]] QWidget* MakeButtonLine();
    void AddSelector(QGroupBox* box, int slot);
    void AddPlaceSelectors(QVBoxLayout* layout);
    void SetOrder();
    void FollowOptions(std::span<QRadioButton* const> options);
    void ConnectFormat();
    void ConnectConventions();
    void ConnectPlotAndButtons();
    void ConnectSuggestions();

    void ReadFirstLines();
    void ReadTable(int table);
    /// Looks for formats of the lines, and fills the dialog with one that is sure.
    void SuggestFormat();
    void TakeChoice(const FormatChoice& choice);
    void LightRow(int row);
    [[nodiscard]] std::vector<std::string> ShownLines() const;
    [[nodiscard]] FormatChoice ChoiceOfControls() const;
    void FormatChanged();
    void ChoosePlotKind(std::int16_t kind);
    void ShowPlotKind();
    void FillPlaceLists(int columns);
    void StorePlaceColumns();
    void SetCombo(int slot, bool inUse, const std::string& name);
    void ColourLabels();
    void DrawSymbols();
    void RestoreSymbols();
    void ChangeSymbols();
    void GoToSelector(int slot);
    [[nodiscard]] bool CheckPlotType();

    FormatQuestion question_;
    FormatChoice choice_;
    bool joinsRows_;
    FormatChoice ownChoice_;         ///< without a suggestion
    std::vector<std::string> lines_; ///< of the file, the first ones
    std::vector<FormatSuggestion> suggestions_;
    QString previewTitle_; ///< the full title of the preview
    FormatPreview preview_;
    std::array<int, 2> symbolRows_; ///< rows of gSymbolTable
    std::array<SymbolRow, 2> symbols_;
    bool loading_ = false; ///< the program is setting the controls
};

} // namespace quandrel
