// SPDX-License-Identifier: GPL-3.0-or-later
#include "storage/SifCodec.h"

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

}  // namespace

// Field by field in place: a load decodes up to 32767 records.
void DecodeSlide(SlideRecord& record) {
  for (Field f : kCodecOrder) UnscrambleInPlace(FieldBytes(record, f));
}

void EncodeSlide(SlideRecord& record) {
  for (Field f : kCodecOrder) ScrambleInPlace(FieldBytes(record, f), f == Field::Value);
}

}  // namespace cb
