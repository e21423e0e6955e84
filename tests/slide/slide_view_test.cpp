// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "model/SlideNames.h"
#include "slide/Zoom.h"

namespace cb {
namespace {

using namespace std::string_literals;

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

}  // namespace
}  // namespace cb
