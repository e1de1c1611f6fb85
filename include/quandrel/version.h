// SPDX-License-Identifier: MIT
//
// The version of the interface, which is not that of the program.
//
// Below 1.0 nothing is guaranteed: names, arguments and results may change with each minor version.
//
// Example:
//
//     namespace qd = quandrel::api;
//     static_assert(QUANDREL_API_VERSION >= 4, "needs the interface 0.4 of Quandrel");
//     std::cout << (qd::ApiVersion() == QUANDREL_API_VERSION) << '\n'; // -> 1

#pragma once

#define QUANDREL_API_VERSION_MAJOR 0
#define QUANDREL_API_VERSION_MINOR 4

/// The version as one number: 1000 major + minor.
#define QUANDREL_API_VERSION (1000 * QUANDREL_API_VERSION_MAJOR + QUANDREL_API_VERSION_MINOR)

namespace quandrel::api {

/// QUANDREL_API_VERSION of the headers that the library was built from. If it differs from that of
/// the headers in use, library and headers do not match.
[[nodiscard]] int ApiVersion();

} // namespace quandrel::api
