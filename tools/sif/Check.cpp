// SPDX-License-Identifier: GPL-3.0-or-later
#include "Check.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <memory>

#include "base/Cp1252.h"
#include "base/Text.h"
#include "storage/Env.h"
#include "storage/FileSystem.h"
#include "storage/SifReader.h"

namespace cb::sif {
namespace {

namespace fs = std::filesystem;

// The header fields a load reads, by the name of the setting they hold.
struct HeaderUse {
  Field field;
  std::string_view setting;
};

constexpr std::array<HeaderUse, 5> kHeaderUses{{
    {Field::Spare, "SlideTemplate"},
    {Field::PictureFile, "BackgroundImage"},
    {Field::SlideText, "Wallpaper"},
    {Field::Make, "ReportFont"},
    {Field::Serial, "NumberOfRecords"},
}};

constexpr std::string_view kNulBytes = ": NUL bytes, which a load drops";

std::string Q(const std::string& cp1252) { return "\"" + Cp1252ToUtf8(cp1252) + "\""; }

// A record as read, with how many of its bytes the file holds.
struct RawRecord {
  SlideRecord record;
  std::size_t present = 0;
};

// NUL among the bytes the file holds; the missing tail reads as NUL but is
// reported as a short file instead.
bool HasNul(const RawRecord& r, Field f) {
  const auto& s = LayoutOf(f);
  const auto& b = r.record.bytes();
  const std::size_t end = std::min(s.offset + s.width, r.present);
  return s.offset < end && std::find(b.begin() + s.offset, b.begin() + end, '\0') != b.begin() + end;
}

// Reads record `n` (from 1) of a file of `size` bytes; bytes past its end are NUL.
RawRecord ReadRecord(RecordFile& file, long long size, long n) {
  RawRecord r;
  if (file.Get(n, r.record.bytes()) != RtError::None) return RawRecord();
  const long long at = static_cast<long long>(n - 1) * static_cast<long long>(kRecordLength);
  r.present = static_cast<std::size_t>(std::clamp(size - at, 0LL, static_cast<long long>(kRecordLength)));
  return r;
}

void CheckCount(const SifHeader& h, long held, std::vector<std::string>& findings) {
  const auto& count = h.NumberOfRecords;
  switch (JudgeCount(h, held)) {
    case CountVerdict::NotANumber:
      findings.push_back("header: the slide count " + Q(h.CountText) + " is not a number; a load finds no slides");
      break;
    case CountVerdict::Unreadable:
    case CountVerdict::AboveLimit:
      findings.push_back("header: the slide count " + Q(h.CountText) + " is above " + std::to_string(kMaxRecords) +
                         "; a load fails");
      break;
    case CountVerdict::BeyondRecords:
      findings.push_back("header: the slide count " + std::to_string(count.value) + " is beyond the " +
                         std::to_string(held) + " slide records in the file; slides " + std::to_string(held + 1) +
                         " to " + std::to_string(count.value) + " load empty");
      break;
    case CountVerdict::Fits:
      break;
  }
}

void CheckTemplate(const SifHeader& h, std::vector<std::string>& findings) {
  switch (JudgeTemplate(h)) {
    case TemplateVerdict::KeepOld:
      findings.push_back("header: the template " + Q(h.TemplateText) +
                         " is not a number; a load keeps the template it had");
      break;
    case TemplateVerdict::Fails:
      findings.push_back("header: the template " + Q(h.TemplateText) + " is too large a number; a load fails");
      break;
    case TemplateVerdict::Take:
      if (h.SlideTemplate.value < 1 || h.SlideTemplate.value > 3)
        findings.push_back("header: the template " + std::to_string(h.SlideTemplate.value) + " is outside 1 to 3");
      break;
  }
}

void CheckPicture(const SlideRecord& raw, long i, const std::string& dir, std::vector<std::string>& findings) {
  SlideRecord r = raw;
  DecodeSlide(r);
  const std::string name = Cp1252ToUtf8(Trim(r.Get(Field::PictureFile)));
  const std::string slide = "slide " + std::to_string(i);
  if (name.empty()) {
    findings.push_back(slide + ": no picture file named");
    return;
  }
  const std::string path = (fs::path(dir) / name).string();
  std::error_code ec;
  if (fs::is_regular_file(path, ec)) return;
  std::string line = slide + ": picture \"" + name + "\" is missing from " + dir;
  // A picture that differs only in case is still not found by name.
  if (const std::string other = DirEntryName(path); !other.empty() && other != name)
    line += " (\"" + other + "\" differs in case)";
  findings.push_back(line);
}

}  // namespace

bool CheckSif(const std::string& path, const std::optional<std::string>& galleryDir,
              std::vector<std::string>& findings, std::string& message) {
  std::error_code ec;
  if (!fs::is_regular_file(path, ec)) {
    message = path + (fs::exists(path, ec) ? ": not a regular file" : ": No such file or directory");
    return false;
  }
  std::unique_ptr<RecordFile> file;
  if (Env::Default().OpenRecords(path, kRecordLength, OpenMode::Read, file) != RtError::None) {
    message = path + ": " + std::strerror(errno);
    return false;
  }
  if (galleryDir && !fs::is_directory(*galleryDir, ec)) {
    message = *galleryDir + ": not a directory";
    return false;
  }
  const long long size = file->Size();
  const auto length = static_cast<long long>(kRecordLength);
  if (size == 0) {
    findings.push_back("the file is empty; a load finds no slides and keeps the template it had");
    return true;
  }
  if (size % length != 0)
    findings.push_back("the file's " + std::to_string(size) + " bytes are no whole number of " +
                       std::to_string(length) + "-byte records; the last record is cut short");
  const long held = RecordsHeld(size);

  const RawRecord header = ReadRecord(*file, size, 1);
  const SifHeader h = DecodeHeader(header.record);
  CheckCount(h, held, findings);
  CheckTemplate(h, findings);
  for (const auto& use : kHeaderUses)
    if (HasNul(header, use.field)) findings.push_back("header, " + std::string(use.setting) + std::string(kNulBytes));

  // Records behind the end of the file were reported with the count.
  const long count = h.NumberOfRecords.error == RtError::None ? h.NumberOfRecords.value : 0;
  const long slides = std::min(count, held);
  for (long i = 1; i <= slides; ++i) {
    const RawRecord raw = ReadRecord(*file, size, i + 1);
    for (const auto& f : kFields)
      if (HasNul(raw, f.field))
        findings.push_back("slide " + std::to_string(i) + ", " + std::string(f.name) + std::string(kNulBytes));
    if (galleryDir) CheckPicture(raw.record, i, *galleryDir, findings);
  }
  return true;
}

}  // namespace cb::sif
