// SPDX-License-Identifier: MIT

#include "persistence/error_row_text.h"

#include "core/data_format.h"
#include "input/text_encoding.h"
#include "persistence/binary_stream.h"

#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr std::size_t kCodeDigits = 6;
constexpr const char* kNoCode = "000000";

/// True for exactly six digits, or with blanks after them.
bool IsCodeAndBlanks(std::string_view text) {
    return SymbolCodeFromText(text.substr(0, kCodeDigits))
           && text.find_first_not_of(' ', kCodeDigits) == std::string_view::npos;
}

/// Such rows are drawn by their secondary orientation, or were drawn before their source changed.
bool MayHaveCodes(const PlotRecord& record) {
    return record.SecondaryFormat != kNoSecondary || !record.AxesTitle.empty();
}

/// The start of a text: complete characters of at most a number of bytes.
std::string_view WholeCharacters(std::string_view text, std::size_t most) {
    const std::string_view start = text.substr(0, most);
    return start.substr(0, LengthOfUtf8(start));
}

/// The start of a text that fits a field.
std::string CutToField(const std::string& text) {
    const std::string bytes = ToFileBytes(text);
    if (bytes.size() <= kLongestFileText) {
        return text;
    }
    if (bytes == text) {
        return std::string(WholeCharacters(text, kLongestFileText));
    }
    // One byte per character; no letter of the start may prevent it from being read as UTF-8.
    std::string start = FromWindows1252(std::string_view(bytes).substr(0, kLongestFileText));
    if (ToFileBytes(start).size() > kLongestFileText) {
        start = WholeCharacters(start, kLongestFileText);
    }
    return start;
}

} // namespace

std::string FieldOfErrorRow(const PlotRecord& record, const ErrorRowText& row) {
    if (row.line.empty()) {
        return MayHaveCodes(record) ? SymbolCodeText(row.code) : std::string();
    }
    return CutToField(IsCodeAndBlanks(row.line) ? row.line + ' ' : row.line);
}

ErrorRowText ErrorRowOfField(const PlotRecord& record, std::string field) {
    if (!IsCodeAndBlanks(field)) {
        return {0, std::move(field)};
    }
    if (field.size() > kCodeDigits) {
        field.pop_back();
        return {0, std::move(field)};
    }
    if (field == kNoCode || MayHaveCodes(record)) {
        return {*SymbolCodeFromText(field), {}};
    }
    return {0, std::move(field)};
}

} // namespace quandrel
