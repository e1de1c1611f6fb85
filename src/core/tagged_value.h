// SPDX-License-Identifier: MIT
//
// A value that may be empty, a number, a truth value or a text, for the cells of the record's
// tables.

#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace quandrel {

using TaggedValue =
    std::variant<std::monostate, std::int16_t, std::int32_t, float, double, std::string, bool>;

/// The value as a number: a truth value is -1 or 0; empty values and other texts give 0.
[[nodiscard]] double NumberOf(const TaggedValue& value);

/// The value as a text: empty gives "", a truth value "True" or "False", a number its shortest
/// form.
[[nodiscard]] std::string TextOf(const TaggedValue& value);

[[nodiscard]] inline bool IsEmpty(const TaggedValue& value) {
    return std::holds_alternative<std::monostate>(value);
}

} // namespace quandrel
