// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "model/PictureRegion.h"

namespace cb {
namespace {

constexpr double kBudget = 16 << 20;  // pixels

TEST(PictureRegionTest, CoveringScale) {
  const struct {
    long w, h;
    double needW, needH;
    int eighths;
  } rows[] = {
      {8000, 6000, 1000, 750, 1},     // exactly an eighth
      {8000, 6000, 1001, 750, 2},     // one pixel more needs the next step
      {8000, 6000, 700, 5000, 7},     // the taller need decides
      {8001, 6001, 1001, 751, 1},     // the decoder rounds 1000.125 up to 1001
      {8000, 6000, 20000, 9000, 8},   // past full scale: full scale
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
      {"fitted_48mp_whole_at_a_quarter", 8000, 6000, 1900, 1000, {0, 0, 1900, 1000}, {2, {0, 0, 8000, 6000}}},
      {"fitted_200mp_whole_at_an_eighth", 16000, 12500, 1900, 1000, {0, 0, 1900, 1000}, {1, {0, 0, 16000, 12500}}},
      {"zoomed_past_full_scale_a_region", 8000, 6000, 16000, 12000, {4000, 3000, 1000, 800},
       {8, {1999, 1499, 502, 402}}},
      {"region_clipped_at_the_picture", 8000, 6000, 16000, 12000, {15500, -50, 1000, 800},
       {8, {7749, 0, 251, 376}}},
      {"region_too_big_goes_coarser", 8000, 6000, 40000, 30000, {0, 0, 40000, 30000}, {4, {0, 0, 8000, 6000}}},
      {"nothing_exposed", 8000, 6000, 16000, 12000, {-2000, 0, 1000, 800}, {8, {}}},
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
      {{false, false, false}, {1, 2, 10, 5}},  {{true, false, false}, {29, 2, 10, 5}},
      {{false, true, false}, {1, 23, 10, 5}},  {{true, true, false}, {29, 23, 10, 5}},
      {{false, false, true}, {23, 1, 5, 10}},  {{true, false, true}, {23, 29, 5, 10}},
      {{false, true, true}, {2, 1, 5, 10}},    {{true, true, true}, {2, 29, 5, 10}},
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
      // The whole picture decoded at a quarter onto a 1000 x 750 element.
      {"whole_picture", {0, 0, 1000, 750}, {0, 0, 8000, 6000}, 1000, 750, 2000, 1500,
       {{0, 0, 1000, 750}, {0, 0, 2000, 1500}}},
      {"part_of_the_paint", {100, 50, 10, 10}, {0, 0, 8000, 6000}, 1000, 750, 2000, 1500,
       {{100, 50, 10, 10}, {200, 100, 20, 20}}},
      // Four element pixels a picture pixel; the image holds pixels 1000..1100 at full scale.
      {"region_inside_a_zoomed_element", {3900, 4000, 800, 100}, {1000, 1000, 100, 50}, 32000, 24000, 100, 50,
       {{4000, 4000, 400, 100}, {0, 0, 100, 25}}},
      {"paint_beside_the_region", {0, 0, 100, 100}, {1000, 1000, 100, 50}, 32000, 24000, 100, 50, {}},
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.name);
    const DrawnPart got = PartToDraw(r.paint, r.ew, r.eh, 8000, 6000, r.region, r.iw, r.ih);
    EXPECT_EQ(got.target, r.part.target);
    EXPECT_EQ(got.source, r.part.source);
  }
}

}  // namespace
}  // namespace cb
