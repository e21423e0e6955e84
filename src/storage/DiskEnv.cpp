// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/DiskEnv.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <tuple>

#include "storage/FileSystem.h"
#include "storage/RandomFile.h"

namespace cb {
namespace {

namespace fs = std::filesystem;

// Marks a save's private file, so that what a killed save left is told from the user's own files.
constexpr char kTempMark[] = ".save-";

std::string DirectoryOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// A missing directory on the way is "path not found", not "file not found".
RtError CreateError(int err) { return err == ENOENT ? RtError::PathNotFound : FromErrno(err); }

class DiskFile final : public WritableFile {
 public:
  explicit DiskFile(int fd) : fd_(fd) {}
  ~DiskFile() override { Close(); }

  RtError Append(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t put = ::write(fd_, bytes.data(), bytes.size());
      if (put < 0) {
        if (errno == EINTR) continue;
        return FromErrno(errno);
      }
      bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return RtError::None;
  }
  RtError Sync() override { return ::fsync(fd_) == 0 ? RtError::None : FromErrno(errno); }
  RtError Close() override {
    if (fd_ < 0) return RtError::None;
    const int rc = ::close(fd_);
    fd_ = -1;
    return rc == 0 ? RtError::None : FromErrno(errno);
  }

 private:
  int fd_;
};

EntryKind KindFrom(const fs::file_status& st) {
  switch (st.type()) {
    case fs::file_type::regular: return EntryKind::File;
    case fs::file_type::directory: return EntryKind::Directory;
    case fs::file_type::none:
    case fs::file_type::not_found: return EntryKind::Missing;
    default: return EntryKind::Other;
  }
}

// Copies the file `from` to a new file `to`, which takes the user's modes, not the original's.
RtError WriteAnew(Env& env, const std::string& from, const std::string& to) {
  std::string bytes;
  std::unique_ptr<WritableFile> file;
  RtError e = env.ReadWhole(from, bytes);
  if (e == RtError::None) e = env.NewWritableFile(to, 0666, file);
  if (e == RtError::None) e = file->Append(bytes);
  if (e == RtError::None) e = file->Close();
  return e;
}

}  // namespace

Env& Env::Default() {
  static DiskEnv env;
  return env;
}

RtError DiskEnv::OpenRecords(const std::string& path, std::size_t recordLength, OpenMode mode,
                             std::unique_ptr<RecordFile>& file) {
  auto f = std::make_unique<RandomFile>();
  const RtError e = mode == OpenMode::Read ? f->OpenRead(path, recordLength)
                                           : f->Open(path, recordLength, mode == OpenMode::ReadWritePrivate ? 0600 : 0644);
  if (e == RtError::None) file = std::move(f);
  return e;
}

std::string DiskEnv::EntryName(const std::string& path) { return DirEntryName(path); }

RtError DiskEnv::ReadWhole(const std::string& path, std::string& bytes) {
  RandomFile f;
  if (auto e = f.OpenRead(path, 1); e != RtError::None) return e;
  bytes.assign(static_cast<std::size_t>(f.Size()), '\0');
  return f.Get(1, bytes);
}

std::string DiskEnv::ResolveLinks(const std::string& path) {
  std::string p = path;
  for (int hops = 0; hops < 40; ++hops) {  // the kernel's own limit on a chain of links
    char target[PATH_MAX];
    const ssize_t n = ::readlink(p.c_str(), target, sizeof target - 1);
    if (n < 0) return p;
    const std::string t(target, static_cast<std::size_t>(n));
    p = t.starts_with('/') ? t : DirectoryOf(p) + t;
  }
  return p;
}

RtError DiskEnv::NewFileBeside(const std::string& target, unsigned newMode, std::string& name,
                               std::unique_ptr<WritableFile>& file) {
  struct stat st {};
  mode_t mode = 0;
  if (::stat(target.c_str(), &st) == 0) {
    // Renaming needs only the directory: refuse what an in-place write could not
    // open, and a device or a pipe, which a rename would replace by a plain file.
    if (!S_ISREG(st.st_mode) || ::access(target.c_str(), W_OK) != 0) return RtError::PathFileAccess;
    mode = st.st_mode & 07777;
  } else {
    mode = static_cast<mode_t>(newMode & NewFileMode());
  }
  std::string temp;
  const int fd = MakeTempBeside(target, mode, temp);
  if (fd < 0) return CreateError(errno);
  RemoveStaleTemps(target, temp);
  name = std::move(temp);
  file = std::make_unique<DiskFile>(fd);
  return RtError::None;
}

bool DiskEnv::FolderRefusesSave(const std::string& path) {
  const std::string target = ResolveLinks(path);
  if (::access(target.c_str(), W_OK) != 0 && errno != ENOENT) return false;
  if (::access(DirectoryOf(target).c_str(), W_OK | X_OK) == 0) return false;
  return errno == EACCES || errno == EROFS;  // a missing folder is another trouble
}

unsigned NewFileMode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

SaveTarget SaveTargetOf(const std::string& path) {
  SaveTarget t{DiskEnv().ResolveLinks(path), NewFileMode(), true};
  if (struct stat st {}; ::stat(t.path.c_str(), &st) == 0) {
    t.mode = st.st_mode & 07777;
    t.plain = S_ISREG(st.st_mode) || S_ISDIR(st.st_mode);
  }
  return t;
}

int MakeTempBeside(const std::string& target, unsigned mode, std::string& name) {
  const auto at = target.rfind('/') + 1;  // 0 without a folder
  name = target.substr(0, at) + "." + target.substr(at) + kTempMark + "XXXXXX";
  const int fd = ::mkstemp(name.data());
  if (fd < 0) return -1;
  // The file a save replaces keeps its owner where we may give it (root
  // saving a user's file); elsewhere the new one is ours, as it must be.
  if (struct stat st {}; ::stat(target.c_str(), &st) == 0 && (st.st_uid != ::geteuid() || st.st_gid != ::getegid()))
    [[maybe_unused]] const int kept = ::fchown(fd, st.st_uid, st.st_gid);
  if (::fchmod(fd, static_cast<mode_t>(mode)) != 0) {
    const int err = errno;
    ::close(fd);
    ::unlink(name.c_str());
    errno = err;
    return -1;
  }
  return fd;
}

void RemoveStaleTemps(const std::string& target, const std::string& fresh) {
  struct stat own {};
  if (::stat(fresh.c_str(), &own) != 0) return;
  const auto slash = target.rfind('/');
  const std::string dir = slash == std::string::npos ? "" : target.substr(0, slash + 1);
  const std::string prefix = "." + target.substr(dir.size()) + kTempMark;
  DIR* d = ::opendir(dir.empty() ? "." : dir.c_str());
  if (!d) return;
  while (const dirent* e = ::readdir(d)) {
    const std::string name = e->d_name;
    if (name.size() != prefix.size() + 6 || !name.starts_with(prefix)) continue;
    const std::string path = dir + name;
    struct stat st {};
    // Only our own files, made before this save began: a save under way now is left alone.
    if (::lstat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode) || st.st_uid != own.st_uid || st.st_ino == own.st_ino)
      continue;
    if (std::tie(st.st_mtim.tv_sec, st.st_mtim.tv_nsec) < std::tie(own.st_mtim.tv_sec, own.st_mtim.tv_nsec))
      ::unlink(path.c_str());
  }
  ::closedir(d);
}

RtError DiskEnv::Rename(const std::string& from, const std::string& to) {
  if (::rename(from.c_str(), to.c_str()) != 0) return FromErrno(errno);
  // The new name lasts only once the directory is on the disk too.
  const int dir = ::open(DirectoryOf(to).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir >= 0) {
    ::fsync(dir);
    ::close(dir);
  }
  return RtError::None;
}

void DiskEnv::Remove(const std::string& path) { ::unlink(path.c_str()); }

RtError DiskEnv::MakeDirectory(const std::string& dir, unsigned mode) {
  if (::mkdir(dir.c_str(), static_cast<mode_t>(mode)) == 0 || errno == EEXIST) return RtError::None;
  return CreateError(errno);
}

RtError DiskEnv::NewWritableFile(const std::string& path, unsigned newMode, std::unique_ptr<WritableFile>& file) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, static_cast<mode_t>(newMode));
  if (fd < 0) return CreateError(errno);
  file = std::make_unique<DiskFile>(fd);
  return RtError::None;
}

RtError DiskEnv::CopyFile(const std::string& from, const std::string& to) {
  std::error_code ec;
  fs::copy_file(from, to, fs::copy_options::overwrite_existing, ec);
  return ec ? FromErrno(ec.value()) : RtError::None;
}

RtError DiskEnv::ListDirectory(const std::string& dir, std::vector<DirEntry>& entries) {
  std::error_code ec;
  for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code ignored;  // an entry that cannot be looked at is of no kind listed
    entries.push_back({it->path().filename().string(), KindFrom(it->status(ignored))});
  }
  return ec ? CreateError(ec.value()) : RtError::None;
}

EntryKind DiskEnv::KindOf(const std::string& path) {
  std::error_code ec;
  return KindFrom(fs::status(path, ec));
}

RtError DiskEnv::CopyTree(const std::string& from, const std::string& to) {
  std::vector<DirEntry> entries;
  RtError e = ListDirectory(from, entries);
  if (e == RtError::None) e = MakeDirectory(to, 0777);
  for (auto it = entries.begin(); e == RtError::None && it != entries.end(); ++it) {
    const std::string source = from + '/' + it->name, copy = to + '/' + it->name;
    if (it->kind == EntryKind::Directory) e = CopyTree(source, copy);
    if (it->kind == EntryKind::File) e = WriteAnew(*this, source, copy);
  }
  return e;
}

RtError DiskEnv::MakeUniqueDirectory(const std::string& prefix, unsigned mode, std::string& made) {
  std::string dir = prefix + "XXXXXX";
  if (!::mkdtemp(dir.data())) return CreateError(errno);
  // mkdtemp makes the folder private; the caller says what it should be.
  if (::chmod(dir.c_str(), static_cast<mode_t>(mode)) != 0) {
    const int err = errno;
    ::rmdir(dir.c_str());
    return FromErrno(err);
  }
  made = std::move(dir);
  return RtError::None;
}

RtError DiskEnv::MakeLink(const std::string& target, const std::string& link) {
  return ::symlink(target.c_str(), link.c_str()) == 0 ? RtError::None : CreateError(errno);
}

void DiskEnv::RemoveTree(const std::string& path) {
  std::error_code ignored;
  fs::remove_all(path, ignored);
}

std::string DiskEnv::Stamp(const std::string& path) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0) return {};
  // The change time too: a program can set the modification time back, not that.
  const auto ns = [](const timespec& t) { return std::to_string(t.tv_sec) + "." + std::to_string(t.tv_nsec); };
  return std::to_string(st.st_size) + " " + ns(st.st_mtim) + " " + ns(st.st_ctim) + " " + std::to_string(st.st_ino) +
         " " + std::to_string(st.st_dev);
}

}  // namespace cb
