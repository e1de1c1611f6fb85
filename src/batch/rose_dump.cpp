// SPDX-License-Identifier: MIT

#include "batch/rose_dump.h"

#include "core/plot_store.h"
#include "rose/petal_tip.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

/// Numbers of a sector, [class], of one layer.
Json ClassesJson(int sector, RoseLayer layer) {
    Json classes = Json::array();
    for (int c = 0; c <= gRoseSectors->Classes(); ++c) {
        classes.push_back(gRoseSectors(sector, c, layer));
    }
    return classes;
}

Json SectorsJson() {
    Json sectors = Json::array();
    for (int s = 1; s <= gRoseSectors->Sectors(); ++s) {
        sectors.push_back({{"sector", s},
                           {"azimuths", SectorBoundsText(s)},
                           {"frequency", ClassesJson(s, kRoseFrequencyLayer)},
                           {"value", ClassesJson(s, kRoseValueLayer)}});
    }
    return sectors;
}

Json RadiiJson() {
    Json radii = Json::array();
    for (int s = 0; s <= gRoseRadii->Sectors(); ++s) {
        Json row = Json::array();
        for (int c = 0; c <= gRoseRadii->Classes(); ++c) {
            row.push_back(gRoseRadii(s, c));
        }
        radii.push_back(std::move(row));
    }
    return radii;
}

Json WedgesJson() {
    Json wedges = Json::array();
    for (const RoseWedge& wedge : ActiveRose().wedges) {
        wedges.push_back({{"sector", wedge.sector},
                          {"class", wedge.classNumber},
                          {"layer", wedge.layer},
                          {"mirror", wedge.mirror},
                          {"start", wedge.start},
                          {"end", wedge.end},
                          {"radius", wedge.radius}});
    }
    return wedges;
}

} // namespace

Json RoseJson() {
    const PlotRose& rose = ActiveRose();
    if (!rose.isCounted) {
        return nullptr;
    }
    return {{"sectors", SectorsJson()}, {"stats", rose.sectorStats}, {"trigSums", rose.trigSums},
            {"radii", RadiiJson()},     {"total", rose.total},       {"wedges", WedgesJson()},
            {"leftOut", rose.leftOut}};
}

} // namespace quandrel
