// SPDX-License-Identifier: MIT
//
// Reference files of tests/golden: compared with the results of a test, or rewritten if the
// environment variable QUANDREL_WRITE_GOLDEN is set. Look at the difference before a commit.

#pragma once

#include <filesystem>
#include <string>

namespace quandrel {

/// The folder of the reference files.
[[nodiscard]] std::filesystem::path GoldenFolder();

/// The bytes of a file; empty when there is none.
[[nodiscard]] std::string BytesOf(const std::filesystem::path& path);

/// The first lines that differ, with those before them; empty if there is no difference.
[[nodiscard]] std::string DifferenceOf(const std::string& expected, const std::string& actual);

/// Fails the test if the reference file "<name>.txt" differs from `actual`. The message shows the
/// first difference; both are written to the build folder as texts, and as pictures (SVG) if they
/// hold drawings.
void ExpectGolden(const std::string& name, const std::string& actual);

} // namespace quandrel
