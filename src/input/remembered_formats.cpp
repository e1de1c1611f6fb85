// SPDX-License-Identifier: MIT

#include "input/remembered_formats.h"

#include "core/setting_keys.h"
#include "core/settings.h"
#include "platform/platform.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kSection = "RememberedFormats";
constexpr std::int32_t kNoColumn = -1;

/// Calls `visit(key, value)` for each value that is kept.
template <class Choice, class Visitor>
void Visit(Choice& choice, Visitor visit) {
    visit("primary", choice.primary);
    visit("secondary", choice.secondary);
    visit("plane", choice.planeConvention);
    visit("trendFirst", choice.lineIsTrendFirst);
    visit("quadrant", choice.isQuadrant);
    visit("upward", choice.negativePlunge);
    visit("pairs", choice.pairsInCells);
    visit("delimiter", choice.delimiter);
    visit("line", choice.lineAppended);
    visit("number", choice.numericAppended);
    visit("text", choice.nonNumericAppended);
    visit("frequency", choice.numberIsFrequency);
    visit("numberName", choice.numericName);
    visit("textName", choice.nonNumericName);
    visit("columns", choice.columns);
    visit("kind", choice.plotDataKind);
    visit("kindIsStated", choice.kindIsStated);
    visit("showsSecondary", choice.plotSecondary);
}

template <class Number>
bool IsWithin(Number value, Number lowest, Number highest) {
    return value >= lowest && value <= highest;
}

bool IsValid(const FormatChoice& choice) {
    constexpr std::size_t kLongestName = 1000;
    constexpr std::int32_t kLastColumn = 254;
    return IsWithin<std::int16_t>(choice.primary, kDirections, kPrimaryLine)
           && IsWithin<std::int16_t>(choice.secondary, kNoSecondary, kHadeInPlane)
           && IsWithin<int>(choice.planeConvention, kDipDipDirection, kStrikeDipRightHand)
           && IsWithin(choice.negativePlunge, NegativePlunge::LowerEnd, NegativePlunge::Vector)
           && IsWithin<std::int16_t>(choice.plotDataKind, kNoDataKind, kPolarLines)
           && CanHaveSecondary(choice, choice.secondary) && choice.delimiter.size() <= 1
           && choice.numericName.size() <= kLongestName
           && choice.nonNumericName.size() <= kLongestName
           && IsWithin<std::int32_t>(choice.placeColumns.x, kNoColumn, kLastColumn)
           && IsWithin<std::int32_t>(choice.placeColumns.y, kNoColumn, kLastColumn)
           && std::ranges::all_of(choice.columns, [](std::int32_t column) {
                  return IsWithin<std::int32_t>(column, 0, kLastColumn);
              });
}

} // namespace

std::string TextOfRemembered(const RememberedFormat& format) {
    Json json = {{"headings", format.headings}};
    Visit(format.choice, [&json](const char* key, const auto& value) { json[key] = value; });
    json["comments"] = TextOfCommentMarks(format.choice.comments);
    json["x"] = format.choice.placeColumns.x;
    json["y"] = format.choice.placeColumns.y;
    return json.dump(-1, ' ', true, Json::error_handler_t::replace);
}

std::optional<RememberedFormat> RememberedIn(const std::string& text) {
    const Json json = Json::parse(text, nullptr, false);
    RememberedFormat format;
    try {
        json.at("headings").get_to(format.headings);
        Visit(format.choice, [&json](const char* key, auto& value) { json.at(key).get_to(value); });
        const auto comments = CommentMarksIn(json.at("comments").get<std::string>());
        format.choice.comments = comments.value_or(CommentMarks());
        format.choice.placeColumns = {json.value("x", kNoColumn), json.value("y", kNoColumn)};
    } catch (const Json::exception&) {
        return std::nullopt; // not such a text
    }
    format.choice.columnHeadings = true;
    return IsValid(format.choice) ? std::optional(std::move(format)) : std::nullopt;
}

std::vector<RememberedFormat> RememberedFormats() {
    const SettingsStore& store = *gPlatform.settings;
    std::vector<RememberedFormat> formats;
    for (const std::string& key : store.Keys(kApplicationName, kSection)) {
        if (auto format = RememberedIn(store.Read(kApplicationName, kSection, key, {}))) {
            formats.push_back(std::move(*format));
        }
    }
    return formats;
}

void RememberFormat(const RememberedFormat& format) {
    if (format.headings.empty()) {
        return;
    }
    std::vector<RememberedFormat> formats = RememberedFormats();
    std::erase_if(formats, [&format](const RememberedFormat& former) {
        return former.headings == format.headings;
    });
    formats.insert(formats.begin(), format);
    formats.resize(std::min(formats.size(), kMostRemembered));
    for (std::size_t i = 0; i < formats.size(); ++i) {
        gPlatform.settings->Write(kApplicationName, kSection, std::to_string(i + 1),
                                  TextOfRemembered(formats[i]));
    }
}

} // namespace quandrel
