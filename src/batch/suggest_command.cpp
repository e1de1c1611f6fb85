// SPDX-License-Identifier: MIT

#include "batch/suggest_command.h"

#include "input/text_file.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr std::size_t kLinesRead = 10000;

/// A word of a script, in quotes.
std::string Quoted(std::string text) {
    std::erase_if(text, [](char c) { return c == '"' || c == '\n' || c == '\r'; });
    return '"' + text + '"';
}

std::string ColumnsText(const ColumnSettings& columns) {
    std::string text;
    for (const std::int32_t column : columns) {
        text += (text.empty() ? "" : ",") + std::to_string(column);
    }
    return text;
}

std::string AppendedText(const FormatChoice& choice) {
    std::string kinds;
    std::string names;
    if (choice.numericAppended) {
        kinds = "numeric";
        names += " numericname=" + Quoted(choice.numericName);
    }
    if (choice.nonNumericAppended) {
        kinds += kinds.empty() ? "text" : ",text";
        names += " textname=" + Quoted(choice.nonNumericName);
    }
    return kinds.empty() ? "" : " appended=" + kinds + names;
}

} // namespace

std::string FormatArgumentsOf(const FormatChoice& choice) {
    static constexpr std::array kPrimaries = {"directions", "plane", "line"};
    static constexpr std::array kSecondaries = {"none", "pitch", "trend", "line", "plane", "hade"};
    static const std::vector<std::pair<std::string, std::string>> delimiters = {
        {"\t", "tab"}, {" ", "space"}, {",", "comma"}, {";", "semicolon"}, {"", "any"}};
    const auto delimiter = std::ranges::find(delimiters, choice.delimiter,
                                             &std::pair<std::string, std::string>::first);
    return std::string("primary=") + kPrimaries.at(static_cast<std::size_t>(choice.primary - 1))
           + " secondary=" + kSecondaries.at(static_cast<std::size_t>(choice.secondary))
           + " conventions=" + std::to_string(ConventionCode(choice)) + " delimiter="
           + (delimiter != delimiters.end() ? delimiter->second : Quoted(choice.delimiter))
           + " columns=" + ColumnsText(choice.columns)
           + (choice.columnHeadings ? " header=yes" : " header=no") + AppendedText(choice);
}

Result<std::string> SuggestionsOfFile(const std::string& path) {
    const Result<std::vector<std::string>> lines = FirstLines(path, kLinesRead);
    if (!lines) {
        return Failure{"'" + path + "': " + lines.Error()};
    }
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const FormatSuggestion& one : SuggestFormats(*lines)) {
        constexpr double kThousand = 1000;
        list.push_back({{"probability", std::round(one.probability * kThousand) / kThousand},
                        {"format", FormatArgumentsOf(one.choice)},
                        {"reasons", one.reasons}});
    }
    return list.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

} // namespace quandrel
