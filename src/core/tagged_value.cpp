// SPDX-License-Identifier: MIT

#include "core/tagged_value.h"

#include "orientation/number_text.h"

#include <charconv>
#include <type_traits>

namespace quandrel {

namespace {

template <class Number>
std::string ShortestText(Number number) {
    char buffer[40];
    const std::to_chars_result end = std::to_chars(buffer, buffer + sizeof buffer, number);
    return std::string(buffer, end.ptr);
}

} // namespace

double NumberOf(const TaggedValue& value) {
    return std::visit(
        [](const auto& held) -> double {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return 0;
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return ParseNumber(held);
            } else if constexpr (std::is_same_v<Held, bool>) {
                return held ? -1 : 0;
            } else {
                return static_cast<double>(held);
            }
        },
        value);
}

std::string TextOf(const TaggedValue& value) {
    return std::visit(
        [](const auto& held) -> std::string {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return {};
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return held;
            } else if constexpr (std::is_same_v<Held, bool>) {
                return held ? "True" : "False";
            } else {
                return ShortestText(held);
            }
        },
        value);
}

} // namespace quandrel
