// SPDX-License-Identifier: MIT

#include "batch/suggested_format.h"

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "input/suggest/format_suggestion.h"
#include "input/suggest/suggestion_texts.h"
#include "input/text_file.h"

#include <string>
#include <vector>

namespace quandrel {

namespace {

/// The lines that a question is about: of its table, its text, or its file.
Result<std::vector<std::string>> LinesOf(const FormatQuestion& question, std::size_t table) {
    if (table < question.tables.size()) {
        return FirstLinesOfText(question.tables[table].text, kSuggestedFrom);
    }
    if (!question.text.empty()) {
        return FirstLinesOfText(question.text, kSuggestedFrom);
    }
    return FirstLines(question.path, kSuggestedFrom);
}

} // namespace

Result<FormatAnswer> TakeSuggestedFormat(const FormatQuestion& question, std::size_t table) {
    const Result<std::vector<std::string>> lines = LinesOf(question, table);
    if (!lines) {
        return Failure{lines.Error()};
    }
    SuggestionOptions options;
    options.base = ChoiceOf(question);
    options.kindIsFixed = JoinsRows(question);
    FormatChoice choice = options.base;
    if (!StatesItsFormat(*lines)) {
        const std::vector<FormatSuggestion> suggestions = SuggestFormats(*lines, options);
        if (suggestions.empty() || suggestions.front().probability < kSureEnough) {
            return Failure{TextOfDoubt(suggestions)};
        }
        choice = suggestions.front().choice;
        gDecimalIsComma = suggestions.front().decimalIsComma;
    }
    FollowPlotKind(choice);
    SetGlobalSettings(choice);
    FormatAnswer answer;
    answer.table = table;
    answer.plotSecondary = choice.plotSecondary;
    answer.columnHeadings = choice.columnHeadings;
    answer.frequencyColumn = choice.numericAppended && choice.numberIsFrequency;
    return answer;
}

} // namespace quandrel
