// SPDX-License-Identifier: MIT

#include "mapsession/statement.h"
#include "mapsession/token_reader.h"

namespace quandrel {
namespace {

constexpr int kDeepestCall = 20;

std::optional<SessionExpression> ReadExpression(SessionTokenReader& reader, int depth);

/// The arguments between parentheses, after the opening one.
std::optional<std::vector<SessionExpression>> ReadArguments(SessionTokenReader& reader, int depth) {
    std::vector<SessionExpression> arguments;
    if (reader.TakeSymbol(')')) {
        return arguments;
    }
    do {
        std::optional<SessionExpression> argument = ReadExpression(reader, depth + 1);
        if (!argument) {
            return std::nullopt;
        }
        arguments.push_back(std::move(*argument));
    } while (reader.TakeSymbol(','));
    if (!reader.TakeSymbol(')')) {
        return std::nullopt;
    }
    return arguments;
}

/// Optional parts after a name: the arguments of a call, ".Col(n)" or ".RowID".
std::optional<SessionExpression> ReadNamed(SessionTokenReader& reader, std::string name,
                                           int depth) {
    SessionExpression expression{SessionExpression::Kind::Name, 0, std::move(name), {}};
    const bool isColumn = reader.TakeSymbol('.');
    if (isColumn && reader.TakeWord("RowID")) {
        expression.kind = SessionExpression::Kind::RowId;
        return expression;
    }
    if (isColumn && !reader.TakeWord("Col")) {
        return std::nullopt;
    }
    if (!reader.TakeSymbol('(')) {
        return isColumn ? std::nullopt : std::optional(std::move(expression));
    }
    std::optional<std::vector<SessionExpression>> arguments = ReadArguments(reader, depth);
    if (!arguments || (isColumn && arguments->size() != 1)) {
        return std::nullopt;
    }
    expression.kind = isColumn ? SessionExpression::Kind::Column : SessionExpression::Kind::Call;
    expression.arguments = std::move(*arguments);
    return expression;
}

std::optional<SessionExpression> ReadExpression(SessionTokenReader& reader, int depth) {
    if (depth > kDeepestCall) {
        return std::nullopt;
    }
    if (const std::optional<double> number = reader.TakeNumber()) {
        return SessionExpression{SessionExpression::Kind::Number, *number, {}, {}};
    }
    if (std::optional<std::string> text = reader.TakeOf(SessionTokenKind::Text)) {
        return SessionExpression{SessionExpression::Kind::Text, 0, std::move(*text), {}};
    }
    if (std::optional<std::string> name = reader.TakeOf(SessionTokenKind::Name)) {
        return ReadNamed(reader, std::move(*name), depth);
    }
    return std::nullopt;
}

} // namespace

SessionResult<SessionExpression> ParseSessionExpression(std::string_view text) {
    SessionResult<std::vector<SessionToken>> tokens = SessionTokensOf(text);
    if (!tokens) {
        return tokens.Error();
    }
    SessionTokenReader reader(std::move(*tokens));
    std::optional<SessionExpression> expression = ReadExpression(reader, 0);
    if (!expression || !reader.AtEnd()) {
        return SessionError{kSessionSyntaxError, "No such expression: " + std::string(text)};
    }
    return std::move(*expression);
}

} // namespace quandrel
