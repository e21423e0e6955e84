// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/SifReader.h"

#include <algorithm>
#include <span>
#include <vector>

namespace cb {
namespace {

constexpr std::string_view kSource = "DataAccess";
// Records read in one call: 71 KB, well inside the cache.
constexpr long kBlockRecords = 256;
// A block of records is decoded as one run of bytes.
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

Status ReadSifStored(RecordFile& file, SifRead& read, const StoredBlocks& take, SlideSpan span) {
  if (auto e = file.Get(1, read.Slides[0].bytes()); e != RtError::None) return {e, kSource};
  read.HeaderRead = true;
  read.Header = DecodeHeader(read.Slides[0]);
  const SifHeader& h = read.Header;
  if (h.NumberOfRecords.error != RtError::None) return {h.NumberOfRecords.error, kSource};
  if (JudgeTemplate(h) == TemplateVerdict::Fails) return {h.SlideTemplate.error, kSource};
  // Never allocate from a count the loop could not reach.
  if (h.NumberOfRecords.value > kMaxRecords) return {RtError::Overflow, kSource};
  const long upper = std::min(static_cast<long>(h.NumberOfRecords.value), span.last);
  const long lower = std::max(span.first, 1L);
  // Each block is handed on while its bytes are still in the cache. Records
  // past the end of the file read as NUL and decode as empty slides.
  std::vector<char> block(static_cast<std::size_t>(std::clamp(upper - lower + 1, 0L, kBlockRecords)) * kRecordLength +
                          kUnscrambleSpill);
  for (long first = lower; first <= upper; first += kBlockRecords) {
    const auto count = static_cast<std::size_t>(std::min(kBlockRecords, upper - first + 1));
    if (auto e = file.Get(first + 1, std::span<char>(block.data(), count * kRecordLength)); e != RtError::None)
      return {e, kSource};
    take(block.data(), count);
  }
  return {};
}

Status ReadSif(RecordFile& file, SifRead& read) {
  // Each slide is decoded into its place, with a record more for the spill of the last one's decoding.
  SlideArray& slides = read.Slides;
  const Status status = ReadSifStored(file, read, [&](const char* stored, std::size_t count) {
    if (slides.size() == 1) slides.reserve(static_cast<std::size_t>(read.Header.NumberOfRecords.value) + 2);
    const std::size_t at = slides.size();
    slides.resize(at + count + 1);
    for (std::size_t i = 0; i < count; ++i) DecodeSlideTo(stored + i * kRecordLength, slides[at + i].bytes().data());
    slides.pop_back();
  });
  // After a failing read of the slides the collection keeps the count's length.
  if (!status.ok() && read.HeaderRead && !CountFailsLoad(read.Header) &&
      JudgeTemplate(read.Header) != TemplateVerdict::Fails) {
    SlideRecord empty;
    DecodeSlide(empty);
    read.Slides.resize(static_cast<std::size_t>(read.Header.NumberOfRecords.value) + 1, empty);
  }
  return status;
}

}  // namespace cb
