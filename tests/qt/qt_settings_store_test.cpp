// SPDX-License-Identifier: MIT

#include "qt/qt_settings_store.h"

#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace quandrel {
namespace {

/// A folder of its own in place of the user's configuration.
class QtSettings : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    }

    [[nodiscard]] std::filesystem::path File(const std::string& application) const {
        return std::filesystem::path(folder.path().toStdString()) / "quandrel"
               / (application + ".ini");
    }

    void WriteFile(const std::string& application, const std::string& text) const {
        std::filesystem::create_directories(File(application).parent_path());
        std::ofstream(File(application)) << text;
    }

    QTemporaryDir folder;
};

TEST_F(QtSettings, LastFromStoreToStore) {
    const std::string texts[] = {"True",
                                 "False",
                                 "",
                                 " blanks about ",
                                 "1, 2",
                                 "a\tb\r\nc",
                                 "\"quoted\" and \\back\\slashes\\",
                                 "\x1b",
                                 "Gr\xc3\xbc\xc3\x9f "
                                 "\xce\xb2 \xe6\x9d\xb1\xe4\xba\xac",
                                 "@ByteArray(x)",
                                 "%20 ; # = [x]"};
    {
        QtSettingsStore store;
        int number = 0;
        for (const std::string& text : texts) {
            store.Write("Quandrel 9", "Options", std::to_string(number++), text);
        }
        EXPECT_TRUE(store.Sync());
    }
    EXPECT_TRUE(std::filesystem::exists(File("Quandrel 9")));
    const QtSettingsStore store;
    int number = 0;
    for (const std::string& text : texts) {
        EXPECT_EQ(store.Read("Quandrel 9", "Options", std::to_string(number++), "none"), text);
    }
}

TEST_F(QtSettings, GiveTheDefaultWhereThereIsNoKey) {
    QtSettingsStore store;
    EXPECT_EQ(store.Read("Quandrel 9", "Options", "Name", "none"), "none");
    store.Write("Quandrel 9", "Options", "Name", "x");
    EXPECT_EQ(store.Read("Quandrel 9", "Other", "Name", "none"), "none");
    EXPECT_EQ(store.Read("Quandrel 8", "Options", "Name", "none"), "none");
}

TEST_F(QtSettings, AnApplicationIsThereWhileItHasAKey) {
    QtSettingsStore store;
    EXPECT_FALSE(store.Exists("Quandrel 9"));
    store.Write("Quandrel 9", "Options", "Name", "x");
    EXPECT_TRUE(store.Exists("Quandrel 9"));
    EXPECT_FALSE(store.Exists("Quandrel 8"));
    store.Remove("Quandrel 9", "Options", "Name");
    EXPECT_FALSE(store.Exists("Quandrel 9"));
}

TEST_F(QtSettings, KeysThatAreNumbersComeInTheOrderOfTheirValue) {
    QtSettingsStore store;
    for (const char* key : {"10", "Zeta", "2", " 1", "0", "alpha"}) {
        store.Write("Quandrel 9", "General", key, "x");
        store.Write("Quandrel 9", "Other", key, "x");
    }
    const std::vector<std::string> expected = {"0", " 1", "2", "10", "Zeta", "alpha"};
    EXPECT_EQ(store.Keys("Quandrel 9", "General"), expected);
    EXPECT_EQ(store.Keys("Quandrel 9", "Other"), expected);
    EXPECT_TRUE(store.Keys("Quandrel 9", "None").empty());
}

TEST_F(QtSettings, AListThatWasTypedIntoTheFileIsOneText) {
    WriteFile("Quandrel 9", "[Options]\nLimits=1, 2,3\nName=plain\n");
    const QtSettingsStore store;
    EXPECT_EQ(store.Read("Quandrel 9", "Options", "Limits", "none"), "1, 2, 3");
    EXPECT_EQ(store.Read("Quandrel 9", "Options", "Name", "none"), "plain");
}

TEST_F(QtSettings, AFileForAllApplicationsIsNotRead) {
    std::ofstream(std::filesystem::path(folder.path().toStdString()) / "quandrel.ini")
        << "[Options]\nName=of all\n";
    const QtSettingsStore store;
    EXPECT_EQ(store.Read("Quandrel 9", "Options", "Name", "none"), "none");
    EXPECT_FALSE(store.Exists("Quandrel 9"));
}

TEST_F(QtSettings, AFileThatIsNoIniGivesDefaults) {
    WriteFile("Quandrel 9", std::string("\0\xff\xfe[[[\n=\n==\n]", 13));
    const QtSettingsStore store;
    EXPECT_EQ(store.Read("Quandrel 9", "Options", "Name", "none"), "none");
}

TEST_F(QtSettings, KeysOfAnotherProcessComeInWithSyncAndStay) {
    QtSettingsStore store;
    store.Write("Quandrel 9", "Options", "Mine", "1");
    ASSERT_TRUE(store.Sync());
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        QtSettingsStore other;
        other.Write("Quandrel 9", "Options", "Theirs", "a longer text");
        _exit(other.Sync() ? 0 : 1);
    }
    int outcome = 0;
    ASSERT_EQ(waitpid(child, &outcome, 0), child);
    ASSERT_EQ(outcome, 0);
    EXPECT_EQ(store.Read("Quandrel 9", "Options", "Theirs", "none"), "none");
    store.Write("Quandrel 9", "Options", "Mine", "2");
    EXPECT_TRUE(store.Sync());
    EXPECT_EQ(store.Read("Quandrel 9", "Options", "Theirs", "none"), "a longer text");
    EXPECT_EQ(store.Read("Quandrel 9", "Options", "Mine", "none"), "2");
}

TEST_F(QtSettings, SyncTellsWhenNothingCanBeWritten) {
    // A file is in the place of the folder that would have to be created.
    std::ofstream(std::filesystem::path(folder.path().toStdString()) / "quandrel") << "x";
    QtSettingsStore store;
    store.Write("Quandrel 9", "Options", "Name", "x");
    EXPECT_FALSE(store.Sync());
}

} // namespace
} // namespace quandrel
