// SPDX-License-Identifier: MIT
//
// What a record says about the rows of its plot: counts, formats, appended columns and their
// classes, overlays, files. core/plot_rows updates the counts; nobody else writes them. The rows of
// ClassStats are named in class_stats.h.

#pragma once

#include "core/record_fields.h"
#include "core/record_places.h"
#include "core/tagged_value.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

inline constexpr int kMaxFiles = 20;
inline constexpr int kMaxOverlays = 20;
inline constexpr int kDistinctValues = 11;
inline constexpr int kClassRows = 13;
inline constexpr float kInvalidNumber = -9999.0F;         ///< in gAppNumeric; not a valid number
inline constexpr std::int32_t kInvalidAppendedLine = -99; ///< in gAppLineDip

/// Kinds of an overlay.
enum OverlayKindCode : std::int16_t {
    kOverlayGreatCircles = 0,
    kOverlayPoles = 1,
    kOverlayLines = 2,
    kOverlayPolarLines = 3,
};

/// Counts and formats.
struct RecordRows {
    std::int32_t NumValidData = 0;    ///< main rows that are not error rows
    std::int32_t NumData = 0;         ///< main rows, error rows included
    std::int32_t NumLoadedData = 0;   ///< main and overlay rows; the next row follows them
    std::int16_t PrimaryFormat = 0;   ///< PrimaryFormatCode
    std::int16_t SecondaryFormat = 0; ///< SecondaryFormatCode
    std::int16_t SelectedOverlay = 0; ///< the overlay with the secondary data, or 0

    QUANDREL_FIELDS(NumValidData, NumData, NumLoadedData, PrimaryFormat, SecondaryFormat,
                    SelectedOverlay);
};

/// The appended columns.
struct RecordColumns {
    std::int16_t HasAppendedLine = 0;
    std::int16_t HasAppendedNumeric = 0;
    std::int16_t HasAppendedText = 0;
    std::string AppNumName;
    std::string AppNonNumName;
    std::int16_t HasFrequencyColumn = 0;

    QUANDREL_FIELDS(HasAppendedLine, HasAppendedNumeric, HasAppendedText, AppNumName, AppNonNumName,
                    HasFrequencyColumn);
};

/// Range and first distinct values of the appended columns (appended_range.h).
struct RecordRanges {
    Table<TaggedValue, kDistinctValues, 2> DistinctValues; ///< columns: AppendedRangeColumn
    std::array<double, 2> AppendedMin{};
    std::array<double, 2> AppendedMax{};

    QUANDREL_FIELDS(DistinctValues, AppendedMin, AppendedMax);
};

/// Classes by an appended value.
struct RecordClasses {
    Table<double, 5, 2> ClassStats{};
    double ClassLow = 0;
    double ClassHigh = 0;
    std::int32_t NumClassified = 0;
    std::int16_t ClassMode = 0;
    std::int16_t NumClasses = 0;
    double ClassWidth = kUnsetValue;
    Table<TaggedValue, kClassRows, 3> ClassTable;

    QUANDREL_FIELDS(ClassStats, ClassLow, ClassHigh, NumClassified, ClassMode, NumClasses,
                    ClassWidth, ClassTable);
};

/// The overlays.
struct RecordOverlays {
    /// [k] rows of overlay k; their number is at kOverlayCount.
    std::array<std::int32_t, kMaxOverlays + 1> OverlayRows{};
    std::array<std::int16_t, kMaxOverlays + 1> OverlayKind{}; ///< [k] an OverlayKindCode

    QUANDREL_FIELDS(OverlayRows, OverlayKind);
};

/// Names of the plot and of its files.
struct RecordFiles {
    std::string PlotTitle;
    std::string SaveFileName;
    std::string FileTitle;
    std::string FileHeadLine;
    std::int16_t NumFiles = 0;
    std::array<std::string, kMaxFiles + 1> FileNames; ///< from kFirstFile on
    std::vector<std::string> MainFiles; ///< paths of the files of the main rows, in their order
    std::array<std::vector<std::string>, kMaxOverlays + 1> OverlayFiles; ///< [k] paths of overlay k

    QUANDREL_FIELDS(PlotTitle, SaveFileName, FileTitle, FileHeadLine, NumFiles, FileNames);
    QUANDREL_FURTHER_FIELDS(MainFiles, OverlayFiles);
};

} // namespace quandrel
