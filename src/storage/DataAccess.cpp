#include "storage/DataAccess.h"

#include <array>
#include <string>

#include "app/Text.h"
#include "app/UIMainController.h"
#include "storage/FileSystem.h"
#include "storage/RandomFile.h"
#include "storage/Scramble.h"

namespace cb {
namespace {

constexpr std::string_view kSource = "DataAccess";
constexpr std::string_view kCannotFind = "Cannot find Slide Information File.";

// The order in which the fields of a slide are scrambled and unscrambled.
constexpr std::array<Field, 9> kFieldOrder{Field::Spare,  Field::Category, Field::PictureFile,
                                           Field::Location, Field::Serial, Field::SlideText,
                                           Field::Make,   Field::Model,    Field::Value};

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
    for (Field f : kFieldOrder) {
      const std::string plain = r.Get(f);
      r.Set(f, ScrambleField(f == Field::Value ? Trim(plain) : plain));
    }
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

  const auto count = ToLong(LeadingDigitsValue(UnscrambleField(Trim(header.Get(Field::Serial)))));
  if (count.error != RtError::None) return fail(count.error);
  mc_.NumberOfRecords(count.value);
  mc_.BackgroundImage(UnscrambleField(Trim(header.Get(Field::PictureFile))));
  mc_.Wallpaper(UnscrambleField(Trim(header.Get(Field::SlideText))));
  const auto tmpl = TextToLong(UnscrambleField(header.Get(Field::Spare)));
  if (tmpl.error == RtError::None)
    mc_.SlideTemplate(tmpl.value);
  else if (tmpl.error != RtError::TypeMismatch)  // an unreadable template is passed over
    return fail(tmpl.error);
  mc_.ReportFont(UnscrambleField(header.Get(Field::Make)));

  // Never allocate from a count the loop could not reach.
  const long upper = mc_.NumberOfRecords();
  if (upper > kMaxRecords) return fail(RtError::Overflow);
  local.resize(static_cast<std::size_t>(upper) + 1);
  for (long i = 1; i <= upper; ++i) {
    SlideRecord& r = local[static_cast<std::size_t>(i)];
    if (auto e = file.Get(i + 1, r.bytes()); e != RtError::None) return fail(e);
    for (Field f : kFieldOrder) r.Set(f, UnscrambleField(Trim(r.Get(f))));
  }
  slides_ = std::move(local);
  return true;
}

}  // namespace cb
