// SPDX-License-Identifier: MIT

#include "persistence/style_file.h"

#include "core/atomic_file.h"
#include "core/figure_style_text.h"
#include "core/path_names.h"
#include "input/text_file.h"

#include <filesystem>
#include <utility>

namespace quandrel {

Result<StyleChoice> ReadStyleFile(const std::string& path) {
    Result<std::string> text = FirstBytes(path, kLongestStyleText + 1);
    if (!text) {
        return Failure{text.Error()};
    }
    const Result<FigureStyle> style = StyleOfText(*text);
    if (!style) {
        return Failure{style.Error()};
    }
    return StyleChoice{style->name, std::move(*text)};
}

std::string WriteStyleFile(const std::string& path, const FigureStyle& style) {
    return WriteFileAtomically(path, TextOfStyle(style));
}

} // namespace quandrel
