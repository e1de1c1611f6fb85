// SPDX-License-Identifier: MIT
//
// Arguments of the form key=value; a function for each key processes the value.

#pragma once

#include "batch/script.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The names of a table, for messages.
template <class Value>
std::string ListOf(const std::map<std::string, Value>& names) {
    std::string list;
    for (const auto& [name, value] : names) {
        list += (list.empty() ? "" : ", ") + name;
    }
    return list;
}

[[nodiscard]] std::vector<std::string> SplitAtCommas(const std::string& text);

/// A text as an integer within bounds, or nothing.
[[nodiscard]] std::optional<int> WholeNumber(const std::string& text, int lowest, int highest);

using Names = std::map<std::string, int>;

/// Reads a value by its name in a table. Returns an error message, or nothing.
template <class Field>
std::string TakeName(const Names& names, const std::string& value, Field& field) {
    const auto found = names.find(value);
    if (found == names.end()) {
        return "'" + value + "' is not one of " + ListOf(names);
    }
    field = static_cast<Field>(found->second);
    return {};
}

/// Reads names in a list with commas, as the sum of their values, which are bits.
template <class Field>
std::string TakeSum(const Names& names, const std::string& value, Field& field) {
    int sum = 0;
    for (const std::string& name : SplitAtCommas(value)) {
        int bit = 0;
        if (std::string error = TakeName(names, name, bit); !error.empty()) {
            return error;
        }
        sum |= bit;
    }
    field = static_cast<Field>(sum);
    return {};
}

/// The name of a value in a table; empty for one that it does not have.
[[nodiscard]] std::string NameOf(const Names& names, int value);

/// Reads yes or no.
template <class Field>
std::string TakeTruth(const std::string& value, Field& field) {
    return TakeName({{"yes", 1}, {"no", 0}}, value, field);
}

/// Reads yes or no into a field of a record, where yes is kTrue.
[[nodiscard]] std::string TakeSwitch(const std::string& value, std::int16_t& field);

/// Reads an integer within bounds.
template <class Field>
std::string TakeWhole(const std::string& value, int lowest, int highest, Field& field) {
    const std::optional<int> number = WholeNumber(value, lowest, highest);
    if (!number) {
        return "'" + value + "' is not a whole number from " + std::to_string(lowest) + " to "
               + std::to_string(highest);
    }
    field = static_cast<Field>(*number);
    return {};
}

/// Reads any number.
[[nodiscard]] std::string TakeNumber(const std::string& value, double& field);

/// Reads a number within bounds.
[[nodiscard]] std::string TakeNumber(const std::string& value, double lowest, double highest,
                                     double& field);

/// Reads a length in millimetres within bounds, with or without "mm" after it.
[[nodiscard]] std::string TakeMillimetres(const std::string& value, double lowest, double highest,
                                          double& field);

/// Whether one of the arguments has a key.
[[nodiscard]] bool IsGiven(const std::vector<Argument>& arguments, std::string_view key);

/// The functions that store the values of a command's keys in its draft. Each returns an error
/// message, or nothing.
template <class Draft>
using Takers = std::map<std::string, std::function<std::string(const std::string&, Draft&)>>;

[[nodiscard]] std::string LackOfValue(const std::string& key);

/// Passes each argument, in order, to the function of its key.
///
/// @param what  the subject of the keys, for messages: "a format"
/// @return empty, or the first error message
template <class Draft>
std::string TakeArguments(const std::vector<Argument>& arguments, const Takers<Draft>& takers,
                          const std::string& what, Draft& draft) {
    std::set<std::string> given;
    for (const Argument& argument : arguments) {
        if (!argument.name.empty() && !given.insert(argument.name).second) {
            return "'" + argument.name + "' is given twice";
        }
        const auto taker = takers.find(argument.name);
        if (argument.name.empty() && takers.contains(argument.value)) {
            return LackOfValue(argument.value);
        }
        if (taker == takers.end()) {
            return "'" + (argument.name.empty() ? argument.value : argument.name)
                   + "' is not a key of " + what + ": " + ListOf(takers);
        }
        const std::string error = taker->second(argument.value, draft);
        if (!error.empty()) {
            return argument.value.empty() ? LackOfValue(argument.name)
                                          : argument.name + ": " + error;
        }
    }
    return {};
}

} // namespace quandrel
