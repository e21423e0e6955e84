#include <gtest/gtest.h>

#include <cmath>

#include "slide/Zoom.h"

namespace cb {
namespace {

constexpr double kClientWidth = 7725;
constexpr double kClientHeight = 5355;
constexpr ElementRect kFitted{0, 0, 7725, 5355};

// The clicked point goes to the centre at the old scale; in grows the
// element from its corner afterwards, out shrinks it before.
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
      {"out_at_the_far_corner", {-500, 300, 2000, 1000}, 2000, 1000, false,
       {1862.5f, 1677.5f, 1666.6666f, 833.3333f}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto r = ZoomStep(row.image, kClientWidth, kClientHeight, row.clickX, row.clickY, row.in);
    EXPECT_FLOAT_EQ(r.Left, row.expected.Left);
    EXPECT_FLOAT_EQ(r.Top, row.expected.Top);
    EXPECT_FLOAT_EQ(r.Width, row.expected.Width);
    EXPECT_FLOAT_EQ(r.Height, row.expected.Height);
  }
}

// After a step in, the clicked point lies beyond the centre by 0.2 of its
// distance from the picture's corner; twenty steps grow it 1.2^20 times.
TEST(ZoomTest, DriftsAndHasNoLimit) {
  for (double c : {0.0, 1000.0, 5000.0, -300.0}) {
    const auto r = ZoomStep(kFitted, kClientWidth, kClientHeight, c, c, true);
    EXPECT_NEAR(r.Left + kZoomStep * c - kClientWidth / 2, 0.2 * c, 1e-2) << c;
    EXPECT_NEAR(r.Top + kZoomStep * c - kClientHeight / 2, 0.2 * c, 1e-2) << c;
  }
  ElementRect r = kFitted;
  for (int i = 0; i < 20; ++i) r = ZoomStep(r, kClientWidth, kClientHeight, 10, 10, true);
  EXPECT_NEAR(r.Width / kFitted.Width, std::pow(1.2, 20), 1e-3);
}

TEST(ZoomTest, RefusalFitResetAndButtons) {
  // A length past the element's limit is refused; the other writes stand.
  EXPECT_EQ(ZoomStep({0, 0, 1000, 800}, 2000, 1000, 100, 100, true, 1100),
            (ElementRect{900, 400, 1000, 960}));
  EXPECT_EQ(FitImage({-300, 120, 9000, 6000}, 8000, 5000), (ElementRect{-300, 120, 8000, 5000}));
  EXPECT_EQ(ResetImage(8000, 5000), (ElementRect{0, 0, 8000, 5000}));
  EXPECT_EQ(ButtonsForClick({0, 0}), (ZoomButtons{1, 0}));
  EXPECT_EQ(ButtonsForClick({0, 1}), (ZoomButtons{0, 1}));
}

}  // namespace
}  // namespace cb
