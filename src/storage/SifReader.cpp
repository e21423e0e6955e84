// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/SifReader.h"

#include <algorithm>

namespace cb {
namespace {

constexpr std::string_view kSource = "DataAccess";
// Records read in one call: 71 KB, well inside the cache.
constexpr long kBlockRecords = 256;
// A block of records is read as one run of bytes.
static_assert(sizeof(SlideRecord) == kRecordLength);

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
  const long last = std::min(upper, RecordsHeld(file.Size()));
  read.Slides.reserve(static_cast<std::size_t>(upper) + 1);
  // A block of records at a time, each decoded as it joins the slides: the
  // bytes are read once and decoded while still in the cache.
  SlideArray block(static_cast<std::size_t>(std::min(last, kBlockRecords)));
  Status status;
  for (long first = 1; first <= last; first += kBlockRecords) {
    const auto count = static_cast<std::size_t>(std::min(kBlockRecords, last - first + 1));
    const std::span<char> bytes(reinterpret_cast<char*>(block.data()), count * kRecordLength);
    if (auto e = file.Get(first + 1, bytes); e != RtError::None) {
      status = {e, kSource};
      break;
    }
    for (std::size_t k = 0; k < count; ++k) DecodeSlide(read.Slides.emplace_back(block[k]));
  }
  // Records past the end of the file read as NUL and all decode alike.
  SlideRecord empty;
  DecodeSlide(empty);
  read.Slides.resize(static_cast<std::size_t>(upper) + 1, empty);
  return status;
}

}  // namespace cb
