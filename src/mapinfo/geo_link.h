// SPDX-License-Identifier: MIT
//
// Which row of a plot belongs to which row of a table of the map session.
//
// Rows of plots are point indices, rows of tables the session's numbers; both count from 1. The
// links follow the rows of their plots when some of these go or come back (core/row_links.h,
// edit/rows/edit_rows.h).

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

    /// Links two rows. Where one of them is linked already, nothing changes.
    void AddRow(std::int32_t geoRow, std::int32_t miRow);

    /// How many rows are linked.
    [[nodiscard]] std::size_t RowCount() const { return geoRows_.size(); }

    void ClearRows();

    /// Plot rows have gone, ascending; those behind each have moved up. O(rows linked).
    void RemoveGeoRows(std::span<const std::int32_t> rows);

    /// The plot rows behind `last` have gone. O(rows linked).
    void CutGeoRows(std::int32_t last);

    std::string MITableName;
    int IDfIndex = 0; ///< the column that numbers the rows of the table, 0 for their own numbers

private:
    template <class Rule>
    void Renumber(const Rule& rule);

    std::unordered_map<std::int32_t, std::int32_t> geoRows_; ///< by table row
    std::unordered_map<std::int32_t, std::int32_t> miRows_;  ///< by plot row
};

/// The links of all plots; a plot has one at most.
class MIGeoLinks {
public:
    /// Gives a plot a link, in the place of a former one.
    MIGeoLink& Add(int slot, MIGeoLink link);

    /// The link of a plot, or nullptr.
    [[nodiscard]] MIGeoLink* Item(int slot);

    [[nodiscard]] std::size_t Count() const { return links_.size(); }

    void Remove(int slot);

    /// All links by their slots, in the order of these.
    [[nodiscard]] const std::map<int, MIGeoLink>& NewEnum() const { return links_; }

    /// The first slot of a plot that is linked to a table, by its name in any case; 0 for none.
    [[nodiscard]] int SlotOfTable(std::string_view table) const;

private:
    std::map<int, MIGeoLink> links_;
};

extern MIGeoLinks gMIGeoLinks;

/// From now on the links follow the rows of their plots, and go with them. Called at start.
void FollowRowsOfPlots();

/// Takes the link of a plot away, with its mark in the plot and in the plot's caption.
void RemoveGeoLink(int slot);

/// Takes all links away.
void RemoveAllGeoLinks();

} // namespace quandrel
