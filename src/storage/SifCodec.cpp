#include "storage/SifCodec.h"

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

void DecodeSlide(SlideRecord& record) {
  for (Field f : kCodecOrder) record.Set(f, UnscrambleField(Trim(record.Get(f))));
}

void EncodeSlide(SlideRecord& record) {
  for (Field f : kCodecOrder) {
    const std::string plain = record.Get(f);
    record.Set(f, ScrambleField(f == Field::Value ? Trim(plain) : plain));
  }
}

}  // namespace cb
