// SPDX-License-Identifier: MIT

#include "sheet/sheet_content.h"

#include "core/path_names.h"
#include "core/plot_formulas.h"
#include "core/plot_style.h"
#include "core/plot_texts.h"
#include "drawing/work_out.h"
#include "input/text_file.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_plot_file.h"
#include "persistence/picture_block.h"
#include "persistence/picture_data.h"
#include "persistence/plot_file_bytes.h"
#include "persistence/style_file.h"
#include "rose/rose_plot.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

namespace quandrel {

namespace {

/// The name without the ending that data files have.
std::string WithoutEnding(const std::string& name) {
    const std::size_t ending = name.rfind('.');
    return ending == 0 || ending == std::string::npos ? name : name.substr(0, ending);
}

/// The plot file of a panel.
Result<std::string> BytesOf(const SheetPanel& panel) {
    if (panel.file.empty()) {
        return PlotFileOfText(panel.data);
    }
    if (panel.file.find('\0') != std::string::npos) {
        return Failure{"its name is not valid"};
    }
    return FirstBytes(panel.file, kLargestPlotInPicture);
}

void WorkOut(Plot& plot, const Settings& settings) {
    const Formulas formulas = FormulasOf(plot.record, settings.notation.formulas);
    if (plot.record.PlotKind == kRose) {
        WorkOutRoseUnasked(plot, formulas);
        return;
    }
    const int cells = plot.record.GridSize > 0 ? plot.record.GridSize : settings.gridSize;
    WorkOutPlot(plot, {ReplotCause::Rows, settings.styles, formulas,
                       std::clamp(cells, kCoarsestGrid, kFinestGrid)});
}

std::vector<FabricPoint> FabricsOf(Plot& plot, const Settings& settings) {
    const std::array<Plot*, 1> plots = {&plot};
    return FabricPointsOf(plots, settings.styles,
                          kRegionsOfPlot | kRegionsOfOverlays | kRegionsOfClasses);
}

bool HaveEqualPlots(const SheetPanel& one, const SheetPanel& other) {
    return one.kind != PanelKind::Text && other.kind != PanelKind::Text && one.kind == other.kind
           && one.file == other.file && one.data == other.data;
}

/// The plot of a panel; null when it is not open, or cannot be told from others.
const Plot* PlotOfPanel(const SheetPanel& panel, const std::vector<const Plot*>& plots) {
    const auto isOf = [&panel](const Plot* plot) {
        return panel.file.empty() ? WithoutEnding(PictureViewOf(plot->record).title) == panel.name
                                  : plot->record.SaveFileName == panel.file;
    };
    return std::ranges::count_if(plots, isOf) == 1 ? *std::ranges::find_if(plots, isOf) : nullptr;
}

/// The panel of a plot, which it holds.
Result<SheetPanel> PanelWithPlot(PanelKind kind, const Plot& plot) {
    Result<std::string> bytes = PlotBytesForPicture(plot);
    Result<std::string> text = bytes ? TextOfPlotFile(*bytes) : bytes;
    if (!text) {
        return Failure{text.Error()};
    }
    SheetPanel panel;
    panel.kind = kind;
    panel.data = std::move(*text);
    panel.name = WithoutEnding(PictureViewOf(plot.record).title);
    return panel;
}

} // namespace

Result<SheetPanel> PanelOfPlot(PanelKind kind, const Plot& plot) {
    const PlotRecord& record = plot.record;
    Result<SheetPanel> panel = record.Modified == 0 && HasEnding(record.SaveFileName, kBinaryEnding)
                                   ? PanelOfFile(kind, record.SaveFileName)
                                   : PanelWithPlot(kind, plot);
    if (panel && kind == PanelKind::Statistics) {
        panel->text = StatisticsInUse(plot);
    }
    return panel;
}

Result<FigureSheet> WithItsPlots(const FigureSheet& sheet,
                                 const std::vector<PanelContent>& contents) {
    FigureSheet whole = sheet;
    for (std::size_t i = 0; i < whole.panels.size(); ++i) {
        SheetPanel& panel = whole.panels[i];
        if (panel.file.empty() || contents[i].plot == nullptr) {
            continue;
        }
        Result<SheetPanel> held = PanelWithPlot(panel.kind, *contents[i].plot);
        if (!held) {
            return Failure{held.Error()};
        }
        panel.data = std::move(held->data);
        panel.name = contents[i].name;
        panel.file.clear();
    }
    return whole;
}

Result<UpdatedSheet> UpdatedFrom(const std::vector<const Plot*>& plots, const FigureSheet& sheet) {
    UpdatedSheet updated{sheet, {}};
    for (std::size_t i = 0; i < sheet.panels.size(); ++i) {
        const SheetPanel& former = sheet.panels[i];
        if (former.kind == PanelKind::Text) {
            continue;
        }
        const Plot* plot = PlotOfPanel(former, plots);
        if (plot == nullptr) {
            updated.unchanged.push_back(i);
            continue;
        }
        Result<SheetPanel> panel = PanelOfPlot(former.kind, *plot);
        if (!panel) {
            return Failure{panel.Error()};
        }
        panel->name = former.name.empty() ? panel->name : former.name;
        panel->title = former.title;
        panel->columns = former.columns;
        panel->rows = former.rows;
        updated.sheet.panels[i] = std::move(*panel);
    }
    return updated;
}

SheetPanel PanelOfFile(PanelKind kind, const std::string& path) {
    SheetPanel panel;
    panel.kind = kind;
    panel.file = NormalPath(path);
    return panel;
}

Result<PanelContent> ContentOf(const SheetPanel& panel, const Settings& settings) {
    PanelContent content;
    if (panel.kind == PanelKind::Text) {
        return content;
    }
    if (panel.kind == PanelKind::Statistics && panel.text.empty()) {
        return Failure{"there are no statistics: open the plot and add those that it shows"};
    }
    const Result<std::string> bytes = BytesOf(panel);
    Result<Plot> plot = bytes ? ReadPlotFile(*bytes) : Result<Plot>(Failure{bytes.Error()});
    if (!plot) {
        return Failure{panel.file.empty() ? plot.Error() : "'" + panel.file + "': " + plot.Error()};
    }
    content.name = panel.name.empty() ? WithoutEnding(FileTitleOf(panel.file)) : panel.name;
    plot->record.PlotTitle = content.name;
    WorkOut(*plot, settings);
    if (panel.kind == PanelKind::Fabric) {
        content.fabrics = FabricsOf(*plot, settings);
        if (content.fabrics.empty()) {
            return Failure{"the plot has no rows for a fabric plot"};
        }
    }
    content.plot = std::make_shared<const Plot>(std::move(*plot));
    return content;
}

Result<std::vector<PanelContent>> ContentOf(const FigureSheet& sheet, const Settings& settings) {
    std::vector<PanelContent> contents;
    for (std::size_t i = 0; i < sheet.panels.size(); ++i) {
        const SheetPanel& panel = sheet.panels[i];
        const auto end = sheet.panels.begin() + static_cast<std::ptrdiff_t>(i);
        const auto same = std::find_if(sheet.panels.begin(), end, [&panel](const auto& other) {
            return HaveEqualPlots(panel, other);
        });
        if (same != end) {
            contents.push_back(contents[static_cast<std::size_t>(same - sheet.panels.begin())]);
            if (!panel.name.empty()) {
                contents.back().name = panel.name;
            }
            continue;
        }
        Result<PanelContent> content = ContentOf(panel, settings);
        if (!content) {
            return Failure{"panel " + std::to_string(i + 1) + ": " + content.Error()};
        }
        contents.push_back(std::move(*content));
    }
    return contents;
}

Result<std::shared_ptr<const FigureStyle>> StyleOfSheet(const FigureSheet& sheet) {
    if (const FigureStyle* const standard = StandardStyle(sheet.style)) {
        return StyleOfChoice({standard->name, {}});
    }
    const Result<StyleChoice> read = ReadStyleFile(sheet.style);
    if (!read) {
        return Failure{"'" + sheet.style + "': " + read.Error()};
    }
    return StyleOfChoice(*read);
}

} // namespace quandrel
