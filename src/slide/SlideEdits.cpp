// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide/SlideEdits.h"

#include <cmath>

#include "base/NumberRules.h"
#include "base/Text.h"

namespace cb {
namespace {
std::string Shown(const SlideRecord& slide, Field f) { return StripAtNul(Trim(slide.Get(f))); }
}  // namespace

SlideEdits EditsFromSlide(const SlideRecord& slide) {
  return {Shown(slide, Field::SlideText), Shown(slide, Field::Category), Shown(slide, Field::Location),
          Shown(slide, Field::Serial),    Shown(slide, Field::Make),     Shown(slide, Field::Model),
          Shown(slide, Field::Value)};
}

std::string BlanksToUnderscores(std::string_view text) {
  std::string out = Trim(text);
  for (char& c : out)
    if (c == ' ') c = '_';
  return out;
}

std::optional<std::string> StoreEdits(const SlideEdits& typed, std::int32_t n, SlideArray& slides) {
  // Record 0 is the file's header, never a slide.
  if (n < 1 || static_cast<std::size_t>(n) >= slides.size()) return std::nullopt;
  SlideRecord& slide = slides[static_cast<std::size_t>(n)];
  slide.Set(Field::SlideText, Trim(typed.text));
  slide.Set(Field::Category, BlanksToUnderscores(typed.category));
  slide.Set(Field::Location, BlanksToUnderscores(typed.location));
  slide.Set(Field::Serial, typed.serial);
  const double value = LeadingNumber(typed.value);
  if (std::isfinite(value)) slide.Set(Field::Value, NumberText(value));
  slide.Set(Field::Make, typed.make);
  slide.Set(Field::Model, typed.model);
  return "Slide: " + std::to_string(n) + " (" + Trim(slide.Get(Field::SlideText)) + ")";
}

}  // namespace cb
