// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/Backup.h"

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>

#include "base/Cp1252.h"
#include "base/Text.h"
#include "pack/ClaimContent.h"
#include "pack/FolderSync.h"
#include "pack/JobControl.h"
#include "pack/SifFile.h"
#include "storage/DiskEnv.h"
#include "storage/SlideHistory.h"

namespace cb::pack {
namespace {

namespace fs = std::filesystem;

// Files pass through in blocks of this size, so a picture of any size
// needs no more memory than one block.
constexpr std::size_t kBlock = 1u << 20;

struct Source {
  std::string name;  // in the archive: "Gallery/tv.jpg"
  std::string path;  // on disk
  std::string who;   // what names it, for the message when it is left out
};

bool PlainName(const std::string& n) { return !n.empty() && n != "." && n != ".." && n.find('/') == std::string::npos; }

// The regular files directly in the file's undo history, but its stamp: that
// names the file as this disk holds it, so a restored history is checked by hash.
void AddHistory(const std::string& sifPath, std::vector<Source>& out) {
  const fs::path folder = SlideHistory::FolderOf(sifPath);
  std::vector<std::string> names;
  std::error_code ec;
  for (const auto& e : fs::directory_iterator(folder, ec))
    if (e.path().filename() != SlideHistory::kStampFile && e.symlink_status(ec).type() == fs::file_type::regular)
      names.push_back(e.path().filename().string());
  std::sort(names.begin(), names.end());
  const std::string in = "Files/" + folder.filename().string() + "/";
  for (const auto& n : names) out.push_back({in + n, (folder / n).string(), "the undo history"});
}

// The file itself and its history, each picture once in record order, the frame, the wallpaper.
std::vector<Source> Sources(const SifDocument& doc, const std::string& sifPath, const fs::path& gallery,
                            std::vector<std::string>& notes) {
  std::vector<Source> out{{"Files/" + fs::path(sifPath).filename().string(), sifPath, "the file"}};
  AddHistory(sifPath, out);
  std::set<std::string> seen;
  const auto add = [&](const std::string& folder, const fs::path& dir, const std::string& field, const std::string& who) {
    const std::string name = Cp1252ToUtf8(Trim(StripAtNul(field)));
    if (name.empty()) return;
    if (!PlainName(name)) {
      notes.push_back(who + " names \"" + name + "\", which is no file name; left out");
      return;
    }
    if (seen.insert(folder + "/" + name).second) out.push_back({folder + "/" + name, (dir / name).string(), who});
  };
  for (std::size_t i = 1; i < doc.Slides.size(); ++i)
    add("Gallery", gallery, doc.Slides[i].Get(Field::PictureFile), "slide " + std::to_string(i));
  const fs::path app = gallery.parent_path();
  add("Background", app / "Background", doc.Header.BackgroundImage, "the frame");
  add("Wallpaper", app / "Wallpaper", doc.Header.Wallpaper, "the wallpaper");
  return out;
}

// A regular file open for reading, its size and time taken as it opened.
class SourceFile {
 public:
  // O_NONBLOCK keeps a FIFO in a picture's place from holding the backup up.
  explicit SourceFile(const std::string& path) : fd_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (fd_ < 0) error_ = errno;
    else if (::fstat(fd_, &st_) != 0) error_ = errno;
    else if (!S_ISREG(st_.st_mode)) error_ = S_ISDIR(st_.st_mode) ? EISDIR : EINVAL;
    if (fd_ >= 0 && error_ != 0) {
      ::close(fd_);
      fd_ = -1;
    }
  }
  ~SourceFile() {
    if (fd_ >= 0) ::close(fd_);
  }
  SourceFile(const SourceFile&) = delete;
  SourceFile& operator=(const SourceFile&) = delete;

  bool ok() const { return fd_ >= 0; }
  // Why the file did not open, as the end of a sentence naming it.
  std::string why() const {
    if (error_ == ENOENT || error_ == ENOTDIR) return "is missing";
    if (error_ == EISDIR) return "is a folder, not a picture";
    if (error_ == EINVAL) return "is not a regular file";
    return std::string("cannot be read (") + std::strerror(error_) + ")";
  }
  int error() const { return error_; }
  std::int64_t size() const { return st_.st_size; }
  time_t mtime() const { return st_.st_mtime; }

  // Up to `n` bytes; 0 at the end, -1 with errno set on a fault.
  ssize_t Read(char* into, std::size_t n) {
    ssize_t got;
    do got = ::read(fd_, into, n);
    while (got < 0 && errno == EINTR);
    return got;
  }

 private:
  int fd_;
  int error_ = 0;  // errno of a failed open; EISDIR for a folder, EINVAL for another kind
  struct stat st_ {};
};

// An archive being written into a private file beside its final name, or
// straight into a device or a pipe named as the archive.
class ArchiveOut {
 public:
  explicit ArchiveOut(const std::string& path) : path_(path) {
    const SaveTarget at = SaveTargetOf(path);
    target_ = at.path;
    if (!at.plain) {
      fd_ = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
    } else if ((fd_ = MakeTempBeside(target_, at.mode, temp_)) >= 0) {
      RemoveStaleTemps(target_, temp_);
    }
    if (fd_ < 0) return;
    a_ = archive_write_new();
    archive_write_add_filter_gzip(a_);
    archive_write_set_format_pax_restricted(a_);
    if (archive_write_open_fd(a_, fd_) != ARCHIVE_OK) Fail();
  }
  ~ArchiveOut() {
    // An archive given up would otherwise pad its open entry to full size first.
    if (a_ && !committed_) archive_write_fail(a_);
    if (a_) archive_write_free(a_);
    if (fd_ >= 0) ::close(fd_);
    if (!committed_ && !temp_.empty()) ::unlink(temp_.c_str());
  }
  ArchiveOut(const ArchiveOut&) = delete;
  ArchiveOut& operator=(const ArchiveOut&) = delete;

  // Starts an entry of `size` bytes, which Write then hands over.
  bool Begin(const std::string& name, std::int64_t size, time_t mtime) {
    if (!ok()) return false;
    archive_entry* e = archive_entry_new();
    archive_entry_set_pathname_utf8(e, name.c_str());
    archive_entry_set_filetype(e, AE_IFREG);
    archive_entry_set_perm(e, 0644);
    archive_entry_set_size(e, static_cast<la_int64_t>(size));
    archive_entry_set_mtime(e, mtime, 0);
    const bool good = archive_write_header(a_, e) == ARCHIVE_OK;
    archive_entry_free(e);
    if (!good) Fail();
    return good;
  }

  bool Write(const char* bytes, std::size_t n) {
    const bool good = ok() && archive_write_data(a_, bytes, n) == static_cast<la_ssize_t>(n);
    if (!good) Fail();
    return good;
  }

  bool Add(const std::string& name, const std::string& bytes, time_t mtime) {
    return Begin(name, static_cast<std::int64_t>(bytes.size()), mtime) && Write(bytes.data(), bytes.size());
  }

  // Finishes the archive and moves it into place; false with `message` filled.
  bool Commit(std::string& message) {
    if (ok() && archive_write_close(a_) != ARCHIVE_OK) Fail();
    if (ok() && !temp_.empty()) {
      if (::fsync(fd_) != 0) error_ = std::strerror(errno);
      if (ok() && ::rename(temp_.c_str(), target_.c_str()) != 0) error_ = std::strerror(errno);
      if (ok()) SyncFolder(fs::path(target_).parent_path().string());
    }
    committed_ = ok();
    if (!committed_) message = path_ + ": " + error_;
    return committed_;
  }

  bool ok() const { return fd_ >= 0 && error_.empty(); }
  std::string error() const { return fd_ < 0 ? std::string(std::strerror(errno)) : error_; }
  const std::string& path() const { return path_; }
  Status Fault() const { return Status::Described(path_ + ": " + error()); }

 private:
  void Fail() {
    if (!error_.empty()) return;
    const char* e = a_ ? archive_error_string(a_) : nullptr;
    error_ = e ? e : "the archive could not be written";
  }

  std::string path_, target_, temp_, error_;
  int fd_ = -1;
  archive* a_ = nullptr;
  bool committed_ = false;
};

// Copies `file` into the archive as `s.name`, hashing it on the way; the
// header carries the size seen at opening, so a file that is shorter or
// longer when read fails the backup rather than go in torn.
Status Copy(const Source& s, SourceFile& file, ArchiveOut& archive, StepBeat& beat, std::vector<char>& block,
            std::string& hash) {
  const Status changed = Status::Described(s.path + ": changed while it was read");
  if (!archive.Begin(s.name, file.size(), file.mtime())) return archive.Fault();
  QCryptographicHash sha(QCryptographicHash::Sha256);
  for (std::int64_t left = file.size(); left > 0;) {
    const ssize_t n = file.Read(block.data(), static_cast<std::size_t>(std::min<std::int64_t>(left, kBlock)));
    if (n < 0) return Status::Described(s.path + ": " + std::strerror(errno));
    if (n == 0) return changed;
    sha.addData(QByteArrayView(block.data(), n));
    if (!archive.Write(block.data(), static_cast<std::size_t>(n))) return archive.Fault();
    left -= n;
    if (!beat.Passed(static_cast<std::size_t>(n))) return Cancelled(archive.path());
  }
  if (const ssize_t more = file.Read(block.data(), 1); more != 0)
    return more < 0 ? Status::Described(s.path + ": " + std::strerror(errno)) : changed;
  hash = sha.result().toHex().toStdString();
  return {};
}

}  // namespace

std::string DefaultBackupPath(const std::string& sifPath, std::time_t now) {
  std::tm local{};
  ::localtime_r(&now, &local);
  char date[16];
  std::strftime(date, sizeof date, "%Y-%m-%d", &local);
  const fs::path path(sifPath);
  return (path.parent_path() / (path.stem().string() + "-" + date + ".tar.gz")).string();
}

Status MakeBackup(const BackupRequest& request, const JobProgress& progress, BackupResult& result) {
  const std::string& path = request.sifPath;
  const std::string& out = request.archivePath;
  result = {};
  SifDocument doc;
  std::string message;
  if (!ReadSif(path, doc, message)) return Status::Described(message);
  fs::path galleryDir =
      fs::absolute(request.galleryDir.empty() ? DefaultGalleryDir(path) : request.galleryDir).lexically_normal();
  // "Gallery/" names the same folder as "Gallery": its siblings hold the frame and the wallpaper.
  if (!galleryDir.has_filename()) galleryDir = galleryDir.parent_path();
  const std::vector<Source> sources = Sources(doc, path, galleryDir, result.notes);

  ArchiveOut archive(out);
  if (!archive.ok()) return archive.Fault();
  Manifest manifest;
  std::vector<char> block(kBlock);
  for (std::size_t i = 0; i < sources.size(); ++i) {
    const Source& s = sources[i];
    const JobStep step{"File", i + 1, sources.size()};
    if (!progress(step)) return Cancelled(out);
    SourceFile file(s.path);
    if (!file.ok()) {
      if (i == 0) return Status::Described(path + ": " + std::strerror(file.error()));
      result.notes.push_back(s.who + ": \"" + s.path + "\" " + file.why() + "; listed in the manifest");
      manifest.missing.push_back(s.name);
      continue;
    }
    StepBeat beat(progress, step);
    std::string hash;
    if (Status copied = Copy(s, file, archive, beat, block, hash); !copied.ok()) return copied;
    manifest.hashes[s.name] = hash;
    manifest.order.push_back(s.name);
  }
  const std::string text = ManifestText(manifest, fs::path(path).filename().string());
  if (!archive.Add(std::string(kManifestName), text, ::time(nullptr)) || !archive.Commit(message))
    return message.empty() ? archive.Fault() : Status::Described(message);
  result.files = manifest.order.size();
  result.missing = manifest.missing.size();
  return {};
}

}  // namespace cb::pack
