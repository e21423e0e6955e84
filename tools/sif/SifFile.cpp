#include "SifFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "app/UIMainController.h"
#include "app/modGlobal.h"
#include "storage/DataAccess.h"

namespace cb::sif {
namespace {

// Bytes past the end of the file read as NUL, as a random-access read does.
bool ReadRecord(std::ifstream& in, long n, SlideRecord& record) {
  record = SlideRecord();
  in.clear();
  in.seekg(static_cast<std::streamoff>(n - 1) * static_cast<std::streamoff>(kRecordLength));
  if (!in) return true;
  in.read(record.bytes().data(), static_cast<std::streamsize>(kRecordLength));
  return !in.bad();
}

std::string Errno(const std::string& what) { return what + ": " + std::strerror(errno); }

// A private file beside `path`, with the mode a newly created file gets.
std::string MakeTempBeside(const std::string& path, std::string& message) {
  const std::filesystem::path target(path);
  const auto dir = target.parent_path().empty() ? std::filesystem::path(".") : target.parent_path();
  std::string name = (dir / ("." + target.filename().string() + ".XXXXXX")).string();
  const int fd = ::mkstemp(name.data());
  if (fd < 0) {
    message = Errno(path);
    return {};
  }
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::fchmod(fd, 0666 & ~mask);
  ::close(fd);
  return name;
}

}  // namespace

std::optional<std::int32_t> TemplateOf(const SifDocument& doc) {
  if (doc.Header.SlideTemplate.error != RtError::None) return std::nullopt;
  return doc.Header.SlideTemplate.value;
}

bool ReadSif(const std::string& path, SifDocument& doc, std::string& message) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    message = path + ": is a directory";
    return false;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    message = Errno(path);
    return false;
  }
  SifDocument local;
  if (!ReadRecord(in, 1, local.Slides[0])) {
    message = Errno(path);
    return false;
  }
  local.Header = DecodeHeader(local.Slides[0]);
  const auto& h = local.Header;
  // The same two header faults that make the program's load fail.
  if (h.NumberOfRecords.error != RtError::None || h.NumberOfRecords.value > DataAccess::kMaxRecords) {
    message = path + ": the header counts " + h.CountText + " slides, more than the " +
              std::to_string(DataAccess::kMaxRecords) + " a load can hold";
    return false;
  }
  if (h.SlideTemplate.error != RtError::None && h.SlideTemplate.error != RtError::TypeMismatch) {
    message = path + ": the header's template \"" + h.TemplateText + "\" is too large a number";
    return false;
  }
  const long count = h.NumberOfRecords.value;
  local.Slides.resize(static_cast<std::size_t>(count) + 1);
  for (long i = 1; i <= count; ++i) {
    SlideRecord& r = local.Slides[static_cast<std::size_t>(i)];
    if (!ReadRecord(in, i + 1, r)) {
      message = Errno(path);
      return false;
    }
    DecodeSlide(r);
  }
  doc = std::move(local);
  return true;
}

bool WriteSif(const std::string& path, const SifSettings& settings, const SlideArray& slides, bool replace,
              std::string& message) {
  std::error_code ec;
  if (!replace && std::filesystem::exists(path, ec)) {
    message = path + ": already exists; give --force to replace it";
    return false;
  }
  const std::string temp = MakeTempBeside(path, message);
  if (temp.empty()) return false;

  ModGlobal globals;
  MemorySettings store;
  UIMainController mc("", store, globals);
  mc.SlideInformationFilePath(temp);
  mc.SlideTemplate(settings.SlideTemplate);
  mc.BackgroundImage(settings.BackgroundImage);
  mc.Wallpaper(settings.Wallpaper);
  mc.ReportFont(settings.ReportFont);
  SlideArray copy = slides.empty() ? SlideArray(1) : slides;
  copy[0] = SlideRecord();  // a new file's header: what the program does not fill stays NUL

  ErrorArray errors;
  bool ok = DataAccess(mc, copy).SaveSettings(errors);
  if (!ok) {
    message = path + ": " + errors[2];
  } else if (replace) {
    ok = ::rename(temp.c_str(), path.c_str()) == 0;
    if (!ok) message = Errno(path);
  } else if (::link(temp.c_str(), path.c_str()) != 0) {
    // link() refuses an existing name, so a file that appeared meanwhile is
    // kept; on a file system without hard links a plain move has to do.
    const bool exists = errno == EEXIST || std::filesystem::exists(path, ec);
    ok = !exists && ::rename(temp.c_str(), path.c_str()) == 0;
    if (!ok) message = exists ? path + ": already exists; give --force to replace it" : Errno(path);
  }
  ::unlink(temp.c_str());  // gone already after a move
  return ok;
}

}  // namespace cb::sif
