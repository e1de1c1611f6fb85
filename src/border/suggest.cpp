// SPDX-License-Identifier: MIT

#include "quandrel/suggest.h"

#include "border/table_format.h"
#include "core/format_settings.h"
#include "input/suggest/format_suggestion.h"
#include "input/suggest/suggestion_texts.h"
#include "input/text_file.h"

#include <algorithm>
#include <iterator>

namespace quandrel::api {

namespace {

SuggestedFormat Out(const FormatSuggestion& suggestion) {
    SuggestedFormat out;
    out.format = FormatOut(SettingsOf(suggestion.choice, {}), {});
    out.format.pairsAreTrendFirst = suggestion.choice.lineIsTrendFirst;
    out.format.decimalIsComma = suggestion.decimalIsComma;
    out.probability = suggestion.probability;
    out.reasons = suggestion.reasons;
    out.numberName = suggestion.choice.numericName;
    out.textName = suggestion.choice.nonNumericName;
    return out;
}

} // namespace

std::vector<SuggestedFormat> SuggestFormats(std::string_view text) {
    std::vector<SuggestedFormat> formats;
    std::ranges::transform(quandrel::SuggestFormats(FirstLinesOfText(text, kSuggestedFrom)),
                           std::back_inserter(formats), Out);
    return formats;
}

Result<TableFormat> SureFormat(std::string_view text) {
    const std::vector<std::string> lines = FirstLinesOfText(text, kSuggestedFrom);
    if (StatesItsFormat(lines)) {
        return FormatOfText(text, {});
    }
    const std::vector<FormatSuggestion> suggestions = quandrel::SuggestFormats(lines);
    if (suggestions.empty() || suggestions.front().probability < kSureEnough) {
        return Failure{TextOfDoubt(suggestions)};
    }
    return Out(suggestions.front()).format;
}

} // namespace quandrel::api
