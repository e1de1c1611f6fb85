// SPDX-License-Identifier: MIT

#include "persistence/ascii_plot_file.h"
#include "persistence/binary_plot_file.h"
#include "support/main_window_test.h"

#include <QPlainTextEdit>

namespace quandrel {
namespace {

class PlotPlace : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        form = &FormOfSlot(OpenFile("a.txt"));
    }

    frmPlotForms* form = nullptr;
};

TEST_F(PlotPlace, IsFifteenUnitsToThePixel) {
    form->SetPlace({0, 150, 300, 9000, 6000});
    EXPECT_EQ(form->geometry(), QRect(20, 10, 600, 400));
    EXPECT_EQ(form->Place(), (WindowPlace{0, 150, 300, 9000, 6000}));
}

TEST_F(PlotPlace, OutsideTheRoomIsPassedOver) {
    const QRect former = form->geometry();
    for (const WindowPlace& place :
         {WindowPlace{0, -150, 300, 9000, 6000}, WindowPlace{0, 150, -15, 9000, 6000},
          WindowPlace{0, 150, 900000, 9000, 6000}, WindowPlace{0, 900000, 300, 9000, 6000}}) {
        form->SetPlace(place);
        EXPECT_EQ(form->geometry(), former);
    }
}

TEST_F(PlotPlace, IsNoLargerThanTheRoomAndNoSmallerThanAWindow) {
    form->SetPlace({0, 0, 0, 900000, 900000});
    EXPECT_EQ(form->size(), form->parentWidget()->size());
    form->SetPlace({0, 0, 0, 15, 15});
    EXPECT_EQ(form->size(), form->minimumSize());
}

TEST_F(PlotPlace, OfAFullWindowIsFullAgain) {
    form->showMaximized();
    const WindowPlace place = form->Place();
    EXPECT_EQ(place.state, 2);
    form->showNormal();
    form->SetPlace(place);
    EXPECT_TRUE(form->isMaximized());
}

TEST_F(PlotPlace, ComesBackWithThePlot) {
    form->SetPlace({0, 150, 300, 9000, 6000});
    form->txtDescBox->setPlainText("northern limb");
    const std::string path = (folder / "a.qpx").string();
    ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    form->SetPlace({0, 0, 0, 7500, 7500});
    prompts.QueueOpenPath(path);
    Press("mnuFileLoad_0");
    ASSERT_EQ(gActivePlot, 2);
    const frmPlotForms& opened = FormOfSlot(2);
    EXPECT_EQ(opened.geometry(), QRect(20, 10, 600, 400));
    EXPECT_EQ(opened.txtDescBox->toPlainText(), "northern limb");
    EXPECT_EQ(opened.windowTitle().left(8), "a.qpx: 2");
    EXPECT_EQ(ActiveRecord().Modified, 0);
}

} // namespace
} // namespace quandrel
