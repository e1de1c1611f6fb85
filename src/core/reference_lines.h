// SPDX-License-Identifier: MIT
//
// Statistics in full precision as lines "name = value", with what the printed statistics have
// beside them.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// One number of a reference.
struct ReferenceLine {
    std::string name;
    std::optional<double> value; ///< angles in degrees; may be infinite; nothing is undetermined
    std::string printed;         ///< what the printed texts have, where its digits are others; each
                                 ///< of several formats, with commas between
};

/// Gathers lines.
class ReferenceLines {
public:
    void Add(std::string_view name, std::optional<double> value);

    /// A value for which the printed text has words.
    void AddBesideWords(std::string_view name, std::optional<double> value,
                        const std::string& words);

    /// @param printed  the number behind the printed text, which rounds by `format`
    void Add(std::string_view name, std::optional<double> value, double printed,
             std::string_view format);

    /// @param value,printed  radians
    void AddAngle(std::string_view name, std::optional<double> value, double printed,
                  std::string_view format);

    /// AddAngle for a direction: one a whole number of periods off is the same.
    void AddDirection(std::string_view name, std::optional<double> value, double printed,
                      std::string_view format, double period);

    /// The lines gathered; the list is empty then.
    [[nodiscard]] std::vector<ReferenceLine> Take();

private:
    std::vector<ReferenceLine> lines_;
};

/// The lines as a text, with " (printed ...)" where the two differ. Lines end in a line feed,
/// values have the shortest digits that read back; an infinite one is
/// "inf".
[[nodiscard]] std::string TextOfReference(const std::vector<ReferenceLine>& lines);

} // namespace quandrel
