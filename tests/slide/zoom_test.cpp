#include <gtest/gtest.h>

#include <cmath>

#include "slide/Zoom.h"

namespace cb {
namespace {

constexpr double kClientWidth = 7725;
constexpr double kClientHeight = 5355;
constexpr ElementRect kFitted{0, 0, 7725, 5355};

struct ZoomRow {
  ElementRect image;
  double clickX;
  double clickY;
  bool in;
  ElementRect expected;
};

// The clicked point goes to the centre at the old scale; in grows the
// element from its corner afterwards, out shrinks it before.
const ZoomRow kZoomRows[] = {
    {kFitted, 1000, 500, true, {2862.5f, 2177.5f, 9270, 6426}},
    {kFitted, 1000, 500, false, {2862.5f, 2177.5f, 6437.5f, 4462.5f}},
    {{-500, 300, 2000, 1000}, 0, 0, true, {3862.5f, 2677.5f, 2400, 1200}},
    {{-500, 300, 2000, 1000}, 2000, 1000, false, {1862.5f, 1677.5f, 1666.6666f, 833.3333f}},
};

class ZoomStepTest : public ::testing::TestWithParam<ZoomRow> {};

TEST_P(ZoomStepTest, MovesAndScales) {
  const auto& row = GetParam();
  const auto r = ZoomStep(row.image, kClientWidth, kClientHeight, row.clickX, row.clickY, row.in);
  EXPECT_FLOAT_EQ(r.Left, row.expected.Left);
  EXPECT_FLOAT_EQ(r.Top, row.expected.Top);
  EXPECT_FLOAT_EQ(r.Width, row.expected.Width);
  EXPECT_FLOAT_EQ(r.Height, row.expected.Height);
}

INSTANTIATE_TEST_SUITE_P(Rows, ZoomStepTest, ::testing::ValuesIn(kZoomRows));

// After a step in, the clicked point lies beyond the centre by 0.2 of its
// distance from the picture's corner.
TEST(ZoomTest, StepInDriftsPastTheCentre) {
  const std::pair<double, double> clicks[] = {{0, 0}, {1000, 500}, {7000, 5000}, {-300, 9000}};
  for (auto [cx, cy] : clicks) {
    const auto r = ZoomStep(kFitted, kClientWidth, kClientHeight, cx, cy, true);
    EXPECT_NEAR(r.Left + kZoomStep * cx - kClientWidth / 2, 0.2 * cx, 1e-2) << cx;
    EXPECT_NEAR(r.Top + kZoomStep * cy - kClientHeight / 2, 0.2 * cy, 1e-2) << cy;
  }
}

TEST(ZoomTest, TwentyStepsInHaveNoLimit) {
  ElementRect r = kFitted;
  for (int i = 0; i < 20; ++i) r = ZoomStep(r, kClientWidth, kClientHeight, 10, 10, true);
  const double growth = std::pow(1.2, 20);  // about 38.34
  EXPECT_NEAR(r.Width / kFitted.Width, growth, growth * 1e-5);
  EXPECT_NEAR(r.Height / kFitted.Height, growth, growth * 1e-5);
}

TEST(ZoomTest, InThenOutComesBackNearlyToTheSize) {
  const auto in = ZoomStep(kFitted, kClientWidth, kClientHeight, 1234.5, 678.9, true);
  const auto out = ZoomStep(in, kClientWidth, kClientHeight, 1234.5, 678.9, false);
  EXPECT_NEAR(out.Width, kFitted.Width, 1e-2);
  EXPECT_NEAR(out.Height, kFitted.Height, 1e-2);
  EXPECT_FLOAT_EQ(out.Left, kClientWidth / 2 - 1234.5);
}

// A length past the element's limit is refused; the other writes stand.
TEST(ZoomTest, RefusedLengthKeepsItsValue) {
  const auto r = ZoomStep({0, 0, 1000, 800}, 2000, 1000, 100, 100, true, 1100);
  EXPECT_EQ(r, (ElementRect{900, 400, 1000, 960}));
}

TEST(ZoomTest, FitResetAndButtons) {
  const ElementRect panned{-300, 120, 9000, 6000};
  EXPECT_EQ(FitImage(panned, 8000, 5000), (ElementRect{-300, 120, 8000, 5000}));
  EXPECT_EQ(ResetImage(8000, 5000), (ElementRect{0, 0, 8000, 5000}));

  const std::pair<ZoomButtons, ZoomButtons> buttons[] = {
      {{0, 0}, {1, 0}}, {{0, 1}, {0, 1}}, {{1, 0}, {1, 0}}};
  for (auto [before, after] : buttons) EXPECT_EQ(ButtonsForClick(before), after);
  EXPECT_FALSE(ZoomingIn(ButtonsForClick({0, 1})));
  EXPECT_TRUE(ZoomingIn(ButtonsForClick({0, 0})));
}

}  // namespace
}  // namespace cb
