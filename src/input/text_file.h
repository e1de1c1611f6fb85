// SPDX-License-Identifier: MIT
//
// Text files of any origin: read safely, decoded to UTF-8, taken apart into lines.
//
// A file is UTF-8 with or without a mark, UTF-16 with a mark, and else Windows-1252. Marks never
// become data. Paths are UTF-8. What cannot be read gives a text for the user: a folder, a pipe, a
// device, binary data, a file that is empty, too large, or not there. None of these can make the
// program wait.

#pragma once

#include "core/result.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// A file of this size or more is not read as text.
inline constexpr std::uint64_t kLargestTextFile = std::uint64_t{2} << 30;

/// The whole text of a file as UTF-8 without a mark. O(size of the file).
[[nodiscard]] Result<std::string> ReadTextBytes(const std::string& path);

/// The first bytes of a file as they stand, fewer when the file is shorter.
[[nodiscard]] Result<std::string> FirstBytes(const std::string& path, std::size_t count);

/// The first lines of a text file, without reading more of it than that takes. A line longer than
/// a megabyte may come shortened.
[[nodiscard]] Result<std::vector<std::string>> FirstLines(const std::string& path,
                                                          std::size_t count);

/// The first lines of a text.
[[nodiscard]] std::vector<std::string> FirstLinesOfText(std::string_view text, std::size_t count);

/// The bytes of a text as UTF-8 without a mark. Bytes that are wrong in UTF-16 become U+FFFD.
[[nodiscard]] std::string DecodeText(std::string bytes);

/// True when bytes are no text in any of the encodings: they hold NUL characters, or far more
/// control characters than texts do. Some first ten thousands of bytes are enough.
[[nodiscard]] bool IsBinaryData(std::string_view bytes);

/// True when a file that begins with these bytes is a binary plot file: "bin", a version of three
/// characters (digit, point, digit), and three counts of rows. Other texts that begin with "bin"
/// are just texts.
[[nodiscard]] bool IsBinaryPlotSignature(std::string_view bytes);

/// True when the first line of a file ends with "workspace", in any case.
[[nodiscard]] bool LooksLikeWorkspace(std::string_view firstLine);

/// Takes a text apart into lines, which end in CR, LF or CR LF, or with the text. O(length of the
/// text) over all lines, however the line ends are mixed.
class LineReader {
public:
    /// @param text  has to outlive the reader and its lines
    explicit LineReader(std::string_view text);

    /// The next line without its line end. An end of line at the end of the text begins no further
    /// line.
    /// @return false at the end; line is then empty
    [[nodiscard]] bool Next(std::string_view& line);

    /// Where the next line begins, in bytes.
    [[nodiscard]] std::size_t Position() const { return position_; }

private:
    [[nodiscard]] std::size_t Find(char c, std::size_t from) const;

    std::string_view text_;
    std::size_t position_ = 0;
    // The next of each at or behind the position, or the length of the text: looked for once.
    std::size_t nextLineFeed_ = 0;
    std::size_t nextReturn_ = 0;
};

} // namespace quandrel
