// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The settings store of the program: QSettings under the program's title.
// Both settings are paths, kept in the file system's own encoding.

#include <QSettings>

#include "state/SettingsStore.h"

namespace cb {

class QtSettingsStore final : public SettingsStore {
 public:
  QtSettingsStore();
  std::string Get(const std::string& section, const std::string& key, const std::string& fallback) const override;
  bool Put(const std::string& section, const std::string& key, const std::string& value) override;

 private:
  mutable QSettings settings_;
};

}  // namespace cb
