// SPDX-License-Identifier: MIT

#include "batch/format_command.h"

#include "batch/key_values.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "platform/platform.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

namespace quandrel {

namespace {

const Names kPrimaryNames = {
    {"directions", kDirections}, {"plane", kPrimaryPlane}, {"line", kPrimaryLine}};
const Names kSecondaryNames = {{"none", kNoSecondary},     {"pitch", kPitchInPlane},
                               {"trend", kTrendInPlane},   {"line", kSecondaryLine},
                               {"plane", kSecondaryPlane}, {"hade", kHadeInPlane}};
const Names kDataNames = {{"planes", kPlanes}, {"lines", kLines}, {"polar", kPolarLines}};
const std::map<std::string, std::string> kDelimiterWords = {
    {"tab", "\t"}, {"space", " "}, {"comma", ","}, {"semicolon", ";"}, {"any", ""}};

constexpr int kTrendFirst = 10; ///< added to the code of conventions
constexpr const char* kDirectionsAsPlanes = "directions have no dip and cannot be planes: state "
                                            "data=lines or data=polar, or neither";

/// A draft of a format. It is applied if all arguments are valid.
struct Draft {
    FormatSettings format;
    StatedFormat stated;
    bool decimalIsComma = false;
    int plane = 1;
    bool trendFirst = false;
    bool quadrant = false;
};

void TakeConventionCode(int code, Draft& draft) {
    draft.plane = std::abs(code) % kTrendFirst;
    draft.trendFirst = std::abs(code) > kTrendFirst;
    draft.quadrant = code < 0;
}

std::int16_t ConventionCode(const Draft& draft) {
    const int code = draft.plane + (draft.trendFirst ? kTrendFirst : 0);
    return static_cast<std::int16_t>(draft.quadrant ? -code : code);
}

/// The defaults of everything that the keys can set; the rest is that of the current format.
Draft FreshDraft(const FormatSettings& defaults) {
    const FormatSettings current = gSettings.format;
    Draft draft;
    draft.format = defaults;
    draft.format.planeSeparator = current.planeSeparator;
    draft.format.lineSeparator = current.lineSeparator;
    draft.format.plotKind = current.plotKind;
    draft.decimalIsComma = gPlatform.decimalIsComma;
    return draft;
}

Draft DraftInForce(const StatedFormat& stated) {
    Draft draft;
    draft.format = gSettings.format;
    draft.stated = stated;
    draft.decimalIsComma = gDecimalIsComma;
    return draft;
}

std::string TakeConventions(const std::string& value, Draft& draft) {
    const std::optional<int> code = WholeNumber(value, -16, 16);
    const int plane = code ? std::abs(*code) % 10 : 0;
    if (plane < 1 || plane > 6) {
        return "'" + value
               + "' is not a convention code: 1 to 6, 11 to 16, or one of these with a minus sign";
    }
    TakeConventionCode(*code, draft);
    return {};
}

std::string TakePlane(const std::string& value, Draft& draft) {
    const std::optional<int> plane = WholeNumber(value, 1, 6);
    if (!plane) {
        return "'" + value + "' is not a plane convention: 1 to 6";
    }
    draft.plane = *plane;
    return {};
}

std::string TakeLineOrder(const std::string& value, Draft& draft) {
    return TakeName({{"pt", 0}, {"tp", 1}}, value, draft.trendFirst);
}

std::string TakeNotation(const std::string& value, Draft& draft) {
    return TakeName({{"azimuth", 0}, {"quadrant", 1}}, value, draft.quadrant);
}

std::string TakeDelimiter(const std::string& value, Draft& draft) {
    const auto found = kDelimiterWords.find(value);
    if (found == kDelimiterWords.end()) {
        return "'" + value + "' is not one of " + ListOf(kDelimiterWords);
    }
    draft.format.delimiter = found->second;
    return {};
}

std::string TakeColumns(const std::string& value, Draft& draft) {
    const std::vector<std::string> parts = SplitAtCommas(value);
    if (parts.size() > draft.format.columns.size()) {
        return "there are at most ten column slots";
    }
    for (std::size_t slot = 0; slot < parts.size(); ++slot) {
        const std::optional<int> column = WholeNumber(parts[slot], 0, 254);
        if (!column) {
            return "'" + parts[slot] + "' is not a column: 0 to 254";
        }
        draft.format.columns[slot] = *column;
    }
    return {};
}

std::string TakePlaces(const std::string& value, Draft& draft) {
    const std::vector<std::string> parts = SplitAtCommas(value);
    const auto column = [&parts](std::size_t i) { return WholeNumber(parts[i], 0, 254); };
    if (value == "none") {
        draft.format.placeColumns = {};
    } else if (parts.size() == 2 && column(0) && column(1)) {
        draft.format.placeColumns = {*column(0), *column(1)};
    } else {
        return "'" + value + "' is not none, or two columns: 0 to 254";
    }
    return {};
}

std::string TakeAppended(const std::string& value, Draft& draft) {
    FormatSettings& format = draft.format;
    format.lineAppended = format.numericAppended = format.nonNumericAppended = false;
    if (value == "none" || value.empty()) {
        return {};
    }
    for (const std::string& part : SplitAtCommas(value)) {
        if (part == "line") {
            format.lineAppended = true;
        } else if (part == "numeric") {
            format.numericAppended = true;
        } else if (part == "text") {
            format.nonNumericAppended = true;
        } else {
            return "'" + part + "' is not one of line, numeric, text, none";
        }
    }
    return {};
}

std::string TakeDataKindName(const std::string& value, Draft& draft) {
    std::int16_t kind = kPlanes;
    const std::string error = TakeName(kDataNames, value, kind);
    if (error.empty()) {
        draft.stated.dataKind = kind;
    }
    return error;
}

std::string TakeUpward(const std::string& value, Draft& draft) {
    return TakeName({{"lowerend", static_cast<int>(NegativePlunge::LowerEnd)},
                     {"vector", static_cast<int>(NegativePlunge::Vector)}},
                    value, draft.format.negativePlunge);
}

std::string TakeComments(const std::string& value, Draft& draft) {
    const std::optional<CommentMarks> marks = CommentMarksIn(value == "none" ? "" : value);
    if (!marks) {
        return "'" + value + "' is not none, or some of # % //";
    }
    draft.format.comments = *marks;
    return {};
}

const Takers<Draft>& FormatTakers() {
    static const Takers<Draft> takers = {
        {"primary", [](auto& v, Draft& d) { return TakeName(kPrimaryNames, v, d.format.primary); }},
        {"secondary",
         [](auto& v, Draft& d) { return TakeName(kSecondaryNames, v, d.format.secondary); }},
        {"conventions", TakeConventions},
        {"plane", TakePlane},
        {"line", TakeLineOrder},
        {"notation", TakeNotation},
        {"delimiter", TakeDelimiter},
        {"columns", TakeColumns},
        {"places", TakePlaces},
        {"appended", TakeAppended},
        {"numericname",
         [](auto& v, Draft& d) {
             d.format.numericName = v;
             return std::string();
         }},
        {"textname",
         [](auto& v, Draft& d) {
             d.format.nonNumericName = v;
             return std::string();
         }},
        {"header", [](auto& v, Draft& d) { return TakeTruth(v, d.format.hasHeadings); }},
        {"data", TakeDataKindName},
        {"upward", TakeUpward},
        {"comments", TakeComments},
        {"pairs", [](auto& v, Draft& d) { return TakeTruth(v, d.format.pairsInCells); }},
        {"table",
         [](auto& v, Draft& d) {
             d.stated.table = v;
             return std::string();
         }},
        {"frequency", [](auto& v, Draft& d) { return TakeTruth(v, d.stated.frequencyColumn); }},
        {"showsecondary", [](auto& v, Draft& d) { return TakeTruth(v, d.stated.showSecondary); }},
        {"decimalcomma", [](auto& v, Draft& d) { return TakeTruth(v, d.decimalIsComma); }},
    };
    return takers;
}

/// The stated kind, or the kind that follows from the current format.
std::int16_t KindFollowing(const StatedFormat& stated) {
    return stated.dataKind.value_or(DataKindOfSet(gPrimaryDataType == kPrimaryPlane, kLines));
}

void Apply(const Draft& draft, StatedFormat& stated) {
    gSettings.format = draft.format;
    gConventions = ConventionCode(draft);
    gDecimalIsComma = draft.decimalIsComma;
    stated = draft.stated;
    gPlotDataKind = KindFollowing(stated);
}

/// The name of a value in a table that has it.
template <class Value>
std::string NameIn(const std::map<std::string, Value>& names, const Value& value) {
    const auto found =
        std::ranges::find(names, value, [](const auto& entry) { return entry.second; });
    return found != names.end() ? found->first : std::string();
}

/// A word of a script, in quotes.
std::string Quoted(std::string text) {
    for (std::size_t at = 0; (at = text.find('"', at)) != std::string::npos; at += 2) {
        text.insert(at, 1, '\\');
    }
    return '"' + text + '"';
}

std::string ColumnsText(const ColumnSettings& columns) {
    std::string text;
    for (const std::int32_t column : columns) {
        text += (text.empty() ? "" : ",") + std::to_string(column);
    }
    return text;
}

std::string PlacesText(const PlaceColumns& columns) {
    return columns.AreUsed()
               ? " places=" + std::to_string(columns.x) + "," + std::to_string(columns.y)
               : "";
}

std::string CommentsText(const CommentMarks& marks) {
    return marks == CommentMarks() ? "" : " comments=" + Quoted(TextOfCommentMarks(marks));
}

std::string AppendedText(const FormatChoice& choice) {
    std::string kinds = choice.lineAppended ? "line" : "";
    std::string names;
    if (choice.numericAppended) {
        kinds += kinds.empty() ? "numeric" : ",numeric";
        names += " numericname=" + Quoted(choice.numericName);
    }
    if (choice.nonNumericAppended) {
        kinds += kinds.empty() ? "text" : ",text";
        names += " textname=" + Quoted(choice.nonNumericName);
    }
    return kinds.empty() ? "" : " appended=" + kinds + names;
}

} // namespace

std::string ApplyFormatArguments(const std::vector<Argument>& arguments,
                                 const FormatSettings& defaults, StatedFormat& stated) {
    const auto isAdd = [](const Argument& argument) {
        return argument.name.empty() && argument.value == kAddToFormat;
    };
    const bool isAuto = arguments.size() == 1 && arguments.front().name.empty()
                        && arguments.front().value == kSuggestedFormat;
    if (isAuto) {
        Draft draft = FreshDraft(defaults);
        TakeConventionCode(draft.format.conventions, draft);
        draft.stated.isSuggested = true;
        Apply(draft, stated);
        return {};
    }
    const bool adds = !arguments.empty() && isAdd(arguments.front());
    if (std::count_if(arguments.begin(), arguments.end(), isAdd) > (adds ? 1 : 0)) {
        return "'add' comes before the keys: format add KEY=VALUE...";
    }
    Draft draft = adds ? DraftInForce(stated) : FreshDraft(defaults);
    TakeConventionCode(draft.format.conventions, draft);
    const std::vector<Argument> items(arguments.begin() + (adds ? 1 : 0), arguments.end());
    const std::string error = TakeArguments(items, FormatTakers(), "a format", draft);
    if (!error.empty()) {
        return error;
    }
    if (draft.stated.dataKind == kPlanes && draft.format.primary <= kDirections) {
        return kDirectionsAsPlanes;
    }
    Apply(draft, stated);
    return {};
}

std::string FormatArgumentsOf(const FormatChoice& choice) {
    return "primary=" + NameIn(kPrimaryNames, int{choice.primary})
           + " secondary=" + NameIn(kSecondaryNames, int{choice.secondary})
           + " conventions=" + std::to_string(ConventionCode(choice)) + " delimiter="
           + NameIn(kDelimiterWords, choice.delimiter) + " columns=" + ColumnsText(choice.columns)
           + (choice.columnHeadings ? " header=yes" : " header=no") + AppendedText(choice)
           + (choice.kindIsStated ? " data=" + NameIn(kDataNames, int{choice.plotDataKind}) : "")
           + (choice.negativePlunge == NegativePlunge::Vector ? " upward=vector" : "")
           + (choice.numericAppended && choice.numberIsFrequency ? " frequency=yes" : "")
           + (choice.plotSecondary ? " showsecondary=yes" : "") + CommentsText(choice.comments)
           + (choice.pairsInCells ? " pairs=yes" : "") + PlacesText(choice.placeColumns);
}

std::string TakeDataKind(const StatedFormat& stated, int kindFromFile) {
    const bool isDirections = gPrimaryDataType <= kDirections;
    if (kindFromFile >= kPlanes && !(isDirections && kindFromFile == kPlanes)) {
        gPlotDataKind = static_cast<std::int16_t>(kindFromFile);
        return {};
    }
    if (stated.dataKind == kPlanes && isDirections) {
        return kDirectionsAsPlanes;
    }
    gPlotDataKind = KindFollowing(stated);
    return {};
}

} // namespace quandrel
