// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "edit/marks/small_circle_pick.h"
#include "edit/marks/small_circles.h"
#include "orientation/projection.h"
#include "shell/controls/bad_text.h"
#include "shell/dialogs/frm_small_circle.h"
#include "shell/styles/line_patch.h"
#include "shell/styles/style_patch.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include <memory>
#include <set>

namespace quandrel {
namespace {

class SmallCircleDialogTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        AddPlot("folds");
        dialog = std::make_unique<frmSmallCircle>(nullptr);
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }

    void TearDown() override {
        dialog.reset();
        EndSmallCirclePick();
        EngineTest::TearDown();
    }

    int AddPlot(const std::string& title) {
        const int slot = NewPlot();
        ActiveRecord().PlotTitle = title;
        ActiveRecord().PlotKind = kEqualArea;
        AddRow(30, 120);
        return slot;
    }

    [[nodiscard]] QLineEdit& Box(int box) const {
        return ControlOf<QLineEdit>(*dialog, "txtSmallCircle_" + std::to_string(box));
    }

    [[nodiscard]] QCheckBox& Check(int set) const {
        return ControlOf<QCheckBox>(*dialog, "chkSmallCircle_" + std::to_string(set));
    }

    [[nodiscard]] std::string Text(int box) const { return Box(box).text().toStdString(); }

    void Type(int box, const char* text) const {
        QTest::mouseClick(&Box(box), Qt::LeftButton);
        QTest::keyClick(&Box(box), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&Box(box), text);
    }

    void TypeSet(int set, const char* plunge, const char* azimuth, const char* angle) const {
        Type(3 * set - 2, plunge);
        Type(3 * set - 1, azimuth);
        Type(3 * set, angle);
    }

    void Click(QWidget& control) const { QTest::mouseClick(&control, Qt::LeftButton); }

    void Tick(int set) const {
        // Over the mark: a click beside the text of a box does nothing.
        QTest::mouseClick(&Check(set), Qt::LeftButton, {}, QPoint(8, Check(set).height() / 2));
    }

    static const SmallCircle& Circle(int set) { return *SmallCircleOfSet(set); }

    static Point At(double plungeDegrees, double trendDegrees) {
        Point at;
        ProjectPoint(kEqualArea, DegToRad(plungeDegrees), DegToRad(trendDegrees), at.x, at.y);
        return at;
    }

    static bool IsRed(const QLineEdit& box) {
        return box.palette().color(QPalette::Text) == BadTextColour();
    }

    std::unique_ptr<frmSmallCircle> dialog;
};

TEST_F(SmallCircleDialogTest, HasFourSetsOfThreeBoxes) {
    EXPECT_EQ(dialog->windowTitle(), "Small Circles on: folds");
    EXPECT_FALSE(dialog->isModal());
    for (int set = 1; set <= 4; ++set) {
        EXPECT_EQ(Check(set).text().remove('&'), "Small Circle " + QString::number(set));
        EXPECT_EQ(Check(set).toolTip(), "Hide/show small circle");
        EXPECT_FALSE(Check(set).isChecked());
    }
    for (int box = 1; box <= 12; ++box) {
        EXPECT_EQ(dialog->txtSmallCircle[static_cast<std::size_t>(box) - 1], &Box(box));
        EXPECT_TRUE(Box(box).accessibleName().startsWith("Small Circle "
                                                         + QString::number((box - 1) / 3 + 1)));
    }
    EXPECT_EQ(ControlOf<LinePatch>(*dialog, "picLineStyle_3").toolTip(),
              "Set current small circle line style");
    EXPECT_EQ(dialog->lblHint->text(), "Double click any box to activate that set for mouse input "
                                       "directly from the plot.");
    EXPECT_EQ(status.Text(), "Double click a box to activate it for input using mouse");
    EXPECT_EQ(dialog->ActiveForm(), gActivePlot);
}

TEST_F(SmallCircleDialogTest, WhatIsTypedStandsInTheSet) {
    TypeSet(2, "40", "130", "25");
    EXPECT_EQ(Circle(2).AxisPl, "40");
    EXPECT_EQ(Circle(2).AxisAz, "130");
    EXPECT_EQ(Circle(2).Angle, "25");
    EXPECT_EQ(Circle(1).AxisPl, "");
    EXPECT_EQ(dialog->TextBoxIndex(), 6);
    EXPECT_FALSE(IsSmallCircleShown(2)) << "typing ticks nothing";
    EXPECT_NE(ActiveRecord().Modified, 0);
}

TEST_F(SmallCircleDialogTest, TicksDrawAndWipeAndKeepTheValues) {
    TypeSet(3, "40", "130", "25");
    Tick(3);
    EXPECT_TRUE(IsSmallCircleShown(3));
    EXPECT_TRUE(Check(3).isChecked());
    Tick(3);
    EXPECT_FALSE(IsSmallCircleShown(3));
    EXPECT_EQ(Text(7), "40");
    EXPECT_EQ(Circle(3).Angle, "25");
    Tick(3);
    EXPECT_TRUE(IsSmallCircleShown(3));
}

TEST_F(SmallCircleDialogTest, ASetThatCannotBeReadIsToldAndNotTicked) {
    TypeSet(1, "40", "130", "200");
    EXPECT_TRUE(IsRed(Box(3)));
    EXPECT_FALSE(IsRed(Box(2)));
    Expect("The angle has to be a number from 0 to 180.");
    Tick(1);
    EXPECT_FALSE(Check(1).isChecked());
    EXPECT_FALSE(IsSmallCircleShown(1));
    EXPECT_TRUE(Box(3).hasFocus());
    QTest::keyClicks(&Box(3), "20");
    EXPECT_FALSE(IsRed(Box(3)));
    EXPECT_EQ(Circle(1).Angle, "20") << "what was wrong stood selected";
    Tick(1);
    EXPECT_TRUE(IsSmallCircleShown(1));
}

TEST_F(SmallCircleDialogTest, ColourStyleAndWidthAreThoseOfTheCurrentSet) {
    const CircleStyle first = StyleOfSmallCircle(1);
    Type(4, "40");
    EXPECT_EQ(dialog->fraLine->title(), "Line of Small Circle 2");
    Click(ControlOf<StylePatch>(*dialog, "picColour_7"));
    Click(ControlOf<LinePatch>(*dialog, "picLineStyle_2"));
    dialog->sldLineWidth->setValue(5);
    EXPECT_EQ(Circle(2).LineColour, 7);
    EXPECT_EQ(Circle(2).lineStyle, 2);
    EXPECT_EQ(Circle(2).LineWidth, 5);
    EXPECT_EQ(dialog->lblLineWidth->text(), "5 pixels");
    EXPECT_EQ(dialog->picSmallCircle[1]->Style().colour, 7);
    EXPECT_EQ(dialog->picSmallCircle[1]->Style().width, 5);
    EXPECT_TRUE(dialog->picSmallCircle[1]->isChecked());
    EXPECT_EQ(StyleOfSmallCircle(1).colour, first.colour);
    EXPECT_EQ(StyleOfSmallCircle(1).width, first.width);
    Click(*dialog->picSmallCircle[0]);
    EXPECT_EQ(dialog->fraLine->title(), "Line of Small Circle 1");
    EXPECT_EQ(dialog->sldLineWidth->value(), first.width);
    EXPECT_EQ(Circle(1).LineWidth, first.width) << "to show a style changes none";
    EXPECT_EQ(dialog->TextBoxIndex(), 1);
    EXPECT_TRUE(
        ControlOf<StylePatch>(*dialog, "picColour_" + std::to_string(first.colour)).isChecked());
}

TEST_F(SmallCircleDialogTest, ADoubleClickLetsTheMouseSetTheCircle) {
    QTest::mouseDClick(&Box(5), Qt::LeftButton);
    EXPECT_EQ(dialog->SmallCircleFocus(), 2);
    const QString prompt =
        "Left click on plot, and drag mouse, to set centre and angle of small circle.";
    EXPECT_EQ(dialog->lblHint->text(), prompt);
    EXPECT_EQ(QString::fromStdString(status.Text()), prompt);
    const Point axis = At(50, 130);
    EXPECT_TRUE(PressSmallCircle(axis.x, axis.y));
    dialog->Refresh();
    EXPECT_EQ(Text(4), "50");
    EXPECT_EQ(Text(5), "130");
    EXPECT_EQ(Text(6), "0");
    EXPECT_FALSE(Check(2).isChecked());
    const Point side = At(30, 130);
    DragSmallCircle(side.x, side.y);
    dialog->Refresh();
    EXPECT_EQ(Text(6), "20") << "along one trend the angle is the difference of the plunges";
    ReleaseSmallCircle(side.x, side.y);
    dialog->Refresh();
    EXPECT_TRUE(Check(2).isChecked());
    EXPECT_EQ(dialog->SmallCircleFocus(), 0);
    EXPECT_EQ(dialog->lblHint->text(), kSmallCircleDialogHint);
}

TEST_F(SmallCircleDialogTest, EscEndsThePickingAndThenClosesTheDialog) {
    TypeSet(1, "40", "130", "25");
    QTest::mouseDClick(&Box(1), Qt::LeftButton);
    const Point axis = At(10, 10);
    ASSERT_TRUE(PressSmallCircle(axis.x, axis.y));
    dialog->Refresh();
    EXPECT_EQ(Text(1), "10");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_EQ(dialog->SmallCircleFocus(), 0);
    EXPECT_EQ(Text(1), "40") << "what was begun is taken back";
    EXPECT_TRUE(dialog->isVisible());
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(SmallCircleDialogTest, ClosingEndsThePicking) {
    QTest::mouseDClick(&Box(1), Qt::LeftButton);
    ASSERT_EQ(PickedSet(), 1);
    Click(*dialog->cmdClose);
    EXPECT_EQ(PickedSet(), 0);
    EXPECT_EQ(status.Text(), "");
}

TEST_F(SmallCircleDialogTest, FollowsTheActivePlotAndEndsThePickingOnAnother) {
    TypeSet(1, "40", "130", "25");
    Tick(1);
    const int first = gActivePlot;
    QTest::mouseDClick(&Box(1), Qt::LeftButton);
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->SmallCircleFocus(), 1) << "the same plot";
    AddPlot("joints");
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->windowTitle(), "Small Circles on: joints");
    EXPECT_EQ(Text(1), "");
    EXPECT_FALSE(Check(1).isChecked());
    gActivePlot = first;
    EXPECT_EQ(PickedSet(), 0);
    dialog->FollowActivePlot();
    EXPECT_EQ(Text(1), "40");
    EXPECT_TRUE(Check(1).isChecked());
}

TEST_F(SmallCircleDialogTest, ARoseHasNoSmallCircles) {
    QTest::mouseDClick(&Box(1), Qt::LeftButton);
    ActiveRecord().PlotKind = kRose;
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->ActiveForm(), 0);
    EXPECT_FALSE(Box(1).isEnabled());
    EXPECT_FALSE(Check(1).isEnabled());
    EXPECT_FALSE(dialog->fraLine->isEnabled());
    EXPECT_EQ(dialog->SmallCircleFocus(), 0);
    ActiveRecord().PlotKind = kEqualArea;
    dialog->FollowActivePlot();
    EXPECT_TRUE(Box(1).isEnabled());
    EXPECT_TRUE(dialog->fraLine->isEnabled());
}

TEST_F(SmallCircleDialogTest, StandsWithoutAPlot) {
    gActivePlot = 0;
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->windowTitle(), "Small Circles on: ");
    EXPECT_FALSE(Box(1).isEnabled());
    dialog->PickWithMouse(1);
    EXPECT_EQ(PickedSet(), 0);
}

TEST_F(SmallCircleDialogTest, ATypedChangeKeepsThePlaceOfTheCaret) {
    Type(1, "40");
    Box(1).setCursorPosition(1);
    QTest::keyClicks(&Box(1), "5");
    dialog->Refresh();
    EXPECT_EQ(Text(1), "450");
    EXPECT_EQ(Box(1).cursorPosition(), 2);
    EXPECT_TRUE(IsRed(Box(1)));
}

TEST_F(SmallCircleDialogTest, MnemonicsAreUniqueAndControlsNamed) {
    std::set<QChar> keys;
    QStringList texts = {dialog->cmdClose->text()};
    for (const QCheckBox* check : dialog->chkSmallCircle) {
        texts << check->text();
    }
    for (const QLabel* label : dialog->findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            texts << label->text();
        }
    }
    for (const QString& text : texts) {
        const auto at = text.indexOf('&');
        ASSERT_GE(at, 0) << text.toStdString();
        EXPECT_TRUE(keys.insert(text.at(at + 1).toLower()).second) << text.toStdString();
    }
    for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
        EXPECT_FALSE(button->text().isEmpty() && button->accessibleName().isEmpty())
            << button->objectName().toStdString();
    }
}

TEST_F(SmallCircleDialogTest, TabGoesFromSetToSet) {
    Box(3).setFocus();
    QTest::keyClick(&Box(3), Qt::Key_Tab);
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Check(2).hasFocus());
    EXPECT_EQ(dialog->fraLine->title(), "Line of Small Circle 2");
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Box(4).hasFocus());
    EXPECT_EQ(dialog->TextBoxIndex(), 4);
}

} // namespace
} // namespace quandrel
