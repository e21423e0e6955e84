// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The coding of Slide Information File records as a load and a save perform
// it, record by record, apart from where the file comes from. DataAccess and
// the command-line companion both read and write records through these
// functions.

#include <array>
#include <string>

#include "base/Text.h"
#include "model/SlideRecord.h"
#include "storage/Scramble.h"

namespace cb {

// The order in which a save scrambles the fields of a slide.
inline constexpr std::array<Field, 9> kCodecOrder{Field::Spare,    Field::Category, Field::PictureFile,
                                                  Field::Location, Field::Serial,   Field::SlideText,
                                                  Field::Make,     Field::Model,    Field::Value};

// The five settings a header record carries. The two numbers keep their text
// and the result of its conversion, so that a caller sees why one failed.
struct SifHeader {
  std::string CountText;       // unscrambled text of NumberOfRecords
  LongResult NumberOfRecords;  // its leading digits; Overflow beyond 32 bits
  std::string BackgroundImage;
  std::string Wallpaper;
  std::string TemplateText;    // unscrambled text of SlideTemplate
  LongResult SlideTemplate;    // TypeMismatch when the text is no number
  std::string ReportFont;
};

// Decodes the five used fields of a header record as read from the file.
SifHeader DecodeHeader(const SlideRecord& raw);

// Replaces every field of a slide record as read from the file by its
// unscrambled text, padded to the field's width.
void DecodeSlide(SlideRecord& record);

// The same from the stored record at `stored` into the record's bytes at
// `out`; both have room for kUnscrambleSpill bytes after the record.
void DecodeSlideTo(const char* stored, char* out);

// Replaces every field of a slide record by its scrambled form, as a save
// writes it. Value alone is trimmed first; the others lose as many characters
// at their end as they have leading blanks.
void EncodeSlide(SlideRecord& record);

}  // namespace cb
