// SPDX-License-Identifier: MIT

#include "core/plot_slots.h"
#include "core/row_table.h"
#include "orientation/angles.h"

#include <algorithm>
#include <random>

namespace quandrel {
namespace {

TEST(RowTexts, KeepsTheLastTextOfEveryRowThroughManyWrites) {
    RowTexts column;
    column.Grow(300);
    std::vector<std::string> expected(301);
    std::mt19937 random(7);
    for (int write = 0; write < 20000; ++write) {
        const auto row = static_cast<std::int32_t>(1 + random() % 300);
        const std::string text(random() % 20, static_cast<char>('a' + random() % 26));
        column.Set(row, text);
        expected[static_cast<std::size_t>(row)] = text;
    }
    for (std::int32_t row = 1; row <= 300; ++row) {
        EXPECT_EQ(column(row), expected[static_cast<std::size_t>(row)]) << row;
    }
}

TEST(RowTexts, ARowNeverWrittenIsEmpty) {
    RowTexts column;
    column.Grow(5);
    EXPECT_EQ(column(3), "");
    EXPECT_EQ(column(9), "");
}

TEST(RowColumn, AGrowthThatIsTakenBackLeavesNoTrace) {
    RowColumn<int> column;
    column.Grow(10);
    column.At(10) = 7;
    column.Grow(100);
    column.Shrink(11);
    EXPECT_EQ(column.RowCount(), 11);
    EXPECT_EQ(column(10), 7);
    EXPECT_EQ(column(11), 0);
}

TEST(RowColumn, ReleasedCellsReadAsTheDefault) {
    RowColumn<int> column;
    column.Grow(10);
    column.At(10) = 7;
    column.Release();
    EXPECT_EQ(column.RowCount(), 0);
    EXPECT_EQ(column(10), 0);
}

TEST(PlotAttachments, HoldsAValueOfEachTypeUntilItIsDropped) {
    struct Count {
        int value = 3;
    };

    PlotAttachments attachments;
    EXPECT_EQ(attachments.Find<Count>(), nullptr);
    Count& count = attachments.Of<Count>();
    EXPECT_EQ(count.value, 3);
    count.value = 5;
    attachments.Of<std::string>() = "text";
    EXPECT_EQ(&attachments.Of<Count>(), &count);
    EXPECT_EQ(attachments.Find<Count>()->value, 5);
    attachments.Drop<Count>();
    EXPECT_EQ(attachments.Find<Count>(), nullptr);
    EXPECT_EQ(*attachments.Find<std::string>(), "text");
    attachments.Clear();
    EXPECT_EQ(attachments.Find<std::string>(), nullptr);
}

TEST(RowTable, SortsTheMainRowsByXAndLeavesTheRest) {
    RowTable table;
    std::mt19937 random(11);
    for (int row = 1; row <= 500; ++row) {
        const auto x = static_cast<std::int16_t>(static_cast<int>(random() % 41) - 20);
        AppendRow(table, {row, x, static_cast<std::int16_t>(row), 0.001 * row, 0.002 * row});
    }
    const RowTable before = table;
    SortRowTable(table, 400);
    std::vector<std::size_t> order(400);
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return before.x[a] < before.x[b]; });
    for (std::size_t i = 0; i < 500; ++i) {
        const PlottedRow expected = before[i < 400 ? order[i] : i];
        EXPECT_EQ(table.index[i], expected.index);
        EXPECT_EQ(table.x[i], expected.x);
        EXPECT_EQ(table.y[i], expected.y);
        EXPECT_EQ(table.plunge[i], expected.plunge);
        EXPECT_EQ(table.trend[i], expected.trend);
    }
}

TEST(RowTable, AnErrorRowShowsItsMarkAndNoPosition) {
    RowTable table;
    AppendRow(table, {3, 0, 0, static_cast<double>(kErrorRow), 0});
    EXPECT_EQ(RowTableText(table, 0, 0), "3");
    EXPECT_EQ(RowTableText(table, 0, 1), "");
    EXPECT_EQ(RowTableText(table, 0, 3), "-9999");
    EXPECT_EQ(RowTableText(table, 0, 4), "");
}

} // namespace
} // namespace quandrel
