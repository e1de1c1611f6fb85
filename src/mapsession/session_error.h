// SPDX-License-Identifier: MIT
//
// Errors of the map session: a number that is never 0, and a text.

#pragma once

#include <string>
#include <utility>
#include <variant>

namespace quandrel {

enum SessionErrorCode : int {
    kSessionSyntaxError = 1,   ///< not a statement or expression known here
    kSessionNoSuchTable = 2,   ///< no open table of this name or number
    kSessionNoSuchColumn = 3,  ///< the table has no such column
    kSessionNoSuchRow = 4,     ///< no such row, or none has been fetched
    kSessionNoSuchWindow = 5,  ///< no such window, or one of another kind
    kSessionNoSuchItem = 6,    ///< no such layer, found object, attribute or command
    kSessionWrongArgument = 7, ///< a text where a number is required, or the reverse
    kSessionFileError = 8,     ///< a file that could not be opened as a table
};

struct SessionError {
    int code = kSessionSyntaxError;
    std::string text;
};

/// A value, or the reason for having none.
template <class T>
class [[nodiscard]] SessionResult {
public:
    SessionResult(T value)
        : held_(std::in_place_index<0>, std::move(value)) {}

    SessionResult(SessionError error)
        : held_(std::in_place_index<1>, std::move(error)) {}

    [[nodiscard]] explicit operator bool() const { return held_.index() == 0; }

    [[nodiscard]] T& operator*() { return std::get<0>(held_); }

    [[nodiscard]] const T& operator*() const { return std::get<0>(held_); }

    [[nodiscard]] T* operator->() { return &std::get<0>(held_); }

    [[nodiscard]] const T* operator->() const { return &std::get<0>(held_); }

    [[nodiscard]] const SessionError& Error() const { return std::get<1>(held_); }

private:
    std::variant<T, SessionError> held_;
};

/// The outcome of a step without a value.
using SessionVerdict = SessionResult<std::monostate>;

inline SessionVerdict SessionDone() {
    return std::monostate{};
}

} // namespace quandrel
