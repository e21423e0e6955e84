#include "storage/DataAccess.h"

#include <string>

#include "app/UIMainController.h"
#include "storage/FileSystem.h"
#include "storage/RandomFile.h"
#include "storage/Scramble.h"
#include "storage/SifCodec.h"

namespace cb {
namespace {

constexpr std::string_view kSource = "DataAccess";
constexpr std::string_view kCannotFind = "Cannot find Slide Information File.";

bool Fail(ErrorArray& errors, RtError e) {
  FillErrors(errors, e, kSource);
  return false;
}

}  // namespace

bool DataAccess::SaveSettings(ErrorArray& errors) {
  if (slides_.empty()) return Fail(errors, RtError::SubscriptOutOfRange);
  SlideArray copy = slides_;
  const long upper = static_cast<long>(copy.size()) - 1;

  RandomFile file;
  const std::string& path = mc_.SlideInformationFilePath();
  if (path.empty()) return Fail(errors, RtError::BadFileNameOrNumber);
  if (auto e = file.Open(path, kRecordLength); e != RtError::None) return Fail(errors, e);

  SlideRecord& header = copy[0];
  header.Set(Field::Serial, ScrambleField(std::to_string(upper)));
  header.Set(Field::PictureFile, ScrambleField(mc_.BackgroundImage()));
  header.Set(Field::SlideText, ScrambleField(mc_.Wallpaper()));
  header.Set(Field::Spare, ScrambleField(std::to_string(mc_.SlideTemplate())));
  header.Set(Field::Make, ScrambleField(mc_.ReportFont()));
  if (auto e = file.Put(1, header.bytes()); e != RtError::None) return Fail(errors, e);

  // The slide loop counts in 16 bits: a larger collection overflows before it starts.
  if (upper > kMaxRecords) return Fail(errors, RtError::Overflow);
  for (long i = 1; i <= upper; ++i) {
    SlideRecord& r = copy[static_cast<std::size_t>(i)];
    EncodeSlide(r);
    if (auto e = file.Put(i + 1, r.bytes()); e != RtError::None) return Fail(errors, e);
  }
  return true;
}

bool DataAccess::LoadSettings(ErrorArray& errors) {
  if (DirEntryName(mc_.SlideInformationFilePath()) != mc_.SlideInformationFile()) {
    errors[2] = std::string(kCannotFind);
    return false;
  }
  SlideArray local(1);

  // An access failure first brings the count back to what was read so far.
  const auto fail = [&](RtError e) {
    const auto readSoFar = static_cast<std::int32_t>(local.size()) - 1;
    if (e == RtError::PathFileAccess && readSoFar != mc_.NumberOfRecords()) mc_.NumberOfRecords(readSoFar);
    return Fail(errors, e);
  };

  RandomFile file;
  // Always read from the installation's files directory, whatever directory was chosen.
  const std::string path = mc_.AppPath() + mc_.GetSIFDirectory() + mc_.SlideInformationFile();
  if (auto e = file.Open(path, kRecordLength); e != RtError::None) return fail(e);
  SlideRecord& header = local[0];
  if (auto e = file.Get(1, header.bytes()); e != RtError::None) return fail(e);

  // The settings are stored one by one, so a failure keeps those stored before it.
  SifHeader h = DecodeHeader(header);
  if (h.NumberOfRecords.error != RtError::None) return fail(h.NumberOfRecords.error);
  mc_.NumberOfRecords(h.NumberOfRecords.value);
  mc_.BackgroundImage(std::move(h.BackgroundImage));
  mc_.Wallpaper(std::move(h.Wallpaper));
  if (h.SlideTemplate.error == RtError::None)
    mc_.SlideTemplate(h.SlideTemplate.value);
  else if (h.SlideTemplate.error != RtError::TypeMismatch)  // an unreadable template is passed over
    return fail(h.SlideTemplate.error);
  mc_.ReportFont(std::move(h.ReportFont));

  // Never allocate from a count the loop could not reach.
  const long upper = mc_.NumberOfRecords();
  if (upper > kMaxRecords) return fail(RtError::Overflow);
  local.resize(static_cast<std::size_t>(upper) + 1);
  for (long i = 1; i <= upper; ++i) {
    SlideRecord& r = local[static_cast<std::size_t>(i)];
    if (auto e = file.Get(i + 1, r.bytes()); e != RtError::None) return fail(e);
    DecodeSlide(r);
  }
  slides_ = std::move(local);
  return true;
}

}  // namespace cb
