#include "storage/SifReader.h"

#include <algorithm>

namespace cb {
namespace {

constexpr std::string_view kSource = "DataAccess";

}  // namespace

bool CountFailsLoad(const SifHeader& h) {
  return h.NumberOfRecords.error != RtError::None || h.NumberOfRecords.value > kMaxRecords;
}

CountVerdict JudgeCount(const SifHeader& h, long recordsHeld) {
  if (h.CountText.empty() || h.CountText[0] < '0' || h.CountText[0] > '9') return CountVerdict::NotANumber;
  if (h.NumberOfRecords.error != RtError::None) return CountVerdict::Unreadable;
  if (h.NumberOfRecords.value > kMaxRecords) return CountVerdict::AboveLimit;
  if (h.NumberOfRecords.value > recordsHeld) return CountVerdict::BeyondRecords;
  return CountVerdict::Fits;
}

TemplateVerdict JudgeTemplate(const SifHeader& h) {
  if (h.SlideTemplate.error == RtError::None) return TemplateVerdict::Take;
  return h.SlideTemplate.error == RtError::TypeMismatch ? TemplateVerdict::KeepOld : TemplateVerdict::Fails;
}

long RecordsHeld(long long size) {
  const auto length = static_cast<long long>(kRecordLength);
  return size <= 0 ? 0 : static_cast<long>((size + length - 1) / length - 1);
}

Status ReadSif(RecordFile& file, SifRead& read) {
  if (auto e = file.Get(1, read.Slides[0].bytes()); e != RtError::None) return {e, kSource};
  read.HeaderRead = true;
  read.Header = DecodeHeader(read.Slides[0]);
  const SifHeader& h = read.Header;
  if (h.NumberOfRecords.error != RtError::None) return {h.NumberOfRecords.error, kSource};
  if (JudgeTemplate(h) == TemplateVerdict::Fails) return {h.SlideTemplate.error, kSource};
  // Never allocate from a count the loop could not reach.
  const long upper = h.NumberOfRecords.value;
  if (upper > kMaxRecords) return {RtError::Overflow, kSource};
  // Records past the end of the file read as NUL and all decode alike.
  SlideRecord empty;
  DecodeSlide(empty);
  read.Slides.resize(static_cast<std::size_t>(upper) + 1, empty);
  const long last = std::min(upper, RecordsHeld(file.Size()));
  for (long i = 1; i <= last; ++i) {
    SlideRecord& r = read.Slides[static_cast<std::size_t>(i)];
    if (auto e = file.Get(i + 1, r.bytes()); e != RtError::None) return {e, kSource};
    DecodeSlide(r);
  }
  return {};
}

}  // namespace cb
