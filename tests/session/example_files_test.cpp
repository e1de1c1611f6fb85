// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "persistence/open_plot.h"
#include "session/example_files.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace quandrel {
namespace {

class ExampleFilesOpened : public EngineTest {
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 100);
    }
};

/// The rows of each, as the page of the examples states them.
const std::map<std::string, int>& Rows() {
    static const std::map<std::string, int> rows = {
        {"folded_bedding.txt", 120},   {"cleavage.txt", 64},  {"fold_hinges_polar.txt", 44},
        {"faults_slip_lines.txt", 72}, {"joints.csv", 150},   {"outcrop_model.txt", 25},
        {"palaeocurrents.txt", 76},    {"wind_table.txt", 36}};
    return rows;
}

TEST(ExampleFolder, IsThatOfTheSourcesOfABuild) {
    const std::filesystem::path sources = QUANDREL_SOURCE_DIR;
    EXPECT_EQ(FindExampleFolder(sources / "build" / "dev" / "src"), sources / "examples");
    EXPECT_FALSE(FindExampleFolder("/nowhere/bin"));
}

TEST_F(ExampleFilesOpened, AllRowsOfEachAreData) {
    for (const ExampleFile& example : ExampleFiles()) {
        UseFormatOf(example);
        const std::string path = std::string(QUANDREL_SOURCE_DIR) + "/examples/" + example.name;
        ASSERT_NE(OpenPlotFile(std::string("File") + path), kLoadError) << example.name;
        EXPECT_EQ(ActiveRecord().NumData, Rows().at(example.name)) << example.name;
        EXPECT_EQ(ActiveRecord().NumValidData, Rows().at(example.name)) << example.name;
        EXPECT_EQ(ActiveRecord().PrimaryFormat, example.format.primary) << example.name;
    }
}

} // namespace
} // namespace quandrel
