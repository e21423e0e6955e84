// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/QtSettingsStore.h"

#include "qt/Twips.h"

namespace cb {
namespace {
QString KeyOf(const std::string& section, const std::string& key) {
  return QString::fromStdString(section) + '/' + QString::fromStdString(key);
}
}  // namespace

QtSettingsStore::QtSettingsStore() : settings_(QSettings::IniFormat, QSettings::UserScope, "Chattelbook", "Chattelbook") {}

std::string QtSettingsStore::Get(const std::string& section, const std::string& key, const std::string& fallback) const {
  const QVariant v = settings_.value(KeyOf(section, key));
  return v.isValid() ? PathFromQ(v.toString()) : fallback;
}

bool QtSettingsStore::Put(const std::string& section, const std::string& key, const std::string& value) {
  settings_.setValue(KeyOf(section, key), PathToQ(value));
  settings_.sync();
  return settings_.status() == QSettings::NoError;
}

}  // namespace cb
