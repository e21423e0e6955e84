// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/SlideNames.h"

#include "base/Text.h"

namespace cb {
namespace {

constexpr std::string_view kSlideCaption = "Slide ";
constexpr std::string_view kCaptionSeparator = " - ";
constexpr std::size_t kExtensionLength = 4;  // ".jpg"

}  // namespace

std::optional<std::string> SlidePictureName(std::string_view pictureFile) {
  const std::string name = Trim(pictureFile);
  const auto dot = name.find('.');
  if (dot == std::string::npos) return std::nullopt;
  // A name shorter than the extension gives all of itself as the tail.
  const std::size_t tail = name.size() < kExtensionLength ? name.size() : kExtensionLength;
  return name.substr(0, dot) + name.substr(name.size() - tail);
}

std::string SlideCaption(std::string_view slideText, std::int32_t n) {
  std::string caption = std::string(kSlideCaption) + std::to_string(n);
  const std::string text = Trim(slideText);
  if (!text.empty() && text.front() != '\0') caption += std::string(kCaptionSeparator) + text;
  return caption;
}

std::string SlideToolTip(std::string_view slideText) {
  static constexpr std::string_view kClickToEnlarge = "Click to enlarge";
  std::string text = Trim(slideText);
  return text.empty() ? std::string(kClickToEnlarge) : text;
}

std::string SlideAccessibleName(std::int32_t record, std::string_view slideText) {
  std::string name = "Slide " + std::to_string(record);
  if (std::string text = Trim(slideText); !text.empty()) name += ": " + text;
  return name;
}

}  // namespace cb
