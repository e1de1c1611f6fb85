// SPDX-License-Identifier: MIT
//
// Scripts: one command per line, with arguments `name=value` or bare words.

#pragma once

#include "core/result.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// An argument of a command. A bare word has no name.
struct Argument {
    std::string name;
    std::string value;
};

struct Command {
    int line = 0; ///< of the script, from 1; 0 for a command outside a script
    std::string name;
    std::vector<Argument> arguments;

    /// The value of the argument with a name, or nothing.
    [[nodiscard]] std::optional<std::string> Value(std::string_view name_) const;

    /// The bare argument at an index, counted from 0, or nothing.
    [[nodiscard]] std::optional<std::string> Bare(std::size_t place) const;

    /// All words after the command's name as written, separated by one blank.
    [[nodiscard]] std::string Words() const;
};

/// The words that a command accepts.
struct CommandShape {
    std::size_t mostBare = 0;           ///< the largest number of bare words
    std::vector<std::string_view> keys; ///< of its `name=value` words
    bool checksItself = false;          ///< accepts any words: the command checks them itself
};

/// The error in the words of a command, or nothing: a surplus word, an unknown name, a key without
/// a value, or a repeated key. The message contains the word.
[[nodiscard]] std::string RefusedWord(const Command& command, const CommandShape& shape);

/// The separators of commands in addition to the end of line.
enum class CommandBreak { LineOnly, SemicolonToo };

/// Reads the commands of a text that arrives in pieces. For the syntax see ParseScript.
class ScriptReader {
public:
    explicit ScriptReader(CommandBreak breaks)
        : breaks_(breaks) {}

    /// Adds text.
    void Add(std::string_view text) { text_ += text; }

    /// Ends the text.
    void End() { hasEnded_ = true; }

    /// The next command. Nothing while it is incomplete, and at the end of the text.
    [[nodiscard]] Result<std::optional<Command>> Next();

private:
    CommandBreak breaks_;
    std::string text_; ///< the unread text
    int line_ = 1;
    bool hasEnded_ = false;
};

/// The commands of a text. Words are separated by blanks; double quotes enclose blanks, and `\"`
/// within them is a quote. The first "=" outside quotes, unless it is the first character,
/// separates a name from its value; `#` at the beginning of a word starts a comment.
[[nodiscard]] Result<std::vector<Command>> ParseScript(std::string_view text, CommandBreak breaks);

} // namespace quandrel
