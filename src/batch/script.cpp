// SPDX-License-Identifier: MIT

#include "batch/script.h"

#include <algorithm>
#include <set>

namespace quandrel {

namespace {

/// A word with the position of its first "=" outside quotes.
struct Word {
    std::string text;
    std::size_t equals = std::string::npos;
};

/// Reads words up to the end of a command.
class WordReader {
public:
    WordReader(std::string_view text, CommandBreak breaks, int line)
        : text_(text)
        , breaks_(breaks)
        , line_(line) {}

    [[nodiscard]] std::size_t Position() const { return position_; }

    [[nodiscard]] bool AtEnd() const { return position_ >= text_.size(); }

    [[nodiscard]] int Line() const { return line_; }

    /// The words up to the next break, which is consumed. False if a quote is not closed.
    [[nodiscard]] bool ReadCommand(std::vector<Word>& words) {
        words.clear();
        for (;;) {
            SkipBlanks();
            if (AtEnd() || PassBreak()) {
                return true;
            }
            if (text_[position_] == '#') {
                SkipComment();
                continue;
            }
            if (!ReadWord(words.emplace_back())) {
                return false;
            }
        }
    }

private:
    [[nodiscard]] bool IsBreak(char c) const {
        return c == '\n' || (c == ';' && breaks_ == CommandBreak::SemicolonToo);
    }

    static bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

    void SkipBlanks() {
        while (!AtEnd() && IsBlank(text_[position_])) {
            ++position_;
        }
    }

    void SkipComment() {
        while (!AtEnd() && text_[position_] != '\n') {
            ++position_;
        }
    }

    bool PassBreak() {
        if (!IsBreak(text_[position_])) {
            return false;
        }
        line_ += text_[position_] == '\n' ? 1 : 0;
        ++position_;
        return true;
    }

    [[nodiscard]] bool ReadWord(Word& word) {
        bool quoted = false;
        for (; !AtEnd(); ++position_) {
            const char c = text_[position_];
            if (c == '\n' || (!quoted && (IsBlank(c) || IsBreak(c)))) {
                break;
            }
            if (c == '"') {
                quoted = !quoted;
                continue;
            }
            if (quoted && c == '\\' && position_ + 1 < text_.size()
                && text_[position_ + 1] == '"') {
                ++position_;
                word.text += '"';
                continue;
            }
            if (c == '=' && !quoted && !word.text.empty() && word.equals == std::string::npos) {
                word.equals = word.text.size();
            }
            word.text += c;
        }
        return !quoted;
    }

    std::string_view text_;
    CommandBreak breaks_;
    std::size_t position_ = 0;
    int line_;
};

Command CommandOf(const std::vector<Word>& words, int line) {
    Command command;
    command.line = line;
    command.name = words.front().text;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const Word& word = words[i];
        if (word.equals == std::string::npos) {
            command.arguments.push_back({{}, word.text});
        } else {
            command.arguments.push_back(
                {word.text.substr(0, word.equals), word.text.substr(word.equals + 1)});
        }
    }
    return command;
}

} // namespace

std::optional<std::string> Command::Value(std::string_view name_) const {
    for (const Argument& argument : arguments) {
        if (argument.name == name_) {
            return argument.value;
        }
    }
    return std::nullopt;
}

std::optional<std::string> Command::Bare(std::size_t place) const {
    for (const Argument& argument : arguments) {
        if (argument.name.empty() && place-- == 0) {
            return argument.value;
        }
    }
    return std::nullopt;
}

std::string Command::Words() const {
    std::string words;
    for (const Argument& argument : arguments) {
        words += words.empty() ? "" : " ";
        words += argument.name.empty() ? argument.value : argument.name + "=" + argument.value;
    }
    return words;
}

std::string RefusedWord(const Command& command, const CommandShape& shape) {
    if (shape.checksItself) {
        return {};
    }
    const auto isKey = [&shape](const std::string& word) {
        return std::find(shape.keys.begin(), shape.keys.end(), word) != shape.keys.end();
    };
    std::size_t bare = 0;
    std::set<std::string> named;
    for (const auto& [name, value] : command.arguments) {
        if (name.empty() && ++bare > shape.mostBare) {
            return "'" + value + (isKey(value) ? "' lacks a value" : "' is one word too many");
        }
        if (!name.empty() && !isKey(name)) {
            const std::string hint = shape.keys.empty() ? "; put words with '=' in quotes" : "";
            return "'" + name + "=" + value + "' is not an argument of the command" + hint;
        }
        if (!name.empty() && !named.insert(name).second) {
            return "'" + name + "' is given twice";
        }
    }
    return {};
}

Result<std::optional<Command>> ScriptReader::Next() {
    std::vector<Word> words;
    std::size_t read = 0;
    std::optional<Command> command;
    while (!command && read < text_.size()) {
        const int line = line_;
        WordReader reader(std::string_view(text_).substr(read), breaks_, line);
        const bool isClosed = reader.ReadCommand(words);
        if (reader.AtEnd() && !hasEnded_ && !(isClosed && text_.back() == '\n')) {
            break; // the command may continue
        }
        if (!isClosed) {
            return Failure{"line " + std::to_string(line) + ": a quote is not closed"};
        }
        read += reader.Position();
        line_ = reader.Line();
        if (!words.empty()) {
            command = CommandOf(words, line);
        }
    }
    text_.erase(0, read);
    return command;
}

Result<std::vector<Command>> ParseScript(std::string_view text, CommandBreak breaks) {
    ScriptReader reader(breaks);
    reader.Add(text);
    reader.End();
    std::vector<Command> commands;
    for (;;) {
        Result<std::optional<Command>> command = reader.Next();
        if (!command) {
            return Failure{command.Error()};
        }
        if (!command->has_value()) {
            return commands;
        }
        commands.push_back(std::move(**command));
    }
}

} // namespace quandrel
