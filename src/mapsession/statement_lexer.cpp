// SPDX-License-Identifier: MIT

#include "mapsession/statement_lexer.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <system_error>
#include <utility>

namespace quandrel {
namespace {

constexpr std::string_view kSymbols = "(),.=*-";

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool StartsName(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
           || character == '_' || static_cast<unsigned char>(character) >= 0x80;
}

bool IsSpace(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

char Lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

class Lexer {
public:
    explicit Lexer(std::string_view text)
        : text_(text) {}

    SessionResult<std::vector<SessionToken>> Run() {
        std::vector<SessionToken> tokens;
        while (SkipSpace()) {
            std::optional<SessionToken> token = Next();
            if (!token) {
                return SessionError{kSessionSyntaxError,
                                    "Cannot read \"" + std::string(text_.substr(at_)) + "\""};
            }
            tokens.push_back(std::move(*token));
        }
        tokens.push_back({});
        return tokens;
    }

private:
    /// False at the end.
    bool SkipSpace() {
        while (at_ < text_.size() && IsSpace(text_[at_])) {
            ++at_;
        }
        return at_ < text_.size();
    }

    std::optional<SessionToken> Next() {
        const char first = text_[at_];
        if (StartsName(first)) {
            return Name();
        }
        if (first == '"') {
            return Text();
        }
        if (IsDigit(first) || (first == '.' && at_ + 1 < text_.size() && IsDigit(text_[at_ + 1]))) {
            return Number();
        }
        if (kSymbols.find(first) == std::string_view::npos) {
            return std::nullopt;
        }
        ++at_;
        return SessionToken{SessionTokenKind::Symbol, std::string(1, first), 0};
    }

    SessionToken Name() {
        const std::size_t start = at_;
        while (at_ < text_.size() && (StartsName(text_[at_]) || IsDigit(text_[at_]))) {
            ++at_;
        }
        return {SessionTokenKind::Name, std::string(text_.substr(start, at_ - start)), 0};
    }

    std::optional<SessionToken> Number() {
        SessionToken token{SessionTokenKind::Number, {}, 0};
        const char* const start = text_.data() + at_;
        const char* const end = text_.data() + text_.size();
        const std::from_chars_result read = std::from_chars(start, end, token.number);
        // A name may not directly follow a number.
        if (read.ec != std::errc() || (read.ptr != end && StartsName(*read.ptr))) {
            return std::nullopt;
        }
        token.text.assign(start, read.ptr);
        at_ += token.text.size();
        return token;
    }

    std::optional<SessionToken> Text() {
        SessionToken token{SessionTokenKind::Text, {}, 0};
        for (std::size_t i = at_ + 1; i < text_.size(); ++i) {
            if (text_[i] != '"') {
                token.text += text_[i];
                continue;
            }
            if (i + 1 == text_.size() || text_[i + 1] != '"') {
                at_ = i + 1;
                return token;
            }
            token.text += text_[++i];
        }
        return std::nullopt;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace

SessionResult<std::vector<SessionToken>> SessionTokensOf(std::string_view text) {
    return Lexer(text).Run();
}

bool EqualNames(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return Lower(one) == Lower(other); });
}

} // namespace quandrel
