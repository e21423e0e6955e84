// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The lock that says a slide file is open in the program. A save replaces
// the file by rename, which would drop a lock held on the file itself, so
// the lock lives on a hidden companion beside it (".NAME.sif.lock"). The
// kernel lets go of it when its holder exits, however it ends.

#include <string>

namespace cb {

class SlideFileLock {
 public:
  SlideFileLock() = default;
  ~SlideFileLock() { Release(); }
  SlideFileLock(const SlideFileLock&) = delete;
  SlideFileLock& operator=(const SlideFileLock&) = delete;

  // Takes the lock of `slideFile`, letting go of any held before; false,
  // holding nothing, when someone else holds it. A companion that cannot be
  // made (a read-only folder) counts as free: nothing can replace the file there either.
  bool TryAcquire(const std::string& slideFile);
  void Release();

  // ".NAME.sif.lock" in the file's folder.
  static std::string CompanionPath(const std::string& slideFile);

 private:
  int fd_ = -1;
  std::string made_;  // the companion, when this lock made it and so removes it
};

// The refusal of a command that would replace a file open in the program.
std::string OpenInProgramMessage(const std::string& slideFile);

}  // namespace cb
