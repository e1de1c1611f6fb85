// SPDX-License-Identifier: MIT
//
// Writes copies of unsaved plots: at regular intervals, and after long operations, when the event
// loop is idle.

#pragma once

#include "recovery/recovery.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <vector>

namespace quandrel {

class GeolPlotMain;

struct RecoveryPace {
    std::chrono::milliseconds interval = std::chrono::minutes(2); ///< between two rounds
    std::chrono::milliseconds longWork =
        std::chrono::seconds(1); ///< the shortest operation that starts a round
};

/// The folder of all sessions, "quandrel/recovery" in the user's state folder.
[[nodiscard]] std::filesystem::path RecoveryFolder();

/// Maintains the copies during its lifetime, which is that of the session.
class RecoveryTimer : public QObject {
public:
    /// Requires that the engine and its windows exist; they outlive this object.
    RecoveryTimer(GeolPlotMain& window, std::filesystem::path root, RecoveryPace pace = {});

    /// Asks about plots of earlier sessions, if there are any.
    void Offer();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void OnIdle();
    void WriteNext();

    GeolPlotMain& window_;
    RecoverySession session_;
    RecoveryPace pace_;
    QTimer period_;
    QTimer idle_; ///< fires when all events are processed
    QElapsedTimer work_;
    bool roundDue_ = false;
    std::vector<int> toWrite_;
};

} // namespace quandrel
