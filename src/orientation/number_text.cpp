// SPDX-License-Identifier: MIT

#include "orientation/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quandrel {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsDecimalDelimiter(char c) {
    return c == '.' || c == ',';
}

// Where the parts of a number are in its text.
struct NumberShape {
    bool isNumber = false;
    bool isNegative = false;
    std::size_t mantissaBegin = 0;             // after the sign
    std::size_t delimiter = std::string::npos; // of the decimals
    std::size_t exponent = std::string::npos;  // of the letter
};

// A whole number of up to this many digits is exact in a double, and so is every power of ten that
// can divide it. Their quotient is rounded once and is therefore the nearest double (W. D. Clinger,
// How to read floating point numbers accurately, PLDI 1990).
constexpr std::size_t kExactDigits = 15;

constexpr double kPowersOfTen[kExactDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Adds the run of digits at position to the mantissa; returns the end of the run.
const char* TakeDigits(const char* position, const char* end, std::uint64_t& mantissa) {
    for (; position != end; ++position) {
        const unsigned digit = static_cast<unsigned char>(*position) - unsigned{'0'};
        if (digit > 9) {
            break;
        }
        mantissa = mantissa * 10 + digit;
    }
    return position;
}

// Whether text from position on is an exponent: optional sign and digits up to the end.
bool IsExponent(std::string_view text, std::size_t position) {
    if (position < text.size() && (text[position] == '+' || text[position] == '-')) {
        ++position;
    }
    return position < text.size()
           && std::all_of(text.begin() + static_cast<std::ptrdiff_t>(position), text.end(),
                          IsDigit);
}

NumberShape ShapeOf(std::string_view text) {
    NumberShape shape;
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        shape.isNegative = text[i] == '-';
        ++i;
    }
    shape.mantissaBegin = i;
    bool hasDigits = false;
    for (; i < text.size(); ++i) {
        if (IsDigit(text[i])) {
            hasDigits = true;
        } else if (IsDecimalDelimiter(text[i]) && shape.delimiter == std::string::npos) {
            shape.delimiter = i;
        } else {
            break;
        }
    }
    if (!hasDigits) {
        return shape;
    }
    if (i < text.size()) {
        if ((text[i] != 'e' && text[i] != 'E') || !IsExponent(text, i + 1)) {
            return shape;
        }
        shape.exponent = i;
    }
    shape.isNumber = true;
    return shape;
}

// Whether a number out of the range of doubles is too small rather than too large, by the power of
// ten of its first significant digit.
bool IsTooSmall(std::string_view text, const NumberShape& shape) {
    const std::size_t mantissaEnd = std::min(shape.exponent, text.size());
    const auto point = static_cast<std::int64_t>(std::min(shape.delimiter, mantissaEnd));
    const auto first = static_cast<std::int64_t>(text.find_first_of("123456789"));
    std::int64_t exponent = 0;
    if (shape.exponent != std::string::npos) {
        const bool isNegative = text[shape.exponent + 1] == '-';
        const std::size_t digits = text.find_first_of("0123456789", shape.exponent);
        const std::from_chars_result end =
            std::from_chars(text.data() + digits, text.data() + text.size(), exponent);
        if (end.ec != std::errc{}) {
            return isNegative; // no mantissa is long enough to compensate
        }
        exponent = isNegative ? -exponent : exponent;
    }
    return exponent < first - point;
}

// The general case; the library needs a decimal point.
std::optional<double> ReadByLibrary(std::string_view text, const NumberShape& shape) {
    const std::string_view number = text.substr(shape.mantissaBegin);
    double value = 0;
    const std::from_chars_result end =
        std::from_chars(number.data(), number.data() + number.size(), value);
    if (end.ec == std::errc::result_out_of_range) {
        if (!IsTooSmall(text, shape)) {
            return std::nullopt;
        }
        value = 0;
    } else if (end.ec != std::errc{} || end.ptr != number.data() + number.size()) {
        return std::nullopt;
    }
    return shape.isNegative ? 0.0 - value : value; // never -0
}

std::optional<double> ReadWithComma(std::string_view text, const NumberShape& shape) {
    constexpr std::size_t kUsualLength = 128;
    if (text.size() <= kUsualLength) {
        char buffer[kUsualLength];
        std::copy(text.begin(), text.end(), buffer);
        buffer[shape.delimiter] = '.';
        return ReadByLibrary({buffer, text.size()}, shape);
    }
    std::string copy(text);
    copy[shape.delimiter] = '.';
    return ReadByLibrary(copy, shape);
}

// Not inlined, so that the fast path does not pay for its stack.
[[gnu::noinline]] std::optional<double> ReadInFull(std::string_view text) {
    text = WithoutBlanks(text);
    const NumberShape shape = ShapeOf(text);
    if (!shape.isNumber) {
        return std::nullopt;
    }
    if (shape.delimiter != std::string::npos && text[shape.delimiter] == ',') {
        return ReadWithComma(text, shape);
    }
    return ReadByLibrary(text, shape);
}

// The text without the delimiters that separate its whole digits into groups of three; empty when
// the groups are not such.
std::string WithoutGroups(std::string_view text, char decimalDelimiter, char groupDelimiter) {
    const std::size_t wholeEnd = std::min(text.find(decimalDelimiter), text.size());
    std::string plain;
    std::size_t groupDigits = 0;
    bool isFirstGroup = true;
    for (std::size_t i = 0; i < wholeEnd; ++i) {
        if (text[i] != groupDelimiter) {
            groupDigits += IsDigit(text[i]) ? 1 : 0;
            plain += text[i];
            continue;
        }
        if (groupDigits > 3 || groupDigits == 0 || (!isFirstGroup && groupDigits != 3)) {
            return {};
        }
        isFirstGroup = false;
        groupDigits = 0;
    }
    if (!isFirstGroup && groupDigits != 3) {
        return {};
    }
    return plain.append(text.substr(wholeEnd));
}

// The decimal digits of a number: 0.d1d2d3... times ten to the power of point.
struct DecimalDigits {
    std::string digits; // no leading zero; empty for 0
    int point = 0;
};

// The digits of |value|: the shortest form that reads back, or the given number of digits.
DecimalDigits DigitsOf(double value, int significant = 0) {
    char buffer[40];
    const double magnitude = std::abs(value);
    const std::to_chars_result end =
        significant == 0 ? std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                         std::chars_format::scientific)
                         : std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                         std::chars_format::scientific, significant - 1);
    const std::string_view text(buffer, static_cast<std::size_t>(end.ptr - buffer));
    const std::size_t letter = text.find('e');
    DecimalDigits result;
    for (const char c : text.substr(0, letter)) {
        if (IsDigit(c)) {
            result.digits += c;
        }
    }
    const char* exponent = text.data() + letter + (text[letter + 1] == '+' ? 2 : 1);
    std::from_chars(exponent, end.ptr, result.point);
    ++result.point;
    const std::size_t last = result.digits.find_last_not_of('0');
    result.digits.resize(last == std::string::npos ? 0 : last + 1);
    return result;
}

// Rounds to the given number of decimals. A half is rounded up, away from zero, as the sign is
// separate.
void RoundDecimals(DecimalDigits& number, int decimals) {
    const int kept = number.point + decimals;
    if (kept >= static_cast<int>(number.digits.size())) {
        return;
    }
    const bool roundsUp = kept >= 0 && number.digits[static_cast<std::size_t>(kept)] >= '5';
    number.digits.resize(static_cast<std::size_t>(std::max(kept, 0)));
    if (!roundsUp) {
        return;
    }
    while (!number.digits.empty() && number.digits.back() == '9') {
        number.digits.pop_back();
    }
    if (number.digits.empty()) {
        number.digits.assign(1, '1');
        ++number.point;
    } else {
        ++number.digits.back();
    }
}

// The digit of the given power of ten.
char DigitAt(const DecimalDigits& number, int power) {
    const int index = number.point - 1 - power;
    return index >= 0 && index < static_cast<int>(number.digits.size())
               ? number.digits[static_cast<std::size_t>(index)]
               : '0';
}

struct FormatShape {
    int wholeDigits = 0;   // always written before the point
    int leastDecimals = 0; // always written after it
    int mostDecimals = 0;
};

FormatShape ShapeOfFormat(std::string_view format) {
    FormatShape shape;
    bool isBehindPoint = false;
    for (const char c : format) {
        if (c == '.') {
            isBehindPoint = true;
        } else if (isBehindPoint && (c == '0' || c == '#')) {
            ++shape.mostDecimals;
            shape.leastDecimals = c == '0' ? shape.mostDecimals : shape.leastDecimals;
        } else if (c == '0' || (c == '#' && shape.wholeDigits > 0)) {
            ++shape.wholeDigits;
        }
    }
    return shape;
}

std::string FormatByShape(double value, const FormatShape& shape) {
    DecimalDigits number = DigitsOf(value);
    RoundDecimals(number, shape.mostDecimals);
    const bool isZero = number.digits.empty();
    std::string text = value < 0 && !isZero ? "-" : "";
    const int wholeDigits = isZero ? 0 : std::max(number.point, 0);
    for (int power = std::max(wholeDigits, shape.wholeDigits) - 1; power >= 0; --power) {
        text += isZero ? '0' : DigitAt(number, power);
    }
    const std::size_t pointPosition = text.size();
    std::size_t needed = pointPosition;
    for (int decimal = 1; decimal <= shape.mostDecimals; ++decimal) {
        text += decimal == 1 ? "." : "";
        text += isZero ? '0' : DigitAt(number, -decimal);
        if (decimal <= shape.leastDecimals || text.back() != '0') {
            needed = text.size();
        }
    }
    text.resize(needed);
    return text;
}

// Up to 15 significant digits; with an exponent where plain digits would be longer.
std::string FormatGeneral(double value) {
    constexpr int kSignificant = 15;
    DecimalDigits number = DigitsOf(value, kSignificant);
    if (number.digits.empty()) {
        return "0";
    }
    const int exponent = number.point - 1;
    const bool isPlain = exponent >= -5 && exponent < kSignificant;
    const int decimals = static_cast<int>(number.digits.size()) - (isPlain ? number.point : 1);
    std::string text = value < 0 ? "-" : "";
    const int topPower = isPlain ? std::max(exponent, 0) : 0;
    const int shift = isPlain ? 0 : exponent;
    for (int power = topPower; power >= -std::max(decimals, 0); --power) {
        text += power == -1 ? "." : "";
        text += DigitAt(number, power + shift);
    }
    if (!isPlain) {
        text += exponent < 0 ? "E-" : "E+";
        text += std::to_string(std::abs(exponent));
    }
    return text;
}

} // namespace

std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string FormatNumber(double value, std::string_view format) {
    if (!std::isfinite(value)) {
        return {};
    }
    if (format == "General Number") {
        return FormatGeneral(value);
    }
    return FormatByShape(value, ShapeOfFormat(format == "Fixed" ? "0.00" : format));
}

std::optional<double> ReadNumber(std::string_view text) {
    if (text.empty() || text.size() > kExactDigits) {
        return ReadInFull(text);
    }
    // Nearly every field of a data file is an optional minus, a short run of digits and at most one
    // delimiter. Everything else takes the slow path. Two plain loops and two exits take a quarter
    // of the time of one loop that also looks for the delimiter.
    const char* const end = text.data() + text.size();
    const bool isNegative = text.front() == '-';
    const char* const digits = text.data() + (isNegative ? 1 : 0);
    std::uint64_t mantissa = 0;
    const char* position = TakeDigits(digits, end, mantissa);
    if (position == end && position != digits) {
        const auto whole = static_cast<double>(static_cast<std::int64_t>(mantissa));
        return isNegative ? 0.0 - whole : whole; // never -0
    }
    if (position == end || position == digits || !IsDecimalDelimiter(*position)) {
        return ReadInFull(text);
    }
    const char* const decimals = position + 1;
    if (TakeDigits(decimals, end, mantissa) != end) {
        return ReadInFull(text);
    }
    const double value =
        static_cast<double>(static_cast<std::int64_t>(mantissa)) / kPowersOfTen[end - decimals];
    return isNegative ? 0.0 - value : value;
}

double ParseNumber(std::string_view text) {
    return ReadNumber(text).value_or(0);
}

double NumberFromText(std::string_view text, bool decimalIsComma) {
    if (const std::optional<double> number = ReadNumber(text)) {
        return *number;
    }
    const char decimalDelimiter = decimalIsComma ? ',' : '.';
    const char groupDelimiter = decimalIsComma ? '.' : ',';
    return ParseNumber(WithoutGroups(WithoutBlanks(text), decimalDelimiter, groupDelimiter));
}

bool IsWholeNumber(double value) {
    return std::isfinite(value) && std::trunc(value) == value;
}

} // namespace quandrel
