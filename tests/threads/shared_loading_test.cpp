// SPDX-License-Identifier: MIT
//
// A text is loaded by two threads with the results of one: plots, messages in their order,
// progress, settings.

#include "input/file_loading.h"
#include "input/line_loop.h"
#include "support/nasty_texts.h"
#include "support/printed_plot.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

/// A status line that records what it is told, and reports Esc after some time.
class TracingStatus : public StatusLine {
public:
    /// @param looksBeforeEsc  how often the program looks for Esc before it is pressed
    explicit TracingStatus(int looksBeforeEsc)
        : looksBeforeEsc_(looksBeforeEsc) {}

    void SetText(std::string_view text) override { trace_ << text << '\n'; }

    void SetProgress(std::int64_t done, std::int64_t maximum) override {
        // How often the bar is shown depends on the time; where it begins and ends does not.
        EXPECT_TRUE(done >= lastDone_ || maximum == 0) << "the bar goes back";
        if (lastDone_ == 0 || maximum == 0) {
            trace_ << "progress " << done << " of " << maximum << '\n';
        }
        lastDone_ = done;
    }

    void SetBusy(bool busy) override { trace_ << (busy ? "busy\n" : "free\n"); }

    bool CancelRequested() override { return ++looks_ > looksBeforeEsc_; }

    [[nodiscard]] std::string Trace() const {
        return trace_.str() + "looks " + std::to_string(looks_) + '\n';
    }

private:
    int looksBeforeEsc_;
    int looks_ = 0;
    std::int64_t lastDone_ = 0;
    std::ostringstream trace_;
};

std::string Printed(const FormatSettings& format) {
    std::ostringstream out;
    Print(out, format.conventions);
    Print(out, format.delimiter);
    Print(out, format.primary);
    Print(out, format.secondary);
    Print(out, std::array{format.lineAppended, format.numericAppended, format.nonNumericAppended,
                          format.hasHeadings});
    Print(out, format.numericName);
    Print(out, format.nonNumericName);
    Print(out, format.columns);
    Print(out, format.plotDataKind);
    Print(out, format.plotKind);
    Print(out, format.negativePlunge);
    return out.str();
}

std::string Printed(const LoadCounters& counters) {
    std::ostringstream out;
    Print(out,
          std::array{counters.rowsRead, counters.rowsValid, counters.blankLines, counters.headLines,
                     counters.invalidLines, counters.badNumeric, counters.badText, counters.badLine,
                     counters.upwardLines, counters.invalidInRun, counters.rowsWithDecimals});
    Print(out, counters.negativePlunge);
    Print(out, counters.stoppedAtLine);
    Print(out, std::array{counters.outOfMemory, counters.cancelled, counters.hasMoreDecimals});
    Print(out, counters.missingFiles);
    return out.str();
}

/// The number of generated loads; with the thread sanitizer each takes many times as long.
#if defined(__SANITIZE_THREAD__)
constexpr int kMadeUpLoads = 90;
#else
constexpr int kMadeUpLoads = 300;
#endif

/// Loads into one plot, and what is answered meanwhile.
struct Loads {
    std::vector<std::pair<std::string, std::string>> files; ///< command and path
    FormatSettings format;
    bool decimalIsComma = false;
    bool showsSecondary = false;
    std::vector<Button> answers;
    unsigned otherFormats = 0; ///< how the format is changed when it is asked for again
    int looksBeforeEsc = 1 << 30;
    std::int32_t rowLimit = std::numeric_limits<std::int32_t>::max() / 2;
    std::size_t blockBytes = 64;
};

class SharedLoading : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        patience_ = std::exchange(gPlatform.timeWithoutProgress, std::chrono::milliseconds(0));
        rowLimit_ = gPlatform.mostRows;
    }

    void TearDown() override {
        gPlatform.timeWithoutProgress = patience_;
        gPlatform.mostRows = rowLimit_;
        EngineTest::TearDown();
    }

    /// All results of the loads with that many threads.
    std::string Outcome(const Loads& loads, unsigned threads) {
        TracingStatus tracing(loads.looksBeforeEsc);
        ScriptedPrompts answering(ScriptedPrompts::Mode::Batch);
        Begin(loads, threads, tracing, answering);
        std::ostringstream out;
        NewPlot();
        for (const auto& [command, path] : loads.files) {
            LastLoad() = {};
            out << ReadTextFile(command, path) << '\n' << Printed(LastLoad()) << '\n';
            Note(LastLoad());
        }
        out << Printed(gSettings.format) << gConvertDecimals << '\n' << tracing.Trace();
        for (const ShownBox& box : answering.Shown()) {
            out << box.message.text << " -> " << static_cast<int>(box.answer) << '\n';
        }
        out << PrintedPlot(ActivePlot());
        gPlatform.prompts = &prompts;
        gPlatform.status = &status;
        return out.str();
    }

    void ExpectSameOfBoth(const Loads& loads) {
        const std::string byOne = Outcome(loads, 1);
        EXPECT_EQ(Outcome(loads, 2), byOne);
        if (loads.looksBeforeEsc > 1000000) {
            Loads whole = loads;
            whole.blockBytes = std::size_t{1} << 30;
            EXPECT_EQ(WithoutLooks(Outcome(whole, 1)), WithoutLooks(byOne)) << "as one block";
        }
    }

    /// How often loads ended in each way.
    struct Ends {
        int cancelled = 0;
        int outOfMemory = 0;
        int stopped = 0;
        int valid = 0;
        int converting = 0;
    };

    Ends ends_;

private:
    void Begin(const Loads& loads, unsigned threads, TracingStatus& tracing,
               ScriptedPrompts& answering) {
        MakeStoreTables();
        gSettings.format = loads.format;
        gConvertDecimals = false;
        gDecimalIsComma = loads.decimalIsComma;
        gPlatform.mostRows = loads.rowLimit;
        gPlatform.threads = threads;
        gPlatform.textBlockBytes = loads.blockBytes;
        gPlatform.status = &tracing;
        gPlatform.prompts = &answering;
        for (const Button answer : loads.answers) {
            answering.QueueAnswer(answer);
        }
        int asked = 0;
        answering.OnFormat([asked, &loads](const FormatQuestion& question) mutable {
            FormatAnswer answer;
            answer.columnHeadings = question.columnHeadings;
            answer.plotSecondary = question.showSecondary || loads.showsSecondary;
            if (++asked > static_cast<int>(loads.files.size())) {
                gFileNumericAppended = (loads.otherFormats >> asked & 1) != 0;
                gPrimaryDataType = (loads.otherFormats & 8) != 0 ? kPrimaryLine : kPrimaryPlane;
            }
            return asked > 6 ? std::nullopt : std::optional(answer);
        });
    }

    void Note(const LoadCounters& counters) {
        ends_.cancelled += counters.cancelled ? 1 : 0;
        ends_.outOfMemory += counters.outOfMemory ? 1 : 0;
        ends_.stopped += counters.stoppedAtLine > 0 ? 1 : 0;
        ends_.valid += counters.rowsValid > 0 ? 1 : 0;
        ends_.converting += gConvertDecimals ? 1 : 0;
    }

    /// An outcome without the looks for Esc, of which there are as many as there are blocks.
    static std::string WithoutLooks(const std::string& outcome) {
        std::istringstream lines(outcome);
        std::string kept;
        for (std::string line; std::getline(lines, line);) {
            if (line.rfind("looks ", 0) != 0 && line.rfind("progress ", 0) != 0) {
                kept += line + '\n';
            }
        }
        return kept;
    }

    std::chrono::milliseconds patience_{0};
    std::int32_t rowLimit_ = 0;
};

/// Loads generated from a seed.
class RandomLoads {
public:
    explicit RandomLoads(unsigned seed)
        : random_(seed) {}

    /// @param writeFile  writes a text under a name and returns its path
    template <class WriteFile>
    Loads Make(const WriteFile& writeFile) {
        Loads loads;
        loads.format = Format();
        const char delimiter = loads.format.delimiter.empty() ? ';' : loads.format.delimiter[0];
        const int files = 1 + Below(3);
        for (int i = 0; i < files; ++i) {
            loads.files.emplace_back(i == 0          ? kNewCommand
                                     : Below(2) == 0 ? kMergeCommand
                                                     : kOverlayCommand,
                                     writeFile("text" + std::to_string(i) + ".txt",
                                               NastyTexts(random_, delimiter).Text()));
        }
        loads.decimalIsComma = Below(4) == 0;
        loads.showsSecondary = Below(3) == 0;
        for (int i = 0; i < 5; ++i) {
            loads.answers.push_back(std::array{Button::Ignore, Button::Ignore, Button::Retry,
                                               Button::Abort}[static_cast<std::size_t>(Below(4))]);
        }
        loads.otherFormats = static_cast<unsigned>(Below(16));
        if (Below(4) == 0) {
            loads.looksBeforeEsc = Below(60);
        }
        if (Below(10) == 0) {
            loads.rowLimit = Below(400);
        }
        loads.blockBytes = static_cast<std::size_t>(1 + Below(400));
        return loads;
    }

private:
    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    FormatSettings Format() {
        FormatSettings format = gSettings.format;
        format.delimiter = std::array{"\t", "", ";"}[static_cast<std::size_t>(Below(3))];
        format.conventions =
            std::array<std::int16_t, 6>{1, 1, 1, 5, 3, -1}[static_cast<std::size_t>(Below(6))];
        format.primary = static_cast<std::int16_t>(Below(3) + 1);
        format.secondary =
            std::array<std::int16_t, 5>{0, 0, kSecondaryLine, kSecondaryPlane,
                                        kTrendInPlane}[static_cast<std::size_t>(Below(5))];
        format.lineAppended = Below(3) == 0;
        format.numericAppended = Below(3) != 0;
        format.nonNumericAppended = Below(3) != 0;
        format.columns = {0, 1, 5, 2, 3, 5, 2, 3, 4, 5};
        format.plotDataKind = static_cast<std::int16_t>(Below(3) + 1);
        format.plotKind = static_cast<std::int16_t>(Below(2) + 1);
        format.hasHeadings = Below(4) == 0;
        format.negativePlunge = Below(2) == 0 ? NegativePlunge::LowerEnd : NegativePlunge::Vector;
        return format;
    }

    std::mt19937 random_;
};

TEST_F(SharedLoading, NastyTextsComeOutAsOneThreadReadsThem) {
    for (unsigned seed = 1; seed <= kMadeUpLoads && !HasFailure(); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        ExpectSameOfBoth(
            RandomLoads(seed).Make([this](const std::string& name, const std::string& text) {
                return WriteFile(name, text);
            }));
    }
    // Loads of all kinds were among them.
    EXPECT_GT(ends_.valid, kMadeUpLoads);
    constexpr int kSome = kMadeUpLoads / 30;
    EXPECT_GT(ends_.cancelled, kSome);
    EXPECT_GT(ends_.outOfMemory, kSome);
    EXPECT_GT(ends_.stopped, kSome);
    EXPECT_GT(ends_.converting, kSome);
}

TEST_F(SharedLoading, FilesOfTheRepositoryComeOutAsOneThreadReadsThem) {
    int files = 0;
    for (const char* data : {"examples", "fuzz/corpus/text_file", "tests/data"}) {
        const std::filesystem::path root = std::filesystem::path(QUANDREL_SOURCE_DIR) / data;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
            if (!entry.is_regular_file()) {
                continue;
            }
            SCOPED_TRACE(entry.path().string());
            ++files;
            for (unsigned seed = 1; seed <= 6; ++seed) {
                Loads loads = RandomLoads(seed).Make(
                    [&entry](const std::string&, const std::string&) { return entry.path(); });
                ExpectSameOfBoth(loads);
            }
        }
    }
    EXPECT_GT(files, 20);
}

TEST_F(SharedLoading, TheAnswerAboutDecimalsHoldsFromItsLineOn) {
    Loads loads;
    loads.format = gSettings.format;
    loads.format.primary = kPrimaryPlane;
    loads.format.delimiter = "\t";
    loads.format.numericAppended = true;
    loads.format.columns = {0, 1, 9, 9, 9, 9, 9, 9, 2, 9};
    std::string text;
    for (int i = 0; i < 2000; ++i) {
        text += "30\t" + std::to_string(i % 360) + (i < 1000 ? "\t1.5\n" : "\t2,5\n");
    }
    loads.files = {{kNewCommand, WriteFile("a.txt", text)}};
    loads.answers = {Button::Retry};
    ExpectSameOfBoth(loads);
    EXPECT_EQ(ActivePlot().rows.number(1000), 1.5F);
    EXPECT_EQ(ActivePlot().rows.number(1001), 2.5F);
    EXPECT_EQ(ActivePlot().rows.number(2000), 2.5F);
    EXPECT_EQ(LastLoad().badNumeric, 0);
}

TEST_F(SharedLoading, TheHeadOfAFileOfOurOwnMayBeLongerThanABlock) {
    Loads loads;
    loads.format = gSettings.format;
    loads.format.primary = kPrimaryPlane;
    std::string text = ";Quandrel\n";
    for (int i = 0; i < 200; ++i) {
        text += "; what the user wrote about the plot\n";
    }
    for (int i = 0; i < 300; ++i) {
        text += "30\t" + std::to_string(i) + "\n; a comment\n";
    }
    loads.files = {{kNewCommand, WriteFile("own.txt", text)}};
    ExpectSameOfBoth(loads);
    EXPECT_EQ(LastLoad().headLines, 201);
    EXPECT_EQ(LastLoad().blankLines, 501);
}

} // namespace
} // namespace quandrel
