// SPDX-License-Identifier: MIT
//
// Where scripts come from: a file, a pipe, standard input.

#pragma once

#include "core/result.h"

#include <cstddef>
#include <string>

namespace quandrel {

/// A script of more bytes is none.
inline constexpr std::size_t kLargestScript = std::size_t{64} << 20;

/// A script that is read as it comes: from a regular file, a pipe that somebody writes to, or
/// standard input for "-". It is UTF-8, or UTF-16 with a mark; marks are no part of it.
class ScriptSource {
public:
    /// A folder, a device, and what is longer than kLargestScript are refused with a text that says
    /// why.
    [[nodiscard]] static Result<ScriptSource> Open(const std::string& path);

    /// Reads a descriptor that is open already, whatever is behind it, and leaves it open.
    explicit ScriptSource(int descriptor)
        : descriptor_(descriptor) {}

    ScriptSource(ScriptSource&& other) noexcept;
    ScriptSource& operator=(ScriptSource&&) = delete;
    ~ScriptSource();

    /// What has come since, as UTF-8; waits until something has. Empty at the end.
    ///
    /// A pipe through which nothing comes, and the byte beyond kLargestScript are failures.
    [[nodiscard]] Result<std::string> Read();

private:
    enum class Encoding { NotKnown, Bytes, Utf16 };

    [[nodiscard]] std::string TakeDecoded(bool isEnd);
    void LookForMark(bool isEnd);

    int descriptor_ = -1;
    bool isOwn_ = false;  ///< to be closed
    bool isPipe_ = false; ///< somebody has to write to it
    std::size_t count_ = 0;
    Encoding encoding_ = Encoding::NotKnown;
    std::string mark_;  ///< of UTF-16
    std::string bytes_; ///< read and not decoded
};

} // namespace quandrel
