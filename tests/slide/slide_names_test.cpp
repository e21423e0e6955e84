#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "slide/SlideNames.h"

namespace cb {
namespace {

using namespace std::string_literals;

TEST(SlideNamesTest, PictureName) {
  const std::pair<std::string, std::optional<std::string>> rows[] = {
      {"chair.jpg", "chair.jpg"},
      {"  chair.jpg            ", "chair.jpg"},
      {"a.b.jpg", "a.jpg"},
      {"IMG_0001.JPEG", "IMG_0001JPEG"},  // the last four characters, whatever they are
      {"a.b", "aa.b"},                   // shorter than four: all of it
      {".jpg", ".jpg"},
      {"nodot", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& [field, name] : rows) EXPECT_EQ(SlidePictureName(field), name) << field;
}

TEST(SlideNamesTest, Caption) {
  const std::tuple<std::string, std::int32_t, std::string> rows[] = {
      {"", 7, "Slide 7"},
      {"     ", 7, "Slide 7"},
      {"Lounge", 7, "Slide 7 - Lounge"},
      {"  Lounge suite  ", 12, "Slide 12 - Lounge suite"},
      {"\0\0\0"s, 3, "Slide 3"},
      {"  \0Lounge"s, 3, "Slide 3"},
      {"Lounge\0"s, 3, "Slide 3 - Lounge\0"s},
  };
  for (const auto& [text, n, caption] : rows) EXPECT_EQ(SlideCaption(text, n), caption);
}

}  // namespace
}  // namespace cb
