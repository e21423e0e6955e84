// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A file renamed into place lasts only once its folder is on the disk too.

#include <fcntl.h>
#include <unistd.h>

#include <string>

namespace cb::pack {

// Flushes the folder `dir` ("" is the working folder); a folder that cannot
// be opened is left as it is, the rename itself having succeeded.
inline void SyncFolder(const std::string& dir) {
  const int fd = ::open(dir.empty() ? "." : dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace cb::pack
