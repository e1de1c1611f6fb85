// SPDX-License-Identifier: MIT
//
// Reference files of tests/golden: compared to what a test has made, or written anew when the
// environment variable QUANDREL_WRITE_GOLDEN is set. Look at the difference before a commit.

#pragma once

#include <filesystem>
#include <string>

namespace quandrel {

/// The folder of the reference files.
[[nodiscard]] std::filesystem::path GoldenFolder();

/// The bytes of a file; empty when there is none.
[[nodiscard]] std::string BytesOf(const std::filesystem::path& path);

/// The first lines that differ, with those before them; empty when there is no difference.
[[nodiscard]] std::string DifferenceOf(const std::string& expected, const std::string& actual);

/// Fails the test when the reference file "<name>.txt" holds anything else than `actual`. The
/// message shows the first difference; both are left in the build folder as texts, and as pictures
/// (SVG) where they hold drawings.
void ExpectGolden(const std::string& name, const std::string& actual);

} // namespace quandrel
