// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_statistical_tests.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <filesystem>
#include <memory>

namespace quandrel {
namespace {

class TestsDialogTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        AddPlot("folds", 70, 11);
        dialog = std::make_unique<frmStatisticalTests>(nullptr);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }

    void TearDown() override {
        dialog.reset();
        EngineTest::TearDown();
    }

    static int AddPlot(const std::string& title, int rows, int spread) {
        gPlotKind = kEqualArea;
        gPrimaryDataType = kPrimaryLine;
        const int slot = FindFreePlotSlot();
        gActivePlot = slot;
        ResetPlotRecord(slot);
        PlotRecord& record = ActiveRecord();
        record.PlotTitle = title;
        record.PlotKind = kEqualArea;
        record.DataKind = kLines;
        for (int i = 0; i < rows; ++i) {
            AddRow(45 + i * 7 % spread, 100 + i * 13 % 41);
        }
        return slot;
    }

    std::string Text() const { return dialog->txtResults->toPlainText().toStdString(); }

    bool Says(const std::string& words) const { return Text().find(words) != std::string::npos; }

    std::unique_ptr<frmStatisticalTests> dialog;
};

TEST_F(TestsDialogTest, ShowsTheTestsOfTheActivePlot) {
    EXPECT_EQ(dialog->windowTitle(), "Statistical Tests: folds");
    EXPECT_EQ(Text().find("folds: Main rows, 70 axes\n"), 0U);
    EXPECT_TRUE(Says("Uniform axes (Bingham)\n   The axes have a preferred orientation"));
    EXPECT_TRUE(dialog->picQuantiles->isVisible());
    EXPECT_TRUE(dialog->cmdExport->isEnabled());
    EXPECT_FALSE(dialog->cmdSimulate->isEnabled()) << "nothing is simulated";
    EXPECT_FALSE(dialog->cboWith->isEnabled()) << "there is nothing to compare with";
    dialog->cmdCopy->click();
    EXPECT_EQ(clipboard.Text(), Text());
}

TEST_F(TestsDialogTest, KeysAloneCompareTwoPlots) {
    const int first = gActivePlot;
    AddPlot("veins", 30, 23);
    gActivePlot = first;
    dialog->FollowActivePlot();
    dialog->cboRows->setFocus();
    QTest::keyClick(dialog->cboRows, Qt::Key_Tab);
    ASSERT_TRUE(dialog->cboWith->hasFocus());
    QTest::keyClick(dialog->cboWith, Qt::Key_Down);
    EXPECT_EQ(dialog->cboWith->currentText(), "veins: Main rows");
    EXPECT_TRUE(Says("compared with veins: Main rows, 30 axes"));
    EXPECT_TRUE(Says("Simulations: 9999 tries, seed 20261122"));
    EXPECT_TRUE(Says("Equal means\n   The means "));
    EXPECT_FALSE(dialog->picQuantiles->isVisible());
    const std::string former = Text();
    dialog->spnTries->setValue(499);
    EXPECT_TRUE(Says("Simulations: 499 tries"));
    dialog->spnTries->setValue(9999);
    EXPECT_EQ(Text(), former) << "the same seed gives the same result";
    QTest::keyClick(dialog->cboWith, Qt::Key_Up);
    EXPECT_FALSE(Says("compared with"));
}

TEST_F(TestsDialogTest, LongSimulationsWaitForTheButtonAndStopWithEsc) {
    ActiveRecord().PlotKind = kRose;
    dialog->spnTries->setValue(kMostTries);
    dialog->FollowActivePlot();
    EXPECT_TRUE(Says("Even spacing (Rao)\n   Its probability is found by simulation."));
    ASSERT_TRUE(dialog->cmdSimulate->isEnabled());
    for (int i = 0; i < 3000; ++i) {
        AddRow(20, i * 37 % 360);
    }
    dialog->FollowActivePlot();
    status.RequestCancel();
    dialog->cmdSimulate->setFocus();
    QTest::keyClick(dialog->cmdSimulate, Qt::Key_Space);
    EXPECT_TRUE(Says("The simulation was stopped.")) << Text();
    EXPECT_TRUE(dialog->cmdSimulate->isEnabled());
    EXPECT_EQ(status.BusyDepth(), 0);
}

TEST_F(TestsDialogTest, FollowsThePlotsAndTheirRows) {
    AddPlot("faults", 12, 9);
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->windowTitle(), "Statistical Tests: faults");
    EXPECT_TRUE(Says("faults: Main rows, 12 axes"));
    AddRow(10, 20);
    dialog->FollowActivePlot();
    EXPECT_TRUE(Says("faults: Main rows, 13 axes"));
    ActiveRecord().PlotKind = kRose;
    dialog->FollowActivePlot();
    EXPECT_TRUE(Says("13 axial azimuths"));
    EXPECT_TRUE(Says("Uniform azimuths (Kuiper)"));
    EXPECT_FALSE(dialog->cmdExport->isEnabled());
}

TEST_F(TestsDialogTest, ExportsTheQuantilePlots) {
    const std::string path = (folder / "qq.svg").string();
    prompts.QueueSavePath(path);
    dialog->cmdExport->click();
    EXPECT_GT(std::filesystem::file_size(path), 1000U);
}

} // namespace
} // namespace quandrel
