// SPDX-License-Identifier: MIT
//
// The head of a table as a file, for the data format dialog, which shows files.

#pragma once

#include <filesystem>
#include <string>

namespace quandrel {

/// A file in a temporary folder of its own, named after the table; the destructor removes both.
class HeadFile {
public:
    HeadFile(const std::string& table, const std::string& text);
    ~HeadFile();
    HeadFile(const HeadFile&) = delete;
    HeadFile& operator=(const HeadFile&) = delete;

    /// The path; empty when the file could not be written.
    [[nodiscard]] std::string Path() const { return path_.string(); }

private:
    std::filesystem::path folder_;
    std::filesystem::path path_;
};

} // namespace quandrel
