#pragma once
// The storage layer's one way to the file system. Loads and saves open their
// record files through an Env, so tests and the fuzz target can put bytes in
// memory, or failures, where the disk would be.

#include <cstddef>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

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
  Read,       // never creates the file
  ReadWrite,  // creates a missing file; falls back to reading where writing is refused
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
  // Moves `from` over `to` in one step, and makes the move last.
  virtual RtError Rename(const std::string& from, const std::string& to) = 0;
  virtual void Remove(const std::string& path) = 0;
  // Makes the directory `dir` with `mode` less the umask; a directory already
  // there is no failure. PathNotFound when its parent is missing.
  virtual RtError MakeDirectory(const std::string& dir, unsigned mode) = 0;

  // The real file system.
  static Env& Default();
};

// Records over bytes held in memory, which grow as records are put past their end.
std::unique_ptr<RecordFile> RecordsOver(std::string& bytes, std::size_t recordLength);

// Replaces the file at `path` by `bytes` so that a crash leaves either the
// old or the new content whole: a new file beside it, flushed to the disk,
// renamed over it. A symbolic link is followed and stays a link; the file's
// permissions stay. On failure the old file is as it was and nothing is left
// behind.
RtError ReplaceFile(Env& env, const std::string& path, std::string_view bytes, unsigned newMode);

// Files held as bytes in memory, by exact path. Names are found as given.
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

  std::map<std::string, std::string>& Files() { return files_; }

 private:
  std::map<std::string, std::string> files_;
};

}  // namespace cb
