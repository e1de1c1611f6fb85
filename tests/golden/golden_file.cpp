// SPDX-License-Identifier: MIT

#include "golden/golden_file.h"

#include "golden/drawing_picture.h"
#include "golden/drawing_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

namespace quandrel {

namespace {

constexpr const char* kSwitch = "QUANDREL_WRITE_GOLDEN";
constexpr std::size_t kLinesBefore = 3;
constexpr std::size_t kLinesShown = 8;
constexpr std::size_t kWidthShown = 200;

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string ShownLines(const char* mark, const std::vector<std::string>& lines, std::size_t first,
                       std::size_t last) {
    std::string text;
    for (std::size_t i = first; i < std::min(last, lines.size()); ++i) {
        text += mark + std::to_string(i + 1) + ": " + lines[i].substr(0, kWidthShown) + "\n";
    }
    return text;
}

void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

/// Writes one side of a comparison to the build folder, and returns the path of the file to look
/// at.
std::string LeftBehind(const std::string& name, const std::string& text) {
    const std::filesystem::path base = std::filesystem::path(QUANDREL_GOLDEN_OUTPUT) / name;
    WriteBytes(base.string() + ".txt", text);
    const std::vector<RecordedDrawing> drawings = DrawingsOfText(text);
    if (drawings.empty()) {
        return base.string() + ".txt";
    }
    const std::string error = WritePicture(base.string() + ".svg", drawings);
    return error.empty() ? base.string() + ".svg" : error;
}

} // namespace

std::filesystem::path GoldenFolder() {
    return std::filesystem::path(QUANDREL_SOURCE_DIR) / "tests/golden";
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string DifferenceOf(const std::string& expected, const std::string& actual) {
    if (expected == actual) {
        return {};
    }
    const std::vector<std::string> wanted = LinesOf(expected);
    const std::vector<std::string> found = LinesOf(actual);
    const auto [first, other] =
        std::mismatch(wanted.begin(), wanted.end(), found.begin(), found.end());
    const auto place = static_cast<std::size_t>(first - wanted.begin());
    return ShownLines("  ", wanted, place - std::min(place, kLinesBefore), place)
           + ShownLines("- ", wanted, place, place + kLinesShown)
           + ShownLines("+ ", found, place, place + kLinesShown);
}

void ExpectGolden(const std::string& name, const std::string& actual) {
    const std::filesystem::path path = GoldenFolder() / (name + ".txt");
    const std::string expected = BytesOf(path);
    if (expected == actual) {
        return;
    }
    if (std::getenv(kSwitch) != nullptr) {
        WriteBytes(path, actual);
        std::cout << "rewritten: " << path.string() << "\n";
        return;
    }
    ADD_FAILURE() << path.string() << " differs (- expected, + drawn):\n"
                  << DifferenceOf(expected, actual)
                  << "expected: " << LeftBehind(name + ".expected", expected)
                  << "\ndrawn:    " << LeftBehind(name + ".actual", actual)
                  << "\nIf the new one is right, " << kSwitch << "=1 writes it.";
}

} // namespace quandrel
