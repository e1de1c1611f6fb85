// SPDX-License-Identifier: MIT
//
// Text files of any origin: read safely, decoded to UTF-8, split into lines.
//
// A file is UTF-8 with or without a byte-order mark, UTF-16 with one, or else Windows-1252. Marks
// never become data. Paths are UTF-8. A message for the user is returned for what cannot be read: a
// folder, a pipe, a device, binary data, and a file that is empty, too large or missing. None of
// these can block the program.

#pragma once

#include "core/result.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// Files of this size or more are not read as text.
inline constexpr std::uint64_t kLargestTextFile = std::uint64_t{2} << 30;

/// The whole text of a file as UTF-8 without a mark. O(size of the file).
[[nodiscard]] Result<std::string> ReadTextBytes(const std::string& path);

/// The first bytes of a file, undecoded; fewer when the file is shorter.
[[nodiscard]] Result<std::string> FirstBytes(const std::string& path, std::size_t count);

/// The first lines of a text file; reads no more of it than needed. A line longer than a megabyte
/// may be cut.
[[nodiscard]] Result<std::vector<std::string>> FirstLines(const std::string& path,
                                                          std::size_t count);

/// The first lines of a text.
[[nodiscard]] std::vector<std::string> FirstLinesOfText(std::string_view text, std::size_t count);

/// The bytes of a text as UTF-8 without a mark. Invalid UTF-16 becomes U+FFFD.
[[nodiscard]] std::string DecodeText(std::string bytes);

/// True when bytes are not text in any of the encodings: they hold NUL characters, or far more
/// control characters than texts do. The first tens of thousands of bytes are enough.
[[nodiscard]] bool IsBinaryData(std::string_view bytes);

/// True when a file that begins with these bytes is a binary plot file: "bin", a version of three
/// characters (digit, point, digit), and three row counts. Other texts that begin with "bin" are
/// ordinary texts.
[[nodiscard]] bool IsBinaryPlotSignature(std::string_view bytes);

/// True when the first line of a file ends with "workspace", in any case.
[[nodiscard]] bool LooksLikeWorkspace(std::string_view firstLine);

/// Splits a text into lines, which end with CR, LF or CR LF, or with the text. O(length of the
/// text) over all lines, for any mixture of line ends.
class LineReader {
public:
    /// @param text  must outlive the reader and its lines
    explicit LineReader(std::string_view text);

    /// The next line without its line end. A line end at the end of the text does not begin another
    /// line.
    /// @return false at the end; line is then empty
    [[nodiscard]] bool Next(std::string_view& line);

    /// Position of the next line, in bytes.
    [[nodiscard]] std::size_t Position() const { return position_; }

private:
    [[nodiscard]] std::size_t Find(char c, std::size_t from) const;

    std::string_view text_;
    std::size_t position_ = 0;
    // The next of each at or after the position, or the length of the text; each is searched for
    // once.
    std::size_t nextLineFeed_ = 0;
    std::size_t nextReturn_ = 0;
};

} // namespace quandrel
