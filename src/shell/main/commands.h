// SPDX-License-Identifier: MIT
//
// The commands of the main window: one action for each, by its name, shared by the menu item and
// the button that presses it.

#pragma once

#include <QAction>
#include <QObject>
#include <QString>

#include <functional>
#include <map>
#include <set>

namespace quandrel {

class Commands : public QObject {
    Q_OBJECT

public:
    /// Makes all actions. Those without work are disabled, and stay so.
    explicit Commands(QObject* parent);

    /// The action of a name: "mnuFileLoad_0".
    [[nodiscard]] QAction& Of(const QString& name) const;

    /// Gives a command its work. It does nothing while a long loop runs.
    void Connect(const QString& name, const std::function<void()>& work);

    /// Whether a command can be used now. One without work never can.
    void Enable(const QString& name, bool enabled);

    /// As Enable, for a command that is on or off.
    void Enable(const QString& name, bool enabled, bool down);

Q_SIGNALS:
    /// A command has done its work.
    void Done();

private:
    std::map<QString, QAction*> actions_;
    std::set<QString> working_;
};

} // namespace quandrel
