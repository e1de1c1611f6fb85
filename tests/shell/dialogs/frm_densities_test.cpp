// SPDX-License-Identifier: MIT

#include "density/density_levels.h"
#include "density/plot_density.h"
#include "edit/history/undo.h"
#include "shell/controls/bad_text.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_confidence_regions.h"
#include "shell/dialogs/frm_densities.h"
#include "support/main_window_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>

#include <cmath>

namespace quandrel {
namespace {

/// The dialog over the main window, with a plot of contours.
class DensitiesDialog : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        first = OpenLines("a.txt", 40);
        Press("mnuPlotSymbols_5");
        Press("mnuViewDensities");
        dialog = main->findChild<frmDensities*>("frmDensities");
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(dialog->isVisible());
    }

    /// Rows about two lines.
    int OpenLines(const std::string& name, int rows) {
        std::string text;
        for (int i = 0; i < rows; ++i) {
            text += std::to_string(i % 4 == 0 ? 20 + i % 5 : 50 + i % 9) + "\t"
                    + std::to_string(i % 4 == 0 ? 280 + i % 7 : 110 + i % 13) + "\n";
        }
        return OpenFile(name, text);
    }

    /// Chooses an entry of a list with the keyboard.
    static void Choose(QComboBox& list, int index) {
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Home);
        for (int i = 0; i < index; ++i) {
            QTest::keyClick(&list, Qt::Key_Down);
        }
        ASSERT_EQ(list.currentIndex(), index);
    }

    static void Type(QLineEdit& box, const char* text) {
        QTest::mouseClick(&box, Qt::LeftButton);
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&box, text);
    }

    static void Click(QAbstractButton& button) {
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }

    /// Drags a slider to some values as the mouse does.
    static void Drag(QSlider& slider, const std::vector<int>& values) {
        slider.setSliderDown(true);
        for (const int value : values) {
            slider.setSliderPosition(value);
        }
        slider.setSliderDown(false);
    }

    static bool IsRed(const QLineEdit& box) {
        return box.palette().color(QPalette::Text) == BadTextColour();
    }

    static std::size_t Steps() { return EditHistory::now.done.size(); }

    static const QImage& Picture(int slot) {
        static QImage picture;
        picture = FormOfSlot(slot).picStereoArea->Image().copy();
        return picture;
    }

    frmDensities* dialog = nullptr;
    int first = 0;
};

TEST_F(DensitiesDialog, ShowsTheChoiceOfThePlot) {
    EXPECT_FALSE(dialog->isModal());
    EXPECT_EQ(dialog->windowTitle(),
              QString::fromStdString("Densities of: " + ActiveRecord().PlotTitle));
    EXPECT_EQ(dialog->cboMethod->currentIndex(), kDensityByCone);
    EXPECT_EQ(dialog->cboUnit->currentText(), "Per cent in the cone");
    EXPECT_TRUE(dialog->optLevels[kDoublingLevels]->isChecked());
    EXPECT_TRUE(dialog->optPicture[kContourLines]->isChecked());
    EXPECT_FALSE(dialog->sldK->isEnabled());
    EXPECT_FALSE(dialog->txtK->isEnabled());
    EXPECT_FALSE(dialog->sldWidth->isEnabled());
    EXPECT_FALSE(dialog->chkAutomatic->isEnabled());
    EXPECT_FALSE(dialog->cboPalette->isEnabled());
    EXPECT_FALSE(dialog->chkEnvelope->isEnabled());
    EXPECT_TRUE(dialog->lblNote->text().startsWith("The counting cone in per cent"));
}

TEST_F(DensitiesDialog, AMethodIsDrawnAtOnceAndUndoneAlone) {
    const QImage before = Picture(first);
    Choose(*dialog->cboMethod, kDensityByKambExponential);
    EXPECT_EQ(ActiveRecord().DensityMethod, kDensityByKambExponential);
    EXPECT_EQ(ActiveRecord().DensityUnit, kSigmaUnit);
    EXPECT_EQ(dialog->cboUnit->count(), 3);
    EXPECT_EQ(dialog->cboUnit->currentText(), "Sigma");
    EXPECT_NE(Picture(first), before);
    EXPECT_TRUE(dialog->sldK->isEnabled());
    ASSERT_NE(DensityOf(ActivePlot()), nullptr);
    EXPECT_TRUE(Action("mnuEditUndo").isEnabled());
    for (int i = 0; i < 6 && ActiveRecord().DensityMethod != kDensityByCone; ++i) {
        Press("mnuEditUndo");
    }
    EXPECT_EQ(dialog->cboMethod->currentIndex(), kDensityByCone);
    EXPECT_EQ(Picture(first), before);
}

TEST_F(DensitiesDialog, ADragIsOneStepAndEachStepIsDrawn) {
    Choose(*dialog->cboMethod, kDensityByKamb);
    const std::size_t steps = Steps();
    dialog->sldK->setSliderDown(true);
    dialog->sldK->setSliderPosition(40);
    EXPECT_EQ(ActiveRecord().DensityK, 4) << "while it is dragged";
    const QImage four = Picture(first);
    dialog->sldK->setSliderPosition(80);
    EXPECT_NE(Picture(first), four);
    dialog->sldK->setSliderPosition(75);
    dialog->sldK->setSliderDown(false);
    EXPECT_EQ(ActiveRecord().DensityK, 7.5);
    EXPECT_EQ(dialog->txtK->text(), "7.5");
    EXPECT_EQ(Steps(), steps + 1);
    Drag(*dialog->sldK, {60, 50});
    EXPECT_EQ(Steps(), steps + 2) << "another drag is another step";
    Press("mnuEditUndo");
    EXPECT_EQ(ActiveRecord().DensityK, 7.5);
    EXPECT_EQ(dialog->sldK->value(), 75);
    Press("mnuEditUndo");
    EXPECT_EQ(ActiveRecord().DensityK, 3);
    EXPECT_EQ(dialog->txtK->text(), "3");
    EXPECT_EQ(ActiveRecord().DensityMethod, kDensityByKamb);
}

TEST_F(DensitiesDialog, ARunOfKeysOnASliderIsOneStep) {
    Choose(*dialog->cboMethod, kDensityByKamb);
    const std::size_t steps = Steps();
    dialog->sldK->setFocus();
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(dialog->sldK, Qt::Key_Right);
    }
    EXPECT_DOUBLE_EQ(ActiveRecord().DensityK, 3.3);
    EXPECT_EQ(Steps(), steps + 1);
    Press("mnuEditUndo");
    EXPECT_EQ(ActiveRecord().DensityK, 3);
}

TEST_F(DensitiesDialog, ADragHidesTheEnvelopeUntilItsEnd) {
    Choose(*dialog->cboMethod, kDensityByKambExponential);
    Click(*dialog->chkEnvelope);
    ASSERT_EQ(ActiveRecord().ShowEnvelope, kTrue);
    ASSERT_NE(EnvelopeOf(ActivePlot()), nullptr);
    const std::size_t steps = Steps();
    dialog->sldK->setSliderDown(true);
    dialog->sldK->setSliderPosition(40);
    EXPECT_EQ(EnvelopeOf(ActivePlot()), nullptr);
    EXPECT_TRUE(dialog->chkEnvelope->isChecked());
    dialog->sldK->setSliderPosition(45);
    dialog->sldK->setSliderDown(false);
    EXPECT_NE(EnvelopeOf(ActivePlot()), nullptr);
    EXPECT_EQ(ActiveRecord().ShowEnvelope, kTrue);
    EXPECT_EQ(Steps(), steps + 1);
}

TEST_F(DensitiesDialog, TypedNumbersAreCheckedAndRefusedOnesStayRed) {
    Choose(*dialog->cboMethod, kDensityByKamb);
    Type(*dialog->txtK, "500");
    EXPECT_EQ(ActiveRecord().DensityK, 500);
    EXPECT_EQ(dialog->sldK->value(), 100) << "the end of the slider";
    EXPECT_EQ(ActiveRecord().DensityK, 500) << "the slider keeps what was typed";
    Type(*dialog->txtK, "0.5");
    EXPECT_TRUE(IsRed(*dialog->txtK));
    EXPECT_EQ(dialog->lblNote->text(), "k has to be a number from 1 to 1,000.");
    EXPECT_EQ(dialog->txtK->toolTip(), dialog->lblNote->text());
    EXPECT_EQ(ActiveRecord().DensityK, 500);
    Type(*dialog->txtK, "2.50");
    EXPECT_FALSE(IsRed(*dialog->txtK));
    EXPECT_EQ(dialog->lblNote->text(), "");
    EXPECT_EQ(ActiveRecord().DensityK, 2.5);
    EXPECT_EQ(dialog->txtK->text(), "2.50") << "as it was typed";
    QTest::keyClick(dialog->txtK, Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible()) << "Return presses no button";
}

TEST_F(DensitiesDialog, TheHalfAngleIsShownBesideK) {
    Choose(*dialog->cboMethod, kDensityByKamb);
    Type(*dialog->txtK, "3");
    // 1 - cos = k^2 / (n + k^2) of 40 rows.
    const double degrees = RadToDeg(std::acos(1 - 9.0 / 49));
    EXPECT_EQ(dialog->lblCone->text(), QString("cone %1°").arg(degrees, 0, 'f', 1));
    EXPECT_EQ(dialog->lblNarrow->text(), "");
    EXPECT_FALSE(dialog->cmdWiderK->isVisible());
}

TEST_F(DensitiesDialog, ANarrowConeOffersTheKOfThreeDegrees) {
    OpenLines("many.txt", 3000);
    Press("mnuPlotSymbols_5");
    Choose(*dialog->cboMethod, kDensityByKamb);
    Type(*dialog->txtK, "1");
    EXPECT_EQ(dialog->lblNarrow->text(),
              "The cone is 1.5 degrees wide: narrower than most measurements.");
    ASSERT_TRUE(dialog->cmdWiderK->isVisible());
    // sqrt(3000 A / (1 - A)) with A = 1 - cos 3 degrees is 2.03.
    EXPECT_EQ(dialog->cmdWiderK->text(), "U&se k = 2.1 (3 degrees)");
    Click(*dialog->cmdWiderK);
    EXPECT_EQ(ActiveRecord().DensityK, 2.1);
    EXPECT_EQ(dialog->txtK->text(), "2.1");
    EXPECT_EQ(dialog->lblNarrow->text(), "");
    EXPECT_FALSE(dialog->cmdWiderK->isVisible());
}

TEST_F(DensitiesDialog, TheWidthOfTheKernelIsFoundOrChosen) {
    Choose(*dialog->cboMethod, kDensityByKernel);
    EXPECT_TRUE(dialog->chkAutomatic->isChecked());
    EXPECT_FALSE(dialog->txtWidth->isEnabled());
    const double found = RadToDeg(HalfAngleOf(DensityOf(ActivePlot())->Formula()));
    EXPECT_NEAR(dialog->txtWidth->text().toDouble(), found, 0.05);
    Click(*dialog->chkAutomatic);
    EXPECT_NEAR(ActiveRecord().KernelWidth, found, 0.05);
    EXPECT_TRUE(dialog->txtWidth->isEnabled());
    Type(*dialog->txtWidth, "55");
    EXPECT_EQ(ActiveRecord().KernelWidth, 55);
    Drag(*dialog->sldWidth, {40, 25});
    EXPECT_EQ(ActiveRecord().KernelWidth, 12.5);
    EXPECT_EQ(dialog->txtWidth->text(), "12.5");
    Click(*dialog->chkAutomatic);
    EXPECT_EQ(ActiveRecord().KernelWidth, 0);
    EXPECT_NEAR(dialog->txtWidth->text().toDouble(), found, 0.05);
}

TEST_F(DensitiesDialog, LevelsAreDoublingEvenOrByHand) {
    Choose(*dialog->cboMethod, kDensityByKernel);
    const std::span<const double> doubling = DensityOf(ActivePlot())->Levels();
    ASSERT_GE(doubling.size(), 2U);
    EXPECT_EQ(doubling[1], 2 * doubling[0]);
    Click(*dialog->optLevels[kLevelsByHand]);
    EXPECT_TRUE(dialog->txtLevels->text().startsWith("1, 2, 4"))
        << dialog->txtLevels->text().toStdString();
    Type(*dialog->txtLevels, "1.5 3");
    EXPECT_EQ(ActiveRecord().LevelsByHand, "1.5 3");
    EXPECT_EQ(DensityOf(ActivePlot())->Levels().size(), 2U);
    Type(*dialog->txtLevels, "3, x");
    EXPECT_TRUE(IsRed(*dialog->txtLevels));
    EXPECT_EQ(ActiveRecord().LevelsByHand, "3,") << "taken as it was typed, up to the x";
    Click(*dialog->optLevels[kEvenLevels]);
    EXPECT_FALSE(IsRed(*dialog->txtLevels));
    EXPECT_FALSE(dialog->txtLevels->isEnabled());
    Type(*dialog->txtStep, "2");
    EXPECT_EQ(ActiveRecord().LevelStep, 2);
    EXPECT_EQ(DensityOf(ActivePlot())->Levels()[1], 4);
    Type(*dialog->txtStep, "-");
    EXPECT_TRUE(IsRed(*dialog->txtStep));
    EXPECT_EQ(ActiveRecord().LevelStep, 2);
}

TEST_F(DensitiesDialog, BandsHavePaletteOrderAndOpacity) {
    Choose(*dialog->cboMethod, kDensityByKernel);
    const QImage lines = Picture(first);
    Click(*dialog->optPicture[kLinesOverBands]);
    EXPECT_EQ(ActiveRecord().ContourPicture, kLinesOverBands);
    EXPECT_NE(Picture(first), lines);
    EXPECT_FALSE(dialog->chkReversed->isEnabled()) << "the colours of levels have their order";
    Choose(*dialog->cboPalette, 2);
    EXPECT_EQ(ActiveRecord().BandPalette, 2);
    const QImage forward = dialog->cboPalette->itemIcon(2).pixmap(72, 14).toImage();
    Click(*dialog->chkReversed);
    EXPECT_EQ(ActiveRecord().PaletteReversed, kTrue);
    const QImage reversed = dialog->cboPalette->itemIcon(2).pixmap(72, 14).toImage();
    EXPECT_EQ(reversed.pixel(2, 5), forward.pixel(forward.width() - 3, 5));
    EXPECT_NE(reversed.pixel(2, 5), forward.pixel(2, 5));
    Drag(*dialog->sldOpacity, {70, 40});
    EXPECT_DOUBLE_EQ(ActiveRecord().BandOpacity, 0.4);
    EXPECT_EQ(dialog->lblOpacity->text(), "40%");
}

TEST_F(DensitiesDialog, MaximaAreListedMarkedAndCopied) {
    Choose(*dialog->cboMethod, kDensityByKambExponential);
    EXPECT_EQ(dialog->tblMaxima->rowCount(), 0);
    EXPECT_FALSE(dialog->cmdCopy->isEnabled());
    Click(*dialog->chkMaxima);
    EXPECT_EQ(ActiveRecord().ShowMaxima, kTrue);
    const std::vector<DensityMaximum> maxima = MaximaOf(ActivePlot());
    ASSERT_GE(maxima.size(), 2U);
    ASSERT_EQ(dialog->tblMaxima->rowCount(), static_cast<int>(maxima.size()));
    EXPECT_EQ(dialog->tblMaxima->item(1, 3)->text().toInt(), maxima[1].rows);
    EXPECT_FALSE(dialog->HasMark());
    const QTableWidgetItem* const second = dialog->tblMaxima->item(1, 1);
    QTest::mouseClick(dialog->tblMaxima->viewport(), Qt::LeftButton, {},
                      dialog->tblMaxima->visualItemRect(second).center());
    EXPECT_TRUE(dialog->HasMark());
    EXPECT_TRUE(Info().startsWith("Maximum 2: " + second->text() + ", density "))
        << Info().toStdString();
    Click(*dialog->cmdCopy);
    EXPECT_EQ(clipboard.Text(), TextOfMaxima(ActivePlot(), maxima));
    Choose(*dialog->cboMethod, kDensityByKernel);
    EXPECT_FALSE(dialog->HasMark()) << "these are other maxima";
}

TEST_F(DensitiesDialog, TheKeyboardGoesToAMaximum) {
    Choose(*dialog->cboMethod, kDensityByKambExponential);
    Click(*dialog->chkMaxima);
    ASSERT_GE(dialog->tblMaxima->rowCount(), 2);
    PictureBox& net = *FormOfSlot(first).picStereoArea;
    const QImage unmarked = net.grab().toImage();
    QApplication::setActiveWindow(dialog);
    dialog->cmdCopy->setFocus();
    ASSERT_TRUE(dialog->cmdCopy->hasFocus());
    QTest::keyClick(dialog->cmdCopy, Qt::Key_Tab);
    ASSERT_TRUE(dialog->tblMaxima->hasFocus());
    EXPECT_TRUE(Info().startsWith("Maximum 1: ")) << Info().toStdString();
    const QImage firstMarked = net.grab().toImage();
    EXPECT_NE(firstMarked, unmarked);
    QTest::keyClick(dialog->tblMaxima, Qt::Key_Down);
    EXPECT_TRUE(Info().startsWith("Maximum 2: ")) << Info().toStdString();
    EXPECT_NE(net.grab().toImage(), firstMarked);
    EXPECT_NE(net.grab().toImage(), unmarked);
    FormOfSlot(first).showMinimized();
    QTest::keyClick(dialog->tblMaxima, Qt::Key_Return);
    EXPECT_FALSE(FormOfSlot(first).isMinimized());
    EXPECT_EQ(main->focusWidget(), &net);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(dialog->HasMark()) << "it stays on the net";
}

TEST_F(DensitiesDialog, ADoubleClickGoesToThePlot) {
    Choose(*dialog->cboMethod, kDensityByKambExponential);
    Click(*dialog->chkMaxima);
    PictureBox& net = *FormOfSlot(first).picStereoArea;
    net.clearFocus();
    const QPoint at = dialog->tblMaxima->visualItemRect(dialog->tblMaxima->item(0, 1)).center();
    QTest::mouseClick(dialog->tblMaxima->viewport(), Qt::LeftButton, {}, at);
    EXPECT_NE(main->focusWidget(), &net);
    QTest::mouseDClick(dialog->tblMaxima->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(main->focusWidget(), &net);
    EXPECT_TRUE(dialog->HasMark());
}

TEST_F(DensitiesDialog, IsOpenBesideThatOfRegions) {
    Press("mnuViewRegions");
    auto* regions = main->findChild<frmConfidenceRegions*>("frmConfidenceRegions");
    ASSERT_NE(regions, nullptr);
    EXPECT_TRUE(regions->isVisible());
    EXPECT_TRUE(dialog->isVisible());
    const std::size_t steps = Steps();
    Choose(*dialog->cboMethod, kDensityByKernel);
    Click(*regions->chkAbout[0]);
    Drag(*dialog->sldOpacity, {80, 60});
    EXPECT_EQ(ActiveRecord().RegionsAbout, kRegionOfAxis);
    EXPECT_GT(Steps(), steps + 2);
    // What was changed in one dialog is undone without touching what was changed in the other.
    Press("mnuEditUndo");
    EXPECT_EQ(ActiveRecord().BandOpacity, 1);
    EXPECT_EQ(ActiveRecord().RegionsAbout, kRegionOfAxis);
    Press("mnuEditUndo");
    EXPECT_FALSE(regions->chkAbout[0]->isChecked());
    EXPECT_EQ(dialog->cboMethod->currentIndex(), kDensityByKernel);
    Press("mnuEditRedo");
    EXPECT_TRUE(regions->chkAbout[0]->isChecked());
    const std::string title = RecordOf(OpenLines("b.txt", 12)).PlotTitle;
    EXPECT_TRUE(dialog->windowTitle().endsWith(QString::fromStdString(title)));
    EXPECT_TRUE(regions->windowTitle().endsWith(QString::fromStdString(title)));
    EXPECT_FALSE(regions->chkAbout[0]->isChecked());
    RecordOf(first).Modified = 0; // closing would ask
    Press("mnuFileClose_0");
    EXPECT_TRUE(regions->chkAbout[0]->isChecked());
    Press("mnuFileClose_0");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(regions->isVisible());
}

TEST_F(DensitiesDialog, FollowsTheActivePlot) {
    Choose(*dialog->cboMethod, kDensityByKernel);
    Type(*dialog->txtLevels, "");
    const int second = OpenLines("b.txt", 12);
    EXPECT_EQ(dialog->windowTitle(),
              QString::fromStdString("Densities of: " + RecordOf(second).PlotTitle));
    EXPECT_EQ(dialog->cboMethod->currentIndex(), kDensityByCone);
    EXPECT_TRUE(dialog->lblNote->text().startsWith("The plot does not show its densities."));
    ASSERT_TRUE(dialog->cmdContours->isVisible());
    Click(*dialog->cmdContours);
    EXPECT_EQ(RecordOf(second).PlotSymbolMode, kContours);
    EXPECT_FALSE(dialog->cmdContours->isVisible());
    EXPECT_EQ(RecordOf(first).DensityMethod, kDensityByKernel);
    EXPECT_NE(RecordOf(first).Modified, 0);
    RecordOf(first).Modified = 0; // closing would ask
    Press("mnuFileClose_0");
    EXPECT_EQ(dialog->cboMethod->currentIndex(), kDensityByKernel);
    Press("mnuFileClose_0");
    EXPECT_FALSE(dialog->isVisible()) << "there is no plot left";
}

TEST_F(DensitiesDialog, IsDisabledWithAReasonWhereThereAreNone) {
    Press("mnuPlotType_2");
    EXPECT_EQ(dialog->lblNote->text(), "A rose has no densities.");
    for (const QGroupBox* group : dialog->findChildren<QGroupBox*>()) {
        EXPECT_FALSE(group->isEnabled()) << group->objectName().toStdString();
    }
    EXPECT_FALSE(Action("mnuViewDensities").isEnabled());
    Press("mnuPlotType_0");
    EXPECT_TRUE(dialog->fraMethod->isEnabled());
    Press("mnuFileLoad_3");
    EXPECT_EQ(dialog->lblNote->text(), "A plot without rows has no densities.");
    EXPECT_FALSE(dialog->fraMethod->isEnabled());
}

TEST_F(DensitiesDialog, EscAndTheButtonCloseIt) {
    QTest::keyClick(dialog->txtK, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    Press("mnuViewDensities");
    EXPECT_TRUE(dialog->isVisible());
    Click(*dialog->cmdClose);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(DensitiesDialog, FitsASmallScreenAndControlsAreNamed) {
    Choose(*dialog->cboMethod, kDensityByKamb);
    EXPECT_LE(dialog->sizeHint().width(), 1000);
    EXPECT_LE(dialog->sizeHint().height(), 600);
    for (const QWidget* control : dialog->findChildren<QWidget*>()) {
        const bool isChoice = qobject_cast<const QLineEdit*>(control) != nullptr
                              || qobject_cast<const QSlider*>(control) != nullptr
                              || qobject_cast<const QComboBox*>(control) != nullptr;
        if (isChoice) {
            EXPECT_FALSE(control->accessibleName().isEmpty())
                << control->objectName().toStdString();
            EXPECT_FALSE(control->toolTip().isEmpty()) << control->objectName().toStdString();
        }
    }
}

} // namespace
} // namespace quandrel
