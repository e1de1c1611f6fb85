// SPDX-License-Identifier: MIT

#include "batch/field_access.h"

#include "core/plot_record.h"
#include "orientation/number_text.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>
#include <vector>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

template <class T>
struct IsArray : std::false_type {};

template <class T, std::size_t N>
struct IsArray<std::array<T, N>> : std::true_type {};

Json JsonOf(const TaggedValue& value) {
    return std::visit(
        [](const auto& held) -> Json {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>) {
                return nullptr;
            } else {
                return held;
            }
        },
        value);
}

template <class T>
Json JsonOf(const T& value) {
    if constexpr (IsArray<T>::value) {
        Json array = Json::array();
        for (const auto& element : value) {
            array.push_back(JsonOf(element));
        }
        return array;
    } else {
        return value;
    }
}

/// A field name with the indices that follow it.
struct FieldPath {
    std::string name;
    std::vector<std::size_t> indexes;
};

std::optional<FieldPath> ParsePath(std::string_view text) {
    FieldPath path;
    std::size_t open = text.find('[');
    path.name = std::string(text.substr(0, open));
    while (open != std::string_view::npos) {
        const std::size_t close = text.find(']', open);
        std::size_t index = 0;
        if (close == std::string_view::npos) {
            return std::nullopt;
        }
        const char* end = text.data() + close;
        const auto parsed = std::from_chars(text.data() + open + 1, end, index);
        if (parsed.ec != std::errc() || parsed.ptr != end) {
            return std::nullopt;
        }
        path.indexes.push_back(index);
        open = close + 1 < text.size() ? close + 1 : std::string_view::npos;
        if (open != std::string_view::npos && text[open] != '[') {
            return std::nullopt;
        }
    }
    return path;
}

std::string Assign(std::string& field, std::string_view value) {
    field = std::string(value);
    return {};
}

template <class Number>

requires std::is_arithmetic_v<Number> std::string Assign(Number& field, std::string_view value) {
    const std::optional<double> number = ReadNumber(value);
    if (!number) {
        return "'" + std::string(value) + "' is not a number";
    }
    if constexpr (std::is_same_v<Number, bool>) {
        field = *number != 0;
        return *number == 0 || *number == 1 || *number == kTrue
                   ? ""
                   : "'" + std::string(value) + "' is neither 0 nor -1";
    } else if constexpr (std::is_integral_v<Number>) {
        if (*number != std::floor(*number)
            || *number < static_cast<double>(std::numeric_limits<Number>::min())
            || *number > static_cast<double>(std::numeric_limits<Number>::max())) {
            return "'" + std::string(value) + "' is not a whole number that the field can hold";
        }
    }
    field = static_cast<Number>(*number);
    return {};
}

/// A cell keeps the type of its value. An empty cell takes a number if the text is one.
std::string Assign(TaggedValue& field, std::string_view value) {
    if (std::holds_alternative<std::monostate>(field)) {
        const std::optional<double> number = ReadNumber(value);
        field = number ? TaggedValue(*number) : TaggedValue(std::string(value));
        return {};
    }
    return std::visit(
        [value](auto& held) -> std::string {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>) {
                return {};
            } else {
                return Assign(held, value);
            }
        },
        field);
}

/// Calls `act` on the field or cell that the indices select.
template <class Field, class Act>
std::string AtIndexes(Field& field, std::span<const std::size_t> indexes, const Act& act) {
    using Plain = std::remove_const_t<Field>;
    if (indexes.empty()) {
        return act(field);
    }
    if constexpr (IsArray<Plain>::value) {
        if (indexes.front() >= field.size()) {
            return "the index " + std::to_string(indexes.front()) + " is beyond "
                   + std::to_string(field.size() - 1);
        }
        return AtIndexes(field[indexes.front()], indexes.subspan(1), act);
    } else {
        return "there are more indexes than the field has";
    }
}

/// Calls `act` on the named field or cell. Returns an error, or the result of `act`.
template <class Record, class Act>
std::string AtField(Record& record, std::string_view text, const Act& act) {
    const std::optional<FieldPath> path = ParsePath(text);
    std::string error = "'" + std::string(text) + "' is not a field of a plot";
    if (path) {
        VisitPlotFields(record, [&](const char* name, auto& field) {
            if (path->name == name) {
                error = AtIndexes(field, std::span<const std::size_t>(path->indexes), act);
            }
        });
    }
    return error;
}

} // namespace

Result<std::string> FieldText(const PlotRecord& record, std::string_view field) {
    std::string text;
    const std::string error = AtField(record, field, [&](const auto& cell) {
        const Json json = JsonOf(cell);
        text = json.is_string() ? json.get<std::string>() : json.dump();
        return std::string();
    });
    if (!error.empty()) {
        return Failure{error};
    }
    return text;
}

std::string SetField(PlotRecord& record, std::string_view field, std::string_view value) {
    return AtField(record, field, [&](auto& cell) -> std::string {
        if constexpr (IsArray<std::remove_reference_t<decltype(cell)>>::value) {
            return "the field is a table: name a cell of it";
        } else {
            return Assign(cell, value);
        }
    });
}

Json RecordJson(const PlotRecord& record) {
    Json json = Json::object();
    VisitPlotFields(record,
                    [&](const char* name, const auto& field) { json[name] = JsonOf(field); });
    return json;
}

} // namespace quandrel
