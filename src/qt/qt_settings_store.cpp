// SPDX-License-Identifier: MIT

#include "qt/qt_settings_store.h"

#include "platform/memory_settings_store.h"

#include <QStringList>
#include <QVariant>

namespace quandrel {

namespace {

QString PathOf(const std::string& section, const std::string& key) {
    return QString::fromStdString(section) + QLatin1Char('/') + QString::fromStdString(key);
}

/// A text with commas that was typed into the file by hand is returned as a list of its parts.
std::string TextOfVariant(const QVariant& value) {
    if (value.typeId() == QMetaType::QStringList) {
        return value.toStringList().join(QLatin1String(", ")).toStdString();
    }
    return value.toString().toStdString();
}

} // namespace

QSettings& QtSettingsStore::File(const std::string& application) const {
    std::unique_ptr<QSettings>& file = files_[application];
    if (file == nullptr) {
        file = std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                           QStringLiteral("quandrel"),
                                           QString::fromStdString(application));
        // Only this file counts, not settings of an administrator or another program.
        file->setFallbacksEnabled(false);
    }
    return *file;
}

bool QtSettingsStore::Exists(const std::string& application) const {
    return !File(application).allKeys().isEmpty();
}

std::string QtSettingsStore::Read(const std::string& application, const std::string& section,
                                  const std::string& key, const std::string& defaultValue) const {
    const QVariant value = File(application).value(PathOf(section, key));
    return value.isValid() ? TextOfVariant(value) : defaultValue;
}

void QtSettingsStore::Write(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& value) {
    File(application).setValue(PathOf(section, key), QString::fromStdString(value));
}

std::vector<std::string> QtSettingsStore::Keys(const std::string& application,
                                               const std::string& section) const {
    QSettings& file = File(application);
    file.beginGroup(QString::fromStdString(section));
    std::vector<std::string> keys;
    for (const QString& key : file.childKeys()) {
        keys.push_back(key.toStdString());
    }
    file.endGroup();
    SortKeys(keys);
    return keys;
}

void QtSettingsStore::Remove(const std::string& application, const std::string& section,
                             const std::string& key) {
    File(application).remove(PathOf(section, key));
}

bool QtSettingsStore::Sync() {
    bool written = true;
    for (const auto& [application, file] : files_) {
        file->sync();
        written = written && file->status() == QSettings::NoError;
    }
    return written;
}

} // namespace quandrel
