// SPDX-License-Identifier: MIT
//
// A table of data on its way into a file.

#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

struct WrittenTable {
    struct Column {
        std::string heading; ///< unique, whatever its case
        bool isNumber = true;
    };

    using Place = std::array<double, 2>; ///< x, y

    std::string name; ///< of the sheet or layer
    std::vector<Column> columns;

    /// A cell for each column; numbers have a decimal point. Empty cells are missing values.
    std::vector<std::vector<std::string>> rows;

    /// Of each row, on the map; empty where no row has one.
    std::vector<std::optional<Place>> places;
};

} // namespace quandrel
