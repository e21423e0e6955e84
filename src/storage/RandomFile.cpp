// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/RandomFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace cb {

RandomFile::~RandomFile() { Close(); }

RtError RandomFile::Open(const std::string& path, std::size_t recordLength, unsigned newMode) {
  Close();
  length_ = recordLength;
  fd_ = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, static_cast<mode_t>(newMode));
  if (fd_ < 0 && (errno == EACCES || errno == EROFS)) fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd_ >= 0) return RtError::None;
  // A missing directory on the way is "path not found", not "file not found".
  return errno == ENOENT ? RtError::PathNotFound : FromErrno(errno);
}

RtError RandomFile::OpenRead(const std::string& path, std::size_t recordLength) {
  Close();
  length_ = recordLength;
  fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd_ >= 0) return RtError::None;
  const int err = errno;
  RtError e = FromErrno(err);
  if (err == ENOENT) {
    const auto slash = path.rfind('/');
    struct stat st {};
    const std::string dir = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    if (::stat(dir.c_str(), &st) != 0) e = RtError::PathNotFound;
  }
  errno = err;
  return e;
}

long long RandomFile::Size() {
  struct stat st {};
  return fd_ >= 0 && ::fstat(fd_, &st) == 0 ? static_cast<long long>(st.st_size) : 0;
}

RtError RandomFile::Get(long n, std::span<char> record) {
  if (fd_ < 0 || n < 1) {
    std::fill(record.begin(), record.end(), '\0');
    return RtError::BadFileNameOrNumber;
  }
  const off_t at = static_cast<off_t>(n - 1) * static_cast<off_t>(length_);
  std::size_t done = 0;
  RtError e = RtError::None;
  while (done < record.size()) {
    const ssize_t got = ::pread(fd_, record.data() + done, record.size() - done, at + static_cast<off_t>(done));
    if (got == 0) break;  // end of file
    if (got < 0) {
      if (errno == EINTR) continue;
      e = FromErrno(errno);
      break;
    }
    done += static_cast<std::size_t>(got);
  }
  // What was not read reads as NUL.
  std::fill(record.begin() + static_cast<std::ptrdiff_t>(done), record.end(), '\0');
  return e;
}

RtError RandomFile::Put(long n, std::span<const char> record) {
  if (fd_ < 0 || n < 1) return RtError::BadFileNameOrNumber;
  const off_t at = static_cast<off_t>(n - 1) * static_cast<off_t>(length_);
  std::size_t done = 0;
  while (done < record.size()) {
    const ssize_t put = ::pwrite(fd_, record.data() + done, record.size() - done, at + static_cast<off_t>(done));
    if (put < 0) {
      if (errno == EINTR) continue;
      return errno == EBADF ? RtError::PathFileAccess : FromErrno(errno);
    }
    done += static_cast<std::size_t>(put);
  }
  return RtError::None;
}

void RandomFile::Close() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
}

}  // namespace cb
