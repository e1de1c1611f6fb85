// SPDX-License-Identifier: MIT
//
// Styles of plots: chosen, read, written, for new plots and for print.

#include "core/plot_style.h"
#include "core/settings.h"
#include "core/settings_group.h"
#include "edit/history/undo.h"
#include "persistence/binary_plot_file.h"
#include "session/style_commands.h"
#include "session/window_state.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <fstream>
#include <iterator>

namespace quandrel {
namespace {

class StyleCommands : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        NewPlot();
        AddRow(30, 120);
    }

    static std::string NameNow() { return StyleOfPlot(ActiveRecord())->name; }

    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name) << text;
        return (folder / name).string();
    }

    std::string Read(const std::string& name) const {
        std::ifstream stream(folder / name);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
};

TEST_F(StyleCommands, ChooseStandardStylesAndAreUndone) {
    EXPECT_EQ(StandardStyleOf(ActiveRecord()), 0U);
    UseStandardStyle(gActivePlot, 2);
    EXPECT_EQ(NameNow(), "Journal");
    EXPECT_EQ(StandardStyleOf(ActiveRecord()), 2U);
    const ToolbarState state = StateOfToolbar();
    for (std::size_t i = 0; i < state.styles.size(); ++i) {
        EXPECT_TRUE(state.styles[i].enabled);
        EXPECT_EQ(state.styles[i].down, i == 2);
    }
    EXPECT_FALSE(state.hasOwnStyle);
    UndoLastEdit();
    EXPECT_EQ(NameNow(), "Classic");
    EXPECT_TRUE(ActiveRecord().StyleName.empty());
}

TEST_F(StyleCommands, TakeTheStyleOfAFile) {
    prompts.QueueOpenPath(Write("thesis.json", R"({"name": "Thesis", "text": {"size": 8}})"));
    OpenStyle(gActivePlot);
    EXPECT_EQ(NameNow(), "Thesis");
    EXPECT_EQ(StyleOfPlot(ActiveRecord())->text.size, 8);
    EXPECT_EQ(StandardStyleOf(ActiveRecord()), std::nullopt);
    EXPECT_TRUE(StateOfToolbar().hasOwnStyle);
}

TEST_F(StyleCommands, TellWhatIsWrongWithAFile) {
    prompts.QueueOpenPath(Write("bad.json", R"({"text": {"size": "small"}})"));
    prompts.Expect("text.size is wrong", Button::Ok);
    OpenStyle(gActivePlot);
    EXPECT_EQ(NameNow(), "Classic");
    OpenStyle(gActivePlot); // cancelled
    EXPECT_EQ(NameNow(), "Classic");
}

TEST_F(StyleCommands, WriteAStyleThatIsReadAgain) {
    UseStandardStyle(gActivePlot, 3);
    prompts.QueueSavePath((folder / "grey.json").string());
    SaveStyle(gActivePlot);
    EXPECT_NE(Read("grey.json").find("\"name\": \"Grey\""), std::string::npos);
    prompts.QueueOpenPath((folder / "grey.json").string());
    OpenStyle(gActivePlot);
    EXPECT_EQ(*StyleOfPlot(ActiveRecord()), *StandardStyle(kGreyStyle));
    prompts.QueueSavePath((folder / "nowhere" / "grey.json").string());
    prompts.Expect("The style could not be saved", Button::Ok);
    SaveStyle(gActivePlot);
}

TEST_F(StyleCommands, GiveNewPlotsTheStyleOfThisOne) {
    UseStandardStyle(gActivePlot, 2);
    UseStyleForNewPlots(gActivePlot);
    NewPlot();
    EXPECT_EQ(NameNow(), "Journal");
    ASSERT_TRUE(SaveSettings(SettingsGroup::Session));
    gSettings.newPlots.style = {};
    LoadSettings();
    EXPECT_EQ(gSettings.newPlots.style.name, "Journal");
}

TEST_F(StyleCommands, LeaveFilesWithoutAStyleInClassic) {
    const Result<std::string> bytes = BinaryPlotBytes(gActivePlot);
    ASSERT_TRUE(bytes);
    gSettings.newPlots.style = ChoiceOfStandard(kScreenStyle);
    NewPlot();
    EXPECT_EQ(NameNow(), "Screen");
    Result<BinaryPlot> read = ReadBinaryPlot(*bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->record.StyleName, "");
}

TEST_F(StyleCommands, PrintPlotsOfTheScreenInTheStyleOfExports) {
    const auto nameForPrint = [] {
        return StyleOfChoice(StyleChoiceForPrint(ActiveRecord()))->name;
    };
    EXPECT_EQ(nameForPrint(), "Journal") << "from Classic";
    UseStandardStyle(gActivePlot, 1);
    EXPECT_EQ(nameForPrint(), "Journal") << "from Screen";
    UseStandardStyle(gActivePlot, 3);
    EXPECT_EQ(nameForPrint(), "Grey") << "a choice for print";
    UseStandardStyle(gActivePlot, 1);
    gSettings.files.exportStyle = ChoiceOfStandard(kGreyStyle);
    EXPECT_EQ(nameForPrint(), "Grey");
}

TEST(FirstRun, BeginsPlotsInScreenAndExportsInJournal) {
    Settings fresh;
    EXPECT_EQ(StyleOfChoice(fresh.newPlots.style)->name, "Classic") << "without a settings file";
    EXPECT_EQ(StyleOfChoice(fresh.files.exportStyle)->name, "Journal");
}

} // namespace
} // namespace quandrel
