// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "edit/marks/girdles.h"
#include "session/notation.h"
#include "session/start.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

constexpr std::int16_t kDipDirectionFirst = 2;

class NotationTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gConventions = kDipDipDirection;
        gPrimaryDataType = kPrimaryPlane;
        gPlotDataKind = kPlanes;
    }

    int NewPlotOfPlanes() {
        const int slot = NewPlot();
        AddRow(30, 120);
        AddRow(40, 120);
        AddRow(50, 121);
        ReplotActivePlot(true);
        return slot;
    }

    static std::string BoxOf(int slot) { return Form(slot).Told(PlotBox::StatsNormal); }
};

TEST_F(NotationTest, AChangeShowsInTheStatisticsOfAllOpenPlotsAtOnce) {
    const int first = NewPlotOfPlanes();
    const int second = NewPlotOfPlanes();
    const std::string before = BoxOf(first);
    const Notation former = NotationInForce();
    gConventions = kDipDirectionFirst;
    EXPECT_NE(NotationInForce(), former);
    RenewOrientationTexts();
    EXPECT_EQ(gActivePlot, second);
    EXPECT_NE(BoxOf(first), before);
    EXPECT_EQ(BoxOf(first), BoxOf(second));
    ReplotActivePlot(true);
    EXPECT_EQ(BoxOf(first), BoxOf(second)) << "as a drawing would have it";
    EXPECT_EQ(RecordOf(first).Modified, 0);
}

TEST_F(NotationTest, AChangeShowsInTheGirdles) {
    NewPlotOfPlanes();
    UpdateGirdle(3, "30/120");
    ASSERT_EQ(GirdleText(3), "30/120");
    const std::string girdle = GirdleText(10);
    gConventions = kDipDirectionFirst;
    RenewOrientationTexts();
    EXPECT_EQ(GirdleText(3), "120/30");
    EXPECT_NE(GirdleText(10), girdle);
    EXPECT_EQ(GirdleText(4), "") << "one that was never set stays empty";
    gConventions = kDipDipDirection;
    RenewOrientationTexts();
    EXPECT_EQ(GirdleText(3), "30/120");
    EXPECT_EQ(GirdleText(10), girdle);
}

} // namespace
} // namespace quandrel
