// SPDX-License-Identifier: MIT

#include "input/line_tokens.h"

#include "input/format_model.h"
#include "orientation/number_text.h"

#include <cstdint>
#include <cstring>

namespace quandrel {

namespace {

// The three ways to separate columns. IsBreak: the character ends a token. IsBlank: the character
// is trimmed from both ends. Behind: start of the next token, given the end of one; nullptr when
// there is none.

struct CharacterBreaks {
    char delimiter;

    [[nodiscard]] bool IsBreak(char c) const { return c == delimiter; }

    [[nodiscard]] bool IsBlank(char c) const {
        return c == ' ' || (c == '\t' && delimiter != '\t');
    }

    [[nodiscard]] const char* FindBreak(const char* p, const char* end) const {
        if (p == end) {
            return end; // an empty view may have no address at all
        }
        const void* found = std::memchr(p, delimiter, static_cast<std::size_t>(end - p));
        return found == nullptr ? end : static_cast<const char*>(found);
    }

    [[nodiscard]] const char* Behind(const char* p, const char* end) const {
        return p == end ? nullptr : p + 1;
    }
};

struct BlankBreaks {
    [[nodiscard]] static bool IsBreak(char c) { return c == ' '; }

    [[nodiscard]] static bool IsBlank(char c) { return c == ' ' || c == '\t'; }

    [[nodiscard]] static const char* FindBreak(const char* p, const char* end) {
        while (p != end && !IsBreak(*p)) {
            ++p;
        }
        return p;
    }

    [[nodiscard]] static const char* Behind(const char* p, const char* end) {
        if (p == end) {
            return nullptr;
        }
        while (p != end && *p == ' ') {
            ++p;
        }
        return p;
    }
};

struct AnyBreaks {
    [[nodiscard]] static bool IsHardBreak(char c) { return c == ',' || c == ';' || c == '\t'; }

    [[nodiscard]] static bool IsBreak(char c) { return c == ' ' || IsHardBreak(c); }

    [[nodiscard]] static bool IsBlank(char c) { return c == ' '; }

    [[nodiscard]] static const char* FindBreak(const char* p, const char* end) {
        while (p != end && !IsBreak(*p)) {
            ++p;
        }
        return p;
    }

    [[nodiscard]] static const char* Behind(const char* p, const char* end) {
        if (p == end) {
            return nullptr;
        }
        while (p != end && *p == ' ') {
            ++p;
        }
        return p != end && IsHardBreak(*p) ? p + 1 : p;
    }
};

template <class Function>
auto WithBreaks(char delimiter, Function function) {
    switch (delimiter) {
    case kAnyDelimiter:
        return function(AnyBreaks{});
    case ' ':
        return function(BlankBreaks{});
    default:
        return function(CharacterBreaks{delimiter});
    }
}

// With this many digits a quotient by a power of ten is the nearest double.
constexpr std::ptrdiff_t kExactDigits = 15;

constexpr double kPowersOfTen[kExactDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// A character as a digit; above 9 when it is not a digit.
unsigned DigitOf(char c) {
    return static_cast<unsigned>(static_cast<unsigned char>(c)) - unsigned{'0'};
}

// Appends the digits from p on to the mantissa, and leaves p after them.
void ReadDigits(const char*& p, const char* end, std::uint64_t& mantissa) {
    for (; p != end; ++p) {
        const unsigned digit = DigitOf(*p);
        if (digit > 9) {
            return;
        }
        mantissa = mantissa * 10 + digit;
    }
}

// Reads a token that is a plain number in one pass while searching for its end: most tokens of a
// data file are plain numbers. Returns nullptr when it is not a plain number.
template <class Breaks>
const char* ReadPlainNumber(const Breaks& breaks, const char* start, const char* end,
                            Token& token) {
    const char* p = start;
    const bool isNegative = *p == '-' && !breaks.IsBreak('-');
    p += isNegative ? 1 : 0;
    const char* const firstDigit = p;
    std::uint64_t mantissa = 0;
    ReadDigits(p, end, mantissa);
    std::ptrdiff_t digits = p - firstDigit;
    std::ptrdiff_t decimals = 0;
    char delimiter = '\0';
    if (p != end && !breaks.IsBreak(*p)) {
        if (*p != '.' && *p != ',') {
            return nullptr;
        }
        delimiter = *p;
        const char* const firstDecimal = ++p;
        ReadDigits(p, end, mantissa);
        if (p != end && !breaks.IsBreak(*p)) {
            return nullptr;
        }
        decimals = p - firstDecimal;
        digits += decimals;
    }
    if (digits < 1 || digits > kExactDigits) {
        return nullptr;
    }
    double value = static_cast<double>(static_cast<std::int64_t>(mantissa));
    if (decimals > 0) {
        value /= kPowersOfTen[decimals];
    }
    token.start = start;
    token.length = static_cast<std::size_t>(p - start);
    token.number = isNegative ? 0.0 - value : value; // never -0
    token.isPlainNumber = true;
    token.hasDoubledQuotes = false;
    token.decimalDelimiter = delimiter;
    return p;
}

Token TextToken(std::string_view text, bool hasDoubledQuotes = false) {
    return {text.data(), text.size(), 0, false, hasDoubledQuotes, '\0'};
}

// The text from start to end, trimmed of blanks.
template <class Breaks>
std::string_view Trimmed(const Breaks& breaks, const char* start, const char* end) {
    while (start != end && breaks.IsBlank(*start)) {
        ++start;
    }
    while (end != start && breaks.IsBlank(end[-1])) {
        --end;
    }
    return {start, static_cast<std::size_t>(end - start)};
}

// Reads a token in quotes. Returns nullptr when the quotes are not closed at the end of the token.
template <class Breaks>
const char* ReadQuoted(const Breaks& breaks, const char* start, const char* end, Token& token) {
    bool hasDoubledQuotes = false;
    const char* p = start + 1;
    for (;;) {
        const void* found = std::memchr(p, '"', static_cast<std::size_t>(end - p));
        if (found == nullptr) {
            return nullptr;
        }
        p = static_cast<const char*>(found);
        if (p + 1 == end || p[1] != '"') {
            break;
        }
        hasDoubledQuotes = true;
        p += 2;
    }
    const std::string_view text = Trimmed(breaks, start + 1, p);
    ++p;
    while (p != end && breaks.IsBlank(*p) && !breaks.IsBreak(*p)) {
        ++p;
    }
    if (p != end && !breaks.IsBreak(*p)) {
        return nullptr;
    }
    token = TextToken(text, hasDoubledQuotes);
    return p;
}

// Reads a token that is not a plain number.
template <class Breaks>
const char* ReadText(const Breaks& breaks, const char* start, const char* end, Token& token) {
    if (start != end && *start == '"') {
        if (const char* quotedEnd = ReadQuoted(breaks, start, end, token)) {
            return quotedEnd;
        }
    }
    const char* const tokenEnd = breaks.FindBreak(start, end);
    token = TextToken(Trimmed(breaks, start, tokenEnd));
    return tokenEnd;
}

// Reads the token at start; returns its end: a break or the end of the line.
template <class Breaks>
inline const char* ReadToken(const Breaks& breaks, const char* start, const char* end,
                             Token& token) {
    while (start != end && breaks.IsBlank(*start)) {
        ++start;
    }
    constexpr char kLastOfNumbers = '9'; // above all first characters of numbers
    if (start != end && *start <= kLastOfNumbers) {
        if (const char* numberEnd = ReadPlainNumber(breaks, start, end, token)) {
            return numberEnd;
        }
    }
    return ReadText(breaks, start, end, token);
}

} // namespace

std::string_view WithoutLeadingBlanks(std::string_view text, char delimiter) {
    const bool cutsTabs = delimiter != '\t' && delimiter != kAnyDelimiter;
    std::size_t start = 0;
    while (start < text.size() && (text[start] == ' ' || (cutsTabs && text[start] == '\t'))) {
        ++start;
    }
    return text.substr(start);
}

bool NextToken(std::string_view line, std::size_t& position, Token& token, char delimiter) {
    token = kEmptyToken;
    if (position > line.size()) {
        return false;
    }
    const char* const end = line.data() + line.size();
    const char* const start = line.data() + position;
    const char* const next = WithBreaks(delimiter, [&](const auto& breaks) {
        return breaks.Behind(ReadToken(breaks, start, end, token), end);
    });
    position = next == nullptr ? line.size() + 1 : static_cast<std::size_t>(next - line.data());
    return true;
}

bool NextToken(std::string_view line, std::size_t& position, std::string& token, char delimiter) {
    Token found;
    const bool isThere = NextToken(line, position, found, delimiter);
    token = found.hasDoubledQuotes ? WithSingleQuotes(found.Text()) : std::string(found.Text());
    return isThere;
}

std::string WithSingleQuotes(std::string_view text) {
    std::string single;
    for (std::size_t i = 0; i < text.size(); ++i) {
        single += text[i];
        if (text[i] == '"' && i + 1 < text.size() && text[i + 1] == '"') {
            ++i;
        }
    }
    return single;
}

// Inlining everything for a token saves a tenth of the time for a whole line.
[[gnu::flatten]] int LineTokens::Split(std::string_view line, int columns, char delimiter,
                                       const ColumnSettings& slots) {
    const char* const end = line.data() + line.size();
    count_ = 0;
    WithBreaks(delimiter, [&](const auto& breaks) {
        const char* p = line.data();
        while (p != nullptr && count_ < columns) {
            if (count_ < kKeptColumns) [[likely]] {
                p = ReadToken(breaks, p, end, tokens_[static_cast<std::size_t>(count_)]);
            } else {
                Token token;
                p = ReadToken(breaks, p, end, token);
                for (std::size_t slot = 0; slot < slots.size(); ++slot) {
                    if (slots[slot] == count_) {
                        tokens_[kKeptColumns + slot] = token;
                    }
                }
            }
            ++count_;
            p = breaks.Behind(p, end);
        }
    });
    return count_;
}

void LineTokens::Assign(const std::array<std::string_view, kColumnSlots>& values) {
    count_ = kColumnSlots;
    for (std::size_t slot = 0; slot < values.size(); ++slot) {
        tokens_[slot] = TextToken(WithoutBlanks(values[slot]));
    }
}

} // namespace quandrel
