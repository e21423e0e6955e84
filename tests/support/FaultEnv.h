// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A file system in memory that can lose power. It keeps apart what a program
// has written and what has reached the disk: a file's bytes last only once
// the file is synced, and a name made, moved or removed in a folder lasts
// only once that folder is synced. At a crash every step not yet made to last
// is lost, and an unsynced tail may be kept in part, as a torn write leaves it.
// Only the calls a save and a slide history make see these files; the others
// are MemoryEnv's. A copy is a second machine with the same disk.

#include <map>
#include <memory>
#include <random>
#include <string>

#include "storage/Env.h"

namespace cb::testing {

class FaultEnv : public MemoryEnv {
 public:
  explicit FaultEnv(unsigned seed) : rng_(seed) {}
  FaultEnv(const FaultEnv& other)
      : MemoryEnv(other),
        stepsLeft(other.stepsLeft),
        renameSyncsFolder(other.renameSyncsFolder),
        fileSyncWorks(other.fileSyncWorks),
        rng_(other.rng_),
        made_(other.made_) {
    // A file under two names (made and lasting) stays one file in the copy.
    std::map<const Node*, std::shared_ptr<Node>> copies;
    const auto copy = [&](const std::shared_ptr<Node>& node) {
      auto& made = copies[node.get()];
      if (!made) made = std::make_shared<Node>(*node);
      return made;
    };
    for (const auto& [name, node] : other.names_) names_[name] = copy(node);
    for (const auto& [name, node] : other.durable_) durable_[name] = copy(node);
  }
  FaultEnv& operator=(const FaultEnv&) = delete;

  int stepsLeft = -1;             // the power fails once this many more steps have run; -1 never
  bool renameSyncsFolder = true;  // whether Rename syncs the folder after the move, as the disk's does
  bool fileSyncWorks = true;      // whether Sync of a file reaches the disk

  // Writes `path` and makes it last, as a file that was there before.
  void Lasting(const std::string& path, const std::string& bytes) {
    names_[path] = durable_[path] = std::make_shared<Node>(Node{bytes, bytes, ++made_});
  }

  // Time passes: all that was written reaches the disk, as the system writes it back of its own.
  void Settle() {
    for (auto& [name, node] : names_) node->synced = node->data;
    durable_ = names_;
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
    file = std::make_unique<File>(*this, names_[name] = std::make_shared<Node>(Node{{}, {}, made_}));
    return RtError::None;
  }
  // Emptied in place, as opening for writing does; a new name lasts once its folder is synced.
  RtError NewWritableFile(const std::string& path, unsigned, std::unique_ptr<WritableFile>& file) override {
    if (!Step()) return RtError::DeviceIO;
    auto& node = names_[path];
    if (!node) node = std::make_shared<Node>(Node{{}, {}, ++made_});
    node->data.clear();
    file = std::make_unique<File>(*this, node);
    return RtError::None;
  }
  // A file or a folder with all it holds.
  RtError Rename(const std::string& from, const std::string& to) override {
    if (!Step()) return RtError::DeviceIO;
    if (const auto it = names_.find(from); it != names_.end()) {
      names_[to] = it->second;
      names_.erase(it);
    } else {
      const std::string prefix = from + "/";
      std::map<std::string, std::shared_ptr<Node>> moved;
      for (auto i = names_.lower_bound(prefix); i != names_.end() && i->first.starts_with(prefix);)
        moved[to + i->first.substr(from.size())] = i->second, i = names_.erase(i);
      if (moved.empty()) return RtError::FileNotFound;
      names_.merge(moved);
    }
    if (!renameSyncsFolder) return RtError::None;
    if (!Step()) return RtError::DeviceIO;
    durable_ = names_;
    return RtError::None;
  }
  void Remove(const std::string& path) override {
    if (Step()) names_.erase(path);
  }
  RtError ListDirectory(const std::string& dir, std::vector<DirEntry>& entries) override {
    ListAmong(names_, dir, entries);
    return RtError::None;
  }
  EntryKind KindOf(const std::string& path) override { return KindAmong(names_, path); }
  // Which file the name finds, how often it was written, and its length: what a disk's inode and times tell.
  std::string Stamp(const std::string& path) override {
    const auto it = names_.find(path);
    if (it == names_.end()) return {};
    const Node& n = *it->second;
    return std::to_string(n.serial) + ":" + std::to_string(n.writes) + ":" + std::to_string(n.data.size());
  }

 private:
  struct Node {
    std::string data, synced;
    int serial = 0, writes = 0;
  };

  struct File : WritableFile {
    File(FaultEnv& env, std::shared_ptr<Node> node) : env_(env), node_(std::move(node)) {}
    RtError Append(std::string_view bytes) override {
      if (!env_.Step()) return RtError::DeviceIO;
      node_->data += bytes;
      ++node_->writes;
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
