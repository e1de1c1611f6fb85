// SPDX-License-Identifier: MIT
//
// Standard input and output in the place of files.

#pragma once

#include "core/plot_record.h"
#include "core/result.h"

#include <memory>
#include <string>

namespace quandrel {

/// The path that stands for standard input where one is read, for standard output where one is
/// written. A file of this name is "./-".
inline constexpr const char* kStandardStream = "-";

/// What plots and messages call data from standard input.
inline constexpr const char* kStandardInputName = "standard input";

/// Standard input as a file, for as long as this lives: what reads data looks at them twice, and
/// from their beginning.
class InputCopy {
public:
    /// Reads a descriptor to its end.
    [[nodiscard]] static Result<std::unique_ptr<InputCopy>> Make(int descriptor);

    ~InputCopy();
    InputCopy(const InputCopy&) = delete;
    InputCopy& operator=(const InputCopy&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

    /// A text with the name of standard input instead of the path.
    [[nodiscard]] std::string Named(std::string text) const;

    /// Names standard input in the lists of a record instead of the path, which is about to go.
    void NameIn(PlotRecord& record) const;

private:
    explicit InputCopy(std::string folder);

    std::string folder_;
    std::string path_;
};

} // namespace quandrel
