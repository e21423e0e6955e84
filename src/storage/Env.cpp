// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/Env.h"

#include <algorithm>

namespace cb {
namespace {

class MemoryFile final : public RecordFile {
 public:
  MemoryFile(std::string& bytes, std::size_t length) : bytes_(bytes), length_(length) {}

  RtError Get(long n, std::span<char> record) override {
    if (n < 1) {
      std::fill(record.begin(), record.end(), '\0');
      return RtError::BadFileNameOrNumber;
    }
    const std::size_t at = static_cast<std::size_t>(n - 1) * length_;
    const std::size_t count = at >= bytes_.size() ? 0 : std::min(record.size(), bytes_.size() - at);
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(std::min(at, bytes_.size())), count, record.begin());
    // Past the end the record reads as NUL.
    std::fill(record.begin() + static_cast<std::ptrdiff_t>(count), record.end(), '\0');
    return RtError::None;
  }

  RtError Put(long n, std::span<const char> record) override {
    if (n < 1) return RtError::BadFileNameOrNumber;
    const std::size_t at = static_cast<std::size_t>(n - 1) * length_;
    if (bytes_.size() < at + record.size()) bytes_.resize(at + record.size(), '\0');
    std::copy(record.begin(), record.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(at));
    return RtError::None;
  }

  long long Size() override { return static_cast<long long>(bytes_.size()); }

 private:
  std::string& bytes_;
  std::size_t length_;
};

}  // namespace

std::unique_ptr<RecordFile> RecordsOver(std::string& bytes, std::size_t recordLength) {
  return std::make_unique<MemoryFile>(bytes, recordLength);
}

// What a failed step leaves: the old file as it was, and no new file beside it.
RtError ReplaceFile(Env& env, const std::string& path, std::string_view bytes, unsigned newMode) {
  const std::string target = env.ResolveLinks(path);
  std::string temp;
  std::unique_ptr<WritableFile> file;
  if (auto e = env.NewFileBeside(target, newMode, temp, file); e != RtError::None) return e;
  RtError e = file->Append(bytes);
  if (e == RtError::None) e = file->Sync();
  if (const RtError closed = file->Close(); e == RtError::None) e = closed;
  if (e == RtError::None) e = env.Rename(temp, target);
  if (e != RtError::None) env.Remove(temp);
  return e;
}

std::string ReadOnlyFolderText(const std::string& path) {
  return "cannot save beside " + path + ": the folder is read-only";
}

RtError MemoryEnv::OpenRecords(const std::string& path, std::size_t recordLength, OpenMode mode,
                               std::unique_ptr<RecordFile>& file) {
  auto it = files_.find(path);
  if (it == files_.end()) {
    if (mode == OpenMode::Read) return RtError::FileNotFound;
    it = files_.emplace(path, std::string()).first;
  }
  file = std::make_unique<MemoryFile>(it->second, recordLength);
  return RtError::None;
}

RtError MemoryEnv::ReadWhole(const std::string& path, std::string& bytes) {
  const auto it = files_.find(path);
  if (it == files_.end()) return RtError::FileNotFound;
  bytes = it->second;
  return RtError::None;
}

namespace {

class MemoryWritable final : public WritableFile {
 public:
  explicit MemoryWritable(std::string& bytes) : bytes_(bytes) {}
  RtError Append(std::string_view bytes) override {
    bytes_ += bytes;
    return RtError::None;
  }
  RtError Sync() override { return RtError::None; }
  RtError Close() override { return RtError::None; }

 private:
  std::string& bytes_;
};

}  // namespace

RtError MemoryEnv::NewFileBeside(const std::string& target, unsigned, std::string& name,
                                 std::unique_ptr<WritableFile>& file) {
  name = target + ".new";
  file = std::make_unique<MemoryWritable>(files_[name] = std::string());
  return RtError::None;
}

RtError MemoryEnv::Rename(const std::string& from, const std::string& to) {
  if (const auto it = files_.find(from); it != files_.end()) {
    std::string bytes = std::move(it->second);
    files_.erase(it);
    files_[to] = std::move(bytes);
    return RtError::None;
  }
  if (KindOf(from) != EntryKind::Directory) return RtError::FileNotFound;
  CopyTree(from, to);
  RemoveTree(from);
  return RtError::None;
}

RtError MemoryEnv::NewWritableFile(const std::string& path, unsigned, std::unique_ptr<WritableFile>& file) {
  file = std::make_unique<MemoryWritable>(files_[path] = std::string());
  return RtError::None;
}

RtError MemoryEnv::CopyFile(const std::string& from, const std::string& to) {
  const auto it = files_.find(from);
  if (it == files_.end()) return RtError::FileNotFound;
  files_[to] = std::string(it->second);
  return RtError::None;
}

RtError MemoryEnv::ListDirectory(const std::string& dir, std::vector<DirEntry>& entries) {
  ListAmong(files_, dir, entries);
  return RtError::None;
}

EntryKind MemoryEnv::KindOf(const std::string& path) { return KindAmong(files_, path); }

RtError MemoryEnv::CopyTree(const std::string& from, const std::string& to) {
  const std::string prefix = from + "/";
  std::map<std::string, std::string> copies;
  for (auto it = files_.lower_bound(prefix); it != files_.end() && it->first.starts_with(prefix); ++it)
    copies[to + it->first.substr(from.size())] = it->second;
  if (copies.empty()) return RtError::PathNotFound;
  for (auto& [path, bytes] : copies) files_[path] = std::move(bytes);
  return RtError::None;
}

RtError MemoryEnv::MakeUniqueDirectory(const std::string& prefix, unsigned, std::string& made) {
  for (int n = 0;; ++n) {
    made = prefix + std::to_string(100000 + n);
    if (KindOf(made) == EntryKind::Missing) return RtError::None;
  }
}

void MemoryEnv::RemoveTree(const std::string& path) {
  files_.erase(path);
  const std::string prefix = path + "/";
  auto it = files_.lower_bound(prefix);
  while (it != files_.end() && it->first.starts_with(prefix)) it = files_.erase(it);
}

std::string MemoryEnv::EntryName(const std::string& path) {
  if (!files_.contains(path)) return {};
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace cb
