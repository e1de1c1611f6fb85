// SPDX-License-Identifier: MIT
//
// Sessions of the map program that is installed on a Windows machine, driven by automation. Built
// only on Windows.
//
// Input: statements and expressions through the port platform/map_session.
// Output: the answers of that program, and its callbacks; a session that dies is an error, never an
// exception.

#pragma once

#include "platform/map_session.h"

#include <memory>

namespace quandrel {

/// All calls must come from the thread that made this object, which is the GUI thread.
class AutomationSessions : public MapSessions {
public:
    AutomationSessions();
    ~AutomationSessions() override;

    AutomationSessions(const AutomationSessions&) = delete;
    AutomationSessions& operator=(const AutomationSessions&) = delete;

    [[nodiscard]] std::unique_ptr<MapSession> FindRunning() override;
    [[nodiscard]] std::unique_ptr<MapSession> Start() override;
    [[nodiscard]] bool IsRegistered() override;

private:
    bool initialised_;
};

} // namespace quandrel
