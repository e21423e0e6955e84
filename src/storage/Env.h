#pragma once
// The storage layer's one way to the file system. Loads and saves open their
// record files through an Env, so tests and the fuzz target can put bytes in
// memory, or failures, where the disk would be.

#include <cstddef>
#include <map>
#include <memory>
#include <span>
#include <string>

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

  // The real file system.
  static Env& Default();
};

// Files held as bytes in memory, by exact path. Names are found as given.
class MemoryEnv : public Env {
 public:
  RtError OpenRecords(const std::string& path, std::size_t recordLength, OpenMode mode,
                      std::unique_ptr<RecordFile>& file) override;
  std::string EntryName(const std::string& path) override;

  std::map<std::string, std::string>& Files() { return files_; }

 private:
  std::map<std::string, std::string> files_;
};

}  // namespace cb
