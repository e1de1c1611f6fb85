// SPDX-License-Identifier: MIT
//
// Which layers of a map can be seen, and which are found by tools.

#pragma once

#include "mapsession/session_state.h"

#include <QDialog>

#include <vector>

class QTableWidget;

namespace quandrel {

class frmLayerControl : public QDialog {
public:
    /// @param layers  the topmost first, as the list shows them
    frmLayerControl(const std::vector<SessionLayer>& layers, QWidget* parent);

    /// The layers as the user wants them.
    [[nodiscard]] std::vector<SessionLayer> Layers() const;

private:
    std::vector<SessionLayer> layers_;
    QTableWidget* grdLayers_;
};

} // namespace quandrel
