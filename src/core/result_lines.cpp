// SPDX-License-Identifier: MIT

#include "core/result_lines.h"

#include "core/formulas.h"

namespace quandrel {

namespace {

constexpr const char* kEndOfLine = "\r\n";

} // namespace

std::string ResultLine(const std::string& before, const PrintedResult& result,
                       const std::string& after) {
    const std::string line = before + result.value + after + kEndOfLine;
    return result.textbook == result.value ? line
                                           : line + TextbookNote(result.textbook) + kEndOfLine;
}

} // namespace quandrel
