// SPDX-License-Identifier: MIT
//
// Scripts: one command a line, its arguments `name=value` or bare.

#pragma once

#include "core/result.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// A word behind a command. A bare one has no name.
struct Argument {
    std::string name;
    std::string value;
};

struct Command {
    int line = 0; ///< of the script, from 1; 0 for one that stands in none
    std::string name;
    std::vector<Argument> arguments;

    /// The value of the argument of a name, or nothing.
    [[nodiscard]] std::optional<std::string> Value(std::string_view name_) const;

    /// The bare argument at a place, counted from 0, or nothing.
    [[nodiscard]] std::optional<std::string> Bare(std::size_t place) const;

    /// All words behind the command's name as they stood, one blank between them.
    [[nodiscard]] std::string Words() const;
};

/// The words that a command takes.
struct CommandShape {
    std::size_t mostBare = 0;           ///< bare words at most
    std::vector<std::string_view> keys; ///< of its `name=value` words
    bool checksItself = false;          ///< any words: the command itself knows which are good
};

/// What is wrong with the words of a command, or nothing: a word too many, a name that is not among
/// the keys, a key without its value, a key twice. The word is named.
[[nodiscard]] std::string RefusedWord(const Command& command, const CommandShape& shape);

/// Where commands end besides the line's end.
enum class CommandBreak { LineOnly, SemicolonToo };

/// Reads the commands of a text that comes piece by piece. How they are written: see ParseScript.
class ScriptReader {
public:
    explicit ScriptReader(CommandBreak breaks)
        : breaks_(breaks) {}

    /// More of the text.
    void Add(std::string_view text) { text_ += text; }

    /// The text has come to its end.
    void End() { hasEnded_ = true; }

    /// The next command. Nothing while it is not whole, and at the end of the text.
    [[nodiscard]] Result<std::optional<Command>> Next();

private:
    CommandBreak breaks_;
    std::string text_; ///< what was not read yet
    int line_ = 1;
    bool hasEnded_ = false;
};

/// The commands of a text. Words are parted by blanks; double quotes hold blanks together, and `\"`
/// in them is a quote. The first "=" outside quotes, unless it is the first character, parts a name
/// from its value; `#` at the beginning of a word begins a comment.
[[nodiscard]] Result<std::vector<Command>> ParseScript(std::string_view text, CommandBreak breaks);

} // namespace quandrel
