// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/SifCodec.h"

#include <algorithm>
#include <span>

#include "storage/Scramble.h"

namespace cb {

SifHeader DecodeHeader(const SlideRecord& raw) {
  SifHeader h;
  h.CountText = UnscrambleField(Trim(raw.Get(Field::Serial)));
  h.NumberOfRecords = ToLong(LeadingDigitsValue(h.CountText));
  h.BackgroundImage = UnscrambleField(Trim(raw.Get(Field::PictureFile)));
  h.Wallpaper = UnscrambleField(Trim(raw.Get(Field::SlideText)));
  h.TemplateText = UnscrambleField(raw.Get(Field::Spare));
  h.SlideTemplate = TextToLong(h.TemplateText);
  h.ReportFont = UnscrambleField(raw.Get(Field::Make));
  return h;
}

namespace {

std::span<char> FieldBytes(SlideRecord& record, Field f) {
  const auto& s = LayoutOf(f);
  return std::span<char>(record.bytes()).subspan(s.offset, s.width);
}

// In record order, so that the spill of each field is written over by the next.
template <std::size_t... I>
void DecodeFields(const char* stored, char* out, std::index_sequence<I...>) {
  (StoredField<kFields[I].width>(stored + kFields[I].offset).WriteTo(out + kFields[I].offset), ...);
}

}  // namespace

void DecodeSlideTo(const char* stored, char* out) { DecodeFields(stored, out, FieldPlaces{}); }

void DecodeSlide(SlideRecord& record) {
  std::array<char, kRecordLength + kUnscrambleSpill> stored{}, decoded;
  std::copy(record.bytes().begin(), record.bytes().end(), stored.begin());
  DecodeSlideTo(stored.data(), decoded.data());
  std::copy_n(decoded.begin(), kRecordLength, record.bytes().begin());
}

void EncodeSlide(SlideRecord& record) {
  for (Field f : kCodecOrder) ScrambleInPlace(FieldBytes(record, f), f == Field::Value);
}

}  // namespace cb
