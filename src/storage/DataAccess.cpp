// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/DataAccess.h"

#include <memory>
#include <string>

#include "storage/Scramble.h"
#include "storage/SifCodec.h"

namespace cb {
namespace {

constexpr std::string_view kSource = "DataAccess";
constexpr std::string_view kCannotFind = "Cannot find Slide Information File.";
constexpr unsigned kNewFileMode = 0644;

}  // namespace

Status DataAccess::SaveSettings(const std::string& path, const SifSettings& settings, const SlideArray& slides) {
  return Save(path, settings, slides, nullptr, {}, false);
}

Status DataAccess::SaveSettings(const std::string& path, const SifSettings& settings, const SlideArray& slides,
                                SlideHistory& history, std::string_view step, bool amend) {
  return Save(path, settings, slides, &history, step, amend);
}

Status DataAccess::Save(const std::string& path, const SifSettings& settings, const SlideArray& slides,
                        SlideHistory* history, std::string_view step, bool amend) {
  if (slides.empty()) return {RtError::SubscriptOutOfRange, kSource};
  if (path.empty()) return {RtError::BadFileNameOrNumber, kSource};
  const long upper = static_cast<long>(slides.size()) - 1;

  // The new content is the old file with the records written over it, so a
  // file whose collection shrank keeps its old records behind the last slide.
  std::string bytes;
  const RtError read = env_.ReadWhole(path, bytes);
  if (read != RtError::None && read != RtError::FileNotFound) return {read, kSource};
  // The slide loop counts in 16 bits: a larger collection overflows before it starts.
  if (upper > kMaxRecords) return {RtError::Overflow, kSource};
  // A file that was there keeps its old bytes for the history's step.
  std::string before;
  if (history && read == RtError::None) before = bytes;
  // Grown once: the records land in order, so every byte they cover is written.
  const auto newSize = static_cast<std::size_t>(upper + 1) * kRecordLength;
  if (bytes.size() < newSize) bytes.resize(newSize, '\0');
  const auto file = RecordsOver(bytes, kRecordLength);

  SlideRecord header = slides[0];
  header.Set(Field::Serial, ScrambleField(std::to_string(upper)));
  header.Set(Field::PictureFile, ScrambleField(settings.BackgroundImage));
  header.Set(Field::SlideText, ScrambleField(settings.Wallpaper));
  header.Set(Field::Spare, ScrambleField(std::to_string(settings.SlideTemplate)));
  header.Set(Field::Make, ScrambleField(settings.ReportFont));
  file->Put(1, header.bytes());
  SlideRecord r;
  for (long i = 1; i <= upper; ++i) {
    // A record like the one before it encodes like it: runs of empty slides are common.
    const SlideRecord& plain = slides[static_cast<std::size_t>(i)];
    if (i == 1 || !(plain == slides[static_cast<std::size_t>(i - 1)])) {
      r = plain;
      EncodeSlide(r);
    }
    file->Put(i + 1, r.bytes());
  }
  // The step lasts before the file changes; a history that cannot keep it
  // does not stop the save, and no longer fits the file at its next open.
  const bool kept =
      history && read == RtError::None && (before == bytes || history->Record(step, before, bytes, amend).ok());
  if (Status saved = SaveBytes(path, bytes); !saved.ok()) {
    if (kept) history->Open();  // the history steps back to the file as it stayed
    return saved;
  }
  if (kept) history->Written();
  return {};
}

Status DataAccess::StepHistory(const std::string& path, SlideHistory& history, bool back) {
  std::string bytes;
  if (const RtError e = env_.ReadWhole(path, bytes); e != RtError::None) return {e, kSource};
  // In place: a file of 32,767 slides is not copied again.
  if (Status s = back ? history.Undo(bytes, bytes) : history.Redo(bytes, bytes); !s.ok()) return s;
  if (Status s = SaveBytes(path, bytes); !s.ok()) {
    history.Open();  // the history steps back to the file as it stayed
    return s;
  }
  history.Written();
  return {};
}

Status DataAccess::SaveBytes(const std::string& path, std::string_view bytes) {
  const RtError e = ReplaceFile(env_, path, bytes, kNewFileMode);
  // A writable file in a read-only folder cannot be replaced: the user is told where the trouble lies.
  if (e == RtError::PathFileAccess && env_.FolderRefusesSave(path)) return {e, kSource, ReadOnlyFolderText(path)};
  if (e != RtError::None) return {e, kSource};
  return {};
}

Status DataAccess::LoadSettings(const SifPaths& paths, SifSettings& settings, SlideArray& slides) {
  if (env_.EntryName(paths.Chosen) != paths.FileName) return Status::Described(kCannotFind);

  // Always read from the installation's files directory, whatever directory
  // was chosen; opening creates a file missing there, so the gallery is empty.
  std::unique_ptr<RecordFile> file;
  Status status;
  SifRead read;
  if (auto e = env_.OpenRecords(paths.ReadFrom, kRecordLength, OpenMode::ReadWrite, file); e != RtError::None)
    status = Status(e, kSource);
  else
    status = ReadSif(*file, read);

  // The settings in the order the load meets them: a count that cannot be
  // read stores none, a template too large keeps the template and the font.
  const SifHeader& h = read.Header;
  if (read.HeaderRead && h.NumberOfRecords.error == RtError::None) {
    settings.NumberOfRecords = h.NumberOfRecords.value;
    settings.BackgroundImage = h.BackgroundImage;
    settings.Wallpaper = h.Wallpaper;
    const TemplateVerdict t = JudgeTemplate(h);
    if (t == TemplateVerdict::Take) settings.SlideTemplate = h.SlideTemplate.value;
    if (t != TemplateVerdict::Fails) settings.ReportFont = h.ReportFont;
  }
  if (!status.ok()) {
    // An access failure before the header brings the count back to the none read.
    if (status.error() == RtError::PathFileAccess && !read.HeaderRead) settings.NumberOfRecords = 0;
    return status;
  }
  slides = std::move(read.Slides);
  return {};
}

}  // namespace cb
