// SPDX-License-Identifier: MIT

#include "shell/map/map_document.h"

#include "mapinfo/map_commands.h"
#include "mapinfo/map_windows.h"

namespace quandrel {

MapDocument::MapDocument(EmbeddedMapSession& session, std::int64_t id,
                         const MapDocumentSigns& signs)
    : session_(&session)
    , id_(id)
    , signs_(signs) {}

void MapDocument::Leave() {
    session_ = nullptr;
}

SessionWindow* MapDocument::Window() const {
    return session_ != nullptr ? FindSessionWindow(session_->State(), id_) : nullptr;
}

void MapDocument::BringToFront() {
    if (Window() == nullptr || session_->State().frontWindowId == id_) {
        return;
    }
    session_->ActivateWindow(id_);
    CheckMICaptions();
    UpdateMIMenus();
}

void MapDocument::TellDone() const {
    if (signs_.done) {
        signs_.done();
    }
}

} // namespace quandrel
