// SPDX-License-Identifier: MIT
//
// The user's settings as one value. settings.h reads and saves them; plot_store.h has views on them
// under given names.

#pragma once

#include "core/format_settings.h"
#include "core/formulas.h"
#include "core/plot_record.h"
#include "core/style_choice.h"
#include "core/styles.h"
#include "platform/window_place.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// How numbers and results are read and written.
struct NotationSettings {
    bool decimalIsComma = false;     ///< the regional decimal delimiter is a comma
    bool convertDecimals = false;    ///< appended numbers with the other delimiter are converted
    std::string pitchName = "pitch"; ///< or "rake"
    Formulas formulas = Formulas::Own;
};

/// New windows.
struct WindowSettings {
    WindowPlace main;
    bool plotWinLast = false;           ///< new plot windows take the size of the last one
    std::int16_t plotWidthPercent = 50; ///< of a new plot window, per cent of the main window
    float plotAspect = 0.75F;           ///< its height over its width
    bool mapToolbar = true;             ///< whether the toolbar of a map link is shown
    bool toolLabels = true;             ///< whether buttons of the tool strip have names below
    bool layerPanel = false;            ///< whether the panel of data and layers is shown
    bool propertyPanel = false;         ///< whether that of the properties of a layer is shown
    bool textPanel = false;             ///< whether that of statistics and description is shown
    std::int16_t layerWidth = 240;      ///< of the panels, logical pixels
    std::int16_t propertyWidth = 240;
    std::int16_t textWidth = 280;
};

/// Files and folders.
struct FileSettings {
    std::string folder; ///< default data folder; empty: where the last file was
    std::string lastFolder;
    std::string workspaceFolder; ///< of the last workspace
    std::string workspaceName;
    std::string workspaceTitle;
    std::string lastVersion = "9.4"; ///< the program version that saved the settings
    bool nonDataLines = false;       ///< whether texts of plots include the lines that are not data
    std::vector<std::string> recent; ///< paths of recent files, the latest first
    StyleChoice exportStyle = {"Journal", {}}; ///< of figures for print (StyleChoiceForPrint)
};

/// Roses of new plots.
struct RoseDefaults {
    std::string scaleType = "tickauto";
    double sectorSize = 10;            ///< degrees
    std::int16_t sectorFraction = 100; ///< per cent
    std::int16_t histStyle = 0;
    std::int16_t segShape = 0;
    std::int16_t zeroCircle = 0; ///< per cent
};

/// Defaults of new plots.
struct NewPlotSettings {
    std::int16_t maxPlots = 10;    ///< largest slot allowed
    std::int16_t statsBoxKind = 0; ///< statistics box: 0 normal, other advanced
    bool statisticsShown = true;
    bool useDecimals = false; ///< RecordView::UseDecimals
    StyleChoice style;        ///< Classic, unless the settings say otherwise
    RoseDefaults rose;
    Table<TaggedValue, kClassRows, 3> classes;
};

/// Sizes of density grids that the user can choose.
inline constexpr int kCoarsestGrid = 10;
inline constexpr int kFinestGrid = 150;
inline constexpr int kGridStep = 10;

struct Settings {
    Styles styles;
    int gridSize = 50; ///< cells across the density grid of new plots and of the plot in focus,
                       ///< kCoarsestGrid to kFinestGrid; not saved
    FormatSettings format{.delimiter = "\t",
                          .planeSeparator = "/",
                          .lineSeparator = "-",
                          .primary = kPrimaryPlane,
                          .numericName = "value",
                          .nonNumericName = "type",
                          .columns = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9},
                          .plotDataKind = kPlanes,
                          .plotKind = kEqualArea,
                          .comments = {},
                          .pairsInCells = false,
                          .placeColumns = {}};
    NotationSettings notation;
    WindowSettings windows;
    FileSettings files;
    NewPlotSettings newPlots;
};

/// The current settings.
extern Settings gSettings;

} // namespace quandrel
