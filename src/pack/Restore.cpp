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
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string_view>

#include "pack/Backup.h"
#include "pack/FolderSync.h"
#include "pack/JobControl.h"
#include "storage/DiskEnv.h"
#include "storage/HistorySteps.h"
#include "storage/SlideHistory.h"

namespace cb::pack {
namespace {

namespace fs = std::filesystem;

// The largest manifest read: far beyond the 32767 slides a file can hold.
// It bounds a restore's memory whatever the member count: the first pass
// keeps only the manifest, the second stops at the first member the manifest
// does not account for. A manifest at this limit of the shortest lines,
// parsed, takes under 100 MB; a backup's own, a few hundred bytes a file.
constexpr std::size_t kManifestLimit = 16u << 20;

// What a tar header takes before a member's data, counted towards the next
// progress call so that a run of empty members is heard too.
constexpr std::size_t kHeaderBytes = 512;

// `name` in double quotes for a message.
std::string Quoted(std::string_view name) { return "\"" + ShownName(name) + "\""; }

// The entry's name as bytes; a UTF-8 name the locale cannot hold comes as written.
std::string EntryName(archive_entry* e) {
  const char* raw = archive_entry_pathname(e);
  if (!raw) raw = archive_entry_pathname_utf8(e);
  return raw ? raw : "";
}

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
    // A pax name that is no UTF-8 comes with a warning; Refusal names it.
    if (r == ARCHIVE_OK || (r == ARCHIVE_WARN && !IsUtf8(EntryName(e)))) return e;
    Fail();
    return nullptr;
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

  // Passes over the entry's data.
  void Skip() {
    if (archive_read_data_skip(a_) != ARCHIVE_OK) Fail();
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

// The SHA-256 of the entry's data as it passes to `sink` (if any); empty
// when the user cancelled on the way.
std::string HashEntry(ArchiveIn& in, StepBeat& beat, const std::function<bool(const char*, std::size_t)>& sink = {}) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  in.Read([&](const char* b, std::size_t n) {
    hash.addData(QByteArrayView(b, static_cast<qsizetype>(n)));
    return (!sink || sink(b, n)) && beat.Passed(n);
  });
  return beat.cancelled() ? std::string() : hash.result().toHex().toStdString();
}

// Why `e` may not be restored, or "" when it may.
std::string Refusal(archive_entry* e, const std::string& name) {
  const std::string quoted = Quoted(name);
  if (!IsUtf8(name)) return quoted + " is not a name this program writes";
  if (archive_entry_symlink(e) || archive_entry_hardlink(e) || archive_entry_filetype(e) == AE_IFLNK)
    return quoted + " is a link, which could lead out of the application directory";
  if (name.starts_with("/")) return quoted + " is an absolute path, outside the application directory";
  if (name == ".." || name.starts_with("../") || name.find("/../") != std::string::npos || name.ends_with("/.."))
    return quoted + " would leave the application directory";
  if (archive_entry_filetype(e) != AE_IFREG) return quoted + " is not a regular file";
  if (name != kManifestName && !IsBackupName(name)) return quoted + " is no part of a backup";
  return {};
}

// One member of an archive as a pass meets it: its data still to be read
// or skipped; an answer other than ok ends the pass.
using MemberVisit = std::function<Status(ArchiveIn&, archive_entry*, const std::string& name)>;

// Each member of the archive at `path`, refused when it may not be restored
// and otherwise handed to `visit`.
Status Walk(const std::string& path, const MemberVisit& visit) {
  ArchiveIn in(path);
  while (archive_entry* e = in.Next()) {
    const std::string name = EntryName(e);
    if (const std::string why = Refusal(e, name); !why.empty()) return Status::Described(path + ": " + why);
    if (Status visited = visit(in, e, name); !visited.ok()) return visited;
  }
  if (!in.opened()) return Status::Described(path + ": " + in.error());
  if (!in.error().empty()) return Status::Described(path + ": a damaged archive (" + in.error() + ")");
  return {};
}

// The first pass: only the manifest kept, every other member's data read
// past in blocks, so that a cancel is heard within a large one.
Status FindManifest(const std::string& path, const JobProgress& progress, Manifest& manifest) {
  const auto fail = [&path](const std::string& why) { return Status::Described(path + ": " + why); };
  std::optional<std::string> text;
  StepBeat beat(progress, {"Checking file", 1, 0});
  const Status walked = Walk(path, [&](ArchiveIn& in, archive_entry*, const std::string& name) {
    if (!beat.Passed(kHeaderBytes)) return Cancelled(path);
    if (name != kManifestName) {
      in.Read([&beat](const char*, std::size_t n) { return beat.Passed(n); });
      return beat.cancelled() ? Cancelled(path) : Status();
    }
    if (text) return fail(Quoted(name) + " comes twice");
    text.emplace();
    const bool read = in.Read([&text](const char* b, std::size_t n) {
      text->append(b, n);
      return text->size() <= kManifestLimit;
    });
    return !read && in.error().empty() ? fail("the manifest is too large") : Status();
  });
  if (!walked.ok()) return walked;
  if (!text) return fail("no " + std::string(kManifestName) + "; not a backup of chattelbook-sif");
  std::string message;
  auto parsed = ParseManifest(*text, message);
  if (!parsed) return fail(message);
  manifest = std::move(*parsed);
  return {};
}

// The second pass: each member hashed against the manifest, up to the first
// one the manifest does not account for.
Status CheckMembers(const std::string& path, const JobProgress& progress, const Manifest& manifest,
                    std::vector<RestoreEntry>& entries) {
  const auto fail = [&path](const std::string& name, const char* why) {
    return Status::Described(path + ": " + Quoted(name) + why);
  };
  std::set<std::string_view> seen;  // views of the manifest's own names
  const Status walked = Walk(path, [&](ArchiveIn& in, archive_entry* e, const std::string& name) {
    if (name == kManifestName) {
      in.Skip();
      return Status();
    }
    const auto it = manifest.hashes.find(name);
    if (it == manifest.hashes.end()) return fail(name, " is not in the manifest");
    if (!seen.insert(it->first).second) return fail(name, " comes twice");
    const JobStep step{"Checking file", entries.size() + 1, 0};
    if (!progress(step)) return Cancelled(path);
    StepBeat beat(progress, step);
    const std::string hash = HashEntry(in, beat);
    if (beat.cancelled()) return Cancelled(path);
    if (!in.error().empty()) return Status();  // the walk tells the damage
    if (hash != it->second) return fail(name, " does not match its SHA-256 in the manifest");
    entries.push_back({name, hash, archive_entry_mtime(e)});
    return Status();
  });
  if (!walked.ok()) return walked;
  for (const auto& name : manifest.order)
    if (!seen.contains(name)) return fail(name, " is in the manifest but not in the archive");
  return {};
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

  Status MakeFolder(const fs::path& dir) {
    std::error_code ec;
    std::vector<fs::path> missing;
    for (fs::path p = dir; !p.empty() && !fs::exists(p, ec); p = p.parent_path()) missing.push_back(p);
    for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
      if (!fs::create_directory(*it, ec) && ec) return Status::Described(it->string() + ": " + ec.message());
      made_.push_back(*it);
    }
    return {};
  }

  // A new private file beside `target`, or -1 with errno set.
  int Open(const fs::path& target) {
    std::string temp;
    const int fd = MakeTempBeside(target.string(), NewFileMode(), temp);
    if (fd >= 0) staged_.emplace_back(temp, target.string());
    return fd;
  }

  // The staged copy of `target`; empty when none.
  std::string TempOf(const std::string& target) const {
    for (const auto& [temp, to] : staged_)
      if (to == target) return temp;
    return {};
  }

  void Stamp(time_t mtime) {
    const timespec times[2] = {{0, UTIME_OMIT}, {mtime, 0}};
    ::utimensat(AT_FDCWD, staged_.back().first.c_str(), times, 0);
  }

  Status Commit() {
    std::set<std::string> folders;
    for (const auto& dir : made_) folders.insert(dir.parent_path().string());
    for (auto& [temp, target] : staged_) {
      if (::rename(temp.c_str(), target.c_str()) != 0) return Status::Described(target + ": " + std::strerror(errno));
      temp.clear();
      folders.insert(fs::path(target).parent_path().string());
    }
    for (const auto& dir : folders) SyncFolder(dir);
    staged_.clear();
    made_.clear();
    return {};
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

// The slide files of `plan` (archive names) and, for each, whether the
// archive carries its history.
std::map<std::string, bool> SlideFiles(const RestorePlan& plan) {
  std::map<std::string, bool> files;
  for (const auto& e : plan.entries)
    if (e.name.starts_with("Files/") && !HistoryOwner(e.name)) files.emplace(e.name, false);
  for (const auto& e : plan.entries)
    if (const auto owner = HistoryOwner(e.name)) files[*owner] = true;
  return files;
}

// A slide file the restore replaces and whose history the archive does not
// carry keeps its own, with the restore as its last step, recorded before
// the file is replaced like any other step; so the program can undo it.
class RestoreSteps {
 public:
  RestoreSteps(const RestorePlan& plan, const Staging& staging) {
    Env& env = Env::Default();
    for (const auto& [name, carried] : SlideFiles(plan)) {
      const std::string target = (fs::path(plan.appDir) / name).string();
      std::string before, after;
      if (carried || env.KindOf(target) != EntryKind::File || env.ReadWhole(target, before) != RtError::None ||
          env.ReadWhole(staging.TempOf(target), after) != RtError::None)
        continue;
      auto history = std::make_unique<SlideHistory>(env, target);
      if (history->Open() == SlideHistory::Fit::Fits && history->Record(steps::kRestore, before, after).ok())
        kept_.emplace(name, std::move(history));
    }
  }

  bool Kept(const std::string& name) const { return kept_.contains(name); }

  // After the files were moved into place, or not.
  void Done(bool replaced) {
    for (auto& [name, history] : kept_) replaced ? history->Written() : static_cast<void>(history->Open());
  }

 private:
  std::map<std::string, std::unique_ptr<SlideHistory>> kept_;
};

// Each other slide file restored keeps the history the archive carries and
// no other: files of the old one that the archive lacks go, and an old
// history it has no replacement for is set aside. What fails here leaves a
// history that does not fit its file, which its next open sets aside.
void ReplaceHistories(const RestorePlan& plan, const RestoreSteps& stepped) {
  std::map<std::string, std::set<std::string>> carried;  // history folder -> its files, as archive names
  for (const auto& e : plan.entries) {
    const std::size_t slash = e.name.rfind('/');
    if (HistoryOwner(e.name)) carried[e.name.substr(0, slash)].insert(e.name.substr(slash + 1));
  }
  for (const auto& file : SlideFiles(plan)) {
    if (stepped.Kept(file.first)) continue;
    const std::string name = SlideHistory::FolderOf(file.first);
    const fs::path folder = fs::path(plan.appDir) / name;
    const auto kept = carried.find(name);
    if (kept == carried.end()) {
      SlideHistory::SetAsideFolder(Env::Default(), folder.string());
      continue;
    }
    std::error_code ec;
    std::vector<fs::path> gone;
    for (const auto& f : fs::directory_iterator(folder, ec))
      if (!kept->second.contains(f.path().filename().string()) && !f.is_directory(ec)) gone.push_back(f.path());
    for (const auto& f : gone) fs::remove(f, ec);
  }
}

}  // namespace

Status PlanRestore(const std::string& archivePath, const std::string& appDir, const JobProgress& progress,
                   RestorePlan& plan) {
  RestorePlan p;
  p.archivePath = archivePath;
  p.appDir = fs::absolute(appDir).lexically_normal().string();
  if (Status found = FindManifest(archivePath, progress, p.manifest); !found.ok()) return found;
  // A history comes only with its own file.
  for (const auto& name : p.manifest.order)
    if (const auto owner = HistoryOwner(name); owner && !p.manifest.hashes.contains(*owner))
      return Status::Described(archivePath + ": " + Quoted(name) + " is no part of a backup");
  if (Status checked = CheckMembers(archivePath, progress, p.manifest, p.entries); !checked.ok()) return checked;
  for (const auto& e : p.entries) {
    const fs::path target = fs::path(p.appDir) / e.name;
    std::error_code ec;
    const fs::file_status st = fs::symlink_status(target, ec);
    if (fs::is_directory(st)) return Status::Described(target.string() + ": is a directory");
    if (fs::exists(st)) p.existing.push_back(e.name);
  }
  plan = std::move(p);
  return {};
}

// The last pass: each file into its place, its hash checked once more.
Status CarryOutRestore(const RestorePlan& plan, const JobProgress& progress) {
  const std::string& path = plan.archivePath;
  const Status changed = Status::Described(path + ": the archive changed while it was read");
  Staging staging;
  ArchiveIn in(path);
  std::size_t next = 0;
  while (archive_entry* e = in.Next()) {
    const std::string name = EntryName(e);
    if (name == kManifestName) continue;
    if (next >= plan.entries.size() || plan.entries[next].name != name) return changed;
    const JobStep step{"Restoring file", next + 1, plan.entries.size()};
    if (!progress(step)) return Cancelled(path);
    const fs::path target = fs::path(plan.appDir) / name;
    if (Status made = staging.MakeFolder(target.parent_path()); !made.ok()) return made;
    const int fd = staging.Open(target);
    if (fd < 0) return Status::Described(target.string() + ": " + std::strerror(errno));
    StepBeat beat(progress, step);
    bool written = true;
    const std::string hash = HashEntry(in, beat, [&](const char* b, std::size_t n) { return written = WriteAll(fd, b, n); });
    written = written && (beat.cancelled() || ::fsync(fd) == 0);
    const int saved = errno;
    ::close(fd);
    if (!written) return Status::Described(target.string() + ": " + std::strerror(saved));
    if (beat.cancelled()) return Cancelled(path);
    if (!in.error().empty() || hash != plan.entries[next].hash)
      return Status::Described(path + ": " + Quoted(name) + " changed while it was read");
    staging.Stamp(plan.entries[next].mtime);
    ++next;
  }
  if (!in.error().empty() || next != plan.entries.size()) return changed;
  RestoreSteps stepped(plan, staging);
  const Status committed = staging.Commit();
  stepped.Done(committed.ok());
  if (!committed.ok()) return committed;
  ReplaceHistories(plan, stepped);
  return {};
}

}  // namespace cb::pack
