// SPDX-License-Identifier: MIT
//
// The groups of rows of a plot: which rows belong to each, in which order they are.

#include "core/data_format.h"
#include "core/settings_value.h"
#include "statistics/row_groups.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class RowGroups : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        NewPlot();
        for (int i = 0; i < 5; ++i) {
            AddRow(10 * i, 30 * i);
        }
    }

    static std::vector<RowGroup> Groups(std::int16_t of, const RowClasses& classes = {}) {
        return RowGroupsOf(ActivePlot(), gSettings.styles, classes, of);
    }

    /// The plunges of the rows of a group, as often as rows have them.
    static std::vector<int> PlungesOf(const RowGroup& group) {
        std::vector<int> plunges;
        for (const DistinctLine& line : group.lines.whole) {
            plunges.insert(plunges.end(), static_cast<std::size_t>(line.rows), line.plunge);
        }
        return plunges;
    }
};

TEST_F(RowGroups, OfThePlotAreItsMainRows) {
    const auto groups = Groups(kRegionsOfPlot);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_TRUE(groups[0].name.empty());
    EXPECT_EQ(groups[0].kind, RowGroupKind::MainRows);
    EXPECT_FALSE(groups[0].isPolar);
    EXPECT_EQ(PlungesOf(groups[0]), (std::vector{0, 10, 20, 30, 40}));
}

TEST_F(RowGroups, ClassesWithoutRowsAreLeftOut) {
    RowClasses classes;
    classes.ofRow = {0, 1, 1, 3, 0, 3};
    classes.names = {"", "low", "middle", "high"};
    const auto groups = Groups(kRegionsOfPlot | kRegionsOfClasses, classes);
    ASSERT_EQ(groups.size(), 3U);
    EXPECT_EQ(groups[1].name, "low");
    EXPECT_EQ(PlungesOf(groups[1]), (std::vector{0, 10}));
    EXPECT_EQ(groups[2].name, "high");
    EXPECT_EQ(groups[2].kind, RowGroupKind::Class);
    EXPECT_EQ(groups[2].number, 3);
    EXPECT_EQ(PlungesOf(groups[2]), (std::vector{20, 40}));
}

TEST_F(RowGroups, PolarLinesHaveASense) {
    ActiveRecord().DataKind = kPolarLines;
    EXPECT_TRUE(Groups(kRegionsOfPlot)[0].isPolar);
}

} // namespace
} // namespace quandrel
