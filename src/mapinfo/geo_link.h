// SPDX-License-Identifier: MIT
//
// The correspondence between rows of a plot and rows of a table of the map session.
//
// Rows of plots are point indices, rows of tables the session's numbers; both count from 1. The
// links follow the rows of their plots when rows are removed or restored (core/row_links.h).

#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quandrel {

/// The link between one table and one plot.
class MIGeoLink {
public:
    std::vector<int> DataColumns; ///< the columns of the table that were read, ascending

    /// The plot row of a table row. Does nothing for a row that is not linked.
    /// @return false for such a row
    bool GetGeoRow(std::int32_t miRow, std::int32_t& geoRow) const;

    /// The table row of a plot row; as GetGeoRow.
    bool GetMIRow(std::int32_t geoRow, std::int32_t& miRow) const;

    /// Links two rows. Nothing changes when one of them is linked already.
    void AddRow(std::int32_t geoRow, std::int32_t miRow);

    /// Number of linked rows.
    [[nodiscard]] std::size_t RowCount() const { return geoRows_.size(); }

    void ClearRows();

    /// Removes plot rows, in ascending order; later rows move up. O(rows linked).
    void RemoveGeoRows(std::span<const std::int32_t> rows);

    /// Removes all plot rows after `last`. O(rows linked).
    void CutGeoRows(std::int32_t last);

    std::string MITableName;
    int IDfIndex = 0; ///< the column that numbers the rows of the table, 0 for their own numbers

private:
    template <class Rule>
    void Renumber(const Rule& rule);

    std::unordered_map<std::int32_t, std::int32_t> geoRows_; ///< by table row
    std::unordered_map<std::int32_t, std::int32_t> miRows_;  ///< by plot row
};

/// The links of all plots, at most one for each, attached to the plot.
class MIGeoLinks {
public:
    /// Gives a plot a link, replacing an existing one.
    static MIGeoLink& Add(int slot, MIGeoLink link);

    /// The link of a plot, or nullptr.
    [[nodiscard]] static MIGeoLink* Item(int slot);

    [[nodiscard]] static std::size_t Count() { return NewEnum().size(); }

    static void Remove(int slot);

    /// All links, in the order of their slots.
    [[nodiscard]] static std::map<int, MIGeoLink*> NewEnum();

    /// The first slot of a plot that is linked to a table, by its name in any case; 0 when there is
    /// none.
    [[nodiscard]] static int SlotOfTable(std::string_view table);
};

/// Makes links follow the rows of their plots. Called at start.
void FollowRowsOfPlots();

/// Removes the link of a plot, with its mark in the plot and in the plot's caption.
void RemoveGeoLink(int slot);

/// Removes all links.
void RemoveAllGeoLinks();

} // namespace quandrel
