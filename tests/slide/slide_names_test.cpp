// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "model/SlideNames.h"

namespace cb {
namespace {

using namespace std::string_literals;

TEST(SlideNamesTest, PictureNameAndCaption) {
  const std::pair<std::string, std::optional<std::string>> names[] = {
      {"  chair.jpg     ", "chair.jpg"}, {"a.b.jpg", "a.jpg"},
      {"IMG_0001.JPEG", "IMG_0001JPEG"},  // the last four characters, whatever they are
      {"a.b", "aa.b"},                   // shorter than four: all of it
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
