// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The per-user key-value store of the program's two settings, addressed by
// section and key. The program uses QSettings; tests use MemorySettings.

#include <map>
#include <string>
#include <utility>

namespace cb {

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // The stored value, or `fallback` when the key is missing.
  virtual std::string Get(const std::string& section, const std::string& key, const std::string& fallback) const = 0;
  // Returns false when the store could not take the value.
  virtual bool Put(const std::string& section, const std::string& key, const std::string& value) = 0;
};

class MemorySettings final : public SettingsStore {
 public:
  std::string Get(const std::string& section, const std::string& key, const std::string& fallback) const override {
    const auto it = values_.find({section, key});
    return it == values_.end() ? fallback : it->second;
  }
  bool Put(const std::string& section, const std::string& key, const std::string& value) override {
    values_[{section, key}] = value;
    return true;
  }
  bool Has(const std::string& section, const std::string& key) const { return values_.contains({section, key}); }

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

}  // namespace cb
