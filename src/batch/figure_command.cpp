// SPDX-License-Identifier: MIT

#include "batch/figure_command.h"

#include "batch/key_values.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
#include "drawing/layer_list.h"
#include "edit/marks/plot_views.h"
#include "persistence/style_file.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <filesystem>
#include <optional>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr double kLargestSize = 100;
constexpr int kMostSymbols = 99;
constexpr int kMostIndexes = 99; // of classes and layers of a rose

const Names kPalettes = {{"style", kAsStyle}, {"levels", 0},    {"warm", 1},
                         {"cool", 2},         {"diverging", 3}, {"grey", 4}};

const Names kRoseEntries = {{"petals", kRosePetals},   {"classes", kRoseClasses},
                            {"class", kRoseClass},     {"mean", kRoseMeanLine},
                            {"sectors", kRoseSectors}, {"circles", kRoseCircles},
                            {"scales", kRoseScales},   {"weights", kRoseWeights}};

const Names kLines = {{"style", kAsStyle},     {"solid", kSolidLine},     {"dashed", kDashedLine},
                      {"dotted", kDottedLine}, {"dashdot", kDashDotLine}, {"none", kNoLine}};

/// Reads a colour, "#b02030", or the word for that of the style.
std::string TakeColour(const std::string& value, std::int32_t& field) {
    if (value == "style") {
        field = kColourOfStyle;
        return {};
    }
    unsigned number = 0;
    const char* const end = value.data() + value.size();
    if (value.size() != 7 || value.front() != '#'
        || std::from_chars(value.data() + 1, end, number, 16).ptr != end) {
        return "'" + value + "' is not a colour such as #b02030";
    }
    field = static_cast<std::int32_t>((number & 0xffU) << 16U | (number & 0xff00U) | number >> 16U);
    return {};
}

/// Reads a number from 0, or the word for that of the style.
std::string TakeSize(const std::string& value, double most, double& field) {
    if (value == "style") {
        field = kAsStyle;
        return {};
    }
    double number = 0;
    std::string error = TakeNumber(value, number);
    if (error.empty() && (number < 0 || number > most)) {
        error = "'" + value + "' is beyond its limits";
    }
    if (error.empty()) {
        field = number;
    }
    return error;
}

const Takers<FigureLayer>& LayerTakers() {
    using L = FigureLayer;
    static const Takers<L> takers = {
        {"name",
         [](auto& v, L& l) {
             l.LayerName = v;
             return std::string();
         }},
        {"hidden",
         [](auto& v, L& l) {
             return TakeName({{"yes", kTrue}, {"no", 0}}, v, l.LayerHidden);
         }},
        {"colour", [](auto& v, L& l) { return TakeColour(v, l.LayerColour); }},
        {"opacity", [](auto& v, L& l) { return TakeSize(v, 1, l.LayerOpacity); }},
        {"symbol", [](auto& v, L& l) { return TakeWhole(v, 0, kMostSymbols, l.LayerSymbol); }},
        {"size", [](auto& v, L& l) { return TakeSize(v, kLargestSize, l.LayerSize); }},
        {"halo", [](auto& v, L& l) { return TakeSize(v, kLargestSize, l.LayerHalo); }},
        {"width", [](auto& v, L& l) { return TakeSize(v, kLargestSize, l.LayerWidth); }},
        {"line", [](auto& v, L& l) { return TakeName(kLines, v, l.LayerLine); }},
        {"palette", [](auto& v, L& l) { return TakeName(kPalettes, v, l.LayerPalette); }},
        {"steps", [](auto& v, L& l) { return TakeWhole(v, 1, kMostLevels, l.LayerSteps); }},
        {"labels",
         [](auto& v, L& l) {
             return TakeName({{"style", kAsStyle}, {"no", 0}, {"yes", 1}}, v, l.LayerLabels);
         }},
    };
    return takers;
}

/// The arguments after the first bare ones.
std::vector<Argument> After(const Command& command, std::size_t bare) {
    std::vector<Argument> rest;
    for (const Argument& argument : command.arguments) {
        if (argument.name.empty() && bare > 0) {
            --bare;
        } else {
            rest.push_back(argument);
        }
    }
    return rest;
}

std::string Take(const Command& command, std::size_t bare, FigureLayer& layer) {
    return TakeArguments(After(command, bare), LayerTakers(), "a layer", layer);
}

/// The place in the list that a bare word names, from 0.
std::optional<std::size_t> PlaceAt(const Command& command, std::size_t bare, std::size_t count) {
    const std::optional<int> place =
        WholeNumber(command.Bare(bare).value_or(""), 1, static_cast<int>(count));
    return place ? std::optional(static_cast<std::size_t>(*place - 1)) : std::nullopt;
}

std::string AddLayer(const Command& command, std::vector<FigureLayer>& layers) {
    const std::string data = command.Bare(1).value_or("");
    const std::string shown = command.Bare(2).value_or("");
    const std::optional<FigureLayer> of = DataOfWord(data);
    const std::optional<std::int16_t> show = ShowOfWord(shown);
    if (!of || !show) {
        return "'" + (of ? shown : data) + "' is not " + (of ? "a way to show data" : "data");
    }
    FigureLayer layer = *of;
    layer.LayerShow = *show;
    if (!IsPossible(ActivePlot(), layer)) {
        return data + " cannot be shown as " + shown;
    }
    if (std::string error = Take(command, 3, layer); !error.empty()) {
        return error;
    }
    const std::size_t former = layers.size();
    std::vector<FigureLayer> with = WithToggledLayer(ActivePlot(), layer);
    if (with.size() < former) {
        return data + " is shown as " + shown + " already";
    }
    layers = std::move(with);
    return {};
}

std::string ChangeList(const Command& command, std::vector<FigureLayer>& layers) {
    const std::string act = command.Bare(0).value_or("");
    if (act == "add") {
        return AddLayer(command, layers);
    }
    if (act == "mode") {
        layers.clear();
        return {};
    }
    const std::optional<std::size_t> place = PlaceAt(command, 1, layers.size());
    if (!place) {
        return "a layer is missing: a number from 1 to " + std::to_string(layers.size());
    }
    const auto at = layers.begin() + static_cast<std::ptrdiff_t>(*place);
    if (act == "change") {
        return Take(command, 2, *at);
    }
    if (act == "remove") {
        layers.erase(at);
        return {};
    }
    const std::optional<std::size_t> to = PlaceAt(command, 2, layers.size());
    if (!to) {
        return "the new place is missing: a number from 1 to " + std::to_string(layers.size());
    }
    const FigureLayer moved = *at;
    layers.erase(at);
    layers.insert(layers.begin() + static_cast<std::ptrdiff_t>(*to), moved);
    return {};
}

} // namespace

Result<StyleChoice> ReadStyle(const std::string& name) {
    if (StandardStyle(name) != nullptr) {
        return ChoiceOfStandard(name);
    }
    Result<StyleChoice> read = ReadStyleFile(name);
    if (!read && !std::filesystem::exists(name)) {
        return Failure{"'" + name + "' is neither a style nor a file"};
    }
    return read;
}

std::string ApplyStyle(const Command& command) {
    RecordFigure figure = ActiveRecord();
    if (command.Bare(0) == "save" && command.Bare(1)) {
        return WriteStyleFile(*command.Bare(1), *StyleOfPlot(ActiveRecord()));
    }
    const Result<StyleChoice> read = ReadStyle(command.Words());
    if (!read) {
        return read.Error();
    }
    SetStyle(figure, *read);
    ChangeFigure(gActivePlot, figure);
    return {};
}

bool IsLayerChange(const Command& command) {
    const std::string act = command.Bare(0).value_or("");
    return act == "add" || act == "change" || act == "move" || act == "remove" || act == "mode";
}

std::string ApplyLayerArguments(const Command& command) {
    if (ActiveRecord().PlotKind == kRose) {
        return "a rose has no layers";
    }
    RecordFigure figure = ActiveRecord();
    figure.Layers = LayersOf(ActivePlot());
    if (std::string error = ChangeList(command, figure.Layers); !error.empty()) {
        return error;
    }
    ChangeFigure(gActivePlot, figure);
    return {};
}

std::string NameLegendEntry(const Command& command) {
    if (ActiveRecord().PlotKind != kRose) {
        return "the entries of a net are named with its layers";
    }
    RoseName name;
    std::string error = TakeName(kRoseEntries, command.Bare(0).value_or(""), name.RoseEntry);
    const std::string index = command.Bare(1).value_or("0");
    if (error.empty() && !WholeNumber(index, 0, kMostIndexes)) {
        error = "'" + index + "' is not a number of a class or a layer";
    }
    if (!error.empty()) {
        return error;
    }
    name.RoseIndex = static_cast<std::int16_t>(*WholeNumber(index, 0, kMostIndexes));
    name.RoseWords = command.Value("text").value_or("");
    RecordFigure figure = ActiveRecord();
    NameRoseEntry(figure, name);
    if (!IsValid(figure)) {
        return "the text is too long";
    }
    ChangeFigure(gActivePlot, figure);
    return {};
}

Json FigureJson(const Plot& plot) {
    Json json = {{"style", plot.record.StyleName.empty() ? std::string(kClassicStyle)
                                                         : plot.record.StyleName},
                 {"ownLayers", !plot.record.Layers.empty()}};
    Json& layers = json["layers"] = Json::array();
    for (const FigureLayer& layer : LayersOf(plot)) {
        Json one = {{"of", WordOfData(layer)}, {"shown", WordOfShow(layer.LayerShow)}};
        const auto add = [&one](const char* name, const auto& field) { one[name] = field; };
        VisitFieldsOf(layer, add);
        layers.push_back(std::move(one));
    }
    for (const RoseName& name : plot.record.RoseNames) {
        json["roseNames"].push_back({{"entry", NameOf(kRoseEntries, name.RoseEntry)},
                                     {"index", name.RoseIndex},
                                     {"text", name.RoseWords}});
    }
    return json;
}

} // namespace quandrel
