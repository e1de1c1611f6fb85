// SPDX-License-Identifier: MIT
//
// Texts kept from run to run: two levels, section and key, below the name of an application.

#pragma once

#include <string>
#include <vector>

namespace quandrel {

class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// True when the store holds at least one key of that application.
    [[nodiscard]] virtual bool Exists(const std::string& application) const = 0;

    /// The value of a key, or the default when the key does not exist.
    [[nodiscard]] virtual std::string Read(const std::string& application,
                                           const std::string& section, const std::string& key,
                                           const std::string& defaultValue) const = 0;

    virtual void Write(const std::string& application, const std::string& section,
                       const std::string& key, const std::string& value) = 0;

    /// All keys of a section: numbers first, by value, then other keys in text order.
    [[nodiscard]] virtual std::vector<std::string> Keys(const std::string& application,
                                                        const std::string& section) const = 0;

    virtual void Remove(const std::string& application, const std::string& section,
                        const std::string& key) = 0;

    /// Writes pending changes to the disk. False when that failed.
    [[nodiscard]] virtual bool Sync() = 0;
};

} // namespace quandrel
