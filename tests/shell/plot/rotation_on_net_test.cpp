// SPDX-License-Identifier: MIT
//
// The rotation dialog together with the plot windows: preview, picks from the net, undo.

#include "rotation/rotate_data.h"
#include "shell/controls/picture_box.h"
#include "shell/dialogs/frm_rotation_menu.h"
#include "support/main_window_test.h"
#include "support/plot_rows.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace quandrel {
namespace {

class RotationOnNet : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        ForgetRotation();
    }

    void TearDown() override {
        ForgetRotation();
        MainWindowTest::TearDown();
    }

    frmRotationMenu& OpenDialog() {
        Press("mnuPlotRotate");
        return Dialog();
    }

    [[nodiscard]] frmRotationMenu& Dialog() const {
        auto* dialog = dynamic_cast<frmRotationMenu*>(main->findChild<QDialog*>("frmRotationMenu"));
        EXPECT_NE(dialog, nullptr);
        return *dialog;
    }

    static PictureBox& Net(int slot) { return *FormOfSlot(slot).picStereoArea; }

    static QImage Picture(int slot) { return Net(slot).grab().toImage(); }

    /// The pixel of a place in plot units.
    static QPoint Pixel(int slot, double x, double y) {
        const QSize size = Net(slot).PictureSize();
        return {qRound((x + 1100) / 2200 * size.width()),
                qRound((1100 - y) / 2200 * size.height())};
    }

    static void FillBoxes(frmRotationMenu& dialog, const char* plunge, const char* trend,
                          const char* angle) {
        dialog.txtRotAngle[0]->setText(plunge);
        dialog.txtRotAngle[1]->setText(trend);
        dialog.txtRotAngle[2]->setText(angle);
    }
};

TEST_F(RotationOnNet, TheCommandOpensTheDialogAndItFollowsThePlots) {
    EXPECT_FALSE(Action("mnuPlotRotate").isEnabled());
    const int first = OpenFile("a.txt");
    OpenFile("b.txt");
    QTest::mouseClick(&ToolButton("cmdRotateButton"), Qt::LeftButton);
    EXPECT_TRUE(Dialog().isVisible());
    EXPECT_TRUE(Dialog().windowTitle().startsWith("Rotate: b.txt"));
    Room().setActiveSubWindow(&FormOfSlot(first));
    EXPECT_TRUE(Dialog().windowTitle().startsWith("Rotate: a.txt"));
    Press("mnuFileClose_0");
    EXPECT_TRUE(Dialog().windowTitle().startsWith("Rotate: b.txt"));
    Press("mnuFileClose_0");
    EXPECT_FALSE(Dialog().isVisible());
}

TEST_F(RotationOnNet, ThePreviewStandsOverTheNetAndGoesWithoutATrace) {
    const int slot = OpenFile("a.txt", "0\t0\n");
    ActiveRecord().Modified = 0;
    const QImage before = Picture(slot);
    frmRotationMenu& dialog = OpenDialog();
    EXPECT_EQ(Picture(slot), before) << "no box is filled in yet";
    // The pole of a horizontal plane, turned by 60 degrees about north, plunges 30 to the west
    // or to the east; either way it moves along the equator of the net.
    FillBoxes(dialog, "0", "0", "60");
    const QImage with = Picture(slot);
    EXPECT_NE(with, before);
    int changed = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) != before.pixel(x, y)) {
                ++changed;
                const QPoint away = QPoint(x, y) - with.rect().center();
                EXPECT_GT(std::abs(away.x()), with.width() / 4);
                EXPECT_LT(std::abs(away.y()), with.height() / 20);
            }
        }
    }
    EXPECT_GT(changed, 4);
    EXPECT_EQ(Net(slot).Image().convertToFormat(before.format()), before)
        << "the drawing itself has none";
    dialog.cmdRotGo[1]->click();
    EXPECT_EQ(Picture(slot), before);
    EXPECT_EQ(ActiveRecord().Modified, 0);
}

TEST_F(RotationOnNet, ThePreviewMovesWithTheActivePlot) {
    const int first = OpenFile("a.txt");
    const int second = OpenFile("b.txt");
    const QImage plainFirst = Picture(first);
    const QImage plainSecond = Picture(second);
    frmRotationMenu& dialog = OpenDialog();
    FillBoxes(dialog, "10", "20", "40");
    EXPECT_EQ(Picture(first), plainFirst);
    EXPECT_NE(Picture(second), plainSecond);
    Room().setActiveSubWindow(&FormOfSlot(first));
    EXPECT_NE(Picture(first), plainFirst);
    EXPECT_EQ(Picture(second), plainSecond);
    Press("mnuPlotType_2");
    EXPECT_FALSE(dialog.HasPreview()) << "a rose has no places";
}

TEST_F(RotationOnNet, APressOnTheNetFillsTheBoxes) {
    const int slot = OpenFile("a.txt");
    const QPoint north = Pixel(slot, 0, 995);
    QTest::mouseClick(&Net(slot), Qt::LeftButton, {}, north);
    frmRotationMenu& dialog = OpenDialog();
    EXPECT_EQ(dialog.txtRotAngle[0]->text(), "");
    QTest::mouseClick(&Net(slot), Qt::LeftButton, Qt::AltModifier, north);
    QTest::mouseClick(&Net(slot), Qt::RightButton, {}, north);
    EXPECT_EQ(dialog.txtRotAngle[0]->text(), "") << "not a plain press";
    QTest::mouseClick(&Net(slot), Qt::LeftButton, {}, north);
    EXPECT_EQ(dialog.txtRotAngle[1]->text().toInt() % 360, 0);
    EXPECT_LE(dialog.txtRotAngle[0]->text().toInt(), 2);
    EXPECT_FALSE(dialog.txtRotAngle[0]->text().isEmpty());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(RotationOnNet, TheHintLineTellsWhatAPressWouldTake) {
    const int slot = OpenFile("a.txt");
    const QString before = Hint();
    main->SetStatusText("as before");
    QTest::mouseMove(&Net(slot), Pixel(slot, 0, 0));
    EXPECT_EQ(Hint(), before);
    frmRotationMenu& dialog = OpenDialog();
    QTest::mouseMove(&Net(slot), Pixel(slot, 500, 0));
    EXPECT_TRUE(Hint().startsWith("Rotation Axis: ")) << Hint().toStdString();
    EXPECT_NEAR(Hint().section('/', 1).toInt(), 90, 1) << Hint().toStdString();
    EXPECT_EQ(dialog.txtRotAngle[1]->text(), "");
    QTest::mouseMove(&Net(slot), Pixel(slot, 1050, 1050));
    EXPECT_EQ(Hint(), before);
    QTest::mouseMove(&Net(slot), Pixel(slot, 0, 500));
    EXPECT_NEAR((Hint().section('/', 1).toInt() + 180) % 360, 180, 1) << Hint().toStdString();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&Net(slot), &leave);
    EXPECT_EQ(Hint(), before);
    QTest::mouseMove(&Net(slot), Pixel(slot, 500, 0));
    dialog.close();
    EXPECT_EQ(Hint(), before);
    EXPECT_EQ(Info(), "as before") << "the message has a place of its own";
}

TEST_F(RotationOnNet, WhatWasLeftUnrotatedIsSaidAsLongAsTheRotationCanBeTakenBack) {
    const int slot = OpenFile("a.txt", "30\t90\n60\t270\n");
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    ActiveRecord().HasAppendedLine = kTrue;
    int secondary = 1;
    GrowDataColumns(secondary, 2);
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
    gAppLineDip.At(slot, 1) = kInvalidAppendedLine;
    gAppLineDip.At(slot, 2) = 0;
    frmRotationMenu& dialog = OpenDialog();
    dialog.optRotate[0]->click();
    dialog.cmdRotGo[0]->click();
    const QString told = "1 row without a valid appended line was left unrotated.";
    EXPECT_EQ(Info(), told);
    main->UpdatePlotState();
    EXPECT_EQ(Info(), told);
    ForgetRotation();
    main->UpdatePlotState();
    EXPECT_EQ(Info(), "");
}

TEST_F(RotationOnNet, TheEditMenuTakesARotationBack) {
    const int slot = OpenFile("a.txt");
    const QImage before = Picture(slot);
    EXPECT_EQ(Action("mnuEditUndoRotation").text().remove('&'), "Undo Rotation");
    EXPECT_FALSE(Action("mnuEditUndoRotation").isEnabled());
    frmRotationMenu& dialog = OpenDialog();
    FillBoxes(dialog, "90", "0", "30");
    dialog.cmdRotGo[0]->click();
    EXPECT_EQ(gDataAz(slot, 1), 150);
    EXPECT_NE(Picture(slot), before);
    EXPECT_TRUE(Action("mnuEditUndoRotation").isEnabled());
    const int other = OpenFile("b.txt");
    EXPECT_FALSE(Action("mnuEditUndoRotation").isEnabled()) << "it was another plot";
    Room().setActiveSubWindow(&FormOfSlot(slot));
    Press("mnuEditUndoRotation");
    EXPECT_EQ(gDataAz(slot, 1), 120);
    EXPECT_EQ(gDataDip(slot, 1), 30);
    EXPECT_EQ(Picture(slot), before);
    EXPECT_FALSE(Action("mnuEditUndoRotation").isEnabled());
    EXPECT_EQ(gDataAz(other, 1), 120);
}

TEST_F(RotationOnNet, AnEditEndsTheUndo) {
    const int slot = OpenFile("a.txt");
    frmRotationMenu& dialog = OpenDialog();
    FillBoxes(dialog, "90", "0", "30");
    dialog.cmdRotGo[0]->click();
    gDataAz.At(slot, 2) = 7;
    main->UpdatePlotState();
    EXPECT_FALSE(Action("mnuEditUndoRotation").isEnabled());
}

} // namespace
} // namespace quandrel
