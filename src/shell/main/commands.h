// SPDX-License-Identifier: MIT
//
// The commands of the main window: one named action for each, shared by its menu item and its
// button.

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
    /// Creates all actions. Actions without a handler are disabled and remain so.
    explicit Commands(QObject* parent);

    /// The action of a name: "mnuFileLoad_0".
    [[nodiscard]] QAction& Of(const QString& name) const;

    /// Sets the handler of a command. A command does nothing while a long loop runs.
    void Connect(const QString& name, const std::function<void()>& work);

    /// Enables or disables a command. A command without a handler is always disabled.
    void Enable(const QString& name, bool enabled);

    /// Same as Enable, for a command that can be checked.
    void Enable(const QString& name, bool enabled, bool down);

    /// Adds to the tips of disabled commands why they are, and removes it from those of others.
    ///
    /// @param reasonOf  the sentence for a command; empty adds nothing
    void Explain(const std::function<QString(const QString& name)>& reasonOf);

Q_SIGNALS:
    /// A command has finished.
    void Done();

private:
    std::map<QString, QAction*> actions_;
    std::set<QString> working_;
    std::map<QString, QString> explained_; ///< tips with a reason, as they were before
};

} // namespace quandrel
