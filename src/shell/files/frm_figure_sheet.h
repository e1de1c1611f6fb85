// SPDX-License-Identifier: MIT
//
// The window of a figure with panels: the list of its panels, its page, its caption, and a preview
// that follows them. It stays open.

#pragma once

#include "core/result.h"
#include "sheet/figure_sheet.h"
#include "sheet/sheet_content.h"
#include "sheet/sheet_history.h"

#include <QDialog>

#include <optional>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QTimer;

namespace quandrel {

class frmFigureSheet : public QDialog {
public:
    explicit frmFigureSheet(QWidget* parent);

    /// Shows the sheet of a file, after a question about unsaved changes.
    ///
    /// @return false when the user keeps the present one, or, with a message, when the file cannot
    ///         be read
    bool Open(const std::string& path);

    /// The same of the sheet that a picture holds. It has no file of its own.
    bool OpenOfPicture(const std::string& path, const std::string& text);

    /// The file of the sheet, after a question about unsaved changes: they are saved, or the sheet
    /// is left out.
    ///
    /// @return empty for none; nothing when the user cancels, or a save fails
    [[nodiscard]] std::optional<std::string> SavedFile();

    QListWidget* lstPanels;
    QComboBox* cboKind;
    QPushButton* cmdAdd;
    QPushButton* cmdRemove;
    QPushButton* cmdUp;
    QPushButton* cmdDown;
    QPushButton* cmdUpdate;
    QPushButton* cmdUndo;
    QPushButton* cmdRedo;
    QLineEdit* txtTitle;
    QLineEdit* txtText;
    QSpinBox* spnSpanColumns;
    QSpinBox* spnSpanRows;
    QComboBox* cboWidth;
    QDoubleSpinBox* spnWidth;
    QSpinBox* spnColumns;
    QDoubleSpinBox* spnGap; ///< between columns
    QDoubleSpinBox* spnGapDown;
    QComboBox* cboLetters;
    QComboBox* cboLegend;
    QComboBox* cboStyle;
    QSpinBox* spnDots;
    QCheckBox* chkData;
    QLineEdit* txtCaption;
    QPlainTextEdit* txtPreviewCaption;
    QPushButton* cmdCopyCaption;
    QLabel* lblPreview;
    QLabel* lblNote; ///< why there is no picture
    QPushButton* cmdOpen;
    QPushButton* cmdSave;
    QPushButton* cmdExport;
    QPushButton* cmdClose;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void MakeControls();
    void MakePageControls();
    [[nodiscard]] QLayout* MakePanels();
    [[nodiscard]] QLayout* MakePage();
    [[nodiscard]] QLayout* MakePreview();
    void Connect();
    void SetOrder();
    void ShowSheet();
    void ShowPanel();
    void TakePage();
    void TakePanel();
    void AddPanel();
    void RemovePanel();
    void MovePanel(int by);
    void TakeOrder(int from, int to);
    void UpdateFromPlots();
    void Record();
    void BeginHistory();
    void ShowSteps();
    void GoTo(const FigureSheet& (SheetHistory::*step)());
    void Changed();
    void ShowPreview();
    [[nodiscard]] bool Save();
    void Export();
    void AskAndOpen();
    [[nodiscard]] bool Take(const std::string& path, const Result<FigureSheet>& read,
                            const std::string& file);
    [[nodiscard]] bool MayLose();
    [[nodiscard]] bool OffersToSave();

    FigureSheet sheet_;
    SheetHistory history_;
    FigureSheet saved_;                                         ///< as its file has it
    std::string path_;                                          ///< of its file; empty for none
    std::optional<Result<std::vector<PanelContent>>> contents_; ///< of `shown_`
    std::vector<SheetPanel> shown_;                             ///< the panels of the preview
    QTimer* timer_;
};

} // namespace quandrel
