// SPDX-License-Identifier: MIT
//
// Standard input and output as files.

#pragma once

#include "core/plot_record.h"
#include "core/result.h"

#include <memory>
#include <string>

namespace quandrel {

/// The path that means standard input for reading and standard output for writing. A file with this
/// name is "./-".
inline constexpr const char* kStandardStream = "-";

/// The name of standard input in plots and messages.
inline constexpr const char* kStandardInputName = "standard input";

/// Standard input as a file during the lifetime of this object. A file is needed because data are
/// read twice from the beginning.
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

    /// Replaces the path by the name of standard input in the lists of a record; the path is about
    /// to be deleted.
    void NameIn(PlotRecord& record) const;

private:
    explicit InputCopy(std::string folder);

    std::string folder_;
    std::string path_;
};

} // namespace quandrel
