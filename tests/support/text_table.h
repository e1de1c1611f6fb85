// SPDX-License-Identifier: MIT
//
// Tables of inputs and expected results that geologists can read and extend: tests/tables/*.txt.
// tests/tables/README.md describes their format.
//
// A test reads a table, supplies a function for each operation in it, and expects no complaints.

#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// A row of a table, with the options of its block ("key=value" after the name of the operation).
struct TableRow {
    std::string place; ///< file and line: "notation.txt:12"
    std::string operation;
    std::map<std::string, std::string> options;
    std::string input;
    std::string expected;
};

/// A format error in a table or in one of its inputs.
class TableError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Applies an operation to an input; returns the words of the result. May throw a TableError.
using TableOperation = std::function<std::string(const TableRow& row)>;

/// The words of a text, separated by blanks and tabs.
inline std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

/// A whole word as a number, including "nan" and "inf"; nothing for other words.
inline std::optional<double> NumberInWord(std::string_view word) {
    double number = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

/// The numbers of an input.
///
/// @throw TableError for a word that is not a number, or a wrong number of words
inline std::vector<double> NumbersOf(const TableRow& row, std::size_t wanted) {
    std::vector<double> numbers;
    for (const std::string& word : WordsOf(row.input)) {
        const std::optional<double> number = NumberInWord(word);
        if (!number) {
            throw TableError(row.place + ": '" + word + "' is not a number");
        }
        numbers.push_back(*number);
    }
    if (numbers.size() != wanted) {
        throw TableError(row.place + ": " + row.operation + " takes " + std::to_string(wanted)
                         + " numbers");
    }
    return numbers;
}

/// Numbers as words that read back exactly.
inline std::string NumberWords(std::initializer_list<double> numbers) {
    std::string words;
    for (const double number : numbers) {
        char buffer[40];
        const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
        words.append(words.empty() ? "" : " ").append(buffer, end);
    }
    return words;
}

/// The value of an option, or its default.
inline std::string OptionOf(const TableRow& row, const std::string& key,
                            const std::string& without) {
    const auto found = row.options.find(key);
    return found == row.options.end() ? without : found->second;
}

/// The text without surrounding blanks and without a note at its end (" # why").
inline std::string WithoutNote(const std::string& text) {
    std::string kept = text.starts_with('#') ? "" : text.substr(0, text.find(" #"));
    kept.erase(0, kept.find_first_not_of(" \t\r"));
    kept.erase(kept.find_last_not_of(" \t\r") + 1);
    return kept;
}

/// Reads the head of a block, "[operation key=value ...]", into the row.
inline void TakeBlock(const std::string& text, TableRow& block) {
    if (!text.ends_with(']')) {
        throw TableError(block.place + ": the head of a block ends with ']'");
    }
    const std::vector<std::string> words = WordsOf(text.substr(1, text.size() - 2));
    if (words.empty()) {
        throw TableError(block.place + ": a block needs the name of an operation");
    }
    block.operation = words.front();
    block.options.clear();
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::size_t equals = words[i].find('=');
        if (equals == std::string::npos) {
            throw TableError(block.place + ": '" + words[i] + "' is not of the form key=value");
        }
        block.options[words[i].substr(0, equals)] = words[i].substr(equals + 1);
    }
}

/// Reads a table.
///
/// @param name  its name in failure messages
/// @throw TableError for a row before the first block, a line that is neither a row nor the head of
/// a block, and a table without rows
inline std::vector<TableRow> ReadTextTable(std::istream& stream, const std::string& name) {
    std::vector<TableRow> rows;
    TableRow row;
    int number = 0;
    for (std::string line; std::getline(stream, line);) {
        row.place = name + ":" + std::to_string(++number);
        const std::string text = WithoutNote(line);
        if (text.empty()) {
            continue;
        }
        if (text.starts_with('[')) {
            TakeBlock(text, row);
            continue;
        }
        const std::size_t bar = text.rfind('|');
        if (bar == std::string::npos) {
            throw TableError(row.place + ": no '|' between input and result");
        }
        if (row.operation.empty()) {
            throw TableError(row.place + ": no [operation] before the first row");
        }
        row.input = WithoutNote(text.substr(0, bar));
        row.expected = WithoutNote(text.substr(bar + 1));
        rows.push_back(row);
    }
    if (rows.empty()) {
        throw TableError(name + ": no row");
    }
    return rows;
}

/// Reads a file of tests/tables.
inline std::vector<TableRow> ReadTableFile(const std::string& name) {
    std::ifstream stream(std::string(QUANDREL_SOURCE_DIR "/tests/tables/") + name);
    if (!stream) {
        throw TableError(name + ": cannot be read");
    }
    return ReadTextTable(stream, name);
}

/// Whether a result matches its row: words that are numbers on both sides may differ by the
/// tolerance of the block, if it has one; all others must be equal.
inline bool IsExpected(const TableRow& row, const std::string& got) {
    const std::string tolerance = OptionOf(row, "tolerance", "");
    const std::vector<std::string> expectedWords = WordsOf(row.expected);
    const std::vector<std::string> gotWords = WordsOf(got);
    if (tolerance.empty() || expectedWords.size() != gotWords.size()) {
        return expectedWords == gotWords;
    }
    const std::optional<double> allowed = NumberInWord(tolerance);
    if (!allowed || !(*allowed >= 0)) {
        throw TableError(row.place + ": '" + tolerance + "' is not a tolerance");
    }
    for (std::size_t i = 0; i < gotWords.size(); ++i) {
        const std::optional<double> one = NumberInWord(expectedWords[i]);
        const std::optional<double> other = NumberInWord(gotWords[i]);
        // A NaN equals nothing, but "nan" equals itself.
        const bool areClose = one && other && std::abs(*one - *other) <= *allowed;
        if (!areClose && expectedWords[i] != gotWords[i]) {
            return false;
        }
    }
    return true;
}

/// Compares a table with the program's results for its inputs.
///
/// @param operations  by their names in the heads of blocks
/// @return a complaint for each row whose result differs (place, input, expected and actual), whose
///         operation is missing, or whose input is invalid
inline std::vector<std::string>
TableComplaints(const std::vector<TableRow>& rows,
                const std::map<std::string, TableOperation>& operations) {
    std::vector<std::string> complaints;
    for (const TableRow& row : rows) {
        const auto operation = operations.find(row.operation);
        if (operation == operations.end()) {
            complaints.push_back(row.place + ": there is no operation '" + row.operation + "'");
            continue;
        }
        try {
            const std::string got = operation->second(row);
            if (!IsExpected(row, got)) {
                complaints.push_back(row.place + ": " + row.operation + " of '" + row.input
                                     + "': expected '" + row.expected + "', got '" + got + "'");
            }
        } catch (const TableError& error) {
            complaints.emplace_back(error.what());
        }
    }
    return complaints;
}

/// Complaints on separate lines, for the message of a test.
inline std::string LinesOf(const std::vector<std::string>& complaints) {
    std::string lines;
    for (const std::string& complaint : complaints) {
        lines += complaint + "\n";
    }
    return lines;
}

} // namespace quandrel
