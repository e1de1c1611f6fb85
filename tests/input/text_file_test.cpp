// SPDX-License-Identifier: MIT

#include "input/text_file.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

class TextFileTest : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "quandrel_text_XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }

    void TearDown() override { fs::remove_all(folder); }

    std::string Write(const std::string& name, const std::string& bytes) const {
        const fs::path path = folder / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path.string();
    }

    static std::string Read(const std::string& path) {
        const Result<std::string> text = ReadTextBytes(path);
        EXPECT_TRUE(text) << path;
        return text ? *text : std::string("(nothing)");
    }

    static std::string ErrorOf(const std::string& path) {
        const Result<std::string> text = ReadTextBytes(path);
        EXPECT_FALSE(text) << path;
        return text ? std::string() : text.Error();
    }

    fs::path folder;
};

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

// "45\t120\n" and the letters a-umlaut, euro sign and a clef (U+1D11E), in each encoding.
TEST_F(TextFileTest, DecodesEveryEncodingToTheSameText) {
    const std::string text = "45\n\xc3\xa4\xe2\x82\xac\xf0\x9d\x84\x9e";
    EXPECT_EQ(Read(Write("utf8", text)), text);
    EXPECT_EQ(Read(Write("utf8mark", "\xef\xbb\xbf" + text)), text);
    EXPECT_EQ(Read(Write("utf16le", Bytes({0xFF, 0xFE, '4', 0, '5', 0, '\n', 0, 0xE4, 0, 0xAC, 0x20,
                                           0x34, 0xD8, 0x1E, 0xDD}))),
              text);
    EXPECT_EQ(Read(Write("utf16be", Bytes({0xFE, 0xFF, 0, '4', 0, '5', 0, '\n', 0, 0xE4, 0x20, 0xAC,
                                           0xD8, 0x34, 0xDD, 0x1E}))),
              text);
    EXPECT_EQ(Read(Write("windows", Bytes({'4', '5', '\n', 0xE4, 0x80}))),
              "45\n\xc3\xa4\xe2\x82\xac");
}

TEST(DecodeText, TakesWrongUtf8AsWindows1252) {
    // Overlong forms, halves of surrogate pairs, numbers beyond U+10FFFF, parts of characters.
    EXPECT_EQ(DecodeText("\xc0\xaf"), "\xc3\x80\xc2\xaf");
    EXPECT_EQ(DecodeText("\xe0\x80\xaf"), "\xc3\xa0\xe2\x82\xac\xc2\xaf");
    EXPECT_EQ(DecodeText("\xed\xa0\x80"), "\xc3\xad\xc2\xa0\xe2\x82\xac");
    EXPECT_EQ(DecodeText("\xf4\x90\x80\x80"), "\xc3\xb4\xc2\x90\xe2\x82\xac\xe2\x82\xac");
    EXPECT_EQ(DecodeText("x\xc3"), "x\xc3\x83");
    EXPECT_EQ(DecodeText("\x81\x9f"), "\xc2\x81\xc5\xb8");
    // One invalid byte far from the beginning.
    std::string text(100000, 'x');
    text += "\xe4";
    EXPECT_EQ(DecodeText(text), std::string(100000, 'x') + "\xc3\xa4");
}

TEST(DecodeText, KeepsValidUtf8) {
    const std::string characters = "\xc2\x80 \xdf\xbf \xe0\xa0\x80 \xed\x9f\xbf \xef\xbf\xbf "
                                   "\xf0\x90\x80\x80 \xf4\x8f\xbf\xbf";
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        text += std::string(static_cast<std::size_t>(i % 7), 'x') + characters;
    }
    EXPECT_EQ(DecodeText(text), text);
    EXPECT_EQ(DecodeText(""), "");
    EXPECT_EQ(DecodeText("\xef\xbb\xbf"), "");
}

TEST(DecodeText, ReplacesWhatIsWrongInUtf16) {
    const std::string mark = Bytes({0xFF, 0xFE});
    EXPECT_EQ(DecodeText(mark + Bytes({0x34, 0xD8, 'x', 0})), "\xef\xbf\xbdx");
    EXPECT_EQ(DecodeText(mark + Bytes({0x1E, 0xDD})), "\xef\xbf\xbd");
    EXPECT_EQ(DecodeText(mark + Bytes({'x', 0, 'y'})), "x\xef\xbf\xbd");
    EXPECT_EQ(DecodeText(mark + Bytes({0x34, 0xD8})), "\xef\xbf\xbd");
    EXPECT_EQ(DecodeText(mark), "");
}

TEST_F(TextFileTest, RefusesWhatIsNoFile) {
    EXPECT_EQ(ErrorOf((folder / "missing").string()), "There is no such file.");
    EXPECT_EQ(ErrorOf(""), "There is no such file.");
    EXPECT_EQ(ErrorOf(folder.string()), "It is a folder.");
    EXPECT_EQ(ErrorOf(std::string("/tmp\0x", 6)), "There is no such file.");
    fs::create_symlink(folder / "missing", folder / "dangling");
    EXPECT_EQ(ErrorOf((folder / "dangling").string()), "There is no such file.");
}

TEST_F(TextFileTest, RefusesPipesSocketsAndDevicesWithoutWaiting) {
    const std::string noContents = "It is a pipe or a device, not a file with contents.";
    const std::string fifo = (folder / "fifo").string();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::string socketPath = (folder / "s").string();
    socketPath.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    for (const std::string& path : {fifo, socketPath, std::string("/dev/zero")}) {
        EXPECT_EQ(ErrorOf(path), noContents) << path;
        EXPECT_FALSE(FirstBytes(path, 10)) << path;
        EXPECT_FALSE(FirstLines(path, 10)) << path;
    }
    ::close(socket);
}

// Runs in a child process without the rights of the superuser, to whom nothing is forbidden.
TEST_F(TextFileTest, TellsThatAFileMayNotBeRead) {
    const std::string path = Write("secret", "45\t120\n");
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    ASSERT_EQ(::chmod(folder.c_str(), 0755), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        if (::geteuid() == 0 && ::setuid(kNobody) != 0) {
            ::_exit(2);
        }
        const Result<std::string> text = ReadTextBytes(path);
        ::_exit(!text && text.Error() == "You do not have permission to read it." ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(TextFileTest, TellsThatReadingFailed) {
    // A file of the kernel that opens and cannot be read from its start.
    EXPECT_NE(ErrorOf("/proc/self/mem").find("It cannot be read"), std::string::npos);
}

TEST_F(TextFileTest, RefusesEmptyFiles) {
    EXPECT_EQ(ErrorOf(Write("empty", "")), "It is empty.");
    EXPECT_EQ(ErrorOf(Write("mark", "\xef\xbb\xbf")), "It is empty.");
    EXPECT_EQ(ErrorOf(Write("mark16", "\xff\xfe")), "It is empty.");
}

TEST_F(TextFileTest, RefusesBinaryData) {
    const std::string binary = "It holds binary data, not text.";
    EXPECT_EQ(ErrorOf(Write("nul", std::string("45\t120\0", 7))), binary);
    EXPECT_EQ(ErrorOf(Write("controls", std::string(100, '\x01') + "45")), binary);
    EXPECT_EQ(ErrorOf(Write("utf32", Bytes({0xFF, 0xFE, 0, 0, '4', 0, 0, 0}))), binary);
    EXPECT_EQ(Read(Write("page", "45\t120\f\n7\t8\x1a")), "45\t120\f\n7\t8\x1a");
}

TEST_F(TextFileTest, RefusesAGigabyteOfZerosAtOnce) {
    const std::string path = Write("zeros", "");
    fs::resize_file(path, std::uintmax_t{1} << 30);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ErrorOf(path), "It holds binary data, not text.");
    EXPECT_FALSE(FirstLines(path, 5));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
}

TEST_F(TextFileTest, RefusesFilesThatAreTooLarge) {
    const std::string path = Write("large", std::string(100000, 'x'));
    fs::resize_file(path, kLargestTextFile);
    EXPECT_EQ(ErrorOf(path), "It is too large to be a text file.");
}

TEST_F(TextFileTest, ReadsOneLineOfTenMegabytes) {
    const std::string line(10 << 20, '7');
    EXPECT_EQ(Read(Write("long", line)), line);
}

TEST_F(TextFileTest, FindsPathsWithBlanksAndLettersOfAnyScript) {
    EXPECT_EQ(Read(Write("a b \xd0\xbf\xd0\xbb\xd0\xb0\xd1\x81\xd1\x82 \xe5\xb1\xa4.txt", "45")),
              "45");
}

TEST_F(TextFileTest, GivesTheFirstBytesAsTheyStand) {
    const std::string path = Write("bytes", std::string("\xef\xbb\xbf"
                                                        "bin\0x",
                                                        8));
    const Result<std::string> start = FirstBytes(path, 6);
    ASSERT_TRUE(start);
    EXPECT_EQ(*start, "\xef\xbb\xbf"
                      "bin");
    EXPECT_EQ(FirstBytes(path, 100)->size(), 8U);
    EXPECT_EQ(FirstBytes(Write("none", ""), 100)->size(), 0U);
}

using Lines = std::vector<std::string>;

TEST_F(TextFileTest, GivesTheFirstLines) {
    EXPECT_EQ(*FirstLines(Write("few", "a\r\nb\r\n"), 5), (Lines{"a", "b"}));
    EXPECT_EQ(*FirstLines(Write("more", "a\nb\nc"), 2), (Lines{"a", "b"}));
    EXPECT_EQ(*FirstLines(Write("nothing", ""), 2), Lines{});
    EXPECT_EQ(*FirstLines(Write("wide", Bytes({0xFF, 0xFE, 'a', 0, '\n', 0, 'b', 0})), 2),
              (Lines{"a", "b"}));
    // Long lines are read whole up to a megabyte.
    const std::string longLine(200000, 'x');
    EXPECT_EQ(*FirstLines(Write("long", longLine + "\ny\n" + longLine), 2), (Lines{longLine, "y"}));
    EXPECT_EQ(*FirstLines(Write("last", "y\n" + longLine + "\nz"), 2), (Lines{"y", longLine}));
    const Result<Lines> part = FirstLines(Write("huge", std::string(3 << 20, 'x')), 2);
    ASSERT_EQ(part->size(), 1U);
    EXPECT_GE(part->front().size(), std::size_t{1} << 20);
}

// The end of what is read may split a character; that does not make the file Windows-1252.
TEST_F(TextFileTest, GivesFirstLinesOfUtf8WhereverThePartEnds) {
    for (std::size_t lead = 0; lead < 4; ++lead) {
        std::string text = "\xc3\xa4\n" + std::string(lead, 'x');
        while (text.size() < 70000) {
            text += "\xf0\x9d\x84\x9e";
        }
        EXPECT_EQ(FirstLines(Write("cut", text + "\nlast"), 1)->front(), "\xc3\xa4");
        EXPECT_EQ(FirstLines(Write("cut", text + "\nlast"), 3)->back(), "last");
    }
}

Lines AllLines(std::string_view text) {
    Lines lines;
    LineReader reader(text);
    for (std::string_view line; reader.Next(line);) {
        lines.emplace_back(line);
    }
    std::string_view line = "x";
    EXPECT_FALSE(reader.Next(line));
    EXPECT_TRUE(line.empty());
    return lines;
}

TEST(LineReader, EndsLinesAtCrLfAndBoth) {
    struct LinesCase {
        std::string text;
        Lines lines;
    };

    for (const LinesCase& expected : std::vector<LinesCase>{
             {"", {}},
             {"a", {"a"}},
             {"a\n", {"a"}},
             {"a\r", {"a"}},
             {"a\r\n", {"a"}},
             {"\n", {""}},
             {"\r\n\r\n", {"", ""}},
             {"a\nb\rc\r\nd", {"a", "b", "c", "d"}},
             {"a\n\rb", {"a", "", "b"}},
             {"a\r\rb", {"a", "", "b"}},
             {"\n\n\na", {"", "", "", "a"}},
             {std::string("a\0b\nc", 5), {std::string("a\0b", 3), "c"}},
         }) {
        EXPECT_EQ(AllLines(expected.text), expected.lines);
    }
}

TEST(LineReader, TakesTimeInProportionWhateverTheLineEnds) {
    for (const std::string end : {"\n", "\r", "\r\n"}) {
        std::string text;
        for (int i = 0; i < 300000; ++i) {
            text += "x" + end;
        }
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(AllLines(text).size(), 300000U);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    }
}

TEST(LineReader, TellsWhereTheNextLineBegins) {
    LineReader reader("ab\r\nc");
    std::string_view line;
    EXPECT_EQ(reader.Position(), 0U);
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(reader.Position(), 4U);
}

TEST(IsBinaryPlotSignature, NeedsAVersionAndCountsOfRows) {
    const std::string counts("\x03\0\0\0\x04\0\0\0\x04\0\0\0", 12);
    const std::string negative("\x03\0\0\0\xff\xff\xff\xff\x04\0\0\0", 12);
    EXPECT_TRUE(IsBinaryPlotSignature("bin9.5" + counts));
    EXPECT_TRUE(IsBinaryPlotSignature("bin7.0" + counts + "more"));
    EXPECT_FALSE(IsBinaryPlotSignature("bin9.5" + negative));
    EXPECT_FALSE(IsBinaryPlotSignature("bin9.5"));
    EXPECT_FALSE(IsBinaryPlotSignature("bin" + counts + counts));
    EXPECT_FALSE(IsBinaryPlotSignature("bin9x5" + counts));
    EXPECT_FALSE(IsBinaryPlotSignature("bin1.2\t45\t120\t7\t8\t9\n"));
    EXPECT_FALSE(IsBinaryPlotSignature("binary fission of crinoids 45 120"));
    EXPECT_FALSE(IsBinaryPlotSignature(""));
}

TEST(LooksLikeWorkspace, GoesByTheEndOfTheFirstLine) {
    EXPECT_TRUE(LooksLikeWorkspace(";Quandrel workspace"));
    EXPECT_TRUE(LooksLikeWorkspace("WorkSpace  \r"));
    EXPECT_FALSE(LooksLikeWorkspace("workspaces"));
    EXPECT_FALSE(LooksLikeWorkspace("space"));
    EXPECT_FALSE(LooksLikeWorkspace(""));
}

} // namespace
} // namespace quandrel
