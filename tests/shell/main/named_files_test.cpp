// SPDX-License-Identifier: MIT

#include "session/start.h"
#include "support/main_window_test.h"

namespace quandrel {
namespace {

class NamedFilesTest : public MainWindowTest {};

TEST_F(NamedFilesTest, AllAreOpenedAndTheMissingOneIsTold) {
    const std::string first = WriteFile("a.txt", "30\t120\n");
    const std::string second = WriteFile("b.txt", "40\t120\n");
    const std::string missing = (folder / "no such file.txt").string();
    prompts.Expect(missing, Button::Ok);
    main->OpenNamedFiles(FilesOfCommandLine({first, missing, second}));
    EXPECT_EQ(CountOpenPlots(), 2);
    EXPECT_EQ(prompts.Problems(), "");
}

} // namespace
} // namespace quandrel
