// SPDX-License-Identifier: MIT
//
// Sources of scripts: a file, a pipe, standard input.

#pragma once

#include "core/result.h"

#include <cstddef>
#include <string>

namespace quandrel {

/// The largest size of a script in bytes.
inline constexpr std::size_t kLargestScript = std::size_t{64} << 20;

/// A script that is read as it arrives: from a regular file, a pipe with a writer, or standard
/// input for "-". It is UTF-8, or UTF-16 with a byte order mark; marks are removed.
class ScriptSource {
public:
    /// Refuses a folder, a device, and a file longer than kLargestScript, with a text that gives
    /// the reason.
    [[nodiscard]] static Result<ScriptSource> Open(const std::string& path);

    /// Reads an open descriptor of any type, and leaves it open.
    explicit ScriptSource(int descriptor)
        : descriptor_(descriptor) {}

    ScriptSource(ScriptSource&& other) noexcept;
    ScriptSource& operator=(ScriptSource&&) = delete;
    ~ScriptSource();

    /// The text that has arrived since the last call, as UTF-8; waits until there is some. Empty at
    /// the end.
    ///
    /// Fails for a pipe through which nothing arrives, and for more than kLargestScript bytes.
    [[nodiscard]] Result<std::string> Read();

private:
    enum class Encoding { NotKnown, Bytes, Utf16 };

    [[nodiscard]] std::string TakeDecoded(bool isEnd);
    void LookForMark(bool isEnd);

    int descriptor_ = -1;
    bool isOwn_ = false;  ///< the descriptor is closed by this object
    bool isPipe_ = false; ///< requires a writer
    std::size_t count_ = 0;
    Encoding encoding_ = Encoding::NotKnown;
    std::string mark_;  ///< the byte order mark of UTF-16
    std::string bytes_; ///< read but not decoded
};

} // namespace quandrel
