// SPDX-License-Identifier: MIT
//
// The user's settings: the globals that last from run to run, and how they are read and saved. The
// settings of the data format stand in data_format.h, the style tables in style_tables.h.

#pragma once

#include "core/plot_record.h"
#include "core/style_tables.h"
#include "platform/window_place.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

inline constexpr const char* kApplicationName = "Quandrel 9";
inline constexpr const char* kEarlierApplicationName = "Quandrel configuration";

/// The title of every message box.
inline constexpr const char* gCaption = "Quandrel, ver 9.5.1";

/// The version as files and settings hold it: five characters, the blank is one of them.
inline constexpr const char* kVersionText = "9.51 ";

/// The version's date, as the intro screen shows it.
inline constexpr const char* kVersionDate = "21 November 2026";

inline constexpr const char* gFileFilter =
    "All files (*.*)|*.*|Text files (*.txt)|*.txt|Quandrel binary files(*.qpx)|*.qpx|Quandrel "
    "Workspace files (.qwo)|*.qwo";
inline constexpr const char* gWorkspaceFilter =
    "Quandrel Workspace files (.qwo)|*.qwo|All files (*.*)|*.*|";
inline constexpr const char* gDataFileFilter =
    "All files (*.*)|*.*|Text files (*.txt)|*.txt|Quandrel binary files(*.qpx)|*.qpx";
inline constexpr const char* gHintText =
    "<Alt> plus Left mouse button to add points; marquee-select to edit";

// Views on the styles in force.
inline constinit auto& gPlotAxesStyle = gSettings.styles.plotAxesStyle;
inline constinit auto& gRoseAxesStyle = gSettings.styles.roseAxesStyle;
inline constinit auto& gRoseOuterCircle = gSettings.styles.roseOuterCircle;
inline constinit auto& gShowIsolatedPts = gSettings.styles.showIsolatedPts;

/// Non-zero when the regional decimal delimiter is a comma.
extern bool gDecimalIsComma;

extern WindowPlace gMainWindowPlace;
extern bool gPlotWinLast;              ///< a new plot window takes the size of the last one
extern std::int16_t gPlotWidthPercent; ///< width of a new plot window, per cent of the main window
extern float gPlotAspect;              ///< its height over its width
extern std::string gPitchName;         ///< "pitch" or "rake"
extern std::string gFilesDirectory;    ///< default data folder; empty: where the last file was
extern std::string gLastUsedPath;
extern std::string gLastUsedWorkSpacePath;
extern std::string gLastUsedWorkSpaceFileName;
extern std::string gLastUsedWSpaceFileTitle;
extern std::string gLastUsedVersion;
extern bool gMIToolbarShow;
extern bool gSaveNonDataLines; ///< texts of plots have the lines that are no data too

extern std::string gRoseScaleType;
extern double gRoseSectorSize;           ///< degrees
extern std::int16_t gRoseSectorFraction; ///< per cent
extern std::int16_t gRoseHistStyle;
extern std::int16_t gRoseSegShape;
extern std::int16_t gRoseZeroCircle; ///< per cent

extern std::int16_t gStatsBoxKind; ///< statistics box of new plots: 0 normal, other advanced
extern bool gStatisticsShown;      ///< the statistics of new plots are shown

inline constexpr std::size_t kMaxRecentFiles = 6;

/// Paths of the files last opened, the last one first.
extern std::vector<std::string> gRecentFiles;

/// The class table that new plots start from.
extern Table<TaggedValue, kClassRows, 3> gDefaultClassTable;

inline constexpr std::int16_t kStartMaxPlots = 10;
inline constexpr std::int16_t kMostPlots = 99;
inline constexpr int kWidestLine = 20; ///< draw width of a style, logical pixels

/// The width of a new plot window from a number of the user's, per cent of the main window: 50 for
/// one below 1, at most 100.
[[nodiscard]] std::int16_t PlotWidthOf(double percent);

/// Height over width of a new plot window from a number of the user's, above 0 and at most 1: one
/// above 1 is in per cent, one that is not above 0 gives 0.75.
[[nodiscard]] float PlotAspectOf(double aspect);

/// Gives every setting its value of a first run.
void SetDefaultSettings();

/// What a text of the store means as a truth.
[[nodiscard]] bool TruthOfSetting(const std::string& text);

/// Reads the settings. A key that is missing or cannot be read takes its default. Settings of the
/// earlier generation are read when there are none of this one, and saved again at once.
void LoadSettings();

/// Saves a group of the settings:
/// 0 conventions, 1 columns, 3 names of appended columns (all three from the data format dialog),
/// 4 preferences, 5 number of plots, 6 the session, 7 default data folder. Every call, whatever its
/// group, saves the date.
/// @return false when the store could not be written
bool SaveSettings(int group);

/// Puts a path at the head of the recent files.
void AddRecentFile(const std::string& path);

} // namespace quandrel
