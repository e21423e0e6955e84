// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What each template calls the fields of a slide, as its editor labels them.

#include <array>
#include <cstdint>
#include <string_view>

#include "model/SlideRecord.h"

namespace cb::pack {

inline constexpr std::array<std::string_view, 4> kTemplateNames{"", "Home Security", "Real Estate", "Car Yard"};

// The label of a field under Home Security, Real Estate and Car Yard, in the
// order a listing shows them.
struct FieldLabel {
  Field field;
  std::array<std::string_view, 3> label;
};

inline constexpr std::array<FieldLabel, 9> kFieldLabels{{
    {Field::PictureFile, {"Picture", "Picture", "Picture"}},
    {Field::SlideText, {"Slide Text", "Slide Text", "Slide Text"}},
    {Field::Category, {"Category", "Category", "Category"}},
    {Field::Location, {"Location", "Suburb", "Year"}},
    {Field::Serial, {"Serial #", "Street", "Regn #"}},
    {Field::Make, {"Make", "Bedrooms", "Colour"}},
    {Field::Model, {"Model", "Extras", "Extras"}},
    {Field::Value, {"Total Value", "Ask Price", "Price"}},
    {Field::Spare, {"Spare", "Spare", "Spare"}},
}};

// The column of the labels for `slideTemplate`; a code outside 1 to 3 is
// edited as Home Security.
constexpr std::size_t LabelColumn(std::int32_t slideTemplate) {
  return slideTemplate >= 1 && slideTemplate <= 3 ? static_cast<std::size_t>(slideTemplate - 1) : 0;
}

constexpr std::string_view LabelOf(Field f, std::int32_t slideTemplate) {
  for (const auto& l : kFieldLabels)
    if (l.field == f) return l.label[LabelColumn(slideTemplate)];
  return {};
}

}  // namespace cb::pack
