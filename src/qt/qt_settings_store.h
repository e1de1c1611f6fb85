// SPDX-License-Identifier: MIT
//
// Settings in INI files below the user's configuration folder, one file per application.

#pragma once

#include "platform/settings_store.h"

#include <QSettings>

#include <map>
#include <memory>

namespace quandrel {

class QtSettingsStore : public SettingsStore {
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
    [[nodiscard]] bool Sync() override;

private:
    [[nodiscard]] QSettings& File(const std::string& application) const;

    mutable std::map<std::string, std::unique_ptr<QSettings>> files_;
};

} // namespace quandrel
