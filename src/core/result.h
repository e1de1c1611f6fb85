// SPDX-License-Identifier: MIT
//
// The outcome of a step that can fail: a value, or the reason for the failure as a text for the
// user.

#pragma once

#include <string>
#include <utility>
#include <variant>

namespace quandrel {

/// A failure that converts to any Result.
struct Failure {
    std::string text;
};

template <class T>
class [[nodiscard]] Result {
public:
    Result(T value)
        : held_(std::in_place_index<0>, std::move(value)) {}

    Result(Failure failure)
        : held_(std::in_place_index<1>, std::move(failure)) {}

    [[nodiscard]] explicit operator bool() const { return held_.index() == 0; }

    [[nodiscard]] T& operator*() { return std::get<0>(held_); }

    [[nodiscard]] const T& operator*() const { return std::get<0>(held_); }

    [[nodiscard]] T* operator->() { return &std::get<0>(held_); }

    [[nodiscard]] const T* operator->() const { return &std::get<0>(held_); }

    /// Why there is no value.
    [[nodiscard]] const std::string& Error() const { return std::get<1>(held_).text; }

private:
    std::variant<T, Failure> held_;
};

} // namespace quandrel
