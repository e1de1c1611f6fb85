// SPDX-License-Identifier: MIT
//
// The outcome of a step that can fail through no fault of the caller: a value, or a text for the
// user that says why there is none.
//
// Example:
//
//     namespace qd = quandrel::api;
//     const auto half = [](int number) -> qd::Result<int> {
//         return number % 2 == 0 ? qd::Result<int>(number / 2) : qd::Failure{"It is odd."};
//     };
//     std::cout << *half(6) << ' ' << half(7).Error() << '\n'; // -> 3 It is odd.

#pragma once

#include <string>
#include <utility>
#include <variant>

namespace quandrel::api {

/// A failure, to be turned into any Result.
struct Failure {
    std::string text;
};

/// A value of type T, or a Failure. To ask for the one that is not there throws
/// std::bad_variant_access.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value)
        : held_(std::in_place_index<0>, std::move(value)) {}

    Result(Failure failure)
        : held_(std::in_place_index<1>, std::move(failure)) {}

    /// True for a value.
    [[nodiscard]] explicit operator bool() const { return held_.index() == 0; }

    [[nodiscard]] T& operator*() { return std::get<0>(held_); }

    [[nodiscard]] const T& operator*() const { return std::get<0>(held_); }

    [[nodiscard]] T* operator->() { return &std::get<0>(held_); }

    [[nodiscard]] const T* operator->() const { return &std::get<0>(held_); }

    /// Why there is no value: a sentence, UTF-8.
    [[nodiscard]] const std::string& Error() const { return std::get<1>(held_).text; }

private:
    std::variant<T, Failure> held_;
};

} // namespace quandrel::api
