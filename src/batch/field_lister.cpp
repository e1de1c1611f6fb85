// SPDX-License-Identifier: MIT

#include "batch/field_lister.h"

#include "input/text_encoding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>
#include <variant>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

Json NumberJson(double value) {
    if (std::isnan(value)) {
        return "nan";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-inf" : "inf";
    }
    return value;
}

} // namespace

void FieldLister::Doubles(std::span<double> values) {
    BinaryReader::Doubles(values);
    Json& layers = *std::exchange(next_, nullptr);
    const auto add = [&](const char* layer, std::size_t first) {
        Json& nodes = layers[layer].emplace_back(Json::array());
        for (std::size_t i = first; i < values.size(); i += 2) {
            nodes.push_back(NumberJson(values[i]));
        }
    };
    add("mean", 0);
    add("cumulative", 1);
}

void FieldLister::Fixed(std::string& text, std::size_t length) {
    BinaryReader::Fixed(text, length);
    ListRead(text);
}

std::string_view FieldLister::TextBytes() {
    const std::string_view bytes = BinaryReader::TextBytes();
    writer_.Text(FromFileBytes(bytes));
    return bytes;
}

void FieldLister::Code(SymbolCode&) {
    std::string text;
    Text(text);
}

void FieldLister::Value(TaggedValue& value) {
    BinaryReader::Value(value);
    List(std::visit(
        [](const auto& held) -> Json {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return nullptr;
            } else if constexpr (std::is_floating_point_v<Held>) {
                return NumberJson(static_cast<double>(held));
            } else {
                return held;
            }
        },
        value));
}

void FieldLister::Name(const char* name) {
    if (isInRows_) {
        columnName_ = name;
    } else {
        next_ = &(*levels_.back())[name];
    }
}

void FieldLister::Element(const char* name, std::size_t place, std::size_t size) {
    Json& array = (*levels_.back())[name];
    if (array.is_null()) {
        array = Json::array();
    }
    auto& cells = array.get_ref<Json::array_t&>();
    cells.resize(std::max(size, cells.size())); // null until the file contains the cell
    next_ = &cells[place];
}

void FieldLister::Transpose() {
    Json& table = *levels_.back();
    Json rows = Json::array();
    for (std::size_t row = 0; row < table[0].size(); ++row) {
        Json& cells = rows.emplace_back(Json::array());
        for (const Json& column : table) {
            cells.push_back(column[row]);
        }
    }
    table = std::move(rows);
}

void FieldLister::BeginList(const char* name) {
    if (name != nullptr) {
        writer_.Key(name);
    }
    writer_.BeginArray();
}

void FieldLister::BeginRows(const char* name) {
    if (name != nullptr) {
        PutMembers();
        writer_.Key(name);
    }
    isInRows_ = true;
}

void FieldLister::EndRows() {
    isInRows_ = false;
    writer_.BeginObject();
    for (auto& [name, elements] : columns_) {
        writer_.Key(name);
        writer_.BeginArray();
        writer_.Ready(elements);
        writer_.EndArray();
        elements = {};
    }
    writer_.EndObject();
    columns_.clear();
}

void FieldLister::PutMembers() {
    for (const auto& [name, value] : file_.items()) {
        writer_.Member(name, value);
    }
    file_ = Json::object();
}

void FieldLister::ListRead(std::int32_t value) {
    if (isInRows_) {
        AppendJsonNumber(std::int64_t{value}, NextOfColumn());
    } else {
        List(value);
    }
}

void FieldLister::ListRead(double value) {
    if (!isInRows_) {
        List(NumberJson(value));
    } else if (std::isfinite(value)) {
        AppendJsonNumber(value, NextOfColumn());
    } else {
        NextOfColumn() += NumberJson(value).dump();
    }
}

void FieldLister::ListRead(const std::string& text) {
    if (isInRows_) {
        AppendJsonText(text, NextOfColumn());
    } else {
        List(text);
    }
}

void FieldLister::List(Json value) {
    if (next_ != nullptr) {
        *std::exchange(next_, nullptr) = std::move(value);
    } else if (levels_.back()->is_array()) {
        levels_.back()->push_back(std::move(value));
    }
}

void FieldLister::Begin(Json value) {
    Json* const begun =
        next_ != nullptr ? std::exchange(next_, nullptr) : &levels_.back()->emplace_back(nullptr);
    *begun = std::move(value);
    levels_.push_back(begun);
}

std::string& FieldLister::NextOfColumn() {
    if (column_ == columns_.size()) {
        columns_.emplace_back(columnName_, std::string());
    }
    std::string& elements = columns_[column_++].second;
    elements += elements.empty() ? "" : ",";
    return elements;
}

} // namespace quandrel
