// SPDX-License-Identifier: MIT

#include "help/help_library.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <system_error>

namespace quandrel {

namespace fs = std::filesystem;

namespace {

constexpr std::array kTopics = {
    HelpTopic{"GeolPlotMain", "main_window.html"},
    HelpTopic{"frmAbout", "menu_help.html#about"},
    HelpTopic{"frmCommandSearch", "menu_help.html#search"},
    HelpTopic{"frmConfidenceRegions", "dialog_confidence_regions.html"},
    HelpTopic{"frmDataClassification", "dialog_classification.html"},
    HelpTopic{"frmDataDisplay", "dialog_data_grids.html"},
    HelpTopic{"frmDensities", "dialog_densities.html"},
    HelpTopic{"frmDirectoryDialog", "menu_file.html#folder"},
    HelpTopic{"frmExportFigure", "dialog_export.html"},
    HelpTopic{"frmExportImage", "dialog_export.html"},
    HelpTopic{"frmFigureSheet", "figures.html#window"},
    HelpTopic{"panLayers", "panel_layers.html"},
    HelpTopic{"panProperties", "panel_properties.html"},
    HelpTopic{"frmFabricPlots", "dialog_fabric_plots.html"},
    HelpTopic{"frmFileFormat", "dialog_data_format.html"},
    HelpTopic{"frmHelp", "using_help.html"},
    HelpTopic{"frmIntro", "main_window.html#start"},
    HelpTopic{"frmLayerControl", "map_link.html#layers"},
    HelpTopic{"frmMITableDialog", "map_link.html#table"},
    HelpTopic{"frmMapinfo", "map_link.html"},
    HelpTopic{"frmPlotForms", "plot_window.html"},
    HelpTopic{"frmPrefHelp", "dialog_preferences.html"},
    HelpTopic{"frmPreferences", "dialog_preferences.html"},
    HelpTopic{"frmPrintDialog", "dialog_printing.html"},
    HelpTopic{"frmPrinterSetup", "dialog_printing.html#destination"},
    HelpTopic{"frmRoseDiag", "dialog_rose.html"},
    HelpTopic{"frmRotationMenu", "dialog_rotation.html"},
    HelpTopic{"frmSavePlotsDialog", "menu_file.html#closing"},
    HelpTopic{"frmSmallCircle", "dialog_small_circles.html"},
    HelpTopic{"frmStatisticalTests", "dialog_tests.html"},
    HelpTopic{"frmSymbolSelect", "dialog_symbols.html"},
    HelpTopic{"frmTextWindow", "menu_view.html#unplotted"},
    HelpTopic{"panGirdleBox", "girdles.html"},
};

std::optional<std::string> ReadWhole(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool IsHelpFolder(const fs::path& folder) {
    std::error_code ignored;
    return fs::is_regular_file(folder / kHelpContentsPage, ignored);
}

} // namespace

std::optional<fs::path> FindHelpFolder(const fs::path& programFolder) {
    const fs::path parent = programFolder.parent_path();
    // Build trees are in build/<preset>, their programs one folder deeper.
    for (const fs::path& folder :
         {parent / "share" / "quandrel" / kHelpFolderName, programFolder / kHelpFolderName,
          parent.parent_path().parent_path() / "docs" / "help"}) {
        if (IsHelpFolder(folder)) {
            return folder;
        }
    }
    return std::nullopt;
}

std::span<const HelpTopic> HelpTopics() {
    return kTopics;
}

std::string_view HelpPageOf(std::string_view window) {
    // Windows with several instances have a number.
    window = window.substr(0, window.find('_'));
    const auto found = std::ranges::find(kTopics, window, &HelpTopic::window);
    return found != kTopics.end() ? found->page : std::string_view();
}

Result<HelpLibrary> HelpLibrary::Read(const fs::path& folder) {
    const auto contents = ReadWhole(folder / kHelpContentsPage);
    if (!contents) {
        return Failure{kHelpFailureText};
    }
    HelpLibrary library;
    library.contents_ = ReadHelpList(*contents);
    if (const auto terms = ReadWhole(folder / kHelpIndexPage)) {
        std::ranges::copy_if(ReadHelpList(*terms), std::back_inserter(library.index_),
                             [](const HelpEntry& entry) { return !entry.target.empty(); });
    }
    std::error_code failure;
    std::vector<fs::path> pages;
    for (fs::directory_iterator file(folder, failure), end; !failure && file != end;
         file.increment(failure)) {
        if (file->path().extension() == ".html") {
            pages.push_back(file->path());
        }
    }
    std::ranges::sort(pages);
    for (const fs::path& page : pages) {
        const std::string name = page.filename().string();
        // Complete lists would be hits for every query.
        if (name == kHelpContentsPage || name == kHelpIndexPage) {
            continue;
        }
        if (const auto html = ReadWhole(page)) {
            library.search_.Add(name, ReadHelpPage(*html));
        }
    }
    return library;
}

} // namespace quandrel
