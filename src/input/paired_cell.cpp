// SPDX-License-Identifier: MIT

#include "input/paired_cell.h"

#include "orientation/notation.h"
#include "orientation/number_text.h"

#include <array>
#include <cstddef>

namespace quandrel {

namespace {

constexpr std::array<std::string_view, 4> kSeparators = {"/", ":", "@", "\u2192"};

/// Where the separator of a pair begins, and its length.
std::pair<std::size_t, std::size_t> SeparatorIn(std::string_view cell) {
    for (const std::string_view separator : kSeparators) {
        if (const std::size_t at = cell.find(separator); at != std::string_view::npos) {
            return {at, separator.size()};
        }
    }
    std::size_t at = cell.find('-', 1);
    at = at == std::string_view::npos ? cell.find(' ') : at;
    return {at, 1};
}

Token TokenOf(std::string_view text) {
    return {text.data(), text.size(), 0, false, false, '\0'};
}

bool IsAzimuthFirst(const LineFormat& format, bool isPlane, std::string_view first) {
    if (format.isQuadrant) {
        return QuadrantDegrees(first).has_value();
    }
    if (!isPlane) {
        return format.lineIsTrendFirst;
    }
    return format.planeConvention == kDipDirectionDip || format.planeConvention == kStrikeDipSense
           || format.planeConvention == kStrikeDipRightHand;
}

} // namespace

std::optional<std::pair<std::string_view, std::string_view>> SplitPair(std::string_view cell) {
    cell = WithoutBlanks(cell);
    const auto [at, length] = SeparatorIn(cell);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view first = WithoutBlanks(cell.substr(0, at));
    const std::string_view second = WithoutBlanks(cell.substr(at + length));
    return first.empty() || second.empty() ? std::nullopt : std::optional(std::pair(first, second));
}

TokenPair TokensOfPair(const Token& cell, const LineFormat& format, bool isPlane) {
    const auto parts = SplitPair(cell.Text());
    if (!parts) {
        return {};
    }
    const Token first = TokenOf(parts->first);
    const Token second = TokenOf(parts->second);
    return IsAzimuthFirst(format, isPlane, parts->first) ? TokenPair{second, first}
                                                         : TokenPair{first, second};
}

} // namespace quandrel
