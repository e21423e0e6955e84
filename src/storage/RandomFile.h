#pragma once
// A file of fixed-length records opened for random access: never truncated,
// created when missing. Records are numbered from 1.

#include <cstddef>
#include <span>
#include <string>

#include "base/RuntimeError.h"

namespace cb {

class RandomFile {
 public:
  RandomFile() = default;
  ~RandomFile();
  RandomFile(const RandomFile&) = delete;
  RandomFile& operator=(const RandomFile&) = delete;

  // Opens for reading and writing, falling back to reading alone when the
  // file may not be written; a missing file is created empty.
  RtError Open(const std::string& path, std::size_t recordLength);

  // Reads record `n`; bytes past the end of the file read as NUL.
  RtError Get(long n, std::span<char> record);
  // Writes record `n`, extending the file when it lies past the end.
  RtError Put(long n, std::span<const char> record);

  void Close();

 private:
  int fd_ = -1;
  std::size_t length_ = 0;
};

}  // namespace cb
