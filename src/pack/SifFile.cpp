// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/SifFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>

#include "pack/FolderSync.h"
#include "storage/DiskEnv.h"

namespace cb::pack {
namespace {

std::string Errno(const std::string& what) { return what + ": " + std::strerror(errno); }

// A private file beside `path`, with `mode`.
std::string NewTempBeside(const std::string& path, unsigned mode, std::string& message) {
  std::string name;
  const int fd = MakeTempBeside(path, mode, name);
  if (fd < 0) {
    message = Errno(path);
    if (Env::Default().FolderRefusesSave(path)) message = ReadOnlyFolderText(path);
    return {};
  }
  RemoveStaleTemps(path, name);
  ::close(fd);
  return name;
}

}  // namespace

std::optional<std::int32_t> TemplateOf(const SifDocument& doc) {
  if (doc.Header.SlideTemplate.error != RtError::None) return std::nullopt;
  return doc.Header.SlideTemplate.value;
}

namespace {

// Opens `path` and reads it with `read`, naming the trouble as the
// program's load would meet it.
bool ReadWith(const std::string& path, SifDocument& doc, std::string& message,
              const std::function<Status(RecordFile&, SifRead&)>& read) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    message = path + ": is a directory";
    return false;
  }
  std::unique_ptr<RecordFile> file;
  if (Env::Default().OpenRecords(path, kRecordLength, OpenMode::Read, file) != RtError::None) {
    message = Errno(path);
    return false;
  }
  SifDocument local;
  if (read(*file, local).ok()) {
    doc = std::move(local);
    return true;
  }
  // The same header faults that make the program's load fail.
  const SifHeader& h = local.Header;
  if (!local.HeaderRead)
    message = Errno(path);
  else if (CountFailsLoad(h))
    message = path + ": the header counts " + h.CountText + " slides, more than the " +
              std::to_string(kMaxRecords) + " a load can hold";
  else if (JudgeTemplate(h) == TemplateVerdict::Fails)
    message = path + ": the header's template \"" + h.TemplateText + "\" is too large a number";
  else
    message = Errno(path);
  return false;
}

}  // namespace

bool ReadSif(const std::string& path, SifDocument& doc, std::string& message) {
  return ReadWith(path, doc, message, [](RecordFile& file, SifRead& read) { return cb::ReadSif(file, read); });
}

bool ReadSifStored(const std::string& path, SifDocument& doc, const StoredBlocks& take, std::string& message,
                   SlideSpan span) {
  return ReadWith(path, doc, message,
                  [&take, span](RecordFile& file, SifRead& read) { return cb::ReadSifStored(file, read, take, span); });
}

bool WriteSif(const std::string& path, const SifSettings& settings, const SlideArray& slides, bool replace,
              std::string& message, std::string_view step) {
  std::error_code ec;
  if (!replace && std::filesystem::exists(path, ec)) {
    message = path + ": already exists; give --force to replace it";
    return false;
  }
  // A link is followed, so its file is replaced and the link stays; the
  // file keeps its mode; a device or a pipe is no slide file to replace.
  const SaveTarget at = SaveTargetOf(path);
  if (!at.plain) {
    message = path + ": not a plain file; nothing was written";
    return false;
  }
  const std::string& target = at.path;
  const std::string temp = NewTempBeside(target, at.mode, message);
  if (temp.empty()) return false;

  SlideArray copy = slides.empty() ? SlideArray(1) : slides;
  copy[0] = SlideRecord();  // a new file's header: what the program does not fill stays NUL

  const Status saved = DataAccess().SaveSettings(temp, settings, copy);
  bool ok = saved.ok();
  if (!ok) {
    message = path + ": " + std::string(saved.description());
  } else if (replace) {
    // The replaced file's history keeps the step before the file changes.
    std::string before, after;
    SlideHistory history(Env::Default(), target);
    const bool kept = !step.empty() && Env::Default().ReadWhole(target, before) == RtError::None &&
                      Env::Default().ReadWhole(temp, after) == RtError::None &&
                      history.Open() == SlideHistory::Fit::Fits && history.Record(step, before, after).ok();
    ok = ::rename(temp.c_str(), target.c_str()) == 0;
    if (!ok) message = Errno(path);
    if (kept && ok) history.Written();
    if (kept && !ok) history.Open();  // back to the file as it stayed
  } else if (::link(temp.c_str(), target.c_str()) != 0) {
    // link() refuses an existing name, so a file that appeared meanwhile is
    // kept; on a file system without hard links a plain move has to do.
    const bool exists = errno == EEXIST || std::filesystem::exists(path, ec);
    ok = !exists && ::rename(temp.c_str(), target.c_str()) == 0;
    if (!ok) message = exists ? path + ": already exists; give --force to replace it" : Errno(path);
  }
  ::unlink(temp.c_str());  // gone already after a move
  if (ok) SyncFolder(std::filesystem::path(target).parent_path().string());
  return ok;
}

}  // namespace cb::pack
