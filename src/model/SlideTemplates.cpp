// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/SlideTemplates.h"

#include <algorithm>

namespace cb {
namespace {

using C = EditControl;

// The two columns of boxes, each with its label to its left.
constexpr double kLeft = 1320, kLeftWidth = 2895;
constexpr double kRight = 5520, kRightWidth = 3015;

constexpr EditorBox L(C c, std::string_view caption, double top) { return {c, caption, kLeft, top, kLeftWidth}; }
constexpr EditorBox R(C c, std::string_view caption, double top) { return {c, caption, kRight, top, kRightWidth}; }

// The rows every template shares: the slide's number and picture, then its text.
constexpr EditorBox kNumber{C::txtSlideNumber, "Slide No.", kLeft, 240, 975};
constexpr EditorBox kFile{C::txtFilename, "Filename", 3600, 240, 4935};
constexpr EditorBox kText{C::txtEditText, "Slide Text", kLeft, 720, 7215};

constexpr std::array<C, 10> kHomeTabs{C::txtEditText, C::cboLocation, C::cboCategory, C::txtSerial, C::txtMake,
                                      C::txtValue,    C::txtModel,    C::cmdOK,       C::cmdCancel, C::cmdHelp};
constexpr std::array<C, 10> kOtherTabs{C::txtEditText, C::cboCategory, C::txtSerial, C::cboLocation, C::txtMake,
                                       C::txtModel,    C::txtValue,    C::cmdOK,     C::cmdCancel,   C::cmdHelp};

constexpr std::string_view kNames[kEditControls] = {
    "txtSlideNumber", "txtFilename", "txtEditText", "cboCategory", "cboLocation", "txtSerial",
    "txtMake",        "txtModel",    "txtValue",    "cmdOK",       "cmdCancel",   "cmdHelp",
};

}  // namespace

// clang-format off
const std::array<SlideTemplateLayout, 3> kSlideTemplates{{
    {1, "frmEditSlide", "optHome", "Home (Default)", 8775, 3270, 2760,
     {kNumber, kFile, kText,
      L(C::cboLocation, "Location", 1200), R(C::cboCategory, "Category", 1200),
      L(C::txtSerial, "Serial #", 1680), R(C::txtMake, "Make", 1680),
      L(C::txtValue, "Total Value", 2160), R(C::txtModel, "Model", 2160)},
     kHomeTabs},
    {2, "frmEditSlideRE", "optRE", "Real Estate", 8775, 3795, 3240,
     {kNumber, kFile, kText,
      L(C::cboCategory, "Category", 1200),
      L(C::txtSerial, "Street", 1680), R(C::cboLocation, "Suburb", 1680),
      L(C::txtMake, "Bedrooms", 2160), R(C::txtModel, "Extras", 2160),
      L(C::txtValue, "Ask Price", 2640)},
     kOtherTabs},
    {3, "frmEditSlideVEH", "optVEH", "Car Yard", 8775, 3795, 3240,
     {kNumber, kFile, kText,
      L(C::cboCategory, "Category", 1200),
      L(C::txtSerial, "Regn #", 1680), R(C::cboLocation, "Year", 1680),
      L(C::txtMake, "Colour", 2160), R(C::txtModel, "Extras", 2160),
      L(C::txtValue, "Price", 2640)},
     kOtherTabs},
}};
// clang-format on

std::string_view ControlName(EditControl c) { return kNames[static_cast<std::size_t>(c)]; }

const SlideTemplateLayout& TemplateFor(std::int32_t code) {
  for (const auto& t : kSlideTemplates)
    if (t.code == code) return t;
  return kSlideTemplates[0];
}

LabelPlace LabelFor(const SlideTemplateLayout& entry, const EditorBox& box) {
  constexpr double kGap = 60, kMargin = 120;
  double from = kMargin;
  for (const EditorBox& other : entry.boxes)
    if (other.top == box.top && other.left < box.left) from = std::max(from, other.left + other.width + kMargin);
  return {from, box.left - kGap - from};
}

}  // namespace cb
