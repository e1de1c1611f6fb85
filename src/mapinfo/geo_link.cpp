// SPDX-License-Identifier: MIT

#include "mapinfo/geo_link.h"

#include "core/letter_case.h"
#include "core/plot_store.h"
#include "core/row_links.h"
#include "mapinfo/map_link.h"
#include "stereo/plot_title.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace quandrel {

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
    return PlotOf(slot).attachments.Of<MIGeoLink>() = std::move(link);
}

MIGeoLink* MIGeoLinks::Item(int slot) {
    Plot* const plot = PlotSlots::Find(slot);
    return plot == nullptr ? nullptr : plot->attachments.Find<MIGeoLink>();
}

void MIGeoLinks::Remove(int slot) {
    if (Plot* const plot = PlotSlots::Find(slot)) {
        plot->attachments.Drop<MIGeoLink>();
    }
}

std::map<int, MIGeoLink*> MIGeoLinks::NewEnum() {
    std::map<int, MIGeoLink*> links;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (MIGeoLink* const link = Item(slot)) {
            links[slot] = link;
        }
    }
    return links;
}

int MIGeoLinks::SlotOfTable(std::string_view table) {
    for (const auto& [slot, link] : NewEnum()) {
        if (EqualWithoutCase(link->MITableName, table)) {
            return slot;
        }
    }
    return 0;
}

void FollowRowsOfPlots() {
    RowFollower follower;
    follower.leave = [](int slot, std::span<const std::int32_t> rows) {
        if (MIGeoLink* link = gMIGeoLinks.Item(slot)) {
            link->RemoveGeoRows(rows);
        }
    };
    follower.cut = [](int slot, std::int32_t last) {
        if (MIGeoLink* link = gMIGeoLinks.Item(slot)) {
            link->CutGeoRows(last);
        }
    };
    follower.keep = [](int slot) -> std::shared_ptr<const void> {
        const MIGeoLink* link = gMIGeoLinks.Item(slot);
        return link == nullptr ? nullptr : std::make_shared<const MIGeoLink>(*link);
    };
    follower.putBack = PutLinkBack;
    follower.unlink = RemoveGeoLink;
    follower.linkAgain = LinkAgain;
    follower.linkedTable = [](int slot) {
        const MIGeoLink* link = gMIGeoLinks.Item(slot);
        return link != nullptr ? link->MITableName : std::string();
    };
    ConnectRowFollower(std::move(follower));
}

void RemoveGeoLink(int slot) {
    gMIGeoLinks.Remove(slot);
    if (IsOpenSlot(slot) && RecordOf(slot).MapInfoLinked != 0) {
        RecordOf(slot).MapInfoLinked = 0;
        ShowTitleOf(slot);
    }
}

void RemoveAllGeoLinks() {
    for (const auto& [slot, link] : gMIGeoLinks.NewEnum()) {
        RemoveGeoLink(slot);
    }
}

} // namespace quandrel
