// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/SlideFileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace cb {

std::string SlideFileLock::CompanionPath(const std::string& slideFile) {
  const auto slash = slideFile.rfind('/');
  const std::string folder = slash == std::string::npos ? std::string() : slideFile.substr(0, slash + 1);
  const std::string name = slash == std::string::npos ? slideFile : slideFile.substr(slash + 1);
  return folder + "." + name + ".lock";
}

bool SlideFileLock::TryAcquire(const std::string& slideFile) {
  Release();
  if (slideFile.empty()) return true;
  const std::string companion = CompanionPath(slideFile);
  int fd = ::open(companion.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  const bool made = fd >= 0;
  if (!made && errno == EEXIST) fd = ::open(companion.c_str(), O_RDWR | O_CLOEXEC);
  if (fd < 0) return true;
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
    const bool held = errno == EWOULDBLOCK;
    if (made) ::unlink(companion.c_str());
    ::close(fd);
    return !held;
  }
  fd_ = fd;
  if (made) made_ = companion;
  return true;
}

void SlideFileLock::Release() {
  if (fd_ < 0) return;
  // Removed while still held, so no one can take a lock on a file going away unseen.
  if (!made_.empty()) ::unlink(made_.c_str());
  made_.clear();
  ::close(fd_);
  fd_ = -1;
}

std::string OpenInProgramMessage(const std::string& slideFile) {
  return slideFile + " is open in Chattelbook; close it there first";
}

}  // namespace cb
