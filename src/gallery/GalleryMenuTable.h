// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The gallery's own menu bar, which stands in for the main window's while
// the gallery is active, its four popups, and its what's-this notes.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "state/MDIMainRules.h"

namespace cb {

const std::vector<MenuItemRow>& GalleryMenu();

// The caption of Undo or Redo (`item`) naming the step it would take,
// "&Undo Edit Slide"; the bare caption when there is none.
std::string StepCaption(MenuId item, const std::optional<std::string>& step);

struct WhatNote {
  MenuId item;
  long height;  // twips
  long width;
  std::string_view text;
};

extern const std::array<WhatNote, 3> kGalleryWhatNotes;

}  // namespace cb
