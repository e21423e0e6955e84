// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A file of fixed-length records on disk, opened for random access: never
// truncated. Records are numbered from 1.

#include <cstddef>
#include <span>
#include <string>

#include "base/RuntimeError.h"
#include "storage/Env.h"

namespace cb {

class RandomFile final : public RecordFile {
 public:
  RandomFile() = default;
  ~RandomFile() override;
  RandomFile(const RandomFile&) = delete;
  RandomFile& operator=(const RandomFile&) = delete;

  // Opens for reading and writing, falling back to reading alone when the
  // file may not be written; a missing file is created empty, with `newMode`
  // less the umask.
  RtError Open(const std::string& path, std::size_t recordLength, unsigned newMode = 0644);
  // Opens for reading alone; a missing file is FileNotFound, a missing
  // directory on the way PathNotFound. errno stays as the open left it.
  RtError OpenRead(const std::string& path, std::size_t recordLength);

  RtError Get(long n, std::span<char> record) override;
  RtError Put(long n, std::span<const char> record) override;
  long long Size() override;

  void Close();

 private:
  int fd_ = -1;
  std::size_t length_ = 0;
};

}  // namespace cb
