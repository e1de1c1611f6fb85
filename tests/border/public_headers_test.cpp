// SPDX-License-Identifier: MIT
//
// The public headers as other developers see them: the example at the top of each prints what it
// says, the chief header includes all of them, and none leads into the engine. Building this
// program shows that each compiles alone and that all of them compile together.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#define PUBLIC_HEADER(name) void RunExampleOf_##name();
#include "public_headers.inc"
#undef PUBLIC_HEADER

namespace quandrel::api {
namespace {

namespace fs = std::filesystem;

struct PublicHeader {
    std::string name;
    void (*runExample)();
};

const std::vector<PublicHeader>& PublicHeaders() {
    static const std::vector<PublicHeader> headers = {
#define PUBLIC_HEADER(name) {#name, RunExampleOf_##name},
#include "public_headers.inc"
#undef PUBLIC_HEADER
    };
    return headers;
}

std::vector<std::string> LinesOfHeader(const std::string& name) {
    std::ifstream file(fs::path(QUANDREL_SOURCE_DIR) / "include/quandrel" / (name + ".h"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// What the comment at the top of a header says that its example prints.
std::string PromisedOutput(const std::string& name) {
    constexpr std::string_view kArrow = "// -> ";
    std::string promised;
    for (const std::string& line : LinesOfHeader(name)) {
        const std::size_t arrow = line.find(kArrow);
        if (line.starts_with("//     ") && arrow != std::string::npos) {
            promised += line.substr(arrow + kArrow.size()) + '\n';
        }
    }
    return promised;
}

/// The output of an example.
std::string OutputOf(const PublicHeader& header) {
    std::ostringstream output;
    std::streambuf* const before = std::cout.rdbuf(output.rdbuf());
    header.runExample();
    std::cout.rdbuf(before);
    return output.str();
}

TEST(PublicHeaders, EachExamplePrintsWhatItSays) {
    ASSERT_FALSE(PublicHeaders().empty());
    for (const PublicHeader& header : PublicHeaders()) {
        EXPECT_NE(PromisedOutput(header.name), "") << header.name;
        EXPECT_EQ(OutputOf(header), PromisedOutput(header.name)) << header.name;
    }
}

TEST(PublicHeaders, TheChiefHeaderHasAllOthers) {
    const std::vector<std::string> chief = LinesOfHeader("quandrel");
    for (const PublicHeader& header : PublicHeaders()) {
        const std::string include = "#include \"quandrel/" + header.name + ".h\"";
        EXPECT_EQ(std::count(chief.begin(), chief.end(), include),
                  header.name == "quandrel" ? 0 : 1)
            << include;
    }
}

TEST(PublicHeaders, IncludeEachOtherAndTheStandardLibraryAlone) {
    for (const PublicHeader& header : PublicHeaders()) {
        for (const std::string& line : LinesOfHeader(header.name)) {
            if (line.starts_with("#include")) {
                const bool isPublic = line.starts_with("#include \"quandrel/");
                const bool isStandard =
                    line.starts_with("#include <") && line.find_first_of("./") == std::string::npos;
                EXPECT_TRUE(isPublic || isStandard) << header.name << ": " << line;
            }
        }
    }
}

} // namespace
} // namespace quandrel::api
