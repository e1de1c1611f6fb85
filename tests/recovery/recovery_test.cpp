// SPDX-License-Identifier: MIT

#include "persistence/binary_plot_file.h"
#include "persistence/open_plot.h"
#include "recovery/recovery.h"
#include "session/closing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>

namespace {

/// Folders with the rights that they were made with.
std::map<std::string, mode_t> madeFolders;

} // namespace

// Replaces the library's function in this program.
extern "C" int mkdir(const char* path, mode_t rights) noexcept {
    madeFolders[path] = rights;
    return static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, rights));
}

namespace quandrel {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOneQuestion =
    "Quandrel was not closed properly. 1 plot was not saved.\nOpen it again?";

std::string BytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class Recovery : public EngineTest {
protected:
    /// A plot with rows that no file holds.
    int UnsavedPlot(std::int32_t firstDip = 30) {
        const int slot = NewPlot();
        AddRow(firstDip, 120);
        AddRow(45, 270);
        ActiveRecord().PlotTitle = "beds";
        return slot;
    }

    [[nodiscard]] fs::path Root() const { return folder / "state" / "recovery"; }

    /// All files below the recovery folder except the locks.
    [[nodiscard]] std::vector<fs::path> CopiesThere() const {
        std::vector<fs::path> files;
        if (fs::exists(Root())) {
            for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Root())) {
                if (entry.is_regular_file() && entry.path().filename() != "lock") {
                    files.push_back(entry.path());
                }
            }
        }
        return files;
    }

    /// A session in a process of its own, which writes all plots, does some more work and is
    /// killed. The work gets a descriptor from which the test awaits `signals` bytes before it
    /// kills.
    void Crash(const std::function<void(RecoverySession&, int)>& work, int signals = 1) const {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            close(ends[0]);
            RecoverySession session(Root());
            work(session, ends[1]);
            for (;;) {
                pause();
            }
        }
        close(ends[1]);
        char byte = 0;
        for (int i = 0; i < signals; ++i) {
            ASSERT_EQ(read(ends[0], &byte, 1), 1);
        }
        whileItLives();
        kill(child, SIGKILL);
        int ending = 0;
        ASSERT_EQ(waitpid(child, &ending, 0), child);
        EXPECT_TRUE(WIFSIGNALED(ending));
        close(ends[0]);
    }

    /// Writes all plots that are due and says so.
    static void WriteAll(RecoverySession& session, int signal) {
        for (const int slot : session.PlotsToWrite()) {
            if (!session.Write(slot).empty()) {
                _exit(1);
            }
        }
        if (write(signal, "w", 1) != 1) {
            _exit(1);
        }
    }

    /// Leaves the unsaved plots of the store behind as a crash does, and empties the store.
    void LeaveBehind() {
        Crash(WriteAll);
        MakeStoreTables();
    }

    std::function<void()> whileItLives = [] {};
};

TEST_F(Recovery, WithoutUnsavedPlotsNothingIsWritten) {
    const int slot = UnsavedPlot();
    ActiveRecord().NumFiles = 1;
    RecoverySession session(Root());
    EXPECT_TRUE(session.PlotsToWrite().empty());
    EXPECT_FALSE(fs::exists(Root()));
    RecordOf(slot).Modified = kTrue;
    EXPECT_EQ(session.PlotsToWrite(), std::vector<int>{slot});
}

TEST_F(Recovery, ACopyIsABinaryPlotFileOfThePlot) {
    const int slot = UnsavedPlot();
    RecoverySession session(Root());
    ASSERT_EQ(session.Write(slot), "");
    ASSERT_EQ(CopiesThere().size(), 1U);
    const Result<BinaryPlot> plot = ReadBinaryPlotFile(CopiesThere()[0].string());
    ASSERT_TRUE(plot) << plot.Error();
    ASSERT_EQ(plot->rows.size(), 2U);
    EXPECT_EQ(plot->rows[0].dip, 30);
    EXPECT_EQ(plot->rows[1].azimuth, 270);
}

TEST_F(Recovery, AFolderIsTheUsersAlone) {
    const int slot = UnsavedPlot();
    RecoverySession session(Root());
    ASSERT_EQ(session.Write(slot), "");
    EXPECT_EQ(fs::status(CopiesThere()[0].parent_path()).permissions(), fs::perms::owner_all);
}

TEST_F(Recovery, WritesAgainOnlyWhatHasChanged) {
    const int slot = UnsavedPlot();
    ActiveRecord().HasAppendedText = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
    ActiveRecord().PlotAnnotations = std::make_unique<Annotations>(1);
    ActiveRecord().PlotSmallCircles = std::make_unique<SmallCircles>();
    RecoverySession session(Root());
    ASSERT_EQ(session.Write(slot), "");
    EXPECT_TRUE(session.PlotsToWrite().empty());

    struct Change {
        const char* what;
        std::function<void()> make;
    };

    const Change changes[] = {
        {"an orientation", [&] { gDataAz.At(slot, 2) = 271; }},
        {"the symbol of a row", [&] { gDataSymbol.At(slot, 1) = CodeOfStyleRow(3); }},
        {"the text of a row", [&] { gAppText.Set(slot, 1, "slate"); }},
        {"a row more", [] { AddRow(1, 2); }},
        {"the description", [] { ActiveRecord().DescriptionText = "north limb"; }},
        {"a girdle", [] { ActiveRecord().AxisItems[3][kItemShown] = true; }},
        {"the kind of plot", [] { ActiveRecord().PlotKind = kEqualAngle; }},
        {"a node of a mark",
         [] {
             (*ActiveRecord().PlotAnnotations)[0].LineNodes = {{1, 2}};
         }},
        {"a small circle", [] { (*ActiveRecord().PlotSmallCircles)[2].Angle = "20"; }},
        {"the path", [] { ActiveRecord().SaveFileName = "/data/beds.qpx"; }},
        {"a file", [] { ActiveRecord().MainFiles.push_back("/data/more.txt"); }},
    };
    for (const Change& change : changes) {
        change.make();
        EXPECT_EQ(session.PlotsToWrite(), std::vector<int>{slot}) << change.what;
        ASSERT_EQ(session.Write(slot), "");
        EXPECT_TRUE(session.PlotsToWrite().empty()) << change.what;
    }
}

TEST_F(Recovery, CopiesOfSavedAndClosedPlotsGo) {
    const int saved = UnsavedPlot();
    const int closed = UnsavedPlot();
    const int open = UnsavedPlot();
    RecoverySession session(Root());
    for (const int slot : session.PlotsToWrite()) {
        ASSERT_EQ(session.Write(slot), "");
    }
    session.DropSettled();
    EXPECT_EQ(CopiesThere().size(), 3U);
    RecordOf(saved).NumFiles = 1;
    CloseWithLinks(closed);
    session.DropSettled();
    ASSERT_EQ(CopiesThere().size(), 1U);
    EXPECT_EQ(CopiesThere()[0].filename(), "plot_" + std::to_string(open) + ".qpx");
    // Changed again after it was saved.
    RecordOf(saved).Modified = kTrue;
    EXPECT_EQ(session.PlotsToWrite(), std::vector<int>{saved});
}

TEST_F(Recovery, ACopyGoesWithItsPlotThoughAnotherTakesTheSlot) {
    const int closed = UnsavedPlot();
    RecoverySession session(Root());
    ASSERT_EQ(session.Write(closed), "");
    CloseWithLinks(closed);
    ASSERT_EQ(UnsavedPlot(), closed);
    session.DropSettled();
    EXPECT_TRUE(CopiesThere().empty()) << "the copy does not belong to the new plot";
    EXPECT_EQ(session.PlotsToWrite(), std::vector<int>{closed});
}

TEST_F(Recovery, AnEndInGoodOrderLeavesNothing) {
    const int slot = UnsavedPlot();
    {
        RecoverySession session(Root());
        ASSERT_EQ(session.Write(slot), "");
    }
    EXPECT_TRUE(fs::is_empty(Root()));
}

TEST_F(Recovery, ASessionThatRunsIsNotOffered) {
    UnsavedPlot();
    bool asked = false;
    whileItLives = [&] {
        asked = true;
        EXPECT_EQ(CopiesThere().size(), 1U);
        EXPECT_TRUE(LeftPlots(Root()).Files().empty());
        RecoverySession other(Root());
        EXPECT_TRUE(OfferRecovery(other).empty());
    };
    Crash(WriteAll);
    EXPECT_TRUE(asked);
    EXPECT_EQ(LeftPlots(Root()).Files().size(), 1U);
}

TEST_F(Recovery, TwoStartsDoNotOfferTheSamePlots) {
    UnsavedPlot();
    LeaveBehind();
    const LeftPlots first(Root());
    EXPECT_EQ(first.Files().size(), 1U);
    EXPECT_TRUE(LeftPlots(Root()).Files().empty());
}

TEST_F(Recovery, AfterACrashPlotsComeBackUnsavedUnderTheirNames) {
    const int slot = UnsavedPlot();
    PlotRecord& record = RecordOf(slot);
    AddOverlay(kOverlayPoles, 10, 20, CodeOfStyleRow(2));
    record.Modified = kTrue;
    record.PlotTitle = "beds.qpx: 7";
    record.SaveFileName = "/data/a folder/beds.qpx";
    record.FileTitle = "beds.qpx";
    record.NumFiles = 2;
    record.FileNames[kFirstFile] = "/data/a.txt";
    record.FileNames[kFirstFile + 1] = "/data/b.txt";
    record.MainFiles = {"/data/a.txt"};
    record.OverlayFiles[1] = {"/data/b.txt"};
    record.DescriptionText = "north limb";
    LeaveBehind();

    RecoverySession session(Root());
    Expect(kOneQuestion, Button::Yes);
    const std::vector<int> slots = OfferRecovery(session);
    ASSERT_EQ(slots, std::vector<int>{1});
    const PlotRecord& back = RecordOf(1);
    EXPECT_TRUE(HoldsUnsavedData(1));
    EXPECT_EQ(back.PlotTitle, "beds.qpx: 7");
    EXPECT_EQ(back.SaveFileName, "/data/a folder/beds.qpx");
    EXPECT_EQ(back.FileTitle, "beds.qpx");
    EXPECT_EQ(back.NumFiles, 2);
    EXPECT_EQ(back.FileNames[kFirstFile + 1], "/data/b.txt");
    EXPECT_EQ(back.MainFiles, std::vector<std::string>{"/data/a.txt"});
    EXPECT_EQ(back.OverlayFiles[1], std::vector<std::string>{"/data/b.txt"});
    EXPECT_EQ(back.DescriptionText, "north limb");
    EXPECT_EQ(back.NumData, 2);
    EXPECT_EQ(back.OverlayRows[1], 1);
    EXPECT_EQ(gDataDip(1, 1), 30);
    EXPECT_EQ(gDataAz(1, 3), 20);
    EXPECT_EQ(Form(1).Caption().rfind("beds.qpx: 7", 0), 0U);
    EXPECT_TRUE(gSettings.files.recent.empty());
}

TEST_F(Recovery, APlotWithoutAPathHasNoneAfterwards) {
    UnsavedPlot();
    LeaveBehind();
    RecoverySession session(Root());
    Expect(kOneQuestion, Button::Yes);
    ASSERT_EQ(OfferRecovery(session).size(), 1U);
    EXPECT_EQ(RecordOf(1).PlotTitle, "beds");
    EXPECT_EQ(RecordOf(1).SaveFileName, "");
    EXPECT_EQ(RecordOf(1).NumFiles, 0);
    EXPECT_EQ(RecordOf(1).FileNames[kFirstFile], "");
}

TEST_F(Recovery, WhatIsOpenedAgainBelongsToTheNewSession) {
    UnsavedPlot(11);
    UnsavedPlot(22);
    LeaveBehind();
    RecoverySession session(Root());
    Expect("Quandrel was not closed properly. 2 plots were not saved.\nOpen them again?",
           Button::Yes);
    ASSERT_EQ(OfferRecovery(session).size(), 2U);
    EXPECT_EQ(gDataDip(1, 1), 11);
    EXPECT_EQ(gDataDip(2, 1), 22);
    EXPECT_EQ(CopiesThere().size(), 2U);
    EXPECT_TRUE(session.PlotsToWrite().empty());
    EXPECT_TRUE(LeftPlots(Root()).Files().empty());
    RecordOf(1).Modified = 0;
    RecordOf(1).NumFiles = 1;
    session.DropSettled();
    EXPECT_EQ(CopiesThere().size(), 1U);
}

TEST_F(Recovery, ACrashAfterRecoveryLosesNothing) {
    UnsavedPlot(17);
    LeaveBehind();
    Crash([this](RecoverySession& session, int signal) {
        Expect(kOneQuestion, Button::Yes);
        OfferRecovery(session);
        if (write(signal, "o", 1) != 1) {
            _exit(1);
        }
    });
    EXPECT_EQ(CountOpenPlots(), 0);
    RecoverySession session(Root());
    Expect(kOneQuestion, Button::Yes);
    ASSERT_EQ(OfferRecovery(session).size(), 1U);
    EXPECT_EQ(gDataDip(1, 1), 17);
    EXPECT_EQ(RecordOf(1).PlotTitle, "beds");
}

TEST_F(Recovery, ANoKeepsThePlotsUntilTheyMayBeRemoved) {
    UnsavedPlot();
    LeaveBehind();
    RecoverySession session(Root());
    Expect(kOneQuestion, Button::No);
    Expect("Remove the unsaved plot for good?", Button::No);
    EXPECT_TRUE(OfferRecovery(session).empty());
    EXPECT_EQ(CopiesThere().size(), 1U);
    Expect(kOneQuestion, Button::No);
    Expect("Remove the unsaved plot for good?", Button::Yes);
    EXPECT_TRUE(OfferRecovery(session).empty());
    EXPECT_TRUE(fs::is_empty(Root()));
    EXPECT_TRUE(OfferRecovery(session).empty());
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(Recovery, ACopyThatIsDamagedIsToldAndTheOthersOpen) {
    UnsavedPlot(11);
    UnsavedPlot(22);
    LeaveBehind();
    const fs::path damaged = LeftPlots(Root()).Files()[0];
    fs::resize_file(damaged, 100);
    RecoverySession session(Root());
    Expect("2 plots were not saved", Button::Yes);
    Expect("An unsaved plot cannot be opened again\n" + damaged.string());
    ASSERT_EQ(OfferRecovery(session).size(), 1U);
    EXPECT_EQ(gDataDip(1, 1), 22);
    EXPECT_TRUE(fs::exists(damaged));
}

TEST_F(Recovery, ACopyOfAnyLengthWithoutItsNamesIsAPlotWithoutAPath) {
    const int slot = UnsavedPlot();
    const Result<std::string> plot = BinaryPlotBytes(slot);
    const Result<std::string> copy = RecoveryCopyBytes(slot);
    ASSERT_TRUE(plot && copy);
    ASSERT_TRUE(copy->starts_with(*plot));
    for (std::size_t length = plot->size(); length < copy->size(); ++length) {
        const std::string path = WriteFile("cut.qpx", copy->substr(0, length));
        const RecoveredPlot recovered = OpenRecoveryCopy(path);
        ASSERT_GT(recovered.slot, 0) << length;
        EXPECT_EQ(RecordOf(recovered.slot).SaveFileName, "");
        EXPECT_NE(RecordOf(recovered.slot).PlotTitle.find("Recovered"), std::string::npos);
        EXPECT_TRUE(HoldsUnsavedData(recovered.slot));
        CloseWithLinks(recovered.slot);
    }
}

TEST_F(Recovery, NamesOfAnyBytesAreNoDanger) {
    const int slot = UnsavedPlot();
    const Result<std::string> plot = BinaryPlotBytes(slot);
    ASSERT_TRUE(plot);
    using std::string_literals::operator""s;
    const std::string tails[] = {
        "0000000000QuandrelRecovery",
        "9999999999QuandrelRecovery",
        "-000000001QuandrelRecovery",
        "title without an end0000000020QuandrelRecovery",
        "t\0p\0f\0h\00099999999999999999999\0x\0"s + "0000000031QuandrelRecovery",
        "t\0p\0f\0h\00030\0"s + std::string(30, '\0') + "0000000041QuandrelRecovery",
    };
    for (const std::string& tail : tails) {
        const RecoveredPlot recovered = OpenRecoveryCopy(WriteFile("odd.qpx", *plot + tail));
        ASSERT_GT(recovered.slot, 0);
        EXPECT_LE(RecordOf(recovered.slot).NumFiles, kMaxFiles);
        EXPECT_EQ(gDataDip(recovered.slot, 1), 30);
        CloseWithLinks(recovered.slot);
    }
}

TEST_F(Recovery, AKillAtAnyMomentLeavesAWholeCopy) {
    UnsavedPlot();
    for (std::int32_t row = 3; row <= 3000; ++row) {
        AddRow(row % 90, row % 360);
    }
    for (int kills = 1; kills <= 25; ++kills) {
        Crash(
            [](RecoverySession& session, int signal) {
                for (std::int32_t dip = 1;; dip = dip % 89 + 1) {
                    gDataDip.At(gActivePlot, 1) = dip;
                    gDataDip.At(gActivePlot, 3000) = dip;
                    WriteAll(session, signal);
                }
            },
            1 + kills % 4);
        LeftPlots left(Root());
        ASSERT_EQ(left.Files().size(), 1U) << kills;
        const Result<BinaryPlot> plot = ReadBinaryPlotFile(left.Files()[0].string());
        ASSERT_TRUE(plot) << kills << ": " << plot.Error();
        ASSERT_EQ(plot->rows.size(), 3000U);
        EXPECT_EQ(plot->rows[0].dip, plot->rows[2999].dip);
        left.RemoveAll();
    }
    EXPECT_TRUE(fs::is_empty(Root()));
}

TEST_F(Recovery, AFolderThatCannotBeMadeIsAnError) {
    const int slot = UnsavedPlot();
    WriteFile("state", "a file where the folder would be");
    RecoverySession session(Root());
    EXPECT_NE(session.Write(slot), "");
    EXPECT_EQ(session.PlotsToWrite(), std::vector<int>{slot});
    fs::remove(folder / "state");
    EXPECT_EQ(session.Write(slot), "");
}

TEST_F(Recovery, AFailureIsToldOnceForEachPlot) {
    const int first = UnsavedPlot();
    RecordOf(first).PlotTitle = "beds: 1";
    WriteFile("state", "a file where the folder would be");
    RecoverySession session(Root());
    EXPECT_EQ(session.FailuresToTell(), "");
    const std::string error = session.Write(first);
    ASSERT_NE(error, "");
    EXPECT_EQ(session.FailuresToTell(), "beds: 1 cannot be kept for recovery: " + error);
    ASSERT_NE(session.Write(first), "");
    EXPECT_EQ(session.FailuresToTell(), "") << "it is known";
    const int second = UnsavedPlot();
    RecordOf(second).PlotTitle = "joints: 2";
    for (const int slot : session.PlotsToWrite()) {
        ASSERT_NE(session.Write(slot), "");
    }
    EXPECT_EQ(session.FailuresToTell(), "joints: 2 cannot be kept for recovery: " + error);
}

TEST_F(Recovery, AFailureIsNewsAgainAfterACopyOrForAnotherPlot) {
    const int slot = UnsavedPlot();
    RecordOf(slot).PlotTitle = "beds: 1";
    WriteFile("state", "a file where the folder would be");
    RecoverySession session(Root());
    const auto isNews = [&session](int plot) {
        EXPECT_NE(session.Write(plot), "");
        return !session.FailuresToTell().empty();
    };
    EXPECT_TRUE(isNews(slot));
    EXPECT_FALSE(isNews(slot));
    CloseWithLinks(slot);
    session.DropSettled();
    ASSERT_EQ(UnsavedPlot(), slot);
    RecordOf(slot).PlotTitle = "beds: 1";
    EXPECT_TRUE(isNews(slot)) << "another plot under the same title";
    CloseWithLinks(slot);
    ASSERT_EQ(UnsavedPlot(), slot);
    EXPECT_TRUE(isNews(slot)) << "another plot before anybody saw that the first was closed";
    fs::remove(folder / "state");
    EXPECT_EQ(session.Write(slot), "");
    EXPECT_EQ(session.FailuresToTell(), "");
    fs::remove_all(folder / "state"); // the disk goes away
    EXPECT_TRUE(isNews(slot));
}

TEST_F(Recovery, FailuresOfARoundAreToldTogether) {
    struct Case {
        int plots;
        const char* names;
    };

    WriteFile("state", "a file where the folder would be");
    for (const Case& test :
         {Case{2, "plot 1, plot 2"}, Case{3, "plot 1, plot 2, plot 3"}, Case{4, "4 plots"}}) {
        MakeStoreTables();
        RecoverySession session(Root());
        std::string error;
        for (int i = 1; i <= test.plots; ++i) {
            const int slot = UnsavedPlot();
            RecordOf(slot).PlotTitle = "plot " + std::to_string(i);
            error = session.Write(slot);
        }
        EXPECT_EQ(session.FailuresToTell(),
                  std::string(test.names) + " cannot be kept for recovery: " + error);
    }
}

TEST_F(Recovery, ADiskThatIsFullKeepsTheEarlierCopy) {
    const int slot = UnsavedPlot();
    RecoverySession session(Root());
    ASSERT_EQ(session.Write(slot), "");
    const std::string earlier = BytesOf(CopiesThere()[0]);
    gDataDip.At(slot, 1) = 31;
    // A limit on the size of files simulates a full disk.
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, former.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string error = session.Write(slot);
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);
    EXPECT_NE(error, "");
    ASSERT_EQ(CopiesThere().size(), 1U);
    EXPECT_EQ(BytesOf(CopiesThere()[0]), earlier);
    EXPECT_EQ(session.PlotsToWrite(), std::vector<int>{slot});
}

TEST_F(Recovery, WhatIsNoSessionIsLeftAlone) {
    fs::create_directories(Root() / "notes");
    std::ofstream(Root() / "notes" / "plot_1.qpx") << "mine";
    std::ofstream(Root() / "12-1") << "a file";
    fs::create_directories(Root() / "12-2");
    std::ofstream(Root() / "12-2" / "plot_x.qpx") << "no copy";
    { EXPECT_TRUE(LeftPlots(Root()).Files().empty()); }
    EXPECT_EQ(BytesOf(Root() / "notes" / "plot_1.qpx"), "mine");
    EXPECT_EQ(BytesOf(Root() / "12-1"), "a file");
    EXPECT_FALSE(fs::exists(Root() / "12-2"));
}

TEST_F(Recovery, WithoutRoomForItAPlotWaitsForTheNextStart) {
    UnsavedPlot();
    LeaveBehind();
    const std::int16_t former = gMaxPlots;
    gMaxPlots = 1;
    NewPlot();
    RecoverySession session(Root());
    Expect(kOneQuestion, Button::Yes);
    Expect("You have too many plot windows");
    Expect("An unsaved plot cannot be opened again");
    EXPECT_TRUE(OfferRecovery(session).empty());
    gMaxPlots = former;
    EXPECT_EQ(LeftPlots(Root()).Files().size(), 1U);
}

TEST_F(Recovery, NobodyElseMayEverLookIntoTheFolder) {
    UnsavedPlot();
    const mode_t former = ::umask(0);
    madeFolders.clear();
    RecoverySession session(Root());
    EXPECT_EQ(session.Write(gActivePlot), "");
    ::umask(former);
    ASSERT_EQ(madeFolders.count(Root().string()), 1U);
    EXPECT_EQ(madeFolders.at(Root().string()), 0700U);
    int folders = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(Root())) {
        EXPECT_EQ(madeFolders.at(entry.path().string()), 0700U);
        ++folders;
    }
    EXPECT_EQ(folders, 1);
}

} // namespace
} // namespace quandrel
