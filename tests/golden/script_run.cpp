// SPDX-License-Identifier: MIT

#include "golden/script_run.h"

#include "core/plot_store.h"
#include "golden/golden_file.h"
#include "print/print_layout.h"
#include "print/print_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

namespace quandrel {

namespace {

using std::filesystem::path;

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string Examples() {
    return QUANDREL_SOURCE_DIR "/examples";
}

} // namespace

std::vector<std::string> NamesIn(const path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

path ScriptFolder() {
    return GoldenFolder() / "scripts";
}

ScriptRun::ScriptRun()
    : folder_(std::filesystem::temp_directory_path()
              / ("quandrel golden " + std::to_string(::getpid())))
    , session_(out_, log_) {
    gPlatform.printers = &printer_;
    std::filesystem::create_directories(folder_);
    WriteSmallData();
}

ScriptRun::~ScriptRun() {
    gPlatform.printers = nullptr;
    std::filesystem::remove_all(folder_);
}

void ScriptRun::WriteSmallData() const {
    const auto write = [this](const char* name, const char* text) {
        std::ofstream(folder_ / name, std::ios::binary) << text;
    };
    write("planes.txt", "30 120\n45 270\n60 10\n0 0\n90 45\n89 200\n30 120\n");
    write("lines.txt", "30 120\n45 270\n60 10\n0 0\n90 45\n-20 200\n30 120\n");
    write("girdle.txt", "80 10\n75 40\n72 70\n70 100\n73 130\n77 160\n85 350\n88 330\n");
    write("cluster.txt", "20 100\n24 104\n18 96\n22 110\n26 99\n19 91\n23 102\n25 108\n");
    write("phone.txt", "47.3 118.6\n52.25 121.04\n44.9 109.37\n49.81 125.5\n0.4 359.7\n61.06 90.5\n"
                       "45 120\n50.5 117.25\n88.75 12.5\n");
    write("two_planes.txt",
          "30 120 60 200\n45 270 80 10\n60 10 20 100\n0 0 70 300\n90 45 45 135\n");
}

void ScriptRun::Play(const std::string& name) {
    std::istringstream lines(BytesOf(ScriptFolder() / (name + ".txt")));
    for (std::string line; std::getline(lines, line);) {
        EXPECT_EQ(Run(line), "") << name << ": " << line;
    }
}

std::string ScriptRun::Run(const std::string& line) {
    if (line == "page") {
        return PrintPage();
    }
    const auto commands = ParseScript(WithPaths(line), CommandBreak::SemicolonToo);
    return commands ? session_.Run(*commands) : commands.Error();
}

std::string ScriptRun::PrintPage() {
    PrintLayout layout;
    layout.paper = printer_.paper;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            SelectPlot(layout, slot);
        }
    }
    return PrintSelectedPlots(layout.plots) == PrintOutcome::Printed ? "" : "was not printed";
}

std::string ScriptRun::WithNames(std::string text) const {
    text = Replaced(std::move(text), Examples(), "EXAMPLES");
    text = Replaced(std::move(text), QUANDREL_TEST_DATA, "DATA");
    return Replaced(std::move(text), folder_.string(), "FOLDER");
}

std::string ScriptRun::WithPaths(std::string text) const {
    text = Replaced(std::move(text), "EXAMPLES", Examples());
    text = Replaced(std::move(text), "DATA", QUANDREL_TEST_DATA);
    return Replaced(std::move(text), "FOLDER", folder_.string());
}

} // namespace quandrel
