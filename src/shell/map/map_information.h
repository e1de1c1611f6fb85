// SPDX-License-Identifier: MIT
//
// The information window of the map session: the values of the first selected object.

#pragma once

#include "shell/map/map_document.h"

class QTableWidget;

namespace quandrel {

class MapInformation : public MapDocument {
public:
    MapInformation(EmbeddedMapSession& session, std::int64_t id, const MapDocumentSigns& signs);

    void Refresh() override;

private:
    QTableWidget* grdInformation_;
};

} // namespace quandrel
