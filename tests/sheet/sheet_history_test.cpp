// SPDX-License-Identifier: MIT

#include "sheet/sheet_history.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

FigureSheet Titled(const std::string& title) {
    FigureSheet sheet;
    sheet.panels.resize(1);
    sheet.panels[0].title = title;
    return sheet;
}

TEST(SheetHistory, GoesBackAndForward) {
    SheetHistory history;
    history.Begin(Titled("a"));
    EXPECT_FALSE(history.CanUndo());
    EXPECT_EQ(history.Undo(), Titled("a")) << "there is no step";
    history.Record(Titled("a"));
    EXPECT_FALSE(history.CanUndo()) << "nothing has changed";
    history.Record(Titled("b"));
    history.Record(Titled("c"));
    EXPECT_EQ(history.Undo(), Titled("b"));
    EXPECT_EQ(history.Undo(), Titled("a"));
    EXPECT_EQ(history.Redo(), Titled("b"));
    EXPECT_TRUE(history.CanRedo());
    history.Record(Titled("d"));
    EXPECT_FALSE(history.CanRedo()) << "what was undone is gone";
    EXPECT_EQ(history.Undo(), Titled("b"));
}

TEST(SheetHistory, ForgetsOldSteps) {
    SheetHistory history;
    history.Begin(Titled("0"));
    for (std::size_t i = 1; i <= SheetHistory::kMostSteps + 5; ++i) {
        history.Record(Titled(std::to_string(i)));
    }
    std::size_t steps = 0;
    while (history.CanUndo()) {
        static_cast<void>(history.Undo());
        ++steps;
    }
    EXPECT_EQ(steps, SheetHistory::kMostSteps);
}

TEST(FigureSheet, APanelIsMovedPastTheOthers) {
    FigureSheet sheet;
    for (const char* title : {"a", "b", "c", "d"}) {
        sheet.panels.push_back(Titled(title).panels[0]);
    }
    const auto titles = [&sheet] {
        std::string text;
        for (const SheetPanel& panel : sheet.panels) {
            text += panel.title;
        }
        return text;
    };
    MovePanel(sheet, 0, 2);
    EXPECT_EQ(titles(), "bcad");
    MovePanel(sheet, 3, 1);
    EXPECT_EQ(titles(), "bdca");
    MovePanel(sheet, 1, 1);
    EXPECT_EQ(titles(), "bdca");
}

} // namespace
} // namespace quandrel
