// SPDX-License-Identifier: MIT
//
// The head of a table as a file, for the data format dialog, which shows files.

#pragma once

#include <filesystem>
#include <string>

namespace quandrel {

/// A file in a folder of its own for temporary files, named after the table; both go with this.
class HeadFile {
public:
    HeadFile(const std::string& table, const std::string& text);
    ~HeadFile();
    HeadFile(const HeadFile&) = delete;
    HeadFile& operator=(const HeadFile&) = delete;

    /// Where it stands; empty when it could not be written.
    [[nodiscard]] std::string Path() const { return path_.string(); }

private:
    std::filesystem::path folder_;
    std::filesystem::path path_;
};

} // namespace quandrel
