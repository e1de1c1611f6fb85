// SPDX-License-Identifier: MIT

#include "batch/json_writer.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quandrel {

namespace {

constexpr std::size_t kFullBuffer = 1 << 16;

/// Enough characters for any number.
using Digits = std::array<char, 40>;

bool NeedsNoEscape(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x7f && c != '"' && c != '\\';
}

} // namespace

void AppendJsonText(std::string_view text, std::string& json) {
    if (std::all_of(text.begin(), text.end(), NeedsNoEscape)) {
        json += '"';
        json += text;
        json += '"';
        return;
    }
    json += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void AppendJsonNumber(double value, std::string& json) {
    if (!std::isfinite(value)) {
        json += "null";
        return;
    }
    Digits digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const std::string_view text(digits.data(), static_cast<std::size_t>(end - digits.data()));
    json += text;
    if (text.find_first_of(".e") == std::string_view::npos) {
        json += ".0"; // a reader must recognise it as a floating-point number
    }
}

void AppendJsonNumber(std::int64_t value, std::string& json) {
    Digits digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    json.append(digits.data(), end);
}

void JsonWriter::Key(std::string_view name) {
    BeginValue();
    AppendJsonText(name, bytes_);
    bytes_ += layout_ == JsonLayout::Lines ? ": " : ":";
    isAfterKey_ = true;
}

void JsonWriter::Number(std::int64_t value) {
    BeginValue();
    AppendJsonNumber(value, bytes_);
    FlushIfFull();
}

void JsonWriter::Number(double value) {
    BeginValue();
    AppendJsonNumber(value, bytes_);
    FlushIfFull();
}

void JsonWriter::Text(std::string_view text) {
    BeginValue();
    AppendJsonText(text, bytes_);
    FlushIfFull();
}

void JsonWriter::Value(const nlohmann::ordered_json& value) {
    Ready(value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
}

void JsonWriter::Ready(std::string_view json) {
    BeginValue();
    bytes_ += json;
    FlushIfFull();
}

bool JsonWriter::Finish() {
    bytes_ += '\n';
    Flush();
    return !hasFailed_;
}

void JsonWriter::Begin(char bracket) {
    BeginValue();
    bytes_ += bracket;
    levels_.push_back({bracket, true});
}

void JsonWriter::End(char bracket) {
    const Level level = levels_.back();
    levels_.pop_back();
    if (level.bracket == '{' && !level.isEmpty) {
        NewLine();
    }
    bytes_ += bracket;
    FlushIfFull();
}

/// A value after a key is on the key's line; any other value is an element, or a member's key.
void JsonWriter::BeginValue() {
    if (isAfterKey_ || levels_.empty()) {
        isAfterKey_ = false;
        return;
    }
    Level& level = levels_.back();
    if (!level.isEmpty) {
        bytes_ += ',';
    }
    level.isEmpty = false;
    if (level.bracket == '{') {
        NewLine();
    }
}

void JsonWriter::NewLine() {
    if (layout_ == JsonLayout::Lines) {
        bytes_ += '\n';
        bytes_.append(levels_.size(), ' ');
    }
}

void JsonWriter::FlushIfFull() {
    if (bytes_.size() >= kFullBuffer) {
        Flush();
    }
}

void JsonWriter::Flush() {
    hasFailed_ = hasFailed_ || !put_(bytes_);
    bytes_.clear();
}

} // namespace quandrel
