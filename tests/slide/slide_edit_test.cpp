// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "slide/SlideEdits.h"
#include "slide/UIEditSlideController.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using testing::Slide;

// `text` padded with blanks to the width of `field`, as the record holds it.
std::string Padded(Field field, std::string text) {
  text.resize(LayoutOf(field).width, ' ');
  return text;
}

TEST(OkRule, StoresTheFieldByItsRule) {
  const struct {
    const char* name;
    Field field;
    std::string SlideEdits::*box;
    std::string typed;
    std::string stored;  // before padding
  } rows[] = {
      {"empty_value", Field::Value, &SlideEdits::value, "", "0"},
      {"thousands_separator", Field::Value, &SlideEdits::value, "1,500", "1"},
      {"long_number_loses_its_tail", Field::Value, &SlideEdits::value, "1234567.12345", "1234567.123"},
      {"twenty_digits", Field::Value, &SlideEdits::value, "100000000000000000000", "1E+20"},
      {"overflow_keeps_the_old_value", Field::Value, &SlideEdits::value, "1E+400", "250"},
      {"category_trimmed_blanks_underscored", Field::Category, &SlideEdits::category, "  Living Room  ", "Living_Room"},
      {"location_each_blank_its_underscore", Field::Location, &SlideEdits::location, "Back  Yard", "Back__Yard"},
      {"text_trimmed", Field::SlideText, &SlideEdits::text, "  Lounge chair  ", "Lounge chair"},
      {"text_cut_to_100", Field::SlideText, &SlideEdits::text, std::string(100, 'a') + std::string(50, 'b'),
       std::string(100, 'a')},
      {"category_cut_to_26", Field::Category, &SlideEdits::category, std::string(30, 'c'), std::string(26, 'c')},
      {"serial_as_typed", Field::Serial, &SlideEdits::serial, "  A1 ", "  A1 "},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SlideArray slides{SlideRecord(), SlideRecord(), Slide({{Field::PictureFile, "a.jpg"}, {Field::Value, "250"}})};
    SlideEdits typed = EditsFromSlide(slides[2]);
    typed.*row.box = row.typed;
    const auto status = StoreEdits(typed, 2, slides);
    EXPECT_EQ(slides[2].Get(row.field), Padded(row.field, row.stored));
    EXPECT_EQ(Trim(slides[2].Get(Field::PictureFile)), "a.jpg");  // the editor renames nothing
    EXPECT_EQ(status.value_or(""), "Slide: 2 (" + Trim(slides[2].Get(Field::SlideText)) + ")");  // the text as cut
  }
}

TEST(StoreEdits, NoSlideAtTheNumberWritesNothing) {
  SlideArray slides{Slide({{Field::Spare, "1"}}), Slide({{Field::SlideText, "one"}})};
  const SlideArray before = slides;
  SlideEdits typed;
  typed.text = "lost";
  for (std::int32_t n : {0, 2, -1}) {
    EXPECT_FALSE(StoreEdits(typed, n, slides)) << n;
    EXPECT_EQ(slides, before) << n;
  }
}

using FilenamePath = testing::SifFixture;

TEST_F(FilenamePath, FitsTheBoxInUpperCase) {
  Start().CurrentImageNumber(2);
  g.Slides = {SlideRecord(), Slide({{Field::PictureFile, "other.jpg"}}), Slide({{Field::PictureFile, " lounge.jpg "}})};
  const struct {
    const char* name;
    std::string path;
    std::string shown;
  } rows[] = {
      {"fifty_characters_left_whole", "/home/ann/chattelbook-inventory/Gallery/lounge.jpg",
       "/HOME/ANN/CHATTELBOOK-INVENTORY/GALLERY/LOUNGE.JPG"},
      {"fifty_one_characters_shortened", "/home/anne/chattelbook-inventory/Gallery/lounge.jpg", "/HOME/.../LOUNGE.JPG"},
      {"short_path_only_upper_case", "C:/Program Files/Inventory/Gallery/lounge.jpg",
       "C:/PROGRAM FILES/INVENTORY/GALLERY/LOUNGE.JPG"},
      {"no_second_slash_keeps_nothing_before", std::string(60, 'x') + "/lounge.jpg", ".../LOUNGE.JPG"},
      {"code_page_letters_upper_case", "/caf\xE9/\x9C\xFF\xF7.jpg", "/CAF\xC9/\x8C\x9F\xF7.JPG"},
  };
  for (const auto& row : rows) EXPECT_EQ(UIEditSlideController(g).GetFilenamePath(row.path), row.shown) << row.name;
}

}  // namespace
}  // namespace cb
