// SPDX-License-Identifier: MIT

#include "input/file_loading.h"
#include "input/further_files.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

namespace fs = std::filesystem;

using Paths = std::vector<std::string>;

/// A folder "data" with the data file in it, and files beside that folder.
class FurtherFiles : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        fs::create_directories(folder / "data" / "sub");
        fs::create_directories(folder / "data2");
        for (const char* name : {"data/main.txt", "data/beside.txt", "data/sub/below.txt",
                                 "data2/other.txt", "secret.txt"}) {
            WriteFile(name, "40\t130\n");
        }
    }

    void TearDown() override {
        SetOutsideFiles(OutsideFiles::Ask);
        EngineTest::TearDown();
    }

    [[nodiscard]] std::string Path(const std::string& name) const {
        return (folder / name).string();
    }

    [[nodiscard]] std::optional<Paths> Further(const Paths& names) const {
        return FurtherFilesOf(Path("data/main.txt"), names);
    }
};

TEST_F(FurtherFiles, BesideAndBelowAreReadWithoutAQuestion) {
    EXPECT_EQ(Further({"beside.txt", "sub/below.txt", "missing.txt", "../gone.txt", "sub",
                       Path("data/sub/below.txt"), "../data/beside.txt"}),
              (Paths{Path("data/beside.txt"), Path("data/sub/below.txt"),
                     Path("data/sub/below.txt"), Path("data/beside.txt")}));
}

TEST_F(FurtherFiles, ThoseThatAreNotThereAreNamedOnce) {
    EXPECT_EQ(MissingFilesOf(Path("data/main.txt"), Paths{"missing.txt", "beside.txt",
                                                          "../gone.txt", "sub", "missing.txt"}),
              (Paths{"missing.txt", "../gone.txt", "sub"}));
    EXPECT_EQ(MissingFilesOf(Path("data/main.txt"), Paths{"beside.txt"}), Paths{});
}

TEST_F(FurtherFiles, ALoadSaysWhichWereNotFoundAndGoesOn) {
    const std::string path =
        WriteFile("data/all.txt", "/Xgone.txt\t/Xbeside.txt\n30\t120\n45\t200\n");
    NewPlot();
    AcceptFormat();
    Expect("1 non-data (blank, comments, etc.) lines were found in this file.\n"
           "This further file was not found: gone.txt");
    ASSERT_EQ(ReadTextFile(kNewCommand, path), kNewCommand);
    EXPECT_EQ(ActiveRecord().NumValidData, 3);
    EXPECT_EQ(LastLoad().missingFiles, Paths{"gone.txt"});

    const std::string two = WriteFile("data/two.txt", "/Xgone.txt\t/Xlost.txt\n30\t120\n");
    NewPlot();
    AcceptFormat();
    Expect("\nThese further files were not found: gone.txt, lost.txt");
    ASSERT_EQ(ReadTextFile(kNewCommand, two), kNewCommand);
}

TEST_F(FurtherFiles, OthersAreAskedAboutOnce) {
    const Paths names = {"../secret.txt", "beside.txt", Path("data2/other.txt")};
    Expect("main.txt names files outside its folder:\n" + Path("secret.txt") + "\n"
               + Path("data2/other.txt") + "\nRead them too?",
           Button::No);
    EXPECT_EQ(Further(names), Paths{Path("data/beside.txt")});
    EXPECT_EQ(prompts.Shown().back().message.safe, Button::No);
    Expect("Read them too?", Button::Yes);
    EXPECT_EQ(Further(names),
              (Paths{Path("secret.txt"), Path("data/beside.txt"), Path("data2/other.txt")}));
}

TEST_F(FurtherFiles, LinksCountByWhereTheyLead) {
    fs::create_symlink(folder / "secret.txt", folder / "data" / "link.txt");
    fs::create_symlink("sub/below.txt", folder / "data" / "inner.txt");
    fs::create_symlink(folder / "data2", folder / "data" / "out");
    EXPECT_TRUE(IsOutside(folder / "data" / "link.txt", folder / "data"));
    EXPECT_FALSE(IsOutside(folder / "data" / "inner.txt", folder / "data"));
    EXPECT_TRUE(IsOutside(folder / "data" / "out" / "other.txt", folder / "data"));
    EXPECT_FALSE(IsOutside(folder / "data" / "out" / "other.txt", folder / "data2"));
    Expect("names files outside its folder:\n" + Path("data/link.txt") + "\n"
               + Path("data/out/other.txt") + "\n" + Path("secret.txt") + "\nRead",
           Button::No);
    // ".." after a link leads to the folder above the link's target.
    EXPECT_EQ(Further({"link.txt", "inner.txt", "out/other.txt", "out/../secret.txt"}),
              Paths{Path("data/inner.txt")});
}

TEST_F(FurtherFiles, TheDataFilesFolderMayBeALinkItself) {
    fs::create_directory_symlink(folder / "data", folder / "here");
    EXPECT_EQ(FurtherFilesOf(Path("here/main.txt"), Paths{"beside.txt"}),
              Paths{Path("here/beside.txt")});
}

TEST_F(FurtherFiles, AFolderWhoseNameOnlyBeginsAlikeIsOutside) {
    EXPECT_TRUE(IsOutside(folder / "data2" / "other.txt", folder / "data"));
    EXPECT_TRUE(IsOutside(folder / "none.txt", folder));
    EXPECT_FALSE(IsOutside(folder / "secret.txt", folder));
}

TEST_F(FurtherFiles, WithoutAnybodyToAskTheyAreRefusedOrRead) {
    SetOutsideFiles(OutsideFiles::Refuse);
    EXPECT_EQ(Further({"beside.txt"}), Paths{Path("data/beside.txt")});
    Expect("main.txt names files outside its folder:\n" + Path("secret.txt")
           + "\nThey are read only with --allow-outside.");
    EXPECT_EQ(Further({"beside.txt", "../secret.txt"}), std::nullopt);
    SetOutsideFiles(OutsideFiles::Read);
    EXPECT_EQ(Further({"../secret.txt"}), Paths{Path("secret.txt")});
}

TEST_F(FurtherFiles, ALoadGoesOnWithoutThoseThatAreNotToBeRead) {
    const std::string path = WriteFile("data/all.txt", "/X../secret.txt\t/Xbeside.txt\n30\t120\n");
    for (const bool read : {false, true}) {
        NewPlot();
        AcceptFormat();
        Expect("Read them too?", read ? Button::Yes : Button::No);
        Expect("1 non-data");
        ASSERT_EQ(ReadTextFile(kNewCommand, path), kNewCommand);
        EXPECT_EQ(ActiveRecord().NumValidData, read ? 3 : 2);
    }
    NewPlot();
    AcceptFormat();
    SetOutsideFiles(OutsideFiles::Refuse);
    Expect("--allow-outside");
    EXPECT_EQ(ReadTextFile(kNewCommand, path), kLoadError);
    EXPECT_EQ(ActiveRecord().NumData, 0);
    EXPECT_TRUE(formatQuestions.empty());
}

} // namespace
} // namespace quandrel
