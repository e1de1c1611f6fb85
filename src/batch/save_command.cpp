// SPDX-License-Identifier: MIT

#include "batch/save_command.h"

#include "core/path_names.h"
#include "core/settings.h"
#include "persistence/ascii_plot_file.h"

#include <optional>

namespace quandrel {

namespace {

constexpr const char* kAllLines = "all";
constexpr const char* kWholeDegrees = "whole";

} // namespace

std::string SaveToFile(const Command& command) {
    const std::optional<std::string> path = command.Bare(0);
    if (!path) {
        return "a path is missing";
    }
    const std::optional<std::string> lines = command.Value("lines");
    if (lines && *lines != kAllLines) {
        return "'" + *lines + "' is not a value of lines: " + kAllLines;
    }
    if (lines && HasEnding(*path, ".qpx")) {
        return "lines=all is for text files: a plot file has all lines";
    }
    const std::optional<std::string> degrees = command.Bare(1);
    if (degrees && *degrees != kWholeDegrees) {
        return "'" + *degrees + "' is one word too many";
    }
    if (degrees && HasEnding(*path, ".qpx")) {
        return "whole is for text files: a plot file has all decimals";
    }
    TextContents contents;
    contents.nonDataLines = contents.nonDataLines || lines.has_value();
    contents.degrees = degrees ? SavedDegrees::Whole : SavedDegrees::Measured;
    return SavePlotAs(*path, SaveKind::SaveAs, contents) == SaveOutcome::Saved
               ? std::string()
               : "'" + *path + "' was not saved";
}

} // namespace quandrel
