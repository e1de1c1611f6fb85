// SPDX-License-Identifier: MIT
//
// The examples that the start screen offers: measurements of an imaginary field season, with the
// format in which each is written.

#pragma once

#include "core/format_settings.h"

#include <filesystem>
#include <optional>
#include <span>

namespace quandrel {

struct ExampleFile {
    const char* name;      ///< of the file
    const char* title;     ///< what it holds, for a menu
    FormatSettings format; ///< separators and the kind of plot are not used
};

[[nodiscard]] std::span<const ExampleFile> ExampleFiles();

/// The folder of the examples of a program: that of an installation, else that of the sources that
/// it was built from. Nothing when neither exists.
///
/// @param programFolder  folder of the program file
[[nodiscard]] std::optional<std::filesystem::path>
FindExampleFolder(const std::filesystem::path& programFolder);

/// Makes the format of an example the current one, which the format dialog then shows.
void UseFormatOf(const ExampleFile& example);

} // namespace quandrel
