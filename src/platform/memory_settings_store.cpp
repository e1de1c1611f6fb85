// SPDX-License-Identifier: MIT

#include "platform/memory_settings_store.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace quandrel {

namespace {

std::optional<long> NumberOfKey(const std::string& key) {
    const std::size_t start = key.find_first_not_of(' ');
    long number = 0;
    const char* end = key.data() + key.size();
    if (start == std::string::npos) {
        return std::nullopt;
    }
    const auto parsed = std::from_chars(key.data() + start, end, number);
    return parsed.ec == std::errc() && parsed.ptr == end ? std::optional(number) : std::nullopt;
}

} // namespace

void SortKeys(std::vector<std::string>& keys) {
    std::sort(keys.begin(), keys.end(), [](const std::string& a, const std::string& b) {
        const std::optional<long> x = NumberOfKey(a);
        const std::optional<long> y = NumberOfKey(b);
        if (x && y && *x != *y) {
            return *x < *y;
        }
        return x.has_value() != y.has_value() ? x.has_value() : a < b;
    });
}

bool MemorySettingsStore::Exists(const std::string& application) const {
    const auto found = applications_.find(application);
    return found != applications_.end()
           && std::any_of(found->second.begin(), found->second.end(),
                          [](const auto& section) { return !section.second.empty(); });
}

std::string MemorySettingsStore::Read(const std::string& application, const std::string& section,
                                      const std::string& key,
                                      const std::string& defaultValue) const {
    const auto foundApplication = applications_.find(application);
    if (foundApplication == applications_.end()) {
        return defaultValue;
    }
    const auto foundSection = foundApplication->second.find(section);
    if (foundSection == foundApplication->second.end()) {
        return defaultValue;
    }
    const auto value = foundSection->second.find(key);
    return value == foundSection->second.end() ? defaultValue : value->second;
}

void MemorySettingsStore::Write(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& value) {
    applications_[application][section][key] = value;
}

std::vector<std::string> MemorySettingsStore::Keys(const std::string& application,
                                                   const std::string& section) const {
    std::vector<std::string> keys;
    const auto foundApplication = applications_.find(application);
    if (foundApplication != applications_.end()) {
        const auto foundSection = foundApplication->second.find(section);
        if (foundSection != foundApplication->second.end()) {
            for (const auto& [key, value] : foundSection->second) {
                keys.push_back(key);
            }
        }
    }
    SortKeys(keys);
    return keys;
}

void MemorySettingsStore::Remove(const std::string& application, const std::string& section,
                                 const std::string& key) {
    const auto foundApplication = applications_.find(application);
    if (foundApplication == applications_.end()) {
        return;
    }
    const auto foundSection = foundApplication->second.find(section);
    if (foundSection != foundApplication->second.end()) {
        foundSection->second.erase(key);
    }
}

} // namespace quandrel
