// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "model/PictureRegion.h"
#include "model/SlideNames.h"
#include "slide/SlideEdits.h"
#include "slide/UIEditSlideController.h"
#include "slide/Zoom.h"
#include "support/SifFixture.h"

namespace cb {
namespace {

using namespace std::string_literals;
using testing::Slide;

constexpr ElementRect kFitted{0, 0, 7725, 5355};

// The click goes to the centre at the old scale; in grows from the corner after, out shrinks before.
TEST(ZoomTest, StepMovesThenScales) {
  const struct {
    const char* name;
    ElementRect image;
    double clickX, clickY;
    bool in;
    ElementRect expected;
  } rows[] = {
      {"in_on_the_fitted_picture", kFitted, 1000, 500, true, {2862.5f, 2177.5f, 9270, 6426}},
      {"out_on_the_fitted_picture", kFitted, 1000, 500, false, {2862.5f, 2177.5f, 6437.5f, 4462.5f}},
      {"in_at_the_corner_of_a_moved_picture", {-500, 300, 2000, 1000}, 0, 0, true, {3862.5f, 2677.5f, 2400, 1200}},
      {"out_at_far_corner", {-500, 300, 2000, 1000}, 2000, 1000, false, {1862.5f, 1677.4999f, 1666.6666f, 833.3333f}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(ZoomStep(row.image, kFitted.Width, kFitted.Height, row.clickX, row.clickY, row.in), row.expected)
        << row.name;
}

TEST(ZoomTest, RefusalFitResetAndButtons) {
  // A length past the element's limit is refused; the other writes stand.
  EXPECT_EQ(ZoomStep({0, 0, 1000, 800}, 2000, 1000, 100, 100, true, 1100), (ElementRect{900, 400, 1000, 960}));
  EXPECT_EQ(FitImage({-300, 120, 9000, 6000}, 8000, 5000), (ElementRect{-300, 120, 8000, 5000}));
  EXPECT_EQ(ResetImage(8000, 5000), (ElementRect{0, 0, 8000, 5000}));
  EXPECT_EQ(ButtonsForClick({0, 0}), (ZoomButtons{1, 0}));
  EXPECT_EQ(ButtonsForClick({0, 1}), (ZoomButtons{0, 1}));
}

TEST(SlideNamesTest, PictureNameAndCaption) {
  const std::pair<std::string, std::optional<std::string>> names[] = {
      {"  chair.jpg     ", "chair.jpg"},
      {"a.b.jpg", "a.jpg"},
      {"IMG_0001.JPEG", "IMG_0001JPEG"},  // the last four characters, whatever they are
      {"a.b", "aa.b"},                    // shorter than four: all of it
      {"nodot", std::nullopt},
  };
  for (const auto& [field, name] : names) EXPECT_EQ(SlidePictureName(field), name) << field;

  const std::tuple<std::string, std::int32_t, std::string> captions[] = {
      {"     ", 7, "Slide 7"},
      {"  Lounge suite  ", 12, "Slide 12 - Lounge suite"},
      {"  \0Lounge"s, 3, "Slide 3"},
  };
  for (const auto& [text, n, caption] : captions) EXPECT_EQ(SlideCaption(text, n), caption);
}

constexpr double kBudget = 16 << 20;  // pixels

TEST(PictureRegionTest, CoveringScale) {
  const struct {
    long w, h;
    double needW, needH;
    int eighths;
  } rows[] = {
      {8000, 6000, 1000, 750, 1},    // exactly an eighth
      {8000, 6000, 1001, 750, 2},    // one pixel more needs the next step
      {8000, 6000, 700, 5000, 7},    // the taller need decides
      {8001, 6001, 1001, 751, 1},    // the decoder rounds 1000.125 up to 1001
      {8000, 6000, 20000, 9000, 8},  // past full scale: full scale
  };
  for (const auto& r : rows) EXPECT_EQ(CoveringEighths(r.w, r.h, r.needW, r.needH), r.eighths) << r.needW;
}

// Whole while it fits the budget; past that the exposed part plus a pixel, coarser if still too big.
TEST(PictureRegionTest, PlanDecode) {
  const struct {
    const char* name;
    long w, h;
    double ew, eh;
    PixelBox exposed;
    DecodePlan plan;
  } rows[] = {
      // clang-format off
      {"fitted_48mp_whole_at_a_quarter", 8000, 6000, 1900, 1000, {0, 0, 1900, 1000}, {2, {0, 0, 8000, 6000}}},
      {"fitted_200mp_whole_at_an_eighth", 16000, 12500, 1900, 1000, {0, 0, 1900, 1000}, {1, {0, 0, 16000, 12500}}},
      {"zoomed_past_full_scale_a_region", 8000, 6000, 16000, 12000, {4000, 3000, 1000, 800},
       {8, {1999, 1499, 502, 402}}},
      {"region_clipped_at_the_picture", 8000, 6000, 16000, 12000, {15500, -50, 1000, 800},
       {8, {7749, 0, 251, 376}}},
      {"region_too_big_goes_coarser", 8000, 6000, 40000, 30000, {0, 0, 40000, 30000}, {4, {0, 0, 8000, 6000}}},
      {"nothing_exposed", 8000, 6000, 16000, 12000, {-2000, 0, 1000, 800}, {8, {}}},
      // clang-format on
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.name);
    const DecodePlan got = PlanDecode(r.w, r.h, r.ew, r.eh, r.exposed, kBudget);
    EXPECT_EQ(got.eighths, r.plan.eighths);
    EXPECT_EQ(got.region, r.plan.region);
  }
}

TEST(PictureRegionTest, CoversNeedsScaleAndRegion) {
  const DecodePlan whole{2, {0, 0, 8000, 6000}};
  const DecodePlan part{8, {100, 100, 500, 400}};
  EXPECT_TRUE(Covers(whole, {1, {0, 0, 8000, 6000}}));
  EXPECT_FALSE(Covers(whole, {3, {0, 0, 8000, 6000}}));
  EXPECT_TRUE(Covers(part, {8, {100, 100, 500, 400}}));
  EXPECT_FALSE(Covers(part, {8, {99, 100, 500, 400}}));
  EXPECT_FALSE(Covers(part, {2, {0, 0, 8000, 6000}}));
  EXPECT_FALSE(Covers({}, {1, {0, 0, 1, 1}}));
  EXPECT_TRUE(Covers({}, {8, {}}));
}

// A 40 x 30 picture's box {1, 2, 10, 5} under each of the eight orientations, and back again.
TEST(PictureRegionTest, OrientationsTurnBoxes) {
  const PixelBox stored{1, 2, 10, 5};
  const struct {
    Orientation o;
    PixelBox upright;
  } rows[] = {
      {{false, false, false}, {1, 2, 10, 5}}, {{true, false, false}, {29, 2, 10, 5}},
      {{false, true, false}, {1, 23, 10, 5}}, {{true, true, false}, {29, 23, 10, 5}},
      {{false, false, true}, {23, 1, 5, 10}}, {{true, false, true}, {23, 29, 5, 10}},
      {{false, true, true}, {2, 1, 5, 10}},   {{true, true, true}, {2, 29, 5, 10}},
  };
  for (const auto& r : rows) {
    const PixelBox up = UprightBox(stored, 40, 30, r.o);
    EXPECT_EQ(up, r.upright) << r.o.mirror << r.o.flip << r.o.rotate90;
    const double uw = r.o.rotate90 ? 30 : 40, uh = r.o.rotate90 ? 40 : 30;
    EXPECT_EQ(StoredBox(up, uw, uh, r.o), stored) << r.o.mirror << r.o.flip << r.o.rotate90;
  }
}

TEST(PictureRegionTest, PartToDraw) {
  const struct {
    const char* name;
    PixelBox paint, region;  // region: what the image holds of the 8000 x 6000 picture
    double ew, eh, iw, ih;   // element and image sizes
    DrawnPart part;
  } rows[] = {
      // clang-format off
      // The whole picture decoded at a quarter onto a 1000 x 750 element.
      {"whole_picture", {0, 0, 1000, 750}, {0, 0, 8000, 6000}, 1000, 750, 2000, 1500,
       {{0, 0, 1000, 750}, {0, 0, 2000, 1500}}},
      {"part_of_the_paint", {100, 50, 10, 10}, {0, 0, 8000, 6000}, 1000, 750, 2000, 1500,
       {{100, 50, 10, 10}, {200, 100, 20, 20}}},
      // Four element pixels a picture pixel; the image holds pixels 1000..1100 at full scale.
      {"region_inside_a_zoomed_element", {3900, 4000, 800, 100}, {1000, 1000, 100, 50}, 32000, 24000, 100, 50,
       {{4000, 4000, 400, 100}, {0, 0, 100, 25}}},
      {"paint_beside_the_region", {0, 0, 100, 100}, {1000, 1000, 100, 50}, 32000, 24000, 100, 50, {}},
      // clang-format on
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.name);
    const DrawnPart got = PartToDraw(r.paint, r.ew, r.eh, 8000, 6000, r.region, r.iw, r.ih);
    EXPECT_EQ(got.target, r.part.target);
    EXPECT_EQ(got.source, r.part.source);
  }
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
    std::string stored = row.stored;
    stored.resize(LayoutOf(row.field).width, ' ');  // padded with blanks, as the record holds it
    EXPECT_EQ(slides[2].Get(row.field), stored);
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
