// SPDX-License-Identifier: MIT

#include "density/grid_geometry.h"
#include "drawing/plot_state.h"
#include "session/start.h"
#include "shell/controls/picture_box.h"
#include "support/main_window_test.h"

#include <QPlainTextEdit>
#include <QSlider>

namespace quandrel {
namespace {

/// A window whose drawings go through all stages.
class DensityWindow : public MainWindowTest {
protected:
    /// A fold: dips to both sides.
    int OpenFold() {
        std::string text;
        for (int i = 0; i < 40; ++i) {
            text += std::to_string(20 + i) + "\t" + std::to_string(i % 2 == 0 ? 100 + i : 260 + i)
                    + "\n";
        }
        return OpenFile("fold.txt", text);
    }

    static QPlainTextEdit& StatsBox(int slot, int which) {
        return *FormOfSlot(slot).txtStatsBox.at(static_cast<std::size_t>(which));
    }

    [[nodiscard]] QSlider& Slider() const { return ControlOf<QSlider>(*main, "sldGridDensity"); }
};

TEST_F(DensityWindow, EachSymbolButtonDrawsItsModeAndTakesThePressOfTheOneBefore) {
    OpenFold();
    for (int button = 0; button <= kLastModeButton; ++button) {
        ToolButton("grpSymbolButton_" + std::to_string(button)).click();
        for (int other = 0; other <= kLastModeButton; ++other) {
            EXPECT_EQ(ToolButton("grpSymbolButton_" + std::to_string(other)).isChecked(),
                      other == button)
                << "button " << other << " after a press of " << button;
        }
    }
    EXPECT_EQ(ActiveRecord().PlotSymbolMode, kContoursAndGrid);
    EXPECT_GT(ActiveRecord().NumContours, 0);
    EXPECT_GT(ActiveRecord().GridDensityMax, 0);
    EXPECT_GT(ActiveRecord().PointDensityMax, 0);
}

TEST_F(DensityWindow, TheSliderSetsTheGridOfPlotsThatCountOnOne) {
    OpenFold();
    Press("mnuPlotSymbols_5");
    Slider().setValue(83);
    EXPECT_EQ(ActiveRecord().GridSize, 80);
    const float coarse = ActiveRecord().GridDensityMax;
    Slider().setValue(150);
    EXPECT_EQ(ActiveRecord().GridSize, 150);
    EXPECT_GE(ActiveRecord().GridDensityMax, coarse) << "a finer grid comes closer to the peak";
}

TEST_F(DensityWindow, OnePressSwapsTheStatisticsForTheAdvancedOnes) {
    const int slot = OpenFold();
    EXPECT_TRUE(StatsBox(slot, 0).isVisible());
    EXPECT_FALSE(StatsBox(slot, 1).isVisible());
    EXPECT_TRUE(StatsBox(slot, 0).toPlainText().startsWith("No. of Data = 40"));
    const QString before = Action("mnuViewAdvStats").text();
    Press("mnuViewAdvStats");
    EXPECT_FALSE(StatsBox(slot, 0).isVisible());
    EXPECT_TRUE(StatsBox(slot, 1).isVisible());
    EXPECT_TRUE(StatsBox(slot, 1).toPlainText().contains("Principal Eigenvector: "));
    EXPECT_NE(Action("mnuViewAdvStats").text(), before);
}

TEST_F(DensityWindow, TheConfidenceConeComesAndGoesWithItsItem) {
    OpenFile("cluster.txt", "40\t90\n42\t95\n38\t88\n41\t85\n44\t92\n37\t97\n40\t93\n39\t89\n"
                            "43\t87\n41\t91\n");
    const auto net = [] { return FormOfSlot(gActivePlot).picStereoArea->grab().toImage(); };
    EXPECT_FALSE(Action("mnuViewConfidence").isChecked());
    const QImage without = net();
    Press("mnuViewConfidence");
    EXPECT_TRUE(Action("mnuViewConfidence").isChecked());
    EXPECT_NE(net(), without);
    Press("mnuViewConfidence");
    EXPECT_EQ(net(), without);
}

} // namespace
} // namespace quandrel
