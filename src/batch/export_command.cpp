// SPDX-License-Identifier: MIT

#include "batch/export_command.h"

#include "batch/figure_command.h"
#include "batch/key_values.h"
#include "core/plot_style.h"
#include "qt/plot_picture.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

namespace quandrel {

namespace {

constexpr int kLeastPixels = 50;
constexpr int kMostPixels = 20000;
constexpr int kLeastDots = 30;
constexpr int kMostDots = 2400;
constexpr double kLeastWidth = 20; ///< millimetres, of pages and nets
constexpr double kMostWidth = 1000;

constexpr std::array<std::string_view, 2> kPictureKeys = {"size", "part"};
constexpr const char* kDataKey = "data"; ///< of all pictures

/// What the words say; what is empty is not said.
struct Draft {
    PictureOptions options;
    FigureExport figure;
    bool isPicture = false;
    bool isFigure = false;
    bool hasWidth = false;
    bool hasLegend = false;
};

std::string TakeWidth(const std::string& value, Draft& draft) {
    draft.hasWidth = true;
    if (value == "slide") {
        draft.figure.size.width = kSlideWidth;
        draft.figure.height = kSlideHeight;
        return {};
    }
    return TakeMillimetres(value, kLeastWidth, kMostWidth, draft.figure.size.width);
}

std::string TakeStyle(const std::string& value, Draft& draft) {
    const Result<StyleChoice> read = ReadStyle(value);
    if (!read) {
        return read.Error();
    }
    draft.figure.style = StyleOfChoice(*read);
    return {};
}

std::string TakePictureHeight(const std::string& value, Draft& draft) {
    const std::optional<int> size = WholeNumber(value, kLeastPixels, kMostPixels);
    if (!size) {
        return "'" + value + "' is not a size: 50 to 20000 pixels";
    }
    draft.options.size = *size;
    return {};
}

std::string TakePart(const std::string& value, Draft& draft) {
    if (value != "whole" && value != "net") {
        return "'" + value + "' is neither whole nor net";
    }
    draft.options.part = value == "net" ? PicturePart::NetAlone : PicturePart::WholePlot;
    return {};
}

const Takers<Draft>& ExportTakers() {
    static const Takers<Draft> takers = {
        {"size", TakePictureHeight},
        {"part", TakePart},
        {"style", TakeStyle},
        {"width", TakeWidth},
        {"net",
         [](auto& v, Draft& d) {
             return TakeMillimetres(v, kLeastWidth, kMostWidth, d.figure.size.netDiameter);
         }},
        {"legend",
         [](auto& v, Draft& d) {
             d.hasLegend = true;
             return TakeName({{"right", static_cast<int>(LegendPlace::Right)},
                              {"below", static_cast<int>(LegendPlace::Below)},
                              {"none", static_cast<int>(LegendPlace::None)}},
                             v, d.figure.size.legend);
         }},
        {"dpi", [](auto& v,
                   Draft& d) { return TakeWhole(v, kLeastDots, kMostDots, d.figure.dotsPerInch); }},
        {"background",
         [](auto& v, Draft& d) {
             return TakeName({{"white", 0}, {"transparent", 1}}, v, d.figure.isTransparent);
         }},
        {kDataKey, [](auto& v, Draft& d) { return TakeTruth(v, d.options.hasData); }},
    };
    return takers;
}

/// What the words leave open.
void Complete(Draft& draft) {
    FigureSize& size = draft.figure.size;
    if (size.netDiameter > 0 && !draft.hasWidth) {
        size.width = 0;
    }
    if (!draft.hasLegend) {
        size.legend = UsualPlace(size.width);
    }
}

} // namespace

std::vector<std::string_view> ExportKeys() {
    std::vector<std::string_view> keys;
    for (const auto& [key, taker] : ExportTakers()) {
        keys.push_back(key);
    }
    return keys;
}

Result<PictureOptions> OptionsOfExport(const Command& command) {
    Draft draft;
    for (const Argument& argument : command.arguments) {
        if (argument.name.empty()) {
            continue;
        }
        const auto taker = ExportTakers().find(argument.name);
        const bool isOfPicture =
            std::ranges::find(kPictureKeys, argument.name) != kPictureKeys.end();
        if (argument.name != kDataKey) {
            (isOfPicture ? draft.isPicture : draft.isFigure) = true;
        }
        if (std::string error = taker->second(argument.value, draft); !error.empty()) {
            return Failure{std::move(error)};
        }
    }
    if (draft.isPicture && draft.isFigure) {
        return Failure{"size and part are of other pictures than style, width, net, legend, dpi "
                       "and background"};
    }
    if (draft.isFigure) {
        Complete(draft);
        draft.options.figure = draft.figure;
    }
    return draft.options;
}

} // namespace quandrel
