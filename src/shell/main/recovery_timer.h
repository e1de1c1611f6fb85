// SPDX-License-Identifier: MIT
//
// When copies of unsaved plots are written: from time to time, and after long work of the user's,
// in moments when the event loop has nothing else to do.

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
    std::chrono::milliseconds longWork = std::chrono::seconds(1); ///< what is worth a round at once
};

/// The folder of all sessions, "quandrel/recovery" in the user's folder of states.
[[nodiscard]] std::filesystem::path RecoveryFolder();

/// Keeps the copies for the length of its life, which is that of the session.
class RecoveryTimer : public QObject {
public:
    /// The engine and its windows must be there, and outlive this.
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
    QTimer idle_; ///< runs out once all events are done
    QElapsedTimer work_;
    bool roundDue_ = false;
    std::vector<int> toWrite_;
};

} // namespace quandrel
