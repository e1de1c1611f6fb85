// SPDX-License-Identifier: MIT

#include "batch/suggest_command.h"

#include "batch/format_command.h"
#include "input/suggest/format_suggestion.h"
#include "input/table_files.h"
#include "input/text_file.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <vector>

namespace quandrel {

namespace {

constexpr std::size_t kLinesRead = 10000;

Result<std::vector<std::string>> LinesOf(const std::string& path) {
    if (!IsTableFile(path)) {
        return FirstLines(path, kLinesRead);
    }
    std::vector<NamedTable> tables;
    const Result<std::string> text = TextOfFile(path, tables);
    if (!text) {
        return Failure{text.Error()};
    }
    return FirstLinesOfText(*text, kLinesRead);
}

} // namespace

Result<std::string> SuggestionsOfFile(const std::string& path) {
    const Result<std::vector<std::string>> lines = LinesOf(path);
    if (!lines) {
        return Failure{"'" + path + "': " + lines.Error()};
    }
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const FormatSuggestion& one : SuggestFormats(*lines)) {
        constexpr double kThousand = 1000;
        list.push_back({{"probability", std::round(one.probability * kThousand) / kThousand},
                        {"format", FormatArgumentsOf(one.choice)
                                       + (one.decimalIsComma ? " decimalcomma=yes" : "")},
                        {"reasons", one.reasons}});
    }
    return list.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

} // namespace quandrel
