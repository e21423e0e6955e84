// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The core's one way to the file system. Loads, saves, listings and copies
// go through an Env, so tests and the fuzz target can put bytes in memory, or
// failures, where the disk would be.

#include <cstddef>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace cb {

// A file of fixed-length records, numbered from 1.
class RecordFile {
 public:
  virtual ~RecordFile() = default;
  // Reads record `n`; bytes past the end of the file read as NUL.
  virtual RtError Get(long n, std::span<char> record) = 0;
  // Writes record `n`, extending the file when it lies past the end.
  virtual RtError Put(long n, std::span<const char> record) = 0;
  // The file's length in bytes.
  virtual long long Size() = 0;
};

// A file written from its start.
class WritableFile {
 public:
  virtual ~WritableFile() = default;
  virtual RtError Append(std::string_view bytes) = 0;
  // Flushes what was appended to the disk.
  virtual RtError Sync() = 0;
  virtual RtError Close() = 0;
};

enum class OpenMode {
  Read,              // never creates the file
  ReadWrite,         // creates a missing file; falls back to reading where writing is refused
  ReadWritePrivate,  // the same, a missing file made readable by its owner alone
};

// What a path finds, symbolic links followed.
enum class EntryKind { Missing, File, Directory, Other };

struct DirEntry {
  std::string name;  // as it stands in its directory
  EntryKind kind = EntryKind::Other;
};

class Env {
 public:
  virtual ~Env() = default;
  // Opens `path` as records of `recordLength` bytes; `file` is set on success.
  virtual RtError OpenRecords(const std::string& path, std::size_t recordLength, OpenMode mode,
                              std::unique_ptr<RecordFile>& file) = 0;
  // The name under which `path` is found; see DirEntryName.
  virtual std::string EntryName(const std::string& path) = 0;

  // The whole of `path`; FileNotFound when it is missing.
  virtual RtError ReadWhole(const std::string& path, std::string& bytes) = 0;
  // The file `path` ends at, symbolic links followed; `path` when it is no link.
  virtual std::string ResolveLinks(const std::string& path) = 0;
  // A new empty file with a unique name in the directory of `target`, to be
  // renamed over it: with target's permissions when that exists, else with
  // `newMode` less the umask. PathFileAccess when target may not be written.
  virtual RtError NewFileBeside(const std::string& target, unsigned newMode, std::string& name,
                                std::unique_ptr<WritableFile>& file) = 0;
  // Whether the folder alone stops a save of `path`: the file may be written,
  // or is missing, but its folder takes no new file. Memory has no such folder.
  virtual bool FolderRefusesSave(const std::string&) { return false; }
  // Moves `from` over `to` in one step, and makes the move last.
  virtual RtError Rename(const std::string& from, const std::string& to) = 0;
  virtual void Remove(const std::string& path) = 0;
  // Makes the directory `dir` with `mode` less the umask; a directory already
  // there is no failure. PathNotFound when its parent is missing.
  virtual RtError MakeDirectory(const std::string& dir, unsigned mode) = 0;

  // Opens `path` for writing from its start, emptied; a missing file is made
  // with `newMode` less the umask. PathNotFound when its directory is missing.
  virtual RtError NewWritableFile(const std::string& path, unsigned newMode, std::unique_ptr<WritableFile>& file) = 0;
  // Copies the file `from` over `to`, which takes the permissions of `from`.
  virtual RtError CopyFile(const std::string& from, const std::string& to) = 0;
  // The entries of `dir` but "." and "..", in no order; on a failure, those
  // read before it.
  virtual RtError ListDirectory(const std::string& dir, std::vector<DirEntry>& entries) = 0;
  virtual EntryKind KindOf(const std::string& path) = 0;
  // Copies the directory `from` with all it holds, links followed, to `to`,
  // the copies made as new ones: whatever the originals' modes, folders get
  // 0777 and files 0666, less the umask.
  virtual RtError CopyTree(const std::string& from, const std::string& to) = 0;
  // Makes a new directory named `prefix` and six characters, with exactly `mode`.
  virtual RtError MakeUniqueDirectory(const std::string& prefix, unsigned mode, std::string& made) = 0;
  // Makes `link` a symbolic link to the directory `target`.
  virtual RtError MakeLink(const std::string& target, const std::string& link) = 0;
  // Removes `path` with all it holds; what cannot be removed stays.
  virtual void RemoveTree(const std::string& path) = 0;
  // What tells this version of the file `path` from another without reading
  // it: equal stamps mean the same bytes. "" when unknown or missing.
  virtual std::string Stamp(const std::string&) { return {}; }

  // The real file system.
  static Env& Default();
};

// Records over bytes held in memory, which grow as records are put past their end.
std::unique_ptr<RecordFile> RecordsOver(std::string& bytes, std::size_t recordLength);

// The entries of the folder `dir` among `files`, a map by path, as
// MemoryEnv keeps them: a path under `dir` names a file in it, or a folder.
template <class Files>
void ListAmong(const Files& files, const std::string& dir, std::vector<DirEntry>& entries) {
  const std::string prefix = dir.ends_with('/') ? dir : dir + "/";
  // The paths under `prefix` stand together in the map, so one folder's files follow one another.
  for (auto it = files.lower_bound(prefix); it != files.end() && it->first.starts_with(prefix); ++it) {
    const std::string rest = it->first.substr(prefix.size());
    const auto slash = rest.find('/');
    if (slash == std::string::npos) {
      if (!rest.empty()) entries.push_back({rest, EntryKind::File});
    } else if (entries.empty() || entries.back().name != rest.substr(0, slash)) {
      entries.push_back({rest.substr(0, slash), EntryKind::Directory});
    }
  }
}

// What `path` is among `files`: a folder when it holds a path.
template <class Files>
EntryKind KindAmong(const Files& files, const std::string& path) {
  if (files.contains(path)) return EntryKind::File;
  std::vector<DirEntry> entries;
  ListAmong(files, path, entries);
  return entries.empty() ? EntryKind::Missing : EntryKind::Directory;
}

// Replaces the file at `path` by `bytes` so that a crash leaves either the
// old or the new content whole: a new file beside it, flushed to the disk,
// renamed over it. A symbolic link is followed and stays a link; the file's
// permissions stay. On failure the old file is as it was and nothing is left
// behind.
RtError ReplaceFile(Env& env, const std::string& path, std::string_view bytes, unsigned newMode);

// What a save of `path` says when its folder alone stops it.
std::string ReadOnlyFolderText(const std::string& path);

// Files held as bytes in memory, by exact path. Names are found as given.
// A directory is the folder of the paths it holds; renaming one moves them.
class MemoryEnv : public Env {
 public:
  RtError OpenRecords(const std::string& path, std::size_t recordLength, OpenMode mode,
                      std::unique_ptr<RecordFile>& file) override;
  std::string EntryName(const std::string& path) override;
  RtError ReadWhole(const std::string& path, std::string& bytes) override;
  std::string ResolveLinks(const std::string& path) override { return path; }
  RtError NewFileBeside(const std::string& target, unsigned newMode, std::string& name,
                        std::unique_ptr<WritableFile>& file) override;
  RtError Rename(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override { files_.erase(path); }
  RtError MakeDirectory(const std::string&, unsigned) override { return RtError::None; }
  RtError NewWritableFile(const std::string& path, unsigned newMode, std::unique_ptr<WritableFile>& file) override;
  RtError CopyFile(const std::string& from, const std::string& to) override;
  // Directories are the folders of the paths held: an empty one is not there.
  RtError ListDirectory(const std::string& dir, std::vector<DirEntry>& entries) override;
  EntryKind KindOf(const std::string& path) override;
  RtError CopyTree(const std::string& from, const std::string& to) override;
  RtError MakeUniqueDirectory(const std::string& prefix, unsigned mode, std::string& made) override;
  // Links are not kept: a path finds what it names and nothing else.
  RtError MakeLink(const std::string&, const std::string&) override { return RtError::None; }
  void RemoveTree(const std::string& path) override;

  std::map<std::string, std::string>& Files() { return files_; }

 private:
  std::map<std::string, std::string> files_;
};

}  // namespace cb
