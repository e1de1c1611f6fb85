// SPDX-License-Identifier: MIT

#include "panels/layer_commands.h"

#include "core/atomic_file.h"
#include "core/figure_style_text.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
#include "core/settings_value.h"
#include "drawing/layer_list.h"
#include "drawing/layer_results.h"
#include "edit/marks/plot_views.h"
#include "edit/rows/clipboard_text.h"
#include "platform/platform.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace quandrel {

namespace {

using Layers = std::vector<FigureLayer>;

/// Changes the list of a plot where a layer is at a place.
void Change(int slot, std::size_t place, const std::function<void(Layers&)>& change,
            EditRun run = EditRun::Alone) {
    if (!IsOpenSlot(slot)) {
        return;
    }
    RecordFigure figure = RecordOf(slot);
    figure.Layers = LayersOf(PlotOf(slot));
    if (place < figure.Layers.size()) {
        change(figure.Layers);
        ChangeFigure(slot, figure, run);
    }
}

/// The style with the properties that a layer has of its own.
FigureStyle WithProperties(FigureStyle style, const FigureLayer& layer) {
    const auto take = [](double own, double& value) { value = own == kAsStyle ? value : own; };
    const bool hasColour = layer.LayerColour != kColourOfStyle;
    const Colour colour =
        hasColour ? ColourFromValue(static_cast<std::uint32_t>(layer.LayerColour)) : Colour();
    const auto takeColour = [&](Colour& value) { value = hasColour ? colour : value; };
    switch (layer.LayerShow) {
    case kShowGreatCircles:
        take(layer.LayerWidth, style.lines.circleWidth);
        break;
    case kShowContours:
        take(layer.LayerWidth, style.lines.contourWidth);
        takeColour(style.lines.contour);
        break;
    case kShowBands:
        style.bands.palette =
            layer.LayerPalette == kAsStyle ? style.bands.palette : layer.LayerPalette;
        style.bands.steps = layer.LayerSteps == kAsStyle ? style.bands.steps : layer.LayerSteps;
        break;
    case kShowCalculatedGirdles:
    case kShowUserGirdles:
        take(layer.LayerWidth, style.lines.girdleWidth);
        takeColour(style.lines.accent);
        break;
    case kShowRegions:
        take(layer.LayerWidth, style.lines.regionWidth);
        takeColour(style.lines.accent);
        break;
    default:
        take(layer.LayerSize, style.symbols.size);
        style.symbols.leastSize = std::min(style.symbols.leastSize, style.symbols.size);
        take(layer.LayerHalo, style.symbols.haloWidth);
        if (!style.symbols.setColours.empty()) {
            takeColour(style.symbols.setColours.front());
        }
        if (layer.LayerSymbol != kAsStyle && !style.symbols.setShapes.empty()) {
            style.symbols.setShapes.front() = layer.LayerSymbol;
        }
        break;
    }
    return style;
}

/// The point indices of the rows of a layer.
std::vector<std::int32_t> RowsOf(const Plot& plot, const FigureLayer& layer) {
    const LayerRows rows = RowsOfLayer(plot, gSettings.styles, layer);
    const RowSet set = SetOf(plot, rows);
    std::vector<std::int32_t> indexes;
    for (const std::int32_t index : set.table->index) {
        if (index >= set.range.first && index <= set.range.last) {
            indexes.push_back(index);
        }
    }
    std::ranges::sort(indexes);
    return indexes;
}

} // namespace

void ShowLayer(int slot, std::size_t place, bool isShown) {
    Change(slot, place,
           [&](Layers& layers) { layers[place].LayerHidden = isShown ? std::int16_t{0} : kTrue; });
}

void ShowLayerAlone(int slot, std::size_t place) {
    Change(slot, place, [place](Layers& layers) {
        const auto isOther = [&](const FigureLayer& layer) {
            return &layer != &layers[place] && layer.LayerOf != kLayerOfNet;
        };
        const bool isAlone = std::ranges::all_of(layers, [&](const FigureLayer& layer) {
            return !isOther(layer) || layer.LayerHidden != 0;
        });
        for (FigureLayer& layer : layers) {
            if (isOther(layer)) {
                layer.LayerHidden = isAlone ? std::int16_t{0} : kTrue;
            }
        }
        layers[place].LayerHidden = 0;
    });
}

void RenameLayer(int slot, std::size_t place, const std::string& name) {
    Change(slot, place, [&](Layers& layers) { layers[place].LayerName = name; });
}

void RenameRoseEntry(int slot, const RoseName& name) {
    if (IsOpenSlot(slot)) {
        RecordFigure figure = RecordOf(slot);
        NameRoseEntry(figure, name);
        ChangeFigure(slot, figure);
    }
}

void MoveLayer(int slot, std::size_t from, std::size_t to) {
    Change(slot, std::max(from, to), [from, to](Layers& layers) {
        const auto first = layers.begin();
        const auto at = [first](std::size_t place) {
            return first + static_cast<std::ptrdiff_t>(place);
        };
        if (from < to) {
            std::rotate(at(from), at(from + 1), at(to + 1));
        } else {
            std::rotate(at(to), at(from), at(from + 1));
        }
    });
}

void RemoveLayer(int slot, std::size_t place) {
    Change(slot, place, [place](Layers& layers) {
        // An empty list would bring the layers of the mode back.
        if (layers.size() > 1) {
            layers.erase(layers.begin() + static_cast<std::ptrdiff_t>(place));
        } else {
            layers[place].LayerHidden = kTrue;
        }
    });
}

std::size_t AddLayer(int slot, const FigureLayer& layer) {
    const auto find = [slot, &layer] {
        const Layers layers = LayersOf(PlotOf(slot));
        const auto found = std::ranges::find_if(layers, [&layer](const FigureLayer& other) {
            return other.LayerOf == layer.LayerOf && other.LayerIndex == layer.LayerIndex
                   && other.LayerShow == layer.LayerShow;
        });
        return static_cast<std::size_t>(found - layers.begin());
    };
    const std::size_t count = LayersOf(PlotOf(slot)).size();
    if (find() == count && count < kMostLayers) {
        RecordFigure figure = RecordOf(slot);
        figure.Layers = WithToggledLayer(PlotOf(slot), layer);
        ChangeFigure(slot, figure);
    }
    return find();
}

void ChangeLayer(int slot, std::size_t place, const FigureLayer& layer, EditRun run) {
    Change(
        slot, place, [&](Layers& layers) { layers[place] = layer; }, run);
}

void UseLayersOfMode(int slot) {
    RecordFigure figure = RecordOf(slot);
    figure.Layers.clear();
    ChangeFigure(slot, figure);
}

void UseLayerForNewPlots(int slot, std::size_t place) {
    const Layers layers = LayersOf(PlotOf(slot));
    if (place >= layers.size()) {
        return;
    }
    FigureStyle style = WithProperties(*StyleOfChoice(gSettings.newPlots.style), layers[place]);
    if (style != *StyleOfChoice(gSettings.newPlots.style)) {
        style.name = "Mine";
        gSettings.newPlots.style = {style.name, TextOfStyle(style)};
    }
}

void ExportRowsOfLayer(int slot, std::size_t place) {
    const Plot& plot = PlotOf(slot);
    const Layers layers = LayersOf(plot);
    if (place >= layers.size() || layers[place].LayerOf >= kLayerOfResults) {
        return;
    }
    PathQuestion question;
    question.title = "Export Rows as:";
    question.folder = gSettings.files.folder;
    question.fileName = "rows.txt";
    question.filter = "Text Files (*.txt)|*.txt|All Files|*.*";
    const auto path = gPlatform.prompts->AskSavePath(question);
    if (!path || path->empty()) {
        return;
    }
    const std::string text = TextOfRows(slot, RowsOf(plot, layers[place]), CopiedFields::All);
    if (const std::string reason = WriteFileAtomically(*path, text); !reason.empty()) {
        Tell("The rows could not be saved\n" + *path + "\n" + reason);
    }
}

} // namespace quandrel
