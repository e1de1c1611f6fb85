// SPDX-License-Identifier: MIT
//
// The values of a map session's expressions.

#pragma once

#include "mapsession/session_error.h"
#include "mapsession/session_state.h"
#include "mapsession/statement.h"

#include <string>

namespace quandrel {

/// The value of an expression as text: numbers in their shortest form with a decimal point and
/// without an exponent, truth values as "T" and "F". platform/map_session.h lists the functions and
/// their attributes; every other name, attribute or number of arguments is an error. SearchPoint
/// and SearchRect store the objects that they find in state.found.
[[nodiscard]] SessionResult<std::string> Evaluate(const SessionExpression& expression,
                                                  SessionState& state);

/// A number as written in replies and messages.
[[nodiscard]] std::string SessionNumberText(double number);

} // namespace quandrel
