// SPDX-License-Identifier: GPL-3.0-or-later
#include "Backup.h"

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "base/Cp1252.h"
#include "base/Text.h"
#include "pack/ClaimContent.h"
#include "pack/Manifest.h"
#include "pack/SifFile.h"
#include "storage/DiskEnv.h"

namespace cb::sif {
namespace {

using namespace pack;

namespace fs = std::filesystem;

struct Source {
  std::string name;  // in the archive: "Gallery/tv.jpg"
  std::string path;  // on disk
  std::string who;   // what names it, for the message when it is missing
};

bool PlainName(const std::string& n) { return !n.empty() && n != "." && n != ".." && n.find('/') == std::string::npos; }

// The file itself, each picture once in record order, the frame, the wallpaper.
std::vector<Source> Sources(const SifDocument& doc, const std::string& sifPath, const fs::path& gallery,
                            std::vector<std::string>& notes) {
  std::vector<Source> out{{"Files/" + fs::path(sifPath).filename().string(), sifPath, "the file"}};
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

// A regular file's bytes; false when it is missing or not a regular file.
bool ReadWhole(const std::string& path, std::string& bytes, time_t& mtime) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  mtime = st.st_mtime;
  return !in.bad();
}

// An archive being written into a private file beside its final name.
class ArchiveOut {
 public:
  explicit ArchiveOut(const std::string& path) : path_(path) {
    fd_ = MakeTempBeside(path, NewFileMode(), temp_);
    if (fd_ < 0) return;
    RemoveStaleTemps(path, temp_);
    a_ = archive_write_new();
    archive_write_add_filter_gzip(a_);
    archive_write_set_format_pax_restricted(a_);
    if (archive_write_open_fd(a_, fd_) != ARCHIVE_OK) Fail();
  }
  ~ArchiveOut() {
    if (a_) archive_write_free(a_);
    if (fd_ >= 0) ::close(fd_);
    if (!committed_ && !temp_.empty()) ::unlink(temp_.c_str());
  }
  ArchiveOut(const ArchiveOut&) = delete;
  ArchiveOut& operator=(const ArchiveOut&) = delete;

  bool Add(const std::string& name, const std::string& bytes, time_t mtime) {
    if (!ok()) return false;
    archive_entry* e = archive_entry_new();
    archive_entry_set_pathname_utf8(e, name.c_str());
    archive_entry_set_filetype(e, AE_IFREG);
    archive_entry_set_perm(e, 0644);
    archive_entry_set_size(e, static_cast<la_int64_t>(bytes.size()));
    archive_entry_set_mtime(e, mtime, 0);
    bool good = archive_write_header(a_, e) == ARCHIVE_OK &&
                archive_write_data(a_, bytes.data(), bytes.size()) == static_cast<la_ssize_t>(bytes.size());
    archive_entry_free(e);
    if (!good) Fail();
    return good;
  }

  // Finishes the archive and moves it into place; false with `message` filled.
  bool Commit(std::string& message) {
    if (ok() && archive_write_close(a_) != ARCHIVE_OK) Fail();
    if (ok() && ::fsync(fd_) != 0) error_ = std::strerror(errno);
    if (ok() && ::rename(temp_.c_str(), path_.c_str()) != 0) error_ = std::strerror(errno);
    committed_ = ok();
    if (!committed_) message = path_ + ": " + error_;
    return committed_;
  }

  bool ok() const { return fd_ >= 0 && error_.empty(); }
  std::string error() const { return fd_ < 0 ? std::string(std::strerror(errno)) : error_; }

 private:
  void Fail() {
    const char* e = a_ ? archive_error_string(a_) : nullptr;
    error_ = e ? e : "the archive could not be written";
  }

  std::string path_, temp_, error_;
  int fd_ = -1;
  archive* a_ = nullptr;
  bool committed_ = false;
};

}  // namespace

int RunBackup(const QStringList& args, const CommandIo& io) {
  QCommandLineParser p;
  const QCommandLineOption gallery(QString("gallery"), "the directory of the pictures", "DIR");
  const QCommandLineOption output({"o", "output"}, "the archive to write", "ARCHIVE.tar.gz");
  p.addOptions({gallery, output});
  int status = kExitOk;
  if (!ParseOne(p, args, io, status)) return status;
  const std::string out = p.value(output).toStdString();
  if (out.empty()) return UsageError(io, "backup needs -o ARCHIVE.tar.gz");

  const std::string path = p.positionalArguments()[0].toStdString();
  SifDocument doc;
  std::string message;
  if (!ReadSif(path, doc, message)) return DataError(io, message);
  const fs::path galleryDir = fs::absolute(p.isSet(gallery) ? p.value(gallery).toStdString() : DefaultGalleryDir(path))
                                  .lexically_normal();
  std::vector<std::string> notes;
  const std::vector<Source> sources = Sources(doc, path, galleryDir, notes);

  ArchiveOut archive(out);
  if (!archive.ok()) return DataError(io, out + ": " + archive.error());
  Manifest manifest;
  for (const auto& s : sources) {
    std::string bytes;
    time_t mtime = 0;
    if (!ReadWhole(s.path, bytes, mtime)) {
      if (&s == &sources.front()) return DataError(io, path + ": " + std::strerror(errno));
      notes.push_back(s.who + ": \"" + s.path + "\" is missing; listed in the manifest");
      manifest.missing.push_back(s.name);
      continue;
    }
    if (!archive.Add(s.name, bytes, mtime)) return DataError(io, out + ": " + archive.error());
    manifest.hashes[s.name] = Sha256Hex(bytes);
    manifest.order.push_back(s.name);
  }
  const std::string text = ManifestText(manifest, fs::path(path).filename().string());
  if (!archive.Add(std::string(kManifestName), text, ::time(nullptr)) || !archive.Commit(message))
    return DataError(io, message.empty() ? out + ": " + archive.error() : message);
  for (const auto& n : notes) io.err << "chattelbook-sif: " << n << "\n";
  io.out << manifest.order.size() << " files backed up into " << out;
  if (!manifest.missing.empty()) io.out << ", " << manifest.missing.size() << " missing";
  io.out << "\n";
  return kExitOk;
}

}  // namespace cb::sif
