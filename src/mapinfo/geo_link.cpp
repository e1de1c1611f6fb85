// SPDX-License-Identifier: MIT

#include "mapinfo/geo_link.h"

#include "core/letter_case.h"
#include "core/plot_store.h"
#include "core/row_links.h"
#include "edit/rows/add_point.h"
#include "edit/rows/edit_rows.h"
#include "mapinfo/map_link.h"
#include "stereo/plot_title.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace quandrel {

MIGeoLinks gMIGeoLinks;

namespace {

/// The value of a key, if it is there.
bool Look(const std::unordered_map<std::int32_t, std::int32_t>& rows, std::int32_t key,
          std::int32_t& value) {
    const auto found = rows.find(key);
    if (found == rows.end()) {
        return false;
    }
    value = found->second;
    return true;
}

void PutLinkBack(int slot, const std::shared_ptr<const void>& kept) {
    // A link that has ended meanwhile does not return, nor do rows of another table.
    MIGeoLink* link = gMIGeoLinks.Item(slot);
    const auto* former = static_cast<const MIGeoLink*>(kept.get());
    if (link == nullptr) {
        return;
    }
    if (former == nullptr || former->MITableName != link->MITableName) {
        link->CutGeoRows(RecordOf(slot).NumLoadedData);
        return;
    }
    *link = *former;
    link->CutGeoRows(RecordOf(slot).NumLoadedData);
}

/// Updates the caption of a plot, whichever plot is active.
void ShowTitleOf(int slot) {
    const std::int32_t formerPlot = std::exchange(gActivePlot, slot);
    UpdateTitle();
    gActivePlot = formerPlot;
}

/// A session that has ended meanwhile has removed all links.
void LinkAgain(int slot, const std::shared_ptr<const void>& kept) {
    if (kept == nullptr || !IsMapInfoLinked() || gMIGeoLinks.Item(slot) != nullptr) {
        return;
    }
    MIGeoLink& link = gMIGeoLinks.Add(slot, *static_cast<const MIGeoLink*>(kept.get()));
    link.CutGeoRows(RecordOf(slot).NumLoadedData);
    RecordOf(slot).MapInfoLinked = kTrue;
    ShowTitleOf(slot);
}

} // namespace

bool MIGeoLink::GetGeoRow(std::int32_t miRow, std::int32_t& geoRow) const {
    return Look(geoRows_, miRow, geoRow);
}

bool MIGeoLink::GetMIRow(std::int32_t geoRow, std::int32_t& miRow) const {
    return Look(miRows_, geoRow, miRow);
}

void MIGeoLink::AddRow(std::int32_t geoRow, std::int32_t miRow) {
    if (!geoRows_.contains(miRow) && !miRows_.contains(geoRow)) {
        geoRows_[miRow] = geoRow;
        miRows_[geoRow] = miRow;
    }
}

void MIGeoLink::ClearRows() {
    geoRows_ = {};
    miRows_ = {};
}

template <class Rule>
void MIGeoLink::Renumber(const Rule& rule) {
    const auto former = std::exchange(miRows_, {});
    geoRows_ = {};
    for (const auto& [geoRow, miRow] : former) {
        if (const std::int32_t row = rule(geoRow); row > 0) {
            AddRow(row, miRow);
        }
    }
}

void MIGeoLink::RemoveGeoRows(std::span<const std::int32_t> rows) {
    Renumber([rows](std::int32_t row) {
        const auto place = std::lower_bound(rows.begin(), rows.end(), row);
        const bool isGone = place != rows.end() && *place == row;
        return isGone ? 0 : row - static_cast<std::int32_t>(place - rows.begin());
    });
}

void MIGeoLink::CutGeoRows(std::int32_t last) {
    Renumber([last](std::int32_t row) { return row <= last ? row : 0; });
}

MIGeoLink& MIGeoLinks::Add(int slot, MIGeoLink link) {
    return links_[slot] = std::move(link);
}

MIGeoLink* MIGeoLinks::Item(int slot) {
    const auto found = links_.find(slot);
    return found == links_.end() ? nullptr : &found->second;
}

void MIGeoLinks::Remove(int slot) {
    links_.erase(slot);
}

int MIGeoLinks::SlotOfTable(std::string_view table) const {
    const auto found = std::find_if(links_.begin(), links_.end(), [table](const auto& held) {
        return EqualWithoutCase(held.second.MITableName, table);
    });
    return found == links_.end() ? 0 : found->first;
}

void FollowRowsOfPlots() {
    gLinkedTable = [](int slot) {
        const MIGeoLink* link = gMIGeoLinks.Item(slot);
        return link != nullptr ? link->MITableName : std::string();
    };
    gRowsLeaveLink = [](std::int32_t slot, std::span<const std::int32_t> rows) {
        if (MIGeoLink* link = gMIGeoLinks.Item(slot)) {
            link->RemoveGeoRows(rows);
        }
    };
    gRowFollower.cut = [](int slot, std::int32_t last) {
        if (MIGeoLink* link = gMIGeoLinks.Item(slot)) {
            link->CutGeoRows(last);
        }
    };
    gRowFollower.keep = [](int slot) -> std::shared_ptr<const void> {
        const MIGeoLink* link = gMIGeoLinks.Item(slot);
        return link == nullptr ? nullptr : std::make_shared<const MIGeoLink>(*link);
    };
    gRowFollower.putBack = PutLinkBack;
    gRowFollower.linkAgain = LinkAgain;
    gRowFollower.closed = [](int slot) { gMIGeoLinks.Remove(slot); };
    gRemoveGeoLink = [](std::int32_t slot) { RemoveGeoLink(slot); };
}

void RemoveGeoLink(int slot) {
    gMIGeoLinks.Remove(slot);
    if (IsOpenSlot(slot) && RecordOf(slot).MapInfoLinked != 0) {
        RecordOf(slot).MapInfoLinked = 0;
        ShowTitleOf(slot);
    }
}

void RemoveAllGeoLinks() {
    while (gMIGeoLinks.Count() > 0) {
        RemoveGeoLink(gMIGeoLinks.NewEnum().begin()->first);
    }
}

} // namespace quandrel
