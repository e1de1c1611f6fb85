// SPDX-License-Identifier: MIT

#include "batch/save_command.h"

#include "core/path_names.h"
#include "core/settings.h"
#include "persistence/ascii_plot_file.h"

#include <optional>

namespace quandrel {

namespace {

constexpr const char* kAllLines = "all";

/// Sets whether texts include the lines without data, for the duration of a block.
class NonDataLinesSaved {
public:
    explicit NonDataLinesSaved(bool all)
        : former_(gSettings.files.nonDataLines) {
        gSettings.files.nonDataLines = all;
    }

    ~NonDataLinesSaved() { gSettings.files.nonDataLines = former_; }

    NonDataLinesSaved(const NonDataLinesSaved&) = delete;
    NonDataLinesSaved& operator=(const NonDataLinesSaved&) = delete;

private:
    bool former_;
};

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
    const NonDataLinesSaved saved(gSettings.files.nonDataLines || lines.has_value());
    return SavePlotAs(*path, SaveKind::SaveAs) == SaveOutcome::Saved
               ? std::string()
               : "'" + *path + "' was not saved";
}

} // namespace quandrel
