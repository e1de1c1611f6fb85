// SPDX-License-Identifier: MIT

#include "session/example_files.h"

#include "core/settings_value.h"

#include <array>
#include <system_error>

namespace quandrel {

namespace {

namespace fs = std::filesystem;

FormatSettings Format(std::int16_t primary, std::int16_t secondary, std::int16_t conventions,
                      const char* delimiter, const ColumnSettings& columns) {
    FormatSettings format;
    format.primary = primary;
    format.secondary = secondary;
    format.conventions = conventions;
    format.delimiter = delimiter;
    format.columns = columns;
    format.hasHeadings = true;
    format.plotDataKind = primary == kPrimaryPlane ? kPlanes : kLines;
    return format;
}

/// With an appended text, and an appended number if it has a name.
FormatSettings Appended(FormatSettings format, const char* number, const char* text) {
    format.numericAppended = *number != '\0';
    format.numericName = number;
    format.nonNumericAppended = *text != '\0';
    format.nonNumericName = text;
    return format;
}

FormatSettings Polar(FormatSettings format) {
    format.plotDataKind = kPolarLines;
    return format;
}

constexpr ColumnSettings kBeds = {0, 1, 2, 3, 4, 5, 6, 7, 2, 3};

} // namespace

std::span<const ExampleFile> ExampleFiles() {
    static const std::array<ExampleFile, 8> files = {{
        {"folded_bedding.txt", "Bedding of a fold (planes)",
         Appended(Format(kPrimaryPlane, kNoSecondary, 1, "\t", kBeds), "thickness", "rock type")},
        {"cleavage.txt", "Its cleavage (planes)",
         Appended(Format(kPrimaryPlane, kNoSecondary, 1, "\t", kBeds), "spacing", "rock type")},
        {"fold_hinges_polar.txt", "Hinges of S- and Z-folds (polar lines)",
         Polar(
             Appended(Format(kPrimaryLine, kNoSecondary, 11, "\t", {1, 0, 2, 3, 4, 5, 6, 7, 8, 2}),
                      "", "type"))},
        {"faults_slip_lines.txt", "Faults with their slip (planes and lines)",
         Appended(Format(kPrimaryPlane, kSecondaryLine, 12, "\t", {1, 0, 2, 3, 2, 5, 6, 7, 8, 4}),
                  "", "movement")},
        {"joints.csv", "Joints of three stations (planes)",
         Appended(Format(kPrimaryPlane, kNoSecondary, 2, ",", {2, 1, 2, 3, 4, 5, 6, 7, 3, 4}),
                  "spacing", "rock type")},
        {"outcrop_model.txt", "Bedding of a model, with decimals (planes)",
         Format(kPrimaryPlane, kNoSecondary, 1, "\t", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9})},
        {"palaeocurrents.txt", "Currents of a tidal sandstone (directions)",
         Polar(Appended(Format(kDirections, kNoSecondary, 1, "\t", {0, 0, 2, 3, 4, 5, 6, 7, 8, 1}),
                        "", "type"))},
        {"wind_table.txt", "A year of wind (directions)",
         Polar(Appended(Format(kDirections, kNoSecondary, 1, "\t", {0, 0, 2, 3, 4, 5, 6, 7, 2, 1}),
                        "Mean wind frequency", "Mean wind speed"))},
    }};
    return files;
}

std::optional<fs::path> FindExampleFolder(const fs::path& programFolder) {
    const fs::path parent = programFolder.parent_path();
    // Build trees are in build/<preset>, their programs one folder deeper.
    for (const fs::path& folder : {parent / "share" / "quandrel" / "examples",
                                   parent.parent_path().parent_path() / "examples"}) {
        std::error_code ignored;
        if (fs::is_regular_file(folder / ExampleFiles().front().name, ignored)) {
            return folder;
        }
    }
    return std::nullopt;
}

void UseFormatOf(const ExampleFile& example) {
    const FormatSettings former = gSettings.format;
    gSettings.format = example.format;
    gSettings.format.planeSeparator = former.planeSeparator;
    gSettings.format.lineSeparator = former.lineSeparator;
    gSettings.format.plotKind = former.plotKind;
}

} // namespace quandrel
