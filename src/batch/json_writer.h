// SPDX-License-Identifier: MIT
//
// A JSON writer that never holds a long value as a whole.

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
    Lines,   ///< after each member of an object that is opened here; arrays stay on one line
    OneLine, ///< only at the end
};

/// Writes one JSON value. Calls follow the grammar: a key before each value of an object. The
/// output is UTF-8; invalid bytes in a text become U+FFFD. Numbers read back exactly; a number that
/// is not finite becomes null, because JSON has no notation for it.
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

    /// Finished JSON as the next value.
    void Ready(std::string_view json);

    void Member(std::string_view name, const nlohmann::ordered_json& value) {
        Key(name);
        Value(value);
    }

    /// Ends the last line and flushes the output. Returns false if a write failed.
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

/// Writes an array as a member of an object. `writeOne(i)` writes the value i, from 0 to count - 1.
template <class Count, class WriteOne>
void WriteArray(JsonWriter& writer, const char* name, Count count, const WriteOne& writeOne) {
    writer.Key(name);
    writer.BeginArray();
    for (Count i = 0; i < count; ++i) {
        writeOne(i);
    }
    writer.EndArray();
}

/// A text as JSON, quotes included.
void AppendJsonText(std::string_view text, std::string& json);

/// The shortest number that reads back as the value; null if it is not finite.
void AppendJsonNumber(double value, std::string& json);
void AppendJsonNumber(std::int64_t value, std::string& json);

} // namespace quandrel
