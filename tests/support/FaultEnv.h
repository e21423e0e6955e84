// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A file system in memory that can lose power. It keeps apart what a program
// has written and what has reached the disk: a file's bytes last only once
// the file is synced, and a name made, moved or removed in a folder lasts
// only once that folder is synced. At a crash every step not yet made to last
// is lost, and an unsynced tail may be kept in part, as a torn write leaves it.
// Only the calls a save makes see these files; the others are MemoryEnv's.

#include <map>
#include <memory>
#include <random>
#include <string>

#include "storage/Env.h"

namespace cb::testing {

class FaultEnv : public MemoryEnv {
 public:
  explicit FaultEnv(unsigned seed) : rng_(seed) {}

  int stepsLeft = -1;             // the power fails once this many more steps have run; -1 never
  bool renameSyncsFolder = true;  // whether Rename syncs the folder after the move, as the disk's does
  bool fileSyncWorks = true;      // whether Sync of a file reaches the disk

  // Writes `path` and makes it last, as a file that was there before.
  void Lasting(const std::string& path, const std::string& bytes) {
    names_[path] = durable_[path] = std::make_shared<Node>(Node{bytes, bytes});
  }

  // Power comes back: the names of the last folder sync, each file cut to
  // what was synced plus some of what was not, and the steps run again.
  void Restart() {
    names_ = durable_;
    for (auto& [name, node] : names_) {
      const std::size_t kept =
          node->synced.size() < node->data.size() && node->data.starts_with(node->synced)
              ? std::uniform_int_distribution<std::size_t>(node->synced.size(), node->data.size())(rng_)
              : node->synced.size();
      node->data = node->synced = node->data.substr(0, kept);
    }
    stepsLeft = -1;
  }

  RtError ReadWhole(const std::string& path, std::string& bytes) override {
    const auto it = names_.find(path);
    if (it == names_.end()) return RtError::FileNotFound;
    bytes = it->second->data;
    return RtError::None;
  }
  RtError NewFileBeside(const std::string& target, unsigned, std::string& name,
                        std::unique_ptr<WritableFile>& file) override {
    if (!Step()) return RtError::DeviceIO;
    name = target + ".new" + std::to_string(++made_);
    file = std::make_unique<File>(*this, names_[name] = std::make_shared<Node>());
    return RtError::None;
  }
  RtError Rename(const std::string& from, const std::string& to) override {
    if (!Step()) return RtError::DeviceIO;
    const auto it = names_.find(from);
    if (it == names_.end()) return RtError::FileNotFound;
    names_[to] = it->second;
    names_.erase(from);
    if (!renameSyncsFolder) return RtError::None;
    if (!Step()) return RtError::DeviceIO;
    durable_ = names_;
    return RtError::None;
  }
  void Remove(const std::string& path) override {
    if (Step()) names_.erase(path);
  }

 private:
  struct Node {
    std::string data, synced;
  };

  struct File : WritableFile {
    File(FaultEnv& env, std::shared_ptr<Node> node) : env_(env), node_(std::move(node)) {}
    RtError Append(std::string_view bytes) override {
      if (!env_.Step()) return RtError::DeviceIO;
      node_->data += bytes;
      return RtError::None;
    }
    RtError Sync() override {
      if (!env_.Step()) return RtError::DeviceIO;
      if (env_.fileSyncWorks) node_->synced = node_->data;
      return RtError::None;
    }
    RtError Close() override { return env_.Step() ? RtError::None : RtError::DeviceIO; }
    FaultEnv& env_;
    std::shared_ptr<Node> node_;
  };

  // Counts a step; false once the power has failed.
  bool Step() {
    if (stepsLeft == 0) return false;
    if (stepsLeft > 0) --stepsLeft;
    return true;
  }

  std::mt19937 rng_;
  std::map<std::string, std::shared_ptr<Node>> names_, durable_;
  int made_ = 0;
};

}  // namespace cb::testing
