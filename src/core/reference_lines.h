// SPDX-License-Identifier: MIT
//
// Statistics in full precision as lines "name = value", with the printed value beside them where it
// differs.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// One number of a reference.
struct ReferenceLine {
    std::string name;
    std::optional<double> value; ///< angles in degrees; may be infinite; empty is undetermined
    std::string printed;         ///< the printed values where they differ, with commas
};

/// Collects lines.
class ReferenceLines {
public:
    void Add(std::string_view name, std::optional<double> value);

    /// A value that is printed as words.
    void AddBesideWords(std::string_view name, std::optional<double> value,
                        const std::string& words);

    /// @param printed  the number that the printed text rounds by `format`
    void Add(std::string_view name, std::optional<double> value, double printed,
             std::string_view format);

    /// @param value,printed  radians
    void AddAngle(std::string_view name, std::optional<double> value, double printed,
                  std::string_view format);

    /// AddAngle for a direction: angles that differ by a whole number of periods are equal.
    void AddDirection(std::string_view name, std::optional<double> value, double printed,
                      std::string_view format, double period);

    /// Returns the collected lines and clears the list.
    [[nodiscard]] std::vector<ReferenceLine> Take();

private:
    std::vector<ReferenceLine> lines_;
};

/// Formats the lines, with " (printed ...)" where the two differ. Lines end in a line feed. Values
/// have the shortest digits that read back; an infinite one is "inf".
[[nodiscard]] std::string TextOfReference(const std::vector<ReferenceLine>& lines);

} // namespace quandrel
