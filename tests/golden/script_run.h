// SPDX-License-Identifier: MIT
//
// The scripts of tests/golden/scripts, run: commands of quandrel-batch, one per line. EXAMPLES,
// DATA and FOLDER in them are the folders of the examples, of tests/data and of the run itself,
// which has small files of its own. The command "page" prints all plots onto one page.

#pragma once

#include "batch/batch_session.h"
#include "platform/scripted/recording_printer.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace quandrel {

/// The names of the files of a folder with the ending .txt, without it, sorted.
[[nodiscard]] std::vector<std::string> NamesIn(const std::filesystem::path& folder);

/// The folder of the scripts.
[[nodiscard]] std::filesystem::path ScriptFolder();

/// A session in a folder of its own. There is one at a time.
class ScriptRun {
public:
    ScriptRun();
    ~ScriptRun();
    ScriptRun(const ScriptRun&) = delete;
    ScriptRun& operator=(const ScriptRun&) = delete;

    /// Runs the script with a name. The test fails if a command fails.
    void Play(const std::string& name);

    /// Runs one line. Returns the error.
    [[nodiscard]] std::string Run(const std::string& line);

    [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }

    [[nodiscard]] const std::deque<RecordedPage>& Pages() const { return printer_.pages; }

    /// What commands printed, and the boxes that were shown, with names of folders in place of
    /// paths.
    [[nodiscard]] std::string Printed() const { return WithNames(out_.str()); }

    [[nodiscard]] std::string Told() const { return WithNames(log_.str()); }

private:
    void WriteSmallData() const;
    [[nodiscard]] std::string PrintPage();
    [[nodiscard]] std::string WithNames(std::string text) const;
    [[nodiscard]] std::string WithPaths(std::string text) const;

    std::filesystem::path folder_;
    std::ostringstream out_;
    std::ostringstream log_;
    BatchSession session_;
    RecordingPrinter printer_;
};

} // namespace quandrel
