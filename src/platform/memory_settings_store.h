// SPDX-License-Identifier: MIT
//
// Settings that last as long as the object: for tests, and for scripts.

#pragma once

#include "platform/settings_store.h"

#include <map>

namespace quandrel {

class MemorySettingsStore : public SettingsStore {
public:
    [[nodiscard]] bool Exists(const std::string& application) const override;
    [[nodiscard]] std::string Read(const std::string& application, const std::string& section,
                                   const std::string& key,
                                   const std::string& defaultValue) const override;
    void Write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) override;
    [[nodiscard]] std::vector<std::string> Keys(const std::string& application,
                                                const std::string& section) const override;
    void Remove(const std::string& application, const std::string& section,
                const std::string& key) override;

    [[nodiscard]] bool Sync() override { return true; }

private:
    using Section = std::map<std::string, std::string>;
    std::map<std::string, std::map<std::string, Section>> applications_;
};

/// Sorts keys: numbers first, by value, then all others as texts.
void SortKeys(std::vector<std::string>& keys);

} // namespace quandrel
