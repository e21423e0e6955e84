// SPDX-License-Identifier: GPL-3.0-or-later
#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <set>

#include "Backup.h"
#include "pack/Manifest.h"
#include "storage/DiskEnv.h"

namespace cb::sif {
namespace {

using namespace pack;

namespace fs = std::filesystem;

// The largest manifest read: far beyond the 32767 slides a file can hold.
constexpr std::size_t kManifestLimit = 16u << 20;

// One pass over an archive, entry by entry.
class ArchiveIn {
 public:
  explicit ArchiveIn(const std::string& path) : a_(archive_read_new()) {
    // What backup writes and nothing else: no other format, and no filter
    // that would start an external program on a crafted archive.
    archive_read_support_filter_gzip(a_);
    archive_read_support_format_tar(a_);
    if (archive_read_open_filename(a_, path.c_str(), 1 << 16) != ARCHIVE_OK)
      Fail();
    else if (archive_filter_code(a_, 0) != ARCHIVE_FILTER_GZIP)
      error_ = "not a gzip-compressed tar archive";
    opened_ = error_.empty();
  }
  ~ArchiveIn() { archive_read_free(a_); }
  ArchiveIn(const ArchiveIn&) = delete;
  ArchiveIn& operator=(const ArchiveIn&) = delete;

  // The next entry, or null at the end or on a fault (then error() is set).
  archive_entry* Next() {
    if (!error_.empty()) return nullptr;
    archive_entry* e = nullptr;
    const int r = archive_read_next_header(a_, &e);
    if (r == ARCHIVE_EOF) return nullptr;
    if (r != ARCHIVE_OK) {
      Fail();
      return nullptr;
    }
    return e;
  }

  // Hands the entry's data to `sink` block by block; false on a fault.
  bool Read(const std::function<bool(const char*, std::size_t)>& sink) {
    char buf[1 << 16];
    for (;;) {
      const la_ssize_t n = archive_read_data(a_, buf, sizeof buf);
      if (n == 0) return true;
      if (n < 0) {
        Fail();
        return false;
      }
      if (!sink(buf, static_cast<std::size_t>(n))) return false;
    }
  }

  const std::string& error() const { return error_; }
  bool opened() const { return opened_; }

 private:
  void Fail() {
    const char* e = archive_error_string(a_);
    error_ = e ? e : "unreadable";
  }

  archive* a_;
  std::string error_;
  bool opened_ = false;
};

struct Entry {
  std::string name;  // "Gallery/tv.jpg"
  std::string hash;
  time_t mtime = 0;
};

// Why `e` may not be restored, or "" when it may.
std::string Refusal(archive_entry* e, const std::string& name) {
  if (archive_entry_symlink(e) || archive_entry_hardlink(e) || archive_entry_filetype(e) == AE_IFLNK)
    return "\"" + name + "\" is a link, which could lead out of the application directory";
  if (name.starts_with("/")) return "\"" + name + "\" is an absolute path, outside the application directory";
  if (name == ".." || name.starts_with("../") || name.find("/../") != std::string::npos || name.ends_with("/.."))
    return "\"" + name + "\" would leave the application directory";
  if (archive_entry_filetype(e) != AE_IFREG) return "\"" + name + "\" is not a regular file";
  if (name != kManifestName && !IsBackupName(name)) return "\"" + name + "\" is no part of a backup";
  return {};
}

// The entry's name as bytes; a UTF-8 name the locale cannot hold comes as written.
std::string EntryName(archive_entry* e) {
  const char* raw = archive_entry_pathname(e);
  if (!raw) raw = archive_entry_pathname_utf8(e);
  return raw ? raw : "";
}

// The first pass: every entry named, hashed and checked against the manifest.
bool Survey(const std::string& path, std::vector<Entry>& entries, Manifest& manifest, std::string& message) {
  ArchiveIn in(path);
  std::optional<std::string> manifestText;
  std::set<std::string> names;
  while (archive_entry* e = in.Next()) {
    const std::string name = EntryName(e);
    if (const std::string why = Refusal(e, name); !why.empty()) {
      message = path + ": " + why;
      return false;
    }
    if (!names.insert(name).second) {
      message = path + ": \"" + name + "\" comes twice";
      return false;
    }
    if (name == kManifestName) {
      std::string text;
      const bool read = in.Read([&text](const char* b, std::size_t n) {
        text.append(b, n);
        return text.size() <= kManifestLimit;
      });
      if (!read && in.error().empty()) {
        message = path + ": the manifest is too large";
        return false;
      }
      manifestText = std::move(text);
      continue;
    }
    QCryptographicHash hash(QCryptographicHash::Sha256);
    in.Read([&hash](const char* b, std::size_t n) {
      hash.addData(QByteArrayView(b, static_cast<qsizetype>(n)));
      return true;
    });
    entries.push_back({name, hash.result().toHex().toStdString(), archive_entry_mtime(e)});
  }
  if (!in.opened()) {
    message = path + ": " + in.error();
    return false;
  }
  if (!in.error().empty()) {
    message = path + ": a damaged archive (" + in.error() + ")";
    return false;
  }
  if (!manifestText) {
    message = path + ": no " + std::string(kManifestName) + "; not a backup of chattelbook-sif";
    return false;
  }
  auto parsed = ParseManifest(*manifestText, message);
  if (!parsed) {
    message = path + ": " + message;
    return false;
  }
  manifest = std::move(*parsed);
  for (const auto& e : entries) {
    const auto it = manifest.hashes.find(e.name);
    if (it == manifest.hashes.end()) {
      message = path + ": \"" + e.name + "\" is not in the manifest";
      return false;
    }
    if (it->second != e.hash) {
      message = path + ": \"" + e.name + "\" does not match its SHA-256 in the manifest";
      return false;
    }
  }
  for (const auto& name : manifest.order)
    if (!names.contains(name)) {
      message = path + ": \"" + name + "\" is in the manifest but not in the archive";
      return false;
    }
  return true;
}

// Files written beside their targets, renamed into place only when all are
// whole; removed, with any folder made for them, otherwise.
class Staging {
 public:
  ~Staging() {
    for (const auto& [temp, target] : staged_) ::unlink(temp.c_str());
    std::error_code ec;
    for (auto it = made_.rbegin(); it != made_.rend(); ++it) fs::remove(*it, ec);
  }

  bool MakeFolder(const fs::path& dir, std::string& message) {
    std::error_code ec;
    std::vector<fs::path> missing;
    for (fs::path p = dir; !p.empty() && !fs::exists(p, ec); p = p.parent_path()) missing.push_back(p);
    for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
      if (!fs::create_directory(*it, ec) && ec) {
        message = it->string() + ": " + ec.message();
        return false;
      }
      made_.push_back(*it);
    }
    return true;
  }

  // A new private file beside `target`; -1 with `message` filled on failure.
  int Open(const fs::path& target, std::string& message) {
    std::string temp;
    const int fd = MakeTempBeside(target.string(), NewFileMode(), temp);
    if (fd < 0) {
      message = target.string() + ": " + std::strerror(errno);
      return -1;
    }
    staged_.emplace_back(temp, target.string());
    return fd;
  }

  void Stamp(time_t mtime) {
    const timespec times[2] = {{0, UTIME_OMIT}, {mtime, 0}};
    ::utimensat(AT_FDCWD, staged_.back().first.c_str(), times, 0);
  }

  bool Commit(std::string& message) {
    for (auto& [temp, target] : staged_) {
      if (::rename(temp.c_str(), target.c_str()) != 0) {
        message = target + ": " + std::strerror(errno);
        return false;
      }
      temp.clear();
    }
    staged_.clear();
    made_.clear();
    return true;
  }

 private:
  std::vector<std::pair<std::string, std::string>> staged_;  // temporary, target
  std::vector<fs::path> made_;
};

bool WriteAll(int fd, const char* b, std::size_t n) {
  while (n > 0) {
    const ssize_t w = ::write(fd, b, n);
    if (w < 0 && errno == EINTR) continue;
    if (w <= 0) return false;
    b += w;
    n -= static_cast<std::size_t>(w);
  }
  return true;
}

// The second pass: each file into its place, its hash checked once more.
bool Extract(const std::string& path, const fs::path& appDir, const std::vector<Entry>& entries,
             std::string& message) {
  Staging staging;
  ArchiveIn in(path);
  std::size_t next = 0;
  while (archive_entry* e = in.Next()) {
    const std::string name = EntryName(e);
    if (name == kManifestName) continue;
    if (next >= entries.size() || entries[next].name != name) {
      message = path + ": the archive changed while it was read";
      return false;
    }
    const fs::path target = appDir / name;
    if (!staging.MakeFolder(target.parent_path(), message)) return false;
    const int fd = staging.Open(target, message);
    if (fd < 0) return false;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    bool written = true;
    in.Read([&](const char* b, std::size_t n) {
      hash.addData(QByteArrayView(b, static_cast<qsizetype>(n)));
      return written = WriteAll(fd, b, n);
    });
    written = written && ::fsync(fd) == 0;
    const int saved = errno;
    ::close(fd);
    if (!written) {
      message = target.string() + ": " + std::strerror(saved);
      return false;
    }
    if (!in.error().empty() || hash.result().toHex().toStdString() != entries[next].hash) {
      message = path + ": \"" + name + "\" changed while it was read";
      return false;
    }
    staging.Stamp(entries[next].mtime);
    ++next;
  }
  if (!in.error().empty() || next != entries.size()) {
    message = path + ": the archive changed while it was read";
    return false;
  }
  return staging.Commit(message);
}

}  // namespace

int RunRestore(const QStringList& args, const CommandIo& io) {
  QCommandLineParser p;
  const QCommandLineOption to(QString("to"), "the application directory to restore into", "APPDIR");
  const QCommandLineOption force(QString("force"), "replace existing files");
  p.addOptions({to, force});
  int status = kExitOk;
  if (!ParseOne(p, args, io, status)) return status;
  if (p.value(to).isEmpty()) return UsageError(io, "restore needs --to APPDIR");
  const std::string path = p.positionalArguments()[0].toStdString();
  const fs::path appDir = fs::absolute(p.value(to).toStdString()).lexically_normal();

  std::vector<Entry> entries;
  Manifest manifest;
  std::string message;
  if (!Survey(path, entries, manifest, message)) return DataError(io, message + "; nothing was written");

  std::vector<std::string> existing;
  for (const auto& e : entries) {
    std::error_code ec;
    const fs::file_status st = fs::symlink_status(appDir / e.name, ec);
    if (fs::is_directory(st)) return DataError(io, (appDir / e.name).string() + ": is a directory; nothing was written");
    if (fs::exists(st)) existing.push_back(e.name);
  }
  if (!existing.empty() && !p.isSet(force)) {
    std::string list;
    for (const auto& n : existing) list += "\n  " + n;
    return DataError(io, "these files exist in " + appDir.string() + "; give --force to replace them" + list +
                             "\nnothing was written");
  }
  if (!Extract(path, appDir, entries, message)) return DataError(io, message + "; nothing was written");
  for (const auto& m : manifest.missing) io.err << "chattelbook-sif: " << m << " was missing when the backup was made\n";
  io.out << entries.size() << " files restored under " << appDir.string() << "\n";
  return kExitOk;
}

}  // namespace cb::sif
