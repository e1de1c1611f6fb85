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
/// never an exponent, truths as "T" and "F". The functions and their attributes are those that the
/// port, platform/map_session.h, lists; every other name, attribute or number of arguments is an
/// error. SearchPoint and SearchRect put what they find into state.found.
[[nodiscard]] SessionResult<std::string> Evaluate(const SessionExpression& expression,
                                                  SessionState& state);

/// A number as it stands in replies and messages.
[[nodiscard]] std::string SessionNumberText(double number);

} // namespace quandrel
