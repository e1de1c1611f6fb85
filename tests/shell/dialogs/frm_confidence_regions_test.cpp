// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "edit/commands/edit_menu.h"
#include "shell/dialogs/frm_confidence_regions.h"
#include "statistics/plot_regions.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <memory>

namespace quandrel {
namespace {

class RegionDialogTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gPrimaryDataType = kPrimaryLine;
        AddPlot("folds");
        dialog = std::make_unique<frmConfidenceRegions>(nullptr, [this] { ++changes; });
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }

    void TearDown() override {
        dialog.reset();
        EngineTest::TearDown();
    }

    static int AddPlot(const std::string& title) {
        const int slot = FindFreePlotSlot();
        gActivePlot = slot;
        ResetPlotRecord(slot);
        PlotRecord& record = ActiveRecord();
        record.PlotTitle = title;
        record.PlotKind = kEqualArea;
        record.DataKind = kLines;
        for (int i = 0; i < 70; ++i) {
            AddRow(45 + i * 7 % 11, 100 + i * 13 % 41);
        }
        return slot;
    }

    /// A click on the mark of a check box: one beside its text does nothing.
    static void Tick(QCheckBox& check) {
        QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, check.height() / 2));
    }

    void Choose(QComboBox& list, int value) const {
        list.setCurrentIndex(list.findData(value));
        list.activated(list.currentIndex());
    }

    std::string Text() const { return dialog->txtRegions->toPlainText().toStdString(); }

    std::unique_ptr<frmConfidenceRegions> dialog;
    int changes = 0;
};

TEST_F(RegionDialogTest, EachChangeTakesEffectAtOnce) {
    EXPECT_EQ(Text(), "Choose what regions are to be about.");
    EXPECT_FALSE(dialog->cmdCopy->isEnabled());
    Tick(*dialog->chkAbout[0]);
    EXPECT_EQ(ActiveRecord().RegionsAbout, kRegionOfAxis);
    EXPECT_EQ(changes, 1);
    ASSERT_EQ(RegionsOfPlot(ActivePlot()).size(), 1U);
    EXPECT_NE(Text().find("Axes, n = 70. "), std::string::npos);
    Choose(*dialog->cboMethod, kRegionByBingham);
    EXPECT_NE(Text().find("As chosen: ellipse of Bingham."), std::string::npos);
    Choose(*dialog->cboLevel, 99);
    EXPECT_NE(Text().find("99% region"), std::string::npos);
    dialog->cmdCopy->click();
    EXPECT_EQ(clipboard.Text(), Text());
}

TEST_F(RegionDialogTest, OffersWhatThePlotHas) {
    EXPECT_TRUE(dialog->chkAbout[1]->isEnabled());
    EXPECT_FALSE(dialog->chkAbout[2]->isEnabled()) << "no polar lines";
    EXPECT_FALSE(dialog->chkOf[1]->isEnabled());
    EXPECT_FALSE(dialog->chkOf[2]->isEnabled());
    Tick(*dialog->chkAbout[0]);
    EXPECT_EQ(dialog->cboMethod->findData(kRegionByFisher), -1);
    EXPECT_TRUE(dialog->spnSeed->isEnabled());
    Choose(*dialog->cboMethod, kRegionByWatson);
    EXPECT_FALSE(dialog->spnSeed->isEnabled());
    EXPECT_TRUE(dialog->chkDespite->isEnabled()) << "the cluster is not round: refused";
    Tick(*dialog->chkDespite);
    EXPECT_EQ(ActiveRecord().RegionDespite, kTrue);
    ActiveRecord().PlotKind = kRose;
    dialog->FollowActivePlot();
    EXPECT_EQ(Text(), "A rose has no confidence regions.");
    EXPECT_FALSE(dialog->chkAbout[1]->isEnabled());
}

TEST_F(RegionDialogTest, EachChangeIsUndoneAlone) {
    Tick(*dialog->chkAbout[0]);
    Tick(*dialog->chkAbout[1]);
    Choose(*dialog->cboLevel, 99);
    dialog->spnSeed->setValue(7);
    UndoEdits();
    EXPECT_EQ(ActiveRecord().RegionSeed, 1);
    EXPECT_EQ(ActiveRecord().RegionLevel, 99);
    UndoEdits();
    EXPECT_EQ(ActiveRecord().RegionLevel, 95);
    EXPECT_EQ(ActiveRecord().RegionsAbout, kRegionOfAxis | kRegionOfGirdle);
    UndoEdits();
    EXPECT_EQ(ActiveRecord().RegionsAbout, kRegionOfAxis);
    dialog->FollowActivePlot();
    EXPECT_TRUE(dialog->chkAbout[0]->isChecked());
    EXPECT_FALSE(dialog->chkAbout[1]->isChecked());
    EXPECT_EQ(dialog->spnSeed->value(), 1);
}

TEST_F(RegionDialogTest, FollowsThePlotAndItsUndo) {
    Tick(*dialog->chkAbout[0]);
    const int first = gActivePlot;
    AddPlot("faults");
    dialog->FollowActivePlot();
    EXPECT_FALSE(dialog->chkAbout[0]->isChecked());
    EXPECT_EQ(dialog->windowTitle(), "Confidence Regions: faults");
    gActivePlot = first;
    dialog->FollowActivePlot();
    EXPECT_TRUE(dialog->chkAbout[0]->isChecked());
    UndoEdits();
    dialog->FollowActivePlot();
    EXPECT_FALSE(dialog->chkAbout[0]->isChecked());
    EXPECT_EQ(ActiveRecord().RegionsAbout, 0);
}

} // namespace
} // namespace quandrel
