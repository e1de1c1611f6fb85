// SPDX-License-Identifier: MIT
//
// JSON written as it is made, so that a long one is never held whole.

#pragma once

#include "core/atomic_file.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// Where lines end.
enum class JsonLayout {
    Lines,   ///< behind each member of an object that is opened here; arrays stay on their line
    OneLine, ///< at the end alone
};

/// Puts out one JSON value. Calls follow the grammar: a key before each value of an object. The
/// bytes are UTF-8; what is not in a text becomes U+FFFD. Numbers read back exactly; one that is
/// not finite is null, for JSON has none.
class JsonWriter {
public:
    JsonWriter(PutBytes put, JsonLayout layout)
        : put_(std::move(put))
        , layout_(layout) {}

    void BeginObject() { Begin('{'); }

    void EndObject() { End('}'); }

    void BeginArray() { Begin('['); }

    void EndArray() { End(']'); }

    void Key(std::string_view name);

    void Number(std::int64_t value);
    void Number(double value);
    void Text(std::string_view text);
    void Value(const nlohmann::ordered_json& value);

    /// JSON that is ready made, as the next value.
    void Ready(std::string_view json);

    /// A member of an object.
    void Member(std::string_view name, const nlohmann::ordered_json& value) {
        Key(name);
        Value(value);
    }

    /// Ends the last line and puts out what is left. False when a write failed.
    [[nodiscard]] bool Finish();

private:
    struct Level {
        char bracket;
        bool isEmpty;
    };

    void Begin(char bracket);
    void End(char bracket);
    void BeginValue();
    void NewLine();
    void Flush();
    void FlushIfFull();

    PutBytes put_;
    JsonLayout layout_;
    std::string bytes_;
    std::vector<Level> levels_;
    bool isAfterKey_ = false;
    bool hasFailed_ = false;
};

/// A text as JSON, quotes included.
void AppendJsonText(std::string_view text, std::string& json);

/// The shortest number that reads back as the value; null for one that is not finite.
void AppendJsonNumber(double value, std::string& json);
void AppendJsonNumber(std::int64_t value, std::string& json);

} // namespace quandrel
