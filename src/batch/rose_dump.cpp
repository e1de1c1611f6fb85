// SPDX-License-Identifier: MIT

#include "batch/rose_dump.h"

#include "rose/petal_tip.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

/// The numbers of a sector, [class], in one layer.
Json ClassesJson(const RoseSectorTable& sectors, int sector, RoseLayer layer) {
    Json classes = Json::array();
    for (int c = 0; c <= sectors.Classes(); ++c) {
        classes.push_back(sectors(sector, c, layer));
    }
    return classes;
}

Json SectorsJson(const Plot& plot) {
    const RoseSectorTable& sectors = RoseOf(plot).sectors;
    Json json = Json::array();
    for (int s = 1; s <= sectors.Sectors(); ++s) {
        json.push_back({{"sector", s},
                        {"azimuths", SectorBoundsText(plot, s)},
                        {"frequency", ClassesJson(sectors, s, kRoseFrequencyLayer)},
                        {"value", ClassesJson(sectors, s, kRoseValueLayer)}});
    }
    return json;
}

Json RadiiJson(const RoseRadiiTable& radii) {
    Json json = Json::array();
    for (int s = 0; s <= radii.Sectors(); ++s) {
        Json row = Json::array();
        for (int c = 0; c <= radii.Classes(); ++c) {
            row.push_back(radii(s, c));
        }
        json.push_back(std::move(row));
    }
    return json;
}

Json WedgesJson(const std::vector<RoseWedge>& wedges) {
    Json json = Json::array();
    for (const RoseWedge& wedge : wedges) {
        json.push_back({{"sector", wedge.sector},
                        {"class", wedge.classNumber},
                        {"layer", wedge.layer},
                        {"mirror", wedge.mirror},
                        {"start", wedge.start},
                        {"end", wedge.end},
                        {"radius", wedge.radius}});
    }
    return json;
}

} // namespace

Json RoseJson(const Plot& plot) {
    const PlotRose& rose = RoseOf(plot);
    if (!rose.isCounted) {
        return nullptr;
    }
    return {{"sectors", SectorsJson(plot)}, {"stats", rose.sectorStats},
            {"trigSums", rose.trigSums},    {"radii", RadiiJson(rose.radii)},
            {"total", rose.total},          {"wedges", WedgesJson(rose.wedges)},
            {"leftOut", rose.leftOut}};
}

} // namespace quandrel
