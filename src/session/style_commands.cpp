// SPDX-License-Identifier: MIT

#include "session/style_commands.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
#include "edit/marks/plot_views.h"
#include "persistence/style_file.h"
#include "platform/platform.h"

#include <algorithm>

namespace quandrel {

namespace {

void UseStyle(int slot, const StyleChoice& choice) {
    RecordFigure figure = RecordOf(slot);
    SetStyle(figure, choice);
    ChangeFigure(slot, figure);
}

PathQuestion StyleQuestion(const char* title, const std::string& fileName = {}) {
    PathQuestion question;
    question.title = title;
    question.folder = gSettings.files.folder;
    question.fileName = fileName;
    question.filter = kStyleFilter;
    return question;
}

} // namespace

std::optional<std::size_t> StandardStyleOf(const RecordFigure& figure) {
    if (!figure.StyleText.empty()) {
        return std::nullopt;
    }
    const std::string name = StyleOfChoice(StyleChoiceOf(figure))->name;
    const auto styles = StandardStyles();
    const auto found = std::ranges::find(styles, name, &FigureStyle::name);
    return static_cast<std::size_t>(found - styles.begin());
}

void UseStandardStyle(int slot, std::size_t number) {
    UseStyle(slot, ChoiceOfStandard(StandardStyles()[number].name));
}

void OpenStyle(int slot) {
    const auto path = gPlatform.prompts->AskOpenPath(StyleQuestion("Open Style:"));
    if (!path || path->empty()) {
        return;
    }
    const Result<StyleChoice> style = ReadStyleFile(*path);
    if (!style) {
        Tell(style.Error() + "\n" + *path);
        return;
    }
    UseStyle(slot, *style);
}

void SaveStyle(int slot) {
    const std::shared_ptr<const FigureStyle> style = StyleOfPlot(RecordOf(slot));
    const auto path =
        gPlatform.prompts->AskSavePath(StyleQuestion("Save Style as:", style->name + ".json"));
    if (!path || path->empty()) {
        return;
    }
    if (const std::string reason = WriteStyleFile(*path, *style); !reason.empty()) {
        Tell("The style could not be saved\n" + *path + "\n" + reason);
    }
}

void UseStyleForNewPlots(int slot) {
    gSettings.newPlots.style = StyleChoiceOf(RecordOf(slot));
}

} // namespace quandrel
