// SPDX-License-Identifier: MIT
//
// Which layers of a map are visible, and which are selectable by tools.

#pragma once

#include "mapsession/session_state.h"

#include <QDialog>

#include <vector>

class QTableWidget;

namespace quandrel {

class frmLayerControl : public QDialog {
public:
    /// @param layers  the topmost layer first, as in the list
    frmLayerControl(const std::vector<SessionLayer>& layers, QWidget* parent);

    /// The layers with the user's changes.
    [[nodiscard]] std::vector<SessionLayer> Layers() const;

private:
    std::vector<SessionLayer> layers_;
    QTableWidget* grdLayers_;
};

} // namespace quandrel
