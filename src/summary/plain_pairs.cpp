// SPDX-License-Identifier: MIT

#include "summary/plain_pairs.h"

#include "core/format_settings.h"
#include "stereo/distinct_lines.h"

namespace quandrel {

namespace {

constexpr int kMostDecimals = 6;

struct PlainNumber {
    std::int64_t digits = 0; ///< without the point
    int decimals = 0;

    [[nodiscard]] double Value() const {
        constexpr double kPowers[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
        return static_cast<double>(digits) / kPowers[decimals];
    }
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Reads one to three digits, and a point with one to six more.
bool ReadNumber(const char*& at, const char* end, PlainNumber& number) {
    const char* const begin = at;
    while (at != end && IsDigit(*at) && at - begin < 4) {
        number.digits = number.digits * 10 + (*at++ - '0');
    }
    if (at == begin || at - begin > 3) {
        return false;
    }
    if (at == end || *at != '.') {
        return true;
    }
    ++at;
    while (at != end && IsDigit(*at)) {
        if (++number.decimals > kMostDecimals) {
            return false;
        }
        number.digits = number.digits * 10 + (*at++ - '0');
    }
    return number.decimals > 0;
}

/// Moves behind the end of the line.
void SkipLine(const char*& at, const char* end) {
    while (at != end && *at != '\n' && *at != '\r') {
        ++at;
    }
    if (at != end && *at++ == '\r' && at != end && *at == '\n') {
        ++at;
    }
}

} // namespace

PlainPairs::PlainPairs(const LineFormat& format)
    : delimiter_(format.delimiter)
    , isAnyDelimiter_(format.delimiter == kAnyDelimiter) {
    const int dip = format.slots[kSlotDip];
    const int azimuth = format.slots[kSlotDirection];
    const bool isPlane = format.primary == kPrimaryPlane;
    const bool isPair = (dip == 0 && azimuth == 1) || (dip == 1 && azimuth == 0);
    isStrike_ = isPlane
                && (format.planeConvention == kDipStrikeRightHand
                    || format.planeConvention == kStrikeDipRightHand);
    const bool isKnown = isPlane ? isStrike_ || format.planeConvention == kDipDipDirection
                                       || format.planeConvention == kDipDirectionDip
                                 : format.primary == kPrimaryLine;
    azimuthIsFirst_ = azimuth == 0;
    canRead_ = isPair && isKnown && !format.isQuadrant && format.secondary == kNoSecondary
               && !format.wantLine && !format.wantNumber && !format.wantText && !format.pairsInCells
               && !format.placeColumns.AreUsed();
}

bool PlainPairs::Read(const char*& at, const char* end, Attitude& attitude, int& wholeKey) const {
    const char* here = at;
    PlainNumber first;
    PlainNumber second;
    const auto isDelimiter = [this](char c) {
        return c == delimiter_
               || (isAnyDelimiter_ && (c == '\t' || c == ' ' || c == ',' || c == ';'));
    };
    if (!ReadNumber(here, end, first) || here == end || !isDelimiter(*here)
        || !ReadNumber(++here, end, second)) {
        return false;
    }
    if (here != end && *here != '\n' && *here != '\r' && !isDelimiter(*here)) {
        return false;
    }
    const PlainNumber& dip = azimuthIsFirst_ ? second : first;
    const PlainNumber& azimuth = azimuthIsFirst_ ? first : second;
    const bool isWhole = dip.decimals == 0 && azimuth.decimals == 0;
    if (isWhole) {
        const auto direction = static_cast<int>(azimuth.digits);
        if (dip.digits > 90 || direction > 360) {
            return false;
        }
        const int turned = direction + 90;
        const int ofPlane = turned > 360 ? turned - 360 : turned;
        wholeKey = LineKeyOfDegrees(static_cast<int>(dip.digits), isStrike_ ? ofPlane : direction);
    } else {
        attitude = {dip.Value(), azimuth.Value()};
        if (isStrike_ || attitude.dip > 90 || attitude.azimuth > 360) {
            return false; // the parser has rules of its own for these
        }
        wholeKey = -1;
    }
    SkipLine(here, end);
    at = here;
    return true;
}

} // namespace quandrel
