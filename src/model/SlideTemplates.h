// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The three slide templates (1 Home Security, 2 Real Estate, 3 Car Yard):
// one record layout, read under three sets of meanings. A template gives the
// slide editor its labels, layout and tab order; the stored bytes never
// change with it. Measures are twips.

#include <array>
#include <cstdint>
#include <string_view>

namespace cb {

// The slide editor's controls, the same in every template.
// clang-format off
enum class EditControl {
  txtSlideNumber, txtFilename, txtEditText, cboCategory, cboLocation,
  txtSerial, txtMake, txtModel, txtValue, cmdOK, cmdCancel, cmdHelp, Count
};
// clang-format on

inline constexpr std::size_t kEditControls = static_cast<std::size_t>(EditControl::Count);

// The control's object name ("txtEditText").
std::string_view ControlName(EditControl c);

// A box of the editor with its label to the left; the box is kBoxHeight high.
struct EditorBox {
  EditControl control;
  std::string_view caption;
  double left, top, width;
};

inline constexpr double kBoxHeight = 315;

struct SlideTemplateLayout {
  std::int32_t code;
  std::string_view editorName;  // the editor's object name
  std::string_view optionName;  // the option of the template dialog
  std::string_view optionCaption;
  double clientWidth, clientHeight;
  double buttonsTop;
  std::array<EditorBox, 9> boxes;  // every box, txtSlideNumber and txtFilename first
  std::array<EditControl, 10> tabOrder;
};

// Where the label of `box` stands on its row: right-aligned against the box,
// filling the room back to the box before it on the row, or to the window's edge.
struct LabelPlace {
  double left, width;
};
LabelPlace LabelFor(const SlideTemplateLayout& entry, const EditorBox& box);

// Codes 1, 2, 3 in order.
extern const std::array<SlideTemplateLayout, 3> kSlideTemplates;

// The template of `code`; a code outside 1 to 3 gives Home Security's.
const SlideTemplateLayout& TemplateFor(std::int32_t code);

}  // namespace cb
