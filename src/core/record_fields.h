// SPDX-License-Identifier: MIT
//
// Building blocks for the parts of a record. A part is a plain struct in its own header,
// record_*.h, that ends in QUANDREL_FIELDS; PlotRecord (plot_record.h) joins them.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

namespace quandrel {

template <class T, std::size_t Rows, std::size_t Columns>
using Table = std::array<std::array<T, Columns>, Rows>;

/// A 16-bit truth value, as in files.
inline constexpr std::int16_t kTrue = -1;

inline constexpr double kUnsetValue = -999999999999999.0; ///< of class widths and grid sums

/// Splits a text of names that are separated by a comma and a blank.
[[nodiscard]] inline std::vector<std::string> FieldNamesIn(std::string_view list) {
    constexpr std::string_view kBetween = ", ";
    std::vector<std::string> names;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = list.find(kBetween);
        names.emplace_back(list.substr(0, end));
        list.remove_prefix(end == std::string_view::npos ? list.size() : end + kBetween.size());
    }
    return names;
}

/// Calls `visit(name, field)` for the fields of a part, in the order of its QUANDREL_FIELDS.
template <class Part, class Visitor>
void VisitFieldsOf(Part& part, Visitor& visit) {
    static const std::vector<std::string> names = FieldNamesIn(Part::kFieldNames);
    std::size_t place = 0;
    std::apply([&](auto&... fields) { (visit(names[place++].c_str(), fields), ...); },
               part.Fields());
}

/// Calls `visit(field)` for the further fields of a part; none without QUANDREL_FURTHER_FIELDS.
template <class Part, class Visitor>
void VisitFurtherFieldsOf(const Part& part, Visitor& visit) {
    if constexpr (requires { part.FurtherFields(); }) {
        std::apply([&](const auto&... fields) { (visit(fields), ...); }, part.FurtherFields());
    }
}

/// Parts joined into one record, whose fields are those of all parts.
template <class... Parts>
struct JoinedRecord : Parts... {
    /// Calls `visit(const char* name, field)` for each field that a part names, in the order of the
    /// parts. `Record` is derived from this, const or not.
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor& visit) {
        if constexpr (std::is_const_v<Record>) {
            (VisitFieldsOf(static_cast<const Parts&>(record), visit), ...);
        } else {
            (VisitFieldsOf(static_cast<Parts&>(record), visit), ...);
        }
    }

    /// Calls `visit(field)` for the further fields of each part.
    template <class Visitor>
    static void VisitFurther(const JoinedRecord& record, Visitor& visit) {
        (VisitFurtherFieldsOf(static_cast<const Parts&>(record), visit), ...);
    }
};

} // namespace quandrel

/// The fields of a part that scripts and dumps know by name, in the order of dumps.
/// QUANDREL_FURTHER_FIELDS names the others that files keep, such as annotations.
#define QUANDREL_FIELDS(...)                                                                       \
    [[nodiscard]] auto Fields() {                                                                  \
        return std::tie(__VA_ARGS__);                                                              \
    }                                                                                              \
    [[nodiscard]] auto Fields() const {                                                            \
        return std::tie(__VA_ARGS__);                                                              \
    }                                                                                              \
    static constexpr std::string_view kFieldNames = #__VA_ARGS__

/// The fields of a part that files keep, but that scripts and dumps do not know by name, because
/// they are lists or point to their value.
#define QUANDREL_FURTHER_FIELDS(...)                                                               \
    [[nodiscard]] auto FurtherFields() const {                                                     \
        return std::tie(__VA_ARGS__);                                                              \
    }                                                                                              \
    static_assert(true)
