// SPDX-License-Identifier: MIT
//
// The window of figures with panels.

#include "core/replot.h"
#include "persistence/workspace_file.h"
#include "session/start.h"
#include "sheet/sheet_text.h"
#include "shell/files/frm_figure_sheet.h"
#include "support/main_window_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

#include <filesystem>

namespace quandrel {
namespace {

class FigureSheetWindow : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        OpenFile("a.txt");
        Press("mnuFileFigure");
        dialog = main->findChild<frmFigureSheet*>("frmFigureSheet");
        ASSERT_NE(dialog, nullptr);
        Wait();
    }

    /// Until the preview shows what was chosen.
    static void Wait() { QTest::qWait(200); }

    void Add(int kind) const {
        dialog->cboKind->setCurrentIndex(kind);
        dialog->cmdAdd->click();
    }

    [[nodiscard]] QString Caption() const { return dialog->txtPreviewCaption->toPlainText(); }

    [[nodiscard]] QSizeF Preview() const {
        return dialog->lblPreview->pixmap(Qt::ReturnByValue).size();
    }

    frmFigureSheet* dialog = nullptr;
};

TEST_F(FigureSheetWindow, BeginsEmpty) {
    EXPECT_FALSE(dialog->cmdExport->isEnabled());
    EXPECT_FALSE(dialog->cmdSave->isEnabled());
    EXPECT_FALSE(dialog->cmdRemove->isEnabled());
    EXPECT_FALSE(dialog->lblNote->text().isEmpty());
    dialog->close();
    EXPECT_TRUE(prompts.Shown().empty());
}

TEST_F(FigureSheetWindow, ShowsPanelsAndTheirCaption) {
    Add(0);
    dialog->txtTitle->setText("Beds");
    Add(3);
    Wait();
    EXPECT_EQ(dialog->lstPanels->count(), 2);
    EXPECT_FALSE(Preview().isEmpty());
    EXPECT_TRUE(dialog->cmdExport->isEnabled());
    EXPECT_TRUE(Caption().contains("(a) Beds: lower-hemisphere equal-area net of a"))
        << Caption().toStdString();
    const double ratio = Preview().width() / Preview().height();
    dialog->spnColumns->setValue(1);
    Wait();
    EXPECT_LT(Preview().width() / Preview().height(), ratio);
    dialog->cboWidth->setCurrentIndex(3);
    dialog->cboLetters->setCurrentIndex(3);
    dialog->spnColumns->setValue(3);
    Wait();
    EXPECT_NEAR(Preview().width() / Preview().height(), 16.0 / 9, 0.02);
    EXPECT_FALSE(Caption().startsWith("("));
}

TEST_F(FigureSheetWindow, MovesAndRemovesPanels) {
    Add(0);
    dialog->txtTitle->setText("first");
    Add(0);
    dialog->txtTitle->setText("second");
    EXPECT_FALSE(dialog->cmdDown->isEnabled());
    dialog->cmdUp->click();
    EXPECT_TRUE(dialog->lstPanels->item(0)->text().contains("second"));
    EXPECT_EQ(dialog->lstPanels->currentRow(), 0);
    dialog->cmdRemove->click();
    EXPECT_EQ(dialog->lstPanels->count(), 1);
    EXPECT_EQ(dialog->txtTitle->text(), "first");
}

TEST_F(FigureSheetWindow, SavesOpensAndExports) {
    const std::string place = std::filesystem::path(WriteFile("x.txt", "")).parent_path().string();
    OpenFile("a.txt");
    prompts.QueueSavePath(place + "/beds.qpx");
    Press("mnuFileSave_1");
    Add(0);
    dialog->spnColumns->setValue(1);
    Wait();
    prompts.QueueSavePath(place + "/f.qsheet");
    dialog->cmdSave->click();
    const Result<FigureSheet> sheet = ReadSheetFile(place + "/f.qsheet");
    ASSERT_TRUE(sheet) << sheet.Error();
    EXPECT_EQ(sheet->panels.size(), 1U);
    prompts.QueueSavePath(place + "/f.svg");
    dialog->cmdExport->click();
    EXPECT_TRUE(std::filesystem::exists(place + "/f.svg"));
    dialog->close();
    EXPECT_EQ(dialog->lstPanels->count(), 0);
    dialog->Open(place + "/f.qsheet");
    EXPECT_EQ(dialog->lstPanels->count(), 1);
    EXPECT_EQ(dialog->spnColumns->value(), 1);
}

TEST_F(FigureSheetWindow, AsksBeforeChangesAreLost) {
    Add(0);
    prompts.Expect("The figure has unsaved changes.\nSave it now?", Button::Cancel);
    dialog->close();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->lstPanels->count(), 1);
    prompts.Expect("The figure has unsaved changes.\nSave it now?", Button::No);
    dialog->close();
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(FigureSheetWindow, OpensFilesOfSheetsFromTheMainWindow) {
    const std::string path = WriteFile("f.qsheet", R"({"quandrelFigure": 1, "columns": 2,
        "panels": [{"kind": "text", "text": "Words"}]})");
    dialog->close();
    const int plots = CountOpenPlots();
    main->OpenFiles({QString::fromStdString(path)});
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->lstPanels->count(), 1);
    EXPECT_EQ(dialog->spnColumns->value(), 2);
    EXPECT_EQ(CountOpenPlots(), plots);
    ASSERT_FALSE(gSettings.files.recent.empty());
    EXPECT_EQ(gSettings.files.recent.front(), path);
    dialog->close();
    main->IntroButtonStart(kFirstRecentFile);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FigureSheetWindow, StaysWhenAnotherFileCannotBeRead) {
    Add(3);
    const std::string path = WriteFile("bad.qsheet", "{\"quandrelFigure\": 1, \"columns\": 0}");
    prompts.Expect("The indicated file cannot be opened\n" + path, Button::Ok);
    main->OpenFiles({QString::fromStdString(path)});
    EXPECT_EQ(dialog->lstPanels->count(), 1);
    EXPECT_EQ(prompts.Problems(), "");
    prompts.Expect("The figure has unsaved changes.\nSave it now?", Button::No);
    dialog->close();
}

TEST_F(FigureSheetWindow, IsSavedWithTheWorkspaceAndOpensWithIt) {
    const std::string place = folder.string();
    prompts.QueueSavePath(place + "/beds.qpx");
    Press("mnuFileSave_1");
    Add(3);
    prompts.Expect("The figure has unsaved changes.\nSave it now?", Button::Cancel);
    EXPECT_EQ(SaveWorkspaceAs(place + "/all.qwo"), WorkspaceOutcome::Cancelled);
    EXPECT_FALSE(std::filesystem::exists(place + "/all.qwo"));
    prompts.Expect("The figure has unsaved changes.\nSave it now?", Button::Yes);
    prompts.QueueSavePath(place + "/f.qsheet");
    ASSERT_EQ(SaveWorkspaceAs(place + "/all.qwo"), WorkspaceOutcome::Saved);
    dialog->close();
    main->OpenFiles({QString::fromStdString(place + "/all.qwo")});
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->lstPanels->count(), 1);
    EXPECT_EQ(LastOpenedWorkspace().opened.back(), place + "/f.qsheet");
    EXPECT_EQ(prompts.Problems(), "");
}

TEST_F(FigureSheetWindow, ASheetOfAPictureIsAskedAboutForAWorkspace) {
    const std::string place = folder.string();
    prompts.QueueSavePath(place + "/beds.qpx");
    Press("mnuFileSave_1");
    Add(3);
    dialog->chkData->setChecked(true);
    Wait();
    prompts.QueueSavePath(place + "/f.svg");
    dialog->cmdExport->click();
    prompts.Expect("The figure has unsaved changes.\nSave it now?", Button::No);
    main->OpenFiles({QString::fromStdString(place + "/f.svg")});
    EXPECT_EQ(dialog->lstPanels->count(), 1);
    EXPECT_FALSE(dialog->cmdUndo->isEnabled());
    prompts.Expect("The figure has unsaved changes.\nSave it now?", Button::Yes);
    prompts.QueueSavePath(place + "/f.qsheet");
    ASSERT_EQ(SaveWorkspaceAs(place + "/all.qwo"), WorkspaceOutcome::Saved);
    EXPECT_TRUE(std::filesystem::exists(place + "/f.qsheet"));
    dialog->close();
    EXPECT_EQ(prompts.Problems(), "");
}

TEST_F(FigureSheetWindow, UndoesAndRepeatsChanges) {
    EXPECT_FALSE(dialog->cmdUndo->isEnabled());
    Add(3);
    Add(3);
    dialog->spnColumns->setValue(5);
    dialog->cmdUndo->click();
    EXPECT_EQ(dialog->spnColumns->value(), 3);
    EXPECT_EQ(dialog->lstPanels->count(), 2);
    dialog->cmdUndo->click();
    EXPECT_EQ(dialog->lstPanels->count(), 1);
    dialog->cmdRedo->click();
    EXPECT_EQ(dialog->lstPanels->count(), 2);
    EXPECT_TRUE(dialog->cmdRedo->isEnabled());
    dialog->cmdRemove->click();
    EXPECT_FALSE(dialog->cmdRedo->isEnabled());
    for (int i = 0; i < 3; ++i) {
        dialog->cmdUndo->click();
    }
    EXPECT_EQ(dialog->lstPanels->count(), 0);
    EXPECT_FALSE(dialog->cmdUndo->isEnabled());
    EXPECT_EQ(dialog->cmdUndo->shortcut(), QKeySequence("Ctrl+Z"));
    EXPECT_EQ(dialog->cmdRedo->shortcut(), QKeySequence("Ctrl+Shift+Z"));
}

TEST_F(FigureSheetWindow, TakesTheOrderOfADrag) {
    for (const char* text : {"one", "two", "three"}) {
        Add(3);
        dialog->txtTitle->setText(text);
    }
    ASSERT_TRUE(dialog->lstPanels->model()->moveRow({}, 0, {}, 3));
    Wait();
    EXPECT_TRUE(dialog->lstPanels->item(2)->text().contains("one"));
    EXPECT_TRUE(dialog->lstPanels->item(0)->text().contains("two"));
    EXPECT_TRUE(dialog->lstPanels->item(0)->text().startsWith("(a)"));
    ASSERT_TRUE(dialog->lstPanels->model()->moveRow({}, 1, {}, 0));
    Wait();
    EXPECT_TRUE(dialog->lstPanels->item(0)->text().contains("three"));
    EXPECT_EQ(dialog->txtTitle->text(), "three");
    prompts.Expect("The figure has unsaved changes.\nSave it now?", Button::No);
    dialog->close();
}

TEST_F(FigureSheetWindow, HasAGapOfColumnsAndOneOfRows) {
    Add(3);
    dialog->spnGap->setValue(7);
    dialog->spnGapDown->setValue(2);
    Wait();
    prompts.QueueSavePath((folder / "f.qsheet").string());
    dialog->cmdSave->click();
    const Result<FigureSheet> sheet = ReadSheetFile((folder / "f.qsheet").string());
    ASSERT_TRUE(sheet) << sheet.Error();
    EXPECT_EQ(sheet->gapAcross, 7);
    EXPECT_EQ(sheet->gapDown, 2);
}

TEST_F(FigureSheetWindow, TakesThePresentStateOfOpenPlots) {
    Add(0);
    dialog->txtTitle->setText("Beds");
    Wait();
    const QString before = Caption();
    ActiveRecord().PlotKind = kEqualAngle;
    ReplotActivePlot(false);
    dialog->cmdUpdate->click();
    Wait();
    EXPECT_TRUE(before.contains("equal-area")) << before.toStdString();
    EXPECT_TRUE(Caption().contains("equal-angle")) << Caption().toStdString();
    EXPECT_EQ(dialog->txtTitle->text(), "Beds");
    EXPECT_TRUE(prompts.Shown().empty());
    ActiveRecord().PlotTitle = "other";
    ActiveRecord().FileTitle = "other";
    prompts.Expect("The plots of these panels are not open", Button::Ok);
    dialog->cmdUpdate->click();
    EXPECT_EQ(prompts.Problems(), "");
}

} // namespace
} // namespace quandrel
